// SPDX-License-Identifier: MIT
// shell/finestra.h
//
// What the run needs of the window and cannot answer itself. Two homes implement it: one
// without a window and one with. The states of the controls are not here but in the state
// (shell/state.h), so that both homes run the same logic; what they get is word of a change.
#pragma once

#include "text/primitive.h"

namespace morvella {

struct Barra;

/// The button and icon flags of a MsgBox, and its answers.
enum FlagMsgBox : int {
    OkStop = 16,
    OkDomanda = 32,
    SiNoDomanda = 36,
    OkInformazione = 64,
    SiNoInformazione = 68
};
enum RispostaMsgBox : int { RispostaOk = 1, RispostaSi = 6, RispostaNo = 7 };

/// An engine that the handler ended. The window says nothing of it.
struct Arresto {
    Vista Motore;             // the operation that was called, "mnuRiordina_Click"
    Lungo Riga = -1;          // the row of File1 in work, -1 before the first
    bool SecondoGiro = false; // the rewriter's second stage: the earlier rows are complete
    Errore Causa{0};
};

class Finestra {
  public:
    virtual ~Finestra() = default;

    /// Shows a box and waits; gives the button pressed. `titolo` "" is the program's title.
    virtual int MsgBox(Vista testo, int flag, Vista titolo) = 0;
    virtual void Beep() = 0;
    /// Starts another program by `Shell`; raises 53 when there is none.
    virtual void Avvia(Vista comando, int finestra) = 0;
    /// The caption of Label2 changed.
    virtual void RidisegnaLabel2() = 0;
    /// A bar changed by as much as can be seen.
    virtual void RidisegnaBarra(const Barra& barra) = 0;
    /// `Dir1.Refresh`: read the directory list anew.
    virtual void AggiornaDir1() = 0;

    /// Word for a home that reports what the window keeps silent about.
    virtual void MotoreFermato(const Arresto& arresto) = 0;
    /// A file of row `riga` was written whole; `percorso` is its text, `righe` the lines read
    /// for it, 0 for a copy.
    virtual void FileScritto(Lungo riga, Vista percorso, Lungo righe) = 0;
};

} // namespace morvella

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
    Lungo Voce = -1;          // the row of File1 in work, -1 before the first
    bool SecondoGiro = false; // the rewriter's second stage: the earlier rows are complete
    Lungo Riga = 0;           // the line of the source in work, from 1; 0 if none was
    Lungo RigaListato = 0;    // the same line as the listing numbers it
    Testo Linea;              // the line, trimmed
    Errore Causa{0};
};

/// A step of the listing's margin. The engine keeps no stack: who wants to know which block
/// stands open watches these, with a record as long as the margin is wide.
struct PassoMargine {
    enum Genere {
        Inizio,      // a new file
        Testa,       // a procedure's head: the margin starts anew
        Apre,        // a block; Larghezza is the margin's width with its column
        Mezzo,       // an Else or a Case redraws the last column, or draws one where none was
        Chiude,      // a block; Larghezza is the margin's width without its column
        Sbilanciata, // a procedure ends with columns in Margine: the error line is written
        Fine,        // a procedure's end, behind its balance test
    };
    Genere Che;
    Lungo Voce;        // the row of File1
    Lungo Riga;        // of the source, from 1
    Lungo RigaListato; // as the listing numbers it
    Lungo Larghezza;   // of the margin, in bytes
    Vista Margine;
    Vista Testo; // the source line, trimmed
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

    /// The focus goes to Text1.
    virtual void PortaFuocoSuText1() = 0;

    /// For a front end that reports what the window keeps silent about.
    virtual void MotoreFermato(const Arresto& arresto) = 0;
    /// Bytes did not reach a file in a place that passes over its errors.
    virtual void ErroreSaltato(const Errore& causa) = 0;
    /// A file of row `voce` was written whole; `percorso` is its text, `righe` the lines read
    /// for it, 0 for a copy.
    virtual void FileScritto(Lungo voce, Vista percorso, Lungo righe) = 0;
    /// Whether this front end watches the margin: MargineMosso is called only then. Asked once per
    /// file; a listing nobody watches is made faster, with the same bytes.
    virtual bool SegueMargine() const { return true; }
    /// The listing's margin moved.
    virtual void MargineMosso(const PassoMargine& passo) = 0;
};

} // namespace morvella

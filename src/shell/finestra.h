// SPDX-License-Identifier: MIT
// shell/finestra.h
//
// What a run asks of its front end and reports to it. The command line and the window implement
// it. The controls' states are in shell/state.h, so that both front ends run the same logic; here
// they learn of changes.
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

/// Where and why the handler ended an engine. The window itself shows nothing of it.
struct Arresto {
    Vista Motore;             // "mnuRiordina_Click"; "Close" when closing its files lost bytes
    Lungo Voce = -1;          // the current row of File1, -1 before the first
    bool SecondoGiro = false; // the rewriter's second stage: earlier rows are complete
    Lungo Riga = 0;           // the current line of the source, from 1; 0: none
    Lungo RigaListato = 0;    // its number in the listing
    Testo Linea;              // the line: trimmed in the code, raw in the rewriter's head
    Errore Causa{0};
};

/// A change of the listing's margin. The engine keeps no stack; an observer rebuilds one from
/// these, with one entry for each column of the margin.
struct PassoMargine {
    enum Genere {
        Inizio,      // a new file
        Testa,       // a procedure's head resets the margin
        Apre,        // a block opens; Larghezza includes its column
        Mezzo,       // an Else or a Case redraws the last column, or draws one where none was
        Chiude,      // a block closes; Larghezza is without its column
        Sbilanciata, // a procedure ends with columns left in Margine: the error line is written
        Fine,        // a procedure's end, after its balance test
    };
    Genere Che;
    Lungo Voce;        // the row of File1
    Lungo Riga;        // of the source, from 1
    Lungo RigaListato; // its number in the listing
    Lungo Larghezza;   // of the margin, in bytes
    Vista Margine;
    Vista Testo; // the source line, trimmed
};

class Finestra {
  public:
    virtual ~Finestra() = default;

    /// Shows a box, waits and returns the button pressed. `titolo` "" is the program's title.
    virtual int MsgBox(Vista testo, int flag, Vista titolo) = 0;
    virtual void Beep() = 0;
    /// Starts another program by `Shell`; raises 53 when there is none.
    virtual void Avvia(Vista comando, int finestra) = 0;
    /// The caption of Label2 changed.
    virtual void RidisegnaLabel2() = 0;
    /// A bar changed visibly.
    virtual void RidisegnaBarra(const Barra& barra) = 0;
    /// `Dir1.Refresh`: read the directory list again.
    virtual void AggiornaDir1() = 0;

    /// The focus goes to Text1.
    virtual void PortaFuocoSuText1() = 0;

    // Reports. The window ignores them; the command line prints them.

    /// The handler ended an engine.
    virtual void MotoreFermato(const Arresto& arresto) = 0;
    /// Bytes did not reach a file, in a statement whose errors are ignored.
    virtual void ErroreSaltato(const Errore& causa) = 0;
    /// A file of row `voce` is complete; `percorso` is its path, `righe` the lines read for it, 0
    /// for a copy.
    virtual void FileScritto(Lungo voce, Vista percorso, Lungo righe) = 0;
    /// Whether MargineMosso is to be called. Asked once per file; an unwatched listing is made
    /// faster, with the same bytes.
    virtual bool SegueMargine() const { return true; }
    /// The listing's margin moved.
    virtual void MargineMosso(const PassoMargine& passo) = 0;
};

} // namespace morvella

// SPDX-License-Identifier: MIT
// shell/state.h
//
// The program's whole state in one object: the fields of the form VornOK and of Module1, the
// states of the controls that the logic uses, the channels. Made in main or in a test and passed by
// reference. Engines share its fields instead of passing arguments, and each resets what it needs
// at the head of a file.
//
// Controls are changed through the procedures below, which raise the controls' events: selecting a
// row of File1, for instance, enables three commands.
#pragma once

#include "shell/controlli.h"
#include "shell/finestra.h"
#include "shell/protezione.h"
#include "shell/testi.h"
#include "text/primitive.h"

namespace morvella {

/// The `.Show` entries of a file in one text, each ended by Chr(13). Taking one from the front
/// moves a mark; the text is not copied.
struct ElencoShowFile {
    Testo Voci;
    std::size_t Presi = 0;
    void Svuota() {
        Voci.clear();
        Presi = 0;
    }
    Vista Resto() const noexcept { return Vista(Voci).substr(Presi); }
};

/// The running engine's position, for the reports to the front end.
struct PuntoDiLavoro {
    Lungo Voce = -1;            // row of File1, -1 before the first
    Lungo Riga = 0;             // line of the source, from 1; 0 outside the second pass
    bool SecondoGiro = false;   // the rewriter's second stage
    bool MargineSeguito = true; // the front end watches the margin (Finestra::SegueMargine)
};

struct Stato {
    Stato(Disco& disco, Finestra& finestra) : File(disco), Canale(File), Fronte(finestra) {}
    Stato(const Stato&) = delete;
    Stato& operator=(const Stato&) = delete;

    Archivio File;
    Canali Canale;
    Finestra& Fronte; // the front end

    // VornOK
    Testo FileSorgente;       // full path of the current source
    Testo FileUscita;         // full path of the current output; the handler may flatten it
    TestoLargo Margine;       // left margin or connector column
    TestoLargo Numero;        // line-number field
    TestoLargo StoriaBlocchi; // two-digit block codes, newest last; only VerificaBlocco reads it, which no
                              // operation calls
    Vista RigaLetta;          // a line of the first pass; valid until channel 1 reads on
    Testo DirAppoggio;        // the work directory; never cleared
    Lungo IndiceFile = 0;     // loop index over File1; before that, the answer in Command1_Click
    Lungo PosBarra = 0;       // the handler's scan position; IndiceFile must keep its place

    // Module1. Storing an option writes all four of them; only the first is ever read, by
    // Command1_Click. Engines look at the controls.
    // The current line: trimmed in the code, raw in the rewriter's head; valid until channel 1 reads on.
    Vista Riga;
    bool OpzSenzaConferma = false;
    bool OpzIntestazione = false;
    bool OpzTogliCommenti = false;
    Testo TestoIntestazione;

    // The head scanner's, for the current file (scan/testa.h)
    Lungo TotaleRighe = 0; // lines of the source, from the first pass
    Lungo ContaRighe = 0;  // lines of the second pass, counted anew where the head ends; the listing's number
    int StatoTesta = 0;    // 7 in the code; the table is in scan/testa.h
    ElencoShowFile ElencoShow;

    // Controls
    Testo AppPath; // App.Path (shell/dimora.h)
    Testo Drive1Drive = "C:";
    Testo Dir1Path;
    ListaFile1Leggi File1Leggi;
    ListaFile1 File1;
    Testo Label2 = " ";
    Barra ProgressBar1;
    Barra Progress;
    bool mnuRiordina = true;
    bool mnuvorn = false;
    bool mnuLettura = true;
    bool mnuHTML = true;
    Testo mnuSeleziona = "Seleziona tutto"; // the caption is the state of the toggle
    int Check1 = 0;
    int Check2 = 0;
    int TogliCommenti = 0;
    Testo Text1;
    bool Text1TabStop = false;
    bool Option1_0 = false; // "*.Bas"; hidden in the window, so always off

    // For the front ends, and for the protection of the sources.
    PuntoDiLavoro Punto;
    ElencoProtetto Protetto;
};

/// `File1.Selected(i) = selezionata`; raises File1_Click.
void SelezionaFile1(Stato& s, Lungo i, bool selezionata);
/// The event of a change of selection: enables mnuvorn, mnuLettura, mnuRiordina.
void File1_Click(Stato& s);
/// `Label2.Caption = testo`, repainted at once.
void ScriviLabel2(Stato& s, Vista testo);
/// Set Visible, Max or Value of a bar and repaint it.
void MostraBarra(Stato& s, Barra& barra, bool visibile);
void LimitaBarra(Stato& s, Barra& barra, Lungo massimo);
void PortaBarra(Stato& s, Barra& barra, Lungo valore);

/// Sets Max, Min and Value of Progress for a second pass over TotaleRighe lines, and shows it.
void PreparaProgress(Stato& s);

/// `barra.Value = barra.Value + 1` for each of `righe` lines. Repaints every 1/200 of the bar.
inline void AvanzaBarra(Stato& s, Barra& barra, Lungo righe = 1) {
    barra.Value += righe;
    if (barra.Value >= barra.Prossimo) PortaBarra(s, barra, barra.Value);
}

/// `Check1.Value = valore`; raises Check1_Click when that is a change.
void CambiaCheck1(Stato& s, int valore);
/// Ticking Check1 moves the focus to Text1.
void Check1_Click(Stato& s);

/// Sets Module1's four option fields from their controls.
void RaccogliOpzioni(Stato& s);

/// `File1Leggi.Path = Dir1.Path` and `File1Leggi.Refresh`: lists the project files, none chosen.
/// Raises 76 for a missing directory and 75 for an unreadable one, with the list empty. Called by
/// Dir1_Change, and by the window at its start, when Dir1 has not changed yet.
void ElencaProgetti(Stato& s);

/// `Dir1.Path` becomes the directory with this platform path; raises Dir1_Change.
void CambiaDir1(Stato& s, const std::string& percorso);
/// The same for a front end that knows which project it wants, by the file's name on the disk.
/// File1Leggi holds this one alone, not chosen yet; the directory is not read, since it may be large
/// or unreadable.
void CambiaDir1(Stato& s, const std::string& percorso, const std::string& progetto);
/// Empties the file state, fills File1Leggi, puts the current directory on Dir1.Path, empties
/// File1 and disables mnuLettura, mnuRiordina and mnuvorn. An error shows a box and skips the rest.
void Dir1_Change(Stato& s);

/// `Drive1.Drive = unita`; raises Drive1_Change when that is a change.
void CambiaDrive1(Stato& s, Vista unita);
/// Moves Dir1 to the drive and empties the file state. A drive that does not answer beeps, shows
/// a box and falls back to "C:"; then the interrupted sequence goes on.
void Drive1_Change(Stato& s);

} // namespace morvella

// SPDX-License-Identifier: MIT
// shell/state.h
//
// The whole state of the program in one object: the fields of the form VornOK and of
// Module1, the states of the controls that the logic reads or writes, the channels. It is
// made in main or in a test and passed by reference; the engines share its fields instead
// of passing arguments, and each resets what it needs at the head of a file.
//
// Controls are changed through the procedures below, which raise the events that the
// controls raise: selecting a row in File1 enables three commands, for instance.
#pragma once

#include <algorithm>
#include <vector>

#include "shell/finestra.h"
#include "text/primitive.h"

namespace morvella {

/// The address that stands in banners, boxes and pages: 21 bytes, so that the lines that
/// hold it keep their width.
inline constexpr Vista IndirizzoContatto = "vorn@morvella.example";
static_assert(IndirizzoContatto.size() == 21);

/// Stands in front of a procedure's end whose margin is not blank.
inline constexpr Vista ErroreGenerico = // sic
    "######  Errore generico - Manca uno o pi\xF9 elementi di chiusura ENDIF - Loop, Next ... ect";

/// A progress bar. A Max of 0 is accepted.
struct Barra {
    Lungo Min = 0;
    Lungo Max = 100;
    Lungo Value = 0;
    bool Visible = false;
    Lungo Prossimo = 0; // the value from which a change can be seen again
};

/// The list of the project's sources. Rows are numbered from 0 and stand in ascending order
/// of the bytes of LCase(row), a row equal to others behind them.
class ListaFile1 {
  public:
    void Clear() {
        voci_.clear();
        ++versione_;
    }
    void AddItem(Vista testo);
    Lungo ListCount() const noexcept { return static_cast<Lungo>(voci_.size()); }
    /// The row's text; raises 5 for a row that is not there.
    const Testo& List(Lungo i) const { return In(i).Scritta; }
    bool Selected(Lungo i) const { return In(i).Selezionata; }
    Lungo ContaSelezionate() const noexcept {
        return std::count_if(voci_.begin(), voci_.end(), [](const Voce& voce) { return voce.Selezionata; });
    }
    /// Another number after each change of the rows; selecting is none.
    Lungo Versione() const noexcept { return versione_; }
    /// Without the event; the way in is SelezionaFile1.
    void Segna(Lungo i, bool selezionata) { In(i).Selezionata = selezionata; }

  private:
    struct Voce {
        Testo Scritta;
        Testo Chiave;
        bool Selezionata = false;
    };
    Voce& In(Lungo i) const;

    mutable std::vector<Voce> voci_; // put in order when first asked: adding n rows is no n * n
    mutable bool ordinate_ = true;
    Lungo versione_ = 0;
};

/// The project files of Dir1.Path, of which one is chosen.
struct ListaFile1Leggi {
    std::vector<Testo> Nomi;
    Lungo ListIndex = -1;
    /// `File1Leggi.List(File1Leggi.ListIndex)`: "" when none is chosen.
    Vista Scelto() const noexcept {
        return ListIndex >= 0 && ListIndex < static_cast<Lungo>(Nomi.size())
                   ? Vista(Nomi[static_cast<std::size_t>(ListIndex)])
                   : Vista();
    }
};

/// The `.Show` entries of a file, each ended by Chr(13), in one text. Entries are taken from
/// the front by moving a mark: the text itself is never copied.
struct ElencoShowFile {
    Testo Voci;
    std::size_t Presi = 0;
    void Svuota() {
        Voci.clear();
        Presi = 0;
    }
    Vista Resto() const noexcept { return Vista(Voci).substr(Presi); }
};

/// Where the running engine stands, for front ends that report what it found or what ended it.
struct PuntoDiLavoro {
    Lungo Voce = -1;            // the row of File1, -1 before the first
    Lungo Riga = 0;             // the line of the source, from 1; 0 outside the second pass
    bool SecondoGiro = false;   // the rewriter's second stage
    bool MargineSeguito = true; // the front end watches every step of the margin
};

/// The list of rows whose sources are protected from every write (shell/gestore.h).
struct ElencoProtetto {
    Lungo Versione = -1; // ListaFile1::Versione; -1 protects nothing yet
    Testo Directory;
    Testo Progetto;
};

struct Stato {
    Stato(Disco& disco, Finestra& finestra) : File(disco), Canale(File), Fronte(finestra) {}
    Stato(const Stato&) = delete;
    Stato& operator=(const Stato&) = delete;

    Archivio File;
    Canali Canale;
    Finestra& Fronte; // the front end

    // VornOK
    Testo FileSorgente;       // full path of the source in work
    Testo FileUscita;         // full path of the output in work; the handler may make it flat
    TestoLargo Margine;       // left margin or connector column
    TestoLargo Numero;        // line-number field
    TestoLargo StoriaBlocchi; // two-digit block codes, newest last
    Vista RigaLetta;          // a line of a first pass; holds until channel 1 reads on
    Testo DirAppoggio;        // the work directory; never cleared
    Lungo IndiceFile = 0;     // loop index over File1; before that, the answer of Command1_Click
    Lungo PosBarra = 0;       // scan position of the handler, its own so that the loop keeps its place

    // Module1. All four options are written when an option is stored; only the first is read,
    // by Command1_Click. The engines look at the controls themselves.
    Vista Riga; // the line in work, trimmed; holds until channel 1 reads on
    bool OpzSenzaConferma = false;
    bool OpzIntestazione = false;
    bool OpzTogliCommenti = false;
    Testo TestoIntestazione;

    // The head scanner, per file in work (scan/testa.h)
    Lungo TotaleRighe = 0;
    Lungo ContaRighe = 0;
    int StatoTesta = 0;
    ElencoShowFile ElencoShow;

    // Controls
    Testo AppPath; // App.Path: the program's own directory
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
    bool Option1_0 = false; // "*.Bas"; hidden, so it stays off in any window

    // Not the program's own: for the front ends and for the protection of the sources.
    PuntoDiLavoro Punto;
    ElencoProtetto Protetto;
};

/// `File1.Selected(i) = selezionata`; raises File1_Click.
void SelezionaFile1(Stato& s, Lungo i, bool selezionata);
/// The event of a change of selection: enables mnuvorn, mnuLettura, mnuRiordina.
void File1_Click(Stato& s);
/// `Label2.Caption = testo`, repainted at once.
void ScriviLabel2(Stato& s, Vista testo);
/// Settings of a bar, each repainted.
void MostraBarra(Stato& s, Barra& barra, bool visibile);
void LimitaBarra(Stato& s, Barra& barra, Lungo massimo);
void PortaBarra(Stato& s, Barra& barra, Lungo valore);

/// Progress for the second pass over a file of TotaleRighe lines: Max, Min, Value, shown.
void PreparaProgress(Stato& s);

/// `barra.Value = barra.Value + 1`, once for each of `righe` lines: repainted when a two
/// hundredth of the bar has passed.
inline void AvanzaBarra(Stato& s, Barra& barra, Lungo righe = 1) {
    barra.Value += righe;
    if (barra.Value >= barra.Prossimo) PortaBarra(s, barra, barra.Value);
}

/// `Check1.Value = valore`; raises Check1_Click when that is a change.
void CambiaCheck1(Stato& s, int valore);
/// Ticking Check1 leads the user to Text1.
void Check1_Click(Stato& s);

/// The four option fields of Module1 from their controls, as when an option loses the focus.
void RaccogliOpzioni(Stato& s);

/// `File1Leggi.Path = Dir1.Path` and `File1Leggi.Refresh`: the project files of the directory,
/// none of them chosen. Raises 76 or 75 for a directory that is not there or cannot be read, and
/// the list is empty then. Dir1_Change does it; at the program's start, where Dir1 stands
/// somewhere without having changed, the window does.
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

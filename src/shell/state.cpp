// SPDX-License-Identifier: MIT
#include "shell/state.h"

namespace morvella {

namespace {

// Dir1_Change; `elenca` is its step that fills File1Leggi.
template <class F>
void DirectoryCambiata(Stato& s, F&& elenca) {
    try {
        s.FileUscita.clear();
        s.FileSorgente.clear();
        elenca();
        s.File.ChDir(s.Dir1Path);
        s.File1.Clear();
        s.mnuLettura = false;
        s.mnuRiordina = false;
        s.mnuvorn = false;
    } catch (const Errore& e) {
        // sic: number and description run together
        s.Fronte.MsgBox(CStr(e.Numero) + Testo(Descrizione(e.Numero)), OkDomanda, "");
    }
}

} // namespace

void SelezionaFile1(Stato& s, Lungo i, bool selezionata) {
    s.File1.Segna(i, selezionata);
    File1_Click(s);
}

void File1_Click(Stato& s) {
    s.mnuvorn = true;
    s.mnuLettura = true;
    s.mnuRiordina = true;
}

void ScriviLabel2(Stato& s, Vista testo) {
    s.Label2 = testo;
    s.Fronte.RidisegnaLabel2();
}

void MostraBarra(Stato& s, Barra& barra, bool visibile) {
    barra.Visible = visibile;
    s.Fronte.RidisegnaBarra(barra);
}

void LimitaBarra(Stato& s, Barra& barra, Lungo massimo) {
    barra.Max = massimo;
    s.Fronte.RidisegnaBarra(barra);
}

void PortaBarra(Stato& s, Barra& barra, Lungo valore) {
    barra.Value = valore;
    barra.Prossimo = valore + std::max<Lungo>(barra.Max / 200, 1);
    s.Fronte.RidisegnaBarra(barra);
}

void CambiaCheck1(Stato& s, int valore) {
    if (s.Check1 == valore) return;
    s.Check1 = valore;
    Check1_Click(s);
}

void Check1_Click(Stato& s) {
    s.Text1TabStop = s.Check1 == 1;
    if (s.Check1 == 1) s.Fronte.PortaFuocoSuText1();
}

void PreparaProgress(Stato& s) {
    LimitaBarra(s, s.Progress, s.TotaleRighe + 15);
    s.Progress.Min = 0;
    PortaBarra(s, s.Progress, 0);
    MostraBarra(s, s.Progress, true);
}

void RaccogliOpzioni(Stato& s) {
    s.OpzTogliCommenti = s.TogliCommenti == 1;
    s.OpzIntestazione = s.Check1 == 1;
    s.TestoIntestazione = Trim(s.Text1).empty() ? Testo() : s.Text1;
    s.OpzSenzaConferma = s.Check2 == 1;
}

void ElencaProgetti(Stato& s) {
    s.File1Leggi = {};
    s.File1Leggi.Nomi = s.File.ElencaFile(s.Dir1Path, ".vbp");
}

void CambiaDir1(Stato& s, const std::string& percorso) {
    s.Dir1Path = s.File.Aggancia(Gancio::Progetto, percorso);
    Dir1_Change(s);
}

void CambiaDir1(Stato& s, const std::string& percorso, const std::string& progetto) {
    s.Dir1Path = s.File.Aggancia(Gancio::Progetto, percorso);
    DirectoryCambiata(s, [&] { s.File1Leggi = {{s.File.Ricorda(progetto)}}; });
}

void Dir1_Change(Stato& s) {
    DirectoryCambiata(s, [&] { ElencaProgetti(s); });
}

void CambiaDrive1(Stato& s, Vista unita) {
    if (s.Drive1Drive == unita) return;
    s.Drive1Drive = unita;
    Drive1_Change(s);
}

void Drive1_Change(Stato& s) {
    try {
        CambiaDir1(s, s.File.DiscoInUso().DirectoryUnita(Utf8Da1252(s.Drive1Drive)));
    } catch (const Errore&) { // any error
        s.Fronte.Beep();
        s.Fronte.MsgBox("Verificare il Driver .. non risponde", OkStop, "Driver Vuoto (?)"); // sic
        CambiaDrive1(s, "C:");
    }
    s.FileUscita.clear();
    s.FileSorgente.clear();
    s.mnuRiordina = false;
    s.mnuLettura = false;
    s.mnuvorn = false;
}

} // namespace morvella

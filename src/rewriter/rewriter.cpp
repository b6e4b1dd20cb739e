// SPDX-License-Identifier: MIT
//
// The rewriter's run: two stages over the rows of File1.
#include "rewriter/rewriter.h"

#include "scan/sorgente.h"
#include "scan/testa.h"
#include "shell/cartella.h"
#include "shell/motore.h"

namespace morvella {

namespace {

constexpr Vista Stelle = "*******************************************************"; // 55
static_assert(Stelle.size() == 55);

// The closing block, after the module's last line.
void ScriviChiusura(Stato& s) {
    const Testo margine = Space(10);
    const Testo data = Oggi(s);
    Scrivi(s, margine, "'", Stelle);
    Scrivi(s, margine, "'*              Procedura by Dario Fenzoni             *");
    Scrivi(s, margine, "'*              E-mail ", IndirizzoContatto, "           *");
    Scrivi(s, margine, "'* Procedura per il riordino dei programmi Visual Basic*");
    if (!s.ElencoShow.Resto().empty()) // sic: two bytes wider than the box
        Scrivi(s, margine, "'*  La procedura richiama i seguenti Form o procedure:   *");
    for (Testo voce; VoceShow(s.ElencoShow, voce);) Scrivi(s, margine, "'", voce);
    Scrivi(s, margine, "'", Stelle);
    Scrivi(s, margine, "'               Rilettura del ", data, "...");
    Scrivi(s, margine, "'");
}

// First stage, one selected row: the rewritten text.
void RiscriviFile(Stato& s, const Testo& voce) {
    // A new file. ElencoShow is cleared once the source is open, StatoTesta is set further down.
    s.ContaRighe = 0;
    s.Numero = Space(5); // never a number here: it only indents
    s.Margine = Space(5);
    s.TotaleRighe = 0;
    s.StoriaBlocchi = "00";
    s.Punto.Riga = 0;

    s.FileUscita =
        Istruzione(s, [&] { return s.File.Piega(s.DirAppoggio + "\\" + Testo(BaseDiVoce(voce)) + ".Txt"); });
    if (EsisteFile(s, s.FileUscita)) Istruzione(s, [&] { s.File.Kill(s.FileUscita); });
    s.FileSorgente = s.Dir1Path + "\\" + voce;
    ScriviLabel2(s, s.FileSorgente);

    RaccogliShow(s);

    PreparaProgress(s);

    ApriSorgente(s);
    ApriUscita(s);
    IniziaTestaRiordina(s);
    RigheSorgente sorgente(s);
    while (!sorgente.Finita()) {
        ++s.ContaRighe;
        ++s.Punto.Riga;
        AvanzaBarra(s, s.Progress);
        const RigaSorgente& riga = sorgente.Prossima();
        s.Riga = riga.Letta.Intera();
        if (AvanzaTestaRiordina(s, riga.Letta.Intera(), riga.Letta.Trimmata())) RiscriviRiga(s, riga.Quale);
    }
    ScriviChiusura(s);
    ChiudiSorgente(s);
    ChiudiUscita(s);
    s.Punto.Riga = 0;
    s.Fronte.FileScritto(s.IndiceFile, s.FileUscita, s.TotaleRighe);
}

void CopiaSeEsiste(Stato& s) {
    if (!EsisteFile(s, s.FileSorgente)) return;
    Istruzione(s, [&] { s.File.FileCopy(s.FileSorgente, s.FileUscita); });
    s.Fronte.FileScritto(s.IndiceFile, s.FileUscita, 0);
}

// Second stage, one selected row: the rewritten text under the module's own name, and the form's
// binary companion. A row whose directory is missing below the work directory has its text flat
// there; this does not look for it, so such a row gets no copy: meant.
void CopiaFile(Stato& s, const Testo& voce) {
    const Testo base(Istruzione(s, [&] { return BaseDiVoce(voce); }));
    s.FileUscita = s.File.Piega(s.DirAppoggio + "\\" + voce);
    // ".txt" here and ".Txt" where it is written name one file.
    if (EsisteFile(s, s.DirAppoggio + "\\" + base + ".txt"))
        s.FileSorgente = s.File.Piega(s.DirAppoggio + "\\" + base + ".txt");
    else // DirAppoggio is Dir1Path\Appoggio: the missing file once more, which CopiaSeEsiste passes over
        s.FileSorgente = s.File.Piega(s.Dir1Path + "\\Appoggio\\" + base + ".txt");
    CopiaSeEsiste(s);
    s.FileUscita = s.File.Piega(s.DirAppoggio + "\\" + base + ".Frx");
    s.FileSorgente = s.Dir1Path + "\\" + base + ".Frx";
    CopiaSeEsiste(s);
}

void Riordina(Stato& s) {
    ScriviDir(s, s.Dir1Path + "\\Appoggio");
    Istruzione(s, [&] { s.File.ChDir(s.Dir1Path); });
    // ProgressBar1.Value is not reset: a second run continues from where the bar was.
    LimitaBarra(s, s.ProgressBar1, s.File1.ListCount());
    MostraBarra(s, s.ProgressBar1, true);

    const Lungo voci = s.File1.ListCount();
    for (s.IndiceFile = 0; s.IndiceFile < voci; ++s.IndiceFile) {
        if (s.ProgressBar1.Max >= s.ProgressBar1.Value + 1)
            PortaBarra(s, s.ProgressBar1, s.ProgressBar1.Value + 1);
        if (!s.File1.Selected(s.IndiceFile)) continue;
        s.Punto.Voce = s.IndiceFile;
        RiscriviFile(s, s.File1.List(s.IndiceFile));
    }
    MostraBarra(s, s.ProgressBar1, false);
    ScriviLabel2(s, "");
    MostraBarra(s, s.Progress, false);

    s.Punto.SecondoGiro = true;
    MostraBarra(s, s.Progress, true);
    LimitaBarra(s, s.Progress, voci + 10);
    PortaBarra(s, s.Progress, 0);
    for (s.IndiceFile = 0; s.IndiceFile < voci; ++s.IndiceFile) {
        if (!s.File1.Selected(s.IndiceFile)) continue;
        s.Punto.Voce = s.IndiceFile;
        AvanzaBarra(s, s.Progress);
        CopiaFile(s, s.File1.List(s.IndiceFile));
    }
    MostraBarra(s, s.Progress, false);
    PortaBarra(s, s.Progress, 0);
}

} // namespace

void mnuRiordina_Click(Stato& s) {
    s.mnuLettura = true; // before the handler is armed
    EseguiMotore(s, "mnuRiordina_Click", [&] { Riordina(s); });
}

} // namespace morvella

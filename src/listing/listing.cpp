// SPDX-License-Identifier: MIT
//
// The listing's run over the rows of File1, and the viewer.
#include "listing/listing.h"

#include <algorithm>
#include <cstring>

#include "listing/comuni.h"
#include "scan/testa.h"
#include "shell/cartella.h"
#include "shell/motore.h"

namespace morvella {

namespace {

constexpr Lungo NumeroMassimo = 999999; // of a line that shows its number

// A form's control section ends here: the listing starts over, the margin and the history do not.
void Riparti(Stato& s) {
    Istruzione(s, [&] { s.Canale.Ricomincia(2); });
    s.ContaRighe = 0;
    s.Numero = Space(5);
    if (s.Check1 == 1 && !s.Text1.empty()) Scrivi(s, s.Text1);
}

// Writes the common lines that are read already, up to the first other one; returns how many.
Lungo ElencaPronte(Stato& s, std::span<const RigaSorgente> pronte) {
    if (pronte.empty() || s.StatoTesta != 7) return 0;
    const auto numerate = static_cast<std::size_t>(std::max<Lungo>(NumeroMassimo - s.ContaRighe, 0));
    s.Riga = {}; // a line of the batch is never the current line
    const auto comuni = static_cast<Lungo>(ElencaComuni(s, pronte.first(std::min(pronte.size(), numerate))));
    s.Punto.Riga += comuni;
    AvanzaBarra(s, s.Progress, comuni);
    return comuni;
}

// The next line, whatever it is.
void ElencaProssima(Stato& s, RigheSorgente& sorgente) {
    ++s.ContaRighe;
    ++s.Punto.Riga;
    AvanzaBarra(s, s.Progress);
    const RigaSorgente& riga = sorgente.Prossima();
    s.Riga = riga.Letta.Trimmata();
    const PassoTesta passo = AvanzaTestaStruttura(s);
    if (passo.Testa) ScriviTesta(s);
    if (passo.Codice || passo.Riparte) Numera(s.Numero, s.ContaRighe);
    if (passo.Riparte) Riparti(s);
    if (passo.Codice) ElencaRiga(s, riga.Quale);
}

void ElencaFile(Stato& s, const Testo& voce) {
    // A new file. StatoTesta is not here: it carries over from file to file.
    s.ContaRighe = 0;
    s.Numero.clear();
    s.Margine = Space(3);
    s.TotaleRighe = 0;
    s.StoriaBlocchi = "00";
    s.Punto.Riga = 0;

    s.FileUscita =
        Istruzione(s, [&] { return s.Dir1Path + "\\Appoggio\\" + Testo(BaseDiVoce(voce)) + ".log"; });
    s.FileSorgente = s.Dir1Path + "\\" + voce;

    RaccogliShow(s, true);

    PreparaProgress(s);

    ApriSorgente(s);
    ApriUscita(s);
    IniziaTestaStruttura(s);
    s.Punto.MargineSeguito = s.Fronte.SegueMargine();
    if (s.Punto.MargineSeguito)
        s.Fronte.MargineMosso({PassoMargine::Inizio, s.Punto.Voce, 0, 0, Len(s.Margine), s.Margine, {}});
    RigheSorgente sorgente(s);
    while (!sorgente.Finita()) {
        ElencaProssima(s, sorgente);
        sorgente.Salta(ElencaPronte(s, sorgente.Pronte()));
    }
    ChiudiSorgente(s);
    ChiudiUscita(s);
    s.Punto.Riga = 0;
    s.Fronte.FileScritto(s.IndiceFile, s.FileUscita, s.TotaleRighe);
}

void Elenca(Stato& s) {
    s.StatoTesta = 0; // once a run
    ScriviDir(s, s.Dir1Path + "\\Appoggio");
    LimitaBarra(s, s.ProgressBar1, s.File1.ListCount());
    MostraBarra(s, s.ProgressBar1, true);
    PortaBarra(s, s.ProgressBar1, 0); // the rewriter leaves it where it stood

    const Lungo righe = s.File1.ListCount();
    for (s.IndiceFile = 0; s.IndiceFile < righe; ++s.IndiceFile) {
        if (s.ProgressBar1.Max >= s.ProgressBar1.Value + 1)
            PortaBarra(s, s.ProgressBar1, s.ProgressBar1.Value + 1);
        if (!s.File1.Selected(s.IndiceFile)) continue;
        s.Punto.Voce = s.IndiceFile;
        SelezionaFile1(s, s.IndiceFile, false); // done from here on, whatever happens to it
        ElencaFile(s, s.File1.List(s.IndiceFile));
    }
    ScriviLabel2(s, "");
    MostraBarra(s, s.Progress, false);
    PortaBarra(s, s.Progress, 0);
    PortaBarra(s, s.ProgressBar1, 0);
    MostraBarra(s, s.ProgressBar1, false);
}

} // namespace

void Numera(TestoLargo& numero, Lungo n) {
    if (n > NumeroMassimo)
        return numero.assign(5, ' ');  // the number disappears, and the margin moves to the left
    char* const campo = numero.data(); // a TestoLargo has room for Passo bytes at any time
    std::memcpy(campo, "000000     ", 11);
    auto resto = static_cast<unsigned>(n);
    for (char* cifra = campo + 5; resto > 0; resto /= 10) *cifra-- = static_cast<char>('0' + resto % 10);
    numero.Fino(campo + 11);
}

Testo CampoNumero(Lungo n) {
    TestoLargo numero;
    Numera(numero, n);
    return Testo(Vista(numero));
}

void ScriviTesta(Stato& s) {
    const Testo stelle(55, '*');
    Scrivi(s, "\x0F", stelle); // 15, the only control byte, and only here
    Scrivi(s, "*              Procedura by Dario Fenzoni             *");
    Scrivi(s, "*              E-mail ", IndirizzoContatto, "           *");
    Scrivi(s, "*", Space(53), "*");
    if (!s.ElencoShow.Resto().empty()) Scrivi(s, "*  La procedura esegue i seguenti Form o procedure:   *");
    for (Testo voce; VoceShow(s.ElencoShow, voce);) Scrivi(s, voce);
    Scrivi(s, stelle);
    const Testo data = Oggi(s);
    const Testo ora = Adesso(s);
    Scrivi(s, "              ... ", data, " - ", ora);
    Scrivi(s);
}

void mnuvorn_Click(Stato& s) {
    s.mnuLettura = true; // before the handler is armed
    EseguiMotore(s, "mnuvorn_Click", [&] { Elenca(s); });
}

void mnuLettura_Click(Stato& s) {
    for (;;) {
        s.FileUscita.clear();
        s.Fronte.MsgBox("Per visualizzare l'Identazione in maniera ottimizzata" + Chr(13) +
                            "Selezionare il carattere TERMINAL - Normale",
                        OkInformazione, "Lettura Ottimizzata");
        bool manca = false;
        for (s.IndiceFile = 0; s.IndiceFile <= s.File1.ListCount() - 1 && !manca;) {
            if (s.File1.Selected(s.IndiceFile)) {
                s.Punto.Voce = s.IndiceFile;
                // ".Log" here and ".log" where it is written name one file.
                s.FileUscita = PercorsoCorto(s, s.Dir1Path + "\\Appoggio\\" +
                                                    Testo(BaseDiVoce(s.File1.List(s.IndiceFile))) + ".Log");
                manca = s.File.Dir(s.FileUscita, 0).empty();
                if (!manca) s.Fronte.Avvia("Notepad.exe " + s.FileUscita, 3);
            }
            if (!manca) ++s.IndiceFile;
        }
        if (!manca) return;
        // The listing run deselects every row that it comes to, so the number falls each time.
        // Where it does not, the loop would never end: it stops.
        const Lungo prima = s.File1.ContaSelezionate();
        const Errore manca53(ErrFileAssente, s.FileUscita);
        const Lungo cercata = s.IndiceFile;
        mnuvorn_Click(s);
        if (s.File1.ContaSelezionate() >= prima) {
            s.Punto.Voce = cercata;
            s.Punto.Riga = 0;
            s.Fronte.MotoreFermato(FaiArresto(s, "mnuLettura_Click", manca53));
            return;
        }
    }
}

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "shell/opzioni.h"

#include "text/flusso.h"

namespace morvella {

namespace {

// The default header. Lines 8 to 14 have no closing star: meant to be filled in.
constexpr Vista Modello[] = {
    "'*************************************************", //
    "'* Nome Progetto                                 *", //
    "'*************************************************", //
    "'* Autore                                        *", //
    "'*************************************************", //
    "'* Data Creazione:                               *", //
    "'*************************************************", //
    "'* Commenti                                      ",  //
    "'*                                               ",  //
    "'*                                               ",  //
    "'*                                               ",  //
    "'*                                               ",  //
    "'*                                               ",  //
    "'*                                               ",  //
    "'*************************************************", //
};

bool Acceso(Vista riga) { return riga == "OK"; }

Vista Sigla(bool acceso) { return acceso ? "OK" : "KO"; }

bool FinisceIlTesto(Vista riga) { return riga == "OK" || riga == "KO"; }

} // namespace

Testo PercorsoOpzioni(const Stato& s) { return s.AppPath + "\\Default.ini"; }

void CaricaOpzioni(Stato& s) {
    FlussoTesto flusso(s.File, PercorsoOpzioni(s));
    if (flusso.AtEndOfStream()) return;
    // Anything but "OK" is off on these two lines; the last one has to be "OK" or "KO".
    s.OpzTogliCommenti = Acceso(flusso.ReadLine());
    s.TogliCommenti = s.OpzTogliCommenti ? 1 : 0;
    s.OpzIntestazione = Acceso(flusso.ReadLine());
    CambiaCheck1(s, s.OpzIntestazione ? 1 : 0);
    s.TestoIntestazione.clear();
    s.Text1.clear();
    Vista riga = flusso.ReadLine();
    for (; !FinisceIlTesto(riga); riga = flusso.ReadLine()) {
        if (Trim(riga).empty()) continue;
        s.Text1.append(riga).append("\r\n"); // as read, not trimmed
        s.TestoIntestazione = s.Text1;
    }
    s.OpzSenzaConferma = Acceso(riga);
    s.Check2 = s.OpzSenzaConferma ? 1 : 0;
}

Lungo RigaCheTronca(Vista testo) {
    for (Lungo numero = 1;; ++numero) {
        const std::size_t fine = testo.find("\r\n");
        if (FinisceIlTesto(testo.substr(0, fine))) return numero;
        if (fine == Vista::npos) return 0;
        testo.remove_prefix(fine + 2);
    }
}

void SalvaOpzioni(Stato& s) {
    s.Canale.OpenOutput(1, PercorsoOpzioni(s));
    RaccogliOpzioni(s);
    s.Canale.Print(1, Sigla(s.OpzTogliCommenti));
    s.Canale.Print(1, Sigla(s.OpzIntestazione));
    s.Canale.Print(1, s.TestoIntestazione); // a text of blanks alone becomes one empty line
    s.Canale.Print(1, Sigla(s.OpzSenzaConferma));
    s.Canale.Close(1);
}

void OpzioniDefault(Stato& s) {
    s.Canale.OpenOutput(1, PercorsoOpzioni(s));
    s.OpzTogliCommenti = false;
    s.TogliCommenti = 0;
    s.Canale.Print(1, Sigla(false));
    s.OpzIntestazione = false;
    CambiaCheck1(s, 0);
    s.Canale.Print(1, Sigla(false));
    s.TestoIntestazione.clear();
    s.Text1.clear();
    for (const Vista riga : Modello) s.Text1.append(riga).append("\r\n");
    s.Canale.Print(1, ""); // the template is shown but not stored
    s.OpzSenzaConferma = false;
    s.Check2 = 0;
    s.Canale.Print(1, Sigla(false));
    s.Canale.Close(1);
}

void Form_Resize(Stato& s) {
    if (s.File.Dir(PercorsoOpzioni(s), 0).empty())
        OpzioniDefault(s);
    else
        CaricaOpzioni(s);
}

void Command2_Click(Stato& s) { OpzioniDefault(s); }

void Opzione_LostFocus(Stato& s) { SalvaOpzioni(s); }

} // namespace morvella

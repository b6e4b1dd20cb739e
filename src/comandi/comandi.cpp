// SPDX-License-Identifier: MIT
#include "comandi/comandi.h"

#include "listing/listing.h"
#include "rewriter/rewriter.h"
#include "shell/progetto.h"

namespace morvella {

namespace {

constexpr Vista SelezionaTutto = "Seleziona tutto";
constexpr Vista DeselezionaTutto = "DeSeleziona tutto"; // sic

} // namespace

void File1Leggi_Click(Stato& s) {
    LeggiProgetto(s);
    s.mnuSeleziona = SelezionaTutto;
    mnuSeleziona_Click(s);
    Command1_Click(s);
}

void mnuSeleziona_Click(Stato& s) {
    const bool tutte = s.mnuSeleziona == SelezionaTutto;
    s.mnuSeleziona = tutte ? DeselezionaTutto : SelezionaTutto;
    for (s.IndiceFile = 0; s.IndiceFile <= s.File1.ListCount() - 1; ++s.IndiceFile)
        SelezionaFile1(s, s.IndiceFile, tutte);
}

void Command1_Click(Stato& s) {
    if (s.OpzSenzaConferma) {
        s.IndiceFile = RispostaSi;
    } else {
        // sic, title and text
        const Testo domanda =
            "Vuoi riordinare il Codice di tutti i form, moduli e classi presenti nel progetto" + Chr(13) +
            Testo(s.File1Leggi.Scelto());
        s.IndiceFile = s.Fronte.MsgBox(domanda, SiNoInformazione, "Identazione");
    }
    if (s.IndiceFile != RispostaSi) return;
    mnuRiordina_Click(s);
    mnuvorn_Click(s);
}

void Form_Unload(Stato& s) {
    s.Fronte.MsgBox("Procedura di Dario Fenzoni" + Chr(13) + "E-mail: " + Testo(IndirizzoContatto),
                    OkInformazione, "Bye bye");
}

} // namespace morvella

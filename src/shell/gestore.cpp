// SPDX-License-Identifier: MIT
#include "shell/gestore.h"

namespace morvella {

namespace {

// A close that fails is reported even while another error is handled: it is why the file is
// incomplete.
void ChiudiCanali(Stato& s) {
    s.Canale.Close(1);
    s.Canale.Close(2);
}

} // namespace

void AppiattisciUscita(Stato& s) {
    for (s.PosBarra = Len(s.FileUscita); s.PosBarra >= 1; --s.PosBarra) {
        if (Mid(s.FileUscita, s.PosBarra, 1) == "\\") {
            s.FileUscita =
                s.Dir1Path + "\\Appoggio\\" + Testo(Mid(s.FileUscita, s.PosBarra + 1, Len(s.FileUscita)));
            return;
        }
    }
}

Seguito Gestisci(Stato& s, const Errore& e, bool& invano) {
    switch (e.Numero) {
    case ErrFileAperto: // 55
        try {
            ChiudiCanali(s);
        } catch (const Errore& chiusura) {
            throw FineMotore{chiusura};
        }
        return Seguito::Prosegui;
    case ErrPercorso: { // 76
        // The repair does not ask what failed: a source in a missing directory comes here too, and
        // a new name for the output does not help it.
        const Testo prima = s.FileUscita;
        AppiattisciUscita(s);
        const bool uguale = s.FileUscita == prima;
        if (uguale && invano) break;
        invano = uguale;
        return Seguito::Riprova;
    }
    default: break;
    }
    try {
        ChiudiCanali(s);
    } catch (const Errore& chiusura) {
        s.Fronte.MotoreFermato(FaiArresto(s, "Close", chiusura));
    }
    throw FineMotore{e};
}

Arresto FaiArresto(const Stato& s, Vista motore, const Errore& causa) {
    const bool inRiga = s.Punto.Riga > 0;
    return {motore,
            s.Punto.Voce,
            s.Punto.SecondoGiro,
            s.Punto.Riga,
            inRiga ? s.ContaRighe : 0,
            inRiga ? Testo(s.Riga) : Testo(),
            causa};
}

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "shell/gestore.h"

namespace morvella {

namespace {

// Close #1, Close #2. What did not reach the disk is told, also where another error is being
// handled: it is the reason why the file is not whole.
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
        return Seguito::Prosegui; // on behind the statement that failed
    case ErrPercorso: {           // 76
        // The repair does not look at what failed: a source in a missing directory comes here
        // too, and no repair helps it.
        const Testo prima = s.FileUscita;
        AppiattisciUscita(s);
        const bool uguale = s.FileUscita == prima;
        if (uguale && invano) break;
        invano = uguale;
        return Seguito::Riprova; // the same statement again
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

void ProteggiSorgenti(Stato& s) {
    // A command given again and again for the rows that are left must not look at every row
    // each time.
    if (s.Protetto.Versione == s.File1.Versione() && s.Protetto.Directory == s.Dir1Path &&
        s.Protetto.Progetto == s.File1Leggi.Scelto() && s.File.ProtezioneFresca())
        return;
    std::vector<Testo> percorsi;
    percorsi.reserve(static_cast<std::size_t>(s.File1.ListCount()) * 2 + 1);
    for (Lungo i = 0; i < s.File1.ListCount(); ++i) {
        const Testo& riga = s.File1.List(i);
        percorsi.push_back(s.Dir1Path + "\\" + riga);
        if (Len(riga) >= 4)
            percorsi.push_back(s.Dir1Path + "\\" + Testo(Mid(riga, 1, Len(riga) - 4)) + ".Frx");
    }
    percorsi.push_back(s.Dir1Path + "\\" + Testo(s.File1Leggi.Scelto()));
    s.Protetto.Versione = -1; // half a protection is none
    s.File.Proteggi(percorsi);
    s.Protetto.Versione = s.File1.Versione();
    s.Protetto.Directory = s.Dir1Path;
    s.Protetto.Progetto = s.File1Leggi.Scelto();
}

} // namespace morvella

// SPDX-License-Identifier: MIT
// shell/motore.h
//
// What the two line engines are written in: the run under the handler, and the statements that
// both use. They read the source through channel 1 and write through channel 2. A rarer statement
// is spelled where it stands, as a lambda for Istruzione (shell/gestore.h).
//
// Every function here is one statement: 55 goes on after it, 76 runs all of it again.
#pragma once

#include "shell/gestore.h"

namespace morvella {

/// `Open FileSorgente For Input As #1`.
inline void ApriSorgente(Stato& s) {
    Istruzione(s, [&] { s.Canale.OpenInput(1, s.FileSorgente); });
}
/// `Open FileUscita For Output As #2`; a retry sees the repaired FileUscita.
inline void ApriUscita(Stato& s) {
    Istruzione(s, [&] { s.Canale.OpenOutput(2, s.FileUscita); });
}
/// `Close #1`.
inline void ChiudiSorgente(Stato& s) {
    Istruzione(s, [&] { s.Canale.Close(1); });
}
/// `Close #2`.
inline void ChiudiUscita(Stato& s) {
    Istruzione(s, [&] { s.Canale.Close(2); });
}

/// `Print #2`: the pieces, joined, as one line; without a piece an empty line.
template <class... Pezzi>
inline void Scrivi(Stato& s, const Pezzi&... pezzi) {
    Istruzione(s, [&] { s.Canale.Print(2, pezzi...); });
}
/// `Print #2` of Riga after Numero, Margine and `dopoMargine`. The one statement that runs for
/// nearly every line.
template <class... Pezzi>
[[gnu::always_inline]] inline void ScriviAlMargine(Stato& s, const Pezzi&... dopoMargine) {
    Istruzione(s, [&] { s.Canale.PrintRiga(2, s.Riga, s.Numero, s.Margine, dopoMargine...); });
}

/// `Dir(percorso) <> ""`: a plain file is there. `percorso` is a reference, since it may be the
/// FileUscita that a repair changes.
inline bool EsisteFile(Stato& s, const Testo& percorso) {
    return !Istruzione(s, [&] { return s.File.Dir(percorso, 0); }).empty();
}
/// `Date`: today, in the system's short form.
inline Testo Oggi(Stato& s) {
    return Istruzione(s, [&] { return s.File.Date(); });
}
/// `Time`: the time of day.
inline Testo Adesso(Stato& s) {
    return Istruzione(s, [&] { return s.File.Time(); });
}

/// Runs an engine's body up to its end or to the handler's third rule, which is silent but
/// for the word to Finestra::MotoreFermato. Sources of rows are out of reach of every write
/// meanwhile.
template <class F>
void EseguiMotore(Stato& s, Vista motore, F&& corpo) {
    s.Punto.Voce = -1;
    s.Riga = s.RigaLetta = {}; // of an engine that was stopped in a line
    s.Punto.Riga = 0;
    s.Punto.SecondoGiro = false;
    try {
        try {
            ProteggiSorgenti(s);
            corpo();
        } catch (const std::bad_alloc&) { // between two statements
            bool invano = false;
            Gestisci(s, Errore(ErrMemoria), invano);
        }
    } catch (const FineMotore& fine) {
        s.Fronte.MotoreFermato(FaiArresto(s, motore, fine.Causa));
    }
}

} // namespace morvella

// SPDX-License-Identifier: MIT
// shell/motore.h
//
// The run of a line engine, and the statements that both engines share. They read the source
// through channel 1 and write through channel 2. Each of these functions is one statement under
// the handler; a rare statement is a lambda for Istruzione (shell/gestore.h) where it is needed.
#pragma once

#include "shell/gestore.h"
#include "shell/protezione.h"

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
/// `Print #2` of Numero, Margine, `dopoMargine` and Riga. Inlined, since it runs for nearly every
/// line.
template <class... Pezzi>
[[gnu::always_inline]] inline void ScriviAlMargine(Stato& s, const Pezzi&... dopoMargine) {
    Istruzione(s, [&] { s.Canale.PrintRiga(2, s.Riga, s.Numero, s.Margine, dopoMargine...); });
}

/// `Dir(percorso) <> ""`: whether a plain file is there. `percorso` is a reference because it may
/// be FileUscita, which a repair changes between two attempts.
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

/// Runs an engine's body, with the sources protected. Raises nothing: where the handler ends the
/// engine, only Finestra::MotoreFermato reports it: the window stays silent. `motore` is the name of
/// the operation.
template <class F>
void EseguiMotore(Stato& s, Vista motore, F&& corpo) {
    s.Punto.Voce = -1;
    s.Riga = s.RigaLetta = {}; // left by an engine that ended within a line
    s.Punto.Riga = 0;
    s.Punto.SecondoGiro = false;
    try {
        try {
            ProteggiSorgenti(s);
            corpo();
        } catch (const Errore& e) { // no source can be protected: nothing is run
            throw FineMotore{e};
        } catch (const std::bad_alloc&) { // outside of any statement
            bool invano = false;
            Gestisci(s, Errore(ErrMemoria), invano);
        }
    } catch (const FineMotore& fine) {
        s.Fronte.MotoreFermato(FaiArresto(s, motore, fine.Causa));
    }
}

} // namespace morvella

// SPDX-License-Identifier: MIT
// text/canali_lettura.h
//
// The reading of lines: Canali's inline half for input. Included by canali.h.
#pragma once

#include <cstring>

#include "text/canali.h"

namespace morvella {

// The length of a line without a CR in its first slice; all that is left where it has none.
inline std::size_t Canali::LungaOltre(const char* riga, const char* fine) noexcept {
    const auto resto = static_cast<std::size_t>(fine - riga);
    if (resto <= Fetta) return resto;
    const void* cr = std::memchr(riga + Fetta, '\r', resto - Fetta);
    return cr ? static_cast<std::size_t>(static_cast<const char*>(cr) - riga) : resto;
}

// Takes the common line at `riga` off the block: whole in one slice, with the byte after its CR
// in the block too. Gives its length, `Fetta` for any other line.
inline std::size_t Canali::PrendiRigaCorta(Canale& c, const char* riga) const {
    const std::size_t lunga = PrimoSegno(DoveByte(riga, '\r'));
    if (lunga + 1 >= c.Fine - c.Inizio || FineRigaLf) return Fetta;
    if (lunga < Fetta) c.Inizio += lunga + (riga[lunga + 1] == '\n' ? 2 : 1);
    return lunga;
}

inline bool Canali::Eof(int n) {
    Canale& c = Aperto(n, Modo::Lettura);
    return c.Inizio == c.Fine && !Riempi(c);
}

inline Vista Canali::LineInput(int n) {
    Canale& c = Aperto(n, Modo::Lettura);
    const char* riga = c.Memoria.data() + c.Inizio;
    const std::size_t lunga = PrendiRigaCorta(c, riga);
    return lunga < Fetta ? Vista(riga, lunga) : LineInputLento(c);
}

template <class F>
inline std::size_t Canali::LineInputTrim(int n, std::size_t massimo, F&& prendi) {
    Canale& c = Aperto(n, Modo::Lettura);
    const char* const fine = c.Memoria.data() + c.Fine;
    const char* riga = c.Memoria.data() + c.Inizio;
    std::size_t presi = 0;
    while (!FineRigaLf && presi < massimo) {
        std::size_t lunga = PrimoSegno(DoveByte(riga, '\r'));
        if (lunga == Fetta) lunga = LungaOltre(riga, fine);
        if (lunga + 1 >= static_cast<std::size_t>(fine - riga)) break;   // may go on in the next block
        const std::size_t blanks = PrimoSegno(~DoveByte<32>(riga, ' ')); // the CR is none
        Vista trimmata(riga + blanks, lunga - blanks);
        if (blanks == 32 || riga[lunga - static_cast<std::size_t>(lunga > blanks)] == ' ') [[unlikely]]
            trimmata = Trim(trimmata);
        prendi(LineaLetta{riga, lunga, trimmata.data(), trimmata.size()}, true);
        riga += lunga + (riga[lunga + 1] == '\n' ? 2 : 1);
        ++presi;
    }
    if (presi > 0) {
        c.Inizio = static_cast<std::size_t>(riga - c.Memoria.data());
        return presi;
    }
    const Vista intera = LineInputLento(c);
    const Vista trimmata = Trim(intera);
    prendi(LineaLetta{intera.data(), intera.size(), trimmata.data(), trimmata.size()}, false);
    return 1;
}

template <class F>
inline Lungo Canali::SaltaRighe(int n, F&& cerca) {
    Canale& c = Aperto(n, Modo::Lettura);
    // The first line of a block has no byte before it.
    if (FineRigaLf || c.Inizio == 0 || c.Inizio == c.Fine) return 0;
    // Lines are counted by their CRs. Skip only up to a line end whose next byte is known: it may be
    // the LF of the pair.
    const char* inizio = c.Memoria.data() + c.Inizio;
    const std::size_t resto = c.Fine - c.Inizio;
    std::size_t visti = 0;
    Contatore righe('\r');
    while (visti + Fetta + 8 < resto) {
        const char* p = inizio + visti;
        if (const Segni segni = cerca(p)) {
            const std::size_t posto = PrimoSegno(segni);
            righe.AggiungiPrimi(p, posto);
            visti += posto;
            break;
        }
        righe.Aggiungi(p);
        visti += Fetta;
    }
    const std::size_t cr = righe.Quanti();
    if (cr == 0) return 0;
    const std::size_t fino = Vista(inizio, visti).rfind('\r') + 1;
    c.Inizio += fino + (inizio[fino] == '\n' ? 1 : 0);
    return static_cast<Lungo>(cr);
}

inline Lungo Canali::SaltaSenza(int n, Vista ago) {
    return SaltaRighe(n, [ago](const char* p) {
        Segni trovati = 0;
        for (Segni forse = DoveDue(p, ago[0], ago[1]); forse != 0; forse &= forse - 1)
            if (Vista(p + PrimoSegno(forse), ago.size()) == ago) trovati |= forse & (~forse + 1);
        return trovati;
    });
}

} // namespace morvella

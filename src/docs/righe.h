// SPDX-License-Identifier: MIT
// docs/righe.h
//
// Tables of fixed lines with placeholders.
#pragma once

#include <algorithm>
#include <array>
#include <span>

#include "shell/state.h"

namespace morvella {

// A table joined into one text, each line with its CR LF, and cut at every "@". Done at compile
// time, since some tables are printed for every procedure.
template <const auto& Righe>
struct RigheUnite {
    static constexpr std::size_t Misura = [] {
        std::size_t misura = 0;
        for (const Vista riga : Righe) misura += riga.size() + 2;
        return misura;
    }();
    static constexpr std::array<char, Misura> Unito = [] {
        std::array<char, Misura> testo{};
        char* dove = testo.data();
        for (const Vista riga : Righe) {
            dove = std::copy(riga.begin(), riga.end(), dove);
            *dove++ = '\r';
            *dove++ = '\n';
        }
        return testo;
    }();
    static constexpr auto Valori = static_cast<std::size_t>(std::count(Unito.begin(), Unito.end(), '@'));
    static constexpr std::array<Vista, Valori + 1> Pezzi = [] {
        std::array<Vista, Valori + 1> pezzi;
        std::size_t inizio = 0;
        for (Vista& pezzo : pezzi) {
            std::size_t fine = inizio;
            while (fine < Misura && Unito[fine] != '@') ++fine;
            pezzo = Vista(Unito.data() + inizio, fine - inizio);
            inizio = fine + 1;
        }
        return pezzi;
    }();
};

/// Prints a table to channel `n`, each "@" replaced by the next value, unescaped. Raises what
/// Canali::PrintPezzi raises.
template <const auto& Righe, class... Dati>
void ScriviRighe(Stato& s, int n, const Dati&... valori) {
    using Unite = RigheUnite<Righe>;
    static_assert(sizeof...(Dati) == Unite::Valori);
    const std::array<Vista, Unite::Valori + 1> dati = {valori..., Vista()};
    std::array<Vista, 2 * Unite::Valori + 1> tutti;
    for (std::size_t i = 0; i < tutti.size(); ++i) tutti[i] = i % 2 == 0 ? Unite::Pezzi[i / 2] : dati[i / 2];
    s.Canale.PrintPezzi(n, tutti);
}

} // namespace morvella

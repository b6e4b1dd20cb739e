// SPDX-License-Identifier: MIT
// text/canali_stampa.h
//
// The printing of lines: Canali's inline half for output. Included by canali.h.
#pragma once

#include <array>
#include <cstring>

#include "text/canali.h"

namespace morvella {

/// Copies a piece to `dove` and gives the place after it. Most pieces are short: they are copied
/// without a call, in strides that may overlap.
inline char* Posa(char* dove, Vista pezzo) noexcept {
    const char* da = pezzo.data();
    const std::size_t n = pezzo.size();
    if (n >= 8) {
        if (n <= 16) {
            std::memcpy(dove, da, 8);
            std::memcpy(dove + n - 8, da + n - 8, 8);
        } else if (n <= 32) {
            std::memcpy(dove, da, 16);
            std::memcpy(dove + n - 16, da + n - 16, 16);
        } else {
            std::memcpy(dove, da, n);
        }
    } else if (n >= 4) {
        std::memcpy(dove, da, 4);
        std::memcpy(dove + n - 4, da + n - 4, 4);
    } else {
        for (std::size_t i = 0; i < n; ++i) dove[i] = da[i];
    }
    return dove + n;
}
/// The same in one fixed-size copy: `dove` has room for Passo bytes, or for all of a longer text.
inline char* Posa(char* dove, const TestoLargo& pezzo) noexcept {
    if (pezzo.size() <= TestoLargo::Passo) [[likely]]
        std::memcpy(dove, pezzo.data(), TestoLargo::Passo);
    else
        std::memcpy(dove, pezzo.data(), pezzo.size());
    return dove + pezzo.size();
}

template <class... Pezzi>
[[gnu::noinline]] void Canali::PrintPieno(Canale& c, const Pezzi&... pezzi) {
    const std::array<Vista, sizeof...(pezzi) + 1> tutti = {Vista(pezzi)..., Vista("\r\n")};
    PrintLungo(c, tutti);
}

template <class... Pezzi>
inline void Canali::Print(int n, const Pezzi&... pezzi) {
    Canale& c = Aperto(n, Modo::Scrittura);
    const std::size_t totale = (std::size_t{2} + ... + Vista(pezzi).size());
    if (totale > Blocco - c.Fine) return PrintPieno(c, pezzi...);
    char* dove = c.Memoria.data() + c.Fine;
    ((dove = Posa(dove, pezzi)), ...);
    std::memcpy(dove, "\r\n", 2);
    c.Fine += totale;
}

template <class... Pezzi>
inline void Canali::PrintRiga(int n, const Vista& riga, const Pezzi&... davanti) {
    Canale& c = Aperto(n, Modo::Scrittura);
    const std::size_t posto = PostoLetto(riga);
    const std::size_t totale = ((riga.size() + 2) + ... + Vista(davanti).size());
    if (totale > Blocco - c.Fine) return PrintPieno(c, davanti..., riga);
    // A line in a channel's buffer is copied as a whole slice, whatever its length.
    char* dove = c.Memoria.data() + c.Fine;
    ((dove = Posa(dove, davanti)), ...);
    if (posto < lettoMisura_ && riga.size() <= Fetta)
        std::memcpy(dove, letto_ + posto, Fetta);
    else
        std::memcpy(dove, riga.data(), riga.size());
    std::memcpy(dove + riga.size(), "\r\n", 2);
    c.Fine += totale;
}

inline Canali::Spazio Canali::DaStampare(int n) noexcept {
    if (n < 1 || n > NumeroMassimo) return {};
    Canale& c = canali_[static_cast<std::size_t>(n)];
    if (c.Stato != Modo::Scrittura) return {};
    return {c.Memoria.data() + c.Fine, Blocco - c.Fine};
}

} // namespace morvella

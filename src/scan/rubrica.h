// SPDX-License-Identifier: MIT
// scan/rubrica.h
//
// Branch-free perfect hash over the rows of classifica.h, for speed: the next line's class is
// unpredictable. A line's first three letters select a slot, two more letters a place in the slot,
// and the row there is the only one that can match. rubrica.cpp builds it at compile time.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "scan/classifica.h"

namespace morvella {

// Letters are compared without the bit that tells their case.
inline constexpr std::uint32_t TreLettere =
    std::bit_cast<std::uint32_t>(std::array{'\xDF', '\xDF', '\xDF', '\0'});
inline constexpr std::uint16_t DueLettere = std::bit_cast<std::uint16_t>(std::array{'\xDF', '\xDF'});

/// The slot of three letters.
struct Casella {
    std::uint32_t Inizio = 0;
    unsigned char Dove = 0;  // offset in the line of the two letters
    unsigned char Da = 0;    // the slot's first place
    unsigned char Posti = 0; // mask: 0 for a slot of one place, 7 for one of eight
};
/// A row, ready to be compared.
struct alignas(64) Confronto {
    std::uint64_t Maschera[2] = {}; // which of the first sixteen bytes count
    std::uint64_t Inizio[2] = {};   // what they have to be
    std::size_t Minima = ~std::size_t{0};
    std::size_t Oltre = 0; // how much longer than Minima a line may be
    // Indexed by 2 * whole match + slot match: neither, slot only, match, match.
    Classe Esiti[4] = {RigaAltra, RigaAltra, RigaAltra, RigaAltra};
};
struct Schedario {
    std::uint32_t Fattori[2] = {}; // multipliers, chosen so that no two rows share a place
    std::array<Casella, 128> Caselle{};
    std::array<Confronto, 72> Confronti{}; // the first matches no line

    constexpr std::size_t Posto(std::uint32_t tre) const noexcept { return tre * Fattori[0] >> 25; }
    constexpr std::size_t Posto(const Casella& casella, std::uint16_t due) const noexcept {
        return casella.Da + (due * Fattori[1] >> 29 & casella.Posti);
    }
};
extern const Schedario Rubrica;

/// ClassificaRiga for a line in a buffer: sixteen bytes from `testo` on can be read, and a blank or a
/// CR follows its `lunga` bytes.
inline Classe ClassificaInMemoria(const char* testo, std::size_t lunga) noexcept {
    std::uint64_t parole[2];
    std::uint32_t tre = 0;
    std::uint16_t due = 0;
    std::memcpy(parole, testo, sizeof parole);
    std::memcpy(&tre, testo, sizeof tre);
    tre &= TreLettere;
    const Casella& casella = Rubrica.Caselle[Rubrica.Posto(tre)];
    std::memcpy(&due, testo + casella.Dove, sizeof due);
    const Confronto& confronto =
        Rubrica.Confronti[Rubrica.Posto(casella, static_cast<std::uint16_t>(due & DueLettere))];
    const std::uint64_t diverso = ((parole[0] ^ confronto.Inizio[0]) & confronto.Maschera[0]) |
                                  ((parole[1] ^ confronto.Inizio[1]) & confronto.Maschera[1]);
    const unsigned treUguali = static_cast<unsigned>(tre == casella.Inizio);
    const unsigned tutti = static_cast<unsigned>(diverso == 0) &
                           static_cast<unsigned>(lunga - confronto.Minima <= confronto.Oltre);
    return confronto.Esiti[2 * tutti + treUguali];
}

} // namespace morvella

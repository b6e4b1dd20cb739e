// SPDX-License-Identifier: MIT
// scan/classifica.h
//
// Sorts a trimmed source line into one of 27 classes by how it begins. The rows are tried
// in order and the first that matches decides. What is done for a class is the engines'
// business. Nothing looks into strings, comments or continued lines: "EndDoc" counts as an
// end, and "x = 1: If y Then" as a plain statement.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "text/primitive.h"

namespace morvella {

enum Classe : unsigned char {
    RigaType,
    RigaSub,
    RigaFunction,
    RigaIf,
    RigaElse,
    RigaEndIf,
    RigaCondIf,
    RigaCondElse,
    RigaCondEndIf,
    RigaProperty,
    RigaEndProperty,
    RigaFor,
    RigaNext,
    RigaWith,
    RigaEndWith,
    RigaSelect,
    RigaCase,
    RigaEndSelect,
    RigaEndSub,
    RigaEndFunction,
    RigaEnd,
    RigaDo,
    RigaLoop,
    RigaExitDo,
    RigaExitFor,
    RigaExitSub,
    RigaAltra,
};
inline constexpr int NumeroClassi = RigaAltra + 1;

// For speed alone: no one can guess what the next line is, so a line finds its row without a decision
// on the way. Its first three letters lead to a box, two further ones to a place in the box, and the
// row that lies there is the only one that can match. Factors spread the letters so that no two rows
// come to one place. Letters are compared without the bit that tells their case.
struct Casella {
    std::uint32_t Inizio = 0;      // the three letters
    unsigned char Dove = 0;        // where in the line the two letters stand
    unsigned char Da = 0;          // the box's first place,
    unsigned char Posti = 0;       // and a mask: 0 where it has no other, 7 where it has eight
    Classe Altrimenti = RigaAltra; // of a line with these three letters that matches no row
};
struct Confronto {
    std::uint64_t Maschera[2] = {}; // what of the first sixteen bytes is looked at,
    std::uint64_t Inizio[2] = {};   // and what has to stand there
    std::size_t Minima = ~std::size_t{0};
    std::size_t Oltre = 0; // how much longer than Minima a line may be
    Classe Esito = RigaAltra;
};
struct Schedario {
    std::uint32_t Fattori[2] = {};
    std::uint32_t TreLettere = 0; // masks
    std::uint16_t DueLettere = 0;
    std::array<Casella, 128> Caselle{};
    std::array<Confronto, 72> Confronti{}; // the first is that of no row

    constexpr std::size_t Posto(std::uint32_t tre) const noexcept { return tre * Fattori[0] >> 25; }
    constexpr std::size_t Posto(const Casella& casella, std::uint16_t due) const noexcept {
        return casella.Da + (due * Fattori[1] >> 29 & casella.Posti);
    }
};
extern const Schedario Rubrica;

/// ClassificaRiga for a line that lies in memory of which sixteen bytes from `testo` on can be read, with
/// a blank or a CR behind its `lunga` bytes.
inline Classe ClassificaInMemoria(const char* testo, std::size_t lunga) noexcept {
    std::uint64_t parole[2];
    std::uint32_t tre = 0;
    std::uint16_t due = 0;
    std::memcpy(parole, testo, sizeof parole);
    std::memcpy(&tre, testo, sizeof tre);
    tre &= Rubrica.TreLettere;
    const Casella& casella = Rubrica.Caselle[Rubrica.Posto(tre)];
    std::memcpy(&due, testo + casella.Dove, sizeof due);
    const Confronto& confronto =
        Rubrica.Confronti[Rubrica.Posto(casella, static_cast<std::uint16_t>(due & Rubrica.DueLettere))];
    const std::uint64_t diverso = ((parole[0] ^ confronto.Inizio[0]) & confronto.Maschera[0]) |
                                  ((parole[1] ^ confronto.Inizio[1]) & confronto.Maschera[1]);
    const auto scegli = [](unsigned se, unsigned questa, unsigned altra) {
        return altra ^ ((altra ^ questa) & (0 - se));
    };
    const unsigned treUguali =
        static_cast<unsigned>(tre == casella.Inizio) & static_cast<unsigned>(lunga >= 3);
    const unsigned tutti = static_cast<unsigned>(diverso == 0) &
                           static_cast<unsigned>(lunga - confronto.Minima <= confronto.Oltre);
    return static_cast<Classe>(
        scegli(tutti, confronto.Esito, scegli(treUguali, casella.Altrimenti, RigaAltra)));
}

/// The class of a line already trimmed of blanks. Case is folded; a line indented with a TAB
/// begins with the TAB and is RigaAltra.
inline Classe ClassificaRiga(Vista riga) noexcept {
    char inizio[16];
    std::memset(inizio, ' ', sizeof inizio);
    if (!riga.empty()) std::memcpy(inizio, riga.data(), std::min(riga.size(), sizeof inizio));
    return ClassificaInMemoria(inizio, riga.size());
}

/// The two-digit block code of a class, "" for most.
struct CodiceBlocco {
    char Cifre[3] = {};
    unsigned char Quante = 0; // 2 or 0

    operator Vista() const noexcept { return {Cifre, Quante}; }
};
extern const std::array<CodiceBlocco, NumeroClassi> CodiciBlocco;
/// Appends the code of a class to StoriaBlocchi.
inline void AnnotaBlocco(TestoLargo& storia, Classe classe) {
    const CodiceBlocco& codice = CodiciBlocco[classe];
    storia.AggiungiDue(codice.Cifre, codice.Quante);
}

} // namespace morvella

// SPDX-License-Identifier: MIT
// scan/classifica.h
//
// Sorts a trimmed source line into one of 27 classes by how it begins. The rows are tried
// in order and the first that matches decides. What is done for a class is the engines'
// business. Nothing looks into strings, comments or continued lines: "EndDoc" counts as an
// end, and "x = 1: If y Then" as a plain statement.
#pragma once

#include <array>
#include <cstdint>

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

// For speed alone: the rows lie in boxes by their first three bytes, since rows that begin
// otherwise cannot match the same line. A box lies where its three bytes, multiplied, lead; by
// the factor no two boxes come to one place. A line is looked at by its first eight bytes, as a
// number (PrimiOttoDi) in lower case.
struct Casella {
    std::uint64_t Maschera = 0; // what of the eight is looked at,
    std::uint64_t Inizio = 1;   // and what has to stand there: nothing does for an empty box
    Classe Esito = RigaAltra;   // then, where that is all there is to try
    bool DaProvare = false;     // otherwise: the rows of the box
    unsigned char Da = 0, Fino = 0;
};

constexpr std::uint64_t Primi(std::uint64_t otto, std::size_t quanti) noexcept {
    return quanti >= 8 ? otto : otto & ((std::uint64_t{1} << (8 * quanti)) - 1);
}

struct Schedario {
    std::uint32_t Fattore = 0;
    std::array<Casella, 128> Caselle{};

    constexpr std::size_t Posto(std::uint64_t testa) const noexcept {
        return static_cast<std::uint32_t>(Primi(testa, 3) * Fattore) >> 25;
    }
};
extern const Schedario Rubrica;

// A to Z of eight bytes to lower case, the others as they are.
constexpr std::uint64_t OttoMinuscole(std::uint64_t n) noexcept {
    constexpr std::uint64_t Uni = 0x0101010101010101U;
    const std::uint64_t sette = n & (Uni * 0x7F);
    const std::uint64_t daA = sette + Uni * (0x80 - 'A');
    const std::uint64_t oltreZ = sette + Uni * (0x7F - 'Z');
    return n | (((daA & ~oltreZ & ~n) & (Uni * 0x80)) >> 2);
}

Classe ProvaRighe(Vista riga, std::uint64_t testa, const Casella& casella) noexcept;

/// The class of a line already trimmed of blanks. Case is folded; a line indented with a TAB
/// begins with the TAB and is RigaAltra. `primi` is PrimiOttoDi(riga).
inline Classe ClassificaRiga(Vista riga, std::uint64_t primi) noexcept {
    const std::uint64_t testa = OttoMinuscole(primi);
    const Casella& casella = Rubrica.Caselle[Rubrica.Posto(testa)];
    const unsigned qui = (testa & casella.Maschera) == casella.Inizio;
    if ((qui & unsigned{casella.DaProvare}) != 0) return ProvaRighe(riga, testa, casella);
    // The box's class or RigaAltra: which of the two, no one can guess ahead.
    return static_cast<Classe>(RigaAltra ^ ((RigaAltra ^ unsigned{casella.Esito}) & (0 - qui)));
}
inline Classe ClassificaRiga(Vista riga) noexcept { return ClassificaRiga(riga, PrimiOttoDi(riga)); }

/// The two-digit block code that a class appends to StoriaBlocchi, "" for most; AnnotaBlocco
/// appends it.
Vista CodiceBlocco(Classe classe) noexcept;
void AnnotaCodice(Testo& storia, Classe classe);
inline void AnnotaBlocco(Testo& storia, Classe classe) {
    // The bits of the classes that have one.
    constexpr std::uint32_t ConCodice = 1U << RigaSub | 1U << RigaFunction | 1U << RigaIf | 1U << RigaCondIf |
                                        1U << RigaFor | 1U << RigaWith | 1U << RigaSelect | 1U << RigaEndSub |
                                        1U << RigaDo | 1U << RigaEndFunction | 1U << RigaProperty |
                                        1U << RigaEndProperty;
    if ((ConCodice >> classe & 1) != 0) AnnotaCodice(storia, classe);
}

} // namespace morvella

// SPDX-License-Identifier: MIT
// listing/connettori.h
//
// What each class of line does with the margin. Only this table says it: the engine
// (connettori.cpp) and the batch writer (comuni.h) draw by it, and the decoder
// (decodifica.cpp) looks up which connector belongs before which statement.
#pragma once

#include <array>
#include <cstring>

#include "scan/classifica.h"
#include "shell/finestra.h"

namespace morvella {

/// A column of the margin: three bytes, or none.
struct Colonna {
    char Bytes[4] = {};
    unsigned char Quanti = 0;

    constexpr operator Vista() const noexcept { return {Bytes, Quanti}; }
};
/// Copies a column and returns the place after it. `dove` has room for four bytes.
inline char* Posa(char* dove, const Colonna& colonna) noexcept {
    std::memcpy(dove, colonna.Bytes, sizeof colonna.Bytes);
    return dove + colonna.Quanti;
}

/// A row of the table. A line takes these steps: `Taglia` bytes are cut off the end of the margin,
/// and fewer are error 5; the line is written as number, margin, `Qui`, text; `Dopo` is appended to
/// the margin; the front end is told; a margin shorter than `Minimo` is padded with blanks.
struct alignas(16) Disegno {
    static constexpr unsigned char Nessuno = 255; // `Taglia` of a class without a row

    unsigned char Taglia = Nessuno;
    Colonna Qui;
    Colonna Dopo;
    unsigned char Minimo = 0;

    /// Whether the margin does not move; then the front end is told nothing.
    constexpr bool Piano() const noexcept { return Qui.Quanti == 0; }
    /// What the front end is told.
    constexpr PassoMargine::Genere Passo() const noexcept {
        if (Taglia == 0) return PassoMargine::Apre;
        return Dopo.Quanti > 0 ? PassoMargine::Mezzo : PassoMargine::Chiude;
    }
};

namespace connettore {

// Code page 437, written as raw bytes.
inline constexpr Colonna Apre{"\xDA\xC4>", 3};         // 218 196 ┌─>
inline constexpr Colonna Mezzo{"\xC3\xC4>", 3};        // 195 196 ├─>
inline constexpr Colonna Chiude{"\xC0\xC4>", 3};       // 192 196 └─>
inline constexpr Colonna Segue{"\xB3  ", 3};           // 179     │
inline constexpr Colonna ApreDoppio{"\xC9\xCD>", 3};   // 201 205 ╔═>
inline constexpr Colonna ChiudeDoppio{"\xC8\xCD>", 3}; // 200 205 ╚═>
inline constexpr Colonna SegueDoppio{"\xBA  ", 3};     // 186     ║
inline constexpr Colonna Niente{};
inline constexpr char DoppioTratto = '\xCD'; // 205 ═, the bar of an Exit line

struct RigaDisegno {
    Classe Quale;
    Disegno Come;
};

// clang-format off
/// Classes without a row have code of their own: heads, procedure ends and Exit lines (connettori.cpp).
inline constexpr RigaDisegno Tavola[] = {
    //          cut  on the line   after it     floor
    {RigaIf,        {0, Apre,         Segue,       0}},
    {RigaCondIf,    {0, Apre,         Segue,       0}},
    {RigaWith,      {0, Apre,         Segue,       0}},
    {RigaSelect,    {0, Apre,         Segue,       0}},
    {RigaFor,       {0, ApreDoppio,   SegueDoppio, 0}},
    {RigaDo,        {0, ApreDoppio,   SegueDoppio, 0}}, // While too, which no class closes
    // The column comes out single whatever it was: an Else directly in a For leaves a single
    // column for the rest of the loop.
    {RigaElse,      {3, Mezzo,        Segue,       3}}, // this floor cannot fire: 3 bytes are there
    {RigaCondElse,  {3, Mezzo,        Segue,       0}},
    {RigaCase,      {3, Mezzo,        Segue,       0}},
    // What stood in the column is not looked at: a Next closes an If. The floor comes last and
    // forgives a surplus closing line without a trace.
    {RigaEndIf,     {3, Chiude,       Niente,      3}},
    {RigaCondEndIf, {3, Chiude,       Niente,      3}},
    {RigaEndSelect, {3, Chiude,       Niente,      3}},
    {RigaEndWith,   {3, Chiude,       Niente,      3}}, // but no error 5 on an empty margin (ChiudiWith)
    {RigaNext,      {3, ChiudeDoppio, Niente,      3}},
    {RigaLoop,      {3, ChiudeDoppio, Niente,      3}},
    {RigaEnd,       {0, Niente,       Niente,      0}},
    {RigaAltra,     {0, Niente,       Niente,      0}}, // but comments (ElencaCommento)
};
// clang-format on

} // namespace connettore

/// The table by class.
inline constexpr std::array<Disegno, NumeroClassi> Disegni = [] {
    std::array<Disegno, NumeroClassi> disegni;
    disegni.fill(Disegno()); // by hand: GCC 12 zeroes the gaps of a constexpr array
    for (const connettore::RigaDisegno& riga : connettore::Tavola) disegni[riga.Quale] = riga.Come;
    return disegni;
}();
static_assert(Disegni[RigaEndSub].Taglia == Disegno::Nessuno);

} // namespace morvella

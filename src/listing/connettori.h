// SPDX-License-Identifier: MIT
// listing/connettori.h
//
// What each class of line does with the margin. This table is the only place that says it: the
// engine draws by it, and the reader of listings (decodifica.cpp) looks up in it which connector
// belongs in front of which statement.
#pragma once

#include <algorithm>
#include <array>

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

namespace connettore {

// Code page 437, written as raw bytes.
inline constexpr Colonna Apre{"\xDA\xC4>", 3};         // 218 196 ┌─>
inline constexpr Colonna Mezzo{"\xC3\xC4>", 3};        // 195 196 ├─>
inline constexpr Colonna Chiude{"\xC0\xC4>", 3};       // 192 196 └─>
inline constexpr Colonna Segue{"\xB3  ", 3};           // 179     │
inline constexpr Colonna ApreDoppio{"\xC9\xCD>", 3};   // 201 205 ╔═>
inline constexpr Colonna ChiudeDoppio{"\xC8\xCD>", 3}; // 200 205 ╚═>
inline constexpr Colonna SegueDoppia{"\xBA  ", 3};     // 186     ║
inline constexpr Colonna Niente{};
inline constexpr char DoppioTratto = '\xCD'; // 205 ═, also in the bar of an Exit line

} // namespace connettore

/// How a line is drawn: `Taglia` bytes are cut off the end of the margin, and fewer are error 5;
/// the line is written as number, margin, `Qui`, text; `Dopo` is appended to the margin; a
/// margin shorter than `Minimo` is filled up with blanks.
struct Disegno {
    static constexpr unsigned char Nessuno = 255;

    unsigned char Taglia = Nessuno; // a class that has no row
    Colonna Qui;
    Colonna Dopo;
    unsigned char Minimo = 0;
    PassoMargine::Genere Passo = PassoMargine::Apre; // what the front end is told, where `Qui` is drawn

    /// Whether the margin comes through the line as it was.
    constexpr bool Piano() const noexcept { return Qui.Quanti == 0; }
};

struct DisegnoDiClasse {
    Classe Quale;
    Disegno Come;
};

// clang-format off
/// Classes without a row have code of their own (connettori.cpp).
inline constexpr DisegnoDiClasse TavolaDisegni[] = {
    //              cut  on the line               after it                 floor  told
    {RigaIf,        {0, connettore::Apre,         connettore::Segue,       0, PassoMargine::Apre}},
    {RigaCondIf,    {0, connettore::Apre,         connettore::Segue,       0, PassoMargine::Apre}},
    {RigaWith,      {0, connettore::Apre,         connettore::Segue,       0, PassoMargine::Apre}},
    {RigaSelect,    {0, connettore::Apre,         connettore::Segue,       0, PassoMargine::Apre}},
    {RigaFor,       {0, connettore::ApreDoppio,   connettore::SegueDoppia, 0, PassoMargine::Apre}},
    {RigaDo,        {0, connettore::ApreDoppio,   connettore::SegueDoppia, 0, PassoMargine::Apre}}, // While too: it never closes
    // The column comes out single whatever it was: an Else directly in a For leaves a single
    // column for the rest of the loop.
    {RigaElse,      {3, connettore::Mezzo,        connettore::Segue,       3, PassoMargine::Mezzo}}, // a floor that cannot matter
    {RigaCondElse,  {3, connettore::Mezzo,        connettore::Segue,       0, PassoMargine::Mezzo}},
    {RigaCase,      {3, connettore::Mezzo,        connettore::Segue,       0, PassoMargine::Mezzo}},
    // What stood in the column is not looked at: a Next closes an If. The floor comes last and
    // forgives a surplus closing line without a trace.
    {RigaEndIf,     {3, connettore::Chiude,       connettore::Niente,      3, PassoMargine::Chiude}},
    {RigaCondEndIf, {3, connettore::Chiude,       connettore::Niente,      3, PassoMargine::Chiude}},
    {RigaEndSelect, {3, connettore::Chiude,       connettore::Niente,      3, PassoMargine::Chiude}},
    {RigaEndWith,   {3, connettore::Chiude,       connettore::Niente,      3, PassoMargine::Chiude}}, // no error 5: see ChiudiWith
    {RigaNext,      {3, connettore::ChiudeDoppio, connettore::Niente,      3, PassoMargine::Chiude}},
    {RigaLoop,      {3, connettore::ChiudeDoppio, connettore::Niente,      3, PassoMargine::Chiude}},
    {RigaEnd,       {0, connettore::Niente,       connettore::Niente,      0, PassoMargine::Apre}}, // nothing drawn, nothing told
    {RigaAltra,     {0, connettore::Niente,       connettore::Niente,      0, PassoMargine::Apre}}, // but for comments
};
// clang-format on

/// The table by class.
inline constexpr std::array<Disegno, NumeroClassi> Disegni = [] {
    std::array<Disegno, NumeroClassi> disegni;
    disegni.fill(Disegno()); // by hand: GCC 12 zeroes gaps of a constexpr array
    for (const DisegnoDiClasse& riga : TavolaDisegni) disegni[riga.Quale] = riga.Come;
    return disegni;
}();

} // namespace morvella

// SPDX-License-Identifier: MIT
// listing/decodifica.h
//
// Reads a line of a listing back. A listing mixes two code pages: the connectors are bytes of
// code page 437 and all the rest is Windows-1252. Connectors stand in threes directly behind
// the number field, and only a whole connector in front of a statement that it belongs to counts
// as one: a source line that begins with the letter 205 or holds a 179 keeps its letters. One
// thing a line alone cannot tell: whether "│" and two blanks in front of its text are a column
// or the text's own.
#pragma once

#include <vector>

#include "text/primitive.h"

namespace morvella {

/// A stretch of a listing line that looks alike.
struct Tratto {
    enum Genere { Numero, Condizione, Ciclo, Barra, Riquadro, Errore, Scritto };
    Genere Che;
    std::string Utf8; // never empty; control characters as their visible pictures, but for TAB
    bool operator==(const Tratto&) const = default;
};

/// Takes one line, without its line end, apart. `tratti` is overwritten.
void DecodificaRiga(Vista riga, std::vector<Tratto>& tratti);

/// The same stretch as bytes of the line: `Quanti` of them, never 0, from the offset `Da`.
struct Porzione {
    Tratto::Genere Che;
    std::size_t Da;
    std::size_t Quanti;
    bool operator==(const Porzione&) const = default;
};

/// Takes one line apart and builds no text. Together the slices are the whole line.
void TagliaRiga(Vista riga, std::vector<Porzione>& fette);

/// What one byte of a stretch is shown as: one character for each, TAB as itself.
char16_t Segno(Tratto::Genere che, char byte) noexcept;

/// Whether a line is the error line of the balance test.
bool RigaErrore(Vista riga) noexcept;

/// The border lines of the box around a head: four of its five lines.
enum class Bordo { Nessuno, Asterischi, Vuoto };
Bordo BordoDiRiquadro(Vista riga) noexcept;

/// How many bytes the number field of a line takes: 11, 5 beyond line 999,999, else 0. A box's
/// border and the error line begin with the same blanks and have no field.
std::size_t CampoDiRiga(Vista riga) noexcept;

} // namespace morvella

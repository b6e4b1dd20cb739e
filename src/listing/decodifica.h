// SPDX-License-Identifier: MIT
// listing/decodifica.h
//
// Takes a line of a listing apart again. A listing mixes two code pages: connectors are bytes of
// code page 437, all the rest is Windows-1252. Connectors come in threes right after the number
// field, and one counts only before a statement that it belongs to: a source line that begins
// with the letter 205 or holds a 179 keeps its letters. One thing a line alone cannot tell:
// whether "│" and two blanks before its text are a column or the text's own.
#pragma once

#include <vector>

#include "text/primitive.h"

namespace morvella {

/// A run of a listing line that looks alike.
struct Tratto {
    enum Genere { Numero, Condizione, Ciclo, Barra, Riquadro, Errore, Scritto };
    Genere Che;
    std::string Utf8; // never empty; control characters as their visible pictures, but for TAB
    bool operator==(const Tratto&) const = default;
};

/// Splits one line, given without its line end. `tratti` is overwritten.
void DecodificaRiga(Vista riga, std::vector<Tratto>& tratti);

/// A run, as a byte range of the line: `Quanti` of them, never 0, from the offset `Da`.
struct Porzione {
    Tratto::Genere Che;
    std::size_t Da;
    std::size_t Quanti;
    bool operator==(const Porzione&) const = default;
};

/// Splits one line and builds no text. Together the runs are the whole line.
void TagliaRiga(Vista riga, std::vector<Porzione>& fette);

/// The character that a byte of a run is shown as; TAB is itself.
char16_t Segno(Tratto::Genere che, char byte) noexcept;

/// Whether a line is the error line of the balance test.
bool RigaErrore(Vista riga) noexcept;

/// The border lines of the box around a head, four of its five.
enum class Bordo { Nessuno, Asterischi, Vuoto };
Bordo BordoDiRiquadro(Vista riga) noexcept;

/// Width of a line's number field: 11, 5 beyond line 999,999, else 0. A box's border and the
/// error line begin with the same blanks and have no field.
std::size_t CampoDiRiga(Vista riga) noexcept;

} // namespace morvella

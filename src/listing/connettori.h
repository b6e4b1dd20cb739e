// SPDX-License-Identifier: MIT
// listing/connettori.h
//
// What the two ways of drawing a line have in common.
#pragma once

#include <span>

#include "listing/listing.h"
#include "scan/sorgente.h"

namespace morvella {

namespace connettore {

// Code page 437, written as raw bytes.
inline constexpr char AngoloApre = '\xDA';    // 218 ┌
inline constexpr char Tratto = '\xC4';        // 196 ─
inline constexpr char Innesto = '\xC3';       // 195 ├
inline constexpr char AngoloChiude = '\xC0';  // 192 └
inline constexpr char Colonna = '\xB3';       // 179 │
inline constexpr char DoppioApre = '\xC9';    // 201 ╔
inline constexpr char DoppioTratto = '\xCD';  // 205 ═
inline constexpr char DoppioChiude = '\xC8';  // 200 ╚
inline constexpr char DoppiaColonna = '\xBA'; // 186 ║

} // namespace connettore

/// ElencaRiga for several lines of the code, in their order, up to the first that is not a common one; gives
/// how many it was. Numero holds the number of the line before and goes on by one for each; the six digits
/// must be enough. The lines are those that RigheSorgente::Pronte gives. Touches neither Riga nor the counts.
std::size_t ElencaComuni(Stato& s, std::span<const RigaSorgente> righe);

} // namespace morvella

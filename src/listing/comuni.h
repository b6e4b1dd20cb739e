// SPDX-License-Identifier: MIT
// listing/comuni.h
//
// Batch writer, for speed: most lines have a row in the table of the margin (connettori.h), and
// those go straight into the channel's buffer, with the number and the margin's width in registers
// and without a branch on the class, which is unpredictable. A batch ends before any other line, and
// ElencaRiga writes that one. Without the batch the same bytes take a fifth longer.
#pragma once

#include <span>

#include "scan/sorgente.h"

namespace morvella {

/// Writes the common lines at the front of `righe` and returns how many. `righe` come from
/// RigheSorgente::Pronte, and the six digits are enough for their numbers. Moves Margine, Numero,
/// StoriaBlocchi and ContaRighe on. Returns 0 where the front end watches the margin, where the
/// margin is wide, and where channel 2 is not open for output.
std::size_t ElencaComuni(Stato& s, std::span<const RigaSorgente> righe);

} // namespace morvella

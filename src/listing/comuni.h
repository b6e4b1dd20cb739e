// SPDX-License-Identifier: MIT
// listing/comuni.h
//
// For speed alone: most lines of a listing have a row in the table of the margin (connettori.h) and
// are written here by the batch, straight into the channel's buffer, while the number, the margin
// and the place stay in registers. A batch ends before the first line that is anything else, and
// ElencaRiga writes that one. Without this the listing has the same bytes and takes a fifth longer.
#pragma once

#include <span>

#include "scan/sorgente.h"

namespace morvella {

/// Writes as many of `righe` as are common lines, from the first on, and returns how many. `righe`
/// are those of RigheSorgente::Pronte, all of them numbered with six digits. Moves Margine,
/// StoriaBlocchi and, by one a line, ContaRighe on; Numero is that of the last line. None is written where
/// the front end watches the margin, or the margin is wide.
std::size_t ElencaComuni(Stato& s, std::span<const RigaSorgente> righe);

} // namespace morvella

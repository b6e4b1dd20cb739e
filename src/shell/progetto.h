// SPDX-License-Identifier: MIT
// shell/progetto.h
//
// Reads a project file (*.vbp) into File1. A line is judged by how it begins and by nothing
// else: there is no key, no section, no first line.
#pragma once

#include <optional>

#include "shell/state.h"

namespace morvella {

/// The row that a line of a project file adds, nothing for a line that adds none. The result
/// looks into `linea`.
std::optional<Vista> VoceDiProgetto(Vista linea);

/// Empties File1 and fills it from the chosen project file through channel 1. Raises what the
/// opening and the reading raise: no handler stands here.
void LeggiProgetto(Stato& s);

} // namespace morvella

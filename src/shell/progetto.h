// SPDX-License-Identifier: MIT
// shell/progetto.h
//
// Reads a project file (*.vbp) into File1. Only how a line begins counts: there are no keys, no
// sections and no first line.
#pragma once

#include <optional>

#include "shell/state.h"

namespace morvella {

/// The row that a line of a project file adds, if any. The result is a view of `linea`.
std::optional<Vista> VoceDiProgetto(Vista linea);

/// Refills File1 from the chosen project file through channel 1. Runs under no handler: raises
/// what Canali::OpenInput and LineInput raise.
void LeggiProgetto(Stato& s);

} // namespace morvella

// SPDX-License-Identifier: MIT
// docs/righe.h
//
// Fixed lines of a page with places for values.
#pragma once

#include <span>

#include "shell/state.h"

namespace morvella {

/// Prints a table's lines to channel `n`, each "@" replaced by the next of `valori`, as it is:
/// nothing is escaped for HTML.
void ScriviRighe(Stato& s, int n, std::span<const Vista> righe, std::initializer_list<Vista> valori = {});

} // namespace morvella

// SPDX-License-Identifier: MIT
// cli/eventi.h
//
// The command "eventi": the window's operations by name, one after the other, so that a script can
// drive the program as a person drives the window. As there, no project is chosen before the first
// File1Leggi_Click, and nothing follows the program's end.
#pragma once

#include <string>
#include <vector>

#include "cli/corsa.h"

namespace morvella::cli {

/// The names that "eventi" knows; those of controls and keys end in "=" and want a value.
std::vector<std::string> NomiEventi();

/// Runs the events of the request up to the first final error. All are looked at before the first is run:
/// raises UsoErrato for one that is unknown or wrong, then or, for a row that is not there, when its turn
/// has come.
void EseguiEventi(Corsa& c);

} // namespace morvella::cli

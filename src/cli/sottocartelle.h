// SPDX-License-Identifier: MIT
// cli/sottocartelle.h
//
// Folders below the work directory for the pages of modules that lie in folders below the
// project. The documentation itself makes none and ends at the first such row; these come
// before and after its run, when asked for.
#pragma once

#include <string>
#include <vector>

#include "shell/state.h"

namespace morvella::cli {

/// Makes below the work directory the folders that the rows name, never outside it, and gives
/// their paths from there ("sub\deep"), parents first. `note` gets a sentence for each row that
/// climbs out, and for a folder that is a link or a file. Raises what making a directory raises.
std::vector<std::string> FaiSottocartelle(Stato& s, const std::vector<Lungo>& righe,
                                          std::vector<std::string>& note);

/// Whether FaiSottocartelle would make a folder that the row's page misses: it leads to a place below
/// the work directory, and no folder on the way is a file.
bool CartellaFattibile(Stato& s, Vista riga);

/// Lays the four pictures into each folder, and where there is an index an "Indice.Html" that leads
/// to it; the page of a row of that name stays. Raises what copying and writing raise.
void ArredaSottocartelle(Stato& s, const std::vector<std::string>& cartelle);

} // namespace morvella::cli

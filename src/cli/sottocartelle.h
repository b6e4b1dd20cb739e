// SPDX-License-Identifier: MIT
// cli/sottocartelle.h
//
// --sottocartelle: folders in the work directory for the pages of modules that lie in folders of the
// project. The documentation itself makes none and ends at the first such row, so these functions run
// before and after it.
#pragma once

#include <string>
#include <vector>

#include "shell/state.h"

namespace morvella::cli {

/// Makes the folders that these rows name, below the work directory and never outside it. Gives their
/// paths relative to it ("sub\deep"), parents first. `note` gets a sentence for each row that climbs out
/// and for each folder that is a link or a file. Raises what making a directory raises.
std::vector<std::string> FaiSottocartelle(Stato& s, const std::vector<Lungo>& voci,
                                          std::vector<std::string>& note);

/// Whether FaiSottocartelle would make a folder that the row's page misses: the page lies below the work
/// directory, and no folder on the way is a file.
bool CartellaFattibile(Stato& s, Vista voce);

/// Copies the four pictures into each folder and, where there is an index, writes an "Indice.Html" that
/// leads to it; a row's own page of that name stays. Raises what copying and writing raise.
void ArredaSottocartelle(Stato& s, const std::vector<std::string>& cartelle);

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
// cli/prosegui.h
//
// --prosegui: goes on after a row that failed, as a user would by hand, by giving the command again
// for the rows that are left.
#pragma once

#include "cli/corsa.h"

namespace morvella::cli {

/// The rewriter over the selected rows has run: gives its command again until no row is left.
void ProseguiRiordina(Corsa& c);
/// The same for the listing.
void ProseguiStruttura(Corsa& c);

} // namespace morvella::cli

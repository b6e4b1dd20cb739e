// SPDX-License-Identifier: MIT
// cli/mostra.h
//
// Shows listings in a terminal, with their connectors drawn.
#pragma once

#include "cli/opzioni.h"
#include "cli/terminale.h"

namespace morvella::cli {

/// The command "mostra": prints the files that the request names, to standard output or a pager. A file
/// that cannot be read, or is no listing, is reported and passed over. Gives the exit status.
int Mostra(const Richiesta& richiesta, Ambiente& ambiente);

} // namespace morvella::cli

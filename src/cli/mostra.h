// SPDX-License-Identifier: MIT
// cli/mostra.h
//
// Shows listings in a terminal, with their connectors drawn.
#pragma once

#include "cli/opzioni.h"
#include "cli/terminale.h"

namespace morvella::cli {

/// The command "mostra": the files named in the request, to standard output or a pager. Gives
/// the exit status; a file that cannot be read is told, and the others are shown.
int Mostra(const Richiesta& richiesta, Ambiente& ambiente);

} // namespace morvella::cli

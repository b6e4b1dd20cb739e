// SPDX-License-Identifier: MIT
// cli/verifica.h
#pragma once

#include "cli/corsa.h"

namespace morvella::cli {

/// The bytes of a file. Raises 53, 75, 76 as Archivio::ApriLettura does.
std::string LeggiFile(Archivio& archivio, Vista percorso);

/// Holds the rewritten copies of the rows in Lavorate against their sources and tells what it finds:
/// the "verifica" command, and the end of a run with --verifica. False when a copy differs, when a file
/// cannot be read, and when there was no copy at all.
bool VerificaCopie(Corsa& c);

} // namespace morvella::cli

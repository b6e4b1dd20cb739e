// SPDX-License-Identifier: MIT
// cli/voci.h
//
// The rows that a command is for, as the selection of File1.
#pragma once

#include <vector>

#include "cli/corsa.h"

namespace morvella::cli {

/// The selected rows, ascending.
std::vector<Lungo> Selezionate(const Stato& s);
/// Selects these rows and no others. Only rows whose state changes raise File1_Click.
void SelezionaEsattamente(Stato& s, const std::vector<Lungo>& voci);
/// Selects the rows that the command line names; without any the selection stays. Raises UsoErrato for
/// one that the project does not have.
void ScegliVoci(Corsa& c);

} // namespace morvella::cli

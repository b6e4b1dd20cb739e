// SPDX-License-Identifier: MIT
// comandi/comandi.h
//
// The run driver: from the choice of a project to the end of a run. It calls the engines, which
// know nothing of it.
#pragma once

#include "shell/state.h"

namespace morvella {

/// A project was chosen: reads it into File1, selects every row, asks and runs. Raises what
/// LeggiProgetto raises; such an error is final.
void File1Leggi_Click(Stato& s);

/// Asks, unless OpzSenzaConferma is set, and on Yes runs the rewriter, then the listing, even if
/// the rewriter was stopped. Raises nothing of theirs. IndiceFile holds the answer until the first
/// engine uses it as its index.
void Command1_Click(Stato& s);

/// Selects all rows or none, as the caption says, and toggles the caption.
void mnuSeleziona_Click(Stato& s);

/// The farewell box, whatever unloads the form; the process ends after it. Nothing is saved.
void Form_Unload(Stato& s);

} // namespace morvella

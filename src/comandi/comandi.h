// SPDX-License-Identifier: MIT
// comandi/comandi.h
//
// The run driver: from the choice of a project to the end of a run. It stands on top and
// names the engines; they do not know of it.
#pragma once

#include "shell/state.h"

namespace morvella {

/// A project was chosen: reads it into File1, selects every row, asks and runs. Raises what a
/// project file that cannot be read raises; such an error is final.
void File1Leggi_Click(Stato& s);

/// Asks, unless OpzSenzaConferma is set, and on Yes runs the rewriter and then the listing, the
/// listing also when the rewriter stopped; what stops them is not raised. The answer stands in IndiceFile
/// until the first engine counts rows with it.
void Command1_Click(Stato& s);

/// Selects all rows, or none, by what the caption says, and turns the caption.
void mnuSeleziona_Click(Stato& s);

/// The farewell box, whatever unloads the form; the process ends behind it. Nothing is saved.
void Form_Unload(Stato& s);

} // namespace morvella

// SPDX-License-Identifier: MIT
// rewriter/rewriter.h
//
// The code rewriter: for each selected row a re-indented copy in the work directory, first
// as ".txt", then under the module's own name with the form's binary companion beside it.
// Sources are only read. What belongs to the head of a file, and the class of a line, are
// the scanner's business (scan/).
//
// What would surprise: opening a block adds 6 to the margin and closing it takes 7, and
// there is no stack. The layout is this drift.
#pragma once

#include "scan/classifica.h"
#include "shell/state.h"

namespace morvella {

/// The run over the selected rows of File1. Raises nothing: an error that the handler does not
/// mend ends the run in silence, with word of it to Finestra::MotoreFermato.
void mnuRiordina_Click(Stato& s);

/// Writes the line in Riga, which is of class `classe`, at its margin to channel 2 and moves Margine and StoriaBlocchi on.
/// Raises FineMotore when a write fails.
void RiscriviRiga(Stato& s, Classe classe);

} // namespace morvella

// SPDX-License-Identifier: MIT
// rewriter/rewriter.h
//
// The code rewriter: a re-indented copy of each selected row in the work directory, first as
// ".txt", then under the module's own name, with the form's binary companion. Sources are only
// read. The scanner (scan/) finds the head of a file and the class of a line.
//
// What would surprise: there is no stack. Opening a block adds 6 to the margin, closing it takes 7,
// and the layout is this drift.
#pragma once

#include "scan/classifica.h"
#include "shell/state.h"

namespace morvella {

/// The run over the selected rows of File1. Raises nothing: an error that the handler cannot repair
/// ends the run; only Finestra::MotoreFermato reports it.
void mnuRiordina_Click(Stato& s);

/// Writes the line in Riga, of class `classe`, to channel 2 and updates Margine and StoriaBlocchi.
/// Throws FineMotore when a write fails.
void RiscriviRiga(Stato& s, Classe classe);

} // namespace morvella

// SPDX-License-Identifier: MIT
// listing/listing.h
//
// The structure listing: every line of code of each selected row, stripped of its indentation,
// numbered, and drawn against a margin of box-drawing bytes (code page 437) that shows where
// blocks open and close. Sources are only read. What belongs to a file's head, and the class of
// a line, are the scanner's business (scan/).
//
// What would surprise: nothing but Margine knows which blocks are open. A block opened makes it 3 bytes
// wider, a block closed 3 narrower, and what stood there is not looked at: a Next closes an If.
// Each row is deselected before it is processed, and StatoTesta carries over from file to file.
#pragma once

#include "scan/classifica.h"
#include "shell/state.h"

namespace morvella {

/// The run over the selected rows of File1. Raises nothing: an error that the handler cannot repair
/// ends the run; only Finestra::MotoreFermato reports it.
void mnuvorn_Click(Stato& s);

/// Shows the listings of the selected rows, one viewer each, after a box that names the font.
/// Where one is missing the listings are written and everything starts over; by then the rows
/// are deselected, so nothing more opens. Raises 53 without a viewer, 5 for a row of fewer than
/// 4 bytes: no handler stands here.
void mnuLettura_Click(Stato& s);

/// The number field: 6 digits with leading zeros and 5 blanks; from 1,000,000 on 5 blanks alone.
Testo CampoNumero(Lungo n);
/// The same, written over `numero`.
void Numera(TestoLargo& numero, Lungo n);

/// Writes the head of the listing to channel 2 and uses up ElencoShow.
void ScriviTesta(Stato& s);

/// Writes the line in Riga, of class `classe`, to channel 2 and moves Margine and StoriaBlocchi on.
/// Raises FineMotore when a write fails, and with 5 where a closing or middle line meets a margin
/// of fewer than 3 bytes, as after an End Sub.
void ElencaRiga(Stato& s, Classe classe);

/// What replaces `margine` in an Exit line: "<<" and a double stroke for each of its bytes, two for
/// an empty one.
Testo BarraUscita(Vista margine);

/// Whether the block history does not end with `codice` (two bytes). With `togli`, and when it
/// does, the history becomes that code alone. No operation calls it.
bool VerificaBlocco(Stato& s, Vista codice, bool togli);

} // namespace morvella

// SPDX-License-Identifier: MIT
// shell/opzioni.h
//
// The options in Default.ini, in App.Path. Its lines go by position: "OK" or "KO" for
// TogliCommenti, the same for Check1, one or more lines of header text, "OK" or "KO" for Check2.
// Engines do not read the file: they look at the controls.
//
// What would surprise: a text that is stored does not always load as it was, and that is meant.
// The writer stores it unchanged; the reader drops its blank lines and takes a line "OK" or "KO"
// for the end of the text. The template is shown but not stored.
#pragma once

#include "shell/state.h"

namespace morvella {

/// Reads the file into the controls and Module1's fields; an empty file changes nothing. Raises 53
/// without the file, 62 when it ends before its last "OK" or "KO"; what was read by then stays.
void CaricaOpzioni(Stato& s);

/// Sets the controls to their defaults, with the template in Text1, and writes the default file,
/// without a text. Raises what Canali::OpenOutput, Print and Close raise.
void OpzioniDefault(Stato& s);

/// Writes the file from the controls and sets Module1's fields. Raises as OpzioniDefault.
void SalvaOpzioni(Stato& s);

/// The first line of a header text, from 1, that CaricaOpzioni would take for its end and for the
/// state of Check2; 0 if none.
Lungo RigaCheTronca(Vista testo);

/// The window's first resize: loads the file, or writes the default one if it is missing.
void Form_Resize(Stato& s);
/// "Ripristina Default".
void Command2_Click(Stato& s);
/// An option control lost the focus. Only then are options stored.
void Opzione_LostFocus(Stato& s);

/// The path of the file.
Testo PercorsoOpzioni(const Stato& s);

} // namespace morvella

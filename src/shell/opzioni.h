// SPDX-License-Identifier: MIT
// shell/opzioni.h
//
// The options in Default.ini beside the program. The file is four things by their places: "OK"
// or "KO" for TogliCommenti and for Check1, the header text in one or more lines, "OK" or "KO"
// for Check2. The engines do not read it: they look at the controls.
//
// What would surprise: reader and writer are not each other's reverse, and that is meant. The
// writer stores the text as it stands; the reader drops its blank lines, and takes a line of it
// that reads "OK" or "KO" for the end of the text. The template is shown and not stored.
#pragma once

#include "shell/state.h"

namespace morvella {

/// Reads the file into the controls and into Module1's fields; an empty file changes nothing.
/// Raises 53 without the file, 62 when it ends before its last "OK" or "KO".
void CaricaOpzioni(Stato& s);

/// Sets the controls to their defaults, with the template in Text1, and writes the default file,
/// which holds no text. Raises what the opening and the writing raise.
void OpzioniDefault(Stato& s);

/// Writes the file from the controls and sets Module1's fields. Raises as OpzioniDefault.
void SalvaOpzioni(Stato& s);

/// The first line of a header text, counted from 1, that a loading would take for the end of it and
/// for the state of Check2; 0 when there is none.
Lungo RigaCheTronca(Vista testo);

/// The option step of the window's first appearance: loads the file, or writes the default one.
void Form_Resize(Stato& s);
/// "Ripristina Default".
void Command2_Click(Stato& s);
/// An option's control lost the focus: the options are stored then, and at no other time.
void Opzione_LostFocus(Stato& s);

/// The path of the file.
Testo PercorsoOpzioni(const Stato& s);

} // namespace morvella

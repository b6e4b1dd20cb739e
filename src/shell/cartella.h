// SPDX-License-Identifier: MIT
// shell/cartella.h
//
// The work directory Appoggio below the project: how it comes to be, and the short path of
// a file in it.
#pragma once

#include "shell/state.h"

namespace morvella {

/// What the marker OK.LOG says.
inline constexpr Vista FraseOkLog = "Ok! Directory Creata, ora mettiamoci al lavoro ...";

/// Makes the work directory `mdir` with its marker OK.LOG where nothing of that name is there,
/// sets DirAppoggio, and copies the chosen project file into it. A statement that fails is
/// passed over: nothing is raised, and a directory that could not be made shows later.
void ScriviDir(Stato& s, Vista mdir);

/// The row without its last 4 bytes, whatever they are. Raises 5 for a row of fewer.
inline Vista BaseDiVoce(Vista riga) { return Mid(riga, 1, Len(riga) - 4); }

/// The short form of a path for a viewer's command line, cut to 50 bytes; the path itself when
/// it has none. Where the platform knows no short paths it is the path itself, uncut.
Testo PercorsoCorto(Stato& s, Vista percorso);

} // namespace morvella

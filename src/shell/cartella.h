// SPDX-License-Identifier: MIT
// shell/cartella.h
//
// Makes the work directory Appoggio below the project; row names and short paths of files in it.
#pragma once

#include "shell/state.h"

namespace morvella {

/// The text of the marker OK.LOG.
inline constexpr Vista FraseOkLog = "Ok! Directory Creata, ora mettiamoci al lavoro ...";

/// Makes the work directory `mdir` with its marker OK.LOG unless something of that name exists,
/// sets DirAppoggio, and copies the chosen project file into it. Raises nothing: a statement that
/// fails is skipped, and a missing directory shows at the engine's first output.
void ScriviDir(Stato& s, Vista mdir);

/// The row without its last 4 bytes, whatever they are. Raises 5 for a row of fewer.
inline Vista BaseDiVoce(Vista voce) { return Mid(voce, 1, Len(voce) - 4); }

/// The short path for a viewer's command line, cut to 50 bytes. Without one, and on a platform
/// that has none, `percorso` itself, uncut.
Testo PercorsoCorto(Stato& s, Vista percorso);

} // namespace morvella

// SPDX-License-Identifier: MIT
// cli/conserva.h
//
// The options: as Default.ini stores them, as the command line changes them for one run, and the
// command "opzioni", which shows and stores them.
#pragma once

#include "cli/corsa.h"

namespace morvella::cli {

/// A text as the header's box holds it: Windows-1252, lines ended by CR LF. `testo` is UTF-8 or, where
/// it is not well-formed, Windows-1252. `persi` is set when a character had to become "?".
Testo ComeCasella(std::string testo, bool& persi);

/// Loads the stored options where a file stores them; none is made. "eventi" loads them only for --ini,
/// by the window's own first event. False when that failed.
bool CaricaIni(Corsa& c);

/// Lays the command line's options over the stored ones for this run, like a user's own ticks. Raises
/// UsoErrato for a header text that cannot be read.
void SpuntaOpzioni(Corsa& c);

/// The command "opzioni": changes what is asked for, then shows what is stored. Gives the exit status.
int MostraOpzioni(Corsa& c);

} // namespace morvella::cli

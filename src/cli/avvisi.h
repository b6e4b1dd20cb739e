// SPDX-License-Identifier: MIT
// cli/avvisi.h
//
// Warnings about a project. They change nothing; they say what a person would want to know
// before trusting the result.
#pragma once

#include <string>
#include <vector>

#include "shell/state.h"

namespace morvella::cli {

/// Whether most line ends of a file's first block are a lone LF, which ends no line here.
/// False for a file that cannot be read.
bool FiniRigaLf(Stato& s, Vista percorso);

/// Whether a path ends like a file of a project: .vbp, .frm, .bas, .cls and the like, in any case.
bool HaNomeDiSorgente(Vista percorso);

/// Which outputs a command writes for its rows.
enum class Uscite { Nessuna, Testi, Strutture, Pagine };

/// The sentences of Avvisi about LF line ends alone: such a file is read as one line, so nothing in it
/// was examined.
std::vector<std::string> AvvisiLf(Stato& s, const std::vector<Lungo>& righe);

/// UTF-8 sentences about the chosen project file and, for the given rows, about missing
/// files, LF line ends, outputs beside the work directory and outputs of two rows in one file.
std::vector<std::string> Avvisi(Stato& s, const std::vector<Lungo>& righe, Uscite uscite);

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
// cli/avvisi.h
//
// Warnings about a project: what a person would want to know before trusting the result. They change
// nothing.
#pragma once

#include <string>
#include <vector>

#include "shell/state.h"

namespace morvella::cli {

/// Reads until `n` bytes are there or the file ends, however short the reads are. Gives their number.
std::size_t LeggiPieno(FileAperto& file, char* dove, std::size_t n);

/// Whether most line ends of a file's first block are a lone LF, which ends no line here.
/// False for a file that cannot be read.
bool FiniRigaLf(Stato& s, Vista percorso);

/// Whether a path ends like a file of a project: .vbp, .frm, .bas, .cls and the like, in any case.
bool HaNomeDiSorgente(Vista percorso);

/// Which outputs a command writes for its rows.
enum class Uscite { Nessuna, Testi, Strutture, Pagine };

/// The warnings of Avvisi about LF line ends alone. Such a file is read as one line, so nothing in it was
/// examined.
std::vector<std::string> AvvisiLf(Stato& s, const std::vector<Lungo>& voci);

/// Warnings in UTF-8 about the chosen project file and, for these rows, about missing files, LF line ends,
/// outputs outside the work directory and two rows that write the same file.
std::vector<std::string> Avvisi(Stato& s, const std::vector<Lungo>& voci, Uscite uscite);

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
// cli/formatta.h
#pragma once

#include <string>
#include <vector>

#include "cli/opzioni.h"
#include "cli/terminale.h"
#include "text/disco/archivio.h"

namespace morvella::cli {

/// A source to lay out.
struct DaFormattare {
    Testo Sorgente;    // the system's path
    std::string Detto; // as messages name it, relative to where the program was started
    Testo Directory;   // the project's, or the one it lies in
    Testo Nome;        // below the directory for the copies
};

/// Makes out the sources that the inputs stand for, in their order, and protects them and the project
/// files against every write of `archivio`. An input that cannot be read is told by `di`; false then.
bool TrovaIngressi(const std::vector<std::string>& ingressi, Ambiente& ambiente, Archivio& archivio,
                   std::vector<DaFormattare>& sorgenti, const std::function<void(const std::string&)>& di);

/// The command "formatta". Gives the exit status: 4 when a module has findings or, with --solo-verifica,
/// would change; 1 when something failed; 0 otherwise.
int FormattaIngressi(const Richiesta& richiesta, Ambiente& ambiente);

} // namespace morvella::cli

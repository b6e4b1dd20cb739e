// SPDX-License-Identifier: MIT
// cli/consiglio.h
//
// What to do about an error, for the person who reads of it.
#pragma once

#include <string>

#include "cli/rapporto.h"

namespace morvella::cli {

/// What the advice depends on besides the error itself.
struct Circostanze {
    bool PuoProseguire = false;
    bool Appoggio = true;           // the work directory is there
    bool CartellaFattibile = false; // the row's page misses a folder that --sottocartelle would make
    bool FileAssente = false;       // what the error names is not there
    std::string Programma;          // as --programma has it
};

/// A word of a command, quoted where a shell needs it.
std::string PerShell(const std::string& parola);

/// Sentences in UTF-8; "" where there is nothing to advise.
std::string Consiglio(const ErroreAvvenuto& e, const Circostanze& come);

/// Whether error 53 says that the program to show a file is missing, and not the file it names.
bool MancaUnProgramma(const ErroreAvvenuto& e, bool fileAssente);

} // namespace morvella::cli

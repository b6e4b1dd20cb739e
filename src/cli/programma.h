// SPDX-License-Identifier: MIT
// cli/programma.h
//
// The commands. Each is a fixed sequence of the window's own operations: there is no second
// way through the engines.
#pragma once

#include <string>
#include <vector>

#include "cli/terminale.h"

namespace morvella::cli {

enum Uscita : int { Fatto = 0, Fermato = 1, UsoSbagliato = 2, RispostoNo = 3, Trovato = 4 };

/// Runs the program with these arguments (without its name) and gives its exit status.
int Programma(const std::vector<std::string>& argomenti, Ambiente& ambiente);

} // namespace morvella::cli

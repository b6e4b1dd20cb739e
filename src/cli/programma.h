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

/// What is said where there is no memory to say more: error 7, in plain letters that need no
/// conversion.
inline constexpr const char* SenzaMemoria = "morvella-cli: errore 7, Memoria insufficiente.\n";

/// Runs the program with these arguments (without its name) and gives its exit status. Raises
/// nothing: without memory it is 1.
int Programma(const std::vector<std::string>& argomenti, Ambiente& ambiente);

} // namespace morvella::cli

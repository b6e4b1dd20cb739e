// SPDX-License-Identifier: MIT
// cli/esamina.h
//
// The command that examines sources and tells what the compiler would refuse about their blocks.
// It reads only; the result goes to standard output or to the one file that was named for it.
#pragma once

#include "cli/opzioni.h"
#include "cli/terminale.h"

namespace morvella::cli {

/// Runs "esamina" and gives its exit status. Raises UsoErrato, and Errore for a disk that says no
/// before anything was examined.
int EsaminaIngressi(const Richiesta& richiesta, Ambiente& ambiente);

} // namespace morvella::cli

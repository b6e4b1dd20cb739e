// SPDX-License-Identifier: MIT
// shell/protezione.h
//
// Names the files that a run must not change. The file layer then refuses every write to them
// (Archivio::Proteggi), whatever path leads there.
#pragma once

#include "text/primitive.h"

namespace morvella {

struct Stato;

/// What the current protection was made from, so that an unchanged one is not rebuilt.
struct ElencoProtetto {
    Lungo Versione = -1; // ListaFile1::Versione; -1: nothing is protected yet
    Testo Directory;     // Dir1.Path
    Testo Progetto;      // the chosen project file
};

/// Protects the source of every row, selected or not, its .Frx companion and the project file.
/// Raises nothing but a lack of memory.
void ProteggiSorgenti(Stato& s);

} // namespace morvella

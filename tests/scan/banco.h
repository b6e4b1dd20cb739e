// SPDX-License-Identifier: MIT
// tests/scan/banco.h
//
// A program on the tests' double with a project in /p.
#pragma once

#include <gtest/gtest.h>

#include "scan/testa.h"
#include "sostegno/disco_finto.h"
#include "sostegno/finestra_finta.h"

namespace morvella::prove {

struct Banco {
    DiscoFinto Disco;
    FinestraFinta Fronte;
    Stato S{Disco, Fronte};

    Banco() { CambiaDir1(S, "/p"); }

    /// The first pass over a file of these bytes.
    void Raccogli(const Testo& bytes) {
        Disco.Metti("/p/x.bas", bytes);
        S.FileSorgente = "\\p\\x.bas";
        S.TotaleRighe = 0;
        RaccogliShow(S);
    }
};

} // namespace morvella::prove

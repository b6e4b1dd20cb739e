// SPDX-License-Identifier: MIT
// cli/rilievi.h
//
// What the listing finds about a source: procedures that end with blocks open, and lines that
// end the run. The engine keeps no stack; this watches its margin from outside, with a record
// of who opened each column, as long as the margin is wide.
#pragma once

#include <string>
#include <vector>

#include "shell/finestra.h"

namespace morvella::cli {

/// A finding: the row of File1 by its text, the line of the source (from 1), and what to say of it in UTF-8.
struct Rilievo {
    Testo Riga;
    Lungo RigaFile;
    std::string Frase;
};

class Sorvegliante {
  public:
    /// `riga` is the text of the row in work.
    void Osserva(const PassoMargine& passo, const Testo& riga);
    void Osserva(const Arresto& arresto, const Testo& riga);
    const std::vector<Rilievo>& Rilievi() const noexcept { return rilievi_; }

  private:
    struct Apertura {
        Lungo RigaFile = 0; // 0: the column is blank
        Testo Linea;
    };

    std::vector<Apertura> colonne_; // one for each three bytes of margin
    Apertura testa_;                // the procedure's head
    std::vector<Rilievo> rilievi_;
};

} // namespace morvella::cli

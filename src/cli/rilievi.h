// SPDX-License-Identifier: MIT
// cli/rilievi.h
//
// What the listing finds about a source: procedures that end with blocks open, and lines that
// end the run. The engine keeps no stack; this watches its margin from outside, with a record
// of who opened each column, as long as the margin is wide.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "shell/state.h"

namespace morvella::cli {

/// A line of a source as the engine counts it, from 1, where lone LFs end nothing, and its text.
struct LineaTrovata {
    Lungo Riga = 0; // 0: there is none
    Testo Linea;
};

/// A finding about a row of File1.
struct Rilievo {
    Testo Voce;
    LineaTrovata Dove;
    Lungo RigaListato = 0;
    bool Ferma = false;               // a line that ends the run; else a procedure's end
    LineaTrovata Testa;               // the procedure's head
    std::vector<LineaTrovata> Aperti; // what opened the columns that stand, from the left

    /// What to say of it in UTF-8; `inFile` gives the line of the file that an editor shows.
    std::string Frase(const std::function<Lungo(Lungo)>& inFile) const;
};

/// The lines of a source as editors count them, who take a lone LF for a line end too. Reads the row's
/// source through channel 1; one that cannot be read has no such LFs.
class LineeDiEditor {
  public:
    LineeDiEditor(Stato& s, Vista voce);
    Lungo Di(Lungo riga) const;

  private:
    std::vector<std::pair<Lungo, Lungo>> dopo_; // a line with LFs, and how many there are up to its end
};

class Sorvegliante {
  public:
    /// `voce` is the text of the row in work.
    void Osserva(const PassoMargine& passo, const Testo& voce);
    void Osserva(const Arresto& arresto, const Testo& voce);
    const std::vector<Rilievo>& Rilievi() const noexcept { return rilievi_; }

  private:
    std::vector<LineaTrovata> colonne_; // one for each three bytes of margin
    LineaTrovata testa_;                // the procedure's head
    std::vector<Rilievo> rilievi_;
};

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
// cli/rilievi.h
//
// What the listing finds in a source: procedures that end with blocks open, and lines that end the run.
// The engine keeps no stack. This watches its margin from outside and records what opened each column.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "shell/state.h"

namespace morvella::cli {

/// A line of a source with its text. The engine counts lines from 1; a lone LF ends none.
struct LineaTrovata {
    Lungo Riga = 0; // 0: there is none
    Testo Linea;
};

/// A finding about a row of File1.
struct Rilievo {
    Testo Voce;
    LineaTrovata Dove;
    Lungo RigaListato = 0;
    bool Ferma = false;               // the line ends the run; otherwise it ends a procedure
    LineaTrovata Testa;               // the procedure's head
    std::vector<LineaTrovata> Aperti; // what opened the columns still open, from the left

    /// The message, in UTF-8. `inFile` converts a line number to the one that an editor shows.
    std::string Frase(const std::function<Lungo(Lungo)>& inFile) const;
};

/// Line numbers of a source as editors count them: a lone LF ends a line there. Reads the row's source
/// through channel 1; a source that cannot be read keeps the engine's numbers.
class LineeDiEditor {
  public:
    LineeDiEditor(Stato& s, Vista voce);
    Lungo Di(Lungo riga) const;

  private:
    std::vector<std::pair<Lungo, Lungo>> dopo_; // each line with lone LFs, and their number up to its end
};

class Sorvegliante {
  public:
    /// `voce` is the text of the row in work.
    void Osserva(const PassoMargine& passo, const Testo& voce);
    void Osserva(const Arresto& arresto, const Testo& voce);
    const std::vector<Rilievo>& Rilievi() const noexcept { return rilievi_; }

  private:
    std::vector<LineaTrovata> colonne_; // one per three bytes of margin
    LineaTrovata testa_;                // the procedure's head
    std::vector<Rilievo> rilievi_;
};

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
// lettore/procedura.h
//
// Finds the procedures and the error lines of a listing, line by line as the file is read.
#pragma once

#include <vector>

#include "listing/decodifica.h"

namespace morvella::lettore {

/// A procedure with a boxed head, or one without a box that ended with blocks open.
struct Procedura {
    Lungo Riga = 0;   // of the head, from 0; without a box, of the error line
    Lungo Numero = 0; // as the listing counts; 0 beyond 999,999
    Testo Testa;      // the head's text; without a box, that of the end line
    bool Riquadro = true;
    bool Aperta = false; // an error line stands before its end
};

/// The name that a list of procedures shows: "Prova" for "Private Sub Prova(n As Integer)", and
/// "Nome (Property Get)".
Testo NomeBreve(const Procedura& procedura);

/// Collects the error lines (from 0) and the procedures into two vectors.
class Raccolta {
  public:
    Raccolta(std::vector<Lungo>& errori, std::vector<Procedura>& procedure)
        : errori_(errori), procedure_(procedure) {}

    /// Takes the next line, number `i` from 0, without its line end. Returns the number that the
    /// listing gives it, 0 for none.
    Lungo Guarda(Vista riga, Lungo i);

  private:
    bool Guarda(Bordo bordo, std::size_t blanks);
    void ErroreIn(Lungo i);

    std::vector<Lungo>& errori_;
    std::vector<Procedura>& procedure_;
    int bordi_ = 0; // border lines seen at the top of a box
    std::size_t rientroBordi_ = 0;
    bool dentro_ = false;     // inside the last procedure
    bool senzaTesta_ = false; // the last procedure still lacks its end line
};

} // namespace morvella::lettore

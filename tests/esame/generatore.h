// SPDX-License-Identifier: MIT
// Modules without error, made by chance from a seed, and the errors that can be planted in them.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "esame/rilievo.h"

namespace morvella::esame {

enum class Ruolo : std::uint8_t { Altro, Apre, Chiude, Else, Capo, Fine };

struct RigaModulo {
    std::string Testo;
    Ruolo Che = Ruolo::Altro;
    Blocco Cosa = Blocco::Nessuno;
    std::size_t Pari = 0;             // index of the line that opens what this one closes, and the reverse
    std::size_t Capo = 0;             // index of the head of the procedure around it; Fuori outside
    Blocco Intorno = Blocco::Nessuno; // the block around it
    std::size_t Mezzo = 0;            // of an If or Select: the first line that divides it
    std::size_t Rientro = 0;          // of a line put in before it
    bool Intera = true;               // a statement can stand before it
};
inline constexpr std::size_t Fuori = ~std::size_t{0};

struct Modulo {
    std::vector<RigaModulo> Righe;
    std::string Testo() const;
};

struct Scelte {
    bool Condizionale = true;  // #If groups that balance
    bool Sbilanciati = false;  // and such that do not
    bool RientriACaso = false; // indentation that tells nothing
    int Procedure = 4;
};

Modulo Genera(std::mt19937& caso, const Scelte& scelte);

/// An error in a module: what was done, and the lines of which a finding must name one.
struct Guasto {
    std::string Nome;
    std::string Testo;
    std::vector<std::uint32_t> Righe;
    std::string Procedura; // "" if it does not matter
};

/// Plants one error.
Guasto Pianta(std::mt19937& caso, const Modulo& modulo);

} // namespace morvella::esame

// SPDX-License-Identifier: MIT
// esame/condizionale.h
//
// Conditional compilation. Conditions are not evaluated. A group whose branches balance in
// themselves is read as if its directives were not there. In any other just one branch can be
// what the compiler sees: the first that does not balance, or, if that leads to findings,
// whichever choice leads to the fewest.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "esame/blocchi.h"
#include "esame/eventi.h"

namespace morvella::esame {

class Condizionale {
  public:
    /// Finds the groups among the events and notes in each directive the group it belongs to.
    /// Appends the findings about the directives themselves.
    Condizionale(std::vector<Evento>& eventi, std::uint32_t ultimaRiga, std::vector<Reperto>& reperti);

    /// Appends the findings about the code.
    void Giudica(std::vector<Reperto>& reperti);

  private:
    static constexpr std::uint32_t Nessuno = ~std::uint32_t{0};
    struct Ramo {
        std::uint32_t Da = 0, A = 0; // events
        std::uint32_t Seguente = Nessuno;
        bool Neutro = true;
        bool Morto = false; // "#If False": never read
    };
    struct Gruppo {
        std::uint32_t Inizio = 0, Fine = 0; // the directives, as events
        std::uint32_t Riga = 0, UltimaRiga = 0;
        std::uint32_t PrimoRamo = Nessuno;
        bool ConElse = false;
        bool Neutro = true;
        bool Contiene = false;               // a group that does not balance either
        std::vector<std::uint32_t> Scelte{}; // branches that may be read, Nessuno: none of them
        std::uint32_t Scelta = 0;
    };
    class Analisi;

    void PreparaScelte();
    void Componi(std::uint32_t da, std::uint32_t a, std::vector<Evento>& sequenza);
    void Leggi(std::vector<Reperto>& reperti);
    std::vector<Gruppo*> Vicini(std::span<const Reperto> reperti);
    void Prova(std::span<Gruppo* const> vicini, std::vector<Reperto>& reperti);

    std::vector<Evento>& eventi_;
    Blocchi blocchi_;
    std::vector<Gruppo> gruppi_;
    std::vector<Ramo> rami_;
    bool neutri_ = true; // all groups
    std::vector<Evento> sequenza_;
    struct Tratto {
        std::uint32_t Da, A;
    };
    std::vector<Tratto> nonLetti_;
};

} // namespace morvella::esame

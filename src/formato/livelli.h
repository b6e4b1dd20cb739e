// SPDX-License-Identifier: MIT
// formato/livelli.h
//
// The level of each logical line, from its statements. What is open is a list of nodes that know
// the node around them, and no node ever changes: a branch of an #If goes back to where the #If
// stood by taking up its node again, at no cost.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "esame/frasi.h"
#include "formato/formato.h"

namespace morvella::formato {

/// A logical line of the code.
struct Linea {
    std::uint32_t Inizio = 0;  // offset of its first physical line
    std::uint32_t Righe = 1;   // physical lines
    std::uint32_t Livello = 0; // of its first physical line
    bool Ferma = false;        // stays as it is
};

class Livelli {
  public:
    Livelli(std::string_view bytes, const Opzioni& opzioni) : bytes_(bytes), opzioni_(opzioni) {}

    /// All logical lines from the offset `inizio`, the first byte of line `riga`, on.
    std::vector<Linea> Trova(std::size_t inizio, std::uint32_t riga);

  private:
    // Comments and #If wait for the next line of code. Before a closer a comment stands with what is
    // closed, an #If with the closer.
    enum class Genere : std::uint8_t { Vuota, Codice, Etichetta, Commento, Direttiva, Attributo };
    enum class Attesi : std::uint8_t { ConLei, Dentro }; // where comments before this line stand

    struct Nodo {
        std::uint32_t Intorno = 0; // the node around it; the first node is the module
        esame::Blocco Cosa = esame::Blocco::Nessuno;
        std::uint32_t Livello = 0; // of what opened it
        std::uint32_t Dentro = 0;  // of what stands in it
    };
    struct Gruppo {               // an #If
        std::uint32_t Prima = 0;  // the node where it stands
        std::uint32_t Scelta = 0; // the node after the branch that goes on
        bool Morta = false;       // the branch that is being read is never compiled
        std::size_t Linea = 0;    // of the #If
    };

    void Frase(const esame::Frase& f);
    void Blocchi(const esame::Frase& f);
    void Direttiva(const esame::Frase& f);
    void FineLinea(const esame::Frase& f, std::uint32_t ultima);
    void Libera(std::uint32_t commenti, std::uint32_t direttive);
    void Apri(esame::Blocco cosa, std::uint32_t livello, std::uint32_t dentro);
    bool Cerca(esame::Blocco cosa, std::uint32_t& quale) const;
    void ChiudiRamo();
    std::uint32_t Dentro() const { return nodi_[cima_].Dentro; }

    std::string_view bytes_;
    const Opzioni& opzioni_;
    std::vector<Linea> linee_;
    std::vector<Nodo> nodi_{Nodo{}};
    std::uint32_t cima_ = 0;
    std::vector<Gruppo> gruppi_;
    std::vector<std::pair<std::size_t, bool>> attesa_; // lines without a level yet, and whether directives
    std::vector<std::pair<std::size_t, std::size_t>> come_; // a line, and the line whose level it takes

    // The logical line that is being read.
    Genere genere_ = Genere::Vuota;
    Attesi attesi_ = Attesi::ConLei;
    bool deciso_ = false; // livello_ holds
    std::uint32_t livello_ = 0;
    std::uint32_t dentroPrima_ = 0; // what stood in the open block before this line
    bool aspetta_ = false;          // a directive that stands with what follows
    bool gruppo_ = false;           // an #If
    std::size_t pari_ = 0;          // of a directive: one more than the line of its #If
};

} // namespace morvella::formato

// SPDX-License-Identifier: MIT
// cli/riscontri.h
//
// What "esamina" found, as the one record from which every format is written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/ingressi.h"
#include "esame/rilievo.h"

namespace morvella::cli {

/// A finding with its place and the lines that it speaks of.
struct Riscontro {
    std::string File; // UTF-8, relative to the root
    esame::Rilievo Cosa;
    Testo Linea;             // of Cosa.Riga, without blanks around, cut at MassimaLinea bytes
    Testo LineaApertura;     // the same of Cosa.Apertura; "" where there is none
    std::uint32_t Volta = 1; // counts findings of one rule on lines of one text in the file
};
inline constexpr std::size_t MassimaLinea = 400;

/// How the findings compare with a base.
struct Confronto {
    std::size_t Nuovi = 0, Noti = 0;
    std::size_t Spariti = 0;      // in the base, and not found again
    std::size_t NonEsaminati = 0; // in the base, of files that were not examined now
};

struct Referto {
    std::size_t Moduli = 0;
    std::uint64_t Righe = 0;
    std::vector<Riscontro> Riscontri; // new ones only where there is a base
    std::vector<Guasto> Guasti;
    std::optional<Confronto> Base;
    int Stato = 0; // the exit status
};

/// Takes the findings of one file over: reads their lines from its bytes and counts occurrences.
void Registra(const std::string& file, std::string_view bytes, std::vector<esame::Rilievo>&& rilievi,
              std::vector<Riscontro>& riscontri);

} // namespace morvella::cli

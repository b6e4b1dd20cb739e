// SPDX-License-Identifier: MIT
// bench/progetti.h
//
// Synthetic VB6 projects: forms with control sections and companions, classes, modules,
// with the nesting, comments, blank lines and accents of real ones. The same recipe gives the
// same bytes on every platform, and a module does not depend on those before it.
#pragma once

#include <cstdint>
#include <string>

namespace morvella::bench {

struct Ricetta {
    long long Moduli = 10;
    long long Righe = 10000; // of all modules together, spread evenly
    std::uint64_t Seme = 1;
    long long Show = -1;     // `.Show` calls of all modules together; below 0: one in 200 lines
    long long Lunghezza = 0; // characters that a plain statement has at least
    long long Aperti = 0;    // above 0: a project of one module that opens so many blocks (FaiScala)
    long long Profondi = 0;  // of them at most so many at a time; 0: all of them
};

/// The fewest lines that a module of any kind is made of.
inline constexpr long long RigheMinime = 40;

/// All texts in Windows-1252, lines ended by CR LF.
struct ModuloSintetico {
    std::string Nome;    // "frmOrdini0007.frm"
    std::string RigaVbp; // its line in the project file
    std::string Testo;
    std::string Companione; // bytes of the ".frx", "" for a module without one
    std::string NomeCompanione;
};

/// Module number `i` (from 0): exactly its share of the lines and of the calls. Throws
/// std::invalid_argument when so many calls do not fit.
ModuloSintetico FaiModulo(const Ricetta& ricetta, long long i);

/// A form with one procedure, which opens `Aperti` blocks without a line between them. When
/// `Profondi` stand open they are all closed again; the last ones stay open.
ModuloSintetico FaiScala(const Ricetta& ricetta);

/// The project file that holds the modules' lines, given in order and joined.
std::string FaiVbp(const std::string& righeModuli);

} // namespace morvella::bench

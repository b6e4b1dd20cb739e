// SPDX-License-Identifier: MIT
// cli/terminale.h
//
// What the program knows of its surroundings: where to read and write, whether a person sits
// there, and which encoding that place reads. The tests make one of their own.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "text/disco.h"

namespace morvella::cli {

struct Ambiente {
    Disco& Macchina;
    std::istream& Ingresso;
    std::ostream& Uscita;
    std::ostream& Errori;
    bool IngressoTerminale = false; // a person can answer
    bool ErroriTerminale = false;   // a bar can be shown
    unsigned Colonne = 80;
    /// UTF-8 to the encoding of the terminal.
    std::function<std::string(const std::string&)> Codifica = [](const std::string& utf8) { return utf8; };
    std::string DirectoryProgramma = {}; // platform path of the executable's directory
};

/// The process's own surroundings.
Ambiente AmbienteDelProcesso(Disco& macchina);

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
// cli/terminale.h
//
// What the program knows of its surroundings: where to read and write, whether a person sits
// there, and which encoding that place reads. The tests make one of their own.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "text/disco/disco.h"

namespace morvella::cli {

/// A program that shows a text page by page.
class Impaginatore {
  public:
    virtual ~Impaginatore() = default; // waits for the reader to leave it
    /// False when the reader has left it.
    virtual bool Scrivi(const std::string& testo) = 0;
};

struct Ambiente {
    Disco& Macchina;
    std::istream& Ingresso;
    std::ostream& Uscita;
    std::ostream& Errori;
    bool IngressoTerminale = false; // a person can answer
    bool ErroriTerminale = false;   // a bar can be shown
    bool UscitaTerminale = false;   // colours and pages make sense
    unsigned Colonne = 80;
    /// UTF-8 to the encoding of the terminal.
    std::function<std::string(const std::string&)> Codifica = [](const std::string& utf8) { return utf8; };
    /// Starts a pager; empty where there is none.
    std::function<std::unique_ptr<Impaginatore>()> Impagina = {};
    bool SenzaColori = false;            // NO_COLOR
    std::string DirectoryProgramma = {}; // platform path of the executable's directory
    std::string DirectoryUtente = {};    // Disco::DirectoryUtente
};

/// UTF-8 in the encoding of this name ("ISO-8859-1"); one that the system does not know leaves it as it
/// is. A character that is not in it comes as one like it, or as "?"; connectors come as + - = | where
/// the encoding has no double ones. Not on Windows, whose terminal takes UTF-16.
std::string InCodifica(const std::string& utf8, const char* codifica);

/// The process's own surroundings.
Ambiente AmbienteDelProcesso(Disco& macchina);

/// The arguments behind the program's name, in UTF-8 (on POSIX whatever bytes were given);
/// `argc` and `argv` are those of main.
std::vector<std::string> ArgomentiDelProcesso(int argc, char** argv);

} // namespace morvella::cli

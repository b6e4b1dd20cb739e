// SPDX-License-Identifier: MIT
// cli/terminale.h
//
// The program's surroundings: where it reads and writes, whether a person sits there, and which encoding
// the terminal takes. Tests make surroundings of their own.
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
    virtual ~Impaginatore() = default; // waits until the reader leaves it
    /// False when the reader has left.
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

/// Converts UTF-8 to the encoding of this name ("ISO-8859-1"); a name that the system does not know
/// leaves the text as it is. A character that the encoding lacks becomes a similar one, or "?"; connectors
/// become + - = | where it has no double ones. Not on Windows, whose terminal takes UTF-16.
std::string InCodifica(const std::string& utf8, const char* codifica);

/// The process's own surroundings.
Ambiente AmbienteDelProcesso(Disco& macchina);

/// The arguments after the program's name, in UTF-8 (on POSIX whatever bytes were given);
/// `argc` and `argv` are those of main.
std::vector<std::string> ArgomentiDelProcesso(int argc, char** argv);

} // namespace morvella::cli

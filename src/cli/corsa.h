// SPDX-License-Identifier: MIT
// cli/corsa.h
//
// One run of a command: what was asked for, the program state with its front end, and the places
// that paths are shown relative to. The commands (cli/programma.cpp) and their helpers share it.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "cli/finestra_testo.h"
#include "cli/opzioni.h"
#include "cli/terminale.h"
#include "shell/state.h"

namespace morvella::cli {

struct Corsa {
    Corsa(Richiesta richiesta, Ambiente& ambiente);
    Corsa(const Corsa&) = delete;
    Corsa& operator=(const Corsa&) = delete;

    /// Runs one operation; false when it ended in an error that nobody traps. Files that were open
    /// then are closed, as at a program's end: what was written stays.
    bool Fai(const char* nome, void (*operazione)(Stato&));

    /// Prints a line of UTF-8 to standard output, or to standard error where that holds the report.
    void Stampa(const std::string& utf8);

    /// Sets App.Path: --programma, or the directory that TrovaDimora finds.
    void ScegliProgramma();
    /// Sets Dir1.Path to the project's directory. File1Leggi holds the project, not chosen yet.
    void ApriDirectory();
    /// Chooses the project in File1Leggi, whatever has refilled that list since.
    void ScegliProgetto();

    /// The platform path (UTF-8) that a path of the system's leads to.
    std::string Nativo(Vista percorso);
    /// The same, relative to the project's directory where it lies below it.
    std::string Breve(Vista percorso);
    /// The source of a row as editors and CI systems want it: relative to where the program was started.
    std::string SorgenteDiVoce(Vista voce);

    Richiesta Chiesto;
    Ambiente& Intorno;
    FinestraTesto Fronte;
    Stato S;
    std::string Partenza;          // platform path of the directory where the program was started
    std::string Directory;         // platform path of the project's directory
    Testo Progetto;                // the same as the system's text, whatever events do to Dir1
    std::vector<std::string> Note; // warnings that the command itself has to give
    std::vector<Lungo> Lavorate;   // rows that the command was for
    std::chrono::steady_clock::time_point Inizio = std::chrono::steady_clock::now();

  private:
    Testo nomeProgetto_; // without its directory
};

/// A row of File1 as UTF-8 in the quotes that messages put around it.
std::string TraVirgolette(Vista bytes);

} // namespace morvella::cli

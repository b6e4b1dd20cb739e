// SPDX-License-Identifier: MIT
// cli/ingressi.h
//
// Takes what a command line names apart into the source files to examine: projects with all kinds
// of modules, groups of projects, directories, lists, single sources. Order is that of the command
// line, of the lines of a project or group, and of the names in a directory. A file comes once,
// however many ways lead to it.
#pragma once

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "text/disco/archivio.h"

namespace morvella::cli {

/// A file that is not there or could not be read.
struct Guasto {
    std::string File; // UTF-8, as it is told
    std::string Da;   // the project, group or list that names it; "" for the command line
    int Numero = 0;   // run-time error
};

/// `percorso` as a path that begins at the directory `radice`, with ".." where it lies outside. On
/// another drive it stays as it is. Both are absolute platform paths.
std::string Relativo(const std::string& percorso, const std::string& radice);
/// Whether Relativo had to leave it as it is: it begins with a drive or a share.
bool Intero(const std::string& relativo);

class Ingressi {
  public:
    /// Paths are told relative to `radice`. `ricorsivo`: directories are taken too. Hooks the
    /// project's directory in `archivio` for each project.
    Ingressi(Archivio& archivio, std::string radice, bool ricorsivo);

    /// Adds what an argument names. Raises UsoErrato for a directory that was not asked for.
    void Aggiungi(const std::string& argomento);

    /// The files to examine, as absolute platform paths.
    const std::vector<std::string>& Moduli() const noexcept { return moduli_; }
    /// The projects, groups and lists that named them.
    const std::vector<std::string>& Elenchi() const noexcept { return elenchi_; }
    const std::vector<Guasto>& Guasti() const noexcept { return guasti_; }

    std::string Detto(const std::string& percorso) const { return Relativo(percorso, radice_); }

  private:
    struct Spargi {
        std::size_t operator()(const Identita& chi) const noexcept {
            return std::hash<std::uint64_t>{}(chi.Numero * 31 + chi.Volume);
        }
    };

    void Nominato(const std::string& scritto, const std::string& da);
    void Prendi(const std::string& percorso, const Scheda& cosa, const std::string& da);
    void Elenco(const std::string& percorso);
    void Progetto(const std::string& percorso, const std::string& bytes);
    void Gruppo(const std::string& percorso, const std::string& bytes);
    void Directory(const std::string& percorso);
    morvella::Trovato Trova(Vista directory, Vista nome);
    std::optional<std::string> Leggi(const std::string& percorso, const Scheda& cosa, const std::string& da);
    void Segna(const std::string& percorso, const std::string& da, const Scheda& cosa,
               int altrimenti = ErrFileAssente);

    Archivio& archivio_;
    Disco& disco_;
    std::string radice_;
    bool ricorsivo_;
    std::vector<std::string> moduli_, elenchi_;
    std::vector<Guasto> guasti_;
    std::unordered_set<Identita, Spargi> visti_; // modules, lists and directories
};

} // namespace morvella::cli

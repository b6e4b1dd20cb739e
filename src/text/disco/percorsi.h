// SPDX-License-Identifier: MIT
// text/disco/percorsi.h
//
// Where a text path leads on the disk. Texts are Windows-1252 with "\" (or "/") between the names.
// On a disk that tells case apart each name is sought as spelled, then without regard to case;
// ".." is resolved in the text, before any name is sought.
//
// What would surprise: engines lower-case whole paths; Piega remembers the original directory, so
// `\prog` cannot reach a sibling `\Prog`. The directories that paths are built from are hooked: a
// path that begins with such a text goes to that very directory, even one that Windows-1252
// cannot spell.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "text/disco/disco.h"
#include "text/disco/indice.h"
#include "text/testo.h"

namespace morvella {

/// The directories that the system builds its paths from.
enum class Gancio { Lavoro, Progetto, Programma };

/// Where a text leads on the disk.
struct Trovato {
    std::string Percorso;            // platform path; of what is there, or of what would be made
    Scheda Cosa;                     // Assente when there is nothing
    bool DirectoryPresente = false;  // whether the directory that it lies in is there
    std::optional<Scheda> Directory; // that directory, where the lookup had to ask for it
};

class Percorsi {
  public:
    Percorsi(Disco& disco, Indice& indice) : disco_(disco), indice_(indice) {}

    /// The text of a platform path: names that Windows-1252 holds in its bytes, others as they are;
    /// no "\" at the end but for the root.
    static Testo TestoDiPercorso(const std::string& percorso);

    /// The text of a file's name. One that Windows-1252 cannot hold keeps its own bytes and is
    /// remembered until the next project: a path with a name of these bytes means this one only.
    Testo Ricorda(const std::string& nome);
    /// What a person reads for a text: its characters, and the remembered names as they are.
    std::string Utf8DiTesto(Vista testo) const;

    /// Hooks a directory by its platform path and gives its text. A new project lets go of the work
    /// directory, of folded paths and of remembered names.
    Testo Aggancia(Gancio gancio, const std::string& percorso);
    /// Hooks the work directory by its text, spelled as the system builds it.
    void AgganciaLavoro(Vista testo);
    /// Lets go of the work directory.
    void SganciaLavoro();

    /// `LCase(percorso)`, which goes on leading to the directory that `percorso` names.
    Testo Piega(Vista percorso);

    /// Directories by platform path, as the disk told of them within one sweep.
    using Viste = std::unordered_map<std::string, Scheda>;
    /// Seeks each name of the path in turn. With `viste` a directory is asked once in a sweep; what it
    /// holds may change meanwhile, so the caller compares at the end. Raises 52 for a path with a NUL.
    Trovato Trova(Vista percorso, Viste* viste = nullptr);

    /// What the current directory holds under a bare name, spelled like this. No value in
    /// any other case: use Trova.
    std::optional<Scheda> NellaCorrente(Vista nome) const;

  private:
    struct Radice {
        Testo Nome;           // the system's text, "" while nothing is hooked
        std::string Percorso; // the platform's path
    };
    struct SpargiTesto { // lookup by part of a longer text, without a copy
        using is_transparent = void;
        std::size_t operator()(Vista testo) const noexcept { return std::hash<Vista>{}(testo); }
    };

    std::string Base(Vista& percorso) const;
    Scheda CercaNome(Trovato& file, Vista nome, Viste* viste);
    Scheda EsaminaDirectory(const std::string& directory, Viste* viste) const;
    const std::string* Scelto(const std::vector<std::string>& scritti, Vista nome) const;

    Disco& disco_;
    Indice& indice_;
    std::array<Radice, 3> ganci_;
    // Folded paths with the directories that they were folded from. Whole paths, since a row can
    // spell a directory of its own just as another's folded path does.
    std::unordered_map<Testo, Testo, SpargiTesto, std::equal_to<>> pieghe_;
    std::unordered_set<std::string, SpargiTesto, std::equal_to<>> ricordati_;
};

} // namespace morvella

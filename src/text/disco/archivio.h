// SPDX-License-Identifier: MIT
// text/disco/archivio.h
//
// The file-system operations over the system's own paths: texts in Windows-1252 with "\"
// (or "/") between the names, compared without regard to case. On a disk that tells case
// apart each name is sought as it is spelled and then without regard to case, ".." is
// resolved in the text, before any name is sought, and a new file gets the name given.
//
// What would surprise: the engines fold whole paths to lower case, directory and all, and
// "\data\prog" must not lead to a neighbour of "\data\Prog". So they have it done here (Piega):
// the folded path goes on leading to the directory that it was made from. And the directories
// that paths are built from are hooked (Aggancia): a path that begins with such a text goes to
// that very directory, whatever else has a like name, also when Windows-1252 cannot spell it.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "text/disco/disco.h"
#include "text/testo.h"

namespace morvella {

/// The directories that the system builds its paths from.
enum class Gancio { Lavoro, Progetto, Programma };

/// Where a text leads on the disk.
struct Trovato {
    std::string Percorso;            // platform path; of what is there, or of what would be made
    Scheda Cosa;                     // Assente when there is nothing
    bool DirectoryPresente = false;  // whether the directory that it lies in is there
    std::optional<Scheda> Directory; // that directory, where it had to be asked for a name not there
};

class Archivio {
  public:
    explicit Archivio(Disco& disco) : disco_(disco) {}

    /// The text of a platform path: names that Windows-1252 holds in its bytes, others as
    /// they are; no "\" at the end but for the root.
    static Testo TestoDiPercorso(const std::string& percorso);

    /// The text of a file's name. A name that Windows-1252 cannot hold keeps its own bytes and is
    /// remembered until the next project: where a path has a name of these bytes it means this
    /// one and no other, and what is made by it gets this very name.
    Testo Ricorda(const std::string& nome);
    /// What a person reads for a text: its characters, and the remembered names as they are.
    std::string Utf8DiTesto(Vista testo) const;

    /// Hooks a directory given by its platform path and gives its text, which from now on
    /// leads there. A new project lets go of the work directory.
    Testo Aggancia(Gancio gancio, const std::string& percorso);
    /// Hooks the work directory by its text, spelled as the system builds it.
    void AgganciaLavoro(Vista testo);
    /// Lets go of the work directory, whose text leads where it says again: it may be gone by now, or
    /// be another.
    void SganciaLavoro();

    /// Files that no operation here may change, whatever path leads to them: opening one for
    /// output, deleting it or copying onto it raises 70. Replaces the list of before; paths
    /// that lead to no file are passed over.
    void Proteggi(const std::vector<Testo>& percorsi);
    /// Whether the directories that the protected paths lie in are as Proteggi saw them, so that
    /// the same list would come to the same files.
    bool ProtezioneFresca();

    /// `LCase(percorso)`; the result, whole, goes on leading to the directory that `percorso`
    /// names, whatever else has a like name.
    Testo Piega(Vista percorso);

    Trovato Trova(Vista percorso);

    /// `Dir(path, attributi)`: the bare name of the plain file (with 16: or directory) that
    /// the path leads to, "" when there is none. A last name of exactly "*.*" stands for
    /// every name. Never raises.
    Testo Dir(Vista percorso, int attributi);
    /// The names of the plain files of a directory that end in `fine` (ASCII), without regard to
    /// case and in the order of LCase(name); hidden ones are left out. They are remembered. Raises 76 when
    /// there is no such directory, 75 when it cannot be read.
    std::vector<Testo> ElencaFile(Vista directory, Vista fine);
    /// Raises 75 when the path exists or cannot be made, 76 without its parent.
    void MkDir(Vista percorso);
    /// Raises 76 when there is no such directory, 75 when it cannot be entered.
    void ChDir(Vista percorso);
    /// Raises 53 without a source, 76 without the target's directory, 70 for a protected
    /// target, 61 when the disk is full. A file copied onto itself stays as it is.
    void FileCopy(Vista da, Vista a);
    /// Raises 53 when there is no such file, 70 for a protected one.
    void Kill(Vista percorso);
    /// Bytes; raises 53 when there is no such file.
    long long FileLen(Vista percorso);
    /// Date, one blank, time; at midnight the date alone. Raises 53 when there is no such file.
    Testo FileDateTime(Vista percorso);
    /// Makes the file reachable under a further spelling of its name, beside it, on a disk that
    /// tells case apart; nothing where it is reachable so already or is not there.
    void AncheCome(Vista percorso, Vista nome);
    Testo Date();
    Testo Time();
    /// `Shell(comando, finestra)`: a program's name, a blank and a path. Returns at once; raises
    /// 53 when the program cannot be found.
    void Shell(Vista comando, int finestra);

    /// What stands in the way of changing a file: raises 70 where it is one that is only to be
    /// read, 75 where it is no plain file or cannot be asked, 76 without a directory for it.
    void RifiutaScrittura(const Trovato& file, Vista percorso) const;
    /// For the channels: opens the file for reading. Raises 53, 75, 76.
    std::unique_ptr<FileAperto> ApriLettura(const Trovato& file, Vista percorso);
    /// For the channels: creates or empties the file. Raises 61, 70, 75, 76.
    std::unique_ptr<FileAperto> ApriScrittura(const Trovato& file, Vista percorso);

    Disco& DiscoInUso() noexcept { return disco_; }

    /// Another number after each operation that may have changed what a file holds.
    Lungo Cambiamenti() const noexcept { return cambiamenti_; }

  private:
    struct Radice {
        Testo Nome;           // the system's text, "" while nothing is hooked
        std::string Percorso; // the platform's path
    };
    struct SpargiTesto { // by a part of a longer text, without a copy of it
        using is_transparent = void;
        std::size_t operator()(Vista testo) const noexcept { return std::hash<Vista>{}(testo); }
    };
    // The names of one directory by their folded texts, as of the directory's last change.
    struct Indice {
        std::optional<std::int64_t> Modificato; // nothing while it was never read
        std::unordered_map<Testo, std::vector<std::string>> Nomi;
    };

    struct SpargiIdentita {
        std::size_t operator()(const Identita& chi) const noexcept {
            return std::hash<std::uint64_t>{}(chi.Numero * 31 + chi.Volume);
        }
    };

    std::string Base(Vista& percorso) const;
    Scheda CercaNome(Trovato& file, Vista nome);
    const std::string* NelIndice(const std::string& directory, const Scheda& cosa, Vista nome);
    Indice* IndiceFresco(const Trovato& file);
    void Annota(Indice* indice, const std::string& percorso, bool nato);
    Trovato TrovaFile(Vista percorso);
    void Ricorda(Vista percorso, const Trovato& file) { visto_ = {Testo(percorso), file}; }

    Disco& disco_;
    Lungo cambiamenti_ = 0;
    // What the last operation has found, for the next one if it is for the same file: who asks for
    // a name mostly goes on to delete or copy what it stands for.
    std::optional<std::pair<Testo, Trovato>> visto_;
    std::array<Radice, 3> ganci_;
    // Folded paths with the directories that they were folded from. Whole paths, since a row can
    // spell a directory of its own in just the way that another's folded path does.
    std::unordered_map<Testo, Testo, SpargiTesto, std::equal_to<>> pieghe_;
    std::unordered_set<std::string, SpargiTesto, std::equal_to<>> ricordati_;
    std::unordered_set<Identita, SpargiIdentita> protetti_;
    std::unordered_map<std::string, std::int64_t> directoryProtette_; // with their last changes
    std::unordered_map<std::string, Indice> indici_;
};

} // namespace morvella

// SPDX-License-Identifier: MIT
// text/disco/archivio.h
//
// The file-system operations over the system's own paths, and the one gate that every write goes
// through. How a text leads to a file is percorsi.h's business, which files are out of reach
// protezione.h's. A new file gets the name given.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "text/disco/disco.h"
#include "text/disco/indice.h"
#include "text/disco/percorsi.h"
#include "text/disco/protezione.h"
#include "text/testo.h"

namespace morvella {

class Archivio {
  public:
    explicit Archivio(Disco& disco) : disco_(disco) {}
    Archivio(const Archivio&) = delete;
    Archivio& operator=(const Archivio&) = delete;

    /// The text of a platform path: names that Windows-1252 holds in its bytes, others as they are; no
    /// "\" at the end but for the root.
    static Testo TestoDiPercorso(const std::string& percorso);

    /// The text of a file's name. A name that Windows-1252 cannot hold keeps its own bytes and is
    /// remembered until the next project: a path with a name of these bytes means this one only, and a
    /// file made by it gets this very name.
    Testo Ricorda(const std::string& nome);
    /// What a person reads for a text: its characters, and the remembered names as they are.
    std::string Utf8DiTesto(Vista testo) const;

    /// Hooks a directory by its platform path and gives its text, which leads there from now on. A new
    /// project lets go of the work directory.
    Testo Aggancia(Gancio gancio, const std::string& percorso);
    /// Hooks the work directory by its text, spelled as the system builds it.
    void AgganciaLavoro(Vista testo);
    /// Lets go of the work directory: its text is resolved again, since it may be gone or another.
    void SganciaLavoro();

    /// Files that no operation here may change, whatever path leads to them: opening one for
    /// output, deleting it or copying onto it raises 70. Replaces the earlier list; paths that lead to
    /// no file are passed over. Raises, with the path, what keeps one from being looked at: then
    /// nothing can be promised of it, and no list holds.
    void Proteggi(const std::vector<Testo>& percorsi);
    /// Whether the directories of the protected paths are as Proteggi saw them, so that the same list
    /// would give the same files.
    bool ProtezioneFresca();

    /// `LCase(percorso)`; the whole result goes on leading to the directory that `percorso` names,
    /// whatever else has a similar name.
    Testo Piega(Vista percorso);

    /// Where a text leads. Raises 52 for a path that holds a NUL.
    Trovato Trova(Vista percorso);

    /// `Dir(path, attributi)`: the bare name of the plain file (with 16: or directory) that
    /// the path leads to, "" when there is none. A last name of exactly "*.*" stands for
    /// every name. Raises what keeps the disk from telling: only a path that is not there is "".
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
    /// Makes the file reachable under another spelling of its name, beside it, on a disk that tells
    /// case apart; does nothing where it already is, or is not there.
    void AncheCome(Vista percorso, Vista nome);
    Testo Date();
    Testo Time();
    /// `Shell(comando, finestra)`: a program's name, a blank and a path. Returns at once; raises
    /// 53 when the program cannot be found.
    void Shell(Vista comando, int finestra);

    /// Refuses to change a file: raises 70 for a protected one, 75 for one that is no plain file or
    /// cannot be examined, 76 without a directory for it.
    void RifiutaScrittura(const Trovato& file, Vista percorso) const;
    /// For the channels: opens the file for reading. Raises 53, 75, 76.
    std::unique_ptr<FileAperto> ApriLettura(const Trovato& file, Vista percorso);
    /// For the channels: creates or empties the file. Raises 61, 70, 75, 76.
    std::unique_ptr<FileAperto> ApriScrittura(const Trovato& file, Vista percorso);

    /// The same for a file that a person named, by its platform path, which is also the error's.
    std::unique_ptr<FileAperto> ApriScritturaDi(const std::string& percorso);
    /// Whether a platform path leads to a protected file, by whatever name or link. Raises what keeps it
    /// from being examined.
    bool Protetto(const std::string& percorso);

    /// The backend below.
    Disco& DiscoInUso() noexcept { return disco_; }

    /// A different number after each operation that may have changed a file's contents.
    Lungo Cambiamenti() const noexcept { return cambiamenti_; }

  private:
    Indice::Modifica PrimaDiFare(const Trovato& file);
    Trovato TrovaFile(Vista percorso);
    Scheda SchedaDiFile(Vista percorso);

    Disco& disco_;
    Indice indice_{disco_};
    Percorsi percorsi_{disco_, indice_};
    Protezione protezione_{disco_, percorsi_};
    Lungo cambiamenti_ = 0;
    // What the last operation found, for the next one on the same file: whoever asks for a name
    // mostly goes on to delete or copy it. Never for a copy's target: that one is asked anew. No
    // Percorso where only the Scheda was wanted.
    std::optional<std::pair<Testo, Trovato>> visto_;
};

} // namespace morvella

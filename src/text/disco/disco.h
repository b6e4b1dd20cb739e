// SPDX-License-Identifier: MIT
// text/disco/disco.h
//
// The one interface to files, directories, the clock and other programs: a call per block or file,
// never per byte. Paths are the platform's own: UTF-8 (on POSIX whatever bytes a name has) with
// "/" between the names; percorsi.h makes them from the system's texts. DiscoReale() gives the
// platform's backend; the tests have a double that keeps files in memory.
//
// A call that fails raises the number of the matching run-time error.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "text/disco/unita.h"
#include "text/errore.h"

namespace morvella {

enum class TipoVoce { Assente, File, Directory, Altro }; // Altro: a device, a pipe, a socket

/// Identifies a file, however its path is spelled.
struct Identita {
    std::uint64_t Volume = 0;
    std::uint64_t Numero = 0;
    bool operator==(const Identita&) const = default;
};

/// What the disk says of one path, links followed.
struct Scheda {
    TipoVoce Tipo = TipoVoce::Assente;
    Identita Chi;
    std::uint64_t Bytes = 0;
    std::int64_t Modificato = 0; // in the platform's own count; changes when the contents change
    std::int64_t Cambiato =
        0;                   // the same for rights, owner and links too; 0 if the platform does not record it
    std::int64_t Quando = 0; // the last change of the contents, for UltimaModifica alone
    bool Nascosto = false;   // hidden or a part of the system; never on POSIX
    int Errore = 0;          // the run-time error, if Assente because the query failed

    bool Esiste() const noexcept { return Tipo != TipoVoce::Assente; }
    bool operator==(const Scheda&) const = default;
};

/// Local date and time, of the clock or of a file.
struct Istante {
    int Anno = 0, Mese = 0, Giorno = 0, Ora = 0, Minuto = 0, Secondo = 0;
};

/// A file open for reading or writing. The destructor closes it and ignores errors; Chiudi raises
/// them.
class FileAperto {
  public:
    virtual ~FileAperto() = default;
    /// Reads at most `n` bytes to `dove`; 0 at the end of the file.
    virtual std::size_t Leggi(char* dove, std::size_t n) = 0;
    /// Writes all `n` bytes, or raises 61 or 57.
    virtual void Scrivi(const char* da, std::size_t n) = 0;
    /// Empties the file, which is open for writing: writing goes on at its start. Where that fails the
    /// file stays as it is, and writing goes on at its end.
    virtual void Svuota() = 0;
    virtual void Chiudi() = 0;
    /// The file's identity; nothing where the disk has to be asked by path.
    virtual std::optional<Identita> Chi() { return std::nullopt; }
};

class Disco {
  public:
    virtual ~Disco() = default;

    /// Never raises: what cannot be examined is Assente, with its error.
    virtual Scheda Esamina(const std::string& percorso) = 0;
    /// The names in a directory, without "." and "..", in any order.
    virtual std::vector<std::string> Elenca(const std::string& directory) = 0;
    virtual std::unique_ptr<FileAperto> ApriLettura(const std::string& percorso) = 0;
    /// Creates the file, or empties it.
    virtual std::unique_ptr<FileAperto> ApriScrittura(const std::string& percorso) = 0;
    virtual void CreaDirectory(const std::string& percorso) = 0;
    virtual void CambiaDirectory(const std::string& percorso) = 0;
    virtual std::string DirectoryCorrente() = 0;
    /// The absolute form of a path that a user wrote, as the platform's other programs take it,
    /// without "." and "..".
    virtual std::string Assoluto(const std::string& percorso);
    /// Copies the bytes; creates the target, or empties it first. An error of the source has its path
    /// as File.
    virtual void Copia(const std::string& da, const std::string& a) = 0;
    virtual void Cancella(const std::string& percorso) = 0;
    /// Whether this user may create files in a directory, tried out without a trace: false without the
    /// right, on a read-only disk, and without the directory. A full disk does not count.
    virtual bool Scrivibile(const std::string& directory);
    /// This user's directory for what the program cannot keep beside itself; it may not exist yet. ""
    /// where the user has no such place.
    virtual std::string DirectoryUtente() { return {}; }
    /// A second name for a file: a link where the disk has links, else a copy.
    virtual void Collega(const std::string& da, const std::string& a) { Copia(da, a); }

    /// Whether the path itself is a link to another place. Raises what keeps it from being asked.
    virtual bool Legame(const std::string&) { return false; }

    virtual Istante Adesso() = 0;
    /// When a file was last modified, from what Esamina said of it.
    virtual Istante UltimaModifica(const Scheda& cosa) = 0;
    /// The regional short date and long time; Windows-1252. Here: 21/11/2026 and 14:30:05.
    virtual std::string TestoData(const Istante& quando);
    virtual std::string TestoOra(const Istante& quando);

    /// Starts `programma` ("Notepad.exe" or "Explorer", or the platform's equivalent) on a file and
    /// returns at once. `finestra` is the window style. Raises 53 when there is no such program.
    virtual void Avvia(const std::string& programma, const std::string& percorso, int finestra) = 0;

    /// The drives in the order of their letters; waits for no medium. Here "C:", the root, alone.
    virtual std::vector<Unita> ElencaUnita();
    /// The directory that a drive's letter ("C:", in either case) stands for. Raises 71 when
    /// there is no such drive or it does not answer.
    virtual std::string DirectoryUnita(const std::string& unita);

    /// The platform's short form of a path, at most `misura` bytes with a closing NUL, in `buffer`.
    /// Gives the length without the NUL; the size needed when `misura` is too small; 0 for a path that
    /// does not exist.
    virtual unsigned long GetShortPathNameA(const std::string& percorso, char* buffer, unsigned long misura);
    /// Whether the platform has short paths at all.
    virtual bool HaPercorsiCorti() const { return false; }
    /// Whether two names that differ in case are two files here.
    virtual bool DistingueMaiuscole() const { return true; }
};

/// The platform's backend: the machine's own disk, clock and programs.
std::unique_ptr<Disco> DiscoReale();

} // namespace morvella

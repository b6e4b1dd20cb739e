// SPDX-License-Identifier: MIT
//
// The POSIX backend.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sstream>

#include "text/disco/disco.h"

extern char** environ;

namespace morvella {

namespace {

int NumeroDaErrno(int errore) {
    switch (errore) {
    case ENOENT:
    case ENAMETOOLONG: return ErrFileAssente;
    case ENOTDIR:
    case ELOOP: return ErrPercorso;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return ErrDiscoPieno;
    case ENOMEM: return ErrMemoria;
    case EBUSY:
    case ETXTBSY: return ErrPermesso;
    case EIO: return ErrDispositivo;
    case ENXIO:
    case ENODEV: return ErrUnita;
    default: return ErrAccesso; // no right to it, a directory in the place of a file, and the rest
    }
}

[[noreturn]] void Solleva() { throw Errore(NumeroDaErrno(errno)); }

class FilePosix : public FileAperto {
  public:
    explicit FilePosix(int fd) : fd_(fd) {}
    FilePosix(const FilePosix&) = delete;
    FilePosix& operator=(const FilePosix&) = delete;
    ~FilePosix() override {
        if (fd_ >= 0) ::close(fd_);
    }

    std::size_t Leggi(char* dove, std::size_t n) override {
        for (;;) {
            const ssize_t letti = ::read(fd_, dove, n);
            if (letti >= 0) return static_cast<std::size_t>(letti);
            if (errno != EINTR) Solleva();
        }
    }

    void Scrivi(const char* da, std::size_t n) override {
        while (n > 0) {
            const ssize_t scritti = ::write(fd_, da, n);
            if (scritti < 0) {
                if (errno == EINTR) continue;
                Solleva();
            }
            da += scritti;
            n -= static_cast<std::size_t>(scritti);
        }
    }

    void Svuota() override {
        if (::ftruncate(fd_, 0) != 0 || ::lseek(fd_, 0, SEEK_SET) != 0) Solleva();
    }

    void Chiudi() override {
        const int fd = fd_;
        fd_ = -1;
        if (::close(fd) != 0 && errno != EINTR) Solleva();
    }

    std::optional<Identita> Chi() override {
        struct stat st {};
        if (::fstat(fd_, &st) != 0) return std::nullopt;
        return Identita{static_cast<std::uint64_t>(st.st_dev), static_cast<std::uint64_t>(st.st_ino)};
    }

    // Copies inside the kernel; false where it cannot for these two files.
    bool CopiaDentro(FilePosix& sorgente) {
#ifdef __linux__
        // As many bytes as the source says it has: asking for more is an error where the target may
        // not grow. A size of 0 may mean a file without one: it has to be read.
        struct stat st {};
        if (::fstat(sorgente.fd_, &st) != 0) Solleva();
        const auto tutti = static_cast<std::size_t>(st.st_size);
        std::size_t fatti = 0;
        while (fatti < tutti) {
            const ssize_t copiati = ::copy_file_range(sorgente.fd_, nullptr, fd_, nullptr, tutti - fatti, 0);
            if (copiati == 0) break; // shorter by now
            if (copiati > 0) {
                fatti += static_cast<std::size_t>(copiati);
                continue;
            }
            if (errno == EINTR) continue;
            const bool altrimenti =
                errno == EXDEV || errno == ENOSYS || errno == EINVAL || errno == EOPNOTSUPP || errno == EPERM;
            if (fatti == 0 && altrimenti) return false;
            Solleva();
        }
        return fatti > 0;
#else
        (void)sorgente;
        return false;
#endif
    }

  private:
    int fd_;
};

int Apri(const std::string& percorso, int modo) {
    for (;;) {
        const int fd = ::open(percorso.c_str(), modo | O_CLOEXEC, 0666);
        if (fd >= 0) return fd;
        if (errno == ENAMETOOLONG && (modo & O_CREAT) != 0)
            throw Errore(ErrNumeroFile); // no file can have it
        if (errno != EINTR) Solleva();
    }
}

Istante Locale(std::time_t secondi) {
    std::tm tm{};
    ::localtime_r(&secondi, &tm);
    return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

// Only ever compared, so a time centuries from now may wrap around.
std::int64_t Nanosecondi(const timespec& t) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(t.tv_sec) * 1000000000U +
                                     static_cast<std::uint64_t>(t.tv_nsec));
}

class DiscoPosix : public Disco {
  public:
    Scheda Esamina(const std::string& percorso) override {
        struct stat st {};
        Scheda cosa;
        if (::stat(percorso.c_str(), &st) != 0) {
            const int numero = NumeroDaErrno(errno);
            if (numero != ErrFileAssente && numero != ErrPercorso) cosa.Errore = numero;
            return cosa;
        }
        cosa.Tipo = S_ISREG(st.st_mode)   ? TipoVoce::File
                    : S_ISDIR(st.st_mode) ? TipoVoce::Directory
                                          : TipoVoce::Altro;
        cosa.Chi = {static_cast<std::uint64_t>(st.st_dev), static_cast<std::uint64_t>(st.st_ino)};
        cosa.Bytes = static_cast<std::uint64_t>(st.st_size);
        cosa.Modificato = Nanosecondi(st.st_mtim);
        cosa.Cambiato = Nanosecondi(st.st_ctim);
        cosa.Quando = st.st_mtim.tv_sec;
        return cosa;
    }

    std::vector<std::string> Elenca(const std::string& directory) override {
        const auto chiudi = [](DIR* d) { ::closedir(d); };
        std::unique_ptr<DIR, decltype(chiudi)> aperta(nullptr, chiudi);
        do aperta.reset(::opendir(directory.c_str()));
        while (!aperta && errno == EINTR);
        if (!aperta) Solleva();
        std::vector<std::string> nomi;
        // The end and a failure look alike: only errno tells a directory that was read to its end.
        for (errno = 0; const dirent* voce = ::readdir(aperta.get()); errno = 0) {
            std::string nome = voce->d_name;
            if (nome != "." && nome != "..") nomi.push_back(std::move(nome));
        }
        if (errno != 0) Solleva();
        return nomi;
    }

    std::unique_ptr<FileAperto> ApriLettura(const std::string& percorso) override {
        return std::make_unique<FilePosix>(Apri(percorso, O_RDONLY));
    }

    std::unique_ptr<FileAperto> ApriScrittura(const std::string& percorso) override {
        return std::make_unique<FilePosix>(Apri(percorso, O_WRONLY | O_CREAT | O_TRUNC));
    }

    void CreaDirectory(const std::string& percorso) override {
        if (::mkdir(percorso.c_str(), 0777) == 0) return;
        if (errno == ENOENT) throw Errore(ErrPercorso);
        if (errno == ENAMETOOLONG) throw Errore(ErrNumeroFile);
        Solleva();
    }

    void CambiaDirectory(const std::string& percorso) override {
        if (::chdir(percorso.c_str()) == 0) return;
        if (errno == ENOENT) throw Errore(ErrPercorso);
        Solleva();
    }

    std::string DirectoryCorrente() override {
        std::string percorso(256, '\0');
        while (!::getcwd(percorso.data(), percorso.size())) {
            if (errno == ENOENT) throw Errore(ErrPercorso); // the directory is gone
            if (errno != ERANGE) Solleva();
            percorso.resize(percorso.size() * 2);
        }
        percorso.resize(percorso.find('\0'));
        return percorso;
    }

    // ".." after a link leaves the link's target: the disk resolves it, not the text.
    std::string Assoluto(const std::string& percorso) override {
        if (percorso.find("..") == std::string::npos) return Disco::Assoluto(percorso);
        const std::size_t nome = percorso.find_last_of('/') + 1;
        const std::string directory = nome == 0 ? "." : percorso.substr(0, nome);
        char* vera = ::realpath(directory.c_str(), nullptr);
        if (!vera) return Disco::Assoluto(percorso);
        const std::string intero = std::string(vera) + '/' + percorso.substr(nome);
        std::free(vera);
        return Disco::Assoluto(intero);
    }

    void Copia(const std::string& da, const std::string& a) override {
        int fd = 0;
        try {
            fd = Apri(da, O_RDONLY);
        } catch (const Errore& e) {
            throw Errore(e.Numero, da);
        }
        FilePosix sorgente(fd);
        FilePosix destinazione(Apri(a, O_WRONLY | O_CREAT | O_TRUNC));
        if (!destinazione.CopiaDentro(sorgente)) {
            std::string blocco(std::size_t{128} * 1024, '\0');
            while (const std::size_t letti = sorgente.Leggi(blocco.data(), blocco.size()))
                destinazione.Scrivi(blocco.data(), letti);
        }
        destinazione.Chiudi();
    }

    void Collega(const std::string& da, const std::string& a) override {
        const std::string vicino = da.substr(da.find_last_of('/') + 1); // both lie in one directory
        if (::symlink(vicino.c_str(), a.c_str()) == 0) return;
        if (errno == EEXIST) return; // a link to nowhere has the name: it is not ours
        if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) Solleva();
        Copia(da, a); // a disk without links
    }

    bool Legame(const std::string& percorso) override {
        struct stat st {};
        if (::lstat(percorso.c_str(), &st) == 0) return S_ISLNK(st.st_mode);
        if (errno != ENOENT && errno != ENOTDIR) Solleva();
        return false;
    }

    void Cancella(const std::string& percorso) override {
        if (::unlink(percorso.c_str()) != 0) Solleva();
    }

    bool Scrivibile(const std::string& directory) override {
#ifdef O_TMPFILE
        // A file that never has a name: the directory does not even get a new date.
        const int fd = ::open(directory.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
        if (fd >= 0) {
            ::close(fd);
            return true;
        }
        if (errno == EACCES || errno == EPERM || errno == EROFS || errno == ENOENT) return false;
#endif
        // No such files on this disk, or no room for one.
        return Esamina(directory).Tipo == TipoVoce::Directory &&
               ::faccessat(AT_FDCWD, directory.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
    }

    // A variable without an absolute path counts as not set.
    std::string DirectoryUtente() override {
        const auto variabile = [](const char* nome) {
            const char* valore = std::getenv(nome);
            return std::string(valore && *valore == '/' ? valore : "");
        };
        std::string dati = variabile("XDG_DATA_HOME");
        if (dati.empty() && !(dati = variabile("HOME")).empty()) dati += "/.local/share";
        return dati.empty() ? dati : Disco::Assoluto(dati + "/morvella");
    }

    Istante Adesso() override { return Locale(std::time(nullptr)); }

    Istante UltimaModifica(const Scheda& cosa) override { return Locale(cosa.Quando); }

    std::vector<Unita> ElencaUnita() override {
        std::string testo;
        try {
            FilePosix montaggi(Apri("/proc/self/mountinfo", O_RDONLY));
            char blocco[4096];
            while (const std::size_t letti = montaggi.Leggi(blocco, sizeof blocco))
                testo.append(blocco, letti);
        } catch (const Errore&) {
            testo.clear(); // a system without it has the root alone
        }
        return UnitaDaMontaggi(
            testo, [this](const std::string& p) { return Esamina(p).Tipo == TipoVoce::Directory; });
    }

    void Avvia(const std::string& programma, const std::string& percorso, int) override {
        // The tool's own viewer beside the program shows listings; the desktop shows the rest.
        if (programma == "Notepad.exe" && Lancia(Vicino("morvella-lettore"), percorso)) return;
        if (!Lancia("xdg-open", percorso)) throw Errore(ErrFileAssente);
    }

  private:
    // The path of a program in this program's own directory.
    static std::string Vicino(const std::string& nome) {
        std::string questo(4096, '\0');
        const ssize_t lungo = ::readlink("/proc/self/exe", questo.data(), questo.size());
        questo.resize(lungo > 0 ? static_cast<std::size_t>(lungo) : 0);
        return questo.substr(0, questo.find_last_of('/') + 1) + nome;
    }

    // The path of a program: a path as given, a bare name by PATH; "" when there is none.
    static std::string CercaProgramma(const std::string& programma) {
        const auto eseguibile = [](const std::string& file) {
            struct stat st {};
            return ::stat(file.c_str(), &st) == 0 && S_ISREG(st.st_mode) && ::access(file.c_str(), X_OK) == 0;
        };
        if (programma.find('/') != std::string::npos) return eseguibile(programma) ? programma : "";
        const char* dove = std::getenv("PATH");
        std::istringstream directory(dove ? dove : "/usr/local/bin:/usr/bin:/bin");
        for (std::string questa; std::getline(directory, questa, ':');) {
            if (!questa.starts_with('/')) continue; // not in the current directory, which is the project's
            questa.append("/").append(programma);
            if (eseguibile(questa)) return questa;
        }
        return "";
    }

    // Double fork: init reaps the program, and a long-lived window leaves no zombies. A session of its
    // own lets it outlive this program and its terminal. Only system calls between fork and exec:
    // another thread may have held any lock.
    static bool Lancia(const std::string& programma, std::string argomento) {
        std::string file = CercaProgramma(programma);
        if (file.empty()) return false;
        char* argv[] = {file.data(), argomento.data(), nullptr};
        int tubo[2]; // exec closes it; a failed start writes a byte
#ifdef __linux__
        if (::pipe2(tubo, O_CLOEXEC) != 0) Solleva();
#else
        if (::pipe(tubo) != 0) Solleva();
        for (const int fd : tubo) ::fcntl(fd, F_SETFD, FD_CLOEXEC);
#endif
        const pid_t tramite = ::fork();
        if (tramite == 0) {
            ::setsid();
            const pid_t figlio = ::fork();
            if (figlio == 0) {
                // Otherwise whoever reads our output would wait for the started program.
                const int nulla = ::open("/dev/null", O_RDWR);
                for (int fd = 0; fd <= 2 && nulla >= 0; ++fd)
                    if (fd != tubo[1]) ::dup2(nulla, fd);
                if (nulla > 2) ::close(nulla);
                ::execve(argv[0], argv, environ);
            }
            if (figlio <= 0) {
                const ssize_t detto = ::write(tubo[1], "", 1);
                ::_exit(detto == 1 ? 1 : 2);
            }
            ::_exit(0);
        }
        const int errore = errno;
        ::close(tubo[1]);
        char byte = 0;
        ssize_t letti = 0;
        if (tramite > 0) {
            while (::waitpid(tramite, nullptr, 0) < 0 && errno == EINTR) {
            }
            while ((letti = ::read(tubo[0], &byte, 1)) < 0 && errno == EINTR) {
            }
        }
        ::close(tubo[0]);
        if (tramite < 0) throw Errore(NumeroDaErrno(errore));
        return letti == 0;
    }
};

} // namespace

std::unique_ptr<Disco> DiscoReale() { return std::make_unique<DiscoPosix>(); }

} // namespace morvella

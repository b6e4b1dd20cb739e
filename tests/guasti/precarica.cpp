// SPDX-License-Identifier: MIT
//
// A preload library that makes one call of a program fail. The program is the real one, so what is
// tested is all of it, down to what the kernel would have said. Controlled by the environment:
//   GUASTI_MODO   what happens at the call: EIO ENOSPC EACCES EMFILE ENOMEM EINTR fail with that errno,
//                 corto makes reads and writes short, uccidi kills the process in front of the call,
//                 pieno leaves no room on the disk from the call on, memoria fails an allocation
//   GUASTI_PUNTO  at which call, from 1; calls of files and directories (for memoria: operator new)
//   GUASTI_CONTA  a file that gets the number of calls made, at the end
//   GUASTI_ORA    the time of day that the program sees, seconds since 1970
// Standard streams, and what the system itself keeps (/proc, /dev, /etc, /usr), are left alone: they
// are not what a disk that fails takes with it.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <initializer_list>
#include <new>

namespace {

enum Genere { Domanda, Apertura, Creazione, Lettura, Scrittura, Chiusura, Mutamento };

struct Comandi {
    const char* Modo = std::getenv("GUASTI_MODO");
    const char* Conta = std::getenv("GUASTI_CONTA");
    long Punto = Numero("GUASTI_PUNTO");
    long Ora = Numero("GUASTI_ORA");
    long File = 0;    // calls so far
    long Memoria = 0; // allocations so far

    static long Numero(const char* nome) {
        const char* testo = std::getenv(nome);
        return testo ? std::atol(testo) : 0;
    }
    bool Fa(const char* modo) const { return Modo && std::strcmp(Modo, modo) == 0; }
};

Comandi& Qui() {
    static Comandi comandi;
    return comandi;
}

template <class F>
F Vera(const char* nome) {
    return reinterpret_cast<F>(dlsym(RTLD_NEXT, nome));
}
#define VERA(nome) static const auto vera = Vera<decltype(&::nome)>(#nome)

bool DelSistema(const char* percorso) {
    for (const char* inizio :
         {"/proc/", "/dev/null", "/dev/tty", "/dev/pts/", "/etc/", "/usr/", "/lib", "/sys/"})
        if (std::strncmp(percorso, inizio, std::strlen(inizio)) == 0) return true;
    return false;
}

// Which errors a call can come to: a question knows no full disk, and only what waits is interrupted.
bool Possibile(Genere genere, int errore) {
    switch (errore) {
    case ENOSPC: return genere == Creazione || genere == Scrittura || genere == Mutamento;
    case EMFILE: return genere == Apertura || genere == Creazione;
    case EACCES: return genere != Lettura && genere != Scrittura && genere != Chiusura;
    case EINTR: return genere != Domanda && genere != Mutamento;
    case ENOMEM: return genere == Domanda || genere == Apertura || genere == Creazione;
    default: return true;
    }
}

int ErrnoDi(const char* modo) {
    const struct {
        const char* Nome;
        int Errore;
    } nomi[] = {{"EIO", EIO},       {"ENOSPC", ENOSPC}, {"EACCES", EACCES},
                {"EMFILE", EMFILE}, {"EINTR", EINTR},   {"ENOMEM", ENOMEM}};
    for (const auto& nome : nomi)
        if (std::strcmp(nome.Nome, modo) == 0) return nome.Errore;
    return 0;
}

// Counts a call; the errno it is to fail with, 0 for none, -1 for a short transfer.
int Passa(Genere genere) {
    Comandi& c = Qui();
    if (!c.Modo || c.Fa("memoria")) return 0;
    const long questa = ++c.File;
    if (c.Fa("pieno") && c.Punto > 0 && questa >= c.Punto) return Possibile(genere, ENOSPC) ? ENOSPC : 0;
    if (questa != c.Punto) return 0;
    if (c.Fa("uccidi")) ::kill(::getpid(), SIGKILL);
    if (c.Fa("corto")) return genere == Lettura || genere == Scrittura ? -1 : 0;
    const int errore = ErrnoDi(c.Modo);
    return errore != 0 && Possibile(genere, errore) ? errore : 0;
}

int SuPercorso(Genere genere, const char* percorso) { return DelSistema(percorso) ? 0 : Passa(genere); }

// The files that were opened from a counted path.
bool Contati[1024];
int SuFile(Genere genere, int fd) { return fd > 2 && fd < 1024 && Contati[fd] ? Passa(genere) : 0; }

bool Guasto(int esito) {
    if (esito > 0) errno = esito;
    return esito > 0;
}

std::size_t Meta(int esito, std::size_t n) { return esito == -1 && n > 1 ? n / 2 : n; }

struct AllaFine {
    ~AllaFine() {
        const Comandi& c = Qui();
        if (!c.Conta) return;
        if (std::FILE* file = std::fopen(c.Conta, "w")) {
            std::fprintf(file, "%ld\n", c.Fa("memoria") ? c.Memoria : c.File);
            std::fclose(file);
        }
    }
} allaFine;

void* Alloca(std::size_t misura) {
    Comandi& c = Qui();
    if (c.Fa("memoria") && ++c.Memoria == c.Punto) throw std::bad_alloc();
    if (void* dove = std::malloc(misura > 0 ? misura : 1)) return dove;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t misura) { return Alloca(misura); }
void* operator new[](std::size_t misura) { return Alloca(misura); }
void operator delete(void* dove) noexcept { std::free(dove); }
void operator delete[](void* dove) noexcept { std::free(dove); }
void operator delete(void* dove, std::size_t) noexcept { std::free(dove); }
void operator delete[](void* dove, std::size_t) noexcept { std::free(dove); }

extern "C" {

int open(const char* percorso, int modo, ...) {
    VERA(open);
    va_list resto;
    va_start(resto, modo);
    const mode_t permessi = (modo & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(resto, mode_t) : 0;
    va_end(resto);
    if (Guasto(SuPercorso((modo & O_CREAT) != 0 ? Creazione : Apertura, percorso))) return -1;
    const int fd = vera(percorso, modo, permessi);
    if (fd >= 0 && fd < 1024) Contati[fd] = !DelSistema(percorso);
    return fd;
}

int close(int fd) {
    VERA(close);
    const int esito = SuFile(Chiusura, fd);
    if (fd >= 0 && fd < 1024) Contati[fd] = false;
    const int chiuso = vera(fd); // it is closed in any case
    return Guasto(esito) ? -1 : chiuso;
}

ssize_t read(int fd, void* dove, size_t n) {
    VERA(read);
    const int esito = SuFile(Lettura, fd);
    return Guasto(esito) ? -1 : vera(fd, dove, Meta(esito, n));
}

ssize_t write(int fd, const void* da, size_t n) {
    VERA(write);
    const int esito = SuFile(Scrittura, fd);
    return Guasto(esito) ? -1 : vera(fd, da, Meta(esito, n));
}

ssize_t copy_file_range(int da, off64_t* daDove, int a, off64_t* aDove, size_t n, unsigned modo) {
    VERA(copy_file_range);
    const int esito = SuFile(Scrittura, a);
    return Guasto(esito) ? -1 : vera(da, daDove, a, aDove, Meta(esito, n), modo);
}

int ftruncate(int fd, off_t misura) noexcept {
    VERA(ftruncate);
    return Guasto(SuFile(Mutamento, fd)) ? -1 : vera(fd, misura);
}

int fstat(int fd, struct stat* dove) noexcept {
    VERA(fstat);
    return Guasto(SuFile(Domanda, fd)) ? -1 : vera(fd, dove);
}

int stat(const char* percorso, struct stat* dove) noexcept {
    VERA(stat);
    return Guasto(SuPercorso(Domanda, percorso)) ? -1 : vera(percorso, dove);
}

int lstat(const char* percorso, struct stat* dove) noexcept {
    VERA(lstat);
    return Guasto(SuPercorso(Domanda, percorso)) ? -1 : vera(percorso, dove);
}

DIR* opendir(const char* percorso) {
    VERA(opendir);
    return Guasto(SuPercorso(Apertura, percorso)) ? nullptr : vera(percorso);
}

struct dirent* readdir(DIR* directory) {
    VERA(readdir);
    const int esito = Passa(Lettura);
    if (esito > 0 && esito != EINTR) { // the kernel fills directories without being interrupted
        errno = esito;
        return nullptr;
    }
    return vera(directory);
}

int mkdir(const char* percorso, mode_t permessi) noexcept {
    VERA(mkdir);
    return Guasto(SuPercorso(Mutamento, percorso)) ? -1 : vera(percorso, permessi);
}

int chdir(const char* percorso) noexcept {
    VERA(chdir);
    return Guasto(SuPercorso(Domanda, percorso)) ? -1 : vera(percorso);
}

char* getcwd(char* dove, size_t misura) noexcept {
    VERA(getcwd);
    return Guasto(Passa(Domanda)) ? nullptr : vera(dove, misura);
}

char* realpath(const char* percorso, char* dove) noexcept {
    VERA(realpath);
    return Guasto(SuPercorso(Domanda, percorso)) ? nullptr : vera(percorso, dove);
}

int unlink(const char* percorso) noexcept {
    VERA(unlink);
    return Guasto(SuPercorso(Domanda, percorso)) ? -1 : vera(percorso);
}

int rename(const char* da, const char* a) noexcept {
    VERA(rename);
    return Guasto(SuPercorso(Mutamento, a)) ? -1 : vera(da, a);
}

int symlink(const char* da, const char* a) noexcept {
    VERA(symlink);
    return Guasto(SuPercorso(Mutamento, a)) ? -1 : vera(da, a);
}

time_t time(time_t* dove) noexcept {
    VERA(time);
    const time_t adesso = Qui().Ora != 0 ? Qui().Ora : vera(nullptr);
    if (dove) *dove = adesso;
    return adesso;
}

} // extern "C"

// SPDX-License-Identifier: MIT
//
// floor: the least that a run of the engines can cost. It does to the same files what the run does,
// and nothing else. For each module and each engine:
//   the old output is deleted where the engine deletes it; the source is opened, read to its
//   end and closed; the source is opened and read once more while a new output of as many
//   bytes as the run's is written;
// and, for the rewriter, in a second round every ".txt" is read and written to the module's own
// name, and so is the binary companion; the project file is copied before all.
// Blocks are 128 KiB, through plain read and write. Left out: looking at a byte, looking up names,
// asking whether a file exists, every check, and what the listing writes and throws away. It
// writes not the run's text but the bytes just read, repeated up to the right length: no fair
// measure on a disk that compresses.
//
// The directory is read beforehand, outside the measure:
//   floor --prepara DIR PIANO [ENGINE...]   after a run over the project in DIR: notes the
//                                           files and their lengths in the file PIANO; engines
//                                           are riordina (when none is named), struttura and
//                                           documenta
//   floor PIANO                             does the work
// Preparing again after it must give the same plan: the files have the same lengths.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#if defined(__unix__) || defined(__APPLE__)
#include <fcntl.h>
#include <unistd.h>
#define MORVELLA_POSIX 1
#endif

namespace fs = std::filesystem;

namespace {

constexpr std::size_t Blocco = 128 * 1024;

#ifdef MORVELLA_POSIX

class Lettore {
  public:
    explicit Lettore(const std::string& file) : fd_(::open(file.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (fd_ < 0) throw std::runtime_error("cannot read " + file);
    }
    Lettore(const Lettore&) = delete;
    Lettore& operator=(const Lettore&) = delete;
    ~Lettore() { ::close(fd_); }
    std::size_t Leggi(char* dove, std::size_t n) {
        const ssize_t letti = ::read(fd_, dove, n);
        if (letti < 0) throw std::runtime_error("a read failed");
        return static_cast<std::size_t>(letti);
    }

  private:
    int fd_;
};

class Scrittore {
  public:
    explicit Scrittore(const std::string& file)
        : fd_(::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)) {
        if (fd_ < 0) throw std::runtime_error("cannot write " + file);
    }
    Scrittore(const Scrittore&) = delete;
    Scrittore& operator=(const Scrittore&) = delete;
    ~Scrittore() { ::close(fd_); }
    void Scrivi(const char* da, std::size_t n) {
        if (::write(fd_, da, n) != static_cast<ssize_t>(n)) throw std::runtime_error("a write failed");
    }

  private:
    int fd_;
};

void Cancella(const std::string& file) { ::unlink(file.c_str()); }

#else

class Lettore {
  public:
    explicit Lettore(const std::string& file) : in_(fs::u8path(file), std::ios::binary) {
        if (!in_) throw std::runtime_error("cannot read " + file);
    }
    std::size_t Leggi(char* dove, std::size_t n) {
        in_.read(dove, static_cast<std::streamsize>(n));
        return static_cast<std::size_t>(in_.gcount());
    }

  private:
    std::ifstream in_;
};

class Scrittore {
  public:
    explicit Scrittore(const std::string& file) : out_(fs::u8path(file), std::ios::binary | std::ios::trunc) {
        if (!out_) throw std::runtime_error("cannot write " + file);
    }
    void Scrivi(const char* da, std::size_t n) {
        if (!out_.write(da, static_cast<std::streamsize>(n))) throw std::runtime_error("a write failed");
    }

  private:
    std::ofstream out_;
};

void Cancella(const std::string& file) { fs::remove(fs::u8path(file)); }

#endif

// A step: "modulo" reads the source twice and writes the output, "copia" copies.
struct Lavoro {
    bool Modulo = false;
    bool Cancella = false; // the old output first
    std::string Sorgente;
    std::string Uscita;
    std::uint64_t Bytes = 0;
};

std::string Minuscole(std::string nome) {
    for (char& c : nome)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return nome;
}

std::string Utf8(const fs::path& p) {
    const std::u8string u = p.generic_u8string();
    return {u.begin(), u.end()};
}

using Nomi = std::map<std::string, fs::path>; // by folded name

Nomi FileDi(const fs::path& directory) {
    Nomi nomi;
    for (const auto& voce : fs::directory_iterator(directory))
        if (voce.is_regular_file()) nomi[Minuscole(Utf8(voce.path().filename()))] = voce.path();
    return nomi;
}

void Prepara(const fs::path& directory, const std::string& piano, const std::vector<std::string>& motori) {
    const Nomi sorgenti = FileDi(directory);
    const Nomi uscite = FileDi(directory / "Appoggio");
    std::ofstream fuori(piano, std::ios::binary | std::ios::trunc);
    const auto passo = [&](const char* che, const fs::path& da, const fs::path& a) {
        fuori << che << '\t' << Utf8(da) << '\t' << Utf8(a) << '\t' << fs::file_size(a) << '\n';
    };
    const auto stelo = [](const std::string& nome) {
        return nome.substr(0, nome.size() - std::min<std::size_t>(nome.size(), 4));
    };
    const auto modulo = [](const std::string& nome) {
        return nome.ends_with(".frm") || nome.ends_with(".bas") || nome.ends_with(".cls");
    };
    for (const std::string& motore : motori) {
        const bool riordina = motore == "riordina";
        const std::string estensione = riordina ? ".txt" : motore == "struttura" ? ".log" : ".html";
        for (const auto& [nome, sorgente] : sorgenti) {
            const auto copia = uscite.find(nome);
            if (nome.ends_with(".vbp") && copia != uscite.end() && estensione != ".html")
                passo("copia", sorgente, copia->second);
        }
        for (const auto& [nome, sorgente] : sorgenti)
            if (modulo(nome))
                passo(estensione == ".log" ? "sopra" : "modulo", sorgente,
                      uscite.at(stelo(nome) + estensione));
        for (const auto& [nome, sorgente] : sorgenti) {
            const auto copia = uscite.find(nome);
            if (!riordina || copia == uscite.end() || nome.ends_with(".vbp")) continue;
            passo("copia", modulo(nome) ? uscite.at(stelo(nome) + ".txt") : sorgente, copia->second);
        }
    }
    fuori.close();
    if (!fuori) throw std::runtime_error("cannot write " + piano);
}

std::vector<Lavoro> LeggiPiano(const std::string& piano) {
    std::ifstream in(piano, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + piano);
    std::vector<Lavoro> lavori;
    for (std::string riga; std::getline(in, riga);) {
        std::string campi[4];
        std::size_t inizio = 0;
        for (std::string& campo : campi) {
            const std::size_t fine = std::min(riga.find('\t', inizio), riga.size());
            campo = riga.substr(inizio, fine - inizio);
            inizio = std::min(fine + 1, riga.size());
        }
        lavori.push_back(
            {campi[0] != "copia", campi[0] == "modulo", campi[1], campi[2], std::stoull(campi[3])});
    }
    return lavori;
}

void Leggi(const std::string& file, std::vector<char>& blocco) {
    Lettore in(file);
    while (in.Leggi(blocco.data(), blocco.size()) > 0) {
    }
}

// Writes as much as it reads while `bytes` are left, then the rest.
void Riscrivi(const Lavoro& lavoro, std::vector<char>& blocco) {
    Lettore in(lavoro.Sorgente);
    Scrittore out(lavoro.Uscita);
    std::uint64_t restano = lavoro.Bytes;
    const auto scrivi = [&](std::size_t quanti) {
        const auto n = static_cast<std::size_t>(std::min<std::uint64_t>(restano, quanti));
        if (n > 0) out.Scrivi(blocco.data(), n);
        restano -= n;
    };
    while (in.Leggi(blocco.data(), blocco.size()) > 0) scrivi(blocco.size());
    while (restano > 0) scrivi(blocco.size());
}

void Copia(const std::string& da, const std::string& a, std::vector<char>& blocco) {
    Lettore in(da);
    Scrittore out(a);
    while (const std::size_t letti = in.Leggi(blocco.data(), blocco.size())) out.Scrivi(blocco.data(), letti);
}

void Esegui(const std::vector<Lavoro>& lavori) {
    std::vector<char> blocco(Blocco, ' ');
    for (const Lavoro& l : lavori) {
        if (!l.Modulo) {
            Copia(l.Sorgente, l.Uscita, blocco);
            continue;
        }
        if (l.Cancella) Cancella(l.Uscita);
        Leggi(l.Sorgente, blocco);
        Riscrivi(l, blocco);
    }
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc >= 4 && std::strcmp(argv[1], "--prepara") == 0) {
            std::vector<std::string> motori(argv + 4, argv + argc);
            if (motori.empty()) motori = {"riordina"};
            Prepara(argv[2], argv[3], motori);
            return 0;
        }
        if (argc == 2) {
            Esegui(LeggiPiano(argv[1]));
            return 0;
        }
        std::fprintf(stderr, "floor --prepara DIR PIANO [ENGINE...], then floor PIANO\n");
        return 2;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "floor: %s\n", e.what());
        return 1;
    }
}

// SPDX-License-Identifier: MIT
#include <iconv.h>
#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "cli/terminale.h"

namespace morvella::cli {

namespace {

// A terminal in an older encoding gets its own bytes; the plain C locale says nothing of the
// terminal, and what shows it today reads UTF-8.
std::string PerTerminale(const std::string& utf8) {
    const char* codifica = ::nl_langinfo(CODESET);
    if (std::strcmp(codifica, "UTF-8") == 0 || std::strcmp(codifica, "ANSI_X3.4-1968") == 0) return utf8;
    const iconv_t conversione = ::iconv_open((std::string(codifica) + "//TRANSLIT").c_str(), "UTF-8");
    if (conversione == reinterpret_cast<iconv_t>(-1)) return utf8;
    std::string da = utf8;
    std::string testo;
    char* ingresso = da.data();
    std::size_t resta = da.size();
    std::array<char, 512> blocco{};
    while (resta > 0) {
        char* uscita = blocco.data();
        std::size_t posto = blocco.size();
        const std::size_t esito = ::iconv(conversione, &ingresso, &resta, &uscita, &posto);
        testo.append(blocco.data(), blocco.size() - posto);
        if (esito != static_cast<std::size_t>(-1) || posto < 16) continue;
        testo += '?'; // no such character there
        ++ingresso;
        --resta;
    }
    ::iconv_close(conversione);
    return testo;
}

class ImpaginatorePosix : public Impaginatore {
  public:
    explicit ImpaginatorePosix(FILE* tubo) : tubo_(tubo) {}
    ~ImpaginatorePosix() override { ::pclose(tubo_); }
    bool Scrivi(const std::string& testo) override {
        return std::fwrite(testo.data(), 1, testo.size(), tubo_) == testo.size();
    }

  private:
    FILE* tubo_;
};

std::unique_ptr<Impaginatore> AvviaImpaginatore() {
    // A reader who leaves early must not end the program.
    std::signal(SIGPIPE, SIG_IGN);
    FILE* tubo = ::popen("p=${PAGER:-less}; if command -v \"${p%% *}\" >/dev/null 2>&1; then "
                         "LESS=${LESS-FRSX}; export LESS; $p; else cat; fi",
                         "w");
    return tubo ? std::make_unique<ImpaginatorePosix>(tubo) : nullptr;
}

} // namespace

Ambiente AmbienteDelProcesso(Disco& macchina) {
    std::setlocale(LC_CTYPE, "");
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow is an error to tell, not an end
    Ambiente ambiente{.Macchina = macchina, .Ingresso = std::cin, .Uscita = std::cout, .Errori = std::cerr};
    ambiente.IngressoTerminale = ::isatty(STDIN_FILENO) && ::isatty(STDERR_FILENO);
    ambiente.ErroriTerminale = ::isatty(STDERR_FILENO);
    ambiente.UscitaTerminale = ::isatty(STDOUT_FILENO);
    ambiente.Impagina = AvviaImpaginatore;
    const char* senzaColori = std::getenv("NO_COLOR");
    ambiente.SenzaColori = senzaColori && *senzaColori;
    winsize finestra{};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &finestra) == 0 && finestra.ws_col > 0)
        ambiente.Colonne = finestra.ws_col;
    ambiente.Codifica = PerTerminale;
    std::error_code errore;
    ambiente.DirectoryProgramma =
        std::filesystem::read_symlink("/proc/self/exe", errore).parent_path().string();
    if (errore) ambiente.DirectoryProgramma = macchina.DirectoryCorrente();
    ambiente.DirectoryUtente = macchina.DirectoryUtente();
    return ambiente;
}

std::vector<std::string> ArgomentiDelProcesso(int argc, char** argv) { return {argv + 1, argv + argc}; }

} // namespace morvella::cli

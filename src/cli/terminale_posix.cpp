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
#include <utility>

#include "cli/terminale.h"

namespace morvella::cli {

namespace {

// The plain C locale says nothing about the terminal, and today's terminals take UTF-8.
bool SenzaLingua(const char* codifica) { return std::strcmp(codifica, "ANSI_X3.4-1968") == 0; }

// A terminal in an older encoding gets its own bytes.
std::string PerTerminale(const std::string& utf8) {
    const char* codifica = ::nl_langinfo(CODESET);
    return SenzaLingua(codifica) ? utf8 : InCodifica(utf8, codifica);
}

// A conversion from UTF-8 by the system's iconv.
class Conversione {
  public:
    explicit Conversione(const std::string& a) : tavola_(::iconv_open(a.c_str(), "UTF-8")) {}
    Conversione(const Conversione&) = delete;
    Conversione& operator=(const Conversione&) = delete;
    ~Conversione() {
        if (Nota()) ::iconv_close(tavola_);
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    bool Nota() const { return tavola_ != reinterpret_cast<iconv_t>(-1); }
    // A character without a similar one becomes "?"; `mancano` says whether there was any.
    std::string Di(std::string utf8, bool& mancano) {
        std::string testo;
        char* ingresso = utf8.data();
        std::size_t resta = utf8.size();
        std::array<char, 512> blocco{};
        mancano = false;
        while (resta > 0) {
            char* uscita = blocco.data();
            std::size_t posto = blocco.size();
            const std::size_t esito = ::iconv(tavola_, &ingresso, &resta, &uscita, &posto);
            testo.append(blocco.data(), blocco.size() - posto);
            if (esito != static_cast<std::size_t>(-1) || posto < 16) continue;
            mancano = true;
            testo += '?';
            do { // the whole character
                ++ingresso;
                --resta;
            } while (resta > 0 && (static_cast<unsigned char>(*ingresso) & 0xC0) == 0x80);
        }
        return testo;
    }

  private:
    iconv_t tavola_;
};

// Connectors as typewriters drew them.
std::string SenzaConnettori(std::string utf8) {
    static constexpr std::pair<const char*, char> Somiglianze[] = {
        {"┌", '+'}, {"├", '+'}, {"└", '+'}, {"─", '-'}, {"│", '|'},
        {"╔", '+'}, {"╚", '+'}, {"═", '='}, {"║", '|'},
    };
    for (const auto& [connettore, simile] : Somiglianze)
        for (std::size_t posto = utf8.find(connettore); posto != std::string::npos;
             posto = utf8.find(connettore, posto))
            utf8.replace(posto, std::strlen(connettore), 1, simile);
    return utf8;
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
    // A pager that is left early must not end the program.
    std::signal(SIGPIPE, SIG_IGN);
    // Without a locale less would show the bytes of UTF-8 as numbers.
    const std::string comando = std::string(SenzaLingua(::nl_langinfo(CODESET))
                                                ? "LESSCHARSET=${LESSCHARSET-utf-8}; export LESSCHARSET; "
                                                : "") +
                                "p=${PAGER:-less}; if command -v \"${p%% *}\" >/dev/null 2>&1; then "
                                "LESS=${LESS-FRSX}; export LESS; $p; else cat; fi";
    FILE* tubo = ::popen(comando.c_str(), "w");
    return tubo ? std::make_unique<ImpaginatorePosix>(tubo) : nullptr;
}

} // namespace

std::string InCodifica(const std::string& utf8, const char* codifica) {
    if (std::strcmp(codifica, "UTF-8") == 0) return utf8;
    bool mancano = false;
    Conversione esatta(codifica);
    Conversione simile(std::string(codifica) + "//TRANSLIT");
    if (!esatta.Nota() || !simile.Nota()) return utf8;
    std::string testo = esatta.Di(utf8, mancano);
    if (!mancano) return testo;
    esatta.Di("║", mancano);
    return simile.Di(mancano ? SenzaConnettori(utf8) : utf8, mancano);
}

Ambiente AmbienteDelProcesso(Disco& macchina) {
    std::setlocale(LC_CTYPE, "");
    std::signal(SIGXFSZ, SIG_IGN); // a file size limit is an error to report, not the end
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
    if (errore) ambiente.DirectoryProgramma.clear(); // a system without /proc
    ambiente.DirectoryUtente = macchina.DirectoryUtente();
    return ambiente;
}

std::vector<std::string> ArgomentiDelProcesso(int argc, char** argv) { return {argv + 1, argv + argc}; }

} // namespace morvella::cli

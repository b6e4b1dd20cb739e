// SPDX-License-Identifier: MIT
//
// A console stream gets UTF-16 through the console's own calls, so that every character shows whatever
// the code page; a redirected stream keeps UTF-8.
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <sstream>

#include "cli/terminale.h"
#include "text/disco/utf16.h"

#include <shellapi.h>

namespace morvella::cli {

namespace {

// Asks the console itself whether a stream is one: to the C library the device "nul" is a terminal too.
class VersoConsole : public std::stringbuf {
  public:
    explicit VersoConsole(DWORD quale) : std::stringbuf(std::ios::out), console_(::GetStdHandle(quale)) {
        Vera = ::GetConsoleMode(console_, &modo_) != 0;
        constexpr DWORD ConSequenze = ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING;
        Sequenze = Vera && ::SetConsoleMode(console_, modo_ | ConSequenze) != 0;
    }
    VersoConsole(const VersoConsole&) = delete;
    VersoConsole& operator=(const VersoConsole&) = delete;
    ~VersoConsole() override {
        if (Sequenze) ::SetConsoleMode(console_, modo_); // the console outlives this program
    }

    // 0 where there is no console.
    unsigned Colonne() const {
        CONSOLE_SCREEN_BUFFER_INFO finestra{};
        if (!::GetConsoleScreenBufferInfo(console_, &finestra)) return 0;
        return static_cast<unsigned>(finestra.srWindow.Right - finestra.srWindow.Left + 1);
    }

    bool Vera = false;
    bool Sequenze = false; // escape sequences work; not on older systems

  protected:
    int sync() override {
        const std::wstring testo = Utf16DaUtf8(str());
        str({});
        constexpr std::size_t Pezzo = 8192; // older systems refuse more than 64 KB at once
        for (std::size_t i = 0; i < testo.size(); i += Pezzo) {
            DWORD scritti = 0;
            const auto n = static_cast<DWORD>(std::min(Pezzo, testo.size() - i));
            if (!::WriteConsoleW(console_, testo.data() + i, n, &scritti, nullptr)) return -1;
        }
        return 0;
    }

  private:
    HANDLE console_;
    DWORD modo_ = 0;
};

class DaConsole : public std::streambuf {
  public:
    DaConsole() {
        DWORD modo = 0;
        Vera = ::GetConsoleMode(console_, &modo) != 0;
    }

    bool Vera = false;

  protected:
    int_type underflow() override {
        wchar_t riga[512];
        DWORD letti = 0;
        if (!::ReadConsoleW(console_, riga, 512, &letti, nullptr)) return traits_type::eof();
        if (letti == 0 || riga[0] == 26) return traits_type::eof(); // Ctrl+Z
        riga_ = BytesDaUtf16({riga, letti});
        setg(riga_.data(), riga_.data(), riga_.data() + riga_.size());
        return traits_type::to_int_type(riga_.front());
    }

  private:
    HANDLE console_ = ::GetStdHandle(STD_INPUT_HANDLE);
    std::string riga_;
};

// The console's three streams; they live as long as the process.
struct Flussi {
    DaConsole Tasti;
    VersoConsole Schermo{STD_OUTPUT_HANDLE};
    VersoConsole SchermoErrori{STD_ERROR_HANDLE};
    std::istream Ingresso{&Tasti};
    std::ostream Uscita{&Schermo};
    std::ostream Errori{&SchermoErrori};
};

std::string DirectoryDelProgramma() {
    std::wstring file(32768, L'\0'); // the longest path there is
    file.resize(::GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
    return PercorsoDaUtf16(std::wstring_view(file).substr(0, file.find_last_of(L'\\')));
}

} // namespace

Ambiente AmbienteDelProcesso(Disco& macchina) {
    static Flussi console;
    console.Uscita << std::unitbuf;
    console.Errori << std::unitbuf;
    Ambiente ambiente{.Macchina = macchina,
                      .Ingresso = console.Tasti.Vera ? console.Ingresso : std::cin,
                      .Uscita = console.Schermo.Vera ? console.Uscita : std::cout,
                      .Errori = console.SchermoErrori.Vera ? console.Errori : std::cerr};
    ambiente.IngressoTerminale = console.Tasti.Vera && console.SchermoErrori.Vera;
    ambiente.ErroriTerminale = console.SchermoErrori.Sequenze;
    ambiente.UscitaTerminale = console.Schermo.Vera;
    if (const unsigned colonne = console.SchermoErrori.Colonne()) ambiente.Colonne = colonne;
    const char* senzaColori = std::getenv("NO_COLOR");
    ambiente.SenzaColori = !console.Schermo.Sequenze || (senzaColori && *senzaColori);
    ambiente.DirectoryProgramma = DirectoryDelProgramma();
    ambiente.DirectoryUtente = macchina.DirectoryUtente();
    return ambiente;
}

// Not the arguments of main: they are in the machine's code page, which cannot spell every name.
std::vector<std::string> ArgomentiDelProcesso(int, char**) {
    int quanti = 0;
    wchar_t** scritti = ::CommandLineToArgvW(::GetCommandLineW(), &quanti);
    std::vector<std::string> argomenti;
    for (int i = 1; i < quanti; ++i) argomenti.push_back(BytesDaUtf16(scritti[i]));
    ::LocalFree(scritti);
    return argomenti;
}

} // namespace morvella::cli

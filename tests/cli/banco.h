// SPDX-License-Identifier: MIT
//
// A run of the program on the double's disk: a project p/Prova.vbp of three modules in /casa, and the
// program's own directory beside it.
#pragma once

#include <gtest/gtest.h>

#include <sstream>

#include "cli/programma.h"
#include "sostegno/disco_finto.h"

namespace morvella::cli::prove {

inline constexpr const char* Ini = "/casa/programma/Default.ini";

// A pager that keeps what it is given, and leaves after so many pages.
struct Pagine {
    int Aperti = 0, Chiusi = 0, Scritture = 0, Fino = 1 << 30;
    std::string Viste;
};

class ImpaginatoreFinto : public Impaginatore {
  public:
    explicit ImpaginatoreFinto(Pagine& pagine) : pagine_(pagine) { ++pagine_.Aperti; }
    ~ImpaginatoreFinto() override { ++pagine_.Chiusi; }
    bool Scrivi(const std::string& testo) override {
        pagine_.Viste += testo;
        return ++pagine_.Scritture < pagine_.Fino;
    }

  private:
    Pagine& pagine_;
};

struct Banco {
    morvella::prove::DiscoFinto Disco{"/casa"};
    std::istringstream Ingresso;
    std::ostringstream Uscita;
    std::ostringstream Errori;
    Pagine Pager;
    bool UscitaTerminale = false;
    bool SenzaColori = false;
    bool ConPager = false;

    Banco() {
        for (const char* nome : {"p2.gif", "Dario.gif", "BLULETHR.GIF", "home.GIF"})
            Disco.Metti(std::string("/casa/programma/") + nome, "");
        Disco.Metti("/casa/p/Prova.vbp", "Module=B; B.bas\r\nModule=A; A.bas\r\nForm=C.frm\r\n");
        for (const char* nome : {"A.bas", "B.bas"})
            Disco.Metti(std::string("/casa/p/") + nome, "Option Explicit\r\nSub a()\r\nEnd Sub\r\n");
        Disco.Metti("/casa/p/C.frm", "VERSION 5.00\r\nAttribute VB_Exposed = False\r\n'c\r\nx = 1\r\n");
    }

    int Esegui(const std::vector<std::string>& argomenti) {
        Uscita.str("");
        Errori.str("");
        Disco.CambiaDirectory("/casa"); // a run leaves the process in the project's directory
        Ambiente ambiente{.Macchina = Disco, .Ingresso = Ingresso, .Uscita = Uscita, .Errori = Errori};
        ambiente.UscitaTerminale = UscitaTerminale;
        ambiente.SenzaColori = SenzaColori;
        if (ConPager) ambiente.Impagina = [this] { return std::make_unique<ImpaginatoreFinto>(Pager); };
        ambiente.DirectoryProgramma = "/casa/programma";
        return Programma(argomenti, ambiente);
    }
    /// "eventi p/Prova.vbp" with these events, or options.
    int Eventi(std::vector<std::string> eventi) {
        eventi.insert(eventi.begin(), {"eventi", "p/Prova.vbp"});
        return Esegui(eventi);
    }

    bool Dice(const std::string& testo) const { return Errori.str().find(testo) != std::string::npos; }
    bool Scrive(const std::string& testo) const { return Uscita.str().find(testo) != std::string::npos; }
    bool Fatto(const std::string& nome) const { return Disco.Esiste("/casa/p/Appoggio/" + nome); }
    std::string Scritto(const std::string& nome) const { return Disco.Leggi("/casa/p/Appoggio/" + nome); }
};

} // namespace morvella::cli::prove

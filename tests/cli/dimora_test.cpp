// SPDX-License-Identifier: MIT
//
// The command line over an installation that its user can only read.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/programma.h"
#include "sostegno/disco_finto.h"

namespace morvella::cli {

namespace {

constexpr const char* Figure[] = {"p2.gif",  "Dario.gif", "BLULETHR.GIF", "home.GIF",
                                  "A01.jpg", "A02.jpg",   "A03.jpg"};

struct Banco {
    prove::DiscoFinto Disco{"/casa"};
    std::istringstream Ingresso;
    std::ostringstream Uscita;
    std::ostringstream Errori;
    std::string Utente = "/casa/dati/morvella";

    Banco() {
        Disco.Metti("/casa/p/Prova.vbp", "Type=Exe\r\nModule=A; A.bas\r\n");
        Disco.Metti("/casa/p/A.bas",
                    "Attribute VB_Name = \"A\"\r\nOption Explicit\r\nSub a()\r\nEnd Sub\r\n");
        for (const char* nome : Figure) Disco.Metti(std::string("/usr/m/") + nome, nome);
        Disco.SolaLettura = {"/usr"};
    }

    int Esegui(const std::vector<std::string>& argomenti) {
        Uscita.str("");
        Errori.str("");
        Disco.CambiaDirectory("/casa");
        Ambiente ambiente{.Macchina = Disco, .Ingresso = Ingresso, .Uscita = Uscita, .Errori = Errori};
        ambiente.DirectoryProgramma = "/usr/m";
        ambiente.DirectoryUtente = Utente;
        return Programma(argomenti, ambiente);
    }
};

TEST(Dimora, LeOpzioniStannoInQuellaDellUtenteERestano) {
    Banco b;
    EXPECT_EQ(b.Esegui({"opzioni", "--togli-commenti"}), 0) << b.Errori.str();
    // The template that the first start shows is stored with the change.
    EXPECT_TRUE(b.Disco.Leggi("/casa/dati/morvella/Default.ini").starts_with("OK\r\nKO\r\n"));
    EXPECT_FALSE(b.Disco.Esiste("/usr/m/Default.ini"));
    EXPECT_EQ(b.Esegui({"opzioni"}), 0);
    EXPECT_NE(b.Uscita.str().find("Togli tutti i commenti:   sì"), std::string::npos) << b.Uscita.str();
}

TEST(Dimora, ChiCominciaHaLeOpzioniDellInstallazione) {
    Banco b;
    b.Disco.Metti("/usr/m/Default.ini", "OK\r\nKO\r\n\r\nOK\r\n");
    EXPECT_EQ(b.Esegui({"opzioni", "--senza-conferma=no"}), 0) << b.Errori.str();
    EXPECT_EQ(b.Disco.Leggi("/casa/dati/morvella/Default.ini"), "OK\r\nKO\r\n\r\nKO\r\n");
    EXPECT_EQ(b.Disco.Leggi("/usr/m/Default.ini"), "OK\r\nKO\r\n\r\nOK\r\n");
}

TEST(Dimora, PagineEGuidaVengonoDaLi) {
    Banco b;
    b.Disco.Metti("/casa/dati/morvella/p2.gif", "his own");
    EXPECT_EQ(b.Esegui({"documenta", "--no", "p/Prova.vbp"}), 0) << b.Errori.str();
    EXPECT_EQ(b.Disco.Leggi("/casa/p/Appoggio/p2.gif"), "his own");
    EXPECT_EQ(b.Disco.Leggi("/casa/p/Appoggio/home.GIF"), "home.GIF");
    EXPECT_EQ(b.Esegui({"guida"}), 0) << b.Errori.str();
    EXPECT_TRUE(b.Disco.Esiste("/casa/dati/morvella/tavolerio.htm"));
    ASSERT_EQ(b.Disco.Avviati.size(), 1U);
    EXPECT_EQ(b.Disco.Avviati[0], "Explorer|/casa/dati/morvella/tavolerio.htm");
    for (const char* nome : {"A01.jpg", "A02.jpg", "A03.jpg"}) // the page shows them from beside it
        EXPECT_EQ(b.Disco.Leggi(std::string("/casa/dati/morvella/") + nome), nome);
}

TEST(Dimora, ProgrammaVieneDavanti) {
    Banco b;
    b.Disco.FaiDirectory("/casa/altra");
    EXPECT_EQ(b.Esegui({"opzioni", "--programma", "altra", "--togli-commenti"}), 0) << b.Errori.str();
    EXPECT_TRUE(b.Disco.Esiste("/casa/altra/Default.ini"));
    EXPECT_FALSE(b.Disco.Esiste("/casa/dati"));
    EXPECT_EQ(b.Disco.Elenca("/casa/altra").size(), 1U); // and it is not filled
}

TEST(Dimora, SenzaUnaDellUtenteLErroreENaturale) {
    Banco b;
    b.Utente.clear();
    EXPECT_EQ(b.Esegui({"esegui", "--si", "p/Prova.vbp"}), 0) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"documenta", "--no", "p/Prova.vbp"}), 0) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"opzioni", "--togli-commenti"}), 1);
    EXPECT_NE(b.Errori.str().find("errore 75"), std::string::npos) << b.Errori.str();
    EXPECT_NE(b.Errori.str().find("/usr/m/Default.ini"), std::string::npos) << b.Errori.str();
}

TEST(Dimora, UnaCopiaNonRiuscitaEUnAvviso) {
    Banco b;
    b.Disco.Fallisci("Copia", "/home.GIF", ErrDiscoPieno, 2);
    EXPECT_EQ(b.Esegui({"elenca", "p/Prova.vbp"}), 0);
    EXPECT_NE(b.Errori.str().find("Avviso: /casa/dati/morvella/home.GIF"), std::string::npos)
        << b.Errori.str();
    EXPECT_EQ(b.Uscita.str(), "A.bas\n");
    EXPECT_EQ(b.Esegui({"elenca", "-q", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Errori.str(), "");
    EXPECT_EQ(b.Esegui({"elenca", "p/Prova.vbp"}), 0); // made up for
    EXPECT_EQ(b.Errori.str(), "");
    EXPECT_TRUE(b.Disco.Esiste("/casa/dati/morvella/home.GIF"));
}

TEST(Dimora, MostraNonNeHaBisogno) {
    Banco b;
    b.Disco.Metti("/casa/x.log", "000001        x\r\n");
    EXPECT_EQ(b.Esegui({"mostra", "x.log"}), 0) << b.Errori.str();
    EXPECT_FALSE(b.Disco.Esiste("/casa/dati"));
}

} // namespace

} // namespace morvella::cli

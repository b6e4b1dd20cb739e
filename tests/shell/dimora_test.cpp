// SPDX-License-Identifier: MIT
#include "shell/dimora.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "sostegno/disco_finto.h"

namespace morvella {

namespace {

using prove::DiscoFinto;

const std::string Programma = "/usr/libexec/morvella";
const std::string Sua = "/home/utente/.local/share/morvella";
const std::vector<std::string> Figure = {"p2.gif",  "Dario.gif", "BLULETHR.GIF", "home.GIF",
                                         "A01.jpg", "A02.jpg",   "A03.jpg"};

// An installation below "/usr", read-only for this user, and a directory of the user's own.
struct Banco {
    DiscoFinto Disco{"/home/utente"};

    Banco() {
        for (const std::string& nome : Figure) Disco.Metti(Programma + "/" + nome, "installed " + nome);
        Disco.Metti(Programma + "/morvella-cli", "program");
        Disco.SolaLettura = {"/usr"};
    }
    Dimora Trova(const std::string& utente = Sua) { return TrovaDimora(Disco, Programma, utente); }
    std::vector<std::string> Sue() {
        std::vector<std::string> nomi = Disco.Elenca(Sua);
        std::sort(nomi.begin(), nomi.end());
        return nomi;
    }
};

TEST(Dimora, DoveSiPuoScrivereEQuellaDelProgramma) {
    Banco b;
    b.Disco.SolaLettura.clear();
    const auto prima = b.Disco.TuttiIFile();
    const Dimora dimora = b.Trova();
    EXPECT_EQ(dimora.Directory, Programma);
    EXPECT_FALSE(dimora.Utente);
    EXPECT_FALSE(b.Disco.Esiste("/home/utente/.local"));
    EXPECT_EQ(b.Disco.TuttiIFile(), prima); // no trace of having tried
}

TEST(Dimora, AltrimentiQuellaDellUtenteRiempita) {
    Banco b;
    b.Disco.Metti(Programma + "/Default.ini", "OK\r\nKO\r\n\r\nKO\r\n");
    b.Disco.Metti(Programma + "/tavolerio.htm", "<html>");
    const Dimora dimora = b.Trova();
    EXPECT_EQ(dimora.Directory, Sua);
    EXPECT_TRUE(dimora.Utente);
    EXPECT_TRUE(dimora.Guasti.empty());
    for (const std::string& nome : Figure) EXPECT_EQ(b.Disco.Leggi(Sua + "/" + nome), "installed " + nome);
    EXPECT_EQ(b.Disco.Leggi(Sua + "/Default.ini"), "OK\r\nKO\r\n\r\nKO\r\n");
    EXPECT_EQ(b.Disco.Leggi(Sua + "/tavolerio.htm"), "<html>");
    EXPECT_EQ(b.Sue().size(), Figure.size() + 2); // the program stays where it is
}

TEST(Dimora, QuelloCheNonEInstallatoNonSiCopia) {
    Banco b;
    b.Disco.FaiDirectory(Programma + "/Default.ini"); // no file
    EXPECT_TRUE(b.Trova().Utente);
    EXPECT_EQ(b.Sue().size(), Figure.size());
}

TEST(Dimora, QuelloCheHaRestaSuo) {
    Banco b;
    b.Disco.Metti(Programma + "/Default.ini", "OK\r\nOK\r\n\r\nOK\r\n");
    b.Disco.Metti(Sua + "/Default.ini", "KO\r\nKO\r\n\r\nKO\r\n");
    b.Disco.Metti(Sua + "/p2.gif", "my own");
    b.Disco.Metti(Sua + "/HOME.gif", "mine too"); // found as "home.GIF"
    b.Disco.Metti(Sua + "/lettere.txt", "x");
    EXPECT_TRUE(b.Trova().Utente);
    EXPECT_EQ(b.Disco.Leggi(Sua + "/Default.ini"), "KO\r\nKO\r\n\r\nKO\r\n");
    EXPECT_EQ(b.Disco.Leggi(Sua + "/p2.gif"), "my own");
    EXPECT_EQ(b.Disco.Leggi(Sua + "/HOME.gif"), "mine too");
    EXPECT_FALSE(b.Disco.Esiste(Sua + "/home.GIF"));
    EXPECT_EQ(b.Disco.Leggi(Sua + "/A01.jpg"), "installed A01.jpg");
    EXPECT_EQ(b.Disco.Leggi(Sua + "/lettere.txt"), "x");
}

TEST(Dimora, UnaFiguraCambiataDallInstallazioneNonArriva) {
    Banco b;
    b.Trova();
    b.Disco.SolaLettura.clear();
    b.Disco.Metti(Programma + "/A02.jpg", "a later version");
    b.Disco.SolaLettura = {"/usr"};
    b.Trova();
    EXPECT_EQ(b.Disco.Leggi(Sua + "/A02.jpg"), "installed A02.jpg");
    b.Disco.Cancella(Sua + "/A02.jpg"); // until he deletes it
    b.Trova();
    EXPECT_EQ(b.Disco.Leggi(Sua + "/A02.jpg"), "a later version");
}

TEST(Dimora, SenzaUnaDirectorySuaRestaQuellaDelProgramma) {
    Banco b;
    EXPECT_EQ(b.Trova("").Directory, Programma);
    b.Disco.SolaLettura = {"/usr", "/home"}; // neither can be written
    EXPECT_EQ(b.Trova().Directory, Programma);
    EXPECT_FALSE(b.Disco.Esiste("/home/utente/.local"));
    for (const char* operazione : {"CreaDirectory", "Elenca"}) {
        Banco senza;
        senza.Disco.Fallisci(operazione, "/morvella", ErrAccesso);
        const Dimora dimora = senza.Trova();
        EXPECT_EQ(dimora.Directory, Programma) << operazione;
        EXPECT_FALSE(dimora.Utente);
    }
    Banco file; // a plain file stands in the way
    file.Disco.Metti("/home/utente/.local", "x");
    EXPECT_EQ(file.Trova().Directory, Programma);
    EXPECT_EQ(file.Disco.Leggi("/home/utente/.local"), "x");
}

TEST(Dimora, UnaSuaChePiuNonSiScriveServePurcheSiaIntera) {
    Banco b;
    b.Trova();
    b.Disco.SolaLettura = {"/usr", "/home"};
    EXPECT_EQ(b.Trova().Directory, Sua);
    b.Disco.SolaLettura.clear();
    b.Disco.Cancella(Sua + "/p2.gif");
    b.Disco.SolaLettura = {"/usr", "/home"};
    EXPECT_EQ(b.Trova().Directory, Programma); // where the pictures are
}

TEST(Dimora, UnaCopiaNonRiuscitaSiDiceENonLasciaMezzaFigura) {
    Banco b;
    b.Disco.SpazioLibero = std::string("installed p2.gif").size() + 5;
    const Dimora dimora = b.Trova();
    EXPECT_EQ(dimora.Directory, Sua);
    ASSERT_EQ(dimora.Guasti.size(), Figure.size() - 1);
    EXPECT_EQ(dimora.Guasti[0].Numero, ErrDiscoPieno);
    EXPECT_EQ(dimora.Guasti[0].File, Sua + "/Dario.gif");
    EXPECT_EQ(b.Sue(), std::vector<std::string>{"p2.gif"});
    b.Disco.SpazioLibero.reset(); // the next start makes up for it
    EXPECT_TRUE(b.Trova().Guasti.empty());
    EXPECT_EQ(b.Disco.Leggi(Sua + "/Dario.gif"), "installed Dario.gif");
}

TEST(Dimora, UnAltroAvvioCheLaFaIntantoNonDisturba) {
    struct Gara : DiscoFinto { // the directory is made between the question and the making
        using DiscoFinto::DiscoFinto;
        void CreaDirectory(const std::string& percorso) override {
            DiscoFinto::CreaDirectory(percorso);
            throw Errore(ErrAccesso);
        }
    } disco{"/home/utente"};
    disco.Metti(Programma + "/p2.gif", "x");
    disco.SolaLettura = {"/usr"};
    EXPECT_EQ(TrovaDimora(disco, Programma, Sua).Directory, Sua);
    EXPECT_EQ(disco.Leggi(Sua + "/p2.gif"), "x");
}

// Every start asks, so what it asks is little: one listing of his directory once it is full.
TEST(Dimora, UnAvvioQualunqueChiedePoco) {
    Banco b;
    b.Disco.Metti(Programma + "/Default.ini", "KO\r\nKO\r\n\r\nKO\r\n");
    b.Disco.Metti(Programma + "/tavolerio.htm", "x");
    b.Trova();
    b.Disco.Esami = b.Disco.Elenchi = 0;
    b.Disco.FallisciAllaChiamata(0, 0);
    b.Trova();
    EXPECT_LE(b.Disco.Esami, 2);
    EXPECT_EQ(b.Disco.Elenchi, 1);
    EXPECT_EQ(b.Disco.ChiamateFatte(), 0);
}

} // namespace

} // namespace morvella

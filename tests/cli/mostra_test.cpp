// SPDX-License-Identifier: MIT
//
// The command "mostra": structures in the terminal, and what is shown as none.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "cli/banco.h"

namespace morvella::cli {

namespace {

using namespace std::string_literals;
using prove::Banco;

constexpr const char* Listato =
    "000001        Option Explicit\r\n"
    "000002        \xC9\xCD>Do\r\n"
    "000003        \xBA  \xDA\xC4>If \xE8 = \"\xB3\" Then\r\n"
    "000004     <<\xCD\xCD\xCD\xCD\xCD\xCD\xCD\xCD\xCD"
    "Exit Do\r\n"
    "           ######  Errore generico - Manca uno o pi\xF9 elementi di chiusura "
    "ENDIF - Loop, Next ... ect\r\n"
    "000005              End Sub\r\n";
constexpr const char* Mostrato = "000001        Option Explicit\n"
                                 "000002        ╔═>Do\n"
                                 "000003        ║  ┌─>If è = \"³\" Then\n"
                                 "000004     <<═════════Exit Do\n"
                                 "           ######  Errore generico - Manca uno o più elementi di chiusura "
                                 "ENDIF - Loop, Next ... ect\n"
                                 "000005              End Sub\n";

// The text without its escape sequences, and the one in force before `pezzo`.
std::string SenzaFughe(const std::string& testo) {
    std::string senza;
    for (std::size_t i = 0; i < testo.size(); ++i) {
        if (testo[i] == '\x1B')
            i = testo.find('m', i);
        else
            senza += testo[i];
    }
    return senza;
}

std::string Davanti(const std::string& testo, const std::string& pezzo) {
    const std::size_t dove = testo.find(pezzo);
    const std::size_t fuga = testo.rfind('\x1B', dove);
    if (dove == std::string::npos || fuga == std::string::npos) return "?";
    return testo.substr(fuga, testo.find('m', fuga) + 1 - fuga);
}

TEST(Mostra, ComeDisegnata) {
    Banco b;
    b.Disco.Metti("/casa/x.log", Listato);
    EXPECT_EQ(b.Esegui({"mostra", "x.log"}), 0);
    EXPECT_EQ(b.Uscita.str(), Mostrato); // no terminal: no colours, no pager
    EXPECT_EQ(b.Errori.str(), "");
}

TEST(Mostra, Colori) {
    Banco b;
    b.UscitaTerminale = true;
    b.Disco.Metti("/casa/x.log", Listato);
    EXPECT_EQ(b.Esegui({"mostra", "x.log"}), 0);
    const std::string colorato = b.Uscita.str();
    EXPECT_NE(colorato, Mostrato);
    EXPECT_EQ(SenzaFughe(colorato), Mostrato);
    EXPECT_EQ(Davanti(colorato, "000001"), "\x1B[2m");
    const std::string ciclo = Davanti(colorato, "╔═>");
    const std::string condizione = Davanti(colorato, "┌─>");
    EXPECT_NE(ciclo, condizione);
    EXPECT_EQ(Davanti(colorato, "║"), ciclo);
    EXPECT_NE(Davanti(colorato, "######").find("31m"), std::string::npos);
    EXPECT_EQ(Davanti(colorato, "Option"), "\x1B[0m"); // the text of a line has the terminal's own colour
    EXPECT_EQ(Davanti(colorato, "If è"), "\x1B[0m");

    EXPECT_EQ(b.Esegui({"mostra", "--senza-colori", "x.log"}), 0);
    EXPECT_EQ(b.Uscita.str(), Mostrato);
    b.SenzaColori = true; // NO_COLOR
    EXPECT_EQ(b.Esegui({"mostra", "x.log"}), 0);
    EXPECT_EQ(b.Uscita.str(), Mostrato);
}

TEST(Mostra, PiuFileEUnoManca) {
    Banco b;
    b.Disco.Metti("/casa/a.log", "000001        a\r\n");
    b.Disco.Metti("/casa/p/c.log", "000001        c\r\n");
    b.Disco.FaiDirectory("/casa/d.log");
    EXPECT_EQ(b.Esegui({"mostra", "a.log", "manca.log", "d.log", "/casa/p/c.log"}), 1);
    EXPECT_EQ(b.Uscita.str(), "==> a.log <==\n000001        a\n==> /casa/p/c.log <==\n000001        c\n");
    EXPECT_TRUE(b.Dice("manca.log: errore 53")) << b.Errori.str();
    EXPECT_TRUE(b.Dice("d.log: errore 75"));
}

TEST(Mostra, FileVuoto) {
    Banco b;
    b.Disco.Metti("/casa/a.log", "");
    EXPECT_EQ(b.Esegui({"mostra", "a.log"}), 0);
    EXPECT_EQ(b.Uscita.str(), "");
}

TEST(Mostra, Pager) {
    Banco b;
    b.ConPager = true;
    b.Disco.Metti("/casa/x.log", Listato);
    EXPECT_EQ(b.Esegui({"mostra", "x.log"}), 0); // not on a terminal
    EXPECT_EQ(b.Pager.Aperti, 0);
    b.UscitaTerminale = true;
    b.SenzaColori = true;
    EXPECT_EQ(b.Esegui({"mostra", "--senza-pager", "x.log"}), 0);
    EXPECT_EQ(b.Pager.Aperti, 0);
    EXPECT_EQ(b.Uscita.str(), Mostrato);
    EXPECT_EQ(b.Esegui({"mostra", "x.log"}), 0);
    EXPECT_EQ(b.Pager.Viste, Mostrato);
    EXPECT_EQ(b.Uscita.str(), "");
    EXPECT_EQ(b.Pager.Aperti, 1);
    EXPECT_EQ(b.Pager.Chiusi, 1);
}

// A reader who leaves the pager has seen enough: no more is read, and nothing is wrong.
TEST(Mostra, LasciareIlPager) {
    Banco b;
    b.ConPager = b.UscitaTerminale = true;
    b.Pager.Fino = 1;
    std::string lungo;
    for (int i = 0; i < 20000; ++i) lungo += "000001        x = 1\r\n";
    b.Disco.Metti("/casa/x.log", lungo);
    EXPECT_EQ(b.Esegui({"mostra", "x.log", "x.log"}), 0);
    EXPECT_EQ(b.Pager.Scritture, 1);
    EXPECT_EQ(b.Pager.Chiusi, 1);
}

// As a version control system may give it back.
TEST(Mostra, SoloLf) {
    Banco b;
    b.Disco.Metti("/casa/x.log", "000001        x\n000002        y\n");
    EXPECT_EQ(b.Esegui({"mostra", "x.log"}), 0);
    EXPECT_EQ(b.Uscita.str(), "000001        x\n000002        y\n");
    // Where lines end in CR LF a lone LF belongs to its line.
    b.Disco.Metti("/casa/x.log", "000001        x\ny\nz\r\n");
    EXPECT_EQ(b.Esegui({"mostra", "x.log"}), 0);
    EXPECT_EQ(b.Uscita.str(), "000001        x␊y␊z\n");
}

TEST(Mostra, Consigli) {
    Banco b;
    b.Disco.Metti("/casa/d/x", "");
    EXPECT_EQ(b.Esegui({"mostra", "manca.log", "d"}), 1);
    EXPECT_TRUE(b.Dice("manca.log: errore 53") && b.Dice("\n  Le strutture stanno in Appoggio"));
    EXPECT_TRUE(b.Dice("d: errore 75") && b.Dice("\n  Controllare i permessi, e che sia un file, non una"))
        << b.Errori.str();
}

// Whatever the listing engine can write is shown, under any name.
TEST(Mostra, OgniStruttura) {
    std::string lunga = "'intestazione\r\n";
    while (lunga.size() < 200000) lunga += "' una riga qualunque\r\n"; // the first number comes late
    const std::string riga = "000001        x\r\n";
    const std::pair<std::string, std::string> casi[] = {
        {"vuota.log", ""},
        {"vuota.txt", ""},
        {"una.txt", riga},
        {"senza-estensione", riga},
        {"solo-testo.log", "'* Magazzino\r\n\r\n"}, // a form that ends at its head
        {"SOLO.LOG", "testo"},
        {"testo-lungo.txt", lunga + "\r\n" + riga},
        {"a-cavallo.txt", lunga.substr(0, 65536 - 5 - 2) + "\r\n" + riga}, // across two blocks read
        {"testa.txt", "\x0F***\r\n*  *\r\n\r\n" + riga},
        {"riquadro.txt",
         "              " + std::string(101, '*') + "\r\n000002                     Sub a()\r\n"},
        {"oltre.txt", "999999        x\r\n        y\r\n"},
        {"senza-margine.txt", "000003     <<\xCD\xCD"
                              "Exit Sub\r\n"},
        {"lf.txt", "'t\n000001        x\n"},
        {"nul.txt", "000001        x\0y\r\n"s}, // of a source that holds one
    };
    for (const auto& [nome, bytes] : casi) {
        Banco b;
        b.Disco.Metti("/casa/" + nome, bytes);
        EXPECT_EQ(b.Esegui({"mostra", nome}), 0) << nome << b.Errori.str();
        const std::string mostrata = b.Uscita.str();
        EXPECT_EQ(std::count(mostrata.begin(), mostrata.end(), '\n'),
                  std::count(bytes.begin(), bytes.end(), '\n') + (nome == "SOLO.LOG" ? 1 : 0))
            << nome;
    }
}

// The golden listings too.
TEST(Mostra, LeStruttureDeiCasi) {
    int quante = 0;
    for (const auto& voce : std::filesystem::recursive_directory_iterator(std::string(MORVELLA_RADICE) +
                                                                          "/tests/casi/listing")) {
        if (voce.path().extension() != ".log") continue;
        std::ifstream in(voce.path(), std::ios::binary);
        Banco b;
        b.Disco.Metti("/casa/senza-nome", {std::istreambuf_iterator<char>(in), {}});
        EXPECT_EQ(b.Esegui({"mostra", "senza-nome"}), 0) << voce.path() << b.Errori.str();
        ++quante;
    }
    EXPECT_GT(quante, 50);
}

// What is no listing is not shown, and it is told what to do.
TEST(Mostra, NonSonoStrutture) {
    const std::string binario = "\x7F"
                                "ELF\0\1\2\r\n000001\0    \r\n"s;
    struct Caso {
        const char* Nome;
        std::string Bytes;
        const char* Consiglio;
    };
    const Caso casi[] = {
        {"p/Prova.vbp", "Form=C.frm\r\n",
         "È un progetto: «morvella-cli struttura p/Prova.vbp» scrive in Appoggio"},
        {"p/C.frm", "VERSION 5.00\r\n",
         "la sua struttura è Appoggio/C.log, e la scrive «morvella-cli struttura PROGETTO"},
        {"p/A.BAS", "Sub a()\r\nEnd Sub\r\n", "È un sorgente: la sua struttura è Appoggio/A.log"},
        {"due parole.vbp", "x", "«morvella-cli struttura 'due parole.vbp'»"},
        {"p/C.frx", "x", "Le strutture stanno"}, // nothing is listed of it
        {"p/C.ctl", "VERSION 5.00\r\n", "Le strutture stanno"},
        {"numeri.bas", "000010     x = 1\r\n", "È un sorgente"}, // code with line numbers
        {"p/Appoggio/a.txt", "     Option Explicit\r\n", "Le strutture stanno in Appoggio"},
        {"binario", binario, "Le strutture stanno in Appoggio"},
        {"binario.log", binario, "Le strutture stanno in Appoggio"},
        {"quasi.txt", "00001      x\r\n0000001     x\r\n000001    x\r\nx 000001     x\r\n",
         "Le strutture stanno"},
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.ConPager = b.UscitaTerminale = true;
        b.Disco.Metti(std::string("/casa/") + caso.Nome, caso.Bytes);
        EXPECT_EQ(b.Esegui({"mostra", caso.Nome}), 1) << caso.Nome;
        EXPECT_EQ(b.Uscita.str() + b.Pager.Viste, "") << caso.Nome;
        EXPECT_EQ(b.Pager.Aperti, 0) << "nothing to read: no pager";
        EXPECT_TRUE(b.Errori.str().starts_with(std::string("morvella-cli: ") + caso.Nome +
                                               " non è una struttura\n  "))
            << b.Errori.str();
        EXPECT_TRUE(b.Dice(caso.Consiglio)) << b.Errori.str();
    }
    Banco altri; // the others are shown
    altri.Disco.Metti("/casa/x.log", Listato);
    EXPECT_EQ(altri.Esegui({"mostra", "p/Prova.vbp", "x.log"}), 1);
    EXPECT_EQ(altri.Uscita.str(), std::string("==> x.log <==\n") + Mostrato);
}

} // namespace

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
//
// The error numbers of the channels.
#include "text/banco.h"

namespace morvella {

namespace {

using namespace prove;

TEST(Canali, Numero52) {
    Banco b;
    b.Disco.Metti("/p/in", "a\r\n");
    for (const int n : {1, 2, 7}) {
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(n); }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.LineInput(n); }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Print(n, "a"), 0; }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Close(n), 0; }), 0) << n; // no error
    }
    for (const int n : {-1, 0, 8, 1000}) {
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(n, "\\p\\in"), 0; }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(n, "\\p\\out"), 0; }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(n); }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Close(n), 0; }), 0) << n;
        EXPECT_FALSE(b.Canale.Aperto(n));
    }
    EXPECT_FALSE(b.Disco.Esiste("/p/out"));
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Print(1, "a"), 0; }), 52); // open the other way
    b.Canale.OpenOutput(2, "\\p\\out");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.LineInput(2); }), 52);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(2); }), 52);
    b.Canale.Close(1);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(1); }), 52); // closed again
    EXPECT_EQ(b.Disco.Leggi("/p/in"), "a\r\n");
}

TEST(Canali, OpenInputErrori) {
    Banco b;
    b.Disco.Metti("/p/in", "a");
    b.Disco.Metti("/p/guasto", "a");
    b.Disco.FaiDirectory("/p/dir");
    b.Disco.Fallisci("Esamina", "/guasto", 75);
    struct Caso {
        const char* Percorso;
        int Numero;
    };
    constexpr Caso Casi[] = {
        {"\\p\\manca", 53},  {"\\p\\manca\\in", 76}, {"\\manca\\in", 76},
        {"\\p\\in\\in", 76}, {"\\p\\in\\x\\in", 76}, {"\\p\\dir", 75},
        {"\\p\\guasto", 75}, {"\\p\\dir\\in", 53},   {"manca", 53},
    };
    for (const Caso& c : Casi) {
        const Errore e = ErroreDi([&] { return b.Canale.OpenInput(1, c.Percorso), 0; });
        EXPECT_EQ(e.Numero, c.Numero) << c.Percorso;
        EXPECT_EQ(e.File, c.Percorso);
        EXPECT_FALSE(b.Canale.Aperto(1)) << c.Percorso;
    }
    b.Canale.OpenInput(1, "\\p\\in"); // the number is free still
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\manca"), 0; }), 55); // the number first
    EXPECT_EQ(b.Canale.LineInput(1), "a");
}

TEST(Canali, OpenOutputErrori) {
    Banco b;
    b.Disco.Metti("/p/file", "a");
    b.Disco.Metti("/p/guasto", "a");
    b.Disco.FaiDirectory("/p/dir");
    b.Disco.Fallisci("Esamina", "/guasto", 75);
    const auto prima = b.Disco.TuttiIFile();
    struct Caso {
        const char* Percorso;
        int Numero;
    };
    constexpr Caso Casi[] = {
        {"\\p\\manca\\out", 76}, {"\\p\\manca\\sotto\\out", 76},
        {"\\manca\\out", 76},    {"\\p\\file\\out", 76},
        {"\\p\\dir", 75},        {"\\p\\guasto", 75},
    };
    for (const Caso& c : Casi) {
        const Errore e = ErroreDi([&] { return b.Canale.OpenOutput(2, c.Percorso), 0; });
        EXPECT_EQ(e.Numero, c.Numero) << c.Percorso;
        EXPECT_EQ(e.File, c.Percorso);
        EXPECT_FALSE(b.Canale.Aperto(2)) << c.Percorso;
    }
    EXPECT_EQ(b.Disco.TuttiIFile(), prima); // nothing made, nothing emptied
}

TEST(Canali, NumeriDelDisco) {
    // What the disk says at the very call goes out with the system's own path.
    for (const int numero : {7, 57, 61, 70, 71, 75, 76}) {
        Banco b;
        b.Disco.Metti("/p/in", "a");
        b.Disco.Fallisci("ApriLettura", "/in", numero, 1);
        b.Disco.Fallisci("ApriScrittura", "/out", numero, 1);
        Errore e = ErroreDi([&] { return b.Canale.OpenInput(1, "\\P\\IN"), 0; });
        EXPECT_EQ(e.Numero, numero);
        EXPECT_EQ(e.File, "\\P\\IN");
        e = ErroreDi([&] { return b.Canale.OpenOutput(2, "\\p\\out"), 0; });
        EXPECT_EQ(e.Numero, numero);
        EXPECT_EQ(e.File, "\\p\\out");
        EXPECT_FALSE(b.Canale.Aperto(1) || b.Canale.Aperto(2));
        b.Canale.OpenInput(1, "\\p\\in");
        b.Canale.OpenOutput(2, "\\p\\out");
    }
}

TEST(Canali, LetturaGuasta) {
    Banco b;
    b.Disco.Metti("/p/in", Testo(Blocco, 'x') + "\r\n");
    b.Canale.OpenInput(1, "\\p\\in");
    b.Disco.Fallisci("Leggi", "/in", 57, 1);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(1); }), 57);
    EXPECT_FALSE(b.Canale.Eof(1)); // the next attempt reads
    b.Disco.Fallisci("Leggi", "/in", 57, 1);
    const Errore e = ErroreDi([&] { return b.Canale.LineInput(1); }); // in the middle of a line
    EXPECT_EQ(e.Numero, 57);
    EXPECT_EQ(e.File, "\\p\\in");
    EXPECT_TRUE(b.Canale.LineInput(1) == Testo(Blocco, 'x')); // nothing of it was lost
}

TEST(Canali, ErroreDiChiusura) {
    for (const int numero : {57, 61}) {
        Banco b;
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Canale.Print(2, "a");
        b.Disco.Fallisci("Chiudi", "/out", numero, 1);
        const Errore e = ErroreDi([&] { return b.Canale.Close(2), 0; });
        EXPECT_EQ(e.Numero, numero);
        EXPECT_EQ(e.File, "\\p\\out");
        EXPECT_FALSE(b.Canale.Aperto(2)); // it is closed all the same
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Close(2), 0; }), 0);
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Canale.Print(2, "b");
        b.Canale.Close(2);
        EXPECT_EQ(b.Disco.Leggi("/p/out"), "b\r\n"); // and nothing of before is left over
    }
}

TEST(Canali, DiscoPienoNonSiPerdeInSilenzio) {
    const Testo riga(998, 'x');
    Testo tutto;
    while (tutto.size() < 3 * BloccoScritto) tutto += riga + "\r\n";
    const std::size_t spazi[] = {0,
                                 1,
                                 500,
                                 BloccoScritto - 1,
                                 BloccoScritto,
                                 BloccoScritto + 1,
                                 2 * BloccoScritto,
                                 3 * BloccoScritto,
                                 tutto.size() - 2,
                                 tutto.size() - 1,
                                 tutto.size(),
                                 tutto.size() + 1};
    for (const std::size_t spazio : spazi) {
        Banco b;
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Disco.SpazioLibero = spazio;
        int errori = 0;
        bool chiuso = false;
        const auto conta = [&](auto&& statement) {
            const Errore e = ErroreDi(statement);
            if (e.Numero == 0) return true;
            EXPECT_EQ(e.Numero, 61);
            EXPECT_EQ(e.File, "\\p\\out");
            ++errori;
            return false;
        };
        for (std::size_t i = 0; i < tutto.size() / 1000; ++i)
            if (!conta([&] { return b.Canale.Print(2, riga), 0; })) break;
        if (errori == 0 && spazio < tutto.size()) chiuso = true; // then Close has to tell
        conta([&] { return b.Canale.Close(2), 0; });
        EXPECT_EQ(errori, spazio < tutto.size() ? 1 : 0) << spazio << (chiuso ? " Close" : " Print");
        EXPECT_TRUE(b.Disco.Leggi("/p/out") == tutto.substr(0, std::min(spazio, tutto.size()))) << spazio;
        EXPECT_FALSE(b.Canale.Aperto(2));
    }
}

TEST(Canali, DiscoPienoDettoDaClose) {
    // A text smaller than a block reaches the disk at Close: there it is first known.
    Banco b;
    b.Canale.OpenOutput(2, "\\p\\out");
    b.Disco.SpazioLibero = 0;
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Print(2, "a"), 0; }), 0);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Close(2), 0; }), 61);
}

TEST(Canali, Numero55PerNumero) {
    Banco b;
    b.Disco.Metti("/p/a", "a");
    b.Disco.Metti("/p/b", "b");
    b.Canale.OpenInput(1, "\\p\\a");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\b"), 0; }), 55);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(1, "\\p\\b"), 0; }), 55);
    EXPECT_EQ(b.Disco.Leggi("/p/b"), "b");
    EXPECT_EQ(b.Canale.LineInput(1), "a"); // the channel is as it was
    b.Canale.OpenOutput(2, "\\p\\c");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, "\\p\\d"), 0; }), 55);
    EXPECT_FALSE(b.Disco.Esiste("/p/d"));
    b.Canale.Close(1);
    b.Canale.OpenInput(1, "\\p\\b");
}

TEST(Canali, Numero55PerFileComunqueScritto) {
    for (const char* percorso :
         {"\\p\\Testo.txt", "\\p\\TESTO.TXT", "/p/testo.txt", "\\P\\.\\Testo.txt", "\\p\\x\\..\\Testo.txt",
          "\\p\\\\Testo.txt", "Testo.txt", "..\\p\\testo.TXT"}) {
        Banco b;
        b.Disco.Metti("/p/Testo.txt", "a\r\n");
        b.Canale.OpenInput(1, "\\p\\Testo.txt");
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(2, percorso), 0; }), 55) << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, percorso), 0; }), 55) << percorso;
        EXPECT_FALSE(b.Canale.Aperto(2));
        EXPECT_EQ(b.Disco.Leggi("/p/Testo.txt"), "a\r\n") << percorso; // not emptied
        b.Canale.Close(1);

        b.Disco.Metti("/p/Testo.txt", "a\r\n");
        b.Canale.OpenOutput(2, "\\p\\Testo.txt");
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, percorso), 0; }), 55) << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(7, percorso), 0; }), 55) << percorso;
        b.Canale.Print(2, "b");
        b.Canale.Close(2);
        EXPECT_EQ(b.Disco.Leggi("/p/Testo.txt"), "b\r\n");
        b.Canale.OpenInput(1, percorso); // closed: free again
    }
}

TEST(Canali, Numero55PerFileNuovo) {
    Banco b;
    b.Canale.OpenOutput(2, "\\p\\nuovo.txt"); // it was not there when it was opened
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(1, "\\p\\NUOVO.txt"), 0; }), 55);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\NUOVO.txt"), 0; }), 55);
}

TEST(Canali, Numero70FileProtetto) {
    Banco b;
    b.Disco.Metti("/p/Fonte.bas", "a\r\n");
    b.File.Proteggi({"\\p\\Fonte.bas"});
    const Errore e = ErroreDi([&] { return b.Canale.OpenOutput(2, "\\p\\fonte.BAS"), 0; });
    EXPECT_EQ(e.Numero, 70);
    EXPECT_EQ(e.File, "\\p\\fonte.BAS");
    EXPECT_EQ(b.Disco.Leggi("/p/Fonte.bas"), "a\r\n");
    b.Canale.OpenInput(1, "\\p\\Fonte.bas"); // reading is what it is there for
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, "\\p\\Fonte.bas"), 0; }), 70); // not 55
    EXPECT_EQ(b.Canale.LineInput(1), "a");
}

} // namespace

} // namespace morvella

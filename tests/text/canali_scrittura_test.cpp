// SPDX-License-Identifier: MIT
//
// Channels that write: Print in all its forms, what waits for a block, starting over.
#include <cstring>

#include "text/banco.h"

namespace morvella {

namespace {

using namespace prove;

TEST(Canali, Ricomincia) {
    Banco b;
    EXPECT_EQ(NumeroDi([&] { b.Canale.Ricomincia(2); }), 52);
    b.Disco.Metti("/p/in", "x");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(NumeroDi([&] { b.Canale.Ricomincia(1); }), 52);
    // What waits for a block goes, and so does what has gone to the disk.
    for (const std::size_t quante : {1, 3, 20000}) {
        b.Canale.OpenOutput(2, "\\p\\out");
        for (std::size_t i = 0; i < quante; ++i) b.Canale.Print(2, "prima del principio");
        b.Canale.Ricomincia(2);
        if (quante == 20000) {
            EXPECT_EQ(b.Disco.Leggi("/p/out"), "");
        }
        b.Canale.Print(2, "dopo");
        b.Canale.Close(2);
        EXPECT_EQ(b.Disco.Leggi("/p/out"), "dopo\r\n");
    }
    // A file that cannot be emptied keeps all that was printed.
    Testo tutte;
    b.Canale.OpenOutput(2, "\\p\\out");
    for (std::size_t i = 0; i < 40000; ++i) {
        b.Canale.Print(2, CStr(static_cast<long long>(i)));
        tutte += CStr(static_cast<long long>(i)) + "\r\n";
    }
    b.Disco.Fallisci("Svuota", "out", 57, 1);
    EXPECT_EQ(NumeroDi([&] { b.Canale.Ricomincia(2); }), 57);
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), tutte);
}

TEST(Canali, DaStampare) {
    Banco b;
    EXPECT_EQ(b.Canale.DaStampare(2).Dove, nullptr);
    EXPECT_EQ(b.Canale.DaStampare(0).Dove, nullptr);
    EXPECT_EQ(b.Canale.DaStampare(8).Dove, nullptr);
    b.Canale.OpenOutput(2, "\\p\\out");
    b.Canale.Print(2, "uno");
    const auto spazio = b.Canale.DaStampare(2);
    EXPECT_EQ(spazio.Posto, Canali::Blocco - 5);
    std::memset(spazio.Dove, '#', 2 * Fetta);
    std::memcpy(spazio.Dove, "due\r\n", 5);
    b.Canale.Stampato(2, 5);
    b.Canale.Print(2, "tre");
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), "uno\r\ndue\r\ntre\r\n");
    EXPECT_EQ(b.Canale.DaStampare(2).Dove, nullptr);
}

TEST(Canali, Print) {
    struct Caso {
        const char* Nome;
        void (*Scrivi)(Canali&);
        Testo Atteso;
    };
    const Caso casi[] = {
        {"nulla", [](Canali&) {}, ""},
        {"testo", [](Canali& c) { c.Print(2, "a"); }, "a\r\n"},
        {"vuoto", [](Canali& c) { c.Print(2, ""); }, "\r\n"},
        {"crlf", [](Canali& c) { c.Print(2, "a\r\n"); }, "a\r\n\r\n"}, // as it stands
        {"lf", [](Canali& c) { c.Print(2, "a\nb"); }, "a\nb\r\n"},
        {"pezzi", [](Canali& c) { c.Print(2, "a", "", "b ", "c"); }, "ab c\r\n"},
        {"nessun pezzo", [](Canali& c) { c.Print(2); }, "\r\n"},
        {"byte 196", [](Canali& c) { c.Print(2, Chr(196) + Chr(0) + Chr(255)); }, Testo("\xC4\0\xFF\r\n", 5)},
        {"due", [](Canali& c) { c.Print(2, "1"), c.Print(2, "2"); }, "1\r\n2\r\n"},
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.Canale.OpenOutput(2, "\\p\\out");
        caso.Scrivi(b.Canale);
        b.Canale.Close(2);
        EXPECT_EQ(b.Disco.Leggi("/p/out"), caso.Atteso) << caso.Nome;
    }
}

TEST(Canali, PrintAlBordoDelBlocco) {
    for (int oltre = -4; oltre <= 4; ++oltre) {
        const Testo testo(BloccoScritto - 4 + static_cast<std::size_t>(oltre + 4), 'x');
        Banco b;
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Canale.Print(2, testo);           // alone in the buffer
        b.Canale.Print(2, "a", testo, "b"); // after something
        b.Canale.Print(2, "c");
        b.Canale.Print(2, testo + testo + testo);
        b.Canale.Close(2);
        ASSERT_TRUE(b.Disco.Leggi("/p/out") ==
                    testo + "\r\na" + testo + "b\r\nc\r\n" + testo + testo + testo + "\r\n")
            << oltre;
    }
}

TEST(Canali, PrintPezziDiOgniLunghezza) {
    // Short pieces are copied in strides: each length, at the front and after another.
    Testo attese;
    Banco b;
    b.Canale.OpenOutput(2, "\\p\\out");
    for (std::size_t n = 0; n <= 150; ++n) {
        Testo pezzo;
        for (std::size_t i = 0; i < n; ++i) pezzo += static_cast<char>('A' + (i * 7 + n) % 57);
        b.Canale.Print(2, pezzo);
        b.Canale.Print(2, "<", pezzo, Vista(), Vista(pezzo).substr(n / 2), ">");
        attese += pezzo + "\r\n<" + pezzo + pezzo.substr(n / 2) + ">\r\n";
    }
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), attese);
}

TEST(Canali, PrintRiga) {
    // The line from a channel's memory or from elsewhere, of each length, and what stands in front.
    Testo bytes;
    for (std::size_t n = 0; n <= 150; ++n) bytes += Testo(n, static_cast<char>('a' + n % 26)) + "\r\n";
    Banco b;
    b.Disco.Metti("/p/in", bytes);
    b.Canale.OpenInput(1, "\\p\\in");
    b.Canale.OpenOutput(2, "\\p\\out");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.PrintRiga(1, bytes), 0; }), 52);
    Testo attese;
    TestoLargo davanti;
    for (std::size_t n = 0; n <= 150; ++n) {
        const Vista letta = b.Canale.LineInput(1);
        davanti.assign(n, '.');
        b.Canale.PrintRiga(2, letta, davanti, "|");
        b.Canale.PrintRiga(2, Testo(letta), "", davanti);
        b.Canale.PrintRiga(2, letta);
        b.Canale.Print(2, davanti, "!");
        const Testo punti(n, '.');
        attese += punti + "|" + Testo(letta) + "\r\n" + punti + Testo(letta) + "\r\n" + Testo(letta) +
                  "\r\n" + punti + "!\r\n";
    }
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), attese);
    // At the border of a block.
    const Testo lunga(BloccoScritto, 'z');
    const Testo riga("riga");
    for (std::size_t meno = 0; meno <= 80; ++meno) {
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Canale.Print(2, Vista(lunga).substr(meno));
        b.Canale.PrintRiga(2, riga, davanti);
        b.Canale.Close(2);
        ASSERT_TRUE(b.Disco.Leggi("/p/out") == lunga.substr(meno) + "\r\n" + Testo(150, '.') + "riga\r\n")
            << meno;
    }
}

TEST(Canali, PrintPezzi) {
    Banco b;
    const Testo lungo(BloccoScritto + 1, 'x');
    const Vista pezzi[] = {"a", "", lungo, "b\r\n"};
    EXPECT_EQ(NumeroDi([&] { return b.Canale.PrintPezzi(2, pezzi), 0; }), 52);
    b.Canale.OpenOutput(2, "\\p\\out");
    b.Canale.PrintPezzi(2, pezzi);
    b.Canale.Print(2, "c");
    b.Canale.Close(2);
    EXPECT_TRUE(b.Disco.Leggi("/p/out") == "a" + lungo + "b\r\nc\r\n"); // the end is among the pieces
}

TEST(Canali, PrintDaUnaRigaLetta) {
    // A line is a look into the buffer of channel 1 and goes as it is to channel 2.
    Testo bytes;
    for (int i = 0; bytes.size() < 2 * Blocco; ++i) bytes += "riga " + CStr(i) + "\r\n";
    Banco b;
    b.Disco.Metti("/p/in", bytes);
    b.Canale.OpenInput(1, "\\p\\in");
    b.Canale.OpenOutput(2, "\\p\\out");
    while (!b.Canale.Eof(1)) b.Canale.Print(2, b.Canale.LineInput(1));
    b.Canale.Close(1);
    b.Canale.Close(2);
    EXPECT_TRUE(b.Disco.Leggi("/p/out") == bytes);
}

TEST(Canali, OpenOutputVuotaSubito) {
    Banco b;
    b.Disco.Metti("/p/out", "di prima");
    b.Canale.OpenOutput(2, "\\p\\out");
    EXPECT_EQ(b.Disco.Leggi("/p/out"), "");
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), "");
}

} // namespace

} // namespace morvella

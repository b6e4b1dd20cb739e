// SPDX-License-Identifier: MIT
//
// A file that is read a second time: what is neither read nor opened again.
#include <functional>

#include "text/banco.h"

namespace morvella {

namespace {

using namespace prove;

// Reads /p/in once and again; gives the number of blocks read the second time.
int RileggiContando(Banco& b, const std::function<void()>& frattanto) {
    int letture = 0;
    b.Disco.PrimaDiLeggere = [&](const std::string&) { ++letture; };
    for (int giro = 0; giro < 2; ++giro) {
        letture = 0;
        const std::string attese = b.Disco.Leggi("/p/in");
        b.Canale.OpenInput(1, "\\p\\in");
        Testo lette;
        while (!b.Canale.Eof(1)) lette += Testo(b.Canale.LineInput(1)) + "\r\n";
        b.Canale.Close(1);
        EXPECT_TRUE(lette == attese) << giro;
        if (giro == 0) frattanto();
    }
    b.Disco.PrimaDiLeggere = nullptr;
    return letture;
}

TEST(Canali, IlSecondoGiroNonRilegge) {
    Banco b;
    b.Disco.Metti("/p/in", "uno\r\ndue\r\n");
    EXPECT_EQ(RileggiContando(b, [] {}), 0);
    // Another file, a changed one, one that we may have changed: read anew.
    EXPECT_EQ(RileggiContando(b, [&] { b.Disco.Metti("/p/in", "tre\r\nsei\r\n"); }), 2);
    EXPECT_EQ(RileggiContando(b,
                              [&] {
                                  b.Canale.OpenOutput(2, "\\p\\in");
                                  b.Canale.Print(2, "tre");
                                  b.Canale.Print(2, "set");
                                  b.Canale.Close(2);
                              }),
              2);
    EXPECT_EQ(RileggiContando(b, [&] { b.File.FileCopy("\\p\\in", "\\p\\altro"); }), 2);
    // The channel's buffer was put to another use.
    EXPECT_EQ(RileggiContando(b,
                              [&] {
                                  b.Disco.Metti("/p/x", "x\r\n");
                                  b.Canale.OpenInput(1, "\\p\\x");
                                  b.Canale.Eof(1);
                                  b.Canale.Close(1);
                              }),
              2);
    // Not read to its end.
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_FALSE(b.Canale.Eof(1));
    b.Canale.Close(1);
    EXPECT_EQ(RileggiContando(b, [] {}), 0);
    // One byte more than the buffer holds.
    b.Disco.Metti("/p/in", Testo(Blocco / 2 - 2, 'x') + "\r\n" + Testo(Blocco / 2 - 3, 'y') + "\r\n");
    EXPECT_EQ(RileggiContando(b, [] {}), 0);
    b.Disco.Metti("/p/in", Testo(Blocco / 2 - 2, 'x') + "\r\n" + Testo(Blocco / 2 - 1, 'y') + "\r\n");
    EXPECT_GE(RileggiContando(b, [] {}), 2);
}

TEST(Canali, IlSecondoGiroNonRiapre) {
    // On a disk that tells of changed rights a file that is unchanged in all is not opened again.
    Banco b;
    b.Disco.Metti("/p/in", "uno\r\n");
    const auto leggi = [&](Vista attesa) { // gives the number of calls to the disk
        const int prima = b.Disco.ChiamateFatte();
        b.Canale.OpenInput(1, "\\p\\in");
        EXPECT_EQ(b.Canale.LineInput(1), attesa);
        EXPECT_TRUE(b.Canale.Eof(1));
        b.Canale.Close(1);
        return b.Disco.ChiamateFatte() - prima;
    };
    EXPECT_EQ(leggi("uno"), 4); // opened, read to its end in two steps, closed
    EXPECT_EQ(leggi("uno"), 2); // this disk tells nothing: opened and closed
    b.Disco.Cambiato = 1;
    EXPECT_EQ(leggi("uno"), 4);
    EXPECT_EQ(leggi("uno"), 0);
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, "\\p\\in"), 0; }), 55); // open all the same
    EXPECT_EQ(b.Canale.LineInput(1), "uno");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.LineInput(1), 0; }), 62);
    b.Canale.Close(1);
    b.Disco.Cambiato = 2; // rights, say
    b.Disco.Fallisci("ApriLettura", "/in", 75, 1);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\in"), 0; }), 75);
    EXPECT_EQ(leggi("uno"), 4);
    EXPECT_EQ(leggi("uno"), 0);
    b.Disco.Cancella("/p/in");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\in"), 0; }), 53);
    b.Disco.Metti("/p/in", "due\r\n");
    EXPECT_EQ(leggi("due"), 4);
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "scan/sorgente.h"

#include <gtest/gtest.h>

#include "sostegno/disco_finto.h"
#include "sostegno/finestra_finta.h"

namespace morvella {

namespace {

struct Banco {
    prove::DiscoFinto Disco;
    prove::FinestraFinta Fronte;
    Stato S{Disco, Fronte};
};

// The same lines as LineInput, some taken and some skipped.
TEST(RigheSorgente, ComeLineInput) {
    static constexpr const char* Pezzi[] = {
        "If a Then", "  End If", "Do", "Do ", "do", "", "    ", "x = 1", "'* y", "End", "\tIf b Then", "Wend",
    };
    Testo bytes;
    for (std::size_t i = 0; i < 9000; ++i) {
        bytes += Pezzi[i * i % 31 % std::size(Pezzi)];
        if (i % 11 == 0) bytes += Testo(i % 150, i % 2 == 0 ? ' ' : 'x');
        if (i == 4000) bytes += Testo(Canali::BloccoLetto, 'y');
        bytes += i % 5 == 0 ? "\r" : "\r\n";
    }
    bytes += "ultima";
    for (const bool lf : {false, true}) {
        for (const std::size_t salto : {0U, 1U, 5U, 64U}) {
            Banco b;
            b.Disco.Metti("/p/in", bytes);
            b.S.Canale.FineRigaLf = lf;
            std::vector<Testo> attese;
            b.S.Canale.OpenInput(2, "\\p\\in");
            while (!b.S.Canale.Eof(2)) attese.emplace_back(b.S.Canale.LineInput(2));
            b.S.Canale.Close(2);
            b.S.Canale.OpenInput(1, "\\p\\in");
            RigheSorgente sorgente(b.S);
            std::size_t n = 0;
            while (!sorgente.Finita()) {
                const RigaSorgente& riga = sorgente.Prossima();
                ASSERT_EQ(riga.Letta.Intera(), attese.at(n)) << n;
                ASSERT_EQ(riga.Letta.Trimmata(), Trim(attese[n])) << n;
                ASSERT_EQ(riga.Quale, ClassificaRiga(Trim(attese[n]))) << attese[n];
                ++n;
                const auto pronte = sorgente.Pronte();
                const std::size_t saltate = std::min(salto, pronte.size());
                for (std::size_t i = 0; i < saltate; ++i, ++n) {
                    ASSERT_EQ(pronte[i].Letta.Intera(), attese.at(n)) << n;
                    ASSERT_EQ(pronte[i].Quale, ClassificaRiga(Trim(attese[n]))) << n;
                }
                sorgente.Salta(static_cast<Lungo>(saltate));
            }
            EXPECT_EQ(n, attese.size());
        }
    }
}

TEST(RigheSorgente, LasciaLaRigaDovePuoMuoversi) {
    Banco b;
    b.Disco.Metti("/p/in", "a\r\nb\r\n");
    b.S.Canale.OpenInput(1, "\\p\\in");
    RigheSorgente sorgente(b.S);
    b.S.Riga = "prima";
    EXPECT_FALSE(sorgente.Finita());
    EXPECT_EQ(b.S.Riga, "");
    b.S.Riga = sorgente.Prossima().Letta.Trimmata();
    EXPECT_EQ(b.S.Riga, "a");
    EXPECT_FALSE(sorgente.Finita());
    EXPECT_EQ(sorgente.Prossima().Letta.Trimmata(), "b");
    EXPECT_TRUE(sorgente.Finita());
    EXPECT_EQ(b.S.Riga, "");
}

// A failed read ends the engine at the line it was for.
TEST(RigheSorgente, UnaLetturaCheFallisce) {
    Banco b;
    b.Disco.Metti("/p/in", Testo(Canali::BloccoLetto - 2, 'x') + "\r\n" + Testo(10, 'y') + "\r\n");
    b.S.Canale.OpenInput(1, "\\p\\in");
    RigheSorgente sorgente(b.S);
    EXPECT_FALSE(sorgente.Finita());
    b.Disco.Fallisci("Leggi", "in", 57);
    // Whether an LF follows the CR at the block's end only the next block tells.
    try {
        sorgente.Prossima();
        sorgente.Finita();
        FAIL();
    } catch (const FineMotore& fine) {
        EXPECT_EQ(fine.Causa.Numero, 57);
    }
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "text/fetta.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace morvella {

namespace {

// Told byte by byte.
template <class F>
Segni AMano(const char* p, std::size_t quanti, F&& prova) {
    Segni segni = 0;
    for (std::size_t i = 0; i < quanti; ++i)
        if (prova(p + i)) segni |= Segni{1} << i;
    return segni;
}

template <class F>
void SuTestiACaso(F&& prova) {
    // Few different bytes, so that all kinds of neighbours come up; those that differ in a bit only.
    constexpr char Bytes[] = {' ',    '\r',   '\n',   'p',    'P',    'r',    'V',    'v',
                              'l',    'L',    '.',    'S',    '0',    '\x10', '\0',   '\x8D',
                              '\xF0', '\xD0', '\xFF', '\x80', '\x7F', '\x0C', '\x0E', '\x01'};
    std::uint32_t n = 1;
    for (int giro = 0; giro < 3000; ++giro) {
        const std::size_t diversi = static_cast<std::size_t>(giro) % sizeof Bytes + 1;
        std::string testo;
        while (testo.size() < Fetta + 16) {
            n = n * 1664525 + 1013904223;
            testo += Bytes[n / 65536 % diversi];
        }
        prova(testo.data() + 8);
    }
}

TEST(Fetta, DoveByte) {
    SuTestiACaso([](const char* p) {
        for (const char c : {'\r', ' ', '\0', '\x8D', '\xFF', '\x80'}) {
            const auto uguale = [c](const char* q) { return *q == c; };
            const Segni attesi = AMano(p, Fetta, uguale);
            ASSERT_EQ(DoveByte(p, c), attesi);
            ASSERT_EQ(semplice::DoveByte(p, c), attesi);
            ASSERT_EQ(DoveByte<32>(p, c), AMano(p, 32, uguale));
            ASSERT_EQ(semplice::DoveByte<32>(p, c), AMano(p, 32, uguale));
        }
    });
}

template <class C>
void ProvaContatore() {
    std::size_t attesi = 0;
    std::size_t giro = 0;
    C contatore('\r');
    SuTestiACaso([&](const char* p) {
        const Segni segni = AMano(p, Fetta, [](const char* q) { return *q == '\r'; });
        if (++giro % 7 == 0) {
            contatore.AggiungiPrimi(p, giro % Fetta);
            attesi += static_cast<std::size_t>(std::popcount(segni & ((Segni{1} << giro % Fetta) - 1)));
        } else {
            contatore.Aggiungi(p);
            attesi += static_cast<std::size_t>(std::popcount(segni));
        }
        if (giro % 101 == 0) {
            ASSERT_EQ(contatore.Quanti(), attesi);
        }
    });
    EXPECT_EQ(contatore.Quanti(), attesi);
    // More than a byte can count, in every place.
    const std::string tutti(Fetta, '\r');
    for (int i = 0; i < 1000; ++i) contatore.Aggiungi(tutti.data());
    EXPECT_EQ(contatore.Quanti(), attesi + 1000 * Fetta);
}

TEST(Fetta, Contatore) {
    ProvaContatore<Contatore>();
    ProvaContatore<semplice::Contatore>();
}

TEST(Fetta, DoveDue) {
    SuTestiACaso([](const char* p) {
        const Segni attesi = AMano(p, Fetta, [](const char* q) { return q[0] == '.' && q[1] == 'S'; });
        ASSERT_EQ(DoveDue(p, '.', 'S'), attesi);
        ASSERT_EQ(semplice::DoveDue(p, '.', 'S'), attesi);
    });
}

TEST(Fetta, DoveParola) {
    SuTestiACaso([](const char* p) {
        const Segni attesi = AMano(p, Fetta, [](const char* q) {
            const int quarta = q[3] | 32;
            return (q[0] | 32) == 'p' && (quarta == 'v' || quarta == 'l');
        });
        ASSERT_EQ(DoveParola(p, 'p', 'v', 'l'), attesi);
        ASSERT_EQ(semplice::DoveParola(p, 'p', 'v', 'l'), attesi);
    });
}

TEST(Fetta, PrimoSegno) {
    EXPECT_EQ(PrimoSegno(0), Fetta);
    EXPECT_EQ(PrimoSegno(1), 0u);
    EXPECT_EQ(PrimoSegno(Segni{1} << 63), 63u);
    EXPECT_EQ(PrimoSegno(0x50), 4u);
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// Channels that read: LineInput, Eof, SaltaSenza and where the block ends.
#include <cstdint>

#include "text/banco.h"

namespace morvella {

namespace {

using namespace prove;

using Righe = std::vector<Testo>;

struct CasoRighe {
    Testo Bytes;
    Righe Attese;   // a CR or CR LF ends a line
    Righe AtteseLf; // an LF too
};

const CasoRighe CasiRighe[] = {
    {"", {}, {}},
    {"a", {"a"}, {"a"}},
    {"a\r\n", {"a"}, {"a"}}, // no further empty line
    {"a\r", {"a"}, {"a"}},
    {"a\r\nbcdefgh\r", {"a", "bcdefgh"}, {"a", "bcdefgh"}},
    {"a\r\nb", {"a", "b"}, {"a", "b"}},
    {"\r\n", {""}, {""}},
    {"\r\n\r\n", {"", ""}, {"", ""}},
    {"a\r\rb\n", {"a", "", "b\n"}, {"a", "", "b"}},
    {"a\rb\nc\r\n", {"a", "b\nc"}, {"a", "b", "c"}}, // a lone LF stays in the line
    {"\n", {"\n"}, {""}},
    {"a\n\rb", {"a\n", "b"}, {"a", "", "b"}},
    {"a\nb\n", {"a\nb\n"}, {"a", "b"}},
    {"a\r\n\nb", {"a", "\nb"}, {"a", "", "b"}},
    {"a\r\r\nb", {"a", "", "b"}, {"a", "", "b"}},
    {Testo("a\0b\x1A\tc\r\nd", 9), {Testo("a\0b\x1A\tc", 6), "d"}, {Testo("a\0b\x1A\tc", 6), "d"}},
};

TEST(Canali, LineInput) {
    for (const CasoRighe& c : CasiRighe) {
        Banco b;
        EXPECT_EQ(b.Righe(c.Bytes), c.Attese) << testing::PrintToString(c.Bytes);
        EXPECT_EQ(b.Righe(c.Bytes, true), c.AtteseLf) << testing::PrintToString(c.Bytes);
    }
}

// The rule told byte by byte, to hold against blocks that end anywhere.
Righe AManoRighe(const Testo& bytes, bool lf) {
    Righe righe;
    for (std::size_t i = 0; i < bytes.size();) {
        Testo riga;
        while (i < bytes.size() && bytes[i] != '\r' && !(lf && bytes[i] == '\n')) riga += bytes[i++];
        if (i < bytes.size() && bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        ++i;
        righe.push_back(std::move(riga));
    }
    return righe;
}

TEST(Canali, LineInputOvunqueFiniscaIlBlocco) {
    constexpr char Lettere[] = {'a', 'b', '\r', '\n'};
    Banco b;
    for (std::size_t lungo = 1; lungo <= 6; ++lungo) {
        for (std::size_t quale = 0; quale < std::size_t{1} << (2 * lungo); ++quale) {
            Testo bytes;
            for (std::size_t i = 0; i < lungo; ++i) bytes += Lettere[(quale >> (2 * i)) & 3];
            for (const std::size_t boccone : {1, 2, 3, 1000}) {
                b.Disco.Boccone = boccone;
                for (const bool lf : {false, true})
                    ASSERT_EQ(b.Righe(bytes, lf), AManoRighe(bytes, lf))
                        << testing::PrintToString(bytes) << ' ' << boccone << ' ' << lf;
            }
        }
    }
}

TEST(Canali, LineInputAlBordoDelBlocco) {
    struct Caso {
        const char* Fine;
        Righe Altre; // after the long line
        Righe AltreLf;
    };
    const Caso casi[] = {
        {"\r\ny", {"y"}, {"y"}},  {"\ry", {"y"}, {"y"}}, {"\r\r\ny", {"", "y"}, {"", "y"}},
        {"\r\n\r\n", {""}, {""}}, {"\r\n", {}, {}},      {"", {}, {}},
    };
    for (const Caso& c : casi) {
        for (const std::size_t blocchi : {1, 2, 3, 4, 5}) {
            for (int oltre = -3; oltre <= 3; ++oltre) {
                const Testo lunga(blocchi * Blocco + static_cast<std::size_t>(oltre + 3) - 3, 'x');
                Banco b;
                Righe attese = c.Altre;
                attese.insert(attese.begin(), lunga);
                ASSERT_TRUE(b.Righe(lunga + c.Fine) == attese) << c.Fine << blocchi << ' ' << oltre;
                ASSERT_TRUE(b.Righe(lunga + c.Fine, true) == attese) << c.Fine << blocchi << ' ' << oltre;
                // The same with the line not at the front of the buffer.
                attese.insert(attese.begin(), "prima");
                ASSERT_TRUE(b.Righe("prima\r\n" + lunga + c.Fine) == attese) << c.Fine << blocchi;
            }
        }
    }
}

TEST(Canali, MolteRigheOltreIlBlocco) {
    Testo bytes;
    Righe attese;
    for (int i = 0; bytes.size() < 3 * Blocco; ++i) {
        attese.push_back(CStr(i) + Testo(static_cast<std::size_t>(i % 97), '.'));
        bytes += attese.back() + "\r\n";
    }
    Banco b;
    EXPECT_TRUE(b.Righe(bytes) == attese);
    EXPECT_TRUE(b.Righe(bytes, true) == attese);
}

TEST(Canali, FileConLfEUnaRigaSola) {
    Testo bytes;
    while (bytes.size() < 2 * Blocco) bytes += "una riga\n";
    Banco b;
    EXPECT_TRUE(b.Righe(bytes) == Righe{bytes});
    EXPECT_EQ(b.Righe(bytes, true).size(), bytes.size() / 9);
}

// Lines around the stride, with blanks around theirs, at any place of the memory; as many at a time as
// one likes.
TEST(Canali, LineInputTrimComeTrim) {
    Testo bytes;
    for (const std::size_t blanks : {0, 1, 4, 31, 32, 33, 63, 64, 65})
        for (const std::size_t testo : {0, 1, 2, 30, 31, 32, 33, 62, 63, 64, 65, 200})
            for (const std::size_t dietro : {0, 1, 40})
                for (const char* fine : {"\r\n", "\r", "\r\n\n"})
                    bytes += Testo(blanks, ' ') + Testo(testo, '\t') + Testo(dietro, ' ') + fine;
    bytes += "  ultima  ";
    for (const std::size_t boccone : {std::size_t{1}, std::size_t{50}, std::size_t{997}, Blocco}) {
        for (const bool lf : {false, true}) {
            const Righe attese = AManoRighe(bytes, lf);
            Banco b;
            b.Disco.Boccone = boccone;
            b.Disco.Metti("/p/in", bytes);
            b.Canale.FineRigaLf = lf;
            b.Canale.OpenInput(1, "\\p\\in");
            std::size_t presa = 0;
            for (std::size_t massimo = 1; presa < attese.size(); massimo = massimo % 40 + 1) {
                std::size_t date = 0;
                const std::size_t quante =
                    b.Canale.LineInputTrim(1, massimo, [&](const LineaLetta& riga, bool inMemoria) {
                        const Testo& attesa = attese.at(presa + date++);
                        EXPECT_EQ(riga.Intera(), attesa);
                        EXPECT_EQ(riga.Trimmata(), Trim(attesa));
                        if (!inMemoria) return;
                        const char dietro = riga.Testo[riga.Lunga];
                        EXPECT_TRUE(dietro == ' ' || dietro == '\r');
                    });
                ASSERT_GE(quante, 1u);
                ASSERT_LE(quante, massimo);
                ASSERT_EQ(quante, date);
                presa += quante;
                if (HasFailure()) return;
            }
            EXPECT_TRUE(b.Canale.Eof(1));
            EXPECT_EQ(NumeroDi([&] { b.Canale.LineInputTrim(1, 3, [](const LineaLetta&, bool) {}); }), 62);
        }
    }
}

TEST(Canali, LineInputTrimNonVaOltreIlMassimo) {
    Banco b;
    b.Disco.Metti("/p/in", "a\r\n b\r\nc \r\nd\r\n");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_FALSE(b.Canale.Eof(1));
    Righe righe;
    const auto prendi = [&](const LineaLetta& riga, bool) { righe.emplace_back(riga.Trimmata()); };
    EXPECT_EQ(b.Canale.LineInputTrim(1, 2, prendi), 2u);
    EXPECT_EQ(righe, (Righe{"a", "b"}));
    EXPECT_EQ(b.Canale.LineInput(1), "c ");
    EXPECT_EQ(b.Canale.LineInputTrim(1, 9, prendi), 1u); // whether an LF follows, only the file's end tells
    EXPECT_EQ(righe, (Righe{"a", "b", "d"}));
}

// Random text of lines of about `media` bytes, with all kinds of line ends and some hits.
Testo TestoACaso(std::uint32_t seme, std::size_t quanti, std::size_t media) {
    std::uint32_t n = seme;
    const auto caso = [&](std::uint32_t fino) { return (n = n * 1664525 + 1013904223) / 65536 % fino; };
    Testo bytes;
    while (bytes.size() < quanti) {
        const std::uint32_t lunga = caso(static_cast<std::uint32_t>(2 * media + 1));
        for (std::uint32_t i = 0; i < lunga; ++i) bytes += "abS.wo\n h"[caso(9)];
        if (caso(20) == 0) bytes.append(".Show");
        if (caso(20) == 0) bytes.append(".Sho\rw");
        constexpr const char* Fini[] = {"\r\n", "\r\n", "\r\n", "\r", "\r\r\n", "\r\n\n"};
        bytes += Fini[caso(6)];
    }
    return bytes + (seme % 2 == 0 ? "fine" : "fine\r");
}

TEST(Canali, SaltaSenzaNonSaltaNulla) {
    for (std::uint32_t seme = 1; seme <= 60; ++seme) {
        const std::size_t media = seme % 3 == 0 ? 2 : seme % 3 == 1 ? 30 : 300;
        const Testo bytes = TestoACaso(seme, seme % 10 == 0 ? 2 * Blocco : 3000, media);
        const Righe tutte = AManoRighe(bytes, false);
        for (const std::size_t boccone : {std::size_t{100}, std::size_t{131}, std::size_t{1000}, Blocco}) {
            Banco b;
            b.Disco.Boccone = boccone;
            b.Disco.Metti("/p/in", bytes);
            b.Canale.OpenInput(1, "\\p\\in");
            std::size_t quale = 0;
            std::size_t saltate = 0;
            for (;;) {
                const Lungo salto = b.Canale.SaltaSenza(1, ".Show");
                ASSERT_GE(salto, 0);
                for (Lungo i = 0; i < salto; ++i, ++quale, ++saltate) {
                    ASSERT_LT(quale, tutte.size());
                    ASSERT_EQ(InStr(1, tutte[quale], ".Show"), 0) << seme << ' ' << boccone << ' ' << quale;
                }
                if (b.Canale.Eof(1)) break;
                ASSERT_LT(quale, tutte.size());
                ASSERT_EQ(b.Canale.LineInput(1), tutte[quale]) << seme << ' ' << boccone << ' ' << quale;
                ++quale;
            }
            ASSERT_EQ(quale, tutte.size()) << seme << ' ' << boccone;
            if (boccone == Blocco && media < 100) {
                EXPECT_GT(saltate, 0u) << seme;
            }
        }
    }
}

TEST(Canali, SaltaSenzaCasi) {
    Banco b;
    EXPECT_EQ(NumeroDi([&] { return b.Canale.SaltaSenza(1, ".Show"); }), 52);
    b.Disco.Metti("/p/in", "");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(b.Canale.SaltaSenza(1, ".Show"), 0);
    b.Canale.Close(1);
    // Where an LF ends a line too, the lines are counted one by one.
    b.Disco.Metti("/p/in", TestoACaso(1, 3000, 10));
    b.Canale.FineRigaLf = true;
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(b.Canale.SaltaSenza(1, ".Show"), 0);
}

TEST(Canali, EofNonConsuma) {
    Banco b;
    b.Disco.Metti("/p/in", "a\r\nb");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_FALSE(b.Canale.Eof(1));
    EXPECT_FALSE(b.Canale.Eof(1));
    EXPECT_EQ(b.Canale.LineInput(1), "a");
    EXPECT_FALSE(b.Canale.Eof(1));
    EXPECT_EQ(b.Canale.LineInput(1), "b");
    EXPECT_TRUE(b.Canale.Eof(1));
    EXPECT_TRUE(b.Canale.Eof(1));
}

TEST(Canali, BufferNonTieneIlFileDiPrima) {
    Banco b;
    EXPECT_EQ(b.Righe("lunga lunga\r\nresto").size(), 2u);
    b.Disco.Metti("/p/in", "uno\r\ndue\r\n");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(b.Canale.LineInput(1), "uno"); // "due" is read and not given
    b.Canale.Close(1);
    EXPECT_EQ(b.Righe("x"), Righe{"x"});
    EXPECT_EQ(b.Righe(""), Righe{});
}

} // namespace

} // namespace morvella

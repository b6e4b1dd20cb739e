// SPDX-License-Identifier: MIT
#include "text/testo.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "text/numero_di.h"

namespace morvella {

namespace {

using prove::NumeroDi;

constexpr Lungo Enorme = std::numeric_limits<Lungo>::max();

TEST(Testo, Mid) {
    struct Caso {
        Vista S;
        Lungo Inizio, N;
        Vista Atteso;
    };
    constexpr Caso Casi[] = {
        {"abc", 1, 1, "a"},
        {"abc", 1, 3, "abc"},
        {"abc", 2, 99, "bc"},
        {"abc", 3, 1, "c"},
        {"abc", 4, 1, ""},
        {"abc", 99, 1, ""},
        {"abc", 2, 0, ""},
        {"abc", 4, 0, ""},
        {"", 1, 0, ""},
        {"", 1, 9, ""},
        {"", 9, 9, ""},
        {"abc", 1, Enorme, "abc"},
        {"abc", 3, Enorme, "c"},
        {"abc", Enorme, 1, ""},
        {"If", 1, 3, "If"},
        {"If x", 1, 3, "If "},
        {{"a\0b", 3}, 2, 2, {"\0b", 2}},
    };
    for (const Caso& c : Casi)
        EXPECT_EQ(Mid(c.S, c.Inizio, c.N), c.Atteso) << c.S << ' ' << c.Inizio << ' ' << c.N;
}

TEST(Testo, MidLeftRightErrore5) {
    EXPECT_EQ(NumeroDi([] { return Mid("abc", 0, 1); }), 5);
    EXPECT_EQ(NumeroDi([] { return Mid("abc", -1, 1); }), 5);
    EXPECT_EQ(NumeroDi([] { return Mid("abc", 1, -1); }), 5);
    EXPECT_EQ(NumeroDi([] { return Mid("abc", 9, -1); }), 5); // also where the result would be ""
    EXPECT_EQ(NumeroDi([] { return Mid("", 0, 0); }), 5);
    EXPECT_EQ(NumeroDi([] { return Left("abc", -1); }), 5);
    EXPECT_EQ(NumeroDi([] { return Right("abc", -1); }), 5);
    // The cut of an extension: a name of 4 bytes leaves "", one of 3 is an error.
    EXPECT_EQ(Mid(".frm", 1, Len(".frm") - 4), "");
    EXPECT_EQ(Mid("Form1.f", 1, Len("Form1.f") - 4), "For");
    EXPECT_EQ(NumeroDi([] { return Mid("abc", 1, Len("abc") - 4); }), 5);
    EXPECT_EQ(NumeroDi([] { return Mid("", 1, Len("") - 4); }), 5);
}

TEST(Testo, LeftRightLen) {
    struct Caso {
        Vista S;
        Lungo N;
        Vista Sinistra, Destra;
    };
    constexpr Caso Casi[] = {
        {"abc", 0, "", ""},
        {"abc", 1, "a", "c"},
        {"abc", 2, "ab", "bc"},
        {"abc", 3, "abc", "abc"},
        {"abc", 4, "abc", "abc"},
        {"", 4, "", ""},
        {"abc", Enorme, "abc", "abc"},
    };
    for (const Caso& c : Casi) {
        EXPECT_EQ(Left(c.S, c.N), c.Sinistra) << c.S << ' ' << c.N;
        EXPECT_EQ(Right(c.S, c.N), c.Destra) << c.S << ' ' << c.N;
    }
    EXPECT_EQ(Len(""), 0);
    EXPECT_EQ(Len("abc"), 3);
    EXPECT_EQ(Len(Vista("\0\r\n", 3)), 3); // any byte counts
    EXPECT_EQ(Len("\xE8"), 1);             // a byte is a character
}

TEST(Testo, TrimToglieSoloBlank) {
    struct Caso {
        Vista S, Atteso;
    };
    constexpr Caso Casi[] = {
        {"  If x  ", "If x"},        {"\t  If x", "\t  If x"}, // the TAB keeps the blanks after it
        {"  \tIf x\t ", "\tIf x\t"}, {" \r\n ", "\r\n"},       {" \n", "\n"}, {"\xA0 x \xA0", "\xA0 x \xA0"},
        {{" \0 ", 3}, {"\0", 1}},    {" a  b ", "a  b"},       {"   ", ""},   {"", ""},
    };
    for (const Caso& c : Casi) EXPECT_EQ(Trim(c.S), c.Atteso) << c.S;
    for (int n = 0; n < 256; ++n) {
        const Testo byte = Chr(n);
        EXPECT_EQ(Trim(" " + byte + " "), n == 32 ? Testo() : byte) << n;
    }
}

TEST(Testo, TrimDiOgniLunghezza) {
    // Blanks are counted in strides: each number of them, with and without something after them.
    for (Lungo davanti = 0; davanti <= 40; ++davanti) {
        for (const Vista in :
             {Vista(), Vista("x"), Vista("\t  x"), Vista("x y z x y z"), Vista("\x21 \x20 \xA0")}) {
            for (const Lungo dietro : {0, 1, 9}) {
                const Testo s = Space(davanti) + Testo(in) + Space(dietro);
                EXPECT_EQ(Trim(s), in) << davanti << ' ' << dietro;
                if (!in.empty()) {
                    EXPECT_EQ(BlanksDavanti(s), static_cast<std::size_t>(davanti));
                }
            }
        }
    }
}

TEST(Testo, InStr) {
    struct Caso {
        Lungo Inizio;
        Vista S, Ago;
        Lungo Atteso;
    };
    constexpr Caso Casi[] = {
        {1, "abcabc", "a", 1},      {1, "abcabc", "c", 3}, {2, "abcabc", "a", 4}, {4, "abcabc", "a", 4},
        {5, "abcabc", "a", 0},      {1, "abcabc", "A", 0}, {1, "abc", "abcd", 0}, {1, "", "a", 0},
        {9, "abc", "c", 0},         {3, "abc", "c", 3},    {4, "abc", "c", 0},    {1, "a;b;c", ";", 2},
        {1, "\xE8\xC8", "\xC8", 2}, // è and È are two bytes
        {1, {"a\0b", 3}, "b", 3},   {1, "aab", "ab", 2},
    };
    for (const Caso& c : Casi)
        EXPECT_EQ(InStr(c.Inizio, c.S, c.Ago), c.Atteso) << c.Inizio << ' ' << c.S << ' ' << c.Ago;
    EXPECT_EQ(NumeroDi([] { return InStr(0, "abc", "a"); }), 5);
}

TEST(Testo, SpaceChrCStr) {
    EXPECT_EQ(Space(0), "");
    EXPECT_EQ(Space(5), "     ");
    EXPECT_EQ(NumeroDi([] { return Space(-1); }), 5);

    for (const int n : {10, 13, 15, 34, 179, 186, 192, 195, 196, 200, 201, 205, 218, 0, 255}) {
        ASSERT_EQ(Chr(n).size(), 1u) << n;
        EXPECT_EQ(static_cast<unsigned char>(Chr(n)[0]), n);
    }
    EXPECT_EQ(NumeroDi([] { return Chr(-1); }), 5);
    EXPECT_EQ(NumeroDi([] { return Chr(256); }), 5);

    EXPECT_EQ(CStr(0), "0"); // no leading blank for the sign
    EXPECT_EQ(CStr(7), "7");
    EXPECT_EQ(CStr(-7), "-7");
    EXPECT_EQ(CStr(1000000), "1000000");
}

TEST(Testo, Val) {
    struct Caso {
        Vista S;
        double Atteso;
    };
    constexpr Caso Casi[] = {
        {"1", 1}, {"12x", 12}, {"-3", -3}, {"+3", 3}, {"  4", 4}, {"2.5", 2.5}, {"2.5.5", 2.5},
        {"", 0},  {"x1", 0},   {"-", 0},   {".", 0},  {"--1", 0}, {"1-", 1},    {".5", 0.5},
    };
    for (const Caso& c : Casi) EXPECT_DOUBLE_EQ(Val(c.S), c.Atteso) << c.S;
}

// The letters of Windows-1252 that have two cases, capital and small, written out one by one.
constexpr int Lettere[][2] = {
    {'A', 'a'},   {'B', 'b'},   {'C', 'c'},   {'D', 'd'},   {'E', 'e'},   {'F', 'f'},   {'G', 'g'},
    {'H', 'h'},   {'I', 'i'},   {'J', 'j'},   {'K', 'k'},   {'L', 'l'},   {'M', 'm'},   {'N', 'n'},
    {'O', 'o'},   {'P', 'p'},   {'Q', 'q'},   {'R', 'r'},   {'S', 's'},   {'T', 't'},   {'U', 'u'},
    {'V', 'v'},   {'W', 'w'},   {'X', 'x'},   {'Y', 'y'},   {'Z', 'z'},   {0x8A, 0x9A}, // Š š
    {0x8C, 0x9C},                                                                       // Œ œ
    {0x8E, 0x9E},                                                                       // Ž ž
    {0x9F, 0xFF},                                                                       // Ÿ ÿ
    {0xC0, 0xE0},                                                                       // À à
    {0xC1, 0xE1}, {0xC2, 0xE2}, {0xC3, 0xE3}, {0xC4, 0xE4}, {0xC5, 0xE5},               // Á Â Ã Ä Å
    {0xC6, 0xE6},                                                                       // Æ æ
    {0xC7, 0xE7},                                                                       // Ç ç
    {0xC8, 0xE8}, {0xC9, 0xE9}, {0xCA, 0xEA}, {0xCB, 0xEB},                             // È É Ê Ë
    {0xCC, 0xEC}, {0xCD, 0xED}, {0xCE, 0xEE}, {0xCF, 0xEF},                             // Ì Í Î Ï
    {0xD0, 0xF0},                                                                       // Ð ð
    {0xD1, 0xF1},                                                                       // Ñ ñ
    {0xD2, 0xF2}, {0xD3, 0xF3}, {0xD4, 0xF4}, {0xD5, 0xF5}, {0xD6, 0xF6},               // Ò Ó Ô Õ Ö
    {0xD8, 0xF8},                                           // Ø ø, after the multiplication sign
    {0xD9, 0xF9}, {0xDA, 0xFA}, {0xDB, 0xFB}, {0xDC, 0xFC}, // Ù Ú Û Ü
    {0xDD, 0xFD},                                           // Ý ý
    {0xDE, 0xFE},                                           // Þ þ
};

TEST(Testo, PiegaTuttiIByte) {
    std::array<int, 256> minuscola{};
    std::array<int, 256> maiuscola{};
    for (int n = 0; n < 256; ++n)
        minuscola[static_cast<std::size_t>(n)] = maiuscola[static_cast<std::size_t>(n)] = n;
    for (const auto& [grande, piccola] : Lettere) {
        minuscola[static_cast<std::size_t>(grande)] = piccola;
        maiuscola[static_cast<std::size_t>(piccola)] = grande;
    }
    for (int n = 0; n < 256; ++n) {
        const auto i = static_cast<std::size_t>(n);
        EXPECT_EQ(LCase(Chr(n)), Chr(minuscola[i])) << n;
        EXPECT_EQ(UCase(Chr(n)), Chr(maiuscola[i])) << n;
        EXPECT_EQ(MinuscolaByte(static_cast<unsigned char>(n)), minuscola[i]) << n;
        EXPECT_EQ(MaiuscolaByte(static_cast<unsigned char>(n)), maiuscola[i]) << n;
    }
}

TEST(Testo, PiegaTesti) {
    EXPECT_EQ(LCase(""), "");
    EXPECT_EQ(LCase("C:\\Progetto\\PERCH\xC9.Txt"), "c:\\progetto\\perch\xE9.txt");
    EXPECT_EQ(UCase(".frm"), ".FRM");
    EXPECT_EQ(UCase(Right("\\p\\Modulo.Frm", 4)), ".FRM");
    EXPECT_EQ(LCase("\xD7\xF7\xDF"), "\xD7\xF7\xDF"); // × ÷ ß
    EXPECT_EQ(UCase("\xD7\xF7\xDF"), "\xD7\xF7\xDF");
}

TEST(Testo, IniziaPer) {
    struct Caso {
        Vista S, Prefisso;
        bool Atteso;
    };
    constexpr Caso Casi[] = {
        {"If x", "if ", true},   {"If", "if ", false}, {"IF X", "if ", true},
        {"ifx", "if ", false},   {"", "if ", false},   {"If", "", true},
        {" If x", "if ", false}, {"[", "{", false},    {"@", "`", false}, // bytes beside A and Z do not fold
        {"\xC8", "\xE8", false},                                          // ASCII alone is folded here
    };
    for (const Caso& c : Casi) EXPECT_EQ(IniziaPer(c.S, c.Prefisso), c.Atteso) << c.S << '|' << c.Prefisso;
}

TEST(Testo, TestoLargo) {
    TestoLargo t;
    EXPECT_EQ(t, "");
    t = "abc";
    EXPECT_EQ(t, "abc");
    t.append("de", 2);
    EXPECT_EQ(t, "abcde");
    t.resize(7, '.');
    EXPECT_EQ(t, "abcde..");
    t.resize(2, '.');
    EXPECT_EQ(t, "ab");
    t.resize(4, '-'); // what was cut off does not come back
    EXPECT_EQ(t, "ab--");
    t.assign(3, ' ');
    EXPECT_EQ(t, "   ");
    t.clear();
    EXPECT_EQ(Len(t), 0);
    Testo lungo;
    for (int i = 0; i < 1000; ++i) {
        t.append("xyz", 3);
        lungo += "xyz";
        ASSERT_EQ(t, lungo);
        ASSERT_EQ(Vista(t.data() + t.size(), TestoLargo::Passo).size(), TestoLargo::Passo);
    }
    t = Testo(500, 'q');
    EXPECT_EQ(t, Testo(500, 'q'));
    lungo = Testo(500, 'q');
    for (int i = 0; i < 500; ++i) {
        t.AggiungiDue("ab", i % 3 == 0 ? 2 : 0);
        if (i % 3 == 0) lungo += "ab";
        ASSERT_EQ(t, lungo);
    }
    char* const coda = t.Coda(3);
    std::memcpy(coda, "xyz", 3);
    EXPECT_EQ(t, lungo);
    t.Fino(coda + 2);
    EXPECT_EQ(t, lungo + "xy");
}

} // namespace

} // namespace morvella

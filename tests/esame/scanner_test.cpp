// SPDX-License-Identifier: MIT
#include "esame/scanner.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace morvella::esame {

namespace {

// Every token as kind and text; "/" where a logical line ends.
std::string Gettoni(std::string_view bytes) {
    constexpr std::string_view sigle = ".nbNsd:=c";
    std::string s;
    Scanner scanner(bytes);
    while (scanner.ApriLogica()) {
        for (Gettone g = scanner.Leggi(); g.Tipo != TipoGettone::FineLogica; g = scanner.Leggi()) {
            const auto tipo = static_cast<std::size_t>(g.Tipo);
            if (tipo < sigle.size())
                (s += sigle[tipo]) += '(';
            else
                s += "x(";
            s.append(scanner.Testo(g)).append(")");
        }
        s += "/";
    }
    return s;
}

struct Riga {
    std::string_view Bytes, Attesi;
};

void Prova(const Riga& riga) { EXPECT_EQ(Gettoni(riga.Bytes), riga.Attesi) << riga.Bytes; }

TEST(EsameScanner, RigheFisiche) {
    const auto righe = [](std::string_view bytes) {
        Scanner s(bytes);
        while (s.ApriLogica()) {
        }
        return s.Riga();
    };
    EXPECT_EQ(righe(""), 0u);
    EXPECT_EQ(righe("a"), 1u);
    EXPECT_EQ(righe("a\n"), 1u);
    EXPECT_EQ(righe("a\r\nb"), 2u);
    EXPECT_EQ(righe("a\n\n\n"), 3u);
    EXPECT_EQ(righe("a\rb\r\n"), 1u); // a lone CR is a blank
    Prova({"a\rb\r\r\n\vc\x1A\xA0\x19\f", "n(a)n(b)/n(c)/"});
}

TEST(EsameScanner, PosizioniDaUno) {
    Scanner s("\xEF\xBB\xBF"
              "a\n  b _\n c");
    ASSERT_TRUE(s.ApriLogica());
    Gettone g = s.Leggi();
    EXPECT_EQ(g.Riga, 1u);
    EXPECT_EQ(g.Colonna, 4u); // the mark keeps its columns
    ASSERT_TRUE(s.ApriLogica());
    g = s.Leggi();
    EXPECT_EQ(g.Riga, 2u);
    EXPECT_EQ(g.Colonna, 3u);
    g = s.Leggi();
    EXPECT_EQ(g.Riga, 3u);
    EXPECT_EQ(g.Colonna, 2u);
    EXPECT_EQ(s.Leggi().Tipo, TipoGettone::FineLogica);
    EXPECT_FALSE(s.ApriLogica());
}

TEST(EsameScanner, Nomi) {
    Prova({"Perch\xE9 Quantit\xE0_1 _x", "n(Perch\xE9)n(Quantit\xE0_1)n(_x)/"});
    Prova({"a% b@ c$ d& e# f!", "n(a%)n(b@)n(c$)n(d&)n(e#)n(f!)/"});
    Prova({"rs!Next rs![a b] x!, y!1", "n(rs)x(!)n(Next)n(rs)x(!)b([a b])n(x!)x(,)n(y!)N(1)/"});
    Prova({"[If x Then: 'a] b", "b([If x Then: 'a])n(b)/"});
    Prova({"[a \"b\"", "x([)n(a)s(\"b\")/"});
    Scanner s("If$ If [If]");
    ASSERT_TRUE(s.ApriLogica());
    EXPECT_EQ(s.ParolaDi(s.Leggi()), Parola::Nessuna);
    EXPECT_EQ(s.ParolaDi(s.Leggi()), Parola::If);
    EXPECT_EQ(s.ParolaDi(s.Leggi()), Parola::Nessuna);
}

TEST(EsameScanner, Numeri) {
    Prova({"1 1.5 .5 1e5 1E+5 2d-3 &HFF& &O17 1# 2! 3%",
           "N(1)N(1.5)N(.5)N(1e5)N(1E+5)N(2d-3)N(&HFF&)N(&O17)N(1#)N(2!)N(3%)/"});
    Prova({"1Else 2Then", "N(1)n(Else)N(2)n(Then)/"});
    Prova({"a &Hug &O9", "n(a)x(&)n(Hug)x(&)n(O9)/"});
}

TEST(EsameScanner, Stringhe) {
    Prova({"\"a\"\"b:'c\" d", "s(\"a\"\"b:'c\")n(d)/"});
    Prova({"\"\" \"\"\"\"", "s(\"\")s(\"\"\"\")/"});
    Prova({"\"aperta _\nb", "s(\"aperta _)/n(b)/"}); // cut by the line end, and not continued
}

TEST(EsameScanner, Date) {
    for (const char* data :
         {"#1/2/2000#", "#10:20#", "#1:2:3 PM#", "#5 AM#", "#5PM#", "#1/1/2000 10:20:30 am#", "#Jan 5#",
          "#January 1, 1993#", "#1-May-99#", "# 12 / 31 / 1999 #", "#1/2 10.20#", "#1/2/3 4#"})
        Prova({data, "d(" + std::string(data) + ")/"});
    Prova({"#1, a: Close #1", "x(#)N(1)x(,)n(a):(:)n(Close)x(#)N(1)/"});
    Prova({"#1 10:20#", "x(#)N(1)N(10):(:)N(20#)/"}); // one part and a time
    Prova({"#12345/1/1#", "x(#)N(12345)x(/)N(1)x(/)N(1#)/"});
    Prova({"#ab/1/1#", "x(#)n(ab)x(/)N(1)x(/)N(1#)/"});
    Prova({"#1/2/3/4/5#", "x(#)N(1)x(/)N(2)x(/)N(3)x(/)N(4)x(/)N(5#)/"});
    Prova({"#1/2", "x(#)N(1)x(/)N(2)/"});
    Prova({"a#1/2/2000#", "n(a#)N(1)x(/)N(2)x(/)N(2000#)/"}); // the sign of a name
}

TEST(EsameScanner, DuePunti) { Prova({"a:b:=c: =d", "n(a):(:)n(b)=(:=)n(c):(:)x(=)n(d)/"}); }

TEST(EsameScanner, Commenti) {
    Prova({"a 'b: c\nd", "n(a)c('b: c)/n(d)/"});
    Prova({"'a _\nb\nc", "c('a _)/n(c)/"});
    Prova({"'a _  \r\nb _\n c\nd", "c('a _)/n(d)/"});
    Prova({"'____\nb", "c('____)/n(b)/"});
    Prova({"'_\nb", "c('_)/n(b)/"});
    Prova({"' _\nb\nc", "c(' _)/n(c)/"});
    Prova({"'a _", "c('a _)/"});
}

TEST(EsameScanner, Continuazioni) {
    Prova({"a _\nb", "n(a)n(b)/"});
    Prova({"a _ \t\r\nb", "n(a)n(b)/"});
    Prova({"a,_\nb", "n(a)x(,)n(b)/"});
    Prova({"Name_\nb", "n(Name_)/n(b)/"});
    Prova({"_\nb", "n(b)/"});
    Prova({"a _\n\nb", "n(a)/n(b)/"});
    Prova({"a _\n'b _\nc\nd", "n(a)c('b _)/n(d)/"});
    Prova({"a _", "n(a)/"});
    Prova({"a$_\nb", "n(a$)n(b)/"});
}

// Salta and Leggi agree about where each statement ends, whatever the bytes.
TEST(EsameScanner, SaltaComeLeggi) {
    constexpr std::string_view pezzi[] = {"a",        "_",   " _", "\n",  ":", ":=",   "\"", "'",   "#", "[",
                                          "]",        " ",   "1",  ".",   "!", "$",    "&",  "&H1", "e", "+",
                                          "#1/2/99#", "#1:", "PM", "Rem", ",", "\r\n", "\t", "\xE9"};
    std::mt19937 caso(7);
    int frasi = 0;
    for (int volta = 0; volta < 20000; ++volta) {
        std::string bytes;
        for (auto i = caso() % 30; i > 0; --i) bytes += pezzi[caso() % std::size(pezzi)];
        Scanner salta(bytes), leggi(bytes);
        for (;;) {
            const bool ancora = salta.ApriLogica();
            ASSERT_EQ(leggi.ApriLogica(), ancora) << bytes;
            if (!ancora) break;
            for (bool dentro = true; dentro; ++frasi) {
                dentro = salta.Salta();
                Gettone g;
                do g = leggi.Leggi();
                while (g.Tipo != TipoGettone::DuePunti && g.Tipo != TipoGettone::FineLogica &&
                       g.Tipo != TipoGettone::Commento);
                ASSERT_EQ(g.Tipo == TipoGettone::DuePunti, dentro) << bytes;
                if (dentro) {
                    ASSERT_EQ(salta.Posizione(), leggi.Posizione()) << bytes;
                }
                ASSERT_EQ(salta.Riga(), leggi.Riga()) << bytes;
            }
        }
    }
    EXPECT_GT(frasi, 50000);
}

TEST(EsameParole, OgniParola) {
    constexpr std::pair<std::string_view, Parola> parole[] = {{"If", Parola::If},
                                                              {"eLSEiF", Parola::ElseIf},
                                                              {"Attribute", Parola::Attribute},
                                                              {"IMPLEMENTS", Parola::Implements},
                                                              {"Function", Parola::Function},
                                                              {"Property", Parola::Property},
                                                              {"as", Parola::As},
                                                              {"While", Parola::While},
                                                              {"Wend", Parola::Wend},
                                                              {"GoTo", Parola::GoTo},
                                                              {"Static", Parola::Static},
                                                              {"Then", Parola::Then}};
    for (const auto& [nome, parola] : parole) {
        EXPECT_EQ(CercaParola(nome), parola) << nome;
        EXPECT_EQ(CercaParola(std::string(nome) + "x"), Parola::Nessuna) << nome;
        EXPECT_NE(CercaParola(nome.substr(1)), parola) << nome;
    }
    EXPECT_EQ(CercaParola("Attributf"), Parola::Nessuna);
    EXPECT_EQ(CercaParola("Implementy"), Parola::Nessuna);
    EXPECT_EQ(CercaParola(""), Parola::Nessuna);
    EXPECT_EQ(CercaParola("\xC9nd"), Parola::Nessuna);
}

} // namespace

} // namespace morvella::esame

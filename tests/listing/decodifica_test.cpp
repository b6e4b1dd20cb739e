// SPDX-License-Identifier: MIT
//
// A line of a listing taken apart again: the connectors by code page 437, all the rest by
// Windows-1252, and no byte of the text taken for a connector.
#include "listing/decodifica.h"

#include <random>

#include "listing/banco.h"

namespace morvella {

namespace {

using namespace prove;

std::string Nome(Tratto::Genere che) {
    switch (che) {
    case Tratto::Numero: return "N";
    case Tratto::Condizione: return "C";
    case Tratto::Ciclo: return "L";
    case Tratto::Barra: return "B";
    case Tratto::Riquadro: return "R";
    case Tratto::Errore: return "E";
    case Tratto::Scritto: return "S";
    }
    return "?";
}

std::string Parti(Vista riga) {
    std::vector<Tratto> tratti = {{Tratto::Errore, "di prima"}};
    DecodificaRiga(riga, tratti);
    std::string parti;
    for (const Tratto& tratto : tratti) {
        EXPECT_FALSE(tratto.Utf8.empty());
        parti += Nome(tratto.Che) + "[" + tratto.Utf8 + "]";
    }
    return parti;
}

std::string Tutto(Vista riga) {
    std::vector<Tratto> tratti;
    DecodificaRiga(riga, tratti);
    std::string utf8;
    for (const Tratto& tratto : tratti) utf8 += tratto.Utf8;
    return utf8;
}

struct Caso {
    Testo Riga;
    std::string Parti;
};
// Bytes in \x, glyphs in the notation of DaGlifi.
const std::vector<Caso>& Casi() {
    static const Testo n = "000007     ";
    static const std::string num = "N[000007     ]";
    // clang-format off
    static const std::vector<Caso> casi = {
        {"", ""},
        {n, num},
        {n + "   ", num + "S[   ]"},
        {n + "   x = 1", num + "S[   x = 1]"},
        {n + "x = 1", num + "S[x = 1]"}, // after an End Sub
        // Every connector, at the first column and deeper.
        {n + DaGlifi("···┌─>If a"),   num + "S[   ]C[┌─>]S[If a]"},
        {n + DaGlifi("···├─>Else"),   num + "S[   ]C[├─>]S[Else]"},
        {n + DaGlifi("···└─>End If"), num + "S[   ]C[└─>]S[End If]"},
        {n + DaGlifi("···╔═>For i"),  num + "S[   ]L[╔═>]S[For i]"},
        {n + DaGlifi("···╚═>Next"),   num + "S[   ]L[╚═>]S[Next]"},
        {n + DaGlifi("···│··x"),      num + "S[   ]C[│  ]S[x]"},
        {n + DaGlifi("···║··x"),      num + "S[   ]L[║  ]S[x]"},
        {n + DaGlifi("└─>End If"),    num + "C[└─>]S[End If]"},
        {n + DaGlifi("│··x"),         num + "C[│  ]S[x]"},
        {n + DaGlifi("╔═>Do"),        num + "L[╔═>]S[Do]"},
        {n + DaGlifi("···║··│··┌─>If a"), num + "S[   ]L[║  ]C[│  ┌─>]S[If a]"},
        {n + DaGlifi("···│··│··"),    num + "S[   ]C[│  │  ]"}, // an empty line in two blocks
        {n + DaGlifi("···│··└─>End With"), num + "S[   ]C[│  └─>]S[End With]"},
        {n + DaGlifi("···║··║··╚═>Loop"), num + "S[   ]L[║  ║  ╚═>]S[Loop]"},
        // Bars by the width of the margin: 0, 3, 6.
        {n + DaGlifi("<<══Exit Sub"),      num + "B[<<══]S[Exit Sub]"},
        {n + DaGlifi("<<═══Exit Do"),      num + "B[<<═══]S[Exit Do]"},
        {n + DaGlifi("<<══════exit for x"), num + "B[<<══════]S[exit for x]"},
        // "<<" in a text is a text.
        {n + "   x << y",             num + "S[   x << y]"},
        {n + "<< y",                  num + "S[<< y]"},
        {n + "<<",                    num + "S[<<]"},
        {n + "<",                     num + "S[<]"},
        {n + "<<\xCD"
             "Exit Sub", num + "S[<<ÍExit Sub]"}, // a bar has two strokes at the least
        {n + "<<\xCDx",               num + "S[<<Íx]"},
        {n + "   <<\xCD\xCD" "Exit Sub", num + "S[   <<ÍÍExit Sub]"},
        // Boxes: four lines of border and the head, far to the right.
        {Testo(14, ' ') + Testo(101, '*'), "R[" + Testo(14, ' ') + Testo(101, '*') + "]"},
        {Testo(14, ' ') + "*" + Testo(99, ' ') + "*", "R[" + Testo(14, ' ') + "*" + Testo(99, ' ') + "*]"},
        {Testo(11, ' ') + Testo(101, '*'), "R[" + Testo(11, ' ') + Testo(101, '*') + "]"},
        {Testo(5, ' ') + Testo(101, '*'), "R[" + Testo(5, ' ') + Testo(101, '*') + "]"},
        {n + Testo(14, ' ') + "  Private Sub a()", num + "S[" + Testo(16, ' ') + "Private Sub a()]"},
        {n + Testo(14, ' ') + "  subt\xB3\xCD", num + "S[" + Testo(16, ' ') + "subt³Í]"},
        // Near a border, but none.
        {n + "   " + Testo(101, '*'), num + "S[   " + Testo(101, '*') + "]"},
        {Testo(100, '*'), "S[" + Testo(100, '*') + "]"},
        {Testo(55, '*'), "S[" + Testo(55, '*') + "]"},
        {"*" + Testo(53, ' ') + "*", "S[*" + Testo(53, ' ') + "*]"},
        // The error line, by both widths of the number field.
        {Testo(11, ' ') + Testo(ErroreGenerico),
         "E[           ######  Errore generico - Manca uno o più elementi di chiusura ENDIF - Loop, Next ... ect]"},
        {Testo(5, ' ') + Testo(ErroreGenerico),
         "E[     ######  Errore generico - Manca uno o più elementi di chiusura ENDIF - Loop, Next ... ect]"},
        {n + "   ###### x", num + "S[   ###### x]"},
        // Past line 999,999.
        {DaGlifi("········x"),           "N[     ]S[   x]"},
        {DaGlifi("········│··└─>End If"), "N[     ]S[   ]C[│  └─>]S[End If]"},
        {DaGlifi("·····<<══Exit Sub"),   "N[     ]B[<<══]S[Exit Sub]"},
        {DaGlifi("·····╚═>Loop"),        "N[     ]L[╚═>]S[Loop]"},
        // The head of a listing, and the user's own text above it.
        {"\x0F" + Testo(55, '*'), "S[␏" + Testo(55, '*') + "]"},
        {"*              Procedura by Dario Fenzoni             *",
         "S[*              Procedura by Dario Fenzoni             *]"},
        {"'* Perch\xE9 \xB3\xCD", "S['* Perché ³Í]"},
        {"\xDA\xC4> mio", "S[ÚÄ> mio]"}, // no number in front: no margin
        {"00007     \xB3  x", "S[00007     ³  x]"},
        {"0000007    \xB3  x", "S[0000007    ³  x]"},
        {"00000x     \xB3  x", "S[00000x     ³  x]"},
        // Bytes of connectors in the text, also at its very beginning.
        {n + "   \xB3\xBA\xC0\xC3\xC4\xC8\xC9\xCD\xDA", num + "S[   ³ºÀÃÄÈÉÍÚ]"},
        {n + "   \xB3x",       num + "S[   ³x]"},
        {n + "   \xB3 x",      num + "S[   ³ x]"},
        {n + "   \xCD  x",     num + "S[   Í  x]"},
        {n + "   \xC4  x",     num + "S[   Ä  x]"},
        {n + "   \xDA\xC4x",   num + "S[   ÚÄx]"},
        {n + "   \xDA\xCD> x", num + "S[   ÚÍ> x]"}, // a single corner has a single stroke
        {n + "   \xC9\xC4> x", num + "S[   ÉÄ> x]"},
        {n + "   \xC8t\xE9 = \xB3", num + "S[   Èté = ³]"},
        {n + DaGlifi("···┌─>If ") + "\xB3  x", num + "S[   ]C[┌─>]S[If ³  x]"}, // after a connector all is text
        {n + DaGlifi("···└─>End If") + "\xDA\xC4>", num + "S[   ]C[└─>]S[End IfÚÄ>]"},
        // A connector in front of a statement that it does not belong to is letters of the text.
        {n + DaGlifi("···┌─>") + "\xB3  x", num + "S[   ÚÄ>³  x]"},
        {n + DaGlifi("···└─>") + "\xDA\xC4>", num + "S[   ÀÄ>ÚÄ>]"},
        {n + DaGlifi("···┌─>For i"), num + "S[   ÚÄ>For i]"},
        {n + DaGlifi("···╔═>abc"), num + "S[   ÉÍ>abc]"},
        {n + DaGlifi("···║··") + "\xBA", num + "S[   ]L[║  ]S[º]"},
        {n + DaGlifi("<<═══Exit Sub '") + "\xCD\xCD", num + "B[<<═══]S[Exit Sub 'ÍÍ]"},
        // Control characters must not act on a terminal.
        {n + "   a\tb", num + "S[   a\tb]"},
        {n + "   \x1B[31m", num + "S[   ␛[31m]"},
        {n + "   \n\x01\x7F", num + "S[   ␊␁␡]"},
        {n + "   " + Testo(1, '\0') + "x", num + "S[   ␀x]"},
        {n + "   \x80\x92", num + "S[   €’]"},
    };
    // clang-format on
    return casi;
}

TEST(Decodifica, OgniForma) {
    for (const Caso& caso : Casi()) EXPECT_EQ(Parti(caso.Riga), caso.Parti);
}

// A line cut anywhere, or any bytes at all, can be shown and sends the terminal no command.
TEST(Decodifica, OgniTaglioEdOgniByte) {
    std::mt19937 caso(7);
    const auto guarda = [](Vista riga) {
        const std::string utf8 = Tutto(riga);
        EXPECT_EQ(utf8.empty(), riga.empty());
        for (const char c : utf8)
            EXPECT_TRUE(c == '\t' || (static_cast<unsigned char>(c) >= 32 && c != 127))
                << testing::PrintToString(riga);
    };
    for (const Caso& c : Casi())
        for (std::size_t i = 0; i <= c.Riga.size(); ++i) guarda(Vista(c.Riga).substr(0, i));
    for (int i = 0; i < 20000; ++i) {
        Testo riga = i % 2 ? "000123     " : "";
        const auto lunga = caso() % 30;
        for (unsigned j = 0; j < lunga; ++j)
            riga += i % 3 ? static_cast<char>(caso() % 256)
                          : "\xB3\xBA\xC0\xC3\xC4\xC8\xC9\xCD\xDA> <"[caso() % 12];
        guarda(riga);
    }
}

// What the engine drew is what is read: but for a box and the error line, the margin precedes the
// source's text, whose length is known.
TEST(Decodifica, RileggeCioCheIlMotoreScrive) {
    static constexpr const char* Pezzi[] = {
        "If a Then",
        "If a Then b",
        "Else",
        "ElseIf c Then",
        "End If",
        "#If a Then",
        "#Else",
        "#End If",
        "For i = 1",
        "Next",
        "Do",
        "Loop",
        "While a",
        "Wend",
        "With a",
        "End With",
        "Select Case x",
        "Case 1",
        "End Select",
        "Exit Sub",
        "Exit Do",
        "Exit For",
        "Exit Function",
        "x = 1",
        "",
        "'* c",
        "' c",
        "End",
        "\tx",
        "Private Sub a()",
        "End Sub",
        "End Function",
        "Private Type T",
        "x = \"\xB3\xBA\xCD\"",
        "\xCD\xCD = 2",
        "\xB3x",
        "\xC9 = 1",
        "\xDA\xC4 > 1",
        "a << \xCD\xCD"
        "Exit Sub",
        "'\xB3  \xBA  \xC0\xC4>",
    };
    std::mt19937 caso(20260101);
    for (int giro = 0; giro < 300; ++giro) {
        Banco b;
        std::vector<Testo> righe;
        bool dietroEndSub = false;
        for (int i = 0; i < 60; ++i) {
            Testo riga = Pezzi[caso() % std::size(Pezzi)];
            // After an End Sub a line that closes would end the run: a head stands there.
            if (dietroEndSub) riga = "Private Sub b()";
            dietroEndSub = riga == "End Sub";
            righe.push_back(riga);
        }
        b.Modulo("F.frm", Sorgente(righe));
        b.Tutte();
        mnuvorn_Click(b.S);
        ASSERT_TRUE(b.Fronte.Arresti.empty());

        const Testo log = b.Log("F.log");
        std::size_t da = 0;
        while (da < log.size()) {
            const std::size_t fine = log.find("\r\n", da);
            const Vista riga = Vista(log).substr(da, fine - da);
            da = fine + 2;
            if (!std::isdigit(static_cast<unsigned char>(riga[0]))) continue; // a border, the error line
            const Testo& linea = righe.at(static_cast<std::size_t>(std::stoi(Testo(riga.substr(0, 6)))) - 1);
            const Vista scritta = IniziaPer(linea, "'*") ? Vista() : Vista(linea);
            ASSERT_TRUE(riga.ends_with(scritta)) << riga;
            const Vista margine = riga.substr(11, riga.size() - 11 - scritta.size());
            std::string atteso(riga.substr(0, 11));
            for (const char c : margine) {
                const auto* glifo = std::find_if(std::begin(Glifi), std::end(Glifi),
                                                 [&](const Glifo& g) { return g.Byte == c && c != ' '; });
                atteso += glifo == std::end(Glifi) ? std::string(1, c) : std::string(glifo->Segno);
            }
            EXPECT_EQ(Tutto(riga), atteso + Utf8Da1252(scritta)) << linea;
        }
    }
}

// A slice is a run before its text is built: the same kinds, no gaps, one character a byte.
TEST(Decodifica, LeFetteSonoGliStessiTratti) {
    std::vector<Porzione> fette = {{Tratto::Errore, 3, 4}};
    std::vector<Tratto> tratti;
    for (const Caso& caso : Casi()) {
        TagliaRiga(caso.Riga, fette);
        DecodificaRiga(caso.Riga, tratti);
        ASSERT_EQ(fette.size(), tratti.size()) << testing::PrintToString(caso.Riga);
        std::size_t fine = 0;
        for (std::size_t i = 0; i < fette.size(); ++i) {
            EXPECT_EQ(fette[i].Che, tratti[i].Che);
            EXPECT_EQ(fette[i].Da, fine);
            EXPECT_GT(fette[i].Quanti, 0u);
            fine += fette[i].Quanti;
            std::u16string segni;
            for (const char c : Vista(caso.Riga).substr(fette[i].Da, fette[i].Quanti))
                segni += Segno(fette[i].Che, c);
            std::u16string scritto; // UTF-8 of at most three bytes to one unit a character
            for (std::size_t j = 0; j < tratti[i].Utf8.size();) {
                const auto byte = [&](std::size_t k) {
                    return static_cast<unsigned char>(tratti[i].Utf8[j + k]);
                };
                const std::size_t lungo = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : 3;
                scritto += static_cast<char16_t>(lungo == 1   ? byte(0)
                                                 : lungo == 2 ? (byte(0) & 0x1F) << 6 | (byte(1) & 0x3F)
                                                              : (byte(0) & 0x0F) << 12 |
                                                                    (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F));
                j += lungo;
            }
            EXPECT_EQ(segni, scritto) << testing::PrintToString(caso.Riga);
        }
        EXPECT_EQ(fine, caso.Riga.size());
    }
}

// A text that begins like a column reads as a column: the bytes are the same. Only the byte and two
// blanks at the very beginning do.
TEST(Decodifica, UnTestoComeUnaColonna) {
    EXPECT_EQ(Parti("000007        \xB3  For i"), "N[000007     ]S[   ]C[│  ]S[For i]");
    EXPECT_EQ(Parti("000007        \xBA  x"), "N[000007     ]S[   ]L[║  ]S[x]");
    EXPECT_EQ(Tutto("000007        \xB3 x"), "000007        ³ x");
    EXPECT_EQ(Tutto("000007        x \xB3  y"), "000007        x ³  y");
    EXPECT_EQ(Tutto("000007        \xB3\xB3  y"), "000007        ³³  y");
}

TEST(Decodifica, UnSegnoPerByte) {
    EXPECT_EQ(Segno(Tratto::Ciclo, '\xC9'), u'╔');
    EXPECT_EQ(Segno(Tratto::Barra, '\xCD'), u'═');
    EXPECT_EQ(Segno(Tratto::Condizione, '>'), u'>');
    EXPECT_EQ(Segno(Tratto::Scritto, '\xC9'), u'É');
    EXPECT_EQ(Segno(Tratto::Errore, '\xF9'), u'ù');
    EXPECT_EQ(Segno(Tratto::Scritto, '\x80'), u'€');
    EXPECT_EQ(Segno(Tratto::Scritto, '\t'), u'\t');
    EXPECT_EQ(Segno(Tratto::Scritto, '\r'), u'␍');
    EXPECT_EQ(Segno(Tratto::Scritto, '\0'), u'␀');
    EXPECT_EQ(Segno(Tratto::Scritto, '\x7F'), u'␡');
    EXPECT_EQ(Segno(Tratto::Scritto, '\x81'), u'\uFFFD');
}

TEST(Decodifica, CampoBordoErrore) {
    const Testo stelle(101, '*');
    const Testo vuoto = "*" + Testo(99, ' ') + "*";
    const Testo errore(ErroreGenerico);
    struct Riga {
        Testo Scritta;
        std::size_t Campo;
        Bordo Che;
        bool Errore;
    };
    const Riga righe[] = {
        {"000001     x", 11, Bordo::Nessuno, false},
        {"000001     ", 11, Bordo::Nessuno, false},
        {"000001    ", 0, Bordo::Nessuno, false},
        {"00001      x", 0, Bordo::Nessuno, false},
        {"     x", 5, Bordo::Nessuno, false},
        {"    x", 0, Bordo::Nessuno, false},
        {"", 0, Bordo::Nessuno, false},
        {Testo(14, ' ') + stelle, 0, Bordo::Asterischi, false},
        {Testo(14, ' ') + vuoto, 0, Bordo::Vuoto, false},
        {Testo(14, ' ') + stelle + "*", 5, Bordo::Nessuno, false},
        {"000001     " + stelle, 11, Bordo::Nessuno, false},
        {Testo(11, ' ') + errore, 0, Bordo::Nessuno, true},
        {Testo(5, ' ') + errore, 0, Bordo::Nessuno, true},
        {Testo(11, ' ') + errore + "x", 5, Bordo::Nessuno, false},
        {"000001     " + errore, 11, Bordo::Nessuno, false}, // a source may say so
    };
    for (const Riga& riga : righe) {
        EXPECT_EQ(CampoDiRiga(riga.Scritta), riga.Campo) << riga.Scritta;
        EXPECT_EQ(BordoDiRiquadro(riga.Scritta), riga.Che) << riga.Scritta;
        EXPECT_EQ(morvella::RigaErrore(riga.Scritta), riga.Errore) << riga.Scritta;
    }
}

TEST(Decodifica, NessunControlloArrivaAlTerminale) {
    // The five bytes that Windows-1252 leaves open are control characters of the second set.
    std::vector<Tratto> tratti;
    DecodificaRiga("000001        a\x81\x8D\x8F\x90\x9D\x7F\x1B"
                   "b\tc",
                   tratti);
    ASSERT_EQ(tratti.back().Che, Tratto::Scritto);
    const std::string dubbio = "\xEF\xBF\xBD";
    EXPECT_EQ(tratti.back().Utf8, "   a" + dubbio + dubbio + dubbio + dubbio + dubbio + "\u2421\u241Bb\tc");
}

} // namespace

} // namespace morvella

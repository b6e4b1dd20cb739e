// SPDX-License-Identifier: MIT
//
// The first pass, which collects the calls of Show, and the entries made of them.
#include <random>

#include "scan/banco.h"

namespace morvella {

namespace {

using namespace prove;

TEST(RaccogliShow, UnaRiga) {
    struct Caso {
        Testo Riga;
        Testo Voci; // "|" for Chr(13)
    };
    const Caso casi[] = {
        {"Form2.Show", "*    FORM2|"},
        {"  Form2.Show  ", "*    FORM2|"},
        {"Form2.Show 'x", "*    FORM2|"},
        {"Form2.Show vbModal, Me", "*    FORM2|"},
        {"Call x: Form2.Show", "*    CALL X: FORM2|"},
        {"If x Then Form2.Show", "*    IF X THEN FORM2|"},
        {"a.Show: b.Show", "*    A|"}, // the first hit only
        {"a.Show.Show", "*    A|"},
        {".Show", "*    |"},
        {"   .Show", "*    |"},
        {".Show.Show", "*    |"},
        {"a.ShowHelp", "*    A|"},
        {"s = \"b.Show\"", "*    S = \"B|"},
        {"a.show", ""},
        {"a.SHOW", ""},
        {"a.Sho", ""},
        {"a.show: b.Show", "*    A.SHOW: B|"},
        {"aShow", ""},
        {"a. Show", ""},
        {"'a.Show", ""},
        {"   'a.Show", ""},
        {"'", ""},
        {"\t'a.Show", "*    \t'A|"}, // a TAB is no blank, so no comment either
        {"x = 1 ' a.Show", "*    X = 1 ' A|"},
        {"Rem a.Show", "*    REM A|"},
        {"\ta.Show", "*    \tA|"},
        {"perch\xE9.Show", "*    PERCH\xC9|"},
        {"\xF7\xFF\x9C.Show", "*    \xF7\x9F\x8C|"}, // the division sign has no capital
        {"a\nb.Show", "*    A\nB|"},                 // a lone LF ends no line
        {Testo(200, 'x') + ".Show", "*    " + Testo(200, 'X') + "|"},
        {"", ""},
        {"     ", ""},
    };
    for (const Caso& caso : casi) {
        for (const char* fine : {"", "\r\n", "\r"}) {
            Banco b;
            b.Raccogli(caso.Riga + fine);
            Testo voci = caso.Voci;
            std::replace(voci.begin(), voci.end(), '|', '\r');
            EXPECT_EQ(b.S.ElencoShow.Voci, voci) << caso.Riga;
            EXPECT_EQ(b.S.TotaleRighe, caso.Riga.empty() && *fine == '\0' ? 0 : 1) << caso.Riga;
            EXPECT_FALSE(b.S.Canale.Aperto(1));
        }
    }
}

TEST(RaccogliShow, TutteLeRigheContanoEIDoppioniRestano) {
    Banco b;
    b.Raccogli("b.Show\r\n\r\n'c.Show\r\na.Show\r   \r\nb.Show\r\nx\ny.Show");
    EXPECT_EQ(b.S.TotaleRighe, 7);
    EXPECT_EQ(b.S.ElencoShow.Voci, "*    B\r*    A\r*    B\r*    X\nY\r");
}

TEST(RaccogliShow, FileVuoto) {
    Banco b;
    b.S.ElencoShow.Voci = "*    VECCHIO\r";
    b.S.ElencoShow.Presi = 3;
    b.Raccogli("");
    EXPECT_EQ(b.S.TotaleRighe, 0);
    EXPECT_EQ(b.S.ElencoShow.Voci, "");
    EXPECT_EQ(b.S.ElencoShow.Resto(), "");
    EXPECT_FALSE(b.S.Canale.Aperto(1));
}

// The first pass in its simplest form: a line, its end, the next.
void ConfrontaPassata(const Testo& bytes) {
    Testo voci;
    Lungo righe = 0;
    for (std::size_t da = 0; da < bytes.size(); ++righe) {
        const std::size_t fine = std::min(bytes.find('\r', da), bytes.size());
        const Vista riga = Trim(Vista(bytes).substr(da, fine - da));
        const std::size_t show = riga.find(".Show");
        if (!riga.starts_with('\'') && show != Vista::npos)
            voci += "*    " + UCase(riga.substr(0, show)) + '\r';
        da = bytes.compare(fine, 2, "\r\n") == 0 ? fine + 2 : fine + 1;
    }
    static Banco b;
    b.Raccogli(bytes);
    ASSERT_EQ(b.S.TotaleRighe, righe) << bytes.size();
    ASSERT_EQ(b.S.ElencoShow.Voci, voci) << bytes.size();
}

TEST(RaccogliShowIngenua, ACavalloDiOgniMisura) { // an entry at every place of what is read in one go
    for (const Vista fine : {"\r\n", "\r"})
        for (Lungo n = 0; n < 300; ++n) {
            ConfrontaPassata(Space(n) + "a.Show" + Testo(fine) + "b");
            ConfrontaPassata("x" + Testo(fine) + Space(n) + "a.Show" + Testo(300, 'y'));
            ConfrontaPassata(Testo(static_cast<std::size_t>(n), '\r') + "a.Show" + Testo(fine) +
                             Testo(300, 'y'));
            ConfrontaPassata(Testo(fine) + "'" + Testo(static_cast<std::size_t>(n), 'z') + ".Show" +
                             Testo(fine) + "w.Show");
            if (HasFatalFailure()) return;
        }
}

TEST(RaccogliShowIngenua, ACavalloDeiBlocchi) {
    const auto blocco = static_cast<Lungo>(Canali::Blocco);
    for (Lungo n = blocco - 140; n <= blocco + 4; ++n) {
        if (n > blocco - 120 && n < blocco - 8) continue;
        for (const Vista fine : {"\r\n", "\r", "\r\r\n", "\n\r"}) {
            Testo bytes;
            while (Len(bytes) < n - 50) bytes += "riga" + Testo(fine);
            bytes.resize(static_cast<std::size_t>(n), ' ');
            ConfrontaPassata(bytes + Testo(fine) + "a.Show" + Testo(fine) + Testo(300, 'y') + Testo(fine));
            ConfrontaPassata(bytes + "a.Show" + Testo(fine));
            ConfrontaPassata(bytes + Testo(fine));
            if (HasFatalFailure()) return;
        }
    }
}

TEST(RaccogliShowIngenua, FileACaso) {
    const Vista pezzi[] = {"\r\n", "\r\n", "\r", "\n", ".Show", ".Sho",   "w",
                           ".",    "'",    " ",  "x",  "\t",    "..Show", "\xE9"};
    std::mt19937 sorte(2711);
    for (int i = 0; i < 2000; ++i) {
        Testo bytes;
        for (std::size_t n = sorte() % 60; n > 0; --n) {
            bytes += pezzi[sorte() % std::size(pezzi)];
            if (sorte() % 4 == 0) bytes += Testo(sorte() % 200, 'q');
        }
        ConfrontaPassata(bytes);
        if (HasFatalFailure()) return;
    }
}

TEST(RaccogliShow, AggiungeATotaleRighe) { // the engine sets it to 0, not the scan
    Banco b;
    b.Disco.Metti("/p/x.bas", "a\r\nb\r\n");
    b.S.FileSorgente = "\\p\\x.bas";
    b.S.TotaleRighe = 40;
    RaccogliShow(b.S);
    EXPECT_EQ(b.S.TotaleRighe, 42);
}

TEST(RaccogliShow, FileAssente) {
    Banco b;
    b.S.FileSorgente = "\\p\\manca.bas";
    try {
        RaccogliShow(b.S);
        FAIL();
    } catch (const FineMotore& fine) {
        EXPECT_EQ(fine.Causa.Numero, 53);
    }
    b.S.FileSorgente = "\\p\\manca\\x.bas"; // 76, and the repair of FileUscita is no help
    b.S.FileUscita = "\\p\\appoggio\\manca\\x.txt";
    try {
        RaccogliShow(b.S);
        FAIL();
    } catch (const FineMotore& fine) {
        EXPECT_EQ(fine.Causa.Numero, 76);
    }
    EXPECT_EQ(b.S.FileUscita, "\\p\\Appoggio\\x.txt");
}

TEST(VoceShow, RiempieFinoA54) {
    struct Caso {
        Lungo Lunga;
        Testo Dietro;
    };
    const Caso casi[] = {
        {0, Space(54) + "*"},
        {1, Space(53) + "*"},
        {5, Space(49) + "*"},
        {52, "  *"},
        {53, " *"},
        {54, ""},
        {55, ""},
        {500, ""},
    };
    for (const Caso& caso : casi) {
        const Testo testo(static_cast<std::size_t>(caso.Lunga), 'X');
        ElencoShowFile elenco{testo + "\rY\r"};
        Testo voce = "vecchia";
        ASSERT_TRUE(VoceShow(elenco, voce));
        EXPECT_EQ(voce, testo + caso.Dietro) << caso.Lunga;
        EXPECT_EQ(elenco.Resto(), "Y\r");
        ASSERT_TRUE(VoceShow(elenco, voce));
        EXPECT_EQ(voce, "Y" + Space(53) + "*");
        EXPECT_EQ(elenco.Resto(), "");
        EXPECT_FALSE(VoceShow(elenco, voce));
    }
}

TEST(VoceShow, SenzaChr13NonPrendeNulla) {
    for (const Vista resto : {"", "*    A", "\n"}) {
        ElencoShowFile elenco{Testo(resto)};
        Testo voce;
        EXPECT_FALSE(VoceShow(elenco, voce));
        EXPECT_EQ(elenco.Resto(), resto);
    }
}

TEST(VoceShow, DallaPrimaPassata) {
    Banco b;
    b.Raccogli(".Show\r\n" + Testo(48, 'a') + ".Show\r\n" + Testo(49, 'b') + ".Show\r\n");
    Testo voce;
    ASSERT_TRUE(VoceShow(b.S.ElencoShow, voce));
    EXPECT_EQ(voce, "*" + Space(53) + "*");
    ASSERT_TRUE(VoceShow(b.S.ElencoShow, voce)); // 53 bytes: one blank and the star
    EXPECT_EQ(voce, "*    " + Testo(48, 'A') + " *");
    ASSERT_TRUE(VoceShow(b.S.ElencoShow, voce)); // 54: neither
    EXPECT_EQ(voce, "*    " + Testo(49, 'B'));
    EXPECT_FALSE(VoceShow(b.S.ElencoShow, voce));
}

} // namespace

} // namespace morvella

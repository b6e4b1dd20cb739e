// SPDX-License-Identifier: MIT
#include "rewriter/banco.h"

namespace morvella {

namespace {

using namespace prove;

// --- the steps of the margin, from every margin ---------------------------------------------

struct Chiusa {
    Lungo M, Riga, Resta;      // the close step
    Lungo RigaWith, RestaWith; // that of End With
};

// clang-format off
constexpr Chiusa Chiuse[] = {
    { 0,  5,  6,   6,  6},
    { 1,  5,  6,   6,  6},
    { 2,  5,  6,   6,  6},
    { 3,  5,  6,   6,  6},
    { 4,  5,  6,   6,  6},
    { 5,  5,  6,   6,  6},
    { 6,  5,  6,   5,  5}, // the one margin from which End With leaves 5
    { 7,  6,  6,   6,  6},
    { 8,  7,  6,   7,  6},
    { 9,  8,  6,   8,  6},
    {10,  9,  6,   9,  6},
    {11, 10,  6,  10,  6},
    {12, 11,  6,  11,  6},
    {13, 12,  6,  12,  6},
    {14, 13,  7,  13,  7},
    {15, 14,  8,  14,  8},
    {16, 15,  9,  15,  9},
    {17, 16, 10,  16, 10},
    {18, 17, 11,  17, 11},
    {19, 18, 12,  18, 12},
    {20, 19, 13,  19, 13},
};
// clang-format on

TEST(Margine, Chiude) {
    for (const Vista riga : {"End If", "#End If", "Next i", "End Select", "Loop", "Whend"})
        for (const Chiusa& c : Chiuse) {
            BancoRighe b(c.M);
            EXPECT_EQ(b.Una(riga), Linea(5 + c.Riga, riga) + "\r\n") << riga << c.M;
            EXPECT_EQ(b.S.Margine, Space(c.Resta)) << riga << c.M;
            EXPECT_EQ(b.S.StoriaBlocchi, "00") << riga;
        }
}

TEST(Margine, EndWith) {
    for (const Chiusa& c : Chiuse) {
        BancoRighe b(c.M);
        EXPECT_EQ(b.Una("End With"), Linea(5 + c.RigaWith, "End With") + "\r\n") << c.M;
        EXPECT_EQ(b.S.Margine, Space(c.RestaWith)) << c.M;
    }
}

TEST(Margine, Apre) { // in front of the line a blank one; the line at m + 5, the margin m + 6
    const std::pair<Vista, Vista> righe[] = {{"If x Then", "0003"},
                                             {"#If x Then", "0004"},
                                             {"For i = 1 To 3", "0005"},
                                             {"For Each x In y", "0005"},
                                             {"With x", "0006"},
                                             {"Select Case x", "0007"},
                                             {"Do", "0009"},
                                             {"Do While x", "0009"},
                                             {"While x", "0009"},
                                             {"If x Then y", "0003"}};
    for (const auto& [riga, storia] : righe)
        for (Lungo m = 0; m <= 20; ++m) {
            BancoRighe b(m);
            EXPECT_EQ(b.Una(riga), "\r\n" + Linea(m + 10, riga)) << riga << m;
            EXPECT_EQ(b.S.Margine, Space(m + 6)) << riga << m;
            EXPECT_EQ(b.S.StoriaBlocchi, storia) << riga;
        }
}

TEST(Margine, Medio) { // one step back and in again; below 6 the margin becomes 6
    for (const Vista riga : {"Else", "ElseIf x Then", "#Else", "#ElseIf x Then", "Case 1", "Case Else"})
        for (Lungo m = 0; m <= 20; ++m) {
            BancoRighe b(m);
            const Testo davanti = riga.starts_with("Case") ? "\r\n" : "";
            EXPECT_EQ(b.Una(riga), davanti + Linea(m < 6 ? 10 : m + 4, riga)) << riga << m;
            EXPECT_EQ(b.S.Margine, Space(m < 6 ? 6 : m)) << riga << m;
            EXPECT_EQ(b.S.StoriaBlocchi, "00") << riga;
        }
}

TEST(Margine, LeTreFini) {
    for (Lungo m = 0; m <= 20; ++m) {
        BancoRighe b(m);
        EXPECT_EQ(b.Una("End Sub"), Linea(5 + m, "End Sub") + "\r\n");
        EXPECT_EQ(b.S.Margine, "");
        b.S.Margine = Space(m);
        EXPECT_EQ(b.Una("End Function"), Linea(5 + m, "End Function") + "\r\n");
        EXPECT_EQ(b.S.Margine, Space(5));
        b.S.Margine = Space(m);
        EXPECT_EQ(b.Una("End Property"), Linea(5 + m, "End Property")); // no blank line
        EXPECT_EQ(b.S.Margine, Space(3));
        EXPECT_EQ(b.S.StoriaBlocchi, "00081012");
    }
}

TEST(Margine, AlMargineESenzaEffetto) {
    for (const Vista riga : {"End", "End Type", "End Enum", "EndProperty", "endIndex = 3", "End  If",
                             "Exit Do", "Exit For", "Exit Sub"})
        for (Lungo m = 0; m <= 20; ++m) {
            BancoRighe b(m);
            EXPECT_EQ(b.Una(riga), Linea(5 + m, riga)) << riga;
            EXPECT_EQ(b.S.Margine, Space(m)) << riga;
            EXPECT_EQ(b.S.StoriaBlocchi, "00") << riga;
        }
}

TEST(Margine, AltraCinqueOltre) {
    for (const Vista riga : {"x = 1", "Exit Function", "Exit Property", "Wend", "Friend Sub a()",
                             "Static Function f()", "Private Property Get p()", "Type X", "Enum X",
                             "Errore:", "'x", "Rem x", "\tIf x Then", "_", "If", "\t", "\xA0", "Attribut"})
        for (Lungo m = 0; m <= 20; ++m) {
            BancoRighe b(m);
            EXPECT_EQ(b.Una(riga), Linea(10 + m, riga)) << riga;
            EXPECT_EQ(b.S.Margine, Space(m)) << riga;
            EXPECT_EQ(b.S.StoriaBlocchi, "00") << riga;
        }
}

// --- banners ----------------------------------------------------------------------------------

TEST(Riquadri, AlByte) {
    const Testo s114(114, '*'), b112(112, ' '), p10(10, ' ');
    const Testo sub = p10 + "'" + s114 + "\r\n" + p10 + "'*" + b112 + "*\r\n" + p10 + "Sub a()\r\n" + p10 +
                      "'*" + b112 + "*\r\n" + p10 + "'" + s114 + "\r\n";
    const Testo s101(101, '*'), b99(99, ' '), p8(8, ' ');
    const Testo prop = p8 + "'" + s101 + "\r\n" + p8 + "'*" + b99 + "*\r\n             Property Get p()\r\n" +
                       p8 + "'*" + b99 + "*\r\n" + p8 + "'" + s101 + "\r\n";
    const Testo s112(112, '*'), b110(110, ' '), p12(12, ' ');
    const Testo tipo = p12 + "'" + s112 + "\r\n" + p12 + "'*" + b110 + "*\r\n" + p12 + "Private Type X\r\n" +
                       p12 + "'*" + b110 + "*\r\n" + p12 + "'" + s112 + "\r\n";
    EXPECT_EQ(BancoRighe(7).Una("Sub a()"), sub);
    EXPECT_EQ(BancoRighe(7).Una("Property Get p()"), prop);
    EXPECT_EQ(BancoRighe(7).Una("Private Type X"), tipo);
    EXPECT_EQ(Len(sub), 4 * (10 + 115 + 2) + 10 + 7 + 2);
    EXPECT_EQ(Len(prop), 4 * (8 + 102 + 2) + 13 + 16 + 2);
    EXPECT_EQ(Len(tipo), 4 * (12 + 113 + 2) + 12 + 14 + 2);
}

TEST(Riquadri, DaOgniMargine) {
    for (Lungo m = 0; m <= 20; ++m) {
        for (const Vista riga : {"Sub a()", "Private Sub a()", "Public Sub a()", "subtotal = 1"}) {
            BancoRighe b(m);
            EXPECT_EQ(b.Una(riga), RiquadroSub(riga));
            EXPECT_EQ(b.S.Margine, Space(5));
            EXPECT_EQ(b.S.StoriaBlocchi, "0001");
        }
        for (const Vista riga :
             {"Function a()", "Private Function a()", "Public Function a()", "Functional(x)"}) {
            BancoRighe b(m);
            EXPECT_EQ(b.Una(riga), RiquadroSub(riga));
            EXPECT_EQ(b.S.Margine, Space(5));
            EXPECT_EQ(b.S.StoriaBlocchi, "0002");
        }
        for (const Vista riga : {"Property Get p()", "Public Property Let p(v)", "Friend Property Set p(v)",
                                 "PropertyBag.Read"}) {
            BancoRighe b(m);
            EXPECT_EQ(b.Una(riga), RiquadroProperty(riga));
            EXPECT_EQ(b.S.Margine, Space(3));
            EXPECT_EQ(b.S.StoriaBlocchi, "0011");
        }
        for (const Vista riga : {"Private Type X", "Public Type X", "Private TypeCode As Long"}) {
            BancoRighe b(m);
            EXPECT_EQ(b.Una(riga), RiquadroType(m, riga));
            EXPECT_EQ(b.S.Margine, Space(m));
            EXPECT_EQ(b.S.StoriaBlocchi, "00");
        }
    }
}

TEST(Riquadri, RigaLungaNonSiTaglia) {
    const Testo lunga = "Sub a(" + Testo(300000, 'x') + ")";
    EXPECT_EQ(BancoRighe(0).Una(lunga), RiquadroSub(lunga));
    const Testo altra(300000, 'x');
    EXPECT_EQ(BancoRighe(0).Una(altra), Linea(10, altra));
}

// --- the worked example ---------------------------------------------------------------------

TEST(Indenta, EsempioSvolto) {
    enum Vuota { Nessuna, Davanti, Dietro, Sub, Property };
    struct Caso {
        Vista Riga;
        Lungo Blank;
        Vuota Extra;
        Lungo Margine;
    };
    // clang-format off
    const Caso casi[] = {
        {"Option Explicit",  15, Nessuna,   5},
        {"Sub Prova()",      10, Sub,       5},
        {"x = 1",            15, Nessuna,   5},
        {"If x Then",        15, Davanti,  11},
        {"y = 2",            21, Nessuna,  11},
        {"If y Then",        21, Davanti,  17},
        {"z = 3",            27, Nessuna,  17},
        {"Else",             21, Nessuna,  17},
        {"z = 4",            27, Nessuna,  17},
        {"End If",           21, Dietro,   10},
        {"w = 1",            20, Nessuna,  10},
        {"End If",           14, Dietro,    6},
        {"v = 1",            16, Nessuna,   6},
        {"For i = 1 To 3",   16, Davanti,  12},
        {"With q",           22, Davanti,  18},
        {".a = 1",           28, Nessuna,  18},
        {"End With",         22, Dietro,   11},
        {"Next",             15, Dietro,    6},
        {"Select Case x",    16, Davanti,  12},
        {"Case 1",           16, Davanti,  12},
        {"a = 1",            22, Nessuna,  12},
        {"Case Else",        16, Davanti,  12},
        {"a = 2",            22, Nessuna,  12},
        {"End Select",       16, Dietro,    6},
        {"Exit Sub",         11, Nessuna,   6},
        {"End Sub",          11, Dietro,    0},
        {"b = 1",            10, Nessuna,   0},
        {"Function F()",     10, Sub,       5},
        {"If a Then b",      15, Davanti,  11},
        {"c = 1",            21, Nessuna,  11},
        {"End Function",     16, Dietro,    5},
        {"d = 1",            15, Nessuna,   5},
        {"Property Get P()", 13, Property,  3},
        {"End Property",      8, Nessuna,   3},
        {"e = 1",            13, Nessuna,   3},
    };
    // clang-format on
    BancoRighe b;
    for (const Caso& caso : casi) {
        Testo atteso = Linea(caso.Blank, caso.Riga);
        if (caso.Extra == Davanti) atteso = "\r\n" + atteso;
        if (caso.Extra == Dietro) atteso += "\r\n";
        if (caso.Extra == Sub) atteso = RiquadroSub(caso.Riga);
        if (caso.Extra == Property) atteso = RiquadroProperty(caso.Riga);
        EXPECT_EQ(b.Una(caso.Riga), atteso) << caso.Riga;
        EXPECT_EQ(b.S.Margine, Space(caso.Margine)) << caso.Riga;
        EXPECT_EQ(b.S.Numero, Space(5));
    }
    EXPECT_EQ(b.S.StoriaBlocchi, "00"
                                 "01"
                                 "03"
                                 "03"
                                 "05"
                                 "06"
                                 "07"
                                 "08"
                                 "02"
                                 "03"
                                 "10"
                                 "11"
                                 "12");
}

TEST(Indenta, StoriaBlocchi) {
    BancoRighe b;
    b.Tutte({"Sub a()", "If b Then", "End If", "End Sub"});
    EXPECT_EQ(b.S.StoriaBlocchi, "00010308");
    b.Tutte(
        {"#If a Then", "#Else", "#End If", "Next", "Case 1", "Loop", "End With", "End Select", "Else", "x"});
    EXPECT_EQ(b.S.StoriaBlocchi, "0001030804");
}

// --- edge cases -----------------------------------------------------------------------------

TEST(Indenta, RigheVuoteDelSorgente) {
    BancoRighe b;
    EXPECT_EQ(b.Tutte({"If x Then", "", "y", "", "End If", "", "End If", ""}),
              "\r\n" + Linea(15, "If x Then") + Linea(21, "y") + Linea(15, "End If") + "\r\n" +
                  Linea(10, "End If") + "\r\n");
}

TEST(Indenta, ChiusureInPiu) { // they meet the floor
    BancoRighe b(5);
    EXPECT_EQ(b.Tutte({"Else", "End Sub", "End If", "End If", "End If"}),
              Linea(10, "Else") + Linea(11, "End Sub") + "\r\n" + Linea(10, "End If") + "\r\n" +
                  Linea(10, "End If") + "\r\n" + Linea(10, "End If") + "\r\n");
    EXPECT_EQ(b.M(), 6);
    EXPECT_EQ(b.Tutte({"End With", "End With", "End With"}), Linea(10, "End With") + "\r\n" +
                                                                 Linea(11, "End With") + "\r\n" +
                                                                 Linea(10, "End With") + "\r\n");
    EXPECT_EQ(b.M(), 5);
}

TEST(Indenta, BlocchiAperti) { // a deep margin up to the end of the procedure, and no error line
    for (const Vista fine : {"End Sub", "End Function", "End Property"}) {
        BancoRighe b(5);
        const Testo dopo = fine == "End Property" ? "" : "\r\n";
        EXPECT_EQ(b.Tutte({"If a Then b", "If c Then d", "While e", "Wend", "Do", "x", fine}),
                  "\r\n" + Linea(15, "If a Then b") + "\r\n" + Linea(21, "If c Then d") + "\r\n" +
                      Linea(27, "While e") + Linea(33, "Wend") + "\r\n" + Linea(33, "Do") + Linea(39, "x") +
                      Linea(34, fine) + dopo);
        EXPECT_EQ(b.M(), fine == "End Sub" ? 0 : fine == "End Function" ? 5 : 3);
    }
}

TEST(Indenta, LaRigaDiErroreNonVieneMai) {
    for (Lungo m = 0; m <= 60; m += 3)
        for (const Vista fine : {"End Sub", "End Function", "End Property"}) {
            BancoRighe b(m);
            const Testo scritto = b.Una(fine);
            EXPECT_EQ(InStr(1, scritto, "#"), 0);
            EXPECT_TRUE(scritto.starts_with(Linea(m + 5, fine)));
        }
}

TEST(Indenta, UnaRigaSolaEUnEndIfVicino) { // by arithmetic only
    BancoRighe b(5);
    EXPECT_EQ(b.Tutte({"If a Then b", "If c Then", "d", "End If", "e"}),
              "\r\n" + Linea(15, "If a Then b") + "\r\n" + Linea(21, "If c Then") + Linea(27, "d") +
                  Linea(21, "End If") + "\r\n" + Linea(20, "e"));
    EXPECT_EQ(b.M(), 10);
}

TEST(Indenta, TypeDietroLeTreFini) {
    const std::tuple<Vista, Lungo> casi[] = {{"End Sub", 5}, {"End Function", 10}, {"End Property", 8}};
    for (const auto& [fine, prefisso] : casi) {
        BancoRighe b(5);
        b.Una(fine);
        EXPECT_EQ(b.Tutte({"Private Type X", "a As Long", "End Type"}),
                  Riquadro(prefisso, 112, 110, prefisso, "Private Type X") +
                      Linea(prefisso + 5, "a As Long") + Linea(prefisso, "End Type"));
    }
}

TEST(Indenta, TesteSconosciute) { // no banner, no margin; the end sets the margin of its class
    BancoRighe b(5);
    EXPECT_EQ(b.Tutte({"Friend Sub a()", "x", "End Sub", "Private Property Get p()", "End Property", "y",
                       "Static Function f()", "End Function", "z"}),
              Linea(15, "Friend Sub a()") + Linea(15, "x") + Linea(10, "End Sub") + "\r\n" +
                  Linea(10, "Private Property Get p()") + Linea(5, "End Property") + Linea(13, "y") +
                  Linea(13, "Static Function f()") + Linea(8, "End Function") + "\r\n" + Linea(15, "z"));
}

TEST(Indenta, Commenti) {
    BancoRighe b(5);
    EXPECT_EQ(b.Tutte({"If a Then", "'x", "'* x", "'*", "' *x", "\t'* x", "'", "Errore:"}),
              "\r\n" + Linea(15, "If a Then") + Linea(21, "'x") + Linea(21, "' *x") + Linea(21, "\t'* x") +
                  Linea(21, "'") + Linea(21, "Errore:"));
}

TEST(Indenta, RigheContinuate) {
    BancoRighe b(5);
    EXPECT_EQ(b.Tutte({"x = a _", "+ b", "y = Iif( _", "if c, _", "d)"}),
              Linea(15, "x = a _") + Linea(15, "+ b") + Linea(15, "y = Iif( _") + "\r\n" +
                  Linea(15, "if c, _") + Linea(21, "d)"));
}

TEST(Indenta, SezioneDeiControlli) {
    BancoRighe b(5);
    EXPECT_EQ(b.Tutte({"VERSION 5.00", "Begin VB.Form F", "Caption = \"x\"", "", "BeginProperty Font",
                       "Name = \"y\"", "EndProperty", "SubItem = 1", "End"}),
              Linea(15, "VERSION 5.00") + Linea(15, "Begin VB.Form F") + Linea(15, "Caption = \"x\"") +
                  Linea(15, "BeginProperty Font") + Linea(15, "Name = \"y\"") + Linea(10, "EndProperty") +
                  RiquadroSub("SubItem = 1") + Linea(10, "End"));
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "shell/progetto.h"

#include <gtest/gtest.h>

#include "shell/banco.h"

namespace morvella {

namespace {

using prove::Banco;
using prove::NumeroDi;

// In place of a row: the line adds none.
constexpr Vista Nessuna = "<nessuna>";

TEST(Progetto, VoceDiProgetto) {
    struct Caso {
        Vista Linea, Riga;
    };
    // clang-format off
    constexpr Caso Casi[] = {
        {"Form=frmMain.frm", "frmMain.frm"},
        {"Module=Module1; Module1.bas", "Module1.bas"},
        {"Class=Class1; Class1.cls", "Class1.cls"},

        {"Form=x.frm", "x.frm"},
        {"Form1=x", "=x"},                 // from byte 6, whatever byte 5 is
        {"Form =x.frm", "=x.frm"},
        {"Form", ""},                      // an empty row is a row
        {"Form=", ""},
        {"Form=   ", ""},
        {"Form=  x.frm  ", "x.frm"},
        {"Form=a;b.frm", "a;b.frm"},       // ";" is nothing in a form's line
        {"Form=..\\Comune\\x.frm", "..\\Comune\\x.frm"},
        {"Format=x", "t=x"},               // any word that begins so
        {"FormModule=a; b", "odule=a; b"}, // the first test decides
        {"Form=\tx.frm", "\tx.frm"},       // only blanks are trimmed

        {"Module=Name;file.bas", "file.bas"},
        {"Module=A; B; c.bas", "B; c.bas"}, // the first ";"
        {"Module=x.bas", "Module=x.bas"},   // without ";" the whole line
        {"Module  ", "Module"},
        {"Module", "Module"},
        {"Modules=a; b.bas", "b.bas"},
        {"Module=A;", ""},
        {"Module=A;   ", ""},
        {"Module=A;\tb.bas", "\tb.bas"},
        {"Module=A; ..\\b.bas", "..\\b.bas"},

        {"Class=Name;file.cls", "file.cls"},
        {"Class=A; B; c.cls", "B; c.cls"},
        {"Class=x.cls", "Class=x.cls"},
        {"Class", "Class"},
        {"Classe=a; b", "b"},
        {"Class=A;", ""},

        {"Form=x.frm\nModule=A; b.bas", "x.frm\nModule=A; b.bas"}, // a file of LF ends is one line
        {"Module=A; b.bas\nForm=x.frm", "b.bas\nForm=x.frm"},

        {"form=x.frm", Nessuna},
        {"FORM=x.frm", Nessuna},
        {"module=A; b.bas", Nessuna},
        {"class=A; b.cls", Nessuna},
        {" Form=x.frm", Nessuna},          // no trimming before the tests
        {"\tForm=x.frm", Nessuna},
        {"For=x", Nessuna},
        {"Modul=a; b", Nessuna},
        {"Clas=a; b", Nessuna},
        {"Designer=x.dsr", Nessuna},
        {"UserControl=x.ctl", Nessuna},
        {"UserDocument=x.dob", Nessuna},
        {"PropertyPage=x.pag", Nessuna},
        {"Reference=*\\G{0}#1; x.dll", Nessuna},
        {"Object={0}; x.ocx", Nessuna},
        {"Type=Exe", Nessuna},
        {"Startup=\"Form1\"", Nessuna},
        {"IconForm=\"frmMain\"", Nessuna},
        {"", Nessuna},
        {";", Nessuna},
    };
    // clang-format on
    for (const Caso& c : Casi) EXPECT_EQ(VoceDiProgetto(c.Linea).value_or(Nessuna), c.Riga) << c.Linea;
}

TEST(Progetto, Legge) {
    Banco b;
    b.Scegli("Type=Exe\r\nForm=Zeta.frm\r\nModule=B; beta.bas\r\nClass=A; Alfa.cls\r\nStartup=\"Zeta\"\r\n");
    b.S.File1.AddItem("di prima");
    LeggiProgetto(b.S);
    EXPECT_EQ(b.Voci(), (std::vector<Testo>{"Alfa.cls", "beta.bas", "Zeta.frm"})); // not as in the file
    EXPECT_EQ(b.Selezione(), "000");
    EXPECT_FALSE(b.S.Canale.Aperto(1));
    LeggiProgetto(b.S); // anew, and not twice
    EXPECT_EQ(b.S.File1.ListCount(), 3);
}

TEST(Progetto, FineRiga) {
    struct Caso {
        const char* Bytes;
        bool Lf;
        std::vector<Testo> Voci;
    };
    const Caso casi[] = {
        {"", false, {}},
        {"\r\n\r\n", false, {}},
        {"Form=a.frm", false, {"a.frm"}}, // a last line without an end
        {"Form=a.frm\rForm=b.frm\r\n", false, {"a.frm", "b.frm"}},
        {"Form=a.frm\nForm=b.frm\n", false, {"a.frm\nForm=b.frm\n"}}, // one long row
        {"Type=Exe\nForm=a.frm\nForm=b.frm\n", false, {}},            // one long line of no use
        {"Type=Exe\nForm=a.frm\nForm=b.frm\n", true, {"a.frm", "b.frm"}},
    };
    for (const Caso& c : casi) {
        Banco b;
        b.Scegli(c.Bytes);
        b.S.Canale.FineRigaLf = c.Lf;
        LeggiProgetto(b.S);
        EXPECT_EQ(b.Voci(), c.Voci) << c.Bytes;
    }
}

TEST(Progetto, NonSiApre) {
    Banco b;
    b.Scegli("Form=a.frm\r\n");
    LeggiProgetto(b.S);
    b.Disco.Cancella("/p/Prova.vbp");
    EXPECT_EQ(NumeroDi([&] { return LeggiProgetto(b.S), 0; }), 53); // it vanished from the list
    EXPECT_EQ(b.S.File1.ListCount(), 0);                            // emptied before the opening
    EXPECT_FALSE(b.S.Canale.Aperto(1));
    b.S.File1Leggi.ListIndex = -1; // none is chosen: the path is the directory's
    EXPECT_EQ(NumeroDi([&] { return LeggiProgetto(b.S), 0; }), 75);
    b.S.File1Leggi.ListIndex = 1;
    b.Disco.Cancella("/p");
    EXPECT_EQ(NumeroDi([&] { return LeggiProgetto(b.S), 0; }), 76);
}

TEST(Progetto, NomeConAccenti) {
    Banco b;
    b.Scegli("Form=Perch\xE9.frm\r\n", "Quantit\xE0.vbp");
    ASSERT_TRUE(b.Disco.Esiste("/p/Quantità.vbp"));
    LeggiProgetto(b.S);
    EXPECT_EQ(b.Voci(), std::vector<Testo>{"Perch\xE9.frm"});
}

// ------------------------------------------------------------------ the order of the rows

TEST(File1, Ordine) {
    struct Caso {
        std::vector<Testo> Aggiunte, Attese;
    };
    const Caso casi[] = {
        {{"b", "a", "c"}, {"a", "b", "c"}},
        {{"B", "a", "C"}, {"a", "B", "C"}}, // without regard to case
        {{"a", "A", "a"}, {"a", "A", "a"}}, // equal rows as they came
        {{"A", "a", "A"}, {"A", "a", "A"}},
        {{"x.bas", "x.bas"}, {"x.bas", "x.bas"}},                   // the same file twice
        {{"a_b", "aB", "a.b", "a b"}, {"a b", "a.b", "a_b", "aB"}}, // "_" is below the small letters
        {{"Z", "[", "_"}, {"[", "_", "Z"}},                         // folded, Z comes after them
        {{"ab", "a", ""}, {"", "a", "ab"}},
        {{"a10", "a9", "a1"}, {"a1", "a10", "a9"}},                     // bytes, not numbers
        {{"\xC8", "\xE8", "z", "\xE0"}, {"z", "\xE0", "\xC8", "\xE8"}}, // after z; È and è are equal
        {{"..\\x", "x", "sub\\x"}, {"..\\x", "sub\\x", "x"}},
        {{"\x80", "z", "~"}, {"z", "~", "\x80"}}, // bytes from 128 on are high, not negative
    };
    for (const Caso& c : casi) {
        Banco b;
        for (const Testo& voce : c.Aggiunte) b.S.File1.AddItem(voce);
        EXPECT_EQ(b.Voci(), c.Attese);
    }
}

TEST(File1, MolteRigheUguali) {
    // Sixty-four spellings of one row: they stay as they came.
    Banco b;
    std::vector<Testo> attese;
    for (unsigned i = 0; i < 64; ++i) {
        Testo voce;
        for (unsigned bit = 0; bit < 6; ++bit) voce += ((i * 37) >> bit) & 1 ? 'A' : 'a';
        attese.push_back(voce);
        b.S.File1.AddItem(voce);
    }
    EXPECT_EQ(b.Voci(), attese);
}

TEST(File1, AggiungereDopoAverGuardato) {
    Banco b;
    for (const char* voce : {"d", "b", "B"}) {
        b.S.File1.AddItem(voce);
        EXPECT_EQ(b.S.File1.List(b.S.File1.ListCount() - 1), "d");
    }
    EXPECT_EQ(b.Voci(), (std::vector<Testo>{"b", "B", "d"}));
    SelezionaFile1(b.S, 2, true);
    b.S.File1.AddItem("a"); // the selection goes with its row, and a new row has none
    EXPECT_EQ(b.Voci(), (std::vector<Testo>{"a", "b", "B", "d"}));
    EXPECT_EQ(b.Selezione(), "0001");
    b.S.File1.Clear();
    EXPECT_EQ(b.S.File1.ListCount(), 0);
    EXPECT_EQ(NumeroDi([&] { return b.S.File1.List(0); }), 5);
    EXPECT_EQ(NumeroDi([&] { return b.S.File1.Selected(-1); }), 5);
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "scan/testa.h"

#include <gtest/gtest.h>

#include <random>

#include "sostegno/disco_finto.h"
#include "sostegno/finestra_finta.h"

namespace morvella {

namespace {

struct Banco {
    prove::DiscoFinto Disco;
    prove::FinestraFinta Fronte;
    Stato S{Disco, Fronte};

    Banco() { CambiaDir1(S, "/p"); }

    // The first pass over a file of these bytes.
    void Raccogli(const Testo& bytes) {
        Disco.Metti("/p/x.bas", bytes);
        S.FileSorgente = "\\p\\x.bas";
        S.TotaleRighe = 0;
        RaccogliShow(S);
    }
};

// --- the first pass -------------------------------------------------------------------------

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

// --- the head state at the start of a file --------------------------------------------------

TEST(IniziaTesta, SecondoIlNome) {
    struct Caso {
        Vista Nome;
        bool Form;
    };
    const Caso casi[] = {
        {"X.frm", true},  {"X.FRM", true},  {"X.Frm", true},   {"\\p\\x.fRm", true}, {".frm", true},
        {"X.frx", false}, {"X.bas", false}, {"X.cls", false},  {"frm", false},       {"Xfrm", false},
        {"", false},      {"f", false},     {"X.frm ", false}, {"X.frm.bas", false},
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.S.FileSorgente = caso.Nome;
        EXPECT_EQ(SorgenteForm(b.S), caso.Form) << caso.Nome;
        for (int prima = 0; prima <= 7; ++prima) {
            b.S.StatoTesta = prima;
            IniziaTestaRiordina(b.S); // every file afresh
            EXPECT_EQ(b.S.StatoTesta, caso.Form ? 7 : 0) << caso.Nome;
            b.S.StatoTesta = prima;
            IniziaTestaStruttura(b.S); // as the last file left it
            EXPECT_EQ(b.S.StatoTesta, caso.Form ? 7 : prima) << caso.Nome;
        }
    }
}

// --- the head state of the rewriter ---------------------------------------------------------

constexpr Lungo Intatta = -7; // ContaRighe is not touched

struct Passo {
    int Stato;
    bool Scritta;
    bool Catena;
    bool Testata;
    Lungo ContaRighe;
    bool operator==(const Passo&) const = default;
};

void PrintTo(const Passo& p, std::ostream* su) {
    *su << "{stato " << p.Stato << ", scritta " << p.Scritta << ", catena " << p.Catena << ", testata "
        << p.Testata << ", conta " << p.ContaRighe << "}";
}

// One line in a given state, with a header text to be seen.
Passo UnPasso(int prima, const Testo& linea) {
    Banco b;
    b.S.Check1 = 1;
    b.S.Text1 = "'TESTATA";
    b.S.StatoTesta = prima;
    b.S.ContaRighe = Intatta;
    b.S.Canale.OpenOutput(2, "\\p\\u.txt");
    Passo passo{};
    passo.Catena = AvanzaTestaRiordina(b.S, linea);
    b.S.Canale.Close(2);
    passo.Stato = b.S.StatoTesta;
    passo.ContaRighe = b.S.ContaRighe;
    const Testo& scritto = b.Disco.Leggi("/p/u.txt");
    passo.Scritta = scritto.starts_with(linea + "\r\n") && scritto != "'TESTATA\r\n";
    passo.Testata = scritto.ends_with("'TESTATA\r\n");
    EXPECT_EQ(scritto, (passo.Scritta ? linea + "\r\n" : Testo()) + (passo.Testata ? "'TESTATA\r\n" : ""))
        << linea;
    if (passo.Catena) {
        EXPECT_EQ(b.S.Riga, Trim(linea)) << linea;
    }
    return passo;
}

TEST(TestaRiordina, OgniRigaDellaTavola) {
    struct Caso {
        Testo Linea;
        int Da, A; // states before
        Passo Atteso;
    };
    constexpr int Resta = -1; // the state after is the state before
    // clang-format off
    const Caso casi[] = {
        // VB_Exposed at column 1: ends the head, whatever the state
        {"Attribute VB_Exposed = False",     0, 7, {7, true,  false, true,  1}},
        {"Attribute VB_Exposed = True",      0, 7, {7, true,  false, true,  1}},
        {"Attribute VB_Exposed",             0, 7, {7, true,  false, true,  1}},
        {"Attribute vb_EXPOSED=1 ",          0, 7, {7, true,  false, true,  1}},
        {"Attribute VB_ExposedToo = False",  0, 7, {7, true,  false, true,  1}},
        // the same indented: 5, and gone
        {"  Attribute VB_Exposed = False",   0, 7, {5, false, false, false, Intatta}},
        {" Attribute VB_EXPOSED",            0, 7, {5, false, false, false, Intatta}},
        // another Attribute line at column 1
        {"Attribute VB_Name = \"x\"",        0, 7, {1, true,  false, false, 0}},
        {"Attribute",                        0, 7, {1, true,  false, false, 0}},
        {"AttributeFlag = 1",                0, 7, {1, true,  false, false, 0}},
        {"Attribute VB_Expose = False",      0, 7, {1, true,  false, false, 0}},
        {"Attribute  VB_Exposed = False",    0, 7, {1, true,  false, false, 0}},
        {"Attribute x.VB_VarUserMemId = 0",  0, 7, {1, true,  false, false, 0}},
        {"Attribute VB_Name = 1   ",         0, 7, {1, true,  false, false, 0}},
        // and indented
        {"  Attribute VB_Name = \"x\"",      0, 7, {0, true,  false, false, Intatta}},
        {"    Attribute x.VB_VarUserMemId",  0, 7, {0, true,  false, false, Intatta}},
        // option, in any case
        {"Option Explicit",                  0, 6, {7, false, true,  false, Intatta}},
        {"option explicit",                  0, 6, {7, false, true,  false, Intatta}},
        {"   OPTION Compare Text",           0, 6, {7, false, true,  false, Intatta}},
        {"Option1.Value = True",             0, 6, {7, false, true,  false, Intatta}},
        {"Optional",                         0, 6, {7, false, true,  false, Intatta}},
        {"Option",                           0, 6, {7, false, true,  false, Intatta}},
        {"Option Explicit",                  7, 7, {7, false, true,  false, Intatta}},
        {"Optio Explicit",                   0, 5, {Resta, true, false, false, Intatta}},
        {"\tOption Explicit",                0, 5, {Resta, true, false, false, Intatta}},
        {"'Option Explicit",                 0, 5, {Resta, true, false, false, Intatta}},
        // "attribute vb" in another case: dropped from the code, raw in the head
        {"attribute vb_name = \"x\"",        7, 7, {7, false, false, false, Intatta}},
        {"ATTRIBUTE VB_Name = \"x\"",        7, 7, {7, false, false, false, Intatta}},
        {"attribute vb",                     7, 7, {7, false, false, false, Intatta}},
        {"attribute vb_exposed = False",     7, 7, {7, false, false, false, Intatta}},
        {"attribute vb_name = \"x\"",        0, 5, {Resta, true, false, false, Intatta}},
        // VB_Exposed in another case counts nothing up: 5, and no header
        {"attribute vb_exposed = False",     0, 5, {5, true,  false, false, Intatta}},
        {"ATTRIBUTE VB_EXPOSED = False",     0, 5, {5, true,  false, false, Intatta}},
        {"  attribute vb_exposed = False",   0, 5, {5, false, false, false, Intatta}},
        // look-alikes in the code go on: indented, shorter
        {"  attribute vb_name = \"x\"",      7, 7, {7, false, true,  false, Intatta}},
        {"  attribute vb_exposed = False",   7, 7, {7, false, true,  false, Intatta}},
        {"attribute v",                      7, 7, {7, false, true,  false, Intatta}},
        {"attributevb_name",                 7, 7, {7, false, true,  false, Intatta}},
        {"\tAttribute VB_Exposed = False",   7, 7, {7, false, true,  false, Intatta}},
        {"'Attribute VB_Exposed = False",    7, 7, {7, false, true,  false, Intatta}},
        {"Attribut VB_Exposed = False",      7, 7, {7, false, true,  false, Intatta}},
        // any other line
        {"x = 1",                            7, 7, {7, false, true,  false, Intatta}},
        {"  x = 1  ",                        7, 7, {7, false, true,  false, Intatta}},
        {"",                                 7, 7, {7, false, true,  false, Intatta}},
        {"x = 1",                            0, 5, {Resta, true,  false, false, Intatta}},
        {"  x = 1  ",                        0, 5, {Resta, true,  false, false, Intatta}},
        {"",                                 0, 5, {Resta, true,  false, false, Intatta}},
        {"    ",                             0, 5, {Resta, true,  false, false, Intatta}},
        {"\tAttribute VB_Exposed = False",   0, 5, {Resta, true,  false, false, Intatta}},
        {"'* x",                             0, 5, {Resta, true,  false, false, Intatta}},
        {"' x",                              0, 5, {Resta, true,  false, false, Intatta}},
    };
    // clang-format on
    for (const Caso& caso : casi)
        for (int prima = caso.Da; prima <= caso.A; ++prima) {
            Passo atteso = caso.Atteso;
            if (atteso.Stato == Resta) atteso.Stato = prima;
            EXPECT_EQ(UnPasso(prima, caso.Linea), atteso) << prima << " <" << caso.Linea << ">";
        }
}

TEST(TestaRiordina, OgniPassaggioScriveLaTestata) {
    Banco b;
    b.S.Check1 = 1;
    b.S.Text1 = "'T";
    b.S.Canale.OpenOutput(2, "\\p\\u.txt");
    for (int i = 0; i < 2; ++i) EXPECT_FALSE(AvanzaTestaRiordina(b.S, "Attribute VB_Exposed = False"));
    b.S.Check1 = 0;
    EXPECT_FALSE(AvanzaTestaRiordina(b.S, "Attribute VB_Exposed = False"));
    b.S.Check1 = 2; // greyed: on at 1 and at nothing else
    EXPECT_FALSE(AvanzaTestaRiordina(b.S, "Attribute VB_Exposed = False"));
    b.S.Check1 = 1;
    b.S.Text1 = "";
    EXPECT_FALSE(AvanzaTestaRiordina(b.S, "Attribute VB_Exposed = False"));
    b.S.Text1 = " ";
    EXPECT_FALSE(AvanzaTestaRiordina(b.S, "Attribute VB_Exposed = False"));
    b.S.Canale.Close(2);
    const Testo esposto = "Attribute VB_Exposed = False\r\n";
    EXPECT_EQ(b.Disco.Leggi("/p/u.txt"),
              esposto + "'T\r\n" + esposto + "'T\r\n" + esposto + esposto + esposto + esposto + " \r\n");
}

// What comes of whole heads: the lines written raw, the lines given to the chain.
struct Testa {
    Testo Grezze, Catena;
};

Testa TuttaLaTesta(const Testo& nome, std::initializer_list<Vista> linee) {
    Banco b;
    b.S.FileSorgente = nome;
    b.S.Canale.OpenOutput(2, "\\p\\u.txt");
    IniziaTestaRiordina(b.S);
    Testa testa;
    for (const Vista linea : linee)
        if (AvanzaTestaRiordina(b.S, linea)) testa.Catena += Testo(b.S.Riga) + "|";
    b.S.Canale.Close(2);
    for (const char c : b.Disco.Leggi("/p/u.txt"))
        if (c != '\r') testa.Grezze += c == '\n' ? '|' : c;
    return testa;
}

TEST(TestaRiordina, Form) { // code from its first line, down to 1, up again
    const Testa t = TuttaLaTesta("F.FRM", {"VERSION 5.00", "Begin VB.Form F", "   Caption = \"x\"", "End",
                                           "Attribute VB_Name = \"F\"", "raw", "Attribute VB_Exposed = False",
                                           "Option Explicit", "x"});
    EXPECT_EQ(t.Catena, "VERSION 5.00|Begin VB.Form F|Caption = \"x\"|End|Option Explicit|x|");
    EXPECT_EQ(t.Grezze, "Attribute VB_Name = \"F\"|raw|Attribute VB_Exposed = False|");
}

TEST(TestaRiordina, Classe) {
    const Testa t =
        TuttaLaTesta("C.cls", {"VERSION 1.0 CLASS", "BEGIN", "  MultiUse = -1  'True", "END",
                               "Attribute VB_Name = \"C\"", "Attribute VB_Exposed = True", " x "});
    EXPECT_EQ(t.Catena, "x|");
    EXPECT_EQ(t.Grezze,
              "VERSION 1.0 CLASS|BEGIN|  MultiUse = -1  'True|END|Attribute VB_Name = \"C\"|Attribute "
              "VB_Exposed = True|");
}

TEST(TestaRiordina, Modulo) {
    Testa t = TuttaLaTesta("M.bas", {"Attribute VB_Name = \"M\"", "  'c", "", "Sub a()", "option x", "  y"});
    EXPECT_EQ(t.Catena, "option x|y|");
    EXPECT_EQ(t.Grezze, "Attribute VB_Name = \"M\"|  'c||Sub a()|");
    t = TuttaLaTesta("M.bas", {"Attribute VB_Name = \"M\"", "Sub a()", "End Sub"});
    EXPECT_EQ(t.Catena, "");
    EXPECT_EQ(t.Grezze, "Attribute VB_Name = \"M\"|Sub a()|End Sub|");
}

TEST(TestaRiordina, AttributeInMezzoAlCodice) {
    Testa t = TuttaLaTesta("C.cls", {"Option Explicit", "  a", "Attribute a.VB_VarHelpID = -1", "  b", "",
                                     "'* c", "  If d Then", "  OptionE = 1", "  f"});
    EXPECT_EQ(t.Catena, "Option Explicit|a|OptionE = 1|f|");
    EXPECT_EQ(t.Grezze, "Attribute a.VB_VarHelpID = -1|  b||'* c|  If d Then|");
    t = TuttaLaTesta("C.cls",
                     {"Option Explicit", "a", "  Attribute a.VB_VarHelpID = -1", "  b", "Option x", "c"});
    EXPECT_EQ(t.Catena, "Option Explicit|a|Option x|c|");
    EXPECT_EQ(t.Grezze, "  Attribute a.VB_VarHelpID = -1|  b|");
}

TEST(TestaRiordina, ExposedRientrato) {
    const Testa t = TuttaLaTesta("C.cls", {"Attribute VB_Name = \"C\"", "  Attribute VB_Exposed = False",
                                           "  a", "Option Explicit", "b"});
    EXPECT_EQ(t.Catena, "Option Explicit|b|");
    EXPECT_EQ(t.Grezze, "Attribute VB_Name = \"C\"|  a|");
}

TEST(TestaRiordina, IlContoNonSaleMaiOltreUno) {
    Banco b;
    b.S.Canale.OpenOutput(2, "\\p\\u.txt");
    for (int i = 0; i < 8; ++i) {
        EXPECT_FALSE(AvanzaTestaRiordina(b.S, "Attribute VB_Name = \"x\""));
        EXPECT_EQ(b.S.StatoTesta, 1);
    }
    EXPECT_FALSE(AvanzaTestaRiordina(b.S, "attribute vb_exposed")); // 5
    EXPECT_FALSE(AvanzaTestaRiordina(b.S, "Attribute VB_Name"));    // not 6
    EXPECT_EQ(b.S.StatoTesta, 1);
    b.S.Canale.Close(2);
}

// --- the head state of the listing ----------------------------------------------------------

struct PassoListato {
    int Stato;
    PassoTesta Fa;
    Lungo ContaRighe;
    bool operator==(const PassoListato&) const = default;
};

void PrintTo(const PassoListato& p, std::ostream* su) {
    *su << "{stato " << p.Stato << ", testa " << p.Fa.Testa << ", codice " << p.Fa.Codice << ", riparte "
        << p.Fa.Riparte << ", conta " << p.ContaRighe << "}";
}

TEST(TestaStruttura, OgniRigaDellaTavola) {
    struct Caso {
        Testo Riga;
        int Da, A;
        int Bas; // "*.Bas": 0 off, 1 on, 2 either way
        PassoListato Atteso;
    };
    constexpr int Resta = -1, PiuUno = -2;
    constexpr PassoTesta Nulla{}, Codice{false, true, false}, TestaECodice{true, true, false},
        Riparte{false, false, true}, TestaERiparte{true, false, true};
    // clang-format off
    const Caso casi[] = {
        // Attribute lines are counted, the sixth ends the head
        {"Attribute VB_Name = \"x\"",      0, 4, 2, {PiuUno, Nulla, 0}},
        {"Attribute",                      0, 4, 2, {PiuUno, Nulla, 0}},
        {"AttributeFlag = 1",              0, 4, 2, {PiuUno, Nulla, 0}},
        {"Attribute VB_Exposed = False",   0, 4, 2, {PiuUno, Nulla, 0}},
        {"Attribute VB_Name = \"x\"",      5, 5, 2, {7, TestaECodice, 1}},
        {"Attribute VB_Exposed = True",    5, 5, 2, {7, TestaECodice, 1}},
        {"Attribute VB_Exposed = False",   5, 5, 2, {7, TestaERiparte, 1}},
        // Option Explicit after five of them
        {"Option Explicit",                5, 5, 2, {7, TestaECodice, 1}},
        {"Option Explicit 'x",             5, 5, 2, {7, TestaECodice, 1}},
        {"Option ExplicitX",               5, 5, 2, {7, TestaECodice, 1}},
        {"Option Explici",                 5, 5, 2, {5, Nulla, Intatta}},
        {"Option  Explicit",               5, 5, 2, {5, Nulla, Intatta}},
        {"OPTION EXPLICIT",                5, 5, 2, {5, Nulla, Intatta}},
        {"Option Compare Text",            5, 5, 2, {5, Nulla, Intatta}},
        {"Option Explicit",                0, 0, 2, {0, Nulla, Intatta}},
        {"Option Explicit",                2, 4, 2, {Resta, Nulla, Intatta}},
        {"Option Explicit",                1, 1, 0, {1, Nulla, Intatta}},
        // one Attribute line and "*.Bas"
        {"x",                              1, 1, 1, {7, TestaECodice, 1}},
        {"",                               1, 1, 1, {7, TestaECodice, 1}},
        {"Option Explicit",                1, 1, 1, {7, TestaECodice, 1}},
        {"'x",                             1, 1, 1, {7, TestaECodice, 1}},
        {"attribute vb_name",              1, 1, 1, {7, TestaECodice, 1}},
        {"x",                              1, 1, 0, {1, Nulla, Intatta}},
        {"",                               1, 1, 0, {1, Nulla, Intatta}},
        // any other line of the head
        {"x",                              0, 0, 2, {0, Nulla, Intatta}},
        {"x",                              2, 5, 2, {Resta, Nulla, Intatta}},
        {"",                               2, 5, 2, {Resta, Nulla, Intatta}},
        {"attribute vb_name",              0, 0, 2, {0, Nulla, Intatta}},
        {"attribute vb_name",              2, 5, 2, {Resta, Nulla, Intatta}},
        {"\tAttribute VB_Name",            2, 5, 2, {Resta, Nulla, Intatta}},
        {"Sub a()",                        2, 5, 2, {Resta, Nulla, Intatta}},
        // "option" in lower case ends it at once, without the head of the listing
        {"option explicit",                0, 6, 2, {7, Codice, Intatta}},
        {"option",                         0, 6, 2, {7, Codice, Intatta}},
        {"option1.Value = True",           0, 6, 2, {7, Codice, Intatta}},
        {"optional",                       0, 6, 2, {7, Codice, Intatta}},
        // code
        {"x",                              7, 7, 2, {7, Codice, Intatta}},
        {"",                               7, 7, 2, {7, Codice, Intatta}},
        {"Option Explicit",                7, 7, 2, {7, Codice, Intatta}},
        {"option explicit",                7, 7, 2, {7, Codice, Intatta}},
        {"Attribute VB_Name = \"x\"",      7, 7, 2, {7, Codice, Intatta}},
        {"attribute vb_name = \"x\"",      7, 7, 2, {7, Codice, Intatta}},
        // the end of a control section: the whole line, and exactly so
        {"Attribute VB_Exposed = False",   7, 7, 2, {7, Riparte, Intatta}},
        {"Attribute VB_Exposed = True",    7, 7, 2, {7, Codice, Intatta}},
        {"Attribute VB_Exposed  = False",  7, 7, 2, {7, Codice, Intatta}},
        {"Attribute VB_Exposed = False 'x", 7, 7, 2, {7, Codice, Intatta}},
        {"Attribute VB_Exposed = Fals",    7, 7, 2, {7, Codice, Intatta}},
        {"attribute vb_exposed = false",   7, 7, 2, {7, Codice, Intatta}},
        {"Attribute VB_Exposed = False\t", 7, 7, 2, {7, Codice, Intatta}},
    };
    // clang-format on
    for (const Caso& caso : casi)
        for (int prima = caso.Da; prima <= caso.A; ++prima)
            for (const bool bas : {false, true}) {
                if (caso.Bas == (bas ? 0 : 1)) continue;
                Banco b;
                b.S.StatoTesta = prima;
                b.S.Option1_0 = bas;
                b.S.ContaRighe = Intatta;
                b.S.Riga = caso.Riga;
                const PassoTesta fa = AvanzaTestaStruttura(b.S);
                PassoListato atteso = caso.Atteso;
                if (atteso.Stato == Resta) atteso.Stato = prima;
                if (atteso.Stato == PiuUno) atteso.Stato = prima + 1;
                EXPECT_EQ((PassoListato{b.S.StatoTesta, fa, b.S.ContaRighe}), atteso)
                    << prima << " <" << caso.Riga << "> " << bas;
                EXPECT_EQ(b.S.Riga, caso.Riga);
            }
}

// The states that a file goes through, a digit a line; "T" where the listing's head is written.
Testo Stati(Stato& s, std::initializer_list<Vista> righe) {
    Testo stati;
    for (const Vista riga : righe) {
        s.Riga = riga;
        if (AvanzaTestaStruttura(s).Testa) stati += 'T';
        stati += static_cast<char>('0' + s.StatoTesta);
    }
    return stati;
}

TEST(TestaStruttura, FileInteri) {
    const Vista a = "Attribute VB_Name = \"x\"";
    Banco b;
    b.S.FileSorgente = "M.bas"; // one Attribute line and nothing lifts it further
    IniziaTestaStruttura(b.S);
    EXPECT_EQ(Stati(b.S, {a, "Option Explicit", "Sub a()", "", "End Sub"}), "11111");
    b.S.FileSorgente = "C.cls"; // goes on counting where the last file stopped
    IniziaTestaStruttura(b.S);
    EXPECT_EQ(Stati(b.S, {"VERSION 1.0 CLASS", a, a, a, a, "x", "Option Explicit", "y"}), "123455T77");
    IniziaTestaStruttura(b.S); // code from its first line on
    EXPECT_EQ(Stati(b.S, {"VERSION 1.0 CLASS", a, a}), "777");

    b.S.StatoTesta = 0; // a class by itself: five and Option Explicit, or six
    EXPECT_EQ(Stati(b.S, {a, a, a, a, "Option Explicit", a, "x", "Option Explicit"}), "1234455T7");
    b.S.StatoTesta = 0;
    EXPECT_EQ(Stati(b.S, {a, a, a, a, a, a, "x"}), "12345T77");
    b.S.StatoTesta = 0;
    EXPECT_EQ(Stati(b.S, {a, a, a, a, "x", "Option Explicit"}), "123444");

    b.S.StatoTesta = 0; // a form never gets the head of the listing
    b.S.FileSorgente = "F.frm";
    IniziaTestaStruttura(b.S);
    EXPECT_EQ(Stati(b.S, {"VERSION 5.00", a, "Attribute VB_Exposed = False", "Option Explicit"}), "7777");
}

} // namespace

} // namespace morvella

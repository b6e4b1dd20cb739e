// SPDX-License-Identifier: MIT
//
// The head state: at the start of a file, in the rewriter, in the listing.
#include "scan/banco.h"

namespace morvella {

namespace {

using namespace prove;

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

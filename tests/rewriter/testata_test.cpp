// SPDX-License-Identifier: MIT
//
// What the options change: comments of the source, and the header text.
#include "rewriter/banco.h"

namespace morvella {

namespace {

using namespace prove;

TEST(TogliCommenti, OgniRigaDellaTavola) {
    struct Caso {
        Vista Riga;
        bool Spenta, Accesa; // written with the option off, on
    };
    const Caso casi[] = {
        {"", false, false},         {"'* x", false, false},    {"'*", false, false},
        {"'**", false, false},      {"' x", true, false},      {"'x", true, false},
        {"'", true, false},         {"' * x", true, false},    {"'x*", true, false},
        {"Rem x", true, true},      {"rem", true, true},       {"x = 1 ' y", true, true},
        {"x = 1 '* y", true, true}, {"s = \"'\"", true, true}, {"\"' x", true, true},
        {"\t' x", true, true}, // a TAB stands first
        {"\t'* x", true, true},     {"*' x", true, true},      {"x", true, true},
    };
    for (const Caso& caso : casi)
        for (const int opzione : {0, 1, 2}) { // on at 1 and at nothing else
            BancoRighe b(5);
            b.S.TogliCommenti = opzione;
            const bool scritta = opzione == 1 ? caso.Accesa : caso.Spenta;
            EXPECT_EQ(b.Una(caso.Riga), scritta ? Linea(15, caso.Riga) : "") << caso.Riga << opzione;
            EXPECT_EQ(b.M(), 5);
        }
}

TEST(TogliCommenti, NonToccaIBlocchi) {
    BancoRighe b(5);
    b.S.TogliCommenti = 1;
    EXPECT_EQ(b.Tutte({"If x Then 'c", "'c", "y 'c", "End If 'c"}),
              "\r\n" + Linea(15, "If x Then 'c") + Linea(21, "y 'c") + Linea(15, "End If 'c") + "\r\n");
}

TEST(TogliCommenti, SiLeggeAOgniRiga) {
    BancoRighe b(5);
    EXPECT_EQ(b.Una("'x"), Linea(15, "'x"));
    b.S.TogliCommenti = 1;
    EXPECT_EQ(b.Una("'x"), "");
    b.S.OpzTogliCommenti = true; // the stored option is read by nobody
    b.S.TogliCommenti = 0;
    EXPECT_EQ(b.Una("'x"), Linea(15, "'x"));
}

// --- a whole file ---------------------------------------------------------------------------

struct Opzioni {
    int TogliCommenti = 0, Check1 = 0;
    Testo Text1 = "";
};

// The rewritten text of a single module; its working copy has to be the same.
Testo Riordina(const Testo& nome, Vista sorgente, const Opzioni& opzioni = {}) {
    DiscoFinto disco;
    Banco b(disco);
    b.Voce(nome, "/p/" + nome, sorgente);
    b.S.TogliCommenti = opzioni.TogliCommenti;
    b.S.Check1 = opzioni.Check1;
    b.S.Text1 = opzioni.Text1;
    mnuRiordina_Click(b.S);
    EXPECT_EQ(b.Arresto(), 0);
    const Testo base = LCase(Mid(nome, 1, Len(nome) - 4));
    const Testo scritto = disco.Leggi("/p/Appoggio/" + base + ".txt");
    EXPECT_EQ(disco.Leggi("/p/Appoggio/" + LCase(nome)), scritto);
    return scritto;
}

constexpr Vista Esposta = "Attribute VB_Exposed = False\r\n";

TEST(TogliCommenti, LaParteGrezzaResta) {
    const Testo scritto = Riordina(
        "M.bas", "Attribute VB_Name = \"M\"\n'a\n  '* b\n\nOption Explicit\n'c\nAttribute x.y = 1\n'd\n '* e",
        {.TogliCommenti = 1});
    EXPECT_EQ(scritto, "Attribute VB_Name = \"M\"\r\n'a\r\n  '* b\r\n\r\n" + Linea(15, "Option Explicit") +
                           "Attribute x.y = 1\r\n'd\r\n '* e\r\n" + Chiusura());
}

TEST(TogliCommenti, RiquadriChiusuraETestataRestano) {
    const Testo scritto = Riordina("C.cls", "Attribute VB_Exposed = False\n'x\nSub a()\n'y\nb.Show\nEnd Sub",
                                   {.TogliCommenti = 1, .Check1 = 1, .Text1 = "'T"});
    EXPECT_EQ(scritto, Testo(Esposta) + "'T\r\n" + RiquadroSub("Sub a()") + Linea(15, "b.Show") +
                           Linea(10, "End Sub") + "\r\n" + Chiusura({Voce("B")}));
}

TEST(Testata, UnaVoltaPerModulo) {
    struct Caso {
        Testo Nome;
        Vista Sorgente;
        Testo Atteso; // without the closing block; "@" the header
    };
    const Caso casi[] = {
        {"C.cls",
         "Attribute VB_Name = \"C\"\nAttribute VB_Exposed = False\nOption Explicit\nSub a()\nEnd Sub\n",
         "Attribute VB_Name = \"C\"\r\nAttribute VB_Exposed = False\r\n@" + Linea(15, "Option Explicit") +
             RiquadroSub("Sub a()") + Linea(10, "End Sub") + "\r\n"},
        {"F.frm", "VERSION 5.00\nAttribute VB_Name = \"F\"\nAttribute VB_Exposed = False\nOption Explicit\n",
         Linea(15, "VERSION 5.00") + "Attribute VB_Name = \"F\"\r\nAttribute VB_Exposed = False\r\n@" +
             Linea(15, "Option Explicit")},
        {"M.bas", "Attribute VB_Name = \"M\"\nOption Explicit\nSub a()\nEnd Sub\n",
         "Attribute VB_Name = \"M\"\r\n" + Linea(15, "Option Explicit") + RiquadroSub("Sub a()") +
             Linea(10, "End Sub") + "\r\n"},
        {"N.bas", "Attribute VB_Exposed = False\nx\n",
         Testo(Esposta) + "@" + Linea(15, "x")}, // by its line, not its name
        {"D.cls", "  Attribute VB_Exposed = False\nOption x\n", Linea(15, "Option x")},
        {"E.cls", "attribute vb_exposed = False\nOption x\n",
         "attribute vb_exposed = False\r\n" + Linea(15, "Option x")},
        {"G.cls", "Attribute VB_Exposed = False\nx\nAttribute VB_Exposed = True\ny\n", // each passage
         Testo(Esposta) + "@" + Linea(15, "x") + "Attribute VB_Exposed = True\r\n@" + Linea(15, "y")},
    };
    const auto con = [](Testo atteso, const Testo& testata) {
        for (std::size_t dove; (dove = atteso.find('@')) != Testo::npos;) atteso.replace(dove, 1, testata);
        return atteso + Chiusura();
    };
    for (const Caso& caso : casi) {
        EXPECT_EQ(Riordina(caso.Nome, caso.Sorgente, {.Check1 = 1, .Text1 = "'T"}),
                  con(caso.Atteso, "'T\r\n"));
        EXPECT_EQ(Riordina(caso.Nome, caso.Sorgente, {.Check1 = 1, .Text1 = ""}), con(caso.Atteso, ""));
        EXPECT_EQ(Riordina(caso.Nome, caso.Sorgente, {.Check1 = 0, .Text1 = "'T"}), con(caso.Atteso, ""));
        // Line ends stay as they are; one at the end gives an empty line.
        EXPECT_EQ(Riordina(caso.Nome, caso.Sorgente, {.Check1 = 1, .Text1 = "'T\r\n x\n\r\n"}),
                  con(caso.Atteso, "'T\r\n x\n\r\n\r\n"));
        EXPECT_EQ(Riordina(caso.Nome, caso.Sorgente, {.Check1 = 1, .Text1 = "\r\n"}),
                  con(caso.Atteso, "\r\n\r\n"));
    }
}

TEST(Testata, RiscrittoDiNuovo) {
    // Its own '* lines vanish, another comes back as a comment of the source: after the new one.
    const Opzioni opzioni{.Check1 = 1, .Text1 = "'* T\r\n'  U"};
    const Testo prima =
        Riordina("C.cls", "Attribute VB_Exposed = False\nSub a()\nb.Show\nEnd Sub\n", opzioni);
    EXPECT_EQ(prima, Testo(Esposta) + "'* T\r\n'  U\r\n" + RiquadroSub("Sub a()") + Linea(15, "b.Show") +
                         Linea(10, "End Sub") + "\r\n" + Chiusura({Voce("B")}));
    Testo ancora;
    for (const char c : prima)
        if (c != '\r') ancora += c;
    // The last two lines of the closing block do not begin '*: they stay as comments.
    EXPECT_EQ(Riordina("C.cls", ancora, opzioni),
              Testo(Esposta) + "'* T\r\n'  U\r\n" + Linea(15, "'  U") + RiquadroSub("Sub a()") +
                  Linea(15, "b.Show") + Linea(10, "End Sub") + "\r\n" +
                  Linea(10, "'               Rilettura del 21/11/2026...") + Linea(10, "'") +
                  Chiusura({Voce("B")}));
}

} // namespace

} // namespace morvella

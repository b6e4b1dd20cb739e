// SPDX-License-Identifier: MIT
//
// The proof of a rewritten copy: what passes, what does not, and where.
#include <gtest/gtest.h>

#include "verifica/verifica.h"

namespace morvella::verifica {

namespace {

using std::string;

string Spazi(std::size_t n) { return string(n, ' '); }
string Stelle(std::size_t n) { return string(n, '*'); }

// The closing block, with these lines between its parts.
string Chiusura(const string& richiami = "") {
    const string m = Spazi(10);
    return m + "'" + Stelle(55) + "\r\n" + m +
           "'*              Procedura by Dario Fenzoni             *\r\n" + m + "'*              E-mail " +
           string(21, 'x') + "           *\r\n" + m +
           "'* Procedura per il riordino dei programmi Visual Basic*\r\n" + richiami + m + "'" + Stelle(55) +
           "\r\n" + m + "'               Rilettura del 21/11/2026...\r\n" + m + "'\r\n";
}

// A banner around a line, the way the rewriter draws it.
string Riquadro(std::size_t larga, const string& riga) {
    const string stelle = "    '" + Stelle(larga - 1) + "\r\n";
    const string vuoto = "    '*" + Spazi(larga - 3) + "*\r\n";
    return stelle + vuoto + "  " + riga + "\r\n" + vuoto + stelle;
}

struct Caso {
    const char* Nome;
    string Sorgente, Copia;
    Regole Come;
    string Atteso; // "" or "source:copy"
};

void Prova(const Caso& caso) {
    SCOPED_TRACE(caso.Nome);
    const Esito esito = Verifica(caso.Sorgente, caso.Copia, caso.Come);
    string detto;
    if (esito.Diversa)
        detto = std::to_string(esito.Diversa->RigaSorgente) + ":" + std::to_string(esito.Diversa->RigaCopia);
    EXPECT_EQ(detto, caso.Atteso) << (esito.Diversa ? string(esito.Diversa->Attesa) + "|" +
                                                          string(esito.Diversa->Trovata)
                                                    : "");
}

TEST(Verifica, CopieBuone) {
    const Regole form{.Form = true};
    const Caso casi[] = {
        {"nothing", "", Chiusura(), form, ""},
        {"code moves, blank lines come and go", "a\r\n\r\n   \r\nIf b Then\r\n  c ' d\r\nEnd If",
         "   a\r\n\r\nIf b Then\r\n c ' d\r\n   End If\r\n\r\n" + Chiusura(), form, ""},
        {"lines of a star go, comments stay", "'* a\r\n'*\r\n'b\r\n", "'b\r\n" + Chiusura(), form, ""},
        {"comments go on demand, Rem and tabs stay",
         "'b\r\nRem c\r\n\t'd\r\n",
         "Rem c\r\n \t'd\r\n" + Chiusura(),
         {.Form = true, .TogliCommenti = true},
         ""},
        {"banners",
         "Sub A()\r\nprivate function b\r\nFriend Property Get c\r\nPublic Type T\r\nSubTotale = 1\r\n",
         Riquadro(115, "Sub A()") + Riquadro(115, "private function b") +
             Riquadro(102, "Friend Property Get c") + Riquadro(113, "Public Type T") +
             Riquadro(115, "SubTotale = 1") + Chiusura(),
         form, ""},
        {"heads without a banner",
         "Friend Sub A()\r\nStatic Function B()\r\nPrivate Property Get C()\r\nType T\r\n",
         "Friend Sub A()\r\nStatic Function B()\r\nPrivate Property Get C()\r\nType T\r\n" + Chiusura(), form,
         ""},
        {"a .bas is copied as it is up to its first option",
         " '* a\r\n\r\n  'b\r\n Option Explicit\r\n '* c\r\nd\r\n",
         " '* a\r\n\r\n  'b\r\nOption Explicit\r\nd\r\n" + Chiusura(),
         {},
         ""},
        {"a class: head, header text, code",
         "VERSION 1.0 CLASS\r\n  a\r\nAttribute VB_Exposed = False\r\n  b\r\n",
         "VERSION 1.0 CLASS\r\n  a\r\nAttribute VB_Exposed = False\r\n'x\ny\r\nz\r\nb\r\n" + Chiusura(),
         {.Intestazione = "'x\ny\r\nz"},
         ""},
        {"an indented VB_Exposed goes, and what follows is copied as it is",
         "Attribute VB_Exposed = False\r\na\r\n Attribute VB_Exposed = True\r\n b\r\nOptional\r\n c",
         "Attribute VB_Exposed = False\r\na\r\n b\r\nOptional\r\nc\r\n" + Chiusura(), form, ""},
        {"an attribute in the code: copied as it is up to the next option",
         " a\r\nAttribute A.VB_MemberFlags = \"40\"\r\n\r\n '* b\r\noption1\r\n c\r\n",
         "a\r\nAttribute A.VB_MemberFlags = \"40\"\r\n\r\n '* b\r\noption1\r\nc\r\n" + Chiusura(), form, ""},
        {"an attribute in lower case goes from the code", "a\r\nattribute vb_x\r\nb\r\n",
         "a\r\nb\r\n" + Chiusura(), form, ""},
        {"a lone CR ends a line, a lone LF does not", "a\rb\nc\r\n", "a\r\nb\nc\r\n" + Chiusura(), form, ""},
        {"with --lf it does", "a\rb\n c\r\n", "a\r\nb\r\nc\r\n" + Chiusura(), {.Form = true, .Lf = true}, ""},
        {"called forms",
         "Load a: Form\xE9.Show 1\r\n' b.Show\r\nx.Show: y.Show\r\n" + string(60, 'z') + ".Show\r\n",
         "Load a: Form\xE9.Show 1\r\n' b.Show\r\nx.Show: y.Show\r\n" + string(60, 'z') + ".Show\r\n" +
             Chiusura(Spazi(10) + "'*  La procedura richiama i seguenti Form o procedure:   *\r\n" +
                      Spazi(10) + "'*    LOAD A: FORM\xC9" + Spazi(54 - 18) + "*\r\n" + Spazi(10) +
                      "'*    X" + Spazi(54 - 6) + "*\r\n" + Spazi(10) + "'*    " + string(60, 'Z') + "\r\n"),
         form, ""},
    };
    for (const Caso& caso : casi) Prova(caso);
}

TEST(Verifica, CopieCattive) {
    const Regole form{.Form = true};
    const string buona = "a\r\n b\r\nc\r\n";
    const string lunga = Chiusura();
    const Caso casi[] = {
        {"a line is missing", buona, "a\r\nc\r\n" + lunga, form, "2:2"},
        {"a line too many", buona, "a\r\nb\r\nb\r\nc\r\n" + lunga, form, "3:3"},
        {"at the end", buona, buona + "c\r\n" + lunga, form, "0:4"},
        {"exchanged", buona, "b\r\na\r\nc\r\n" + lunga, form, "1:1"},
        {"a byte", buona, "a\r\nB\r\nc\r\n" + lunga, form, "2:2"},
        {"a blank at the end", buona, "a\r\nb \r\nc\r\n" + lunga, form, "2:2"},
        {"a tab before it", buona, "a\r\n\tb\r\nc\r\n" + lunga, form, "2:2"},
        {"a line end", buona, "a\r\nb\nc\r\n" + lunga, form, "2:2"},
        {"its CR", buona, "a\r\nbx\nc\r\n" + lunga, form, "2:2"},
        {"its LF", buona, "a\r\nb\rxc\r\n" + lunga, form, "2:2"},
        {"a comment kept", "'a\r\n", "'a\r\n" + lunga, {.Form = true, .TogliCommenti = true}, "0:1"},
        {"a comment gone", "'a\r\n", lunga, form, "1:1"},
        {"blanks in the head", "a\r\n b\r\n", "a\r\nb\r\n" + lunga, {}, "2:2"},
        {"a banner cut", "Sub a\r\n", "Sub a\r\n" + lunga, form, "1:1"},
        {"a banner too narrow", "Sub a\r\n", Riquadro(113, "Sub a") + lunga, form, "1:1"},
        {"the header is missing",
         "Attribute VB_Exposed = False\r\na\r\n",
         "Attribute VB_Exposed = False\r\na\r\n" + lunga,
         {.Intestazione = "'x"},
         "0:2"},
        {"no closing block", "a\r\n", "a\r\n", form, "0:2"},
        {"half of it", "a\r\n", "a\r\n" + lunga.substr(0, lunga.size() - 13), form, "0:8"},
        {"more after it", "a\r\n", "a\r\n" + lunga + "b\r\n", form, "0:9"},
        {"a form that nobody calls", "a\r\n",
         "a\r\n" + Chiusura(Spazi(10) + "'*  La procedura richiama i seguenti Form o procedure:   *\r\n"),
         form, "0:6"},
        {"lines as an editor counts them", "a\nb\nc\r\nd\r\n", "a\nb\nc\r\ne\r\n" + lunga, form, "4:4"},
        {"an empty copy", "a\r\n", "", form, "1:1"},
    };
    for (const Caso& caso : casi) {
        EXPECT_NE(caso.Atteso, "");
        Prova(caso);
    }
}

TEST(Verifica, Dice) {
    const Esito esito = Verifica("a\r\nb\r\n", "  a\r\n", {.Form = true});
    ASSERT_TRUE(esito.Diversa);
    EXPECT_EQ(esito.Diversa->Attesa, "b");
    EXPECT_EQ(esito.Diversa->Trovata, "");
    EXPECT_TRUE(esito.Diversa->Manca);
    const string copia = Chiusura() + "x\r\n"; // the result holds views of it
    const Esito troppo = Verifica("", copia, {.Form = true});
    ASSERT_TRUE(troppo.Diversa);
    EXPECT_TRUE(troppo.Diversa->DiTroppo);
    EXPECT_EQ(troppo.Diversa->Trovata, "x");
}

TEST(Verifica, Conta) {
    const string sorgente =
        "VERSION\r\nAttribute VB_Exposed = False\r\n\r\n'* a\r\n'b\r\nattribute vb\r\nSub x\r\nIf\r\n";
    const string copia = "VERSION\r\nAttribute VB_Exposed = False\r\n'h\r\n" + Riquadro(115, "Sub x") +
                         "\r\n\r\nIf\r\n" + Chiusura();
    const Esito esito = Verifica(sorgente, copia, {.TogliCommenti = true, .Intestazione = "'h"});
    ASSERT_FALSE(esito.Diversa);
    const Conti& c = esito.Contate;
    EXPECT_EQ(c.Righe, 8U);
    EXPECT_EQ(c.Uguali, 2U);
    EXPECT_EQ(c.Intatte, 2U);
    EXPECT_EQ(c.VuoteTolte, 1U);
    EXPECT_EQ(c.AsterischiTolti, 1U);
    EXPECT_EQ(c.CommentiTolti, 1U);
    EXPECT_EQ(c.AttributiTolti, 1U);
    EXPECT_EQ(c.VuoteMesse, 2U);
    EXPECT_EQ(c.Riquadri, 4U);
    EXPECT_EQ(c.Intestazione, 1U);
    EXPECT_EQ(c.Chiusura, 7U);
}

TEST(Verifica, NomeDiForm) {
    EXPECT_TRUE(NomeDiForm("A.frm"));
    EXPECT_TRUE(NomeDiForm("A.FRM"));
    EXPECT_FALSE(NomeDiForm("A.frx"));
    EXPECT_FALSE(NomeDiForm("frm"));
}

} // namespace

} // namespace morvella::verifica

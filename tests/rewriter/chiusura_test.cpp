// SPDX-License-Identifier: MIT
//
// The closing block of a rewritten file.
#include "rewriter/prova.h"

namespace morvella {

namespace {

using namespace prove;

TEST(Chiusura, AlByte) {
    Prova p;
    p.B.Voce("a.bas", "/p/a.bas", "");
    p.Esegui();
    const Testo stelle(55, '*');
    EXPECT_EQ(p.A("a.txt"), "          '" + stelle + "\r\n" +
                                "          '*              Procedura by Dario Fenzoni             *\r\n"
                                "          '*              E-mail vorn@morvella.example           *\r\n"
                                "          '* Procedura per il riordino dei programmi Visual Basic*\r\n"
                                "          '" +
                                stelle +
                                "\r\n"
                                "          '               Rilettura del 21/11/2026...\r\n"
                                "          '\r\n");
    // Every line of the box is as wide as the stars; the line that tells of entries is two wider.
    EXPECT_EQ(Len("'*              E-mail vorn@morvella.example           *"), 56);
    EXPECT_EQ(Len("'*  La procedura richiama i seguenti Form o procedure:   *"), 58);
}

TEST(Chiusura, ConVoci) {
    Prova p;
    const Testo lunga(60, 'q');
    p.B.Voce("a.bas", "/p/a.bas", "Option x\nForm2.Show\n.Show\nForm2.Show 1\n" + lunga + ".Show\n'b.Show\n");
    p.Esegui();
    EXPECT_EQ(p.A("a.txt"), Linea(15, "Option x") + Linea(15, "Form2.Show") + Linea(15, ".Show") +
                                Linea(15, "Form2.Show 1") + Linea(15, lunga + ".Show") +
                                Linea(15, "'b.Show") +
                                Chiusura({Voce("FORM2"), Voce(""), Voce("FORM2"), "*    " + Testo(60, 'Q')}));
    EXPECT_EQ(p.S.ElencoShow.Resto(), "");
}

TEST(Chiusura, LaDataDellOrologioUnaVoltaPerFile) {
    Prova p;
    p.Disco.Orologio = {1999, 2, 3, 23, 59, 59};
    p.B.Voce("a.bas", "/p/a.bas", "");
    p.B.Voce("b.bas", "/p/b.bas", "");
    p.Esegui();
    EXPECT_TRUE(
        p.A("a.txt").ends_with("          '               Rilettura del 03/02/1999...\r\n          '\r\n"));
    EXPECT_EQ(std::count(p.Disco.Chiamate.begin(), p.Disco.Chiamate.end(), "Adesso "), 2);
}

TEST(Chiusura, DietroUnFileGrezzo) { // also without a line of code, and without a last line end
    Prova p;
    p.B.Voce("a.bas", "/p/a.bas", "Attribute VB_Name = \"a\"\n  x.Show");
    p.Esegui();
    EXPECT_EQ(p.A("a.txt"), "Attribute VB_Name = \"a\"\r\n  x.Show\r\n" + Chiusura({Voce("X")}));
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// The sources: they are only read, whatever the rows are; their line ends and their size.
#include "rewriter/prova.h"

namespace morvella {

namespace {

using namespace prove;

// --- sources are only read ------------------------------------------------------------------

TEST(Sorgenti, UnUscitaCheEUnSorgente) {
    struct Caso {
        Vista Una, Altra;
    };
    // The output of one row, below Appoggio and up again, is the source of the other.
    const Caso casi[] = {
        {"..\\x.bas", "x.txt"}, // deleted at the head of the file
        {"..\\x.bas", "X.Txt"}, //
        {"..\\x.bas", "x.bas"}, // copied over
        {"..\\x.frm", "x.frx"}, // copied over as a companion
        {"..\\p\\..\\x.bas", "x.bas"},
    };
    for (const Caso& caso : casi) {
        Prova p;
        p.Voce(caso.Altra);
        p.Disco.Metti("/x.bas", CrLf(Modulo));
        p.Disco.Metti("/x.frm", CrLf(Modulo));
        p.Disco.Metti("/x.frx", "binario");
        p.B.Voce(caso.Una);
        const auto prima = p.Disco.TuttiIFile();
        p.Esegui();
        EXPECT_EQ(p.B.Arresto(), 70) << caso.Una << caso.Altra;
        for (const auto& [percorso, bytes] : prima) EXPECT_EQ(p.Disco.Leggi(percorso), bytes) << percorso;
    }
}

TEST(Sorgenti, AncheDiUnaRigaNonSelezionata) {
    Prova p;
    p.Voce("x.txt");
    p.B.Voce("..\\x.bas", "/x.bas", Modulo);
    SelezionaFile1(p.S, 1, false);
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    EXPECT_EQ(p.Disco.Leggi("/p/x.txt"), CrLf(Modulo));
}

TEST(Sorgenti, DentroAppoggio) { // the working copy of one row is the source of another
    Prova p;
    p.Voce("x.bas");
    p.B.Voce("Appoggio\\x.bas", "/p/Appoggio/x.bas", "Option z\n");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    EXPECT_EQ(p.A("x.bas"), "Option z\r\n");
    EXPECT_EQ(p.A("x.txt"), Rifatto); // after it the other row's text was written here, flat
}

TEST(Sorgenti, CambiatiFraDueCorse) { // what is only read is looked at again
    Prova p;
    p.Voce("x.txt");
    p.B.Voce("..\\x.bas", "/x.bas", Modulo);
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    p.Disco.Metti("/p/x.txt", "un altro file"); // as an editor saves it
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    EXPECT_EQ(p.Disco.Leggi("/p/x.txt"), "un altro file");

    Prova q;
    q.Voce("a.bas");
    q.B.Voce("..\\q\\x.txt"); // its directory comes to be only later
    q.Esegui();
    EXPECT_EQ(q.B.Arresto(), 76);
    q.Disco.Metti("/q/x.txt", CrLf(Modulo));
    q.B.Voce("..\\..\\q\\x.bas");
    q.Disco.Metti("/q/x.bas", CrLf(Modulo));
    q.Esegui();
    EXPECT_EQ(q.Disco.Leggi("/q/x.txt"), CrLf(Modulo));
    EXPECT_EQ(q.Disco.Leggi("/q/x.bas"), CrLf(Modulo));
}

TEST(Sorgenti, DiUnAltroProgettoNonPiu) { // another list of rows, another protection
    Prova p;
    p.Voce("x.txt");
    p.B.Voce("..\\x.bas", "/x.bas", Modulo);
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    p.S.File1.Clear();
    p.B.Voce("..\\x.bas");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.Disco.Leggi("/p/x.txt"), Rifatto);
}

// --- the source's bytes ---------------------------------------------------------------------

TEST(Sorgente, FiniDiRiga) {
    Prova p;
    p.Disco.Metti("/p/a.frm", "a\rb\nc\r\n\td \r\n  \xE8\x80\xFF  \r\n\r\n\r\rultima");
    p.B.Voce("a.frm");
    p.Esegui();
    EXPECT_EQ(p.A("a.frm"), Linea(15, "a") + Linea(15, "b\nc") + Linea(15, "\td") +
                                Linea(15, "\xE8\x80\xFF") + Linea(15, "ultima") + Chiusura());
    EXPECT_EQ(p.S.TotaleRighe, 8);
    EXPECT_EQ(p.S.Progress.Max, 11);
}

TEST(Sorgente, PiuLungoDiUnBlocco) {
    Prova p;
    Testo sorgente, atteso;
    for (int i = 0; i < 9000; ++i) {
        const Testo riga = "riga" + CStr(i) + Testo(static_cast<std::size_t>(i % 97), 'x');
        sorgente += "   " + riga + "\r\n";
        atteso += Linea(15, riga);
    }
    const Testo lunga(400000, 'y');
    p.Disco.Metti("/p/a.frm", sorgente + lunga + "\r\n" + sorgente);
    p.B.Voce("a.frm");
    p.Esegui();
    EXPECT_TRUE(p.A("a.frm") == atteso + Linea(15, lunga) + atteso + Chiusura());
    EXPECT_EQ(p.S.TotaleRighe, 18001);
}

} // namespace

} // namespace morvella

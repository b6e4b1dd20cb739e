// SPDX-License-Identifier: MIT
//
// Rows of the project and the names of what is written for them.
#include "rewriter/prova.h"

namespace morvella {

namespace {

using namespace prove;

TEST(Righe, CortaErrore5) {
    for (const char* corta : {"zzz", "z", "z.b"}) {
        Prova p;
        p.Voce("a.bas");
        p.B.Voce(corta);
        p.B.Voce("zzzz.bas"); // after it, never reached
        p.Esegui();
        EXPECT_EQ(p.B.Arresto(), 5) << corta;
        EXPECT_EQ(p.B.Fronte.Arresti.front().Voce, 1);
        EXPECT_EQ(p.A("a.txt"), Rifatto);     // the rows before it are done,
        EXPECT_EQ(p.InAppoggio(), "a.txt");   // but the second stage is not
        EXPECT_EQ(p.S.ProgressBar1.Value, 2); // and the window stays as it stood
        EXPECT_TRUE(p.S.ProgressBar1.Visible && p.S.Progress.Visible);
        EXPECT_EQ(p.S.Label2, "\\p\\a.bas");
        EXPECT_EQ(p.S.FileUscita, "\\p\\appoggio\\a.txt");
    }
}

TEST(Righe, QuattroByte) { // ".bas": an empty base
    Prova p;
    p.Voce(".bas");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), ".bas .txt");
    EXPECT_EQ(p.A(".txt"), Rifatto);
}

TEST(Righe, EstensioneDiAltraLunghezza) { // the last 4 bytes go, whatever they are
    Prova p;
    p.Voce("Form1.f");
    p.Voce("Senza");
    p.Voce("x.class");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "for.txt form1.f s.txt senza x.c.txt x.class");
    EXPECT_EQ(p.A("form1.f"), Rifatto);
}

TEST(Righe, Assente) {
    Prova p;
    p.Voce("a.bas");
    p.B.Voce("b.bas"); // no such file
    p.Voce("c.bas");
    p.Disco.Metti("/p/Appoggio/b.txt", "vecchio");
    p.Disco.Metti("/p/Appoggio/c.txt", "vecchio");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 53);
    EXPECT_EQ(p.B.Fronte.Arresti.size(), 1U);
    EXPECT_EQ(p.InAppoggio(), "a.txt c.txt"); // the text of b was deleted before its source was missed
    EXPECT_EQ(p.A("a.txt"), Rifatto);
    EXPECT_EQ(p.A("c.txt"), "vecchio");
    EXPECT_EQ(p.S.Label2, "\\p\\b.bas");
    EXPECT_EQ(p.S.FileSorgente, "\\p\\b.bas");
    EXPECT_EQ(p.S.FileUscita, "\\p\\appoggio\\b.txt");
    EXPECT_TRUE(p.S.ProgressBar1.Visible && p.S.Progress.Visible);
    EXPECT_EQ(p.S.ProgressBar1.Value, 2);
    EXPECT_EQ(p.S.Progress.Max, 17); // of the file before
}

TEST(Righe, DirectoryDelSorgenteAssente) { // 76 that no repair helps: told once, and the end
    Prova p;
    p.B.Voce("sub\\b.bas");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 76);
    EXPECT_EQ(p.S.FileUscita, "\\p\\Appoggio\\b.txt");
    EXPECT_EQ(p.InAppoggio(), "");
}

TEST(Righe, SottoDirectory) { // flat, and no working copy; the companion flat too
    Prova p;
    p.Voce("Sub\\Form1.FRM");
    p.Disco.Metti("/p/Sub/Form1.frx", "binario");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), "form1.frx form1.txt");
    EXPECT_EQ(p.A("form1.txt"), Rifatto);
    EXPECT_EQ(p.A("form1.frx"), "binario");
    EXPECT_EQ(p.S.FileUscita, "\\p\\Appoggio\\form1.frx");
    EXPECT_EQ(p.S.FileSorgente, "\\p\\Sub\\Form1.Frx");
    p.Esegui(); // the flat text is not sought there, so it is not deleted but written over
    EXPECT_EQ(p.A("form1.txt"), Rifatto);
    EXPECT_EQ(std::count(p.Disco.Chiamate.begin(), p.Disco.Chiamate.end(), "Cancella /p/Appoggio/form1.txt"),
              0);
}

TEST(Righe, SottoDirectoryPresenteInAppoggio) {
    Prova p;
    p.Voce("sub\\b.bas");
    p.Disco.Metti("/p/sub/b.frx", "binario");
    p.Disco.FaiDirectory("/p/Appoggio/sub");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "sub/b.bas sub/b.frx sub/b.txt");
}

TEST(Righe, DuePiatteConLoStessoNome) { // the later one stays
    Prova p;
    p.B.Voce("s1\\b.bas", "/p/s1/b.bas", "Option a\n");
    p.B.Voce("s2\\b.bas", "/p/s2/b.bas", "Option z\n");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "b.txt");
    EXPECT_EQ(p.A("b.txt"), Linea(15, "Option z") + Chiusura());
}

TEST(Righe, PiattaSopraUnaRigaSenzaDirectory) { // each takes the other's text
    Prova p;
    p.B.Voce("b.bas", "/p/b.bas", "Option a\n");
    p.B.Voce("sub\\b.bas", "/p/sub/b.bas", "Option z\n");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "b.bas b.txt");
    EXPECT_EQ(p.A("b.bas"), Linea(15, "Option z") + Chiusura());
}

TEST(Righe, LibSopraAssenteEPresente) { // "..\lib\x" below Appoggio is "lib\x" of the project
    Prova p;
    p.B.Voce("..\\lib\\X.bas", "/lib/X.bas", Modulo);
    p.Disco.Metti("/lib/X.frx", "binario");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), "x.frx x.txt");
    EXPECT_EQ(p.A("x.txt"), Rifatto);

    p.Disco.Metti("/p/lib/altro.bas", "y");
    p.Disco.Metti("/p/lib/x.txt", "vecchio");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.Disco.Leggi("/p/lib/x.txt"), Rifatto);
    EXPECT_EQ(p.Disco.Leggi("/p/lib/x.bas"), Rifatto); // the text is sought where it lies
    EXPECT_EQ(p.Disco.Leggi("/p/lib/x.frx"), "binario");
    EXPECT_EQ(p.Disco.Leggi("/p/lib/altro.bas"), "y");
    EXPECT_EQ(p.Disco.Leggi("/lib/X.bas"), CrLf(Modulo));
    EXPECT_FALSE(p.Disco.Esiste("/lib/x.txt"));
}

TEST(Righe, Maiuscole) {
    Prova p;
    p.B.Voce("FORM1.FRM", "/p/FORM1.FRM", "x\n");
    p.Disco.Metti("/p/FORM1.FRX", "binario");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "form1.frm form1.frx form1.txt");
    EXPECT_EQ(p.A("form1.frm"), Linea(15, "x") + Chiusura()); // starts as code
    EXPECT_EQ(p.A("form1.frx"), "binario");
}

TEST(Righe, InAltroCarattereDelDisco) { // accents fold too
    Prova p;
    p.B.Voce("QUANTIT\xC0.BAS", "/p/Quantit\xC3\xA0.bas", Modulo);
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "quantit\xC3\xA0.bas quantit\xC3\xA0.txt");
    EXPECT_EQ(p.A("quantit\xC3\xA0.bas"), Rifatto);
}

TEST(Righe, DueVolteLaStessa) {
    Prova p;
    p.Voce("a.bas");
    p.Voce("A.BAS");
    p.Disco.Cancella("/p/A.BAS");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), "a.bas a.txt");
    EXPECT_EQ(p.A("a.bas"), Rifatto);
    EXPECT_EQ(std::count(p.Disco.Chiamate.begin(), p.Disco.Chiamate.end(), "Cancella /p/Appoggio/a.txt"), 1);
    EXPECT_EQ(std::count(p.Disco.Chiamate.begin(), p.Disco.Chiamate.end(), "Copia /p/Appoggio/a.bas"), 2);
}

TEST(Righe, ConIlNomeDelTesto) { // "a.txt": the copy onto itself leaves it as it is
    Prova p;
    p.Voce("a.txt");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), "a.txt");
    EXPECT_EQ(p.A("a.txt"), Rifatto);
}

TEST(Righe, ConIlNomeDelCompagno) { // "a.frx": the copy of the companion, last, is the one that stays
    Prova p;
    p.Voce("a.frx");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "a.frx a.txt");
    EXPECT_EQ(p.A("a.txt"), Rifatto);
    EXPECT_EQ(p.A("a.frx"), CrLf(Modulo));
}

TEST(Righe, CompagnoAncheDiModuliEClassi) {
    Prova p;
    p.Voce("a.bas");
    p.Voce("c.cls");
    p.Disco.Metti("/p/A.FRX", "a");
    p.Disco.Metti("/p/c.ctx", "c");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "a.bas a.frx a.txt c.cls c.txt");
}

} // namespace

} // namespace morvella

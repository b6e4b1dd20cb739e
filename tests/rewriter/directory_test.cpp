// SPDX-License-Identifier: MIT
//
// The directories of a run: the work directory, the project's, and those that fold to the same text.
#include "rewriter/prova.h"

namespace morvella {

namespace {

using namespace prove;

TEST(Directory, UnFileAlPostoDiAppoggio) { // counts as the directory; 76 at the first output
    Prova p;
    p.Voce("a.bas");
    p.Disco.Metti("/p/Appoggio", "un file");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 76);
    EXPECT_EQ(p.Disco.Leggi("/p/Appoggio"), "un file");
    EXPECT_EQ(p.S.FileUscita, "\\p\\Appoggio\\a.txt");
}

TEST(Directory, AlPostoDiUnUscita) { // 75 where a file was to be; no directory is deleted
    for (const char* nome : {"b.txt", "b.bas", "b.frx"}) {
        Prova p;
        p.Voce("b.bas");
        p.Disco.Metti("/p/b.frx", "binario");
        p.Disco.FaiDirectory(std::string("/p/Appoggio/") + nome);
        p.Esegui();
        EXPECT_EQ(p.B.Arresto(), 75) << nome;
        EXPECT_TRUE(p.Disco.Esiste(std::string("/p/Appoggio/") + nome));
    }
}

TEST(Directory,
     IlNomeScrittoDiUnUscitaCheCE) { // kept where it is written again, not where it is deleted first
    Prova p;
    p.Voce("b.bas");
    p.Disco.Metti("/p/b.frx", "binario");
    for (const char* nome : {"B.TXT", "B.Bas", "B.Frx"})
        p.Disco.Metti(std::string("/p/Appoggio/") + nome, "vecchio");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "B.Bas B.Frx b.txt");
    EXPECT_EQ(p.A("B.Bas"), Rifatto);
    EXPECT_EQ(p.A("B.Frx"), "binario");
}

TEST(Directory, DiUnNomeCheWindows1252NonHa) { // its bytes pass through, folded path or not
    for (const std::string nome : {"/\xD0\x9F\xD0\xA0/\xE3\x83\x97\xE3\x83\xAD", "/\xC4\x80\xC3\x89"}) {
        DiscoFinto disco(nome);
        Banco b(disco, nome);
        b.Voce("a.bas", nome + "/a.bas", Modulo);
        b.Voce("Sub\\c.bas", nome + "/Sub/c.bas", Modulo);
        mnuRiordina_Click(b.S);
        EXPECT_EQ(b.Arresto(), 0);
        EXPECT_EQ(disco.Leggi(nome + "/Appoggio/a.txt"), Rifatto);
        EXPECT_EQ(disco.Leggi(nome + "/Appoggio/a.bas"), Rifatto);
        EXPECT_EQ(disco.Leggi(nome + "/Appoggio/c.txt"), Rifatto);
        EXPECT_EQ(disco.TuttiIFile().size(), 6U); // those, the two sources and the marker
    }
}

TEST(Directory, NellaRadice) { // doubled "\" in every path
    DiscoFinto disco("/");
    Banco b(disco, "/");
    b.Voce("a.bas", "/a.bas", Modulo);
    mnuRiordina_Click(b.S);
    EXPECT_EQ(b.Arresto(), 0);
    EXPECT_EQ(b.S.DirAppoggio, "\\\\Appoggio");
    EXPECT_EQ(disco.Leggi("/Appoggio/a.bas"), Rifatto);
}

TEST(Directory, DueDirectoryPerMaiuscole) { // nothing of a run on one is written in the other
    for (const bool minuscola : {false, true}) {
        DiscoFinto disco("/data/Prog");
        disco.Metti("/data/prog/a.bas", "altro");
        disco.FaiDirectory("/data/prog/appoggio");
        disco.FaiDirectory("/data/prog/lib");
        if (minuscola) disco.Metti("/data/Prog/appoggio/a.txt", "vecchio"); // an older work directory
        disco.Metti("/lib/x.bas", CrLf(Modulo));
        Banco b(disco, "/data/Prog");
        b.Voce("a.bas", "/data/Prog/a.bas", Modulo);
        b.Voce("Sub\\c.frm", "/data/Prog/Sub/c.frm", "x\n");
        disco.Metti("/data/Prog/Sub/c.frx", "binario");
        b.Voce("..\\..\\lib\\x.bas");
        mnuRiordina_Click(b.S);
        EXPECT_EQ(b.Arresto(), 0);
        const std::string a = minuscola ? "/data/Prog/appoggio/" : "/data/Prog/Appoggio/";
        for (const char* nome : {"a.bas", "a.txt", "x.txt"})
            EXPECT_EQ(disco.Leggi(a + nome), Rifatto) << nome;
        EXPECT_EQ(disco.Leggi(a + "c.frx"), "binario");
        for (const auto& [percorso, bytes] : disco.TuttiIFile())
            EXPECT_TRUE(!percorso.starts_with("/data/prog/") || percorso == "/data/prog/a.bas") << percorso;
        EXPECT_EQ(disco.Leggi("/data/prog/a.bas"), "altro");
    }
}

// The folded text of a path could be a neighbour's: the directories stay those of the row.
TEST(Piega, LaDirectoryDellaRigaRestaLaSua) {
    Prova p;
    p.B.Voce("..\\Lib\\x.bas", "/Lib/x.bas", Modulo);
    p.Disco.FaiDirectory("/p/Lib");
    p.Disco.FaiDirectory("/p/lib");
    p.Esegui();
    EXPECT_TRUE(p.Disco.Esiste("/p/Lib/x.txt"));
    EXPECT_TRUE(p.Disco.Esiste("/p/Lib/x.bas"));
    EXPECT_FALSE(p.Disco.Esiste("/p/lib/x.txt"));
}

TEST(Piega, LaDirectoryDellaRigaSimileAllaCartella) {
    // Read from where the row says; written flat into the work directory.
    Prova p;
    p.B.Voce("a.bas", "/p/a.bas", Modulo);
    p.B.Voce("appoggio\\x.bas", "/p/appoggio/x.bas", Modulo);
    p.Disco.FaiDirectory("/p/Appoggio");
    p.Esegui();
    EXPECT_EQ(p.B.S.File1.ListCount(), 2);
    EXPECT_TRUE(p.Disco.Esiste("/p/Appoggio/a.bas"));
    EXPECT_TRUE(p.Disco.Esiste("/p/Appoggio/x.txt"));
    EXPECT_EQ(p.Disco.Leggi("/p/appoggio/x.bas"), CrLf(Modulo));
    EXPECT_FALSE(p.Disco.Esiste("/p/appoggio/x.txt"));
    EXPECT_FALSE(p.Disco.Esiste("/p/appoggio/a.txt"));
}

TEST(Piega, IlVicinoNonSiTocca) {
    Prova p("/data/Prog");
    p.Disco.Metti("/data/prog/y.bas", "vicino");
    p.Disco.Metti("/data/prog/Appoggio/z.txt", "vicino");
    p.B.Voce("..\\..\\Prog\\y.bas", "/Prog/y.bas", Modulo);
    p.B.Voce("z.bas", "/data/Prog/z.bas", Modulo);
    p.Esegui();
    EXPECT_EQ(p.Disco.Leggi("/data/prog/y.bas"), "vicino");
    EXPECT_EQ(p.Disco.Leggi("/data/prog/Appoggio/z.txt"), "vicino");
    EXPECT_FALSE(p.Disco.Esiste("/data/prog/y.txt"));
    EXPECT_TRUE(p.Disco.Esiste("/data/Prog/y.txt"));
    EXPECT_TRUE(p.Disco.Esiste("/data/Prog/Appoggio/z.bas"));
}

} // namespace

} // namespace morvella

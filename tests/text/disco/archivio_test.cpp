// SPDX-License-Identifier: MIT
#include "text/disco/archivio.h"

#include <gtest/gtest.h>

#include "sostegno/disco_finto.h"
#include "text/canali.h"
#include "text/numero_di.h"

namespace morvella {

namespace {

using prove::DiscoFinto;
using prove::ErroreDi;
using prove::NumeroDi;

struct Banco {
    DiscoFinto Disco{"/p"};
    Archivio File{Disco};
    Canali Canale{File};

    void Scrivi(Vista percorso, Vista testo = "x") {
        Canale.OpenOutput(2, percorso);
        Canale.Print(2, testo);
        Canale.Close(2);
    }
};

// ------------------------------------------------------------------ where a path leads

struct CasoPercorso {
    Vista Testo_;
    const char* Percorso;
};

TEST(Percorsi, Scioglie) {
    Banco b;
    b.Disco.Metti("/p/Sub/File.txt", "");
    constexpr CasoPercorso Casi[] = {
        {"\\p\\Sub\\File.txt", "/p/Sub/File.txt"},
        {"/p/Sub/File.txt", "/p/Sub/File.txt"},
        {"\\p/Sub\\File.txt", "/p/Sub/File.txt"},
        {"\\P\\SUB\\FILE.TXT", "/p/Sub/File.txt"},
        {"\\p\\\\Sub\\File.txt", "/p/Sub/File.txt"}, // the project at the root joins to a double bar
        {"\\\\p\\Sub\\File.txt", "/p/Sub/File.txt"},
        {"\\p\\.\\Sub\\.\\File.txt", "/p/Sub/File.txt"},
        {"Sub\\File.txt", "/p/Sub/File.txt"}, // from the current directory
        {"sub/file.TXT", "/p/Sub/File.txt"},
        {".\\Sub\\File.txt", "/p/Sub/File.txt"},
        {"..\\p\\Sub\\File.txt", "/p/Sub/File.txt"},
        {"\\p\\Sub\\..\\Sub\\File.txt", "/p/Sub/File.txt"},
        {"\\p\\manca\\..\\Sub\\File.txt", "/p/Sub/File.txt"}, // ".." does not look for what it leaves
        {"\\p\\Sub\\File.txt\\..\\File.txt", "/p/Sub/File.txt"},
        {"\\p\\a\\b\\..\\..\\Sub\\File.txt", "/p/Sub/File.txt"},
        {"\\..\\..\\p\\Sub\\File.txt", "/p/Sub/File.txt"}, // the root has nothing above it
        {"..\\..\\..\\p\\Sub\\File.txt", "/p/Sub/File.txt"},
        {"\\p\\Sub\\Nuovo.TXT", "/p/Sub/Nuovo.TXT"}, // what is not there is spelled as given
        {"\\P\\sub\\Nuovo.TXT", "/p/Sub/Nuovo.TXT"},
        {"\\p\\Manca\\x", "/p/Manca/x"},
        {"\\p\\...\\x", "/p/.../x"}, // a name like any other
        {"\\", "/"},
        {"\\p", "/p"},
        {"\\P\\", "/p"},
        {".", "/p"},
        {"..", "/"},
    };
    for (const CasoPercorso& c : Casi) EXPECT_EQ(b.File.Trova(c.Testo_).Percorso, c.Percorso) << c.Testo_;
}

TEST(Percorsi, CheCosaCE) {
    Banco b;
    b.Disco.Metti("/p/Sub/File.txt", "");
    struct Caso {
        Vista Percorso;
        TipoVoce Tipo;
        bool Directory;
    };
    constexpr Caso Casi[] = {
        {"\\p\\sub\\file.txt", TipoVoce::File, true},
        {"\\p\\sub", TipoVoce::Directory, true},
        {"\\", TipoVoce::Directory, true},
        {"\\p\\sub\\manca", TipoVoce::Assente, true},
        {"\\p\\manca", TipoVoce::Assente, true},
        {"\\p\\manca\\x", TipoVoce::Assente, false},
        {"\\p\\sub\\file.txt\\x", TipoVoce::Assente, false}, // a file in the place of a directory
        {"\\manca\\sub\\x", TipoVoce::Assente, false},
    };
    for (const Caso& c : Casi) {
        const Trovato file = b.File.Trova(c.Percorso);
        EXPECT_EQ(file.Cosa.Tipo, c.Tipo) << c.Percorso;
        EXPECT_EQ(file.DirectoryPresente, c.Directory) << c.Percorso;
    }
}

TEST(Percorsi, EsattoPrimaDiPiegato) {
    Banco b;
    for (const char* percorso : {"/p/Dir/x.txt", "/p/dir/X.TXT", "/p/dir/X.txt", "/p/DIR/altro"})
        b.Disco.Metti(percorso, percorso);
    constexpr CasoPercorso Casi[] = {
        {"\\p\\Dir\\x.txt", "/p/Dir/x.txt"},
        {"\\p\\dir\\X.TXT", "/p/dir/X.TXT"},
        {"\\p\\dir\\X.txt", "/p/dir/X.txt"},
        {"\\p\\dir\\x.TXT", "/p/dir/X.TXT"}, // of two the first in byte order, on every run
        {"\\p\\Dir\\X.TXT", "/p/Dir/x.txt"}, // each name for itself: Dir is there, so Dir it is
        {"\\p\\DIR\\x.txt", "/p/DIR/x.txt"}, // and not a neighbour that holds the file
        {"\\p\\dIr\\altro", "/p/DIR/altro"},
    };
    for (const CasoPercorso& c : Casi) EXPECT_EQ(b.File.Trova(c.Testo_).Percorso, c.Percorso) << c.Testo_;
}

TEST(Percorsi, DiscoCheNonDistingue) {
    // Where the disk itself ignores case nobody looks the names up.
    Banco b;
    b.Disco.Distingue = false;
    b.Disco.Metti("/p/File.txt", "");
    EXPECT_EQ(b.File.Trova("\\p\\file.txt").Percorso, "/p/file.txt");
    EXPECT_EQ(b.Disco.Elenchi, 0);
}

TEST(Percorsi, NomeImpossibile) {
    Banco b;
    const Testo percorso("\\p\\a\0b", 6);
    EXPECT_EQ(NumeroDi([&] { return b.File.Trova(percorso), 0; }), 52);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, percorso), 0; }), 52);
    EXPECT_EQ(b.File.Dir(percorso, 0), "");
    b.File.Proteggi({percorso}); // passed over
    EXPECT_TRUE(b.Disco.TuttiIFile().empty());
}

TEST(Percorsi, AccentiNeiDueSensi) {
    Banco b;
    b.Disco.Metti("/p/Qualità/Perché.bas", "utf8");
    b.Disco.Metti("/p/grezz\xE0.bas", "latin"); // a name that is no UTF-8
    constexpr CasoPercorso Casi[] = {
        {"\\p\\Qualit\xE0\\Perch\xE9.bas", "/p/Qualità/Perché.bas"},
        {"\\p\\qualit\xE0\\perch\xE9.BAS", "/p/Qualità/Perché.bas"},
        {"\\p\\QUALIT\xC0\\PERCH\xC9.BAS", "/p/Qualità/Perché.bas"}, // Windows-1252 folds È to è
        {"\\p\\Qualita\\Perche.bas", "/p/Qualita/Perche.bas"},       // without accents: another name
        {"\\p\\grezz\xE0.bas", "/p/grezz\xE0.bas"},
        {"\\p\\GREZZ\xC0.bas", "/p/grezz\xE0.bas"},
        {"\\p\\Qualit\xE0\\nuov\xF2.txt", "/p/Qualità/nuovò.txt"},
        {"\\p\\euro\x80.txt", "/p/euro€.txt"},
    };
    for (const CasoPercorso& c : Casi) EXPECT_EQ(b.File.Trova(c.Testo_).Percorso, c.Percorso) << c.Testo_;
    b.Scrivi("\\p\\QUALIT\xC0\\nuov\xF2.txt", "x");
    EXPECT_EQ(b.Disco.Leggi("/p/Qualità/nuovò.txt"), "x\r\n");
    EXPECT_EQ(b.File.Dir("\\p\\qualit\xC0\\NUOV\xD2.TXT", 0), "nuov\xF2.txt");
}

TEST(Percorsi, NomeGrezzoChiestoSoloSePuoEsserci) {
    // The name's own bytes are a second spelling; a valid index without any like name rules it out.
    Banco b;
    b.Disco.Metti("/p/altro", "");
    EXPECT_FALSE(b.File.Trova("\\p\\perch\xE9").Cosa.Esiste()); // reads the index
    b.Disco.Esami = 0;
    EXPECT_FALSE(b.File.Trova("\\p\\perch\xE9").Cosa.Esiste());
    EXPECT_EQ(b.Disco.Esami, 3); // "p", the name, the directory
    b.Disco.Metti("/p/perch\xE9", "grezzo");
    b.Disco.Metti("/p/PERCHÉ", "");
    EXPECT_EQ(b.File.Trova("\\p\\perch\xE9").Percorso, "/p/perch\xE9"); // before any in another case
    // Where the directory cannot be read, the disk is asked.
    b.Disco.Metti("/p/x", ""); // the index is void
    b.Disco.Fallisci("Elenca", "", 75);
    EXPECT_EQ(b.File.Trova("\\p\\perch\xE9").Percorso, "/p/perch\xE9");
    b.Disco.Cancella("/p/perch\xE9");
    EXPECT_FALSE(b.File.Trova("\\p\\perch\xE9").Cosa.Esiste());
}

TEST(Percorsi, NomiRicordati) {
    // Cyrillic has no place in Windows-1252: the name's own bytes are its text.
    const std::string nome = "Проект.vbp";
    const std::string doppio = Utf8Da1252(nome); // what those bytes are as Windows-1252
    Banco b;
    b.Disco.Metti("/p/" + nome, "mio");
    b.Disco.Metti("/p/Appoggio/" + doppio, "altro");
    b.File.Aggancia(Gancio::Progetto, "/p");
    EXPECT_EQ(b.File.Ricorda("Perché.vbp"), "Perch\xE9.vbp"); // needs no remembering
    ASSERT_EQ(b.File.Ricorda(nome), nome);
    EXPECT_EQ(b.File.Trova("\\p\\" + nome).Percorso, "/p/" + nome);
    const Trovato copia = b.File.Trova("\\p\\Appoggio\\" + nome);
    EXPECT_EQ(copia.Percorso, "/p/Appoggio/" + nome); // not the one that only has its text
    EXPECT_FALSE(copia.Cosa.Esiste());
    EXPECT_TRUE(copia.DirectoryPresente);
    b.File.FileCopy("\\p\\" + nome, "\\p\\Appoggio\\" + nome);
    EXPECT_EQ(b.Disco.TuttiIFile(), (std::map<std::string, std::string>{{"/p/" + nome, "mio"},
                                                                        {"/p/Appoggio/" + nome, "mio"},
                                                                        {"/p/Appoggio/" + doppio, "altro"}}));
    EXPECT_EQ(b.File.Dir("\\p\\appoggio\\" + nome, 0), nome);
    EXPECT_EQ(b.File.Trova("\\p\\perch\xE9.vbp").Percorso, "/p/perché.vbp");
    // In another case, as a user may type it; but a letter is no other letter: the second bytes
    // of these two are a pair in Windows-1252.
    ASSERT_EQ(b.File.Ricorda("Проект.VBP"), "Проект.VBP");
    EXPECT_EQ(b.File.Trova("\\p\\Проект.VBP").Percorso, "/p/" + nome);
    b.Disco.Metti("/p/Њ.vbp", "");
    ASSERT_EQ(LCase("Њ.vbp"), LCase("К.vbp"));
    b.File.Ricorda("К.vbp");
    EXPECT_EQ(b.File.Trova("\\p\\К.vbp").Percorso, "/p/К.vbp");

    b.File.Aggancia(Gancio::Progetto, "/p"); // a new project: what is there is still found
    EXPECT_EQ(b.File.Trova("\\p\\" + nome).Percorso, "/p/" + nome);
    EXPECT_EQ(b.File.Trova("\\p\\Appoggio\\" + nome).Percorso, "/p/Appoggio/" + doppio);
}

TEST(Percorsi, Utf8DiTesto) {
    Banco b;
    b.File.Aggancia(Gancio::Progetto, "/p");
    EXPECT_EQ(b.File.Utf8DiTesto("Perch\xE9"), "Perché");
    EXPECT_EQ(b.File.Utf8DiTesto("Ж.vbp"), "Ð–.vbp"); // bytes that nobody remembers are Windows-1252
    b.File.Ricorda("Ж.vbp");
    b.File.Ricorda("ЖЖ.vbp");
    EXPECT_EQ(b.File.Utf8DiTesto("Perch\xE9 Ж.vbp, ЖЖ.vbp\xE9"), "Perché Ж.vbp, ЖЖ.vbpé");
    EXPECT_EQ(b.File.Utf8DiTesto(""), "");
    b.File.Ricorda("Ж.vbp.vbp");
    EXPECT_EQ(b.File.Utf8DiTesto("Ж.vbp.vbp"), "Ж.vbp.vbp");
}

TEST(Percorsi, BarraInFondo) {
    // "x\" is a directory: a plain file of that name is no way to anything.
    Banco b;
    b.Disco.Metti("/p/File", "x");
    b.Disco.FaiDirectory("/p/Dir");
    for (const char* percorso : {"\\p\\File\\", "\\p\\file/", "\\p\\manca\\"}) {
        EXPECT_EQ(b.File.Dir(percorso, 16), "") << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, percorso), 0; }), 76) << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, percorso), 0; }), 76) << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.File.Kill(percorso), 0; }), 53) << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.File.ChDir(percorso), 0; }), 76) << percorso;
    }
    b.File.ChDir("\\p\\dir\\");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p/Dir");
    EXPECT_EQ(b.Disco.TuttiIFile(), (std::map<std::string, std::string>{{"/p/File", "x"}}));
}

// ------------------------------------------------------------------ hooked directories

TEST(Ganci, Testo) {
    struct Caso {
        const char* Percorso;
        Vista Atteso;
    };
    const Caso casi[] = {
        {"/home/u/p", "\\home\\u\\p"},
        {"/home/u/p/", "\\home\\u\\p"},
        {"/", "\\"}, // the root alone ends in a bar
        {"//", "\\"},
        {"/home/Qualità", "\\home\\Qualit\xE0"},
        {"/home/プロジェクト/à", "\\home\\プロジェクト\\\xE0"}, // name by name
        {"/home/grezz\xE0", "\\home\\grezz\xE0"},
    };
    for (const Caso& c : casi) {
        DiscoFinto disco;
        Archivio file(disco);
        EXPECT_EQ(file.Aggancia(Gancio::Progetto, c.Percorso), c.Atteso) << c.Percorso;
        EXPECT_EQ(file.Aggancia(Gancio::Programma, c.Percorso), c.Atteso) << c.Percorso;
    }
}

TEST(Ganci, ViciniChePaionoUguali) {
    for (const bool maiuscolo : {true, false}) {
        const std::string mio = maiuscolo ? "/data/Prog" : "/data/prog";
        const std::string altro = maiuscolo ? "/data/prog" : "/data/Prog";
        Banco b;
        b.Disco.FaiDirectory(altro + "/Appoggio");
        b.Disco.FaiDirectory(altro + "/appoggio");
        b.Disco.FaiDirectory(mio);
        const Testo p = b.File.Aggancia(Gancio::Progetto, mio);
        const Testo a = p + "\\Appoggio";
        b.File.MkDir(a);
        b.File.AgganciaLavoro(a);
        b.Scrivi(b.File.Piega(a + "\\Form1.Txt"));
        b.Scrivi(a + "\\Form2.Txt");
        b.File.FileCopy(b.File.Piega(a + "\\Form1.Txt"), b.File.Piega(a + "\\Form1.Frm"));
        EXPECT_NE(b.File.Dir(b.File.Piega(a + "\\FORM1.txt"), 0), "");
        EXPECT_EQ(b.File.FileLen(b.File.Piega(a + "\\Form1.Txt")), 3);
        std::vector<std::string> scritti;
        for (const auto& [percorso, bytes] : b.Disco.TuttiIFile()) scritti.push_back(percorso);
        EXPECT_EQ(scritti, (std::vector<std::string>{mio + "/Appoggio/Form2.Txt", mio + "/Appoggio/form1.frm",
                                                     mio + "/Appoggio/form1.txt"}));
        b.File.Kill(b.File.Piega(a + "\\form2.txt"));
        EXPECT_FALSE(b.Disco.Esiste(mio + "/Appoggio/Form2.Txt"));
    }
}

TEST(Ganci, FileDiUnVicinoNonSiVede) {
    Banco b;
    b.Disco.Metti("/data/prog/appoggio/form1.txt", "suo");
    b.Disco.FaiDirectory("/data/Prog/Appoggio");
    const Testo a = b.File.Aggancia(Gancio::Progetto, "/data/Prog") + "\\Appoggio";
    b.File.AgganciaLavoro(a);
    EXPECT_EQ(b.File.Dir(b.File.Piega(a + "\\Form1.Txt"), 0), "");
    EXPECT_EQ(NumeroDi([&] { return b.File.Kill(b.File.Piega(a + "\\Form1.Txt")), 0; }), 53);
    EXPECT_EQ(b.Disco.Leggi("/data/prog/appoggio/form1.txt"), "suo");
}

TEST(Ganci, RigaCheEsceDallaCartella) {
    Banco b;
    b.Disco.FaiDirectory("/data/Prog/Appoggio");
    b.Disco.FaiDirectory("/data/Prog/lib");
    b.Disco.FaiDirectory("/data/prog/lib");
    const Testo a = b.File.Aggancia(Gancio::Progetto, "/data/Prog") + "\\Appoggio";
    b.File.AgganciaLavoro(a);
    // A row "..\lib\x.bas" climbs out of the work directory and lands beside it, not beside
    // the neighbour's.
    EXPECT_EQ(b.File.Trova(b.File.Piega(a + "\\..\\lib\\x.Txt")).Percorso, "/data/Prog/lib/x.txt");
    EXPECT_EQ(b.File.Trova(a + "\\..\\..\\y").Percorso, "/data/y");
    EXPECT_EQ(b.File.Trova(a + "\\..\\..\\..\\..\\y").Percorso, "/y");
}

TEST(Ganci, DirectoryCheWindows1252NonScrive) {
    Banco b;
    b.Disco.FaiDirectory("/home/プロジェクト");
    b.Disco.Metti("/home/プロジェクト/Form1.frm", "mio");
    const Testo p = b.File.Aggancia(Gancio::Progetto, "/home/プロジェクト");
    const Testo a = p + "\\Appoggio";
    b.File.MkDir(a);
    b.File.AgganciaLavoro(a);
    EXPECT_TRUE(b.Disco.Esiste("/home/プロジェクト/Appoggio"));
    b.File.ChDir(p);
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/home/プロジェクト");
    EXPECT_EQ(b.File.FileLen("form1.FRM"), 3); // a bare row, from the current directory
    EXPECT_EQ(b.File.FileLen(p + "\\form1.FRM"), 3);
    b.Scrivi(b.File.Piega(a + "\\Perch\xE9.Txt")); // LCase moves bytes of the directory's name, too
    EXPECT_EQ(b.Disco.Leggi("/home/プロジェクト/Appoggio/perché.txt"), "x\r\n");
    EXPECT_EQ(b.File.Trova(p + "\\..\\q").Percorso, "/home/q");
}

TEST(Ganci, SpettaAllaParteIntera) {
    Banco b;
    b.Disco.FaiDirectory("/p/Prog");
    b.Disco.FaiDirectory("/p/Progetti");
    EXPECT_EQ(b.File.Aggancia(Gancio::Progetto, "/p/Prog"), "\\p\\Prog");
    EXPECT_EQ(b.File.Trova("\\p\\Progetti\\x").Percorso, "/p/Progetti/x"); // begins alike
    EXPECT_EQ(b.File.Trova("\\p\\Prog").Percorso, "/p/Prog");
    EXPECT_EQ(b.File.Trova("\\p\\Prog\\").Percorso, "/p/Prog");
    EXPECT_EQ(b.File.Trova("/p/Prog/x").Percorso, "/p/Prog/x");
}

TEST(Ganci, ProgettoNuovoLasciaLaCartellaDiLavoro) {
    Banco b;
    b.Disco.FaiDirectory("/data/Uno/Appoggio");
    b.Disco.FaiDirectory("/data/uno/appoggio");
    b.File.AgganciaLavoro(b.File.Aggancia(Gancio::Progetto, "/data/Uno") + "\\Appoggio");
    EXPECT_EQ(b.File.Trova(b.File.Piega("\\data\\Uno\\Appoggio\\x")).Percorso, "/data/Uno/Appoggio/x");
    b.File.Aggancia(Gancio::Progetto, "/data/uno"); // and of the paths that were folded
    EXPECT_EQ(b.File.Trova("\\data\\uno\\appoggio\\x").Percorso, "/data/uno/appoggio/x");
}

TEST(Ganci, ProgrammaAccantoAlProgetto) {
    Banco b;
    b.Disco.Metti("/data/prog/Default.ini", "programma");
    b.Disco.Metti("/data/Prog/Default.ini", "progetto!");
    const Testo p = b.File.Aggancia(Gancio::Progetto, "/data/Prog");
    const Testo x = b.File.Aggancia(Gancio::Programma, "/data/prog");
    b.File.MkDir(p + "\\Appoggio");
    b.File.AgganciaLavoro(p + "\\Appoggio");
    EXPECT_EQ(b.File.Trova(x + "\\Default.ini").Percorso, "/data/prog/Default.ini");
    EXPECT_EQ(b.File.Trova(p + "\\Default.ini").Percorso, "/data/Prog/Default.ini");
    EXPECT_EQ(b.File.Trova(b.File.Piega(p + "\\Appoggio\\X")).Percorso, "/data/Prog/Appoggio/x");
}

TEST(Ganci, ProgettoNellaRadice) {
    Banco b;
    b.Disco.Metti("/Form1.frm", "abc");
    const Testo p = b.File.Aggancia(Gancio::Progetto, "/");
    ASSERT_EQ(p, "\\");
    EXPECT_EQ(b.File.FileLen(p + "\\" + "form1.frm"), 3);
    const Testo a = p + "\\Appoggio";
    b.File.MkDir(a);
    b.File.AgganciaLavoro(a);
    b.Scrivi(b.File.Piega(a + "\\Form1.Txt"));
    EXPECT_EQ(b.Disco.Leggi("/Appoggio/form1.txt"), "x\r\n");
}

TEST(Ganci, SoloCioCheSiPiegaEPiegato) {
    // A row may name a directory that differs from the work directory in case alone.
    for (const char* progetto : {"/data/Prog", "/data/prog"}) {
        Banco b;
        b.Disco.Metti(progetto + std::string("/appoggio/x.bas"), "fonte");
        b.Disco.Metti(progetto + std::string("/appoggio/y.bas"), "fonte");
        b.Disco.Metti(progetto + std::string("/Appoggio/x.bas"), "altro!");
        const Testo p = b.File.Aggancia(Gancio::Progetto, progetto);
        b.File.AgganciaLavoro(p + "\\Appoggio");
        const Testo piegato = b.File.Piega(p + "\\Appoggio\\Y.bas");
        EXPECT_EQ(piegato, LCase(p) + "\\appoggio\\y.bas");
        EXPECT_EQ(b.File.FileLen(p + "\\appoggio\\x.bas"), 5);
        EXPECT_EQ(b.File.FileLen(p + "\\Appoggio\\x.bas"), 6);
        EXPECT_EQ(b.File.FileLen(p + "\\APPOGGIO\\x.bas"), 6); // the first in byte order
        EXPECT_EQ(b.File.Trova(piegato).Percorso, progetto + std::string("/Appoggio/y.bas"));
        EXPECT_EQ(b.File.Dir(piegato, 0), "");
    }
}

// ------------------------------------------------------------------ Dir

TEST(Archivio, Dir) {
    Banco b;
    b.Disco.Metti("/p/Form1.frm", "");
    b.Disco.Metti("/p/.nascosto", "");
    b.Disco.FaiDirectory("/p/Appoggio");
    b.Disco.Metti("/p/guasto", "");
    b.Disco.Fallisci("Esamina", "/guasto", 75);
    struct Caso {
        Vista Percorso;
        Vista File, Directory; // what Dir gives with 0 and with 16
    };
    constexpr Caso Casi[] = {
        {"\\p\\Form1.frm", "Form1.frm", "Form1.frm"},
        {"\\p\\FORM1.FRM", "Form1.frm", "Form1.frm"}, // the name as the disk has it
        {"/p/form1.frm", "Form1.frm", "Form1.frm"},
        {"form1.frm", "Form1.frm", "Form1.frm"},
        {"\\p\\Appoggio", "", "Appoggio"},
        {"\\p\\APPOGGIO", "", "Appoggio"},
        {"\\p\\manca", "", ""},
        {"\\manca\\x", "", ""},
        {"\\p\\form1.frm\\x", "", ""},
        {"\\p\\.nascosto", ".nascosto", ".nascosto"}, // nothing is hidden here
        {"\\p\\*.frm", "", ""},                       // "*.*" is the one pattern
        {"\\p\\Form?.frm", "", ""},
        {"", "", ""},
    };
    for (const Caso& c : Casi) {
        EXPECT_EQ(b.File.Dir(c.Percorso, 0), c.File) << c.Percorso;
        EXPECT_EQ(b.File.Dir(c.Percorso, 16), c.Directory) << c.Percorso;
    }
}

// What cannot be asked is not said to be missing, wherever on the way it is.
TEST(Archivio, DirDiceIlGuasto) {
    for (const int numero : {7, 57, 71, 75}) {
        for (const char* guasto : {"/p/sub/file", "/p/sub/altro", "/p/sub"}) {
            Banco b;
            b.Disco.Metti("/p/sub/file", "");
            b.Disco.Fallisci("Esamina", guasto, numero);
            const std::string_view chiesto =
                std::string_view(guasto) == "/p/sub/altro" ? "\\p\\sub\\altro" : "\\p\\sub\\file";
            const Errore e = ErroreDi([&] { return b.File.Dir(chiesto, 0), 0; });
            EXPECT_EQ(e.Numero, numero) << guasto;
            EXPECT_EQ(e.File, chiesto);
        }
        // A name that is not there as written may be there in another case.
        Banco b;
        b.Disco.Metti("/p/sub/file", "");
        b.Disco.Fallisci("Elenca", "/sub", numero);
        EXPECT_EQ(b.File.Dir("\\p\\sub\\file", 0), "file");
        EXPECT_EQ(NumeroDi([&] { return b.File.Dir("\\p\\sub\\FILE", 0), 0; }), numero);
        EXPECT_EQ(NumeroDi([&] { return b.File.Dir("\\p\\sub\\*.*", 0), 0; }), numero);
    }
}

// One source that cannot be looked at could be written to unseen: the whole list is refused.
TEST(Archivio, ProteggiDiceIlGuasto) {
    for (const char* guasto : {"/p/b", "/p/sub"}) {
        Banco b;
        for (const char* file : {"/p/a", "/p/b", "/p/sub/c"}) b.Disco.Metti(file, "x");
        b.Disco.Fallisci("Esamina", guasto, 57, 1);
        const Errore e = ErroreDi([&] { return b.File.Proteggi({"\\p\\a", "\\p\\b", "\\p\\sub\\c"}), 0; });
        EXPECT_EQ(e.Numero, 57) << guasto;
        EXPECT_FALSE(e.File.empty());
        b.File.Proteggi({"\\p\\a", "\\p\\b", "\\p\\sub\\c", "\\p\\manca"});
        EXPECT_EQ(NumeroDi([&] { return b.File.Kill("\\p\\b"), 0; }), 70);
    }
}

TEST(Archivio, DirStellaPuntoStella) {
    Banco b;
    b.Disco.FaiDirectory("/p/vuota");
    b.Disco.FaiDirectory("/p/sola/Dir");
    b.Disco.Metti("/p/piena/senzapunto", "");
    b.Disco.Metti("/p/piena/A/zzz.txt", "");
    b.Disco.Metti("/p/piena/b.txt", "");
    b.Disco.Metti("/p/accento/à.txt", "");
    b.Disco.Metti("/p/nome/LEGGIMI", "");
    EXPECT_EQ(b.File.Dir("\\p\\nome\\*.*", 0), "LEGGIMI"); // a name without a point, too
    EXPECT_EQ(b.File.Dir("\\p\\vuota\\*.*", 0), "");
    EXPECT_EQ(b.File.Dir("\\p\\vuota\\*.*", 16), "");
    EXPECT_EQ(b.File.Dir("\\p\\sola\\*.*", 0), ""); // a directory is no plain file
    EXPECT_EQ(b.File.Dir("\\p\\sola\\*.*", 16), "Dir");
    EXPECT_EQ(b.File.Dir("\\P\\PIENA\\*.*", 0), "b.txt"); // never a name of a directory below
    EXPECT_EQ(b.File.Dir("/p/piena/*.*", 16), "A");
    EXPECT_EQ(b.File.Dir("\\p\\accento\\*.*", 0), "\xE0.txt");
    EXPECT_EQ(b.File.Dir("\\p\\manca\\*.*", 0), "");
    EXPECT_EQ(b.File.Dir("\\p\\piena\\b.txt\\*.*", 0), "");
    EXPECT_EQ(b.File.Dir("\\p\\*.*\\b.txt", 0), ""); // only as the last name
    b.Disco.CambiaDirectory("/p/piena");
    EXPECT_EQ(b.File.Dir("*.*", 0), "b.txt");
    b.Disco.Fallisci("Elenca", "/piena", 75);
    EXPECT_EQ(NumeroDi([&] { return b.File.Dir("\\p\\piena\\*.*", 0), 0; }), 75);
    b.Disco.Fallisci("Elenca", "/sola", 53); // it went meanwhile
    EXPECT_EQ(b.File.Dir("\\p\\sola\\*.*", 0), "");
}

// ------------------------------------------------------------------ MkDir, ChDir

TEST(Archivio, ElencaFile) {
    Banco b;
    for (const char* nome : {"b.vbp", "A.VBP", "a.Vbp", "a.vbp", "Zeta.vbp", "\xC3\x89.vbp", "_.vbp", ".vbp",
                             "x.vbp.bak", "xvbp", "x.vbw", "vbp", "x.vbpx"})
        b.Disco.Metti(std::string("/p/") + nome, "");
    b.Disco.FaiDirectory("/p/directory.vbp");
    b.Disco.Metti("/p/sotto/altro.vbp", "");
    b.Disco.Metti("/p/guasto.vbp", "");
    b.Disco.Fallisci("Esamina", "/guasto.vbp", 75);
    // One that cannot be asked is listed too: whoever opens it hears why.
    // By the folded bytes: "." is 46, "_" is 95, "a" 97, "z" 122, and what E with an accent folds
    // to is 233. Of names that fold alike by their own bytes.
    EXPECT_EQ(b.File.ElencaFile("\\p", ".vbp"),
              (std::vector<Testo>{".vbp", "_.vbp", "A.VBP", "a.Vbp", "a.vbp", "b.vbp", "guasto.vbp",
                                  "Zeta.vbp", "\xC9.vbp"}));
    EXPECT_EQ(b.File.ElencaFile("\\P\\", ".VBW"), std::vector<Testo>{"x.vbw"});
    EXPECT_TRUE(b.File.ElencaFile("\\", ".vbp").empty());
    b.Disco.Metti("/alto.vbp", "");
    EXPECT_EQ(b.File.ElencaFile("\\", ".vbp"), std::vector<Testo>{"alto.vbp"});
}

TEST(Archivio, ElencaFileChiedeSoloDeiSuoi) {
    Banco b;
    for (int i = 0; i < 1000; ++i) b.Disco.Metti("/p/Modulo" + CStr(i) + ".bas", "");
    b.Disco.Metti("/p/Uno.vbp", "");
    b.Disco.Esami = b.Disco.Elenchi = 0;
    EXPECT_EQ(b.File.ElencaFile("\\p", ".vbp"), std::vector<Testo>{"Uno.vbp"});
    EXPECT_EQ(b.Disco.Elenchi, 1);
    EXPECT_LE(b.Disco.Esami, 5);
}

TEST(Archivio, ElencaFileErrori) {
    Banco b;
    b.Disco.Metti("/p/file", "");
    const auto numero = [&](Vista dove) {
        return NumeroDi([&] { return b.File.ElencaFile(dove, ".vbp"), 0; });
    };
    EXPECT_EQ(numero("\\manca"), 76);
    EXPECT_EQ(numero("\\manca\\sotto"), 76);
    EXPECT_EQ(numero("\\p\\file"), 76);
    b.Disco.FaiDirectory("/p/chiusa");
    b.Disco.Fallisci("Elenca", "/p/chiusa", 75);
    EXPECT_EQ(numero("\\p\\chiusa"), 75);
    b.Disco.FaiDirectory("/p/tolta"); // between the two looks at it
    b.Disco.Fallisci("Elenca", "/p/tolta", 53);
    EXPECT_EQ(numero("\\p\\tolta"), 76);
    b.Disco.FaiDirectory("/p/muta");
    b.Disco.Fallisci("Esamina", "/p/muta", 71);
    EXPECT_EQ(numero("\\p\\muta"), 71);
}

TEST(Archivio, MkDir) {
    Banco b;
    b.Disco.Metti("/p/File", "");
    b.Disco.FaiDirectory("/p/Dir");
    struct Caso {
        Vista Percorso;
        int Numero;
        const char* Nata;
    };
    constexpr Caso Casi[] = {
        {"\\p\\Appoggio", 0, "/p/Appoggio"},
        {"\\p\\dir\\Sotto", 0, "/p/Dir/Sotto"},
        {"Relativa", 0, "/p/Relativa"},
        {"\\p\\Novit\xE0", 0, "/p/Novità"},
        {"\\p\\Appoggio", 75, nullptr}, // there by now
        {"\\p\\APPOGGIO", 75, nullptr},
        {"\\p\\file", 75, nullptr}, // a plain file of that name
        {"\\p", 75, nullptr},
        {"\\", 75, nullptr},
        {"\\p\\manca\\x", 76, nullptr},
        {"\\p\\file\\x", 76, nullptr},
    };
    for (const Caso& c : Casi) {
        const Errore e = ErroreDi([&] { return b.File.MkDir(c.Percorso), 0; });
        EXPECT_EQ(e.Numero, c.Numero) << c.Percorso;
        EXPECT_EQ(e.File, c.Numero ? c.Percorso : Vista());
        EXPECT_TRUE(!c.Nata || b.Disco.Esiste(c.Nata)) << c.Percorso;
    }
    EXPECT_FALSE(b.Disco.Esiste("/p/manca"));
    for (const int numero : {61, 75, 76}) {
        b.Disco.Fallisci("CreaDirectory", "/rifiutata", numero, 1);
        EXPECT_EQ(NumeroDi([&] { return b.File.MkDir("\\p\\rifiutata"), 0; }), numero);
    }
    b.Disco.Fallisci("Esamina", "/illeggibile", 75);
    EXPECT_EQ(NumeroDi([&] { return b.File.MkDir("\\p\\illeggibile"), 0; }), 75);
}

TEST(Archivio, ChDir) {
    Banco b;
    b.Disco.Metti("/p/File", "");
    b.Disco.FaiDirectory("/p/Sub");
    b.File.ChDir("\\P\\SUB");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p/Sub");
    b.File.ChDir("..");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p");
    b.File.ChDir("\\");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/");
    b.File.ChDir("p\\sub");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p/Sub");
    for (const char* percorso : {"\\p\\manca", "\\p\\manca\\x", "\\p\\file", "\\p\\file\\x"})
        EXPECT_EQ(NumeroDi([&] { return b.File.ChDir(percorso), 0; }), 76) << percorso;
    b.Disco.Fallisci("CambiaDirectory", "/p", 75, 1);
    const Errore e = ErroreDi([&] { return b.File.ChDir("\\P"), 0; });
    EXPECT_EQ(e.Numero, 75);
    EXPECT_EQ(e.File, "\\P");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p/Sub"); // where it was
}

// ------------------------------------------------------------------ FileCopy

TEST(Archivio, FileCopy) {
    Banco b;
    b.Disco.Metti("/p/Da.txt", Testo("a\0\r\nb", 5));
    b.Disco.Metti("/p/Vecchio.txt", "molto piu' lungo di prima");
    b.Disco.FaiDirectory("/p/Sub");
    b.File.FileCopy("\\p\\da.TXT", "\\p\\sub\\Nuovo.Txt");
    EXPECT_EQ(b.Disco.Leggi("/p/Sub/Nuovo.Txt"), Testo("a\0\r\nb", 5)); // the bytes as they are
    b.File.FileCopy("\\p\\Da.txt", "\\p\\VECCHIO.TXT");
    EXPECT_EQ(b.Disco.Leggi("/p/Vecchio.txt").size(), 5u); // under the name that it had
    EXPECT_FALSE(b.Disco.Esiste("/p/VECCHIO.TXT"));

    struct Caso {
        const char *Da, *A;
        int Numero;
        const char* File;
    };
    constexpr Caso Casi[] = {
        {"\\p\\manca", "\\p\\x", 53, "\\p\\manca"},
        {"\\manca\\y", "\\p\\x", 53, "\\manca\\y"}, // whether or not its directory is there
        {"\\p\\da.txt\\y", "\\p\\x", 53, "\\p\\da.txt\\y"},
        {"\\p\\manca", "\\manca\\x", 53, "\\p\\manca"}, // the source is looked for first
        {"\\p\\da.txt", "\\manca\\x", 76, "\\manca\\x"},
        {"\\p\\da.txt", "\\p\\da.txt\\x", 76, "\\p\\da.txt\\x"},
        {"\\p\\sub", "\\p\\x", 75, "\\p\\sub"}, // a directory in the place of a file
        {"\\p\\da.txt", "\\p\\sub", 75, "\\p\\sub"},
    };
    const auto prima = b.Disco.TuttiIFile();
    for (const Caso& c : Casi) {
        const Errore e = ErroreDi([&] { return b.File.FileCopy(c.Da, c.A), 0; });
        EXPECT_EQ(e.Numero, c.Numero) << c.Da << ' ' << c.A;
        EXPECT_EQ(e.File, c.File);
    }
    EXPECT_EQ(b.Disco.TuttiIFile(), prima);
}

TEST(Archivio, FileCopySuSeStesso) {
    Banco b;
    b.Disco.Metti("/p/Da.txt", "contenuto");
    b.File.Proteggi({"\\p\\Da.txt"}); // leaving it as it is harms nothing
    for (const char* a : {"\\p\\Da.txt", "\\p\\DA.TXT", "/p/x/../da.txt", "da.txt"})
        b.File.FileCopy("\\p\\Da.txt", a);
    EXPECT_EQ(b.Disco.TuttiIFile(), (std::map<std::string, std::string>{{"/p/Da.txt", "contenuto"}}));
}

TEST(Archivio, FileCopyDiscoPieno) {
    Banco b;
    b.Disco.Metti("/p/Da.txt", "contenuto");
    for (const std::size_t spazio : {0u, 1u, 8u}) {
        b.Disco.SpazioLibero = spazio;
        const Errore e = ErroreDi([&] { return b.File.FileCopy("\\p\\da.txt", "\\p\\a.txt"), 0; });
        EXPECT_EQ(e.Numero, 61);
        EXPECT_EQ(e.File, "\\p\\a.txt");
    }
    b.Disco.SpazioLibero = 9;
    b.File.FileCopy("\\p\\da.txt", "\\p\\a.txt");
    EXPECT_EQ(b.Disco.Leggi("/p/a.txt"), "contenuto");
    EXPECT_EQ(b.Disco.Leggi("/p/Da.txt"), "contenuto");
}

// ------------------------------------------------------------------ Kill

TEST(Archivio, Kill) {
    Banco b;
    b.Disco.Metti("/p/X.Txt", "");
    b.Disco.FaiDirectory("/p/Sub");
    b.File.Kill("\\p\\x.txt");
    EXPECT_FALSE(b.Disco.Esiste("/p/X.Txt"));
    struct Caso {
        const char* Percorso;
        int Numero;
    };
    constexpr Caso Casi[] = {{"\\p\\x.txt", 53}, {"\\p\\manca\\x", 53}, {"\\p\\sub", 75}};
    for (const Caso& c : Casi) {
        const Errore e = ErroreDi([&] { return b.File.Kill(c.Percorso), 0; });
        EXPECT_EQ(e.Numero, c.Numero) << c.Percorso;
        EXPECT_EQ(e.File, c.Percorso);
    }
    b.Disco.Metti("/p/Y", "");
    b.Disco.Fallisci("Cancella", "/Y", 75, 1);
    EXPECT_EQ(NumeroDi([&] { return b.File.Kill("\\p\\y"), 0; }), 75);
    EXPECT_TRUE(b.Disco.Esiste("/p/Y"));
}

// ------------------------------------------------------------------ how names are spelled

TEST(Archivio, ChiEsisteTieneIlSuoNome) {
    Banco b;
    b.Disco.Metti("/p/Form1.TXT", "vecchio");
    b.Scrivi("\\p\\form1.txt");
    EXPECT_EQ(b.Disco.TuttiIFile(), (std::map<std::string, std::string>{{"/p/Form1.TXT", "x\r\n"}}));
    b.File.Kill("\\p\\form1.txt");
    b.Scrivi("\\p\\fOrm1.txt"); // deleted first: the spelling given
    EXPECT_EQ(b.Disco.TuttiIFile(), (std::map<std::string, std::string>{{"/p/fOrm1.txt", "x\r\n"}}));
    b.Scrivi("\\p\\FORM1.txt");
    EXPECT_EQ(b.Disco.TuttiIFile().size(), 1u);
}

TEST(Archivio, NomiScambiatiPiuVolte) {
    // What the file layer remembers of a directory follows each change that it makes itself.
    Banco b;
    for (int giro = 0; giro < 3; ++giro) {
        b.Scrivi("\\p\\Uno.txt");
        b.File.FileCopy("\\p\\UNO.TXT", "\\p\\Due.txt");
        b.File.MkDir("\\p\\Tre" + CStr(giro));
        EXPECT_EQ(b.File.Dir("\\p\\uno.txt", 0), "Uno.txt");
        EXPECT_EQ(b.File.Dir("\\p\\due.TXT", 0), "Due.txt");
        EXPECT_EQ(b.File.Dir("\\p\\TRE" + CStr(giro), 16), "Tre" + CStr(giro));
        b.File.Kill("\\p\\UNO.txt");
        b.File.Kill("\\p\\due.txt");
        EXPECT_EQ(b.File.Dir("\\p\\uno.txt", 0), "");
        EXPECT_EQ(b.File.Dir("\\p\\Due.txt", 0), "");
    }
}

TEST(Archivio, CambiatoDaAltri) {
    Banco b;
    b.Disco.Metti("/p/Uno.txt", "1");
    EXPECT_EQ(b.File.Dir("\\p\\uno.TXT", 0), "Uno.txt");
    EXPECT_EQ(b.File.Dir("\\p\\due.TXT", 0), "");
    b.Disco.Metti("/p/Due.txt", "2");
    EXPECT_EQ(b.File.Dir("\\p\\due.TXT", 0), "Due.txt");
    b.Disco.Cancella("/p/Uno.txt");
    EXPECT_EQ(b.File.Dir("\\p\\uno.TXT", 0), "");
    b.Disco.Metti("/p/UNO.txt", "3");
    EXPECT_EQ(b.File.FileLen("\\p\\uno.TXT"), 1);
    EXPECT_EQ(b.File.Dir("\\p\\uno.TXT", 0), "UNO.txt");
    // With the directory out of step our own change may not hide somebody else's, neither one
    // that looks the directory through anew nor one that finds its file at once.
    b.Disco.Metti("/p/Tre.txt", "");
    b.Scrivi("\\p\\Quattro.txt");
    EXPECT_EQ(b.File.Dir("\\p\\tre.TXT", 0), "Tre.txt");
    EXPECT_EQ(b.File.Dir("\\p\\QUATTRO.TXT", 0), "Quattro.txt");
    b.Disco.Metti("/p/Cinque.txt", "");
    b.File.Kill("\\p\\Quattro.txt");
    EXPECT_EQ(b.File.Dir("\\p\\cinque.TXT", 0), "Cinque.txt");
    EXPECT_EQ(b.File.Dir("\\p\\quattro.TXT", 0), "");
}

TEST(Archivio, DirectoryTolteERifatte) {
    Banco b;
    b.Disco.Metti("/p/Sub/Uno.txt", "");
    EXPECT_EQ(b.File.Dir("\\p\\sub\\uno.TXT", 0), "Uno.txt");
    b.Disco.Cancella("/p/Sub/Uno.txt");
    b.Disco.Cancella("/p/Sub");
    EXPECT_EQ(b.File.Dir("\\p\\sub\\uno.TXT", 0), "");
    EXPECT_EQ(NumeroDi([&] { return b.Scrivi("\\p\\sub\\uno.TXT"), 0; }), 76);
    b.Disco.Metti("/p/Sub/UNO.txt", "");
    EXPECT_EQ(b.File.Dir("\\p\\sub\\uno.TXT", 0), "UNO.txt");
}

TEST(Archivio, NomiCheMancanoNonRileggonoLaDirectory) {
    constexpr int Quanti = 10000;
    Banco b;
    b.Disco.FaiDirectory("/p/Appoggio");
    const Testo a = b.File.Aggancia(Gancio::Progetto, "/p") + "\\Appoggio";
    b.File.AgganciaLavoro(a);
    b.Disco.Elenchi = b.Disco.Esami = 0;
    for (int i = 0; i < Quanti; ++i) {
        const Testo base = a + "\\Modulo" + CStr(i);
        ASSERT_EQ(b.File.Dir(LCase(base + ".Txt"), 0), "");
        b.Scrivi(LCase(base + ".Txt"));
        ASSERT_EQ(b.File.Dir(base + ".Frx", 0), "");
        b.File.FileCopy(LCase(base + ".Txt"), LCase(base + ".Bas"));
        ASSERT_NE(b.File.Dir(base + ".TXT", 0), "");
        if (i % 2 == 0) b.File.Kill(base + ".tXt");
    }
    EXPECT_LE(b.Disco.Elenchi, 3);
    EXPECT_LE(b.Disco.Esami, 60 * Quanti); // and no call asks about all files
    EXPECT_EQ(b.Disco.TuttiIFile().size(), static_cast<std::size_t>(Quanti + Quanti / 2));
}

TEST(Archivio, ProteggereMolteRigheNonRilegge) {
    constexpr int Quante = 2000;
    Banco b;
    std::vector<Testo> righe;
    for (int i = 0; i < Quante; ++i) {
        b.Disco.Metti("/p/Modulo" + CStr(i) + ".bas", "");
        righe.push_back("\\p\\MODULO" + CStr(i) + ".bas");
        righe.push_back("\\p\\MODULO" + CStr(i) + ".Frx"); // is not there
    }
    b.Disco.Elenchi = 0;
    b.File.Proteggi(righe);
    EXPECT_LE(b.Disco.Elenchi, 2); // "/p" and the root, for "p" is sought exactly
    EXPECT_EQ(NumeroDi([&] { return b.File.Kill("\\p\\Modulo1999.bas"), 0; }), 70);
}

// ------------------------------------------------------------------ protected files

TEST(Archivio, FileProtetti) {
    Banco b;
    b.Disco.Metti("/p/Fonte.bas", "fonte");
    b.Disco.Metti("/p/Altro.bas", "altro");
    b.File.Proteggi({"\\p\\fonte.BAS", "\\p\\manca.bas", "\\manca\\x", ""});
    for (const char* percorso :
         {"\\p\\Fonte.bas", "\\P\\FONTE.BAS", "/p/Appoggio/../fonte.bas", "fonte.bas"}) {
        EXPECT_EQ(NumeroDi([&] { return b.File.Kill(percorso), 0; }), 70) << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, percorso), 0; }), 70) << percorso;
        const Errore e = ErroreDi([&] { return b.File.FileCopy("\\p\\Altro.bas", percorso), 0; });
        EXPECT_EQ(e.Numero, 70) << percorso;
        EXPECT_EQ(e.File, percorso);
        EXPECT_EQ(b.Disco.Leggi("/p/Fonte.bas"), "fonte");
        EXPECT_FALSE(b.Canale.Aperto(2));
    }
    b.File.FileCopy("\\p\\fonte.bas", "\\p\\copia.bas"); // reading is free
    EXPECT_EQ(b.Disco.Leggi("/p/copia.bas"), "fonte");
    EXPECT_EQ(b.File.FileLen("\\p\\fonte.bas"), 5);
    b.File.Kill("\\p\\copia.bas"); // the copy is another file
    b.File.Kill("\\p\\altro.bas");

    b.File.Proteggi({}); // the list of before is gone
    b.File.Kill("\\p\\fonte.bas");
    EXPECT_TRUE(b.Disco.TuttiIFile().empty());
}

// A disk on which somebody makes a file the moment before a path is asked for.
class DiscoConAltri : public prove::DiscoFinto {
  public:
    std::string Chiesto, Nasce;

    Scheda Esamina(const std::string& percorso) override {
        if (percorso == Chiesto) {
            Chiesto.clear();
            Metti(Nasce, "altrui");
        }
        return DiscoFinto::Esamina(percorso);
    }
};

TEST(Archivio, ProtettoAncheChiNasceIntanto) {
    // Its directory was asked already, for the row before.
    DiscoConAltri disco;
    disco.Metti("/p/altro", "");
    Archivio file(disco);
    disco.Chiesto = "/p/due.frx";
    disco.Nasce = "/p/DUE.FRX";
    file.Proteggi({"\\p\\uno.frx", "\\p\\due.frx"});
    EXPECT_EQ(disco.Chiesto, "");
    EXPECT_EQ(NumeroDi([&] { return file.Kill("\\p\\due.frx"), 0; }), 70);
    EXPECT_EQ(disco.Leggi("/p/DUE.FRX"), "altrui");
}

TEST(Archivio, UnaDirectoryNonEProtetta) {
    Banco b;
    b.Disco.FaiDirectory("/p/Sub");
    b.File.Proteggi({"\\p\\Sub", "\\p"}); // an empty row leads to the directory itself
    b.Scrivi("\\p\\Sub\\x");
    EXPECT_EQ(NumeroDi([&] { return b.File.Kill("\\p\\sub"), 0; }), 75);
}

// ------------------------------------------------------------------ sizes, dates, programs

TEST(Archivio, FileLenFileDateTime) {
    Banco b;
    b.Disco.Metti("/p/Vuoto", "");
    b.Disco.Metti("/p/Tre", "a\r\n");
    EXPECT_EQ(b.File.FileLen("\\p\\vuoto"), 0);
    EXPECT_EQ(b.File.FileLen("\\p\\TRE"), 3);
    EXPECT_EQ(b.File.FileLen("tre"), 3); // a bare row, from the current directory
    struct Caso {
        Istante Quando;
        const char* Atteso;
    };
    constexpr Caso Casi[] = {
        {{2026, 11, 21, 14, 30, 5}, "21/11/2026 14:30:05"},
        {{2026, 1, 2, 3, 4, 5}, "02/01/2026 03:04:05"},
        {{2026, 1, 2, 0, 0, 0}, "02/01/2026"}, // midnight: the date alone, without a blank
        {{2026, 1, 2, 0, 0, 1}, "02/01/2026 00:00:01"},
        {{2026, 1, 2, 0, 1, 0}, "02/01/2026 00:01:00"},
        {{2026, 1, 2, 12, 0, 0}, "02/01/2026 12:00:00"},
        {{1999, 12, 31, 23, 59, 59}, "31/12/1999 23:59:59"},
    };
    for (const Caso& c : Casi) {
        b.Disco.Modificati["/p/Tre"] = c.Quando;
        EXPECT_EQ(b.File.FileDateTime("\\p\\tre"), c.Atteso);
    }
    for (const char* percorso : {"\\p\\manca", "\\manca\\x", "manca"}) {
        EXPECT_EQ(NumeroDi([&] { return b.File.FileLen(percorso); }), 53) << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.File.FileDateTime(percorso); }), 53) << percorso;
    }
}

TEST(Archivio, DataELunghezzaDiUnaRiga) {
    // The two of a bare row in one question; every date is asked anew.
    Banco b;
    b.Disco.Metti("/p/Tre", "a\r\n");
    b.Disco.Metti("/p/perché", "abcd");
    b.Disco.Modificati["/p/Tre"] = {1999, 12, 31, 0, 0, 0};
    b.Disco.Esami = 0;
    EXPECT_EQ(b.File.FileDateTime("Tre"), "31/12/1999");
    EXPECT_EQ(b.File.FileLen("Tre"), 3);
    EXPECT_EQ(b.Disco.Esami, 1);
    b.Disco.Modificati["/p/Tre"] = {2001, 1, 1, 0, 0, 0};
    EXPECT_EQ(b.File.FileDateTime("Tre"), "01/01/2001");
    b.Disco.Modificati["/p/Tre"] = {2002, 2, 2, 0, 0, 0};
    EXPECT_EQ(b.File.FileDateTime("Tre"), "02/02/2002");
    b.Disco.Metti("/p/Tre", "abcde");
    EXPECT_EQ(b.File.FileLen("\\p\\Tre"), 5); // spelled otherwise: asked anew
    EXPECT_EQ(b.File.FileLen("perch\xE9"), 4);
    EXPECT_EQ(b.File.FileLen("TRE"), 5); // not as spelled: sought

    // The same name in another directory is another file, and one to delete has a path.
    b.Disco.Metti("/q/Tre", "1234567");
    EXPECT_EQ(b.File.FileDateTime("Tre"), "02/02/2002");
    b.File.ChDir("\\q");
    EXPECT_EQ(b.File.FileLen("Tre"), 7);
    b.File.FileDateTime("Tre");
    b.File.Kill("Tre");
    EXPECT_FALSE(b.Disco.Esiste("/q/Tre"));
    EXPECT_TRUE(b.Disco.Esiste("/p/Tre"));
    EXPECT_EQ(NumeroDi([&] { return b.File.FileLen("Tre"); }), 53);
    EXPECT_EQ(NumeroDi([&] { return b.File.FileLen("a\0b"); }), 53); // the text ends at its NUL
    EXPECT_EQ(NumeroDi([&] { return b.File.FileLen(Testo("a\0b", 3)); }), 52);
}

TEST(Archivio, DateTime) {
    Banco b;
    EXPECT_EQ(b.File.Date(), "21/11/2026");
    EXPECT_EQ(b.File.Time(), "14:30:05");
    b.Disco.Orologio = {2027, 1, 2, 0, 0, 0};
    EXPECT_EQ(b.File.Date(), "02/01/2027");
    EXPECT_EQ(b.File.Time(), "00:00:00"); // only FileDateTime leaves midnight out
}

TEST(Archivio, Shell) {
    Banco b;
    b.Disco.Metti("/p/Appoggio/Nome lungo.log", "");
    b.File.Shell("Notepad.exe \\p\\appoggio\\nome lungo.LOG", 3); // the blank after the program splits
    b.File.Shell("Explorer \\p\\Appoggio\\Indice.Html", 3);
    EXPECT_EQ(b.Disco.Avviati, (std::vector<std::string>{"Notepad.exe|/p/Appoggio/Nome lungo.log",
                                                         "Explorer|/p/Appoggio/Indice.Html"}));
    b.Disco.Fallisci("Avvia", "", 53, 1);
    EXPECT_EQ(NumeroDi([&] { return b.File.Shell("Notepad.exe \\p\\x", 3), 0; }), 53);
}

} // namespace

} // namespace morvella

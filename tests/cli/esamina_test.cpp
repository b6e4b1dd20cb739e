// SPDX-License-Identifier: MIT
//
// "esamina": what is examined, what the exit status is, what is written and what never is.
#include <gtest/gtest.h>

#include "cli/esamina_banco.h"
#include "cli/ingressi.h"

namespace morvella::cli {

namespace {

using prove::BancoEsame;
using Nomi = std::vector<std::string>;

TEST(Relativo, DallaRadice) {
    const std::tuple<const char*, const char*, const char*> casi[] = {
        {"/casa/p/A.bas", "/casa", "p/A.bas"},
        {"/casa/p/A.bas", "/casa/p", "A.bas"},
        {"/casa/p/A.bas", "/casa/q", "../p/A.bas"},
        {"/casa/p/A.bas", "/casa/p/q/r", "../../A.bas"},
        {"/casap/A.bas", "/casa", "../casap/A.bas"},
        {"/altro/A.bas", "/casa/q", "../../altro/A.bas"},
        {"/casa/A.bas", "/", "casa/A.bas"},
        {"/casa", "/casa", "."},
        {"C:/p/A.bas", "C:/p", "A.bas"},
        {"D:/p/A.bas", "C:/p", "D:/p/A.bas"}, // no way leads from drive to drive
        {"//server/p/A.bas", "C:/p", "//server/p/A.bas"},
    };
    for (const auto& [percorso, radice, atteso] : casi) {
        EXPECT_EQ(Relativo(percorso, radice), atteso) << percorso;
    }
    for (const char* intero : {"D:/p/A.bas", "//server/p/A.bas"}) EXPECT_TRUE(Intero(intero)) << intero;
    for (const char* relativo : {"p/A.bas", "../A.bas", "d:1/A.bas", "C"})
        EXPECT_FALSE(Intero(relativo)) << relativo;
}

TEST(Ingressi, OgniSpecieDiModulo) {
    BancoEsame b;
    b.Metti("p/P.vbp", {"Type=Exe", "Form=F.frm", "Module=M; M.bas", "Class=K; K.cls", "UserControl=C.ctl",
                        "PropertyPage=G.pag", "UserDocument=D.dob", "Designer=R.dsr", "RelatedDoc=Note.txt",
                        "ResFile32=\"P.res\"", "Startup=\"F\"", "Module=senza punto e virgola.bas"});
    for (const char* nome : {"F.frm", "M.bas", "K.cls", "C.ctl", "G.pag", "D.dob", "R.dsr", "Note.txt",
                             "P.res", "senza punto e virgola.bas"})
        b.Cattivo(std::string("p/") + nome);
    EXPECT_EQ(b.Esegui({"p/P.vbp"}), 4);
    EXPECT_EQ(b.Trovati(), (Nomi{"p/F.frm", "p/M.bas", "p/K.cls", "p/C.ctl", "p/G.pag", "p/D.dob", "p/R.dsr",
                                 "p/senza punto e virgola.bas"}));
    EXPECT_EQ(b.Errori.str(), "");
}

TEST(Ingressi, PercorsiDelProgetto) {
    struct Caso {
        const char* Riga; // of p/P.vbp
        const char* File; // that it leads to
    };
    const Caso casi[] = {
        {"Module=M; ..\\lib\\M.bas", "lib/M.bas"},
        {"Module=M; ../lib/M.bas", "lib/M.bas"},
        {"MODULE = M ;  SOTTO\\m.BAS  ", "p/Sotto/M.bas"},
        {"form=F.FRM", "p/f.frm"},
        {"Form=\"F.frm\"", "p/F.frm"},
        {"Class=K; .\\K.cls", "p/K.cls"},
        {"Module=M; Perch\xE9.bas", "p/Perché.bas"},
    };
    for (const Caso& caso : casi) {
        BancoEsame b;
        b.Metti("p/P.vbp", {caso.Riga});
        b.Cattivo(caso.File);
        EXPECT_EQ(b.Esegui({"p/P.vbp"}), 4) << caso.Riga << '\n' << b.Errori.str();
        EXPECT_EQ(b.Trovati(), Nomi{caso.File}) << caso.Riga;
    }
}

TEST(Ingressi, MancanoEDetti) {
    BancoEsame b;
    b.Metti("p/P.vbp", {"Module=M; M.bas", "UserControl=C.ctl", "Form=x\\F.frm"});
    b.Buono("p/M.bas");
    EXPECT_EQ(b.Esegui({"p/P.vbp", "Z.bas"}), 1);
    EXPECT_EQ(b.Uscita.str(), "0 rilievi in 1 modulo, 2 righe\n");
    EXPECT_EQ(b.Errori.str(),
              "morvella-cli: p/C.ctl, nominato da p/P.vbp: errore 53, File non trovato.\n"
              "morvella-cli: p/x/F.frm, nominato da p/P.vbp: errore 76, Percorso non trovato.\n"
              "morvella-cli: Z.bas: errore 53, File non trovato.\n");
}

TEST(Ingressi, Gruppo) {
    BancoEsame b;
    b.Metti("g/G.vbg", {"VBGROUP 5.0", "StartupProject=..\\A\\a.VBP", "Project=b\\B.vbp",
                        "project=../A/A.vbp", "StartupProject=(None)", "Project=manca.vbp", "Altro=C.vbp"});
    b.Metti("A/A.vbp", {"Module=M; ..\\comune\\X.bas", "Module=M; A.bas"});
    b.Metti("g/b/B.vbp", {"Module=M; ..\\..\\comune\\x.bas", "Module=B; B.bas"});
    for (const char* file : {"comune/X.bas", "A/A.bas", "g/b/B.bas"}) b.Cattivo(file);
    EXPECT_EQ(b.Esegui({"g/G.vbg"}), 4);
    EXPECT_EQ(b.Trovati(), (Nomi{"comune/X.bas", "A/A.bas", "g/b/B.bas"}));
    EXPECT_EQ(b.Errori.str(),
              "morvella-cli: g/manca.vbp, nominato da g/G.vbg: errore 53, File non trovato.\n");
}

TEST(Ingressi, UnaVoltaSola) {
    BancoEsame b;
    b.Metti("p/P.vbp", {"Module=M; M.bas", "Module=N; m.BAS"});
    b.Metti("p/Q.vbp", {"Module=M; ..\\p\\M.bas"});
    b.Cattivo("p/M.bas");
    EXPECT_EQ(b.Esegui({"p/M.bas", "p/P.vbp", "p/./M.bas", "p/Q.vbp", "p/P.vbp", "P\\m.bas"}), 4);
    EXPECT_EQ(b.Trovati(), Nomi{"p/M.bas"});
    EXPECT_TRUE(b.Scrive("1 rilievo in 1 modulo, 3 righe\n")) << b.Uscita.str();
    EXPECT_EQ(b.Errori.str(), ""); // P\m.bas is found as in a project
}

TEST(Ingressi, Directory) {
    BancoEsame b;
    for (const char* file : {"d/B.bas", "d/A.CLS", "d/c.ctl", "d/sotto/F.frm", "d/Note.txt", "d/x.frx",
                             "d/Appoggio/B.bas", "d/sotto/APPOGGIO/F.frm", "d/.git/X.bas", "d/.svn/X.bas",
                             "d/CVS/X.bas", "d/legata/L.bas", "d/legato.bas", "fuori/M.bas"})
        b.Cattivo(file);
    b.Metti("d/P.vbp", {"Module=M; ..\\fuori\\M.bas", "Module=B; B.bas"});
    b.Disco.Legami = {"/casa/d/legata", "/casa/d/legato.bas"};
    EXPECT_EQ(b.Esegui({"d"}), 2);
    EXPECT_TRUE(b.Dice("«d» è una directory: con --ricorsivo")) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"--ricorsivo", "d"}), 4);
    EXPECT_EQ(b.Trovati(), (Nomi{"fuori/M.bas", "d/B.bas", "d/A.CLS", "d/c.ctl", "d/sotto/F.frm"}));
    EXPECT_EQ(b.Errori.str(), "");
}

TEST(Ingressi, Elenco) {
    BancoEsame b;
    b.Metti("x/elenco.txt", {"", "p/P.vbp", "  A.bas ", "manca.bas", "@altro"});
    b.Metti("p/P.vbp", {"Module=M; M.bas"});
    b.Cattivo("p/M.bas");
    b.Cattivo("A.bas");
    EXPECT_EQ(b.Esegui({"@x/elenco.txt"}), 4);
    EXPECT_EQ(b.Trovati(), (Nomi{"p/M.bas", "A.bas"}));
    EXPECT_TRUE(b.Dice("manca.bas, nominato da x/elenco.txt: errore 53")) << b.Errori.str();
    EXPECT_TRUE(b.Dice("@altro, nominato da x/elenco.txt: errore 53")) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"@manca"}), 1);
    EXPECT_TRUE(b.Dice("morvella-cli: manca: errore 53")) << b.Errori.str();
}

TEST(Ingressi, Niente) {
    BancoEsame b;
    b.Metti("P.vbp", {"Type=Exe"});
    EXPECT_EQ(b.Esegui({"P.vbp"}), 0);
    EXPECT_EQ(b.Uscita.str(), "0 rilievi in 0 moduli, 0 righe\n");
    EXPECT_EQ(b.Errori.str(), "Avviso: fra gli ingressi non c'è nessun sorgente da esaminare.\n");
    EXPECT_EQ(b.Esegui({}), 2);
}

// 4 wins over 1, as with --controlla.
TEST(Stato, OgniUscita) {
    BancoEsame b;
    b.Buono("B.bas");
    b.Cattivo("C.bas");
    b.Disco.Metti("/casa/L.bas", "Sub a()\r\n");
    b.Disco.Fallisci("ApriLettura", "L.bas", 75);
    EXPECT_EQ(b.Esegui({"B.bas"}), 0);
    EXPECT_EQ(b.Esegui({"C.bas"}), 4);
    EXPECT_EQ(b.Esegui({"B.bas", "L.bas"}), 1);
    EXPECT_TRUE(b.Dice("morvella-cli: L.bas: errore 75, ")) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"C.bas", "L.bas"}), 4);
    EXPECT_TRUE(b.Scrive("1 rilievo in 1 modulo, 3 righe\n")); // L.bas was not examined
    EXPECT_EQ(b.Esegui({"--formato=xml", "B.bas"}), 2);
    EXPECT_TRUE(b.Dice("--formato: testo, json, sarif o github, non «xml»")) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"--radice=manca", "B.bas"}), 2);
    EXPECT_EQ(b.Esegui({"--controlla", "B.bas"}), 2);
}

TEST(Stato, UnErroreAMeta) {
    BancoEsame b;
    b.Cattivo("C.bas");
    b.Buono("B.bas");
    b.Disco.Fallisci("Leggi", "C.bas", 57, 1);
    EXPECT_EQ(b.Esegui({"C.bas", "B.bas"}), 1);
    EXPECT_EQ(b.Uscita.str(), "0 rilievi in 1 modulo, 2 righe\n");
}

// One buffer for all files: what a longer one left in it is not read again with a shorter one.
TEST(Stato, UnFileDopoUnoPiuLungo) {
    BancoEsame b;
    b.Metti("A.bas", {"Sub a()", "End Sub", "Sub b()", "  Do", "  Loop", "End Sub"});
    b.Buono("B.bas");
    b.Disco.Metti("/casa/C.bas", "");
    EXPECT_EQ(b.Esegui({"A.bas", "B.bas", "C.bas"}), 0);
    EXPECT_EQ(b.Uscita.str(), "0 rilievi in 3 moduli, 8 righe\n");
}

TEST(Sacri, NienteESovrascritto) {
    for (const char* opzione : {"--uscita=", "--scrivi-base="}) {
        BancoEsame b;
        b.Metti("p/P.vbp", {"Module=M; M.bas", "Module=T; T.txt"});
        b.Cattivo("p/M.bas");
        b.Cattivo("p/T.txt");
        b.Buono("altro/Z.cls");
        b.Disco.Metti("/casa/elenco", "p/P.vbp\n");
        const auto prima = b.Disco.TuttiIFile();
        // By its name no file of a project, examined or not; by what it is nothing that was read.
        for (const char* file : {"p/P.vbp", "p/M.bas", "altro/Z.cls"}) {
            EXPECT_EQ(b.Esegui({opzione + std::string(file), "p/P.vbp"}), 2) << opzione << file;
            EXPECT_TRUE(b.Dice(" non si sovrascrive")) << b.Errori.str();
        }
        for (const char* file : {"p/T.txt", "p/t.TXT", "elenco", "p/../p/T.txt"}) {
            EXPECT_EQ(b.Esegui({opzione + std::string(file), "@elenco"}), 1) << opzione << file;
            EXPECT_TRUE(b.Dice("errore 70, ")) << b.Errori.str();
        }
        EXPECT_EQ(b.Esegui({opzione + std::string("manca/x"), "p/P.vbp"}), 1);
        EXPECT_TRUE(b.Dice("errore 76, ")) << b.Errori.str();
        EXPECT_EQ(b.Disco.TuttiIFile(), prima) << opzione;
    }
}

TEST(Sacri, SoloLUscita) {
    BancoEsame b;
    b.Metti("p/P.vbp", {"Module=M; M.bas"});
    b.Cattivo("p/M.bas");
    auto attesi = b.Disco.TuttiIFile();
    EXPECT_EQ(b.Esegui({"p/P.vbp"}), 4);
    EXPECT_EQ(b.Disco.TuttiIFile(), attesi);
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/casa");

    const std::string testo = b.Uscita.str();
    EXPECT_EQ(b.Esegui({"-u", "esito.txt", "p/P.vbp"}), 4);
    EXPECT_EQ(b.Uscita.str(), "1 rilievo in 1 modulo, 3 righe\n");
    attesi["/casa/esito.txt"] = testo;
    EXPECT_EQ(b.Disco.TuttiIFile(), attesi);

    EXPECT_EQ(b.Esegui({"-u", "-", "p/P.vbp"}), 4);
    EXPECT_EQ(b.Uscita.str(), testo);
}

TEST(Sacri, DiscoPieno) {
    BancoEsame b;
    b.Buono("B.bas");
    b.Cattivo("C.bas");
    b.Disco.Fallisci("Scrivi", "esito", 61);
    EXPECT_EQ(b.Esegui({"-u", "esito", "B.bas"}), 1);
    EXPECT_TRUE(b.Dice("errore 61, ") && b.Dice("--uscita")) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"-u", "esito", "C.bas"}), 4);
}

// A name that Windows-1252 cannot hold is written under itself, and protected as itself.
TEST(Sacri, NomiDiAltreScritture) {
    BancoEsame b;
    b.Cattivo("ключ/д.txt");
    EXPECT_EQ(b.Esegui({"-u", "ключ/д.txt", "ключ/д.txt"}), 1);
    EXPECT_TRUE(b.Dice("errore 70, ")) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"-u", "ключ/новый", "ключ/д.txt"}), 4);
    EXPECT_TRUE(b.Disco.Esiste("/casa/ключ/новый"));
}

// ------------------------------------------------------------------------------------ the base

TEST(Base, NuoviNotiESpariti) {
    BancoEsame b;
    b.Metti("A.bas", {"Sub a()", "  Do", "End Sub", "Sub b()", "  Do", "End Sub"});
    b.Cattivo("B.bas");
    EXPECT_EQ(b.Esegui({"--scrivi-base=base", "A.bas", "B.bas"}), 4);
    EXPECT_EQ(b.Disco.Leggi("/casa/base"),
              "# morvella base 1\nMV001\tA.bas\t1\tDo\nMV001\tA.bas\t2\tDo\nMV001\tB.bas\t1\tDo\n");
    EXPECT_EQ(b.Esegui({"--base=base", "A.bas", "B.bas"}), 0);
    EXPECT_EQ(b.Uscita.str(), "0 rilievi in 2 moduli, 9 righe\nbase: 0 nuovi, 3 noti, 0 spariti\n");

    // Lines above, another indentation: the same findings. A third Do is new, B's is gone.
    b.Metti("A.bas", {"' c", "", "Sub a()", "\tDo", "End Sub", "Sub b()", "Do  ", "End Sub", "Sub c()",
                      "  Do", "End Sub"});
    b.Buono("B.bas");
    EXPECT_EQ(b.Esegui({"--base=base", "A.bas", "B.bas"}), 4);
    EXPECT_TRUE(b.Uscita.str().starts_with("A.bas:10:3: errore: ")) << b.Uscita.str();
    EXPECT_TRUE(
        b.Uscita.str().ends_with("1 rilievo in 2 moduli, 13 righe\nbase: 1 nuovo, 2 noti, 1 sparito\n"))
        << b.Uscita.str();
    EXPECT_EQ(b.Trovati(), Nomi{"A.bas"});
}

TEST(Base, RegolaTestoEFileContano) {
    BancoEsame b;
    b.Cattivo("A.bas");
    EXPECT_EQ(b.Esegui({"--scrivi-base=base", "A.bas"}), 4);
    b.Metti("A.bas", {"Sub a()", "  Do Until x", "End Sub"}); // another text
    EXPECT_EQ(b.Esegui({"--base=base", "A.bas"}), 4);
    EXPECT_TRUE(b.Scrive("base: 1 nuovo, 0 noti, 1 sparito")) << b.Uscita.str();
    b.Cattivo("Z.bas"); // another file
    b.Disco.Cancella("/casa/A.bas");
    EXPECT_EQ(b.Esegui({"--base=base", "Z.bas"}), 4);
    EXPECT_TRUE(b.Scrive("base: 1 nuovo, 0 noti, 1 sparito")) << b.Uscita.str();
    b.Disco.Metti("/casa/base", "# morvella base 1\nMV002\tZ.bas\t1\tDo\n"); // another rule
    EXPECT_EQ(b.Esegui({"--base=base", "Z.bas"}), 4);
    EXPECT_TRUE(b.Scrive("base: 1 nuovo, 0 noti, 1 sparito")) << b.Uscita.str();
}

// What is known of a file that was not examined, or could not be, is neither gone nor lost.
TEST(Base, FileNonEsaminati) {
    BancoEsame b;
    for (const char* file : {"A.bas", "B.bas", "C.bas"}) b.Cattivo(file);
    EXPECT_EQ(b.Esegui({"--scrivi-base=base", "A.bas", "B.bas", "C.bas"}), 4);
    const std::string base = b.Disco.Leggi("/casa/base");
    b.Disco.Fallisci("ApriLettura", "B.bas", 75);
    EXPECT_EQ(b.Esegui({"--base=base", "--scrivi-base=base", "A.bas", "B.bas"}), 1);
    EXPECT_TRUE(b.Scrive("base: 0 nuovi, 1 noto, 0 spariti, 2 di file non esaminati\n")) << b.Uscita.str();
    EXPECT_EQ(b.Disco.Leggi("/casa/base"), base);
    b.Disco.Cancella("/casa/C.bas");
    b.Buono("A.bas");
    EXPECT_EQ(b.Esegui({"--base=base", "--scrivi-base=base", "A.bas"}), 0);
    EXPECT_EQ(b.Disco.Leggi("/casa/base"), "# morvella base 1\nMV001\tB.bas\t1\tDo\n");
}

TEST(Base, NonUnaBase) {
    BancoEsame b;
    b.Cattivo("A.bas");
    EXPECT_EQ(b.Esegui({"--base=manca", "A.bas"}), 1);
    EXPECT_TRUE(b.Dice("errore 53, ")) << b.Errori.str();
    const char* const sbagliate[] = {"", "MV001\tA.bas\t1\tDo\n", "# morvella base 1\nboh\n",
                                     "# morvella base 1\na\tb\tc\td\te\n"};
    for (const char* bytes : sbagliate) {
        b.Disco.Metti("/casa/base", bytes);
        EXPECT_EQ(b.Esegui({"--base=base", "A.bas"}), 2) << bytes;
        EXPECT_TRUE(b.Dice("morvella-cli: --base: base ")) << b.Errori.str();
    }
    // Line ends of another system, put there by a version control, change nothing.
    b.Disco.Metti("/casa/base", "# morvella base 1\r\nMV001\tA.bas\t1\tDo\r\n");
    EXPECT_EQ(b.Esegui({"--base=base", "A.bas"}), 0);
    // The result must not take the base's place.
    EXPECT_EQ(b.Esegui({"--base=base", "--uscita=base", "A.bas"}), 2);
    EXPECT_EQ(b.Esegui({"--scrivi-base=nuova", "--uscita=./nuova", "A.bas"}), 2);
    EXPECT_EQ(b.Esegui({"--base=base", "--uscita=BASE", "A.bas"}), 1);
    EXPECT_TRUE(b.Dice("errore 70, ")) << b.Errori.str();
}

TEST(Base, TestiCheNonSonoParole) {
    BancoEsame b;
    b.Metti("A.bas", {"Sub a()", "  Do\tUntil x = \"\\n\" ' Perch\xE9", "End Sub"});
    EXPECT_EQ(b.Esegui({"--scrivi-base=base", "A.bas"}), 4);
    EXPECT_EQ(b.Disco.Leggi("/casa/base"),
              "# morvella base 1\nMV001\tA.bas\t1\tDo\\tUntil x = \"\\\\n\" ' Perché\n");
    EXPECT_EQ(b.Esegui({"--base=base", "A.bas"}), 0);
}

} // namespace

} // namespace morvella::cli

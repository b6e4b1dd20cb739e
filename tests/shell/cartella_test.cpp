// SPDX-License-Identifier: MIT
#include "shell/cartella.h"

#include <gtest/gtest.h>

#include "shell/banco.h"

namespace morvella {

namespace {

using prove::Banco;
using prove::NumeroDi;

constexpr const char* Marca = "Ok! Directory Creata, ora mettiamoci al lavoro ...\r\n";
constexpr const char* A = "\\p\\Appoggio";

TEST(Cartella, PrimaVolta) {
    Banco b;
    b.Scegli("Type=Exe\r\n");
    ScriviDir(b.S, A);
    EXPECT_EQ(b.Disco.TuttiIFile(), (std::map<std::string, std::string>{
                                        {"/p/Appoggio/OK.LOG", Marca},
                                        {"/p/Appoggio/Prova.vbp", "Type=Exe\r\n"},
                                        {"/p/Prova.vbp", "Type=Exe\r\n"},
                                    }));
    EXPECT_EQ(b.S.DirAppoggio, A);
    EXPECT_EQ(b.Fronte.Aggiornamenti, 1);
    EXPECT_FALSE(b.S.Canale.Aperto(7));
    EXPECT_TRUE(b.Fronte.Box_.empty());
}

TEST(Cartella, SecondaVolta) {
    Banco b;
    b.Scegli("Type=Exe\r\n");
    ScriviDir(b.S, A);
    b.Disco.Metti("/p/Appoggio/OK.LOG", "tenuto");
    b.Disco.Metti("/p/Prova.vbp", "nuovo");
    ScriviDir(b.S, A);
    EXPECT_EQ(b.Disco.Leggi("/p/Appoggio/OK.LOG"), "tenuto"); // once, with the directory
    EXPECT_EQ(b.Disco.Leggi("/p/Appoggio/Prova.vbp"), "nuovo");
    b.Disco.Cancella("/p/Appoggio/OK.LOG");
    ScriviDir(b.S, A);
    EXPECT_FALSE(b.Disco.Esiste("/p/Appoggio/OK.LOG"));
}

TEST(Cartella, EsisteConAltreMaiuscole) {
    Banco b;
    b.Scegli("x");
    b.Disco.FaiDirectory("/p/APPOGGIO");
    ScriviDir(b.S, A);
    EXPECT_FALSE(b.Disco.Esiste("/p/Appoggio"));
    EXPECT_EQ(b.Disco.Leggi("/p/APPOGGIO/Prova.vbp"), "x");
    EXPECT_FALSE(b.Disco.Esiste("/p/APPOGGIO/OK.LOG"));
    EXPECT_EQ(b.S.DirAppoggio, A); // the text as it was given
}

TEST(Cartella, NessunProgettoScelto) {
    for (const char* nome : {"", "   "}) {
        Banco b;
        b.Scegli("x");
        b.S.File1Leggi.Nomi = {nome};
        b.S.File1Leggi.ListIndex = *nome ? 0 : -1;
        b.Disco.Metti("/p/   ", "y"); // a name of blanks is none, though there is a file of it
        ScriviDir(b.S, A);
        EXPECT_EQ(b.Disco.TuttiIFile().size(), 3u); // the project, that file and the marker
        EXPECT_EQ(b.Disco.Leggi("/p/Appoggio/OK.LOG"), Marca);
        EXPECT_EQ(b.Fronte.Aggiornamenti, 1);
    }
}

TEST(Cartella, FileChiamatoAppoggio) {
    Banco b;
    b.Scegli("x");
    b.Disco.Metti("/p/Appoggio", "sono un file");
    ScriviDir(b.S, A);
    EXPECT_EQ(b.Disco.TuttiIFile(),
              (std::map<std::string, std::string>{{"/p/Appoggio", "sono un file"}, {"/p/Prova.vbp", "x"}}));
    EXPECT_EQ(b.S.DirAppoggio, A);
    EXPECT_EQ(b.Fronte.Aggiornamenti, 1);
    // The engines meet it at their first output.
    EXPECT_EQ(NumeroDi([&] { return b.S.Canale.OpenOutput(2, Testo(A) + "\\x.txt"), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return b.S.Canale.OpenOutput(2, LCase(A) + "\\x.txt"), 0; }), 76);
}

TEST(Cartella, OgniIstruzionePuoFallire) {
    struct Caso {
        const char *Operazione, *Fine;
        bool Directory, Copia;
        const char* Marca; // nullptr: there is no such file
    };
    constexpr Caso Casi[] = {
        {"CreaDirectory", "/Appoggio", false, false, nullptr},
        {"ApriScrittura", "OK.LOG", true, true, nullptr},
        {"Scrivi", "OK.LOG", true, true, ""},
        {"Chiudi", "OK.LOG", true, true, Marca},
        {"Copia", "Prova.vbp", true, false, Marca},
    };
    for (const Caso& c : Casi) {
        for (const int numero : {53, 55, 57, 61, 70, 75, 76}) {
            Banco b;
            b.Scegli("x");
            b.Disco.Fallisci(c.Operazione, c.Fine, numero);
            ScriviDir(b.S, A);
            EXPECT_EQ(b.Disco.Esiste("/p/Appoggio"), c.Directory) << c.Operazione << numero;
            EXPECT_EQ(b.Disco.Esiste("/p/Appoggio/Prova.vbp"), c.Copia) << c.Operazione << numero;
            EXPECT_EQ(b.Disco.Esiste("/p/Appoggio/OK.LOG"), c.Marca != nullptr) << c.Operazione << numero;
            if (c.Marca) {
                EXPECT_EQ(b.Disco.Leggi("/p/Appoggio/OK.LOG"), c.Marca) << c.Operazione;
            }
            EXPECT_EQ(b.S.DirAppoggio, A);
            EXPECT_EQ(b.Fronte.Aggiornamenti, 1); // the last statement runs in any case
            EXPECT_FALSE(b.S.Canale.Aperto(7)) << c.Operazione;
            EXPECT_TRUE(b.Fronte.Box_.empty());
            // Told once, but for a missing directory, which the engines tell.
            ASSERT_EQ(b.Fronte.Saltati.empty(), numero == 76) << c.Operazione << numero;
            if (numero != 76) {
                EXPECT_EQ(b.Fronte.Saltati.size(), 1u) << c.Operazione << numero;
                EXPECT_EQ(b.Fronte.Saltati[0].Numero, numero);
            }
        }
    }
}

TEST(Cartella, CheNonSiEsaminaNonManca) {
    Banco b;
    b.Scegli("x");
    b.Disco.FaiDirectory("/p/Appoggio");
    b.Disco.Fallisci("Esamina", "/p/Appoggio", 57, 1);
    ScriviDir(b.S, A);
    EXPECT_FALSE(b.Disco.Esiste("/p/Appoggio/OK.LOG"));
    ASSERT_EQ(b.Fronte.Saltati.size(), 1u);
    EXPECT_EQ(b.Fronte.Saltati[0].Numero, 57);
}

TEST(Cartella, ProgettoConUnNomeDiAltriAlfabeti) {
    // Chosen from the list and copied under the very same name, also a second time.
    Banco b;
    b.Disco.Metti("/p/Проект.vbp", "uno");
    CambiaDir1(b.S, "/p");
    ASSERT_EQ(b.S.File1Leggi.Nomi.size(), 1u);
    b.S.File1Leggi.ListIndex = 0;
    for (const char* bytes : {"uno", "due"}) {
        b.Disco.Metti("/p/Проект.vbp", bytes);
        ScriviDir(b.S, A);
        EXPECT_EQ(b.Disco.TuttiIFile(), (std::map<std::string, std::string>{{"/p/Appoggio/OK.LOG", Marca},
                                                                            {"/p/Appoggio/Проект.vbp", bytes},
                                                                            {"/p/Проект.vbp", bytes}}));
    }
    EXPECT_TRUE(b.Fronte.Saltati.empty());
    EXPECT_EQ(b.S.File.Utf8DiTesto(b.S.File1Leggi.Scelto()), "Проект.vbp");
}

TEST(Cartella, ProgettoSparito) {
    Banco b;
    b.Scegli("x");
    b.Disco.Cancella("/p/Prova.vbp");
    ScriviDir(b.S, A);
    EXPECT_FALSE(b.Disco.Esiste("/p/Appoggio/Prova.vbp"));
    EXPECT_EQ(b.Disco.Leggi("/p/Appoggio/OK.LOG"), Marca);
}

TEST(Cartella, Canale7GiaAperto) {
    Banco b;
    b.Scegli("x");
    b.S.Canale.OpenOutput(7, "\\p\\altro"); // the opening fails, and the line goes to what is open
    ScriviDir(b.S, A);
    EXPECT_FALSE(b.Disco.Esiste("/p/Appoggio/OK.LOG"));
    EXPECT_EQ(b.Disco.Leggi("/p/altro"), Marca);
}

TEST(Cartella, IlTestoPiegatoConduceLi) {
    Banco b;
    b.Disco.FaiDirectory("/data/prog/appoggio");
    b.Disco.FaiDirectory("/data/Prog");
    CambiaDir1(b.S, "/data/Prog");
    ScriviDir(b.S, b.S.Dir1Path + "\\Appoggio");
    EXPECT_EQ(b.S.File.Trova(b.S.File.Piega(b.S.DirAppoggio + "\\X.Txt")).Percorso,
              "/data/Prog/Appoggio/x.txt");
}

TEST(Cartella, BaseDiVoce) {
    struct Caso {
        Vista Riga, Base;
    };
    constexpr Caso Casi[] = {
        {"Form1.frm", "Form1"}, {"Form1.f", "For"},       {"Form1.html", "Form1."}, // four bytes, whatever
        {".frm", ""},           {"sub\\a.bas", "sub\\a"}, {"..\\a.bas", "..\\a"},
    };
    for (const Caso& c : Casi) EXPECT_EQ(BaseDiVoce(c.Riga), c.Base) << c.Riga;
    for (const Vista voce : {"", "a", "ab", "abc"})
        EXPECT_EQ(NumeroDi([&] { return BaseDiVoce(voce); }), 5) << voce;
}

TEST(Cartella, PercorsoCortoSenzaPercorsiCorti) {
    Banco b;
    CambiaDir1(b.S, "/p");
    const Testo lungo = Testo(A) + "\\" + Testo(200, 'x') + ".Log";
    EXPECT_EQ(PercorsoCorto(b.S, lungo), lungo); // whole: the limit is dropped
    EXPECT_EQ(PercorsoCorto(b.S, ""), "");
}

TEST(Cartella, PercorsoCorto) {
    struct Caso {
        std::size_t Lungo_;
        Testo Atteso;
    };
    const auto di = [](std::size_t n) { return "C:\\" + Testo(n - 3, 's'); };
    const Caso casi[] = {
        {20, di(20)},
        {49, di(49)},
        {50, di(50)},
        {51, di(50)}, // the cut at 50
        {163, di(50)},
        {164, Testo(50, '\0')}, // with its NUL beyond the buffer: the length comes,
                                // the text does not
        {300, Testo(50, '\0')},
    };
    for (const Caso& c : casi) {
        Banco b;
        CambiaDir1(b.S, "/p");
        b.Disco.Metti("/p/Appoggio/Form1.log", "");
        b.Disco.PercorsiCorti["/p/Appoggio/Form1.log"] = di(c.Lungo_);
        EXPECT_EQ(PercorsoCorto(b.S, Testo(A) + "\\FORM1.Log"), c.Atteso) << c.Lungo_;
        const Testo manca = Testo(A) + "\\Manca.Log";
        EXPECT_EQ(PercorsoCorto(b.S, manca), manca); // what is not there has no short form
    }
}

} // namespace

} // namespace morvella

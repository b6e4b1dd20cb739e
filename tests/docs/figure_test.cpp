// SPDX-License-Identifier: MIT
//
// The pictures: which are copied, under which names, and what a missing one does.
#include "docs/banco.h"

namespace morvella {

namespace {

using namespace prove;

TEST(Figure, SoloLeMancanti) {
    const char* nomi[] = {"p2.gif", "dario.gif", "BLULETHR.GIF", "home.GIF"};
    for (int maschera = 0; maschera < 16; ++maschera) {
        Banco b;
        b.Voce("A.bas", "x\n");
        b.Disco.Metti("/p/Appoggio/OK.LOG", "");
        std::vector<std::string> attese;
        for (int i = 0; i < 4; ++i) {
            if ((maschera >> i & 1) != 0)
                b.Disco.Metti(std::string("/p/Appoggio/") + nomi[i], "mia");
            else
                attese.push_back(std::string("Copia /p/Appoggio/") + nomi[i]);
        }
        attese.emplace_back("Copia /p/Appoggio/Dario.gif");
        b.Disco.Chiamate.clear();
        ASSERT_EQ(b.Documenta(), 0);
        std::vector<std::string> copie;
        for (const std::string& chiamata : b.Disco.Chiamate)
            if (chiamata.starts_with("Copia ")) copie.push_back(chiamata);
        EXPECT_EQ(copie, attese) << maschera;
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(b.Pagina(nomi[i]) == "mia", (maschera >> i & 1) != 0) << nomi[i];
        EXPECT_EQ(b.Pagina("Dario.gif"), b.Pagina("dario.gif"));
    }
}

// The pages ask for "Dario.gif" and the copy is "dario.gif": a disk that tells them apart has both.
TEST(Figure, Dario) {
    struct Caso {
        bool Distingue;
        const char* Prima; // in the work directory
        std::vector<std::string> Dopo;
    };
    const Caso casi[] = {
        {true, nullptr, {"Dario.gif", "dario.gif"}},
        {true, "Dario.gif", {"Dario.gif"}},
        {true, "DARIO.GIF", {"DARIO.GIF", "Dario.gif"}},
        {false, nullptr, {"dario.gif"}},
    };
    for (const Caso& caso : casi) {
        Banco b;
        if (!caso.Distingue) { // and names are found as they are spelled
            b.Disco.Distingue = false;
            b.Disco.Metti("/prog/dario.gif", "figura Dario.gif");
        }
        b.Disco.Metti("/p/Appoggio/OK.LOG", "");
        if (caso.Prima) b.Disco.Metti(std::string("/p/Appoggio/") + caso.Prima, "figura Dario.gif");
        b.Voce("A.bas", "x\n");
        for (int volta = 0; volta < 2; ++volta) { // the second run finds them
            b.Disco.Chiamate.clear();
            ASSERT_EQ(b.Documenta(), 0);
            std::vector<std::string> dopo;
            for (const auto& [percorso, bytes] : b.Disco.TuttiIFile())
                if (percorso.starts_with("/p/Appoggio/") && LCase(percorso).ends_with("/dario.gif")) {
                    dopo.push_back(percorso.substr(12));
                    EXPECT_EQ(bytes, "figura Dario.gif");
                }
            EXPECT_EQ(dopo, caso.Dopo);
            for (const std::string& chiamata : b.Disco.Chiamate)
                EXPECT_FALSE(volta == 1 && chiamata.starts_with("Copia ")) << chiamata;
        }
    }
}

// One that is not beside the program ends the run: pages stay, no index comes.
TEST(Figure, Mancante) {
    const std::pair<const char*, std::vector<const char*>> casi[] = {
        {"p2.gif", {}},
        {"Dario.gif", {"p2.gif"}},
        {"BLULETHR.GIF", {"p2.gif", "dario.gif"}},
        {"home.GIF", {"p2.gif", "dario.gif", "BLULETHR.GIF"}},
    };
    for (const auto& [manca, copiate] : casi) {
        Banco b;
        b.Disco.Cancella(std::string("/prog/") + manca);
        b.Voce("A.bas", "x\n");
        b.Disco.Metti("/p/Appoggio/Indice.Html", "vecchio");
        EXPECT_EQ(b.Documenta(), 53) << manca;
        EXPECT_TRUE(b.C("/p/Appoggio/A.Html"));
        EXPECT_EQ(b.Pagina("Indice.Html"), "vecchio");
        std::size_t figure = 0;
        for (const auto& [percorso, bytes] : b.Disco.TuttiIFile())
            if (percorso.starts_with("/p/Appoggio/") && bytes.starts_with("figura ")) ++figure;
        EXPECT_EQ(figure, copiate.size()) << manca;
        for (const char* nome : copiate) EXPECT_TRUE(b.C(std::string("/p/Appoggio/") + nome)) << nome;
        EXPECT_EQ(b.S.Label2, "\\p\\A.bas  0/1"); // still
        EXPECT_TRUE(b.Fronte.Box_.empty());

        b.Disco.Metti("/p/Appoggio/" + std::string(manca), "mia"); // there already: not looked for
        EXPECT_EQ(b.Documenta(), 0) << manca;
    }
}

// The step is passed over only where program, project and pages share one directory.
TEST(Figure, TutteUguali) {
    Banco b;
    b.Disco.Metti("/p2/altro", "");
    b.S.AppPath = b.S.Dir1Path;
    CopiaFigure(b.S, b.S.Dir1Path);
    EXPECT_FALSE(b.C("/p/p2.gif"));
    EXPECT_EQ(NumeroDi([&] {
                  CopiaFigure(b.S, b.S.Dir1Path + "\\Appoggio");
                  return 0;
              }),
              53);        // not beside the "program"
    b.S.AppPath = "\\p2"; // the pages lie beside the program, the project does not: it runs
    EXPECT_EQ(NumeroDi([&] {
                  CopiaFigure(b.S, "\\p2");
                  return 0;
              }),
              53);
    b.S.AppPath = "\\prog";
    CopiaFigure(b.S, b.S.Dir1Path);
    EXPECT_TRUE(b.C("/p/p2.gif"));
}

} // namespace

} // namespace morvella

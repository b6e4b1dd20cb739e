// SPDX-License-Identifier: MIT
//
// The index: its fixed lines, the columns, the question and the opening; and TogliRisalita.
#include "docs/banco.h"

namespace morvella {

namespace {

using namespace prove;

// A list of `n` rows, all selected, named so that they keep their order: A01.bas, A02.bas...
void Righe(Banco& b, int n) {
    for (int i = 1; i <= n; ++i) {
        std::string nome = std::to_string(i);
        nome.insert(0, 3 - std::min<std::size_t>(3, nome.size()), '0');
        b.S.File1.AddItem("A" + nome + ".bas");
    }
    for (int i = 0; i < n; ++i) b.S.File1.Segna(i, true);
}

Testo Indice(Banco& b, const Testo& directory = "\\p\\Appoggio") {
    b.Disco.FaiDirectory("/p/Appoggio");
    ScriviIndice(b.S, directory);
    return b.Disco.Leggi(directory.empty() ? "/Indice.Html" : "/p/Appoggio/Indice.Html");
}

// clang-format off
const Testo Testata =
    "<html>\r\n"
    "\r\n"
    "<head>\r\n"
    "<title>Indice Progetto di Documentazione</title>\r\n"
    "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\">\r\n"
    "<meta name=\"GENERATOR\">\r\n"
    "</head>\r\n"
    "\r\n"
    "<body background=\"BLULETHR.GIF\" style=\"font-family: Arial; font-size: 12\">\r\n"
    "<div align=\"center\"><center>\r\n"
    "<table border=\"0\" cellpadding=\"0\" cellspacing=\"0\" width=\"90%\">\r\n"
    " <tr>\r\n"
    "   <td align=\"center\" valign=\"top\" colspan=\"5\" width=\"100%\"><p align=\"center\"><font size=\"7\">Documentazione progetto ...</font><font size=\"6\"><br>\r\n"
    "   </font><font size=\"5\">Indice generale Form e/o procedure</font>&nbsp;&nbsp;<p align=\"center\">&nbsp;</td>\r\n"
    " </tr>\r\n"
    "   <tr>\r\n"
    "     <td width=\"30%\"></td>\r\n"
    "     <td width=\"5%\"></td>\r\n"
    "     <td width=\"30%\"></td>\r\n"
    "     <td width=\"5%\"></td>\r\n"
    "     <td width=\"30%\"></td>\r\n"
    "   </tr>\r\n"
    "   <tr>\r\n";
const Testo Piede =
    "</table>\r\n"
    "<p align=\"center\">&nbsp;</p>\r\n"
    "<p align=\"center\"><img border=\"0\" src=\"Dario.gif\" width=\"429\" height=\"124\"></p>\r\n"
    "</BODY>\r\n"
    "</HTML>\r\n";

TEST(Indice, UnaVoce) {
    Banco b;
    Righe(b, 1);
    EXPECT_EQ(Indice(b), Testata +
        "   <td valign=\"top\" width=\"30%\"><a href=\"\\p\\Appoggio\\A001.Html\">A001.bas<br></a></td>\r\n"
        "    <td width=\"5%\"></td>\r\n"
        "  <td valign=\"top\" width=\"30%\"></a></td>\r\n"
        "    <td width=\"5%\"></td>\r\n" + Piede); // no third cell, and the row stays open
}

TEST(Indice, TreVoci) {
    Banco b;
    Righe(b, 3);
    EXPECT_EQ(Indice(b), Testata +
        "   <td valign=\"top\" width=\"30%\"><a href=\"\\p\\Appoggio\\A001.Html\">A001.bas<br><a href=\"\\p\\Appoggio\\A002.Html\">A002.bas<br></a></td>\r\n"
        "    <td width=\"5%\"></td>\r\n"
        "  <td valign=\"top\" width=\"30%\"><a href=\"\\p\\Appoggio\\A003.Html\">A003.bas<br></a></td>\r\n"
        "    <td width=\"5%\"></td>\r\n"
        "    <td valign=\"top\" width=\"30%\"></a></td>\r\n"
        "  </tr>\r\n" + Piede);
}

TEST(Indice, NoveVoci) {
    Banco b;
    Righe(b, 9);
    EXPECT_EQ(Indice(b), Testata +
        "   <td valign=\"top\" width=\"30%\"><a href=\"\\p\\Appoggio\\A001.Html\">A001.bas<br><a href=\"\\p\\Appoggio\\A002.Html\">A002.bas<br><a href=\"\\p\\Appoggio\\A003.Html\">A003.bas<br><a href=\"\\p\\Appoggio\\A004.Html\">A004.bas<br></a></td>\r\n"
        "    <td width=\"5%\"></td>\r\n"
        "  <td valign=\"top\" width=\"30%\"><a href=\"\\p\\Appoggio\\A005.Html\">A005.bas<br><a href=\"\\p\\Appoggio\\A006.Html\">A006.bas<br><a href=\"\\p\\Appoggio\\A007.Html\">A007.bas<br></a></td>\r\n"
        "    <td width=\"5%\"></td>\r\n"
        "    <td valign=\"top\" width=\"30%\"><a href=\"\\p\\Appoggio\\A008.Html\">A008.bas<br><a href=\"\\p\\Appoggio\\A009.Html\">A009.bas<br></a></td>\r\n"
        "  </tr>\r\n" + Piede);
}

TEST(Indice, NessunaVoce) {
    Banco b;
    Righe(b, 2);
    b.S.File1.Segna(0, false);
    b.S.File1.Segna(1, false);
    EXPECT_EQ(Indice(b, ""), Testata +
        "   <td valign=\"top\" width=\"30%\"></a></td>\r\n"
        "    <td width=\"5%\"></td>\r\n" + Piede);
}
// clang-format on

std::size_t Quanti(Vista dove, Vista che) {
    std::size_t n = 0;
    for (std::size_t i = dove.find(che); i != Vista::npos; i = dove.find(che, i + 1)) ++n;
    return n;
}

TEST(Indice, Colonne) {
    struct Caso {
        int Voci;
        std::size_t Prima, Seconda, Terza;
        bool CellaDue, CellaTre;
    };
    const Caso casi[] = {
        {0, 0, 0, 0, false, false},       {1, 1, 0, 0, true, false},     {2, 1, 1, 0, true, true},
        {3, 2, 1, 0, true, true},         {4, 2, 2, 0, true, true},      {5, 2, 2, 1, true, true},
        {6, 3, 2, 1, true, true},         {7, 3, 3, 1, true, true},      {8, 3, 3, 2, true, true},
        {9, 4, 3, 2, true, true},         {100, 34, 34, 32, true, true}, {998, 333, 333, 332, true, true},
        {999, 334, 333, 332, true, true},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.Voci);
        Banco b;
        Righe(b, caso.Voci);
        const Testo indice = Indice(b);
        ASSERT_TRUE(indice.starts_with(Testata) && indice.ends_with(Piede));
        const Testo corpo = indice.substr(Testata.size(), indice.size() - Testata.size() - Piede.size());
        std::vector<Testo> righe;
        for (std::size_t da = 0; da < corpo.size();) {
            const std::size_t fine = corpo.find("\r\n", da);
            righe.push_back(corpo.substr(da, fine - da));
            da = fine + 2;
        }
        ASSERT_EQ(righe.size(), 2U + (caso.CellaDue ? 2 : 0) + (caso.CellaTre ? 2 : 0));
        const auto cella = [&](std::size_t quale, const char* apre, std::size_t voci) {
            EXPECT_TRUE(righe[quale].starts_with(Testo(apre) + "<td valign=\"top\" width=\"30%\">"));
            EXPECT_TRUE(righe[quale].ends_with(voci ? "<br></a></td>" : "%\"></a></td>"));
            EXPECT_EQ(Quanti(righe[quale], "<a href="), voci);
            EXPECT_EQ(Quanti(righe[quale], "</a>"), 1U); // one end for all its links
        };
        cella(0, "   ", caso.Prima);
        EXPECT_EQ(righe[1], "    <td width=\"5%\"></td>");
        if (caso.CellaDue) {
            cella(2, "  ", caso.Seconda);
            EXPECT_EQ(righe[3], "    <td width=\"5%\"></td>");
        }
        if (caso.CellaTre) {
            cella(4, "    ", caso.Terza);
            EXPECT_EQ(righe[5], "  </tr>");
        }
        // Every row once, in the list's order.
        std::size_t da = 0;
        for (int i = 0; i < caso.Voci; ++i) {
            da = corpo.find("\">" + b.S.File1.List(i) + "<br>", da);
            ASSERT_NE(da, Testo::npos) << i;
        }
        EXPECT_EQ(Quanti(corpo, "<a href="), static_cast<std::size_t>(caso.Voci));
    }
}

// Links and their texts go into the page unaltered; rows that are not selected stay out.
TEST(Indice, Voci) {
    Banco b;
    for (const char* voce : {"..\\Comune\\F<o>&.frm", "Perch\xE9.bas", "sub/x.cls", "Z.bas", ".bas", "z.bas"})
        b.S.File1.AddItem(voce);
    for (Lungo i = 0; i < 6; ++i) b.S.File1.Segna(i, true);
    ASSERT_EQ(b.S.File1.List(4), "Z.bas");
    b.S.File1.Segna(4, false);
    const Testo indice = Indice(b);
    for (const char* link : {"<a href=\"\\p\\Appoggio\\..\\Comune\\F<o>&.Html\">..\\Comune\\F<o>&.frm<br>",
                             "<a href=\"\\p\\Appoggio\\.Html\">.bas<br>",
                             "<a href=\"\\p\\Appoggio\\Perch\xE9.Html\">Perch\xE9.bas<br>",
                             "<a href=\"\\p\\Appoggio\\sub/x.Html\">sub/x.cls<br>",
                             "<a href=\"\\p\\Appoggio\\z.Html\">z.bas<br>"})
        EXPECT_EQ(Quanti(indice, link), 1U) << link;
    EXPECT_EQ(Quanti(indice, "<a href="), 5U);
}

TEST(Indice, Domanda) {
    Banco b;
    Righe(b, 1);
    Indice(b);
    ASSERT_EQ(b.Fronte.Box_.size(), 1U);
    EXPECT_EQ(b.Fronte.Box_[0].Scritto, "Documentazione HTML riuscita.\rVuoi visualizzare l'indice?");
    EXPECT_EQ(b.Fronte.Box_[0].Flag, 36);
    EXPECT_EQ(b.Fronte.Box_[0].Titolo, "Visualizzazione Documentazione HTML");
}

// On Yes alone: into the pages' directory, the browser, back to the project.
TEST(Indice, Apertura) {
    for (const int risposta : {6, 7, 1, 0, 2}) {
        Banco b;
        b.Disco.FaiDirectory("/p q");
        CambiaDir1(b.S, "/p q");
        b.Voce("A.bas");
        b.Disco.Metti("/p q/A.bas", "x\r\n");
        b.Fronte.Risposta = risposta;
        std::string all_avvio;
        b.Fronte.AllAvvio = [&] { all_avvio = b.Disco.DirectoryCorrente(); };
        b.Fronte.AllaDomanda = [&] { b.Disco.CambiaDirectory("/"); };
        ASSERT_EQ(b.Documenta(), 0);
        if (risposta != 6) {
            EXPECT_TRUE(b.Fronte.Processi.empty());
            EXPECT_EQ(b.Disco.DirectoryCorrente(), "/"); // nothing moves it
            continue;
        }
        EXPECT_EQ(b.Fronte.Processi,
                  std::vector<Testo>{"Explorer \\p q\\Appoggio\\Indice.Html"}); // no quotes
        EXPECT_EQ(b.Fronte.StileProcesso, 3);
        EXPECT_EQ(all_avvio, "/p q/Appoggio");
        EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p q");
    }
}

// A browser that does not start is an error like any other, after the index.
TEST(Indice, AvvioFallito) {
    Banco b;
    Righe(b, 1);
    b.Fronte.Risposta = 6;
    b.Fronte.AllAvvio = [] { throw Errore(53, "Explorer"); };
    EXPECT_EQ(NumeroDi([&] {
                  Indice(b);
                  return 0;
              }),
              53);
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p/Appoggio");
}

// The old index goes; one of another spelling too.
TEST(Indice, IlVecchioSparisce) {
    Banco b;
    b.Disco.Metti("/p/Appoggio/INDICE.HTML", Testo(100000, 'x'));
    Righe(b, 1);
    EXPECT_TRUE(Indice(b).starts_with(Testata));
    EXPECT_FALSE(b.C("/p/Appoggio/INDICE.HTML"));
    EXPECT_LT(b.Pagina("Indice.Html").size(), 5000U);
}

TEST(TogliRisalita, Righe) {
    const std::pair<const char*, const char*> casi[] = {
        {"", ""},           {"../../x", "x"},         {"../", ""},
        {"..\\x", "..\\x"}, {"a/../b", "a/b"},        {"....//", "../"},
        {"..", ".."},       {"./x", "./x"},           {".../x", ".x"},
        {"x/..", "x/.."},   {"../..\\../y", "..\\y"}, {".\xE0./", ".\xE0./"},
    };
    for (const auto& [testo, senza] : casi) EXPECT_EQ(TogliRisalita(testo), senza) << testo;
    Testo molte;
    for (int i = 0; i < 1000; ++i) molte += "../x";
    EXPECT_EQ(TogliRisalita(molte), Testo(1000, 'x'));
}

} // namespace

} // namespace morvella

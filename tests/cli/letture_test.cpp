// SPDX-License-Identifier: MIT
//
// --controlla beside the examination: what both readings find, and the report of both.
#include "cli/banco.h"
#include "sostegno/json.h"

namespace morvella::cli {

namespace {

using morvella::prove::Json;
using morvella::prove::LeggiJson;
using prove::Banco;

// A project of one form, with a head of two lines before the code: line 3 of the file is the first.
void Metti(Banco& b, const std::vector<std::string>& codice) {
    b.Disco.Metti("/casa/p/Prova.vbp", "Form=F.frm\r\n");
    std::string bytes = "VERSION 5.00\r\nAttribute VB_Exposed = False\r\n";
    for (const std::string& riga : codice) bytes += riga + "\r\n";
    b.Disco.Metti("/casa/p/F.frm", bytes);
}

TEST(Letture, Condivisi) {
    struct Caso {
        const char* Che;
        std::vector<std::string> Codice;
        std::vector<bool> Condivisi; // one for each finding of the listing
    };
    const Caso casi[] = {
        {"a one-line If is none", {"Sub a()", "If x Then y", "End Sub"}, {false}},
        {"a While is none", {"Sub a()", "While x", "Wend", "End Sub"}, {false}},
        {"a missing Next is one", {"Sub a()", "For i = 1 To 2", "End Sub"}, {true}},
        {"each in its procedure",
         {"Sub a()", "If x Then y", "End Sub", "Sub b()", "Do", "End Sub", "Sub c()", "If x Then y",
          "End Sub"},
         {false, true, false}},
        {"at the head", {"Sub a()", "Sub b()", "If x Then y", "End Sub"}, {false}},
        {"an unknown head",
         {"Friend Sub a()", "Do", "End Sub", "Friend Sub b()", "If x Then y", "End Sub"},
         {true, false}},
    };
    for (const Caso& caso : casi) {
        Banco b;
        Metti(b, caso.Codice);
        EXPECT_EQ(b.Esegui({"struttura", "--controlla", "-r", "r.json", "p/Prova.vbp"}), 4) << caso.Che;
        const Json tutto = LeggiJson(b.Disco.Leggi("/casa/r.json"));
        std::vector<bool> condivisi;
        for (const Json& r : tutto["rilievi"]["struttura"].Voci)
            condivisi.push_back(r["condiviso"].Testo == "true");
        EXPECT_EQ(condivisi, caso.Condivisi) << caso.Che;
        const auto quanti = std::count(caso.Condivisi.begin(), caso.Condivisi.end(), true);
        EXPECT_TRUE(b.Uscita.str().ends_with("\nRilievi condivisi da esamina: " + std::to_string(quanti) +
                                             " su " + std::to_string(caso.Condivisi.size()) + "\n"))
            << caso.Che << b.Uscita.str();
    }
}

// Who counts the lines of findings goes on to count findings alone; without any there is nothing to share.
TEST(Letture, QuandoTacciono) {
    Banco b;
    Metti(b, {"Sub a()", "Do", "End Sub"});
    EXPECT_EQ(b.Esegui({"struttura", "--controlla", "-q", "p/Prova.vbp"}), 4);
    EXPECT_FALSE(b.Scrive("condivisi")) << b.Uscita.str();
    Metti(b, {"Sub a()", "End Sub"});
    EXPECT_EQ(b.Esegui({"struttura", "--controlla", "p/Prova.vbp"}), 0);
    EXPECT_FALSE(b.Scrive("condivisi")) << b.Uscita.str();
}

TEST(Letture, NelRapporto) {
    Banco b;
    Metti(b, {"Sub a()", "\tFor i = 1 To 2", "Loop", "End Sub", "Sub b()", "  If x Then y", "End Sub"});
    EXPECT_EQ(b.Esegui({"esegui", "--si", "-q", "--controlla", "-r", "r.json", "p/Prova.vbp"}), 4);
    const Json tutto = LeggiJson(b.Disco.Leggi("/casa/r.json"));
    const Json& struttura = tutto["rilievi"]["struttura"]; // a tab hides the For, and Loop closes nothing
    ASSERT_EQ(struttura.Voci.size(), 1U);
    EXPECT_EQ(struttura[0]["file"].Testo, "p/F.frm");
    EXPECT_EQ(struttura[0]["riga"].Testo, "9");
    EXPECT_EQ(struttura[0]["testo"].Testo, "End Sub");
    EXPECT_TRUE(struttura[0]["messaggio"].Testo.starts_with("la procedura «Sub b()» (riga 7) finisce"));
    EXPECT_EQ(struttura[0]["condiviso"].Testo, "false");
    const Json& esame = tutto["rilievi"]["esamina"];
    ASSERT_EQ(esame.Voci.size(), 1U);
    EXPECT_EQ(esame[0]["regola"].Testo, "MV003");
    EXPECT_EQ(esame[0]["file"].Testo, "p/F.frm");
    EXPECT_EQ(esame[0]["riga"].Testo, "5");
    EXPECT_EQ(esame[0]["apertura"].Testo, "4");
    EXPECT_TRUE(tutto["avvisi"].Voci.empty());
}

// A row in which the listing finds nothing is examined for the report; the exit status stays the listing's.
TEST(Letture, NelRapportoOgniRiga) {
    Banco b;
    Metti(b, {"Sub a()", "\tFor i = 1 To 2", "End Sub"});
    EXPECT_EQ(b.Esegui({"struttura", "--controlla", "-r", "r.json", "p/Prova.vbp"}), 0);
    const Json tutto = LeggiJson(b.Disco.Leggi("/casa/r.json"));
    EXPECT_TRUE(tutto["rilievi"]["struttura"].Voci.empty());
    ASSERT_EQ(tutto["rilievi"]["esamina"].Voci.size(), 1U);
    EXPECT_EQ(tutto["rilievi"]["esamina"][0]["riga"].Testo, "4");
}

// Warnings are in the report also where nobody is told, and findings only where they were asked for.
TEST(Letture, AvvisiNelRapporto) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Module=M; M.bas\r\nForm=C.frm\r\n");
    for (const char* silenzio : {"--silenzioso", "--lf"}) {
        EXPECT_EQ(b.Esegui({"struttura", silenzio, "-k", "-r", "r.json", "p/Prova.vbp"}), 1);
        const Json tutto = LeggiJson(b.Disco.Leggi("/casa/r.json"));
        EXPECT_TRUE(tutto["rilievi"].Nullo());
        ASSERT_EQ(tutto["avvisi"].Voci.size(), 1U);
        EXPECT_EQ(tutto["avvisi"][0].Testo, "«M.bas» manca: il progetto lo nomina, ma il file non c'è.");
        EXPECT_EQ(b.Dice("Avviso: «M.bas» manca"), silenzio == std::string("--lf"));
    }
}

} // namespace

} // namespace morvella::cli

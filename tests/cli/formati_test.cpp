// SPDX-License-Identifier: MIT
//
// The formats of "esamina": one small source for each kind of finding, the same record in each format.
#include <gtest/gtest.h>

#include "cli/esamina_banco.h"
#include "cli/formati.h"
#include "cli/json.h"
#include "cli/spiegazioni.h"
#include "sostegno/json.h"

namespace morvella::cli {

namespace {

using morvella::prove::Json;
using morvella::prove::LeggiJson;
using prove::BancoEsame;

struct Caso {
    std::vector<std::string> Righe; // of A.bas
    std::string Testo;              // without the totals
    std::string JsonAtteso;         // the finding's object
};

#define FILE_A "\"file\": \"A.bas\", "
// clang-format off
const Caso Casi[] = {
    {{"Sub a()", "\tFor i = 1 To 2 ' Perch\xE9", "\t\tIf x Then", "\t\tEnd If", "End Sub"},
     "A.bas:2:2: errore: «For» non è chiuso: manca «Next» prima di «End Sub» (riga 5), in «a» [MV001]\n"
     "A.bas:2: nota: aperto qui: «For i = 1 To 2 ' Perché»\n",
     "{\"regola\": \"MV001\", \"tipo\": \"aperto\", \"blocco\": \"For\", " FILE_A "\"riga\": 2, \"colonna\": 2, "
     "\"nota\": 5, \"apertura\": 2, \"atteso\": \"Next\", \"trovato\": \"End Sub\", \"procedura\": \"a\", "
     "\"testo\": \"For i = 1 To 2 ' Perché\"}"},
    {{"Sub a()", "  If x Then", "    If y Then", "  End If", "End Sub"},
     "A.bas:3:5: errore: «If» non è chiuso: manca «End If» prima di «End If» (riga 4) che chiude un altro blocco, "
     "in «a» [MV001]\nA.bas:3: nota: aperto qui: «If y Then»\n",
     "{\"regola\": \"MV001\", \"tipo\": \"aperto\", \"blocco\": \"If\", " FILE_A "\"riga\": 3, \"colonna\": 5, "
     "\"nota\": 4, \"apertura\": 3, \"atteso\": \"End If\", \"trovato\": \"End If\", \"procedura\": \"a\", "
     "\"testo\": \"If y Then\"}"},
    {{"#If Win32 Then", "Dim x"},
     "A.bas:1:1: errore: «#If» non è chiuso: manca «#End If» prima della fine del file [MV001]\n"
     "A.bas:1: nota: aperto qui: «#If Win32 Then»\n",
     "{\"regola\": \"MV001\", \"tipo\": \"aperto\", \"blocco\": \"#If\", " FILE_A "\"riga\": 1, \"colonna\": 1, "
     "\"nota\": 2, \"apertura\": 1, \"atteso\": \"#End If\", \"trovato\": \"fine file\", \"procedura\": null, "
     "\"testo\": \"#If Win32 Then\"}"},
    {{"Sub Cosa()", "  End If", "End Sub"},
     "A.bas:2:3: errore: «End If» di troppo: non c'è «If» da chiudere, in «Cosa» [MV002]\n",
     "{\"regola\": \"MV002\", \"tipo\": \"senza-apertura\", \"blocco\": \"If\", " FILE_A "\"riga\": 2, \"colonna\": 3, "
     "\"nota\": 2, \"apertura\": null, \"atteso\": null, \"trovato\": \"End If\", \"procedura\": \"Cosa\", "
     "\"testo\": \"End If\"}"},
    {{"Sub a()", "End Sub", "End Sub"},
     "A.bas:3:1: errore: «End Sub» di troppo: qui non conclude niente [MV002]\n",
     "{\"regola\": \"MV002\", \"tipo\": \"senza-apertura\", \"blocco\": \"Sub\", " FILE_A "\"riga\": 3, \"colonna\": 1, "
     "\"nota\": 3, \"apertura\": null, \"atteso\": null, \"trovato\": \"End Sub\", \"procedura\": null, "
     "\"testo\": \"End Sub\"}"},
    {{"Sub a()", "  Do", "  Next", "End Sub"},
     "A.bas:3:3: errore: «Next» al posto di «Loop»: è aperto «Do» (riga 2), in «a» [MV003]\n"
     "A.bas:2: nota: aperto qui: «Do»\n",
     "{\"regola\": \"MV003\", \"tipo\": \"scambiato\", \"blocco\": \"Do\", " FILE_A "\"riga\": 3, \"colonna\": 3, "
     "\"nota\": 3, \"apertura\": 2, \"atteso\": \"Loop\", \"trovato\": \"Next\", \"procedura\": \"a\", "
     "\"testo\": \"Next\"}"},
    {{"Function f()", "End Sub"},
     "A.bas:2:1: errore: «End Sub» al posto di «End Function»: è aperto «Function» (riga 1), in «f» [MV003]\n"
     "A.bas:1: nota: aperto qui: «Function f()»\n",
     "{\"regola\": \"MV003\", \"tipo\": \"scambiato\", \"blocco\": \"Function\", " FILE_A "\"riga\": 2, \"colonna\": 1, "
     "\"nota\": 2, \"apertura\": 1, \"atteso\": \"End Function\", \"trovato\": \"End Sub\", \"procedura\": \"f\", "
     "\"testo\": \"End Sub\"}"},
    {{"Sub a()", "Else", "End Sub"},
     "A.bas:2:1: errore: «Else» fuori posto: non c'è «If» aperto, in «a» [MV004]\n",
     "{\"regola\": \"MV004\", \"tipo\": \"fuori-posto\", \"blocco\": \"If\", " FILE_A "\"riga\": 2, \"colonna\": 1, "
     "\"nota\": 2, \"apertura\": null, \"atteso\": null, \"trovato\": \"Else\", \"procedura\": \"a\", "
     "\"testo\": \"Else\"}"},
    {{"Sub a()", "If x Then", "Else", "Else", "End If", "End Sub"},
     "A.bas:4:1: errore: «Else» fuori posto: «If» della riga 2 ha già il suo «Else», in «a» [MV004]\n"
     "A.bas:2: nota: aperto qui: «If x Then»\n",
     "{\"regola\": \"MV004\", \"tipo\": \"fuori-posto\", \"blocco\": \"If\", " FILE_A "\"riga\": 4, \"colonna\": 1, "
     "\"nota\": 4, \"apertura\": 2, \"atteso\": null, \"trovato\": \"Else\", \"procedura\": \"a\", "
     "\"testo\": \"Else\"}"},
    {{"Sub a()", "Case 1", "End Sub"},
     "A.bas:2:1: errore: «Case» fuori posto: non c'è «Select Case» aperto, in «a» [MV004]\n",
     "{\"regola\": \"MV004\", \"tipo\": \"fuori-posto\", \"blocco\": \"Select\", " FILE_A "\"riga\": 2, \"colonna\": 1, "
     "\"nota\": 2, \"apertura\": null, \"atteso\": null, \"trovato\": \"Case\", \"procedura\": \"a\", "
     "\"testo\": \"Case 1\"}"},
    {{"Sub a()", " Select Case x", " y = 1", " Case 1", " End Select", "End Sub"},
     "A.bas:3:2: errore: istruzione prima del primo «Case» di «Select Case» (riga 2), in «a» [MV005]\n"
     "A.bas:2: nota: aperto qui: «Select Case x»\n",
     "{\"regola\": \"MV005\", \"tipo\": \"prima-di-case\", \"blocco\": \"Select\", " FILE_A "\"riga\": 3, \"colonna\": 2, "
     "\"nota\": 3, \"apertura\": 2, \"atteso\": \"Case\", \"trovato\": null, \"procedura\": \"a\", "
     "\"testo\": \"y = 1\"}"},
    {{"Sub a()", "Sub b()", "End Sub"},
     "A.bas:1:1: errore: manca «End Sub» prima di «Sub» (riga 2), in «a» [MV006]\n"
     "A.bas:1: nota: aperto qui: «Sub a()»\n",
     "{\"regola\": \"MV006\", \"tipo\": \"non-terminato\", \"blocco\": \"Sub\", " FILE_A "\"riga\": 1, \"colonna\": 1, "
     "\"nota\": 2, \"apertura\": 1, \"atteso\": \"End Sub\", \"trovato\": \"Sub\", \"procedura\": \"a\", "
     "\"testo\": \"Sub a()\"}"},
    {{std::string("MZ\0\0", 4)},
     "A.bas:1:1: errore: non è un testo: contiene byte nulli [MV007]\n",
     "{\"regola\": \"MV007\", \"tipo\": \"non-testo\", \"blocco\": null, " FILE_A "\"riga\": 1, \"colonna\": 1, "
     "\"nota\": 1, \"apertura\": null, \"atteso\": null, \"trovato\": null, \"procedura\": null, "
     "\"testo\": null}"},
};
// clang-format on
#undef FILE_A

TEST(Formati, Testo) {
    for (const Caso& caso : Casi) {
        BancoEsame b;
        b.Metti("A.bas", caso.Righe);
        EXPECT_EQ(b.Esegui({"A.bas"}), 4);
        const std::string righe =
            caso.Righe[0][0] == 'M' ? "0 righe" : std::to_string(caso.Righe.size()) + " righe";
        EXPECT_EQ(b.Uscita.str(), caso.Testo + "1 rilievo in 1 modulo, " + righe + "\n");
        EXPECT_EQ(b.Errori.str(), "");
    }
}

TEST(Formati, JsonDiOgniTipo) {
    for (const Caso& caso : Casi) {
        BancoEsame b;
        b.Metti("A.bas", caso.Righe);
        EXPECT_EQ(b.Esegui({"--formato", "json", "A.bas"}), 4);
        const std::string righe = caso.Righe[0][0] == 'M' ? "0" : std::to_string(caso.Righe.size());
        EXPECT_EQ(b.Uscita.str(), "{\n  \"moduli\": 1,\n  \"righe\": " + righe + ",\n  \"rilievi\": [\n    " +
                                      caso.JsonAtteso + "\n  ],\n  \"errori\": [],\n  \"base\": null\n}\n");
        EXPECT_TRUE(b.Errori.str().starts_with("1 rilievo in 1 modulo, ")) << b.Errori.str();
        LeggiJson(b.Uscita.str());
    }
}

TEST(Formati, JsonTutto) {
    BancoEsame b;
    b.Metti("P.vbp", {"Module=M; \"M.bas", "Form=F.frm"});
    b.Cattivo("\"M.bas");
    b.Disco.Metti("/casa/base", "# morvella base 1\nMV001\tZ.bas\t1\tDo\n");
    EXPECT_EQ(b.Esegui({"--formato=json", "--base=base", "P.vbp"}), 4);
    EXPECT_TRUE(b.Uscita.str().ends_with("  \"errori\": [\n    {\"file\": \"F.frm\", \"da\": \"P.vbp\", "
                                         "\"numero\": 53, \"descrizione\": \"File non trovato.\"}\n  ],\n"
                                         "  \"base\": {\"nuovi\": 1, \"noti\": 0, \"spariti\": 1, "
                                         "\"nonEsaminati\": 0}\n}\n"))
        << b.Uscita.str();
    EXPECT_EQ(LeggiJson(b.Uscita.str())["rilievi"][0]["file"].Testo, "\"M.bas");
    b.Buono("N.bas");
    EXPECT_EQ(b.Esegui({"--formato=json", "N.bas"}), 0);
    EXPECT_EQ(b.Uscita.str(), "{\n  \"moduli\": 1,\n  \"righe\": 2,\n  \"rilievi\": [],\n  \"errori\": [],\n"
                              "  \"base\": null\n}\n");
}

TEST(Formati, Totali) {
    Referto r;
    EXPECT_EQ(Totali(r), "0 rilievi in 0 moduli, 0 righe\n");
    r = {.Moduli = 1, .Righe = 1, .Riscontri = std::vector<Riscontro>(1), .Guasti = {}, .Base = {}};
    EXPECT_EQ(Totali(r), "1 rilievo in 1 modulo, 1 riga\n");
    r = {.Moduli = 2,
         .Righe = 3,
         .Riscontri = std::vector<Riscontro>(4),
         .Guasti = {},
         .Base = Confronto{4, 1, 0, 7}};
    EXPECT_EQ(Totali(r), "4 rilievi in 2 moduli, 3 righe\n"
                         "base: 4 nuovi, 1 noto, 0 spariti, 7 di file non esaminati\n");
}

TEST(Formati, ColoriSoltantoSuUnTerminale) {
    BancoEsame b;
    b.Cattivo("A.bas");
    const std::string colorato =
        "\x1b[1mA.bas:2:3:\x1b[0m \x1b[1;31merrore:\x1b[0m «Do» non è chiuso: manca «Loop» prima di «End "
        "Sub» "
        "(riga 3), in «a» \x1b[2m[MV001]\x1b[0m\n\x1b[1mA.bas:2:\x1b[0m \x1b[36mnota:\x1b[0m aperto qui: "
        "«Do»\n1 rilievo in 1 modulo, 3 righe\n";
    b.Terminale = true;
    b.Esegui({"A.bas"});
    EXPECT_EQ(b.Uscita.str(), colorato);
    const auto senza = [&](const std::vector<std::string>& argomenti) {
        b.Esegui(argomenti);
        return b.Uscita.str().find('\x1b') == std::string::npos;
    };
    EXPECT_TRUE(senza({"--senza-colori", "A.bas"}));
    EXPECT_TRUE(senza({"--formato=github", "A.bas"}));
    b.SenzaColori = true; // NO_COLOR
    EXPECT_TRUE(senza({"A.bas"}));
    b.SenzaColori = false;
    b.Terminale = false;
    EXPECT_TRUE(senza({"A.bas"}));
    b.Terminale = true;
    EXPECT_TRUE(senza({"-u", "esito", "A.bas"}));
    EXPECT_EQ(b.Disco.Leggi("/casa/esito").find('\x1b'), std::string::npos);
}

// A source cannot drive the terminal, nor make lines of its own, and a long line is cut.
TEST(Formati, RigheCheNonSonoTesto) {
    BancoEsame b;
    b.Metti("A.bas", {"Sub a()", "Do While \"\x1b[2J\"", "End Sub"});
    b.Esegui({"A.bas"});
    EXPECT_TRUE(b.Scrive("nota: aperto qui: «Do While \"␛[2J\"»\n")) << b.Uscita.str();
    b.Metti("A.bas", {"Sub a()", "Do While " + std::string(500, 'x'), "End Sub"});
    b.Esegui({"A.bas"});
    EXPECT_TRUE(b.Scrive("aperto qui: «Do While " + std::string(71, 'x') + "…»\n")) << b.Uscita.str();
    b.Esegui({"--formato=json", "A.bas"});
    EXPECT_TRUE(b.Scrive("\"testo\": \"Do While " + std::string(391, 'x') + "\"}")) << b.Uscita.str();
}

TEST(Formati, Github) {
    BancoEsame b;
    b.Metti("d:1, 50%/A.bas", {"Sub a()", "  Do While 100% = \"Perch\xE9\"", "End Sub", "Else"});
    EXPECT_EQ(b.Esegui({"--formato=github", "d:1, 50%/A.bas"}), 4);
    EXPECT_EQ(
        b.Uscita.str(),
        "::error file=d%3A1%2C 50%25/A.bas,line=2,col=3,title=MV001::«Do» non è chiuso: manca «Loop» prima "
        "di "
        "«End Sub» (riga 3), in «a»; aperto alla riga 2: «Do While 100%25 = \"Perché\"»\n"
        "::error file=d%3A1%2C 50%25/A.bas,line=4,col=1,title=MV004::«Else» fuori posto: non c'è «If» "
        "aperto\n");
    EXPECT_EQ(b.Errori.str(), "2 rilievi in 1 modulo, 4 righe\n");
}

TEST(Formati, SarifStruttura) {
    BancoEsame b;
    b.Metti("P.vbp", {"Module=M; Perch\xE9 s\xEC, 1%.bas", "Module=N; ..\\fuori\\N.bas", "Form=F.frm"});
    b.Metti("Perché sì, 1%.bas", {"Sub [a b]()", "\tDo", "End Sub", "Else"});
    b.Disco.Metti("/fuori/N.bas", "Sub c()\r\n");
    EXPECT_EQ(b.Esegui({"--formato=sarif", "P.vbp"}), 4);
    EXPECT_TRUE(b.Dice("Avviso: ci sono rilievi in file fuori dalla radice")) << b.Errori.str();
    EXPECT_TRUE(b.Dice("3 rilievi in 2 moduli, 5 righe\n")) << b.Errori.str();
    const Json tutto = LeggiJson(b.Uscita.str());
    EXPECT_EQ(tutto["version"].Testo, "2.1.0");
    ASSERT_EQ(tutto["runs"].Voci.size(), 1U);
    const Json& run = tutto["runs"][0];
    EXPECT_EQ(run["columnKind"].Testo, "utf16CodeUnits");
    EXPECT_FALSE(run["originalUriBaseIds"]["RADICE"].Ha("uri"));

    const Json& regole = run["tool"]["driver"]["rules"];
    ASSERT_EQ(regole.Voci.size(), esame::Regole().size());
    for (const esame::Regola& regola : esame::Regole()) {
        const Json& scritta = regole[static_cast<std::size_t>(regola.Quale)];
        EXPECT_EQ(scritta["id"].Testo, regola.Id);
        EXPECT_EQ(scritta["name"].Testo, regola.Nome);
        for (const char* campo : {"shortDescription", "fullDescription", "help"})
            EXPECT_FALSE(scritta[campo]["text"].Testo.empty());
    }

    const Json& chiamata = run["invocations"][0];
    EXPECT_EQ(chiamata["executionSuccessful"].Testo, "false");
    EXPECT_EQ(chiamata["exitCode"].Testo, "4");
    ASSERT_EQ(chiamata["toolExecutionNotifications"].Voci.size(), 1U);
    EXPECT_EQ(chiamata["toolExecutionNotifications"][0]["message"]["text"].Testo,
              "F.frm: errore 53, File non trovato.");

    const char* const uri[] = {"Perch%C3%A9%20s%C3%AC%2C%201%25.bas", "../fuori/N.bas"};
    ASSERT_EQ(run["artifacts"].Voci.size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(run["artifacts"][i]["location"]["uri"].Testo, uri[i]);
        EXPECT_EQ(run["artifacts"][i]["encoding"].Testo, "windows-1252");
    }

    struct Atteso {
        const char* Regola;
        int Riga, Colonna, Apertura;
        std::size_t File;
        const char* Procedura;
        const char* Messaggio;
    };
    const Atteso attesi[] = {
        {"MV001", 2, 2, 2, 0, "[a b]",
         "«Do» non è chiuso: manca «Loop» prima di «End Sub» (riga 3), in «\\[a b\\]» ([aperto qui](1))"},
        {"MV004", 4, 1, 0, 0, nullptr, "«Else» fuori posto: non c'è «If» aperto"},
        {"MV006", 1, 1, 1, 1, "c", "manca «End Sub» prima della fine del file, in «c» ([aperto qui](1))"},
    };
    ASSERT_EQ(run["results"].Voci.size(), std::size(attesi));
    for (std::size_t i = 0; i < std::size(attesi); ++i) {
        const Atteso& atteso = attesi[i];
        const Json& r = run["results"][i];
        EXPECT_EQ(r["ruleId"].Testo, atteso.Regola);
        EXPECT_EQ(regole[std::stoul(r["ruleIndex"].Testo)]["id"].Testo, atteso.Regola);
        EXPECT_EQ(r["message"]["text"].Testo, atteso.Messaggio);
        ASSERT_EQ(r["locations"].Voci.size(), 1U);
        const Json& fisica = r["locations"][0]["physicalLocation"];
        EXPECT_EQ(fisica["artifactLocation"]["uri"].Testo, uri[atteso.File]);
        EXPECT_EQ(fisica["artifactLocation"]["uriBaseId"].Testo, "RADICE");
        EXPECT_EQ(fisica["artifactLocation"]["index"].Testo, std::to_string(atteso.File));
        EXPECT_EQ(fisica["region"]["startLine"].Testo, std::to_string(atteso.Riga));
        EXPECT_EQ(fisica["region"]["startColumn"].Testo, std::to_string(atteso.Colonna));
        EXPECT_EQ(r["locations"][0].Ha("logicalLocations"), atteso.Procedura != nullptr);
        if (atteso.Procedura) {
            EXPECT_EQ(r["locations"][0]["logicalLocations"][0]["name"].Testo, atteso.Procedura);
        }
        EXPECT_EQ(r.Ha("relatedLocations"), atteso.Apertura != 0);
        if (atteso.Apertura != 0) {
            const Json& apertura = r["relatedLocations"][0];
            EXPECT_EQ(apertura["id"].Testo, "1");
            EXPECT_EQ(apertura["physicalLocation"]["region"]["startLine"].Testo,
                      std::to_string(atteso.Apertura));
            EXPECT_EQ(apertura["physicalLocation"]["artifactLocation"]["uri"].Testo, uri[atteso.File]);
        }
        // Its own key alone: others are computed from the file by those who read it.
        EXPECT_EQ(r["partialFingerprints"].Campi.size(), 1U);
        EXPECT_EQ(r["partialFingerprints"]["morvella/v1"].Testo.size(), 16U);
        EXPECT_FALSE(r.Ha("baselineState"));
    }
}

// What no relative path leads to is a whole URI, which has no base.
TEST(Formati, SarifUriInteri) {
    const std::pair<const char*, const char*> casi[] = {
        {"C:/due parole/A.bas", "file:///C:/due%20parole/A.bas"},
        {"//server/p/A.bas", "file://server/p/A.bas"},
    };
    for (const auto& [file, uri] : casi) {
        Referto referto;
        Riscontro riscontro;
        riscontro.File = file;
        referto.Riscontri.push_back(riscontro);
        const Json tutto = LeggiJson(ComeSarif(referto));
        const Json& artefatto = tutto["runs"][0]["artifacts"][0]["location"];
        EXPECT_EQ(artefatto["uri"].Testo, uri);
        EXPECT_FALSE(artefatto.Ha("uriBaseId"));
    }
}

TEST(Formati, SarifImpronte) {
    const auto impronte = [](const std::vector<std::string>& righe) {
        BancoEsame b;
        b.Metti("A.bas", righe);
        b.Esegui({"--formato=sarif", "A.bas"});
        std::vector<std::string> tutte;
        const Json tutto = LeggiJson(b.Uscita.str());
        for (const Json& r : tutto["runs"][0]["results"].Voci)
            tutte.push_back(r["partialFingerprints"]["morvella/v1"].Testo);
        return tutte;
    };
    const auto prima = impronte({"Sub a()", "Do", "End Sub", "Sub b()", "Do", "End Sub"});
    ASSERT_EQ(prima.size(), 2U);
    EXPECT_NE(prima[0], prima[1]); // the second of two like ones is another
    EXPECT_EQ(impronte({"", "' c", "Sub a()", "   Do", "End Sub", "Sub b()", "Do", "End Sub"}), prima);
    EXPECT_NE(impronte({"Sub a()", "Do While x", "End Sub"})[0], prima[0]);
}

TEST(Formati, SarifConBase) {
    BancoEsame b;
    b.Cattivo("A.bas");
    b.Cattivo("B.bas");
    b.Disco.Metti("/casa/base", "# morvella base 1\nMV001\tB.bas\t1\tDo\n");
    EXPECT_EQ(b.Esegui({"--formato=sarif", "--base=base", "A.bas", "B.bas"}), 4);
    const Json tutto = LeggiJson(b.Uscita.str());
    const Json& risultati = tutto["runs"][0]["results"];
    ASSERT_EQ(risultati.Voci.size(), 1U);
    EXPECT_EQ(risultati[0]["baselineState"].Testo, "new");
    EXPECT_EQ(risultati[0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"].Testo, "A.bas");
}

TEST(Formati, Radice) {
    BancoEsame b;
    b.Cattivo("p/q/A.bas");
    b.Esegui({"--radice", "p", "p/q/A.bas"});
    EXPECT_TRUE(b.Uscita.str().starts_with("q/A.bas:2:3: ")) << b.Uscita.str();
    b.Esegui({"--radice", "p/z/..", "--formato=sarif", "p/q/A.bas"});
    EXPECT_TRUE(b.Scrive("\"uri\": \"q/A.bas\"")) << b.Uscita.str();
    b.Esegui({"--formato=sarif", "p/q/A.bas"});
    EXPECT_TRUE(b.Scrive("\"uri\": \"p/q/A.bas\"")) << b.Uscita.str();
    EXPECT_FALSE(b.Dice("Avviso"));
}

TEST(Json, PercorsiCheNonSonoUtf8) {
    EXPECT_EQ(StringaUtf8("Perché\t\"\\"), "\"Perché\\u0009\\\"\\\\\"");
    EXPECT_EQ(StringaUtf8("Perch\xE9"), "\"Perché\"");
    EXPECT_EQ(StringaUtf8("ключ"), "\"ключ\"");
}

} // namespace

} // namespace morvella::cli

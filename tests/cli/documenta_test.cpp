// SPDX-License-Identifier: MIT
//
// The command "documenta" with its option --prosegui, and "esegui --html".
#include <algorithm>

#include "cli/banco_documenta.h"

namespace morvella::cli {

namespace {

using Banco = prove::BancoDocumenta;

constexpr const char* Ini = "/casa/programma/Default.ini";

TEST(Documenta, RigheNominateOTutte) {
    struct Caso {
        std::vector<std::string> Righe;
        const char* Indice;
    };
    const Caso casi[] = {
        {{}, "A.bas B.bas C.frm"},
        {{"c.FRM"}, "C.frm"},
        {{"C.frm", "A.bas"}, "A.bas C.frm"},
        {{"B.bas", "b.bas"}, "B.bas"},
    };
    for (const Caso& caso : casi) {
        Banco b;
        std::vector<std::string> argomenti = {"documenta", "p/Prova.vbp"};
        argomenti.insert(argomenti.end(), caso.Righe.begin(), caso.Righe.end());
        EXPECT_EQ(b.Esegui(argomenti), 0) << b.Errori.str();
        EXPECT_EQ(b.NellIndice(), caso.Indice);
        for (const char* nome : {"A", "B", "C"})
            EXPECT_EQ(b.Fatto(std::string(nome) + ".Html"),
                      std::string(caso.Indice).find(std::string(nome) + ".") != std::string::npos);
        for (const char* nome : {"p2.gif", "dario.gif", "Dario.gif", "BLULETHR.GIF", "home.GIF", "OK.LOG"})
            EXPECT_TRUE(b.Fatto(nome)) << nome;
        for (const char* nome : {"a.txt", "A.log", "Prova.vbp"}) EXPECT_FALSE(b.Fatto(nome)) << nome;
        EXPECT_TRUE(b.Disco.Avviati.empty());
        EXPECT_FALSE(b.Disco.Esiste(Ini));
        EXPECT_EQ(b.Errori.str(), ""); // the answers were the command's own
    }
}

TEST(Documenta, PagineNominateNellUscita) {
    Banco b;
    EXPECT_EQ(b.Esegui({"documenta", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.Scrive("A.bas  -> Appoggio/A.Html\n")) << b.Uscita.str();
    EXPECT_TRUE(b.Scrive("3 moduli, 12 righe, ")) << b.Uscita.str();
    EXPECT_EQ(b.Esegui({"documenta", "-q", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Uscita.str() + b.Errori.str(), "");
}

TEST(Documenta, LaDomandaDellIndice) {
    struct Caso {
        std::vector<std::string> Opzioni;
        bool Terminale;
        const char* Detto;
        bool Apre;
    };
    const Caso casi[] = {
        {{}, false, "", false},
        {{"--apri"}, false, "", true},
        {{"--apri"}, true, "n\n", true},
        {{}, true, "s\n", true},
        {{}, true, "n\n", false},
        {{}, true, "", false},
        {{"--si"}, false, "", false}, // an answer to the other question
        {{"--apri", "--senza-processi"}, false, "", false},
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.Terminale = caso.Terminale;
        b.Ingresso.str(caso.Detto);
        std::vector<std::string> argomenti = {"documenta", "p/Prova.vbp", "--rapporto", "r.json"};
        argomenti.insert(argomenti.end(), caso.Opzioni.begin(), caso.Opzioni.end());
        EXPECT_EQ(b.Esegui(argomenti), 0) << b.Errori.str();
        EXPECT_EQ(b.Disco.Avviati,
                  std::vector<std::string>(caso.Apre ? 1 : 0, "Explorer|/casa/p/Appoggio/Indice.Html"))
            << testing::PrintToString(caso.Opzioni);
        const bool chiede = caso.Terminale && caso.Opzioni.empty();
        EXPECT_EQ(b.Dice("Documentazione HTML riuscita.\nVuoi visualizzare l'indice?"), chiede)
            << b.Errori.str();
        EXPECT_FALSE(b.Dice("Vuoi riordinare")); // the command answers that one itself
        const std::string json = b.Disco.Leggi("/casa/r.json");
        EXPECT_NE(json.find("\"flag\": 36, \"titolo\": \"Visualizzazione Documentazione HTML\""),
                  std::string::npos);
        EXPECT_EQ(json.find("Explorer") != std::string::npos,
                  caso.Apre || caso.Opzioni.size() == 2); // recorded where it is not started
    }
}

TEST(Documenta, BrowserAssente) {
    Banco b;
    b.Disco.Fallisci("Avvia", "Indice.Html", 53);
    EXPECT_EQ(b.Esegui({"documenta", "--apri", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Dice("mnuHTML_Click fermato: errore 53, File non trovato. (un programma per "
                       "/casa/p/Appoggio/Indice.Html)"))
        << b.Errori.str();
    EXPECT_EQ(b.NellIndice(), "A.bas B.bas C.frm");
}

// An error is final: number, description and file are told, and what was written stays.
TEST(Documenta, Errore) {
    struct Caso {
        std::vector<std::string> Righe;
        const char* Detto;
    };
    const Caso casi[] = {
        {{"+A.frm", "M.frm", "+Z.frm"},
         "mnuHTML_Click fermato alla riga «M.frm»: errore 53, File non trovato. (/casa/p/M.frm)"},
        {{"+A.frm", "+sub\\M.frm", "+Z.frm"},
         "mnuHTML_Click fermato alla riga «sub\\M.frm»: errore 76, Percorso non trovato. "
         "(/casa/p/Appoggio/sub/M.Html)"},
        {{"+A.frm", "M.f", "+Z.frm"}, "mnuHTML_Click fermato alla riga «M.f»: errore 5, "},
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.Progetto(caso.Righe);
        EXPECT_EQ(b.Esegui({"documenta", "p/Prova.vbp"}), 1);
        EXPECT_TRUE(b.Dice(caso.Detto)) << b.Errori.str();
        EXPECT_TRUE(b.Pagina("A.Html").ends_with("</html>\r\n"));
        EXPECT_FALSE(b.Fatto("Z.Html") || b.Fatto("Indice.Html") || b.Fatto("p2.gif"));
    }
}

// The advice about a page that could not be written names --sottocartelle only where it helps.
TEST(Documenta, ConsiglioSulleCartelle) {
    struct Caso {
        std::vector<std::string> Righe;
        std::vector<std::string> Opzioni;
        bool Aiuta;
    };
    const Caso casi[] = {
        {{"+sub\\M.frm"}, {}, true},
        {{"+sub\\due\\M.frm"}, {}, true},
        {{"+sub\\M.frm"}, {"-k"}, true},
        {{"+..\\lib\\M.frm"}, {}, false}, // its page would not lie in the work directory
        {{"+..\\lib\\M.frm"}, {"--sottocartelle"}, false},
        {{"+x", "+file\\M.frm"}, {"-k"}, false}, // a file has the folder's name
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.Progetto(caso.Righe);
        b.Disco.Metti("/casa/p/Appoggio/OK.LOG", "x");
        b.Disco.Metti("/casa/p/Appoggio/file", "x");
        std::vector<std::string> argomenti = {"documenta", "p/Prova.vbp"};
        argomenti.insert(argomenti.begin() + 1, caso.Opzioni.begin(), caso.Opzioni.end());
        EXPECT_EQ(b.Esegui(argomenti), 1);
        EXPECT_TRUE(b.Dice("errore 76")) << b.Errori.str();
        EXPECT_EQ(b.Dice("con --sottocartelle viene creata"), caso.Aiuta) << caso.Righe[0] << b.Errori.str();
        EXPECT_EQ(b.Dice("Manca la directory del file"), !caso.Aiuta) << caso.Righe[0] << b.Errori.str();
    }
    // The source's own folder is missing.
    Banco b;
    b.Progetto({"sub\\M.frm"});
    b.Disco.Metti("/casa/p/Appoggio/sub/x", "x");
    b.Disco.Metti("/casa/p/Appoggio/OK.LOG", "x");
    EXPECT_EQ(b.Esegui({"documenta", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Dice("errore 76, Percorso non trovato. (/casa/p/sub/M.frm)")) << b.Errori.str();
    EXPECT_FALSE(b.Dice("--sottocartelle"));
}

TEST(Documenta, AppoggioNonSiPuoCreare) {
    for (const char* opzione : {"-q", "--sottocartelle"}) {
        Banco b;
        b.Disco.Fallisci("CreaDirectory", "Appoggio", 75);
        EXPECT_EQ(b.Esegui({"documenta", opzione, "p/Prova.vbp"}), 1);
        EXPECT_TRUE(b.Dice("errore 75, ") && b.Dice("La directory Appoggio non c'è e non si è potuta creare"))
            << b.Errori.str();
        EXPECT_FALSE(b.Dice("c'è ma non contiene file"));
    }
}

// The page in work keeps what was written, up to the line that failed.
TEST(Documenta, LaPaginaInLavoroResta) {
    Banco b;
    b.Disco.Metti("/casa/p/B.bas", "Begin VB.Menu m\r\n");
    EXPECT_EQ(b.Esegui({"documenta", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Dice("alla riga «B.bas»: errore 62, ")) << b.Errori.str();
    const std::string b_html = b.Pagina("B.Html");
    EXPECT_TRUE(b_html.starts_with("<html>\r\n\r\n<head>\r\n"));
    EXPECT_TRUE(
        b_html.ends_with("Menu presenti nell'applicazione</font><br>\r\n        <HR>\r\n        <br>\r\n"));
    EXPECT_FALSE(b.Fatto("C.Html"));

    Banco mezzanotte;
    mezzanotte.Disco.Modificati["/casa/p/B.bas"] = {2026, 1, 1, 0, 0, 0};
    EXPECT_EQ(mezzanotte.Esegui({"documenta", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(mezzanotte.Dice("alla riga «B.bas»: errore 5, "));
    EXPECT_TRUE(mezzanotte.Pagina("B.Html").ends_with("<P>Grandezza form</B></FONT></TD>\r\n  </TR>\r\n"));
}

TEST(Documenta, CartellaSenzaFile) {
    Banco b;
    b.Disco.FaiDirectory("/casa/p/Appoggio/sub");
    EXPECT_EQ(b.Esegui({"documenta", "--prosegui", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Dice("mnuHTML_Click fermato: errore 75, ")) << b.Errori.str();
    EXPECT_TRUE(b.Dice("/casa/p/Appoggio)"));
    EXPECT_FALSE(b.Fatto("A.Html"));
}

TEST(Documenta, FiguraMancante) {
    Banco b;
    b.Disco.Cancella("/casa/programma/home.GIF");
    for (const char* opzione : {"-q", "--prosegui"}) { // no row is to blame
        EXPECT_EQ(b.Esegui({"documenta", opzione, "p/Prova.vbp"}), 1);
        EXPECT_TRUE(b.Dice("mnuHTML_Click fermato: errore 53, File non trovato. (/casa/programma/home.GIF)"))
            << b.Errori.str();
        EXPECT_TRUE(b.Fatto("C.Html") && b.Fatto("BLULETHR.GIF"));
        EXPECT_FALSE(b.Fatto("Indice.Html"));
    }
}

// Another directory of the program: pictures come from there.
TEST(Documenta, Programma) {
    Banco b;
    for (const char* nome : {"p2.gif", "dario.gif", "BLULETHR.GIF", "home.GIF"})
        b.Disco.Metti(std::string("/casa/altro/") + nome, "altra");
    EXPECT_EQ(b.Esegui({"documenta", "--programma", "altro", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Pagina("home.GIF"), "altra");
}

// Nothing to document: the operation would write to the disk's root, and is not begun.
TEST(Documenta, ProgettoVuoto) {
    for (const bool esegui : {false, true}) {
        Banco b;
        b.Disco.Metti("/casa/p/Prova.vbp", "Type=Exe\r\n");
        EXPECT_EQ(esegui ? b.Esegui({"esegui", "--si", "--html", "p/Prova.vbp"})
                         : b.Esegui({"documenta", "-s", "p/Prova.vbp"}),
                  1);
        EXPECT_FALSE(b.Disco.Esiste("/Indice.Html"));
        EXPECT_FALSE(b.Disco.Esiste("/p2.gif"));
        EXPECT_TRUE(b.Dice("non ha righe Form=, Module= o Class=: non ci sono pagine")) << b.Errori.str();
    }
}

// --prosegui: a row that ends the run is left out, and the index holds every page that there is.
TEST(Prosegui, IlResto) {
    struct Caso {
        std::vector<std::string> Righe;
        const char* Indice;
        std::vector<std::string> Detti;
    };
    const Caso casi[] = {
        {{"+A.frm", "M.frm", "+Z.frm"}, "A.frm Z.frm", {"«M.frm»: errore 53"}},
        {{"A.frm", "+M.frm", "+Z.frm"}, "M.frm Z.frm", {"«A.frm»: errore 53"}},
        {{"+A.frm", "+M.frm", "Z.frm"}, "A.frm M.frm", {"«Z.frm»: errore 53"}},
        {{"+A.frm", "x", "+sub\\B.frm", "C.frm", "+..\\lib\\D.frm"},
         "A.frm",
         {"«x»: errore 5,", "«sub\\B.frm»: errore 76", "«C.frm»: errore 53", "«..\\lib\\D.frm»: errore 76"}},
        {{"A.frm", "A.frm", "+B.frm"}, "B.frm", {"«A.frm»: errore 53"}},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(testing::PrintToString(caso.Righe));
        Banco b;
        b.Progetto(caso.Righe);
        EXPECT_EQ(b.Esegui({"documenta", "--prosegui", "p/Prova.vbp"}), 1);
        EXPECT_EQ(b.NellIndice(), caso.Indice);
        std::size_t errori = 0;
        for (std::size_t da = b.Errori.str().find("fermato alla riga"); da != std::string::npos;
             da = b.Errori.str().find("fermato alla riga", da + 1))
            ++errori;
        EXPECT_EQ(errori, static_cast<std::size_t>(std::count_if(
                              caso.Righe.begin(), caso.Righe.end(), [&](const std::string& riga) {
                                  return std::string(" ")
                                             .append(caso.Indice)
                                             .append(" ")
                                             .find(" " + riga.substr(riga[0] == '+' ? 1 : 0) + " ") ==
                                         std::string::npos;
                              })));
        for (const std::string& detto : caso.Detti) EXPECT_TRUE(b.Dice(detto)) << detto << b.Errori.str();
        for (const char* nome : {"p2.gif", "Dario.gif"}) EXPECT_TRUE(b.Fatto(nome));
    }
}

// Every row fails: there is no index, and above all none at the root.
TEST(Prosegui, NessunaBuona) {
    Banco b;
    b.Progetto({"A.frm", "x"});
    EXPECT_EQ(b.Esegui({"documenta", "-k", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Dice("«A.frm»: errore 53") && b.Dice("«x»: errore 5,"));
    EXPECT_FALSE(b.Fatto("Indice.Html") || b.Disco.Esiste("/Indice.Html") || b.Disco.Esiste("/p2.gif"));
}

// The question comes once, after the run that succeeds.
TEST(Prosegui, UnaDomanda) {
    Banco b;
    b.Progetto({"A.frm", "+B.frm", "C.frm"});
    EXPECT_EQ(b.Esegui({"documenta", "-k", "--apri", "p/Prova.vbp"}), 1);
    EXPECT_EQ(b.Disco.Avviati.size(), 1U);
    EXPECT_EQ(b.NellIndice(), "B.frm");
}

TEST(Esegui, Html) {
    Banco b;
    EXPECT_EQ(b.Esegui({"esegui", "--si", "--html", "p/Prova.vbp"}), 0) << b.Errori.str();
    for (const char* nome : {"a.bas", "A.log", "A.Html", "C.Html", "Prova.vbp", "Indice.Html", "home.GIF"})
        EXPECT_TRUE(b.Fatto(nome)) << nome;
    EXPECT_EQ(b.NellIndice(), "A.bas B.bas C.frm"); // rows that the listing had deselected
    EXPECT_TRUE(b.Disco.Avviati.empty());
    EXPECT_TRUE(b.Scrive("A.Html")) << b.Uscita.str();

    Banco senza;
    EXPECT_EQ(senza.Esegui({"esegui", "--si", "p/Prova.vbp"}), 0);
    EXPECT_FALSE(senza.Fatto("A.Html") || senza.Fatto("Indice.Html"));

    Banco no;
    EXPECT_EQ(no.Esegui({"esegui", "--no", "--html", "p/Prova.vbp"}), 3);
    EXPECT_FALSE(no.Disco.Esiste("/casa/p/Appoggio"));

    Banco apre;
    EXPECT_EQ(apre.Esegui({"esegui", "--si", "--html", "--apri", "p/Prova.vbp"}), 0);
    EXPECT_EQ(apre.Disco.Avviati, std::vector<std::string>{"Explorer|/casa/p/Appoggio/Indice.Html"});

    Banco prosegue;
    prosegue.Progetto({"+A.frm", "M.frm", "+sub\\B.frm"});
    EXPECT_EQ(prosegue.Esegui({"esegui", "-sk", "--html", "--sottocartelle", "p/Prova.vbp"}), 1);
    EXPECT_EQ(prosegue.NellIndice(), "A.frm sub\\B.frm");
    EXPECT_TRUE(prosegue.Fatto("sub/Indice.Html") && prosegue.Fatto("a.frm"));
    EXPECT_TRUE(prosegue.Dice("mnuHTML_Click fermato alla riga «M.frm»: errore 53"));
}

TEST(Eventi, Documentazione) {
    Banco b;
    EXPECT_EQ(b.Esegui({"eventi", "p/Prova.vbp", "File1Leggi_Click", "seleziona=1", "mnuHTML_Click"}), 0);
    EXPECT_EQ(b.NellIndice(), "B.bas");
    EXPECT_FALSE(b.Disco.Esiste(Ini));

    Banco errore; // final: what follows is not run, what was written is there
    errore.Progetto({"+A.frm", "M.frm"});
    EXPECT_EQ(
        errore.Esegui({"eventi", "p/Prova.vbp", "File1Leggi_Click", "mnuHTML_Click", "mnuRiordina_Click"}),
        1);
    EXPECT_TRUE(errore.Fatto("A.Html"));
    EXPECT_FALSE(errore.Fatto("a.txt"));

    Banco aiuto;
    EXPECT_EQ(aiuto.Esegui({"eventi", "p/Prova.vbp", "MnuHelpHtml_Click"}), 0);
    EXPECT_EQ(aiuto.Disco.Leggi("/casa/programma/tavolerio.htm").size(), 4081U);
}

} // namespace

} // namespace morvella::cli

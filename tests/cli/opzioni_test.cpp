// SPDX-License-Identifier: MIT
//
// The commands "opzioni" and "guida", and what the stored options do to a run.
#include "cli/banco.h"

namespace morvella::cli {

namespace {

using prove::Banco;
using prove::Ini;

const std::string Predefinito = "KO\r\nKO\r\n\r\nKO\r\n";

// The stored options reach every run that works, and no run makes the file.
TEST(Conservate, CaricateENonCreate) {
    const std::string sorgente =
        "Attribute VB_Exposed = False\r\nOption Explicit\r\n'c\r\nSub a()\r\nEnd Sub\r\n";
    struct Caso {
        std::vector<std::string> Argomenti;
        bool Testo; // the header is in the rewritten form
        bool Commento;
    };
    const std::string pieno = "OK\r\nOK\r\n'DALL INI\r\nKO\r\n";
    const Caso casi[] = {
        {{"riordina", "p/Prova.vbp"}, true, false},
        {{"esegui", "--si", "p/Prova.vbp"}, true, false},
        {{"riordina", "--togli-commenti=no", "p/Prova.vbp"}, true, true},
        {{"riordina", "--intestazione-procedure=no", "p/Prova.vbp"}, false, false},
        {{"riordina", "-t", "--intestazione-procedure=no", "p/Prova.vbp"}, false, false},
        {{"eventi", "p/Prova.vbp", "File1Leggi_Click", "mnuRiordina_Click"}, false, true},
        {{"eventi", "--ini", "p/Prova.vbp", "File1Leggi_Click", "mnuRiordina_Click"}, true, false},
        {{"eventi", "p/Prova.vbp", "Form_Resize", "File1Leggi_Click", "mnuRiordina_Click"}, true, false},
        {{"eventi", "--ini", "--togli-commenti=no", "p/Prova.vbp", "File1Leggi_Click", "mnuRiordina_Click"},
         true,
         true},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(testing::PrintToString(caso.Argomenti));
        Banco b;
        b.Disco.Metti("/casa/p/C.frm", sorgente);
        b.Disco.Metti(Ini, pieno);
        EXPECT_EQ(b.Esegui(caso.Argomenti), 0) << b.Errori.str();
        const std::string c = b.Scritto("c.txt");
        EXPECT_EQ(c.find("'DALL INI\r\n") != std::string::npos, caso.Testo) << c;
        EXPECT_EQ(c.find("'c\r\n") != std::string::npos, caso.Commento) << c;
        EXPECT_EQ(b.Disco.Leggi(Ini), pieno); // for that run only
    }
    for (const char* comando : {"esegui", "riordina", "struttura", "documenta", "leggi", "elenca"}) {
        Banco b;
        EXPECT_EQ(b.Esegui({comando, "--no", "--senza-processi", "p/Prova.vbp"}),
                  comando == std::string("esegui") ? 3 : 0)
            << comando << b.Errori.str();
        EXPECT_FALSE(b.Disco.Esiste(Ini)) << comando;
    }
}

// "Senza conferma" as stored: choosing the project runs everything, unless the command line says no.
TEST(Conservate, SenzaConferma) {
    const std::string pieno = "KO\r\nKO\r\n\r\nOK\r\n";
    Banco b;
    b.Disco.Metti(Ini, pieno);
    EXPECT_EQ(b.Esegui({"esegui", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.Fatto("a.bas") && b.Fatto("A.log"));
    EXPECT_FALSE(b.Dice("Vuoi riordinare"));
    Banco no;
    no.Disco.Metti(Ini, pieno);
    EXPECT_EQ(no.Esegui({"esegui", "--senza-conferma=no", "p/Prova.vbp"}), 3);
    EXPECT_FALSE(no.Disco.Esiste("/casa/p/Appoggio"));
    for (const char* comando : {"riordina", "struttura", "documenta"}) { // these answer No themselves
        Banco c;
        c.Disco.Metti(Ini, pieno);
        EXPECT_EQ(c.Esegui({comando, "p/Prova.vbp", "A.bas"}), 0);
        EXPECT_FALSE(c.Fatto("b.txt") || c.Fatto("B.log") || c.Fatto("B.Html")) << comando;
    }
}

TEST(Conservate, FileRovinato) {
    for (const char* bytes : {"OK\r\n", "OK\r\nOK\r\nx\r\n", "KO\nKO\n\nKO\n"})
        for (const char* comando : {"esegui", "riordina", "struttura", "documenta", "leggi"}) {
            Banco b;
            b.Disco.Metti(Ini, bytes);
            EXPECT_EQ(b.Esegui({comando, "--si", "p/Prova.vbp"}), 1) << comando;
            EXPECT_TRUE(b.Dice("errore 62") && b.Dice("(/casa/programma/Default.ini)") &&
                        b.Dice("morvella-cli opzioni --ripristina"))
                << b.Errori.str();
            EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
            EXPECT_EQ(b.Disco.Leggi(Ini), bytes);
            EXPECT_EQ(b.Esegui({"elenca", "p/Prova.vbp"}), 0); // needs none
            EXPECT_EQ(b.Esegui({"eventi", "p/Prova.vbp", "File1Leggi_Click"}), 0);
            EXPECT_EQ(b.Esegui({"eventi", "--ini", "p/Prova.vbp", "File1Leggi_Click"}), 1);
            EXPECT_EQ(b.Esegui({"opzioni"}), 1);
            EXPECT_EQ(b.Esegui({"opzioni", "--ripristina"}), 0) << b.Errori.str();
            EXPECT_EQ(b.Disco.Leggi(Ini), Predefinito);
        }
}

// The command that the advice names can be pasted into a shell.
TEST(Conservate, IlComandoCheRipristina) {
    const std::pair<const char*, const char*> casi[] = {
        {"altro", "--programma altro»"},
        {"./a-1_b", "--programma ./a-1_b»"},
        {"con blank", "--programma 'con blank'»"},
        {"l'altro", "--programma 'l'\\''altro'»"},
    };
    for (const auto& [directory, detto] : casi) {
        Banco b;
        b.Disco.Metti("/casa/" + std::string(directory).substr(directory[0] == '.' ? 2 : 0) + "/Default.ini",
                      "OK\r\n");
        EXPECT_EQ(b.Esegui({"riordina", "-s", "-p", directory, "p/Prova.vbp"}), 1);
        EXPECT_TRUE(b.Dice(detto)) << b.Errori.str();
    }
}

TEST(Eventi, IniVieneCreatoDaForm_Resize) {
    for (const std::vector<std::string>& argomenti :
         {std::vector<std::string>{"eventi", "--ini", "p/Prova.vbp", "File1_Click"},
          {"eventi", "p/Prova.vbp", "Form_Resize"},
          {"eventi", "p/Prova.vbp", "Command2_Click"}}) {
        Banco b;
        EXPECT_EQ(b.Esegui(argomenti), 0);
        EXPECT_EQ(b.Disco.Leggi(Ini), Predefinito);
    }
    Banco b;
    EXPECT_EQ(b.Esegui({"eventi", "-tq", "p/Prova.vbp", "Check1_Click", "File1_Click"}), 0);
    EXPECT_FALSE(b.Disco.Esiste(Ini));
    EXPECT_EQ(b.Esegui({"eventi", "-t", "p/Prova.vbp", "TogliCommenti_LostFocus"}), 0);
    EXPECT_EQ(b.Disco.Leggi(Ini), "OK\r\nKO\r\n\r\nKO\r\n");
}

TEST(Opzioni, Cambi) {
    const std::string modello = [] { // as the window shows it where nothing was stored
        const std::string barra = "'" + std::string(49, '*') + "\r\n";
        const auto stella = [](const std::string& testo) {
            return "'* " + testo + std::string(46 - testo.size(), ' ') + "*\r\n";
        };
        std::string testo = barra + stella("Nome Progetto") + barra + stella("Autore") + barra +
                            stella("Data Creazione:") + barra + "'* Commenti" + std::string(38, ' ') + "\r\n";
        for (int i = 0; i < 6; ++i) testo += "'*" + std::string(47, ' ') + "\r\n";
        return testo + barra;
    }();
    struct Caso {
        const char* Prima; // nullptr: no file
        std::vector<std::string> Opzioni;
        std::string Dopo;
    };
    const std::string pieno = "OK\r\nOK\r\n'T\r\n\r\nOK\r\n";
    const Caso casi[] = {
        {"KO\r\nKO\r\n\r\nKO\r\n", {"--togli-commenti=si"}, "OK\r\nKO\r\n\r\nKO\r\n"},
        {"KO\r\nKO\r\n\r\nKO\r\n", {"--togli-commenti"}, "OK\r\nKO\r\n\r\nKO\r\n"},
        {"KO\r\nKO\r\n\r\nKO\r\n", {"--intestazione-procedure=s\xC3\xAC"}, "KO\r\nOK\r\n\r\nKO\r\n"},
        {"KO\r\nKO\r\n\r\nKO\r\n", {"--senza-conferma=si"}, "KO\r\nKO\r\n\r\nOK\r\n"},
        {"OK\r\nOK\r\n'T\r\n\r\nOK\r\n", {"--togli-commenti=no"}, "KO\r\nOK\r\n'T\r\n\r\nOK\r\n"},
        {"OK\r\nOK\r\n'T\r\n\r\nOK\r\n",
         {"--intestazione-procedure=no", "--senza-conferma=no"},
         "OK\r\nKO\r\n'T\r\n\r\nKO\r\n"},
        {"OK\r\nOK\r\n'T\r\n\r\nOK\r\n",
         {"--testo-intestazione=t.txt"},
         "OK\r\nOK\r\n'Perch\xE9\r\n\r\n'due\r\n\r\nOK\r\n"},
        {"OK\r\nOK\r\n'T\r\n\r\nOK\r\n", {"--testo-intestazione", "vuoto.txt"}, "OK\r\nOK\r\n\r\nOK\r\n"},
        {"OK\r\nOK\r\n'T\r\n\r\nOK\r\n", {}, pieno},
        {"OK\r\nOK\r\n'T\r\n\r\nOK\r\n", {"--ripristina"}, Predefinito},
        {nullptr, {"--ripristina"}, Predefinito},
        {nullptr, {"--togli-commenti=si"}, "OK\r\nKO\r\n" + modello + "\r\nKO\r\n"},
        {nullptr, {"--testo-intestazione=t.txt"}, "KO\r\nKO\r\n'Perch\xE9\r\n\r\n'due\r\n\r\nKO\r\n"},
        {"OK\r\nOK\r\n'T\r\n\r\nOK\r\n",
         {"--ripristina", "--senza-conferma"},
         "KO\r\nKO\r\n" + modello + "\r\nOK\r\n"},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(testing::PrintToString(caso.Opzioni));
        Banco b;
        b.Disco.Metti("/casa/t.txt", "\xEF\xBB\xBF'Perch\xC3\xA9\n\n'due\r\n");
        b.Disco.Metti("/casa/vuoto.txt", "");
        if (caso.Prima) b.Disco.Metti(Ini, caso.Prima);
        std::vector<std::string> argomenti = {"opzioni"};
        argomenti.insert(argomenti.end(), caso.Opzioni.begin(), caso.Opzioni.end());
        EXPECT_EQ(b.Esegui(argomenti), 0) << b.Errori.str();
        EXPECT_EQ(b.Disco.Leggi(Ini), caso.Dopo);
    }
}

TEST(Opzioni, Mostrate) {
    Banco b;
    EXPECT_EQ(b.Esegui({"opzioni"}), 0);
    EXPECT_TRUE(b.Scrive("Nessuna opzione conservata in /casa/programma/Default.ini")) << b.Uscita.str();
    EXPECT_FALSE(b.Disco.Esiste(Ini));

    b.Disco.Metti(Ini, "OK\r\nKO\r\n'Perch\xE9\r\n'due\r\n\r\nOK\r\n");
    EXPECT_EQ(b.Esegui({"opzioni"}), 0);
    EXPECT_EQ(b.Uscita.str(), "Togli tutti i commenti:   sì\nIntestazione Procedure:   no\n"
                              "Senza chiedere conferma:  sì\nTesto dell'intestazione:  \n'Perché\n'due\n");
    EXPECT_EQ(b.Esegui({"opzioni", "--togli-commenti=no"}), 0);
    EXPECT_TRUE(b.Uscita.str().starts_with("Togli tutti i commenti:   no\n")) << b.Uscita.str();
    EXPECT_EQ(b.Esegui({"opzioni", "--ripristina"}), 0);
    EXPECT_EQ(b.Uscita.str(), "Togli tutti i commenti:   no\nIntestazione Procedure:   no\n"
                              "Senza chiedere conferma:  no\nTesto dell'intestazione:  (nessuno)\n");

    b.Disco.Metti("/casa/altro/Default.ini", "OK\r\nOK\r\nOK\r\n");
    EXPECT_EQ(b.Esegui({"opzioni", "--programma=altro"}), 0);
    EXPECT_TRUE(b.Scrive("Procedure:   sì"));
}

// A line "OK" of the text is stored, but ends the text when read and turns "Senza conferma" on: a warning
// says so.
TEST(Opzioni, TestoCheSiTronca) {
    Banco tronco;
    tronco.Disco.Metti("/casa/t.txt", "'uno\n\nOK\n'due\n");
    EXPECT_EQ(tronco.Esegui({"opzioni", "--testo-intestazione=t.txt"}), 0);
    EXPECT_EQ(tronco.Disco.Leggi(Ini), "KO\r\nKO\r\n'uno\r\n\r\nOK\r\n'due\r\n\r\nKO\r\n");
    EXPECT_TRUE(
        tronco.Scrive("Senza chiedere conferma:  sì\nTesto dell'intestazione:  \n'uno\n")); // as a next start
    EXPECT_TRUE(tronco.Dice("la riga 3 del testo dell'intestazione è soltanto OK o KO"))
        << tronco.Errori.str();
    Banco b;
    b.Disco.Metti("/casa/t.txt", "'uno OK\n");
    EXPECT_EQ(b.Esegui({"opzioni", "--testo-intestazione=t.txt"}), 0);
    EXPECT_FALSE(b.Dice("Avviso"));
}

TEST(Opzioni, Uso) {
    for (const std::vector<std::string>& argomenti : {std::vector<std::string>{"opzioni", "p/Prova.vbp"},
                                                      {"opzioni", "--togli-commenti=forse"},
                                                      {"opzioni", "--togli-commenti", "no"},
                                                      {"opzioni", "--si"},
                                                      {"opzioni", "--testo-intestazione"},
                                                      {"documenta"},
                                                      {"documenta", "p/Prova.vbp", "Assente.bas"},
                                                      {"documenta", "--html", "p/Prova.vbp"},
                                                      {"riordina", "--apri", "p/Prova.vbp"},
                                                      {"riordina", "--sottocartelle", "p/Prova.vbp"},
                                                      {"documenta", "--ini", "p/Prova.vbp"},
                                                      {"esegui", "--ripristina", "p/Prova.vbp"},
                                                      {"guida", "p/Prova.vbp"}}) {
        Banco b;
        EXPECT_EQ(b.Esegui(argomenti), 2) << testing::PrintToString(argomenti);
        EXPECT_FALSE(b.Disco.Esiste(Ini) || b.Disco.Esiste("/casa/p/Appoggio"));
    }
}

TEST(Opzioni, IniNonScrivibile) {
    for (const std::vector<std::string>& argomenti :
         {std::vector<std::string>{"opzioni", "--ripristina"}, {"opzioni", "--togli-commenti=si"}}) {
        Banco b;
        b.Disco.Metti(Ini, "KO\r\nKO\r\n'T\r\nKO\r\n");
        b.Disco.Fallisci("ApriScrittura", "Default.ini", 75);
        EXPECT_EQ(b.Esegui(argomenti), 1);
        EXPECT_TRUE(b.Dice("errore 75, ") && b.Dice("(/casa/programma/Default.ini)")) << b.Errori.str();
        EXPECT_EQ(b.Disco.Leggi(Ini), "KO\r\nKO\r\n'T\r\nKO\r\n");
    }
}

TEST(Guida, PaginaEBrowser) {
    Banco b;
    EXPECT_EQ(b.Esegui({"guida"}), 0) << b.Errori.str();
    EXPECT_EQ(b.Disco.Leggi("/casa/programma/tavolerio.htm").size(), 4081U);
    EXPECT_EQ(b.Disco.Avviati, std::vector<std::string>{"Explorer|/casa/programma/tavolerio.htm"});
    EXPECT_EQ(b.Uscita.str(), "/casa/programma/tavolerio.htm\n");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/casa");
    EXPECT_FALSE(b.Disco.Esiste(Ini));

    b.Disco.Metti("/casa/programma/tavolerio.htm", "mia");
    EXPECT_EQ(b.Esegui({"guida", "--senza-processi"}), 0);
    EXPECT_EQ(b.Uscita.str(), "/casa/programma/tavolerio.htm\n");
    EXPECT_EQ(b.Disco.Leggi("/casa/programma/tavolerio.htm"), "mia");
    EXPECT_EQ(b.Disco.Avviati.size(), 1U);

    EXPECT_EQ(b.Esegui({"guida", "-p", "altra"}), 1); // no such directory
    EXPECT_TRUE(b.Dice("MnuHelpHtml_Click fermato: errore 76")) << b.Errori.str();

    Banco senza;
    senza.Disco.Fallisci("Avvia", "tavolerio.htm", 53);
    EXPECT_EQ(senza.Esegui({"guida"}), 1);
    EXPECT_TRUE(senza.Dice("errore 53, File non trovato. (un programma per /casa/programma/tavolerio.htm)"));
    EXPECT_TRUE(senza.Disco.Esiste("/casa/programma/tavolerio.htm"));
}

} // namespace

} // namespace morvella::cli

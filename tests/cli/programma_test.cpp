// SPDX-License-Identifier: MIT
#include "cli/avvisi.h"
#include "cli/programma.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/opzioni.h"
#include "sostegno/disco_finto.h"

namespace morvella::cli {

namespace {

using prove::DiscoFinto;

constexpr const char* ModuloA = "Attribute VB_Name = \"A\"\r\nOption Explicit\r\nSub a()\r\nEnd Sub\r\n";

// A project of three modules on the double's disk, and a run of the program over it.
struct Banco {
    DiscoFinto Disco{"/casa"};
    std::istringstream Ingresso;
    std::ostringstream Uscita;
    std::ostringstream Errori;
    bool Terminale = false;

    Banco() {
        Disco.Metti("/casa/p/Prova.vbp", "Type=Exe\r\nModule=B; B.bas\r\nModule=A; A.bas\r\nForm=C.frm\r\n");
        Disco.Metti("/casa/p/A.bas", ModuloA);
        Disco.Metti("/casa/p/B.bas", ModuloA);
        Disco.Metti("/casa/p/C.frm",
                    "VERSION 5.00\r\nAttribute VB_Exposed = False\r\nOption Explicit\r\n'c\r\n");
    }

    int Esegui(std::vector<std::string> argomenti) {
        Uscita.str("");
        Errori.str("");
        Disco.CambiaDirectory("/casa"); // a run leaves the process in the project's directory
        Ambiente ambiente{.Macchina = Disco, .Ingresso = Ingresso, .Uscita = Uscita, .Errori = Errori};
        ambiente.IngressoTerminale = ambiente.ErroriTerminale = Terminale;
        ambiente.DirectoryProgramma = "/casa/programma";
        return Programma(argomenti, ambiente);
    }

    bool C(const std::string& testo) const { return Errori.str().find(testo) != std::string::npos; }
    std::string Scritto(const std::string& nome) const { return Disco.Leggi("/casa/p/Appoggio/" + nome); }
    bool Fatto(const std::string& nome) const { return Disco.Esiste("/casa/p/Appoggio/" + nome); }
};

TEST(Esegui, ProgettoConUnNomeDiAltriAlfabeti) {
    Banco b;
    b.Disco.Metti("/casa/p/Проект è.vbp", "Module=A; A.bas\r\n");
    EXPECT_EQ(b.Esegui({"esegui", "-s", "p/Проект è.vbp"}), 0);
    EXPECT_EQ(b.Scritto("Проект è.vbp"), "Module=A; A.bas\r\n");
    EXPECT_TRUE(b.Fatto("a.bas"));
    b.Terminale = true;
    b.Ingresso.str("n\n");
    EXPECT_EQ(b.Esegui({"elenca", "p/Проект è.VBP"}), 0); // as on any disk
    EXPECT_EQ(b.Esegui({"esegui", "p/Проект è.vbp"}), 3);
    EXPECT_TRUE(b.C("presenti nel progetto\nПроект è.vbp [s/N]")) << b.Errori.str();
}

TEST(Uso, Errato) {
    const std::vector<std::vector<std::string>> casi = {
        {},
        {"p/Prova.vbp"},
        {"esegui"},
        {"esegui", "--boh", "p/Prova.vbp"},
        {"esegui", "-z", "p/Prova.vbp"},
        {"esegui", "--si=1", "p/Prova.vbp"},
        {"esegui", "p/Prova.vbp", "A.bas"},
        {"elenca", "p/Prova.vbp", "A.bas"},
        {"elenca", "p/Prova.vbp", "--prosegui"},
        {"riordina", "p/Prova.vbp", "--controlla"},
        {"mostra"},
        {"mostra", "--si", "x.log"},
        {"boh", "--aiuto"},
        {"riordina", "p/Prova.vbp", "Assente.bas"},
        {"riordina", "p/Prova.vbp", "--rapporto"},
        {"eventi", "p/Prova.vbp"},
        {"eventi", "p/Prova.vbp", "File1Leggi_Click", "Boh_Click"},
        {"eventi", "p/Prova.vbp", "seleziona=x"},
        {"eventi", "p/Prova.vbp", "File1Leggi_Click", "seleziona=3"},
        {"riordina", "p/Prova.vbp", "--testo-intestazione", "assente.txt"},
    };
    for (const auto& argomenti : casi) {
        Banco b;
        EXPECT_EQ(b.Esegui(argomenti), 2) << testing::PrintToString(argomenti);
        EXPECT_TRUE(b.C("morvella-cli: ") && b.C("--aiuto")) << b.Errori.str();
        EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio")) << testing::PrintToString(argomenti);
    }
}

TEST(Uso, AiutoStaInUnoSchermo) {
    std::string tutto;
    std::vector<std::vector<std::string>> argomenti = {{"--aiuto"}};
    for (const Comando& c : Comandi()) argomenti.push_back({c.Nome, "-h"});
    for (const auto& a : argomenti) {
        Banco b;
        EXPECT_EQ(b.Esegui(a), 0);
        const std::string testo = b.Uscita.str();
        EXPECT_LE(std::count(testo.begin(), testo.end(), '\n'), 24) << testo;
        EXPECT_NE(testo.find("Esempio: morvella-cli "), std::string::npos);
        std::istringstream righe(testo);
        for (std::string riga; std::getline(righe, riga);)
            EXPECT_LE(Bytes1252DaUtf8(riga).value().size(), 80U) << riga;
        tutto += testo;
    }
    for (const Opzione& o : Opzioni()) EXPECT_NE(tutto.find(std::string("--") + o.Lunga), std::string::npos);
    for (const Comando& c : Comandi()) EXPECT_NE(tutto.find(std::string("  ") + c.Nome), std::string::npos);
}

TEST(Uso, OpzioniInOgniForma) {
    const Richiesta r = Analizza(
        {"-tq", "riordina", "-r", "f.json", "--testo-intestazione=t.txt", "p.vbp", "-k", "--", "-a.bas"});
    EXPECT_TRUE(r.TogliCommenti && r.Silenzioso && r.Prosegui);
    EXPECT_FALSE(r.IntestazioneProcedure || r.Lf || r.SenzaConferma || r.Risposta.has_value());
    EXPECT_EQ(r.Rapporto, "f.json");
    EXPECT_EQ(r.TestoIntestazione, "t.txt");
    EXPECT_EQ(r.Progetto, "p.vbp");
    EXPECT_EQ(r.Resto, std::vector<std::string>{"-a.bas"});
    EXPECT_EQ(Analizza({"elenca", "-rf", "p.vbp"}).Rapporto, "f"); // a value may follow its letter directly
    EXPECT_EQ(Analizza({"elenca", "-r", "-", "p.vbp"}).Rapporto, "-");
    for (const char* no : {"-t=no", "-qt=NO", "--togli-commenti=No"})
        EXPECT_EQ(Analizza({"riordina", no, "p.vbp"}).TogliCommenti, false) << no;
    for (const char* si : {"-t", "-tq", "-t=si", "-qt=SI", "--togli-commenti=Sì", "--togli-commenti=SÌ"})
        EXPECT_EQ(Analizza({"riordina", si, "P.VBP"}).TogliCommenti, true) << si;
}

TEST(Uso, DiceCheCosaCiVuole) {
    const std::pair<std::vector<std::string>, const char*> casi[] = {
        {{"riordina", "--togli-commenti=forse", "p/Prova.vbp"},
         "il valore dell'opzione --togli-commenti può essere si o no, non «forse»"},
        {{"riordina", "-t=forse", "p/Prova.vbp"},
         "il valore dell'opzione -t può essere si o no, non «forse»"},
        {{"riordina", "-t=", "p/Prova.vbp"}, "il valore dell'opzione -t è vuoto"},
        {{"riordina", "p/C.frm"}, "«p/C.frm» non è un file di progetto: ci vuole un PROGETTO.vbp"},
        {{"esegui", "p"}, "«p» non è un file di progetto"},
        {{"elenca", "p/Prova.vbp", "A.bas"}, "il comando elenca non vuole altro: A.bas"},
        {{"esegui", "p/Prova.vbp", "A.bas"}, "per alcune righe: morvella-cli riordina PROGETTO.vbp RIGA..."},
    };
    for (const auto& [argomenti, detto] : casi) {
        Banco b;
        EXPECT_EQ(b.Esegui(argomenti), 2) << detto;
        EXPECT_TRUE(b.C(detto)) << b.Errori.str();
        EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
    }
}

TEST(Uso, ProgrammaCheNonCE) {
    Banco b;
    EXPECT_EQ(b.Esegui({"elenca", "-p", "manca", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.C("Avviso: --programma: la directory «manca» non c'è.")) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"elenca", "-p", "p", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Errori.str(), "");
}

TEST(Elenca, SenzaRighe) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Type=Exe\r\n");
    EXPECT_EQ(b.Esegui({"elenca", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.C("non ha righe Form=, Module= o Class=: non c'è niente da mostrare.")) << b.Errori.str();
}

TEST(Elenca, RigheInOrdineSenzaScrivere) {
    Banco b;
    EXPECT_EQ(b.Esegui({"elenca", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Uscita.str(), "A.bas\nB.bas\nC.frm\n");
    EXPECT_EQ(b.Errori.str(), "");
    EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
}

TEST(Esegui, SenzaTerminaleLaRispostaENo) {
    Banco b;
    EXPECT_EQ(b.Esegui({"esegui", "p/Prova.vbp"}), 3);
    EXPECT_TRUE(b.C("Vuoi riordinare il Codice")) << b.Errori.str();
    EXPECT_TRUE(b.C("la risposta è No"));
    EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
    EXPECT_EQ(b.Esegui({"esegui", "--no", "p/Prova.vbp"}), 3);
    EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
}

TEST(Esegui, SiScriveTutto) {
    for (const char* modo : {"--si", "-s", "--senza-conferma", "-c"}) {
        Banco b;
        EXPECT_EQ(b.Esegui({"esegui", modo, "p/Prova.vbp"}), 0) << modo;
        for (const char* nome : {"a.txt", "a.bas", "b.txt", "b.bas", "c.txt", "c.frm", "Prova.vbp", "OK.LOG"})
            EXPECT_TRUE(b.Fatto(nome)) << modo << ' ' << nome;
        EXPECT_NE(b.Uscita.str().find("A.bas  -> Appoggio/a.txt, Appoggio/a.bas"), std::string::npos)
            << b.Uscita.str();
        EXPECT_NE(b.Uscita.str().find("3 moduli, 12 righe"), std::string::npos) << b.Uscita.str();
    }
}

TEST(Esegui, DomandaSulTerminale) {
    const std::pair<const char*, int> risposte[] = {{"s\n", 0},  {"S\r\n", 0}, {"sì\n", 0}, {"si\n", 0},
                                                    {"SÌ\n", 0}, {" s \n", 0}, {"n\n", 3},  {"\n", 3},
                                                    {"", 3},     {"sa\n", 3}};
    for (const auto& [detto, stato] : risposte) {
        Banco b;
        b.Terminale = true;
        b.Ingresso.str(detto);
        EXPECT_EQ(b.Esegui({"esegui", "p/Prova.vbp"}), stato) << detto;
        EXPECT_TRUE(b.C("nel progetto\nProva.vbp [s/N] ")) << b.Errori.str();
        EXPECT_EQ(b.Fatto("a.txt"), stato == 0);
    }
}

TEST(Esegui, SilenziosoTace) {
    Banco b;
    EXPECT_EQ(b.Esegui({"esegui", "-sq", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Uscita.str() + b.Errori.str(), "");
    EXPECT_TRUE(b.Fatto("a.bas"));
}

TEST(Riordina, RigheNominateInOgniScrittura) {
    Banco b;
    EXPECT_EQ(b.Esegui({"riordina", "p/Prova.vbp", "c.FRM", "a.BAS"}), 0);
    EXPECT_TRUE(b.Fatto("a.bas") && b.Fatto("c.frm"));
    EXPECT_FALSE(b.Fatto("b.txt"));
    EXPECT_EQ(b.Errori.str(), "") << "the command's own No is no news";
}

TEST(Riordina, SenzaConfermaNonCambiaIlComando) {
    Banco b; // choosing the project must not run everything first
    EXPECT_EQ(b.Esegui({"riordina", "--senza-conferma", "p/Prova.vbp", "A.bas"}), 0);
    EXPECT_TRUE(b.Fatto("a.bas"));
    EXPECT_FALSE(b.Fatto("b.txt"));
}

TEST(Riordina, RigheConDirectoryEdAccenti) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Module=Q; sub\\Quantit\xE0.bas\r\n");
    b.Disco.Metti("/casa/p/sub/Quantit\xC3\xA0.bas", ModuloA);
    EXPECT_EQ(b.Esegui({"riordina", "p/Prova.vbp", "SUB/quantit\xC3\x80.bas"}), 0) << b.Errori.str();
    EXPECT_TRUE(b.Fatto("quantit\xC3\xA0.txt"));
}

TEST(Opzioni, ComeSpunteDellUtente) {
    Banco b;
    b.Disco.Metti("/casa/t.txt", "\xEF\xBB\xBF'Perch\xC3\xA9\n'due\r\n");
    EXPECT_EQ(b.Esegui({"riordina", "-ti", "--testo-intestazione", "/casa/t.txt", "p/Prova.vbp", "C.frm"}),
              0);
    const std::string c = b.Scritto("c.txt");
    // The text box holds Windows-1252 and CR LF; Print adds its own line end.
    EXPECT_NE(c.find("Attribute VB_Exposed = False\r\n'Perch\xE9\r\n'due\r\n\r\n"), std::string::npos) << c;
    EXPECT_EQ(c.find("'c\r\n"), std::string::npos);
}

TEST(Opzioni, TestoIn1252RestaComE) {
    Banco b;
    b.Disco.Metti("/casa/t.txt", "'Perch\xE9 s\xEC");
    EXPECT_EQ(b.Esegui({"riordina", "-i", "--testo-intestazione=/casa/t.txt", "p/Prova.vbp", "C.frm"}), 0);
    EXPECT_NE(b.Scritto("c.txt").find("False\r\n'Perch\xE9 s\xEC\r\n"), std::string::npos);
}

// Text that is UTF-8 stays text: a character that Windows-1252 does not have becomes "?".
TEST(Opzioni, TestoConAltriAlfabeti) {
    Banco b;
    b.Disco.Metti("/casa/programma/home.GIF", "");
    b.Disco.Metti("/casa/t.txt", "'* Società è 日\n");
    EXPECT_EQ(b.Esegui({"riordina", "-i", "--testo-intestazione=t.txt", "p/Prova.vbp"}), 0);
    EXPECT_NE(b.Scritto("c.txt").find("'* Societ\xE0 \xE8 ?\r\n"), std::string::npos) << b.Scritto("c.txt");
    EXPECT_TRUE(b.C("t.txt ha caratteri che Windows-1252 non ha: al loro posto si scrive «?»."))
        << b.Errori.str();
    EXPECT_EQ(b.Esegui({"opzioni", "--testo-intestazione=t.txt"}), 0);
    const std::string detto = b.Errori.str();
    EXPECT_EQ(detto.find("Avviso"), detto.rfind("Avviso")); // once
    b.Disco.Metti("/casa/t.txt", "'* Societ\xE0 €\n");      // no UTF-8: as it is
    EXPECT_EQ(b.Esegui({"riordina", "-i", "--testo-intestazione=t.txt", "p/Prova.vbp"}), 0);
    EXPECT_NE(b.Scritto("c.txt").find("'* Societ\xE0 \xE2\x82\xAC\r\n"), std::string::npos);
    EXPECT_FALSE(b.C("Windows-1252"));
}

TEST(Opzioni, IntestazioneSenzaTestoAvvisa) {
    Banco b;
    EXPECT_EQ(b.Esegui({"riordina", "-i", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.C("non c'è un testo da scrivere"));
}

TEST(Errori, FileMancanteFermaESiDice) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp",
                  "Module=A; A.bas\r\nModule=M; Manca.bas\r\nForm=Z.frm\r\nForm=C.frm\r\n");
    b.Disco.Metti("/casa/p/Z.frm", "Option Explicit\r\n");
    EXPECT_EQ(b.Esegui({"riordina", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.C(
        "mnuRiordina_Click fermato alla riga «Manca.bas»: errore 53, File non trovato. (/casa/p/Manca.bas)"))
        << b.Errori.str();
    EXPECT_TRUE(b.Fatto("a.txt"));
    EXPECT_FALSE(b.Fatto("a.bas")); // the second stage never ran
    EXPECT_FALSE(b.Fatto("z.txt"));
}

TEST(Errori, SorgenteCheNonSiLegge) {
    Banco b;
    b.Disco.Fallisci("ApriLettura", "B.bas", ErrAccesso);
    EXPECT_EQ(b.Esegui({"riordina", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.C("alla riga «B.bas»: errore 75") &&
                b.C("una directory. Con --prosegui si passa alla riga seguente."))
        << b.Errori.str();
    EXPECT_EQ(b.Esegui({"riordina", "-k", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Fatto("c.frm") && !b.C("--prosegui"));
}

TEST(Errori, ProseguiCompletaIlResto) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Module=A; A.bas\r\nModule=M; Manca.bas\r\nModule=N; Nulla.bas\r\n"
                                       "Form=Z.frm\r\nForm=x\r\nForm=C.frm\r\n");
    b.Disco.Metti("/casa/p/Z.frm", "Option Explicit\r\n");
    EXPECT_EQ(b.Esegui({"riordina", "--prosegui", "p/Prova.vbp"}), 1);
    for (const char* nome : {"a.txt", "a.bas", "c.txt", "c.frm", "z.txt", "z.frm"})
        EXPECT_TRUE(b.Fatto(nome)) << nome;
    EXPECT_TRUE(b.C("«Manca.bas»: errore 53"));
    EXPECT_TRUE(b.C("«Nulla.bas»: errore 53"));
    EXPECT_TRUE(b.C("«x»: errore 5,"));
    EXPECT_NE(b.Uscita.str().find("3 moduli"), std::string::npos) << b.Uscita.str();
}

TEST(Errori, ProseguiDaEsegui) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Module=A; Assente.bas\r\nForm=C.frm\r\n");
    EXPECT_EQ(b.Esegui({"esegui", "-sk", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Fatto("c.frm"));
    EXPECT_EQ(b.Esegui({"esegui", "-nk", "p/Prova.vbp"}), 3);
}

TEST(Errori, ProseguiFinisceAncheSeTuttoFallisce) {
    Banco b;
    b.Disco.Fallisci("Copia", "a.bas", ErrDiscoPieno); // second stage, always
    b.Disco.Fallisci("ApriScrittura", "b.txt", ErrAccesso);
    EXPECT_EQ(b.Esegui({"riordina", "-k", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Fatto("c.frm"));
    EXPECT_TRUE(b.C("«A.bas»: errore 61"));
    EXPECT_TRUE(b.C("«B.bas»: errore 75"));
}

TEST(Errori, ProgettoAssenteEFinale) {
    Banco b;
    EXPECT_EQ(b.Esegui({"esegui", "-s", "p/Altro.vbp"}), 1);
    EXPECT_TRUE(b.C("File1Leggi_Click fermato: errore 53, File non trovato. (/casa/p/Altro.vbp)"))
        << b.Errori.str();
    EXPECT_EQ(b.Esegui({"esegui", "-s", "q/Altro.vbp"}), 1);
    EXPECT_TRUE(b.C("errore 76")) << b.Errori.str();
}

TEST(Errori, DiscoPienoNonSiPerde) {
    Banco b;
    b.Disco.SpazioLibero = 200;
    const auto prima = b.Disco.TuttiIFile();
    EXPECT_EQ(b.Esegui({"riordina", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.C("errore 61")) << b.Errori.str();
    for (const auto& [percorso, bytes] : prima) EXPECT_EQ(b.Disco.Leggi(percorso), bytes);
}

TEST(Errori, LaRigaInLavoroNonPuntaAUnBloccoAndato) {
    // The channel's buffer grows for the long line and moves. The account of the error must not look at
    // an earlier line in the old one.
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Form=A.frm\r\nModule=B; B.bas\r\n");
    b.Disco.Metti("/casa/p/A.frm", "Sub a()\r\nx = 1\r\n");
    b.Disco.Metti("/casa/p/B.bas", std::string(600000, 'y') + "\r\nz\r\n");
    b.Disco.Fallisci("Scrivi", "b.txt", ErrDiscoPieno);
    EXPECT_EQ(b.Esegui({"riordina", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.C("«B.bas»: errore 61")) << b.Errori.str();
}

TEST(Errori, UscitaStandardCheNonAccettaTesto) {
    Banco b;
    b.Uscita.setstate(std::ios::badbit);
    EXPECT_EQ(b.Esegui({"elenca", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.C("l'uscita standard non ha accettato"));
}

TEST(Avvisi, DiconoSenzaCambiare) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp",
                  "Form=A.frm\r\nModule=A; A.bas\r\nModule=L; Lf.bas\r\nModule=U; ..\\lib\\U.bas\r\n");
    b.Disco.Metti("/casa/p/A.frm", "Option Explicit\r\n");
    b.Disco.Metti("/casa/p/Lf.bas", "Option Explicit\nSub a()\nEnd Sub\n");
    b.Disco.Metti("/casa/lib/U.bas", ModuloA);
    b.Disco.FaiDirectory("/casa/p/lib");
    EXPECT_EQ(b.Esegui({"riordina", "p/Prova.vbp"}), 0) << b.Errori.str();
    EXPECT_TRUE(b.C("«Lf.bas» ha fine riga LF")) << b.Errori.str();
    EXPECT_TRUE(b.C("«A.bas» e «A.frm» scrivono lo stesso file, /casa/p/Appoggio/a.txt"));
    EXPECT_TRUE(b.C("«..\\lib\\U.bas» esce da Appoggio: si scrive in /casa/p/lib/u.txt"));
    EXPECT_FALSE(b.C("Prova.vbp» ha fine riga"));
    EXPECT_EQ(b.Esegui({"riordina", "--lf", "p/Prova.vbp"}), 0);
    EXPECT_FALSE(b.C("ha fine riga LF"));
}

TEST(Avvisi, ProgettoConLf) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Type=Exe\nModule=A; A.bas\n");
    EXPECT_EQ(b.Esegui({"elenca", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Uscita.str(), "");
    EXPECT_TRUE(b.C("«Prova.vbp» ha fine riga LF"));
    EXPECT_EQ(b.Esegui({"elenca", "--lf", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Uscita.str(), "A.bas\n");
}

TEST(Eventi, InOrdine) {
    Banco b;
    EXPECT_EQ(b.Esegui({"eventi", "p/Prova.vbp", "File1Leggi_Click", "seleziona=0,2", "mnuRiordina_Click"}),
              0);
    EXPECT_TRUE(b.Fatto("a.bas") && b.Fatto("c.frm"));
    EXPECT_FALSE(b.Fatto("b.txt"));
    Banco c;
    EXPECT_EQ(
        c.Esegui({"eventi", "p/Prova.vbp", "File1Leggi_Click", "mnuSeleziona_Click", "mnuRiordina_Click"}),
        0);
    EXPECT_TRUE(c.Disco.Esiste("/casa/p/Appoggio/OK.LOG")); // the toggle had deselected every row
    EXPECT_FALSE(c.Fatto("a.txt"));
    Banco d;
    EXPECT_EQ(d.Esegui({"eventi", "--si", "p/Prova.vbp", "File1Leggi_Click", "seleziona="}), 0);
    EXPECT_TRUE(d.Fatto("b.bas"));
}

TEST(Eventi, ErroreFinaleChiudeLaLista) {
    Banco b;
    EXPECT_EQ(b.Esegui({"eventi", "p/Altro.vbp", "File1Leggi_Click", "mnuRiordina_Click"}), 1);
    EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
}

TEST(Rapporto, OggettoIntero) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Module=A; A.bas\r\nModule=M; Perch\xE9.bas\r\n");
    EXPECT_EQ(b.Esegui({"riordina", "-r", "-", "p/Prova.vbp"}), 1);
    EXPECT_EQ(
        b.Uscita.str(),
        "{\n"
        "  \"righe\": [\n"
        "    {\"testo\": \"A.bas\", \"selezionata\": true},\n"
        "    {\"testo\": \"Perché.bas\", \"selezionata\": true}\n"
        "  ],\n"
        "  \"menu\": {\"mnuRiordina\": true, \"mnuvorn\": true, \"mnuLettura\": true, \"mnuHTML\": true, "
        "\"mnuSeleziona\": \"DeSeleziona tutto\"},\n"
        "  \"Label2\": \"\\\\casa\\\\p\\\\Perché.bas\",\n"
        "  \"ProgressBar1\": {\"Max\": 2, \"Value\": 2, \"Visible\": true},\n"
        "  \"Progress\": {\"Max\": 19, \"Value\": 4, \"Visible\": true},\n"
        "  \"messaggi\": [\n"
        "    {\"testo\": \"Vuoi riordinare il Codice di tutti i form, moduli e classi presenti nel "
        "progetto\\u000dProva.vbp\", \"flag\": 68, \"titolo\": \"Identazione\", \"risposta\": 7}\n"
        "  ],\n"
        "  \"processi\": [],\n"
        "  \"errori\": [\n"
        "    {\"motore\": \"mnuRiordina_Click\", \"numero\": 53, \"descrizione\": \"File non trovato.\", "
        "\"file\": \"\\\\casa\\\\p\\\\Perché.bas\", "
        "\"riga\": \"Perché.bas\", \"linea\": 0, \"finale\": false}\n"
        "  ],\n"
        "  \"rilievi\": null,\n"
        "  \"avvisi\": [\n"
        "    \"«Perché.bas» manca: il progetto lo nomina, ma il file non c'è.\"\n"
        "  ]\n"
        "}\n");
}

TEST(Rapporto, AncheQuandoLeRigheSonoAndate) {
    Banco b; // the event empties the list after the work: what was done is told all the same
    EXPECT_EQ(b.Esegui({"eventi", "-r", "r.json", "p/Prova.vbp", "File1Leggi_Click", "mnuRiordina_Click",
                        "Dir1_Change"}),
              0);
    EXPECT_NE(b.Uscita.str().find("A.bas  -> Appoggio/a.txt"), std::string::npos) << b.Uscita.str();
    EXPECT_NE(b.Disco.Leggi("/casa/r.json").find("\"righe\": []"), std::string::npos);
}

TEST(Rapporto, NonCostaUnSorgente) {
    for (const char* file : {"p/A.bas", "p/Prova.vbp", "p/C.frm"}) {
        Banco b;
        const auto prima = b.Disco.TuttiIFile();
        EXPECT_EQ(b.Esegui({"riordina", "-r", file, "p/Prova.vbp"}), 2) << file;
        EXPECT_EQ(b.Disco.TuttiIFile(), prima) << file;
    }
}

// A row may have any extension, and a report may have any path.
TEST(Rapporto, NonCostaUnaRigaDiAltraEstensione) {
    for (const char* comando : {"struttura", "elenca", "riordina"}) {
        Banco b;
        b.Disco.Metti("/casa/p/Prova.vbp", "Form=b.txt\r\n");
        b.Disco.Metti("/casa/p/b.txt", "VERSION 5.00\r\nAttribute VB_Exposed = False\r\nx = 1\r\n");
        b.Disco.Metti("/casa/p/c.txt", "vecchio");
        const auto prima = b.Disco.TuttiIFile();
        EXPECT_EQ(b.Esegui({comando, "-r", "p/b.txt", "p/Prova.vbp"}), 1) << comando;
        EXPECT_EQ(b.Disco.TuttiIFile(), prima) << comando; // not even the outputs
        EXPECT_TRUE(b.C("errore 70, ") && b.C("--rapporto /casa/p/b.txt")) << b.Errori.str();
        EXPECT_EQ(b.Esegui({comando, "-r", "p/c.txt", "p/Prova.vbp"}), 0) << b.Errori.str();
        EXPECT_TRUE(b.Disco.Leggi("/casa/p/c.txt").starts_with("{"));
    }
    // Events choose their project on the way: the report is refused when it is written.
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Form=b.txt\r\n");
    b.Disco.Metti("/casa/p/b.txt", "x");
    EXPECT_EQ(b.Esegui({"eventi", "-r", "p/b.txt", "p/Prova.vbp", "File1Leggi_Click"}), 1);
    EXPECT_EQ(b.Disco.Leggi("/casa/p/b.txt"), "x");
    EXPECT_TRUE(b.C("errore 70, ")) << b.Errori.str();
}

TEST(Rapporto, RigheCheNonSiLeggonoNonSiSovrascrivono) {
    Banco b;
    b.Disco.Metti("/casa/p/b.txt", "x");
    b.Disco.Fallisci("Leggi", "/Prova.vbp", 57);
    EXPECT_EQ(b.Esegui({"struttura", "-r", "p/b.txt", "p/Prova.vbp"}), 1);
    EXPECT_EQ(b.Disco.Leggi("/casa/p/b.txt"), "x");
}

// Reads may be as short as they like.
TEST(Avvisi, LeggiPieno) {
    struct Goccia : FileAperto {
        std::string Bytes = "abcdef";
        std::size_t Qui = 0;
        std::size_t Leggi(char* dove, std::size_t n) override {
            if (n == 0 || Qui == Bytes.size()) return 0;
            *dove = Bytes[Qui++];
            return 1;
        }
        void Scrivi(const char*, std::size_t) override {}
        void Svuota() override {}
        void Chiudi() override {}
    };
    Goccia file;
    char dove[8] = "";
    EXPECT_EQ(LeggiPieno(file, dove, 4), 4U);
    EXPECT_EQ(std::string(dove, 4), "abcd");
    EXPECT_EQ(LeggiPieno(file, dove, 4), 2U);
    EXPECT_EQ(std::string(dove, 2), "ef");
}

TEST(Opzioni, IntestazioneSmisurata) {
    Banco b;
    b.Disco.FaiDirectory("/casa/programma");
    const std::size_t mebi = std::size_t{1024} * 1024;
    b.Disco.Metti("/casa/t.txt", std::string(mebi + 1, 'x'));
    EXPECT_EQ(b.Esegui({"opzioni", "--testo-intestazione", "t.txt"}), 2);
    EXPECT_TRUE(b.C("più di 1 MiB")) << b.Errori.str();
    b.Disco.Metti("/casa/t.txt", std::string(mebi, 'x'));
    EXPECT_EQ(b.Esegui({"opzioni", "--testo-intestazione", "t.txt"}), 0) << b.Errori.str();
}

TEST(Esegui, UnNoEsplicitoValePiuDellOpzioneConservata) {
    Banco b;
    b.Disco.Metti("/casa/programma/Default.ini", "KO\r\nKO\r\n\r\nOK\r\n");
    EXPECT_EQ(b.Esegui({"esegui", "--no", "p/Prova.vbp"}), 3);
    EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
    EXPECT_EQ(b.Esegui({"esegui", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.Fatto("a.bas"));
}

TEST(Avvisi, ProgettoSenzaRighe) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Type=Exe\r\n");
    EXPECT_EQ(b.Esegui({"riordina", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.C("non ha righe Form=, Module= o Class=")) << b.Errori.str();
    EXPECT_NE(b.Uscita.str().find("0 moduli, 0 righe"), std::string::npos);
}

TEST(Rapporto, SuFileAncheDopoUnErroreFinale) {
    Banco b;
    EXPECT_EQ(b.Esegui({"esegui", "-s", "--rapporto=r.json", "p/Altro.vbp"}), 1);
    const std::string json = b.Disco.Leggi("/casa/r.json"); // from where the program was started
    EXPECT_NE(json.find("\"motore\": \"File1Leggi_Click\", \"numero\": 53"), std::string::npos) << json;
    EXPECT_NE(json.find("\"finale\": true"), std::string::npos);
    EXPECT_NE(json.find("\"righe\": []"), std::string::npos);
}

} // namespace

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
//
// The command line's own words: what is taken, what is refused, and what is advised instead.
#include <algorithm>

#include "cli/banco.h"
#include "cli/opzioni.h"
#include "cli/vicino.h"

namespace morvella::cli {

namespace {

using prove::Banco;

TEST(Vicino, SoloQuandoLoE) {
    const std::vector<std::string> nomi = {"esegui",      "riordina",     "struttura",
                                           "senza-pager", "senza-colori", "si"};
    const std::pair<const char*, const char*> casi[] = {
        {"esegui", "esegui"},
        {"esegiu", "esegui"},
        {"Esegui", "esegui"},
        {"riodina", "riordina"},
        {"riordinaa", "riordina"},
        {"strutura", "struttura"},
        {"strut", "struttura"}, // what it begins with
        {"senza", ""},          // two begin so
        {"senza-p", "senza-pager"},
        {"boh", ""},
        {"ordinare", ""},
        {"", ""},
        {"s", ""},
        {"sj", ""}, // too short to tell
    };
    for (const auto& [scritto, atteso] : casi) EXPECT_EQ(PiuVicino(scritto, nomi), atteso) << scritto;
    EXPECT_EQ(Forse("esegiu", nomi), " (forse «esegui»?)");
    EXPECT_EQ(Forse("boh", nomi), "");
}

TEST(Uso, Consiglia) {
    const std::pair<std::vector<std::string>, const char*> casi[] = {
        {{"riodina", "p/Prova.vbp"}, "comando sconosciuto: riodina (forse «riordina»?)\n"},
        {{"boh", "p/Prova.vbp"}, "comando sconosciuto: boh\n"},
        {{"p/Prova.VBP"}, "manca il comando, per esempio: morvella-cli esegui p/Prova.VBP\n"},
        {{"due parole.vbp"}, "morvella-cli esegui 'due parole.vbp'\n"},
        {{"esegui", "--togli", "p/Prova.vbp"}, "opzione sconosciuta: --togli (forse «--togli-commenti»?)\n"},
        {{"esegui", "--prosegiu", "p/Prova.vbp"}, "opzione sconosciuta: --prosegiu (forse «--prosegui»?)\n"},
        {{"esegui", "--boh", "p/Prova.vbp"}, "opzione sconosciuta: --boh\n"},
        {{"esegui", "-z", "p/Prova.vbp"}, "opzione sconosciuta: -z\n"},
        {{"riordina", "p/Prova.vbp", "C.fmr"},
         "il progetto non ha la riga «C.fmr» (forse «C.frm»?): morvella-cli elenca"},
        {{"riordina", "p/Prova.vbp", "Zeta.bas"},
         "il progetto non ha la riga «Zeta.bas»: morvella-cli elenca"},
    };
    for (const auto& [argomenti, detto] : casi) {
        Banco b;
        EXPECT_EQ(b.Esegui(argomenti), 2) << detto;
        EXPECT_TRUE(b.Dice(detto)) << detto << b.Errori.str();
        EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
    }
}

TEST(Uso, HelpEVersion) {
    for (const char* comando : {"", "esegui", "mostra", "opzioni"}) {
        std::vector<std::string> questo;
        if (*comando) questo.emplace_back(comando);
        const auto con = [&](const char* opzione) {
            Banco b;
            std::vector<std::string> argomenti = questo;
            argomenti.emplace_back(opzione);
            EXPECT_EQ(b.Esegui(argomenti), 0) << comando << opzione;
            EXPECT_EQ(b.Errori.str(), "");
            return b.Uscita.str();
        };
        EXPECT_EQ(con("--help"), con("--aiuto"));
        EXPECT_EQ(con("--version"), con("--versione"));
        EXPECT_TRUE(con("--version").starts_with("morvella-cli ")) << con("--version");
    }
}

// The help of a command lists the options that do something there, and no others.
TEST(Uso, AiutoDiUnComando) {
    struct Caso {
        const char* Comando;
        std::vector<std::string> Opzioni;
    };
    const Caso casi[] = {
        {"esegui",
         {"si", "no", "senza-conferma", "togli-commenti", "intestazione-procedure", "testo-intestazione",
          "lf", "prosegui", "controlla", "html", "apri", "sottocartelle", "verifica", "rapporto", "programma",
          "senza-processi", "silenzioso"}},
        {"riordina",
         {"togli-commenti", "intestazione-procedure", "testo-intestazione", "lf", "prosegui", "verifica",
          "rapporto", "programma", "silenzioso"}},
        {"struttura",
         {"togli-commenti", "intestazione-procedure", "testo-intestazione", "lf", "prosegui", "controlla",
          "rapporto", "programma", "silenzioso"}},
        {"leggi",
         {"togli-commenti", "intestazione-procedure", "testo-intestazione", "lf", "rapporto", "programma",
          "senza-processi", "silenzioso"}},
        {"documenta",
         {"no", "lf", "prosegui", "apri", "sottocartelle", "rapporto", "programma", "senza-processi",
          "silenzioso"}},
        {"formatta",
         {"passo", "tab", "case", "etichette", "direttive", "senza-code", "in", "differenze", "solo-verifica",
          "silenzioso"}},
        {"verifica",
         {"togli-commenti", "intestazione-procedure", "testo-intestazione", "lf", "programma", "silenzioso"}},
        {"elenca", {"lf", "rapporto", "silenzioso"}},
        {"mostra", {"senza-pager", "senza-colori"}},
        {"esamina", {"formato", "uscita", "ricorsivo", "radice", "base", "scrivi-base", "senza-colori"}},
        {"eventi",
         {"si", "no", "senza-conferma", "togli-commenti", "intestazione-procedure", "testo-intestazione",
          "lf", "controlla", "apri", "ini", "rapporto", "programma", "senza-processi", "silenzioso"}},
        {"opzioni",
         {"senza-conferma", "togli-commenti", "intestazione-procedure", "testo-intestazione", "ripristina",
          "programma"}},
        {"guida", {"programma", "senza-processi", "silenzioso"}},
    };
    EXPECT_EQ(std::size(casi), Comandi().size());
    for (const Caso& caso : casi) {
        Banco b;
        EXPECT_EQ(b.Esegui({caso.Comando, "--aiuto"}), 0);
        for (const Opzione& o : Opzioni()) {
            const bool sempre = o.Corta == 'h' || o.Corta == 'V';
            const bool attesa =
                std::find(caso.Opzioni.begin(), caso.Opzioni.end(), o.Lunga) != caso.Opzioni.end();
            const std::string nome = std::string("--") + o.Lunga;
            const std::string scritta = "  " + (o.Corta ? std::string("-") + o.Corta + ", " : "    ") + nome;
            EXPECT_EQ(b.Scrive(scritta + " ") || b.Scrive(scritta + "=") || b.Scrive(scritta + "["),
                      attesa || sempre)
                << caso.Comando << ' ' << nome;
        }
    }
}

// Answers and restraints are accepted where nothing is asked or started, so that a script can give
// them always; an option that asks for an effect is refused where it would have none.
TEST(Uso, OpzioniSenzaEffetto) {
    for (const char* comando : {"riordina", "struttura", "documenta", "leggi", "elenca"})
        for (const char* opzione : {"--si", "--no", "--senza-conferma", "--senza-processi"}) {
            Banco b;
            EXPECT_EQ(b.Esegui({comando, opzione, "p/Prova.vbp"}), 0) << comando << opzione << b.Errori.str();
        }
    for (const char* comando : {"documenta", "elenca"})
        for (const char* opzione :
             {"--togli-commenti", "--intestazione-procedure", "--testo-intestazione=t.txt"}) {
            Banco b;
            b.Disco.Metti("/casa/t.txt", "'t");
            EXPECT_EQ(b.Esegui({comando, opzione, "p/Prova.vbp"}), 2) << comando << opzione;
            const std::string scritta = opzione;
            EXPECT_TRUE(b.Dice(scritta.substr(0, scritta.find('=')) + " non riguarda il comando " + comando))
                << b.Errori.str();
            EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
        }
}

} // namespace

} // namespace morvella::cli

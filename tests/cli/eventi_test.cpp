// SPDX-License-Identifier: MIT
//
// The command "eventi": the window's operations, with what they find and leave as in the window.
#include "cli/eventi.h"

#include "cli/banco.h"

namespace morvella::cli {

namespace {

using prove::Banco;
using prove::Ini;

// No project is chosen before the first File1Leggi_Click: an engine makes the work directory, and has
// no project file to copy there.
TEST(Progetto, NonSceltoPrimaDelClic) {
    Banco b;
    EXPECT_EQ(b.Eventi({"--no", "mnuRiordina_Click"}), 0);
    EXPECT_TRUE(b.Fatto("OK.LOG"));
    EXPECT_FALSE(b.Fatto("Prova.vbp"));
    EXPECT_EQ(b.Eventi({"--no", "-r", "r.json", "Command1_Click"}), 0);
    EXPECT_NE(b.Disco.Leggi("/casa/r.json").find("presenti nel progetto\\u000d\", "), std::string::npos)
        << b.Disco.Leggi("/casa/r.json");
    EXPECT_EQ(b.Eventi({"--no", "File1Leggi_Click", "mnuRiordina_Click"}), 0);
    EXPECT_TRUE(b.Fatto("Prova.vbp"));
}

// Dir1_Change lists the projects of the directory anew, with none of them chosen.
TEST(Progetto, SceltoPerNomeDopoUnCambioDiDirectory) {
    Banco b;
    b.Disco.Metti("/casa/p/Altro.vbp", "Module=Z; Z.bas\r\n"); // comes first in the list
    EXPECT_EQ(b.Eventi({"--no", "File1Leggi_Click", "Dir1_Change", "mnuRiordina_Click"}), 0);
    EXPECT_FALSE(b.Fatto("Prova.vbp") || b.Fatto("Altro.vbp"));
    EXPECT_EQ(b.Eventi({"--no", "File1Leggi_Click", "Dir1_Change", "File1Leggi_Click", "mnuRiordina_Click"}),
              0)
        << b.Errori.str();
    EXPECT_TRUE(b.Fatto("Prova.vbp") && b.Fatto("c.frm"));
    EXPECT_FALSE(b.Fatto("Altro.vbp"));
}

// The command line may write the name as it likes.
TEST(Progetto, SceltoInOgniScrittura) {
    Banco b;
    EXPECT_EQ(
        b.Esegui({"eventi", "--no", "p/PROVA.VBP", "Dir1_Change", "File1Leggi_Click", "mnuRiordina_Click"}),
        0)
        << b.Errori.str();
    EXPECT_TRUE(b.Fatto("c.frm"));
    EXPECT_TRUE(b.Fatto("Prova.vbp")); // named as in the list
}

// Where the new directory does not have it, the error names what is missing.
TEST(Progetto, NonPiuDoveEra) {
    Banco b;
    EXPECT_EQ(b.Eventi({"--no", "Drive1_Change", "File1Leggi_Click"}), 1);
    EXPECT_TRUE(b.Dice("File1Leggi_Click fermato: errore 53, File non trovato. (/Prova.vbp)"))
        << b.Errori.str();
}

// The other commands choose by themselves.
TEST(Progetto, GliAltriComandiScelgono) {
    Banco b;
    EXPECT_EQ(b.Esegui({"riordina", "p/Prova.vbp", "C.frm"}), 0);
    EXPECT_TRUE(b.Fatto("Prova.vbp"));
}

// The farewell box, and the end: nothing is stored.
TEST(Fine, IlSaluto) {
    for (const char* evento : {"Form_Unload", "mnuend_Click", "Form_KeyPress=27"}) {
        Banco b;
        EXPECT_EQ(b.Eventi({"-r", "r.json", "Check2=1", evento}), 0) << evento << b.Errori.str();
        EXPECT_TRUE(b.Dice("E-mail: vorn@morvella.example")) << b.Errori.str();
        EXPECT_NE(b.Disco.Leggi("/casa/r.json").find("\"flag\": 64, \"titolo\": \"Bye bye\""),
                  std::string::npos);
        EXPECT_FALSE(b.Disco.Esiste(Ini));
        // What comes after is refused before anything is run.
        EXPECT_EQ(b.Eventi({"File1Leggi_Click", evento, "mnuRiordina_Click"}), 2);
        EXPECT_TRUE(b.Dice(std::string("dopo ") + evento + " il programma è finito: «mnuRiordina_Click»"));
        EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio"));
    }
    Banco altro;
    EXPECT_EQ(altro.Eventi({"Form_KeyPress=13", "--no", "File1Leggi_Click"}), 0); // passes on
    EXPECT_FALSE(altro.Dice("E-mail"));
    EXPECT_TRUE(altro.Dice("Form_KeyPress=13 passa il tasto al controllo")) << altro.Errori.str();
}

// What belongs to the window's picture alone says so and changes nothing.
TEST(Finestra, SoltantoLi) {
    for (const char* evento : {"MnuHelp_Click", "Frame1_Click", "Picture1_Click", "Picture2_Click",
                               "Timer1_Timer", "TogliCommenti_Click"}) {
        Banco prima;
        Banco b;
        EXPECT_EQ(prima.Eventi({"--no", "-r", "r.json", "File1Leggi_Click"}), 0);
        EXPECT_EQ(b.Eventi({"--no", "-r", "r.json", "File1Leggi_Click", evento}), 0) << evento;
        const auto senzaAvvisi = [](const Banco& banco) {
            auto file = banco.Disco.TuttiIFile();
            std::string& rapporto = file.at("/casa/r.json");
            rapporto.resize(
                rapporto.find("  \"avvisi\": ")); // the last key, and the only one that may differ
            return file;
        };
        EXPECT_EQ(senzaAvvisi(b), senzaAvvisi(prima)) << evento;
        EXPECT_TRUE(b.Dice(std::string("Avviso: ") + evento) && b.Dice("qui non cambia niente"))
            << b.Errori.str();
        EXPECT_EQ(b.Eventi({"--no", "-q", evento}), 0);
        EXPECT_EQ(b.Errori.str(), "");
    }
}

// A tick reaches the engines at once, and the question only when the control loses the focus.
TEST(Controlli, SpuntatoENonConservato) {
    Banco b;
    EXPECT_EQ(b.Eventi({"--no", "Check2=1", "File1Leggi_Click"}), 0);
    EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio") || b.Disco.Esiste(Ini));
    EXPECT_EQ(b.Eventi({"--no", "Check2=1", "Check2_LostFocus", "Check2=0", "File1Leggi_Click"}), 0);
    EXPECT_TRUE(b.Fatto("c.frm"));
    EXPECT_EQ(b.Disco.Leggi(Ini), "KO\r\nKO\r\n\r\nOK\r\n");

    Banco commenti;
    EXPECT_EQ(commenti.Eventi({"--si", "TogliCommenti=si", "File1Leggi_Click"}), 0);
    EXPECT_EQ(commenti.Scritto("c.txt").find("'c\r\n"), std::string::npos);
    EXPECT_FALSE(commenti.Disco.Esiste(Ini));
    EXPECT_EQ(commenti.Eventi({"--si", "-t", "TogliCommenti=no", "File1Leggi_Click"}), 0);
    EXPECT_NE(commenti.Scritto("c.txt").find("'c\r\n"), std::string::npos);
}

TEST(Controlli, TestoDellIntestazione) {
    Banco b;
    EXPECT_EQ(b.Eventi({"--si", "Check1=1", "Text1='Perché\n'uno=due", "File1Leggi_Click"}), 0);
    EXPECT_NE(b.Scritto("c.txt").find("False\r\n'Perch\xE9\r\n'uno=due\r\n"), std::string::npos);
    EXPECT_EQ(b.Eventi({"--si", "Check1=0", "Text1='T", "File1Leggi_Click"}), 0);
    EXPECT_EQ(b.Scritto("c.txt").find("'T"), std::string::npos);
    EXPECT_EQ(b.Eventi({"--si", "Check1=1", "Text1=", "File1Leggi_Click"}), 0);
    EXPECT_TRUE(b.Scritto("c.txt").find("False\r\n'") == std::string::npos);
    EXPECT_EQ(b.Eventi({"Text1=日", "Text1_LostFocus"}), 0);
    EXPECT_EQ(b.Disco.Leggi(Ini), "KO\r\nKO\r\n?\r\nKO\r\n");
    EXPECT_TRUE(b.Dice("Text1 ha caratteri che Windows-1252 non ha")) << b.Errori.str();
}

// Wrong usage shows before the first event is run, with what would be right.
TEST(Uso, DiceCheCosaCiVuole) {
    const std::pair<const char*, const char*> casi[] = {
        {"mnuriordina_click", "evento sconosciuto: mnuriordina_click (forse «mnuRiordina_Click»?)"},
        {"mnuVorm_Click", "(forse «mnuvorn_Click»?)"},
        {"Check1_LostFokus", "(forse «Check1_LostFocus»?)"},
        {"Chek1=1", "(forse «Check1=»?)"},
        {"Tex1='* una intestazione lunga", "(forse «Text1=»?)"},
        {"selezione=1", "(forse «seleziona=»?)"},
        {"boh", "evento sconosciuto: boh; ci sono File1Leggi_Click, Command1_Click, "},
        {"boh", "Form_KeyPress=, seleziona="},
        {"Check1", "a Check1 manca il valore: Check1=1, o Check1=0"},
        {"Check1=2", "il valore di Check1 può essere 1 o 0, non «2»"},
        {"TogliCommenti=", "il valore di TogliCommenti può essere 1 o 0, non «»"},
        {"Text1", "a Text1 manca il testo: Text1=TESTO"},
        {"Form_KeyPress", "a Form_KeyPress manca il tasto: Form_KeyPress=27 è Esc"},
        {"Form_KeyPress=Esc", "è il numero di un tasto (27 è Esc), non «Esc»"},
        {"Form_KeyPress=256", "è il numero di un tasto"},
        {"mnuvorn_Click=1", "l'evento mnuvorn_Click non vuole un valore"},
        {"seleziona=1,x", "seleziona=1,x: ci vogliono numeri di righe, contate da 0"},
        {"seleziona", "(forse «seleziona=»?)"},
    };
    for (const auto& [evento, detto] : casi) {
        Banco b;
        EXPECT_EQ(b.Eventi({"File1Leggi_Click", "mnuRiordina_Click", evento}), 2) << evento;
        EXPECT_TRUE(b.Dice(detto)) << evento << ": " << b.Errori.str();
        EXPECT_FALSE(b.Disco.Esiste("/casa/p/Appoggio")) << evento;
    }
    Banco b;
    EXPECT_EQ(b.Eventi({"--no", "File1Leggi_Click", "seleziona=3"}), 2);
    EXPECT_TRUE(b.Dice("seleziona=3: le righe del progetto sono 3, contate da 0")) << b.Errori.str();
    EXPECT_EQ(b.Eventi({"--no", "File1Leggi_Click", "seleziona=12345678901"}), 2);
}

// Every name that is told is understood.
TEST(Uso, OgniNomeVale) {
    for (const std::string& nome : NomiEventi()) {
        Banco b;
        const std::string evento = nome == "Form_KeyPress=" ? nome + "65"
                                   : nome.ends_with("=")    ? nome + "1"
                                                            : nome;
        EXPECT_NE(b.Eventi({"--no", "--senza-processi", "File1Leggi_Click", evento}), 2)
            << evento << b.Errori.str();
    }
}

} // namespace

} // namespace morvella::cli

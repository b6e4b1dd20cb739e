// SPDX-License-Identifier: MIT
//
// The viewer: the box that names the font, one editor a listing, and the fallback.
#include "listing/banco.h"

namespace morvella {

namespace {

using namespace prove;

constexpr const char* Intera = "x\r\n";

void ConListato(Banco& b, const std::string& riga, const std::string& log) {
    b.Modulo(riga, Intera);
    b.Disco.Metti("/p/Appoggio/" + log, "di prima");
}

TEST(Lettura, NienteSelezionato) {
    Banco b;
    ConListato(b, "A.frm", "A.log");
    b.S.FileUscita = "prima";
    mnuLettura_Click(b.S);
    ASSERT_EQ(b.Fronte.Box_.size(), 1U);
    EXPECT_EQ(b.Fronte.Box_[0].Scritto, "Per visualizzare l'Identazione in maniera ottimizzata\r"
                                        "Selezionare il carattere TERMINAL - Normale");
    EXPECT_EQ(b.Fronte.Box_[0].Flag, 64);
    EXPECT_EQ(b.Fronte.Box_[0].Titolo, "Lettura Ottimizzata");
    EXPECT_EQ(b.S.FileUscita, "");
    EXPECT_TRUE(b.Fronte.Processi.empty());
    EXPECT_EQ(b.Log("A.log"), "di prima");
}

TEST(Lettura, ListaVuota) {
    Banco b;
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Box_.size(), 1U);
    EXPECT_FALSE(b.Disco.Esiste("/p/Appoggio"));
}

// ".Log" is sought and ".log" was written: one file. The rows stay selected.
TEST(Lettura, TutteCiSono) {
    Banco b;
    ConListato(b, "A.frm", "A.log");
    ConListato(b, "B.frm", "b.LOG");
    ConListato(b, "C.frm", "C.log");
    b.S.File1.Segna(0, true);
    b.S.File1.Segna(1, true);
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Box_.size(), 1U);
    EXPECT_EQ(b.Fronte.Processi,
              (std::vector<Testo>{"Notepad.exe \\p\\Appoggio\\A.Log", "Notepad.exe \\p\\Appoggio\\B.Log"}));
    EXPECT_EQ(b.Fronte.StileProcesso, 3);
    EXPECT_EQ(b.Selezione(), "110");
    EXPECT_EQ(b.Log("A.log"), "di prima");
    EXPECT_EQ(b.S.FileUscita, "\\p\\Appoggio\\B.Log");
}

TEST(Lettura, LaPrimaManca) {
    Banco b;
    b.Modulo("A.frm", Intera);
    ConListato(b, "B.frm", "B.log");
    b.Tutte();
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Box_.size(), 2U);
    EXPECT_TRUE(b.Fronte.Processi.empty());
    EXPECT_EQ(b.Log("A.log"), Listato({"1|···x"}));
    EXPECT_EQ(b.Log("B.log"), Listato({"1|···x"})); // all that is selected is listed anew
    EXPECT_EQ(b.Selezione(), "00");
    EXPECT_EQ(b.S.FileUscita, "");

    b.Tutte(); // chosen once more they open
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Box_.size(), 3U);
    EXPECT_EQ(b.Fronte.Processi.size(), 2U);
}

TEST(Lettura, LaSecondaManca) {
    Banco b;
    ConListato(b, "A.frm", "A.log");
    b.Modulo("B.frm", Intera);
    ConListato(b, "C.frm", "C.log");
    b.Tutte();
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Box_.size(), 2U);
    EXPECT_EQ(b.Fronte.Processi, (std::vector<Testo>{"Notepad.exe \\p\\Appoggio\\A.Log"}));
    EXPECT_TRUE(b.Fatto("B.log"));
}

TEST(Lettura, RigaConDirectory) {
    Banco b; // the listing is flat and is sought below the folder: always the fallback
    b.Modulo("sub\\A.frm", Intera);
    for (int volta = 1; volta <= 2; ++volta) {
        b.Tutte();
        mnuLettura_Click(b.S);
        EXPECT_EQ(b.Fronte.Box_.size(), static_cast<std::size_t>(2 * volta));
        EXPECT_TRUE(b.Fatto("A.log"));
        EXPECT_TRUE(b.Fronte.Processi.empty());
    }
    b.Disco.FaiDirectory("/p/Appoggio/sub"); // with the folder it is found
    b.Tutte();
    mnuLettura_Click(b.S);
    b.Tutte();
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Processi, (std::vector<Testo>{"Notepad.exe \\p\\Appoggio\\sub\\A.Log"}));
}

// A listing run that stops leaves rows selected: the next visit looks at those.
TEST(Lettura, CorsaFermata) {
    Banco b;
    b.Modulo("A.frm", std::nullopt); // no source: the run stops here
    ConListato(b, "B.frm", "B.log");
    b.Modulo("C.frm", Intera);
    b.Tutte();
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Box_.size(), 3U);
    EXPECT_EQ(b.Fronte.Processi, (std::vector<Testo>{"Notepad.exe \\p\\Appoggio\\B.Log"}));
    EXPECT_TRUE(b.Fatto("C.log"));
    EXPECT_EQ(b.Selezione(), "000");
    ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
    EXPECT_EQ(b.Fronte.Arresti[0].Motore, "mnuvorn_Click");
}

// Each visit deselects at least the row that failed: as many visits as rows, and one.
TEST(Lettura, TutteFalliscono) {
    Banco b;
    for (const char* riga : {"A.frm", "B.frm", "C.frm", "D.frm"}) b.Modulo(riga, std::nullopt);
    b.Tutte();
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Box_.size(), 5U);
    EXPECT_EQ(b.Fronte.Arresti.size(), 4U);
    EXPECT_EQ(b.Selezione(), "0000");
}

// Without Appoggio, and with a plain file of that name, nothing can be listed.
TEST(Lettura, SenzaDirectoryDiLavoro) {
    Banco b;
    b.Disco.Metti("/p/Appoggio", "un file");
    b.Modulo("A.frm", Intera);
    b.Modulo("B.frm", Intera);
    b.Tutte();
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Box_.size(), 3U);
    EXPECT_EQ(b.Fronte.Arresti.size(), 2U);
    EXPECT_TRUE(b.Fronte.Processi.empty());
}

// A front end that selects a row again during the run would keep it going for ever.
struct FinestraCocciuta : FinestraFinta {
    Stato* Tutto = nullptr;
    void MotoreFermato(const Arresto& arresto) override {
        FinestraFinta::MotoreFermato(arresto);
        if (Arresti.size() > 50) throw SenzaFine("the viewer goes on for ever");
        if (arresto.Motore == "mnuvorn_Click") SelezionaFile1(*Tutto, 0, true);
    }
};

TEST(Lettura, NonGiraPerSempre) {
    DiscoFinto disco;
    FinestraCocciuta fronte;
    Stato s(disco, fronte);
    fronte.Tutto = &s;
    CambiaDir1(s, "/p");
    s.File1.AddItem("A.frm");
    SelezionaFile1(s, 0, true);
    ASSERT_NO_THROW(mnuLettura_Click(s));
    ASSERT_GE(fronte.Arresti.size(), 2U);
    EXPECT_EQ(fronte.Arresti.back().Motore, "mnuLettura_Click");
    EXPECT_EQ(fronte.Arresti.back().Causa.Numero, 53);
    EXPECT_EQ(LCase(fronte.Arresti.back().Causa.File), "\\p\\appoggio\\a.log");
    EXPECT_TRUE(fronte.Processi.empty());
}

TEST(Lettura, PercorsoCorto) {
    struct Caso {
        std::size_t Lungo; // of the short path
        bool Apre;
    };
    for (const Caso& caso :
         {Caso{12, true}, Caso{49, true}, Caso{50, true}, Caso{51, false}, Caso{120, false}}) {
        Banco b;
        ConListato(b, "A.frm", "A.log");
        const std::string nome(caso.Lungo - 3, 'k');
        b.Disco.Metti("/S/" + nome, "di prima"); // the same file by its short path
        b.Disco.PercorsiCorti["/p/Appoggio/A.log"] = "\\S\\" + nome;
        b.Tutte();
        mnuLettura_Click(b.S);
        if (caso.Apre) {
            EXPECT_EQ(b.Fronte.Processi, (std::vector<Testo>{"Notepad.exe \\S\\" + nome})) << caso.Lungo;
            EXPECT_EQ(b.Fronte.Box_.size(), 1U);
            EXPECT_EQ(b.Log("A.log"), "di prima");
        } else { // cut, and so not found: listed again, and not shown
            EXPECT_TRUE(b.Fronte.Processi.empty()) << caso.Lungo;
            EXPECT_EQ(b.Fronte.Box_.size(), 2U);
            EXPECT_EQ(b.Log("A.log"), Listato({"1|···x"}));
        }
    }
}

// What has no short form is sought by its whole path, uncut.
TEST(Lettura, SenzaFormaCorta) {
    Banco b;
    const std::string lungo(60, 'n');
    ConListato(b, lungo + ".frm", lungo + ".log");
    b.Disco.PercorsiCorti["/altro"] = "\\A";
    b.Tutte();
    mnuLettura_Click(b.S);
    EXPECT_EQ(b.Fronte.Processi, (std::vector<Testo>{"Notepad.exe \\p\\Appoggio\\" + lungo + ".Log"}));
}

TEST(Lettura, RigaTroppoCorta) {
    Banco b;
    b.S.File1.AddItem("abc");
    mnuLettura_Click(b.S); // not selected, not looked at
    b.Tutte();
    try {
        mnuLettura_Click(b.S);
        FAIL() << "no error";
    } catch (const Errore& e) {
        EXPECT_EQ(e.Numero, 5);
    }
    EXPECT_EQ(b.Fronte.Box_.size(), 2U);
}

struct FinestraSenzaLettore : FinestraFinta {
    void Avvia(Vista comando, int) override { throw Errore(ErrFileAssente, comando); }
};

TEST(Lettura, SenzaLettoreEUnErroreFinale) {
    DiscoFinto disco;
    FinestraSenzaLettore fronte;
    Stato s(disco, fronte);
    CambiaDir1(s, "/p");
    disco.Metti("/p/Appoggio/A.log", "di prima");
    s.File1.AddItem("A.frm");
    SelezionaFile1(s, 0, true);
    try {
        mnuLettura_Click(s);
        FAIL() << "no error";
    } catch (const Errore& e) {
        EXPECT_EQ(e.Numero, 53);
    }
    EXPECT_TRUE(fronte.Arresti.empty()); // no handler stands here: nothing to tell
    EXPECT_EQ(disco.Leggi("/p/Appoggio/A.log"), "di prima");
}

// A directory with the listing's name is no listing.
TEST(Lettura, UnaDirectoryNonELaStruttura) {
    Banco b;
    b.Modulo("A.frm", Intera);
    b.Disco.FaiDirectory("/p/Appoggio/A.log");
    b.Tutte();
    mnuLettura_Click(b.S);
    EXPECT_TRUE(b.Fronte.Processi.empty());
    EXPECT_EQ(b.Fronte.Box_.size(), 2U);
    ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 75);
}

} // namespace

} // namespace morvella

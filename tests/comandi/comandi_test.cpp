// SPDX-License-Identifier: MIT
#include "comandi/comandi.h"

#include <gtest/gtest.h>

#include "docs/docs.h"
#include "listing/listing.h"
#include "rewriter/rewriter.h"
#include "shell/banco.h"

namespace morvella {

namespace {

using prove::Banco;
using prove::NumeroDi;

constexpr const char* Modulo = "Attribute VB_Name = \"A\"\r\nSub a()\r\nEnd Sub\r\n";

struct ConProgetto : Banco {
    ConProgetto() {
        Scegli("Module=B; B.bas\r\nModule=A; A.bas\r\nModule=C; C.bas\r\n");
        for (const char* nome : {"A", "B", "C"}) Disco.Metti(std::string("/p/") + nome + ".bas", Modulo);
    }
    bool Fatto(const std::string& nome) const { return Disco.Esiste("/p/Appoggio/" + nome); }
};

// ------------------------------------------------------------------ mnuSeleziona

TEST(Seleziona, Tutto) {
    struct Caso {
        const char *Didascalia, *Prima, *DidascaliaDopo, *Dopo;
    };
    constexpr Caso Casi[] = {
        {"Seleziona tutto", "000", "DeSeleziona tutto", "111"},
        {"Seleziona tutto", "010", "DeSeleziona tutto", "111"},
        {"DeSeleziona tutto", "111", "Seleziona tutto", "000"},
        {"DeSeleziona tutto", "001", "Seleziona tutto", "000"},
        {"DeSeleziona tutto", "000", "Seleziona tutto", "000"}, // the caption decides, not the rows
        {"Seleziona tutto", "111", "DeSeleziona tutto", "111"},
        {"SELEZIONA TUTTO", "111", "Seleziona tutto", "000"}, // any other text
    };
    for (const Caso& c : Casi) {
        Banco b;
        for (const char* voce : {"a", "b", "c"}) b.S.File1.AddItem(voce);
        for (Lungo i = 0; i < 3; ++i) b.S.File1.Segna(i, c.Prima[i] == '1');
        b.S.mnuSeleziona = c.Didascalia;
        mnuSeleziona_Click(b.S);
        EXPECT_EQ(b.S.mnuSeleziona, c.DidascaliaDopo);
        EXPECT_EQ(b.Selezione(), c.Dopo);
        EXPECT_EQ(b.S.IndiceFile, 3); // the loop index, left after the last row
    }
}

TEST(Seleziona, SenzaRighe) {
    Banco b;
    b.MettiMenu("0000");
    mnuSeleziona_Click(b.S);
    EXPECT_EQ(b.S.mnuSeleziona, "DeSeleziona tutto");
    EXPECT_EQ(b.Menu(), "0000"); // no row, no event
    EXPECT_EQ(b.S.IndiceFile, 0);
}

TEST(Seleziona, AccendeIComandi) {
    for (const char* didascalia : {"Seleziona tutto", "DeSeleziona tutto"}) {
        Banco b;
        b.S.File1.AddItem("a");
        b.S.File1.Segna(0, *didascalia == 'D');
        b.S.mnuSeleziona = didascalia;
        b.MettiMenu("0000");
        mnuSeleziona_Click(b.S);
        EXPECT_EQ(b.Menu(), "1110") << didascalia;
    }
}

// ------------------------------------------------------------------ the question

TEST(Command1, Domanda) {
    ConProgetto b;
    File1Leggi_Click(b.S);
    ASSERT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_EQ(b.Fronte.Box_[0].Scritto,
              "Vuoi riordinare il Codice di tutti i form, moduli e classi presenti nel progetto\rProva.vbp");
    EXPECT_EQ(b.Fronte.Box_[0].Flag, 68);
    EXPECT_EQ(b.Fronte.Box_[0].Titolo, "Identazione");
}

TEST(Command1, RispostaNo) {
    for (const int risposta : {7, 1, 2, 0}) { // any answer but 6
        ConProgetto b;
        const auto prima = b.Disco.TuttiIFile();
        b.Fronte.Risposta = risposta;
        File1Leggi_Click(b.S);
        EXPECT_EQ(b.S.IndiceFile, risposta); // it holds the answer until an engine counts with it
        EXPECT_EQ(b.Selezione(), "111");
        EXPECT_EQ(b.S.mnuSeleziona, "DeSeleziona tutto");
        EXPECT_EQ(b.Disco.TuttiIFile(), prima);
        EXPECT_FALSE(b.Disco.Esiste("/p/Appoggio"));
        EXPECT_EQ(b.S.DirAppoggio, "");
        EXPECT_EQ(b.Menu(), "1111");
    }
}

TEST(Command1, RispostaSi) {
    ConProgetto b;
    b.Fronte.Risposta = 6;
    File1Leggi_Click(b.S);
    EXPECT_TRUE(b.Fronte.Arresti.empty());
    for (const char* nome : {"a.txt", "a.bas", "A.log", "b.txt", "b.bas", "B.log", "c.txt", "c.bas", "C.log",
                             "Prova.vbp", "OK.LOG"})
        EXPECT_TRUE(b.Fatto(nome)) << nome;
    // Rewriter, second stage, listing: each over the rows in their order.
    EXPECT_EQ(b.Fronte.Scritti.size(), 9u);
    const char* const ordine[] = {"a.txt", "b.txt", "c.txt", "a.bas", "b.bas",
                                  "c.bas", "A.log", "B.log", "C.log"};
    for (std::size_t i = 0; i < b.Fronte.Scritti.size() && i < 9; ++i)
        EXPECT_NE(b.Fronte.Scritti[i].find(Testo("\\") + ordine[i] + "|"), Testo::npos)
            << b.Fronte.Scritti[i];
    EXPECT_EQ(b.Selezione(), "000"); // the listing deselects each row
    EXPECT_EQ(b.S.mnuSeleziona, "DeSeleziona tutto");
}

TEST(Command1, SenzaConferma) {
    struct Caso {
        bool Opzione;
        int Check2;
        std::size_t Domande;
    };
    // The stored option decides; a tick that never lost the focus does not count, either way.
    constexpr Caso Casi[] = {{false, 0, 1}, {false, 1, 1}, {true, 0, 0}, {true, 1, 0}};
    for (const Caso& c : Casi) {
        ConProgetto b;
        b.S.OpzSenzaConferma = c.Opzione;
        b.S.Check2 = c.Check2;
        b.Fronte.Risposta = 7;
        File1Leggi_Click(b.S);
        EXPECT_EQ(b.Fronte.Box_.size(), c.Domande);
        EXPECT_EQ(b.Fatto("a.txt"), c.Opzione);
        EXPECT_EQ(b.Fatto("A.log"), c.Opzione);
    }
}

TEST(Command1, NessunProgettoScelto) {
    Banco b;
    CambiaDir1(b.S, "/p");
    Command1_Click(b.S); // the hidden button
    ASSERT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_TRUE(b.Fronte.Box_[0].Scritto.ends_with("nel progetto\r"));
}

TEST(Command1, ListatoAncheDopoUnArresto) {
    ConProgetto b;
    b.Disco.Cancella("/p/B.bas");
    b.Fronte.Risposta = 6;
    File1Leggi_Click(b.S);
    ASSERT_EQ(b.Fronte.Arresti.size(), 2u); // both stop at the same row, without a box
    EXPECT_EQ(b.Fronte.Arresti[0].Motore, "mnuRiordina_Click");
    EXPECT_EQ(b.Fronte.Arresti[1].Motore, "mnuvorn_Click");
    for (const Arresto& a : b.Fronte.Arresti) {
        EXPECT_EQ(a.Causa.Numero, 53);
        EXPECT_EQ(a.Causa.File, "\\p\\B.bas");
        EXPECT_EQ(a.Voce, 1);
    }
    EXPECT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_TRUE(b.Fatto("a.txt"));
    EXPECT_TRUE(b.Fatto("A.log"));
    EXPECT_FALSE(b.Fatto("a.bas")); // the rewriter came to no second stage
    EXPECT_FALSE(b.Fatto("c.txt"));
    EXPECT_FALSE(b.Fatto("C.log"));
    EXPECT_EQ(b.Selezione(), "001");       // deselected before it was opened
    EXPECT_TRUE(b.S.ProgressBar1.Visible); // the bars stay as they stood
    EXPECT_EQ(b.S.Label2, "\\p\\A.bas");   // the listing shows a source when it is open
}

TEST(Command1, RigaCorta) {
    ConProgetto b;
    b.Disco.Metti("/p/Prova.vbp", "Form=x.f\r\nForm=Zeta.frm\r\n");
    b.Fronte.Risposta = 6;
    File1Leggi_Click(b.S);
    ASSERT_EQ(b.Fronte.Arresti.size(), 2u); // three bytes: the cut of the extension
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 5);
    EXPECT_EQ(b.Fronte.Arresti[1].Causa.Numero, 5);
    EXPECT_EQ(b.S.File1.ListCount(), 2);
}

// ------------------------------------------------------------------ the choice of a project

TEST(File1Leggi, RimetteLaDidascalia) {
    ConProgetto b;
    b.S.mnuSeleziona = "DeSeleziona tutto"; // whatever it says, the rows of a new project are selected
    File1Leggi_Click(b.S);
    EXPECT_EQ(b.Selezione(), "111");
    EXPECT_EQ(b.S.mnuSeleziona, "DeSeleziona tutto");
}

TEST(File1Leggi, SenzaRigheChiedeLoStesso) {
    ConProgetto b;
    b.Disco.Metti("/p/Prova.vbp", "");
    b.MettiMenu("0001");
    File1Leggi_Click(b.S);
    EXPECT_EQ(b.S.File1.ListCount(), 0);
    EXPECT_EQ(b.S.mnuSeleziona, "DeSeleziona tutto");
    EXPECT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_EQ(b.Menu(), "0001"); // as it was

    b.Fronte.Risposta = 6;
    File1Leggi_Click(b.S);
    EXPECT_TRUE(b.Fronte.Arresti.empty());
    EXPECT_TRUE(b.Fatto("Prova.vbp")); // the work directory's step runs, and nothing else
    EXPECT_TRUE(b.Fatto("OK.LOG"));
    EXPECT_TRUE(b.Fronte.Scritti.empty());
    EXPECT_EQ(b.Menu(), "0011");
}

TEST(File1Leggi, ErroreFinale) {
    ConProgetto b;
    b.S.File1.AddItem("di prima");
    b.Disco.Cancella("/p/Prova.vbp");
    EXPECT_EQ(NumeroDi([&] { return File1Leggi_Click(b.S), 0; }), 53);
    EXPECT_EQ(b.S.File1.ListCount(), 0);
    EXPECT_EQ(b.S.mnuSeleziona, "Seleziona tutto"); // no further step
    EXPECT_TRUE(b.Fronte.Box_.empty());
}

// ------------------------------------------------------------------ menu states, event by event

TEST(Menu, DopoOgniEvento) {
    struct Caso {
        const char* Nome;
        void (*Evento)(Banco&);
        const char *DaSpenti, *DaAccesi;
    };
    // clang-format off
    const Caso casi[] = {
        {"Dir1_Change", [](Banco& b) { CambiaDir1(b.S, "/p"); }, "0000", "0001"},
        {"Drive1_Change", [](Banco& b) { Drive1_Change(b.S); }, "0000", "0001"},
        {"File1_Click", [](Banco& b) { File1_Click(b.S); }, "1110", "1111"},
        {"mnuRiordina_Click", [](Banco& b) { mnuRiordina_Click(b.S); }, "0010", "1111"},
        {"mnuvorn_Click", [](Banco& b) { mnuvorn_Click(b.S); }, "0010", "1111"},
        // The pictures are missing, which is final; the state is set before all else.
        {"mnuHTML_Click", [](Banco& b) { EXPECT_EQ(NumeroDi([&] { return mnuHTML_Click(b.S), 0; }), 53); }, "0010", "1111"},
    };
    // clang-format on
    for (const Caso& c : casi) {
        for (const bool accesi : {false, true}) {
            ConProgetto b; // no row yet
            b.MettiMenu(accesi ? "1111" : "0000");
            c.Evento(b);
            EXPECT_EQ(b.Menu(), accesi ? c.DaAccesi : c.DaSpenti) << c.Nome;
        }
    }
}

TEST(Menu, LetturaAccesaPrimaDiOgniErrore) {
    for (void (*motore)(Stato&) : {mnuRiordina_Click, mnuvorn_Click}) {
        ConProgetto b;
        b.S.File1.AddItem("manca.bas");
        b.S.File1.Segna(0, true);
        b.MettiMenu("0000");
        motore(b.S);
        ASSERT_EQ(b.Fronte.Arresti.size(), 1u);
        EXPECT_TRUE(b.S.mnuLettura);
    }
}

// ------------------------------------------------------------------ the frame of an engine

TEST(Motori, SenzaSelezione) {
    for (void (*motore)(Stato&) : {mnuRiordina_Click, mnuvorn_Click}) {
        ConProgetto b;
        File1Leggi_Click(b.S);   // answered No
        mnuSeleziona_Click(b.S); // none is selected
        b.S.File1.AddItem("x");
        motore(b.S);
        EXPECT_TRUE(b.Fronte.Arresti.empty());
        EXPECT_TRUE(b.Fronte.Scritti.empty());
        EXPECT_TRUE(b.Fatto("OK.LOG")); // the work directory's step runs
        EXPECT_TRUE(b.Fatto("Prova.vbp"));
        EXPECT_EQ(b.S.Label2, "");
        EXPECT_FALSE(b.S.ProgressBar1.Visible);
    }
}

TEST(Motori, ListatoDueVolte) {
    ConProgetto b;
    File1Leggi_Click(b.S);
    mnuvorn_Click(b.S);
    const auto prima = b.Disco.TuttiIFile();
    b.Disco.Orologio.Ora = 15; // a new listing would show it
    const std::size_t scritti = b.Fronte.Scritti.size();
    EXPECT_EQ(scritti, 3u);
    mnuvorn_Click(b.S); // no row is selected any more
    EXPECT_EQ(b.Fronte.Scritti.size(), scritti);
    EXPECT_EQ(b.Disco.TuttiIFile(), prima);
}

TEST(Motori, BarraDeiFile) {
    ConProgetto b;
    File1Leggi_Click(b.S);
    mnuRiordina_Click(b.S);
    EXPECT_EQ(b.S.ProgressBar1.Max, 3);
    EXPECT_EQ(b.S.ProgressBar1.Value, 3); // the rewriter does not set it back: it stays full
    mnuRiordina_Click(b.S);
    EXPECT_EQ(b.S.ProgressBar1.Value, 3);
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.S.ProgressBar1.Value, 0);
}

TEST(Motori, DirectoryCorrente) {
    struct Caso {
        void (*Motore)(Stato&);
        const char* Dove;
    };
    const Caso casi[] = {{mnuRiordina_Click, "/p"}, {mnuvorn_Click, "/altrove"}}; // the rewriter alone
    for (const Caso& c : casi) {
        ConProgetto b;
        b.Disco.CambiaDirectory("/altrove");
        c.Motore(b.S);
        EXPECT_EQ(b.Disco.DirectoryCorrente(), c.Dove);
    }
}

TEST(Motori, CartellaCheNonSiPuoFare) {
    // The first output meets error 76, whose repair leads to the same missing place.
    for (void (*motore)(Stato&) : {mnuRiordina_Click, mnuvorn_Click}) {
        ConProgetto b;
        File1Leggi_Click(b.S);
        b.Disco.Fallisci("CreaDirectory", "/Appoggio", 75);
        motore(b.S);
        ASSERT_EQ(b.Fronte.Arresti.size(), 1u);
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 76);
        EXPECT_EQ(b.Fronte.Arresti[0].Voce, 0);
        EXPECT_FALSE(b.S.Canale.Aperto(1) || b.S.Canale.Aperto(2));
    }
}

TEST(Motori, FileChiamatoAppoggio) {
    for (void (*motore)(Stato&) : {mnuRiordina_Click, mnuvorn_Click}) {
        ConProgetto b;
        File1Leggi_Click(b.S);
        b.Disco.Metti("/p/Appoggio", "file");
        motore(b.S);
        ASSERT_EQ(b.Fronte.Arresti.size(), 1u);
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 76);
        EXPECT_EQ(b.Disco.Leggi("/p/Appoggio"), "file");
    }
}

TEST(Motori, SorgenteInUnaDirectoryCheManca) {
    // Error 76 at the opening of the source: no repair of the output's name helps it.
    for (void (*motore)(Stato&) : {mnuRiordina_Click, mnuvorn_Click}) {
        ConProgetto b;
        b.Disco.Metti("/p/Prova.vbp", "Form=manca\\x.frm\r\n");
        File1Leggi_Click(b.S);
        motore(b.S);
        ASSERT_EQ(b.Fronte.Arresti.size(), 1u);
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 76);
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.File, "\\p\\manca\\x.frm");
    }
}

TEST(Motori, RigaDiSottodirectoryFinisceNellaCartella) {
    ConProgetto b;
    b.Disco.Metti("/p/sub/Form1.frm",
                  "VERSION 5.00\r\nAttribute VB_Exposed = False\r\nSub a()\r\nEnd Sub\r\n");
    b.Disco.Metti("/p/Prova.vbp", "Form=sub\\Form1.frm\r\n");
    b.Fronte.Risposta = 6;
    File1Leggi_Click(b.S);
    EXPECT_TRUE(b.Fronte.Arresti.empty());
    EXPECT_TRUE(b.Fatto("form1.txt")); // flat
    EXPECT_TRUE(b.Fatto("Form1.log"));
    EXPECT_FALSE(b.Fatto("form1.frm")); // sought below the missing directory: no copy of its own
    EXPECT_FALSE(b.Fatto("sub"));
}

TEST(Motori, SorgentiSacre) {
    // The second stage for "..\p\x.bas" would climb out of the work directory onto "x.bas".
    Banco b;
    b.Scegli("Module=X; x.bas\r\nModule=Y; ..\\x.bas\r\n");
    b.Disco.Metti("/p/x.bas", Modulo);
    b.Disco.Metti("/x.bas", "Attribute VB_Name = \"Y\"\r\nSub y()\r\nEnd Sub\r\n");
    b.Fronte.Risposta = 6;
    File1Leggi_Click(b.S);
    EXPECT_EQ(b.Disco.Leggi("/p/x.bas"), Modulo);
    EXPECT_EQ(b.Disco.Leggi("/x.bas"), "Attribute VB_Name = \"Y\"\r\nSub y()\r\nEnd Sub\r\n");
    ASSERT_EQ(b.Fronte.Arresti.size(), 1u);
    EXPECT_EQ(b.Fronte.Arresti[0].Motore, "mnuRiordina_Click");
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 70);
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.File, "\\p\\appoggio\\..\\x.bas");
    EXPECT_TRUE(b.Fronte.Arresti[0].SecondoGiro);
}

} // namespace

} // namespace morvella

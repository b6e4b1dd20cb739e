// SPDX-License-Identifier: MIT
#include "shell/state.h"

#include <gtest/gtest.h>

#include "shell/banco.h"

namespace morvella {

namespace {

using prove::Banco;

TEST(Stato, Inizio) {
    Banco b;
    EXPECT_EQ(b.Menu(), "1011"); // mnuvorn alone waits for a row
    EXPECT_EQ(b.S.mnuSeleziona, "Seleziona tutto");
    EXPECT_EQ(b.S.Label2, " ");
    EXPECT_FALSE(b.S.ProgressBar1.Visible || b.S.Progress.Visible);
    EXPECT_FALSE(b.S.OpzSenzaConferma);
    EXPECT_EQ(b.S.File1.ListCount(), 0);
    EXPECT_EQ(b.S.File1Leggi.Scelto(), "");
    EXPECT_EQ(IndirizzoContatto.size(), 21u);
}

TEST(Stato, File1Click) {
    Banco b;
    b.S.File1.AddItem("a");
    b.S.File1.AddItem("b");
    for (const bool selezionata : {true, false}) { // any change of selection, also to none
        b.MettiMenu("0000");
        SelezionaFile1(b.S, 1, selezionata);
        EXPECT_EQ(b.Menu(), "1110");
        EXPECT_EQ(b.Selezione(), selezionata ? "01" : "00");
    }
}

TEST(Stato, Dir1Change) {
    Banco b;
    b.Scegli("");
    b.S.File1.AddItem("a");
    b.S.FileSorgente = "\\p\\a";
    b.S.FileUscita = "\\p\\Appoggio\\a";
    b.S.DirAppoggio = "\\p\\Appoggio";
    b.S.mnuSeleziona = "DeSeleziona tutto";
    b.MettiMenu("1111");
    b.Disco.FaiDirectory("/q/Qualità");
    CambiaDir1(b.S, "/q/Qualità");
    EXPECT_EQ(b.S.Dir1Path, "\\q\\Qualit\xE0");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/q/Qualità");
    EXPECT_EQ(b.S.FileSorgente, "");
    EXPECT_EQ(b.S.FileUscita, "");
    EXPECT_EQ(b.S.DirAppoggio, "\\p\\Appoggio"); // never cleared
    EXPECT_EQ(b.S.File1.ListCount(), 0);
    EXPECT_EQ(b.S.File1Leggi.Scelto(), ""); // another directory's projects
    EXPECT_EQ(b.Menu(), "0001");
    EXPECT_EQ(b.S.mnuSeleziona, "DeSeleziona tutto"); // the caption stays
    EXPECT_TRUE(b.Casa.Box_.empty());
}

TEST(Stato, Dir1ChangeErrore) {
    struct Caso {
        int Numero;
        const char* Testo_;
    };
    constexpr Caso Casi[] = {
        {76, "76Percorso non trovato."}, // sic, run together
        {75, "75Il percorso esiste gi\xE0 o non \xE8 accessibile."},
    };
    for (const Caso& c : Casi) {
        Banco b;
        b.Scegli("");
        b.S.File1.AddItem("a");
        b.S.FileSorgente = b.S.FileUscita = "x";
        b.MettiMenu("1111");
        b.Disco.FaiDirectory("/q");
        b.Disco.Fallisci("CambiaDirectory", "/q", c.Numero);
        CambiaDir1(b.S, "/q");
        ASSERT_EQ(b.Casa.Box_.size(), 1u);
        EXPECT_EQ(b.Casa.Box_[0].Scritto, c.Testo_);
        EXPECT_EQ(b.Casa.Box_[0].Flag, 32);
        EXPECT_EQ(b.Casa.Box_[0].Titolo, ""); // the program's own
        EXPECT_EQ(b.S.FileSorgente + b.S.FileUscita, "");
        EXPECT_EQ(b.S.File1.ListCount(), 1); // the remaining steps are skipped
        EXPECT_EQ(b.Menu(), "1111");
        EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p");
    }
}

TEST(Stato, Dir1ChangeDirectoryAssente) {
    Banco b;
    b.Scegli("");
    CambiaDir1(b.S, "/manca");
    ASSERT_EQ(b.Casa.Box_.size(), 1u);
    EXPECT_EQ(b.Casa.Box_[0].Scritto, "76Percorso non trovato.");
}

TEST(Stato, Drive1Change) {
    Banco b;
    b.Scegli("");
    b.Disco.FaiDirectory("/disco/d");
    b.Disco.Unita["D:"] = "/disco/d";
    b.S.File1.AddItem("a");
    b.S.FileSorgente = b.S.FileUscita = "x";
    b.MettiMenu("1111");
    CambiaDrive1(b.S, "D:");
    EXPECT_EQ(b.S.Drive1Drive, "D:");
    EXPECT_EQ(b.S.Dir1Path, "\\disco\\d");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/disco/d"); // Dir1_Change ran inside
    EXPECT_EQ(b.S.FileSorgente + b.S.FileUscita, "");
    EXPECT_EQ(b.S.File1.ListCount(), 0);
    EXPECT_EQ(b.Menu(), "0001");
    EXPECT_TRUE(b.Casa.Box_.empty());
    EXPECT_EQ(b.Casa.Beeps, 0);

    b.MettiMenu("1111");
    CambiaDrive1(b.S, "D:"); // no change, no event
    EXPECT_EQ(b.Menu(), "1111");
}

TEST(Stato, Drive1ChangeUnitaCheNonRisponde) {
    Banco b;
    b.Scegli("");
    b.S.File1.AddItem("a");
    b.S.FileSorgente = b.S.FileUscita = "x";
    b.MettiMenu("1111");
    CambiaDrive1(b.S, "A:");
    EXPECT_EQ(b.Casa.Beeps, 1);
    ASSERT_EQ(b.Casa.Box_.size(), 1u);
    EXPECT_EQ(b.Casa.Box_[0].Scritto, "Verificare il Driver .. non risponde");
    EXPECT_EQ(b.Casa.Box_[0].Flag, 16);
    EXPECT_EQ(b.Casa.Box_[0].Titolo, "Driver Vuoto (?)");
    EXPECT_EQ(b.S.Drive1Drive, "C:"); // which raised the event once more
    EXPECT_EQ(b.S.Dir1Path, "\\");
    EXPECT_EQ(b.S.File1.ListCount(), 0);
    EXPECT_EQ(b.S.FileSorgente + b.S.FileUscita, "");
    EXPECT_EQ(b.Menu(), "0001");
}

TEST(Stato, Drive1ChangeNemmenoC) {
    Banco b;
    b.Scegli("");
    b.S.File1.AddItem("a");
    b.S.FileSorgente = b.S.FileUscita = "x";
    b.MettiMenu("1111");
    b.Disco.Unita.clear();
    CambiaDrive1(b.S, "A:"); // falls back to C:, which fails as well and raises nothing further
    EXPECT_EQ(b.Casa.Beeps, 2);
    EXPECT_EQ(b.Casa.Box_.size(), 2u);
    EXPECT_EQ(b.S.Drive1Drive, "C:");
    EXPECT_EQ(b.S.Dir1Path, "\\p"); // the old directory, with its rows
    EXPECT_EQ(b.S.File1.ListCount(), 1);
    EXPECT_EQ(b.S.FileSorgente + b.S.FileUscita, ""); // the sequence goes on behind the failed step
    EXPECT_EQ(b.Menu(), "0001");

    b.MettiMenu("1111");
    Drive1_Change(b.S); // C: itself
    EXPECT_EQ(b.Casa.Beeps, 3);
    EXPECT_EQ(b.Menu(), "0001");
}

TEST(Stato, Drive1ChangeErroreDiDir1) {
    // An error inside Dir1_Change has its own handler: no beep, one box.
    Banco b;
    b.Scegli("");
    b.S.File1.AddItem("a");
    b.Disco.FaiDirectory("/disco");
    b.Disco.Unita["D:"] = "/disco";
    b.Disco.Fallisci("CambiaDirectory", "/disco", 75);
    b.MettiMenu("1111");
    CambiaDrive1(b.S, "D:");
    EXPECT_EQ(b.Casa.Beeps, 0);
    ASSERT_EQ(b.Casa.Box_.size(), 1u);
    EXPECT_EQ(b.Casa.Box_[0].Flag, 32);
    EXPECT_EQ(b.S.Drive1Drive, "D:");
    EXPECT_EQ(b.S.File1.ListCount(), 1); // Dir1_Change stopped before
    EXPECT_EQ(b.Menu(), "0001");         // and Drive1_Change went on
}

TEST(Stato, Label2EBarreSiRidisegnano) {
    Banco b;
    ScriviLabel2(b.S, "\\p\\a");
    ScriviLabel2(b.S, "");
    EXPECT_EQ(b.Casa.Etichette, (std::vector<Testo>{"\\p\\a", ""}));
    LimitaBarra(b.S, b.S.Progress, 0); // a bar of no length is accepted
    PortaBarra(b.S, b.S.Progress, 0);
    MostraBarra(b.S, b.S.Progress, true);
    EXPECT_EQ(b.Casa.Barre, 3);
    EXPECT_EQ(b.S.Progress.Max, 0);
    EXPECT_TRUE(b.S.Progress.Visible);
    LimitaBarra(b.S, b.S.Progress, 1000000);
    b.Casa.Barre = 0;
    for (int i = 0; i < 1000000; ++i) AvanzaBarra(b.S, b.S.Progress);
    EXPECT_EQ(b.S.Progress.Value, 1000000);
    EXPECT_EQ(b.Casa.Barre, 200); // as often as can be seen
}

} // namespace

} // namespace morvella

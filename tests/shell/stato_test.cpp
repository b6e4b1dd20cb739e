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
    EXPECT_TRUE(b.Fronte.Box_.empty());
}

TEST(Stato, Dir1ChangeElencaIProgetti) {
    Banco b;
    b.Scegli("");
    for (const char* nome : {"/q/Zeta.vbp", "/q/alfa.VBP", "/q/Form1.frm", "/q/Beta.vbw", "/r/Solo.vbp"})
        b.Disco.Metti(nome, "");
    b.Disco.FaiDirectory("/q/Vecchi.vbp");
    CambiaDir1(b.S, "/q");
    EXPECT_EQ(b.S.File1Leggi.Nomi, (std::vector<Testo>{"alfa.VBP", "Zeta.vbp"}));
    EXPECT_EQ(b.S.File1Leggi.ListIndex, -1);
    b.S.File1Leggi.ListIndex = 1;
    EXPECT_EQ(b.S.File1Leggi.Scelto(), "Zeta.vbp");
    Dir1_Change(b.S); // nothing is chosen any more, in the same directory too
    EXPECT_EQ(b.S.File1Leggi.ListIndex, -1);
    CambiaDir1(b.S, "/r");
    EXPECT_EQ(b.S.File1Leggi.Nomi, std::vector<Testo>{"Solo.vbp"});
    b.Disco.Metti("/r/Nuovo.vbp", "");
    b.S.File1.AddItem("a");
    b.MettiMenu("1111");
    ElencaProgetti(b.S); // the list alone
    EXPECT_EQ(b.S.File1Leggi.Nomi, (std::vector<Testo>{"Nuovo.vbp", "Solo.vbp"}));
    EXPECT_EQ(b.S.File1.ListCount(), 1);
    EXPECT_EQ(b.Menu(), "1111");
    EXPECT_TRUE(b.Fronte.Box_.empty());
}

TEST(Stato, Dir1ChangeDirectoryCheNonSiLegge) {
    // The list is filled before the current directory moves: what it raises leaves the rest.
    Banco b;
    b.Scegli("");
    b.S.File1.AddItem("a");
    b.S.FileSorgente = b.S.FileUscita = "x";
    b.MettiMenu("1111");
    b.Disco.Metti("/q/Chiuso.vbp", "");
    b.Disco.Fallisci("Elenca", "/q", 75);
    CambiaDir1(b.S, "/q");
    ASSERT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_EQ(b.Fronte.Box_[0].Scritto, "75Il percorso esiste gi\xE0 o non \xE8 accessibile.");
    EXPECT_EQ(b.Fronte.Box_[0].Flag, 32);
    EXPECT_EQ(b.S.FileSorgente + b.S.FileUscita, "");
    EXPECT_TRUE(b.S.File1Leggi.Nomi.empty()); // no name of the directory before
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p");
    EXPECT_EQ(b.S.File1.ListCount(), 1);
    EXPECT_EQ(b.Menu(), "1111");
}

TEST(Stato, Dir1ChangeConProgettoNoto) {
    // Who knows the project needs no list: a directory that nobody may read will do.
    Banco b;
    b.Disco.Metti("/q/Noto.vbp", "");
    b.Disco.Metti("/q/Altro.vbp", "");
    b.Disco.Fallisci("Elenca", "/q", 75);
    b.S.File1.AddItem("a");
    b.S.FileSorgente = b.S.FileUscita = "x";
    b.MettiMenu("1111");
    CambiaDir1(b.S, "/q", "Noto.vbp");
    EXPECT_TRUE(b.Fronte.Box_.empty());
    EXPECT_EQ(b.S.File1Leggi.Nomi, std::vector<Testo>{"Noto.vbp"});
    EXPECT_EQ(b.S.File1Leggi.ListIndex, -1);
    EXPECT_EQ(b.S.Dir1Path, "\\q");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/q");
    EXPECT_EQ(b.S.FileSorgente + b.S.FileUscita, "");
    EXPECT_EQ(b.S.File1.ListCount(), 0);
    EXPECT_EQ(b.Menu(), "0001");
    EXPECT_EQ(b.Disco.Elenchi, 0);
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
        ASSERT_EQ(b.Fronte.Box_.size(), 1u);
        EXPECT_EQ(b.Fronte.Box_[0].Scritto, c.Testo_);
        EXPECT_EQ(b.Fronte.Box_[0].Flag, 32);
        EXPECT_EQ(b.Fronte.Box_[0].Titolo, ""); // the program's own
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
    ASSERT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_EQ(b.Fronte.Box_[0].Scritto, "76Percorso non trovato.");
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
    EXPECT_TRUE(b.Fronte.Box_.empty());
    EXPECT_EQ(b.Fronte.Beeps, 0);

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
    EXPECT_EQ(b.Fronte.Beeps, 1);
    ASSERT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_EQ(b.Fronte.Box_[0].Scritto, "Verificare il Driver .. non risponde");
    EXPECT_EQ(b.Fronte.Box_[0].Flag, 16);
    EXPECT_EQ(b.Fronte.Box_[0].Titolo, "Driver Vuoto (?)");
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
    EXPECT_EQ(b.Fronte.Beeps, 2);
    EXPECT_EQ(b.Fronte.Box_.size(), 2u);
    EXPECT_EQ(b.S.Drive1Drive, "C:");
    EXPECT_EQ(b.S.Dir1Path, "\\p"); // the old directory, with its rows
    EXPECT_EQ(b.S.File1.ListCount(), 1);
    EXPECT_EQ(b.S.FileSorgente + b.S.FileUscita, ""); // the sequence goes on after the failed step
    EXPECT_EQ(b.Menu(), "0001");

    b.MettiMenu("1111");
    Drive1_Change(b.S); // C: itself
    EXPECT_EQ(b.Fronte.Beeps, 3);
    EXPECT_EQ(b.Menu(), "0001");
}

TEST(Stato, Drive1ChangeSoloC) {
    // C: fails where it is chosen already: there is nothing to fall back to.
    Banco b;
    b.Scegli("");
    b.S.File1.AddItem("a");
    b.S.FileSorgente = b.S.FileUscita = "x";
    b.MettiMenu("1111");
    b.Disco.Fallisci("Esamina", "/", 71, 1);
    Drive1_Change(b.S);
    EXPECT_EQ(b.Fronte.Beeps, 1);
    ASSERT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_EQ(b.Fronte.Box_[0].Flag, 16);
    EXPECT_EQ(b.S.Drive1Drive, "C:");
    EXPECT_EQ(b.S.Dir1Path, "\\p");
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p");
    EXPECT_EQ(b.S.File1Leggi.Scelto(), "Prova.vbp"); // Dir1 did not change
    EXPECT_EQ(b.S.File1.ListCount(), 1);
    EXPECT_EQ(b.S.FileSorgente + b.S.FileUscita, "");
    EXPECT_EQ(b.Menu(), "0001");
}

TEST(Stato, Drive1ChangeVolumeSmontato) {
    // A drive of the list whose disc is gone, then the same one again with a disc.
    Banco b;
    b.Scegli("");
    b.Disco.Metti("/Radice.vbp", "");
    b.Disco.Metti("/media/chiave/Prova.vbp", "");
    b.Disco.Unita["D:"] = "/media/chiave";
    b.Disco.Fallisci("Esamina", "/media/chiave", 57, 1);
    b.MettiMenu("1111");
    CambiaDrive1(b.S, "D:");
    EXPECT_EQ(b.Fronte.Beeps, 1);
    EXPECT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_EQ(b.S.Drive1Drive, "C:");
    EXPECT_EQ(b.S.Dir1Path, "\\");
    EXPECT_EQ(b.S.File1Leggi.Nomi, std::vector<Testo>{"Radice.vbp"});
    EXPECT_EQ(b.Menu(), "0001");
    CambiaDrive1(b.S, "D:"); // a change again, since it had fallen back
    EXPECT_EQ(b.Fronte.Beeps, 1);
    EXPECT_EQ(b.S.Drive1Drive, "D:");
    EXPECT_EQ(b.S.Dir1Path, "\\media\\chiave");
    EXPECT_EQ(b.S.File1Leggi.Nomi, std::vector<Testo>{"Prova.vbp"});
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
    EXPECT_EQ(b.Fronte.Beeps, 0);
    ASSERT_EQ(b.Fronte.Box_.size(), 1u);
    EXPECT_EQ(b.Fronte.Box_[0].Flag, 32);
    EXPECT_EQ(b.S.Drive1Drive, "D:");
    EXPECT_EQ(b.S.File1.ListCount(), 1); // Dir1_Change stopped before
    EXPECT_EQ(b.Menu(), "0001");         // and Drive1_Change went on
}

TEST(Stato, Label2EBarreSiRidisegnano) {
    Banco b;
    ScriviLabel2(b.S, "\\p\\a");
    ScriviLabel2(b.S, "");
    EXPECT_EQ(b.Fronte.Etichette, (std::vector<Testo>{"\\p\\a", ""}));
    LimitaBarra(b.S, b.S.Progress, 0); // a bar of no length is accepted
    PortaBarra(b.S, b.S.Progress, 0);
    MostraBarra(b.S, b.S.Progress, true);
    EXPECT_EQ(b.Fronte.Barre, 3);
    EXPECT_EQ(b.S.Progress.Max, 0);
    EXPECT_TRUE(b.S.Progress.Visible);
    LimitaBarra(b.S, b.S.Progress, 1000000);
    b.Fronte.Barre = 0;
    for (int i = 0; i < 1000000; ++i) AvanzaBarra(b.S, b.S.Progress);
    EXPECT_EQ(b.S.Progress.Value, 1000000);
    EXPECT_EQ(b.Fronte.Barre, 200); // as often as can be seen
}

} // namespace

} // namespace morvella

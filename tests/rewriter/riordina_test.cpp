// SPDX-License-Identifier: MIT
//
// The run over the rows: the order of its statements, the window, the state that it leaves.
#include "rewriter/prova.h"

namespace morvella {

namespace {

using namespace prove;

// --- the order of the statements ------------------------------------------------------------

TEST(Riordina, OrdineDelleChiamate) {
    Prova p;
    p.Disco.Metti("/p/Prova.vbp", "Type=Exe\r\n");
    p.S.File1Leggi.Nomi = {"Altro.vbp", "Prova.vbp"};
    p.S.File1Leggi.ListIndex = 1;
    p.B.Voce("b.frm", "/p/b.frm", "x");
    p.B.Voce("a.bas", "/p/a.bas", "x");
    p.Disco.Metti("/p/b.frx", "binario");
    p.Esegui();
    const std::vector<std::string> prima = {
        "CreaDirectory /p/Appoggio",
        "ApriScrittura /p/Appoggio/OK.LOG",
        "Scrivi /p/Appoggio/OK.LOG",
        "Chiudi /p/Appoggio/OK.LOG",
        "Copia /p/Appoggio/Prova.vbp",
        "CambiaDirectory /p",
        "ApriLettura /p/a.bas", // the first pass
        "Leggi /p/a.bas",
        "Leggi /p/a.bas",
        "Chiudi /p/a.bas",
        "ApriLettura /p/a.bas", // the second, over what the first has read
        "ApriScrittura /p/Appoggio/a.txt",
        "Adesso ",
        "Chiudi /p/a.bas", // 1 before 2
        "Scrivi /p/Appoggio/a.txt",
        "Chiudi /p/Appoggio/a.txt",
        "ApriLettura /p/b.frm",
        "Leggi /p/b.frm",
        "Leggi /p/b.frm",
        "Chiudi /p/b.frm",
        "ApriLettura /p/b.frm",
        "ApriScrittura /p/Appoggio/b.txt",
        "Adesso ",
        "Chiudi /p/b.frm",
        "Scrivi /p/Appoggio/b.txt",
        "Chiudi /p/Appoggio/b.txt",
        "Copia /p/Appoggio/a.bas", // the second stage, after all of the first
        "Copia /p/Appoggio/b.frm",
        "Copia /p/Appoggio/b.frx",
    };
    EXPECT_EQ(p.Disco.Chiamate, prima);
    EXPECT_EQ(p.A("OK.LOG"), "Ok! Directory Creata, ora mettiamoci al lavoro ...\r\n");
    EXPECT_EQ(p.A("b.frx"), "binario");
    EXPECT_EQ(p.A("Prova.vbp"), "Type=Exe\r\n");

    // Again: no directory, no marker; each text is deleted before its source is opened.
    std::vector<std::string> poi(prima.begin() + 4, prima.end());
    poi.insert(poi.begin() + 12, "Cancella /p/Appoggio/b.txt");
    poi.insert(poi.begin() + 2, "Cancella /p/Appoggio/a.txt");
    const auto file = p.Disco.TuttiIFile();
    p.Esegui();
    EXPECT_EQ(p.Disco.Chiamate, poi);
    EXPECT_EQ(p.Disco.TuttiIFile(), file);
}

// --- the window -----------------------------------------------------------------------------

// Every state of a bar as it is repainted, and every text of Label2, in order; what is repainted
// as it was is left out.
class FinestraAttenta : public FinestraFinta {
  public:
    std::vector<Testo> Visti;
    void RidisegnaLabel2() override { Vedi("Label2 " + S->Label2); }
    void RidisegnaBarra(const Barra& b) override {
        const bool file = &b == &S->ProgressBar1;
        Vedi((file ? "File " : "Righe ") + CStr(b.Value) + "/" + CStr(b.Max) + (b.Visible ? "" : " via"));
    }
    void AggiornaDir1() override { Vedi("Dir1"); }

  private:
    void Vedi(const Testo& visto) {
        if (Visti.empty() || Visti.back() != visto) Visti.push_back(visto);
    }
};

TEST(Riordina, BarreELabel2) {
    DiscoFinto disco;
    FinestraAttenta fronte;
    Stato s(disco, fronte);
    fronte.S = &s;
    CambiaDir1(s, "/p");
    disco.Metti("/p/a.bas", "1\r\n2");
    disco.Metti("/p/c.bas", "");
    for (const char* riga : {"a.bas", "b.bas", "c.bas"}) s.File1.AddItem(riga);
    SelezionaFile1(s, 0, true);
    SelezionaFile1(s, 2, true);
    s.mnuLettura = false;
    s.Progress.Min = 9;
    s.Label2 = "prima";
    fronte.Visti.clear();
    mnuRiordina_Click(s);
    const std::vector<Testo> attesi = {
        "Dir1",
        "File 0/3 via", // Max
        "File 0/3",     // Visible
        "File 1/3",
        "Label2 \\p\\a.bas", // before the first pass
        "Righe 0/17 via",    // two lines and 15
        "Righe 0/17",
        "Righe 1/17",
        "Righe 2/17",
        "File 2/3", // a row that is not selected counts too
        "File 3/3",
        "Label2 \\p\\c.bas",
        "Righe 2/15", // an empty file
        "Righe 0/15",
        "File 3/3 via",
        "Label2 ",
        "Righe 0/15 via",
        "Righe 0/15", // the second stage
        "Righe 0/13",
        "Righe 1/13", // selected rows alone
        "Righe 2/13",
        "Righe 2/13 via",
        "Righe 0/13 via",
    };
    EXPECT_EQ(fronte.Visti, attesi);
    EXPECT_TRUE(s.mnuLettura);
    EXPECT_EQ(s.Progress.Min, 0);
    EXPECT_EQ(s.Label2, "");
    EXPECT_EQ(s.ProgressBar1.Value, 3);
    EXPECT_FALSE(s.ProgressBar1.Visible || s.Progress.Visible);

    mnuRiordina_Click(s); // the bar stays full
    EXPECT_EQ(s.ProgressBar1.Value, 3);
    EXPECT_EQ(s.ProgressBar1.Max, 3);
    s.ProgressBar1.Value = 1; // and goes on from where it stood
    mnuRiordina_Click(s);
    EXPECT_EQ(s.ProgressBar1.Value, 3);
    s.ProgressBar1.Value = 50; // beyond the new Max nothing is added
    mnuRiordina_Click(s);
    EXPECT_EQ(s.ProgressBar1.Value, 50);
    EXPECT_EQ(s.Progress.Value, 0);
}

TEST(Riordina, LaSelezioneResta) {
    Prova p;
    for (const char* riga : {"a.bas", "b.bas", "c.bas"}) p.Voce(riga);
    SelezionaFile1(p.S, 1, false);
    p.S.mnuLettura = p.S.mnuvorn = p.S.mnuRiordina = false;
    p.Esegui();
    EXPECT_TRUE(p.S.File1.Selected(0) && !p.S.File1.Selected(1) && p.S.File1.Selected(2));
    EXPECT_EQ(p.InAppoggio(), "a.bas a.txt c.bas c.txt");
    EXPECT_TRUE(p.S.mnuLettura);
    EXPECT_FALSE(p.S.mnuvorn || p.S.mnuRiordina);
    EXPECT_EQ(p.S.IndiceFile, 3);
}

TEST(Riordina, NullaDiSelezionato) {
    Prova p;
    p.Voce("a.bas");
    p.Voce("no.bas"); // its source is not looked for either
    SelezionaFile1(p.S, 0, false);
    SelezionaFile1(p.S, 1, false);
    p.S.FileUscita = "prima";
    p.S.FileSorgente = "prima";
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), "");
    EXPECT_TRUE(p.Disco.Esiste("/p/Appoggio/OK.LOG"));
    EXPECT_EQ(p.S.ProgressBar1.Value, 2);
    EXPECT_EQ(p.S.Progress.Max, 12);
    EXPECT_EQ(p.S.Label2, "");
    EXPECT_EQ(p.S.FileUscita, "prima");
    EXPECT_EQ(p.S.FileSorgente, "prima");
    EXPECT_EQ(p.S.DirAppoggio, "\\p\\Appoggio");
}

TEST(Riordina, ListaVuota) {
    Prova p;
    p.S.mnuLettura = false;
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_TRUE(p.Disco.Esiste("/p/Appoggio/OK.LOG"));
    EXPECT_EQ(p.S.ProgressBar1.Max, 0);
    EXPECT_EQ(p.S.ProgressBar1.Value, 0);
    EXPECT_EQ(p.S.Progress.Max, 10);
    EXPECT_TRUE(p.S.mnuLettura);
}

TEST(Riordina, StatoAllaFine) {
    Prova p;
    p.B.Voce("X.FRM", "/p/X.FRM",
             "Attribute VB_Exposed = False\nSub a()\nIf b Then\nEnd Sub\nb.Show\nEnd Function\n");
    p.S.ContaRighe = 99;
    p.Esegui();
    EXPECT_EQ(p.S.FileUscita, "\\p\\appoggio\\x.frx"); // the last copy step, made or not
    EXPECT_EQ(p.S.FileSorgente, "\\p\\X.Frx");
    EXPECT_EQ(p.S.StoriaBlocchi, "0001030810");
    EXPECT_EQ(p.S.Numero, Space(5));
    EXPECT_EQ(p.S.Margine, Space(5));
    EXPECT_EQ(p.S.TotaleRighe, 6);
    EXPECT_EQ(p.S.ContaRighe, 6); // set to 1 by the first line, then five more
    EXPECT_EQ(p.S.StatoTesta, 7);
    EXPECT_EQ(p.S.Progress.Value, 0);
}

TEST(Riordina, OgniFileDaCapo) { // margin, history, head state and entries of the file before are gone
    Prova p;
    p.B.Voce("a.frm", "/p/a.frm", "If x Then\nb.Show\nIf y Then\n");
    p.B.Voce("b.bas", "/p/b.bas", "raw\nOption x\nEnd Sub\n");
    p.B.Voce("c.bas", "/p/c.bas", "raw\n");
    p.Esegui();
    EXPECT_EQ(p.A("b.bas"), "raw\r\n" + Linea(15, "Option x") + Linea(10, "End Sub") + "\r\n" + Chiusura());
    EXPECT_EQ(p.A("c.bas"), "raw\r\n" + Chiusura());
    EXPECT_EQ(p.S.StoriaBlocchi, "00");
    EXPECT_EQ(p.S.StatoTesta, 0);
}

} // namespace

} // namespace morvella

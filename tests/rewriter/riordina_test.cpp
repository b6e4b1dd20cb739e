// SPDX-License-Identifier: MIT
#include "rewriter/banco.h"
#include "rewriter/disco_annotato.h"

namespace morvella {

namespace {

using namespace prove;

constexpr Vista Modulo = "Option Explicit\nx = 1\n";
const Testo Rifatto = Linea(15, "Option Explicit") + Linea(15, "x = 1") + Chiusura();

struct Prova {
    DiscoAnnotato Disco;
    Banco B{Disco};
    Stato& S = B.S;

    explicit Prova(const std::string& directory = "/p") : Disco(directory), B(Disco, directory) {}
    /// A row with its source, a small module.
    void Riga(Vista voce) {
        Testo percorso(voce);
        std::replace(percorso.begin(), percorso.end(), '\\', '/');
        B.Riga(voce, "/p/" + percorso, Modulo);
    }
    void Esegui() {
        Disco.Chiamate.clear();
        B.Casa.Etichette.clear();
        B.Casa.Arresti.clear();
        mnuRiordina_Click(S);
        EXPECT_TRUE(B.ChiusoTutto());
    }
    Testo A(const Testo& nome) const {
        const std::string percorso = "/p/Appoggio/" + nome;
        return Disco.Esiste(percorso) ? Disco.Leggi(percorso) : "(manca)";
    }
    /// The names in the work directory but for the marker, with blanks between.
    Testo InAppoggio() const {
        Testo nomi;
        for (const auto& [percorso, bytes] : Disco.TuttiIFile())
            if (percorso.starts_with("/p/Appoggio/") && !percorso.ends_with("OK.LOG"))
                nomi += (nomi.empty() ? "" : " ") + percorso.substr(12);
        return nomi;
    }
};

// --- the closing block ----------------------------------------------------------------------

TEST(Chiusura, AlByte) {
    Prova p;
    p.B.Riga("a.bas", "/p/a.bas", "");
    p.Esegui();
    const Testo stelle(55, '*');
    EXPECT_EQ(p.A("a.txt"), "          '" + stelle + "\r\n" +
                                "          '*              Procedura by Dario Fenzoni             *\r\n"
                                "          '*              E-mail vorn@morvella.example           *\r\n"
                                "          '* Procedura per il riordino dei programmi Visual Basic*\r\n"
                                "          '" +
                                stelle +
                                "\r\n"
                                "          '               Rilettura del 21/11/2026...\r\n"
                                "          '\r\n");
    // Every line of the box is as wide as the stars; the line that tells of entries is two wider.
    EXPECT_EQ(Len("'*              E-mail vorn@morvella.example           *"), 56);
    EXPECT_EQ(Len("'*  La procedura richiama i seguenti Form o procedure:   *"), 58);
}

TEST(Chiusura, ConVoci) {
    Prova p;
    const Testo lunga(60, 'q');
    p.B.Riga("a.bas", "/p/a.bas", "Option x\nForm2.Show\n.Show\nForm2.Show 1\n" + lunga + ".Show\n'b.Show\n");
    p.Esegui();
    EXPECT_EQ(p.A("a.txt"), Linea(15, "Option x") + Linea(15, "Form2.Show") + Linea(15, ".Show") +
                                Linea(15, "Form2.Show 1") + Linea(15, lunga + ".Show") +
                                Linea(15, "'b.Show") +
                                Chiusura({Voce("FORM2"), Voce(""), Voce("FORM2"), "*    " + Testo(60, 'Q')}));
    EXPECT_EQ(p.S.ElencoShow.Resto(), "");
}

TEST(Chiusura, LaDataDellOrologioUnaVoltaPerFile) {
    Prova p;
    p.Disco.Orologio = {1999, 2, 3, 23, 59, 59};
    p.B.Riga("a.bas", "/p/a.bas", "");
    p.B.Riga("b.bas", "/p/b.bas", "");
    p.Esegui();
    EXPECT_TRUE(
        p.A("a.txt").ends_with("          '               Rilettura del 03/02/1999...\r\n          '\r\n"));
    EXPECT_EQ(std::count(p.Disco.Chiamate.begin(), p.Disco.Chiamate.end(), "Adesso "), 2);
}

TEST(Chiusura, DietroUnFileGrezzo) { // also without a line of code, and without a last line end
    Prova p;
    p.B.Riga("a.bas", "/p/a.bas", "Attribute VB_Name = \"a\"\n  x.Show");
    p.Esegui();
    EXPECT_EQ(p.A("a.txt"), "Attribute VB_Name = \"a\"\r\n  x.Show\r\n" + Chiusura({Voce("X")}));
}

// --- the order of the statements ------------------------------------------------------------

TEST(Riordina, OrdineDelleChiamate) {
    Prova p;
    p.Disco.Metti("/p/Prova.vbp", "Type=Exe\r\n");
    p.S.File1Leggi.Nomi = {"Altro.vbp", "Prova.vbp"};
    p.S.File1Leggi.ListIndex = 1;
    p.B.Riga("b.frm", "/p/b.frm", "x");
    p.B.Riga("a.bas", "/p/a.bas", "x");
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
    FinestraAttenta casa;
    Stato s(disco, casa);
    casa.S = &s;
    CambiaDir1(s, "/p");
    disco.Metti("/p/a.bas", "1\r\n2");
    disco.Metti("/p/c.bas", "");
    for (const char* riga : {"a.bas", "b.bas", "c.bas"}) s.File1.AddItem(riga);
    SelezionaFile1(s, 0, true);
    SelezionaFile1(s, 2, true);
    s.mnuLettura = false;
    s.Progress.Min = 9;
    s.Label2 = "prima";
    casa.Visti.clear();
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
    EXPECT_EQ(casa.Visti, attesi);
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
    for (const char* riga : {"a.bas", "b.bas", "c.bas"}) p.Riga(riga);
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
    p.Riga("a.bas");
    p.Riga("no.bas"); // its source is not looked for either
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
    p.B.Riga("X.FRM", "/p/X.FRM",
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
    p.B.Riga("a.frm", "/p/a.frm", "If x Then\nb.Show\nIf y Then\n");
    p.B.Riga("b.bas", "/p/b.bas", "raw\nOption x\nEnd Sub\n");
    p.B.Riga("c.bas", "/p/c.bas", "raw\n");
    p.Esegui();
    EXPECT_EQ(p.A("b.bas"), "raw\r\n" + Linea(15, "Option x") + Linea(10, "End Sub") + "\r\n" + Chiusura());
    EXPECT_EQ(p.A("c.bas"), "raw\r\n" + Chiusura());
    EXPECT_EQ(p.S.StoriaBlocchi, "00");
    EXPECT_EQ(p.S.StatoTesta, 0);
}

// --- rows -----------------------------------------------------------------------------------

TEST(Righe, CortaErrore5) {
    for (const char* corta : {"zzz", "z", "z.b"}) {
        Prova p;
        p.Riga("a.bas");
        p.B.Riga(corta);
        p.B.Riga("zzzz.bas"); // after it, never reached
        p.Esegui();
        EXPECT_EQ(p.B.Arresto(), 5) << corta;
        EXPECT_EQ(p.B.Casa.Arresti.front().Voce, 1);
        EXPECT_EQ(p.A("a.txt"), Rifatto);     // the rows before it are done,
        EXPECT_EQ(p.InAppoggio(), "a.txt");   // but the second stage is not
        EXPECT_EQ(p.S.ProgressBar1.Value, 2); // and the window stays as it stood
        EXPECT_TRUE(p.S.ProgressBar1.Visible && p.S.Progress.Visible);
        EXPECT_EQ(p.S.Label2, "\\p\\a.bas");
        EXPECT_EQ(p.S.FileUscita, "\\p\\appoggio\\a.txt");
    }
}

TEST(Righe, QuattroByte) { // ".bas": an empty base
    Prova p;
    p.Riga(".bas");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), ".bas .txt");
    EXPECT_EQ(p.A(".txt"), Rifatto);
}

TEST(Righe, EstensioneDiAltraLunghezza) { // the last 4 bytes go, whatever they are
    Prova p;
    p.Riga("Form1.f");
    p.Riga("Senza");
    p.Riga("x.class");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "for.txt form1.f s.txt senza x.c.txt x.class");
    EXPECT_EQ(p.A("form1.f"), Rifatto);
}

TEST(Righe, Assente) {
    Prova p;
    p.Riga("a.bas");
    p.B.Riga("b.bas"); // no such file
    p.Riga("c.bas");
    p.Disco.Metti("/p/Appoggio/b.txt", "vecchio");
    p.Disco.Metti("/p/Appoggio/c.txt", "vecchio");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 53);
    EXPECT_EQ(p.B.Casa.Arresti.size(), 1U);
    EXPECT_EQ(p.InAppoggio(), "a.txt c.txt"); // the text of b was deleted before its source was missed
    EXPECT_EQ(p.A("a.txt"), Rifatto);
    EXPECT_EQ(p.A("c.txt"), "vecchio");
    EXPECT_EQ(p.S.Label2, "\\p\\b.bas");
    EXPECT_EQ(p.S.FileSorgente, "\\p\\b.bas");
    EXPECT_EQ(p.S.FileUscita, "\\p\\appoggio\\b.txt");
    EXPECT_TRUE(p.S.ProgressBar1.Visible && p.S.Progress.Visible);
    EXPECT_EQ(p.S.ProgressBar1.Value, 2);
    EXPECT_EQ(p.S.Progress.Max, 17); // of the file before
}

TEST(Righe, DirectoryDelSorgenteAssente) { // 76 that no repair helps: told once, and the end
    Prova p;
    p.B.Riga("sub\\b.bas");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 76);
    EXPECT_EQ(p.S.FileUscita, "\\p\\Appoggio\\b.txt");
    EXPECT_EQ(p.InAppoggio(), "");
}

TEST(Righe, SottoDirectory) { // flat, and no working copy; the companion flat too
    Prova p;
    p.Riga("Sub\\Form1.FRM");
    p.Disco.Metti("/p/Sub/Form1.frx", "binario");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), "form1.frx form1.txt");
    EXPECT_EQ(p.A("form1.txt"), Rifatto);
    EXPECT_EQ(p.A("form1.frx"), "binario");
    EXPECT_EQ(p.S.FileUscita, "\\p\\Appoggio\\form1.frx");
    EXPECT_EQ(p.S.FileSorgente, "\\p\\Sub\\Form1.Frx");
    p.Esegui(); // the flat text is not sought there, so it is not deleted but written over
    EXPECT_EQ(p.A("form1.txt"), Rifatto);
    EXPECT_EQ(std::count(p.Disco.Chiamate.begin(), p.Disco.Chiamate.end(), "Cancella /p/Appoggio/form1.txt"),
              0);
}

TEST(Righe, SottoDirectoryPresenteInAppoggio) {
    Prova p;
    p.Riga("sub\\b.bas");
    p.Disco.Metti("/p/sub/b.frx", "binario");
    p.Disco.FaiDirectory("/p/Appoggio/sub");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "sub/b.bas sub/b.frx sub/b.txt");
}

TEST(Righe, DuePiatteConLoStessoNome) { // the later one stays
    Prova p;
    p.B.Riga("s1\\b.bas", "/p/s1/b.bas", "Option a\n");
    p.B.Riga("s2\\b.bas", "/p/s2/b.bas", "Option z\n");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "b.txt");
    EXPECT_EQ(p.A("b.txt"), Linea(15, "Option z") + Chiusura());
}

TEST(Righe, PiattaSopraUnaRigaSenzaDirectory) { // each takes the other's text
    Prova p;
    p.B.Riga("b.bas", "/p/b.bas", "Option a\n");
    p.B.Riga("sub\\b.bas", "/p/sub/b.bas", "Option z\n");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "b.bas b.txt");
    EXPECT_EQ(p.A("b.bas"), Linea(15, "Option z") + Chiusura());
}

TEST(Righe, LibSopraAssenteEPresente) { // "..\lib\x" below Appoggio is "lib\x" of the project
    Prova p;
    p.B.Riga("..\\lib\\X.bas", "/lib/X.bas", Modulo);
    p.Disco.Metti("/lib/X.frx", "binario");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), "x.frx x.txt");
    EXPECT_EQ(p.A("x.txt"), Rifatto);

    p.Disco.Metti("/p/lib/altro.bas", "y");
    p.Disco.Metti("/p/lib/x.txt", "vecchio");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.Disco.Leggi("/p/lib/x.txt"), Rifatto);
    EXPECT_EQ(p.Disco.Leggi("/p/lib/x.bas"), Rifatto); // the text is sought where it lies
    EXPECT_EQ(p.Disco.Leggi("/p/lib/x.frx"), "binario");
    EXPECT_EQ(p.Disco.Leggi("/p/lib/altro.bas"), "y");
    EXPECT_EQ(p.Disco.Leggi("/lib/X.bas"), CrLf(Modulo));
    EXPECT_FALSE(p.Disco.Esiste("/lib/x.txt"));
}

TEST(Righe, Maiuscole) {
    Prova p;
    p.B.Riga("FORM1.FRM", "/p/FORM1.FRM", "x\n");
    p.Disco.Metti("/p/FORM1.FRX", "binario");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "form1.frm form1.frx form1.txt");
    EXPECT_EQ(p.A("form1.frm"), Linea(15, "x") + Chiusura()); // starts as code
    EXPECT_EQ(p.A("form1.frx"), "binario");
}

TEST(Righe, InAltroCarattereDelDisco) { // accents fold too
    Prova p;
    p.B.Riga("QUANTIT\xC0.BAS", "/p/Quantit\xC3\xA0.bas", Modulo);
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "quantit\xC3\xA0.bas quantit\xC3\xA0.txt");
    EXPECT_EQ(p.A("quantit\xC3\xA0.bas"), Rifatto);
}

TEST(Righe, DueVolteLaStessa) {
    Prova p;
    p.Riga("a.bas");
    p.Riga("A.BAS");
    p.Disco.Cancella("/p/A.BAS");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), "a.bas a.txt");
    EXPECT_EQ(p.A("a.bas"), Rifatto);
    EXPECT_EQ(std::count(p.Disco.Chiamate.begin(), p.Disco.Chiamate.end(), "Cancella /p/Appoggio/a.txt"), 1);
    EXPECT_EQ(std::count(p.Disco.Chiamate.begin(), p.Disco.Chiamate.end(), "Copia /p/Appoggio/a.bas"), 2);
}

TEST(Righe, ConIlNomeDelTesto) { // "a.txt": the copy onto itself leaves it as it is
    Prova p;
    p.Riga("a.txt");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.InAppoggio(), "a.txt");
    EXPECT_EQ(p.A("a.txt"), Rifatto);
}

TEST(Righe, ConIlNomeDelCompagno) { // "a.frx": the copy of the companion, last, is the one that stays
    Prova p;
    p.Riga("a.frx");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "a.frx a.txt");
    EXPECT_EQ(p.A("a.txt"), Rifatto);
    EXPECT_EQ(p.A("a.frx"), CrLf(Modulo));
}

TEST(Righe, CompagnoAncheDiModuliEClassi) {
    Prova p;
    p.Riga("a.bas");
    p.Riga("c.cls");
    p.Disco.Metti("/p/A.FRX", "a");
    p.Disco.Metti("/p/c.ctx", "c");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "a.bas a.frx a.txt c.cls c.txt");
}

// --- sources are only read ------------------------------------------------------------------

TEST(Sorgenti, UnUscitaCheEUnSorgente) {
    struct Caso {
        Vista Una, Altra;
    };
    // The output of one row, below Appoggio and up again, is the source of the other.
    const Caso casi[] = {
        {"..\\x.bas", "x.txt"}, // deleted at the head of the file
        {"..\\x.bas", "X.Txt"}, //
        {"..\\x.bas", "x.bas"}, // copied over
        {"..\\x.frm", "x.frx"}, // copied over as a companion
        {"..\\p\\..\\x.bas", "x.bas"},
    };
    for (const Caso& caso : casi) {
        Prova p;
        p.Riga(caso.Altra);
        p.Disco.Metti("/x.bas", CrLf(Modulo));
        p.Disco.Metti("/x.frm", CrLf(Modulo));
        p.Disco.Metti("/x.frx", "binario");
        p.B.Riga(caso.Una);
        const auto prima = p.Disco.TuttiIFile();
        p.Esegui();
        EXPECT_EQ(p.B.Arresto(), 70) << caso.Una << caso.Altra;
        for (const auto& [percorso, bytes] : prima) EXPECT_EQ(p.Disco.Leggi(percorso), bytes) << percorso;
    }
}

TEST(Sorgenti, AncheDiUnaRigaNonSelezionata) {
    Prova p;
    p.Riga("x.txt");
    p.B.Riga("..\\x.bas", "/x.bas", Modulo);
    SelezionaFile1(p.S, 1, false);
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    EXPECT_EQ(p.Disco.Leggi("/p/x.txt"), CrLf(Modulo));
}

TEST(Sorgenti, DentroAppoggio) { // the working copy of one row is the source of another
    Prova p;
    p.Riga("x.bas");
    p.B.Riga("Appoggio\\x.bas", "/p/Appoggio/x.bas", "Option z\n");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    EXPECT_EQ(p.A("x.bas"), "Option z\r\n");
    EXPECT_EQ(p.A("x.txt"), Rifatto); // after it the other row's text was written here, flat
}

TEST(Sorgenti, CambiatiFraDueCorse) { // what is only read is looked at again
    Prova p;
    p.Riga("x.txt");
    p.B.Riga("..\\x.bas", "/x.bas", Modulo);
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    p.Disco.Metti("/p/x.txt", "un altro file"); // as an editor saves it
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    EXPECT_EQ(p.Disco.Leggi("/p/x.txt"), "un altro file");

    Prova q;
    q.Riga("a.bas");
    q.B.Riga("..\\q\\x.txt"); // its directory comes to be only later
    q.Esegui();
    EXPECT_EQ(q.B.Arresto(), 76);
    q.Disco.Metti("/q/x.txt", CrLf(Modulo));
    q.B.Riga("..\\..\\q\\x.bas");
    q.Disco.Metti("/q/x.bas", CrLf(Modulo));
    q.Esegui();
    EXPECT_EQ(q.Disco.Leggi("/q/x.txt"), CrLf(Modulo));
    EXPECT_EQ(q.Disco.Leggi("/q/x.bas"), CrLf(Modulo));
}

TEST(Sorgenti, DiUnAltroProgettoNonPiu) { // another list of rows, another protection
    Prova p;
    p.Riga("x.txt");
    p.B.Riga("..\\x.bas", "/x.bas", Modulo);
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 70);
    p.S.File1.Clear();
    p.B.Riga("..\\x.bas");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 0);
    EXPECT_EQ(p.Disco.Leggi("/p/x.txt"), Rifatto);
}

// --- directories ----------------------------------------------------------------------------

TEST(Directory, UnFileAlPostoDiAppoggio) { // counts as the directory; 76 at the first output
    Prova p;
    p.Riga("a.bas");
    p.Disco.Metti("/p/Appoggio", "un file");
    p.Esegui();
    EXPECT_EQ(p.B.Arresto(), 76);
    EXPECT_EQ(p.Disco.Leggi("/p/Appoggio"), "un file");
    EXPECT_EQ(p.S.FileUscita, "\\p\\Appoggio\\a.txt");
}

TEST(Directory, AlPostoDiUnUscita) { // 75 where a file was to be; no directory is deleted
    for (const char* nome : {"b.txt", "b.bas", "b.frx"}) {
        Prova p;
        p.Riga("b.bas");
        p.Disco.Metti("/p/b.frx", "binario");
        p.Disco.FaiDirectory(std::string("/p/Appoggio/") + nome);
        p.Esegui();
        EXPECT_EQ(p.B.Arresto(), 75) << nome;
        EXPECT_TRUE(p.Disco.Esiste(std::string("/p/Appoggio/") + nome));
    }
}

TEST(Directory,
     IlNomeScrittoDiUnUscitaCheCE) { // kept where it is written again, not where it is deleted first
    Prova p;
    p.Riga("b.bas");
    p.Disco.Metti("/p/b.frx", "binario");
    for (const char* nome : {"B.TXT", "B.Bas", "B.Frx"})
        p.Disco.Metti(std::string("/p/Appoggio/") + nome, "vecchio");
    p.Esegui();
    EXPECT_EQ(p.InAppoggio(), "B.Bas B.Frx b.txt");
    EXPECT_EQ(p.A("B.Bas"), Rifatto);
    EXPECT_EQ(p.A("B.Frx"), "binario");
}

TEST(Directory, DiUnNomeCheWindows1252NonHa) { // its bytes pass through, folded path or not
    for (const std::string nome : {"/\xD0\x9F\xD0\xA0/\xE3\x83\x97\xE3\x83\xAD", "/\xC4\x80\xC3\x89"}) {
        DiscoFinto disco(nome);
        Banco b(disco, nome);
        b.Riga("a.bas", nome + "/a.bas", Modulo);
        b.Riga("Sub\\c.bas", nome + "/Sub/c.bas", Modulo);
        mnuRiordina_Click(b.S);
        EXPECT_EQ(b.Arresto(), 0);
        EXPECT_EQ(disco.Leggi(nome + "/Appoggio/a.txt"), Rifatto);
        EXPECT_EQ(disco.Leggi(nome + "/Appoggio/a.bas"), Rifatto);
        EXPECT_EQ(disco.Leggi(nome + "/Appoggio/c.txt"), Rifatto);
        EXPECT_EQ(disco.TuttiIFile().size(), 6U); // those, the two sources and the marker
    }
}

TEST(Directory, NellaRadice) { // doubled "\" in every path
    DiscoFinto disco("/");
    Banco b(disco, "/");
    b.Riga("a.bas", "/a.bas", Modulo);
    mnuRiordina_Click(b.S);
    EXPECT_EQ(b.Arresto(), 0);
    EXPECT_EQ(b.S.DirAppoggio, "\\\\Appoggio");
    EXPECT_EQ(disco.Leggi("/Appoggio/a.bas"), Rifatto);
}

TEST(Directory, DueDirectoryPerMaiuscole) { // nothing of a run on one is written in the other
    for (const bool minuscola : {false, true}) {
        DiscoFinto disco("/data/Prog");
        disco.Metti("/data/prog/a.bas", "altro");
        disco.FaiDirectory("/data/prog/appoggio");
        disco.FaiDirectory("/data/prog/lib");
        if (minuscola) disco.Metti("/data/Prog/appoggio/a.txt", "vecchio"); // an older work directory
        disco.Metti("/lib/x.bas", CrLf(Modulo));
        Banco b(disco, "/data/Prog");
        b.Riga("a.bas", "/data/Prog/a.bas", Modulo);
        b.Riga("Sub\\c.frm", "/data/Prog/Sub/c.frm", "x\n");
        disco.Metti("/data/Prog/Sub/c.frx", "binario");
        b.Riga("..\\..\\lib\\x.bas");
        mnuRiordina_Click(b.S);
        EXPECT_EQ(b.Arresto(), 0);
        const std::string a = minuscola ? "/data/Prog/appoggio/" : "/data/Prog/Appoggio/";
        for (const char* nome : {"a.bas", "a.txt", "x.txt"})
            EXPECT_EQ(disco.Leggi(a + nome), Rifatto) << nome;
        EXPECT_EQ(disco.Leggi(a + "c.frx"), "binario");
        for (const auto& [percorso, bytes] : disco.TuttiIFile())
            EXPECT_TRUE(!percorso.starts_with("/data/prog/") || percorso == "/data/prog/a.bas") << percorso;
        EXPECT_EQ(disco.Leggi("/data/prog/a.bas"), "altro");
    }
}

// --- the source's bytes ---------------------------------------------------------------------

TEST(Sorgente, FiniDiRiga) {
    Prova p;
    p.Disco.Metti("/p/a.frm", "a\rb\nc\r\n\td \r\n  \xE8\x80\xFF  \r\n\r\n\r\rultima");
    p.B.Riga("a.frm");
    p.Esegui();
    EXPECT_EQ(p.A("a.frm"), Linea(15, "a") + Linea(15, "b\nc") + Linea(15, "\td") +
                                Linea(15, "\xE8\x80\xFF") + Linea(15, "ultima") + Chiusura());
    EXPECT_EQ(p.S.TotaleRighe, 8);
    EXPECT_EQ(p.S.Progress.Max, 11);
}

TEST(Sorgente, PiuLungoDiUnBlocco) {
    Prova p;
    Testo sorgente, atteso;
    for (int i = 0; i < 9000; ++i) {
        const Testo riga = "riga" + CStr(i) + Testo(static_cast<std::size_t>(i % 97), 'x');
        sorgente += "   " + riga + "\r\n";
        atteso += Linea(15, riga);
    }
    const Testo lunga(400000, 'y');
    p.Disco.Metti("/p/a.frm", sorgente + lunga + "\r\n" + sorgente);
    p.B.Riga("a.frm");
    p.Esegui();
    EXPECT_TRUE(p.A("a.frm") == atteso + Linea(15, lunga) + atteso + Chiusura());
    EXPECT_EQ(p.S.TotaleRighe, 18001);
}

// The folded text of a path could be a neighbour's: the directories stay those of the row.
TEST(Piega, LaDirectoryDellaRigaRestaLaSua) {
    Prova p;
    p.B.Riga("..\\Lib\\x.bas", "/Lib/x.bas", Modulo);
    p.Disco.FaiDirectory("/p/Lib");
    p.Disco.FaiDirectory("/p/lib");
    p.Esegui();
    EXPECT_TRUE(p.Disco.Esiste("/p/Lib/x.txt"));
    EXPECT_TRUE(p.Disco.Esiste("/p/Lib/x.bas"));
    EXPECT_FALSE(p.Disco.Esiste("/p/lib/x.txt"));
}

TEST(Piega, LaDirectoryDellaRigaSimileAllaCartella) {
    // Read from where the row says; written flat into the work directory.
    Prova p;
    p.B.Riga("a.bas", "/p/a.bas", Modulo);
    p.B.Riga("appoggio\\x.bas", "/p/appoggio/x.bas", Modulo);
    p.Disco.FaiDirectory("/p/Appoggio");
    p.Esegui();
    EXPECT_EQ(p.B.S.File1.ListCount(), 2);
    EXPECT_TRUE(p.Disco.Esiste("/p/Appoggio/a.bas"));
    EXPECT_TRUE(p.Disco.Esiste("/p/Appoggio/x.txt"));
    EXPECT_EQ(p.Disco.Leggi("/p/appoggio/x.bas"), CrLf(Modulo));
    EXPECT_FALSE(p.Disco.Esiste("/p/appoggio/x.txt"));
    EXPECT_FALSE(p.Disco.Esiste("/p/appoggio/a.txt"));
}

TEST(Piega, IlVicinoNonSiTocca) {
    Prova p("/data/Prog");
    p.Disco.Metti("/data/prog/y.bas", "vicino");
    p.Disco.Metti("/data/prog/Appoggio/z.txt", "vicino");
    p.B.Riga("..\\..\\Prog\\y.bas", "/Prog/y.bas", Modulo);
    p.B.Riga("z.bas", "/data/Prog/z.bas", Modulo);
    p.Esegui();
    EXPECT_EQ(p.Disco.Leggi("/data/prog/y.bas"), "vicino");
    EXPECT_EQ(p.Disco.Leggi("/data/prog/Appoggio/z.txt"), "vicino");
    EXPECT_FALSE(p.Disco.Esiste("/data/prog/y.txt"));
    EXPECT_TRUE(p.Disco.Esiste("/data/Prog/y.txt"));
    EXPECT_TRUE(p.Disco.Esiste("/data/Prog/Appoggio/z.bas"));
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// The run over the rows: the order of its statements, the work directory, what it leaves in the
// state, and where it ends.
#include "docs/banco.h"

namespace morvella {

namespace {

using namespace prove;

using File = std::map<std::string, std::string>;

const char* const FraseLog = "Ok! Directory Creata, ora mettiamoci al lavoro ...\r\n";

// The calls without the single reads.
std::vector<std::string> SenzaLetture(const std::vector<std::string>& chiamate) {
    std::vector<std::string> altre;
    for (const std::string& chiamata : chiamate)
        if (!chiamata.starts_with("Leggi ")) altre.push_back(chiamata);
    return altre;
}

// An earlier run's work directory may be gone by the next run, which then makes it again.
TEST(Corsa, LaDirectoryDiPrimaNonCEPiu) {
    Banco b;
    b.Voce("A.bas", "x\n");
    b.Disco.Metti("/p/appoggio/x", "");
    ASSERT_EQ(b.Documenta(), 0);
    ASSERT_TRUE(b.C("/p/appoggio/A.Html"));
    for (const auto& [percorso, bytes] : b.Disco.TuttiIFile())
        if (percorso.starts_with("/p/appoggio/")) b.Disco.Cancella(percorso);
    b.Disco.Cancella("/p/appoggio");
    ASSERT_FALSE(b.C("/p/appoggio"));
    EXPECT_EQ(b.Documenta(), 0);
    EXPECT_TRUE(b.C("/p/Appoggio/A.Html") && b.C("/p/Appoggio/OK.LOG"));
    EXPECT_FALSE(b.C("/p/appoggio"));
}

TEST(Corsa, OrdineDelleIstruzioni) {
    Banco b;
    b.Voce("A.bas", "x\n");
    b.Voce("B.bas", "x\n");
    b.Disco.Chiamate.clear();
    ASSERT_EQ(b.Documenta(), 0);
    const std::vector<std::string> nuova = {
        "CambiaDirectory /p",
        "CreaDirectory /p/Appoggio",
        "ApriScrittura /p/Appoggio/OK.LOG",
        "Scrivi /p/Appoggio/OK.LOG",
        "Chiudi /p/Appoggio/OK.LOG",
        "ApriLettura /p/A.bas", // first pass
        "Chiudi /p/A.bas",
        "ApriLettura /p/A.bas",
        "ApriScrittura /p/Appoggio/A.Html",
        "Adesso ", // the date of the tail, ahead of the source's end
        "Chiudi /p/A.bas",
        "Scrivi /p/Appoggio/A.Html",
        "Chiudi /p/Appoggio/A.Html",
        "ApriLettura /p/B.bas",
        "Chiudi /p/B.bas",
        "ApriLettura /p/B.bas",
        "ApriScrittura /p/Appoggio/B.Html",
        "Adesso ",
        "Chiudi /p/B.bas",
        "Scrivi /p/Appoggio/B.Html",
        "Chiudi /p/Appoggio/B.Html",
        "Copia /p/Appoggio/p2.gif",
        "Copia /p/Appoggio/dario.gif",
        "Copia /p/Appoggio/BLULETHR.GIF",
        "Copia /p/Appoggio/home.GIF",
        "Copia /p/Appoggio/Dario.gif", // as the pages spell it
        "ApriScrittura /p/Appoggio/Indice.Html",
        "Scrivi /p/Appoggio/Indice.Html",
        "Chiudi /p/Appoggio/Indice.Html",
    };
    EXPECT_EQ(SenzaLetture(b.Disco.Chiamate), nuova);

    // Again, with one row less: pages and index are deleted first, and nothing else is touched.
    b.S.File1.Segna(0, false);
    b.Disco.Chiamate.clear();
    const File prima = b.Disco.TuttiIFile();
    ASSERT_EQ(b.Documenta(), 0);
    const std::vector<std::string> diNuovo = {
        "Cancella /p/Appoggio/B.Html", // ahead of the first pass
        "ApriLettura /p/B.bas",
        "Chiudi /p/B.bas",
        "ApriLettura /p/B.bas",
        "ApriScrittura /p/Appoggio/B.Html",
        "Adesso ",
        "Chiudi /p/B.bas",
        "Scrivi /p/Appoggio/B.Html",
        "Chiudi /p/Appoggio/B.Html",
        "Cancella /p/Appoggio/Indice.Html",
        "ApriScrittura /p/Appoggio/Indice.Html",
        "Scrivi /p/Appoggio/Indice.Html",
        "Chiudi /p/Appoggio/Indice.Html",
    };
    EXPECT_EQ(SenzaLetture(b.Disco.Chiamate), diNuovo);
    File dopo = b.Disco.TuttiIFile();
    EXPECT_NE(dopo.at("/p/Appoggio/Indice.Html"), prima.at("/p/Appoggio/Indice.Html"));
    dopo["/p/Appoggio/Indice.Html"] = prima.at("/p/Appoggio/Indice.Html");
    EXPECT_TRUE(dopo == prima); // A.Html stays
}

// An old page goes before its source is even looked for.
TEST(Corsa, LaPaginaVecchiaSparisce) {
    Banco b;
    b.Disco.Metti("/p/Appoggio/a.HTML", "vecchia");
    b.Voce("A.bas");
    EXPECT_EQ(b.Documenta(), 53);
    EXPECT_FALSE(b.C("/p/Appoggio/a.HTML") || b.C("/p/Appoggio/A.Html"));
}

TEST(Corsa, StatoDopo) {
    Banco b;
    b.Disco.Metti("/p/Prova.vbp", "Module=A; A.bas\r\n");
    b.S.File1Leggi.Nomi = {"Prova.vbp"};
    b.S.File1Leggi.ListIndex = 0;
    b.S.DirAppoggio = "\\altrove";
    b.S.ProgressBar1 = {3, 7, 5, true, 5};
    b.S.mnuSeleziona = "DeSeleziona tutto";
    b.S.mnuLettura = b.S.mnuRiordina = b.S.mnuvorn = false;
    b.Voce("A.bas", "Option Explicit\nPublic Sub a()\nPublic Function f()\n");
    b.Voce("B.bas", "x\n");
    b.Voce("C.bas", "Option Explicit\nPublic Function f()\nBegin VB.Menu\n");
    b.S.File1.Segna(1, false);
    ASSERT_EQ(b.Documenta(), 0);

    EXPECT_TRUE(b.S.File1.Selected(0) && !b.S.File1.Selected(1) && b.S.File1.Selected(2));
    EXPECT_TRUE(b.S.mnuLettura);
    EXPECT_FALSE(b.S.mnuRiordina || b.S.mnuvorn);
    EXPECT_EQ(b.S.mnuSeleziona, "DeSeleziona tutto");
    EXPECT_EQ(b.S.DirAppoggio, "\\altrove");
    EXPECT_FALSE(b.C("/p/Appoggio/Prova.vbp")); // the project is not copied
    EXPECT_EQ(b.Pagina("OK.LOG"), FraseLog);
    EXPECT_TRUE(b.S.ProgressBar1.Min == 3 && b.S.ProgressBar1.Max == 7 && b.S.ProgressBar1.Value == 5 &&
                b.S.ProgressBar1.Visible);
    EXPECT_EQ(b.S.Progress.Max, 3 + 15);
    EXPECT_EQ(b.S.Progress.Min, 0);
    EXPECT_EQ(b.S.Progress.Value, 0);
    EXPECT_FALSE(b.S.Progress.Visible);
    EXPECT_EQ(b.S.Label2, "");
    EXPECT_EQ(b.S.FileSorgente, "\\p\\C.bas");
    EXPECT_EQ(b.S.FileUscita, "\\p\\Appoggio\\C.Html");
    EXPECT_EQ(b.S.Numero, "     ");
    EXPECT_EQ(b.S.Margine, "     ");
    EXPECT_EQ(b.S.StoriaBlocchi, "0002");
    EXPECT_EQ(b.S.TotaleRighe, 3);
    EXPECT_EQ(b.Fronte.Scritti,
              (std::vector<Testo>{"0|\\p\\Appoggio\\A.Html|3", "2|\\p\\Appoggio\\C.Html|3"}));
    EXPECT_TRUE(b.Fronte.Arresti.empty()); // nothing is trapped here
}

// The place in the whole list, from 0, over the number of rows selected.
TEST(Corsa, Label2) {
    Banco b;
    for (char c = 'A'; c <= 'J'; ++c) b.Voce(Testo(1, c) + ".bas", "x\n");
    for (const Lungo i : {0, 2, 3, 5, 6, 7, 8}) b.S.File1.Segna(i, false);
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_EQ(b.Fronte.Etichette,
              (std::vector<Testo>{"\\p\\B.bas  1/3", "\\p\\E.bas  4/3", "\\p\\J.bas  9/3", ""}));
}

// The bar counts the lines that the page's loop reads: the one after a menu is not among them.
// It stays visible during the question.
TEST(Corsa, Progress) {
    Banco b;
    b.Voce("A.frm", "Begin VB.Menu a\nx\nBegin VB.Menu b\nx\ny\n");
    int domande = 0;
    b.Fronte.AllaDomanda = [&] {
        ++domande;
        EXPECT_TRUE(b.S.Progress.Visible);
        EXPECT_EQ(b.S.Progress.Value, 3);
        EXPECT_EQ(b.S.Progress.Max, 20);
        EXPECT_EQ(b.S.Label2, "");
        EXPECT_TRUE(b.Pagina("Indice.Html").ends_with("</HTML>\r\n")); // closed by now
    };
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_EQ(domande, 1);
    EXPECT_FALSE(b.S.Progress.Visible);
}

// A disk that has no memory left at its first call.
struct DiscoSenzaMemoria : DiscoFinto {
    Scheda Esamina(const std::string& percorso) override {
        if (Finita) throw std::bad_alloc();
        return DiscoFinto::Esamina(percorso);
    }
    bool Finita = false;
};

// The viewer's command comes on before anything that can fail, the look at the sources included.
TEST(Corsa, LetturaSiAccendePerPrima) {
    DiscoSenzaMemoria disco;
    FinestraFinta fronte;
    Stato s(disco, fronte);
    CambiaDir1(s, "/p");
    s.File1.AddItem("A.bas");
    s.mnuLettura = false;
    disco.Finita = true;
    EXPECT_THROW(mnuHTML_Click(s), std::bad_alloc);
    EXPECT_TRUE(s.mnuLettura);
}

// The source is closed after the last link line and before "</body>". A page is written in blocks,
// so each of the two shows where it is the line that no longer fits.
TEST(Corsa, IlSorgenteSiChiudeDopoLUltimoCollegamento) {
    const std::string coda = "</body>\r\n</html>\r\n";
    std::size_t nome = 130000;
    for (const std::size_t misura : {std::size_t{0}, Canali::Blocco, Canali::Blocco + 1}) {
        Banco b;
        if (misura > 0) { // of the page up to the last link line, by the name of the form shown
            b.Voce("A.bas", Testo(130000, 'F') + ".Show\n");
            ASSERT_EQ(b.Documenta(), 0);
            nome = 130000 + misura - (b.Pagina("A.Html").size() - coda.size());
        }
        Banco c;
        c.Voce("A.bas", Testo(nome, 'F') + ".Show\n");
        ASSERT_EQ(c.Documenta(), 0);
        const std::string pagina = c.Pagina("A.Html");
        ASSERT_TRUE(pagina.ends_with(coda));
        ASSERT_TRUE(misura == 0 || pagina.size() - coda.size() == misura);
        std::vector<std::string> dopo = SenzaLetture(c.Disco.Chiamate);
        dopo.erase(dopo.begin(), std::find(dopo.begin(), dopo.end(), "Adesso "));
        dopo.erase(std::find(dopo.begin(), dopo.end(), "Chiudi /p/Appoggio/A.Html"), dopo.end());
        const std::vector<std::string> uno = {"Adesso ", "Chiudi /p/A.bas", "Scrivi /p/Appoggio/A.Html"};
        const std::vector<std::string> due = {"Adesso ", "Chiudi /p/A.bas", "Scrivi /p/Appoggio/A.Html",
                                              "Scrivi /p/Appoggio/A.Html"};
        const std::vector<std::string> prima = {"Adesso ", "Scrivi /p/Appoggio/A.Html", "Chiudi /p/A.bas",
                                                "Scrivi /p/Appoggio/A.Html"};
        EXPECT_EQ(dopo, misura == 0 ? uno : misura == Canali::Blocco ? due : prima) << misura;
    }
}

// After an error the bar stands and the label names the module.
TEST(Corsa, StatoDopoUnErrore) {
    Banco b;
    b.S.mnuLettura = false;
    b.Voce("A.frm", "x\nBegin VB.Menu a\n");
    EXPECT_EQ(b.Documenta(), 62);
    EXPECT_TRUE(b.S.mnuLettura);
    EXPECT_EQ(b.S.Label2, "\\p\\A.frm  0/1");
    EXPECT_TRUE(b.S.Progress.Visible);
    EXPECT_EQ(b.S.Progress.Max, 17);
    EXPECT_EQ(b.S.Progress.Value, 2);
}

TEST(Cartella, Preparazione) {
    enum class Come { Manca, Vuota, SoloDirectory, ConFile, UnFile };
    struct Caso {
        Come Prima;
        int Errore;
        bool Marca;  // OK.LOG is written
        bool Sposta; // the current directory goes to the project
    };
    const Caso casi[] = {
        {Come::Manca, 0, true, true},           {Come::Vuota, 75, false, true},
        {Come::SoloDirectory, 75, false, true}, {Come::ConFile, 0, false, false},
        {Come::UnFile, 75, false, true},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(static_cast<int>(caso.Prima));
        Banco b;
        b.Voce("A.bas", "x\n");
        b.Disco.Metti("/qui/A.bas", "x\r\n"); // for date and size
        b.Disco.CambiaDirectory("/qui");
        switch (caso.Prima) {
        case Come::Manca: break;
        case Come::Vuota: b.Disco.FaiDirectory("/p/Appoggio"); break;
        case Come::SoloDirectory: b.Disco.Metti("/p/Appoggio/sub/x.txt", ""); break;
        case Come::ConFile: b.Disco.Metti("/p/Appoggio/x.txt", ""); break;
        case Come::UnFile: b.Disco.Metti("/p/Appoggio", "file"); break;
        }
        EXPECT_EQ(b.Documenta(), caso.Errore);
        EXPECT_EQ(b.C("/p/Appoggio/OK.LOG"), caso.Marca);
        EXPECT_EQ(b.Disco.DirectoryCorrente(), caso.Sposta ? "/p" : "/qui");
        EXPECT_EQ(b.C("/p/Appoggio/A.Html"), caso.Errore == 0);
        EXPECT_EQ(b.Fronte.Etichette.empty(), caso.Errore != 0); // it ends before the first row
    }
}

// The marker is written once.
TEST(Cartella, MarcaVecchia) {
    Banco b;
    b.Disco.Metti("/p/Appoggio/OK.LOG", "vecchia");
    b.Voce("A.bas", "x\n");
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_EQ(b.Pagina("OK.LOG"), "vecchia");
}

// With nothing selected the run goes to the root and reports success.
TEST(Corsa, NessunaRigaSelezionata) {
    for (const bool conRighe : {false, true}) {
        Banco b;
        if (conRighe) {
            b.Voce("A.bas", "x\n");
            b.S.File1.Segna(0, false);
        }
        b.S.mnuLettura = false;
        const File prima = b.Disco.TuttiIFile();
        ASSERT_EQ(b.Documenta(), 0);
        EXPECT_TRUE(b.S.mnuLettura);
        EXPECT_FALSE(b.C("/p/Appoggio"));
        File dopo = b.Disco.TuttiIFile();
        for (const auto& [nome, figura] : {std::pair{"/p2.gif", "p2.gif"},
                                           {"/dario.gif", "Dario.gif"},
                                           {"/Dario.gif", "Dario.gif"},
                                           {"/BLULETHR.GIF", "BLULETHR.GIF"},
                                           {"/home.GIF", "home.GIF"}}) {
            EXPECT_EQ(dopo[nome], std::string("figura ") + figura);
            dopo.erase(nome);
        }
        EXPECT_TRUE(dopo["/Indice.Html"].ends_with("</HTML>\r\n"));
        EXPECT_EQ(dopo["/Indice.Html"].find("href"), std::string::npos);
        dopo.erase("/Indice.Html");
        EXPECT_TRUE(dopo == prima);
        ASSERT_EQ(b.Fronte.Box_.size(), 1U);
        EXPECT_EQ(b.Fronte.Etichette, std::vector<Testo>{""});
    }
}

TEST(Corsa, Errori) {
    struct Caso {
        const char* Voce;
        const char* File; // of the source, nullptr: none
        int Errore;
        const char* Pagina; // that the failed row leaves, nullptr: none
    };
    const Caso casi[] = {
        {"M.bas", nullptr, 53, nullptr},
        {"", nullptr, 5, nullptr},
        {"M", "/p/M", 5, nullptr},
        {"M.b", "/p/M.b", 5, nullptr},
        {"sub\\M.bas", nullptr, 76, nullptr},
        {"sub\\M.bas", "/p/sub/M.bas", 76, nullptr},
        {"..\\lib\\M.bas", "/lib/M.bas", 76, nullptr}, // \p\lib is not there
        {"..\\lib\\M.bas", nullptr, 76, nullptr},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.Voce);
        Banco b;
        b.Disco.FaiDirectory("/p/Appoggio/altra");
        b.Disco.Metti("/p/Appoggio/OK.LOG", "");
        if (caso.File) b.Disco.Metti(caso.File, "x\r\n");
        b.Voce(caso.Voce);
        b.Voce("zz.bas", "x\n");
        const File prima = b.Disco.TuttiIFile();
        EXPECT_EQ(b.Documenta(), caso.Errore);
        b.ChiudiTutto();
        EXPECT_TRUE(b.Disco.TuttiIFile() == prima);
        EXPECT_TRUE(b.Fronte.Box_.empty() && b.Fronte.Arresti.empty());
    }
}

// A row that climbs out has its page beside the work directory, where there is a directory for it.
TEST(Corsa, RigaCheRisale) {
    Banco b;
    b.Disco.Metti("/Comune/Form.frm", "x\r\n");
    b.Disco.FaiDirectory("/p/Comune");
    b.Voce("..\\Comune\\Form.frm");
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_TRUE(b.C("/p/Comune/Form.Html") && b.C("/p/Appoggio/Indice.Html"));
    EXPECT_FALSE(b.C("/Comune/Form.Html"));
    EXPECT_FALSE(b.C("/p/Comune/p2.gif")); // its pictures and its way home are not there
}

// A source is never deleted nor written, whatever the page's name leads to.
TEST(Corsa, LaPaginaNonESulSorgente) {
    Banco b;
    b.Disco.Metti("/p/Appoggio/OK.LOG", "");
    // The row's source is /Altro.cls; its page would be /p/Altro.Html, which is another row's source.
    b.Disco.Metti("/Altro.cls", "x\r\n");
    b.Voce("..\\Altro.cls");
    b.Voce("Altro.Html", "sorgente\n");
    EXPECT_EQ(b.Documenta(), 70);
    EXPECT_EQ(b.Disco.Leggi("/p/Altro.Html"), "sorgente\r\n");
}

// The root of a drive ends in a separator, and gets no second one.
TEST(Corsa, PercorsoPagina) {
    struct Caso {
        const char *Directory, *Voce, *Pagina;
    };
    const Caso casi[] = {
        {"C:\\", "A.bas", "C:\\A.Html"},     {"C:\\", "sub\\A.bas", "C:\\sub\\A.Html"},
        {"C:\\", ".cls", "C:\\.Html"},       {"C:", "A.bas", "C:\\A.Html"},
        {"C:\\p", "A.bas", "C:\\p\\A.Html"}, {"C:\\p\\", "A.bas", "C:\\p\\\\A.Html"}, // four bytes: no root
        {"C:p", "A.bas", "C:p\\A.Html"},     {"\\p\\", "A.bas", "\\p\\\\A.Html"}, // three bytes, but no drive
        {"", "A.bas", "\\A.Html"},
    };
    for (const Caso& caso : casi) EXPECT_EQ(PercorsoPagina(caso.Directory, caso.Voce), caso.Pagina);
}

// The project in a root: doubled separators, and the disk takes them.
TEST(Corsa, ProgettoNellaRadice) {
    Banco b;
    CambiaDir1(b.S, "/");
    ASSERT_EQ(b.S.Dir1Path, "\\");
    b.Disco.Metti("/A.bas", "x\r\n");
    b.Voce("A.bas");
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_EQ(b.Disco.Leggi("/Appoggio/A.Html"),
              Testa("\\\\Appoggio\\A.Html", "A.bas", "21/11/2026", "3") + Coda(false));
    EXPECT_NE(
        b.Disco.Leggi("/Appoggio/Indice.Html").find("<a href=\"\\\\Appoggio\\A.Html\">A.bas<br></a></td>"),
        std::string::npos);
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// The commands of the menu: when they are enabled, what they write and start, and the errors that
// end the program.
#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

class CorsaTest : public QObject {
    Q_OBJECT

  private slots:
    void statiDelMenu();
    void corsaSubitoDopoUnaCorsa();
    void motoriDaSoli();
    void lettura();
    void letturaSenzaSelezione();
    void letturaCheManca();
    void letturaSenzaProgramma();
    void html();
    void htmlSenzaSelezione();
    void htmlSenzaFigure();
    void htmlInterrotto();
    void paginaDiAiuto();
    void paginaDiAiutoSenzaProgramma();
};

// The states after each event: mnuRiordina, mnuvorn, mnuLettura, mnuHTML.
void CorsaTest::statiDelMenu() {
    Banco b;
    MettiFigure(b);
    b.Disco.FaiDirectory("/p/sotto");
    b.Disco.Metti("/p/sotto/Vuoto.vbp", "");
    b.Disco.FaiDirectory("/d");
    b.Disco.Metti("/d/Due.vbp", "Form=f.frm\r\n");
    b.Disco.Unita["D:"] = "/d";
    b.Apri();
    QCOMPARE(b.Menu(), std::string("1011")); // the start

    b.ScegliSenzaCorsa(); // its rows raise File1_Click
    QCOMPARE(b.Menu(), std::string("1111"));
    b.DoppioClic(b.Dir1(), 2); // "/", "p", "sotto": Dir1_Change
    QCOMPARE(b.Menu(), std::string("0001"));

    b.Clicca(b.File1(), 0); // no row to click
    QTest::mouseClick(b.File1()->viewport(), Qt::LeftButton, {}, QPoint(20, 8));
    QCOMPARE(b.Menu(), std::string("0001"));
    b.ScegliSenzaCorsa(); // a project without a row leaves them as they were
    QCOMPARE(b.Menu(), std::string("0001"));

    {
        Risponditore r({"No"}); // mnuHTML_Click enables mnuLettura and touches no other
        b.Comando("mnuHTML");
        QVERIFY(r.Esaurito());
    }
    QCOMPARE(b.Menu(), std::string("0011"));

    b.Drive1()->setFocus();
    QTest::keyClick(b.Drive1(), Qt::Key_Down); // Drive1_Change
    QCOMPARE(b.W->S().Drive1Drive, Testo("D:"));
    QCOMPARE(b.Menu(), std::string("0001"));
    b.ScegliSenzaCorsa();
    QCOMPARE(b.Menu(), std::string("1111"));
}

void CorsaTest::corsaSubitoDopoUnaCorsa() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì"});
    b.CliccaProgetto(0);
    b.Disco.Cancella("/p/Appoggio/m.log");
    b.Disco.Cancella("/p/Appoggio/m.txt");
    b.Comando("mnuvorn"); // no row is selected
    b.Comando("mnuRiordina");
    QVERIFY(r.Esaurito());
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/m.log"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/m.txt"));
    QVERIFY(!b.C("ProgressBar1")->isVisible());
    QVERIFY(!b.C("Progress")->isVisible());
}

void CorsaTest::motoriDaSoli() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Clicca(b.File1(), 1);
    Risponditore r;
    b.Comando("mnuRiordina");
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.bas"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/form1.txt"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/m.log"));
    QCOMPARE(b.Selezionate(), std::vector<int>({1})); // the rewriter leaves the selection
    b.Comando("mnuvorn");
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/Form1.log"));
    QCOMPARE(b.Selezionate(), std::vector<int>());
    QVERIFY(r.Esaurito());
}

void CorsaTest::lettura() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì", "OK"});
    b.CliccaProgetto(0);
    b.Comando("mnuSeleziona"); // "DeSeleziona tutto" stands there after a run
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    b.Comando("mnuLettura");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[1].Titolo, QString("Lettura Ottimizzata"));
    QCOMPARE(r.Viste[1].Testo, QString("Per visualizzare l'Identazione in maniera ottimizzata\n"
                                       "Selezionare il carattere TERMINAL - Normale"));
    QCOMPARE(r.Viste[1].Icona, QMessageBox::Information);
    QCOMPARE(r.Viste[1].Bottoni, QStringList({"OK"}));
    QCOMPARE(b.Disco.Avviati, std::vector<std::string>(
                                  {"Notepad.exe|/p/Appoggio/Form1.log", "Notepad.exe|/p/Appoggio/m.log"}));
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
}

void CorsaTest::letturaSenzaSelezione() {
    Banco b;
    b.Apri();
    Risponditore r({"OK"});
    b.Comando("mnuLettura"); // enabled at the start, without a row
    QVERIFY(r.Esaurito());
    QVERIFY(b.Disco.Avviati.empty());
    QVERIFY(!b.Disco.Esiste("/p/Appoggio"));
}

// The first listing is there and the second is not: one reader, the listing run, the box again,
// and no reader for the second.
void CorsaTest::letturaCheManca() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Clicca(b.File1(), 0);
    b.Comando("mnuvorn");
    b.Comando("mnuSeleziona");
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    Risponditore r({"OK", "OK"});
    b.Comando("mnuLettura");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[1].Titolo, QString("Lettura Ottimizzata"));
    QCOMPARE(b.Disco.Avviati, std::vector<std::string>({"Notepad.exe|/p/Appoggio/Form1.log"}));
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QCOMPARE(b.Selezionate(), std::vector<int>());
}

void CorsaTest::letturaSenzaProgramma() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì", "OK", "OK"});
    b.CliccaProgetto(0);
    b.Clicca(b.File1(), 0);
    b.Disco.Fallisci("Avvia", "Form1.log", 53);
    b.Comando("mnuLettura");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[2].Icona, QMessageBox::Critical);
    QVERIFY(r.Viste[2].Testo.contains("53"));
    QVERIFY(r.Viste[2].Testo.contains("File non trovato."));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
}

void CorsaTest::html() {
    for (const bool si : {true, false}) {
        Banco b;
        MettiFigure(b);
        b.Apri();
        b.ScegliSenzaCorsa();
        Risponditore r({si ? "Sì" : "No"});
        r.Davanti = [&](std::size_t) { QVERIFY(b.C("Progress")->isVisible()); }; // under the box
        b.Comando("mnuHTML");
        QVERIFY(r.Esaurito());
        QCOMPARE(r.Viste[0].Titolo, QString("Visualizzazione Documentazione HTML"));
        QCOMPARE(r.Viste[0].Testo, QString("Documentazione HTML riuscita.\nVuoi visualizzare l'indice?"));
        QCOMPARE(r.Viste[0].Icona, QMessageBox::Question);
        QCOMPARE(r.Viste[0].Bottoni, QStringList({"Sì", "No"}));
        for (const char* file : {"Form1.Html", "m.Html", "Indice.Html", "home.GIF"})
            QVERIFY2(b.Disco.Esiste(std::string("/p/Appoggio/") + file), file);
        QCOMPARE(b.Disco.Avviati, si ? std::vector<std::string>({"Explorer|/p/Appoggio/Indice.Html"})
                                     : std::vector<std::string>());
        QCOMPARE(b.Disco.DirectoryCorrente(), std::string("/p"));
        QVERIFY(!b.C("Progress")->isVisible());
        QVERIFY(!b.C("ProgressBar1")->isVisible());
        QCOMPARE(b.C<QLabel>("Label2")->text(), QString());
        QCOMPARE(b.Selezionate(), std::vector<int>({0, 1})); // they stay
    }
}

// No warning. The pages' directory is empty, so "\Indice.Html" is in the root.
void CorsaTest::htmlSenzaSelezione() {
    Banco b;
    MettiFigure(b);
    b.Apri();
    Risponditore r({"No"});
    b.Comando("mnuHTML");
    QVERIFY(r.Esaurito());
    QVERIFY(b.Disco.Esiste("/Indice.Html"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio"));
}

void CorsaTest::htmlSenzaFigure() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    Risponditore r({"OK"});
    b.Comando("mnuHTML");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QVERIFY(r.Viste[0].Testo.contains("53"));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.Html")); // finished pages stay
}

// A menu in the last line makes the engine read on past the end: error 62. When the box shows it,
// the page so far is on the disk.
void CorsaTest::htmlInterrotto() {
    Banco b;
    MettiFigure(b);
    b.Disco.Metti("/p/Form1.frm", "x\r\nBegin VB.Menu m\r\n");
    b.Apri();
    b.ScegliSenzaCorsa();
    Risponditore r({"OK"});
    r.Davanti = [&](std::size_t) {
        const std::string pagina = b.Disco.Leggi("/p/Appoggio/Form1.Html");
        QVERIFY(pagina.starts_with("<html>\r\n"));
        QVERIFY(pagina.find("Menu presenti nell'applicazione") != std::string::npos);
        QVERIFY(pagina.find("</body>") == std::string::npos);
        QVERIFY(pagina.ends_with("\r\n"));
    };
    b.Comando("mnuHTML");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QVERIFY(r.Viste[0].Testo.startsWith("Errore 62: "));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/m.Html"));
}

void CorsaTest::paginaDiAiuto() {
    Banco b;
    b.Apri();
    Risponditore r;
    b.Comando("MnuHelpHtml");
    QVERIFY(b.Disco.Esiste("/prog/tavolerio.htm"));
    b.Disco.Metti("/prog/tavolerio.htm", "mia"); // is not written again
    b.Comando("MnuHelpHtml");
    QCOMPARE(b.Disco.Leggi("/prog/tavolerio.htm"), std::string("mia"));
    QCOMPARE(b.Disco.Avviati,
             std::vector<std::string>({"Explorer|/prog/tavolerio.htm", "Explorer|/prog/tavolerio.htm"}));
    QVERIFY(r.Esaurito());
    QCOMPARE(b.Menu(), std::string("1011"));
}

void CorsaTest::paginaDiAiutoSenzaProgramma() {
    Banco b;
    b.Apri();
    b.Disco.Fallisci("Avvia", "tavolerio.htm", 53);
    Risponditore r({"OK"});
    b.Comando("MnuHelpHtml");
    QVERIFY(r.Esaurito());
    QVERIFY(r.Viste[0].Testo.contains("53"));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
}

QTEST_MAIN(CorsaTest)
#include "corsa_test.moc"

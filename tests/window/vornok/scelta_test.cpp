// SPDX-License-Identifier: MIT
//
// The choice of a project: by mouse and by key, the question, and the run that follows.
#include <QScrollBar>

#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

namespace {

// The texts of the projects that are marked.
QStringList Marcati(Banco& b) {
    QStringList marcati;
    for (const auto* voce : b.File1Leggi()->selectedItems()) marcati << voce->text();
    return marcati;
}

} // namespace

class SceltaTest : public QObject {
    Q_OBJECT

  private slots:
    void clicSulProgettoConSi();
    void clicSulProgettoConNo();
    void escAllaDomandaENo();
    void soloConLaTastiera();
    void invioSceglieDiNuovo();
    void clicRipetuto();
    void clicAccantoAiProgetti();
    void clicFinitoFuori_data();
    void clicFinitoFuori();
    void clicFinitoSottoIlBordo();
    void altriBottoni();
    void check2SpuntataENonConservata();
    void check2Conservata();
    void command1Nascosto();
    void progettoVuoto();
    void progettoCheManca();
};

void SceltaTest::clicSulProgettoConSi() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì"});
    r.Davanti = [&](std::size_t) {
        // The user sees what the question is about.
        QCOMPARE(b.Righe(b.File1()), QStringList({"Form1.frm", "m.bas"}));
        QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
        QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
        QCOMPARE(b.File1Leggi()->currentRow(), 0);
    };
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste.size(), std::size_t(1));
    QCOMPARE(r.Viste[0].Titolo, QString("Identazione"));
    QCOMPARE(r.Viste[0].Testo,
             QString("Vuoi riordinare il Codice di tutti i form, moduli e classi presenti nel "
                     "progetto\nUno.vbp"));
    QCOMPARE(r.Viste[0].Bottoni, QStringList({"Sì", "No"}));
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Information);
    for (const char* file :
         {"OK.LOG", "Uno.vbp", "form1.txt", "form1.frm", "m.txt", "m.bas", "Form1.log", "m.log"})
        QVERIFY2(b.Disco.Esiste(std::string("/p/Appoggio/") + file), file);
    QCOMPARE(b.Selezionate(), std::vector<int>()); // the listing deselects
    QCOMPARE(b.Righe(b.File1()), QStringList({"Form1.frm", "m.bas"}));
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    QCOMPARE(b.Menu(), std::string("1111"));
    QVERIFY(!b.C("ProgressBar1")->isVisible());
    QVERIFY(!b.C("Progress")->isVisible());
    QCOMPARE(b.C<QLabel>("Label2")->text(), QString());
    QVERIFY(b.Righe(b.Dir1()).contains("Appoggio")); // Dir1.Refresh
}

void SceltaTest::clicSulProgettoConNo() {
    Banco b;
    b.Apri();
    const auto prima = b.Disco.TuttiIFile();
    Risponditore r({"No"});
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QVERIFY(!b.Disco.Esiste("/p/Appoggio"));
    QVERIFY(b.Disco.TuttiIFile() == prima);
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    QCOMPARE(b.Menu(), std::string("1111"));
}

void SceltaTest::escAllaDomandaENo() {
    Banco b;
    b.Apri();
    Risponditore r({"Esc"});
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QVERIFY(!b.W->Finita()); // the key closed the box, not the form
    QVERIFY(!b.Disco.Esiste("/p/Appoggio"));
}

void SceltaTest::soloConLaTastiera() {
    Banco b;
    b.Disco.Metti("/p/Due.vbp", "Class=C; c.cls\r\n");
    b.Apri();
    const auto tasto = [&](Qt::Key k, Qt::KeyboardModifiers con = {}) {
        b.Attiva();
        QTest::keyClick(QApplication::focusWidget(), k, con);
    };
    QCOMPARE(QApplication::focusWidget(), b.Dir1());
    tasto(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), b.File1Leggi());
    {
        Risponditore r({"No"});
        tasto(Qt::Key_Down); // nothing is chosen yet: to the first row
        QVERIFY(r.Esaurito());
        QVERIFY(r.Viste[0].Testo.endsWith("\nDue.vbp"));
    }
    {
        Risponditore r({"Invio"}); // Yes stands first
        tasto(Qt::Key_Down);
        QVERIFY(r.Esaurito());
        QVERIFY(r.Viste[0].Testo.endsWith("\nUno.vbp"));
    }
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/c.log"));
    {
        Risponditore r; // on the last row the key moves nothing and chooses nothing
        tasto(Qt::Key_Down);
        QVERIFY(r.Esaurito());
    }
    {
        Risponditore r({"No"}); // by its first letter
        tasto(Qt::Key_D);
        QVERIFY(r.Esaurito());
        QVERIFY(r.Viste[0].Testo.endsWith("\nDue.vbp"));
    }
    {
        Risponditore r({"No"});
        tasto(Qt::Key_End);
        QVERIFY(r.Esaurito());
        QVERIFY(r.Viste[0].Testo.endsWith("\nUno.vbp"));
    }
    // Rows by keys, and a command through the menu.
    tasto(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), b.File1());
    tasto(Qt::Key_End);
    QCOMPARE(b.Selezionate(), std::vector<int>({1}));
    tasto(Qt::Key_Home);
    QCOMPARE(b.Selezionate(), std::vector<int>({0}));
    tasto(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    tasto(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(b.Selezionate(), std::vector<int>({0}));
    QTest::keyClick(b.W.get(), Qt::Key_U, Qt::AltModifier);
    auto* utility = b.Voce("mnuutility")->menu();
    QTRY_VERIFY_WITH_TIMEOUT(utility->isVisible(), Attesa);
    QTest::keyClick(utility, Qt::Key_S); // "Scrivi la struttura ..."
    QTRY_COMPARE_WITH_TIMEOUT(b.Selezionate(), std::vector<int>(), Attesa);
    // And by the mnemonic in the menu bar.
    QTest::keyClick(b.W.get(), Qt::Key_S, Qt::AltModifier);
    QTRY_COMPARE_WITH_TIMEOUT(b.Didascalia("mnuSeleziona"), QString("Seleziona tutto"), Attesa);
    QTest::keyClick(b.W.get(), Qt::Key_E, Qt::AltModifier); // the buddy of Label6
    QCOMPARE(QApplication::focusWidget(), b.File1Leggi());
    QTest::keyClick(b.W.get(), Qt::Key_D, Qt::AltModifier);
    QCOMPARE(b.Linguette()->currentIndex(), 1);
    QTest::keyClick(b.W.get(), Qt::Key_P, Qt::AltModifier);
    QCOMPARE(b.Linguette()->currentIndex(), 0);
}

void SceltaTest::invioSceglieDiNuovo() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.File1Leggi()->setFocus();
    Risponditore r({"Sì"});
    QTest::keyClick(b.File1Leggi(), Qt::Key_Return);
    QVERIFY(r.Esaurito());
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
}

void SceltaTest::clicRipetuto() {
    Banco b;
    b.Apri();
    Risponditore r({"No", "No"});
    b.CliccaProgetto(0);
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste.size(), std::size_t(2));
}

void SceltaTest::clicAccantoAiProgetti() {
    Banco b;
    b.Apri();
    Risponditore r;
    QTest::mouseClick(b.File1Leggi()->viewport(), Qt::LeftButton, {}, QPoint(20, 70));
    QTest::mouseClick(b.File1Leggi()->viewport(), Qt::RightButton, {},
                      b.File1Leggi()->visualItemRect(b.File1Leggi()->item(0)).center());
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->S().File1Leggi.ListIndex, Lungo(-1));
}

void SceltaTest::clicFinitoFuori_data() {
    QTest::addColumn<bool>("scelto");
    QTest::addColumn<QPoint>("fine");
    for (const bool scelto : {false, true}) {
        const char* dopo = scelto ? "dopo una scelta" : "prima di una scelta";
        QTest::addRow("sotto le righe, %s", dopo) << scelto << QPoint(20, 70);
        QTest::addRow("sopra, %s", dopo) << scelto << QPoint(20, -30);
        QTest::addRow("a lato, %s", dopo) << scelto << QPoint(-40, 8);
        QTest::addRow("a destra, %s", dopo) << scelto << QPoint(400, 8);
        for (const int y : {90, 120, 300}) // where rows are hidden
            QTest::addRow("%d sotto l'elenco, %s", y, dopo) << scelto << QPoint(20, y);
    }
}

// The button is pressed on a row and released outside the rows: nothing is chosen, and the mark
// goes back.
void SceltaTest::clicFinitoFuori() {
    QFETCH(bool, scelto);
    QFETCH(QPoint, fine);
    Banco b;
    b.Disco.Metti("/p/Due.vbp", "");
    if (fine.y() > 80)
        for (int i = 10; i < 50; ++i) b.Disco.Metti("/p/Z" + std::to_string(i) + ".vbp", "");
    b.Apri();
    if (scelto) b.ScegliSenzaCorsa();
    const std::string menu = b.Menu();
    Risponditore r;
    QWidget* elenco = b.File1Leggi()->viewport();
    const QPoint riga = b.File1Leggi()->visualItemRect(b.File1Leggi()->item(1)).center();
    QTest::mousePress(elenco, Qt::LeftButton, {}, riga);
    QVERIFY(b.File1Leggi()->item(1)->isSelected()); // shown while the button is down
    QTest::mouseMove(elenco, fine);
    QTest::mouseRelease(elenco, Qt::LeftButton, {}, fine);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->S().File1Leggi.ListIndex, Lungo(scelto ? 0 : -1));
    QCOMPARE(Marcati(b), scelto ? QStringList({"Due.vbp"}) : QStringList());
    QCOMPARE(b.Menu(), menu);
    if (!scelto) QCOMPARE(b.File1Leggi()->currentRow(), -1);
}

// The part of a row that the lower edge cuts off is outside too.
void SceltaTest::clicFinitoSottoIlBordo() {
    Banco b;
    for (int i = 10; i < 50; ++i) b.Disco.Metti("/p/Z" + std::to_string(i) + ".vbp", "");
    b.Apri();
    auto* lista = b.File1Leggi();
    lista->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    const int alta = lista->viewport()->height();
    QListWidgetItem* ultima = nullptr;
    for (int y = 0; y < 40 && (!ultima || lista->visualItemRect(ultima).bottom() <= alta); ++y) {
        lista->verticalScrollBar()->setValue(y);
        ultima = lista->itemAt(QPoint(20, alta - 1));
    }
    QVERIFY(ultima && lista->visualItemRect(ultima).bottom() > alta);
    Risponditore r;
    lista->setAutoScroll(false);
    QTest::mousePress(lista->viewport(), Qt::LeftButton, {}, QPoint(20, alta - 1));
    const QPoint sotto(20, lista->visualItemRect(ultima).bottom());
    QVERIFY(!lista->viewport()->rect().contains(sotto));
    QTest::mouseRelease(lista->viewport(), Qt::LeftButton, {}, sotto);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->S().File1Leggi.ListIndex, Lungo(-1));
    QCOMPARE(Marcati(b), QStringList());
}

// Only the left button chooses a project, so no other marks one.
void SceltaTest::altriBottoni() {
    for (const auto bottone : {Qt::RightButton, Qt::MiddleButton}) {
        Banco b;
        b.Disco.Metti("/p/Due.vbp", "");
        b.Apri();
        QWidget* elenco = b.File1Leggi()->viewport();
        const QPoint riga = b.File1Leggi()->visualItemRect(b.File1Leggi()->item(1)).center();
        QTest::mouseClick(elenco, bottone, {}, riga);
        QCOMPARE(Marcati(b), QStringList());
        b.ScegliSenzaCorsa();
        QTest::mouseClick(elenco, bottone, {}, riga);
        QTest::mouseDClick(elenco, bottone, {}, riga);
        QCOMPARE(Marcati(b), QStringList({"Due.vbp"}));
        QCOMPARE(b.W->S().File1Leggi.ListIndex, Lungo(0));
    }
}

// What was stored last decides, not the tick that shows.
void SceltaTest::check2SpuntataENonConservata() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "KO\r\nKO\r\n\r\nOK\r\n");
    b.Apri();
    b.Scheda(1);
    QVERIFY(b.Casella("Check2")->isChecked());
    b.Casella("Check2")->setFocus();
    QTest::keyClick(b.Casella("Check2"), Qt::Key_Space);
    QVERIFY(!b.Casella("Check2")->isChecked());
    QVERIFY(b.Casella("Check2")->hasFocus());
    {
        Risponditore r; // "OK" is stored: no question
        b.C<QPushButton>("Command1")->click();
        QVERIFY(r.Esaurito());
    }
    QVERIFY(b.Disco.Esiste("/p/Appoggio/OK.LOG"));

    Banco c;
    c.Apri();
    c.Scheda(1);
    QTest::mouseClick(c.Casella("Check2"), Qt::LeftButton, {}, QPoint(6, 13));
    QVERIFY(c.Casella("Check2")->isChecked());
    QVERIFY(c.Casella("Check2")->hasFocus());
    Risponditore r({"No"});
    c.C<QPushButton>("Command1")->click();
    QVERIFY(r.Esaurito());
    QVERIFY(!c.Disco.Esiste("/p/Appoggio"));
}

void SceltaTest::check2Conservata() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    QTest::mouseClick(b.Casella("Check2"), Qt::LeftButton, {}, QPoint(6, 13));
    b.Scheda(0); // the focus goes to the tabs
    QCOMPARE(b.Ini().substr(0, 8), std::string("KO\r\nKO\r\n"));
    QVERIFY(b.Ini().ends_with("\r\nOK\r\n"));
    Risponditore r;
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
}

void SceltaTest::command1Nascosto() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    Risponditore r({"Sì"});
    b.C<QPushButton>("Command1")->click();
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Titolo, QString("Identazione"));
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QCOMPARE(b.Selezionate(), std::vector<int>());
}

void SceltaTest::progettoVuoto() {
    Banco b;
    b.Disco.Metti("/p/Uno.vbp", "");
    b.Apri();
    Risponditore r({"Sì"});
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.Righe(b.File1()), QStringList());
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    QVERIFY(b.Disco.Esiste("/p/Appoggio/OK.LOG"));
    QVERIFY(b.Disco.Esiste("/p/Appoggio/Uno.vbp"));
    QCOMPARE(b.Menu(), std::string("1011"));
}

// The project was deleted while the list showed it: a final error.
void SceltaTest::progettoCheManca() {
    Banco b;
    b.Apri();
    b.Disco.Cancella("/p/Uno.vbp");
    Risponditore r({"OK"});
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QCOMPARE(r.Viste[0].Titolo, QString("Morvella"));
    QVERIFY(r.Viste[0].Testo.contains("53"));
    QVERIFY(r.Viste[0].Testo.contains("File non trovato."));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
    QVERIFY(!b.W->isVisible());
}

QTEST_MAIN(SceltaTest)
#include "scelta_test.moc"

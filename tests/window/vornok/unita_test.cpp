// SPDX-License-Identifier: MIT
//
// The list of drives: changes of drive, and drives that do not answer.
#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

class UnitaTest : public QObject {
    Q_OBJECT

  private slots:
    void unita();
    void unitaConIlTasto();
    void unitaStessa();
    void unitaConLaRotella();
    void unitaCheNonRisponde();
    void unitaCNonRisponde();
    void unitaCNonRispondeDietroUnAltra();
    void unitaCheArriva();
    void unitaDellaDirectory();
};

void UnitaTest::unita() {
    Banco b;
    b.Disco.Metti("/media/penna/Tre.vbp", "");
    b.Disco.Unita["D:"] = "/media/penna";
    b.Apri();
    QCOMPARE(b.Drive1()->count(), 2);
    QVERIFY(b.Drive1()->itemText(0).startsWith("C:"));
    QVERIFY(b.Drive1()->itemText(0).contains("/"));
    QVERIFY(b.Drive1()->itemText(1).startsWith("D:"));
    QVERIFY(b.Drive1()->itemText(1).contains("/media/penna"));
    QCOMPARE(b.Drive1()->currentIndex(), 0);
    b.ScegliSenzaCorsa();

    // By mouse, in the opened list.
    b.Drive1()->showPopup();
    auto* lista = b.Drive1()->view();
    QTRY_VERIFY_WITH_TIMEOUT(lista->isVisible(), Attesa);
    QTest::mouseMove(lista->viewport(), lista->visualRect(lista->model()->index(1, 0)).center());
    // A list that has just opened ignores clicks for a moment, lest the click that opened it choose
    // too.
    for (QDeadlineTimer fine(Attesa); lista->isVisible() && !fine.hasExpired();) {
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                          lista->visualRect(lista->model()->index(1, 0)).center());
        QCoreApplication::processEvents();
    }
    QCOMPARE(b.Drive1()->currentIndex(), 1);
    QCOMPARE(b.W->S().Drive1Drive, Testo("D:"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\media\\penna"));
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "media", "penna"}));
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"Tre.vbp"}));
    QCOMPARE(b.Righe(b.File1()), QStringList());
    QCOMPARE(b.Disco.DirectoryCorrente(), std::string("/media/penna"));
    QCOMPARE(b.Menu(), std::string("0001"));
}

void UnitaTest::unitaConIlTasto() {
    Banco b;
    b.Disco.FaiDirectory("/d");
    b.Disco.Unita["D:"] = "/d";
    b.Apri();
    b.Drive1()->setFocus();
    QTest::keyClick(b.Drive1(), Qt::Key_D);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\d"));
    QTest::keyClick(b.Drive1(), Qt::Key_Up);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\"));
    QCOMPARE(b.Menu(), std::string("0001"));
}

void UnitaTest::unitaStessa() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Drive1()->setFocus();
    QTest::keyClick(b.Drive1(), Qt::Key_Down); // there is only one
    QTest::keyClick(b.Drive1(), Qt::Key_C);
    QCOMPARE(b.Menu(), std::string("1111"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
}

void UnitaTest::unitaConLaRotella() {
    Banco b;
    b.Disco.FaiDirectory("/d");
    b.Disco.Unita["D:"] = "/d";
    b.Apri();
    b.Drive1()->setFocus();
    QWheelEvent giro(QPointF(10, 10), b.Drive1()->mapToGlobal(QPointF(10, 10)), {}, QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(b.Drive1(), &giro);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p")); // the wheel does not change the drive
}

void UnitaTest::unitaCheNonRisponde() {
    Banco b;
    b.Disco.Unita["D:"] = "/vuoto"; // an empty drive
    b.Apri();
    b.ScegliSenzaCorsa();
    b.W->S().FileSorgente = "x";
    b.Drive1()->setFocus();
    Risponditore r({"OK"});
    QTest::keyClick(b.Drive1(), Qt::Key_Down);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->Beeps, 1);
    QCOMPARE(r.Viste[0].Testo, QString("Verificare il Driver .. non risponde"));
    QCOMPARE(r.Viste[0].Titolo, QString("Driver Vuoto (?)"));
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QCOMPARE(r.Viste[0].Bottoni, QStringList({"OK"}));
    // Back on "C:", which is one more change.
    QCOMPARE(b.W->S().Drive1Drive, Testo("C:"));
    QVERIFY(b.Drive1()->currentText().startsWith("C:"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\"));
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p", "prog"}));
    QCOMPARE(b.Righe(b.File1()), QStringList());
    QCOMPARE(b.Menu(), std::string("0001"));
    QCOMPARE(b.W->S().FileSorgente, Testo());
    QVERIFY(!b.W->Finita());
}

// From "D:" to a "C:" that does not answer: Drive1 shows "C:" already, so setting it raises no
// further event, and the sequence goes on with the old directory and its rows.
void UnitaTest::unitaCNonRisponde() {
    Banco b;
    b.Disco.Metti("/d/Due.vbp", "Form=f.frm\r\n");
    b.Disco.Unita["D:"] = "/d";
    b.Disco.Unita["C:"] = "/vuoto";
    b.Apri("/d");
    QCOMPARE(b.W->S().Drive1Drive, Testo("D:"));
    b.ScegliSenzaCorsa();
    b.Drive1()->setFocus();
    Risponditore r({"OK"});
    QTest::keyClick(b.Drive1(), Qt::Key_Up);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->Beeps, 1);
    QCOMPARE(b.W->S().Drive1Drive, Testo("C:"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\d"));
    QCOMPARE(b.Righe(b.File1()), QStringList({"f.frm"}));
    QCOMPARE(b.Menu(), std::string("0001"));
}

// An empty "E:" falls back to "C:", and that does not answer either: two bells, two boxes.
void UnitaTest::unitaCNonRispondeDietroUnAltra() {
    Banco b;
    b.Disco.FaiDirectory("/d");
    b.Disco.Unita = {{"C:", "/vuoto"}, {"D:", "/d"}, {"E:", "/vuoto"}};
    b.Apri("/d");
    b.Drive1()->setFocus();
    Risponditore r({"OK", "OK"});
    QTest::keyClick(b.Drive1(), Qt::Key_Down);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->Beeps, 2);
    QCOMPARE(b.W->S().Drive1Drive, Testo("C:"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\d"));
    QCOMPARE(b.Menu(), std::string("0001"));
}

void UnitaTest::unitaCheArriva() {
    Banco b;
    b.Apri();
    QCOMPARE(b.Drive1()->count(), 1);
    b.Disco.FaiDirectory("/media/penna");
    b.Disco.Unita["D:"] = "/media/penna";
    b.Drive1()->showPopup();
    QCOMPARE(b.Drive1()->count(), 2);
    QCOMPARE(b.Drive1()->currentIndex(), 0);
    b.Drive1()->hidePopup();
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
    QCOMPARE(b.Menu(), std::string("1011"));
}

// Entering a volume shows its drive without raising Drive1_Change.
void UnitaTest::unitaDellaDirectory() {
    Banco b;
    b.Disco.FaiDirectory("/p/disco/dentro");
    b.Disco.Unita["D:"] = "/p/disco";
    b.Apri();
    QVERIFY(b.Drive1()->currentText().startsWith("C:"));
    b.DoppioClic(b.Dir1(), 2);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p\\disco"));
    QVERIFY(b.Drive1()->currentText().startsWith("D:"));
    b.Dir1()->setFocus();
    QTest::keyClick(b.Dir1(), Qt::Key_Backspace);
    QVERIFY(b.Drive1()->currentText().startsWith("C:"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
}

QTEST_MAIN(UnitaTest)
#include "unita_test.moc"

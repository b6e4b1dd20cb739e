// SPDX-License-Identifier: MIT
//
// The boxes, their icons and buttons; the ways out of the program and its farewell.
#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

class UscitaTest : public QObject {
    Q_OBJECT

  private slots:
    void iconeEBottoni_data();
    void iconeEBottoni();
    void soloUscita_data();
    void soloUscita();
};

void UscitaTest::iconeEBottoni_data() {
    QTest::addColumn<int>("flag");
    QTest::addColumn<int>("icona");
    QTest::addColumn<QString>("premi");
    QTest::addColumn<int>("risposta");
    QTest::addColumn<QStringList>("bottoni");
    const QStringList ok{"OK"}, siNo{"Sì", "No"};
    QTest::newRow("16") << 16 << int(QMessageBox::Critical) << "OK" << 1 << ok;
    QTest::newRow("32") << 32 << int(QMessageBox::Question) << "OK" << 1 << ok;
    QTest::newRow("36 si") << 36 << int(QMessageBox::Question) << "Sì" << 6 << siNo;
    QTest::newRow("36 no") << 36 << int(QMessageBox::Question) << "No" << 7 << siNo;
    QTest::newRow("36 esc") << 36 << int(QMessageBox::Question) << "Esc" << 7 << siNo;
    QTest::newRow("64") << 64 << int(QMessageBox::Information) << "OK" << 1 << ok;
    QTest::newRow("64 esc") << 64 << int(QMessageBox::Information) << "Esc" << 1 << ok;
    QTest::newRow("68 si") << 68 << int(QMessageBox::Information) << "Sì" << 6 << siNo;
    QTest::newRow("68 no") << 68 << int(QMessageBox::Information) << "No" << 7 << siNo;
    QTest::newRow("68 invio") << 68 << int(QMessageBox::Information) << "Invio" << 6 << siNo;
}

void UscitaTest::iconeEBottoni() {
    QFETCH(int, flag);
    QFETCH(int, icona);
    QFETCH(QString, premi);
    QFETCH(int, risposta);
    QFETCH(QStringList, bottoni);
    Banco b;
    b.Apri();
    Risponditore r({premi, premi});
    // A text is plain, whatever it looks like.
    QCOMPARE(b.W->MsgBox("<b>&a\r\xE8", flag, "Tit\xE0"), risposta);
    QCOMPARE(b.W->MsgBox("x", flag, ""), risposta);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Testo, QString("<b>&a\nè"));
    QCOMPARE(r.Viste[0].Titolo, QString("Tità"));
    QCOMPARE(int(r.Viste[0].Icona), icona);
    QCOMPARE(r.Viste[0].Bottoni, bottoni);
    QCOMPARE(r.Viste[1].Titolo, QString("Morvella"));
    QVERIFY(!b.W->Finita());
}

void UscitaTest::soloUscita_data() {
    QTest::addColumn<QString>("come");
    QTest::addColumn<int>("scheda");
    QTest::addColumn<bool>("conShift");
    for (const bool conShift : {false, true}) {
        const char* tasto = conShift ? "Shift+Esc" : "Esc";
        for (const char* nome : {"SSTab1.Linguette", "Drive1", "Dir1", "File1Leggi", "File1"})
            QTest::addRow("%s, %s", nome, tasto) << nome << 0 << conShift;
        for (const char* nome : {"TogliCommenti", "Check1", "Text1", "Check2", "Command2"})
            QTest::addRow("%s, %s", nome, tasto) << nome << 1 << conShift;
    }
    for (const char* nome : {"mnuend", "chiusura", "tastiera"}) QTest::newRow(nome) << nome << 1 << false;
}

// However the program ends, the farewell comes once and nothing is stored.
void UscitaTest::soloUscita() {
    QFETCH(QString, come);
    QFETCH(int, scheda);
    QFETCH(bool, conShift);
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Scheda(scheda);
    if (scheda == 1) {
        b.Casella("Check2")->setFocus();
        QTest::keyClick(b.Casella("Check2"), Qt::Key_Space); // ticked, not stored
    }
    auto* controllo = b.W->findChild<QWidget*>(come);
    if (controllo) {
        controllo->setFocus();
        QCOMPARE(QApplication::focusWidget(), controllo);
    }
    const auto prima = b.Disco.TuttiIFile();
    Risponditore r({"OK"});
    if (come == "mnuend")
        b.Comando("mnuend");
    else if (come == "chiusura")
        b.W->close();
    else if (come == "tastiera")
        QTest::keyClick(b.W.get(), Qt::Key_C, Qt::AltModifier);
    else
        QTest::keyClick(controllo, Qt::Key_Escape, conShift ? Qt::ShiftModifier : Qt::NoModifier);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste.size(), std::size_t(1));
    QCOMPARE(r.Viste[0].Titolo, QString("Bye bye"));
    QCOMPARE(r.Viste[0].Testo, QString("Procedura di Dario Fenzoni\nE-mail: vorn@morvella.example"));
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Information);
    QCOMPARE(r.Viste[0].Bottoni, QStringList({"OK"}));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 0);
    QVERIFY(!b.W->isVisible());
    b.W.reset();
    QVERIFY(b.Disco.TuttiIFile() == prima);
}

QTEST_MAIN(UscitaTest)
#include "uscita_test.moc"

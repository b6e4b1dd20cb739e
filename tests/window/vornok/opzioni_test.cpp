// SPDX-License-Identifier: MIT
//
// The options on the second card: shown, changed, stored. They are stored when one of their
// controls loses the focus to another control of the form, and at no other time.
#include <QClipboard>
#include <QMenu>

#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

namespace {

const std::string Barra = "'*************************************************\r\n";
const std::string Vuota = "'*                                               \r\n";
const std::string Modello = Barra + "'* Nome Progetto                                 *\r\n" + Barra +
                            "'* Autore                                        *\r\n" + Barra +
                            "'* Data Creazione:                               *\r\n" + Barra +
                            "'* Commenti                                      \r\n" + Vuota + Vuota + Vuota +
                            Vuota + Vuota + Vuota + Barra;
const std::string Iniziale = "KO\r\nKO\r\n\r\nKO\r\n";

// The text that the box shows, as it would be stored.
std::string Mostrato(Banco& b) { return CrLf(b.Text1()->toPlainText().toStdString()); }

void Spunta(Banco& b, const char* nome) {
    QTest::mouseClick(b.Casella(nome), Qt::LeftButton, {}, QPoint(6, b.Casella(nome)->height() / 2));
}

} // namespace

class OpzioniTest : public QObject {
    Q_OBJECT

  private slots:
    void primoAvvio();
    void avvioConFile();
    void avvioConCheck1();
    void fileMinuscolo();
    void fileVuoto();
    void fileCorto_data();
    void fileCorto();
    void directoryChiusa();
    void fuoco_data();
    void fuoco();
    void fuocoPreso_data();
    void fuocoPreso();
    void fuocoSchedaConTasto();
    void check1PortaAText1();
    void check1SpentoTogliIlTab();
    void togliCommentiSoltanto();
    void ripristina();
    void ripristinaDallaTastiera();
    void soliBlank();
    void rigaOk();
    void righeVuotePerseAlRiavvio();
    void opzioniNellaCorsa();
};

void OpzioniTest::primoAvvio() {
    Banco b;
    b.Apri();
    QCOMPARE(b.Ini(), Iniziale);
    QCOMPARE(Mostrato(b), Modello); // shown, but not stored
    for (const char* nome : {"TogliCommenti", "Check1", "Check2"}) QVERIFY(!b.Casella(nome)->isChecked());

    // The program ends, and the template is gone.
    b.Apri();
    QCOMPARE(Mostrato(b), std::string());
    QCOMPARE(b.Ini(), Iniziale);
}

void OpzioniTest::avvioConFile() {
    Banco b;
    const std::string file = "OK\r\nKO\r\n'uno\r\n\r\n'due\r\n\r\nOK\r\nresto\r\n";
    b.Disco.Metti("/prog/Default.ini", file);
    b.Apri();
    QVERIFY(b.Casella("TogliCommenti")->isChecked());
    QVERIFY(!b.Casella("Check1")->isChecked());
    QVERIFY(b.Casella("Check2")->isChecked());
    QCOMPARE(Mostrato(b), std::string("'uno\r\n'due\r\n"));
    QCOMPARE(b.Ini(), file); // reading stores nothing
}

// Ticking leads to Text1, but not while the other card is in front.
void OpzioniTest::avvioConCheck1() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "KO\r\nOK\r\n'a\r\nKO\r\n");
    b.Apri();
    QVERIFY(b.Casella("Check1")->isChecked());
    QCOMPARE(b.Linguette()->currentIndex(), 0);
    QVERIFY(!b.Text1()->isVisible());
    QCOMPARE(QApplication::focusWidget(), b.Dir1());
    QVERIFY(b.Text1()->focusPolicy() & Qt::TabFocus);
}

void OpzioniTest::fileMinuscolo() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "ok\r\nok\r\nKO\r\n");
    b.Apri();
    for (const char* nome : {"TogliCommenti", "Check1", "Check2"}) QVERIFY(!b.Casella(nome)->isChecked());
    QCOMPARE(Mostrato(b), std::string());
}

void OpzioniTest::fileVuoto() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "");
    b.Apri();
    QVERIFY(!b.W->Finita());
    QCOMPARE(Mostrato(b), std::string());
    QCOMPARE(b.Ini(), std::string());
}

void OpzioniTest::fileCorto_data() {
    QTest::addColumn<QString>("file");
    QTest::newRow("una riga") << "KO\r\n";
    QTest::newRow("senza fine") << "KO\r\nKO\r\n'testo\r\n";
    QTest::newRow("fine minuscola") << "KO\r\nKO\r\n\r\nko\r\n";
}

void OpzioniTest::fileCorto() {
    QFETCH(QString, file);
    Banco b;
    b.Disco.Metti("/prog/Default.ini", file.toStdString());
    Risponditore r({"OK"});
    b.Apri();
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QCOMPARE(r.Viste[0].Titolo, QString("Morvella"));
    QVERIFY(r.Viste[0].Testo.contains("62"));
    QVERIFY(r.Viste[0].Testo.contains("Lettura oltre la fine del file."));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
    QVERIFY(!b.W->isVisible());
    QCOMPARE(b.Ini(), file.toStdString());
}

void OpzioniTest::directoryChiusa() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    Spunta(b, "TogliCommenti");
    b.Disco.Fallisci("ApriScrittura", "Default.ini", 75);
    Risponditore r({"OK"});
    QTest::keyClick(b.Casella("TogliCommenti"), Qt::Key_Tab);
    QVERIFY(r.Esaurito());
    QVERIFY(r.Viste[0].Testo.contains("75"));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
}

void OpzioniTest::fuoco_data() {
    QTest::addColumn<QString>("da");
    QTest::addColumn<QString>("come");
    for (const char* da : {"TogliCommenti", "Check1", "Check2", "Text1"})
        for (const char* come : {"tab", "indietro", "clic", "scheda", "lettera"})
            QTest::addRow("%s %s", da, come) << da << come;
}

// Each of the four controls and each way out of it: what the controls show then is stored.
void OpzioniTest::fuoco() {
    QFETCH(QString, da);
    QFETCH(QString, come);
    Banco b;
    b.Apri();
    b.Scheda(1);
    auto* controllo = b.W->findChild<QWidget*>(da);
    QTest::mouseClick(da == "Text1" ? b.Text1()->viewport() : controllo, Qt::LeftButton, {}, QPoint(6, 10));
    if (da == "Check1") { // the focus goes on to Text1, which is a loss by itself
        QCOMPARE(QApplication::focusWidget(), b.Text1());
        QCOMPARE(b.Ini(), "KO\r\nOK\r\n" + Modello + "\r\nKO\r\n");
        b.Disco.Metti("/prog/Default.ini", "");
        controllo->setFocus();
        QCOMPARE(b.Ini(), "KO\r\nOK\r\n" + Modello + "\r\nKO\r\n"); // Text1's own loss
        b.Disco.Metti("/prog/Default.ini", Iniziale);
    }
    QCOMPARE(QApplication::focusWidget(), controllo);
    if (da == "Text1") {
        b.Text1()->selectAll();
        QTest::keyClicks(controllo, "'a");
        QTest::keyClick(controllo, Qt::Key_Return);
        QTest::keyClicks(controllo, "'b");
    }
    QCOMPARE(b.Ini(), Iniziale); // not yet
    if (come == "tab") QTest::keyClick(controllo, Qt::Key_Tab);
    if (come == "indietro") QTest::keyClick(controllo, Qt::Key_Backtab);
    if (come == "clic") QTest::mouseClick(b.C("Command2"), Qt::LeftButton);
    if (come == "scheda") b.Scheda(0);
    if (come == "lettera") QTest::keyClick(b.W.get(), Qt::Key_P, Qt::AltModifier);
    QVERIFY(QApplication::focusWidget() != controllo);
    if (come == "clic") { // stored before the defaults were set
        QCOMPARE(b.Ini(), Iniziale);
        QCOMPARE(Mostrato(b), Modello);
        QVERIFY(!b.Casella("Check2")->isChecked());
        return;
    }
    const auto sigla = [&](const char* nome) {
        return da == nome ? std::string("OK\r\n") : std::string("KO\r\n");
    };
    QCOMPARE(b.Ini(), sigla("TogliCommenti") + sigla("Check1") +
                          (da == "Text1" ? std::string("'a\r\n'b\r\n") : Modello + "\r\n") + sigla("Check2"));
    QCOMPARE(b.W->S().OpzSenzaConferma, da == "Check2");
    QCOMPARE(b.W->S().OpzTogliCommenti, da == "TogliCommenti");
}

void OpzioniTest::fuocoPreso_data() {
    QTest::addColumn<QString>("come");
    for (const char* come : {"menu col mouse", "menu col tasto", "barra", "box", "altra finestra",
                             "menu contestuale", "niente", "nascosta"})
        QTest::newRow(come) << come;
}

// Whatever only borrows the focus gives it back, and nothing is stored.
void OpzioniTest::fuocoPreso() {
    QFETCH(QString, come);
    for (const char* da : {"Check2", "Text1"}) {
        Banco b;
        b.Apri();
        b.Scheda(1);
        auto* controllo = b.C(da);
        controllo->setFocus();
        if (da == QString("Check2"))
            QTest::keyClick(controllo, Qt::Key_Space);
        else
            QTest::keyClicks(controllo, "x");
        QVERIFY(controllo->hasFocus());
        if (come == "menu col mouse") {
            const QRect dove = b.W->menuBar()->actionGeometry(b.Voce("mnuutility"));
            QTest::mouseClick(b.W->menuBar(), Qt::LeftButton, {}, dove.center());
            auto* menu = b.Voce("mnuutility")->menu();
            QVERIFY(menu->isVisible());
            QTest::keyClick(menu, Qt::Key_Escape);
            QVERIFY(!menu->isVisible());
            QTest::keyClick(b.W->menuBar(), Qt::Key_Escape); // leaves the menu bar, not the program
        } else if (come == "menu col tasto") {
            QTest::keyClick(b.W.get(), Qt::Key_U, Qt::AltModifier);
            auto* menu = b.Voce("mnuutility")->menu();
            QTRY_VERIFY_WITH_TIMEOUT(menu->isVisible(), Attesa);
            QTest::keyClick(menu, Qt::Key_Escape);
            QTest::keyClick(b.W->menuBar(), Qt::Key_Escape);
        } else if (come == "barra") { // a command in the menu bar itself
            const QRect dove = b.W->menuBar()->actionGeometry(b.Voce("mnuSeleziona"));
            QTest::mouseClick(b.W->menuBar(), Qt::LeftButton, {}, dove.center());
            QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
        } else if (come == "box") {
            Risponditore r({"OK"});
            b.Comando("mnuLettura");
            QVERIFY(r.Esaurito());
        } else if (come == "altra finestra") {
            QWidget altra;
            altra.show();
            QApplication::setActiveWindow(&altra);
            QVERIFY(!controllo->hasFocus());
        } else if (come == "menu contestuale") {
            QTimer chiudi;
            connect(&chiudi, &QTimer::timeout, this, [] {
                if (auto* menu = QApplication::activePopupWidget()) menu->close();
            });
            chiudi.start(1);
            QContextMenuEvent evento(QContextMenuEvent::Mouse, QPoint(5, 5),
                                     controllo->mapToGlobal(QPoint(5, 5)));
            QApplication::sendEvent(da == QString("Text1") ? b.Text1()->viewport() : controllo, &evento);
        } else if (come == "niente") { // a place without focus
            QTest::mouseClick(b.C("Label3"), Qt::LeftButton);
            QTest::mouseClick(b.W->centralWidget(), Qt::LeftButton, {}, QPoint(740, 10));
        } else {
            b.W->hide();
            b.W->show();
        }
        b.Attiva();
        QVERIFY(!b.W->Finita());
        QVERIFY2(b.Ini() == Iniziale, da);
        QVERIFY(!b.W->S().OpzSenzaConferma);
        if (come != "nascosta") QVERIFY2(controllo->hasFocus(), da);
    }
}

void OpzioniTest::fuocoSchedaConTasto() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    b.Casella("Check2")->setFocus();
    QTest::keyClick(b.Casella("Check2"), Qt::Key_Space);
    QTest::keyClick(b.W.get(), Qt::Key_P, Qt::AltModifier);
    QCOMPARE(b.Linguette()->currentIndex(), 0);
    QVERIFY(b.W->S().OpzSenzaConferma);
    QVERIFY(QApplication::focusWidget()->isVisible());
}

void OpzioniTest::check1PortaAText1() {
    for (const bool tasto : {false, true}) {
        Banco b;
        b.Apri();
        b.Scheda(1);
        QVERIFY(!(b.Text1()->focusPolicy() & Qt::TabFocus));
        b.Casella("Check1")->setFocus();
        if (tasto)
            QTest::keyClick(b.W.get(), Qt::Key_I, Qt::AltModifier);
        else
            Spunta(b, "Check1");
        QTRY_VERIFY_WITH_TIMEOUT(b.Casella("Check1")->isChecked(), Attesa);
        QCOMPARE(QApplication::focusWidget(), b.Text1());
        QVERIFY(b.Text1()->focusPolicy() & Qt::TabFocus);
        QTest::keyClicks(b.Text1(), "z");
        QVERIFY(Mostrato(b).starts_with("z'***"));
    }
}

void OpzioniTest::check1SpentoTogliIlTab() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "KO\r\nOK\r\n'a\r\nKO\r\n");
    b.Apri();
    b.Scheda(1);
    Spunta(b, "Check1");
    QVERIFY(!b.Casella("Check1")->isChecked());
    QCOMPARE(QApplication::focusWidget(), b.Casella("Check1"));
    QVERIFY(!(b.Text1()->focusPolicy() & Qt::TabFocus));
    QTest::mouseClick(b.Text1()->viewport(), Qt::LeftButton, {}, QPoint(20, 20)); // a click leads there
    QCOMPARE(QApplication::focusWidget(), b.Text1());
}

void OpzioniTest::togliCommentiSoltanto() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    Spunta(b, "TogliCommenti");
    QVERIFY(b.Casella("TogliCommenti")->hasFocus());
    QCOMPARE(b.W->S().TogliCommenti, 1); // the engines see it at once
    QVERIFY(!b.W->S().OpzTogliCommenti);
    QCOMPARE(b.Ini(), Iniziale);
}

void OpzioniTest::ripristina() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "OK\r\nOK\r\n'mio\r\nOK\r\n");
    b.Apri();
    b.Scheda(1);
    QTest::mouseClick(b.C("Command2"), Qt::LeftButton);
    QCOMPARE(b.Ini(), Iniziale);
    QCOMPARE(Mostrato(b), Modello);
    for (const char* nome : {"TogliCommenti", "Check1", "Check2"}) QVERIFY(!b.Casella(nome)->isChecked());
    QVERIFY(!(b.Text1()->focusPolicy() & Qt::TabFocus));
    QVERIFY(!b.W->S().OpzSenzaConferma);
    // The template is stored at the next loss of focus, with one line more.
    b.Casella("Check2")->setFocus();
    b.Linguette()->setFocus();
    QCOMPARE(b.Ini(), "KO\r\nKO\r\n" + Modello + "\r\nKO\r\n");
    b.Apri();
    QCOMPARE(Mostrato(b), Modello);
}

void OpzioniTest::ripristinaDallaTastiera() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "OK\r\nKO\r\n\r\nKO\r\n");
    b.Apri();
    b.Scheda(1);
    b.C("Command2")->setFocus();
    QTest::keyClick(b.C("Command2"), Qt::Key_Space);
    QCOMPARE(b.Ini(), Iniziale);
    QVERIFY(!b.Casella("TogliCommenti")->isChecked());
}

void OpzioniTest::soliBlank() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    b.Text1()->setFocus();
    b.Text1()->selectAll();
    QTest::keyClicks(b.Text1(), "   ");
    b.Linguette()->setFocus();
    QCOMPARE(b.Ini(), Iniziale);
    QCOMPARE(b.Text1()->toPlainText(), QString("   "));
}

// The line is taken for the flag of Check2, and what follows is lost.
void OpzioniTest::rigaOk() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    b.Text1()->setFocus();
    b.Text1()->selectAll();
    b.Text1()->insertPlainText("'a\nOK\n'b");
    b.Linguette()->setFocus();
    QCOMPARE(b.Ini(), std::string("KO\r\nKO\r\n'a\r\nOK\r\n'b\r\nKO\r\n"));
    b.Apri();
    QCOMPARE(Mostrato(b), std::string("'a\r\n"));
    QVERIFY(b.Casella("Check2")->isChecked());
}

void OpzioniTest::righeVuotePerseAlRiavvio() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    b.Text1()->setFocus();
    b.Text1()->selectAll();
    b.Text1()->insertPlainText("a\n\nb\n");
    b.Linguette()->setFocus();
    QCOMPARE(b.Ini(), std::string("KO\r\nKO\r\na\r\n\r\nb\r\n\r\nKO\r\n"));
    b.Apri();
    QCOMPARE(Mostrato(b), std::string("a\r\nb\r\n"));
}

// The engines use what the controls show, stored or not: a ticked box strips comments at once.
void OpzioniTest::opzioniNellaCorsa() {
    Banco b;
    b.Disco.Metti("/p/m.bas", CrLf("Attribute VB_Name = \"M\"\nOption Explicit\nSub b()\n'nota\nEnd Sub\n"));
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Comando("mnuRiordina");
    QVERIFY(b.Disco.Leggi("/p/Appoggio/m.txt").find("nota") != std::string::npos);
    b.Scheda(1);
    Spunta(b, "TogliCommenti");
    QCOMPARE(b.Ini(), Iniziale);
    b.Comando("mnuRiordina");
    QVERIFY(b.Disco.Leggi("/p/Appoggio/m.txt").find("nota") == std::string::npos);
}

QTEST_MAIN(OpzioniTest)
#include "opzioni_test.moc"

// SPDX-License-Identifier: MIT
//
// The help panel: opened, closed, and rolled by hand, a step of its timer at a time.
#include "window/vornok/banco.h"
#include "window/vornok/pannello_qt.h"

using namespace morvella;
using namespace morvella::prove;

namespace {

// With their leading and trailing blanks.
// clang-format off
const char* const Righe[] = {
    "   ", "   ", "   ", "   ", "   ", "   ", "   ", "   ", "   ", "   ", "   ", "   ", "   ", "   ",
    " Il programma elabora il tracciato di qualsiasi ",
    " procedura o Form scritto in VB5 o VB6.",
    " Non scrive interamente tutto quello che trova ma",
    " se analizza il flusso di codice di un form,",
    " scarta la parte iniziale dei controlli scritti ",
    " automaticamente da VB. dopo aver incontrato per 5 ",
    " volte la frase 'attribute' attiva la scrittura.",
    " Pertanto i Programmatori che volessero analizzare",
    " codici scritti in procedure di formato .Bas, ",
    " dovranno solamente premere il bottone BAS",
    " La procedura quindi analizza i flussi di apertura",
    " e chiusura delle IF, DO, Select Case, cicli FOR,",
    " eccetera e li visualizzer\xE0 con la procedura EDIT.COM",
    " in quanto era la sola che mostrava i caratteri Ascii",
    " in maniera soddisfaciente.",
    " Il bottone 'RIORDINA FORM' al posto di inserire il ",
    " flusso di programma indenta solamente le righe, ",
    " togliendo tutti gli spazi superflui e righe vuote.",
    " ",
    " NON scrivere UNA IF 'di seguito' per evitare di mettere",
    " una END IF, in quanto questo genera errore",
    " ",
    " NO COSI: ->   IF v = false then c = true ",
    " ",
    " Scrivi invece:    IF v = false then",
    "                      c = true",
    "                   END IF           ",
    " ",
    " Saluti a tutti ",
    "  by Dario Fenzoni - E-mail vorn@morvella.example",
};
// clang-format on

void Scatta(Banco& b, int volte = 1) {
    auto* timer = b.C<QTimer>("Timer1");
    for (int i = 0; i < volte; ++i) QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
}

bool Aperto(Banco& b) {
    const bool aperto = b.C("Frame1")->isVisible();
    // Caption, frame and timer agree.
    if (b.Didascalia("MnuHelp") != (aperto ? "Togli Help" : "Help") ||
        b.C<QTimer>("Timer1")->isActive() != aperto)
        qFatal("the panel is neither open nor closed");
    return aperto;
}

// Picture1.TextHeight("A"), in pixels.
int AltezzaA(Banco& b) { return QFontMetrics(b.C("Picture1")->font()).height(); }

} // namespace

class PannelloTest : public QObject {
    Q_OBJECT

  private slots:
    void apertoEChiusoDalMenu();
    void chiusoDaUnClic_data();
    void chiusoDaUnClic();
    void clicSenzaEvento_data();
    void clicSenzaEvento();
    void righe();
    void centrate();
    void stampate();
    void altezze();
    void passi();
    void fineEsatta();
    void velocita_data();
    void velocita();
    void riapertoDaCapo();
    void timerVero();
    void copreTutto();
    void menuDietro();
    void corsaDietro();
    void escFinisce();
};

void PannelloTest::apertoEChiusoDalMenu() {
    Banco b;
    b.Apri();
    QVERIFY(!Aperto(b));
    for (int i = 0; i < 3; ++i) {
        b.Comando("MnuHelp");
        QVERIFY(Aperto(b));
        QCOMPARE(b.W->Help().Picture2Top, Lungo(0));
        QCOMPARE(b.W->Help().Stampate.size(), std::size_t(44));
        Scatta(b, 5);
        b.Comando("MnuHelp");
        QVERIFY(!Aperto(b));
        QCOMPARE(b.W->Help().Picture2Top, Lungo(-50)); // stays as it is
    }
}

void PannelloTest::chiusoDaUnClic_data() {
    QTest::addColumn<QString>("dove");
    QTest::addColumn<QPoint>("punto");
    QTest::newRow("cornice") << "Frame1" << QPoint(10, 250);
    QTest::newRow("sfondo") << "Picture1" << QPoint(20, 20);
    QTest::newRow("testo") << "Picture2" << QPoint(100, 100);
}

void PannelloTest::chiusoDaUnClic() {
    QFETCH(QString, dove);
    QFETCH(QPoint, punto);
    Banco b;
    b.Apri();
    for (int i = 0; i < 2; ++i) {
        b.Comando("MnuHelp");
        QVERIFY(Aperto(b));
        // The innermost control at that place.
        auto* controllo = b.W->findChild<QWidget*>(dove);
        const QPoint qui = controllo->mapTo(b.W.get(), punto);
        QCOMPARE(b.W->childAt(qui), controllo);
        QTest::mouseClick(controllo, Qt::LeftButton, {}, punto);
        QVERIFY(!Aperto(b));
    }
}

void PannelloTest::clicSenzaEvento_data() {
    QTest::addColumn<QString>("dove");
    QTest::addColumn<QPoint>("punto");
    QTest::newRow("accanto al testo, a sinistra") << "Picture3" << QPoint(8, 100);
    QTest::newRow("accanto al testo, a destra") << "Picture3" << QPoint(400, 100);
    QTest::newRow("titolo") << "Label1(1)" << QPoint(200, 20);
    QTest::newRow("ombra") << "Label1(0)" << QPoint(402, 56);
    QTest::newRow("filo") << "Label4" << QPoint(40, 1);
}

void PannelloTest::clicSenzaEvento() {
    QFETCH(QString, dove);
    QFETCH(QPoint, punto);
    Banco b;
    b.Apri();
    b.Comando("MnuHelp");
    auto* controllo = b.W->findChild<QWidget*>(dove);
    QCOMPARE(b.W->childAt(controllo->mapTo(b.W.get(), punto)), controllo);
    QTest::mouseClick(controllo, Qt::LeftButton, {}, punto);
    QVERIFY(Aperto(b));
}

void PannelloTest::righe() {
    QCOMPARE(std::size(Righe), std::size_t(44));
    Banco b;
    b.Apri();
    b.Comando("MnuHelp");
    const std::vector<Vista>& stampate = b.W->Help().Stampate;
    QCOMPARE(stampate.size(), std::size_t(44));
    for (std::size_t i = 0; i < 44; ++i) QCOMPARE(Testo(stampate[i]), Testo(Righe[i]));
}

// (ScaleWidth - TextWidth) / 2, and down by one line of text each, blank ones too.
void PannelloTest::centrate() {
    QCOMPARE(Centrato(100, 40), 30.0);
    QCOMPARE(Centrato(100, 41), 29.5);
    QCOMPARE(Centrato(100, 120), -10.0);
    Banco b;
    b.Apri();
    b.Comando("MnuHelp");
    auto* testo = b.C<TestoRotolato>("Picture2");
    const QFontMetricsF misure(testo->font());
    for (int i = 0; i < 44; ++i) {
        const double larga = misure.horizontalAdvance(QString::fromLatin1(Righe[i]));
        QCOMPARE(testo->Punto(i).x(), (379 - larga) / 2); // 5685 twips
        QCOMPARE(testo->Punto(i).y(), i * misure.height());
    }
    // Blanks count: line 40 has leading ones only, so it is right of the middle.
    const double testo40 = testo->Punto(39).x() + misure.horizontalAdvance(QString(22, ' '));
    QVERIFY(testo40 + misure.horizontalAdvance("c = true") / 2 > 379 / 2.0 + 20);
}

// The pixels: line 20, with a blank at either end, is white and centred.
void PannelloTest::stampate() {
    Banco b;
    b.Apri();
    b.Comando("MnuHelp");
    auto* testo = b.C<TestoRotolato>("Picture2");
    const QFontMetricsF misure(testo->font());
    const auto inchiostro = [&](int riga) {
        // Without its edges, where the neighbours reach in.
        const QRect linea(0, qRound(riga * misure.height()) + 3, testo->width(), qRound(misure.height()) - 6);
        const QImage qui = testo->grab(linea).toImage();
        QRect dove;
        for (int y = 0; y < qui.height(); ++y)
            for (int x = 0; x < qui.width(); ++x)
                if (qui.pixelColor(x, y).red() > 128) dove |= QRect(x, y, 1, 1);
        return dove;
    };
    const QRect venti = inchiostro(19);
    QVERIFY(venti.width() > 250);
    QVERIFY2(qAbs(venti.left() + venti.right() - 378) <= 6,
             qPrintable(QString("%1 %2").arg(venti.left()).arg(venti.right())));
    QVERIFY(inchiostro(32).isEmpty());  // a blank line is a line
    QVERIFY(!inchiostro(43).isEmpty()); // the last one
    QVERIFY(inchiostro(45).isEmpty());
    // Exactly white, and otherwise only blends of white and the background.
    const QRect linea(0, qRound(19 * misure.height()), testo->width(), qRound(misure.height()));
    const QImage riga = testo->grab(linea).toImage();
    int bianchi = 0;
    for (int y = 0; y < riga.height(); ++y)
        for (int x = 0; x < riga.width(); ++x) {
            const QColor qui = riga.pixelColor(x, y);
            bianchi += qui == QColor(255, 255, 255);
            QCOMPARE(qui.red(), qui.green());
            QVERIFY(qAbs(qui.blue() - (192 + qui.red() * 63 / 255)) <= 2);
        }
    QVERIFY(bianchi > 50);
    // The background of the picture box.
    const QImage fondo = testo->grab(QRect(0, 600, testo->width(), 1)).toImage();
    QCOMPARE(fondo.pixelColor(0, 0), QColor(0, 0, 192));
}

// 800 lines: in twips before the timer's first tick, and in pixels from then on.
void PannelloTest::altezze() {
    Banco b;
    b.Apri();
    const int a = AltezzaA(b);
    const auto alta = [&] { return b.C("Picture2")->height(); };
    QCOMPARE(alta(), 9255 / 15);
    b.Comando("MnuHelp");
    QCOMPARE(b.W->Help().Picture2Height, Lungo(a) * 15 * 800);
    QCOMPARE(alta(), a * 800);
    b.Comando("MnuHelp");
    b.Comando("MnuHelp"); // no tick in between: still twips
    QCOMPARE(b.W->Help().Picture2Height, Lungo(a) * 15 * 800);
    Scatta(b);
    QCOMPARE(alta(), a * 800); // moves nothing by itself
    for (int i = 0; i < 2; ++i) {
        b.Comando("MnuHelp");
        b.Comando("MnuHelp");
        QCOMPARE(b.W->Help().Picture2Height, Lungo(a) * 800);
        QCOMPARE(alta(), a * 800 / 15);
    }
}

void PannelloTest::passi() {
    Banco b;
    b.Apri();
    b.Comando("MnuHelp");
    QCOMPARE(b.C("Picture2")->pos(), QPoint(255 / 15, 0));
    Scatta(b);
    QCOMPARE(b.W->Help().Picture2Top, Lungo(-10));
    Scatta(b, 2);
    QCOMPARE(b.W->Help().Picture2Top, Lungo(-30));
    QCOMPARE(b.C("Picture2")->y(), -2);
    Scatta(b, 297);
    QCOMPARE(b.W->Help().Picture2Top, Lungo(-3000));
    QCOMPARE(b.C("Picture2")->y(), -200);
    QCOMPARE(b.C("Picture2")->x(), 255 / 15);
    QCOMPARE(b.C("Picture3")->pos(), QPoint(1860 / 15, 570 / 15));
}

// -7900 is the end: 790 steps, and the next one is the top.
void PannelloTest::fineEsatta() {
    Banco b;
    b.Apri();
    b.Comando("MnuHelp");
    for (int giro = 0; giro < 2; ++giro) {
        Scatta(b, 789);
        QCOMPARE(b.W->Help().Picture2Top, Lungo(-7890));
        Scatta(b);
        QCOMPARE(b.W->Help().Picture2Top, Lungo(-7900));
        Scatta(b);
        QCOMPARE(b.W->Help().Picture2Top, Lungo(0));
        QCOMPARE(b.C("Picture2")->y(), 0);
    }
    // The restart refills nothing: the height stays.
    QCOMPARE(b.C("Picture2")->height(), AltezzaA(b) * 800);
    b.W->Help().Picture2Top = -7899;
    Scatta(b);
    QCOMPARE(b.W->Help().Picture2Top, Lungo(-7909));
    Scatta(b);
    QCOMPARE(b.W->Help().Picture2Top, Lungo(0));
}

void PannelloTest::velocita_data() {
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("dopoTre");
    QTest::newRow("1") << "1" << -30;
    QTest::newRow("2") << "2" << -60;
    QTest::newRow("lettere") << "veloce" << 0;
    QTest::newRow("vuota") << "" << 0;
    QTest::newRow("numero e lettere") << "3x" << -90;
}

void PannelloTest::velocita() {
    QFETCH(QString, tag);
    QFETCH(int, dopoTre);
    Banco b;
    b.Apri();
    b.W->Help().Timer1Tag = tag.toStdString();
    b.Comando("MnuHelp");
    Scatta(b, 3);
    QCOMPARE(b.W->Help().Picture2Top, Lungo(dopoTre));
}

void PannelloTest::riapertoDaCapo() {
    Banco b;
    b.Apri();
    for (int i = 0; i < 3; ++i) {
        b.Comando("MnuHelp");
        QCOMPARE(b.W->Help().Picture2Top, Lungo(0));
        QCOMPARE(b.C("Picture2")->y(), 0);
        QVERIFY(b.C("Picture2")->isVisible());
        QCOMPARE(Testo(b.W->Help().Stampate[43]), Testo(Righe[43]));
        Scatta(b, 100);
        QTest::mouseClick(b.C("Picture1"), Qt::LeftButton, {}, QPoint(20, 20));
    }
}

void PannelloTest::timerVero() {
    Banco b;
    b.Apri();
    b.Comando("MnuHelp");
    QTRY_VERIFY_WITH_TIMEOUT(b.W->Help().Picture2Top <= -30, Attesa);
    QCOMPARE(b.W->Help().Picture2Top % 10, Lungo(0));
    b.Comando("MnuHelp");
    QVERIFY(!b.C<QTimer>("Timer1")->isActive());
}

// The panel covers the form except two pixels at the left.
void PannelloTest::copreTutto() {
    Banco b;
    b.Apri();
    b.Comando("MnuHelp");
    QWidget* frame = b.C("Frame1");
    for (int x = 2; x < 747; x += 5)
        for (int y = 0; y < 500; y += 5) {
            QWidget* qui = b.W->centralWidget()->childAt(x, y);
            QVERIFY(qui && (qui == frame || frame->isAncestorOf(qui)));
        }
}

void PannelloTest::menuDietro() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Comando("MnuHelp");
    const QRect dove = b.W->menuBar()->actionGeometry(b.Voce("mnuSeleziona"));
    QTest::mouseClick(b.W->menuBar(), Qt::LeftButton, {}, dove.center());
    QCOMPARE(b.Selezionate(), std::vector<int>());
    QVERIFY(Aperto(b));
    QTest::mouseClick(b.W->menuBar(), Qt::LeftButton, {},
                      b.W->menuBar()->actionGeometry(b.Voce("MnuHelp")).center());
    QVERIFY(!Aperto(b));
}

// An engine runs while the panel is open, and its text does not move although the timer is due:
// nothing yields in a run.
void PannelloTest::corsaDietro() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Comando("MnuHelp");
    Scatta(b, 3);
    b.C<QTimer>("Timer1")->setInterval(0);
    b.Disco.PrimaDiLeggere = [&](const std::string&) { QCOMPARE(b.W->Help().Picture2Top, Lungo(-30)); };
    b.Comando("mnuRiordina");
    b.Comando("mnuvorn");
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QVERIFY(Aperto(b));
    QCOMPARE(b.W->Help().Picture2Top, Lungo(-30));
}

void PannelloTest::escFinisce() {
    Banco b;
    b.Apri();
    b.Comando("MnuHelp");
    Risponditore r({"OK"});
    QTest::keyClick(b.W.get(), Qt::Key_Escape);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Titolo, QString("Bye bye"));
    QVERIFY(b.W->Finita());
    QVERIFY(!b.C<QTimer>("Timer1")->isActive());
}

QTEST_MAIN(PannelloTest)
#include "pannello_test.moc"

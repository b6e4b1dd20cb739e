// SPDX-License-Identifier: MIT
//
// What users of the keyboard and of a screen reader need: the order of the TAB key, names, mnemonics,
// contrast.
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <cmath>

#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

namespace {

const char* const Fuocabili[] = {"SSTab1.Linguette", "Drive1", "Dir1",  "File1Leggi", "File1",
                                 "TogliCommenti",    "Check1", "Text1", "Check2",     "Command2"};

double Luce(const QColor& c) {
    const auto canale = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * canale(c.redF()) + 0.7152 * canale(c.greenF()) + 0.0722 * canale(c.blueF());
}

// The contrast ratio, from 1 to 21.
double Contrasto(const QColor& a, const QColor& b) {
    const double chiaro = std::max(Luce(a), Luce(b));
    const double scuro = std::min(Luce(a), Luce(b));
    return (chiaro + 0.05) / (scuro + 0.05);
}

QChar Mnemonico(const QString& testo) {
    const QKeySequence tasti = QKeySequence::mnemonic(testo);
    return tasti.isEmpty() ? QChar() : QChar(tasti[0].key()).toUpper();
}

} // namespace

class AccessoTest : public QObject {
    Q_OBJECT

  private slots:
    void ordineDeiTab();
    void controlliNascosti();
    void nomiAccessibili();
    void mnemonici();
    void contrasto();
    void contrastoDisabilitate();
};

void AccessoTest::ordineDeiTab() {
    Banco b;
    b.Apri();
    const auto passo = [&](Qt::Key tasto, const char* atteso) {
        QTest::keyClick(QApplication::focusWidget(), tasto);
        QVERIFY2(QApplication::focusWidget() == b.C(atteso),
                 qPrintable(QString("%1, atteso %2").arg(QApplication::focusWidget()->objectName(), atteso)));
    };
    // On the first card, once around; the controls of the second are left out.
    b.Linguette()->setFocus();
    for (const char* nome : {"Drive1", "Dir1", "File1Leggi", "File1", "SSTab1.Linguette"})
        passo(Qt::Key_Tab, nome);
    passo(Qt::Key_Backtab, "File1");
    // On the second; Text1 has no tab stop while Check1 is off.
    b.Scheda(1);
    QCOMPARE(QApplication::focusWidget(), b.Linguette());
    for (const char* nome : {"TogliCommenti", "Check1", "Check2", "Command2", "SSTab1.Linguette"})
        passo(Qt::Key_Tab, nome);
    b.Casella("Check1")->click();
    b.Linguette()->setFocus();
    for (const char* nome : {"TogliCommenti", "Check1", "Text1", "Check2", "Command2", "SSTab1.Linguette"})
        passo(Qt::Key_Tab, nome);
}

// The TAB order is tested by ordineDeiTab.
void AccessoTest::controlliNascosti() {
    Banco b;
    Forma& w = b.Apri();
    for (const int scheda : {1, 0}) {
        b.Scheda(scheda);
        for (const char* nome :
             {"Frame2", "Command1", "Option1(0)", "Option1(1)", "Option1(2)", "Option1(3)", "Option1(4)"}) {
            auto* c = b.C(nome);
            QVERIFY2(!c->isVisible(), nome);
            const QPoint qui = c->mapTo(&w, QPoint(6, 6));
            QWidget* sotto = w.childAt(qui);
            QVERIFY2(sotto && sotto != c && !c->isAncestorOf(sotto), nome);
            QTest::mouseClick(sotto, Qt::LeftButton, {}, sotto->mapFrom(&w, qui));
            QVERIFY2(QApplication::focusWidget() != c, nome);
        }
    }
    QVERIFY(!b.C<QRadioButton>("Option1(0)")->isChecked());
    QVERIFY(b.C<QRadioButton>("Option1(1)")->isChecked());
    QVERIFY(!w.S().Option1_0);
}

void AccessoTest::nomiAccessibili() {
    Banco b;
    b.Apri();
    const auto nome = [](QWidget* c) {
        QAccessibleInterface* i = QAccessible::queryAccessibleInterface(c);
        return i ? i->text(QAccessible::Name) : QString();
    };
    QStringList nomi;
    for (const char* controllo : Fuocabili) {
        const QString suo = nome(b.C(controllo));
        QVERIFY2(!suo.trimmed().isEmpty(), controllo);
        QVERIFY2(!nomi.contains(suo), controllo);
        nomi << suo;
    }
    // No other control takes the focus, so the list above is complete.
    QStringList fuochi;
    for (QWidget* c : b.W->findChildren<QWidget*>())
        if (c->focusPolicy() != Qt::NoFocus && c->isVisibleTo(b.W.get()) && !c->focusProxy() &&
            !c->objectName().startsWith("qt_"))
            fuochi << c->objectName();
    for (const QString& f : fuochi)
        QVERIFY2(
            std::any_of(std::begin(Fuocabili), std::end(Fuocabili), [&](const char* n) { return f == n; }),
            qPrintable(f));
}

void AccessoTest::mnemonici() {
    Banco b;
    b.Apri();
    QList<QChar> barra;
    for (const QAction* voce : b.W->menuBar()->actions()) barra << Mnemonico(voce->text());
    for (int i = 0; i < 2; ++i) barra << Mnemonico(b.Linguette()->tabText(i));
    const auto unici = [](QList<QChar> lettere) {
        for (const QChar c : lettere)
            if (c.isNull() || lettere.count(c) > 1) return false;
        return true;
    };
    QVERIFY(unici(barra));
    QVERIFY(unici(barra + QList<QChar>{Mnemonico(b.C<QLabel>("Label6")->text())}));
    QList<QChar> seconda = barra;
    for (const char* nome : {"TogliCommenti", "Check1", "Check2", "Command2"})
        seconda << Mnemonico(b.C<QAbstractButton>(nome)->text());
    QVERIFY(unici(seconda));
    QList<QChar> utility;
    for (const QAction* voce : b.Voce("mnuutility")->menu()->actions()) utility << Mnemonico(voce->text());
    QVERIFY(unici(utility));
    // Captions that change keep their mnemonics.
    b.Comando("mnuSeleziona");
    b.Comando("MnuHelp");
    QCOMPARE(Mnemonico(b.Voce("mnuSeleziona")->text()), barra[0]);
    QCOMPARE(Mnemonico(b.Voce("MnuHelp")->text()), barra[2]);
}

void AccessoTest::contrasto() {
    Banco b;
    Forma& w = b.Apri();
    const auto regge = [](const QColor& testo, const QColor& fondo, const char* che) {
        const double c = Contrasto(testo, fondo);
        QVERIFY2(c >= 4.5, qPrintable(QString("%1: %2").arg(che).arg(c)));
    };
    const QPalette form = w.palette();
    regge(form.color(QPalette::WindowText), form.color(QPalette::Window), "form");
    regge(form.color(QPalette::ButtonText), form.color(QPalette::Button), "button");
    for (const char* nome : Fuocabili) {
        const QPalette t = b.C(nome)->palette();
        regge(t.color(QPalette::WindowText), t.color(QPalette::Window), nome);
        regge(t.color(QPalette::Text), t.color(QPalette::Base), nome);
        regge(t.color(QPalette::ButtonText), t.color(QPalette::Button), nome);
        regge(t.color(QPalette::HighlightedText), t.color(QPalette::Highlight), nome);
    }
    // Each label on its background.
    for (const char* nome : {"Label6", "Label2", "Label7"})
        regge(b.C(nome)->palette().color(QPalette::WindowText),
              b.C("SSTab1")->palette().color(QPalette::Window), nome);
    const auto* avviso = b.C("Label5");
    QVERIFY(avviso->autoFillBackground());
    regge(avviso->palette().color(QPalette::WindowText), avviso->palette().color(QPalette::Window), "Label5");
    // The bands under Label3 get darker downwards; the first is the brightest.
    const auto* spiegazione = b.C("Label3");
    for (const int y : {spiegazione->y(), spiegazione->y() + spiegazione->height() - 1})
        regge(spiegazione->palette().color(QPalette::WindowText), QColor(158, 1, 255 - y * 256 / 500),
              "Label3");
    regge(b.C("Label1(1)")->palette().color(QPalette::WindowText), QColor(0, 0, 128), "Label1(1)");
    regge(Qt::white, QColor(0, 0, 192), "Picture2");
}

void AccessoTest::contrastoDisabilitate() {
    Banco b;
    const QPalette t = b.Apri().palette();
    QVERIFY(Contrasto(t.color(QPalette::Disabled, QPalette::WindowText), t.color(QPalette::Window)) >= 4.5);
    QVERIFY(Contrasto(t.color(QPalette::Disabled, QPalette::ButtonText), t.color(QPalette::Button)) >= 4.5);
}

QTEST_MAIN(AccessoTest)
#include "accesso_test.moc"

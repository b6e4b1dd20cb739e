// SPDX-License-Identifier: MIT
//
// The box for the header's text: accents, characters that Windows-1252 lacks, pasting, TABs.
#include <QClipboard>

#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

class TestoTest : public QObject {
    Q_OBJECT

  private slots:
    void accenti();
    void spazioCheNonSiSpezza();
    void caratteriIgnoti();
    void annullaOltreUnCarattereIgnoto();
    void composizione();
    void incolla();
    void tabNelTesto();
};

void TestoTest::accenti() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "KO\r\nKO\r\n'perch\xE9 \x80 \x93no\x94\r\nKO\r\n");
    b.Apri();
    QCOMPARE(b.Text1()->toPlainText(), QString("'perché € “no”\n"));
    b.Scheda(1);
    b.Text1()->setFocus();
    Digita(b.Text1(), "'È ");
    b.Linguette()->setFocus();
    QCOMPARE(b.Ini(), std::string("KO\r\nKO\r\n'\xC8 'perch\xE9 \x80 \x93no\x94\r\n\r\nKO\r\n"));
}

void TestoTest::spazioCheNonSiSpezza() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "KO\r\nKO\r\n'a\xA0z\r\nKO\r\n");
    b.Apri();
    b.Scheda(1);
    b.Text1()->setFocus();
    QTest::keyClicks(b.Text1(), "'");
    b.Linguette()->setFocus();
    QCOMPARE(b.Ini(), std::string("KO\r\nKO\r\n''a\xA0z\r\n\r\nKO\r\n"));
}

void TestoTest::caratteriIgnoti() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    b.Text1()->setFocus();
    b.Text1()->selectAll();
    Digita(b.Text1(), "a→b");
    QCOMPARE(b.Text1()->toPlainText(), QString("a?b")); // shown as it is typed
    QCOMPARE(b.Text1()->textCursor().position(), 3);
    b.Text1()->selectAll();
    QApplication::clipboard()->setText(QString::fromUcs4(U"x\U0001F600y\u0100")); // one "?" each
    QTest::keySequence(b.Text1(), QKeySequence::Paste);
    QCOMPARE(b.Text1()->toPlainText(), QString("x?y?"));
    b.Linguette()->setFocus();
    QCOMPARE(b.Ini(), std::string("KO\r\nKO\r\nx?y?\r\nKO\r\n"));
}

void TestoTest::annullaOltreUnCarattereIgnoto() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "KO\r\nKO\r\n'mio\r\nKO\r\n");
    b.Apri();
    b.Scheda(1);
    b.Text1()->setFocus();
    Digita(b.Text1(), "→");
    QCOMPARE(b.Text1()->toPlainText(), QString("?'mio\n"));
    QTest::keySequence(b.Text1(), QKeySequence::Undo);
    QCOMPARE(b.Text1()->toPlainText(), QString("'mio\n"));
    QCOMPARE(b.W->S().Text1, Testo("'mio\r\n"));
}

// Composed characters do not arrive as key events.
void TestoTest::composizione() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    b.Text1()->setFocus();
    b.Text1()->selectAll();
    QInputMethodEvent evento("", {});
    evento.setCommitString("è→");
    QApplication::sendEvent(b.Text1(), &evento);
    QCOMPARE(b.Text1()->toPlainText(), QString("è?"));
    QCOMPARE(b.W->S().Text1, Testo("\xE8?"));
}

void TestoTest::incolla() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    b.Text1()->setFocus();
    b.Text1()->selectAll();
    QApplication::clipboard()->setText("'uno\n'due\r\n'tre");
    QTest::keySequence(b.Text1(), QKeySequence::Paste);
    b.Linguette()->setFocus();
    QCOMPARE(b.Ini(), std::string("KO\r\nKO\r\n'uno\r\n'due\r\n'tre\r\nKO\r\n"));
}

// A TAB in a stored text stays; the key moves the focus.
void TestoTest::tabNelTesto() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "KO\r\nOK\r\n'a\tb\r\nKO\r\n");
    b.Apri();
    b.Scheda(1);
    b.Text1()->setFocus();
    QTest::keyClick(b.Text1(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), b.Casella("Check2"));
    QCOMPARE(b.Ini(), std::string("KO\r\nOK\r\n'a\tb\r\n\r\nKO\r\n"));
}

QTEST_MAIN(TestoTest)
#include "testo_test.moc"

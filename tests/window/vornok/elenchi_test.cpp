// SPDX-License-Identifier: MIT
//
// The rows of File1: selected by mouse, by key and by the menu.
#include <QScrollBar>

#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

class ElenchiTest : public QObject {
    Q_OBJECT

  private slots:
    void righeSelezionate();
    void righeConCtrlEMaiusc();
    void righeOrdinateEUguali();
    void righeSelezionateDiNuovo();
    void selezionaTutto();
    void selezionaDopoLaCorsa();
    void strutturaDeseleziona();
    void nomiLunghi();
};

void ElenchiTest::righeSelezionate() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Selezionate(), std::vector<int>());
    // A click enables the three commands, whatever they were.
    b.W->S().mnuRiordina = b.W->S().mnuvorn = b.W->S().mnuLettura = false;
    b.Clicca(b.File1(), 1);
    QCOMPARE(b.Selezionate(), std::vector<int>({1}));
    QCOMPARE(b.Menu(), std::string("1111"));
    // So does a click on a selected row.
    b.W->S().mnuRiordina = b.W->S().mnuvorn = b.W->S().mnuLettura = false;
    b.Clicca(b.File1(), 1);
    QCOMPARE(b.Menu(), std::string("1111"));
}

void ElenchiTest::righeConCtrlEMaiusc() {
    Banco b;
    b.Disco.Metti("/p/Uno.vbp", "Form=a\r\nForm=b\r\nForm=c\r\nForm=d\r\nForm=e\r\n");
    b.Apri();
    b.ScegliSenzaCorsa();
    QAbstractItemView* f = b.File1();
    b.Clicca(f, 3);
    QCOMPARE(b.Selezionate(), std::vector<int>({3}));
    b.Clicca(f, 1, Qt::ControlModifier); // not in their order
    QCOMPARE(b.Selezionate(), std::vector<int>({1, 3}));
    b.Clicca(f, 3, Qt::ControlModifier);
    QCOMPARE(b.Selezionate(), std::vector<int>({1}));
    b.Clicca(f, 4, Qt::ControlModifier);
    b.Clicca(f, 3, Qt::ControlModifier);
    QCOMPARE(b.Selezionate(), std::vector<int>({1, 3, 4}));
    b.Clicca(f, 0);
    b.Clicca(f, 3, Qt::ShiftModifier);
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1, 2, 3}));
    b.Clicca(f, 1, Qt::ShiftModifier); // from the same end, shorter
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    f->setFocus();
    QTest::keySequence(f, QKeySequence::SelectAll);
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1, 2, 3, 4}));
}

void ElenchiTest::righeOrdinateEUguali() {
    Banco b;
    b.Disco.Metti(
        "/p/Uno.vbp",
        CrLf("Module=Z; zeta.bas\nForm=Beta.frm\nform=niente.frm\nClass=A; alfa.cls\nForm=beta.frm\n"
             "Reference=x\nModule=senza\nForm=Beta.frm\nForm=\n"));
    b.Apri();
    b.ScegliSenzaCorsa();
    QCOMPARE(b.Righe(b.File1()),
             QStringList({"", "alfa.cls", "Beta.frm", "beta.frm", "Beta.frm", "Module=senza", "zeta.bas"}));
    QCOMPARE(b.Selezionate().size(), std::size_t(7));
}

// Rows selected by hand, in any order, are worked on in the order of the list.
void ElenchiTest::righeSelezionateDiNuovo() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì", "OK"});
    b.CliccaProgetto(0);
    b.Attiva();
    b.Clicca(b.File1(), 1);
    b.Clicca(b.File1(), 0, Qt::ControlModifier);
    b.Comando("mnuLettura");
    QVERIFY(r.Esaurito());
    QCOMPARE(b.Disco.Avviati, std::vector<std::string>(
                                  {"Notepad.exe|/p/Appoggio/Form1.log", "Notepad.exe|/p/Appoggio/m.log"}));
}

void ElenchiTest::selezionaTutto() {
    Banco b;
    b.Apri();
    // Without a row it only changes its caption.
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    QCOMPARE(b.Menu(), std::string("1011"));
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("Seleziona tutto"));

    b.ScegliSenzaCorsa();
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Selezionate(), std::vector<int>());
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("Seleziona tutto"));
    b.Clicca(b.File1(), 1); // selecting by hand does not change it
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("Seleziona tutto"));
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    // Deselecting raises File1_Click as well.
    b.W->S().mnuRiordina = b.W->S().mnuvorn = b.W->S().mnuLettura = false;
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Menu(), std::string("1111"));
}

// A run leaves no row selected, and the caption as the choice of the project set it, so the first
// use deselects what is not selected.
void ElenchiTest::selezionaDopoLaCorsa() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì"});
    b.CliccaProgetto(0);
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Selezionate(), std::vector<int>());
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("Seleziona tutto"));
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
}

// All rows up to the one that stopped the run, and that one.
void ElenchiTest::strutturaDeseleziona() {
    Banco b;
    b.Disco.Metti("/p/Uno.vbp", "Form=Form1.frm\r\nModule=M; h.bas\r\nModule=M; m.bas\r\n");
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Comando("mnuvorn"); // h.bas is not there
    QCOMPARE(b.Selezionate(), std::vector<int>({2}));
}

void ElenchiTest::nomiLunghi() {
    Banco b;
    const std::string nome(120, 'n');
    b.Disco.Metti("/p/Uno.vbp", "Form=" + nome + ".frm\r\n");
    b.Apri();
    b.ScegliSenzaCorsa();
    const QModelIndex riga = b.File1()->model()->index(0, 0);
    QCOMPARE(riga.data(Qt::ToolTipRole).toString(), QString::fromStdString(nome + ".frm"));
}

QTEST_MAIN(ElenchiTest)
#include "elenchi_test.moc"

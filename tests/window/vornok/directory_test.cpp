// SPDX-License-Identifier: MIT
//
// The lists of directories and of project files: what they show, and what clicks and keys do.
#include <QScrollBar>

#include "comandi/comandi.h"
#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

class DirectoryTest : public QObject {
    Q_OBJECT

  private slots:
    void directoryMostrate();
    void radice();
    void clicNonApre();
    void doppioClicApre();
    void invioApre();
    void backspaceRisale();
    void letteraPorta();
    void cambioConRighe();
    void stessaDirectory();
    void appoggioDopoLaCorsa();
    void rilettaDuranteLaCorsa();
    void rilettaConLaFinestra();
    void directoryCheNonSiLegge();
    void directoryChiusa();
    void directoryNonLetta();
    void avvioInUnaDirectoryCheManca();
    void progettiSenzaRiguardoAlleMaiuscole();
    void progettoSceltoResta();
};

void DirectoryTest::directoryMostrate() {
    Banco b;
    for (const char* d : {"/p/zeta", "/p/Alfa", "/p/beta", "/p/.nascosta", "/p/beta/dentro", "/q"})
        b.Disco.FaiDirectory(d);
    b.Apri();
    // From the root to the open one, then those in it; no files and nothing hidden.
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p", "Alfa", "beta", "zeta"}));
    QCOMPARE(b.Dir1()->currentRow(), 1); // the open one is marked
    // Each level is indented more than the one above.
    const auto livello = [&](int riga) { return b.Dir1()->item(riga)->data(Qt::UserRole).toInt(); };
    QCOMPARE(livello(0), 0);
    QCOMPARE(livello(1), 1);
    QCOMPARE(livello(2), 2);
    QCOMPARE(livello(4), 2);
    // The start in this directory raised no event.
    QCOMPARE(b.Menu(), std::string("1011"));
}

void DirectoryTest::radice() {
    Banco b;
    b.Apri("/");
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p", "prog"}));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\"));
    b.DoppioClic(b.Dir1(), 1);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p"}));
    b.DoppioClic(b.Dir1(), 0);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\"));
    b.Dir1()->setFocus();
    QTest::keyClick(b.Dir1(), Qt::Key_Backspace); // nothing above
    QCOMPARE(b.W->S().Dir1Path, Testo("\\"));
}

void DirectoryTest::clicNonApre() {
    Banco b;
    b.Disco.FaiDirectory("/p/sotto");
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Clicca(b.Dir1(), 2);
    QTest::keyClick(b.Dir1(), Qt::Key_Up);
    QTest::keyClick(b.Dir1(), Qt::Key_Up);
    QCOMPARE(b.Dir1()->currentRow(), 0);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
    QCOMPARE(b.Menu(), std::string("1111"));
    QCOMPARE(b.Righe(b.File1()).size(), 2);
}

void DirectoryTest::doppioClicApre() {
    Banco b;
    b.Disco.FaiDirectory("/p/sotto/piu");
    b.Disco.Metti("/p/sotto/b.vbp", "");
    b.Disco.Metti("/p/sotto/A.VBP", "");
    b.Apri();
    b.DoppioClic(b.Dir1(), 2);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p\\sotto"));
    QCOMPARE(b.Disco.DirectoryCorrente(), std::string("/p/sotto"));
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p", "sotto", "piu"}));
    QCOMPARE(b.Dir1()->currentRow(), 2);
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"A.VBP", "b.vbp"}));
    QVERIFY(b.File1Leggi()->selectedItems().isEmpty());
    QCOMPARE(b.Menu(), std::string("0001"));
    b.DoppioClic(b.Dir1(), 0); // one above
    QCOMPARE(b.W->S().Dir1Path, Testo("\\"));
}

void DirectoryTest::invioApre() {
    for (const Qt::Key invio : {Qt::Key_Return, Qt::Key_Enter}) {
        Banco b;
        b.Disco.FaiDirectory("/p/sotto");
        b.Apri();
        QTest::keyClick(b.Dir1(), Qt::Key_Down);
        QTest::keyClick(b.Dir1(), invio);
        QCOMPARE(b.W->S().Dir1Path, Testo("\\p\\sotto"));
        QVERIFY(b.Dir1()->hasFocus());
    }
}

void DirectoryTest::backspaceRisale() {
    Banco b;
    b.Disco.FaiDirectory("/p/a/b");
    b.Apri("/p/a/b");
    QTest::keyClick(b.Dir1(), Qt::Key_Backspace);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p\\a"));
    QTest::keyClick(b.Dir1(), Qt::Key_Backspace);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p", "a"}));
}

void DirectoryTest::letteraPorta() {
    Banco b;
    for (const char* d : {"/p/alfa", "/p/gamma", "/p/zeta"}) b.Disco.FaiDirectory(d);
    b.Apri();
    QTest::keyClick(b.Dir1(), Qt::Key_Z);
    QCOMPARE(b.Dir1()->currentItem()->text(), QString("zeta"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
}

void DirectoryTest::cambioConRighe() {
    Banco b;
    b.Disco.FaiDirectory("/p/sotto");
    b.Apri();
    b.ScegliSenzaCorsa();
    b.W->S().FileUscita = "x";
    b.W->S().FileSorgente = "y";
    b.DoppioClic(b.Dir1(), 2);
    QCOMPARE(b.Righe(b.File1()), QStringList());
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList());
    QCOMPARE(b.Menu(), std::string("0001"));
    QCOMPARE(b.W->S().FileUscita, Testo());
    QCOMPARE(b.W->S().FileSorgente, Testo());
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto")); // nothing switches it back
}

// Opening the open directory is no change.
void DirectoryTest::stessaDirectory() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.DoppioClic(b.Dir1(), 1);
    QCOMPARE(b.Menu(), std::string("1111"));
    QCOMPARE(b.Righe(b.File1()).size(), 2);
}

void DirectoryTest::appoggioDopoLaCorsa() {
    Banco b;
    b.Disco.FaiDirectory("/p/beta");
    b.Disco.FaiDirectory("/p/zeta");
    b.Apri();
    b.Clicca(b.Dir1(), 3); // "zeta" stays marked
    Risponditore r({"Sì"});
    b.CliccaProgetto(0);
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p", "Appoggio", "beta", "zeta"}));
    QCOMPARE(b.Dir1()->currentItem()->text(), QString("zeta"));
}

// Dir1.Refresh, at the start of a run, reads the directory again although its time has not changed:
// two changes can have the same time.
void DirectoryTest::rilettaDuranteLaCorsa() {
    struct DiscoFermo : DiscoFinto {
        using DiscoFinto::DiscoFinto;
        Scheda Esamina(const std::string& percorso) override {
            Scheda cosa = DiscoFinto::Esamina(percorso);
            if (percorso == "/p") cosa.Modificato = 7;
            return cosa;
        }
    };
    Ricomincia();
    DiscoFermo disco("/p");
    disco.Metti("/p/Uno.vbp", "Module=M; m.bas\r\n");
    disco.Metti("/p/m.bas", "x = 1\r\n");
    disco.FaiDirectory("/prog");
    disco.FaiDirectory("/p/Appoggio");
    Forma w(disco, "/prog", "/p");
    w.show();
    auto* dir1 = w.findChild<QListWidget*>("Dir1");
    const auto righe = [&] {
        QStringList testi;
        for (int i = 0; i < dir1->count(); ++i) testi << dir1->item(i)->text();
        return testi;
    };
    QCOMPARE(righe(), QStringList({"/", "p", "Appoggio"}));
    disco.FaiDirectory("/p/altra");
    QStringList lette;
    disco.PrimaDiLeggere = [&](const std::string& file) {
        if (file.ends_with("m.bas") && lette.isEmpty()) lette = righe();
    };
    w.S().File1Leggi.ListIndex = 0;
    Risponditore r({"Sì"});
    File1Leggi_Click(w.S());
    QVERIFY(r.Esaurito());
    QCOMPARE(lette, QStringList({"/", "p", "altra", "Appoggio"}));
}

// Changes by other programs show when the window comes to the front, without an event.
void DirectoryTest::rilettaConLaFinestra() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Disco.FaiDirectory("/p/nuova");
    b.Disco.Metti("/p/Alfa.vbp", "");
    QWidget altra;
    altra.show();
    QApplication::setActiveWindow(&altra);
    b.Attiva();
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p", "nuova"}));
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"Alfa.vbp", "Uno.vbp"}));
    QCOMPARE(b.File1Leggi()->currentRow(), 1); // the chosen project stays chosen
    QCOMPARE(b.W->S().File1Leggi.Scelto(), Vista("Uno.vbp"));
    QCOMPARE(b.Menu(), std::string("1111"));
    QCOMPARE(b.Righe(b.File1()).size(), 2);
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
}

// The list of files cannot be read: the box shows number and text without a separator, and the rest
// of the event is skipped.
void DirectoryTest::directoryCheNonSiLegge() {
    Banco b;
    b.Disco.FaiDirectory("/p/sotto");
    b.Disco.Fallisci("Elenca", "/sotto", 75);
    b.Apri();
    b.ScegliSenzaCorsa();
    Risponditore r({"OK"});
    b.DoppioClic(b.Dir1(), 2);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Testo, QString("75Il percorso esiste già o non è accessibile."));
    QCOMPARE(r.Viste[0].Titolo, QString("Morvella"));
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Question);
    QCOMPARE(r.Viste[0].Bottoni, QStringList({"OK"}));
    QVERIFY(!b.W->Finita());
    QCOMPARE(b.Righe(b.File1()).size(), 2);
    QCOMPARE(b.Menu(), std::string("1111"));
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p", "sotto"})); // and nothing below it
}

void DirectoryTest::directoryChiusa() {
    Banco b;
    b.Disco.FaiDirectory("/p/sotto");
    b.Disco.Metti("/p/sotto/Due.vbp", "");
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Disco.Fallisci("CambiaDirectory", "/sotto", 75);
    Risponditore r({"OK"});
    b.DoppioClic(b.Dir1(), 2);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Testo, QString("75Il percorso esiste già o non è accessibile."));
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"Due.vbp"})); // the step before it was done
    QCOMPARE(b.Righe(b.File1()).size(), 2);
    QCOMPARE(b.Menu(), std::string("1111"));
}

// The directory was deleted while the list showed it.
void DirectoryTest::directoryNonLetta() {
    Banco b;
    b.Disco.FaiDirectory("/p/sotto");
    b.Apri();
    b.Disco.Cancella("/p/sotto");
    Risponditore r({"OK"});
    b.DoppioClic(b.Dir1(), 2);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Testo, QString("76Percorso non trovato."));
    QVERIFY(!b.W->Finita());
    QCOMPARE(b.Menu(), std::string("1011"));
    // And back.
    b.DoppioClic(b.Dir1(), 1);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"Uno.vbp"}));
    QCOMPARE(b.Menu(), std::string("0001"));
}

void DirectoryTest::avvioInUnaDirectoryCheManca() {
    Banco b;
    Risponditore r;
    b.Apri("/manca");
    QVERIFY(r.Esaurito());
    QVERIFY(!b.W->Finita());
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList());
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "manca"}));
}

void DirectoryTest::progettiSenzaRiguardoAlleMaiuscole() {
    Banco b;
    b.Disco.Cancella("/p/Uno.vbp");
    for (const char* f : {"/p/c.VBP", "/p/B.vbp", "/p/a.Vbp", "/p/d.vbp.txt", "/p/vbp", "/p/e.vbg"})
        b.Disco.Metti(f, "");
    b.Disco.FaiDirectory("/p/cartella.vbp");
    b.Apri();
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"a.Vbp", "B.vbp", "c.VBP"}));
}

void DirectoryTest::progettoSceltoResta() {
    Banco b;
    b.Disco.Metti("/p/Due.vbp", "Form=x.frm\r\n");
    b.Apri();
    Risponditore r({"No", "No"});
    b.CliccaProgetto(1);
    QCOMPARE(b.Righe(b.File1()), QStringList({"Form1.frm", "m.bas"}));
    b.CliccaProgetto(0); // another one: other rows
    QCOMPARE(b.Righe(b.File1()), QStringList({"x.frm"}));
    QCOMPARE(b.Selezionate(), std::vector<int>({0}));
    QCOMPARE(b.File1Leggi()->selectedItems().size(), 1);
    QCOMPARE(b.File1Leggi()->selectedItems().front()->text(), QString("Due.vbp"));
    QVERIFY(r.Esaurito());
}

QTEST_MAIN(DirectoryTest)
#include "directory_test.moc"

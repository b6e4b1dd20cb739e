// SPDX-License-Identifier: MIT
//
// Drives, directories, projects and rows: what the lists show, and what clicks and keys in them do.
#include <QScrollBar>

#include "shell/comandi.h"
#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

class ElenchiTest : public QObject {
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
    void unita();
    void unitaConIlTasto();
    void unitaStessa();
    void unitaConLaRotella();
    void unitaCheNonRisponde();
    void unitaCNonRisponde();
    void unitaCNonRispondeDietroUnAltra();
    void unitaCheArriva();
    void unitaDellaDirectory();
    void righeSelezionate();
    void righeConCtrlEMaiusc();
    void righeOrdinateEUguali();
    void righeSelezionateDiNuovo();
    void selezionaTutto();
    void selezionaDopoLaCorsa();
    void strutturaDeseleziona();
    void nomiLunghi();
};

void ElenchiTest::directoryMostrate() {
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

void ElenchiTest::radice() {
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

void ElenchiTest::clicNonApre() {
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

void ElenchiTest::doppioClicApre() {
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

void ElenchiTest::invioApre() {
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

void ElenchiTest::backspaceRisale() {
    Banco b;
    b.Disco.FaiDirectory("/p/a/b");
    b.Apri("/p/a/b");
    QTest::keyClick(b.Dir1(), Qt::Key_Backspace);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p\\a"));
    QTest::keyClick(b.Dir1(), Qt::Key_Backspace);
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "p", "a"}));
}

void ElenchiTest::letteraPorta() {
    Banco b;
    for (const char* d : {"/p/alfa", "/p/gamma", "/p/zeta"}) b.Disco.FaiDirectory(d);
    b.Apri();
    QTest::keyClick(b.Dir1(), Qt::Key_Z);
    QCOMPARE(b.Dir1()->currentItem()->text(), QString("zeta"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
}

void ElenchiTest::cambioConRighe() {
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
void ElenchiTest::stessaDirectory() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.DoppioClic(b.Dir1(), 1);
    QCOMPARE(b.Menu(), std::string("1111"));
    QCOMPARE(b.Righe(b.File1()).size(), 2);
}

void ElenchiTest::appoggioDopoLaCorsa() {
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
void ElenchiTest::rilettaDuranteLaCorsa() {
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
void ElenchiTest::rilettaConLaFinestra() {
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
void ElenchiTest::directoryCheNonSiLegge() {
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

void ElenchiTest::directoryChiusa() {
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
void ElenchiTest::directoryNonLetta() {
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

void ElenchiTest::avvioInUnaDirectoryCheManca() {
    Banco b;
    Risponditore r;
    b.Apri("/manca");
    QVERIFY(r.Esaurito());
    QVERIFY(!b.W->Finita());
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList());
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "manca"}));
}

void ElenchiTest::progettiSenzaRiguardoAlleMaiuscole() {
    Banco b;
    b.Disco.Cancella("/p/Uno.vbp");
    for (const char* f : {"/p/c.VBP", "/p/B.vbp", "/p/a.Vbp", "/p/d.vbp.txt", "/p/vbp", "/p/e.vbg"})
        b.Disco.Metti(f, "");
    b.Disco.FaiDirectory("/p/cartella.vbp");
    b.Apri();
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"a.Vbp", "B.vbp", "c.VBP"}));
}

void ElenchiTest::progettoSceltoResta() {
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

void ElenchiTest::unita() {
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

void ElenchiTest::unitaConIlTasto() {
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

void ElenchiTest::unitaStessa() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Drive1()->setFocus();
    QTest::keyClick(b.Drive1(), Qt::Key_Down); // there is only one
    QTest::keyClick(b.Drive1(), Qt::Key_C);
    QCOMPARE(b.Menu(), std::string("1111"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
}

void ElenchiTest::unitaConLaRotella() {
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

void ElenchiTest::unitaCheNonRisponde() {
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
void ElenchiTest::unitaCNonRisponde() {
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
void ElenchiTest::unitaCNonRispondeDietroUnAltra() {
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

void ElenchiTest::unitaCheArriva() {
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
void ElenchiTest::unitaDellaDirectory() {
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

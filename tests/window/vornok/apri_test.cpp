// SPDX-License-Identifier: MIT
//
// Directories and projects given as the program's argument or dropped on the window.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QProcess>
#include <QUrl>

#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

namespace {

struct Lascio {
    QMimeData Dati;
    explicit Lascio(std::initializer_list<const char*> dove) {
        QList<QUrl> url;
        for (const char* u : dove) url << QUrl(u);
        Dati.setUrls(url);
    }
    // Drags it over a control and drops it; returns whether the form or the control accepts it.
    bool Su(QWidget* controllo) {
        QDragEnterEvent entra(QPoint(5, 5), Qt::CopyAction, &Dati, Qt::LeftButton, Qt::NoModifier);
        entra.ignore();
        QApplication::sendEvent(controllo, &entra);
        if (!entra.isAccepted()) return false;
        QDropEvent lascia(QPointF(5, 5), Qt::CopyAction, &Dati, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(controllo, &lascia);
        return true;
    }
};

} // namespace

class ApriTest : public QObject {
    Q_OBJECT

  private slots:
    void directory();
    void directoryCorrente();
    void progetto_data();
    void progetto();
    void progettoRelativo();
    void progettoNato();
    void progettoConConfermaSpenta();
    void neLUnoNeLAltro();
    void niente();
    void directoryChiusa();
    void lasciato_data();
    void lasciato();
    void lasciatiDue();
    void lasciatoDallaRete();
    void lasciatoTesto();
    void argomentiDelProgramma();
};

void ApriTest::directory() {
    Banco b;
    b.Disco.Metti("/q/Due.vbp", "Form=x.frm\r\n");
    b.Apri();
    b.ScegliSenzaCorsa();
    Risponditore r;
    b.W->Apri("/q");
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->S().Dir1Path, Testo("\\q"));
    QCOMPARE(b.Righe(b.Dir1()), QStringList({"/", "q"}));
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"Due.vbp"}));
    QVERIFY(b.File1Leggi()->selectedItems().isEmpty()); // no project is chosen
    QCOMPARE(b.Righe(b.File1()), QStringList());
    QCOMPARE(b.Menu(), std::string("0001"));
}

// The directory is open already: nothing changes.
void ApriTest::directoryCorrente() {
    Banco b;
    b.Apri();
    for (const char* qui : {"/p", "/p/", ".", "/p/../p"}) b.W->Apri(qui);
    QCOMPARE(b.Menu(), std::string("1011"));
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
}

void ApriTest::progetto_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("si");
    for (const char* file : {"/q/Due.vbp", "/q/due.VBP", "/q/DUE.Vbp", "/p/Uno2.vbp"})
        for (const bool si : {true, false}) QTest::addRow("%s %d", file, si) << file << si;
}

// As by a click: its rows, all of them selected, and the question.
void ApriTest::progetto() {
    QFETCH(QString, file);
    QFETCH(bool, si);
    Banco b;
    b.Disco.Metti(file.toStdString(), "Module=M; z.bas\r\n");
    const std::string directory = file.left(2).toStdString();
    b.Disco.Metti(directory + "/z.bas", "Option Explicit\r\nx = 1\r\n");
    b.Apri();
    Risponditore r({si ? "Sì" : "No"});
    r.Davanti = [&](std::size_t) {
        QCOMPARE(b.Righe(b.File1()), QStringList({"z.bas"}));
        QCOMPARE(b.File1Leggi()->currentItem()->text(), file.mid(3));
        QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    };
    b.W->Apri(file.toStdString());
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Titolo, QString("Identazione"));
    QVERIFY(r.Viste[0].Testo.endsWith("\n" + file.mid(3)));
    QCOMPARE(b.W->S().Dir1Path, Testo(directory == "/q" ? "\\q" : "\\p"));
    QCOMPARE(b.Disco.Esiste(directory + "/Appoggio/z.log"), si);
    QCOMPARE(b.Menu(), std::string("1111"));
}

void ApriTest::progettoRelativo() {
    Banco b;
    b.Disco.Metti("/p/sotto/Due.vbp", "");
    b.Apri();
    Risponditore r({"No", "No"});
    b.W->Apri("sotto/Due.vbp");
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p\\sotto"));
    b.W->Apri("../Uno.vbp"); // relative to the first project's directory
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
}

// The file is newer than the list.
void ApriTest::progettoNato() {
    Banco b;
    b.Apri();
    b.Disco.Metti("/p/Nuovo.vbp", "Form=Form1.frm\r\n");
    Risponditore r({"No"});
    b.W->Apri("/p/Nuovo.vbp");
    QVERIFY(r.Esaurito());
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"Nuovo.vbp", "Uno.vbp"}));
    QCOMPARE(b.File1Leggi()->currentRow(), 0);
}

void ApriTest::progettoConConfermaSpenta() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "KO\r\nKO\r\n\r\nOK\r\n");
    b.Apri();
    Risponditore r;
    b.W->Apri("/p/Uno.vbp");
    QVERIFY(r.Esaurito());
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
}

void ApriTest::neLUnoNeLAltro() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    Risponditore r({"OK"});
    b.W->Apri("/p/m.bas");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QVERIFY(r.Viste[0].Testo.contains("m.bas"));
    QVERIFY(!b.W->Finita());
    QCOMPARE(b.Menu(), std::string("1111"));
    QCOMPARE(b.Righe(b.File1()).size(), 2);
}

void ApriTest::niente() {
    Banco b;
    b.Apri();
    Risponditore r({"OK", "OK"});
    b.W->Apri("/q/Manca.vbp");
    b.W->Apri("/q");
    QVERIFY(r.Esaurito());
    QVERIFY(r.Viste[0].Testo.contains("Manca.vbp"));
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QVERIFY(!b.W->Finita());
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
    QCOMPARE(b.Menu(), std::string("1011"));
}

// A project in a directory that may be entered but not read: one box, and the window stays.
void ApriTest::directoryChiusa() {
    Banco b;
    b.Disco.Metti("/q/Due.vbp", "Form=x.frm\r\n");
    b.Disco.Fallisci("Elenca", "/q", 75);
    b.Apri();
    b.ScegliSenzaCorsa();
    // The second time Dir1 does not change, so its event does not show the error.
    for (int i = 0; i < 2; ++i) {
        Risponditore r({"OK"});
        b.W->Apri("/q/Due.vbp");
        QVERIFY(r.Esaurito());
        QCOMPARE(r.Viste[0].Testo, QString("75Il percorso esiste già o non è accessibile."));
        QVERIFY(!b.W->Finita());
    }
}

void ApriTest::lasciato_data() {
    QTest::addColumn<QString>("su");
    for (const char* su : {"VornOK", "Dir1", "File1", "Drive1", "Text1", "Label3", "Frame1"})
        QTest::newRow(su) << su;
}

// Dropped anywhere on the form.
void ApriTest::lasciato() {
    QFETCH(QString, su);
    Banco b;
    b.Disco.Metti("/q/Due.vbp", "Form=x.frm\r\n");
    b.Apri();
    if (su == "Text1") b.Scheda(1);
    if (su == "Frame1") b.Comando("MnuHelp");
    QWidget* dove = su == "VornOK" ? b.W.get() : b.W->findChild<QWidget*>(su);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(dove)) dove = area->viewport();
    const QString testo = b.Text1()->toPlainText();
    Risponditore r({"No"});
    Lascio progetto({"file:///q/Due.vbp"});
    QVERIFY(progetto.Su(dove));
    QVERIFY(r.Viste.empty()); // not before the drop is over
    QTRY_COMPARE_WITH_TIMEOUT(r.Viste.size(), std::size_t(1), Attesa);
    QTRY_COMPARE_WITH_TIMEOUT(b.Menu(), std::string("1111"), Attesa);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.Righe(b.File1()), QStringList({"x.frm"}));
    Lascio directory({"file:///p"});
    QVERIFY(directory.Su(dove));
    QTRY_COMPARE_WITH_TIMEOUT(b.W->S().Dir1Path, Testo("\\p"), Attesa);
    QCOMPARE(b.Righe(b.File1()), QStringList());
    QCOMPARE(b.Text1()->toPlainText(), testo);
}

void ApriTest::lasciatiDue() {
    Banco b;
    b.Disco.Metti("/q/Due.vbp", "");
    b.Apri();
    Risponditore r;
    Lascio due({"file:///q/Due.vbp", "file:///p/Uno.vbp"});
    QVERIFY(!due.Su(b.W.get()));
    QDropEvent lascia(QPointF(5, 5), Qt::CopyAction, &due.Dati, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(b.W.get(), &lascia); // a drop although it was refused
    QCoreApplication::processEvents();           // what it would have queued
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->S().Dir1Path, Testo("\\p"));
    QCOMPARE(b.Menu(), std::string("1011"));
}

void ApriTest::lasciatoDallaRete() {
    Banco b;
    b.Apri();
    Risponditore r;
    Lascio rete({"http://esempio.example/p/Uno.vbp"});
    QVERIFY(!rete.Su(b.W.get()));
    QDropEvent lascia(QPointF(5, 5), Qt::CopyAction, &rete.Dati, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(b.W.get(), &lascia);
    QCoreApplication::processEvents();
    QVERIFY(r.Esaurito());
    QCOMPARE(b.Menu(), std::string("1011"));
}

// A dropped text goes into Text1 only.
void ApriTest::lasciatoTesto() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    Lascio testo({});
    testo.Dati.removeFormat("text/uri-list");
    testo.Dati.setText("'nota");
    QVERIFY(!testo.Su(b.W.get()));
    QVERIFY(testo.Su(b.Text1()->viewport()));
    QVERIFY(b.Text1()->toPlainText().contains("'nota"));
    QVERIFY(b.W->S().Text1.find("'nota") != Testo::npos);
}

// The program itself, as far as it goes without a window.
void ApriTest::argomentiDelProgramma() {
    QString schermo = "nessuno"; // Qt has no platform of this name
    const auto esegui = [&schermo](const QStringList& argomenti, QString& uscita, QString& errori) {
        QProcess programma;
        auto ambiente = QProcessEnvironment::systemEnvironment();
        ambiente.insert("QT_QPA_PLATFORM", schermo);
        programma.setProcessEnvironment(ambiente);
        programma.start(MORVELLA, argomenti);
        if (!programma.waitForFinished(Attesa) || programma.exitStatus() != QProcess::NormalExit) return -1;
        uscita = QString::fromUtf8(programma.readAllStandardOutput());
        errori = QString::fromUtf8(programma.readAllStandardError());
        return programma.exitCode();
    };
    QString uscita, errori;
    for (const char* aiuto : {"-h", "--aiuto", "--help"}) {
        QCOMPARE(esegui({aiuto}, uscita, errori), 0);
        QVERIFY(uscita.startsWith("Uso: morvella [DIRECTORY | PROGETTO.vbp]"));
        QVERIFY(errori.isEmpty());
    }
    for (const char* versione : {"--versione", "--version"}) {
        QCOMPARE(esegui({versione}, uscita, errori), 0);
        QCOMPARE(uscita, QString("morvella " MORVELLA_VERSIONE "\n"));
        QVERIFY(errori.isEmpty());
    }
    schermo = "offscreen";
    QCOMPARE(esegui({"a", "b"}, uscita, errori), 2);
    QVERIFY(uscita.isEmpty());
    QVERIFY(errori.contains("Uso: morvella"));
    QCOMPARE(esegui({"--ignota"}, uscita, errori), 2);
}

QTEST_MAIN(ApriTest)
#include "apri_test.moc"

// SPDX-License-Identifier: MIT
//
// The reader's windows: files opened, dropped, rewritten and closed; menus, printing, help,
// arguments.
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPdfWriter>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTreeView>

#include "window/lettore/argomenti.h"
#include "window/lettore/banco_finestra.h"
#include "window/lettore/stampa.h"

namespace morvella::lettore {

using namespace provefinestra;

class ProvaFinestra : public QObject {
    Q_OBJECT

    Cartella cartella_;
    QString Esempio(const char* nome = "Modulo.log") {
        return cartella_.Scrivi(nome, Unite(provefinestra::Esempio()));
    }

  private slots:
    void initTestCase();
    void UnaFinestraPerFile();
    void FileCheNonSiAprono();
    void SenzaFile();
    void ApriETrascina();
    void Riscritta();
    void SparitaETornata();
    void Chiudere();
    void MenuENomi();
    void Pdf();
    void RigheDiStampa();
    void Aiuto();
    void Italiano();
    void Argomenti();
};

void ProvaFinestra::initTestCase() { ParlaItaliano(*qApp); }

void ProvaFinestra::UnaFinestraPerFile() {
    Banco b;
    const QString uno = Esempio("Uno.log"), due = Esempio("Perché due.log");
    QCOMPARE(b.L.Apri({uno, due}), 0);
    QCOMPARE(b.L.Finestre().size(), 2);
    QCOMPARE(b.L.Finestre()[0]->windowTitle(), QString("Uno.log - Morvella Lettore"));
    QCOMPARE(b.L.Finestre()[1]->windowTitle(), QString("Perché due.log - Morvella Lettore"));
    QCOMPARE(b.L.Finestre()[0]->size(), QSize(900, 700));
    QCOMPARE(b.L.Apri({uno}), 0); // it is shown already
    QCOMPARE(b.L.Finestre().size(), 2);
    QCOMPARE(Stato(b.L.Finestre()[0]), QString("riga 1 di 28  ·  2 errori  ·  3 procedure  ·  100 %"));
    QVERIFY(b.Avvisi.isEmpty());
}

void ProvaFinestra::FileCheNonSiAprono() {
    Banco b;
    const QString manca = cartella_.Percorso("Manca.log");
    QCOMPARE(b.L.Apri({manca, Esempio(), cartella_.Percorso("")}), 2);
    QCOMPARE(b.L.Finestre().size(), 1);
    QCOMPARE(b.Avvisi,
             (QStringList{"Morvella Lettore|Non si può aprire «" + manca + "».\n\nIl file non esiste.",
                          "Morvella Lettore|Non si può aprire «" + cartella_.Percorso("") +
                              "».\n\nÈ una directory, non un file."}));
}

void ProvaFinestra::SenzaFile() {
    Banco b;
    FinestraLettore* f = b.L.Nuova();
    QVERIFY(QTest::qWaitForWindowActive(f, Attesa));
    QCOMPARE(f->windowTitle(), QString("Morvella Lettore"));
    QVERIFY(f->LaVista()->RigaDetta().contains("Ctrl+O"));
    for (const char* nome : {"copia", "trova", "numero", "errore", "pdf", "rileggi", "procedura"})
        QVERIFY2(!Figlio<QAction>(f, nome)->isEnabled(), nome);
    // Every key is harmless.
    for (const Qt::Key tasto :
         {Qt::Key_Down, Qt::Key_PageUp, Qt::Key_End, Qt::Key_F3, Qt::Key_F8, Qt::Key_F5})
        Premi(f, tasto);
    Premi(f, Qt::Key_A, Qt::ControlModifier);
    QTest::mouseClick(f->LaVista()->viewport(), Qt::LeftButton, {}, {50, 50});
    QTest::mouseDClick(f->LaVista()->viewport(), Qt::LeftButton, {}, {50, 50});
    f->grab();
}

void ProvaFinestra::ApriETrascina() {
    Banco b;
    FinestraLettore* f = b.L.Nuova();
    QVERIFY(QTest::qWaitForWindowActive(f, Attesa));
    Premi(f, Qt::Key_O, Qt::ControlModifier); // cancelled
    QVERIFY(f->File().isEmpty());
    b.Scelti = {Esempio("A.log")};
    Premi(f, Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(b.L.Finestre().size(), 1); // shown in the empty window
    QCOMPARE(f->windowTitle(), QString("A.log - Morvella Lettore"));
    QVERIFY(Figlio<QAction>(f, "trova")->isEnabled());
    b.Scelti = {Esempio("B.log")};
    Premi(f, Qt::Key_O, Qt::ControlModifier); // in a new one
    QCOMPARE(b.L.Finestre().size(), 2);

    QMimeData dati;
    dati.setUrls({QUrl::fromLocalFile(Esempio("C.log")), QUrl("http://example.invalid/x")});
    QDragEnterEvent entra({5, 5}, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(f, &entra);
    QVERIFY(entra.isAccepted());
    QDropEvent cade({5, 5}, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(f, &cade);
    QCOMPARE(b.L.Finestre().size(), 3);
    QCOMPARE(b.L.Finestre()[2]->windowTitle(), QString("C.log - Morvella Lettore"));

    QMimeData testo;
    testo.setText("x");
    QDragEnterEvent altro({5, 5}, Qt::CopyAction, &testo, Qt::LeftButton, Qt::NoModifier);
    altro.ignore();
    QApplication::sendEvent(f, &altro);
    QVERIFY(!altro.isAccepted());
    QVERIFY(b.Avvisi.isEmpty());
}

// A run rewrites the listing while it is shown: the reader shows the new one, at the same line of
// the same procedure.
void ProvaFinestra::Riscritta() {
    Banco b;
    QList<QByteArray> righe = provefinestra::Esempio();
    for (int i = 0; i < 100; ++i) righe << G("000021     ···x");
    const QString file = cartella_.Scrivi("riscritta.log", Unite(righe));
    FinestraLettore* f = b.Apri(file);
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    v->MettiPrimaRiga(18);
    v->Vai({20, 17});
    righe[20] = G("000015     ···┌─>If nuova Then b = 1");
    cartella_.Scrivi("riscritta.log", Unite(QList<QByteArray>{"prima", "prima"} + righe));
    QTRY_COMPARE_WITH_TIMEOUT(f->LaStruttura()->Righe(), 130, Attesa);
    AL_POSTO(v, 22, 17);
    QCOMPARE(v->PrimaRiga(), 20);
    QVERIFY(v->RigaDetta().contains("nuova"));
    QCOMPARE(Figlio<QTreeView>(f, "elenco")->model()->rowCount(), 3);
    QCOMPARE(f->LaStruttura()->Errori(), (std::vector<Lungo>{23, 28}));

    // Written under another name and put in its place.
    const QString nuova = cartella_.Scrivi("nuova.tmp", Unite(righe));
    QFile::remove(file);
    QVERIFY(QFile::rename(nuova, file));
    QTRY_COMPARE_WITH_TIMEOUT(f->LaStruttura()->Righe(), 128, Attesa);
    AL_POSTO(v, 20, 17);
    // Much shorter: the nearest place.
    cartella_.Scrivi("riscritta.log", "000001        x\r\n");
    QTRY_COMPARE_WITH_TIMEOUT(f->LaStruttura()->Righe(), 1, Attesa);
    AL_POSTO(v, 0, 15);
    QVERIFY(b.Avvisi.isEmpty()); // no box for what the user did
}

void ProvaFinestra::SparitaETornata() {
    Banco b;
    const QByteArray bytes = Unite(provefinestra::Esempio());
    const QString file = cartella_.Scrivi("torna.log", bytes);
    FinestraLettore* f = b.Apri(file);
    QVERIFY(f);
    f->LaVista()->Vai({20, 17});
    QSignalSpy detti(f->statusBar(), &QStatusBar::messageChanged); // the bar shows it for a while only
    QFile::remove(file);
    QTRY_COMPARE_WITH_TIMEOUT(f->LaStruttura()->Righe(), 0, Attesa);
    QVERIFY(f->LaVista()->RigaDetta().startsWith("Il file non si può più leggere:"));
    QVERIFY(detti.contains(QList<QVariant>{"«torna.log» non si può più leggere."}));
    f->grab();
    Premi(f, Qt::Key_F5);
    Premi(f, Qt::Key_F8);
    // Back, but empty at first, as when a file is being written.
    cartella_.Scrivi("torna.log", "");
    QTRY_COMPARE_WITH_TIMEOUT(f->LaVista()->RigaDetta(), QString("La struttura è vuota."), Attesa);
    cartella_.Scrivi("torna.log", bytes);
    QTRY_COMPARE_WITH_TIMEOUT(f->LaStruttura()->Righe(), 28, Attesa);
    AL_POSTO(f->LaVista(), 20, 17); // not forgotten
    QVERIFY(b.Avvisi.isEmpty());
}

void ProvaFinestra::Chiudere() {
    Banco b;
    FinestraLettore* uno = b.Apri(Esempio("Uno.log"));
    QVERIFY(uno);
    FinestraLettore* due = b.Apri(Esempio("Due.log"));
    FinestraLettore* tre = b.Apri(Esempio("Tre.log"));
    QVERIFY(due && tre);
    Premi(tre, Qt::Key_W, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(b.L.Finestre().size(), 2, Attesa);
    QCOMPARE(b.L.Apri({cartella_.Percorso("Tre.log")}), 0); // closed: it opens again
    QCOMPARE(b.L.Finestre().size(), 3);
    due->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(due, Attesa));
    QSignalSpy ultima(qApp, &QGuiApplication::lastWindowClosed);
    Premi(due, Qt::Key_Q, Qt::ControlModifier);
    QTRY_COMPARE_WITH_TIMEOUT(b.L.Finestre().size(), 0, Attesa);
}

// Everything by keyboard: each menu and command has a mnemonic, unique in its menu, and each control
// an accessible name.
void ProvaFinestra::MenuENomi() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    const auto lettere = [](const QList<QAction*>& azioni) {
        QSet<QString> viste;
        for (const QAction* azione : azioni) {
            if (azione->isSeparator()) continue;
            const auto e = azione->text().indexOf('&');
            if (e < 0 || viste.contains(azione->text().mid(e + 1, 1).toLower())) {
                qWarning() << azione->text();
                return false;
            }
            viste << azione->text().mid(e + 1, 1).toLower();
        }
        return !viste.isEmpty();
    };
    QVERIFY(lettere(f->menuBar()->actions()));
    for (const QAction* menu : f->menuBar()->actions()) QVERIFY(lettere(menu->menu()->actions()));
    QMap<QString, QString> tasti;
    for (const QAction* azione : f->findChildren<QAction*>())
        for (const QKeySequence& tasto : azione->shortcuts()) {
            QVERIFY2(!tasti.contains(tasto.toString()), qPrintable(tasto.toString()));
            tasti[tasto.toString()] = azione->text();
        }
#ifdef MORVELLA_STAMPA
    QCOMPARE(tasti["Ctrl+P"], QString("&Stampa..."));
#else
    QVERIFY(!tasti.contains("Ctrl+P"));
#endif
    QCOMPARE(f->LaVista()->accessibleName(), QString("Struttura"));
    for (const char* nome : {"daTrovare", "ilNumero", "elenco", "esito", "esitoNumero", "stato"})
        QVERIFY2(!Figlio<QWidget>(f, nome)->accessibleName().isEmpty(), nome);
    for (const QPushButton* bottone : f->findChildren<QPushButton*>())
        QVERIFY(!bottone->accessibleName().isEmpty());
    QAccessibleInterface* voce = QAccessible::queryAccessibleInterface(f->LaVista());
    QVERIFY(voce);
    f->LaVista()->Vai({12, 0});
    QCOMPARE(voce->text(QAccessible::Value), QString("000011        ╚═>Next i"));
    QCOMPARE(voce->text(QAccessible::Name), QString("Struttura"));
}

void ProvaFinestra::Pdf() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio("Stampata.log"));
    QVERIFY(f);
    auto* azione = Figlio<QAction>(f, "pdf");
    azione->trigger(); // cancelled
    QCOMPARE(b.Avvisi, QStringList{"pdf|" + cartella_.Percorso("Stampata.pdf")});
    b.Pdf = cartella_.Percorso("Stampata.pdf");
    azione->trigger();
    QFile pdf(b.Pdf);
    QVERIFY(pdf.open(QIODevice::ReadOnly));
    const QByteArray bytes = pdf.readAll();
    QVERIFY(bytes.startsWith("%PDF-"));
    QCOMPARE(bytes.count("/Type /Page\n"), 1);
    QCOMPARE(Detto(f), QString("Salvato «Stampata.pdf»."));
    b.Avvisi.clear();
    b.Pdf = cartella_.Percorso("manca/x.pdf");
    azione->trigger();
    QCOMPARE(b.Avvisi.last(),
             "Morvella Lettore|Non si può salvare «" + b.Pdf + "».\n\nIl file non si può scrivere.");

    FinestraLettore* lunga = b.Apri(cartella_.Scrivi("lunga.log", Molte(1000)));
    QVERIFY(lunga);
    QString perche;
    const QString dove = cartella_.Percorso("lunga.pdf");
    QVERIFY(lunga->ScriviPdf(dove, perche));
    QFile molte(dove);
    QVERIFY(molte.open(QIODevice::ReadOnly));
    QPdfWriter carta(cartella_.Percorso("misura.pdf"));
    carta.setPageSize(QPageSize(QPageSize::A4));
    carta.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
    Stampa stampa(*lunga->LaStruttura(), carta, "x");
    QVERIFY(stampa.Pagine() > 5);
    QCOMPARE(molte.readAll().count("/Type /Page\n"), stampa.Pagine());
    QVERIFY(stampa.Colonne() >= 115); // the box fits
}

// A long line is continued in the next row, after the columns of its blocks.
void ProvaFinestra::RigheDiStampa() {
    const QByteArray lunga = G("000001     ···║··┌─>") + "If " + QByteArray(300, 'x');
    Struttura s(Di(cartella_.Scrivi("s.log", Unite({lunga, "corta", ""}))));
    s.Carica();
    QPdfWriter carta(cartella_.Percorso("carta.pdf"));
    Stampa stampa(s, carta, "s.log");
    const Lungo c = stampa.Colonne(); // the line has 323 columns, 20 of them before its text
    std::vector<RigaStampata> attese = {{0, 0, c, 0}};
    for (Lungo da = c; da < 323; da += c - 20)
        attese.push_back({0, da, std::min<Lungo>(323, da + c - 20), 20});
    QCOMPARE(stampa.Righe(0), attese);
    QCOMPARE(stampa.Righe(1), (std::vector<RigaStampata>{{1, 0, 5, 0}}));
    QCOMPARE(stampa.Righe(2), (std::vector<RigaStampata>{{2, 0, 0, 0}}));
    QCOMPARE(stampa.Pagine(), 1);
    QVERIFY(!stampa.Esegui(1, 1, [](Lungo) { return false; })); // stopped by the user
    QList<Lungo> pagine;
    QVERIFY(stampa.Esegui(1, 5, [&](Lungo pagina) {
        pagine << pagina;
        return true;
    }));
    QCOMPARE(pagine, QList<Lungo>{1});
}

void ProvaFinestra::Aiuto() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    Premi(f, Qt::Key_F1);
    QVERIFY(b.Avvisi.value(0).startsWith("Tasti|"));
    // The list of keys agrees with the menus.
    for (const char* nome :
         {"apri", "rileggi", "trova", "numero", "copia", "tutto", "chiudi", "esci", "errore", "successivo"}) {
        const QString tasto = Figlio<QAction>(f, nome)->shortcut().toString();
        QVERIFY2(b.Avvisi.value(0).contains(tasto), qPrintable(tasto));
    }
    Figlio<QAction>(f, "informazioni")->trigger();
    QVERIFY(b.Avvisi.value(1).startsWith("Informazioni|Morvella Lettore " MORVELLA_VERSIONE));
}

// Texts of Qt that the user sees.
void ProvaFinestra::Italiano() {
    QCOMPARE(QCoreApplication::translate("QLineEdit", "Select All"), QString("Seleziona tutto"));
    QCOMPARE(QCoreApplication::translate("QFileDialog", "All Files (*)"), QString("Tutti i file (*)"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QString("Annulla"));
    QCOMPARE(QCoreApplication::translate("Altro", "Cancel"), QString("Cancel"));
}

void ProvaFinestra::Argomenti() {
    QCOMPARE(LeggiArgomenti({}).Che, Richiesta::Mostra);
    QVERIFY(LeggiArgomenti({}).File.isEmpty());
    const Richiesta r = LeggiArgomenti({"a.log", "--lf", "perché.log", "--", "-h", "--"});
    QCOMPARE(r.Che, Richiesta::Mostra);
    QCOMPARE(r.File, (QStringList{"a.log", "perché.log", "-h", "--"}));
    QVERIFY(r.Lf);
    QVERIFY(!LeggiArgomenti({"a.log"}).Lf);
    for (const char* aiuto : {"-h", "--aiuto"}) QCOMPARE(LeggiArgomenti({"x", aiuto}).Che, Richiesta::Aiuto);
    for (const char* versione : {"-V", "--versione"})
        QCOMPARE(LeggiArgomenti({versione}).Che, Richiesta::Versione);
    const Richiesta errata = LeggiArgomenti({"x", "--colori", "-z"});
    QCOMPARE(errata.Che, Richiesta::Errata);
    QCOMPARE(errata.Opzione, QString("--colori"));
    QCOMPARE(LeggiArgomenti({"--colori", "-h"}).Che, Richiesta::Aiuto);
}

} // namespace morvella::lettore

QTEST_MAIN(morvella::lettore::ProvaFinestra)
#include "finestra_test.moc"

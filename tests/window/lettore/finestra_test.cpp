// SPDX-License-Identifier: MIT
//
// The reader's windows, by keys and mouse, without a screen.
#include "window/lettore/banco.h"

#include <cmath>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPdfWriter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTimer>
#include <QTreeView>
#include <QWheelEvent>

#include "window/lettore/argomenti.h"
#include "window/lettore/finestra.h"
#include "window/lettore/italiano.h"
#include "window/lettore/lettore.h"
#include "window/lettore/stampa.h"

namespace morvella::lettore {

namespace {

using namespace provefinestra;

struct Banco {
    QStringList Avvisi;
    QStringList Scelti; // the answer of the next file dialog
    QString Pdf;
    Lettore L;

    explicit Banco(bool lf = false)
        : L({[this](QWidget*, bool, const QString& titolo, const QString& testo) {
                 Avvisi << titolo + "|" + testo;
             },
             [this](QWidget*, const QString&) { return Scelti; },
             [this](QWidget*, const QString& proposto) {
                 Avvisi << "pdf|" + proposto;
                 return Pdf;
             }},
            lf) {}

    FinestraLettore* Apri(const QString& file) {
        if (L.Apri({file}) != 0) return nullptr;
        FinestraLettore* finestra = L.Finestre().constLast();
        finestra->activateWindow();
        return QTest::qWaitForWindowActive(finestra, Attesa) ? finestra : nullptr;
    }
};

template <class Cosa>
Cosa* Figlio(FinestraLettore* finestra, const char* nome) {
    return finestra->findChild<Cosa*>(nome);
}

QString Detto(FinestraLettore* f) { return f->statusBar()->currentMessage(); }
QString Stato(FinestraLettore* f) { return Figlio<QLabel>(f, "stato")->text(); }
QString Scelto(FinestraLettore* f) { return f->LaVista()->TestoScelto().value_or("troppo"); }

// Sends a key to the focus widget, as the desktop does.
void Premi(FinestraLettore* f, Qt::Key tasto, Qt::KeyboardModifiers con = Qt::NoModifier) {
    QWidget* dove = f->focusWidget();
    QTest::keyClick(dove ? dove : f, tasto, con);
}
// Types characters that QTest has no keys for.
void Scrivi(FinestraLettore* f, const QString& testo) {
    for (const QChar c : testo)
        QTest::sendKeyEvent(QTest::Click, f->focusWidget(), Qt::Key_unknown, c, Qt::NoModifier);
}

QPoint Punto(VistaStruttura* v, Lungo riga, Lungo colonna) {
    return {static_cast<int>(4 + (static_cast<qreal>(colonna) - v->horizontalScrollBar()->value()) *
                                     v->Celle().Larga()) +
                1,
            static_cast<int>((static_cast<qreal>(riga - v->PrimaRiga()) + 0.5) * v->Celle().Alta())};
}

#define AL_POSTO(vista, riga, byte)                                                                          \
    QCOMPARE(QPoint(int((vista)->Cursore().Byte), int((vista)->Cursore().Riga)), QPoint(byte, riga))

QByteArray Molte(int quante) {
    QByteArray bytes;
    for (int i = 1; i <= quante; ++i)
        bytes +=
            QByteArray::number(i).rightJustified(6, '0') + "        riga " + QByteArray::number(i) + "\r\n";
    return bytes;
}

} // namespace

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
    void Cursore();
    void Selezione();
    void Mouse();
    void Copia();
    void Trova();
    void TrovaDaSelezione();
    void AlNumero();
    void Errori();
    void SenzaErrori();
    void Procedure();
    void ProcedureConITasti();
    void Zoom();
    void RigaLunga();
    void NonEUnaStruttura();
    void Vuota();
    void Riscritta();
    void SparitaETornata();
    void MillePagine();
    void DisegnaSoltantoCioCheSiVede();
    void NienteInterruzioniNellaVista();
    void Colori();
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

void ProvaFinestra::Cursore() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    QVERIFY(v->hasFocus());
    AL_POSTO(v, 0, 0);
    Premi(f, Qt::Key_End);
    AL_POSTO(v, 0, 115);
    // The caret keeps its column across shorter lines.
    for (int i = 0; i < 5; ++i) Premi(f, Qt::Key_Down);
    AL_POSTO(v, 5, 30); // 14 and "Dim i As Integer"
    Premi(f, Qt::Key_Up);
    AL_POSTO(v, 4, 115);
    Premi(f, Qt::Key_Right);
    AL_POSTO(v, 5, 0);
    Premi(f, Qt::Key_Left);
    AL_POSTO(v, 4, 115);
    Premi(f, Qt::Key_Home);
    AL_POSTO(v, 4, 0);
    Premi(f, Qt::Key_End, Qt::ControlModifier);
    AL_POSTO(v, 27, 24); // 17 and "End Sub"
    Premi(f, Qt::Key_Down);
    Premi(f, Qt::Key_Right);
    AL_POSTO(v, 27, 24);
    Premi(f, Qt::Key_Home, Qt::ControlModifier);
    AL_POSTO(v, 0, 0);
    Premi(f, Qt::Key_Left);
    Premi(f, Qt::Key_Up);
    AL_POSTO(v, 0, 0);
    v->Vai({5, 14});
    Premi(f, Qt::Key_Right, Qt::ControlModifier); // word by word
    AL_POSTO(v, 5, 18);
    Premi(f, Qt::Key_Right, Qt::ControlModifier);
    AL_POSTO(v, 5, 20);
    Premi(f, Qt::Key_Left, Qt::ControlModifier);
    Premi(f, Qt::Key_Left, Qt::ControlModifier);
    AL_POSTO(v, 5, 14);
    QCOMPARE(v->RigaDetta(), QString("000004        Dim i As Integer"));
    QVERIFY(Stato(f).startsWith("numero 4  ·  riga 6 di 28"));
}

void ProvaFinestra::Selezione() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    f->LaVista()->Vai({6, 14});
    for (int i = 0; i < 6; ++i) Premi(f, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(Scelto(f), QString("╔═>For"));
    Premi(f, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(Scelto(f), QString("╔═>For i = 1 To n\n000006        ║  ┌─>"));
    Premi(f, Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(Scelto(f), QString("╔═>For i = 1 To n\n"));
    Premi(f, Qt::Key_Left); // to its start
    AL_POSTO(f->LaVista(), 6, 14);
    QVERIFY(!f->LaVista()->Scelto());
    Premi(f, Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(Scelto(f), QString("╔═>For i = 1 To n"));
    Premi(f, Qt::Key_Right); // to its end
    AL_POSTO(f->LaVista(), 6, 31);
    QVERIFY(!f->LaVista()->Scelto());
    Premi(f, Qt::Key_Home, Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(Scelto(f).endsWith("\n000005        ╔═>For i = 1 To n"));
    QCOMPARE(Scelto(f).count('\n'), 6);
    Premi(f, Qt::Key_PageDown, Qt::ShiftModifier);
    Premi(f, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(Scelto(f).count('\n'), 27);
    QVERIFY(Scelto(f).startsWith(QString(14, ' ') + "***"));
    QVERIFY(Scelto(f).endsWith("000020           End Sub"));
    QVERIFY(Scelto(f).contains("######  Errore generico - Manca uno o più elementi"));
}

void ProvaFinestra::Mouse() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    QWidget* dove = v->viewport();
    QTest::mouseClick(dove, Qt::LeftButton, {}, Punto(v, 10, 20));
    AL_POSTO(v, 10, 20);
    QTest::mouseClick(dove, Qt::LeftButton, Qt::ShiftModifier, Punto(v, 10, 25));
    QCOMPARE(Scelto(f), QString("Print"));
    QTest::mousePress(dove, Qt::LeftButton, {}, Punto(v, 6, 14));
    QTest::mouseMove(dove, Punto(v, 6, 20));
    QTest::mouseRelease(dove, Qt::LeftButton, {}, Punto(v, 6, 20));
    QCOMPARE(Scelto(f), QString("╔═>For"));
    QTest::mouseDClick(dove, Qt::LeftButton, {}, Punto(v, 10, 29));
    QCOMPARE(Scelto(f), QString("Perché"));
    QTest::mouseClick(dove, Qt::LeftButton, {}, Punto(v, 10, 29)); // the third: the line
    QCOMPARE(Scelto(f), QString("000009        ║  │  Print \"Perché\", i\n"));
    // A press on the number selects the line, and a drag from there lines.
    QTest::mousePress(dove, Qt::LeftButton, {}, Punto(v, 12, 3));
    QCOMPARE(Scelto(f), QString("000011        ╚═>Next i\n"));
    QTest::mouseMove(dove, Punto(v, 13, 40));
    QCOMPARE(Scelto(f), QString("000011        ╚═>Next i\n000012        End Sub\n"));
    QTest::mouseMove(dove, Punto(v, 11, 2));
    QCOMPARE(Scelto(f), QString("000010        ║  └─>End If\n000011        ╚═>Next i\n"));
    QTest::mouseRelease(dove, Qt::LeftButton, {}, Punto(v, 11, 2));
    // Below the last line and left of the first column.
    QTest::mouseClick(dove, Qt::LeftButton, {}, Punto(v, 33, 5));
    AL_POSTO(v, 27, 24);
    QTest::mouseClick(dove, Qt::LeftButton, {}, {0, Punto(v, 0, 0).y()});
    AL_POSTO(v, 0, 0);

    // A drag that is held below the view scrolls.
    FinestraLettore* molte = b.Apri(cartella_.Scrivi("molte.log", Molte(500)));
    QVERIFY(molte);
    VistaStruttura* m = molte->LaVista();
    QTest::mousePress(m->viewport(), Qt::LeftButton, {}, Punto(m, 2, 14));
    QTest::mouseMove(m->viewport(), {100, m->viewport()->height() + 60});
    QTRY_VERIFY_WITH_TIMEOUT(m->PrimaRiga() > 20, Attesa);
    QTest::mouseRelease(m->viewport(), Qt::LeftButton, {}, {100, m->viewport()->height() + 60});
    const Lungo ferma = m->PrimaRiga();
    QVERIFY(m->Cursore().Riga >= ferma);
    // Nothing moves while a timer like that of the view fires three times.
    QTimer altro;
    QSignalSpy scatti(&altro, &QTimer::timeout);
    altro.start(50);
    QTRY_VERIFY_WITH_TIMEOUT(scatti.size() >= 3, Attesa);
    QCOMPARE(m->PrimaRiga(), ferma);
}

void ProvaFinestra::Copia() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    QApplication::clipboard()->setText("prima");
    Premi(f, Qt::Key_C, Qt::ControlModifier); // nothing selected: the clipboard stays
    QCOMPARE(QApplication::clipboard()->text(), QString("prima"));
    f->LaVista()->Scegli({10, 14}, {11, 23});
    Premi(f, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(),
             QString("║  │  Print \"Perché\", i\n000010        ║  └─>End"));

    // A split line is copied as one; control characters are copied as their pictures.
    FinestraLettore* g = b.Apri(
        cartella_.Scrivi("lunga.log", QByteArray(Struttura::LimiteRiga, 'x') + "fine\r\na\tb\rc\x1B\r\n"));
    QVERIFY(g);
    Premi(g, Qt::Key_A, Qt::ControlModifier);
    const QString tutto = Scelto(g);
    QCOMPARE(tutto.size(), Struttura::LimiteRiga + 4 + 1 + 6);
    QVERIFY(tutto.endsWith("xfine\na\tb␍c␛"));
}

void ProvaFinestra::Trova() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    auto* barra = Figlio<QWidget>(f, "barraTrova");
    auto* esito = Figlio<QLabel>(f, "esito");
    QVERIFY(!barra->isVisible());
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(barra->isVisible());
    QCOMPARE(f->focusWidget(), Figlio<QLineEdit>(f, "daTrovare"));
    Scrivi(f, "p"); // found as it is typed
    QCOMPARE(Scelto(f), QString("P"));
    Scrivi(f, "erché");
    QCOMPARE(Scelto(f), QString("Perché"));
    AL_POSTO(v, 10, 33);
    QCOMPARE(esito->text(), QString());
    Premi(f, Qt::Key_Return);
    QCOMPARE(Scelto(f), QString("PERCHÉ"));
    AL_POSTO(v, 23, 22);
    Premi(f, Qt::Key_F3); // wraps around and says so
    AL_POSTO(v, 10, 33);
    QCOMPARE(esito->text(), QString("Ricominciato dall'inizio."));
    Premi(f, Qt::Key_F3, Qt::ShiftModifier);
    AL_POSTO(v, 23, 22);
    QCOMPARE(esito->text(), QString("Ricominciato dalla fine."));
    Premi(f, Qt::Key_Return, Qt::ShiftModifier);
    AL_POSTO(v, 10, 33);
    QCOMPARE(esito->text(), QString());
    // No match: says so, and the selection stays.
    Scrivi(f, "!");
    QCOMPARE(esito->text(), QString("«perché!» non trovato."));
    AL_POSTO(v, 10, 33);
    Premi(f, Qt::Key_Escape);
    QVERIFY(!barra->isVisible());
    QVERIFY(v->hasFocus());
    Premi(f, Qt::Key_F3); // in the status bar when the find bar is closed
    QCOMPARE(Detto(f), QString("«perché!» non trovato."));
    // By the buttons, and for drawn characters.
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    Scrivi(f, "─>");
    AL_POSTO(v, 11, 20); // from the caret in line 10
    for (QPushButton* bottone : barra->findChildren<QPushButton*>())
        if (bottone->text() == "P&recedente") bottone->click();
    AL_POSTO(v, 9, 20);
    for (QPushButton* bottone : barra->findChildren<QPushButton*>())
        if (bottone->text() == "C&hiudi") bottone->click();
    QVERIFY(!barra->isVisible());
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    v->setFocus();
    Premi(f, Qt::Key_Escape); // from the listing as well
    QVERIFY(!barra->isVisible());
}

void ProvaFinestra::TrovaDaSelezione() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    Premi(f, Qt::Key_F3); // nothing to find yet: opens the bar
    QVERIFY(Figlio<QWidget>(f, "barraTrova")->isVisible());
    Premi(f, Qt::Key_Escape);
    f->LaVista()->Scegli({12, 17}, {12, 23});
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(Figlio<QLineEdit>(f, "daTrovare")->text(), QString("Next i"));
    // Decomposed letters are the same letters.
    auto* testo = Figlio<QLineEdit>(f, "daTrovare");
    testo->setText(QString("Perche") + QChar(0x301));
    Premi(f, Qt::Key_Return);
    QCOMPARE(Scelto(f), QString("PERCHÉ"));
}

void ProvaFinestra::AlNumero() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    auto* barra = Figlio<QWidget>(f, "barraNumero");
    auto* esito = Figlio<QLabel>(f, "esitoNumero");
    Premi(f, Qt::Key_G, Qt::ControlModifier);
    QVERIFY(barra->isVisible());
    Scrivi(f, "1x5"); // takes digits only
    Premi(f, Qt::Key_Return);
    QVERIFY(!barra->isVisible()); // found: closes
    QCOMPARE(Scelto(f), QString("000015        ┌─>If a Then b = 1"));
    QVERIFY(f->LaVista()->hasFocus());
    const std::pair<const char*, const char*> casi[] = {
        {"1", "Il numero 1 non c'è: il seguente è 3."},
        {"99", "L'ultimo numero è 20."},
        {"1000000", "Oltre 999999 le righe non hanno numero."},
    };
    for (const auto& [numero, detto] : casi) {
        Premi(f, Qt::Key_G, Qt::ControlModifier);
        Scrivi(f, numero);
        Premi(f, Qt::Key_Return);
        QVERIFY(barra->isVisible());
        QCOMPARE(esito->text(), QString(detto));
    }
    QCOMPARE(Scelto(f), QString("000020           End Sub"));
    Premi(f, Qt::Key_F, Qt::ControlModifier); // one bar at a time
    QVERIFY(!barra->isVisible());

    FinestraLettore* testo = b.Apri(cartella_.Scrivi("testo.txt", "ciao\r\n"));
    QVERIFY(testo);
    Premi(testo, Qt::Key_G, Qt::ControlModifier);
    Scrivi(testo, "1");
    Premi(testo, Qt::Key_Return);
    QCOMPARE(Figlio<QLabel>(testo, "esitoNumero")->text(), QString("Questo file non ha righe numerate."));
    Premi(testo, Qt::Key_Escape);
    QVERIFY(testo->LaVista()->hasFocus());
}

void ProvaFinestra::Errori() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    Premi(f, Qt::Key_F8);
    AL_POSTO(v, 21, 0);
    QCOMPARE(Detto(f), QString("Errore 1 di 2."));
    Premi(f, Qt::Key_F8);
    AL_POSTO(v, 26, 0);
    QCOMPARE(Detto(f), QString("Errore 2 di 2."));
    Premi(f, Qt::Key_F8);
    AL_POSTO(v, 21, 0);
    QCOMPARE(Detto(f), QString("Ricominciato dall'inizio. Errore 1 di 2."));
    Premi(f, Qt::Key_F8, Qt::ShiftModifier);
    AL_POSTO(v, 26, 0);
    QCOMPARE(Detto(f), QString("Ricominciato dalla fine. Errore 2 di 2."));
    Premi(f, Qt::Key_F8, Qt::ShiftModifier);
    AL_POSTO(v, 21, 0);
    QCOMPARE(Detto(f), QString("Errore 1 di 2."));
}

void ProvaFinestra::SenzaErrori() {
    Banco b;
    FinestraLettore* f = b.Apri(cartella_.Scrivi("sana.log", "000001        x\r\n"));
    QVERIFY(f);
    for (const auto con : {Qt::NoModifier, Qt::ShiftModifier}) {
        Premi(f, Qt::Key_F8, con);
        QCOMPARE(Detto(f), QString("Nessun errore in questa struttura."));
    }
    QCOMPARE(Stato(f), QString("numero 1  ·  riga 1 di 1  ·  0 errori  ·  0 procedure  ·  100 %"));
}

void ProvaFinestra::Procedure() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    auto* elenco = Figlio<QTreeView>(f, "elenco");
    QVERIFY(elenco->isVisible());
    const QAbstractItemModel* m = elenco->model();
    QCOMPARE(m->rowCount(), 3);
    const auto testo = [&](int riga, int colonna, int ruolo = Qt::DisplayRole) {
        return m->index(riga, colonna).data(ruolo).toString();
    };
    QCOMPARE(testo(0, 0), QString("Prova"));
    QCOMPARE(testo(0, 1), QString());
    QCOMPARE(testo(1, 0), QString("Somma"));
    QCOMPARE(testo(1, 1), QString("aperta")); // in words, not only by colour
    QCOMPARE(testo(2, 0), QString("End Sub (testa senza riquadro)"));
    QCOMPARE(testo(1, 0, Qt::AccessibleTextRole), QString("Somma, lasciata aperta"));
    QCOMPARE(testo(0, 0, Qt::AccessibleTextRole), QString("Prova"));
    QCOMPARE(testo(1, 0, Qt::ToolTipRole),
             QString("Public Function Somma() As Long\nriga 14\nfinisce con blocchi aperti"));
    QVERIFY(!m->index(0, 0).data(Qt::ForegroundRole).isValid());
    const auto colore = m->index(1, 0).data(Qt::ForegroundRole).value<QColor>();
    QVERIFY(Contrasto(colore, elenco->palette().color(QPalette::Base)) >= 4.5);
    QVERIFY(Contrasto(elenco->palette().color(QPalette::HighlightedText),
                      elenco->palette().color(QPalette::Highlight)) >= 4.5);

    // The list follows the caret, and the caret follows a click.
    QVERIFY(!elenco->currentIndex().isValid());
    f->LaVista()->Vai({20, 0});
    QCOMPARE(elenco->currentIndex().row(), 1);
    QTest::mouseClick(elenco->viewport(), Qt::LeftButton, {}, elenco->visualRect(m->index(0, 0)).center());
    AL_POSTO(f->LaVista(), 2, 0);
    Premi(f, Qt::Key_F6);
    Premi(f, Qt::Key_F6);
    Premi(f, Qt::Key_F9);
    QVERIFY(!elenco->isVisible());
    Premi(f, Qt::Key_F9);
    QVERIFY(elenco->isVisible());
}

void ProvaFinestra::ProcedureConITasti() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    auto* elenco = Figlio<QTreeView>(f, "elenco");
    Premi(f, Qt::Key_F6);
    QVERIFY(elenco->hasFocus());
    Premi(f, Qt::Key_End);
    AL_POSTO(v, 26, 0);
    Scrivi(f, "so"); // type-ahead
    AL_POSTO(v, 17, 0);
    Premi(f, Qt::Key_Return);
    QVERIFY(v->hasFocus());
    AL_POSTO(v, 17, 0);
    Premi(f, Qt::Key_F6);
    Premi(f, Qt::Key_Escape);
    QVERIFY(v->hasFocus());

    Premi(f, Qt::Key_PageDown, Qt::ControlModifier);
    AL_POSTO(v, 26, 0);
    Premi(f, Qt::Key_PageDown, Qt::ControlModifier);
    AL_POSTO(v, 26, 0);
    QCOMPARE(Detto(f), QString("Nessuna procedura più avanti."));
    v->Vai({20, 0});
    Premi(f, Qt::Key_PageUp, Qt::ControlModifier); // first to this one's head
    AL_POSTO(v, 17, 0);
    Premi(f, Qt::Key_PageUp, Qt::ControlModifier);
    AL_POSTO(v, 2, 0);
    Premi(f, Qt::Key_PageUp, Qt::ControlModifier);
    AL_POSTO(v, 2, 0);
    QCOMPARE(Detto(f), QString("Nessuna procedura più indietro."));
}

void ProvaFinestra::Zoom() {
    Banco b;
    FinestraLettore* f = b.Apri(cartella_.Scrivi("molte.log", Molte(500)));
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    const qreal alta = v->Celle().Alta();
    v->MettiPrimaRiga(100);
    Premi(f, Qt::Key_Plus, Qt::ControlModifier);
    Premi(f, Qt::Key_Equal, Qt::ControlModifier);
    QCOMPARE(v->Zoom(), 120);
    QVERIFY(v->Celle().Alta() > alta);
    QCOMPARE(v->PrimaRiga(), 100);
    QVERIFY(Stato(f).endsWith("120 %"));
    Premi(f, Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(v->Zoom(), 110);
    Premi(f, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(v->Zoom(), 100);
    QCOMPARE(v->Celle().Alta(), alta);
    const auto ruota = [&](int quanto, Qt::KeyboardModifiers con) {
        QWheelEvent evento({50, 50}, v->viewport()->mapToGlobal(QPointF(50, 50)), {}, {0, quanto},
                           Qt::NoButton, con, Qt::NoScrollPhase, false);
        QApplication::sendEvent(v->viewport(), &evento);
    };
    ruota(120, Qt::ControlModifier);
    QCOMPARE(v->Zoom(), 110);
    ruota(-60, Qt::ControlModifier); // half a notch, and the other half
    QCOMPARE(v->Zoom(), 110);
    ruota(-60, Qt::ControlModifier);
    QCOMPARE(v->Zoom(), 100);
    QCOMPARE(v->PrimaRiga(), 100);
    ruota(-120, Qt::NoModifier); // without Ctrl it scrolls
    QCOMPARE(v->Zoom(), 100);
    QVERIFY(v->PrimaRiga() > 100);
    for (int i = 0; i < 60; ++i) Premi(f, Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(v->Zoom(), 400);
    for (int i = 0; i < 60; ++i) Premi(f, Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(v->Zoom(), 50);
}

void ProvaFinestra::RigaLunga() {
    Banco b;
    FinestraLettore* f = b.Apri(cartella_.Scrivi("lunga.log", "000001        " + QByteArray(60000, 'x') +
                                                                  "fine\r\n000002        corta\r\n"));
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    Premi(f, Qt::Key_End);
    AL_POSTO(v, 0, 60018);
    QVERIFY(v->horizontalScrollBar()->value() > 59000);
    const QImage fine = v->grab().toImage();
    v->horizontalScrollBar()->setValue(30000);
    QVERIFY(v->grab().toImage() != fine);
    Premi(f, Qt::Key_Down);
    AL_POSTO(v, 1, 19);
    QCOMPARE(v->horizontalScrollBar()->value(), 0);
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    Scrivi(f, "FINE");
    QCOMPARE(Scelto(f), QString("fine"));
    QVERIFY(v->horizontalScrollBar()->value() > 59000);
}

void ProvaFinestra::NonEUnaStruttura() {
    Banco b;
    QByteArray bytes;
    for (int i = 0; i < 20000; ++i) bytes += static_cast<char>(i * 7919 >> 3);
    FinestraLettore* f = b.Apri(cartella_.Scrivi("bytes.bin", bytes));
    QVERIFY(f);
    QVERIFY(f->LaStruttura()->Righe() > 0);
    for (int i = 0; i < 5; ++i) {
        f->grab();
        Premi(f, Qt::Key_PageDown);
    }
    Premi(f, Qt::Key_A, Qt::ControlModifier);
    f->grab();
    FinestraLettore* unix = b.Apri(cartella_.Scrivi("unix.txt", "uno\ndue\n"));
    QVERIFY(unix);
    QCOMPARE(unix->LaStruttura()->Righe(), 2);

    Banco lf(true);
    FinestraLettore* misto = lf.Apri(cartella_.Scrivi("misto.log", "uno\ndue\r\n"));
    QVERIFY(misto);
    QCOMPARE(misto->LaStruttura()->Righe(), 2);
}

void ProvaFinestra::Vuota() {
    Banco b;
    FinestraLettore* f = b.Apri(cartella_.Scrivi("vuota.log", ""));
    QVERIFY(f);
    QCOMPARE(f->LaVista()->RigaDetta(), QString("La struttura è vuota."));
    QCOMPARE(Stato(f), QString("0 errori  ·  0 procedure  ·  100 %"));
    for (const Qt::Key tasto : {Qt::Key_Down, Qt::Key_End, Qt::Key_F8, Qt::Key_PageDown}) Premi(f, tasto);
    Premi(f, Qt::Key_A, Qt::ControlModifier);
    Premi(f, Qt::Key_C, Qt::ControlModifier);
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    Scrivi(f, "x");
    QCOMPARE(Figlio<QLabel>(f, "esito")->text(), QString("«x» non trovato."));
    f->grab();
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

void ProvaFinestra::MillePagine() {
    Banco b;
    FinestraLettore* f = b.Apri(cartella_.Scrivi("molte.log", Molte(100'000)));
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    Premi(f, Qt::Key_PageDown);
    const Lungo pagina = v->RigheInVista() - 1;
    QCOMPARE(v->PrimaRiga(), pagina);
    QCOMPARE(v->Cursore().Riga, pagina);
    Premi(f, Qt::Key_PageUp);
    QCOMPARE(v->PrimaRiga(), 0);
    Premi(f, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(v->Cursore().Riga, 99'999);
    QCOMPARE(v->PrimaRiga(), 100'000 - v->RigheInVista());
    Premi(f, Qt::Key_Up, Qt::ControlModifier); // scrolls, the caret stays
    QCOMPARE(v->PrimaRiga(), 99'999 - v->RigheInVista());
    QCOMPARE(v->Cursore().Riga, 99'999);
    Premi(f, Qt::Key_G, Qt::ControlModifier);
    Scrivi(f, "50000");
    Premi(f, Qt::Key_Return);
    QCOMPARE(v->Cursore().Riga, 49'999);
    QVERIFY(v->PrimaRiga() < 49'999 && v->PrimaRiga() + v->RigheInVista() > 49'999);
}

// Showing any place of a long listing reads a block or two.
void ProvaFinestra::DisegnaSoltantoCioCheSiVede() {
    Banco b;
    FinestraLettore* f = b.Apri(cartella_.Scrivi("molte.log", Molte(100'000)));
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    v->grab();
    const auto prima = f->LaStruttura()->BytesLetti();
    v->MettiPrimaRiga(70'000);
    v->grab();
    QVERIFY(f->LaStruttura()->BytesLetti() > prima);
    QVERIFY(f->LaStruttura()->BytesLetti() - prima < 600 * 1024);
    const auto dopo = f->LaStruttura()->BytesLetti();
    v->grab();
    QCOMPARE(f->LaStruttura()->BytesLetti(), dopo);
    QVERIFY(f->LaStruttura()->BytesTenuti() < 1024 * 1024);
}

void ProvaFinestra::NienteInterruzioniNellaVista() {
    Banco b;
    QList<QByteArray> righe = {G("000001     ···┌─>If a Then"), G("000002     ···│··╔═>For i")};
    for (int i = 0; i < 100; ++i) righe << G("000003     ···│··║··x");
    FinestraLettore* f = b.Apri(cartella_.Scrivi("colonne.log", Unite(righe)));
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    v->Vai({60, 0}); // the caret out of the way
    v->MettiPrimaRiga(0);
    for (const int zoom : {50, 80, 100, 110, 130, 170, 200, 300, 400}) {
        v->MettiZoom(zoom);
        f->menuBar()->setFixedHeight(20 + zoom % 7); // moves the view by some pixels
        QCoreApplication::processEvents();           // the new layout
        // In the window, where the view may begin between two device pixels.
        const QImage q = f->grab().toImage();
        const qreal scala = q.devicePixelRatio();
        const QPointF posto = v->viewport()->mapTo(f, QPoint(0, 0));
        const int fondo = static_cast<int>((posto.y() + v->viewport()->height()) * scala) - 1;
        const auto unito = [&](int colonna) {
            const qreal x = posto.x() + 4 + colonna * v->Celle().Larga();
            const int da = static_cast<int>(std::round(x * scala));
            const int a = static_cast<int>(std::round((x + v->Celle().Larga()) * scala));
            const int cima = static_cast<int>(std::ceil((posto.y() + 2 * v->Celle().Alta()) * scala)) + 1;
            int quanti = 0;
            bool prima = false;
            for (int px = da; px < a; ++px) {
                bool pieno = true;
                for (int y = cima; y < fondo && pieno; ++y)
                    pieno = Contrasto(q.pixelColor(px, y), v->Tinte().Fondo) > 3;
                quanti += pieno && !prima;
                prima = pieno;
            }
            return quanti;
        };
        QCOMPARE(unito(14), 1); // to the lower edge of the view
        QCOMPARE(unito(17), 2);
        QCOMPARE(unito(15), 0);
    }
}

void ProvaFinestra::Colori() {
    const QPalette prima = QApplication::palette();
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    QPalette scura;
    scura.setColor(QPalette::Base, QColor(30, 30, 30));
    scura.setColor(QPalette::Text, Qt::white);
    scura.setColor(QPalette::Window, QColor(45, 45, 45));
    scura.setColor(QPalette::WindowText, Qt::white);
    for (const QPalette& tavolozza : {scura, prima}) {
        QApplication::setPalette(tavolozza);
        QTRY_COMPARE_WITH_TIMEOUT(f->LaVista()->Tinte().Fondo, tavolozza.color(QPalette::Base), Attesa);
        const QImage q = f->LaVista()->viewport()->grab().toImage();
        QCOMPARE(q.pixelColor(q.width() - 2, q.height() - 2), tavolozza.color(QPalette::Base));
        const auto aperta =
            Figlio<QTreeView>(f, "elenco")->model()->index(1, 0).data(Qt::ForegroundRole).value<QColor>();
        QVERIFY(Contrasto(aperta, tavolozza.color(QPalette::Base)) >= 4.5);
    }
    // The error line's background runs across the view.
    const QImage q = f->LaVista()->viewport()->grab().toImage();
    const qreal scala = q.devicePixelRatio();
    const int y =
        static_cast<int>(std::ceil(21 * f->LaVista()->Celle().Alta() * scala)) + 1; // above its letters
    QCOMPARE(q.pixelColor(q.width() - 2, y), f->LaVista()->Tinte().ErroreFondo);
    QApplication::setPalette(prima);
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

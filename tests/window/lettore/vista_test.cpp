// SPDX-License-Identifier: MIT
//
// The view of a listing: caret, selection, mouse, copying, zoom, and what it draws.
#include <cmath>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTimer>
#include <QTreeView>
#include <QWheelEvent>

#include "window/lettore/banco_finestra.h"

namespace morvella::lettore {

using namespace provefinestra;

class ProvaVista : public QObject {
    Q_OBJECT

    Cartella cartella_;
    QString Esempio(const char* nome = "Modulo.log") {
        return cartella_.Scrivi(nome, Unite(provefinestra::Esempio()));
    }

  private slots:
    void initTestCase() { ParlaItaliano(*qApp); }
    void Cursore();
    void Selezione();
    void Mouse();
    void Copia();
    void Zoom();
    void RigaLunga();
    void NonEUnaStruttura();
    void Vuota();
    void MillePagine();
    void DisegnaSoltantoCioCheSiVede();
    void NienteInterruzioniNellaVista();
    void Colori();
};

void ProvaVista::Cursore() {
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

void ProvaVista::Selezione() {
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

void ProvaVista::Mouse() {
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

void ProvaVista::Copia() {
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

void ProvaVista::Zoom() {
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

void ProvaVista::RigaLunga() {
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

void ProvaVista::NonEUnaStruttura() {
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

void ProvaVista::Vuota() {
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

void ProvaVista::MillePagine() {
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
void ProvaVista::DisegnaSoltantoCioCheSiVede() {
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

void ProvaVista::NienteInterruzioniNellaVista() {
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

void ProvaVista::Colori() {
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

} // namespace morvella::lettore

QTEST_MAIN(morvella::lettore::ProvaVista)
#include "vista_test.moc"

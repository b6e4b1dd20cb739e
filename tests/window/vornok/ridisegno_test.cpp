// SPDX-License-Identifier: MIT
//
// What a run paints while nothing yields, how often, and what waits for its end.
#include <QScreen>

#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

using namespace std::chrono_literals;

namespace {

// Does something whenever a control is painted.
class Pittore : public QObject {
  public:
    Pittore(QWidget* controllo, std::function<void()> fai) : fai_(std::move(fai)) {
        controllo->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* evento) override {
        if (evento->type() == QEvent::Paint) fai_();
        return false;
    }

  private:
    std::function<void()> fai_;
};

} // namespace

class RidisegnoTest : public QObject {
    Q_OBJECT

  private slots:
    void barreDuranteLaCorsa();
    void barreOgniQuarantaMillisecondi();
    void nomiPiuCariDelLavoro();
    void dipintoDuranteLaCorsa();
    void arrestoLasciaLeBarre();
    void nessunEventoDuranteLaCorsa();
};

void RidisegnoTest::barreDuranteLaCorsa() {
    Banco b;
    Forma& w = b.Apri();
    b.ScegliSenzaCorsa();
    QStringList lette;
    bool prima = false, seconda = false;
    b.Disco.PrimaDiLeggere = [&](const std::string& file) {
        if (!file.ends_with(".frm") && !file.ends_with(".bas")) return;
        lette << b.C<QLabel>("Label2")->text();
        prima |= b.C("ProgressBar1")->isVisible();
        seconda |= b.C("Progress")->isVisible();
        b.Ora += 60ms; // a slow disk: the next change is due to be seen
    };
    const int ridisegni = w.Ridisegni();
    b.Comando("mnuRiordina");
    QVERIFY(lette.contains("\\p\\Form1.frm"));
    QVERIFY(lette.contains("\\p\\m.bas"));
    QVERIFY(prima);
    QVERIFY(seconda);
    QVERIFY(w.Ridisegni() - ridisegni >= 4); // at least once for each slow read
    QCOMPARE(b.C<QLabel>("Label2")->text(), QString());
    QVERIFY(!b.C("ProgressBar1")->isVisible());
    QVERIFY(!b.C("Progress")->isVisible());

    // While the clock stands still only names are painted: the first change of all, which is due,
    // then those of two files and the empty one at the end.
    b.Disco.PrimaDiLeggere = {};
    std::string lungo = "Attribute VB_Name = \"M\"\r\n";
    for (int i = 0; i < 4000; ++i) lungo += "x = 1\r\n";
    b.Disco.Metti("/p/m.bas", lungo);
    b.Ora += 1h;
    const int allora = w.Ridisegni();
    b.Comando("mnuRiordina");
    QCOMPARE(w.Ridisegni() - allora, 4);
}

void RidisegnoTest::barreOgniQuarantaMillisecondi() {
    Banco b;
    Forma& w = b.Apri();
    const auto dipinta = [&](std::chrono::milliseconds dopo) {
        b.Ora += dopo;
        const int prima = w.Ridisegni();
        w.RidisegnaBarra(w.S().Progress);
        return w.Ridisegni() - prima;
    };
    QCOMPARE(dipinta(1h), 1);
    QCOMPARE(dipinta(0ms), 0);
    QCOMPARE(dipinta(39ms), 0);
    QCOMPARE(dipinta(1ms), 1);
    QCOMPARE(dipinta(39ms), 0);
}

// A name is painted as long as painting takes less than a twentieth of the time.
void RidisegnoTest::nomiPiuCariDelLavoro() {
    for (const bool lento : {false, true}) {
        Banco b;
        std::string progetto;
        for (int i = 10; i < 30; ++i) {
            const std::string nome = "m" + std::to_string(i) + ".bas";
            progetto += "Module=M; " + nome + "\r\n";
            b.Disco.Metti("/p/" + nome, "x = 1\r\n");
        }
        b.Disco.Metti("/p/Uno.vbp", progetto);
        Forma& w = b.Apri();
        b.ScegliSenzaCorsa();
        Pittore caro(b.C("Label2"), [&] { b.Ora += 30ms; });
        QStringList visti;
        b.Disco.PrimaDiLeggere = [&](const std::string& file) {
            if (!file.ends_with(".bas")) return;
            const QString visto = b.C<QLabel>("Label2")->text();
            if (!visti.contains(visto)) visti << visto;
            if (lento) b.Ora += 700ms;
        };
        b.Ora += 1h;
        b.Comando("mnuRiordina");
        // Label2's text is set when it is painted. The first painting of a fast run, for a bar, has
        // used up its time.
        QCOMPARE(visti.size(), lento ? 20 : 1);
        if (!lento) QCOMPARE(w.Ridisegni(), 1);
    }
}

// While nothing yields, the screen shows what the state says: the pixels as they were painted are
// those of a window painted anew.
void RidisegnoTest::dipintoDuranteLaCorsa() {
    Banco b;
    MettiFigure(b);
    std::string lungo = "Attribute VB_Name = \"M\"\r\n";
    for (int i = 0; i < 40'000; ++i) lungo += "x = 1\r\n"; // several blocks to read
    b.Disco.Metti("/p/m.bas", lungo);
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Passo = 50ms; // each change is due
    const auto schermo = [&] { return b.W->screen()->grabWindow(b.W->winId()).toImage(); };
    QImage prima = schermo();
    QStringList cambiati;
    b.Disco.PrimaDiLeggere = [&](const std::string& file) {
        if (!file.ends_with(".frm") && !file.ends_with(".bas")) return;
        const QImage visto = schermo();
        const QImage intero = b.W->grab().toImage().convertToFormat(visto.format());
        for (const char* nome : {"Label2", "ProgressBar1", "Progress"}) {
            if (!b.C(nome)->parentWidget()->isVisible()) continue; // the other card is in front
            const QRect dove = In(b.C(nome), b.W.get());
            QVERIFY2(visto.copy(dove) == intero.copy(dove), nome);
            if (visto.copy(dove) != prima.copy(dove) && !cambiati.contains(nome)) cambiati << nome;
        }
    };
    // One call that paints a control also paints all others that need it. So what paints the bar
    // of the files shows only in its paint events: one for each of the label's.
    int dovute = 0, dipinte = 0;
    Pittore conta(b.C("Label2"), [&] { dovute += b.C("ProgressBar1")->isVisible(); });
    Pittore barra(b.C("ProgressBar1"), [&] { ++dipinte; });
    b.Comando("mnuRiordina");
    cambiati.sort();
    QCOMPARE(cambiati, QStringList({"Label2", "Progress", "ProgressBar1"}));
    QVERIFY(dovute > 100);
    QVERIFY(dipinte >= dovute);

    cambiati.clear();
    Risponditore r({"No"});
    b.Comando("mnuHTML"); // has no bar for the files
    cambiati.sort();
    QCOMPARE(cambiati, QStringList({"Label2", "Progress"}));

    // With the other card in front only the bar of the lines is to be seen.
    b.Attiva();
    b.Scheda(1);
    prima = schermo();
    cambiati.clear();
    b.Comando("mnuRiordina");
    QCOMPARE(cambiati, QStringList({"Progress"}));
}

// The second row has no file. The rewriter stops there. So does the listing, before it has put the
// second path into Label2.
void RidisegnoTest::arrestoLasciaLeBarre() {
    Banco b;
    b.Disco.Cancella("/p/m.bas");
    b.Apri();
    Risponditore r({"Sì"});
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito()); // no box
    QVERIFY(!b.W->Finita());
    QVERIFY(b.Disco.Esiste("/p/Appoggio/form1.txt"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/form1.frm")); // no second stage
    QVERIFY(b.Disco.Esiste("/p/Appoggio/Form1.log"));
    QVERIFY(b.C("ProgressBar1")->isVisible());
    QVERIFY(b.C("Progress")->isVisible());
    QCOMPARE(b.C<QLabel>("Label2")->text(), QString("\\p\\Form1.frm"));
    // Two of two rows; ten lines, of a Max of ten and fifteen.
    const auto parte = [&](const char* nome) {
        const auto* barra = b.C<QProgressBar>(nome);
        return double(barra->value() - barra->minimum()) / double(barra->maximum() - barra->minimum());
    };
    QCOMPARE(parte("ProgressBar1"), 1.0);
    QVERIFY(qAbs(parte("Progress") - 0.4) < 0.002);
    QCOMPARE(b.Menu(), std::string("1111"));

    // The listing alone, with no row selected, runs to its end and hides them.
    b.Comando("mnuvorn");
    QVERIFY(!b.C("ProgressBar1")->isVisible());
    QVERIFY(!b.C("Progress")->isVisible());
    QCOMPARE(b.C<QLabel>("Label2")->text(), QString());
}

// Queued events wait for the end of the run.
void RidisegnoTest::nessunEventoDuranteLaCorsa() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    bool passato = false;
    bool corre = false;
    b.Disco.PrimaDiLeggere = [&](const std::string&) {
        if (!corre) QTimer::singleShot(0, b.W.get(), [&] { passato = true; });
        corre = true;
        QVERIFY(!passato);
    };
    b.Comando("mnuRiordina");
    QVERIFY(corre);
    QVERIFY(!passato);
    QTRY_VERIFY_WITH_TIMEOUT(passato, Attesa);
}

QTEST_MAIN(RidisegnoTest)
#include "ridisegno_test.moc"

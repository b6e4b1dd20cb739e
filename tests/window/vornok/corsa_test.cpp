// SPDX-License-Identifier: MIT
//
// Runs as a user starts them: the choice of a project, the question, the menu commands, the bars
// and the status line meanwhile, and the boxes.
#include <QScreen>
#include <QScrollBar>

#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

class CorsaTest : public QObject {
    Q_OBJECT

  private slots:
    void statiDelMenu();
    void clicSulProgettoConSi();
    void clicSulProgettoConNo();
    void escAllaDomandaENo();
    void soloConLaTastiera();
    void invioSceglieDiNuovo();
    void clicRipetuto();
    void clicAccantoAiProgetti();
    void clicFinitoFuori_data();
    void clicFinitoFuori();
    void clicFinitoSottoIlBordo();
    void altriBottoni();
    void check2SpuntataENonConservata();
    void check2Conservata();
    void command1Nascosto();
    void progettoVuoto();
    void progettoCheManca();
    void corsaSubitoDopoUnaCorsa();
    void motoriDaSoli();
    void barreDuranteLaCorsa();
    void barreOgniQuarantaMillisecondi();
    void nomiPiuCariDelLavoro();
    void dipintoDuranteLaCorsa();
    void arrestoLasciaLeBarre();
    void nessunEventoDuranteLaCorsa();
    void lettura();
    void letturaSenzaSelezione();
    void letturaCheManca();
    void letturaSenzaProgramma();
    void html();
    void htmlSenzaSelezione();
    void htmlSenzaFigure();
    void htmlInterrotto();
    void paginaDiAiuto();
    void paginaDiAiutoSenzaProgramma();
    void iconeEBottoni_data();
    void iconeEBottoni();
    void soloUscita_data();
    void soloUscita();
};

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

void MettiFigure(Banco& b) {
    for (const char* figura : {"p2.gif", "dario.gif", "BLULETHR.GIF", "home.GIF"})
        b.Disco.Metti(std::string("/prog/") + figura, "figura");
}

// The texts of the projects that are marked.
QStringList Marcati(Banco& b) {
    QStringList marcati;
    for (const auto* voce : b.File1Leggi()->selectedItems()) marcati << voce->text();
    return marcati;
}

} // namespace

// The states after each event: mnuRiordina, mnuvorn, mnuLettura, mnuHTML.
void CorsaTest::statiDelMenu() {
    Banco b;
    MettiFigure(b);
    b.Disco.FaiDirectory("/p/sotto");
    b.Disco.Metti("/p/sotto/Vuoto.vbp", "");
    b.Disco.FaiDirectory("/d");
    b.Disco.Metti("/d/Due.vbp", "Form=f.frm\r\n");
    b.Disco.Unita["D:"] = "/d";
    b.Apri();
    QCOMPARE(b.Menu(), std::string("1011")); // the start

    b.ScegliSenzaCorsa(); // its rows raise File1_Click
    QCOMPARE(b.Menu(), std::string("1111"));
    b.DoppioClic(b.Dir1(), 2); // "/", "p", "sotto": Dir1_Change
    QCOMPARE(b.Menu(), std::string("0001"));

    b.Clicca(b.File1(), 0); // no row to click
    QTest::mouseClick(b.File1()->viewport(), Qt::LeftButton, {}, QPoint(20, 8));
    QCOMPARE(b.Menu(), std::string("0001"));
    b.ScegliSenzaCorsa(); // a project without a row leaves them as they were
    QCOMPARE(b.Menu(), std::string("0001"));

    {
        Risponditore r({"No"}); // mnuHTML_Click enables mnuLettura and touches no other
        b.Comando("mnuHTML");
        QVERIFY(r.Esaurito());
    }
    QCOMPARE(b.Menu(), std::string("0011"));

    b.Drive1()->setFocus();
    QTest::keyClick(b.Drive1(), Qt::Key_Down); // Drive1_Change
    QCOMPARE(b.W->S().Drive1Drive, Testo("D:"));
    QCOMPARE(b.Menu(), std::string("0001"));
    b.ScegliSenzaCorsa();
    QCOMPARE(b.Menu(), std::string("1111"));
}

void CorsaTest::clicSulProgettoConSi() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì"});
    r.Davanti = [&](std::size_t) {
        // The user sees what the question is about.
        QCOMPARE(b.Righe(b.File1()), QStringList({"Form1.frm", "m.bas"}));
        QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
        QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
        QCOMPARE(b.File1Leggi()->currentRow(), 0);
    };
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste.size(), std::size_t(1));
    QCOMPARE(r.Viste[0].Titolo, QString("Identazione"));
    QCOMPARE(r.Viste[0].Testo,
             QString("Vuoi riordinare il Codice di tutti i form, moduli e classi presenti nel "
                     "progetto\nUno.vbp"));
    QCOMPARE(r.Viste[0].Bottoni, QStringList({"Sì", "No"}));
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Information);
    for (const char* file :
         {"OK.LOG", "Uno.vbp", "form1.txt", "form1.frm", "m.txt", "m.bas", "Form1.log", "m.log"})
        QVERIFY2(b.Disco.Esiste(std::string("/p/Appoggio/") + file), file);
    QCOMPARE(b.Selezionate(), std::vector<int>()); // the listing deselects
    QCOMPARE(b.Righe(b.File1()), QStringList({"Form1.frm", "m.bas"}));
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    QCOMPARE(b.Menu(), std::string("1111"));
    QVERIFY(!b.C("ProgressBar1")->isVisible());
    QVERIFY(!b.C("Progress")->isVisible());
    QCOMPARE(b.C<QLabel>("Label2")->text(), QString());
    QVERIFY(b.Righe(b.Dir1()).contains("Appoggio")); // Dir1.Refresh
}

void CorsaTest::clicSulProgettoConNo() {
    Banco b;
    b.Apri();
    const auto prima = b.Disco.TuttiIFile();
    Risponditore r({"No"});
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QVERIFY(!b.Disco.Esiste("/p/Appoggio"));
    QVERIFY(b.Disco.TuttiIFile() == prima);
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    QCOMPARE(b.Menu(), std::string("1111"));
}

void CorsaTest::escAllaDomandaENo() {
    Banco b;
    b.Apri();
    Risponditore r({"Esc"});
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QVERIFY(!b.W->Finita()); // the key closed the box, not the form
    QVERIFY(!b.Disco.Esiste("/p/Appoggio"));
}

void CorsaTest::soloConLaTastiera() {
    Banco b;
    b.Disco.Metti("/p/Due.vbp", "Class=C; c.cls\r\n");
    b.Apri();
    const auto tasto = [&](Qt::Key k, Qt::KeyboardModifiers con = {}) {
        b.Attiva();
        QTest::keyClick(QApplication::focusWidget(), k, con);
    };
    QCOMPARE(QApplication::focusWidget(), b.Dir1());
    tasto(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), b.File1Leggi());
    {
        Risponditore r({"No"});
        tasto(Qt::Key_Down); // nothing is chosen yet: to the first row
        QVERIFY(r.Esaurito());
        QVERIFY(r.Viste[0].Testo.endsWith("\nDue.vbp"));
    }
    {
        Risponditore r({"Invio"}); // Yes stands first
        tasto(Qt::Key_Down);
        QVERIFY(r.Esaurito());
        QVERIFY(r.Viste[0].Testo.endsWith("\nUno.vbp"));
    }
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/c.log"));
    {
        Risponditore r; // on the last row the key moves nothing and chooses nothing
        tasto(Qt::Key_Down);
        QVERIFY(r.Esaurito());
    }
    {
        Risponditore r({"No"}); // by its first letter
        tasto(Qt::Key_D);
        QVERIFY(r.Esaurito());
        QVERIFY(r.Viste[0].Testo.endsWith("\nDue.vbp"));
    }
    {
        Risponditore r({"No"});
        tasto(Qt::Key_End);
        QVERIFY(r.Esaurito());
        QVERIFY(r.Viste[0].Testo.endsWith("\nUno.vbp"));
    }
    // Rows by keys, and a command through the menu.
    tasto(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), b.File1());
    tasto(Qt::Key_End);
    QCOMPARE(b.Selezionate(), std::vector<int>({1}));
    tasto(Qt::Key_Home);
    QCOMPARE(b.Selezionate(), std::vector<int>({0}));
    tasto(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    tasto(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(b.Selezionate(), std::vector<int>({0}));
    QTest::keyClick(b.W.get(), Qt::Key_U, Qt::AltModifier);
    auto* utility = b.Voce("mnuutility")->menu();
    QTRY_VERIFY_WITH_TIMEOUT(utility->isVisible(), Attesa);
    QTest::keyClick(utility, Qt::Key_S); // "Scrivi la struttura ..."
    QTRY_COMPARE_WITH_TIMEOUT(b.Selezionate(), std::vector<int>(), Attesa);
    // And by the mnemonic in the menu bar.
    QTest::keyClick(b.W.get(), Qt::Key_S, Qt::AltModifier);
    QTRY_COMPARE_WITH_TIMEOUT(b.Didascalia("mnuSeleziona"), QString("Seleziona tutto"), Attesa);
    QTest::keyClick(b.W.get(), Qt::Key_E, Qt::AltModifier); // the buddy of Label6
    QCOMPARE(QApplication::focusWidget(), b.File1Leggi());
    QTest::keyClick(b.W.get(), Qt::Key_D, Qt::AltModifier);
    QCOMPARE(b.Linguette()->currentIndex(), 1);
    QTest::keyClick(b.W.get(), Qt::Key_P, Qt::AltModifier);
    QCOMPARE(b.Linguette()->currentIndex(), 0);
}

void CorsaTest::invioSceglieDiNuovo() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.File1Leggi()->setFocus();
    Risponditore r({"Sì"});
    QTest::keyClick(b.File1Leggi(), Qt::Key_Return);
    QVERIFY(r.Esaurito());
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
}

void CorsaTest::clicRipetuto() {
    Banco b;
    b.Apri();
    Risponditore r({"No", "No"});
    b.CliccaProgetto(0);
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste.size(), std::size_t(2));
}

void CorsaTest::clicAccantoAiProgetti() {
    Banco b;
    b.Apri();
    Risponditore r;
    QTest::mouseClick(b.File1Leggi()->viewport(), Qt::LeftButton, {}, QPoint(20, 70));
    QTest::mouseClick(b.File1Leggi()->viewport(), Qt::RightButton, {},
                      b.File1Leggi()->visualItemRect(b.File1Leggi()->item(0)).center());
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->S().File1Leggi.ListIndex, Lungo(-1));
}

void CorsaTest::clicFinitoFuori_data() {
    QTest::addColumn<bool>("scelto");
    QTest::addColumn<QPoint>("fine");
    for (const bool scelto : {false, true}) {
        const char* dopo = scelto ? "dopo una scelta" : "prima di una scelta";
        QTest::addRow("sotto le righe, %s", dopo) << scelto << QPoint(20, 70);
        QTest::addRow("sopra, %s", dopo) << scelto << QPoint(20, -30);
        QTest::addRow("a lato, %s", dopo) << scelto << QPoint(-40, 8);
        QTest::addRow("a destra, %s", dopo) << scelto << QPoint(400, 8);
        for (const int y : {90, 120, 300}) // where rows are hidden
            QTest::addRow("%d sotto l'elenco, %s", y, dopo) << scelto << QPoint(20, y);
    }
}

// The button is pressed on a row and released outside the rows: nothing is chosen, and the mark
// goes back.
void CorsaTest::clicFinitoFuori() {
    QFETCH(bool, scelto);
    QFETCH(QPoint, fine);
    Banco b;
    b.Disco.Metti("/p/Due.vbp", "");
    if (fine.y() > 80)
        for (int i = 10; i < 50; ++i) b.Disco.Metti("/p/Z" + std::to_string(i) + ".vbp", "");
    b.Apri();
    if (scelto) b.ScegliSenzaCorsa();
    const std::string menu = b.Menu();
    Risponditore r;
    QWidget* elenco = b.File1Leggi()->viewport();
    const QPoint riga = b.File1Leggi()->visualItemRect(b.File1Leggi()->item(1)).center();
    QTest::mousePress(elenco, Qt::LeftButton, {}, riga);
    QVERIFY(b.File1Leggi()->item(1)->isSelected()); // shown while the button is down
    QTest::mouseMove(elenco, fine);
    QTest::mouseRelease(elenco, Qt::LeftButton, {}, fine);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->S().File1Leggi.ListIndex, Lungo(scelto ? 0 : -1));
    QCOMPARE(Marcati(b), scelto ? QStringList({"Due.vbp"}) : QStringList());
    QCOMPARE(b.Menu(), menu);
    if (!scelto) QCOMPARE(b.File1Leggi()->currentRow(), -1);
}

// The part of a row that the lower edge cuts off is outside too.
void CorsaTest::clicFinitoSottoIlBordo() {
    Banco b;
    for (int i = 10; i < 50; ++i) b.Disco.Metti("/p/Z" + std::to_string(i) + ".vbp", "");
    b.Apri();
    auto* lista = b.File1Leggi();
    lista->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    const int alta = lista->viewport()->height();
    QListWidgetItem* ultima = nullptr;
    for (int y = 0; y < 40 && (!ultima || lista->visualItemRect(ultima).bottom() <= alta); ++y) {
        lista->verticalScrollBar()->setValue(y);
        ultima = lista->itemAt(QPoint(20, alta - 1));
    }
    QVERIFY(ultima && lista->visualItemRect(ultima).bottom() > alta);
    Risponditore r;
    lista->setAutoScroll(false);
    QTest::mousePress(lista->viewport(), Qt::LeftButton, {}, QPoint(20, alta - 1));
    const QPoint sotto(20, lista->visualItemRect(ultima).bottom());
    QVERIFY(!lista->viewport()->rect().contains(sotto));
    QTest::mouseRelease(lista->viewport(), Qt::LeftButton, {}, sotto);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.W->S().File1Leggi.ListIndex, Lungo(-1));
    QCOMPARE(Marcati(b), QStringList());
}

// Only the left button chooses a project, so no other marks one.
void CorsaTest::altriBottoni() {
    for (const auto bottone : {Qt::RightButton, Qt::MiddleButton}) {
        Banco b;
        b.Disco.Metti("/p/Due.vbp", "");
        b.Apri();
        QWidget* elenco = b.File1Leggi()->viewport();
        const QPoint riga = b.File1Leggi()->visualItemRect(b.File1Leggi()->item(1)).center();
        QTest::mouseClick(elenco, bottone, {}, riga);
        QCOMPARE(Marcati(b), QStringList());
        b.ScegliSenzaCorsa();
        QTest::mouseClick(elenco, bottone, {}, riga);
        QTest::mouseDClick(elenco, bottone, {}, riga);
        QCOMPARE(Marcati(b), QStringList({"Due.vbp"}));
        QCOMPARE(b.W->S().File1Leggi.ListIndex, Lungo(0));
    }
}

// What was stored last decides, not the tick that shows.
void CorsaTest::check2SpuntataENonConservata() {
    Banco b;
    b.Disco.Metti("/prog/Default.ini", "KO\r\nKO\r\n\r\nOK\r\n");
    b.Apri();
    b.Scheda(1);
    QVERIFY(b.Casella("Check2")->isChecked());
    b.Casella("Check2")->setFocus();
    QTest::keyClick(b.Casella("Check2"), Qt::Key_Space);
    QVERIFY(!b.Casella("Check2")->isChecked());
    QVERIFY(b.Casella("Check2")->hasFocus());
    {
        Risponditore r; // "OK" is stored: no question
        b.C<QPushButton>("Command1")->click();
        QVERIFY(r.Esaurito());
    }
    QVERIFY(b.Disco.Esiste("/p/Appoggio/OK.LOG"));

    Banco c;
    c.Apri();
    c.Scheda(1);
    QTest::mouseClick(c.Casella("Check2"), Qt::LeftButton, {}, QPoint(6, 13));
    QVERIFY(c.Casella("Check2")->isChecked());
    QVERIFY(c.Casella("Check2")->hasFocus());
    Risponditore r({"No"});
    c.C<QPushButton>("Command1")->click();
    QVERIFY(r.Esaurito());
    QVERIFY(!c.Disco.Esiste("/p/Appoggio"));
}

void CorsaTest::check2Conservata() {
    Banco b;
    b.Apri();
    b.Scheda(1);
    QTest::mouseClick(b.Casella("Check2"), Qt::LeftButton, {}, QPoint(6, 13));
    b.Scheda(0); // the focus goes to the tabs
    QCOMPARE(b.Ini().substr(0, 8), std::string("KO\r\nKO\r\n"));
    QVERIFY(b.Ini().ends_with("\r\nOK\r\n"));
    Risponditore r;
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
}

void CorsaTest::command1Nascosto() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    Risponditore r({"Sì"});
    b.C<QPushButton>("Command1")->click();
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Titolo, QString("Identazione"));
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QCOMPARE(b.Selezionate(), std::vector<int>());
}

void CorsaTest::progettoVuoto() {
    Banco b;
    b.Disco.Metti("/p/Uno.vbp", "");
    b.Apri();
    Risponditore r({"Sì"});
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QCOMPARE(b.Righe(b.File1()), QStringList());
    QCOMPARE(b.Didascalia("mnuSeleziona"), QString("DeSeleziona tutto"));
    QVERIFY(b.Disco.Esiste("/p/Appoggio/OK.LOG"));
    QVERIFY(b.Disco.Esiste("/p/Appoggio/Uno.vbp"));
    QCOMPARE(b.Menu(), std::string("1011"));
}

// The project was deleted while the list showed it: a final error.
void CorsaTest::progettoCheManca() {
    Banco b;
    b.Apri();
    b.Disco.Cancella("/p/Uno.vbp");
    Risponditore r({"OK"});
    b.CliccaProgetto(0);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QCOMPARE(r.Viste[0].Titolo, QString("Morvella"));
    QVERIFY(r.Viste[0].Testo.contains("53"));
    QVERIFY(r.Viste[0].Testo.contains("File non trovato."));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
    QVERIFY(!b.W->isVisible());
}

void CorsaTest::corsaSubitoDopoUnaCorsa() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì"});
    b.CliccaProgetto(0);
    b.Disco.Cancella("/p/Appoggio/m.log");
    b.Disco.Cancella("/p/Appoggio/m.txt");
    b.Comando("mnuvorn"); // no row is selected
    b.Comando("mnuRiordina");
    QVERIFY(r.Esaurito());
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/m.log"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/m.txt"));
    QVERIFY(!b.C("ProgressBar1")->isVisible());
    QVERIFY(!b.C("Progress")->isVisible());
}

void CorsaTest::motoriDaSoli() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Clicca(b.File1(), 1);
    Risponditore r;
    b.Comando("mnuRiordina");
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.bas"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/form1.txt"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/m.log"));
    QCOMPARE(b.Selezionate(), std::vector<int>({1})); // the rewriter leaves the selection
    b.Comando("mnuvorn");
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/Form1.log"));
    QCOMPARE(b.Selezionate(), std::vector<int>());
    QVERIFY(r.Esaurito());
}

void CorsaTest::barreDuranteLaCorsa() {
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

void CorsaTest::barreOgniQuarantaMillisecondi() {
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
void CorsaTest::nomiPiuCariDelLavoro() {
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
void CorsaTest::dipintoDuranteLaCorsa() {
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
void CorsaTest::arrestoLasciaLeBarre() {
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
void CorsaTest::nessunEventoDuranteLaCorsa() {
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

void CorsaTest::lettura() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì", "OK"});
    b.CliccaProgetto(0);
    b.Comando("mnuSeleziona"); // "DeSeleziona tutto" stands there after a run
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    b.Comando("mnuLettura");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[1].Titolo, QString("Lettura Ottimizzata"));
    QCOMPARE(r.Viste[1].Testo, QString("Per visualizzare l'Identazione in maniera ottimizzata\n"
                                       "Selezionare il carattere TERMINAL - Normale"));
    QCOMPARE(r.Viste[1].Icona, QMessageBox::Information);
    QCOMPARE(r.Viste[1].Bottoni, QStringList({"OK"}));
    QCOMPARE(b.Disco.Avviati, std::vector<std::string>(
                                  {"Notepad.exe|/p/Appoggio/Form1.log", "Notepad.exe|/p/Appoggio/m.log"}));
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
}

void CorsaTest::letturaSenzaSelezione() {
    Banco b;
    b.Apri();
    Risponditore r({"OK"});
    b.Comando("mnuLettura"); // enabled at the start, without a row
    QVERIFY(r.Esaurito());
    QVERIFY(b.Disco.Avviati.empty());
    QVERIFY(!b.Disco.Esiste("/p/Appoggio"));
}

// The first listing is there and the second is not: one reader, the listing run, the box again,
// and no reader for the second.
void CorsaTest::letturaCheManca() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Clicca(b.File1(), 0);
    b.Comando("mnuvorn");
    b.Comando("mnuSeleziona");
    b.Comando("mnuSeleziona");
    QCOMPARE(b.Selezionate(), std::vector<int>({0, 1}));
    Risponditore r({"OK", "OK"});
    b.Comando("mnuLettura");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[1].Titolo, QString("Lettura Ottimizzata"));
    QCOMPARE(b.Disco.Avviati, std::vector<std::string>({"Notepad.exe|/p/Appoggio/Form1.log"}));
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QCOMPARE(b.Selezionate(), std::vector<int>());
}

void CorsaTest::letturaSenzaProgramma() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì", "OK", "OK"});
    b.CliccaProgetto(0);
    b.Clicca(b.File1(), 0);
    b.Disco.Fallisci("Avvia", "Form1.log", 53);
    b.Comando("mnuLettura");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[2].Icona, QMessageBox::Critical);
    QVERIFY(r.Viste[2].Testo.contains("53"));
    QVERIFY(r.Viste[2].Testo.contains("File non trovato."));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
}

void CorsaTest::html() {
    for (const bool si : {true, false}) {
        Banco b;
        MettiFigure(b);
        b.Apri();
        b.ScegliSenzaCorsa();
        Risponditore r({si ? "Sì" : "No"});
        r.Davanti = [&](std::size_t) { QVERIFY(b.C("Progress")->isVisible()); }; // under the box
        b.Comando("mnuHTML");
        QVERIFY(r.Esaurito());
        QCOMPARE(r.Viste[0].Titolo, QString("Visualizzazione Documentazione HTML"));
        QCOMPARE(r.Viste[0].Testo, QString("Documentazione HTML riuscita.\nVuoi visualizzare l'indice?"));
        QCOMPARE(r.Viste[0].Icona, QMessageBox::Question);
        QCOMPARE(r.Viste[0].Bottoni, QStringList({"Sì", "No"}));
        for (const char* file : {"Form1.Html", "m.Html", "Indice.Html", "home.GIF"})
            QVERIFY2(b.Disco.Esiste(std::string("/p/Appoggio/") + file), file);
        QCOMPARE(b.Disco.Avviati, si ? std::vector<std::string>({"Explorer|/p/Appoggio/Indice.Html"})
                                     : std::vector<std::string>());
        QCOMPARE(b.Disco.DirectoryCorrente(), std::string("/p"));
        QVERIFY(!b.C("Progress")->isVisible());
        QVERIFY(!b.C("ProgressBar1")->isVisible());
        QCOMPARE(b.C<QLabel>("Label2")->text(), QString());
        QCOMPARE(b.Selezionate(), std::vector<int>({0, 1})); // they stay
    }
}

// No warning. The pages' directory is empty, so "\Indice.Html" is in the root.
void CorsaTest::htmlSenzaSelezione() {
    Banco b;
    MettiFigure(b);
    b.Apri();
    Risponditore r({"No"});
    b.Comando("mnuHTML");
    QVERIFY(r.Esaurito());
    QVERIFY(b.Disco.Esiste("/Indice.Html"));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio"));
}

void CorsaTest::htmlSenzaFigure() {
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    Risponditore r({"OK"});
    b.Comando("mnuHTML");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QVERIFY(r.Viste[0].Testo.contains("53"));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.Html")); // finished pages stay
}

// A menu in the last line makes the engine read on past the end: error 62. When the box shows it,
// the page so far is on the disk.
void CorsaTest::htmlInterrotto() {
    Banco b;
    MettiFigure(b);
    b.Disco.Metti("/p/Form1.frm", "x\r\nBegin VB.Menu m\r\n");
    b.Apri();
    b.ScegliSenzaCorsa();
    Risponditore r({"OK"});
    r.Davanti = [&](std::size_t) {
        const std::string pagina = b.Disco.Leggi("/p/Appoggio/Form1.Html");
        QVERIFY(pagina.starts_with("<html>\r\n"));
        QVERIFY(pagina.find("Menu presenti nell'applicazione") != std::string::npos);
        QVERIFY(pagina.find("</body>") == std::string::npos);
        QVERIFY(pagina.ends_with("\r\n"));
    };
    b.Comando("mnuHTML");
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Critical);
    QVERIFY(r.Viste[0].Testo.startsWith("Errore 62: "));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
    QVERIFY(!b.Disco.Esiste("/p/Appoggio/m.Html"));
}

void CorsaTest::paginaDiAiuto() {
    Banco b;
    b.Apri();
    Risponditore r;
    b.Comando("MnuHelpHtml");
    QVERIFY(b.Disco.Esiste("/prog/tavolerio.htm"));
    b.Disco.Metti("/prog/tavolerio.htm", "mia"); // is not written again
    b.Comando("MnuHelpHtml");
    QCOMPARE(b.Disco.Leggi("/prog/tavolerio.htm"), std::string("mia"));
    QCOMPARE(b.Disco.Avviati,
             std::vector<std::string>({"Explorer|/prog/tavolerio.htm", "Explorer|/prog/tavolerio.htm"}));
    QVERIFY(r.Esaurito());
    QCOMPARE(b.Menu(), std::string("1011"));
}

void CorsaTest::paginaDiAiutoSenzaProgramma() {
    Banco b;
    b.Apri();
    b.Disco.Fallisci("Avvia", "tavolerio.htm", 53);
    Risponditore r({"OK"});
    b.Comando("MnuHelpHtml");
    QVERIFY(r.Esaurito());
    QVERIFY(r.Viste[0].Testo.contains("53"));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 1);
}

void CorsaTest::iconeEBottoni_data() {
    QTest::addColumn<int>("flag");
    QTest::addColumn<int>("icona");
    QTest::addColumn<QString>("premi");
    QTest::addColumn<int>("risposta");
    QTest::addColumn<QStringList>("bottoni");
    const QStringList ok{"OK"}, siNo{"Sì", "No"};
    QTest::newRow("16") << 16 << int(QMessageBox::Critical) << "OK" << 1 << ok;
    QTest::newRow("32") << 32 << int(QMessageBox::Question) << "OK" << 1 << ok;
    QTest::newRow("36 si") << 36 << int(QMessageBox::Question) << "Sì" << 6 << siNo;
    QTest::newRow("36 no") << 36 << int(QMessageBox::Question) << "No" << 7 << siNo;
    QTest::newRow("36 esc") << 36 << int(QMessageBox::Question) << "Esc" << 7 << siNo;
    QTest::newRow("64") << 64 << int(QMessageBox::Information) << "OK" << 1 << ok;
    QTest::newRow("64 esc") << 64 << int(QMessageBox::Information) << "Esc" << 1 << ok;
    QTest::newRow("68 si") << 68 << int(QMessageBox::Information) << "Sì" << 6 << siNo;
    QTest::newRow("68 no") << 68 << int(QMessageBox::Information) << "No" << 7 << siNo;
    QTest::newRow("68 invio") << 68 << int(QMessageBox::Information) << "Invio" << 6 << siNo;
}

void CorsaTest::iconeEBottoni() {
    QFETCH(int, flag);
    QFETCH(int, icona);
    QFETCH(QString, premi);
    QFETCH(int, risposta);
    QFETCH(QStringList, bottoni);
    Banco b;
    b.Apri();
    Risponditore r({premi, premi});
    // A text is plain, whatever it looks like.
    QCOMPARE(b.W->MsgBox("<b>&a\r\xE8", flag, "Tit\xE0"), risposta);
    QCOMPARE(b.W->MsgBox("x", flag, ""), risposta);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste[0].Testo, QString("<b>&a\nè"));
    QCOMPARE(r.Viste[0].Titolo, QString("Tità"));
    QCOMPARE(int(r.Viste[0].Icona), icona);
    QCOMPARE(r.Viste[0].Bottoni, bottoni);
    QCOMPARE(r.Viste[1].Titolo, QString("Morvella"));
    QVERIFY(!b.W->Finita());
}

void CorsaTest::soloUscita_data() {
    QTest::addColumn<QString>("come");
    QTest::addColumn<int>("scheda");
    QTest::addColumn<bool>("conShift");
    for (const bool conShift : {false, true}) {
        const char* tasto = conShift ? "Shift+Esc" : "Esc";
        for (const char* nome : {"SSTab1.Linguette", "Drive1", "Dir1", "File1Leggi", "File1"})
            QTest::addRow("%s, %s", nome, tasto) << nome << 0 << conShift;
        for (const char* nome : {"TogliCommenti", "Check1", "Text1", "Check2", "Command2"})
            QTest::addRow("%s, %s", nome, tasto) << nome << 1 << conShift;
    }
    for (const char* nome : {"mnuend", "chiusura", "tastiera"}) QTest::newRow(nome) << nome << 1 << false;
}

// However the program ends, the farewell comes once and nothing is stored.
void CorsaTest::soloUscita() {
    QFETCH(QString, come);
    QFETCH(int, scheda);
    QFETCH(bool, conShift);
    Banco b;
    b.Apri();
    b.ScegliSenzaCorsa();
    b.Scheda(scheda);
    if (scheda == 1) {
        b.Casella("Check2")->setFocus();
        QTest::keyClick(b.Casella("Check2"), Qt::Key_Space); // ticked, not stored
    }
    auto* controllo = b.W->findChild<QWidget*>(come);
    if (controllo) {
        controllo->setFocus();
        QCOMPARE(QApplication::focusWidget(), controllo);
    }
    const auto prima = b.Disco.TuttiIFile();
    Risponditore r({"OK"});
    if (come == "mnuend")
        b.Comando("mnuend");
    else if (come == "chiusura")
        b.W->close();
    else if (come == "tastiera")
        QTest::keyClick(b.W.get(), Qt::Key_C, Qt::AltModifier);
    else
        QTest::keyClick(controllo, Qt::Key_Escape, conShift ? Qt::ShiftModifier : Qt::NoModifier);
    QVERIFY(r.Esaurito());
    QCOMPARE(r.Viste.size(), std::size_t(1));
    QCOMPARE(r.Viste[0].Titolo, QString("Bye bye"));
    QCOMPARE(r.Viste[0].Testo, QString("Procedura di Dario Fenzoni\nE-mail: vorn@morvella.example"));
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Information);
    QCOMPARE(r.Viste[0].Bottoni, QStringList({"OK"}));
    QVERIFY(b.W->Finita());
    QCOMPARE(b.W->Codice(), 0);
    QVERIFY(!b.W->isVisible());
    b.W.reset();
    QVERIFY(b.Disco.TuttiIFile() == prima);
}

QTEST_MAIN(CorsaTest)
#include "corsa_test.moc"

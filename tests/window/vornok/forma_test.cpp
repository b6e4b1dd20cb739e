// SPDX-License-Identifier: MIT
//
// What the form is made of: its controls row by row, their captions, fonts and colours, its menu.
#include <QFontInfo>
#include <QFontMetrics>
#include <QRadioButton>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionButton>
#include <cmath>

#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;

namespace {

// A row of the form's table, in twips within the parent control.
struct Riga {
    const char* Nome;
    const char* Intorno; // "" for the form
    int Left, Top, Width, Height;
};

// clang-format off
const std::vector<Riga> Tabella = {
    {"Frame1",        "",         30,    0, 11205, 7515},
    {"Picture1",      "Frame1",  780, 1470,  9675, 4890},
    {"Picture3",      "Picture1",1860, 570,  6045, 3255},
    {"Picture2",      "Picture3", 255,  90,  5685, 9255},
    {"Label4",        "Picture1", 945,4830,  1335,   30},
    {"Label1(1)",     "Frame1", 2640,  180,  6045,  855},
    {"Label1(0)",     "Frame1", 2730,  240,  6045,  855},
    {"SSTab1",        "",       1770,  150,  8745, 6345},
    {"Drive1",        "SSTab1",  990,  510,  3240,  315},
    {"Dir1",          "SSTab1",  960,  870,  3240, 4815},
    {"File1Leggi",    "SSTab1", 4410,  660,  3285, 1260},
    {"File1",         "SSTab1", 4410, 2100,  3285, 3570},
    {"ProgressBar1",  "SSTab1", 4440, 1920,  3255,  195},
    {"Label6",        "SSTab1", 4440,  390,  3225,  255},
    {"Label2",        "SSTab1",  150, 5940,  8520,  300},
    {"TogliCommenti", "SSTab1",  300,  630,  2175,  315},
    {"Check1",        "SSTab1",  300, 1230,  2325,  315},
    {"Label5",        "SSTab1", 2760, 1290,  5595,  255},
    {"Text1",         "SSTab1",  270, 1650,  8115, 2865},
    {"Check2",        "SSTab1",  330, 4890,  5355,  405},
    {"Command2",      "SSTab1",  690, 5520,  1815,  405},
    {"Image1",        "SSTab1", 5790, 4620,  1170, 1545},
    {"Label7",        "SSTab1", 7110, 5310,  1275,  315},
    {"Picture4",      "",         30,  120,  1635, 4845},
    {"Progress",      "",        270, 7200, 10755,  165},
    {"Command1",      "",       6300, 2670,  1425,  525},
    {"Frame2",        "",       2040, 3990,  2925,  585},
    {"Label3",        "",        240, 6540, 10455,  705},
};
// clang-format on

} // namespace

class FormaTest : public QObject {
    Q_OBJECT

    void NessunaDidascaliaTagliata(Banco& b);

  private slots:
    void controlliDellaTabella_data();
    void controlliDellaTabella();
    void misureDellaForma();
    void didascalie();
    void coloriDellaTabella();
    void caratteri();
    void schede();
    void statiIniziali();
    void bande();
    void figure();
    void menu();
    void nessunaDidascaliaTagliata();
};

void FormaTest::controlliDellaTabella_data() {
    QTest::addColumn<int>("riga");
    for (std::size_t i = 0; i < Tabella.size(); ++i) QTest::newRow(Tabella[i].Nome) << static_cast<int>(i);
}

void FormaTest::controlliDellaTabella() {
    QFETCH(int, riga);
    const Riga& r = Tabella[static_cast<std::size_t>(riga)];
    Banco b;
    b.Apri();
    auto* controllo = b.C(r.Nome);
    QWidget* intorno = *r.Intorno ? b.C(r.Intorno) : b.W->centralWidget();
    QVERIFY(intorno->isAncestorOf(controllo));
    QCOMPARE(In(controllo, intorno), QRect(r.Left / 15, r.Top / 15, r.Width / 15, r.Height / 15));
}

void FormaTest::misureDellaForma() {
    Banco b;
    Forma& w = b.Apri();
    QCOMPARE(w.objectName(), QString("VornOK"));
    QCOMPARE(w.windowTitle(), QString("Vorn!  Morvella il codice di Visual Basic  - vorn@morvella.example"));
    QCOMPARE(w.centralWidget()->size(), QSize(747, 500)); // 11205 by 7500 twips
    // The border is a dialog's: the size stays, and there is nothing to minimise or maximise.
    const QSize misura = w.size();
    w.resize(900, 700);
    QCoreApplication::processEvents();
    QCOMPARE(w.size(), misura);
    QCOMPARE(w.centralWidget()->size(), QSize(747, 500));
    QCOMPARE(w.minimumSize(), w.maximumSize());
    QVERIFY(!(w.windowFlags() & Qt::WindowMinimizeButtonHint));
    QVERIFY(!(w.windowFlags() & Qt::WindowMaximizeButtonHint));
    QVERIFY(w.windowFlags() & Qt::WindowCloseButtonHint);
    // In the middle of the screen, give or take half a pixel and the frame, whose size is not known
    // beforehand.
    const QPoint scarto = w.geometry().center() - w.screen()->availableGeometry().center();
    const QPoint cornice = w.geometry().topLeft() - w.frameGeometry().topLeft();
    QVERIFY2(qAbs(scarto.x()) <= 1 + cornice.x() && qAbs(scarto.y()) <= 1 + cornice.y(),
             qPrintable(QString("%1 %2").arg(scarto.x()).arg(scarto.y())));
}

void FormaTest::didascalie() {
    Banco b;
    b.Apri();
    const auto etichetta = [&](const char* nome) { return Nudo(b.C<QLabel>(nome)->text()); };
    const auto bottone = [&](const char* nome) { return Nudo(b.C<QAbstractButton>(nome)->text()); };
    QCOMPARE(Nudo(b.Linguette()->tabText(0)), QString("Identazione Progetto"));
    QCOMPARE(Nudo(b.Linguette()->tabText(1)), QString("Default"));
    QCOMPARE(b.Linguette()->count(), 2);
    QCOMPARE(b.Linguette()->currentIndex(), 0);
    QCOMPARE(etichetta("Label4"), QString("Label2"));
    QCOMPARE(etichetta("Label1(0)"), QString("Morvella"));
    QCOMPARE(etichetta("Label1(1)"), QString("Morvella"));
    QCOMPARE(etichetta("Label6"), QString("Seleziona il progetto da IDENTARE"));
    QCOMPARE(etichetta("Label2"), QString(" "));
    QCOMPARE(bottone("TogliCommenti"), QString("Togli tutti i commenti. "));
    QCOMPARE(bottone("Check1"), QString("Intestazione Procedure"));
    QCOMPARE(etichetta("Label5"), QString("Ogni riga di intestazionedeve cominciare con l' APOSTROFO"));
    QCOMPARE(bottone("Check2"), QString("Seleziona progetto e compila senza richiedere conferma"));
    QCOMPARE(bottone("Command2"), QString("Ripristina Default"));
    QCOMPARE(etichetta("Label7"), QString("By Dario Fenzoni"));
    QCOMPARE(bottone("Command1"), QString("Riordina e Riscrivi il Testo"));
    QCOMPARE(
        etichetta("Label3"),
        QString("Dopo aver selezionato un progetto VBP, la procedura crea una directory \"APPOGGIO\" nella "
                "quale scrive tutti i nuovi form, Moduli e Classi del progetto, lasciando gli originali "
                "inalterati. Per la sola visualizzazione del codice identato ed a Blocchi, si dovrà "
                "utilizzare, nel Notepad, il carattere TERMINAL."));
    const QStringList tipi{"*.Bas", "*.Frm", "*.Cls", "*.Dob", "*.Dsr"};
    for (int i = 0; i < 5; ++i) {
        const QByteArray nome = QString("Option1(%1)").arg(i).toUtf8();
        auto* tipo = b.C<QRadioButton>(nome.constData());
        QCOMPARE(tipo->text(), tipi[i]);
        QCOMPARE(tipo->isChecked(), i == 1);
        QCOMPARE(tipo->y(), 180 / 15);
        QCOMPARE(tipo->parentWidget()->objectName(), QString("Frame2"));
    }
}

void FormaTest::coloriDellaTabella() {
    Banco b;
    b.Apri();
    const auto inchiostro = [&](const char* nome) {
        auto* c = b.C(nome);
        return c->palette().color(c->foregroundRole());
    };
    const auto fondo = [&](const char* nome) {
        auto* c = b.C(nome);
        return c->palette().color(c->backgroundRole());
    };
    QCOMPARE(fondo("Frame1"), QColor(0, 0, 128));
    QVERIFY(b.C("Frame1")->autoFillBackground());
    QCOMPARE(fondo("Picture2"), QColor(0, 0, 192));
    QCOMPARE(inchiostro("Label1(1)"), QColor(255, 255, 0));
    QCOMPARE(inchiostro("Label1(0)"), QColor(0, 0, 255));
    QCOMPARE(inchiostro("Label2"), QColor(0, 0, 192));
    QCOMPARE(inchiostro("Label5"), QColor(0, 192, 0));
    QCOMPARE(inchiostro("Label3"), QColor(255, 255, 0));
    QCOMPARE(b.C("Frame2")->grab().toImage().pixelColor(1, 1), QColor(255, 0, 255));
    // The heading lies over its shadow.
    const QObjectList figli = b.C("Frame1")->children();
    QVERIFY(figli.indexOf(b.C("Label1(1)")) > figli.indexOf(b.C("Label1(0)")));
}

// At 96 dots to the inch 12 points are 16 pixels, 9.75 are 13, 36 are 48.
void FormaTest::caratteri() {
    Banco b;
    b.Apri();
    const QFont stato = b.C("Label2")->font();
    QVERIFY(stato.families().contains("MS Sans Serif"));
    QCOMPARE(stato.pixelSize(), 16);
    QVERIFY(stato.bold());
    const QFont testo = b.C("Picture2")->font();
    QCOMPARE(testo.families().front(), QString("Arial"));
    QVERIFY(testo.pixelSize() <= 13); // reduced for a wider font
    if (QFontInfo(testo).family() == "Arial" || QFontInfo(testo).family() == "Liberation Sans")
        QCOMPARE(testo.pixelSize(), 13);
    QVERIFY(testo.bold());
    for (const char* nome : {"Label1(0)", "Label1(1)"}) {
        const auto* titolo = b.C<QLabel>(nome);
        QCOMPARE(titolo->font().families().front(), QString("Comic Sans MS"));
        QVERIFY(titolo->font().bold());
        QVERIFY(titolo->font().pixelSize() <= 48); // reduced for a higher font
        QVERIFY(titolo->alignment() & Qt::AlignHCenter);
    }
    QCOMPARE(b.C("Label1(0)")->font(), b.C("Label1(1)")->font());
}

void FormaTest::schede() {
    const std::vector<const char*> prima{"Drive1", "Dir1", "File1Leggi", "File1", "Label6", "Label2"};
    const std::vector<const char*> seconda{"TogliCommenti", "Check1",   "Label5", "Text1",
                                           "Check2",        "Command2", "Image1", "Label7"};
    Banco b;
    b.Apri();
    for (const int scheda : {0, 1, 0}) {
        b.Scheda(scheda);
        for (const char* nome : prima) QVERIFY2(b.C(nome)->isVisible() == (scheda == 0), nome);
        for (const char* nome : seconda) QVERIFY2(b.C(nome)->isVisible() == (scheda == 1), nome);
    }
}

void FormaTest::statiIniziali() {
    Banco b;
    b.Apri();
    for (const char* nome : {"Frame1", "ProgressBar1", "Progress", "Command1", "Frame2"})
        QVERIFY2(!b.C(nome)->isVisible(), nome);
    for (const char* nome : {"SSTab1", "Picture4", "Label3"}) QVERIFY2(b.C(nome)->isVisible(), nome);
    auto* timer = b.C<QTimer>("Timer1");
    QCOMPARE(timer->interval(), 50);
    QVERIFY(!timer->isActive());
    QCOMPARE(b.W->Help().Timer1Tag, Testo("1"));
    QCOMPARE(b.File1()->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(b.Righe(b.File1Leggi()), QStringList({"Uno.vbp"}));
    QCOMPARE(b.Righe(b.File1()), QStringList());
    QVERIFY(b.File1Leggi()->selectedItems().isEmpty());
}

// 256 bands over 500 lines of pixels: band i begins at i * 500 / 256.
void FormaTest::bande() {
    Banco b;
    b.Apri();
    const QImage fondo = b.W->centralWidget()->grab().toImage();
    const int x = 746; // no control at the right edge
    QCOMPARE(fondo.pixelColor(x, 0), QColor(158, 1, 255));
    QCOMPARE(fondo.pixelColor(x, 250), QColor(158, 1, 127)); // 250 = 128 * 500 / 256
    QCOMPARE(fondo.pixelColor(x, 249), QColor(158, 1, 128));
    QCOMPARE(fondo.pixelColor(x, 499), QColor(158, 1, 0));
    QSet<QRgb> colori;
    for (int y = 0; y < 500; ++y) {
        colori.insert(fondo.pixel(x, y));
        QCOMPARE(fondo.pixelColor(x, y).red(), 158);
        if (y > 0) QVERIFY(fondo.pixelColor(x, y).blue() <= fondo.pixelColor(x, y - 1).blue());
    }
    QCOMPARE(colori.size(), 256);
}

// The pictures are built into the program.
void FormaTest::figure() {
    Banco b;
    b.Apri();
    const std::pair<const char*, QSize> figure[] = {{"Picture1.png", {651, 321}},
                                                    {"Picture2.jpg", {500, 218}},
                                                    {"Picture4.png", {110, 323}},
                                                    {"Image1.jpg", {90, 127}}};
    for (const auto& [file, misura] : figure) QCOMPARE(QPixmap(QString(":/finestra/") + file).size(), misura);
    // At the corner in its own size, or stretched to the control.
    const auto somiglia = [](const QImage& uno, const QImage& altro) {
        if (uno.size() != altro.size()) return false;
        qint64 scarto = 0;
        for (int y = 0; y < uno.height(); ++y)
            for (int x = 0; x < uno.width(); ++x)
                scarto += qAbs(uno.pixelColor(x, y).green() - altro.pixelColor(x, y).green());
        return scarto < uno.width() * uno.height() * 4;
    };
    const QImage colonna = QImage(":/finestra/Picture4.png").copy(0, 0, 109, 323);
    QVERIFY(somiglia(b.C("Picture4")->grab().toImage(), colonna));
    b.Scheda(1);
    const QImage stirata =
        QImage(":/finestra/Image1.jpg").scaled(78, 103, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QVERIFY(somiglia(b.C("Image1")->grab().toImage(), stirata));
}

void FormaTest::menu() {
    Banco b;
    b.Apri();
    struct VoceAttesa {
        const char* Nome;
        const char* Didascalia;
        bool Attiva;
    };
    const auto confronta = [](const QList<QAction*>& avute, const std::vector<VoceAttesa>& attese) {
        QCOMPARE(static_cast<std::size_t>(avute.size()), attese.size());
        for (std::size_t i = 0; i < attese.size(); ++i) {
            const QAction* voce = avute[static_cast<qsizetype>(i)];
            QCOMPARE(voce->objectName(), QString(attese[i].Nome));
            QCOMPARE(Nudo(voce->text()), QString(attese[i].Didascalia));
            QCOMPARE(voce->isEnabled(), attese[i].Attiva);
            QVERIFY(voce->isVisible());
        }
    };
    confronta(b.W->menuBar()->actions(), {{"mnuSeleziona", "Seleziona tutto", true},
                                          {"mnuutility", "Utility", true},
                                          {"MnuHelp", "Help", true},
                                          {"mnuend", "Uscita", true},
                                          {"MnuHelpHtml", "?", true}});
    confronta(b.Voce("mnuutility")->menu()->actions(),
              {{"mnuRiordina", "Riscrivi e Riordina il codice dei Form Selezionati", true},
               {"mnuvorn", "Scrivi la struttura VORN del codice dei form", false},
               {"mnuLettura", "Lettura Identazione VORN", true},
               {"mnuHTML", "Scrivi Pagine HTML di documentazione", true}});
}

// Each text fits its control, by the metrics of its font.
void FormaTest::NessunaDidascaliaTagliata(Banco& b) {
    const auto cabe = [](const QString& testo, const QFont& carattere, const QRect& posto, int come,
                         const char* nome) {
        const QRect serve = QFontMetrics(carattere).boundingRect(posto, come, testo);
        QVERIFY2(serve.width() <= posto.width() && serve.height() <= posto.height(),
                 qPrintable(QString("%1: %2x%3 in %4x%5")
                                .arg(nome)
                                .arg(serve.width())
                                .arg(serve.height())
                                .arg(posto.width())
                                .arg(posto.height())));
    };
    for (const char* nome : {"Label6", "Label5", "Label7", "Label3", "Label1(0)", "Label1(1)"}) {
        const auto* e = b.C<QLabel>(nome);
        const int come = static_cast<int>(e->alignment()) | (e->wordWrap() ? int(Qt::TextWordWrap) : 0);
        QRect posto = e->contentsRect();
        if (e->indent() > 0) posto.setLeft(posto.left() + e->indent());
        cabe(Nudo(e->text()), e->font(), posto, come, nome);
    }
    for (const char* nome : {"TogliCommenti", "Check1", "Check2"}) {
        auto* casella = b.C<QCheckBox>(nome);
        QStyleOptionButton come;
        come.initFrom(casella);
        // A trailing blank is not seen.
        cabe(Nudo(casella->text()).trimmed(), casella->font(),
             casella->style()->subElementRect(QStyle::SE_CheckBoxContents, &come, casella),
             Qt::AlignLeft | Qt::AlignVCenter, nome);
    }
    auto* bottone = b.C<QPushButton>("Command2");
    QStyleOptionButton come;
    come.initFrom(bottone);
    cabe(Nudo(bottone->text()), bottone->font(),
         bottone->style()->subElementRect(QStyle::SE_PushButtonContents, &come, bottone), Qt::AlignCenter,
         "Command2");
    for (int i = 0; i < 2; ++i)
        cabe(Nudo(b.Linguette()->tabText(i)), b.Linguette()->font(), b.Linguette()->tabRect(i),
             Qt::AlignCenter, "SSTab1");
    QVERIFY(b.Linguette()->sizeHint().height() <= b.Linguette()->height() + 8);
    // Label2 shortens its path by itself; only its height matters.
    QVERIFY(QFontMetrics(b.C("Label2")->font()).height() <= b.C("Label2")->height());
    // A row of a list, and the shown drive.
    QVERIFY(QFontMetrics(b.Drive1()->font()).height() <= b.Drive1()->height() - 4);
    // The lines of the help panel.
    const QFontMetrics help(b.C("Picture2")->font());
    for (const Vista riga : TestoHelp) {
        const QString testo = Mostra(riga);
        QVERIFY2(help.horizontalAdvance(testo) <= b.C("Picture2")->width(), qPrintable(testo));
    }
}

void FormaTest::nessunaDidascaliaTagliata() {
    Banco b;
    b.Apri();
    // Where the test sets up one font only, it must be the one that is measured.
    const QString sola = qEnvironmentVariable("MORVELLA_CARATTERE");
    if (!sola.isEmpty())
        for (const char* nome : {"Label6", "Label2", "Label1(1)", "Picture2", "Check2"})
            QCOMPARE(QFontInfo(b.C(nome)->font()).family(), sola);
    NessunaDidascaliaTagliata(b);
    for (const char* nome : {"Label6", "Label5", "Label7", "Label3"})
        QVERIFY2(b.C(nome)->font().pixelSize() >= 9, nome); // reduced, but readable
}

QTEST_MAIN(FormaTest)
#include "forma_test.moc"

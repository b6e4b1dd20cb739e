// SPDX-License-Identifier: MIT
//
// Builds the form: its menu, its controls, their captions and colours. What they do is connected
// in vornok.cpp.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QPaintEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTimer>
#include <QWheelEvent>

#include "window/testo_qt.h"
#include "window/vornok/controlli.h"
#include "window/vornok/elenchi.h"
#include "window/vornok/forma.h"
#include "window/vornok/pannello_qt.h"
#include "window/vornok/vornok.h"

// The resources of a static library must be asked for. The macro only works outside namespaces.
static void CaricaFigure() { Q_INIT_RESOURCE(finestra); }

namespace morvella {

namespace {

constexpr Vista TitoloForma = "Vorn!  Morvella il codice di Visual Basic  - "; // followed by the address
constexpr Vista Spiegazione =
    "Dopo aver selezionato un progetto VBP, la procedura crea una directory \"APPOGGIO\" nella quale scrive "
    "tutti i nuovi form, Moduli e Classi del progetto, lasciando gli originali inalterati. Per la sola "
    "visualizzazione del codice identato ed a Blocchi, si dovr\xE0 utilizzare, nel Notepad, il carattere "
    "TERMINAL."; // sic

constexpr QColor GrigioForma(212, 208, 200);
constexpr QColor Giallo(255, 255, 0);
constexpr QColor BluStato(0, 0, 192);
constexpr QColor VerdeAvviso(0, 192, 0);
constexpr QColor Navy(0, 0, 128);

// The colours of the form's controls do not follow the desktop: some texts have fixed colours,
// which are chosen to be readable on these.
QPalette TavolozzaForma() {
    QPalette t(GrigioForma);
    t.setColor(QPalette::WindowText, Qt::black);
    t.setColor(QPalette::Text, Qt::black);
    t.setColor(QPalette::ButtonText, Qt::black);
    t.setColor(QPalette::Base, Qt::white);
    t.setColor(QPalette::Highlight, Navy);
    t.setColor(QPalette::HighlightedText, Qt::white);
    t.setColor(QPalette::ToolTipBase, QColor(255, 255, 225));
    t.setColor(QPalette::ToolTipText, Qt::black);
    const QColor spento(88, 88, 88);
    for (const auto ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        t.setColor(QPalette::Disabled, ruolo, spento);
    return t;
}

// The surface of the form: 256 bands, from violet at the top to red at the foot.
class Superficie : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent* evento) override {
        QPainter penna(this);
        const QRect qui = evento->rect();
        for (int i = 255; i >= 0; --i) {
            const int sopra = i * height() / 256;
            const QRect banda(qui.left(), sopra, qui.width(), (i + 1) * height() / 256 - sopra);
            if (banda.intersects(qui)) penna.fillRect(banda, QColor(158, 1, 255 - i));
        }
    }
};

// Ignores the wheel while its list is closed, so that scrolling past does not change the drive.
class ElencoUnita : public QComboBox {
  public:
    ElencoUnita(QWidget* genitore, std::function<void()> primaDiAprire)
        : QComboBox(genitore), primaDiAprire_(std::move(primaDiAprire)) {}
    void showPopup() override {
        primaDiAprire_(); // media may have come or gone
        QComboBox::showPopup();
    }

  protected:
    void wheelEvent(QWheelEvent* evento) override { evento->ignore(); }

  private:
    std::function<void()> primaDiAprire_;
};

void Colora(QLabel* etichetta, const QColor& colore) {
    QPalette tavolozza = etichetta->palette();
    tavolozza.setColor(QPalette::WindowText, colore);
    etichetta->setPalette(tavolozza);
}

} // namespace

void VornOK::FaiForma() {
    CaricaFigure();
    setObjectName("VornOK");
    setWindowTitle(Mostra(Testo(TitoloForma) + Testo(IndirizzoContatto)));
    setWindowIcon(QIcon(":/finestra/morvella.png"));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint | Qt::MSWindowsFixedSizeDialogHint);
    setPalette(TavolozzaForma());
    setFont(CarattereForma());
    setAcceptDrops(true);
    FaiMenu();
    FaiControlli();
    MettiOrdine();
}

void VornOK::FaiMenu() {
    menuBar()->setNativeMenuBar(false);
    const auto voce = [this](auto* dove, const QString& nome, const QString& testo) {
        QAction* azione = dove->addAction(testo);
        azione->setObjectName(nome);
        azione->setMenuRole(QAction::NoRole);
        return azione;
    };
    mnuSeleziona_ = voce(menuBar(), "mnuSeleziona", "");
    QMenu* utility = menuBar()->addMenu("&Utility");
    utility->menuAction()->setObjectName("mnuutility");
    mnuRiordina_ = voce(utility, "mnuRiordina", "&Riscrivi e Riordina il codice dei Form Selezionati");
    mnuvorn_ = voce(utility, "mnuvorn", "&Scrivi la struttura VORN del codice dei form");
    mnuLettura_ = voce(utility, "mnuLettura", "&Lettura Identazione VORN");
    mnuHTML_ = voce(utility, "mnuHTML", "Scrivi Pagine &HTML di documentazione");
    MnuHelp_ = voce(menuBar(), "MnuHelp", "");
    mnuend_ = voce(menuBar(), "mnuend", "Us&cita");
    MnuHelpHtml_ = voce(menuBar(), "MnuHelpHtml", "&?");
}

void VornOK::FaiControlli() {
    constexpr int Pixel = static_cast<int>(TwipsPerPixel);
    auto* superficie = new Superficie(this);
    superficie->setObjectName("Superficie");
    superficie->setFixedSize(LarghezzaForma / Pixel, AltezzaForma / Pixel);
    setCentralWidget(superficie);
    layout()->setSizeConstraint(QLayout::SetFixedSize);

    auto* ornamento = new Figura(superficie, ":/finestra/Picture4.png", false);
    Metti(ornamento, "Picture4");

    FaiLinguette(superficie);

    Progress_ = new QProgressBar(superficie);
    Metti(Progress_, "Progress");
    Progress_->setAccessibleName("Righe del file in lavoro");
    for (QProgressBar* barra : {ProgressBar1_, Progress_}) {
        barra->setTextVisible(false);
        barra->hide();
    }

    FaiNascosti(superficie);

    auto* spiegazione = new QLabel(Mostra(Spiegazione), superficie);
    Metti(spiegazione, "Label3");
    spiegazione->setWordWrap(true);
    spiegazione->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    spiegazione->setTextFormat(Qt::PlainText);
    Colora(spiegazione, Giallo);
    Adatta(*spiegazione);

    Frame1_ = new PannelloHelp(superficie, help_);
    Timer1_ = new QTimer(this);
    Timer1_->setObjectName("Timer1");
    Timer1_->setInterval(50);
}

void VornOK::FaiLinguette(QWidget* superficie) {
    constexpr int Pixel = static_cast<int>(TwipsPerPixel);
    auto* linguette = new QWidget(superficie);
    Metti(linguette, "SSTab1");
    linguette->setAutoFillBackground(true);
    linguette_ = new QTabBar(linguette);
    linguette_->setObjectName("SSTab1.Linguette");
    linguette_->setExpanding(true);
    linguette_->setDrawBase(true);
    linguette_->setFocusPolicy(Qt::StrongFocus);
    linguette_->addTab("Identazione &Progetto"); // sic
    linguette_->addTab("&Default");
    const int alte = AltezzaLinguette / Pixel;
    linguette_->setGeometry(0, 0, linguette->width(), alte);
    QWidget* schede[2];
    for (int i = 0; i < 2; ++i) {
        schede[i] = new QWidget(linguette);
        schede[i]->setObjectName(QString("SSTab1.Scheda%1").arg(i + 1));
        schede[i]->setGeometry(0, alte, linguette->width(), linguette->height() - alte);
    }
    schede[1]->hide();
    linguette_->setAccessibleName("Schede");
    connect(linguette_, &QTabBar::currentChanged, this, [=](int quale) {
        schede[quale]->show();
        schede[1 - quale]->hide();
    });
    FaiSchedaProgetto(schede[0]);
    FaiSchedaDefault(schede[1]);
}

void VornOK::FaiNascosti(QWidget* superficie) {
    // Never seen. Its click event is the entry point of a run, called from code.
    Command1_ = new QPushButton("Riordina e Riscrivi il Testo", superficie);
    Metti(Command1_, "Command1");
    Command1_->hide();

    // Hidden with everything in it, so Option1(0) stays off.
    auto* frame2 = new QWidget(superficie);
    Metti(frame2, "Frame2");
    frame2->setStyleSheet("background: rgb(255, 0, 255)");
    const char* const tipi[] = {"*.Bas", "*.Frm", "*.Cls", "*.Dob", "*.Dsr"};
    for (int i = 0; i < 5; ++i) {
        auto* tipo = new QRadioButton(tipi[i], frame2);
        tipo->setObjectName(QString("Option1(%1)").arg(i));
        tipo->move(4 + i * 38, 12);
        tipo->setChecked(i == 1);
    }
    frame2->hide();
}

void VornOK::FaiSchedaProgetto(QWidget* scheda) {
    const int alte = scheda->y();
    Drive1_ = new ElencoUnita(scheda, [this] { AggiornaUnita(); });
    Metti(Drive1_, "Drive1", alte);
    Drive1_->setFocusPolicy(Qt::StrongFocus);
    Drive1_->setAccessibleName("Unità");
    Dir1_ = new ElencoDirectory(scheda);
    Metti(Dir1_, "Dir1", alte);
    Dir1_->setAccessibleName("Directory");
    File1Leggi_ = new ElencoProgetti(scheda);
    Metti(File1Leggi_, "File1Leggi", alte);
    File1Leggi_->setAccessibleName("Progetti");
    File1_ = new ElencoFile1(s_, scheda);
    Metti(File1_, "File1", alte);
    File1_->setAccessibleName("Form, moduli e classi del progetto");
    ProgressBar1_ = new QProgressBar(scheda);
    Metti(ProgressBar1_, "ProgressBar1", alte);
    ProgressBar1_->setAccessibleName("File del progetto");

    auto* invito = new QLabel("S&eleziona il progetto da IDENTARE", scheda); // sic
    Metti(invito, "Label6", alte);
    invito->setBuddy(File1Leggi_);
    Adatta(*invito);

    Label2_ = new EtichettaPercorso(scheda);
    Metti(Label2_, "Label2", alte);
    Label2_->setTextFormat(Qt::PlainText);
    Label2_->setFont(CarattereStato());
    Label2_->setAccessibleName("File in lavoro");
    Colora(Label2_, BluStato);
}

void VornOK::FaiSchedaDefault(QWidget* scheda) {
    const int alte = scheda->y();
    const auto spunta = [&](const QString& nome, const QString& testo) {
        auto* casella = new QCheckBox(testo, scheda);
        Metti(casella, nome, alte);
        casella->installEventFilter(this); // for the loss of focus
        return casella;
    };
    TogliCommenti_ = spunta("TogliCommenti", "&Togli tutti i commenti. ");
    Check1_ = spunta("Check1", "&Intestazione Procedure");

    auto* avviso = new QLabel("Ogni riga di intestazionedeve cominciare con l' APOSTROFO", scheda); // sic
    Metti(avviso, "Label5", alte);
    Colora(avviso, VerdeAvviso);
    // This green is only readable on a dark background.
    QPalette tavolozza = avviso->palette();
    tavolozza.setColor(QPalette::Window, Navy);
    avviso->setPalette(tavolozza);
    avviso->setAutoFillBackground(true);
    avviso->setIndent(4);
    Adatta(*avviso);

    Text1_ = new CasellaTesto(scheda);
    Metti(Text1_, "Text1", alte);
    Text1_->setFont(CarattereTesto());
    Text1_->setAccessibleName("Testo dell'intestazione");
    Text1_->installEventFilter(this);

    Check2_ = spunta("Check2", "Seleziona progetto e compila senza richiedere con&ferma");
    Command2_ = new QPushButton("&Ripristina Default", scheda);
    Metti(Command2_, "Command2", alte);
    Command2_->setAutoDefault(false);

    auto* immagine = new Figura(scheda, ":/finestra/Image1.jpg", true);
    Metti(immagine, "Image1", alte);
    auto* firma = new QLabel("By Dario Fenzoni", scheda);
    Metti(firma, "Label7", alte);
    Adatta(*firma);
}

void VornOK::MettiOrdine() {
    const std::vector<QWidget*> ordine = {linguette_,     Drive1_, Dir1_,  File1Leggi_, File1_,
                                          TogliCommenti_, Check1_, Text1_, Check2_,     Command2_};
    for (std::size_t i = 1; i < ordine.size(); ++i) setTabOrder(ordine[i - 1], ordine[i]);
    Dir1_->setFocus();
}

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "window/vornok/vornok.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLayout>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QTabBar>
#include <QTimer>
#include <QUrl>

#include "comandi/comandi.h"
#include "docs/docs.h"
#include "listing/listing.h"
#include "rewriter/rewriter.h"
#include "shell/opzioni.h"
#include "shell/progetto.h"
#include "text/disco/unita.h"
#include "window/vornok/controlli.h"
#include "window/vornok/elenchi.h"
#include "window/vornok/forma.h"
#include "window/vornok/pannello_qt.h"
#include "window/testo_qt.h"

// A library's resources are there only when somebody asks for them; the macro stands outside of
// every namespace.
static void CaricaFigure() { Q_INIT_RESOURCE(finestra); }

namespace morvella {

namespace {

constexpr Vista TitoloProgramma = "Morvella";
constexpr Vista TitoloForma = "Vorn!  Morvella il codice di Visual Basic  - "; // the address follows
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

// The colours of the form's controls, whatever the desktop's are: the texts whose colours are
// fixed are made to be read on these.
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

// The form's own surface: 256 bands, violet at the top and red at the foot.
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

// The wheel goes to the drive list only while it is open: a drive is not changed in passing.
class ElencoUnita : public QComboBox {
  public:
    ElencoUnita(QWidget* genitore, std::function<void()> primaDiAprire)
        : QComboBox(genitore), primaDiAprire_(std::move(primaDiAprire)) {}
    void showPopup() override {
        primaDiAprire_(); // media come and go
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

// Names are bytes where the system says so, and need not be UTF-8.
std::string PercorsoDi(const QUrl& url) {
#ifdef Q_OS_WIN
    return url.toLocalFile().toStdString();
#else
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toUtf8()).toStdString();
#endif
}

std::string Genitore(const std::string& percorso) {
    const std::size_t barra = percorso.find_last_of('/');
    return percorso.substr(0, barra == 0 || percorso[barra - 1] == ':' ? barra + 1 : barra);
}

} // namespace

VornOK::VornOK(Disco& disco, const std::string& programma, const std::string& directory)
    : disco_(disco), s_(disco, *this) {
    s_.AppPath = s_.File.Aggancia(Gancio::Programma, programma);
    // The directory list begins in the current directory, and no event comes of that.
    s_.Dir1Path = s_.File.Aggancia(Gancio::Progetto, directory);
    try {
        s_.File.ChDir(s_.Dir1Path);
        ElencaProgetti(s_);
    } catch (const Errore&) {
        s_.File1Leggi = {}; // a directory that cannot be entered has no projects to show
    }

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
    Collega();
    MettiOrdine();
    s_.Drive1Drive = DaUtente(QString::fromStdString(UnitaDi(disco_.ElencaUnita(), directory)));
    AggiornaUnita();
    Dir1_->Apri(disco_, directory);
    Aggiorna();
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

VornOK::~VornOK() { finita_ = true; } // controls that go lose the focus: nothing is stored then

// ---------------------------------------------------------------------------------- the form

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

    Progress_ = new QProgressBar(superficie);
    Metti(Progress_, "Progress");
    Progress_->setAccessibleName("Righe del file in lavoro");
    for (QProgressBar* barra : {ProgressBar1_, Progress_}) {
        barra->setTextVisible(false);
        barra->hide();
    }

    // Never seen: its click is the way in to a run for who calls it by its name.
    Command1_ = new QPushButton("Riordina e Riscrivi il Testo", superficie);
    Metti(Command1_, "Command1");
    Command1_->hide();

    // Hidden with all that it holds: Option1(0) stays off, whatever happens.
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
    // This green can be read on a dark ground only.
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

void VornOK::Collega() {
    const auto comando = [this](QAction* voce, void (*operazione)(Stato&)) {
        connect(voce, &QAction::triggered, this, [this, operazione] { Evento([&] { operazione(s_); }); });
    };
    comando(mnuSeleziona_, mnuSeleziona_Click);
    comando(mnuRiordina_, mnuRiordina_Click);
    comando(mnuvorn_, mnuvorn_Click);
    comando(mnuLettura_, mnuLettura_Click);
    comando(mnuHTML_, mnuHTML_Click);
    comando(MnuHelpHtml_, MnuHelpHtml_Click);
    connect(mnuend_, &QAction::triggered, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);

    connect(Drive1_, &QComboBox::activated, this, [this](int quale) {
        if (quale < 0 || quale >= static_cast<int>(unita_.size())) return;
        const std::string lettera = unita_[static_cast<std::size_t>(quale)].Lettera;
        Evento([&] { CambiaDrive1(s_, lettera); });
    });
    connect(Dir1_, &ElencoDirectory::Scelta, this,
            [this](const std::string& percorso) { Evento([&] { MuoviDir1(percorso); }); });
    connect(File1Leggi_, &ElencoProgetti::Cliccata, this, [this](int riga) {
        Evento([&] {
            s_.File1Leggi.ListIndex = riga;
            File1Leggi_Click(s_);
        });
    });
    connect(File1_, &ElencoFile1::Cliccata, this, [this](const std::vector<std::pair<int, bool>>& cambiate) {
        Evento([&] {
            for (const auto& [riga, selezionata] : cambiate) SelezionaFile1(s_, riga, selezionata);
        });
    });
    connect(Command1_, &QPushButton::clicked, this, [this] { Evento([&] { Command1_Click(s_); }); });

    connect(TogliCommenti_, &QCheckBox::clicked, this, [this](bool si) { s_.TogliCommenti = si ? 1 : 0; });
    connect(Check1_, &QCheckBox::clicked, this,
            [this](bool si) { Evento([&] { CambiaCheck1(s_, si ? 1 : 0); }); });
    connect(Check2_, &QCheckBox::clicked, this, [this](bool si) { s_.Check2 = si ? 1 : 0; });
    connect(Text1_, &CasellaTesto::Scritta, this, [this](const Testo& testo) { s_.Text1 = testo; });
    connect(Command2_, &QPushButton::clicked, this, [this] { Evento([&] { Command2_Click(s_); }); });

    connect(MnuHelp_, &QAction::triggered, this,
            [this] { EventoHelp([&] { MnuHelp_Click(help_, Frame1_->AltezzaA()); }); });
    connect(Frame1_, &PannelloHelp::Frame1Cliccata, this,
            [this] { EventoHelp([&] { Frame1_Click(help_); }); });
    connect(Frame1_, &PannelloHelp::Picture1Cliccata, this,
            [this] { EventoHelp([&] { Picture1_Click(help_); }); });
    connect(Frame1_, &PannelloHelp::Picture2Cliccata, this,
            [this] { EventoHelp([&] { Picture2_Click(help_); }); });
    connect(Timer1_, &QTimer::timeout, this, [this] { EventoHelp([&] { Timer1_Timer(help_); }); });
}

// -------------------------------------------------------------------------------- the events

// One event: the operation, and then the controls as it left the state. An error that comes up
// to here is final.
void VornOK::Evento(const std::function<void()>& operazione) {
    if (finita_) return;
    if (annidati_++ == 0) {
        iniziato_ = std::chrono::steady_clock::now();
        speso_ = {};
    }
    try {
        operazione();
    } catch (const Errore& e) {
        ErroreFinale(e);
    } catch (const std::bad_alloc&) {
        ErroreFinale(Errore(ErrMemoria));
    }
    --annidati_;
    if (!finita_) Aggiorna();
}

// The panel has no influence on anything else, and nothing else has on it.
void VornOK::EventoHelp(const std::function<void()>& operazione) {
    if (finita_) return;
    operazione();
    Frame1_->Aggiorna();
    if (help_.Timer1Enabled != Timer1_->isActive()) {
        if (help_.Timer1Enabled)
            Timer1_->start();
        else
            Timer1_->stop();
    }
    AggiornaMenu();
}

void VornOK::ErroreFinale(const Errore& causa) {
    if (finita_) return;
    for (int n = 1; n <= Canali::NumeroMassimo; ++n) {
        try {
            s_.Canale.Close(n);
        } catch (const Errore&) {
            // the first error is the one to tell
        }
    }
    Testo testo = "Errore " + CStr(causa.Numero) + ": " + Testo(Descrizione(causa.Numero));
    if (!causa.File.empty()) testo += Chr(13) + Testo(causa.File);
    if (LCase(causa.File).ends_with("\\default.ini") && causa.Numero == ErrFineFile)
        testo += Chr(13) + "Tolto quel file, al prossimo avvio ne nasce uno nuovo con le opzioni iniziali.";
    MsgBox(testo, OkStop, "");
    Termina(1);
}

void VornOK::Termina(int codice) {
    finita_ = true;
    codice_ = codice;
    Timer1_->stop();
    hide();
    QCoreApplication::exit(codice);
}

// Whether Dir1 changed, and with it raised its event.
bool VornOK::MuoviDir1(const std::string& percorso) {
    if (Archivio::TestoDiPercorso(percorso) == s_.Dir1Path) return false;
    CambiaDir1(s_, percorso);
    // Whoever goes up from a volume or down into one has changed the drive that is shown; that
    // is no change of Drive1, and raises nothing.
    s_.Drive1Drive = DaUtente(QString::fromStdString(UnitaDi(disco_.ElencaUnita(), percorso)));
    return true;
}

void VornOK::Apri(const std::string& percorso) {
    const std::string intero = disco_.Assoluto(percorso);
    const Scheda cosa = disco_.Esamina(intero);
    if (cosa.Tipo == TipoVoce::Directory) {
        Evento([&] { MuoviDir1(intero); });
        return;
    }
    const std::size_t barra = intero.find_last_of('/');
    if (cosa.Tipo == TipoVoce::File && LCase(intero).ends_with(".vbp")) {
        Evento([&] {
            const bool mossa = MuoviDir1(Genitore(intero));
            try {
                ElencaProgetti(s_); // the file may be younger than the list
            } catch (const Errore& e) {
                // A directory that may be entered and not be read, which is no end of the program.
                // When Dir1 moved there its event has told it.
                if (!mossa) MsgBox(CStr(e.Numero) + Testo(Descrizione(e.Numero)), OkDomanda, "");
                return;
            }
            const Testo nome = s_.File.Ricorda(intero.substr(barra + 1));
            const auto& nomi = s_.File1Leggi.Nomi;
            const auto dove = std::find(nomi.begin(), nomi.end(), nome);
            if (dove == nomi.end()) return;
            s_.File1Leggi.ListIndex = dove - nomi.begin();
            Aggiorna();
            File1Leggi_Click(s_);
        });
        return;
    }
    MsgBox(Testo(cosa.Esiste() ? "Non \xE8 un progetto (*.vbp) n\xE9 una directory:"
                               : "Non c'\xE8 nessun progetto e nessuna directory con questo nome:") +
               Chr(13) + Archivio::TestoDiPercorso(intero),
           OkStop, "");
}

bool VornOK::event(QEvent* evento) {
    // What other programs did to the disk while they were in front.
    if (evento->type() == QEvent::WindowActivate && mostrata_ && annidati_ == 0 && !finita_) RileggiDisco();
    return QMainWindow::event(evento);
}

bool VornOK::eventFilter(QObject* oggetto, QEvent* evento) {
    const bool esito = QMainWindow::eventFilter(oggetto, evento);
    if (!finita_ && PerdeFuoco(*evento)) Evento([this] { Opzione_LostFocus(s_); });
    return esito;
}

void VornOK::showEvent(QShowEvent* evento) {
    QMainWindow::showEvent(evento);
    if (mostrata_) return;
    mostrata_ = true;
    Evento([this] { Form_Resize(s_); });
}

void VornOK::closeEvent(QCloseEvent* evento) {
    if (finita_) return;
    Form_Unload(s_);
    evento->accept(); // in any case
    Termina(0);
}

void VornOK::dragEnterEvent(QDragEnterEvent* evento) {
    const QList<QUrl> dove = evento->mimeData()->urls();
    if (dove.size() == 1 && dove.front().isLocalFile()) evento->acceptProposedAction();
}

void VornOK::dropEvent(QDropEvent* evento) {
    const QList<QUrl> dove = evento->mimeData()->urls();
    if (dove.size() != 1 || !dove.front().isLocalFile()) return;
    evento->acceptProposedAction();
    // Behind the drop: who drags waits for its end, and a question would keep him waiting.
    const std::string percorso = PercorsoDi(dove.front());
    QMetaObject::invokeMethod(
        this, [this, percorso] { Apri(percorso); }, Qt::QueuedConnection);
}

// ------------------------------------------------------------------ what the state says, shown

void VornOK::Aggiorna() {
    AggiornaMenu();
    AggiornaBarre();
    Dir1_->Apri(disco_, s_.File.Trova(s_.Dir1Path).Percorso);
    AggiornaUnita();
    File1Leggi_->Mostra(s_.File1Leggi, s_.File);
    File1_->Mostra();
    TogliCommenti_->setChecked(s_.TogliCommenti == 1);
    Check1_->setChecked(s_.Check1 == 1);
    Check2_->setChecked(s_.Check2 == 1);
    Text1_->Mostra(s_.Text1);
    // Without a tab stop a click still leads there, and so does ticking Check1.
    Text1_->setFocusPolicy(s_.Text1TabStop ? Qt::StrongFocus : Qt::ClickFocus);
}

void VornOK::AggiornaMenu() {
    mnuSeleziona_->setText(ConMnemonico(Mostra(s_.mnuSeleziona), 'S'));
    MnuHelp_->setText(ConMnemonico(Mostra(help_.MnuHelp), 'H'));
    mnuRiordina_->setEnabled(s_.mnuRiordina);
    mnuvorn_->setEnabled(s_.mnuvorn);
    mnuLettura_->setEnabled(s_.mnuLettura);
    mnuHTML_->setEnabled(s_.mnuHTML);
}

void VornOK::AggiornaBarre() {
    const auto porta = [](QProgressBar* dove, const Barra& barra) {
        // Thousandths: a bar counts in numbers that Qt's cannot hold. A Max of 0 would set it in
        // motion without an end.
        const double parte = barra.Max > barra.Min ? static_cast<double>(barra.Value - barra.Min) /
                                                         static_cast<double>(barra.Max - barra.Min)
                                                   : 0;
        dove->setRange(0, 1000);
        dove->setValue(static_cast<int>(std::clamp(parte, 0.0, 1.0) * 1000));
        dove->setVisible(barra.Visible);
    };
    porta(ProgressBar1_, s_.ProgressBar1);
    porta(Progress_, s_.Progress);
    Label2_->setText(Mostra(s_.Label2));
}

void VornOK::AggiornaUnita() {
    std::vector<Unita> adesso = disco_.ElencaUnita();
    if (Drive1_->count() == 0 || adesso != unita_) {
        unita_ = std::move(adesso);
        Drive1_->clear();
        for (const Unita& u : unita_)
            Drive1_->addItem(
                QString::fromStdString(u.Lettera + (u.Nome.empty() ? "" : "  [" + u.Nome + "]")));
    }
    const auto dove = std::find_if(unita_.begin(), unita_.end(),
                                   [&](const Unita& u) { return u.Lettera == Utf8Da1252(s_.Drive1Drive); });
    Drive1_->setCurrentIndex(dove == unita_.end() ? -1 : static_cast<int>(dove - unita_.begin()));
}

// Directories, projects and drives as they are now. Nothing was chosen and nothing moved, so
// this is no event; the chosen project stays so under its name.
void VornOK::RileggiDisco() {
    const Testo scelto(s_.File1Leggi.Scelto());
    try {
        ElencaProgetti(s_);
    } catch (const Errore&) {
        s_.File1Leggi = {};
    }
    const auto& nomi = s_.File1Leggi.Nomi;
    const auto dove = std::find(nomi.begin(), nomi.end(), scelto);
    if (!scelto.empty() && dove != nomi.end()) s_.File1Leggi.ListIndex = dove - nomi.begin();
    File1Leggi_->Mostra(s_.File1Leggi, s_.File);
    AggiornaUnita();
    Dir1_->Rileggi(disco_);
}

void VornOK::AggiornaDir1() { Dir1_->Rileggi(disco_, true); }

void VornOK::PortaFuocoSuText1() {
    // Not at the start, when the options are loaded: the other card is in front then.
    if (Text1_->isVisible()) {
        Text1_->setFocusPolicy(Qt::StrongFocus);
        Text1_->setFocus(Qt::OtherFocusReason);
    }
}

// In the middle of an operation nothing else paints. Some twenty-five times a second is as often
// as a bar can be followed; what comes between goes with the next one. The name of the file in
// work is painted each time that it changes, as long as painting stays below a twentieth of the
// operation: a small file of many would cost less to read than to name.
void VornOK::Ridisegna(bool nome) {
    using namespace std::chrono_literals;
    if (!mostrata_) return;
    const auto adesso = std::chrono::steady_clock::now();
    const bool subito = nome && speso_ <= 5ms + (adesso - iniziato_) / 20;
    if (!subito && adesso - dipinto_ < 40ms) return;
    dipinto_ = adesso;
    ++ridisegni_;
    AggiornaBarre();
    Label2_->repaint();
    ProgressBar1_->repaint();
    Progress_->repaint();
    speso_ += std::chrono::steady_clock::now() - adesso;
}

// ---------------------------------------------------------------------------------- the boxes

int VornOK::MsgBox(Vista testo, int flag, Vista titolo) {
    if (mostrata_ && !finita_) Aggiorna(); // whoever is asked sees what he is asked about
    QMessageBox box(this);
    box.setWindowTitle(Mostra(titolo.empty() ? TitoloProgramma : titolo));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(s_.File.Utf8DiTesto(testo)).replace('\r', '\n'));
    const bool domanda = flag == SiNoDomanda || flag == SiNoInformazione;
    box.setIcon(flag == OkStop                             ? QMessageBox::Critical
                : flag == OkDomanda || flag == SiNoDomanda ? QMessageBox::Question
                                                           : QMessageBox::Information);
    if (!domanda) {
        box.addButton("OK", QMessageBox::AcceptRole);
        box.exec();
        return RispostaOk;
    }
    QPushButton* si = box.addButton("&Sì", QMessageBox::YesRole);
    QPushButton* no = box.addButton("&No", QMessageBox::NoRole);
    box.setDefaultButton(si);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == si ? RispostaSi : RispostaNo;
}

void VornOK::Beep() { QApplication::beep(); }

void VornOK::Avvia(Vista comando, int finestra) { s_.File.Shell(comando, finestra); }

} // namespace morvella

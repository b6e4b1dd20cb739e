// SPDX-License-Identifier: MIT
#include "window/lettore/finestra.h"

#include <algorithm>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPdfWriter>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QSaveFile>
#include <QStatusBar>
#include <QTreeView>
#include <QVBoxLayout>

#ifdef MORVELLA_STAMPA
#include <QPrintDialog>
#include <QPrinter>
#endif

#include "window/lettore/stampa.h"

namespace morvella::lettore {

namespace {

constexpr int Quiete = 200; // a file that is being written is read when it has been left alone so long
constexpr int Giro = 2000;  // for disks that tell nothing of a change

QString Nome(const QString& file) { return QFileInfo(file).fileName(); }

std::filesystem::path PercorsoDi(const QString& file) {
#ifdef _WIN32
    return file.toStdWString();
#else
    return QFile::encodeName(file).toStdString(); // the bytes that the name has on the disk
#endif
}

QString Contate(Lungo n, const QString& una, const QString& tante) {
    return QStringLiteral("%1 %2").arg(n).arg(n == 1 ? una : tante);
}

// Why a file cannot be shown.
QString Motivo(const QString& file, const Errore& errore) {
    const QFileInfo info(file);
    if (errore.Numero == ErrFileAssente || !info.exists()) return "Il file non esiste.";
    if (info.isDir()) return "È una directory, non un file.";
    if (!info.isFile()) return "Non è un file su disco.";
    if (!info.isReadable()) return "Manca il permesso di leggerlo.";
    return "Il disco non lo fa leggere.";
}

} // namespace

Dialoghi DialoghiVeri() {
    Dialoghi d;
    d.Avvisa = [](QWidget* sopra, bool guasto, const QString& titolo, const QString& testo) {
        QMessageBox box(guasto ? QMessageBox::Warning : QMessageBox::Information, titolo, testo,
                        QMessageBox::NoButton, sopra);
        box.addButton("&OK", QMessageBox::AcceptRole);
        if (guasto) box.setTextFormat(Qt::PlainText); // it names a file, and that may hold anything
        box.exec();
    };
    d.Scegli = [](QWidget* sopra, const QString& directory) {
        QFileDialog dialogo(sopra, "Apri una struttura", directory);
        dialogo.setFileMode(QFileDialog::ExistingFiles);
        dialogo.setNameFilters({"Strutture (*.log *.Log *.LOG)", "Tutti i file (*)"});
        dialogo.setLabelText(QFileDialog::Accept, "&Apri");
        dialogo.setLabelText(QFileDialog::Reject, "Annulla");
        return dialogo.exec() == QDialog::Accepted ? dialogo.selectedFiles() : QStringList();
    };
    d.ScegliPdf = [](QWidget* sopra, const QString& proposto) {
        QFileDialog dialogo(sopra, "Salva come PDF", QFileInfo(proposto).path());
        dialogo.setAcceptMode(QFileDialog::AcceptSave);
        dialogo.setDefaultSuffix("pdf");
        dialogo.setNameFilters({"PDF (*.pdf)", "Tutti i file (*)"});
        dialogo.selectFile(Nome(proposto));
        dialogo.setLabelText(QFileDialog::Accept, "&Salva");
        dialogo.setLabelText(QFileDialog::Reject, "Annulla");
        return dialogo.exec() == QDialog::Accepted ? dialogo.selectedFiles().value(0) : QString();
    };
    return d;
}

// ---- the windows

Lettore::Lettore(Dialoghi dialoghi, bool lf) : dialoghi_(std::move(dialoghi)), lf_(lf) {
    static const bool unaVolta = [] {
        AccessibilitaDellaVista();
        return true;
    }();
    Q_UNUSED(unaVolta);
}

Lettore::~Lettore() {
    for (const auto& finestra : std::as_const(finestre_)) delete finestra;
}

QList<FinestraLettore*> Lettore::Finestre() const {
    QList<FinestraLettore*> aperte;
    for (const auto& finestra : finestre_)
        if (finestra && finestra->isVisible()) aperte.append(finestra);
    return aperte;
}

FinestraLettore* Lettore::Nuova() {
    auto* finestra = new FinestraLettore(*this);
    finestre_.removeIf([](const QPointer<FinestraLettore>& f) { return !f; });
    finestre_.append(finestra);
    finestra->show();
    return finestra;
}

int Lettore::Apri(const QStringList& file, FinestraLettore* vuota) {
    int mancati = 0;
    for (const QString& uno : file) {
        const QString vero = QFileInfo(uno).canonicalFilePath();
        FinestraLettore* gia = nullptr;
        for (FinestraLettore* f : Finestre())
            if (!vero.isEmpty() && QFileInfo(f->File()).canonicalFilePath() == vero) gia = f;
        if (gia) {
            gia->setWindowState(gia->windowState() & ~Qt::WindowMinimized);
            gia->raise();
            gia->activateWindow();
            continue;
        }
        const bool qui = vuota && vuota->File().isEmpty();
        auto nuova = qui ? nullptr : std::make_unique<FinestraLettore>(*this);
        FinestraLettore* finestra = qui ? vuota : nuova.get();
        QString perche;
        if (!finestra->Apri(uno, perche)) {
            ++mancati;
            dialoghi_.Avvisa(vuota, true, "Morvella Lettore",
                             QStringLiteral("Non si può aprire «%1».\n\n%2").arg(uno, perche));
            continue;
        }
        if (nuova) finestre_.append(nuova.release());
        finestra->show();
    }
    return mancati;
}

void Lettore::ChiudiTutte() {
    for (FinestraLettore* finestra : Finestre()) finestra->close();
}

// ---- one window

FinestraLettore::FinestraLettore(Lettore& lettore) : lettore_(lettore), vista_(new VistaStruttura) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    resize(900, 700);
    vista_->setObjectName("vista");

    auto* centro = new QWidget;
    auto* colonna = new QVBoxLayout(centro);
    colonna->setContentsMargins(0, 0, 0, 0);
    colonna->setSpacing(0);
    colonna->addWidget(vista_, 1);
    colonna->addWidget(FaiBarraTrova());
    colonna->addWidget(FaiBarraNumero());
    setCentralWidget(centro);

    stato_ = new QLabel;
    stato_->setObjectName("stato");
    stato_->setAccessibleName("Stato");
    statusBar()->addPermanentWidget(stato_);
    FaiElenco();
    FaiMenu();

    connect(vista_, &VistaStruttura::CursoreMosso, this, &FinestraLettore::AggiornaStato);
    connect(vista_, &VistaStruttura::ZoomCambiato, this, &FinestraLettore::AggiornaStato);
    connect(vista_, &VistaStruttura::CopiaTroppoGrande, this,
            [this] { Dici("Troppo testo da copiare: selezionarne di meno."); });
    const auto muta = [this] { quiete_.start(Quiete, this); };
    connect(&sorveglia_, &QFileSystemWatcher::fileChanged, this, muta);
    connect(&sorveglia_, &QFileSystemWatcher::directoryChanged, this, muta);

    AggiornaColori();
    Aggiorna();
    vista_->setFocus();
}

FinestraLettore::~FinestraLettore() {
    procedure_->Mostra(nullptr);
    vista_->Mostra(nullptr);
}

QAction* FinestraLettore::Azione(QMenu* menu, const char* nome, const QString& testo,
                                 const QList<QKeySequence>& tasti, std::function<void()> fai) {
    QAction* azione = menu->addAction(testo);
    azione->setObjectName(nome);
    azione->setShortcuts(tasti);
    connect(azione, &QAction::triggered, this, std::move(fai));
    return azione;
}

void FinestraLettore::FaiMenu() {
    const auto suStruttura = [this](QAction* azione) {
        perStruttura_.append(azione);
        return azione;
    };
    QMenu* file = menuBar()->addMenu("&File");
    Azione(file, "apri", "&Apri...", {QKeySequence("Ctrl+O")}, [this] { ApriAltri(); });
    suStruttura(Azione(file, "rileggi", "&Rileggi", {QKeySequence("F5")}, [this] {
        Rileggi();
        if (!sparita_) Dici("Riletto.");
    }));
    file->addSeparator();
    // A Qt can come without PDF, without printing or without either.
#if QT_CONFIG(pdf)
    suStruttura(Azione(file, "pdf", "Salva come &PDF...", {}, [this] { SalvaPdf(); }));
#endif
#ifdef MORVELLA_STAMPA
    suStruttura(Azione(file, "stampa", "&Stampa...", {QKeySequence("Ctrl+P")}, [this] { StampaSuCarta(); }));
#endif
    file->addSeparator();
    Azione(file, "chiudi", "&Chiudi", {QKeySequence("Ctrl+W")}, [this] { close(); });
    Azione(file, "esci", "&Esci", {QKeySequence("Ctrl+Q")}, [this] { lettore_.ChiudiTutte(); });

    QMenu* modifica = menuBar()->addMenu("&Modifica");
    QAction* copia =
        suStruttura(Azione(modifica, "copia", "&Copia", {QKeySequence("Ctrl+C"), QKeySequence("Ctrl+Ins")},
                           [this] { vista_->Copia(); }));
    QAction* tutto = suStruttura(Azione(modifica, "tutto", "&Seleziona tutto", {QKeySequence("Ctrl+A")},
                                        [this] { vista_->ScegliTutto(); }));
    modifica->addSeparator();
    QAction* trova = suStruttura(
        Azione(modifica, "trova", "&Trova...", {QKeySequence("Ctrl+F")}, [this] { ApriTrova(); }));
    suStruttura(
        Azione(modifica, "successivo", "Trova s&uccessivo", {QKeySequence("F3")}, [this] { Cerca(true); }));
    suStruttura(Azione(modifica, "precedente", "Trova &precedente", {QKeySequence("Shift+F3")},
                       [this] { Cerca(false); }));

    QMenu* vai = menuBar()->addMenu("&Vai");
    QAction* numero = suStruttura(
        Azione(vai, "numero", "Al &numero...", {QKeySequence("Ctrl+G")}, [this] { ApriNumero(); }));
    vai->addSeparator();
    suStruttura(
        Azione(vai, "errore", "All'errore &successivo", {QKeySequence("F8")}, [this] { VaiAErrore(true); }));
    suStruttura(Azione(vai, "errorePrima", "All'errore &precedente", {QKeySequence("Shift+F8")},
                       [this] { VaiAErrore(false); }));
    vai->addSeparator();
    suStruttura(Azione(vai, "procedura", "Alla procedura s&eguente", {QKeySequence("Ctrl+PgDown")},
                       [this] { ProceduraVicina(true); }));
    suStruttura(Azione(vai, "proceduraPrima", "Alla procedura prece&dente", {QKeySequence("Ctrl+PgUp")},
                       [this] { ProceduraVicina(false); }));

    QMenu* visualizza = menuBar()->addMenu("V&isualizza");
    const auto zoom = [this](int passi) {
        vista_->MettiZoom(vista_->Zoom() + passi * VistaStruttura::ZoomPasso);
    };
    Azione(visualizza, "ingrandisci", "&Ingrandisci", {QKeySequence("Ctrl++"), QKeySequence("Ctrl+=")},
           [zoom] { zoom(1); });
    Azione(visualizza, "riduci", "&Riduci", {QKeySequence("Ctrl+-")}, [zoom] { zoom(-1); });
    Azione(visualizza, "normale", "&Dimensione normale", {QKeySequence("Ctrl+0")},
           [this] { vista_->MettiZoom(100); });
    visualizza->addSeparator();
    QAction* lista = riquadro_->toggleViewAction();
    lista->setText("&Procedure");
    lista->setShortcut(QKeySequence("F9"));
    visualizza->addAction(lista);
    Azione(visualizza, "allaLista", "&Vai alla lista delle procedure", {QKeySequence("F6")}, [this] {
        if (elenco_->hasFocus()) return vista_->setFocus();
        riquadro_->show();
        elenco_->setFocus();
    });

    QMenu* aiuto = menuBar()->addMenu("&Aiuto");
    Azione(aiuto, "tasti", "&Tasti", {QKeySequence("F1")}, [this] { Tasti(); });
    Azione(aiuto, "informazioni", "&Informazioni", {}, [this] { Informazioni(); });

    vista_->setContextMenuPolicy(Qt::ActionsContextMenu);
    vista_->addActions({copia, tutto, trova, numero});
}

QWidget* FinestraLettore::FaiBarraTrova() {
    barraTrova_ = new QWidget;
    barraTrova_->setObjectName("barraTrova");
    auto* riga = new QHBoxLayout(barraTrova_);
    riga->setContentsMargins(6, 4, 6, 4);
    auto* nome = new QLabel("Trova:");
    daTrovare_ = new QLineEdit;
    daTrovare_->setObjectName("daTrovare");
    daTrovare_->setAccessibleName("Testo da trovare");
    daTrovare_->setClearButtonEnabled(true);
    daTrovare_->setMaxLength(1000);
    daTrovare_->setMinimumWidth(220);
    nome->setBuddy(daTrovare_);
    esito_ = new QLabel;
    esito_->setObjectName("esito");
    esito_->setAccessibleName("Esito della ricerca");
    auto* prima = new QPushButton("P&recedente");
    auto* dopo = new QPushButton("S&uccessivo");
    auto* chiudi = new QPushButton("C&hiudi");
    prima->setToolTip("Shift+F3");
    dopo->setToolTip("F3");
    chiudi->setToolTip("Esc");
    riga->addWidget(nome);
    riga->addWidget(daTrovare_, 1);
    riga->addWidget(prima);
    riga->addWidget(dopo);
    riga->addWidget(esito_, 1);
    riga->addWidget(chiudi);
    for (QPushButton* bottone : {prima, dopo, chiudi}) {
        bottone->setAutoDefault(false);
        bottone->setAccessibleName(bottone->text().remove('&'));
    }
    connect(prima, &QPushButton::clicked, this, [this] { Cerca(false); });
    connect(dopo, &QPushButton::clicked, this, [this] { Cerca(true); });
    connect(chiudi, &QPushButton::clicked, this, [this] { ChiudiBarra(barraTrova_); });
    connect(daTrovare_, &QLineEdit::textEdited, this, [this] { Cerca(true, true); });
    connect(daTrovare_, &QLineEdit::textChanged, this, [this](const QString& testo) {
        if (testo.isEmpty()) vista_->Evidenzia({});
    });
    daTrovare_->installEventFilter(this);
    barraTrova_->installEventFilter(this);
    barraTrova_->hide();
    return barraTrova_;
}

QWidget* FinestraLettore::FaiBarraNumero() {
    barraNumero_ = new QWidget;
    barraNumero_->setObjectName("barraNumero");
    auto* riga = new QHBoxLayout(barraNumero_);
    riga->setContentsMargins(6, 4, 6, 4);
    auto* nome = new QLabel("Numero di riga:");
    numero_ = new QLineEdit;
    numero_->setObjectName("ilNumero");
    numero_->setAccessibleName("Numero di riga");
    numero_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{1,9}"), numero_));
    numero_->setMaximumWidth(160);
    nome->setBuddy(numero_);
    esitoNumero_ = new QLabel;
    esitoNumero_->setObjectName("esitoNumero");
    esitoNumero_->setAccessibleName("Esito");
    auto* vai = new QPushButton("Vai");
    auto* chiudi = new QPushButton("C&hiudi");
    chiudi->setToolTip("Esc");
    riga->addWidget(nome);
    riga->addWidget(numero_);
    riga->addWidget(vai);
    riga->addWidget(esitoNumero_, 1);
    riga->addWidget(chiudi);
    for (QPushButton* bottone : {vai, chiudi}) {
        bottone->setAutoDefault(false);
        bottone->setAccessibleName(bottone->text().remove('&'));
    }
    connect(vai, &QPushButton::clicked, this, &FinestraLettore::VaiAlNumero);
    connect(chiudi, &QPushButton::clicked, this, [this] { ChiudiBarra(barraNumero_); });
    numero_->installEventFilter(this);
    barraNumero_->installEventFilter(this);
    barraNumero_->hide();
    return barraNumero_;
}

void FinestraLettore::FaiElenco() {
    procedure_ = new ModelloProcedure(this);
    elenco_ = new QTreeView;
    elenco_->setObjectName("elenco");
    elenco_->setAccessibleName("Procedure");
    elenco_->setRootIsDecorated(false);
    elenco_->setUniformRowHeights(true);
    elenco_->setHeaderHidden(true);
    elenco_->setAllColumnsShowFocus(true);
    elenco_->setIndentation(0);
    elenco_->setFrameShape(QFrame::NoFrame);
    elenco_->setModel(procedure_);
    elenco_->header()->setStretchLastSection(false);
    elenco_->header()->setMinimumSectionSize(0);
    elenco_->header()->setSectionResizeMode(ModelloProcedure::Nome, QHeaderView::Stretch);
    elenco_->header()->setSectionResizeMode(ModelloProcedure::Stato, QHeaderView::Fixed);
    riquadro_ = new QDockWidget("Procedure", this);
    riquadro_->setObjectName("riquadroProcedure");
    riquadro_->setWidget(elenco_);
    addDockWidget(Qt::LeftDockWidgetArea, riquadro_);
    resizeDocks({riquadro_}, {220}, Qt::Horizontal);
    elenco_->installEventFilter(this);
    connect(elenco_, &QTreeView::clicked, this, [this](const QModelIndex& i) { VaiAProcedura(i.row()); });
    connect(elenco_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& i) {
                if (!segueElenco_ && i.isValid()) VaiAProcedura(i.row());
            });
}

// ---- opening, reading again

bool FinestraLettore::Apri(const QString& file, QString& perche) {
    auto nuova = std::make_unique<Struttura>(PercorsoDi(file), lettore_.Lf());
    QApplication::setOverrideCursor(Qt::WaitCursor);
    bool letta = false;
    try {
        nuova->Carica();
        letta = true;
    } catch (const Errore& errore) {
        perche = Motivo(file, errore);
    }
    QApplication::restoreOverrideCursor();
    if (!letta) return false;
    procedure_->Mostra(nullptr);
    vista_->Mostra(nullptr);
    struttura_ = std::move(nuova);
    file_ = QFileInfo(file).absoluteFilePath();
    sparita_ = tienePosto_ = false;
    Aggiorna();
    vista_->Vai({});
    vista_->MettiPrimaRiga(0);
    Sorveglia();
    giro_.start(Giro, this);
    return true;
}

void FinestraLettore::Rileggi() {
    if (!struttura_) return;
    if (!tienePosto_) {
        cima_ = struttura_->Prendi({vista_->PrimaRiga(), 0});
        posto_ = struttura_->Prendi(vista_->Cursore());
    }
    procedure_->Mostra(nullptr);
    const bool mancava = std::exchange(sparita_, false);
    try {
        struttura_->Carica();
    } catch (const Errore&) {
        struttura_->Svuota();
        sparita_ = true;
    }
    // A file that is being written is empty for a moment: the place is not forgotten for that.
    tienePosto_ = struttura_->Righe() == 0;
    Aggiorna();
    Sorveglia();
    if (sparita_ && !mancava) Dici(QStringLiteral("«%1» non si può più leggere.").arg(Nome(file_)));
    if (tienePosto_) return;
    vista_->Vai(struttura_->Ritrova(posto_));
    vista_->MettiPrimaRiga(struttura_->Ritrova(cima_).Riga);
}

void FinestraLettore::Sorveglia() {
    const QStringList prima = sorveglia_.files() + sorveglia_.directories();
    if (!prima.isEmpty()) sorveglia_.removePaths(prima);
    if (QFileInfo::exists(file_)) sorveglia_.addPath(file_);
    sorveglia_.addPath(QFileInfo(file_).path()); // a file written under another name and renamed
}

void FinestraLettore::timerEvent(QTimerEvent* evento) {
    const bool giro = evento->timerId() == giro_.timerId();
    if (!giro && evento->timerId() != quiete_.timerId()) return QMainWindow::timerEvent(evento);
    if (!giro) quiete_.stop();
    if (!struttura_ || (giro && quiete_.isActive())) return;
    const QFileInfo info(file_);
    // One that cannot be read stays as it is until it changes.
    const bool cambiata = sparita_ ? info.exists() && info.isReadable() : struttura_->Cambiata();
    if (!cambiata) return;
    const std::pair<qint64, qint64> sulDisco{info.size(), info.lastModified().toMSecsSinceEpoch()};
    if (std::exchange(vistoSulDisco_, sulDisco) != sulDisco && info.exists())
        return quiete_.start(Quiete, this); // still being written
    Rileggi();
}

void FinestraLettore::Aggiorna() {
    const bool c = struttura_ != nullptr;
    setWindowTitle(c ? Nome(file_) + " - Morvella Lettore" : QStringLiteral("Morvella Lettore"));
    setWindowFilePath(c ? file_ : QString());
    if (!c)
        vista_->DiceVuota(
            "Nessuna struttura aperta.\n\nCtrl+O per aprirne una, o trascinare qui un file .log.");
    else if (sparita_)
        vista_->DiceVuota("Il file non si può più leggere:\n" + file_);
    else
        vista_->DiceVuota("La struttura è vuota.");
    vista_->Mostra(struttura_.get());
    procedure_->Mostra(c ? &struttura_->Procedure() : nullptr);
    const auto& procedure = c ? struttura_->Procedure() : std::vector<Procedura>();
    const bool aperte =
        std::any_of(procedure.begin(), procedure.end(), [](const Procedura& p) { return p.Aperta; });
    QFont grassetto = elenco_->font();
    grassetto.setBold(true);
    elenco_->header()->resizeSection(ModelloProcedure::Stato,
                                     aperte ? QFontMetrics(grassetto).horizontalAdvance("aperta") + 16 : 0);
    for (QAction* azione : std::as_const(perStruttura_)) azione->setEnabled(c);
    AggiornaStato();
}

void FinestraLettore::AggiornaStato() {
    if (!struttura_) {
        stato_->setText(QStringLiteral("%1 %").arg(vista_->Zoom()));
        return;
    }
    const Lungo riga = vista_->Cursore().Riga;
    QStringList pezzi;
    if (struttura_->Righe() > 0) {
        const Lungo numero = Struttura::NumeroDi(struttura_->Riga(riga));
        if (numero > 0) pezzi << QStringLiteral("numero %1").arg(numero);
        pezzi << QStringLiteral("riga %1 di %2").arg(riga + 1).arg(struttura_->Righe());
    }
    pezzi << Contate(static_cast<Lungo>(struttura_->Errori().size()), "errore", "errori");
    pezzi << Contate(static_cast<Lungo>(struttura_->Procedure().size()), "procedura", "procedure");
    pezzi << QStringLiteral("%1 %").arg(vista_->Zoom());
    stato_->setText(pezzi.join(QStringLiteral("  ·  ")));

    const int qui = static_cast<int>(struttura_->ProceduraDi(riga));
    if (elenco_->hasFocus() || elenco_->currentIndex().row() == qui) return;
    segueElenco_ = true;
    elenco_->setCurrentIndex(qui < 0 ? QModelIndex() : procedure_->index(qui, 0));
    segueElenco_ = false;
}

void FinestraLettore::AggiornaColori() {
    const Colori colori = ColoriDi(QApplication::palette());
    QPalette mia; // only what is set here does not follow the desktop's
    mia.setColor(QPalette::Highlight, colori.SceltoFondo);
    mia.setColor(QPalette::HighlightedText, colori.Scelto);
    if (palette().color(QPalette::Highlight) != colori.SceltoFondo ||
        palette().color(QPalette::HighlightedText) != colori.Scelto)
        setPalette(mia);
    procedure_->Colora(colori.Aperta);
}

void FinestraLettore::changeEvent(QEvent* evento) {
    QMainWindow::changeEvent(evento);
    if (evento->type() == QEvent::PaletteChange && procedure_) AggiornaColori();
    if (evento->type() == QEvent::ActivationChange && isActiveWindow()) quiete_.start(0, this);
}

void FinestraLettore::Dici(const QString& testo) { statusBar()->showMessage(testo, 8000); }

// ---- find

void FinestraLettore::ApriTrova() {
    barraNumero_->hide();
    barraTrova_->show();
    const auto [da, a] = std::minmax({vista_->Cursore(), vista_->Ancora()});
    if (da != a && da.Riga == a.Riga && a.Byte - da.Byte <= daTrovare_->maxLength())
        daTrovare_->setText(vista_->TestoScelto().value_or(QString()));
    inizioRicerca_ = da;
    esito_->clear();
    daTrovare_->setFocus();
    daTrovare_->selectAll();
}

void FinestraLettore::Cerca(bool avanti, bool mentreScrive) {
    if (!struttura_) return;
    const QString testo = daTrovare_->text().normalized(QString::NormalizationForm_C);
    if (testo.isEmpty()) {
        esito_->clear();
        if (!mentreScrive) ApriTrova();
        return;
    }
    const Ago ago(testo.toStdU16String());
    vista_->Evidenzia(ago);
    const auto [inizio, fine] = std::minmax({vista_->Cursore(), vista_->Ancora()});
    Posizione da = inizio;
    if (mentreScrive)
        da = inizioRicerca_;
    else if (avanti && inizio != fine)
        ++da.Byte;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QString detto;
    auto trovato = struttura_->Trova(ago, da, avanti);
    if (!trovato) {
        trovato = struttura_->Trova(ago, avanti ? Posizione{} : Posizione{struttura_->Righe(), 0}, avanti);
        if (trovato) detto = avanti ? "Ricominciato dall'inizio." : "Ricominciato dalla fine.";
    }
    QApplication::restoreOverrideCursor();
    if (trovato)
        vista_->Scegli(*trovato, {trovato->Riga, trovato->Byte + ago.Lunghezza()});
    else
        detto = QStringLiteral("«%1» non trovato.").arg(testo.size() > 40 ? testo.left(40) + u'…' : testo);
    if (!mentreScrive && trovato) inizioRicerca_ = *trovato;
    esito_->setText(detto);
    if (!barraTrova_->isVisible() || detto.isEmpty()) Dici(detto);
}

// ---- to a number, to an error, to a procedure

void FinestraLettore::ApriNumero() {
    barraTrova_->hide();
    barraNumero_->show();
    esitoNumero_->clear();
    numero_->setFocus();
    numero_->selectAll();
}

void FinestraLettore::VaiAlNumero() {
    if (!struttura_ || numero_->text().isEmpty()) return;
    const Lungo chiesto = numero_->text().toInt();
    const auto riga = struttura_->RigaDiNumero(chiesto);
    if (!riga) return esitoNumero_->setText("Questo file non ha righe numerate.");
    const Lungo trovato = Struttura::NumeroDi(struttura_->Riga(*riga));
    vista_->Scegli({*riga, 0}, {*riga, Len(struttura_->Riga(*riga))});
    if (trovato == chiesto) return ChiudiBarra(barraNumero_);
    esitoNumero_->setText(
        chiesto > 999999 ? QStringLiteral("Oltre 999999 le righe non hanno numero.")
        : trovato < chiesto
            ? QStringLiteral("L'ultimo numero è %1.").arg(trovato)
            : QStringLiteral("Il numero %1 non c'è: il seguente è %2.").arg(chiesto).arg(trovato));
}

void FinestraLettore::VaiAErrore(bool avanti) {
    if (!struttura_) return;
    const auto& errori = struttura_->Errori();
    if (errori.empty()) return Dici("Nessun errore in questa struttura.");
    const Lungo qui = vista_->Cursore().Riga;
    auto quale = avanti ? std::upper_bound(errori.begin(), errori.end(), qui)
                        : std::lower_bound(errori.begin(), errori.end(), qui);
    QString detto;
    if (avanti && quale == errori.end()) {
        quale = errori.begin();
        detto = "Ricominciato dall'inizio. ";
    } else if (!avanti) {
        if (quale == errori.begin()) {
            quale = errori.end();
            detto = "Ricominciato dalla fine. ";
        }
        --quale;
    }
    const Lungo riga = *quale;
    vista_->Scegli({riga, 0}, {riga, 0});
    Dici(detto + QStringLiteral("Errore %1 di %2.").arg(quale - errori.begin() + 1).arg(errori.size()));
}

void FinestraLettore::VaiAProcedura(int riga) {
    if (!struttura_ || riga < 0 || riga >= procedure_->rowCount()) return;
    const Procedura& p = struttura_->Procedure()[static_cast<std::size_t>(riga)];
    vista_->Vai({p.Riga, 0});
    vista_->MettiPrimaRiga(std::max<Lungo>(0, p.Riga - 3)); // with the top of its box
}

void FinestraLettore::ProceduraVicina(bool avanti) {
    if (!struttura_) return;
    const Lungo qui = vista_->Cursore().Riga;
    Lungo quale = struttura_->ProceduraDi(qui);
    const auto& procedure = struttura_->Procedure();
    // Backwards first to the head of the procedure in sight.
    if (avanti)
        ++quale;
    else if (quale >= 0 && procedure[static_cast<std::size_t>(quale)].Riga == qui)
        --quale;
    if (quale < 0 || quale >= static_cast<Lungo>(procedure.size()))
        return Dici(avanti ? "Nessuna procedura più avanti." : "Nessuna procedura più indietro.");
    VaiAProcedura(static_cast<int>(quale));
}

void FinestraLettore::ChiudiBarra(QWidget* barra) {
    barra->hide();
    if (barra == barraTrova_) vista_->Evidenzia({});
    vista_->setFocus();
}

void FinestraLettore::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() != Qt::Key_Escape) return QMainWindow::keyPressEvent(evento);
    for (QWidget* barra : {barraTrova_, barraNumero_})
        if (barra->isVisible()) ChiudiBarra(barra);
}

bool FinestraLettore::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() != QEvent::KeyPress) return QMainWindow::eventFilter(oggetto, evento);
    const auto* tasto = static_cast<QKeyEvent*>(evento);
    const bool invio = tasto->key() == Qt::Key_Return || tasto->key() == Qt::Key_Enter;
    if (tasto->key() == Qt::Key_Escape) {
        if (oggetto == elenco_)
            vista_->setFocus();
        else
            ChiudiBarra(oggetto == daTrovare_ || oggetto == barraTrova_ ? barraTrova_ : barraNumero_);
        return true;
    }
    if (invio && oggetto == daTrovare_) {
        Cerca(!(tasto->modifiers() & Qt::ShiftModifier));
        return true;
    }
    if (invio && oggetto == numero_) {
        VaiAlNumero();
        return true;
    }
    if (invio && oggetto == elenco_) {
        VaiAProcedura(elenco_->currentIndex().row());
        vista_->setFocus();
        return true;
    }
    return QMainWindow::eventFilter(oggetto, evento);
}

// ---- files

void FinestraLettore::ApriAltri() {
    const QString directory = file_.isEmpty() ? QString() : QFileInfo(file_).path();
    lettore_.Apri(lettore_.Chiedi().Scegli(this, directory), this);
}

void FinestraLettore::dragEnterEvent(QDragEnterEvent* evento) {
    for (const QUrl& url : evento->mimeData()->urls())
        if (url.isLocalFile()) return evento->acceptProposedAction();
}

void FinestraLettore::dropEvent(QDropEvent* evento) {
    QStringList file;
    for (const QUrl& url : evento->mimeData()->urls())
        if (url.isLocalFile()) file << url.toLocalFile();
    evento->acceptProposedAction();
    lettore_.Apri(file, this);
}

// ---- paper

namespace {

[[maybe_unused]] bool Porta(QWidget* sopra, Stampa& stampa, Lungo da, Lungo a) {
    QProgressDialog avanzamento("Preparazione delle pagine...", "&Annulla", 0, static_cast<int>(a - da + 1),
                                sopra);
    avanzamento.setWindowTitle("Morvella Lettore");
    avanzamento.setWindowModality(Qt::WindowModal);
    avanzamento.setMinimumDuration(800);
    return stampa.Esegui(da, a, [&](Lungo pagina) {
        avanzamento.setValue(static_cast<int>(pagina - da));
        return !avanzamento.wasCanceled();
    });
}

} // namespace

bool FinestraLettore::ScriviPdf([[maybe_unused]] const QString& dove, QString& perche) {
#if QT_CONFIG(pdf)
    QSaveFile file(dove); // a PDF cut short must not stand in the place of a whole one
    if (!file.open(QIODevice::WriteOnly)) {
        perche = "Il file non si può scrivere.";
        return false;
    }
    {
        QPdfWriter carta(&file);
        carta.setPageSize(QPageSize(QPageSize::A4));
        carta.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
        carta.setTitle(Nome(file_));
        carta.setCreator("Morvella Lettore");
        Stampa stampa(*struttura_, carta, file_);
        if (!Porta(this, stampa, 1, stampa.Pagine())) {
            file.cancelWriting();
            perche.clear(); // the user stopped it
            return false;
        }
    }
    if (file.commit()) return true;
    perche = "Il file non si può scrivere fino in fondo.";
#else
    perche = "Questa versione non scrive PDF.";
#endif
    return false;
}

void FinestraLettore::SalvaPdf() {
    if (!struttura_) return;
    const QFileInfo info(file_);
    const QString dove =
        lettore_.Chiedi().ScegliPdf(this, info.path() + '/' + info.completeBaseName() + ".pdf");
    if (dove.isEmpty()) return;
    QString perche;
    if (ScriviPdf(dove, perche))
        Dici(QStringLiteral("Salvato «%1».").arg(Nome(dove)));
    else if (!perche.isEmpty())
        lettore_.Chiedi().Avvisa(this, true, "Morvella Lettore",
                                 QStringLiteral("Non si può salvare «%1».\n\n%2").arg(dove, perche));
}

void FinestraLettore::StampaSuCarta() {
#ifdef MORVELLA_STAMPA
    if (!struttura_) return;
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setDocName(Nome(file_));
    QPrintDialog dialogo(&stampante, this);
    dialogo.setWindowTitle("Stampa");
    dialogo.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialogo.exec() != QDialog::Accepted) return;
    Stampa stampa(*struttura_, stampante, file_);
    const bool parte = stampante.printRange() == QPrinter::PageRange && stampante.fromPage() > 0;
    const Lungo da = parte ? stampante.fromPage() : 1;
    const Lungo a = parte ? stampante.toPage() : stampa.Pagine();
    if (!Porta(this, stampa, da, a)) Dici("La stampa non è stata completata.");
#endif
}

// ---- help

void FinestraLettore::Tasti() {
    static constexpr const char* tasti[][2] = {
        {"Ctrl+O", "apri una struttura"},
        {"F5", "rileggi il file"},
        {"Ctrl+F", "trova un testo"},
        {"F3, Shift+F3", "successivo, precedente"},
        {"Ctrl+G", "vai a un numero di riga"},
        {"F8, Shift+F8", "errore successivo, precedente"},
        {"Ctrl+Pag giù, Ctrl+Pag su", "procedura seguente, precedente"},
        {"F6", "alla lista delle procedure e ritorno"},
        {"F9", "mostra o nascondi la lista"},
        {"Ctrl++, Ctrl+-, Ctrl+0", "più grande, più piccolo, normale"},
        {"Shift+frecce, Ctrl+A", "seleziona"},
        {"Ctrl+C", "copia"},
        {"Ctrl+W", "chiudi questa finestra"},
        {"Ctrl+Q", "chiudi tutto"},
    };
    QString tabella = "<table>";
    for (const auto& [tasto, effetto] : tasti)
        tabella +=
            QStringLiteral("<tr><td style='padding-right: 24px'>%1</td><td>%2</td></tr>").arg(tasto, effetto);
    lettore_.Chiedi().Avvisa(this, false, "Tasti",
                             tabella + "</table><p>Un clic sul numero seleziona la riga, "
                                       "Ctrl e la rotella cambiano la grandezza.</p>");
}

void FinestraLettore::Informazioni() {
    lettore_.Chiedi().Avvisa(
        this, false, "Informazioni",
        "Morvella Lettore " MORVELLA_VERSIONE "\n\n"
        "Mostra le strutture scritte da Morvella: linee semplici per le condizioni, "
        "doppie per i cicli, una riga rossa dove una procedura finisce con blocchi aperti.\n\n"
        "I file vengono soltanto letti.");
}

} // namespace morvella::lettore

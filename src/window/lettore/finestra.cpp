// SPDX-License-Identifier: MIT
#include "window/lettore/finestra.h"

#include <algorithm>

#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QStatusBar>
#include <QTreeView>
#include <QVBoxLayout>

#include "window/lettore/lettore.h"

namespace morvella::lettore {

namespace {

// Milliseconds. A file that is being written is read once it has been left alone for so long.
constexpr int Quiete = 200;
// Some disks report no change, so the file is looked at by itself this often.
constexpr int Giro = 2000;

QString Nome(const QString& file) { return QFileInfo(file).fileName(); }

std::filesystem::path PercorsoDi(const QString& file) {
#ifdef _WIN32
    return file.toStdWString();
#else
    return QFile::encodeName(file).toStdString(); // the bytes of the name on the disk
#endif
}

QString Contate(Lungo n, const QString& una, const QString& tante) {
    return QStringLiteral("%1 %2").arg(n).arg(n == 1 ? una : tante);
}

// Why a file cannot be shown, for the user.
QString Motivo(const QString& file, const Errore& errore) {
    const QFileInfo info(file);
    if (errore.Numero == ErrFileAssente || !info.exists()) return "Il file non esiste.";
    if (info.isDir()) return "È una directory, non un file.";
    if (!info.isFile()) return "Non è un file su disco.";
    if (!info.isReadable()) return "Manca il permesso di leggerlo.";
    return "Il disco non lo fa leggere.";
}

} // namespace

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
    // A file that is being rewritten is empty for a moment. The place is kept until it has lines.
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
    sorveglia_.addPath(QFileInfo(file_).path()); // also sees a file that is renamed to this name
}

void FinestraLettore::timerEvent(QTimerEvent* evento) {
    const bool giro = evento->timerId() == giro_.timerId();
    if (!giro && evento->timerId() != quiete_.timerId()) return QMainWindow::timerEvent(evento);
    if (!giro) quiete_.stop();
    if (!struttura_ || (giro && quiete_.isActive())) return;
    const QFileInfo info(file_);
    // While the file cannot be read there is nothing to compare; wait until it can.
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
    QPalette mia; // what is not set here goes on following the desktop
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

// ---- keys

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

} // namespace morvella::lettore

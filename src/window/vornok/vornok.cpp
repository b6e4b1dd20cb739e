// SPDX-License-Identifier: MIT
#include "window/vornok/vornok.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QUrl>
#include <algorithm>

#include "comandi/comandi.h"
#include "docs/docs.h"
#include "listing/listing.h"
#include "rewriter/rewriter.h"
#include "shell/opzioni.h"
#include "shell/progetto.h"
#include "text/disco/unita.h"
#include "window/testo_qt.h"
#include "window/vornok/controlli.h"
#include "window/vornok/elenchi.h"
#include "window/vornok/pannello_qt.h"

namespace morvella {

namespace {

// The bytes of the name: outside Windows they need not be UTF-8.
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

VornOK::VornOK(Disco& disco, const std::string& programma, const std::string& directory, Orologio orologio)
    : disco_(disco), s_(disco, *this), orologio_(std::move(orologio)) {
    s_.AppPath = s_.File.Aggancia(Gancio::Programma, programma);
    // The directory list starts in this directory without an event.
    s_.Dir1Path = s_.File.Aggancia(Gancio::Progetto, directory);
    try {
        s_.File.ChDir(s_.Dir1Path);
        ElencaProgetti(s_);
    } catch (const Errore&) {
        s_.File1Leggi = {}; // the directory cannot be entered
    }

    FaiForma();
    Collega();
    s_.Drive1Drive = DaUtente(QString::fromStdString(UnitaDi(disco_.ElencaUnita(), directory)));
    AggiornaUnita();
    Dir1_->Apri(disco_, directory);
    Aggiorna();
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

VornOK::~VornOK() { finita_ = true; } // a control that is destroyed loses the focus: store nothing then

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
    // Both give the form's KeyPress the character 27.
    auto* esc = new QShortcut(this);
    esc->setKeys({QKeySequence(Qt::Key_Escape), QKeySequence(Qt::SHIFT | Qt::Key_Escape)});
    connect(esc, &QShortcut::activated, this, &QWidget::close);

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

// ---- the events

// One event: runs the operation, then shows the state that it left. An error that reaches this
// place is final.
void VornOK::Evento(const std::function<void()>& operazione) {
    if (finita_) return;
    if (annidati_++ == 0) {
        iniziato_ = orologio_();
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

// The help panel and the rest of the form do not touch each other's state.
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
            // the user is told the first error
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

// Returns whether Dir1 changed, which raises its event.
bool VornOK::MuoviDir1(const std::string& percorso) {
    if (Archivio::TestoDiPercorso(percorso) == s_.Dir1Path) return false;
    CambiaDir1(s_, percorso);
    // The new directory may be on another volume. Then the drive list shows that one, but this is
    // no Drive1_Change.
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
                ElencaProgetti(s_); // the file may be newer than the list
            } catch (const Errore& e) {
                // The directory may be entered but not read. This does not end the program; if Dir1
                // has just moved there, its event has shown the error already.
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
    // Other programs may have changed the disk while they were in front.
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
    evento->accept(); // the farewell cannot be refused
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
    // After the drop has ended: the program that drags waits for that, and Apri may ask a question.
    const std::string percorso = PercorsoDi(dove.front());
    QMetaObject::invokeMethod(
        this, [this, percorso] { Apri(percorso); }, Qt::QueuedConnection);
}

} // namespace morvella

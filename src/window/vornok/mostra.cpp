// SPDX-License-Identifier: MIT
//
// Brings the controls to what the state says, also in the middle of a run, and shows the boxes.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>
#include <cmath>

#include "shell/progetto.h"
#include "window/testo_qt.h"
#include "window/vornok/controlli.h"
#include "window/vornok/elenchi.h"
#include "window/vornok/forma.h"
#include "window/vornok/vornok.h"

namespace morvella {

namespace {

constexpr Vista TitoloProgramma = "Morvella";

} // namespace

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
    // Without its tab stop Text1 can still be reached by a click and by ticking Check1.
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
        // In thousandths, since Qt's bars count in int. A range of 0 would turn the bar into a busy
        // indicator.
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

// Reads the directories, projects and drives anew. The user has chosen nothing, so no event is
// raised, and the chosen project stays chosen by its name.
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
    // Loading the options at the start comes here too; the other card is in front then.
    if (Text1_->isVisible()) {
        Text1_->setFocusPolicy(Qt::StrongFocus);
        Text1_->setFocus(Qt::OtherFocusReason);
    }
}

// Nothing else paints in the middle of an operation. Twenty-five times a second is as often as an
// eye can follow a bar; what changes between two paintings is shown by the next. The name of the
// file in work is painted on each change as long as painting takes less than a twentieth of the
// operation: with many small files, showing a name would cost more than reading the file.
void VornOK::Ridisegna(bool nome) {
    using namespace std::chrono_literals;
    if (!mostrata_) return;
    const auto adesso = orologio_();
    const bool subito = nome && speso_ <= 5ms + (adesso - iniziato_) / 20;
    if (!subito && adesso - dipinto_ < 40ms) return;
    dipinto_ = adesso;
    ++ridisegni_;
    AggiornaBarre();
    Label2_->repaint();
    ProgressBar1_->repaint();
    Progress_->repaint();
    speso_ += orologio_() - adesso;
}

// ---- the boxes

int VornOK::MsgBox(Vista testo, int flag, Vista titolo) {
    if (mostrata_ && !finita_) Aggiorna(); // the user sees what the question is about
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

// SPDX-License-Identifier: MIT
//
// The list of procedures, and the ways to the next procedure and the next error.
#include "window/lettore/finestra.h"

#include <algorithm>

#include <QDockWidget>
#include <QHeaderView>
#include <QTreeView>

namespace morvella::lettore {

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
    vista_->MettiPrimaRiga(std::max<Lungo>(0, p.Riga - 3)); // shows the top of its box too
}

void FinestraLettore::ProceduraVicina(bool avanti) {
    if (!struttura_) return;
    const Lungo qui = vista_->Cursore().Riga;
    Lungo quale = struttura_->ProceduraDi(qui);
    const auto& procedure = struttura_->Procedure();
    // Backwards, the first stop is the head of the procedure that the caret is in.
    if (avanti)
        ++quale;
    else if (quale >= 0 && procedure[static_cast<std::size_t>(quale)].Riga == qui)
        --quale;
    if (quale < 0 || quale >= static_cast<Lungo>(procedure.size()))
        return Dici(avanti ? "Nessuna procedura più avanti." : "Nessuna procedura più indietro.");
    VaiAProcedura(static_cast<int>(quale));
}

} // namespace morvella::lettore

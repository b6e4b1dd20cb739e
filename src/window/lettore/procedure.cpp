// SPDX-License-Identifier: MIT
#include "window/lettore/procedure.h"

#include <QFont>

#include "text/codifica.h"

namespace morvella::lettore {

namespace {

QString Scritto(Vista bytes) { return QString::fromStdString(Mostrabile(bytes)); }

} // namespace

void ModelloProcedure::Mostra(const std::vector<Procedura>* procedure) {
    beginResetModel();
    procedure_ = procedure;
    endResetModel();
}

void ModelloProcedure::Colora(const QColor& aperta) {
    aperta_ = aperta;
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, Colonne - 1), {Qt::ForegroundRole});
}

int ModelloProcedure::rowCount(const QModelIndex& sopra) const {
    return sopra.isValid() || !procedure_ ? 0 : static_cast<int>(procedure_->size());
}

int ModelloProcedure::columnCount(const QModelIndex& sopra) const { return sopra.isValid() ? 0 : Colonne; }

QVariant ModelloProcedure::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || indice.row() >= rowCount()) return {};
    const Procedura& p = (*procedure_)[static_cast<std::size_t>(indice.row())];
    const QString nome = Scritto(NomeBreve(p));
    switch (ruolo) {
    case Qt::DisplayRole:
        if (indice.column() == Nome) return nome;
        return p.Aperta ? QStringLiteral("aperta") : QString();
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole: {
        if (ruolo == Qt::AccessibleTextRole && indice.column() == Stato)
            return p.Aperta ? QStringLiteral("lasciata aperta") : QStringLiteral("chiusa");
        QString testo = ruolo == Qt::ToolTipRole ? Scritto(p.Testa) : nome;
        if (p.Numero > 0 && ruolo == Qt::ToolTipRole) testo += QStringLiteral("\nriga %1").arg(p.Numero);
        if (p.Aperta)
            testo += ruolo == Qt::ToolTipRole ? "\nfinisce con blocchi aperti" : ", lasciata aperta";
        return testo;
    }
    case Qt::ForegroundRole: return p.Aperta && aperta_.isValid() ? QVariant(aperta_) : QVariant();
    case Qt::FontRole: {
        if (!p.Aperta) return {};
        QFont grassetto;
        grassetto.setBold(true);
        return grassetto;
    }
    default: return {};
    }
}

} // namespace morvella::lettore

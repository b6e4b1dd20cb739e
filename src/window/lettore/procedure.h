// SPDX-License-Identifier: MIT
// window/lettore/procedure.h
//
// The procedures of a listing as the side list shows them: the name, and "aperta" for one that
// ended with blocks open.
#pragma once

#include <QAbstractTableModel>
#include <QColor>

#include "lettore/struttura.h"

namespace morvella::lettore {

class ModelloProcedure : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Colonna { Nome, Stato, Colonne };

    using QAbstractTableModel::QAbstractTableModel;
    /// The listing's own list is looked at, not copied: again after each change of it.
    void Mostra(const std::vector<Procedura>* procedure);
    void Colora(const QColor& aperta);

    int rowCount(const QModelIndex& sopra = {}) const override;
    int columnCount(const QModelIndex& sopra = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo) const override;

  private:
    const std::vector<Procedura>* procedure_ = nullptr;
    QColor aperta_;
};

} // namespace morvella::lettore

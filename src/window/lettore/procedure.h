// SPDX-License-Identifier: MIT
// window/lettore/procedure.h
//
// The model of the list of procedures: the name of each, and "aperta" for one that ended with
// blocks open.
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
    /// Shows a listing's procedures, or none. They are not copied: to be called again after each
    /// change, and before they go.
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

// SPDX-License-Identifier: MIT
// window/lettore/stampa.h
//
// A listing on paper or in a PDF: dark on white, the letters small enough that the box around a
// head fits across the page. A longer line goes on in the next row, with the columns of its
// blocks drawn through.
#pragma once

#include <functional>

#include <QPagedPaintDevice>
#include <QString>

#include "lettore/struttura.h"
#include "window/lettore/disegno.h"

namespace morvella::lettore {

/// A row of a page: the columns from `Da` to before `A` of a line, `Rientro` cells to the right.
struct RigaStampata {
    Lungo Riga = 0, Da = 0, A = 0, Rientro = 0;
    bool operator==(const RigaStampata&) const = default;
};

class Stampa {
  public:
    Stampa(Struttura& struttura, QPagedPaintDevice& carta, QString titolo);

    Lungo Pagine() const noexcept { return pagine_; }
    Lungo Colonne() const noexcept { return colonne_; }
    /// The rows that a line takes.
    std::vector<RigaStampata> Righe(Lungo riga);
    /// Prints the pages from `da` to `a`, from 1. `continua` is told each page and may stop it.
    /// False when it was stopped or the device refused.
    bool Esegui(Lungo da, Lungo a, const std::function<bool(Lungo)>& continua);

  private:
    void DisegnaRiga(QPainter& penna, const RigaStampata& riga, qreal y);

    Struttura& struttura_;
    QPagedPaintDevice& carta_;
    QString titolo_;
    QRectF area_;
    QFont font_;
    Griglia griglia_;
    Colori colori_;
    Lungo colonne_ = 0, righe_ = 0, pagine_ = 0;
    std::vector<Porzione> fette_;
};

} // namespace morvella::lettore

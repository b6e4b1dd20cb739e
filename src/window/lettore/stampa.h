// SPDX-License-Identifier: MIT
// window/lettore/stampa.h
//
// Prints a listing on paper or to a PDF: dark on white, in letters small enough for the box around
// a head to fit on the page. A longer line is continued in the next row, where the columns of its
// blocks are drawn on.
#pragma once

#include <functional>

#include <QPagedPaintDevice>
#include <QString>

#include "lettore/struttura.h"
#include "window/lettore/disegno.h"

namespace morvella::lettore {

/// A row of a page: the columns of a line from `Da` to before `A`, indented by `Rientro` cells.
struct RigaStampata {
    Lungo Riga = 0, Da = 0, A = 0, Rientro = 0;
    bool operator==(const RigaStampata&) const = default;
};

class Stampa {
  public:
    Stampa(Struttura& struttura, QPagedPaintDevice& carta, QString titolo);

    Lungo Pagine() const noexcept { return pagine_; }
    Lungo Colonne() const noexcept { return colonne_; }
    /// The rows that a line takes on the page.
    std::vector<RigaStampata> Righe(Lungo riga);
    /// Prints the pages `da` to `a`, counted from 1. `continua` is called with each page and stops
    /// the printing by returning false. Returns false when stopped or when the device fails.
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

// SPDX-License-Identifier: MIT
// window/lettore/lettore.h
//
// The windows of the program, one for each listing.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

#include "window/lettore/dialoghi.h"

namespace morvella::lettore {

class FinestraLettore;

class Lettore : public QObject {
    Q_OBJECT

  public:
    explicit Lettore(Dialoghi dialoghi, bool lf = false);
    ~Lettore() override;

    /// Shows each file in a window: in the one that shows it already, else in `vuota` if that is
    /// still empty, else in a new one. Shows a box for each file that cannot be opened, and returns
    /// how many those were.
    int Apri(const QStringList& file, FinestraLettore* vuota = nullptr);
    /// Opens a window without a listing.
    FinestraLettore* Nuova();
    QList<FinestraLettore*> Finestre() const;
    void ChiudiTutte();

    const Dialoghi& Chiedi() const noexcept { return dialoghi_; }
    bool Lf() const noexcept { return lf_; }

  private:
    Dialoghi dialoghi_;
    bool lf_;
    QList<QPointer<FinestraLettore>> finestre_;
};

} // namespace morvella::lettore

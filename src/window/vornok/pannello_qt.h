// SPDX-License-Identifier: MIT
// window/vornok/pannello_qt.h
//
// What the help panel looks like: Frame1 with everything in it.
#pragma once

#include <QWidget>

#include "window/vornok/controlli.h"
#include "window/vornok/pannello.h"

namespace morvella {

/// Picture2: the picture at its top, and the lines printed over it one below the other, each in
/// the middle. Drawn as far as it is seen: it is far higher than its window.
class TestoRotolato : public Figura {
    Q_OBJECT
  public:
    TestoRotolato(QWidget* genitore, const Pannello& p);
    /// Where a line's text begins and its top is, in pixels.
    QPointF Punto(int riga) const;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    const Pannello& p_;
};

class PannelloHelp : public QWidget {
    Q_OBJECT
  public:
    PannelloHelp(QWidget* genitore, const Pannello& p);
    /// Brings the controls to the state.
    void Aggiorna();
    /// The height of a line of Picture1's font: `Picture1.TextHeight("A")`, in pixels.
    Lungo AltezzaA() const;

  signals:
    void Frame1Cliccata();
    void Picture1Cliccata();
    void Picture2Cliccata();

  protected:
    void mouseReleaseEvent(QMouseEvent* evento) override;

  private:
    const Pannello& p_;
    Figura* Picture1_;
    QWidget* Picture3_;
    TestoRotolato* Picture2_;
};

} // namespace morvella

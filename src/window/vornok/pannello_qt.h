// SPDX-License-Identifier: MIT
// window/vornok/pannello_qt.h
//
// The widgets of the help panel: Frame1 and everything in it.
#pragma once

#include <QWidget>

#include "window/vornok/controlli.h"
#include "window/vornok/pannello.h"

namespace morvella {

/// Picture2: the picture at its top, and over it the printed lines, each centred. It is far higher
/// than its window, so only the visible part is drawn.
class TestoRotolato : public Figura {
    Q_OBJECT
  public:
    TestoRotolato(QWidget* genitore, const Pannello& p);
    /// The left end and the top of a line's text, in pixels.
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
    /// Brings the controls to what the state says.
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

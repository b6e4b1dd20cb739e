// SPDX-License-Identifier: MIT
// window/vornok/controlli.h
//
// Small controls of the form for which Qt has nothing that fits.
#pragma once

#include <QLabel>
#include <QPixmap>
#include <QPlainTextEdit>

#include "text/primitive.h"

namespace morvella {

/// A label for a path, which is shortened in its middle when it does not fit.
class EtichettaPercorso : public QLabel {
    Q_OBJECT
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* evento) override;
};

/// A picture box or an image: draws its picture at its corner or stretched to its size, on its
/// background colour. Signals clicks.
class Figura : public QWidget {
    Q_OBJECT
  public:
    Figura(QWidget* genitore, const QString& file, bool stirata);

  signals:
    void Cliccata();

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;

  private:
    QPixmap figura_;
    bool stirata_;
};

/// The box for the header's text: plain, with CR LF between lines in the system's bytes. A
/// character that Windows-1252 lacks becomes "?" as it is typed or pasted. A file dropped here goes
/// to the form.
class CasellaTesto : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit CasellaTesto(QWidget* genitore);
    /// Shows a text. Does nothing if it is shown already, so that the cursor stays.
    void Mostra(const Testo& testo);

  signals:
    /// The user changed the text.
    void Scritta(const morvella::Testo& testo);

  protected:
    void contextMenuEvent(QContextMenuEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void inputMethodEvent(QInputMethodEvent* evento) override;
    bool canInsertFromMimeData(const QMimeData* dati) const override;
    void insertFromMimeData(const QMimeData* dati) override;

  private:
    Testo Bytes() const;
    void Cambiata();

    bool mostra_ = false;
};

/// Whether a control that gets this event loses the focus to another control of the form. Menus,
/// boxes and other programs only borrow it.
bool PerdeFuoco(const QEvent& evento);

/// Reduces a label's font until the text fits.
void Adatta(QLabel& etichetta);

} // namespace morvella

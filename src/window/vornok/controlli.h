// SPDX-License-Identifier: MIT
// window/vornok/controlli.h
//
// Small controls of the form that Qt does not have as they are meant here.
#pragma once

#include <QLabel>
#include <QPixmap>
#include <QPlainTextEdit>

#include "text/primitive.h"

namespace morvella {

/// A label whose text is a path: what does not fit goes from the middle.
class EtichettaPercorso : public QLabel {
    Q_OBJECT
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* evento) override;
};

/// A picture box or an image: draws its picture from the corner, or stretched over itself, on its
/// background colour; says when it is clicked.
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

/// The header's text: plain, its lines ended by CR LF in the system's bytes. What Windows-1252
/// does not have is a "?" from the moment that it is typed or pasted. A file that is dropped on
/// it goes to the form.
class CasellaTesto : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit CasellaTesto(QWidget* genitore);
    /// Shows a text; does nothing where it is shown already, so that the cursor stays.
    void Mostra(const Testo& testo);

  signals:
    /// The user changed it.
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

/// Whether a control that gets this event has lost the focus to another one of the form. A
/// menu, a box and another program only borrow it.
bool PerdeFuoco(const QEvent& evento);

/// Makes the font of a label smaller until its text fits into it.
void Adatta(QLabel& etichetta);

} // namespace morvella

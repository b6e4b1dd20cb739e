// SPDX-License-Identifier: MIT
#include "window/vornok/controlli.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <memory>

#include "window/testo_qt.h"

namespace morvella {

void EtichettaPercorso::paintEvent(QPaintEvent*) {
    QPainter penna(this);
    penna.setPen(palette().color(QPalette::WindowText));
    penna.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}

Figura::Figura(QWidget* genitore, const QString& file, bool stirata)
    : QWidget(genitore), figura_(file), stirata_(stirata) {}

void Figura::paintEvent(QPaintEvent*) {
    QPainter penna(this);
    penna.setRenderHint(QPainter::SmoothPixmapTransform);
    if (stirata_)
        penna.drawPixmap(rect(), figura_);
    else
        penna.drawPixmap(0, 0, figura_);
}

void Figura::mouseReleaseEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton && rect().contains(evento->pos())) emit Cliccata();
}

namespace {

// A text after conversion to the system's bytes and back.
QString Tenuto(const QString& scritto) { return Mostra(DaUtente(scritto)); }

} // namespace

CasellaTesto::CasellaTesto(QWidget* genitore) : QPlainTextEdit(genitore) {
    setTabChangesFocus(true); // else keyboard users could not leave the box
    setLineWrapMode(QPlainTextEdit::NoWrap);
    connect(this, &QPlainTextEdit::textChanged, this, &CasellaTesto::Cambiata);
}

// Block by block: toPlainText() would turn a no-break space (byte 160) into a blank.
Testo CasellaTesto::Bytes() const {
    Testo bytes;
    for (QTextBlock blocco = document()->begin(); blocco.isValid(); blocco = blocco.next()) {
        if (blocco != document()->begin()) bytes += "\r\n";
        bytes += DaUtente(blocco.text());
    }
    return bytes;
}

void CasellaTesto::Mostra(const Testo& testo) {
    const QString mostrato = morvella::Mostra(testo);
    mostra_ = true;
    if (Bytes() != testo) setPlainText(mostrato);
    mostra_ = false;
}

void CasellaTesto::Cambiata() {
    if (mostra_) return;
    emit Scritta(Bytes());
}

// Converted on its way in. A correction afterwards would be an undo step of its own, and undoing it
// would cause the next correction.
void CasellaTesto::keyPressEvent(QKeyEvent* evento) {
    QKeyEvent tenuto(evento->type(), evento->key(), evento->modifiers(), Tenuto(evento->text()),
                     evento->isAutoRepeat());
    QPlainTextEdit::keyPressEvent(&tenuto);
    evento->setAccepted(tenuto.isAccepted());
}

void CasellaTesto::inputMethodEvent(QInputMethodEvent* evento) {
    QInputMethodEvent tenuto(evento->preeditString(), evento->attributes());
    tenuto.setCommitString(Tenuto(evento->commitString()), evento->replacementStart(),
                           evento->replacementLength());
    QPlainTextEdit::inputMethodEvent(&tenuto);
    evento->setAccepted(tenuto.isAccepted());
}

bool CasellaTesto::canInsertFromMimeData(const QMimeData* dati) const {
    return !dati->hasUrls() && QPlainTextEdit::canInsertFromMimeData(dati);
}

void CasellaTesto::insertFromMimeData(const QMimeData* dati) {
    QMimeData tenuto;
    tenuto.setText(Tenuto(dati->text().replace(QChar::ParagraphSeparator, '\n')));
    QPlainTextEdit::insertFromMimeData(&tenuto);
}

void CasellaTesto::contextMenuEvent(QContextMenuEvent* evento) {
    QMenu menu(this);
    const auto voce = [&](const QString& nome, void (QPlainTextEdit::*fai)(), bool attiva) {
        menu.addAction(nome, this, fai)->setEnabled(attiva);
    };
    const bool scelta = textCursor().hasSelection();
    voce("&Annulla", &QPlainTextEdit::undo, document()->isUndoAvailable());
    voce("&Ripeti", &QPlainTextEdit::redo, document()->isRedoAvailable());
    menu.addSeparator();
    voce("&Taglia", &QPlainTextEdit::cut, scelta);
    voce("&Copia", &QPlainTextEdit::copy, scelta);
    voce("&Incolla", &QPlainTextEdit::paste, canPaste());
    menu.addSeparator();
    voce("&Seleziona tutto", &QPlainTextEdit::selectAll, !document()->isEmpty());
    menu.exec(evento->globalPos());
}

bool PerdeFuoco(const QEvent& evento) {
    if (evento.type() != QEvent::FocusOut) return false;
    switch (static_cast<const QFocusEvent&>(evento).reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason: return false;
    default: return true;
    }
}

void Adatta(QLabel& etichetta) {
    QFont carattere = etichetta.font();
    const int come =
        static_cast<int>(etichetta.alignment()) | (etichetta.wordWrap() ? int(Qt::TextWordWrap) : 0);
    const QRect posto = etichetta.contentsRect();
    while (carattere.pixelSize() > 8) {
        const QRect serve = QFontMetrics(carattere).boundingRect(posto, come, etichetta.text());
        if (serve.height() <= posto.height() && serve.width() <= posto.width()) break;
        carattere.setPixelSize(carattere.pixelSize() - 1);
    }
    etichetta.setFont(carattere);
}

} // namespace morvella

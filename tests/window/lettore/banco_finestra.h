// SPDX-License-Identifier: MIT
// tests/window/lettore/banco_finestra.h
//
// The windows of the reader, with their dialogs answered, and what a user does in them.
#pragma once

#include <QLabel>
#include <QScrollBar>
#include <QStatusBar>

#include "window/lettore/banco.h"
#include "window/lettore/finestra.h"
#include "window/lettore/italiano.h"
#include "window/lettore/lettore.h"

namespace morvella::lettore::provefinestra {

struct Banco {
    QStringList Avvisi;
    QStringList Scelti; // the answer of the next file dialog
    QString Pdf;
    Lettore L;

    explicit Banco(bool lf = false)
        : L({[this](QWidget*, bool, const QString& titolo, const QString& testo) {
                 Avvisi << titolo + "|" + testo;
             },
             [this](QWidget*, const QString&) { return Scelti; },
             [this](QWidget*, const QString& proposto) {
                 Avvisi << "pdf|" + proposto;
                 return Pdf;
             }},
            lf) {}

    FinestraLettore* Apri(const QString& file) {
        if (L.Apri({file}) != 0) return nullptr;
        FinestraLettore* finestra = L.Finestre().constLast();
        finestra->activateWindow();
        return QTest::qWaitForWindowActive(finestra, Attesa) ? finestra : nullptr;
    }
};

template <class Cosa>
Cosa* Figlio(FinestraLettore* finestra, const char* nome) {
    return finestra->findChild<Cosa*>(nome);
}

inline QString Detto(FinestraLettore* f) { return f->statusBar()->currentMessage(); }
inline QString Stato(FinestraLettore* f) { return Figlio<QLabel>(f, "stato")->text(); }
inline QString Scelto(FinestraLettore* f) { return f->LaVista()->TestoScelto().value_or("troppo"); }

// Sends a key to the focus widget, as the desktop does.
inline void Premi(FinestraLettore* f, Qt::Key tasto, Qt::KeyboardModifiers con = Qt::NoModifier) {
    QWidget* dove = f->focusWidget();
    QTest::keyClick(dove ? dove : f, tasto, con);
}
// Types characters that QTest has no keys for.
inline void Scrivi(FinestraLettore* f, const QString& testo) {
    for (const QChar c : testo)
        QTest::sendKeyEvent(QTest::Click, f->focusWidget(), Qt::Key_unknown, c, Qt::NoModifier);
}

inline QPoint Punto(VistaStruttura* v, Lungo riga, Lungo colonna) {
    return {static_cast<int>(4 + (static_cast<qreal>(colonna) - v->horizontalScrollBar()->value()) *
                                     v->Celle().Larga()) +
                1,
            static_cast<int>((static_cast<qreal>(riga - v->PrimaRiga()) + 0.5) * v->Celle().Alta())};
}

#define AL_POSTO(vista, riga, byte)                                                                          \
    QCOMPARE(QPoint(int((vista)->Cursore().Byte), int((vista)->Cursore().Riga)), QPoint(byte, riga))

inline QByteArray Molte(int quante) {
    QByteArray bytes;
    for (int i = 1; i <= quante; ++i)
        bytes +=
            QByteArray::number(i).rightJustified(6, '0') + "        riga " + QByteArray::number(i) + "\r\n";
    return bytes;
}

} // namespace morvella::lettore::provefinestra

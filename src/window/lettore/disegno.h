// SPDX-License-Identifier: MIT
// window/lettore/disegno.h
//
// Draws a line of a listing in a grid of cells of one size, on the screen and on paper, and
// chooses the colours. Connectors are drawn as strokes, not as characters, so that no font leaves a
// gap between two lines. Any other character stands at the left of its cell, whatever font it is
// taken from.
#pragma once

#include <QColor>
#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QPalette>
#include <QRawFont>

#include "listing/decodifica.h"

class QPainter;

namespace morvella::lettore {

/// The contrast ratio of two colours as accessibility guidelines define it, from 1 to 21.
double Contrasto(const QColor& a, const QColor& b);
inline constexpr double ContrastoMinimo = 4.5;

/// What a listing is drawn with. Every text colour has at least ContrastoMinimo on its background.
struct Colori {
    QColor Fondo, Testo, Numero, Condizione, Ciclo, Riquadro;
    QColor Errore, ErroreFondo;
    QColor Scelto, SceltoFondo;   // the selection
    QColor Trovato, TrovatoFondo; // a match of the search
    QColor Aperta;                // a procedure left open, in the list

    const QColor& Di(Tratto::Genere che) const;
};

/// The colours that go with a desktop's palette, light or dark.
Colori ColoriDi(const QPalette& tavolozza);
/// The colours for paper: dark on white.
Colori ColoriDiStampa();

/// A part of a line with colours of its own.
struct Macchia {
    Lungo Da = 0, A = 0; // in bytes, from `Da` to before `A`
    QColor Scritto, Fondo;
};

class Griglia {
  public:
    Griglia() = default;
    /// `scala` is the number of device pixels to one of the painter's units.
    Griglia(const QFont& font, qreal scala);

    qreal Larga() const noexcept { return larga_ / scala_; }
    qreal Alta() const noexcept { return alta_ / scala_; }

    /// Draws the columns from `da` to before `a` of a line whose first cell stands at `x`, `y`.
    void Riga(QPainter& penna, qreal x, qreal y, Vista riga, const std::vector<Porzione>& fette, Lungo da,
              Lungo a, const Colori& colori, const std::vector<Macchia>& macchie = {}) const;

  private:
    struct Carattere {
        QRawFont Font;
        mutable QHash<char16_t, quint32> Glifi;
        quint32 Glifo(char16_t c) const;
    };
    void Connettore(QPainter& penna, qreal x, qreal y, char16_t c, bool doppio, const QColor& colore) const;
    void Estraneo(QPainter& penna, qreal x, qreal y, char16_t c, const QColor& colore) const;

    QFont font_;
    Carattere normale_, grassetto_;
    qreal scala_ = 1;
    int larga_ = 8, alta_ = 16, base_ = 12; // in device pixels
};

} // namespace morvella::lettore

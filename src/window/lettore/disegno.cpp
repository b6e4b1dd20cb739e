// SPDX-License-Identifier: MIT
#include "window/lettore/disegno.h"

#include <algorithm>
#include <cmath>

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>

#include "lettore/struttura.h"

namespace morvella::lettore {

namespace {

double Luminanza(const QColor& c) {
    const auto lineare = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * lineare(c.redF()) + 0.7152 * lineare(c.greenF()) + 0.0722 * lineare(c.blueF());
}

QColor Mescola(const QColor& a, const QColor& b, double quantoB) {
    const auto canale = [&](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * quantoB)); };
    return {canale(a.red(), b.red()), canale(a.green(), b.green()), canale(a.blue(), b.blue())};
}

// Returns `colore`, moved towards black or white as far as it takes to be readable on `fondo`.
QColor Leggibile(const QColor& colore, const QColor& fondo) {
    const QColor verso = Contrasto(Qt::black, fondo) > Contrasto(Qt::white, fondo) ? Qt::black : Qt::white;
    QColor scelto = colore;
    for (int passo = 1; passo <= 20 && Contrasto(scelto, fondo) < ContrastoMinimo; ++passo)
        scelto = Mescola(colore, verso, passo / 20.0);
    return scelto;
}

// The dimmest shade of `testo` that is still readable on `fondo`.
QColor Tenue(const QColor& testo, const QColor& fondo) {
    QColor scelto = testo;
    for (int passo = 1; passo <= 11; ++passo) {
        const QColor prova = Mescola(testo, fondo, passo * 0.05);
        if (Contrasto(prova, fondo) < 5) break;
        scelto = prova;
    }
    return scelto;
}

} // namespace

double Contrasto(const QColor& a, const QColor& b) {
    const auto [meno, piu] = std::minmax({Luminanza(a), Luminanza(b)});
    return (piu + 0.05) / (meno + 0.05);
}

const QColor& Colori::Di(Tratto::Genere che) const {
    switch (che) {
    case Tratto::Numero: return Numero;
    case Tratto::Condizione: return Condizione;
    case Tratto::Ciclo: return Ciclo;
    case Tratto::Riquadro: return Riquadro;
    case Tratto::Errore: return Errore;
    case Tratto::Barra:
    case Tratto::Scritto: break;
    }
    return Testo;
}

Colori ColoriDi(const QPalette& tavolozza) {
    Colori c;
    c.Fondo = tavolozza.color(QPalette::Base);
    c.Testo = Leggibile(tavolozza.color(QPalette::Text), c.Fondo);
    const bool scuro = Contrasto(c.Fondo, Qt::white) > Contrasto(c.Fondo, Qt::black);
    c.Numero = Tenue(c.Testo, c.Fondo);
    c.Riquadro = c.Numero;
    // Blue and orange can be told apart with every kind of colour blindness.
    c.Condizione = Leggibile(scuro ? QColor(0x6C, 0xB6, 0xFF) : QColor(0x0B, 0x57, 0xB8), c.Fondo);
    c.Ciclo = Leggibile(scuro ? QColor(0xFF, 0xA6, 0x4D) : QColor(0xA8, 0x4A, 0x00), c.Fondo);
    c.ErroreFondo = scuro ? QColor(0xA3, 0x24, 0x1C) : QColor(0xB3, 0x26, 0x1E);
    c.Errore = Qt::white;
    c.Aperta = Leggibile(scuro ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB3, 0x26, 0x1E), c.Fondo);
    c.Trovato = QColor(0x1A, 0x1A, 0x1A);
    c.TrovatoFondo = scuro ? QColor(0xE0, 0xB4, 0x00) : QColor(0xFF, 0xE0, 0x7A);
    c.Scelto = tavolozza.color(QPalette::HighlightedText);
    c.SceltoFondo = Leggibile(tavolozza.color(QPalette::Highlight), c.Scelto);
    return c;
}

Colori ColoriDiStampa() {
    QPalette carta;
    carta.setColor(QPalette::Base, Qt::white);
    carta.setColor(QPalette::Text, Qt::black);
    Colori c = ColoriDi(carta);
    c.Errore = c.Aperta;
    c.ErroreFondo = c.Fondo;
    return c;
}

Griglia::Griglia(const QFont& font, qreal scala) : font_(font), scala_(scala) {
    font_.setKerning(false);
    QFont grassetto = font_;
    grassetto.setBold(true);
    normale_.Font = QRawFont::fromFont(font_);
    grassetto_.Font = QRawFont::fromFont(grassetto);
    // In whole device pixels, else the distances of columns and lines would vary.
    const QFontMetricsF misure(font_);
    larga_ = std::max(3, static_cast<int>(std::lround(misure.horizontalAdvance(u'0') * scala)));
    base_ = static_cast<int>(std::ceil(misure.ascent() * scala));
    alta_ = std::max(5, base_ + static_cast<int>(std::ceil((misure.descent() + misure.leading()) * scala)));
}

quint32 Griglia::Carattere::Glifo(char16_t c) const {
    const auto noto = Glifi.constFind(c);
    if (noto != Glifi.constEnd()) return *noto;
    const QList<quint32> indici = Font.glyphIndexesForString(QString(QChar(c)));
    return *Glifi.insert(c, indici.isEmpty() ? 0 : indici.front());
}

void Griglia::Connettore(QPainter& penna, qreal x, qreal y, char16_t c, bool doppio,
                         const QColor& colore) const {
    // In device pixels from the corner of the cell; whole numbers, so that the strokes of two cells
    // meet exactly.
    const int w = larga_;
    const int h = alta_;
    const int t = std::max(1, static_cast<int>(std::lround(h / 14.0)));
    const auto tratto = [&](int x1, int y1, int x2, int y2) {
        penna.fillRect(QRectF(x + x1 / scala_, y + y1 / scala_, (x2 - x1) / scala_, (y2 - y1) / scala_),
                       colore);
    };
    const auto punta = [&](bool destra) {
        const qreal meta = std::min(w * 0.45, h * 0.22);
        const qreal dietro = destra ? w * 0.3 : w * 0.75;
        const qreal davanti = destra ? w * 0.9 : w * 0.1;
        const qreal mezzo = h / 2.0;
        const auto punto = [&](qreal px, qreal py) { return QPointF(x + px / scala_, y + py / scala_); };
        penna.save();
        penna.setRenderHint(QPainter::Antialiasing);
        penna.setPen(Qt::NoPen);
        penna.setBrush(colore);
        penna.drawPolygon(
            QPolygonF({punto(dietro, mezzo - meta), punto(davanti, mezzo), punto(dietro, mezzo + meta)}));
        penna.restore();
    };
    // A single stroke begins at x1 or y1; the second one of a double stroke begins at x2 or y2.
    const int tra = std::max(t, static_cast<int>(std::lround(w * 0.25)));
    const int grosso = doppio ? 2 * t + tra : t;
    const int x1 = (w - grosso) / 2;
    const int y1 = (h - grosso) / 2;
    const int x2 = x1 + grosso - t;
    const int y2 = y1 + grosso - t;
    const int mezzo = w / 2;
    switch (c) {
    case u'│':
    case u'║':
        tratto(x1, 0, x1 + t, h);
        if (doppio) tratto(x2, 0, x2 + t, h);
        break;
    case u'─':
    case u'═':
        tratto(0, y1, w, y1 + t);
        if (doppio) tratto(0, y2, w, y2 + t);
        break;
    case u'┌':
        tratto(x1, y1, x1 + t, h);
        tratto(x1, y1, w, y1 + t);
        break;
    case u'├':
        tratto(x1, 0, x1 + t, h);
        tratto(x1, y1, w, y1 + t);
        break;
    case u'└':
        tratto(x1, 0, x1 + t, y1 + t);
        tratto(x1, y1, w, y1 + t);
        break;
    case u'╔':
        tratto(x1, y1, x1 + t, h);
        tratto(x1, y1, w, y1 + t);
        tratto(x2, y2, x2 + t, h);
        tratto(x2, y2, w, y2 + t);
        break;
    case u'╚':
        tratto(x1, 0, x1 + t, y2 + t);
        tratto(x1, y2, w, y2 + t);
        tratto(x2, 0, x2 + t, y1 + t);
        tratto(x2, y1, w, y1 + t);
        break;
    case u'>':
        tratto(0, y1, mezzo, y1 + t);
        if (doppio) tratto(0, y2, mezzo, y2 + t);
        punta(true);
        break;
    case u'<':
        tratto(mezzo, y1, w, y1 + t);
        tratto(mezzo, y2, w, y2 + t);
        punta(false);
        break;
    default: break;
    }
}

void Griglia::Estraneo(QPainter& penna, qreal x, qreal y, char16_t c, const QColor& colore) const {
    const QString testo{QChar(c)};
    const QFontMetricsF misure(font_);
    const qreal largo = misure.horizontalAdvance(testo);
    penna.save();
    penna.setPen(colore);
    penna.setFont(font_);
    penna.translate(x, y + base_ / scala_);
    if (largo > Larga() && largo > 0) penna.scale(Larga() / largo, Larga() / largo);
    penna.drawText(QPointF(0, 0), testo);
    penna.restore();
}

void Griglia::Riga(QPainter& penna, qreal x, qreal y, Vista riga, const std::vector<Porzione>& fette,
                   Lungo da, Lungo a, const Colori& colori, const std::vector<Macchia>& macchie) const {
    QList<quint32> glifi;
    QList<QPointF> posti;
    QColor coloreCorsa;
    const Carattere* carattereCorsa = nullptr;
    const auto scrivi = [&] {
        if (glifi.isEmpty() || !carattereCorsa) return;
        QGlyphRun corsa;
        corsa.setRawFont(carattereCorsa->Font);
        corsa.setGlyphIndexes(glifi);
        corsa.setPositions(posti);
        penna.setPen(coloreCorsa);
        penna.drawGlyphRun(QPointF(0, 0), corsa);
        glifi.clear();
        posti.clear();
    };

    Lungo byte = ByteDiColonna(riga, da);
    Lungo colonna = ColonnaDiByte(riga, byte);
    auto fetta = std::partition_point(fette.begin(), fette.end(), [&](const Porzione& f) {
        return static_cast<Lungo>(f.Da + f.Quanti) <= byte;
    });
    for (; byte < Len(riga) && colonna < a; ++byte) {
        while (fetta != fette.end() && static_cast<Lungo>(fetta->Da + fetta->Quanti) <= byte) ++fetta;
        if (fetta == fette.end()) break;
        const Tratto::Genere che = fetta->Che;
        const char16_t c = Segno(che, riga[static_cast<std::size_t>(byte)]);
        const bool tab = c == u'\t';
        const Lungo dopo = tab ? (colonna / Tabulazione + 1) * Tabulazione : colonna + 1;
        const qreal cx = x + static_cast<qreal>(colonna) * Larga();
        QColor colore = colori.Di(che);
        for (const Macchia& macchia : macchie)
            if (byte >= macchia.Da && byte < macchia.A) {
                colore = macchia.Scritto;
                penna.fillRect(QRectF(cx, y, static_cast<qreal>(dopo - colonna) * Larga(), Alta()),
                               macchia.Fondo);
            }
        colonna = dopo;
        if (tab || c == u' ' || c == u'\u00A0') continue;
        if (che == Tratto::Condizione || che == Tratto::Ciclo || che == Tratto::Barra) {
            Connettore(penna, cx, y, c, che != Tratto::Condizione, colore);
            continue;
        }
        const Carattere& carattere = che == Tratto::Errore ? grassetto_ : normale_;
        const quint32 glifo = carattere.Glifo(c);
        if (glifo == 0) {
            Estraneo(penna, cx, y, c, colore);
            continue;
        }
        if (colore != coloreCorsa || &carattere != carattereCorsa) scrivi();
        coloreCorsa = colore;
        carattereCorsa = &carattere;
        glifi.append(glifo);
        posti.append({cx, y + base_ / scala_});
    }
    scrivi();
}

} // namespace morvella::lettore

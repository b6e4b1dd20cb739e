// SPDX-License-Identifier: MIT
#include "window/lettore/stampa.h"

#include <algorithm>
#include <cmath>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>

namespace morvella::lettore {

namespace {

constexpr Lungo ColonneVolute = 116; // the box around a head ends in column 115
constexpr qreal PuntiMassimi = 9;
constexpr Lungo RigheDiTesta = 2; // the title and an empty row

// The connectors to draw below a line that is continued: the columns that it leaves open.
char Prosegue(char byte) {
    switch (byte) {
    case '\xB3':
    case '\xDA':
    case '\xC3': return '\xB3';
    case '\xBA':
    case '\xC9': return '\xBA';
    default: return ' ';
    }
}

} // namespace

Stampa::Stampa(Struttura& struttura, QPagedPaintDevice& carta, QString titolo)
    : struttura_(struttura), carta_(carta), titolo_(std::move(titolo)), colori_(ColoriDiStampa()) {
    const int punti = carta.logicalDpiX();
    area_ = QRectF(QPointF(0, 0), QSizeF(carta.width(), carta.height()));
    font_ = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font_.setFixedPitch(true);
    font_.setPixelSize(1000);
    const qreal larga = QFontMetricsF(font_).horizontalAdvance(u'0') / 1000;
    const qreal alta = std::min(area_.width() / ColonneVolute / larga, PuntiMassimi / 72 * punti);
    font_.setPixelSize(std::max(1, static_cast<int>(alta)));
    griglia_ = Griglia(font_, 1);
    colonne_ = std::max<Lungo>(20, static_cast<Lungo>(area_.width() / griglia_.Larga()));
    righe_ = std::max<Lungo>(1, static_cast<Lungo>(area_.height() / griglia_.Alta()) - RigheDiTesta);
    Lungo tutte = 0;
    for (Lungo i = 0; i < struttura_.Righe(); ++i) {
        const Vista riga = struttura_.Riga(i);
        tutte += Len(riga) * Tabulazione <= colonne_ ? 1 : static_cast<Lungo>(Righe(i).size());
    }
    pagine_ = std::max<Lungo>(1, (tutte + righe_ - 1) / righe_);
}

std::vector<RigaStampata> Stampa::Righe(Lungo i) {
    const Vista riga = struttura_.Riga(i);
    const Lungo fine = ColonnaDiByte(riga, Len(riga));
    std::vector<RigaStampata> righe = {{i, 0, std::min(fine, colonne_), 0}};
    if (fine <= colonne_) return righe;
    TagliaRiga(riga, fette_);
    const Porzione& ultima = fette_.back();
    auto rientro = static_cast<Lungo>(ultima.Da + BlanksDavanti(riga.substr(ultima.Da)));
    if (rientro > colonne_ / 2) rientro = 0;
    for (Lungo da = colonne_; da < fine; da += colonne_ - rientro)
        righe.push_back({i, da, std::min(fine, da + colonne_ - rientro), rientro});
    return righe;
}

void Stampa::DisegnaRiga(QPainter& penna, const RigaStampata& r, qreal y) {
    const Vista riga = struttura_.Riga(r.Riga);
    TagliaRiga(riga, fette_);
    const qreal x = area_.left() + static_cast<qreal>(r.Rientro - r.Da) * griglia_.Larga();
    griglia_.Riga(penna, x, y, riga, fette_, r.Da, r.A, colori_);
    if (r.Da == 0 || r.Rientro == 0) return;
    Testo margine(static_cast<std::size_t>(r.Rientro), ' ');
    for (const Porzione& fetta : fette_)
        if (fetta.Che == Tratto::Condizione || fetta.Che == Tratto::Ciclo)
            for (std::size_t i = fetta.Da; i < std::min(margine.size(), fetta.Da + fetta.Quanti); ++i)
                margine[i] = Prosegue(riga[i]);
    griglia_.Riga(penna, area_.left(), y, margine, fette_, 0, r.Rientro, colori_);
}

bool Stampa::Esegui(Lungo da, Lungo a, const std::function<bool(Lungo)>& continua) {
    QPainter penna;
    if (!penna.begin(&carta_)) return false;
    a = std::min(a, pagine_);
    Lungo pagina = 0; // the page in work
    Lungo nella = righe_;
    const auto volta = [&] {
        ++pagina;
        nella = 0;
        if (pagina < da || pagina > a) return true;
        if (!continua(pagina) || (pagina > da && !carta_.newPage())) return false;
        penna.setFont(font_);
        penna.setPen(colori_.Testo);
        const QRectF testa(area_.left(), area_.top(), area_.width(), griglia_.Alta());
        const QString numero = QStringLiteral("pagina %1 di %2").arg(pagina).arg(pagine_);
        const qreal larghezza = QFontMetricsF(font_).horizontalAdvance(numero) + 2 * griglia_.Larga();
        penna.drawText(testa, Qt::AlignRight | Qt::AlignTop, numero);
        penna.drawText(testa, Qt::AlignLeft | Qt::AlignTop,
                       QFontMetricsF(font_).elidedText(titolo_, Qt::ElideMiddle, testa.width() - larghezza));
        return true;
    };
    if (struttura_.Righe() == 0 && !volta()) return false;
    for (Lungo i = 0; i < struttura_.Righe() && pagina <= a; ++i)
        for (const RigaStampata& riga : Righe(i)) {
            if (nella == righe_ && !volta()) return false;
            if (pagina >= da && pagina <= a)
                DisegnaRiga(penna, riga,
                            area_.top() + static_cast<qreal>(nella + RigheDiTesta) * griglia_.Alta());
            ++nella;
        }
    return penna.end();
}

} // namespace morvella::lettore

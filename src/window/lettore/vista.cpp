// SPDX-License-Identifier: MIT
#include "window/lettore/vista.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleHints>
#include <QWheelEvent>

namespace morvella::lettore {

namespace {

constexpr qreal Bordo = 4; // between the frame and the first column

int Intero(Lungo n) { return static_cast<int>(std::clamp<Lungo>(n, 0, INT_MAX)); }

void AccodaMostrata(QString& testo, Vista riga, Lungo da, Lungo a, std::vector<Porzione>& fette) {
    TagliaRiga(riga, fette);
    for (const Porzione& fetta : fette) {
        const Lungo fine = std::min(a, static_cast<Lungo>(fetta.Da + fetta.Quanti));
        for (Lungo i = std::max(da, static_cast<Lungo>(fetta.Da)); i < fine; ++i)
            testo += QChar(Segno(fetta.Che, riga[static_cast<std::size_t>(i)]));
    }
}

bool DiParola(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) || c == '_' || byte >= 0xC0 || MinuscolaByte(byte) != MaiuscolaByte(byte);
}

class Parlante : public QAccessibleWidget {
  public:
    explicit Parlante(VistaStruttura* vista)
        : QAccessibleWidget(vista, QAccessible::Document), vista_(vista) {}
    QString text(QAccessible::Text che) const override {
        return che == QAccessible::Value ? vista_->RigaDetta() : QAccessibleWidget::text(che);
    }

  private:
    VistaStruttura* vista_;
};

} // namespace

void AccessibilitaDellaVista() {
    QAccessible::installFactory([](const QString&, QObject* oggetto) -> QAccessibleInterface* {
        auto* vista = qobject_cast<VistaStruttura*>(oggetto);
        return vista ? new Parlante(vista) : nullptr;
    });
}

VistaStruttura::VistaStruttura(QWidget* sopra) : QAbstractScrollArea(sopra) {
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(QStringLiteral("Struttura"));
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setAutoFillBackground(false);
    colori_ = ColoriDi(palette());
    Ricalcola();
}

void VistaStruttura::Mostra(Struttura* struttura) {
    struttura_ = struttura;
    cursore_ = Limita(cursore_);
    ancora_ = Limita(ancora_);
    MettiBarre();
    viewport()->update();
    emit CursoreMosso();
}

void VistaStruttura::DiceVuota(const QString& testo) {
    detto_ = testo;
    viewport()->update();
}

void VistaStruttura::Ricalcola() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const qreal punti = font.pointSizeF() > 0 ? font.pointSizeF() : 10;
    font.setPointSizeF(punti * zoom_ / 100);
    font.setFixedPitch(true);
    font.setStyleHint(QFont::Monospace);
    scala_ = devicePixelRatioF();
    griglia_ = Griglia(font, scala_);
    MettiBarre();
    viewport()->update();
}

Lungo VistaStruttura::ColonneInVista() const {
    return std::max<Lungo>(1, static_cast<Lungo>((viewport()->width() - Bordo) / griglia_.Larga()));
}

Lungo VistaStruttura::RigheInVista() const {
    return std::max<Lungo>(1, static_cast<Lungo>(viewport()->height() / griglia_.Alta()));
}

qreal VistaStruttura::Sinistra() const { return Bordo - horizontalScrollBar()->value() * griglia_.Larga(); }

void VistaStruttura::MettiBarre() {
    verticalScrollBar()->setRange(0, Intero(Righe() - RigheInVista()));
    verticalScrollBar()->setPageStep(Intero(RigheInVista()));
    const Lungo colonne =
        struttura_ ? struttura_->Colonne() + 1 : 0; // one more for the caret at the end of a line
    horizontalScrollBar()->setRange(0, Intero(colonne - ColonneInVista()));
    horizontalScrollBar()->setPageStep(Intero(ColonneInVista()));
    horizontalScrollBar()->setSingleStep(4);
}

Lungo VistaStruttura::PrimaRiga() const { return verticalScrollBar()->value(); }
void VistaStruttura::MettiPrimaRiga(Lungo riga) { verticalScrollBar()->setValue(Intero(riga)); }

Posizione VistaStruttura::Limita(Posizione dove) {
    if (Righe() == 0) return {};
    if (dove.Riga >= Righe()) return {Righe() - 1, Lunghezza(Righe() - 1)};
    if (dove.Riga < 0) return {};
    return {dove.Riga, std::clamp<Lungo>(dove.Byte, 0, Lunghezza(dove.Riga))};
}

void VistaStruttura::Sposta(Posizione dove, bool estende, bool tieniColonna) {
    cursore_ = Limita(dove);
    if (!estende) ancora_ = cursore_;
    if (!tieniColonna && struttura_) colonna_ = ColonnaDiByte(struttura_->Riga(cursore_.Riga), cursore_.Byte);
    viewport()->update();
    emit CursoreMosso();
    QAccessibleValueChangeEvent cambiata(this, RigaDetta());
    QAccessible::updateAccessibility(&cambiata);
}

void VistaStruttura::Vai(Posizione dove, bool estende) {
    Sposta(dove, estende);
    MostraCursore();
}

void VistaStruttura::Scegli(Posizione da, Posizione a) {
    ancora_ = Limita(da);
    Sposta(a, true);
    MostraCursore(true);
}

void VistaStruttura::ScegliTutto() {
    ancora_ = {};
    Sposta({Righe(), 0}, true);
}

void VistaStruttura::MostraCursore(bool alCentro) {
    if (!struttura_) return;
    const Lungo prima = PrimaRiga();
    const Lungo viste = RigheInVista();
    if (cursore_.Riga < prima || cursore_.Riga >= prima + viste) {
        if (alCentro)
            MettiPrimaRiga(cursore_.Riga - viste / 2);
        else
            MettiPrimaRiga(cursore_.Riga < prima ? cursore_.Riga : cursore_.Riga - viste + 1);
    }
    const Vista riga = struttura_->Riga(cursore_.Riga);
    const Lungo fine = ColonnaDiByte(riga, cursore_.Byte);
    const Lungo inizio = ancora_.Riga == cursore_.Riga ? ColonnaDiByte(riga, ancora_.Byte) : fine;
    const Lungo sinistra = horizontalScrollBar()->value();
    const Lungo largo = ColonneInVista();
    const Lungo da = alCentro ? std::min(inizio, fine) : fine;
    const Lungo a = alCentro ? std::max(inizio, fine) : fine;
    if (alCentro && a < largo) return horizontalScrollBar()->setValue(0); // keep the numbers in sight
    if (a >= sinistra + largo)
        horizontalScrollBar()->setValue(Intero(std::min(da, a - largo + 1 + largo / 4)));
    if (da < horizontalScrollBar()->value())
        horizontalScrollBar()->setValue(Intero(da < largo ? 0 : da - largo / 4));
}

std::optional<QString> VistaStruttura::TestoScelto() {
    const auto [da, a] = std::minmax({cursore_, ancora_});
    QString testo;
    for (Lungo i = da.Riga; i <= a.Riga && i < Righe(); ++i) {
        const Vista riga = struttura_->Riga(i);
        AccodaMostrata(testo, riga, i == da.Riga ? da.Byte : 0, i == a.Riga ? a.Byte : Len(riga), fette_);
        if (i < a.Riga && !struttura_->Spezzata(i)) testo += u'\n';
        if (testo.size() > LimiteCopia) return std::nullopt;
    }
    return testo;
}

bool VistaStruttura::Copia() {
    if (!Scelto()) return true;
    const auto testo = TestoScelto();
    if (testo)
        QApplication::clipboard()->setText(*testo);
    else
        emit CopiaTroppoGrande();
    return testo.has_value();
}

void VistaStruttura::Evidenzia(const Ago& ago) {
    ago_ = ago;
    viewport()->update();
}

void VistaStruttura::MettiZoom(int percento) {
    percento = std::clamp(percento, ZoomMinimo, ZoomMassimo);
    if (percento == zoom_) return;
    const Lungo prima = PrimaRiga();
    zoom_ = percento;
    Ricalcola();
    MettiPrimaRiga(prima);
    emit ZoomCambiato(zoom_);
}

QString VistaStruttura::RigaDetta() const {
    QString testo;
    if (Righe() == 0) return detto_;
    const Vista riga = struttura_->Riga(cursore_.Riga);
    std::vector<Porzione> fette;
    AccodaMostrata(testo, riga, 0, std::min<Lungo>(Len(riga), 1000), fette);
    return testo;
}

Posizione VistaStruttura::PostoDi(const QPoint& punto) {
    if (Righe() == 0) return {};
    const Lungo riga = PrimaRiga() + static_cast<Lungo>(std::floor(punto.y() / griglia_.Alta()));
    if (riga < 0) return {};
    if (riga >= Righe()) return Limita({Righe(), 0});
    // Half a cell is added, so that the nearer edge of the cell counts.
    const Lungo colonna = static_cast<Lungo>(std::floor((punto.x() - Sinistra()) / griglia_.Larga() + 0.5));
    return {riga, ByteDiColonna(struttura_->Riga(riga), std::max<Lungo>(colonna, 0))};
}

// ---- drawing

void VistaStruttura::DisegnaUna(QPainter& penna, Lungo i, qreal y) {
    const Vista riga = struttura_->Riga(i);
    TagliaRiga(riga, fette_);
    const Lungo da = horizontalScrollBar()->value();
    const Lungo a = da + ColonneInVista() + 2;
    const Lungo daByte = ByteDiColonna(riga, da);
    const Lungo aByte = std::min(Len(riga), ByteDiColonna(riga, a) + 1);

    Colori colori = colori_;
    if (i == cursore_.Riga && hasFocus()) colori.Numero = colori_.Testo;
    if (!fette_.empty() && fette_[0].Che == Tratto::Errore)
        penna.fillRect(QRectF(-1, y, viewport()->width() + 2, griglia_.Alta()), colori_.ErroreFondo);

    std::vector<Macchia> macchie;
    const Lungo margine = ago_.Lunghezza();
    for (Lungo n = std::max<Lungo>(daByte - margine, 0);
         (n = ago_.In(riga, fette_, n, std::min(Len(riga), aByte + margine))) >= 0; n += margine)
        macchie.push_back({n, n + margine, colori_.Trovato, colori_.TrovatoFondo});
    const auto [inizio, fine] = std::minmax({cursore_, ancora_});
    if (inizio != fine && i >= inizio.Riga && i <= fine.Riga) {
        const Lungo sa = i == fine.Riga ? fine.Byte : Len(riga);
        macchie.push_back({i == inizio.Riga ? inizio.Byte : 0, sa, colori_.Scelto, colori_.SceltoFondo});
        if (i < fine.Riga) // show that the line end is selected too
            penna.fillRect(QRectF(Sinistra() + static_cast<qreal>(ColonnaDiByte(riga, sa)) * griglia_.Larga(),
                                  y, griglia_.Larga() / 2, griglia_.Alta()),
                           colori_.SceltoFondo);
    }
    griglia_.Riga(penna, Sinistra(), y, riga, fette_, da, a, colori, macchie);

    if (i == cursore_.Riga && hasFocus()) {
        const qreal x =
            Sinistra() + static_cast<qreal>(ColonnaDiByte(riga, cursore_.Byte)) * griglia_.Larga();
        const bool errore = !fette_.empty() && fette_[0].Che == Tratto::Errore;
        penna.fillRect(QRectF(x - 1, y, 2, griglia_.Alta()), errore ? colori_.Errore : colori_.Testo);
    }
}

void VistaStruttura::paintEvent(QPaintEvent*) {
    if (scala_ != devicePixelRatioF()) Ricalcola(); // moved to another screen
    QPainter penna(viewport());
    penna.fillRect(viewport()->rect(), colori_.Fondo);
    if (Righe() == 0) {
        penna.setPen(colori_.Numero);
        penna.drawText(viewport()->rect().adjusted(20, 20, -20, -20), Qt::AlignCenter | Qt::TextWordWrap,
                       detto_);
        return;
    }
    // At a scale of 1.5 the view may begin between two device pixels. Strokes would then vary in
    // width and not always meet, so the painter is moved to a whole pixel.
    const QTransform schermo = penna.deviceTransform();
    penna.translate((std::round(schermo.dx()) - schermo.dx()) / scala_,
                    (std::round(schermo.dy()) - schermo.dy()) / scala_);
    const Lungo fine = std::min(Righe(), PrimaRiga() + RigheInVista() + 2);
    for (Lungo i = PrimaRiga(); i < fine; ++i)
        DisegnaUna(penna, i, static_cast<qreal>(i - PrimaRiga()) * griglia_.Alta());
}

void VistaStruttura::resizeEvent(QResizeEvent* evento) {
    QAbstractScrollArea::resizeEvent(evento);
    MettiBarre();
}

void VistaStruttura::changeEvent(QEvent* evento) {
    QAbstractScrollArea::changeEvent(evento);
    if (evento->type() == QEvent::PaletteChange || evento->type() == QEvent::StyleChange) {
        colori_ = ColoriDi(palette());
        viewport()->update();
    } else if (evento->type() == QEvent::FontChange) {
        Ricalcola();
    }
}

void VistaStruttura::focusInEvent(QFocusEvent* evento) {
    QAbstractScrollArea::focusInEvent(evento);
    viewport()->update();
}

void VistaStruttura::focusOutEvent(QFocusEvent* evento) {
    QAbstractScrollArea::focusOutEvent(evento);
    viewport()->update();
}

// ---- keyboard and wheel

bool VistaStruttura::event(QEvent* evento) {
    if (evento->type() == QEvent::ApplicationFontChange) Ricalcola();
    return QAbstractScrollArea::event(evento);
}

void VistaStruttura::keyPressEvent(QKeyEvent* evento) {
    if (Righe() == 0) return QAbstractScrollArea::keyPressEvent(evento);
    const bool estende = evento->modifiers() & Qt::ShiftModifier;
    const bool ctrl = evento->modifiers() & Qt::ControlModifier;
    const auto verticale = [&](Lungo righe) {
        const Lungo riga = std::clamp<Lungo>(cursore_.Riga + righe, 0, Righe() - 1);
        if (riga == cursore_.Riga) // on the first or last line: to its start or end
            return Vai({riga, righe < 0 ? 0 : Lunghezza(riga)}, estende);
        Sposta({riga, ByteDiColonna(struttura_->Riga(riga), colonna_)}, estende, true);
        MostraCursore();
    };
    // An arrow leaves a selection at the end that it points to.
    const auto orizzontale = [&](bool avanti) {
        const auto [da, a] = std::minmax({cursore_, ancora_});
        if (Scelto() && !estende && !ctrl) return Vai(avanti ? a : da);
        Posizione dove = cursore_;
        if (avanti && dove.Byte >= Lunghezza(dove.Riga)) {
            if (dove.Riga + 1 < Righe()) dove = {dove.Riga + 1, 0};
        } else if (!avanti && dove.Byte == 0) {
            if (dove.Riga > 0) dove = {dove.Riga - 1, Lunghezza(dove.Riga - 1)};
        } else if (ctrl) {
            const Vista riga = struttura_->Riga(dove.Riga);
            const auto qui = [&] {
                return riga[static_cast<std::size_t>(avanti ? dove.Byte : dove.Byte - 1)];
            };
            const auto resta = [&] { return avanti ? dove.Byte < Len(riga) : dove.Byte > 0; };
            const Lungo verso = avanti ? 1 : -1;
            if (avanti)
                while (resta() && DiParola(qui())) dove.Byte += verso;
            while (resta() && !DiParola(qui())) dove.Byte += verso;
            if (!avanti)
                while (resta() && DiParola(qui())) dove.Byte += verso;
        } else {
            dove.Byte += avanti ? 1 : -1;
        }
        Vai(dove, estende);
    };
    const auto pagina = [&](int verso) {
        const Lungo salto = std::max<Lungo>(1, RigheInVista() - 1) * verso;
        MettiPrimaRiga(PrimaRiga() + salto);
        verticale(salto);
    };
    switch (evento->key()) {
    case Qt::Key_Down: // Ctrl scrolls and leaves the caret
        if (ctrl) return MettiPrimaRiga(PrimaRiga() + 1);
        return verticale(1);
    case Qt::Key_Up:
        if (ctrl) return MettiPrimaRiga(PrimaRiga() - 1);
        return verticale(-1);
    case Qt::Key_Space:
    case Qt::Key_PageDown: return pagina(1);
    case Qt::Key_Backspace:
    case Qt::Key_PageUp: return pagina(-1);
    case Qt::Key_Left: return orizzontale(false);
    case Qt::Key_Right: return orizzontale(true);
    case Qt::Key_Home: return Vai({ctrl ? 0 : cursore_.Riga, 0}, estende);
    case Qt::Key_End: {
        const Lungo riga = ctrl ? Righe() - 1 : cursore_.Riga;
        return Vai({riga, Lunghezza(riga)}, estende);
    }
    default: return QAbstractScrollArea::keyPressEvent(evento);
    }
}

void VistaStruttura::wheelEvent(QWheelEvent* evento) {
    if (!(evento->modifiers() & Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(evento);
    rotella_ += evento->angleDelta().y();
    const int scatti = rotella_ / 120;
    rotella_ -= scatti * 120;
    if (scatti != 0) MettiZoom(zoom_ + scatti * ZoomPasso);
    evento->accept();
}

// ---- mouse

// The word or the line at a place, by the unit that is being selected.
std::pair<Posizione, Posizione> VistaStruttura::Estesa(Posizione dove, Misura misura) {
    if (misura == Misura::Byte || Righe() == 0) return {dove, dove};
    if (misura == Misura::Riga)
        return {{dove.Riga, 0},
                dove.Riga + 1 < Righe() ? Posizione{dove.Riga + 1, 0}
                                        : Posizione{dove.Riga, Lunghezza(dove.Riga)}};
    const Vista riga = struttura_->Riga(dove.Riga);
    auto da = static_cast<std::size_t>(dove.Byte);
    auto a = da;
    while (da > 0 && DiParola(riga[da - 1])) --da;
    while (a < riga.size() && DiParola(riga[a])) ++a;
    if (da == a && a < riga.size()) ++a;
    return {{dove.Riga, static_cast<Lungo>(da)}, {dove.Riga, static_cast<Lungo>(a)}};
}

void VistaStruttura::mousePressEvent(QMouseEvent* evento) {
    if (evento->button() != Qt::LeftButton || Righe() == 0) return;
    const QPoint punto = evento->position().toPoint();
    const Posizione dove = PostoDi(punto);
    const bool terzo = quandoDoppio_ >= 0 &&
                       static_cast<qint64>(evento->timestamp()) - quandoDoppio_ <
                           QApplication::styleHints()->mouseDoubleClickInterval() &&
                       (punto - doppio_).manhattanLength() < QApplication::startDragDistance();
    quandoDoppio_ = -1;
    // A click on the number selects the line.
    const bool sulNumero = Struttura::NumeroDi(struttura_->Riga(dove.Riga)) > 0 && punto.x() >= Sinistra() &&
                           punto.x() < Sinistra() + 6 * griglia_.Larga();
    misura_ = terzo || sulNumero ? Misura::Riga : Misura::Byte;
    trascina_ = true;
    if (evento->modifiers() & Qt::ShiftModifier) {
        presa_ = {ancora_, ancora_};
        return TrascinaA(punto);
    }
    presa_ = Estesa(dove, misura_);
    ancora_ = presa_.first;
    Sposta(presa_.second, true);
}

void VistaStruttura::mouseDoubleClickEvent(QMouseEvent* evento) {
    if (evento->button() != Qt::LeftButton || Righe() == 0) return;
    misura_ = Misura::Parola;
    trascina_ = true;
    presa_ = Estesa(PostoDi(evento->position().toPoint()), misura_);
    ancora_ = presa_.first;
    Sposta(presa_.second, true);
    quandoDoppio_ = static_cast<qint64>(evento->timestamp());
    doppio_ = evento->position().toPoint();
}

void VistaStruttura::TrascinaA(const QPoint& punto) {
    const auto [da, a] = Estesa(PostoDi(punto), misura_);
    if (da < presa_.first) {
        ancora_ = presa_.second;
        Sposta(da, true);
    } else {
        ancora_ = presa_.first;
        Sposta(std::max(a, presa_.second), true);
    }
}

void VistaStruttura::mouseMoveEvent(QMouseEvent* evento) {
    if (!trascina_) return;
    ultimo_ = evento->position().toPoint();
    TrascinaA(ultimo_);
    if (viewport()->rect().contains(ultimo_))
        scorre_.stop();
    else if (!scorre_.isActive())
        scorre_.start(50, this);
}

void VistaStruttura::mouseReleaseEvent(QMouseEvent* evento) {
    if (evento->button() != Qt::LeftButton || !trascina_) return;
    trascina_ = false;
    scorre_.stop();
    QClipboard* appunti = QApplication::clipboard();
    if (!Scelto() || !appunti->supportsSelection() || std::abs(cursore_.Riga - ancora_.Riga) > 10000) return;
    if (const auto testo = TestoScelto()) appunti->setText(*testo, QClipboard::Selection);
}

// Scrolls while a drag is held outside the view.
void VistaStruttura::timerEvent(QTimerEvent* evento) {
    if (evento->timerId() != scorre_.timerId()) return QAbstractScrollArea::timerEvent(evento);
    const QRect dentro = viewport()->rect();
    const auto fuori = [](int punto, int a) {
        return punto < 0 ? punto / 20 - 1 : punto >= a ? (punto - a) / 20 + 1 : 0;
    };
    verticalScrollBar()->setValue(verticalScrollBar()->value() + fuori(ultimo_.y(), dentro.height()));
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + fuori(ultimo_.x(), dentro.width()));
    TrascinaA(ultimo_);
}

} // namespace morvella::lettore

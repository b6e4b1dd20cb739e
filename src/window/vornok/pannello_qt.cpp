// SPDX-License-Identifier: MIT
#include "window/vornok/pannello_qt.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "window/testo_qt.h"
#include "window/vornok/forma.h"

namespace morvella {

namespace {

constexpr QColor Navy(0, 0, 128);
constexpr QColor BluHelp(0, 0, 192);
constexpr Vista Titolo = "Morvella";

// A control without a handler, whose clicks do not reach its parent either.
template <class Controllo>
class Muto : public Controllo {
  public:
    using Controllo::Controllo;

  protected:
    void mousePressEvent(QMouseEvent* evento) override { evento->accept(); }
    void mouseReleaseEvent(QMouseEvent* evento) override { evento->accept(); }
};

void Sfondo(QWidget* controllo, const QColor& colore) {
    QPalette tavolozza = controllo->palette();
    tavolozza.setColor(QPalette::Window, colore);
    controllo->setPalette(tavolozza);
    controllo->setAutoFillBackground(true);
}

// The text's font, reduced if the machine only has a wider one than the design's: a centred line
// that is too wide would lose both ends.
QFont CarattereCheCabe() {
    QFont carattere = CarattereHelp();
    const auto cabe = [&](Vista riga) {
        return QFontMetricsF(carattere).horizontalAdvance(Mostra(riga)) <= Posto("Picture2").width();
    };
    while (carattere.pixelSize() > 8 && !std::all_of(TestoHelp.begin(), TestoHelp.end(), cabe))
        carattere.setPixelSize(carattere.pixelSize() - 1);
    return carattere;
}

QLabel* FaiTitolo(QWidget* genitore, const QString& nome, const QColor& colore) {
    auto* etichetta = new Muto<QLabel>(Mostra(Titolo), genitore);
    Metti(etichetta, nome);
    etichetta->setFont(CarattereTitolo());
    etichetta->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    QPalette tavolozza = etichetta->palette();
    tavolozza.setColor(QPalette::WindowText, colore);
    etichetta->setPalette(tavolozza);
    Adatta(*etichetta);
    return etichetta;
}

} // namespace

// --------------------------------------------------------------------------------- the text

TestoRotolato::TestoRotolato(QWidget* genitore, const Pannello& p)
    : Figura(genitore, ":/finestra/Picture2.jpg", false), p_(p) {
    setFont(CarattereCheCabe());
    Sfondo(this, BluHelp);
}

QPointF TestoRotolato::Punto(int riga) const {
    const QFontMetricsF misure(font());
    const QString testo = Mostra(p_.Stampate[static_cast<std::size_t>(riga)]);
    return {Centrato(width(), misure.horizontalAdvance(testo)), riga * misure.height()};
}

void TestoRotolato::paintEvent(QPaintEvent* evento) {
    Figura::paintEvent(evento);
    QPainter penna(this);
    penna.setFont(font());
    penna.setPen(Qt::white);
    const QFontMetricsF misure(font());
    const int righe = static_cast<int>(p_.Stampate.size());
    const int prima = std::clamp(static_cast<int>(evento->rect().top() / misure.height()) - 1, 0, righe);
    const int dopo = std::clamp(static_cast<int>(evento->rect().bottom() / misure.height()) + 2, 0, righe);
    for (int i = prima; i < dopo; ++i)
        penna.drawText(Punto(i) + QPointF(0, misure.ascent()),
                       Mostra(p_.Stampate[static_cast<std::size_t>(i)]));
}

// --------------------------------------------------------------------------------- the panel

PannelloHelp::PannelloHelp(QWidget* genitore, const Pannello& p) : QWidget(genitore), p_(p) {
    Metti(this, "Frame1");
    Sfondo(this, Navy);
    setAccessibleName("Help");

    FaiTitolo(this, "Label1(0)", QColor(0, 0, 255)); // the shadow, behind the heading
    FaiTitolo(this, "Label1(1)", QColor(255, 255, 0));

    Picture1_ = new Figura(this, ":/finestra/Picture1.png", false);
    Metti(Picture1_, "Picture1");
    Picture1_->setFont(CarattereForma());

    auto* riga = new Muto<QLabel>("Label2", Picture1_); // sic; too low for its caption to show
    Metti(riga, "Label4");

    Picture3_ = new Muto<QWidget>(Picture1_);
    Metti(Picture3_, "Picture3");
    Sfondo(Picture3_, BluHelp);
    Picture2_ = new TestoRotolato(Picture3_, p_);
    Metti(Picture2_, "Picture2");
    Picture2_->setCursor(Qt::ArrowCursor);

    QString testo;
    for (const Vista linea : TestoHelp) testo += Mostra(Trim(linea)) + '\n';
    Picture2_->setAccessibleName("Testo dell'help");
    Picture2_->setAccessibleDescription(testo.simplified());

    connect(Picture1_, &Figura::Cliccata, this, &PannelloHelp::Picture1Cliccata);
    connect(Picture2_, &Figura::Cliccata, this, &PannelloHelp::Picture2Cliccata);
    hide();
}

Lungo PannelloHelp::AltezzaA() const { return QFontMetrics(Picture1_->font()).height(); }

void PannelloHelp::Aggiorna() {
    constexpr int Pixel = static_cast<int>(TwipsPerPixel);
    const QRect posto = Posto("Picture2");
    // Rounded down to whole pixels, also below 0.
    const int sopra = static_cast<int>(p_.Picture2Top >= 0 ? p_.Picture2Top / Pixel
                                                           : -((-p_.Picture2Top + Pixel - 1) / Pixel));
    Picture2_->setGeometry(posto.left(), sopra, posto.width(), static_cast<int>(p_.Picture2Height) / Pixel);
    Picture2_->setVisible(p_.Picture2Visible);
    if (p_.Frame1Visible && !isVisible()) {
        raise();
        show();
    } else if (!p_.Frame1Visible && isVisible()) {
        hide();
    }
}

void PannelloHelp::mouseReleaseEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton && rect().contains(evento->pos())) emit Frame1Cliccata();
}

} // namespace morvella

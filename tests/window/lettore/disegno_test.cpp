// SPDX-License-Identifier: MIT
//
// Lines drawn into an image and checked pixel by pixel; colours by their contrast.
#include "window/lettore/banco.h"

#include <cmath>

#include <QImage>
#include <QPainter>

#include "window/lettore/disegno.h"

namespace morvella::lettore {

namespace {

using namespace provefinestra;

constexpr Lungo ColonnaConnettore = 14;

// An image of lines, and the place of their cells.
struct Quadro {
    QImage Immagine;
    int Larga, Alta; // of a cell, in pixels

    bool Inchiostro(int x, int y) const { return Immagine.pixelColor(x, y).lightnessF() < 0.6F; }
    // Whether a column of pixels of a cell is drawn from one row to before another.
    bool Pieno(Lungo cella, int dx, int da, int a) const {
        for (int y = da; y < a; ++y)
            if (!Inchiostro(static_cast<int>(cella) * Larga + dx, y)) return false;
        return true;
    }
    // How many vertical strokes cross a cell.
    int Colonne(Lungo cella, int da, int a) const {
        int quante = 0;
        bool prima = false;
        for (int dx = 0; dx < Larga; ++dx) {
            const bool qui = Pieno(cella, dx, da, a);
            quante += qui && !prima;
            prima = qui;
        }
        return quante;
    }
    int Traversi(Lungo da, Lungo a, int y1, int y2) const {
        int quanti = 0;
        bool prima = false;
        for (int y = y1; y < y2; ++y) {
            bool qui = true;
            for (int x = static_cast<int>(da) * Larga; x < static_cast<int>(a) * Larga && qui; ++x)
                qui = Inchiostro(x, y);
            quanti += qui && !prima;
            prima = qui;
        }
        return quanti;
    }
};

Quadro Disegna(const QList<QByteArray>& righe, qreal punti, qreal scala) {
    QFont font("monospace");
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(punti);
    const Griglia griglia(font, scala);
    Quadro q;
    q.Larga = static_cast<int>(std::lround(griglia.Larga() * scala));
    q.Alta = static_cast<int>(std::lround(griglia.Alta() * scala));
    q.Immagine = QImage(40 * q.Larga, static_cast<int>(righe.size()) * q.Alta, QImage::Format_RGB32);
    q.Immagine.setDevicePixelRatio(scala);
    q.Immagine.fill(Qt::white);
    QPainter penna(&q.Immagine);
    std::vector<Porzione> fette;
    for (int i = 0; i < righe.size(); ++i) {
        const Vista riga(righe[i].data(), static_cast<std::size_t>(righe[i].size()));
        TagliaRiga(riga, fette);
        griglia.Riga(penna, 0, i * griglia.Alta(), riga, fette, 0, 40, ColoriDiStampa());
    }
    return q;
}

QPalette Tavolozza(const QColor& fondo, const QColor& testo, const QColor& scelto, const QColor& suScelto) {
    QPalette t;
    t.setColor(QPalette::Base, fondo);
    t.setColor(QPalette::Text, testo);
    t.setColor(QPalette::Highlight, scelto);
    t.setColor(QPalette::HighlightedText, suScelto);
    return t;
}

// How a colour looks with protanopia, deuteranopia and tritanopia.
using Matrice = std::array<std::array<double, 3>, 3>;
constexpr Matrice Cecita[] = {
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}},
};

double Distanza(const QColor& a, const QColor& b, const Matrice& come) {
    const auto lineare = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    const auto visto = [&](const QColor& c, std::size_t i) {
        const double rgb[] = {lineare(c.redF()), lineare(c.greenF()), lineare(c.blueF())};
        const double v =
            std::clamp(come[i][0] * rgb[0] + come[i][1] * rgb[1] + come[i][2] * rgb[2], 0.0, 1.0);
        return 255 * (v <= 0.0031308 ? 12.92 * v : 1.055 * std::pow(v, 1 / 2.4) - 0.055);
    };
    double somma = 0;
    for (std::size_t i = 0; i < 3; ++i) somma += std::pow(visto(a, i) - visto(b, i), 2);
    return std::sqrt(somma);
}

} // namespace

class ProvaDisegno : public QObject {
    Q_OBJECT

  private slots:
    void ContrastoNoto();
    void Contrasti_data();
    void Contrasti();
    void SenzaInterruzioni_data();
    void SenzaInterruzioni();
    void BarraECarattere();
    void CelleAlPosto();
    void SoloLeColonneChieste();
    void CarattereCheManca();
};

void ProvaDisegno::ContrastoNoto() {
    QCOMPARE(Contrasto(Qt::black, Qt::white), 21.0);
    QCOMPARE(Contrasto(Qt::white, Qt::black), 21.0);
    QCOMPARE(Contrasto(Qt::red, Qt::red), 1.0);
    // 0x777777 on white is the well-known grey that just fails, 0x767676 the one that passes.
    QVERIFY(Contrasto(QColor(0x77, 0x77, 0x77), Qt::white) < 4.5);
    QVERIFY(Contrasto(QColor(0x76, 0x76, 0x76), Qt::white) > 4.5);
}

void ProvaDisegno::Contrasti_data() {
    QTest::addColumn<QPalette>("tavolozza");
    const QColor blu(48, 140, 198); // of Qt's own style; the contrast of white on it is 3.7
    QTest::newRow("chiara") << Tavolozza(Qt::white, Qt::black, blu, Qt::white);
    QTest::newRow("scura") << Tavolozza(QColor(0x23, 0x23, 0x23), Qt::white, blu, Qt::white);
    QTest::newRow("nera") << Tavolozza(Qt::black, QColor(0xDD, 0xDD, 0xDD), QColor(0x40, 0x40, 0x80),
                                       Qt::white);
    QTest::newRow("crema") << Tavolozza(QColor(0xFD, 0xF6, 0xE3), QColor(0x58, 0x6E, 0x75),
                                        QColor(0xEE, 0xE8, 0xD5), QColor(0x93, 0xA1, 0xA1));
    QTest::newRow("notte") << Tavolozza(QColor(0x00, 0x2B, 0x36), QColor(0x83, 0x94, 0x96),
                                        QColor(0x07, 0x36, 0x42), QColor(0x58, 0x6E, 0x75));
    QTest::newRow("grigia") << Tavolozza(QColor(0x77, 0x77, 0x77), Qt::white, QColor(0x77, 0x77, 0x77),
                                         QColor(0x77, 0x77, 0x78));
    QTest::newRow("nessuna differenza") << Tavolozza(Qt::white, Qt::white, Qt::white, Qt::white);
}

void ProvaDisegno::Contrasti() {
    QFETCH(QPalette, tavolozza);
    const Colori c = ColoriDi(tavolozza);
    for (const QColor& testo : {c.Testo, c.Numero, c.Condizione, c.Ciclo, c.Riquadro, c.Aperta})
        QVERIFY2(Contrasto(testo, c.Fondo) >= 4.5, qPrintable(testo.name() + " " + c.Fondo.name()));
    QVERIFY(Contrasto(c.Errore, c.ErroreFondo) >= 4.5);
    QVERIFY(Contrasto(c.Scelto, c.SceltoFondo) >= 4.5);
    QVERIFY(Contrasto(c.Trovato, c.TrovatoFondo) >= 4.5);
    const Colori carta = ColoriDiStampa();
    QVERIFY(Contrasto(carta.Errore, carta.ErroreFondo) >= 4.5);
    if (tavolozza.color(QPalette::Base) == QColor(0x77, 0x77, 0x77)) return; // only black is readable there
    // Dimmer than the text wherever the contrast allows it.
    if (Contrasto(c.Testo, c.Fondo) > 6)
        QVERIFY(Contrasto(c.Numero, c.Fondo) < Contrasto(c.Testo, c.Fondo) - 0.5);
    for (const Matrice& cecita : Cecita) QVERIFY(Distanza(c.Condizione, c.Ciclo, cecita) > 60);
}

void ProvaDisegno::SenzaInterruzioni_data() {
    QTest::addColumn<qreal>("punti");
    QTest::addColumn<qreal>("scala");
    for (const qreal punti : {5.0, 9.0, 10.0, 11.0, 14.5, 40.0})
        for (const qreal scala : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0})
            QTest::addRow("%g punti a %g", punti, scala) << punti << scala;
}

void ProvaDisegno::SenzaInterruzioni() {
    QFETCH(qreal, punti);
    QFETCH(qreal, scala);
    const Quadro uno =
        Disegna({G("000001     ···┌─>If a Then"), G("000002     ···│··x"), G("000003     ···├─>Else"),
                 G("000004     ···│··"), G("000005     ···└─>End If")},
                punti, scala);
    const int h = uno.Alta;
    // Unbroken from the middle of the first line to the middle of the last, in the same column.
    QCOMPARE(uno.Colonne(ColonnaConnettore, h / 2, 4 * h + h / 2), 1);
    QCOMPARE(uno.Colonne(ColonnaConnettore, 0, h), 0);         // nothing above the corner
    QCOMPARE(uno.Colonne(ColonnaConnettore, 4 * h, 5 * h), 0); // nor below the lower one
    QCOMPARE(uno.Colonne(ColonnaConnettore + 1, h, 2 * h), 0);
    for (const int riga : {0, 2, 4}) // and across to the arrow
        QCOMPARE(uno.Traversi(ColonnaConnettore + 1, ColonnaConnettore + 2, riga * h, (riga + 1) * h), 1);

    const Quadro due = Disegna({G("000001     ···╔═>For i"), G("000002     ···║··x"), G("000003     ···║··"),
                                G("000004     ···╚═>Next")},
                               punti, scala);
    QCOMPARE(due.Alta, h);
    QCOMPARE(due.Colonne(ColonnaConnettore, h, 3 * h), 2);
    for (const int riga : {0, 3})
        QCOMPARE(due.Traversi(ColonnaConnettore + 1, ColonnaConnettore + 2, riga * h, (riga + 1) * h), 2);
    // Each of the two strokes reaches its corner, the outer the outer one, the inner the inner one.
    QCOMPARE(due.Colonne(ColonnaConnettore, h / 2 + h / 7 + 1, 3 * h + h / 2 - h / 7 - 1), 2);
}

void ProvaDisegno::BarraECarattere() {
    const Quadro q = Disegna({G("000007     <<═════════Exit For")}, 10, 1);
    QCOMPARE(q.Traversi(13, 22, 0, q.Alta), 2); // nine strokes without a gap
    int inchiostro = 0;
    for (int x = 22 * q.Larga; x < 30 * q.Larga; ++x)
        for (int y = 0; y < q.Alta; ++y) inchiostro += q.Inchiostro(x, y);
    QVERIFY(inchiostro > 40); // "Exit For"
}

// A letter is in its own cell whatever comes before it.
void ProvaDisegno::CelleAlPosto() {
    const auto cella = [](const Quadro& q, int quale) {
        return q.Immagine.copy(quale * q.Larga, 0, q.Larga, q.Alta);
    };
    for (const qreal scala : {1.0, 1.5, 2.0}) {
        const Quadro a = Disegna({G("000001     ···x = Wi")}, 10, scala);
        const Quadro b = Disegna({G("000001     ···││││W")}, 10, scala);
        QCOMPARE(cella(a, 18), cella(b, 18));
        const Quadro tab = Disegna({QByteArray("\tW")}, 10, scala);
        const Quadro blank = Disegna({QByteArray("        W")}, 10, scala);
        QCOMPARE(tab.Immagine, blank.Immagine);
    }
}

void ProvaDisegno::SoloLeColonneChieste() {
    QFont font("monospace");
    const Griglia griglia(font, 1);
    QImage immagine(static_cast<int>(20 * griglia.Larga()), static_cast<int>(griglia.Alta()),
                    QImage::Format_RGB32);
    immagine.fill(Qt::white);
    QPainter penna(&immagine);
    const Vista riga = "WWWWWWWWWWWWWWWWWWWW";
    std::vector<Porzione> fette;
    TagliaRiga(riga, fette);
    griglia.Riga(penna, 0, 0, riga, fette, 5, 10, ColoriDiStampa(), {{7, 8, Qt::black, Qt::red}});
    penna.end();
    const auto vuota = [&](int cella) {
        const int larga = static_cast<int>(griglia.Larga());
        const QImage q = immagine.copy(cella * larga + 1, 0, larga - 2, immagine.height());
        for (int x = 0; x < q.width(); ++x)
            for (int y = 0; y < q.height(); ++y)
                if (q.pixelColor(x, y) != QColor(Qt::white)) return false;
        return true;
    };
    for (int i = 0; i < 20; ++i) QCOMPARE(vuota(i), i < 5 || i >= 10);
    const int larga = static_cast<int>(griglia.Larga());
    QCOMPARE(immagine.pixelColor(7 * larga, 0), QColor(Qt::red));
    QCOMPARE(immagine.pixelColor(8 * larga, 0), QColor(Qt::white));
}

// The picture of a control character that the font lacks is taken from another font and stays in
// its cell.
void ProvaDisegno::CarattereCheManca() {
    const Quadro q = Disegna({QByteArray("\x0F*\x1B*", 4)}, 12, 2);
    const Quadro senza = Disegna({QByteArray(" * *", 4)}, 12, 2);
    QCOMPARE(q.Immagine.copy(q.Larga, 0, q.Larga, q.Alta), senza.Immagine.copy(q.Larga, 0, q.Larga, q.Alta));
    QVERIFY(q.Immagine.copy(0, 0, q.Larga, q.Alta) != senza.Immagine.copy(0, 0, q.Larga, q.Alta));
}

} // namespace morvella::lettore

QTEST_MAIN(morvella::lettore::ProvaDisegno)
#include "disegno_test.moc"

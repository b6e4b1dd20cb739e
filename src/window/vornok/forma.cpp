// SPDX-License-Identifier: MIT
#include "window/vornok/forma.h"

#include <QWidget>
#include <algorithm>
#include <iterator>

#include "window/vornok/pannello.h"

namespace morvella {

namespace {

struct Misure {
    const char* Nome;
    int Left, Top, Width, Height;
};

// clang-format off
constexpr Misure Tabella[] = {
    {"Frame1",          30,    0, 11205, 7515},
    {"Picture1",       780, 1470,  9675, 4890},
    {"Picture3",      1860,  570,  6045, 3255},
    {"Picture2",       255,   90,  5685, 9255},
    {"Label4",         945, 4830,  1335,   30},
    {"Label1(1)",     2640,  180,  6045,  855},
    {"Label1(0)",     2730,  240,  6045,  855},
    {"SSTab1",        1770,  150,  8745, 6345},
    {"Drive1",         990,  510,  3240,  315},
    {"Dir1",           960,  870,  3240, 4815},
    {"File1Leggi",    4410,  660,  3285, 1260},
    {"File1",         4410, 2100,  3285, 3570},
    {"ProgressBar1",  4440, 1920,  3255,  195},
    {"Label6",        4440,  390,  3225,  255},
    {"Label2",         150, 5940,  8520,  300},
    {"TogliCommenti",  300,  630,  2175,  315},
    {"Check1",         300, 1230,  2325,  315},
    {"Label5",        2760, 1290,  5595,  255},
    {"Text1",          270, 1650,  8115, 2865},
    {"Check2",         330, 4890,  5355,  405},
    {"Command2",       690, 5520,  1815,  405},
    {"Image1",        5790, 4620,  1170, 1545},
    {"Label7",        7110, 5310,  1275,  315},
    {"Picture4",        30,  120,  1635, 4845},
    {"Progress",       270, 7200, 10755,  165},
    {"Command1",      6300, 2670,  1425,  525},
    {"Frame2",        2040, 3990,  2925,  585},
    {"Label3",         240, 6540, 10455,  705},
};
// clang-format on

QFont Carattere(const QStringList& famiglie, int pixel, bool grassetto) {
    QFont carattere;
    carattere.setFamilies(famiglie);
    carattere.setPixelSize(pixel);
    carattere.setBold(grassetto);
    return carattere;
}

// MS Sans Serif is a bitmap font; Microsoft Sans Serif is the same face, scalable.
const QStringList& SansSerif() {
    static const QStringList famiglie{"Microsoft Sans Serif", "MS Sans Serif", "Arial",
                                      "Liberation Sans",      "DejaVu Sans",   "Noto Sans"};
    return famiglie;
}

} // namespace

QRect Posto(const QString& nome) {
    const auto* dove = std::find_if(std::begin(Tabella), std::end(Tabella),
                                    [&](const Misure& m) { return nome == QLatin1String(m.Nome); });
    if (dove == std::end(Tabella)) return {};
    constexpr int Pixel = static_cast<int>(TwipsPerPixel);
    return {dove->Left / Pixel, dove->Top / Pixel, dove->Width / Pixel, dove->Height / Pixel};
}

void Metti(QWidget* controllo, const QString& nome, int sopra) {
    controllo->setObjectName(nome);
    controllo->setGeometry(Posto(nome).translated(0, -sopra));
}

QString ConMnemonico(QString didascalia, QChar lettera) {
    if (const qsizetype dove = didascalia.indexOf(lettera); dove >= 0) didascalia.insert(dove, '&');
    return didascalia;
}

// 72 points and 96 pixels to the inch: 8.25 points are 11 pixels.
QFont CarattereForma() { return Carattere(SansSerif(), 11, false); }
QFont CarattereStato() { return Carattere(SansSerif(), 16, true); }
QFont CarattereHelp() { return Carattere({"Arial", "Liberation Sans", "Arimo", "DejaVu Sans"}, 13, true); }
QFont CarattereTesto() {
    QFont carattere = Carattere({"Courier New", "Liberation Mono", "DejaVu Sans Mono"}, 12, false);
    carattere.setStyleHint(QFont::Monospace);
    return carattere;
}
QFont CarattereTitolo() {
    return Carattere({"Comic Sans MS", "Comic Neue", "Comic Relief", "Liberation Sans", "DejaVu Sans"}, 48,
                     true);
}

} // namespace morvella

// SPDX-License-Identifier: MIT
// window/vornok/forma.h
//
// The layout and the fonts of the form. The table's measures are in twips within the parent
// control. A machine that lacks one of the design's fonts gets a similar one. Font sizes are in
// pixels, so that texts scale with the form and not on their own.
#pragma once

#include <QFont>
#include <QRect>
#include <QString>

class QWidget;

namespace morvella {

inline constexpr int LarghezzaForma = 11205;
inline constexpr int AltezzaForma = 7500;
/// The height of the tabs above the two cards.
inline constexpr int AltezzaLinguette = 360;

/// The place of a control by its name, in pixels; empty for an unknown name.
QRect Posto(const QString& nome);
/// Gives a control its name and its place, moved up by `sopra` pixels.
void Metti(QWidget* controllo, const QString& nome, int sopra = 0);

/// Puts a mnemonic at the first `lettera` of a caption, if it has one.
QString ConMnemonico(QString didascalia, QChar lettera);

QFont CarattereForma();  // MS Sans Serif 8.25
QFont CarattereStato();  // MS Sans Serif 12 bold
QFont CarattereHelp();   // Arial 9.75 bold
QFont CarattereTesto();  // fixed width, for the header's frame of stars
QFont CarattereTitolo(); // Comic Sans MS 36 bold

} // namespace morvella

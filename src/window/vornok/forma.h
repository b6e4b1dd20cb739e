// SPDX-License-Identifier: MIT
// window/vornok/forma.h
//
// Where the controls of the form stand and what they are drawn with. Measures are in twips
// inside the control around; fonts are of the form's time, with what comes close on a machine
// that does not have them, and are measured in pixels, so that they grow with the form and not
// by themselves.
#pragma once

#include <QFont>
#include <QRect>
#include <QString>

class QWidget;

namespace morvella {

inline constexpr int LarghezzaForma = 11205;
inline constexpr int AltezzaForma = 7500;
/// The tab control's head, below which its two cards stand.
inline constexpr int AltezzaLinguette = 360;

/// The place of a control by its name, in pixels; empty for a name that is not in the table.
QRect Posto(const QString& nome);
/// Gives a control its name and its place, `sopra` pixels higher than the table has it.
void Metti(QWidget* controllo, const QString& nome, int sopra = 0);

/// A caption with a mnemonic at the first `lettera` in it, and as it is where there is none.
QString ConMnemonico(QString didascalia, QChar lettera);

QFont CarattereForma();  // MS Sans Serif 8.25
QFont CarattereStato();  // MS Sans Serif 12 bold
QFont CarattereHelp();   // Arial 9.75 bold
QFont CarattereTesto();  // of the header's text, whose stars stand one below the other
QFont CarattereTitolo(); // Comic Sans MS 36 bold

} // namespace morvella

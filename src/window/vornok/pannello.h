// SPDX-License-Identifier: MIT
// window/vornok/pannello.h
//
// The help panel: a frame over the whole window in which a fixed text rolls upwards through a
// small window of its own. Here is what it does, without a widget; what it looks like is the
// form's business. Tops and heights are in twips.
//
// What would surprise: the caption of MnuHelp is the panel's state. And the height of the text
// is asked in whatever scale Picture1 has: Timer1_Timer turns that to pixels, so that every
// opening but the first makes Picture2 fifteen times lower. It is meant.
#pragma once

#include <array>
#include <vector>

#include "text/primitive.h"

namespace morvella {

/// Twips to a pixel, on a screen of 96 dots to the inch.
inline constexpr Lungo TwipsPerPixel = 15;

/// The controls of the panel as the logic reads and writes them.
struct Pannello {
    Testo MnuHelp = "Help"; // the caption: "Togli Help" while the panel is open
    bool Frame1Visible = false;
    bool Timer1Enabled = false;
    Testo Timer1Tag = "1";        // the speed
    bool Picture1InPixel = false; // ScaleMode 3; twips at the start
    bool Picture2Visible = true;
    Lungo Picture2Top = 90;
    Lungo Picture2Height = 9255;
    std::vector<Vista> Stampate; // on Picture2, from its top down
};

/// Opens or closes the panel, by the caption. `altezzaPixel` is the height of a line of
/// Picture1's font in pixels.
void MnuHelp_Click(Pannello& p, Lungo altezzaPixel);
/// A click on the frame, on its background or on the text closes it; one on Picture3, beside the
/// text, does nothing, since there is no such event.
void Frame1_Click(Pannello& p);
void Picture1_Click(Pannello& p);
void Picture2_Click(Pannello& p);

/// Fills Picture2 anew and starts the scroll from the top.
void ScriviHelp(Pannello& p, Lungo altezzaPixel);

/// One step of the scroll, every 50 milliseconds: ten twips up at speed 1. -7900 is the end, and
/// then it starts again from the top.
void Timer1_Timer(Pannello& p);

/// The text, line by line: Windows-1252.
extern const std::array<Vista, 44> TestoHelp;

/// `picture.CurrentX` of a centred line, in the scale of the widths: blanks count.
constexpr double Centrato(double larghezzaPicture, double larghezzaTesto) {
    return (larghezzaPicture - larghezzaTesto) / 2;
}

} // namespace morvella

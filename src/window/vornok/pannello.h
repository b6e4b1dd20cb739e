// SPDX-License-Identifier: MIT
// window/vornok/pannello.h
//
// The help panel: a frame over the whole window, in which a fixed text rolls up through a small
// window of its own. This is its logic, without widgets; pannello_qt.h shows it. Tops and heights
// are in twips.
//
// Two surprises, both meant. The caption of MnuHelp is the panel's state. And the height of the
// text is asked in Picture1's current scale, which Timer1_Timer sets to pixels, so that each
// opening after the first tick makes Picture2 fifteen times lower.
#pragma once

#include <array>
#include <vector>

#include "text/primitive.h"

namespace morvella {

/// Twips to a pixel, at 96 dots to the inch.
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
    std::vector<Vista> Stampate; // the lines on Picture2, from its top
};

/// Opens the panel if the caption is "Help", else closes it. `altezzaPixel` is the line height of
/// Picture1's font in pixels.
void MnuHelp_Click(Pannello& p, Lungo altezzaPixel);
/// A click on the frame, on its background or on the text closes the panel. Picture3, next to the
/// text, has no handler.
void Frame1_Click(Pannello& p);
void Picture1_Click(Pannello& p);
void Picture2_Click(Pannello& p);

/// Refills Picture2 and starts the scroll from the top. `altezzaPixel` as above.
void ScriviHelp(Pannello& p, Lungo altezzaPixel);

/// One step of the scroll, every 50 milliseconds: ten twips up at speed 1. After -7900 it starts
/// again from the top.
void Timer1_Timer(Pannello& p);

/// The lines of the text, in Windows-1252.
extern const std::array<Vista, 44> TestoHelp;

/// `picture.CurrentX` of a centred line, in the unit of the two widths.
constexpr double Centrato(double larghezzaPicture, double larghezzaTesto) {
    return (larghezzaPicture - larghezzaTesto) / 2;
}

} // namespace morvella

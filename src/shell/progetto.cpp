// SPDX-License-Identifier: MIT
#include "shell/progetto.h"

namespace morvella {

std::optional<Vista> VoceDiProgetto(Vista linea) {
    // A form's name begins at byte 6, whatever byte 5 is: "Form1=x" adds "=x".
    if (Mid(linea, 1, 4) == "Form") return Trim(Mid(linea, 6, Len(linea)));
    // Without a ";" the search returns 0, and the whole line becomes the row.
    if (Mid(linea, 1, 6) == "Module" || Mid(linea, 1, 5) == "Class")
        return Trim(Mid(linea, InStr(1, linea, ";") + 1, Len(linea)));
    return std::nullopt;
}

void LeggiProgetto(Stato& s) {
    s.File1.Clear();
    s.Canale.OpenInput(1, s.Dir1Path + "\\" + Testo(s.File1Leggi.Scelto()));
    while (!s.Canale.Eof(1))
        if (const auto voce = VoceDiProgetto(s.Canale.LineInput(1))) s.File1.AddItem(*voce);
    s.Canale.Close(1);
}

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// The indent engine: one line at a time, with the length of Margine for its only memory.
#include "rewriter/rewriter.h"
#include "shell/motore.h"

namespace morvella {

namespace {

void RigaVuota(Stato& s) { Scrivi(s); }

// Margine = Mid(Margine, 1, m - tolti) & Space(aggiunti). Only blanks stand in it here.
void CambiaMargine(Stato& s, Lungo tolti, Lungo aggiunti) {
    s.Margine.resize(static_cast<std::size_t>(Len(s.Margine) - tolti + aggiunti), ' ');
}

// -6 +5: one blank less.
void PassoIndietro(Stato& s) {
    if (Len(s.Margine) >= 6)
        CambiaMargine(s, 6, 5);
    else
        s.Margine.assign(5, ' ');
}

// +5, then -5 +6: 6 in all.
void PassoApri(Stato& s) {
    CambiaMargine(s, 0, 5);
    RigaVuota(s);
    ScriviAlMargine(s);
    CambiaMargine(s, 5, 6);
}

void PassoMedio(Stato& s, bool rigaVuotaDavanti) {
    PassoIndietro(s);
    if (rigaVuotaDavanti) RigaVuota(s);
    ScriviAlMargine(s);
    CambiaMargine(s, 5, 6);
}

// -6 +5, then -6: 7 in all, against the 6 of PassoApri. So a closed block leaves the margin one blank
// narrower than before, with a floor of 6. The layout is this drift.
void PassoChiudi(Stato& s) {
    PassoIndietro(s);
    ScriviAlMargine(s);
    RigaVuota(s);
    if (Len(s.Margine) >= 6) CambiaMargine(s, 6, 0);
    if (Len(s.Margine) < 6) s.Margine.assign(6, ' ');
}

// End With differs twice, and both are meant: below 6 it steps back to 6 and not to 5, and a margin
// still below 6 after the line becomes 5, without the floor of 6.
void PassoChiudiWith(Stato& s) {
    if (Len(s.Margine) >= 6)
        CambiaMargine(s, 6, 5);
    else
        s.Margine.assign(6, ' ');
    ScriviAlMargine(s);
    RigaVuota(s);
    if (Len(s.Margine) >= 6) {
        CambiaMargine(s, 6, 0);
        if (Len(s.Margine) < 6) s.Margine.assign(6, ' ');
    } else {
        s.Margine.assign(5, ' ');
    }
}

// Five lines; `larghezza` is the width of the four of stars and blanks, with their "'".
void Riquadro(Stato& s, Lungo larghezza, Vista davantiAllaRiga) {
    const Testo prefisso = Space(Len(s.Margine) + Len(s.Numero));
    const Testo stelle(static_cast<std::size_t>(larghezza - 1), '*');
    const Testo vuoto = Space(larghezza - 3);
    Scrivi(s, prefisso, "'", stelle);
    Scrivi(s, prefisso, "'*", vuoto, "*");
    Scrivi(s, davantiAllaRiga, prefisso, s.Riga);
    Scrivi(s, prefisso, "'*", vuoto, "*");
    Scrivi(s, prefisso, "'", stelle);
}

// Only blanks are ever in this engine's margin, so the test never fires and an open block shows as
// a deep margin only. The listing has the same test, and there it does.
void ControllaMargine(Stato& s) {
    if (!Trim(s.Margine).empty()) Scrivi(s, Space(Len(s.Numero)), ErroreGenerico);
    s.Margine = Space(Len(s.Margine));
}

void ScriviAltra(Stato& s) {
    if (s.Riga.empty()) return;            // the source's own blank lines vanish
    if (Mid(s.Riga, 1, 2) == "'*") return; // the banners of an earlier run, and any like them
    if (s.TogliCommenti == 1 && Mid(s.Riga, 1, 1) == "'") return;
    ScriviAlMargine(s, "     ");
}

} // namespace

void RiscriviRiga(Stato& s, Classe classe) {
    AnnotaBlocco(s.StoriaBlocchi, classe);
    switch (classe) {
    case RigaType:
        Riquadro(s, 113, ""); // at whatever margin it meets
        break;
    case RigaSub:
    case RigaFunction:
        s.Margine.assign(5, ' ');
        Riquadro(s, 115, "");
        break;
    case RigaProperty:
        s.Margine.assign(3, ' ');
        Riquadro(s, 102, s.Numero); // only here the number field precedes the line
        break;
    case RigaIf:
    case RigaCondIf:
    case RigaFor:
    case RigaWith:
    case RigaSelect:
    case RigaDo: PassoApri(s); break;
    case RigaElse:
    case RigaCondElse: PassoMedio(s, false); break;
    case RigaCase: PassoMedio(s, true); break;
    case RigaEndIf:
    case RigaCondEndIf:
    case RigaNext:
    case RigaEndSelect:
    case RigaLoop: PassoChiudi(s); break;
    case RigaEndWith: PassoChiudiWith(s); break;
    // The three ends leave three different margins; only End Property has no blank line after it.
    case RigaEndSub:
        ControllaMargine(s);
        ScriviAlMargine(s);
        RigaVuota(s);
        s.Margine.clear();
        break;
    case RigaEndFunction:
        ControllaMargine(s);
        ScriviAlMargine(s);
        RigaVuota(s);
        s.Margine.assign(5, ' ');
        break;
    case RigaEndProperty:
        ControllaMargine(s);
        ScriviAlMargine(s);
        s.Margine.assign(3, ' ');
        break;
    case RigaEnd:
    case RigaExitDo:
    case RigaExitFor:
    case RigaExitSub: ScriviAlMargine(s); break;
    case RigaAltra: ScriviAltra(s); break;
    }
}

} // namespace morvella

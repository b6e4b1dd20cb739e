// SPDX-License-Identifier: MIT
// scan/testa.h
//
// What comes before the code of a source file. The first pass counts the lines and collects
// the .Show calls; the head state then separates the head (control section, Attribute lines)
// from the code, in two variants that differ on purpose: the rewriter's copies the head raw
// and begins afresh with every file, the listing's drops it, and its state carries over from
// file to file. Neither is to be brought into line with the other.
//
// StatoTesta, between two lines:
//     rewriter  0   head, at its start
//               1   head, after a line "Attribute", each of which begins the count anew
//               5   head, after "attribute vb_exposed", indented or without the capital A
//     listing   0   head, at the start of a run
//             1-5   head: so many lines "Attribute"; the sixth, or "Option Explicit" after five, ends it
//     both      6   within one step only: the head ends here, with what is written at that place
//               7   the code: from the first line of a form, after the head, or from a line that begins
//                   "option" (the listing: in lower case only)
#pragma once

#include "shell/gestore.h"

namespace morvella {

/// Whether UCase of the last 4 bytes of FileSorgente is ".FRM".
bool SorgenteForm(const Stato& s);

/// The first pass over FileSorgente, on channel 1: adds its lines to TotaleRighe and fills
/// ElencoShow. Each statement runs under the engines' handler. The listing puts the name into
/// Label2 here, when the source is open and no line is read; the rewriter did so before.
void RaccogliShow(Stato& s, bool scriviLabel2 = false);

/// Takes the first entry off ElencoShow: up to 53 bytes it is padded with blanks to 54 and
/// closed with "*"; longer it is given as it is. False, and nothing taken, when no Chr(13) is
/// left. `voce` is overwritten.
bool VoceShow(ElencoShowFile& elenco, Testo& voce);

/// StatoTesta at the start of the rewriter's second pass: 7 for a form, else 0.
void IniziaTestaRiordina(Stato& s);
/// AvanzaTestaRiordina for any line.
bool AvanzaTestaRiordinaPiena(Stato& s, Vista linea, Vista trim);
/// One step of the head state for a line as read and the same trimmed, the rewriter's variant.
/// Writes head lines and the header text to channel 2. True when the line goes on to RiscriviRiga;
/// Riga is the trimmed line then.
inline bool AvanzaTestaRiordina(Stato& s, Vista linea, Vista trim) {
    // In the code only a line that may begin with "Attribute" needs a closer look.
    if (s.StatoTesta != 7 || (!trim.empty() && (trim.front() | 32) == 'a'))
        return AvanzaTestaRiordinaPiena(s, linea, trim);
    s.Riga = trim;
    return true;
}
inline bool AvanzaTestaRiordina(Stato& s, Vista linea) { return AvanzaTestaRiordina(s, linea, Trim(linea)); }

/// StatoTesta at the start of the listing's second pass: 7 for a form; any other file leaves
/// it as the last file left it.
void IniziaTestaStruttura(Stato& s);
/// The line after which the listing starts over, wherever it stands in the code.
inline constexpr Vista FineControlli = "Attribute VB_Exposed = False";
/// What the listing does with a line, in this order: the head of the listing is written, the
/// line is numbered, the listing starts over (at the end of a form's control section, and nothing
/// more is done with the line), the line goes on to ElencaRiga. Of a line of the head nothing is
/// written.
struct PassoTesta {
    bool Testa = false;
    bool Codice = false;
    bool Riparte = false;
    bool operator==(const PassoTesta&) const = default;
};
/// The part of AvanzaTestaStruttura in a file's head, StatoTesta below 7: moves StatoTesta and
/// ContaRighe on and returns whether the head of the listing is due.
bool AvanzaTestaStrutturaPiena(Stato& s);
/// One step of the head state, the listing's variant, for Riga as it stands.
inline PassoTesta AvanzaTestaStruttura(Stato& s) {
    if (s.StatoTesta == 7 && s.Riga.size() != FineControlli.size()) [[likely]]
        return {.Codice = true};
    PassoTesta passo;
    if (s.StatoTesta < 7) passo.Testa = AvanzaTestaStrutturaPiena(s);
    if (s.StatoTesta != 7) return passo;
    // The whole line, exactly: with "= True", or a comment after it, it is a line of code.
    passo.Riparte = s.Riga == FineControlli;
    passo.Codice = !passo.Riparte;
    return passo;
}

} // namespace morvella

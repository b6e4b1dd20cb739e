// SPDX-License-Identifier: MIT
#include "scan/testa.h"

#include "shell/motore.h"

namespace morvella {

bool SorgenteForm(const Stato& s) { return UCase(Right(s.FileSorgente, 4)) == ".FRM"; }

void RaccogliShow(Stato& s, bool scriviLabel2) {
    ApriSorgente(s);
    if (scriviLabel2) ScriviLabel2(s, s.FileSorgente);
    s.ElencoShow.Svuota();
    // Lines without ".Show" are skipped and counted in bulk.
    const auto fine = [&] {
        s.TotaleRighe += s.Canale.SaltaSenza(1, ".Show");
        return s.Canale.Eof(1);
    };
    while (!Istruzione(s, fine)) {
        ++s.TotaleRighe;
        s.RigaLetta = Trim(Istruzione(s, [&] { return s.Canale.LineInput(1); }));
        if (Mid(s.RigaLetta, 1, 1) == "'") continue;
        const Lungo trovato = InStr(1, s.RigaLetta, ".Show"); // the first hit only; .ShowHelp is one too
        if (trovato == 0) continue;
        s.ElencoShow.Voci += "*    ";
        s.ElencoShow.Voci += UCase(Mid(s.RigaLetta, 1, trovato - 1)); // whatever precedes it
        s.ElencoShow.Voci += '\r';
    }
    ChiudiSorgente(s);
}

bool VoceShow(ElencoShowFile& elenco, Testo& voce) {
    const Vista resto = elenco.Resto();
    const Lungo fine = InStr(1, resto, "\r");
    if (fine == 0) return false;
    voce = Mid(resto, 1, fine - 1);
    if (Len(voce) < 54) {
        voce.resize(54, ' ');
        voce += '*';
    }
    elenco.Presi += static_cast<std::size_t>(fine);
    return true;
}

void IniziaTestaRiordina(Stato& s) { s.StatoTesta = SorgenteForm(s) ? 7 : 0; }

bool AvanzaTestaRiordinaPiena(Stato& s, Vista linea, Vista trim) {
    // In the midst of the code too: a member attribute puts the scanner back into head state, up
    // to the next line that begins "option". Meant: the scanner never guesses.
    if (Mid(trim, 1, 9) == "Attribute") s.StatoTesta = 0;
    // A bare prefix: "Option1.Value = True" ends a head as well.
    if (s.StatoTesta < 7 && IniziaPer(trim, "option")) s.StatoTesta = 7;
    if (s.StatoTesta <= 5) {
        if (IniziaPer(trim, "attribute vb_exposed")) {
            if (IniziaPer(linea, "attribute")) Scrivi(s, linea); // an indented one is dropped
            s.StatoTesta = 5;
        } else {
            Scrivi(s, linea); // raw: indentation, blank lines and all
        }
        if (Mid(linea, 1, 9) == "Attribute") {
            ++s.StatoTesta;
            s.ContaRighe = 0;
        }
        if (s.StatoTesta == 6) {
            s.StatoTesta = 7;
            s.ContaRighe = 1;
            if (s.Check1 == 1 && !s.Text1.empty()) Scrivi(s, s.Text1);
        }
    }
    // The second test keeps the line that has just ended the head from being written twice. It
    // also drops a line "attribute vb..." of another case from the code: meant.
    if (s.StatoTesta != 7 || IniziaPer(linea, "attribute vb")) return false;
    s.Riga = trim;
    return true;
}

void IniziaTestaStruttura(Stato& s) {
    if (SorgenteForm(s)) s.StatoTesta = 7;
}

bool AvanzaTestaStrutturaPiena(Stato& s) {
    // Not folded: "Option Explicit" as the development environment writes it does not match.
    if (Mid(s.Riga, 1, 6) == "option") s.StatoTesta = 7;
    if (s.StatoTesta > 5) return false;
    if (Mid(s.Riga, 1, 9) == "Attribute") {
        ++s.StatoTesta;
        s.ContaRighe = 0;
    } else if (s.StatoTesta == 5 && Mid(s.Riga, 1, 15) == "Option Explicit") {
        s.StatoTesta = 6;
        s.ContaRighe = 1;
    } else if (s.StatoTesta == 1 && s.Option1_0) {
        s.StatoTesta = 6;
    }
    if (s.StatoTesta != 6) return false;
    s.StatoTesta = 7;
    s.ContaRighe = 1;
    return true;
}

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// The connector engine, with the balance test: one line at a time against Margine.
#include "listing/connettori.h"
#include "shell/gestore.h"

namespace morvella {

using namespace connettore;

namespace {

template <class... Pezzi>
void Scrivi(Stato& s, const Pezzi&... pezzi) {
    Istruzione(s, [&] { s.Canale.Print(2, pezzi...); });
}

[[gnu::always_inline]] inline void ScriviRiga(Stato& s) {
    Istruzione(s, [&] { s.Canale.PrintRiga(2, s.Riga, s.Numero, s.Margine); });
}

void Di(Stato& s, PassoMargine::Genere che, Lungo larghezza) {
    if (!s.Punto.MargineSeguito) return;
    s.Fronte.MargineMosso({che, s.Punto.Voce, s.Punto.Riga, s.ContaRighe, larghezza, s.Margine, s.Riga});
}

// Margine = Mid(Margine, 1, Len(Margine) - 3). Error 5 on a margin that has no 3 bytes: behind
// an End Sub a line that closes something ends the run here, and that is meant.
void Taglia(Stato& s) {
    if (Len(s.Margine) < 3) Istruzione(s, [&] { Mid(s.Margine, 1, Len(s.Margine) - 3); });
    s.Margine.resize(s.Margine.size() - 3, ' ');
}

void Pavimento(Stato& s) {
    if (Len(s.Margine) < 3) s.Margine.resize(3, ' ');
}

void Aggiungi(Stato& s, char a, char b, char c) {
    const char tre[] = {a, b, c};
    s.Margine.append(tre, 3);
}

// Taglia and Aggiungi, on a margin that has its 3 bytes.
void Ridisegna(Stato& s, char a, char b, char c) {
    char* colonna = s.Margine.data() + s.Margine.size() - 3;
    colonna[0] = a;
    colonna[1] = b;
    colonna[2] = c;
}

void ApriMargine(Stato& s, char a, char b, char c) {
    Aggiungi(s, a, b, '>');
    ScriviRiga(s);
    Ridisegna(s, c, ' ', ' ');
    Di(s, PassoMargine::Apre, Len(s.Margine));
}

// The last column comes out single whatever it was: an Else directly in a For leaves a single
// column for the rest of the loop.
void MedioMargine(Stato& s) {
    Taglia(s);
    Aggiungi(s, Innesto, Tratto, '>');
    ScriviRiga(s);
    Ridisegna(s, Colonna, ' ', ' ');
    Di(s, PassoMargine::Mezzo, Len(s.Margine));
}

// The floor comes last and forgives a surplus closing line without a trace.
void ChiudiMargine(Stato& s, char a, char b) {
    Taglia(s);
    Aggiungi(s, a, b, '>');
    ScriviRiga(s);
    Taglia(s);
    Di(s, PassoMargine::Chiude, Len(s.Margine));
    Pavimento(s);
}

// End With looks at the width before it cuts, ChiudiMargine after it has written. On an empty
// margin the one writes three blanks and the other is error 5; keep both.
void ChiudiWith(Stato& s) {
    if (Len(s.Margine) >= 3) {
        Taglia(s);
        Aggiungi(s, AngoloChiude, Tratto, '>');
    } else {
        s.Margine.assign(3, ' ');
    }
    ScriviRiga(s);
    Taglia(s);
    Di(s, PassoMargine::Chiude, Len(s.Margine));
    Pavimento(s);
}

// The box does not adapt: a long head runs out through its right side. The number field counts
// twice in the indentation.
void ScriviRiquadro(Stato& s) {
    static const Testo stelle(101, '*');
    static const Testo vuoto = Space(99);
    const Testo prefisso = Space(Len(s.Numero) + Len(s.Margine));
    Scrivi(s, prefisso, stelle);
    Scrivi(s, prefisso, "*", vuoto, "*");
    Scrivi(s, s.Numero, prefisso, "  ", s.Riga);
    Scrivi(s, prefisso, "*", vuoto, "*");
    Scrivi(s, prefisso, stelle);
}

// A head resets the margin and tests nothing: what was open before it is dropped in silence.
void ScriviTestaProcedura(Stato& s) {
    s.Margine.assign(3, ' ');
    ScriviRiquadro(s);
    Di(s, PassoMargine::Testa, Len(s.Margine));
}

// The one judgement on balance: anything but blanks in the margin at a procedure's end.
void ControllaChiusura(Stato& s) {
    if (Trim(s.Margine).empty()) return;
    Scrivi(s, Space(Len(s.Numero)), ErroreGenerico);
    Di(s, PassoMargine::Sbilanciata, Len(s.Margine));
}

// The margin keeps its width on the closing line, so an unbalanced procedure's end stands deep.
void ChiudiProcedura(Stato& s, Vista margineDopo) {
    ControllaChiusura(s);
    s.Margine.assign(s.Margine.size(), ' ');
    ScriviRiga(s);
    s.Margine = margineDopo;
    Di(s, PassoMargine::Fine, Len(s.Margine));
}

void ElencaAltra(Stato& s) {
    if (Mid(s.Riga, 1, 2) == "'*") { // the text goes, number and margin stay
        Scrivi(s, s.Numero, s.Margine);
        return;
    }
    if (s.TogliCommenti == 1 && Mid(s.Riga, 1, 1) == "'") return; // a gap in the numbers
    ScriviRiga(s);
}

} // namespace

Testo BarraUscita(Vista margine) {
    Testo barra = "<<";
    barra.append(margine.size(), DoppioTratto);
    if (Trim(barra) == "<<") barra.append(2, DoppioTratto);
    return barra;
}

bool VerificaBlocco(Stato& s, Vista codice, bool togli) {
    const Testo ultimo(Right(s.StoriaBlocchi, 2));
    if (ultimo != codice) return true;
    if (togli) s.StoriaBlocchi = ultimo; // all of the history, not one code of it: meant
    return false;
}

void ElencaRiga(Stato& s, Classe classe) {
    AnnotaBlocco(s.StoriaBlocchi, classe);
    switch (classe) {
    case RigaType: ScriviRiquadro(s); break; // at whatever margin it meets, which stays
    case RigaSub:
    case RigaFunction:
    case RigaProperty: ScriviTestaProcedura(s); break;
    case RigaIf:
    case RigaCondIf:
    case RigaWith:
    case RigaSelect: ApriMargine(s, AngoloApre, Tratto, Colonna); break;
    case RigaFor:
    case RigaDo: ApriMargine(s, DoppioApre, DoppioTratto, DoppiaColonna); break;
    case RigaElse:
        MedioMargine(s);
        Pavimento(s); // cannot fire: the middle step leaves 3 at the least
        break;
    case RigaCondElse:
    case RigaCase: MedioMargine(s); break;
    case RigaEndIf:
    case RigaCondEndIf:
    case RigaEndSelect: ChiudiMargine(s, AngoloChiude, Tratto); break;
    case RigaNext:
    case RigaLoop: ChiudiMargine(s, DoppioChiude, DoppioTratto); break;
    case RigaEndWith: ChiudiWith(s); break;
    // End Sub alone leaves an empty margin: lines up to the next head start further left, and
    // what closes a block there ends the run.
    case RigaEndSub: ChiudiProcedura(s, ""); break;
    case RigaEndFunction:
    case RigaEndProperty: ChiudiProcedura(s, "   "); break;
    case RigaEnd: ScriviRiga(s); break;
    case RigaExitDo:
    case RigaExitFor:
    case RigaExitSub: Scrivi(s, s.Numero, BarraUscita(s.Margine), s.Riga); break;
    case RigaAltra: ElencaAltra(s); break;
    }
}

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// The connector engine, with the balance test: one line at a time against Margine.
#include "listing/connettori.h"
#include "listing/listing.h"
#include "shell/motore.h"

namespace morvella {

namespace {

void Di(Stato& s, PassoMargine::Genere che) {
    if (!s.Punto.MargineSeguito) return;
    s.Fronte.MargineMosso({che, s.Punto.Voce, s.Punto.Riga, s.ContaRighe, Len(s.Margine), s.Margine, s.Riga});
}

// One row of the table, step by step. A margin too short to be cut asks Mid for a negative length,
// error 5: after an End Sub a line that closes something ends the run, and that is meant.
void Disegna(Stato& s, const Disegno& disegno) {
    const Lungo resta = Len(s.Margine) - disegno.Taglia;
    if (resta < 0) return Istruzione(s, [&] { Mid(s.Margine, 1, resta); });
    s.Margine.Fino(s.Margine.data() + resta);
    ScriviAlMargine(s, disegno.Qui);
    s.Margine.Fino(Posa(s.Margine.Coda(disegno.Dopo.Quanti), disegno.Dopo));
    if (!disegno.Piano()) Di(s, disegno.Passo()); // before the floor: the width is the cut one
    if (s.Margine.size() < disegno.Minimo) s.Margine.resize(disegno.Minimo, ' ');
}

// End With looks at the width before it cuts, the others after they have written. On an empty
// margin End With writes three blanks; the others raise error 5. Keep both.
void ChiudiWith(Stato& s) {
    if (Len(s.Margine) >= 3) return Disegna(s, Disegni[RigaEndWith]);
    s.Margine.assign(3, ' ');
    ScriviAlMargine(s);
    s.Margine.clear();
    Di(s, PassoMargine::Chiude);
    s.Margine.assign(3, ' ');
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
    Di(s, PassoMargine::Testa);
}

// The one judgement on balance: anything but blanks in the margin at a procedure's end. The
// margin is blanked and keeps its width, so an unbalanced procedure's end stands deep.
void ControllaChiusura(Stato& s) {
    if (Trim(s.Margine).empty()) return;
    Scrivi(s, Space(Len(s.Numero)), ErroreGenerico);
    Di(s, PassoMargine::Sbilanciata);
    s.Margine.assign(s.Margine.size(), ' ');
}

void ChiudiProcedura(Stato& s, Lungo larghezzaDopo) {
    ControllaChiusura(s);
    ScriviAlMargine(s);
    s.Margine.assign(static_cast<std::size_t>(larghezzaDopo), ' ');
    Di(s, PassoMargine::Fine);
}

// A line that begins with "'". A banner line ("'*") is written without its text; any other
// comment that is left out leaves a gap in the numbers.
void ElencaCommento(Stato& s) {
    if (Mid(s.Riga, 2, 1) == "*") return Scrivi(s, s.Numero, s.Margine);
    if (s.TogliCommenti != 1) ScriviAlMargine(s);
}

} // namespace

Testo BarraUscita(Vista margine) {
    Testo barra = "<<";
    barra.append(margine.size(), connettore::DoppioTratto);
    if (Trim(barra) == "<<") barra.append(2, connettore::DoppioTratto);
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
    // End Sub alone leaves an empty margin: lines up to the next head start further left, and
    // what closes a block there ends the run.
    case RigaEndSub: ChiudiProcedura(s, 0); break;
    case RigaEndFunction:
    case RigaEndProperty: ChiudiProcedura(s, 3); break;
    case RigaEndWith: ChiudiWith(s); break;
    case RigaExitDo:
    case RigaExitFor:
    case RigaExitSub: Scrivi(s, s.Numero, BarraUscita(s.Margine), s.Riga); break;
    default:
        if (Mid(s.Riga, 1, 1) == "'") return ElencaCommento(s); // RigaAltra: no other class begins so
        Disegna(s, Disegni[classe]);
    }
}

} // namespace morvella

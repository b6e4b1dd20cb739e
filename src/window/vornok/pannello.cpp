// SPDX-License-Identifier: MIT
#include "window/vornok/pannello.h"

#include <algorithm>

#include "shell/state.h"

namespace morvella {

namespace {

constexpr Vista Chiuso = "Help";
constexpr Vista Aperto = "Togli Help";

constexpr Vista Saluto = "  by Dario Fenzoni - E-mail ";

// The last line, with the address at its end.
const Testo& UltimaRiga() {
    static const Testo riga = Testo(Saluto) + Testo(IndirizzoContatto);
    return riga;
}

void Chiudi(Pannello& p) {
    p.Frame1Visible = false;
    p.Timer1Enabled = false;
    p.MnuHelp = Chiuso;
}

} // namespace

// clang-format off
const std::array<Vista, 44> TestoHelp = {
    "   ", "   ", "   ", "   ", "   ", "   ", "   ",
    "   ", "   ", "   ", "   ", "   ", "   ", "   ",
    " Il programma elabora il tracciato di qualsiasi ",
    " procedura o Form scritto in VB5 o VB6.",
    " Non scrive interamente tutto quello che trova ma",
    " se analizza il flusso di codice di un form,",
    " scarta la parte iniziale dei controlli scritti ",
    " automaticamente da VB. dopo aver incontrato per 5 ",
    " volte la frase 'attribute' attiva la scrittura.",
    " Pertanto i Programmatori che volessero analizzare",
    " codici scritti in procedure di formato .Bas, ",
    " dovranno solamente premere il bottone BAS",
    " La procedura quindi analizza i flussi di apertura",
    " e chiusura delle IF, DO, Select Case, cicli FOR,",
    " eccetera e li visualizzer\xE0 con la procedura EDIT.COM", // à
    " in quanto era la sola che mostrava i caratteri Ascii",
    " in maniera soddisfaciente.", // sic
    " Il bottone 'RIORDINA FORM' al posto di inserire il ",
    " flusso di programma indenta solamente le righe, ",
    " togliendo tutti gli spazi superflui e righe vuote.",
    " ",
    " NON scrivere UNA IF 'di seguito' per evitare di mettere",
    " una END IF, in quanto questo genera errore",
    " ",
    " NO COSI: ->   IF v = false then c = true ",
    " ",
    " Scrivi invece:    IF v = false then",
    "                      c = true",
    "                   END IF           ",
    " ",
    " Saluti a tutti ",
    UltimaRiga(),
};
// clang-format on

void MnuHelp_Click(Pannello& p, Lungo altezzaPixel) {
    if (p.MnuHelp == Chiuso) {
        p.MnuHelp = Aperto;
        p.Frame1Visible = true;
        ScriviHelp(p, altezzaPixel);
    } else {
        p.MnuHelp = Chiuso;
        p.Frame1Visible = false;
        p.Timer1Enabled = false;
    }
}

void Frame1_Click(Pannello& p) { Chiudi(p); }
void Picture1_Click(Pannello& p) { Chiudi(p); }
void Picture2_Click(Pannello& p) { Chiudi(p); }

void ScriviHelp(Pannello& p, Lungo altezzaPixel) {
    p.Timer1Enabled = false;
    p.Picture2Visible = false;
    p.Picture2Top = 0;
    // In Picture1's scale, not in Picture2's: twips at the first opening and pixels later. The
    // number is taken for twips both times. It is meant.
    const Lungo altezzaA = p.Picture1InPixel ? altezzaPixel : altezzaPixel * TwipsPerPixel;
    p.Picture2Height = altezzaA * 800;
    p.Stampate.assign(TestoHelp.begin(), TestoHelp.end());
    p.Picture2Visible = true;
    p.Timer1Enabled = true;
}

void Timer1_Timer(Pannello& p) {
    const auto passo = static_cast<Lungo>(std::clamp(Val(p.Timer1Tag) * 10, -8000.0, 8000.0));
    p.Picture1InPixel = true; // Picture2 lies in Picture3 and does not move
    if (p.Picture2Top > -7900)
        p.Picture2Top -= passo;
    else
        p.Picture2Top = 0;
}

} // namespace morvella

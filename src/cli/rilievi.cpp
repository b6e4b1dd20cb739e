// SPDX-License-Identifier: MIT
#include "cli/rilievi.h"

#include <algorithm>
#include <iterator>

#include "text/codifica.h"

namespace morvella::cli {

namespace {

// A source line as a message quotes it, cut where it would drown the rest.
std::string Citata(Vista linea) {
    constexpr Lungo Massimo = 80;
    const std::string testo = Mostrabile(Mid(linea, 1, Massimo));
    return "«" + testo + (Len(linea) > Massimo ? "…»" : "»");
}

std::string RigaDi(Lungo n) { return "riga " + std::to_string(n); }

// The listing of a form starts counting after its control section.
std::string NellElenco(Lungo rigaListato) { return " (" + RigaDi(rigaListato) + " della struttura)"; }

} // namespace

void Sorvegliante::Osserva(const PassoMargine& passo, const Testo& voce) {
    const auto larghe = static_cast<std::size_t>(passo.Larghezza / 3);
    switch (passo.Che) {
    case PassoMargine::Testa:
        colonne_.clear();
        testa_ = {passo.Riga, Testo(passo.Testo)};
        break;
    case PassoMargine::Apre:
        colonne_.resize(larghe);
        colonne_.back() = {passo.Riga, Testo(passo.Testo)};
        break;
    case PassoMargine::Mezzo: // a surplus Else draws a column that nobody opened
        colonne_.resize(larghe);
        if (colonne_.back().Riga == 0) colonne_.back() = {passo.Riga, Testo(passo.Testo)};
        break;
    case PassoMargine::Chiude: colonne_.resize(larghe); break;
    case PassoMargine::Sbilanciata: {
        Rilievo rilievo{voce, {passo.Riga, Testo(passo.Testo)}, passo.RigaListato, false, testa_, {}};
        for (const LineaTrovata& colonna : colonne_)
            if (colonna.Riga != 0) rilievo.Aperti.push_back(colonna);
        rilievi_.push_back(std::move(rilievo));
        break;
    }
    case PassoMargine::Inizio:
    case PassoMargine::Fine:
        colonne_.clear();
        testa_ = {};
        break;
    }
}

void Sorvegliante::Osserva(const Arresto& arresto, const Testo& voce) {
    if (arresto.Riga == 0 || arresto.Causa.Numero != ErrArgomento) return;
    rilievi_.push_back({voce, {arresto.Riga, arresto.Linea}, arresto.RigaListato, true, {}, {}});
}

std::string Rilievo::Frase(const std::function<Lungo(Lungo)>& inFile) const {
    const std::string nellElenco = NellElenco(RigaListato);
    if (Ferma)
        return Citata(Dove.Linea) +
               " chiude un blocco fuori da ogni procedura e ferma la struttura: errore 5" + nellElenco;
    std::string aperti;
    // Three say where to look; a line of hundreds helps nobody.
    const std::size_t detti = Aperti.size() > 4 ? 3 : Aperti.size();
    for (std::size_t i = 0; i < detti; ++i)
        aperti += (i == 0 ? "" : ", ") + RigaDi(inFile(Aperti[i].Riga)) + " " + Citata(Aperti[i].Linea);
    if (detti < Aperti.size()) aperti += " e altri " + std::to_string(Aperti.size() - detti);
    return (Testa.Riga > 0 ? "la procedura " + Citata(Testa.Linea) + " (" + RigaDi(inFile(Testa.Riga)) + ")"
                           : "una procedura di cui non si riconosce la testata") +
           (Aperti.size() == 1 ? " finisce con un blocco aperto: "
                               : " finisce con " + std::to_string(Aperti.size()) + " blocchi aperti: ") +
           aperti + nellElenco;
}

LineeDiEditor::LineeDiEditor(Stato& s, Vista voce) {
    try {
        s.Canale.OpenInput(1, s.Dir1Path + "\\" + Testo(voce));
        Lungo quanti = 0;
        for (Lungo n = 1; !s.Canale.Eof(1); ++n) {
            const Vista linea = s.Canale.LineInput(1);
            const auto qui = std::count(linea.begin(), linea.end(), '\n');
            quanti += qui;
            if (qui > 0) dopo_.emplace_back(n, quanti);
        }
    } catch (const Errore&) {
        dopo_.clear();
    }
    try {
        s.Canale.Close(1);
    } catch (const Errore&) { // nothing was written
    }
}

Lungo LineeDiEditor::Di(Lungo riga) const {
    const auto oltre = std::lower_bound(dopo_.begin(), dopo_.end(), riga,
                                        [](const auto& una, Lungo n) { return una.first < n; });
    return riga + (oltre == dopo_.begin() ? 0 : std::prev(oltre)->second);
}

} // namespace morvella::cli

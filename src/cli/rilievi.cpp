// SPDX-License-Identifier: MIT
#include "cli/rilievi.h"

#include "listing/decodifica.h"

namespace morvella::cli {

namespace {

// A source line in a message: as it is, but cut where it would drown the rest.
std::string Citata(Vista linea) {
    constexpr Lungo Massimo = 80;
    const std::string testo = Mostrabile(Mid(linea, 1, Massimo));
    return "«" + testo + (Len(linea) > Massimo ? "…»" : "»");
}

constexpr Lungo Nominati = 20; // open blocks that a message names one by one

std::string RigaDi(Lungo n) { return "riga " + std::to_string(n); }

// The listing of a form counts from behind its control section.
std::string NellElenco(Lungo rigaListato) { return " (" + RigaDi(rigaListato) + " della struttura)"; }

} // namespace

void Sorvegliante::Osserva(const PassoMargine& passo, const Testo& riga) {
    const auto larghe = static_cast<std::size_t>(passo.Larghezza / 3);
    switch (passo.Che) {
    case PassoMargine::Testa:
        colonne_.clear();
        testa_ = {passo.RigaFile, Testo(passo.Testo)};
        break;
    case PassoMargine::Apre:
        colonne_.resize(larghe);
        colonne_.back() = {passo.RigaFile, Testo(passo.Testo)};
        break;
    case PassoMargine::Mezzo: // a surplus Else draws a column that nobody opened
        colonne_.resize(larghe);
        if (colonne_.back().RigaFile == 0) colonne_.back() = {passo.RigaFile, Testo(passo.Testo)};
        break;
    case PassoMargine::Chiude: colonne_.resize(larghe); break;
    case PassoMargine::Sbilanciata: {
        std::string aperti;
        Lungo quanti = 0;
        for (std::size_t i = 0; i < colonne_.size(); ++i) {
            if (colonne_[i].RigaFile == 0) continue;
            if (++quanti > Nominati) continue;
            aperti +=
                (aperti.empty() ? "" : ", ") + RigaDi(colonne_[i].RigaFile) + " " + Citata(colonne_[i].Linea);
        }
        if (quanti > Nominati) aperti += " e altri " + std::to_string(quanti - Nominati);
        std::string frase = testa_.RigaFile > 0 ? "la procedura " + Citata(testa_.Linea) + " (" +
                                                      RigaDi(testa_.RigaFile) + ")"
                                                : "una procedura di cui non si riconosce la testata";
        frase += quanti == 1 ? " finisce con un blocco aperto: "
                             : " finisce con " + std::to_string(quanti) + " blocchi aperti: ";
        rilievi_.push_back({riga, passo.RigaFile, frase + aperti + NellElenco(passo.RigaListato)});
        break;
    }
    case PassoMargine::Inizio:
    case PassoMargine::Fine:
        colonne_.clear();
        testa_ = {};
        break;
    }
}

void Sorvegliante::Osserva(const Arresto& arresto, const Testo& riga) {
    if (arresto.RigaFile == 0 || arresto.Causa.Numero != ErrArgomento) return;
    rilievi_.push_back({riga, arresto.RigaFile,
                        Citata(arresto.Linea) +
                            " chiude un blocco fuori da ogni procedura e ferma la struttura: errore 5" +
                            NellElenco(arresto.RigaListato)});
}

} // namespace morvella::cli

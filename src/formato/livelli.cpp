// SPDX-License-Identifier: MIT
#include "formato/livelli.h"

#include <algorithm>

namespace morvella::formato {

namespace {

using esame::Blocco;
using esame::Specie;

// Deeper code stays at this level, or nesting alone would make the copy grow with its square.
constexpr std::uint32_t LivelloMassimo = 100;
// How far out a closer's block is sought. Only branches that are not read need it at all.
constexpr int MassimaRicerca = 64;

bool ETipo(Blocco b) noexcept { return b == Blocco::Type || b == Blocco::Enum; }

} // namespace

std::vector<Linea> Livelli::Trova(std::size_t inizio, std::uint32_t riga) {
    esame::Frasi frasi(bytes_, inizio, riga, true, true);
    for (esame::Frase f; frasi.Prossima(f);) {
        if (f.Quale == Specie::FineLinea)
            FineLinea(f, frasi.Riga());
        else
            Frase(f);
    }
    Libera(Dentro(), Dentro());
    for (const auto& [linea, altra] : come_) linee_[linea].Livello = linee_[altra].Livello;
    return std::move(linee_);
}

void Livelli::Apri(Blocco cosa, std::uint32_t livello, std::uint32_t dentro) {
    nodi_.push_back({cima_, cosa, livello, std::min(dentro, LivelloMassimo)});
    cima_ = static_cast<std::uint32_t>(nodi_.size() - 1);
}

// The innermost open block of this kind within the procedure.
bool Livelli::Cerca(Blocco cosa, std::uint32_t& quale) const {
    quale = cima_;
    for (int i = 0; i < MassimaRicerca && quale != 0; ++i) {
        const Nodo& nodo = nodi_[quale];
        if (nodo.Cosa == cosa) return true;
        if (esame::Procedura(nodo.Cosa)) return false;
        quale = nodo.Intorno;
    }
    return false;
}

// The lines that wait get their level.
void Livelli::Libera(std::uint32_t commenti, std::uint32_t direttive) {
    for (const auto& [i, direttiva] : attesa_) linee_[i].Livello = direttiva ? direttive : commenti;
    attesa_.clear();
}

void Livelli::Frase(const esame::Frase& f) {
    const bool prima = genere_ == Genere::Vuota;
    if (prima) dentroPrima_ = Dentro();
    switch (f.Quale) {
    case Specie::Commento:
        if (prima) genere_ = Genere::Commento;
        return;
    case Specie::Attributo: genere_ = Genere::Attributo; return;
    case Specie::Etichetta: genere_ = Genere::Etichetta; return;
    case Specie::CondIf:
    case Specie::CondElseIf:
    case Specie::CondElse:
    case Specie::CondEndIf:
    case Specie::CondConst:
        genere_ = Genere::Direttiva;
        Direttiva(f);
        return;
    default: break;
    }
    if (prima) genere_ = Genere::Codice;
    const std::uint32_t dentro = Dentro();
    const bool decide = !deciso_;
    if (decide) livello_ = dentro;
    deciso_ = true;
    const std::uint32_t suo = livello_;
    const Attesi attesi = attesi_;
    // The members of a Type have the names of statements.
    if (!ETipo(nodi_[cima_].Cosa) || f.Quale == Specie::Capo || f.Quale == Specie::Fine) Blocchi(f);
    if (decide) return;
    livello_ = suo; // only the first statement says where the line stands
    attesi_ = attesi;
}

void Livelli::Blocchi(const esame::Frase& f) {
    std::uint32_t quale = 0;
    switch (f.Quale) {
    case Specie::Apre:
        Apri(f.Cosa, Dentro(), Dentro() + (f.Cosa == Blocco::Select ? opzioni_.Case : 1));
        break;
    case Specie::Chiude:
        attesi_ = Attesi::Dentro;
        for (std::uint32_t n = 0; n < f.Chiusure && Cerca(f.Cosa, quale); ++n) {
            livello_ = nodi_[quale].Livello;
            cima_ = nodi_[quale].Intorno;
        }
        break;
    case Specie::Else:
    case Specie::ElseIf:
        if (!Cerca(Blocco::If, quale)) break;
        livello_ = nodi_[quale].Livello;
        cima_ = quale;
        break;
    case Specie::Case:
        if (!Cerca(Blocco::Select, quale)) break;
        livello_ = nodi_[quale].Livello + opzioni_.Case;
        cima_ = nodi_[quale].Intorno;
        Apri(Blocco::Select, nodi_[quale].Livello, livello_ + 1);
        break;
    case Specie::Capo:
        livello_ = cima_ = 0;
        Apri(f.Cosa, 0, 1);
        break;
    case Specie::Fine:
        attesi_ = Attesi::Dentro;
        livello_ = cima_ = 0;
        break;
    default: break;
    }
}

// After the #End If goes on what the first branch has left open that leaves anything open, for no
// more than one of them is compiled.
void Livelli::ChiudiRamo() {
    Gruppo& g = gruppi_.back();
    if (g.Scelta == g.Prima && !g.Morta) g.Scelta = cima_;
    g.Morta = false;
}

void Livelli::Direttiva(const esame::Frase& f) {
    livello_ = Dentro();
    if (f.Quale == Specie::CondConst) {
        aspetta_ = true;
        return;
    }
    if (f.Quale == Specie::CondIf) {
        gruppi_.push_back({cima_, cima_, f.Morta, linee_.size()});
        aspetta_ = gruppo_ = true;
        return;
    }
    attesi_ = Attesi::Dentro;
    if (gruppi_.empty()) return;
    pari_ = gruppi_.back().Linea + 1;
    ChiudiRamo();
    if (f.Quale == Specie::CondEndIf) {
        cima_ = gruppi_.back().Scelta;
        gruppi_.pop_back();
    } else {
        cima_ = gruppi_.back().Prima;
    }
}

void Livelli::FineLinea(const esame::Frase& f, std::uint32_t ultima) {
    Linea linea{f.InizioRiga, ultima - f.Riga + 1, 0, genere_ == Genere::Attributo};
    const std::size_t indice = linee_.size();
    const std::size_t testo = bytes_.find_first_not_of(" \t", f.InizioRiga);
    const bool numero = testo != bytes_.npos && bytes_[testo] >= '0' && bytes_[testo] <= '9';
    // A line number alone gives no statement, and a comment after it does not move with what follows.
    if (numero && (genere_ == Genere::Vuota || genere_ == Genere::Commento)) {
        genere_ = Genere::Codice;
        dentroPrima_ = Dentro();
    }
    switch (genere_) {
    case Genere::Vuota:
    case Genere::Attributo: break;
    case Genere::Commento: attesa_.emplace_back(indice, false); break;
    case Genere::Direttiva:
        if (attesi_ == Attesi::Dentro) Libera(dentroPrima_, dentroPrima_);
        if (opzioni_.DirettiveAlMargine) break;
        linea.Livello = livello_;
        if (aspetta_) attesa_.emplace_back(indice, gruppo_);
        if (pari_ != 0) come_.emplace_back(indice, pari_ - 1);
        break;
    case Genere::Codice:
    case Genere::Etichetta:
        if (!deciso_) livello_ = dentroPrima_;
        Libera(attesi_ == Attesi::Dentro ? dentroPrima_ : livello_, livello_);
        if (opzioni_.EtichetteNelCodice || !(numero || genere_ == Genere::Etichetta))
            linea.Livello = livello_;
        break;
    }
    linee_.push_back(linea);
    genere_ = Genere::Vuota;
    attesi_ = Attesi::ConLei;
    deciso_ = aspetta_ = gruppo_ = false;
    pari_ = 0;
}

} // namespace morvella::formato

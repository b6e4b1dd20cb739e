// SPDX-License-Identifier: MIT
#include "esame/condizionale.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace morvella::esame {

namespace {

constexpr std::size_t MassimiVicini = 6;
// So many events at most are read again for one file, and so many choices tried in any case.
constexpr std::size_t MassimiEventi = 20'000'000;
constexpr std::size_t MinimeProve = 64;

// What is left of a branch when all that balances is taken out: openers and heads as their Blocco,
// and what did not fit marked as such.
using Simbolo = std::uint8_t;
constexpr Simbolo Chiuso = 0x40; // and the Blocco
constexpr Simbolo Mezzo = 0x80;  // an Else
constexpr Simbolo Troppo = 0xFF; // too much to be kept
constexpr std::size_t MassimoResiduo = 64;

} // namespace

// One pass over the events with a stack of open groups; what is left of an inner group counts in
// the branch around it.
class Condizionale::Analisi {
  public:
    Analisi(Condizionale& c, std::uint32_t ultimaRiga, std::vector<Reperto>& reperti)
        : c_(c), ultimaRiga_(ultimaRiga), reperti_(reperti) {}

    void Fai() {
        const auto quanti = static_cast<std::uint32_t>(c_.eventi_.size());
        for (std::uint32_t i = 0; i < quanti; ++i) {
            Evento& e = c_.eventi_[i];
            if (Direttiva(e))
                Passa(i, e);
            else if (!aperti_.empty())
                Conta(e);
        }
        while (!aperti_.empty()) {
            const Evento& inizio = c_.eventi_[c_.gruppi_[aperti_.back().Indice].Inizio];
            reperti_.push_back({.Quale = Tipo::Aperto,
                                .Cosa = Blocco::CondIf,
                                .Riga = inizio.Riga,
                                .Colonna = inizio.Colonna,
                                .Nota = ultimaRiga_,
                                .Apertura = inizio.Riga,
                                .Atteso = Chiusura(Blocco::CondIf),
                                .Trovato = "fine file"});
            ChiudiGruppo(quanti, ultimaRiga_);
        }
    }

  private:
    struct Aperto {
        std::uint32_t Indice; // of the group
        std::uint32_t Ramo;
        std::size_t Base; // of the branch in pila_
        std::uint8_t Lungo = 0;
        std::array<Simbolo, MassimoResiduo> Residuo{}; // of the branch that is read first
    };

    void Passa(std::uint32_t i, Evento& e) {
        e.Gruppo = Nessuno;
        if (e.Quale == Specie::CondIf) {
            const auto indice = static_cast<std::uint32_t>(c_.gruppi_.size());
            c_.gruppi_.push_back({.Inizio = i, .Riga = e.Riga});
            aperti_.push_back({.Indice = indice, .Ramo = Nessuno, .Base = pila_.size()});
            e.Gruppo = indice;
            ApriRamo(i + 1, e.Morta);
            return;
        }
        if (e.Quale == Specie::CondConst) return;
        const bool chiude = e.Quale == Specie::CondEndIf;
        const bool dopoElse = !aperti_.empty() && c_.gruppi_[aperti_.back().Indice].ConElse;
        if (aperti_.empty() || (!chiude && dopoElse)) {
            reperti_.push_back({.Quale = chiude ? Tipo::SenzaApertura : Tipo::FuoriPosto,
                                .Cosa = Blocco::CondIf,
                                .Riga = e.Riga,
                                .Colonna = e.Colonna,
                                .Nota = e.Riga,
                                .Apertura = aperti_.empty() ? 0 : c_.gruppi_[aperti_.back().Indice].Riga,
                                .Atteso = {},
                                .Trovato = ParolaDi(e)});
            return;
        }
        Gruppo& gruppo = c_.gruppi_[aperti_.back().Indice];
        e.Gruppo = aperti_.back().Indice;
        if (chiude) return ChiudiGruppo(i, e.Riga);
        ChiudiRamo(i);
        gruppo.ConElse = e.Quale == Specie::CondElse;
        ApriRamo(i + 1, false);
    }

    void ApriRamo(std::uint32_t da, bool morto) {
        Aperto& aperto = aperti_.back();
        const auto indice = static_cast<std::uint32_t>(c_.rami_.size());
        c_.rami_.push_back({.Da = da, .A = da, .Morto = morto});
        (aperto.Ramo == Nessuno ? c_.gruppi_[aperto.Indice].PrimoRamo : c_.rami_[aperto.Ramo].Seguente) =
            indice;
        aperto.Ramo = indice;
    }

    void ChiudiRamo(std::uint32_t a) {
        Aperto& aperto = aperti_.back();
        Ramo& ramo = c_.rami_[aperto.Ramo];
        Gruppo& gruppo = c_.gruppi_[aperto.Indice];
        const std::size_t resto = pila_.size() - aperto.Base;
        ramo.A = a;
        ramo.Neutro = resto == 0;
        if (!ramo.Neutro) {
            gruppo.Neutro = false;
            if (!ramo.Morto && aperto.Lungo == 0) {
                aperto.Lungo = static_cast<std::uint8_t>(resto <= MassimoResiduo ? resto : 1);
                std::copy_n(pila_.begin() + static_cast<std::ptrdiff_t>(aperto.Base), aperto.Lungo,
                            aperto.Residuo.begin());
                if (resto > MassimoResiduo) aperto.Residuo[0] = Troppo;
            }
        }
        pila_.resize(aperto.Base);
    }

    void ChiudiGruppo(std::uint32_t a, std::uint32_t riga) {
        ChiudiRamo(a);
        const Aperto chiuso = aperti_.back();
        aperti_.pop_back();
        Gruppo& gruppo = c_.gruppi_[chiuso.Indice];
        gruppo.Fine = a;
        gruppo.UltimaRiga = riga;
        const bool contiene = !gruppo.Neutro || gruppo.Contiene;
        if (contiene) c_.neutri_ = false;
        if (aperti_.empty()) return;
        if (contiene) c_.gruppi_[aperti_.back().Indice].Contiene = true;
        for (std::size_t i = 0; i < chiuso.Lungo; ++i) Metti(chiuso.Residuo[i]);
    }

    void Conta(const Evento& e) {
        if (e.NelTipo) return;
        switch (e.Quale) {
        case Specie::Apre:
        case Specie::Capo: Metti(static_cast<Simbolo>(e.Cosa)); break;
        case Specie::Chiude:
        case Specie::Fine: Metti(static_cast<Simbolo>(Chiuso | static_cast<Simbolo>(e.Cosa))); break;
        case Specie::Else: Metti(Mezzo); break;
        default: break;
        }
    }

    void Metti(Simbolo simbolo) {
        const bool vuota = pila_.size() == aperti_.back().Base;
        const Simbolo cima = vuota ? Troppo : pila_.back();
        if (simbolo == Mezzo) {
            if (cima == static_cast<Simbolo>(Blocco::If)) return;
        } else if (simbolo != Troppo && (simbolo & Chiuso) != 0 && cima < Chiuso) {
            const auto aperto = static_cast<Blocco>(cima);
            const auto chiuso = static_cast<Blocco>(simbolo & ~Chiuso);
            if (aperto == chiuso || (Procedura(aperto) && Procedura(chiuso))) {
                pila_.pop_back();
                return;
            }
        }
        pila_.push_back(simbolo);
    }

    Condizionale& c_;
    std::uint32_t ultimaRiga_;
    std::vector<Reperto>& reperti_;
    std::vector<Aperto> aperti_;
    std::vector<Simbolo> pila_;
};

Condizionale::Condizionale(std::vector<Evento>& eventi, std::uint32_t ultimaRiga,
                           std::vector<Reperto>& reperti)
    : eventi_(eventi), blocchi_(ultimaRiga) {
    Analisi(*this, ultimaRiga, reperti).Fai();
    if (!neutri_) PreparaScelte();
}

void Condizionale::PreparaScelte() {
    // A group that holds one that does not balance may well be told so for that alone: it counts once.
    const bool piu = std::count_if(gruppi_.begin(), gruppi_.end(),
                                   [](const Gruppo& g) { return !g.Neutro && !g.Contiene; }) >= 2;
    for (Gruppo& g : gruppi_) {
        if (g.Neutro) continue;
        const auto aggiungi = [&](bool neutri) {
            for (std::uint32_t i = g.PrimoRamo; i != Nessuno; i = rami_[i].Seguente)
                if (rami_[i].Neutro == neutri && (neutri || !rami_[i].Morto)) g.Scelte.push_back(i);
        };
        aggiungi(false);
        if (!piu && !g.Scelte.empty()) continue;
        aggiungi(true);
        if (!g.ConElse || g.Scelte.empty()) g.Scelte.push_back(Nessuno);
    }
}

// Appends the events from `da` to `a` that are read, and notes the branches that are not.
void Condizionale::Componi(std::uint32_t da, std::uint32_t a, std::vector<Evento>& sequenza) {
    for (std::uint32_t i = da; i < a;) {
        const Evento& e = eventi_[i];
        if (!Direttiva(e)) {
            sequenza.push_back(e);
            ++i;
            continue;
        }
        if (e.Gruppo == Nessuno || gruppi_[e.Gruppo].Neutro) {
            ++i;
            continue;
        }
        const Gruppo& g = gruppi_[e.Gruppo];
        i = g.Fine == eventi_.size() ? g.Fine : g.Fine + 1;
        if (e.Quale != Specie::CondIf) continue; // the branch that was read ends here
        const std::uint32_t letto = g.Scelte[g.Scelta];
        for (std::uint32_t r = g.PrimoRamo; r != Nessuno; r = rami_[r].Seguente) {
            if (r == letto)
                i = rami_[r].Da;
            else if (!rami_[r].Morto || rami_[r].Neutro)
                nonLetti_.push_back({rami_[r].Da, rami_[r].A});
        }
    }
}

// The findings under the choices that stand.
void Condizionale::Leggi(std::vector<Reperto>& reperti) {
    sequenza_.clear();
    nonLetti_.clear();
    Componi(0, static_cast<std::uint32_t>(eventi_.size()), sequenza_);
    blocchi_.Giudica(sequenza_, reperti);
    while (!nonLetti_.empty()) {
        const Tratto tratto = nonLetti_.back();
        nonLetti_.pop_back();
        sequenza_.clear();
        Componi(tratto.Da, tratto.A, sequenza_);
        blocchi_.GiudicaIntere(sequenza_, reperti);
    }
}

void Condizionale::Giudica(std::vector<Reperto>& reperti) {
    if (neutri_) return blocchi_.Giudica(eventi_, reperti);
    std::vector<Reperto> primi;
    Leggi(primi);
    if (!primi.empty()) {
        const std::vector<Gruppo*> vicini = Vicini(primi);
        if (!vicini.empty()) Prova(vicini, primi);
    }
    reperti.insert(reperti.end(), primi.begin(), primi.end());
}

// The groups with a choice that lie nearest to a finding, in the order of the file.
std::vector<Condizionale::Gruppo*> Condizionale::Vicini(std::span<const Reperto> reperti) {
    std::vector<std::uint32_t> righe;
    for (const Reperto& r : reperti) {
        righe.push_back(r.Riga);
        righe.push_back(r.Nota);
    }
    std::sort(righe.begin(), righe.end());
    std::vector<std::pair<std::uint32_t, Gruppo*>> lontani;
    for (Gruppo& g : gruppi_) {
        if (g.Scelte.size() < 2) continue;
        std::uint32_t distanza = std::numeric_limits<std::uint32_t>::max();
        const auto dopo = std::lower_bound(righe.begin(), righe.end(), g.Riga);
        if (dopo != righe.end()) distanza = *dopo <= g.UltimaRiga ? 0 : *dopo - g.UltimaRiga;
        if (dopo != righe.begin()) distanza = std::min(distanza, g.Riga - *std::prev(dopo));
        lontani.emplace_back(distanza, &g);
    }
    const auto prime = static_cast<std::ptrdiff_t>(std::min(MassimiVicini, lontani.size()));
    std::partial_sort(lontani.begin(), lontani.begin() + prime, lontani.end());
    std::vector<Gruppo*> vicini;
    const std::size_t massime = std::max(MinimeProve, MassimiEventi / (eventi_.size() + 1));
    std::size_t prove = 1;
    for (auto it = lontani.begin(); it != lontani.begin() + prime; ++it) {
        prove *= it->second->Scelte.size();
        if (prove > massime) break;
        vicini.push_back(it->second);
    }
    std::sort(vicini.begin(), vicini.end());
    return vicini;
}

// All combinations, the first group varying slowest. The first with the fewest findings stays.
void Condizionale::Prova(std::span<Gruppo* const> vicini, std::vector<Reperto>& reperti) {
    std::vector<Reperto> questi;
    while (!reperti.empty()) {
        std::size_t i = vicini.size();
        for (; i > 0; --i) {
            Gruppo& g = *vicini[i - 1];
            if (++g.Scelta < g.Scelte.size()) break;
            g.Scelta = 0;
        }
        if (i == 0) return;
        questi.clear();
        Leggi(questi);
        if (questi.size() < reperti.size()) reperti = questi;
    }
}

} // namespace morvella::esame

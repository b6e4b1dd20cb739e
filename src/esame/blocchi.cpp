// SPDX-License-Identifier: MIT
#include "esame/blocchi.h"

#include <algorithm>
#include <iterator>

namespace morvella::esame {

namespace {

// How deep a search by indentation goes. Nobody nests so deep; without a bound a file made of
// openers would take forever.
constexpr std::size_t MassimaRicerca = 256;
// How many heads in a row may be taken for errors of the unit before them.
constexpr int MassimiCapi = 8;

bool Giusta(const Evento& capo, const Evento& fine) noexcept {
    if (capo.Cosa == fine.Cosa) return true;
    // Accepted by the compiler, and found in real code.
    return capo.Get && (fine.Cosa == Blocco::Function || fine.Cosa == Blocco::Sub);
}

bool Nota(const Evento& capo) noexcept { return capo.Quale == Specie::Capo; }

} // namespace

void Blocchi::Giudica(std::span<const Evento> eventi, std::vector<Reperto>& reperti) {
    const Evento* const termine = eventi.data() + eventi.size();
    for (const Evento* da = eventi.data(); da != termine;) {
        const Evento* a = std::find_if(da + 1, termine, Nota);
        Unita unita{{da, a}, a != termine ? a : nullptr, nullptr};
        LeggiUnita(unita, questa_);
        const auto senzaFine = [&] {
            return Nota(*da) && std::none_of(da, a, [](const Evento& e) { return e.Quale == Specie::Fine; });
        };
        for (int volte = 0; volte < MassimiCapi && a != termine && senzaFine(); ++volte) {
            const Evento* b = std::find_if(a + 1, termine, Nota);
            const Evento* prossimo = b != termine ? b : nullptr;
            LeggiUnita({{a, b}, prossimo, nullptr}, seguente_);
            const Unita ambedue{{da, b}, prossimo, a};
            LeggiUnita(ambedue, insieme_);
            if (questa_.size() + seguente_.size() <= insieme_.size() + 1) break;
            questa_.swap(insieme_);
            questa_.push_back({.Quale = Tipo::FuoriPosto,
                               .Cosa = a->Cosa,
                               .Riga = a->Riga,
                               .Colonna = a->Colonna,
                               .Nota = a->Riga,
                               .Apertura = da->Riga,
                               .Atteso = {},
                               .Trovato = ParolaDi(*a),
                               .InizioNome = da->InizioNome,
                               .LungoNome = da->LungoNome});
            a = b;
        }
        reperti.insert(reperti.end(), questa_.begin(), questa_.end());
        da = a;
    }
}

void Blocchi::GiudicaIntere(std::span<const Evento> eventi, std::vector<Reperto>& reperti) {
    const Evento* const termine = eventi.data() + eventi.size();
    for (const Evento* da = std::find_if(eventi.data(), termine, Nota); da != termine;) {
        const Evento* const a = std::find_if(da + 1, termine, Nota);
        const Evento* fine = a;
        while (fine != da && fine[-1].Quale != Specie::Fine) --fine;
        if (fine != da) {
            LeggiUnita({{da, fine}, nullptr, nullptr}, questa_);
            reperti.insert(reperti.end(), questa_.begin(), questa_.end());
        }
        da = a;
    }
}

void Blocchi::LeggiUnita(const Unita& unita, std::vector<Reperto>& esito) {
    esito.clear();
    if (Leggi(unita, Modo::Piano) == 0) return;
    std::size_t pochi = Nessuno;
    for (const Modo modo : {Modo::Severo, Modo::Rientri, Modo::Piano, Modo::Fermo}) {
        const std::size_t quanti = Leggi(unita, modo);
        if (quanti >= pochi) continue;
        pochi = quanti;
        esito.clear();
        std::copy_if(reperti_.begin(), reperti_.end(), std::back_inserter(esito),
                     [](const Reperto& r) { return !r.Annullato; });
    }
}

std::size_t Blocchi::Leggi(const Unita& unita, Modo modo) {
    unita_ = unita;
    modo_ = modo;
    capo_ = Nota(unita.Eventi.front()) ? &unita.Eventi.front() : nullptr;
    ultimaFine_ = ultimaGiusta_ = nullptr;
    finita_ = false;
    pila_.clear();
    std::fill(std::begin(quanti_), std::end(quanti_), 0);
    senzaElse_ = 0;
    reperti_.clear();
    for (const Evento& e : unita.Eventi) {
        if (e.Quale != Specie::Fine) continue;
        ultimaFine_ = &e;
        if (capo_ && Giusta(*capo_, e)) ultimaGiusta_ = &e;
    }
    // The members of a Type may be called Next or Loop.
    const bool membri = capo_ && (capo_->Cosa == Blocco::Type || capo_->Cosa == Blocco::Enum);
    for (const Evento& e : unita.Eventi) {
        if (membri && !finita_ && e.Quale != Specie::Fine) continue;
        if (e.Quale == Specie::Apre || e.Quale == Specie::Istruzione || e.Quale == Specie::IfUnaRiga) {
            if (!pila_.empty() && pila_.back().Cosa == Blocco::Select) {
                Aperto& select = pila_.back();
                if (!select.ConCase && select.Prima < 0) {
                    select.Prima = static_cast<std::int32_t>(reperti_.size());
                    Reperto& r = Segnala(Tipo::PrimaDiCase, Blocco::Select, e);
                    r.Apertura = select.Riga;
                    r.Atteso = "Case";
                    r.Trovato = {};
                }
            }
        }
        switch (e.Quale) {
        case Specie::Apre:
            Apri(
                {.Cosa = e.Cosa, .Muto = e.Muta, .Riga = e.Riga, .Colonna = e.Colonna, .Rientro = e.Rientro});
            break;
        case Specie::Chiude: Chiude(e); break;
        case Specie::Else:
        case Specie::ElseIf: Mezzo(e); break;
        case Specie::Case: Case(e); break;
        case Specie::Fine: Fine(e); break;
        default: break;
        }
    }
    FineUnita();
    Unisci();
    return Vivi();
}

void Blocchi::Apri(const Aperto& aperto) {
    pila_.push_back(aperto);
    ++quanti_[static_cast<std::size_t>(aperto.Cosa)];
    if (SenzaElse(aperto)) ++senzaElse_;
}

void Blocchi::Togli() {
    const Aperto& cima = pila_.back();
    --quanti_[static_cast<std::size_t>(cima.Cosa)];
    if (SenzaElse(cima)) --senzaElse_;
    pila_.pop_back();
}

Reperto& Blocchi::Segnala(Tipo tipo, Blocco cosa, const Evento& e) {
    Reperto& r = reperti_.emplace_back();
    r.Quale = tipo;
    r.Cosa = cosa;
    r.Riga = r.Nota = e.Riga;
    r.Colonna = e.Colonna;
    r.Trovato = ParolaDi(e);
    if (capo_ && !finita_) {
        r.InizioNome = capo_->InizioNome;
        r.LungoNome = capo_->LungoNome;
    }
    return r;
}

// Takes blocks off until `resto` are left, all found open. One that remembers a surplus closer of
// its own kind was only badly indented; one of another kind was closed with the wrong word.
void Blocchi::ApertiFino(std::size_t resto, std::uint32_t nota, std::string_view trovato) {
    for (; pila_.size() > resto; Togli()) {
        const Aperto a = pila_.back();
        if (a.Prima >= 0) reperti_[static_cast<std::size_t>(a.Prima)].Annullato = true;
        if (a.Fantasma) continue;
        if (a.Ricorda >= 0) {
            Reperto& r = reperti_[static_cast<std::size_t>(a.Ricorda)];
            if (r.Cosa == a.Cosa) {
                r.Annullato = true;
                continue;
            }
            if (!a.Muto) {
                r.Quale = Tipo::Scambiato;
                r.Cosa = a.Cosa;
                r.Apertura = a.Riga;
                r.Atteso = Chiusura(a.Cosa);
            }
            continue;
        }
        if (a.Muto) continue;
        Reperto& r = Segnala(Tipo::Aperto, a.Cosa, {.Riga = a.Riga, .Colonna = a.Colonna});
        r.Nota = nota;
        r.Apertura = a.Riga;
        r.Atteso = Chiusura(a.Cosa);
        r.Trovato = trovato;
    }
}

// The innermost of the `quanti` topmost blocks that passes.
template <class Prova>
std::size_t Blocchi::Cerca(std::size_t quanti, Prova prova) const {
    for (std::size_t i = pila_.size(); i-- > 0 && quanti-- > 0;)
        if (prova(pila_[i])) return i;
    return Nessuno;
}

// The block that a closer closes.
std::size_t Blocchi::TrovaChiuso(const Evento& e) const {
    if (quanti_[static_cast<std::size_t>(e.Cosa)] == 0) return Nessuno;
    const auto suo = [&](const Aperto& a) { return a.Cosa == e.Cosa; };
    if (modo_ == Modo::Fermo) {
        const std::size_t vero = Cerca(pila_.size(), [&](const Aperto& a) { return !a.Fantasma || suo(a); });
        return vero != Nessuno && suo(pila_[vero]) ? vero : Nessuno;
    }
    if (modo_ != Modo::Piano && e.Rientro != 0) {
        const Aperto& cima = pila_.back();
        const std::size_t ultimo = pila_.size() - 1;
        if (suo(cima) && (cima.Rientro == 0 || cima.Rientro == e.Rientro)) return ultimo;
        const std::size_t pari =
            Cerca(MassimaRicerca, [&](const Aperto& a) { return suo(a) && a.Rientro == e.Rientro; });
        if (pari != Nessuno) return pari;
        if (suo(cima)) return e.Rientro > cima.Rientro ? Nessuno : ultimo;
        if (cima.Rientro != 0 && e.Rientro >= cima.Rientro) return Nessuno;
    }
    return Cerca(pila_.size(), suo);
}

void Blocchi::Chiude(const Evento& e) {
    const std::size_t quale = TrovaChiuso(e);
    if (quale != Nessuno) {
        ApertiFino(quale + 1, e.Riga, ParolaDi(e));
        Togli();
        return;
    }
    const auto indice = static_cast<std::int32_t>(reperti_.size());
    Segnala(Tipo::SenzaApertura, e.Cosa, e);
    if (!pila_.empty() && !pila_.back().Fantasma && pila_.back().Ricorda < 0) pila_.back().Ricorda = indice;
}

// The If that an Else or ElseIf divides; `ancora`: one that has its Else already.
std::size_t Blocchi::TrovaMezzo(const Evento& e, bool& ancora) const {
    if (pila_.empty()) return Nessuno;
    const Aperto& cima = pila_.back();
    const std::size_t ultimo = pila_.size() - 1;
    const auto libero = [this](const Aperto& a) { return SenzaElse(a); };
    const bool rientri = modo_ == Modo::Severo || modo_ == Modo::Rientri;
    if (rientri && e.Rientro != 0) {
        if (libero(cima) && (cima.Rientro == 0 || cima.Rientro == e.Rientro)) return ultimo;
        const std::size_t pari =
            Cerca(MassimaRicerca, [&](const Aperto& a) { return libero(a) && a.Rientro == e.Rientro; });
        if (pari != Nessuno) return pari;
        const bool dentro = e.Rientro > cima.Rientro;
        if (libero(cima) && !(modo_ == Modo::Severo && dentro)) return ultimo;
        ancora = cima.Cosa == Blocco::If && !libero(cima) && !dentro;
        return ancora ? ultimo : Nessuno;
    }
    if (libero(cima)) return ultimo;
    if (modo_ != Modo::Fermo && senzaElse_ > 0) return Cerca(pila_.size(), libero);
    ancora = cima.Cosa == Blocco::If;
    return ancora ? ultimo : Nessuno;
}

void Blocchi::Mezzo(const Evento& e) {
    bool ancora = false;
    const std::size_t quale = TrovaMezzo(e, ancora);
    if (quale == Nessuno) {
        Segnala(Tipo::FuoriPosto, Blocco::If, e);
        Apri({.Cosa = Blocco::If,
              .Fantasma = true,
              .Riga = e.Riga,
              .Colonna = e.Colonna,
              .Rientro = e.Rientro});
        return;
    }
    ApertiFino(quale + 1, e.Riga, ParolaDi(e));
    Aperto& suo = pila_.back();
    if (ancora) {
        if (!suo.Detto && !suo.Fantasma) Segnala(Tipo::FuoriPosto, Blocco::If, e).Apertura = suo.Riga;
        suo.Detto = true;
    } else if (e.Quale == Specie::Else && !suo.ConElse) {
        if (!suo.Fantasma) --senzaElse_;
        suo.ConElse = true;
    }
}

// The Select that a Case belongs to.
std::size_t Blocchi::TrovaSelect(const Evento& e) const {
    if (quanti_[static_cast<std::size_t>(Blocco::Select)] == 0) return Nessuno;
    const auto select = [](const Aperto& a) { return a.Cosa == Blocco::Select; };
    const Aperto& cima = pila_.back();
    const std::size_t ultimo = pila_.size() - 1;
    if (modo_ == Modo::Fermo) return select(cima) ? ultimo : Nessuno;
    if (modo_ != Modo::Piano && e.Rientro != 0) {
        if (select(cima) && cima.Rientro <= e.Rientro) return ultimo;
        if (e.Rientro <= cima.Rientro || cima.Rientro == 0) {
            const std::size_t fuori =
                Cerca(MassimaRicerca, [&](const Aperto& a) { return select(a) && a.Rientro <= e.Rientro; });
            if (fuori != Nessuno) return fuori;
        }
        return select(cima) ? ultimo : Nessuno;
    }
    return Cerca(pila_.size(), select);
}

void Blocchi::Case(const Evento& e) {
    const std::size_t quale = TrovaSelect(e);
    if (quale == Nessuno) {
        Segnala(Tipo::FuoriPosto, Blocco::Select, e);
        Apri({.Cosa = Blocco::Select,
              .Fantasma = true,
              .ConCase = true,
              .Riga = e.Riga,
              .Colonna = e.Colonna,
              .Rientro = e.Rientro});
        return;
    }
    ApertiFino(quale + 1, e.Riga, ParolaDi(e));
    pila_.back().ConCase = true;
}

void Blocchi::Fine(const Evento& e) {
    if (!capo_ || finita_) {
        ApertiFino(0, e.Riga, ParolaDi(e));
        Segnala(Tipo::SenzaApertura, e.Cosa, e);
        return;
    }
    const auto manca = [this](const Aperto& a) {
        if (a.Fantasma || a.Muto) return false;
        return a.Ricorda < 0 || reperti_[static_cast<std::size_t>(a.Ricorda)].Cosa != a.Cosa;
    };
    const bool giusta = Giusta(*capo_, e);
    // Blocks are open, or the word is wrong, and an end that fits better is still to come: somebody
    // put this one into the middle.
    if ((&e < ultimaFine_ && std::any_of(pila_.begin(), pila_.end(), manca)) ||
        (!giusta && &e < ultimaGiusta_)) {
        Segnala(Tipo::SenzaApertura, e.Cosa, e);
        return;
    }
    ApertiFino(0, e.Riga, ParolaDi(e));
    if (!giusta) {
        Reperto& r = Segnala(Tipo::Scambiato, capo_->Cosa, e);
        r.Apertura = capo_->Riga;
        r.Atteso = Chiusura(capo_->Cosa);
    }
    finita_ = true;
}

void Blocchi::FineUnita() {
    const std::uint32_t nota = unita_.Prossimo ? unita_.Prossimo->Riga : ultimaRiga_;
    const std::string_view trovato = unita_.Prossimo ? ParolaDi(*unita_.Prossimo) : "fine file";
    if (!capo_ || finita_) {
        ApertiFino(0, nota, trovato);
        return;
    }
    // One line is missing, so there is one finding: what is open here may well be closed by it.
    for (Aperto& a : pila_) a.Muto = a.Muto || a.Ricorda < 0;
    ApertiFino(0, nota, trovato);
    Reperto& r = Segnala(Tipo::NonTerminato, capo_->Cosa, *capo_);
    r.Nota = nota;
    r.Apertura = capo_->Riga;
    r.Atteso = Chiusura(capo_->Cosa);
    r.Trovato = trovato;
}

std::size_t Blocchi::Vivi() const {
    return static_cast<std::size_t>(
        std::count_if(reperti_.begin(), reperti_.end(), [](const Reperto& r) { return !r.Annullato; }));
}

// A block left open and a closer too many of another kind inside it, and nothing else: that is one
// wrong word.
void Blocchi::Unisci() {
    if (Vivi() != 2) return;
    Reperto* aperto = nullptr;
    Reperto* senza = nullptr;
    for (Reperto& r : reperti_) {
        if (r.Annullato) continue;
        if (r.Quale == Tipo::Aperto) aperto = &r;
        if (r.Quale == Tipo::SenzaApertura) senza = &r;
    }
    if (!aperto || !senza || aperto->Cosa == senza->Cosa || Procedura(senza->Cosa)) return;
    if (senza->Riga < aperto->Riga || senza->Riga > aperto->Nota) return;
    if (senza->Riga == aperto->Riga && senza->Colonna < aperto->Colonna) return;
    senza->Quale = Tipo::Scambiato;
    senza->Cosa = aperto->Cosa;
    senza->Apertura = aperto->Riga;
    senza->Atteso = aperto->Atteso;
    aperto->Annullato = true;
}

} // namespace morvella::esame

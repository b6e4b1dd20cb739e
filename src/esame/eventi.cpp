// SPDX-License-Identifier: MIT
#include "esame/eventi.h"

namespace morvella::esame {

namespace {

std::uint32_t Rientro(std::string_view bytes, const Frase& f) noexcept {
    if (!f.Prima) return 0;
    std::uint32_t colonna = 0;
    for (const char c : bytes.substr(f.InizioRiga, f.Inizio - f.InizioRiga))
        colonna = c == '\t' ? (colonna | 3) + 1 : colonna + 1;
    return colonna + 1;
}

// What the lines before tell about the next one. Each branch of an #If goes on from its beginning.
struct Stato {
    bool NelTipo = false;
    bool DopoSelect = false; // no Case, and nothing to be told, has come since Select Case
};

} // namespace

std::uint32_t RaccogliEventi(std::string_view bytes, std::size_t inizio, std::uint32_t riga,
                             std::vector<Evento>& eventi) {
    Frasi frasi(bytes, inizio, riga);
    Stato stato;
    std::vector<Stato> gruppi;
    for (Frase f; frasi.Prossima(f);) {
        switch (f.Quale) {
        case Specie::Istruzione:
        case Specie::IfUnaRiga:
            if (!stato.DopoSelect) continue;
            break;
        case Specie::Dichiarazione:
        case Specie::Etichetta:
        case Specie::Commento:
        case Specie::Attributo:
        case Specie::FineLinea:
        case Specie::CondConst: continue;
        default: break;
        }
        Evento e{.Quale = f.Quale,
                 .Cosa = f.Cosa,
                 .Muta = f.Muta,
                 .Get = f.Get,
                 .Unita = f.Unita,
                 .Morta = f.Morta};
        e.NelTipo = stato.NelTipo && f.Quale != Specie::Capo && f.Quale != Specie::Fine;
        e.Riga = f.Riga;
        e.Colonna = f.Colonna;
        if (f.Quale == Specie::CondIf) {
            gruppi.push_back(stato);
        } else if (f.Quale == Specie::CondEndIf) {
            if (!gruppi.empty()) {
                stato.DopoSelect = stato.DopoSelect || gruppi.back().DopoSelect;
                gruppi.pop_back();
            }
        } else if (f.Quale >= Specie::CondIf) {
            if (!gruppi.empty()) stato = gruppi.back();
        } else {
            stato.DopoSelect = f.Quale == Specie::Apre && f.Cosa == Blocco::Select;
            if (f.Quale == Specie::Capo) stato.NelTipo = f.Cosa == Blocco::Type || f.Cosa == Blocco::Enum;
            if (f.Quale == Specie::Fine) stato.NelTipo = false;
            e.Rientro = f.Chiusure > 1 ? 0 : Rientro(bytes, f);
            e.InizioNome = f.InizioNome;
            e.LungoNome = f.LungoNome;
        }
        eventi.insert(eventi.end(), f.Chiusure, e);
    }
    return frasi.Riga();
}

} // namespace morvella::esame

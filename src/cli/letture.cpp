// SPDX-License-Identifier: MIT
#include "cli/letture.h"

#include <algorithm>
#include <map>

#include "cli/lettura.h"
#include "esame/esame.h"

namespace morvella::cli {

namespace {

struct Tratto {
    std::size_t Da = 0, A = 0; // of the examination's findings
};

// The first line that a finding of the listing is about, as an editor counts.
Lungo PrimaRiga(const Rilievo& rilievo, const LineeDiEditor& linee) {
    if (rilievo.Testa.Riga > 0) return linee.Di(rilievo.Testa.Riga);
    Lungo prima = rilievo.Dove.Riga; // a head that the listing does not know: what it left open tells
    for (const LineaTrovata& aperto : rilievo.Aperti) prima = std::min(prima, aperto.Riga);
    return linee.Di(prima);
}

} // namespace

DueLetture ConfrontaLetture(Corsa& c) {
    DueLetture due;
    std::vector<Testo> voci;
    if (!c.Chiesto.Rapporto.empty())
        for (const Lungo i : c.Lavorate) voci.push_back(c.S.File1.List(i));
    for (const Rilievo& rilievo : c.Fronte.Trovato.Rilievi()) voci.push_back(rilievo.Voce);

    LetturaIntera lettura(c.Intorno.Macchina);
    std::map<Testo, Tratto> tratti;
    for (const Testo& voce : voci) {
        const auto [qui, nuova] = tratti.try_emplace(voce);
        if (!nuova) continue;
        qui->second.Da = due.Esame.size();
        try {
            const std::string_view bytes = lettura.Leggi(c.S.File.Trova(c.Progetto + "\\" + voce).Percorso);
            Registra(c.SorgenteDiVoce(voce), bytes, esame::Esamina(bytes).Rilievi, due.Esame);
        } catch (const Errore&) { // the engine has told it
        }
        qui->second.A = due.Esame.size();
    }

    std::optional<LineeDiEditor> linee;
    Testo diChi;
    for (const Rilievo& rilievo : c.Fronte.Trovato.Rilievi()) {
        if (!linee || diChi != rilievo.Voce) linee.emplace(c.S, diChi = rilievo.Voce);
        const auto inFile = [&](Lungo n) { return linee->Di(n); };
        const Lungo da = PrimaRiga(rilievo, *linee);
        const Lungo a = inFile(rilievo.Dove.Riga);
        const Tratto& suo = tratti[rilievo.Voce];
        bool condiviso = false;
        for (std::size_t i = suo.Da; i < suo.A && !condiviso; ++i)
            condiviso = due.Esame[i].Cosa.Riga >= da && due.Esame[i].Cosa.Riga <= a;
        due.Struttura.push_back(
            {c.SorgenteDiVoce(rilievo.Voce), a, rilievo.Dove.Linea, rilievo.Frase(inFile), condiviso});
    }
    return due;
}

} // namespace morvella::cli

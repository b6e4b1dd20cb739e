// SPDX-License-Identifier: MIT
#include "cli/voci.h"

#include <algorithm>
#include <unordered_map>

#include "cli/consiglio.h"
#include "cli/vicino.h"

namespace morvella::cli {

namespace {

// A row as a user may type it: any case, "/" for "\".
Testo ChiaveVoce(Vista voce) {
    Testo chiave = LCase(voce);
    std::replace(chiave.begin(), chiave.end(), '/', '\\');
    return chiave;
}

Testo DaArgomento(const std::string& utf8) { return Bytes1252DaUtf8(utf8).value_or(utf8); }

UsoErrato SenzaVoce(const Corsa& c, const std::string& nome) {
    std::vector<std::string> voci;
    for (Lungo i = 0; i < c.S.File1.ListCount(); ++i) voci.push_back(Utf8Da1252(c.S.File1.List(i)));
    return UsoErrato{"il progetto non ha la riga «" + nome + "»" + Forse(nome, voci) +
                     ": morvella-cli elenca " + PerShell(c.Chiesto.Progetto) + " mostra quelle che ha"};
}

} // namespace

std::vector<Lungo> Selezionate(const Stato& s) {
    std::vector<Lungo> voci;
    for (Lungo i = 0; i < s.File1.ListCount(); ++i)
        if (s.File1.Selected(i)) voci.push_back(i);
    return voci;
}

void SelezionaEsattamente(Stato& s, const std::vector<Lungo>& voci) {
    std::vector<bool> volute(static_cast<std::size_t>(s.File1.ListCount()), false);
    for (const Lungo i : voci) volute[static_cast<std::size_t>(i)] = true;
    for (Lungo i = 0; i < s.File1.ListCount(); ++i)
        if (s.File1.Selected(i) != volute[static_cast<std::size_t>(i)])
            SelezionaFile1(s, i, volute[static_cast<std::size_t>(i)]);
}

void ScegliVoci(Corsa& c) {
    if (c.Chiesto.Resto.empty()) return; // all of them, as File1Leggi_Click left them
    std::unordered_multimap<Testo, Lungo> perChiave;
    for (Lungo i = 0; i < c.S.File1.ListCount(); ++i) perChiave.emplace(ChiaveVoce(c.S.File1.List(i)), i);
    std::vector<Lungo> voci;
    for (const std::string& nome : c.Chiesto.Resto) {
        const auto [da, fino] = perChiave.equal_range(ChiaveVoce(DaArgomento(nome)));
        if (da == fino) throw SenzaVoce(c, nome);
        for (auto voce = da; voce != fino; ++voce) voci.push_back(voce->second);
    }
    SelezionaEsattamente(c.S, voci);
}

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
#include "cli/riscontri.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "esame/caratteri.h"

namespace morvella::cli {

namespace {

Testo Ripulita(Vista linea) {
    while (!linea.empty() && esame::Bianco(linea.front())) linea.remove_prefix(1);
    linea = linea.substr(0, MassimaLinea);
    while (!linea.empty() && esame::Bianco(linea.back())) linea.remove_suffix(1);
    return Testo(linea);
}

// Fills in lines by their numbers, in one walk over the bytes.
void RiempiLinee(Vista bytes, std::vector<std::pair<std::uint32_t, Testo*>>& linee) {
    std::sort(linee.begin(), linee.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    std::uint32_t numero = 1;
    const Testo* ultima = nullptr; // a long line may have many findings: it is sought once
    std::uint32_t diChi = 0;
    for (const auto& [chiesta, testo] : linee) {
        if (ultima && diChi == chiesta) {
            *testo = *ultima;
            continue;
        }
        for (; numero < chiesta; ++numero) {
            const std::size_t fine = bytes.find('\n');
            if (fine == Vista::npos) return;
            bytes.remove_prefix(fine + 1);
        }
        *testo = Ripulita(bytes.substr(0, bytes.find('\n')));
        ultima = testo;
        diChi = chiesta;
    }
}

} // namespace

void Registra(const std::string& file, std::string_view bytes, std::vector<esame::Rilievo>&& rilievi,
              std::vector<Riscontro>& riscontri) {
    const std::size_t primo = riscontri.size();
    for (esame::Rilievo& rilievo : rilievi) riscontri.push_back({file, std::move(rilievo), {}, {}});
    std::vector<std::pair<std::uint32_t, Testo*>> linee;
    for (std::size_t i = primo; i < riscontri.size(); ++i) {
        Riscontro& r = riscontri[i];
        if (r.Cosa.Quale == esame::Tipo::NonTesto) continue; // its bytes are no lines
        linee.emplace_back(r.Cosa.Riga, &r.Linea);
        if (r.Cosa.Apertura != 0) linee.emplace_back(r.Cosa.Apertura, &r.LineaApertura);
    }
    RiempiLinee(bytes, linee);
    std::unordered_map<Testo, std::uint32_t> volte;
    for (std::size_t i = primo; i < riscontri.size(); ++i) {
        Riscontro& r = riscontri[i];
        r.Volta = ++volte[Testo(esame::RegolaDi(r.Cosa.Quale).Id) + r.Linea];
    }
}

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
#include "cli/vicino.h"

#include <algorithm>

#include "text/testo.h"

namespace morvella::cli {

namespace {

// Typing errors between two words: a letter too many, too few, another one, or two swapped.
std::size_t Distanza(const std::string& a, const std::string& b) {
    std::vector<std::size_t> prima(b.size() + 1);
    std::vector<std::size_t> sopra(b.size() + 1);
    std::vector<std::size_t> riga(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) riga[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        prima.swap(sopra);
        sopra.swap(riga);
        riga[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t cambio = a[i - 1] == b[j - 1] ? 0 : 1;
            riga[j] = std::min({sopra[j] + 1, riga[j - 1] + 1, sopra[j - 1] + cambio});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                riga[j] = std::min(riga[j], prima[j - 2] + 1);
        }
    }
    return riga[b.size()];
}

constexpr std::size_t MinimoCercato = 3;

} // namespace

std::string PiuVicino(const std::string& scritto, const std::vector<std::string>& nomi) {
    if (scritto.size() < MinimoCercato) return "";
    const std::string cercato = LCase(scritto);
    const std::string* inizio = nullptr;
    int iniziano = 0;
    const std::string* vicino = nullptr;
    std::size_t minima = std::max<std::size_t>(cercato.size() / 3, 1) + 1; // more than that is another word
    for (const std::string& nome : nomi) {
        const std::string piegato = LCase(nome);
        if (piegato.starts_with(cercato)) {
            inizio = &nome;
            ++iniziano;
        }
        const std::size_t diverso =
            std::max(piegato.size(), cercato.size()) - std::min(piegato.size(), cercato.size());
        if (diverso >= minima) continue;
        const std::size_t distanza = Distanza(cercato, piegato);
        if (distanza >= minima) continue;
        minima = distanza;
        vicino = &nome;
    }
    if (iniziano == 1) return *inizio;
    return vicino ? *vicino : "";
}

std::string Forse(const std::string& scritto, const std::vector<std::string>& nomi) {
    const std::string vicino = PiuVicino(scritto, nomi);
    return vicino.empty() ? "" : " (forse «" + vicino + "»?)";
}

} // namespace morvella::cli

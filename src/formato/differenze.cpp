// SPDX-License-Identifier: MIT
//
// Line stands against line, so a difference needs no search.
#include <algorithm>
#include <vector>

#include "formato/formato.h"

namespace morvella::formato {

namespace {

constexpr std::size_t Contesto = 3;

std::vector<std::string_view> Righe(std::string_view bytes) {
    std::vector<std::string_view> righe;
    while (!bytes.empty()) {
        const std::size_t eol = bytes.find('\n');
        righe.push_back(bytes.substr(0, eol == bytes.npos ? eol : eol + 1));
        bytes.remove_prefix(righe.back().size());
    }
    return righe;
}

void Aggiungi(std::string& testo, char segno, std::string_view riga) {
    testo += segno;
    testo += riga;
    if (!riga.ends_with('\n')) testo += "\n\\ No newline at end of file\n";
}

std::string Tratto(std::size_t da, std::size_t quante) {
    return std::to_string(da + 1) + (quante == 1 ? "" : "," + std::to_string(quante));
}

} // namespace

std::string Differenze(std::string_view sorgente, std::string_view copia, std::string_view nomeSorgente,
                       std::string_view nomeCopia) {
    const std::vector<std::string_view> sue = Righe(sorgente);
    const std::vector<std::string_view> nuove = Righe(copia);
    const std::size_t tutte = std::min(sue.size(), nuove.size());
    const auto diversa = [&](std::size_t i) { return sue[i] != nuove[i]; };
    std::string testo;
    for (std::size_t i = 0; i < tutte; ++i) {
        if (!diversa(i)) continue;
        if (testo.empty())
            testo.append("--- ").append(nomeSorgente).append("\n+++ ").append(nomeCopia).append("\n");
        const std::size_t da = i - std::min(i, Contesto);
        // Changes whose contexts would meet are one hunk.
        std::size_t ultima = i;
        for (std::size_t j = i + 1; j < tutte && j - ultima <= 2 * Contesto + 1; ++j)
            if (diversa(j)) ultima = j;
        const std::size_t fino = std::min(ultima + 1 + Contesto, tutte);
        const std::string tratto = Tratto(da, fino - da);
        testo += "@@ -" + tratto + " +" + tratto + " @@\n";
        for (std::size_t j = da; j < fino;) {
            if (!diversa(j)) {
                Aggiungi(testo, ' ', sue[j++]);
                continue;
            }
            std::size_t dopo = j;
            while (dopo < fino && diversa(dopo)) ++dopo;
            for (std::size_t k = j; k < dopo; ++k) Aggiungi(testo, '-', sue[k]);
            for (std::size_t k = j; k < dopo; ++k) Aggiungi(testo, '+', nuove[k]);
            j = dopo;
        }
        i = fino - 1;
    }
    return testo;
}

} // namespace morvella::formato

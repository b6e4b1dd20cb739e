// SPDX-License-Identifier: MIT
#include "cli/lettura.h"

#include <algorithm>
#include <limits>

namespace morvella::cli {

std::string_view LetturaIntera::Leggi(const std::string& percorso) {
    const Scheda cosa = disco_.Esamina(percorso);
    if (cosa.Errore != 0) throw Errore(cosa.Errore, percorso);
    if (cosa.Tipo != TipoVoce::File) throw Errore(cosa.Esiste() ? ErrAccesso : ErrFileAssente, percorso);
    const auto file = disco_.ApriLettura(percorso);
    // One byte more than the file has: it may have grown since it was asked.
    constexpr std::uint64_t Massimo = std::numeric_limits<std::uint32_t>::max();
    const auto misura = static_cast<std::size_t>(std::min(cosa.Bytes + 1, Massimo));
    if (buffer_.size() < misura) buffer_.resize(misura);
    std::size_t letti = 0;
    while (const std::size_t ora = file->Leggi(buffer_.data() + letti, buffer_.size() - letti)) {
        letti += ora;
        if (letti >= Massimo) break;
        if (letti == buffer_.size()) buffer_.resize(2 * letti);
    }
    return {buffer_.data(), letti};
}

} // namespace morvella::cli

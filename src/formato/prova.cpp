// SPDX-License-Identifier: MIT
//
// The proof of a copy. It shares nothing with what lays out: what one gets wrong the other must
// not get wrong in the same way.
#include "formato/formato.h"

namespace morvella::formato {

namespace {

std::string_view PrendiRiga(std::string_view& resto) noexcept {
    const std::string_view riga =
        resto.substr(0, resto.find('\n') + (resto.find('\n') == resto.npos ? 0 : 1));
    resto.remove_prefix(riga.size());
    return riga;
}

// The text of a line and its end, without the blanks around the text that do not count.
struct Parti {
    std::string_view Testo, Fine;
    bool operator==(const Parti&) const = default;
};
Parti Dividi(std::string_view riga, bool senzaCode) noexcept {
    std::size_t fine = riga.size();
    if (fine > 0 && riga[fine - 1] == '\n') --fine;
    if (fine < riga.size() && fine > 0 && riga[fine - 1] == '\r') --fine;
    std::string_view testo = riga.substr(0, fine);
    const std::size_t primo = testo.find_first_not_of(" \t");
    testo.remove_prefix(primo == testo.npos ? testo.size() : primo);
    if (senzaCode) testo = testo.substr(0, testo.find_last_not_of(" \t") + 1);
    return {testo, riga.substr(fine)};
}

} // namespace

std::optional<Diversita> Confronta(std::string_view sorgente, std::string_view copia, bool senzaCode) {
    for (std::uint32_t numero = 1; !sorgente.empty() || !copia.empty(); ++numero) {
        const bool finita = sorgente.empty() || copia.empty();
        const std::string_view sua = PrendiRiga(sorgente);
        const std::string_view nuova = PrendiRiga(copia);
        if (finita || Dividi(sua, senzaCode) != Dividi(nuova, senzaCode))
            return Diversita{numero, sua, nuova};
    }
    return std::nullopt;
}

std::uint32_t RigheCambiate(std::string_view sorgente, std::string_view copia) {
    std::uint32_t cambiate = 0;
    while (!sorgente.empty() || !copia.empty())
        if (PrendiRiga(sorgente) != PrendiRiga(copia)) ++cambiate;
    return cambiate;
}

} // namespace morvella::formato

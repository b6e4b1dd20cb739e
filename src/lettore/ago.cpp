// SPDX-License-Identifier: MIT
#include "lettore/ago.h"

#include <algorithm>
#include <array>

namespace morvella::lettore {

namespace {

// The bytes of the connectors: │ ║ └ ├ ─ ╚ ╔ ═ ┌
constexpr Vista DiConnettori = "\xB3\xBA\xC0\xC3\xC4\xC8\xC9\xCD\xDA";

} // namespace

void Piega(Vista bytes, Testo& piegati) {
    static const auto tavola = [] {
        std::array<char, 256> t{};
        for (unsigned i = 0; i < 256; ++i)
            t[i] = static_cast<char>(MinuscolaByte(static_cast<unsigned char>(i)));
        return t;
    }();
    piegati.resize(bytes.size());
    std::transform(bytes.begin(), bytes.end(), piegati.begin(),
                   [](char c) { return tavola[static_cast<unsigned char>(c)]; });
}

Ago::Ago(std::u16string_view testo) {
    for (const char16_t c : testo) {
        int byte = -1;
        char16_t segno = c;
        for (unsigned i = 0; i < 256 && byte < 0; ++i)
            if (c != u'\uFFFD' && Segno(Tratto::Scritto, static_cast<char>(i)) == c) {
                byte = MinuscolaByte(static_cast<unsigned char>(i));
                segno = Segno(Tratto::Scritto, static_cast<char>(byte));
            }
        for (const char connettore : DiConnettori) {
            const auto piegato = MinuscolaByte(static_cast<unsigned char>(connettore));
            if (byte < 0 && Segno(Tratto::Ciclo, connettore) == c) byte = piegato;
            ambiguo_ = ambiguo_ || byte == piegato;
        }
        assente_ = assente_ || byte < 0;
        segni_ += segno;
        bytes_ += static_cast<char>(byte);
    }
}

bool Ago::Qui(Vista riga, const std::vector<Porzione>& fette, std::size_t da) const {
    auto fetta =
        std::find_if(fette.begin(), fette.end(), [&](const Porzione& f) { return da < f.Da + f.Quanti; });
    for (std::size_t i = 0; i < segni_.size(); ++i) {
        while (fetta != fette.end() && da + i >= fetta->Da + fetta->Quanti) ++fetta;
        if (fetta == fette.end()) return false;
        const bool disegnata =
            fetta->Che == Tratto::Condizione || fetta->Che == Tratto::Ciclo || fetta->Che == Tratto::Barra;
        const char c = riga[da + i];
        const char piegato = disegnata ? c : static_cast<char>(MinuscolaByte(static_cast<unsigned char>(c)));
        if (Segno(fetta->Che, piegato) != segni_[i]) return false;
    }
    return true;
}

Lungo Ago::In(Vista riga, const std::vector<Porzione>& fette, Lungo da, Lungo fine) const {
    if (Vuoto() || assente_ || da >= fine) return -1;
    Testo piegati;
    Piega(Mid(riga, da + 1, fine - da), piegati);
    for (std::size_t n = 0; (n = piegati.find(bytes_, n)) != Testo::npos; ++n) {
        const std::size_t qui = n + static_cast<std::size_t>(da);
        if (!ambiguo_ || Qui(riga, fette, qui)) return static_cast<Lungo>(qui);
    }
    return -1;
}

} // namespace morvella::lettore

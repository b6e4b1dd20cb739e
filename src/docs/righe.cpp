// SPDX-License-Identifier: MIT
#include "docs/righe.h"

#include <array>

namespace morvella {

void ScriviRighe(Stato& s, int n, std::span<const Vista> righe, std::initializer_list<Vista> valori) {
    const auto* valore = valori.begin();
    for (Vista riga : righe) {
        std::array<Vista, 8> pezzi;
        std::size_t quanti = 0;
        for (std::size_t segno = riga.find('@'); segno != Vista::npos; segno = riga.find('@')) {
            pezzi[quanti++] = riga.substr(0, segno);
            pezzi[quanti++] = *valore++;
            riga.remove_prefix(segno + 1);
        }
        pezzi[quanti++] = riga;
        pezzi[quanti++] = "\r\n";
        s.Canale.PrintPezzi(n, std::span(pezzi.data(), quanti));
    }
}

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "scan/sorgente.h"

#include "scan/rubrica.h"

namespace morvella {

void RigheSorgente::Leggi() {
    date_ = 0;
    quante_ = Istruzione(s_, [&] {
        RigaSorgente* questa = righe_.data();
        return s_.Canale.LineInputTrim(1, righe_.size(), [&](const LineaLetta& riga, bool inMemoria) {
            inMemoria_ = inMemoria;
            *questa++ = {riga, inMemoria ? ClassificaInMemoria(riga.Testo, riga.Lunga)
                                         : ClassificaRiga(riga.Trimmata())};
        });
    });
    if (quante_ > 0) return;
    // The handler resumed after the failed Line Input: its variable is empty, and the loop goes on.
    inMemoria_ = false;
    righe_[0] = {};
    quante_ = 1;
}

} // namespace morvella

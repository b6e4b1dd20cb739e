// SPDX-License-Identifier: MIT
#include "text/flusso.h"

#include <algorithm>
#include <array>

namespace morvella {

FlussoTesto::FlussoTesto(Archivio& archivio, Vista percorso) : percorso_(percorso) {
    const auto file = archivio.ApriLettura(archivio.Trova(percorso), percorso);
    std::array<char, 4096> blocco{};
    try {
        while (const std::size_t letti = file->Leggi(blocco.data(), blocco.size()))
            testo_.append(blocco.data(), letti);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
}

Vista FlussoTesto::ReadLine() {
    if (AtEndOfStream()) throw Errore(ErrFineFile, percorso_);
    const std::size_t fine = std::min(testo_.find("\r\n", letti_), testo_.size());
    const Vista riga = Vista(testo_).substr(letti_, fine - letti_);
    letti_ = std::min(fine + 2, testo_.size());
    return riga;
}

} // namespace morvella

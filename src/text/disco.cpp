// SPDX-License-Identifier: MIT
#include "text/disco.h"

#include <cstdio>

namespace morvella {

std::string Disco::TestoData(const Istante& quando) {
    char testo[48];
    std::snprintf(testo, sizeof testo, "%02d/%02d/%04d", quando.Giorno, quando.Mese, quando.Anno);
    return testo;
}

std::string Disco::TestoOra(const Istante& quando) {
    char testo[48];
    std::snprintf(testo, sizeof testo, "%02d:%02d:%02d", quando.Ora, quando.Minuto, quando.Secondo);
    return testo;
}

std::string Disco::DirectoryUnita(const std::string& unita) {
    if (unita != "C:" && unita != "c:") throw Errore(ErrUnita);
    return "/";
}

unsigned long Disco::GetShortPathNameA(const std::string&, char*, unsigned long) { return 0; }

} // namespace morvella

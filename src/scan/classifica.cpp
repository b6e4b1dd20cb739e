// SPDX-License-Identifier: MIT
#include "scan/classifica.h"

#include <algorithm>

#include "scan/rubrica.h"

namespace morvella {

Classe ClassificaRiga(Vista riga) noexcept {
    char inizio[16];
    std::memset(inizio, ' ', sizeof inizio);
    if (!riga.empty()) std::memcpy(inizio, riga.data(), std::min(riga.size(), sizeof inizio));
    return ClassificaInMemoria(inizio, riga.size());
}

constinit const std::array<CodiceBlocco, NumeroClassi> CodiciBlocco = [] {
    std::array<CodiceBlocco, NumeroClassi> codici;
    codici[RigaSub] = {"01", 2};
    codici[RigaFunction] = {"02", 2};
    codici[RigaIf] = {"03", 2};
    codici[RigaCondIf] = {"04", 2};
    codici[RigaFor] = {"05", 2};
    codici[RigaWith] = {"06", 2};
    codici[RigaSelect] = {"07", 2};
    codici[RigaEndSub] = {"08", 2};
    codici[RigaDo] = {"09", 2};
    codici[RigaEndFunction] = {"10", 2};
    codici[RigaProperty] = {"11", 2};
    codici[RigaEndProperty] = {"12", 2};
    return codici;
}();

} // namespace morvella

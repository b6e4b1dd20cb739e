// SPDX-License-Identifier: MIT
#include "text/disco/protezione.h"

#include <algorithm>

#include "text/disco/nomi.h"

namespace morvella {

void Protezione::Proteggi(const std::vector<Testo>& percorsi) {
    // A project's rows lie in a few directories: each is asked once. Where one has changed meanwhile,
    // a name that was not there may be there now, and each path asks for itself.
    Percorsi::Viste viste;
    Raccogli(percorsi, &viste);
    const bool cambiate = std::any_of(viste.begin(), viste.end(), [&](const auto& directory) {
        return disco_.Esamina(PerDisco(directory.first)) != directory.second;
    });
    if (cambiate) Raccogli(percorsi, nullptr);
}

void Protezione::Raccogli(const std::vector<Testo>& percorsi, Percorsi::Viste* viste) {
    protetti_.clear();
    directory_.clear();
    protetti_.reserve(percorsi.size());
    for (const Testo& percorso : percorsi) {
        if (percorso.find('\0') != Testo::npos) continue;
        const Trovato file = percorsi_.Trova(percorso, viste);
        if (file.Cosa.Errore != 0) throw Errore(file.Cosa.Errore, percorso);
        if (file.Cosa.Tipo == TipoVoce::File) protetti_.insert(file.Cosa.Chi);
        const std::string directory = PerDisco(DirectoryDi(file.Percorso));
        if (directory_.contains(directory)) continue;
        const Scheda sua = disco_.Esamina(directory);
        if (sua.Errore != 0) throw Errore(sua.Errore, percorso);
        directory_.emplace(directory, sua.Modificato);
    }
}

bool Protezione::Fresca() const {
    return std::all_of(directory_.begin(), directory_.end(), [&](const auto& directory) {
        return disco_.Esamina(directory.first).Modificato == directory.second;
    });
}

} // namespace morvella

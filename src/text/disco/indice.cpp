// SPDX-License-Identifier: MIT
#include "text/disco/indice.h"

#include <algorithm>

#include "text/disco/nomi.h"

namespace morvella {

const std::vector<std::string>* Indice::Cerca(const std::string& directory, const Scheda& cosa, Vista nome,
                                              int& errore) {
    static const std::vector<std::string> nessuno;
    Elenco& elenco = elenchi_[directory];
    if (elenco.Modificato != cosa.Modificato) {
        elenco.Nomi.clear();
        elenco.Modificato.reset();
        std::vector<std::string> nomi;
        try {
            nomi = disco_.Elenca(PerDisco(directory));
        } catch (const Errore& e) {
            // One that went meanwhile holds nothing.
            if (e.Numero != ErrFileAssente && e.Numero != ErrPercorso) errore = e.Numero;
            return nullptr;
        }
        std::sort(nomi.begin(), nomi.end());
        for (std::string& scritto : nomi)
            elenco.Nomi[LCase(TestoDiNome(scritto))].push_back(std::move(scritto));
        elenco.Modificato = cosa.Modificato;
    }
    const auto riga = elenco.Nomi.find(LCase(nome));
    return riga == elenco.Nomi.end() ? &nessuno : &riga->second;
}

Indice::Modifica Indice::Prepara(const std::string& percorso, const std::optional<Scheda>& directory) {
    Modifica modifica;
    const auto riga = elenchi_.find(DirectoryDi(percorso));
    if (riga == elenchi_.end()) return modifica;
    const Scheda cosa = directory ? *directory : disco_.Esamina(PerDisco(riga->first));
    if (cosa.Modificato != riga->second.Modificato) return modifica;
    modifica.indice_ = this;
    modifica.percorso_ = percorso;
    return modifica;
}

void Indice::Modifica::Annota(bool nato) {
    if (!indice_) return;
    const std::string directory = DirectoryDi(percorso_);
    const std::string nome = percorso_.substr(directory.size() + 1);
    Elenco& elenco = indice_->elenchi_[directory];
    std::vector<std::string>& scritti = elenco.Nomi[LCase(TestoDiNome(nome))];
    const auto posto = std::lower_bound(scritti.begin(), scritti.end(), nome);
    const bool presente = posto != scritti.end() && *posto == nome;
    if (nato && !presente) scritti.insert(posto, nome);
    if (!nato && presente) scritti.erase(posto);
    elenco.Modificato = indice_->disco_.Esamina(PerDisco(directory)).Modificato;
}

} // namespace morvella

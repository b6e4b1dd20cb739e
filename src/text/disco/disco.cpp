// SPDX-License-Identifier: MIT
#include "text/disco/disco.h"

#include <algorithm>

namespace morvella {

namespace {

// A listing or a page has its date: snprintf showed in their profiles.
std::string Cifre(int numero, std::size_t quante) {
    std::string cifre = std::to_string(numero);
    if (cifre.size() < quante) cifre.insert(0, quante - cifre.size(), '0');
    return cifre;
}

} // namespace

std::string Disco::TestoData(const Istante& quando) {
    return Cifre(quando.Giorno, 2) + '/' + Cifre(quando.Mese, 2) + '/' + Cifre(quando.Anno, 4);
}

std::string Disco::TestoOra(const Istante& quando) {
    return Cifre(quando.Ora, 2) + ':' + Cifre(quando.Minuto, 2) + ':' + Cifre(quando.Secondo, 2);
}

std::string Disco::Assoluto(const std::string& percorso) {
    const std::string tutto = percorso.starts_with('/') ? percorso : DirectoryCorrente() + '/' + percorso;
    std::string intero;
    for (std::size_t i = 0; i < tutto.size();) {
        const std::size_t fine = std::min(tutto.find('/', i), tutto.size());
        const std::string nome = tutto.substr(i, fine - i);
        i = fine + 1;
        if (nome == "..")
            intero.erase(std::min(intero.find_last_of('/'), intero.size()));
        else if (!nome.empty() && nome != ".")
            intero += '/' + nome;
    }
    return intero.empty() ? "/" : intero;
}

std::vector<Unita> Disco::ElencaUnita() { return {{"C:", "/", "/"}}; }

bool Disco::Scrivibile(const std::string& directory) {
    return Esamina(directory).Tipo == TipoVoce::Directory;
}

std::string Disco::DirectoryUnita(const std::string& unita) {
    for (const Unita& u : ElencaUnita()) {
        const bool questa = unita.size() == 2 && (unita[0] & ~0x20) == u.Lettera[0] && unita[1] == ':';
        if (questa && Esamina(u.Directory).Tipo == TipoVoce::Directory) return u.Directory;
    }
    throw Errore(ErrUnita);
}

unsigned long Disco::GetShortPathNameA(const std::string&, char*, unsigned long) { return 0; }

} // namespace morvella

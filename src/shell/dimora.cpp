// SPDX-License-Identifier: MIT
#include "shell/dimora.h"

#include <algorithm>

#include "text/testo.h"

namespace morvella {

namespace {

// What the program looks for in App.Path: the pictures of the pages, those of the help page, and
// what it writes there itself.
constexpr const char* Corredo[] = {
    "p2.gif",  "Dario.gif", "BLULETHR.GIF", "home.GIF",      "A01.jpg",
    "A02.jpg", "A03.jpg",   "Default.ini",  "tavolerio.htm",
};

// With the directories above it.
void Crea(Disco& disco, const std::string& directory) {
    if (disco.Esamina(directory).Tipo == TipoVoce::Directory) return;
    const std::size_t barra = directory.find_last_of('/');
    if (barra != std::string::npos && barra > 0) Crea(disco, directory.substr(0, barra));
    try {
        disco.CreaDirectory(directory);
    } catch (const Errore&) {
        // Another start may have made it just now.
        if (disco.Esamina(directory).Tipo != TipoVoce::Directory) throw;
    }
}

// The names are compared as the program will look for them, without regard to case. A link that
// leads nowhere has its name, too, and is not written through.
std::vector<Errore> Riempi(Disco& disco, const std::string& da, const std::string& a) {
    std::vector<std::string> presenti = disco.Elenca(a);
    for (std::string& nome : presenti) nome = LCase(nome);
    std::vector<Errore> guasti;
    for (const char* nome : Corredo) {
        if (std::find(presenti.begin(), presenti.end(), LCase(nome)) != presenti.end()) continue;
        const std::string installato = da + '/' + nome;
        const std::string suo = a + '/' + nome;
        if (disco.Esamina(installato).Tipo != TipoVoce::File) continue;
        try {
            disco.Copia(installato, suo);
        } catch (const Errore& e) {
            guasti.emplace_back(e.Numero, e.File.empty() ? suo : e.File);
            try {
                // Half a picture would be taken for his at the next start.
                if (disco.Esamina(suo).Esiste()) disco.Cancella(suo);
            } catch (const Errore&) { // it stays
            }
        }
    }
    return guasti;
}

} // namespace

Dimora TrovaDimora(Disco& disco, const std::string& programma, const std::string& utente) {
    Dimora qui{programma, false, {}};
    if (utente.empty() || utente == programma || disco.Scrivibile(programma)) return qui;
    try {
        Crea(disco, utente);
        Dimora sua{utente, true, Riempi(disco, programma, utente)};
        // Whole as it was filled once, it serves also where nothing can be written any more; one
        // that can be neither filled nor written does not.
        if (sua.Guasti.empty() || disco.Scrivibile(utente)) return sua;
    } catch (const Errore&) { // no directory of his own
    }
    return qui;
}

} // namespace morvella

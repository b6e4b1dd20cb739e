// SPDX-License-Identifier: MIT
#include "shell/dimora.h"

#include <algorithm>

#include "text/testo.h"

namespace morvella {

namespace {

// The files in App.Path: pictures of the pages and of the help page, and the two files that the
// program writes.
constexpr const char* Corredo[] = {
    "p2.gif",  "Dario.gif", "BLULETHR.GIF", "home.GIF",      "A01.jpg",
    "A02.jpg", "A03.jpg",   "Default.ini",  "tavolerio.htm",
};

// Makes the directory and those above it.
void Crea(Disco& disco, const std::string& directory) {
    if (disco.Esamina(directory).Tipo == TipoVoce::Directory) return;
    const std::size_t barra = directory.find_last_of('/');
    if (barra != std::string::npos && barra > 0) Crea(disco, directory.substr(0, barra));
    try {
        disco.CreaDirectory(directory);
    } catch (const Errore&) {
        // Another process may have made it meanwhile.
        if (disco.Esamina(directory).Tipo != TipoVoce::Directory) throw;
    }
}

// Copies what is missing. Names are compared without regard to case, as the program will look for
// them. A dangling link counts as present, so that nothing is written through it.
std::vector<Errore> Riempi(Disco& disco, const std::string& da, const std::string& a) {
    std::vector<std::string> presenti = disco.Elenca(a);
    for (std::string& nome : presenti) nome = LCase(nome);
    std::vector<Errore> guasti;
    for (const char* nome : Corredo) {
        if (std::find(presenti.begin(), presenti.end(), LCase(nome)) != presenti.end()) continue;
        const std::string installato = da + '/' + nome;
        const std::string suo = a + '/' + nome;
        const Scheda cosa = disco.Esamina(installato);
        if (cosa.Errore != 0) guasti.emplace_back(cosa.Errore, installato);
        if (cosa.Tipo != TipoVoce::File) continue;
        try {
            disco.Copia(installato, suo);
        } catch (const Errore& e) {
            guasti.emplace_back(e.Numero, e.File.empty() ? suo : e.File);
            try {
                // The next start would take half a picture for the user's own.
                if (disco.Esamina(suo).Esiste()) disco.Cancella(suo);
            } catch (const Errore&) { // it remains
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
        // A complete directory is good even if it has become read-only; an incomplete one that
        // cannot be written is not.
        if (sua.Guasti.empty() || disco.Scrivibile(utente)) return sua;
    } catch (const Errore&) { // the user's directory cannot be made or read
    }
    return qui;
}

} // namespace morvella

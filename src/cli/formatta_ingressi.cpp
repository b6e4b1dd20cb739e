// SPDX-License-Identifier: MIT
#include <algorithm>

#include "cli/formatta.h"
#include "cli/verifica.h"

namespace morvella::cli {

namespace {

// The module that a line of a project file names, whatever kind it is; "" for all other lines.
Vista ModuloDi(Vista linea) {
    const std::size_t uguale = linea.find('=');
    if (uguale == Vista::npos) return {};
    const Testo chiave = LCase(Trim(linea.substr(0, uguale)));
    Vista valore = linea.substr(uguale + 1);
    if (chiave == "module" || chiave == "class") {
        const std::size_t dopo = valore.find(';');
        return dopo == Vista::npos ? Vista() : Trim(valore.substr(dopo + 1));
    }
    for (const char* altra : {"form", "usercontrol", "propertypage", "userdocument", "designer"})
        if (chiave == altra) return Trim(valore);
    return {};
}

// Where a module's copy goes: to the same place below the directory for the copies, and for a module
// outside of the project flat into it.
Testo NomeDiCopia(Testo nome) {
    std::replace(nome.begin(), nome.end(), '/', '\\');
    while (nome.starts_with(".\\")) nome.erase(0, 2);
    const bool fuori =
        nome.starts_with('\\') || nome.find("..") != Testo::npos || nome.find(':') != Testo::npos;
    return fuori ? nome.substr(nome.find_last_of('\\') + 1) : nome;
}

} // namespace

bool TrovaIngressi(const std::vector<std::string>& ingressi, Ambiente& ambiente, Archivio& archivio,
                   std::vector<DaFormattare>& sorgenti, const std::function<void(const std::string&)>& di) {
    bool tutti = true;
    std::vector<Testo> protetti;
    for (const std::string& ingresso : ingressi) {
        const std::string percorso = ambiente.Macchina.Assoluto(ingresso);
        const std::size_t barra = percorso.find_last_of('/');
        const std::string directory = percorso.substr(0, barra);
        // A directory that Windows-1252 cannot spell is reached by its hook, of which there is one.
        const Testo dove = ingressi.size() == 1 ? archivio.Aggancia(Gancio::Progetto, directory)
                                                : Archivio::TestoDiPercorso(directory);
        const Testo nome = archivio.Ricorda(percorso.substr(barra + 1));
        const Testo questo = dove + "\\" + nome;
        protetti.push_back(questo);
        if (LCase(Right(nome, 4)) != ".vbp") {
            sorgenti.push_back({questo, ingresso, dove, nome});
            continue;
        }
        const std::string davanti = ingresso.substr(0, ingresso.size() - (percorso.size() - barra - 1));
        try {
            const std::string bytes = LeggiFile(archivio, questo);
            for (std::size_t da = 0; da < bytes.size();) {
                const std::size_t fine = std::min(bytes.find_first_of("\r\n", da), bytes.size());
                const Testo modulo(ModuloDi(Vista(bytes).substr(da, fine - da)));
                da = fine + 1;
                if (modulo.empty()) continue;
                std::string detto = Utf8Da1252(modulo);
                std::replace(detto.begin(), detto.end(), '\\', '/');
                sorgenti.push_back({dove + "\\" + modulo, davanti + detto, dove, NomeDiCopia(modulo)});
                protetti.push_back(sorgenti.back().Sorgente);
            }
        } catch (const Errore& e) {
            tutti = false;
            di("morvella-cli: " + ingresso + ": errore " + std::to_string(e.Numero) + ", " +
               Utf8Da1252(Descrizione(e.Numero)));
        }
    }
    archivio.Proteggi(protetti);
    return tutti;
}

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
#include "cli/avvisi.h"

#include <unordered_map>

#include "shell/cartella.h"

namespace morvella::cli {

namespace {

constexpr const char* RimedioLf = " ha fine riga LF e verrebbe letto come una riga sola: usare --lf, "
                                  "o convertirlo in CR LF (per esempio con unix2dos).";

std::string Tra(Vista riga) { return "«" + Utf8Da1252(riga) + "»"; }

// Where the rewriter's output with this name below the work directory comes to lie: there, or
// flat in the work directory when the directory part of the name is missing.
std::string Destinazione(Stato& s, const Testo& nome) {
    const Testo lavoro = s.Dir1Path + "\\Appoggio\\";
    Trovato file = s.File.Trova(LCase(s.DirAppoggio + "\\" + nome));
    if (!file.DirectoryPresente)
        file = s.File.Trova(lavoro + LCase(nome.substr(nome.find_last_of('\\') + 1)));
    return file.Percorso;
}

} // namespace

bool FiniRigaLf(Stato& s, Vista percorso) {
    try {
        const auto file = s.File.ApriLettura(s.File.Trova(percorso), percorso);
        std::vector<char> blocco(16 * 1024);
        const std::size_t letti = file->Leggi(blocco.data(), blocco.size());
        std::size_t soli = 0;
        std::size_t cr = 0;
        for (std::size_t i = 0; i < letti; ++i) {
            if (blocco[i] == '\r') ++cr;
            if (blocco[i] == '\n' && (i == 0 || blocco[i - 1] != '\r')) ++soli;
        }
        return soli > cr;
    } catch (const Errore&) {
        return false;
    }
}

std::vector<std::string> Avvisi(Stato& s, const std::vector<Lungo>& righe) {
    std::vector<std::string> avvisi;
    const auto lf = [&](Vista nome) {
        if (!s.Canale.FineRigaLf && FiniRigaLf(s, s.Dir1Path + "\\" + Testo(nome)))
            avvisi.push_back(Tra(nome) + RimedioLf);
    };
    lf(s.File1Leggi.Scelto());
    if (righe.empty()) return avvisi;

    const std::string lavoro = s.File.Trova(s.Dir1Path + "\\Appoggio").Percorso + "/";
    std::unordered_map<std::string, Lungo> scrittore;
    for (const Lungo i : righe) {
        const Testo& riga = s.File1.List(i);
        try {
            if (s.File.Dir(s.Dir1Path + "\\" + riga, 0).empty()) {
                avvisi.push_back(Tra(riga) + " manca: il progetto lo nomina, ma il file non c'è.");
                continue;
            }
            lf(riga);
            if (Len(riga) < 4) continue;
            const std::string testo = Destinazione(s, Testo(BaseDiRiga(riga)) + ".txt");
            if (testo.compare(0, lavoro.size(), lavoro) != 0)
                avvisi.push_back(Tra(riga) + " esce da Appoggio: il suo testo va in " + testo + ".");
            std::vector<std::string> scritti = {testo};
            if (s.File.Trova(s.DirAppoggio + "\\" + riga).DirectoryPresente)
                scritti.push_back(Destinazione(s, riga));
            for (const std::string& file : scritti) {
                const auto [altro, nuovo] = scrittore.try_emplace(file, i);
                if (nuovo || altro->second == i) continue;
                avvisi.push_back(Tra(s.File1.List(altro->second)) + " e " + Tra(riga) +
                                 " scrivono lo stesso file, " + file + ": resta il secondo.");
                break;
            }
        } catch (const Errore&) {
            // A row that no path can be made of: the engine says so.
        }
    }
    return avvisi;
}

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
#include "cli/avvisi.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

#include "shell/cartella.h"

namespace morvella::cli {

namespace {

constexpr const char* RimedioLf = " ha fine riga LF e verrebbe letto come una riga sola: usare --lf, "
                                  "o convertirlo in CR LF (per esempio con unix2dos).";

std::string Tra(Vista voce) { return "«" + Utf8Da1252(voce) + "»"; }

// The file that an output of this name ends up in: below the work directory, or flat in it when the
// folder of the name is missing. A page is never flattened.
std::string Destinazione(Stato& s, const Testo& nome, Uscite uscite) {
    const Testo lavoro = s.Dir1Path + "\\Appoggio\\";
    Trovato file = s.File.Trova(lavoro + nome);
    if (!file.DirectoryPresente && uscite != Uscite::Pagine)
        file = s.File.Trova(lavoro + nome.substr(nome.find_last_of('\\') + 1));
    return file.Percorso;
}

// The names of a row's outputs below the work directory. The rewriter's second output has the module's
// own name, and is written only where the first was not flattened.
std::vector<Testo> NomiScritti(Stato& s, const Testo& voce, Uscite uscite) {
    const Testo base(BaseDiVoce(voce));
    switch (uscite) {
    case Uscite::Strutture: return {base + ".log"};
    case Uscite::Pagine: return {base + ".Html"};
    default: break;
    }
    std::vector<Testo> nomi = {LCase(base + ".txt")};
    if (s.File.Trova(s.Dir1Path + "\\Appoggio\\" + voce).DirectoryPresente) nomi.push_back(LCase(voce));
    return nomi;
}

void AvvisaLf(Stato& s, Vista nome, std::vector<std::string>& avvisi) {
    if (!s.Canale.FineRigaLf && FiniRigaLf(s, s.Dir1Path + "\\" + Testo(nome)))
        avvisi.push_back(Tra(nome) + RimedioLf);
}

} // namespace

std::size_t LeggiPieno(FileAperto& file, char* dove, std::size_t n) {
    std::size_t letti = 0;
    while (const std::size_t questi = letti < n ? file.Leggi(dove + letti, n - letti) : 0) letti += questi;
    return letti;
}

bool FiniRigaLf(Stato& s, Vista percorso) {
    try {
        const auto file = s.File.ApriLettura(s.File.Trova(percorso), percorso);
        std::vector<char> blocco(std::size_t{16} * 1024);
        const std::size_t letti = LeggiPieno(*file, blocco.data(), blocco.size());
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

bool HaNomeDiSorgente(Vista percorso) {
    constexpr Vista Fini[] = {".vbp", ".vbg", ".vbw", ".frm", ".frx", ".bas", ".cls", ".ctl", ".ctx",
                              ".pag", ".pgx", ".dob", ".dox", ".dsr", ".dsx", ".dca", ".res"};
    return std::find(std::begin(Fini), std::end(Fini), LCase(Right(percorso, 4))) != std::end(Fini);
}

std::vector<std::string> AvvisiLf(Stato& s, const std::vector<Lungo>& voci) {
    std::vector<std::string> avvisi;
    AvvisaLf(s, s.File1Leggi.Scelto(), avvisi);
    for (const Lungo i : voci) AvvisaLf(s, s.File1.List(i), avvisi);
    return avvisi;
}

std::vector<std::string> Avvisi(Stato& s, const std::vector<Lungo>& voci, Uscite uscite) {
    std::vector<std::string> avvisi;
    AvvisaLf(s, s.File1Leggi.Scelto(), avvisi);
    if (uscite == Uscite::Nessuna) return avvisi;

    const std::string lavoro = s.File.Trova(s.Dir1Path + "\\Appoggio").Percorso + "/";
    std::unordered_map<std::string, Lungo> scrittore;
    for (const Lungo i : voci) {
        const Testo& voce = s.File1.List(i);
        try {
            if (s.File.Dir(s.Dir1Path + "\\" + voce, 0).empty()) {
                avvisi.push_back(Tra(voce) + " manca: il progetto lo nomina, ma il file non c'è.");
                continue;
            }
            AvvisaLf(s, voce, avvisi);
            if (Len(voce) < 4) continue;
            bool detto = false;
            for (const Testo& nome : NomiScritti(s, voce, uscite)) {
                const std::string file = Destinazione(s, nome, uscite);
                if (!detto && file.compare(0, lavoro.size(), lavoro) != 0) {
                    avvisi.push_back(Tra(voce) + " esce da Appoggio: si scrive in " + file + ".");
                    detto = true;
                }
                const auto [altro, nuovo] = scrittore.try_emplace(file, i);
                if (nuovo || altro->second == i || detto) continue;
                avvisi.push_back(Tra(s.File1.List(altro->second)) + " e " + Tra(voce) +
                                 " scrivono lo stesso file, " + file + ": resta il secondo.");
                detto = true;
            }
        } catch (const Errore& e) {
            // Where no path can be made of a row, the engine reports it.
            if (e.Numero != ErrNumeroFile)
                avvisi.push_back(Tra(voce) + " non si può esaminare: " + Utf8Da1252(Descrizione(e.Numero)));
        }
    }
    return avvisi;
}

} // namespace morvella::cli

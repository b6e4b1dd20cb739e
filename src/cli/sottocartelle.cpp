// SPDX-License-Identifier: MIT
#include "cli/sottocartelle.h"

#include <algorithm>
#include <optional>
#include <set>

#include "docs/docs.h"
#include "shell/cartella.h"

namespace morvella::cli {

namespace {

// The folders on the way to a row's page, from the work directory on; nothing where the way
// leads out of it.
std::optional<std::vector<Testo>> Cartelle(Vista riga) {
    std::vector<Testo> nomi;
    for (;;) {
        const std::size_t barra = riga.find_first_of("\\/");
        if (barra == Vista::npos) return nomi; // what is left is the file
        const Vista nome = riga.substr(0, barra);
        riga.remove_prefix(barra + 1);
        if (nome.empty() || nome == ".") continue;
        if (nome != "..") {
            nomi.emplace_back(nome);
        } else {
            if (nomi.empty()) return std::nullopt;
            nomi.pop_back();
        }
    }
}

} // namespace

std::vector<std::string> FaiSottocartelle(Stato& s, const std::vector<Lungo>& righe,
                                          std::vector<std::string>& note) {
    std::vector<std::string> cartelle;
    std::set<Testo> viste;
    for (const Lungo i : righe) {
        const Testo& riga = s.File1.List(i);
        const auto nomi = Cartelle(riga);
        if (!nomi) {
            note.push_back("«" + Utf8Da1252(riga) +
                           "» esce dalla directory del progetto: la sua pagina non va in Appoggio.");
            continue;
        }
        Testo cartella;
        for (const Testo& nome : *nomi) {
            cartella += (cartella.empty() ? "" : "\\") + nome;
            if (!viste.insert(LCase(cartella)).second) continue;
            if (cartelle.empty()) PreparaDirectory(s); // as the run does, so that it finds its own directory
            const Testo percorso = s.Dir1Path + "\\Appoggio\\" + cartella;
            if (s.File.Dir(percorso, 16).empty()) s.File.MkDir(percorso);
            cartelle.push_back(cartella);
        }
    }
    return cartelle;
}

void ArredaSottocartelle(Stato& s, const std::vector<std::string>& cartelle,
                         const std::vector<Lungo>& righe) {
    std::set<Testo> pagine;
    for (const Lungo i : righe)
        if (Len(s.File1.List(i)) >= 4) pagine.insert(LCase(Testo(BaseDiRiga(s.File1.List(i))) + ".Html"));
    for (const std::string& cartella : cartelle) {
        const Testo percorso = s.Dir1Path + "\\Appoggio\\" + cartella;
        CopiaFigure(s, percorso);
        if (pagine.contains(LCase(cartella + "\\Indice.Html"))) continue;
        Testo casa;
        for (Lungo n = 1 + std::count(cartella.begin(), cartella.end(), '\\'); n > 0; --n) casa += "../";
        casa += "Indice.Html";
        s.Canale.OpenOutput(1, percorso + "\\Indice.Html");
        s.Canale.Print(1, "<html>");
        s.Canale.Print(1, "<head>");
        s.Canale.Print(1, "<title>Indice Progetto di Documentazione</title>");
        s.Canale.Print(1, "<meta http-equiv=\"refresh\" content=\"0; url=", casa, "\">");
        s.Canale.Print(1, "</head>");
        s.Canale.Print(1, "<body><p align=\"center\"><a href=\"", casa, "\">Indice</a></p></body>");
        s.Canale.Print(1, "</html>");
        s.Canale.Close(1);
    }
}

} // namespace morvella::cli

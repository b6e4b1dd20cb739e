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
// leads out of it, or over a drive.
std::optional<std::vector<Testo>> Cartelle(Vista riga) {
    std::vector<Testo> nomi;
    for (;;) {
        const std::size_t barra = riga.find_first_of("\\/");
        if (barra == Vista::npos) return nomi; // what is left is the file
        const Vista nome = riga.substr(0, barra);
        riga.remove_prefix(barra + 1);
        if (nome.find(':') != Vista::npos) return std::nullopt;
        if (nome.empty() || nome == ".") continue;
        if (nome != "..") {
            nomi.emplace_back(nome);
        } else {
            if (nomi.empty()) return std::nullopt;
            nomi.pop_back();
        }
    }
}

Testo Unita(const std::vector<Testo>& nomi) {
    Testo cartella;
    for (const Testo& nome : nomi) cartella += (cartella.empty() ? "" : "\\") + nome;
    return cartella;
}

// Whether a path is a directory where it seems to be, and not a link to some other place.
bool VeraDirectory(Stato& s, const Testo& percorso) {
    const Trovato cosa = s.File.Trova(percorso);
    return cosa.Cosa.Tipo == TipoVoce::Directory && !s.File.DiscoInUso().Legame(cosa.Percorso);
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
            if (!VeraDirectory(s, percorso)) {
                note.push_back("Appoggio\\" + Utf8Da1252(cartella) +
                               " non è una directory di Appoggio: resta come si trova.");
                break;
            }
            cartelle.push_back(cartella);
        }
    }
    return cartelle;
}

bool CartellaFattibile(Stato& s, Vista riga) {
    const auto nomi = Cartelle(riga);
    if (!nomi) return false;
    Testo percorso = s.Dir1Path + "\\Appoggio";
    for (const Testo& nome : *nomi) {
        percorso += "\\" + nome;
        if (s.File.Dir(percorso, 16).empty()) return true;
        if (!s.File.Dir(percorso, 0).empty()) return false;
    }
    return false;
}

void ArredaSottocartelle(Stato& s, const std::vector<std::string>& cartelle) {
    // Pages of all rows, also of those not selected: they stay.
    std::set<Testo> pagine;
    for (Lungo i = 0; i < s.File1.ListCount(); ++i) {
        const Testo& riga = s.File1.List(i);
        const auto nomi = Cartelle(riga);
        if (!nomi || Len(riga) < 4) continue;
        const Vista base = BaseDiVoce(riga);
        pagine.insert(
            LCase(Unita(*nomi) + "\\" + Testo(base.substr(base.find_last_of("\\/") + 1)) + ".Html"));
    }
    const bool indice = !s.File.Dir(s.Dir1Path + "\\Appoggio\\Indice.Html", 0).empty();
    for (const std::string& cartella : cartelle) {
        const Testo percorso = s.Dir1Path + "\\Appoggio\\" + cartella;
        CopiaFigure(s, percorso);
        if (!indice || pagine.contains(LCase(cartella + "\\Indice.Html"))) continue;
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

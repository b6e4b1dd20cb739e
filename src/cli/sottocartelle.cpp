// SPDX-License-Identifier: MIT
#include "cli/sottocartelle.h"

#include <algorithm>
#include <optional>
#include <set>

#include "docs/docs.h"
#include "shell/cartella.h"

namespace morvella::cli {

namespace {

// The folders on the way from the work directory to a row's page; no value where the way leads out of
// it, or names a drive.
std::optional<std::vector<Testo>> Cartelle(Vista voce) {
    std::vector<Testo> nomi;
    for (;;) {
        const std::size_t barra = voce.find_first_of("\\/");
        if (barra == Vista::npos) return nomi; // the rest is the file's name
        const Vista nome = voce.substr(0, barra);
        voce.remove_prefix(barra + 1);
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

// Whether a path is a directory itself, and not a link to one elsewhere.
bool VeraDirectory(Stato& s, const Testo& percorso) {
    const Trovato cosa = s.File.Trova(percorso);
    return cosa.Cosa.Tipo == TipoVoce::Directory && !s.File.DiscoInUso().Legame(cosa.Percorso);
}

} // namespace

std::vector<std::string> FaiSottocartelle(Stato& s, const std::vector<Lungo>& voci,
                                          std::vector<std::string>& note) {
    std::vector<std::string> cartelle;
    std::set<Testo> viste;
    for (const Lungo i : voci) {
        const Testo& voce = s.File1.List(i);
        const auto nomi = Cartelle(voce);
        if (!nomi) {
            note.push_back("«" + Utf8Da1252(voce) +
                           "» esce dalla directory del progetto: la sua pagina non va in Appoggio.");
            continue;
        }
        Testo cartella;
        for (const Testo& nome : *nomi) {
            cartella += (cartella.empty() ? "" : "\\") + nome;
            if (!viste.insert(LCase(cartella)).second) continue;
            if (cartelle.empty()) PreparaDirectory(s); // before its folders, as the run does
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

bool CartellaFattibile(Stato& s, Vista voce) {
    const auto nomi = Cartelle(voce);
    if (!nomi) return false;
    Testo percorso = s.Dir1Path + "\\Appoggio";
    for (const Testo& nome : *nomi) {
        percorso += "\\" + nome;
        const Scheda cosa = s.File.Trova(percorso).Cosa;
        if (cosa.Errore != 0) return false;
        if (!cosa.Esiste()) return true;
        if (cosa.Tipo != TipoVoce::Directory) return false;
    }
    return false;
}

void ArredaSottocartelle(Stato& s, const std::vector<std::string>& cartelle) {
    // Pages of all rows stay, also of those not selected.
    std::set<Testo> pagine;
    for (Lungo i = 0; i < s.File1.ListCount(); ++i) {
        const Testo& voce = s.File1.List(i);
        const auto nomi = Cartelle(voce);
        if (!nomi || Len(voce) < 4) continue;
        const Vista base = BaseDiVoce(voce);
        pagine.insert(
            LCase(Unita(*nomi) + "\\" + Testo(base.substr(base.find_last_of("\\/") + 1)) + ".Html"));
    }
    const bool indice = !s.File.Dir(s.Dir1Path + "\\Appoggio\\Indice.Html", 0).empty();
    for (const std::string& cartella : cartelle) {
        const Testo percorso = s.Dir1Path + "\\Appoggio\\" + cartella;
        CopiaFigure(s, percorso);
        if (!indice || pagine.contains(LCase(cartella + "\\Indice.Html"))) continue;
        Testo indietro;
        for (Lungo n = 1 + std::count(cartella.begin(), cartella.end(), '\\'); n > 0; --n) indietro += "../";
        indietro += "Indice.Html";
        s.Canale.OpenOutput(1, percorso + "\\Indice.Html");
        s.Canale.Print(1, "<html>");
        s.Canale.Print(1, "<head>");
        s.Canale.Print(1, "<title>Indice Progetto di Documentazione</title>");
        s.Canale.Print(1, "<meta http-equiv=\"refresh\" content=\"0; url=", indietro, "\">");
        s.Canale.Print(1, "</head>");
        s.Canale.Print(1, "<body><p align=\"center\"><a href=\"", indietro, "\">Indice</a></p></body>");
        s.Canale.Print(1, "</html>");
        s.Canale.Close(1);
    }
}

} // namespace morvella::cli

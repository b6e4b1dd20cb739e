// SPDX-License-Identifier: MIT
#include "cli/base.h"

#include <algorithm>
#include <set>

#include "cli/json.h"
#include "cli/opzioni.h"

namespace morvella::cli {

namespace {

constexpr std::string_view Intestazione = "# morvella base 1";

// A text for a field: nothing in it ends the field or the line.
std::string Protetta(const std::string& utf8) {
    std::string testo;
    for (const char c : utf8) {
        if (c == '\\')
            testo += "\\\\";
        else if (c == '\t')
            testo += "\\t";
        else if (c == '\r')
            testo += "\\r";
        else if (c == '\n')
            testo += "\\n";
        else
            testo += c;
    }
    return testo;
}

// The file that a line of a base names.
std::string FileDi(const std::string& riga) {
    std::string file;
    for (std::size_t i = riga.find('\t') + 1; riga[i] != '\t'; ++i) {
        if (riga[i] != '\\') {
            file += riga[i];
            continue;
        }
        const char c = riga[++i];
        file += c == 't' ? '\t' : c == 'r' ? '\r' : c == 'n' ? '\n' : c;
        if (c == '\t') break; // no line that was written so
    }
    return file;
}

} // namespace

std::string ChiaveDiBase(const Riscontro& r) {
    return std::string(esame::RegolaDi(r.Cosa.Quale).Id) + '\t' + Protetta(Utf8Valido(r.File)) + '\t' +
           std::to_string(r.Volta) + '\t' + Protetta(Utf8Da1252(r.Linea));
}

Base Base::Leggi(const std::string& bytes, const std::string& file) {
    Base base;
    std::size_t inizio = 0;
    for (std::size_t n = 0; inizio < bytes.size(); ++n) {
        const std::size_t fine = std::min(bytes.find('\n', inizio), bytes.size());
        std::string riga = bytes.substr(inizio, fine - inizio);
        inizio = fine + 1;
        if (riga.ends_with('\r')) riga.pop_back(); // a version control may have put it there
        const bool giusta =
            n == 0 ? riga == Intestazione : riga.empty() || std::count(riga.begin(), riga.end(), '\t') == 3;
        if (!giusta)
            throw UsoErrato{"--base: " + file + " non è una base scritta da --scrivi-base (riga " +
                            std::to_string(n + 1) + ")"};
        if (n > 0 && !riga.empty()) base.voci_.emplace(std::move(riga), Sorte::Ignota);
    }
    if (bytes.empty()) throw UsoErrato{"--base: " + file + " è vuoto: una base la scrive --scrivi-base"};
    return base;
}

Confronto Base::Confronta(std::vector<Riscontro>& riscontri, const std::unordered_set<std::string>& esaminati,
                          const std::function<bool(const std::string&)>& cE) {
    Confronto esito;
    std::erase_if(riscontri, [&](const Riscontro& r) {
        const auto voce = voci_.find(ChiaveDiBase(r));
        if (voce == voci_.end()) return false;
        voce->second = Sorte::Ritrovata;
        return true;
    });
    esito.Nuovi = riscontri.size();
    for (auto& [riga, sorte] : voci_) {
        if (sorte == Sorte::Ritrovata) {
            ++esito.Noti;
        } else if (!esaminati.contains(FileDi(riga)) && cE(FileDi(riga))) {
            sorte = Sorte::NonEsaminata;
            ++esito.NonEsaminati;
        } else {
            ++esito.Spariti;
        }
    }
    return esito;
}

std::string Base::Scritta(const std::vector<Riscontro>& riscontri, const Base& vecchia) {
    std::set<std::string> righe;
    for (const Riscontro& r : riscontri) righe.insert(ChiaveDiBase(r));
    for (const auto& [riga, sorte] : vecchia.voci_)
        if (sorte != Sorte::Ignota) righe.insert(riga);
    std::string bytes = std::string(Intestazione) + "\n";
    for (const std::string& riga : righe) bytes += riga + "\n";
    return bytes;
}

} // namespace morvella::cli

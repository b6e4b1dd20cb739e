// SPDX-License-Identifier: MIT
#include "text/disco/percorsi.h"

#include <algorithm>

#include "text/disco/nomi.h"

namespace morvella {

namespace {

// Whether `percorso` lies at or below the directory `radice`.
bool Comincia(Vista percorso, Vista radice) {
    if (radice.empty() || percorso.size() < radice.size()) return false;
    if (percorso.size() > radice.size() && !Separatore(percorso[radice.size()])) return false;
    if (percorso.starts_with(radice)) return true;
    for (std::size_t i = 0; i < radice.size(); ++i) {
        const char a = percorso[i];
        const char b = radice[i];
        if (a == b || (Separatore(a) && Separatore(b))) continue;
        return false;
    }
    return true;
}

bool UgualiInAscii(Vista a, Vista b) {
    const auto minuscola = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return minuscola(x) == minuscola(y); });
}

// The names of a path in order, "." dropped and ".." resolved in the text. `base` loses a name for
// each ".." that climbs above it.
std::vector<Vista> Nomi(Vista percorso, std::string& base) {
    std::vector<Vista> nomi;
    nomi.reserve(4);
    while (!percorso.empty()) {
        std::size_t fine = 0;
        while (fine < percorso.size() && !Separatore(percorso[fine])) ++fine;
        const Vista nome = percorso.substr(0, fine);
        percorso.remove_prefix(std::min(fine + 1, percorso.size()));
        if (nome.empty() || nome == ".") continue;
        if (nome != "..") {
            nomi.push_back(nome);
        } else if (!nomi.empty()) {
            nomi.pop_back();
        } else {
            const std::size_t barra = base.find_last_of('/');
            // "C:" and the root of all have no parent: they stay.
            if (barra != std::string::npos) base.erase(barra);
        }
    }
    return nomi;
}

} // namespace

Testo Percorsi::TestoDiPercorso(const std::string& percorso) {
    Testo testo;
    std::size_t inizio = 0;
    while (inizio <= percorso.size()) {
        const std::size_t barra = std::min(percorso.find('/', inizio), percorso.size());
        if (inizio > 0) testo += '\\';
        testo += TestoDiNome(percorso.substr(inizio, barra - inizio));
        inizio = barra + 1;
    }
    while (testo.size() > 1 && testo.back() == '\\' && testo[testo.size() - 2] != ':') testo.pop_back();
    return testo;
}

Testo Percorsi::Ricorda(const std::string& nome) {
    if (std::optional<std::string> testo = Bytes1252DaUtf8(nome)) return *std::move(testo);
    ricordati_.insert(nome);
    return nome;
}

std::string Percorsi::Utf8DiTesto(Vista testo) const {
    std::size_t dove = Vista::npos;
    Vista quale;
    for (const std::string& nome : ricordati_) {
        const std::size_t qui = testo.find(nome);
        if (qui > dove || qui == Vista::npos) continue;
        if (qui == dove && nome.size() < quale.size()) continue; // the longest of those that begin here
        dove = qui;
        quale = nome;
    }
    if (dove == Vista::npos) return Utf8Da1252(testo);
    return Utf8Da1252(testo.substr(0, dove)) + std::string(quale) +
           Utf8DiTesto(testo.substr(dove + quale.size()));
}

Testo Percorsi::Aggancia(Gancio gancio, const std::string& percorso) {
    std::string senzaBarra = percorso;
    while (!senzaBarra.empty() && senzaBarra.back() == '/') senzaBarra.pop_back();
    Testo testo = TestoDiPercorso(PerDisco(senzaBarra));
    // A root needs no hook: its text ends in "\", and leads there by itself.
    ganci_[static_cast<std::size_t>(gancio)] =
        Separatore(testo.back()) ? Radice{} : Radice{testo, std::move(senzaBarra)};
    if (gancio == Gancio::Progetto) {
        ganci_[static_cast<std::size_t>(Gancio::Lavoro)] = {};
        pieghe_.clear();
        ricordati_.clear();
    }
    return testo;
}

void Percorsi::AgganciaLavoro(Vista testo) {
    SganciaLavoro();
    std::string percorso = Trova(testo).Percorso;
    ganci_[static_cast<std::size_t>(Gancio::Lavoro)] = {Testo(testo), std::move(percorso)};
}

void Percorsi::SganciaLavoro() { ganci_[static_cast<std::size_t>(Gancio::Lavoro)] = {}; }

// Strips the hooked directory or the root from the front of `percorso` and gives its path.
std::string Percorsi::Base(Vista& percorso) const {
    for (const Radice& radice : ganci_) { // the work directory first: it lies in the project's
        if (!Comincia(percorso, radice.Nome)) continue;
        percorso.remove_prefix(radice.Nome.size());
        return radice.Percorso;
    }
    if (percorso.size() >= 2 && percorso[1] == ':' && !disco_.DistingueMaiuscole()) {
        std::string unita(percorso.substr(0, 2));
        percorso.remove_prefix(2);
        return unita;
    }
    if (!percorso.empty() && Separatore(percorso.front())) {
        const bool rete = percorso.size() > 1 && Separatore(percorso[1]) && !disco_.DistingueMaiuscole();
        return rete ? "/" : ""; // "\\server\share" keeps both its bars where such names exist
    }
    std::string corrente = disco_.DirectoryCorrente();
    while (!corrente.empty() && corrente.back() == '/') corrente.pop_back();
    return corrente;
}

// The spelling that `nome` means, null when none. Of several the first in byte order, so that the
// choice is stable; for a remembered name only one that differs in ASCII letters alone, since
// anything else that has its text is another file.
const std::string* Percorsi::Scelto(const std::vector<std::string>& scritti, Vista nome) const {
    const auto scritto = ricordati_.contains(nome)
                             ? std::find_if(scritti.begin(), scritti.end(),
                                            [&](const std::string& s) { return UgualiInAscii(s, nome); })
                             : scritti.begin();
    return scritto == scritti.end() ? nullptr : &*scritto;
}

// Seeks one name and appends it to its directory's path, in the disk's spelling when it is there.
Scheda Percorsi::CercaNome(Trovato& file, Vista nome, Viste* viste) {
    file.DirectoryPresente = true;
    file.Directory.reset();
    const std::size_t lunga = file.Percorso.size();
    const bool accentato = !SoloAscii(nome) && !ricordati_.contains(nome);
    file.Percorso += '/';
    if (accentato)
        file.Percorso += Utf8Da1252(nome);
    else
        file.Percorso += nome; // a remembered name is sought and made in its own bytes
    Scheda cosa = disco_.Esamina(file.Percorso);
    if (cosa.Esiste()) return cosa;
    const std::string directory = file.Percorso.substr(0, lunga);
    const std::vector<std::string>* scritti = nullptr;
    if (cosa.Errore == 0) {
        file.Directory = EsaminaDirectory(directory, viste);
        file.DirectoryPresente = file.Directory->Tipo == TipoVoce::Directory;
        cosa.Errore = file.Directory->Errore;
        if (file.DirectoryPresente && disco_.DistingueMaiuscole())
            scritti = indice_.Cerca(directory, *file.Directory, nome, cosa.Errore);
    }
    // A name that Windows-1252 cannot hold stands for itself. Where the index has no name like this
    // in any case or encoding, there is none to ask for.
    if (accentato && !(scritti && scritti->empty())) {
        std::string grezzo = Unisci(directory, std::string(nome));
        const Scheda altra = disco_.Esamina(grezzo);
        if (altra.Esiste()) {
            file.Percorso = std::move(grezzo);
            file.DirectoryPresente = true;
            return altra;
        }
        if (cosa.Errore == 0) cosa.Errore = altra.Errore;
    }
    if (const std::string* scritto = scritti ? Scelto(*scritti, nome) : nullptr) {
        file.Percorso.replace(lunga + 1, std::string::npos, *scritto);
        cosa = disco_.Esamina(file.Percorso);
    }
    return cosa;
}

Scheda Percorsi::EsaminaDirectory(const std::string& directory, Viste* viste) const {
    if (!viste) return disco_.Esamina(PerDisco(directory));
    const auto vista = viste->find(directory);
    if (vista != viste->end()) return vista->second;
    return viste->emplace(directory, disco_.Esamina(PerDisco(directory))).first->second;
}

std::optional<Scheda> Percorsi::NellaCorrente(Vista nome) const {
    const bool agganciato =
        std::any_of(ganci_.begin(), ganci_.end(), [&](const Radice& radice) { return radice.Nome == nome; });
    if (agganciato || nome.empty() || nome == "." || nome == ".." ||
        nome.find_first_of(Vista("\\/\0", 3)) != Vista::npos || !disco_.DistingueMaiuscole())
        return std::nullopt;
    const Scheda cosa =
        disco_.Esamina(SoloAscii(nome) || ricordati_.contains(nome) ? std::string(nome) : Utf8Da1252(nome));
    return cosa.Esiste() ? std::optional(cosa) : std::nullopt;
}

Testo Percorsi::Piega(Vista percorso) {
    Testo piegato = LCase(percorso);
    const std::size_t barra = percorso.find_last_of("\\/");
    if (barra != Vista::npos) pieghe_.insert_or_assign(piegato, Testo(percorso.substr(0, barra)));
    return piegato;
}

Trovato Percorsi::Trova(Vista percorso, Viste* viste) {
    Testo disteso;
    if (const auto piega = pieghe_.find(percorso); piega != pieghe_.end()) {
        disteso.append(piega->second).append(percorso.substr(piega->second.size()));
        percorso = disteso;
    }
    Trovato file;
    if (percorso.find('\0') != Vista::npos) throw Errore(ErrNumeroFile, percorso);
    Vista resto = percorso;
    file.Percorso = Base(resto);
    const std::vector<Vista> nomi = Nomi(resto, file.Percorso);
    if (nomi.empty()) {
        file.Percorso = PerDisco(file.Percorso);
        file.Cosa = disco_.Esamina(file.Percorso);
        file.DirectoryPresente = true;
        return file;
    }
    for (std::size_t i = 0; i < nomi.size(); ++i) {
        file.Cosa = CercaNome(file, nomi[i], viste);
        if (i + 1 == nomi.size()) break;
        if (file.Cosa.Tipo == TipoVoce::Directory) continue;
        // Nothing, or a plain file, where a directory is needed.
        file.DirectoryPresente = false;
        file.Directory.reset();
        file.Cosa = Scheda{.Chi = {}, .Errore = file.Cosa.Errore};
        for (++i; i < nomi.size(); ++i) file.Percorso.append("/").append(Utf8Da1252(nomi[i]));
        break;
    }
    // "x\" is a directory: a plain file, or nothing, of that name is no way to anything.
    if (Separatore(percorso.back()) && file.Cosa.Tipo != TipoVoce::Directory) {
        file.DirectoryPresente = false;
        file.Cosa = Scheda{.Chi = {}, .Errore = file.Cosa.Errore};
    }
    return file;
}

} // namespace morvella

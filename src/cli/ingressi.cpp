// SPDX-License-Identifier: MIT
#include "cli/ingressi.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "cli/opzioni.h"
#include "text/codifica.h"
#include "text/testo.h"

namespace morvella::cli {

namespace {

constexpr Vista Sorgenti[] = {".bas", ".cls", ".frm", ".ctl", ".pag", ".dob", ".dsr"};
// Not walked into: what this program wrote, and what a version control keeps for itself.
constexpr Vista Saltate[] = {"appoggio", ".git", ".svn", ".hg", ".bzr", "_darcs", "cvs", ".vs"};

template <std::size_t N>
bool Tra(const Vista (&nomi)[N], const Testo& nome) {
    return std::find(std::begin(nomi), std::end(nomi), nome) != std::end(nomi);
}

Testo Fine(const std::string& percorso) { return LCase(Right(percorso, 4)); }
bool DiProgetto(const std::string& percorso) { return Fine(percorso) == ".vbp"; }
bool DiGruppo(const std::string& percorso) { return Fine(percorso) == ".vbg"; }

std::string CartellaDi(const std::string& percorso) {
    const std::size_t barra = percorso.find_last_of('/');
    return barra == 0 ? "/" : percorso.substr(0, barra);
}

Vista Pulita(Vista testo) {
    constexpr const char* Bianchi = " \t\r";
    const std::size_t da = testo.find_first_not_of(Bianchi);
    if (da == Vista::npos) return {};
    testo = testo.substr(da, testo.find_last_not_of(Bianchi) + 1 - da);
    if (testo.size() >= 2 && testo.front() == '"' && testo.back() == '"') // some generators quote paths
        testo = testo.substr(1, testo.size() - 2);
    return testo;
}

// Calls `prendi` with each line, whatever ends it, without blanks around and without a mark of UTF-8.
template <class F>
void PerRiga(Vista bytes, F&& prendi) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    while (!bytes.empty()) {
        const std::size_t fine = std::min(bytes.find_first_of("\r\n"), bytes.size());
        if (const Vista riga = Pulita(bytes.substr(0, fine)); !riga.empty()) prendi(riga);
        bytes.remove_prefix(std::min(fine + 1, bytes.size()));
    }
}

// "Key=value", the key in lower case.
std::pair<Testo, Vista> Divisa(Vista riga) {
    const std::size_t uguale = riga.find('=');
    if (uguale == Vista::npos) return {};
    return {LCase(Pulita(riga.substr(0, uguale))), Pulita(riga.substr(uguale + 1))};
}

// The file that a line of a project names, "" for a line of another kind. What the compiler takes
// for code counts here, and not only what the list of the project shows.
Vista ModuloDi(Vista riga) {
    const auto [chiave, valore] = Divisa(riga);
    if (chiave == "module" || chiave == "class") {
        const std::size_t punto = valore.find(';');
        return Pulita(punto == Vista::npos ? valore : valore.substr(punto + 1));
    }
    constexpr Vista Interi[] = {"form", "usercontrol", "propertypage", "userdocument", "designer"};
    return Tra(Interi, chiave) ? valore : Vista();
}

std::vector<Vista> Nomi(Vista percorso) {
    std::vector<Vista> nomi;
    while (!percorso.empty()) {
        const std::size_t fine = std::min(percorso.find('/'), percorso.size());
        if (fine > 0) nomi.push_back(percorso.substr(0, fine));
        percorso.remove_prefix(std::min(fine + 1, percorso.size()));
    }
    return nomi;
}

} // namespace

std::string Relativo(const std::string& percorso, const std::string& radice) {
    const std::vector<Vista> nomi = Nomi(percorso);
    const std::vector<Vista> base = Nomi(radice);
    const auto [qui, la] = std::mismatch(nomi.begin(), nomi.end(), base.begin(), base.end());
    const bool unita = !nomi.empty() && nomi[0].ends_with(':');
    const bool rete = percorso.starts_with("//");
    if ((unita || rete) && qui == nomi.begin()) return percorso;
    std::string relativo;
    for (auto sopra = la; sopra != base.end(); ++sopra) relativo += "../";
    for (auto nome = qui; nome != nomi.end(); ++nome) relativo.append(*nome).append("/");
    if (!relativo.empty()) relativo.pop_back();
    return relativo.empty() ? "." : relativo;
}

bool Intero(const std::string& relativo) {
    return relativo.starts_with("//") || Vista(relativo).substr(0, 3).ends_with(":/");
}

Ingressi::Ingressi(Archivio& archivio, std::string radice, bool ricorsivo)
    : archivio_(archivio), disco_(archivio.DiscoInUso()), radice_(std::move(radice)), ricorsivo_(ricorsivo) {}

void Ingressi::Aggiungi(const std::string& argomento) {
    if (argomento.size() > 1 && argomento[0] == '@')
        Elenco(disco_.Assoluto(argomento.substr(1)));
    else
        Nominato(argomento, "");
}

void Ingressi::Segna(const std::string& percorso, const std::string& da, const Scheda& cosa, int altrimenti) {
    guasti_.push_back({Detto(percorso), da.empty() ? "" : Detto(da), cosa.Errore ? cosa.Errore : altrimenti});
}

// All of a file; nothing, and noted, when it cannot be read or was read before.
std::optional<std::string> Ingressi::Leggi(const std::string& percorso, const Scheda& cosa,
                                           const std::string& da) {
    if (cosa.Tipo != TipoVoce::File) {
        Segna(percorso, da, cosa, cosa.Esiste() ? ErrAccesso : ErrFileAssente);
        return std::nullopt;
    }
    if (!visti_.insert(cosa.Chi).second) return std::nullopt;
    elenchi_.push_back(percorso);
    try {
        const auto file = disco_.ApriLettura(percorso);
        std::string bytes;
        std::array<char, 8192> blocco{};
        while (const std::size_t letti = file->Leggi(blocco.data(), blocco.size()))
            bytes.append(blocco.data(), letti);
        return bytes;
    } catch (const Errore& e) {
        Segna(percorso, da, cosa, e.Numero);
        return std::nullopt;
    }
}

// A path as a person wrote it. What is not there to the letter is sought as in a project: with "\"
// between the names and without regard to case.
void Ingressi::Nominato(const std::string& scritto, const std::string& da) {
    std::string percorso = disco_.Assoluto(scritto);
    Scheda cosa = disco_.Esamina(percorso);
    if (!cosa.Esiste() && cosa.Errore == 0 && scritto.find('\0') == std::string::npos) {
        const Trovato altrimenti = archivio_.Trova(Bytes1252DaUtf8(scritto).value_or(scritto));
        if (altrimenti.Cosa.Esiste()) {
            percorso = altrimenti.Percorso;
            cosa = altrimenti.Cosa;
        }
    }
    if (cosa.Tipo == TipoVoce::Directory && !ricorsivo_)
        throw UsoErrato{"«" + scritto + "» è una directory: con --ricorsivo si esamina quello che contiene"};
    if (cosa.Tipo == TipoVoce::Directory)
        Directory(percorso);
    else
        Prendi(percorso, cosa, da);
}

// A project, a group or, whatever its name, a source.
void Ingressi::Prendi(const std::string& percorso, const Scheda& cosa, const std::string& da) {
    if (DiProgetto(percorso) || DiGruppo(percorso)) {
        const std::optional<std::string> bytes = Leggi(percorso, cosa, da);
        if (!bytes) return;
        DiProgetto(percorso) ? Progetto(percorso, *bytes) : Gruppo(percorso, *bytes);
    } else if (cosa.Tipo != TipoVoce::File) {
        Segna(percorso, da, cosa, cosa.Esiste() ? ErrAccesso : ErrFileAssente);
    } else if (visti_.insert(cosa.Chi).second) {
        moduli_.push_back(percorso);
    }
}

void Ingressi::Elenco(const std::string& percorso) {
    const std::optional<std::string> bytes = Leggi(percorso, disco_.Esamina(percorso), "");
    if (!bytes) return;
    PerRiga(*bytes, [&](Vista riga) { Nominato(std::string(riga), percorso); });
}

// What a line of a project or group leads to; `directory` is hooked.
morvella::Trovato Ingressi::Trova(Vista directory, Vista nome) {
    const bool unita = !disco_.DistingueMaiuscole() && nome.size() > 1 && nome[1] == ':';
    if (nome.find('\0') == Vista::npos)
        return archivio_.Trova(unita ? Testo(nome) : Testo(directory) + "\\" + Testo(nome));
    Trovato nessuno; // a name that no file can have
    nessuno.Percorso = Utf8Da1252(nome);
    nessuno.DirectoryPresente = true;
    return nessuno;
}

void Ingressi::Progetto(const std::string& percorso, const std::string& bytes) {
    const Testo directory = archivio_.Aggancia(Gancio::Progetto, CartellaDi(percorso));
    PerRiga(bytes, [&](Vista riga) {
        const Vista nome = ModuloDi(riga);
        if (nome.empty()) return;
        const Trovato file = Trova(directory, nome);
        if (file.Cosa.Tipo != TipoVoce::File)
            Segna(file.Percorso, percorso, file.Cosa,
                  file.Cosa.Esiste()       ? ErrAccesso
                  : file.DirectoryPresente ? ErrFileAssente
                                           : ErrPercorso);
        else if (visti_.insert(file.Cosa.Chi).second)
            moduli_.push_back(file.Percorso);
    });
}

void Ingressi::Gruppo(const std::string& percorso, const std::string& bytes) {
    const Testo directory = archivio_.Aggancia(Gancio::Progetto, CartellaDi(percorso));
    std::vector<Trovato> progetti; // all of them first: each project hooks its own directory
    PerRiga(bytes, [&](Vista riga) {
        const auto [chiave, valore] = Divisa(riga);
        if ((chiave == "project" || chiave == "startupproject") && !valore.empty() &&
            LCase(valore) != "(none)")
            progetti.push_back(Trova(directory, valore));
    });
    for (const Trovato& progetto : progetti)
        if (const auto testo = Leggi(progetto.Percorso, progetto.Cosa, percorso))
            DiGruppo(progetto.Percorso) ? Gruppo(progetto.Percorso, *testo)
                                        : Progetto(progetto.Percorso, *testo);
}

// Links are not followed: what they lead to is elsewhere, or comes by itself.
void Ingressi::Directory(const std::string& percorso) {
    std::vector<std::string> nomi;
    try {
        if (!visti_.insert(disco_.Esamina(percorso).Chi).second) return;
        nomi = disco_.Elenca(percorso);
    } catch (const Errore& e) {
        return Segna(percorso, "", {}, e.Numero);
    }
    std::sort(nomi.begin(), nomi.end());
    const std::string davanti = percorso.ends_with('/') ? percorso : percorso + '/';
    std::vector<std::pair<std::string, Scheda>> progetti, sorgenti, directory;
    for (const std::string& nome : nomi) {
        const Scheda cosa = disco_.Esamina(davanti + nome);
        const bool sotto = cosa.Tipo == TipoVoce::Directory;
        auto& dove = sotto ? directory : DiProgetto(nome) || DiGruppo(nome) ? progetti : sorgenti;
        const bool conta =
            sotto ? !Tra(Saltate, LCase(nome)) : &dove == &progetti || Tra(Sorgenti, Fine(nome));
        if (conta && !disco_.Legame(davanti + nome)) dove.emplace_back(davanti + nome, cosa);
    }
    for (const auto& [file, cosa] : progetti) Prendi(file, cosa, "");
    for (const auto& [file, cosa] : sorgenti) Prendi(file, cosa, "");
    for (const auto& una : directory) Directory(una.first);
}

} // namespace morvella::cli

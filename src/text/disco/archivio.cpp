// SPDX-License-Identifier: MIT
#include "text/disco/archivio.h"

#include <algorithm>

#include "text/codifica.h"

namespace morvella {

namespace {

bool Separatore(char c) noexcept { return c == '\\' || c == '/'; }

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

// The names of a path in order, with "." passed over and ".." taken back in the text.
// `base` loses a name for each ".." that climbs above it.
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

// A directory's path with the name of an entry; "" is the root.
std::string Unisci(const std::string& directory, const std::string& nome) { return directory + '/' + nome; }

// A path as the disk wants it: the root has no name of its own.
std::string PerDisco(const std::string& percorso) {
    const bool radice = percorso.empty() || (percorso.size() == 2 && percorso[1] == ':');
    return radice ? percorso + '/' : percorso;
}

Testo TestoDiNome(const std::string& nome) { return Bytes1252DaUtf8(nome).value_or(nome); }

} // namespace

Testo Archivio::TestoDiPercorso(const std::string& percorso) {
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

Testo Archivio::Ricorda(const std::string& nome) {
    if (std::optional<std::string> testo = Bytes1252DaUtf8(nome)) return *std::move(testo);
    ricordati_.insert(nome);
    return nome;
}

std::string Archivio::Utf8DiTesto(Vista testo) const {
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

Testo Archivio::Aggancia(Gancio gancio, const std::string& percorso) {
    visto_.reset();
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

void Archivio::AgganciaLavoro(Vista testo) {
    SganciaLavoro();
    std::string percorso = Trova(testo).Percorso;
    ganci_[static_cast<std::size_t>(Gancio::Lavoro)] = {Testo(testo), std::move(percorso)};
    visto_.reset();
}

void Archivio::SganciaLavoro() {
    ganci_[static_cast<std::size_t>(Gancio::Lavoro)] = {};
    visto_.reset();
}

// Takes the hooked directory or the root off the front of `percorso` and gives its path.
std::string Archivio::Base(Vista& percorso) const {
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

// The disk's own spelling of `nome` in `directory`, without regard to case; null when there
// is none. Of several the first in byte order, so that the choice does not change; for a
// remembered name one that differs in ASCII letters alone, since what else has its text is
// another file.
const std::string* Archivio::NelIndice(const std::string& directory, const Scheda& cosa, Vista nome) {
    Indice& indice = indici_[directory];
    if (indice.Modificato != cosa.Modificato) {
        indice.Nomi.clear();
        indice.Modificato.reset();
        std::vector<std::string> nomi;
        try {
            nomi = disco_.Elenca(PerDisco(directory));
        } catch (const Errore&) {
            return nullptr; // one may go through a directory and yet not read it: no name is known there
        }
        std::sort(nomi.begin(), nomi.end());
        for (std::string& scritto : nomi)
            indice.Nomi[LCase(TestoDiNome(scritto))].push_back(std::move(scritto));
        indice.Modificato = cosa.Modificato;
    }
    const auto riga = indice.Nomi.find(LCase(nome));
    if (riga == indice.Nomi.end()) return nullptr;
    const std::vector<std::string>& scritti = riga->second;
    const auto scritto = ricordati_.contains(nome)
                             ? std::find_if(scritti.begin(), scritti.end(),
                                            [&](const std::string& s) { return UgualiInAscii(s, nome); })
                             : scritti.begin();
    return scritto == scritti.end() ? nullptr : &*scritto;
}

// The index of the directory that the file lies in, if there is one and nobody has changed
// the directory since. A change of our own can then be put into it (Annota), so that the next
// name that is not there does not cost a reading of the whole directory.
Archivio::Indice* Archivio::IndiceFresco(const Trovato& file) {
    const auto riga = indici_.find(file.Percorso.substr(0, file.Percorso.find_last_of('/')));
    if (riga == indici_.end()) return nullptr;
    const Scheda directory = file.Directory ? *file.Directory : disco_.Esamina(PerDisco(riga->first));
    return directory.Modificato == riga->second.Modificato ? &riga->second : nullptr;
}

void Archivio::Annota(Indice* indice, const std::string& percorso, bool nato) {
    if (!indice) return;
    const std::size_t barra = percorso.find_last_of('/');
    const std::string nome = percorso.substr(barra + 1);
    std::vector<std::string>& scritti = indice->Nomi[LCase(TestoDiNome(nome))];
    const auto posto = std::lower_bound(scritti.begin(), scritti.end(), nome);
    const bool presente = posto != scritti.end() && *posto == nome;
    if (nato && !presente) scritti.insert(posto, nome);
    if (!nato && presente) scritti.erase(posto);
    indice->Modificato = disco_.Esamina(PerDisco(percorso.substr(0, barra))).Modificato;
}

// Seeks one name and puts it behind the path of its directory, in the disk's spelling when it is there.
Scheda Archivio::CercaNome(Trovato& file, Vista nome) {
    // A remembered name is sought and made in its own bytes.
    const bool ricordato = ricordati_.contains(nome);
    std::string& directory = file.Percorso;
    file.DirectoryPresente = true;
    file.Directory.reset();
    const std::size_t lunga = directory.size();
    directory += '/';
    if (ricordato || SoloAscii(nome))
        directory += nome;
    else
        directory += Utf8Da1252(nome);
    Scheda cosa = disco_.Esamina(directory);
    if (cosa.Esiste()) return cosa;
    std::string esatto = directory;
    directory.resize(lunga);
    // A name that Windows-1252 cannot hold stands for itself.
    if (!ricordato && !SoloAscii(nome)) {
        const std::string grezzo = Unisci(directory, std::string(nome));
        if (const Scheda altra = disco_.Esamina(grezzo); altra.Esiste()) {
            directory = grezzo;
            return altra;
        }
    }
    if (cosa.Errore == 0) {
        const Scheda dove = disco_.Esamina(PerDisco(directory));
        file.DirectoryPresente = dove.Tipo == TipoVoce::Directory;
        file.Directory = dove;
        if (file.DirectoryPresente && disco_.DistingueMaiuscole()) {
            if (const std::string* scritto = NelIndice(directory, dove, nome)) {
                esatto = Unisci(directory, *scritto);
                cosa = disco_.Esamina(esatto);
            }
        }
    }
    directory = std::move(esatto);
    return cosa;
}

Testo Archivio::Piega(Vista percorso) {
    visto_.reset();
    Testo piegato = LCase(percorso);
    const std::size_t barra = percorso.find_last_of("\\/");
    if (barra != Vista::npos) pieghe_.insert_or_assign(piegato, Testo(percorso.substr(0, barra)));
    return piegato;
}

Trovato Archivio::Trova(Vista percorso) {
    visto_.reset();
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
        file.Cosa = CercaNome(file, nomi[i]);
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

void Archivio::RifiutaScrittura(const Trovato& file, Vista percorso) const {
    if (file.Cosa.Errore != 0) throw Errore(file.Cosa.Errore, percorso);
    if (!file.DirectoryPresente) throw Errore(ErrPercorso, percorso);
    if (!file.Cosa.Esiste()) return;
    if (file.Cosa.Tipo != TipoVoce::File) throw Errore(ErrAccesso, percorso);
    if (protetti_.contains(file.Cosa.Chi)) throw Errore(ErrPermesso, percorso);
}

// A file that has to be there: 53 when it is not, whether or not its directory is.
Trovato Archivio::TrovaFile(Vista percorso) {
    const bool visto = visto_ && visto_->first == percorso;
    Trovato file = visto ? std::move(visto_->second) : Trova(percorso);
    visto_.reset();
    if (file.Cosa.Errore != 0) throw Errore(file.Cosa.Errore, percorso);
    if (!file.Cosa.Esiste()) throw Errore(ErrFileAssente, percorso);
    return file;
}

void Archivio::Proteggi(const std::vector<Testo>& percorsi) {
    protetti_.clear();
    directoryProtette_.clear();
    protetti_.reserve(percorsi.size());
    for (const Testo& percorso : percorsi) {
        if (percorso.find('\0') != Testo::npos) continue;
        const Trovato file = Trova(percorso);
        if (file.Cosa.Tipo == TipoVoce::File) protetti_.insert(file.Cosa.Chi);
        const std::string directory = PerDisco(file.Percorso.substr(0, file.Percorso.find_last_of('/')));
        if (!directoryProtette_.contains(directory))
            directoryProtette_.emplace(directory, disco_.Esamina(directory).Modificato);
    }
}

bool Archivio::ProtezioneFresca() {
    return std::all_of(directoryProtette_.begin(), directoryProtette_.end(), [&](const auto& directory) {
        return disco_.Esamina(directory.first).Modificato == directory.second;
    });
}

Testo Archivio::Dir(Vista percorso, int attributi) {
    const auto ammesso = [&](const Scheda& cosa) {
        if (cosa.Nascosto) return false;
        return cosa.Tipo == TipoVoce::File || (cosa.Tipo == TipoVoce::Directory && (attributi & 16) != 0);
    };
    const auto ultimo = [](Vista tutto) { return tutto.substr(tutto.find_last_of("\\/") + 1); };
    if (percorso.empty() || percorso.find('\0') != Vista::npos) return {};
    try {
        if (ultimo(percorso) != "*.*") {
            const Trovato file = Trova(percorso);
            if (file.Cosa.Esiste()) Ricorda(percorso, file);
            return ammesso(file.Cosa) ? TestoDiNome(Testo(ultimo(file.Percorso))) : Testo();
        }
        const Trovato directory = Trova(percorso.substr(0, percorso.size() - 3));
        if (directory.Cosa.Tipo != TipoVoce::Directory) return {};
        std::vector<std::string> nomi = disco_.Elenca(directory.Percorso);
        std::sort(nomi.begin(), nomi.end());
        for (const std::string& nome : nomi)
            if (ammesso(disco_.Esamina(Unisci(directory.Percorso, nome)))) return TestoDiNome(nome);
    } catch (const Errore&) {
        // A place that cannot be read shows no name.
    }
    return {};
}

std::vector<Testo> Archivio::ElencaFile(Vista directory, Vista fine) {
    const Trovato dove = Trova(directory);
    if (dove.Cosa.Errore != 0) throw Errore(dove.Cosa.Errore, directory);
    if (dove.Cosa.Tipo != TipoVoce::Directory) throw Errore(ErrPercorso, directory);
    std::vector<std::string> nomi;
    try {
        nomi = disco_.Elenca(dove.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero == ErrFileAssente ? ErrPercorso : e.Numero, directory);
    }
    const std::string davanti = dove.Percorso.ends_with('/') ? dove.Percorso : dove.Percorso + '/';
    std::vector<std::pair<Testo, Testo>> file; // folded, as it is
    for (const std::string& nome : nomi) {
        if (nome.size() < fine.size() || LCase(Right(nome, Len(fine))) != LCase(fine))
            continue; // not even asked about
        const Scheda cosa = disco_.Esamina(davanti + nome);
        if (cosa.Tipo != TipoVoce::File || cosa.Nascosto) continue;
        const Testo testo = Ricorda(nome);
        file.emplace_back(LCase(testo), testo);
    }
    std::sort(file.begin(), file.end());
    std::vector<Testo> testi;
    testi.reserve(file.size());
    for (auto& [chiave, testo] : file) testi.push_back(std::move(testo));
    return testi;
}

void Archivio::MkDir(Vista percorso) {
    const Trovato dove = Trova(percorso);
    if (dove.Cosa.Errore != 0 || dove.Cosa.Esiste()) throw Errore(ErrAccesso, percorso);
    if (!dove.DirectoryPresente) throw Errore(ErrPercorso, percorso);
    Indice* indice = IndiceFresco(dove);
    try {
        disco_.CreaDirectory(dove.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
    Annota(indice, dove.Percorso, true);
}

void Archivio::ChDir(Vista percorso) {
    const Trovato dove = Trova(percorso);
    if (dove.Cosa.Errore != 0) throw Errore(dove.Cosa.Errore, percorso);
    if (dove.Cosa.Tipo != TipoVoce::Directory) throw Errore(ErrPercorso, percorso);
    visto_.reset();
    try {
        disco_.CambiaDirectory(dove.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
}

void Archivio::FileCopy(Vista da, Vista a) {
    const Trovato sorgente = TrovaFile(da);
    if (sorgente.Cosa.Tipo != TipoVoce::File) throw Errore(ErrAccesso, da);
    const Trovato destinazione = Trova(a);
    if (destinazione.Cosa.Esiste() && destinazione.Cosa.Chi == sorgente.Cosa.Chi) return;
    RifiutaScrittura(destinazione, a);
    Indice* indice = destinazione.Cosa.Esiste() ? nullptr : IndiceFresco(destinazione);
    ++cambiamenti_;
    try {
        disco_.Copia(sorgente.Percorso, destinazione.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero, e.File == sorgente.Percorso ? da : a);
    }
    Annota(indice, destinazione.Percorso, true);
}

void Archivio::Kill(Vista percorso) {
    const Trovato file = TrovaFile(percorso);
    RifiutaScrittura(file, percorso);
    Indice* indice = IndiceFresco(file);
    ++cambiamenti_;
    try {
        disco_.Cancella(file.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
    Annota(indice, file.Percorso, false);
}

long long Archivio::FileLen(Vista percorso) { return static_cast<long long>(TrovaFile(percorso).Cosa.Bytes); }

Testo Archivio::FileDateTime(Vista percorso) {
    const Trovato file = TrovaFile(percorso);
    Istante quando;
    try {
        quando = disco_.UltimaModifica(file.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
    Ricorda(percorso, file);
    Testo testo = disco_.TestoData(quando);
    if (quando.Ora != 0 || quando.Minuto != 0 || quando.Secondo != 0) testo += ' ' + disco_.TestoOra(quando);
    return testo;
}

void Archivio::AncheCome(Vista percorso, Vista nome) {
    const Trovato file = Trova(percorso);
    if (file.Cosa.Tipo != TipoVoce::File || !disco_.DistingueMaiuscole()) return;
    const std::string altro =
        Unisci(file.Percorso.substr(0, file.Percorso.find_last_of('/')), Utf8Da1252(nome));
    if (disco_.Esamina(altro).Esiste()) return;
    Trovato vicino;
    vicino.Percorso = altro;
    Indice* indice = IndiceFresco(vicino);
    ++cambiamenti_;
    try {
        disco_.Collega(file.Percorso, altro);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
    Annota(indice, altro, true);
}

Testo Archivio::Date() { return disco_.TestoData(disco_.Adesso()); }

Testo Archivio::Time() { return disco_.TestoOra(disco_.Adesso()); }

void Archivio::Shell(Vista comando, int finestra) {
    const std::size_t blank = std::min(comando.find(' '), comando.size());
    const Vista percorso = comando.substr(std::min(blank + 1, comando.size()));
    try {
        disco_.Avvia(Utf8Da1252(comando.substr(0, blank)), Trova(percorso).Percorso, finestra);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
}

std::unique_ptr<FileAperto> Archivio::ApriLettura(const Trovato& file, Vista percorso) {
    if (file.Cosa.Errore != 0) throw Errore(file.Cosa.Errore, percorso);
    if (!file.Cosa.Esiste()) throw Errore(file.DirectoryPresente ? ErrFileAssente : ErrPercorso, percorso);
    if (file.Cosa.Tipo != TipoVoce::File) throw Errore(ErrAccesso, percorso);
    try {
        return disco_.ApriLettura(file.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
}

std::unique_ptr<FileAperto> Archivio::ApriScrittura(const Trovato& file, Vista percorso) {
    RifiutaScrittura(file, percorso);
    Indice* indice = file.Cosa.Esiste() ? nullptr : IndiceFresco(file);
    ++cambiamenti_;
    try {
        std::unique_ptr<FileAperto> aperto = disco_.ApriScrittura(file.Percorso);
        Annota(indice, file.Percorso, true);
        return aperto;
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
}

} // namespace morvella

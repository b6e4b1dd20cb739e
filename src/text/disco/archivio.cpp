// SPDX-License-Identifier: MIT
#include "text/disco/archivio.h"

#include <algorithm>

#include "text/disco/nomi.h"

namespace morvella {

Testo Archivio::TestoDiPercorso(const std::string& percorso) { return Percorsi::TestoDiPercorso(percorso); }

Testo Archivio::Ricorda(const std::string& nome) { return percorsi_.Ricorda(nome); }

std::string Archivio::Utf8DiTesto(Vista testo) const { return percorsi_.Utf8DiTesto(testo); }

Testo Archivio::Aggancia(Gancio gancio, const std::string& percorso) {
    visto_.reset();
    return percorsi_.Aggancia(gancio, percorso);
}

void Archivio::AgganciaLavoro(Vista testo) {
    visto_.reset();
    percorsi_.AgganciaLavoro(testo);
}

void Archivio::SganciaLavoro() {
    visto_.reset();
    percorsi_.SganciaLavoro();
}

void Archivio::Proteggi(const std::vector<Testo>& percorsi) {
    visto_.reset();
    protezione_.Proteggi(percorsi);
}

bool Archivio::ProtezioneFresca() { return protezione_.Fresca(); }

Testo Archivio::Piega(Vista percorso) {
    visto_.reset();
    return percorsi_.Piega(percorso);
}

Trovato Archivio::Trova(Vista percorso) {
    visto_.reset();
    return percorsi_.Trova(percorso);
}

// A file that exists needs no place in the index: its name is there.
Indice::Modifica Archivio::PrimaDiFare(const Trovato& file) {
    return file.Cosa.Esiste() ? Indice::Modifica{} : indice_.Prepara(file.Percorso, file.Directory);
}

void Archivio::RifiutaScrittura(const Trovato& file, Vista percorso) const {
    if (file.Cosa.Errore != 0) throw Errore(file.Cosa.Errore, percorso);
    if (!file.DirectoryPresente) throw Errore(ErrPercorso, percorso);
    if (!file.Cosa.Esiste()) return;
    if (file.Cosa.Tipo != TipoVoce::File) throw Errore(ErrAccesso, percorso);
    if (protezione_.Contiene(file.Cosa.Chi)) throw Errore(ErrPermesso, percorso);
}

// A file that has to be there: 53 when it is not, whether or not its directory is.
Trovato Archivio::TrovaFile(Vista percorso) {
    const bool visto = visto_ && visto_->first == percorso && !visto_->second.Percorso.empty();
    Trovato file = visto ? std::move(visto_->second) : percorsi_.Trova(percorso);
    visto_.reset();
    if (file.Cosa.Errore != 0) throw Errore(file.Cosa.Errore, percorso);
    if (!file.Cosa.Esiste()) throw Errore(ErrFileAssente, percorso);
    return file;
}

// The same where nobody needs the path: a bare name is asked for without building it.
Scheda Archivio::SchedaDiFile(Vista percorso) {
    if (visto_ && visto_->first == percorso) return visto_->second.Cosa;
    Trovato file;
    if (const std::optional<Scheda> cosa = percorsi_.NellaCorrente(percorso))
        file.Cosa = *cosa;
    else
        file = TrovaFile(percorso);
    visto_ = {Testo(percorso), file};
    return file.Cosa;
}

Testo Archivio::Dir(Vista percorso, int attributi) {
    const auto ammesso = [&](const Scheda& cosa) {
        if (cosa.Nascosto) return false;
        return cosa.Tipo == TipoVoce::File || (cosa.Tipo == TipoVoce::Directory && (attributi & 16) != 0);
    };
    const auto chiedi = [&](const std::string& file) {
        const Scheda cosa = disco_.Esamina(file);
        if (cosa.Errore != 0) throw Errore(cosa.Errore, percorso);
        return cosa;
    };
    if (percorso.empty() || percorso.find('\0') != Vista::npos) return {};
    if (UltimoNome(percorso) != "*.*") {
        const Trovato file = Trova(percorso);
        if (file.Cosa.Errore != 0) throw Errore(file.Cosa.Errore, percorso);
        if (file.Cosa.Esiste()) visto_ = {Testo(percorso), file};
        return ammesso(file.Cosa) ? TestoDiNome(Testo(UltimoNome(file.Percorso))) : Testo();
    }
    const Trovato directory = Trova(percorso.substr(0, percorso.size() - 3));
    if (directory.Cosa.Errore != 0) throw Errore(directory.Cosa.Errore, percorso);
    if (directory.Cosa.Tipo != TipoVoce::Directory) return {};
    std::vector<std::string> nomi;
    try {
        nomi = disco_.Elenca(directory.Percorso);
    } catch (const Errore& e) {
        if (e.Numero == ErrFileAssente || e.Numero == ErrPercorso) return {}; // it went meanwhile
        throw Errore(e.Numero, percorso);
    }
    std::sort(nomi.begin(), nomi.end());
    for (const std::string& nome : nomi)
        if (ammesso(chiedi(Unisci(directory.Percorso, nome)))) return TestoDiNome(nome);
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
            continue; // not even examined
        const Scheda cosa = disco_.Esamina(davanti + nome);
        // One that cannot be asked stays in the list: whoever opens it hears why.
        if (cosa.Errore == 0 && (cosa.Tipo != TipoVoce::File || cosa.Nascosto)) continue;
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
    if (dove.Cosa.Errore != 0) throw Errore(dove.Cosa.Errore, percorso);
    if (dove.Cosa.Esiste()) throw Errore(ErrAccesso, percorso);
    if (!dove.DirectoryPresente) throw Errore(ErrPercorso, percorso);
    Indice::Modifica modifica = indice_.Prepara(dove.Percorso, dove.Directory);
    try {
        disco_.CreaDirectory(dove.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
    modifica.Nato();
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
    Indice::Modifica modifica = PrimaDiFare(destinazione);
    ++cambiamenti_;
    try {
        disco_.Copia(sorgente.Percorso, destinazione.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero, e.File == sorgente.Percorso ? da : a);
    }
    modifica.Nato();
}

void Archivio::Kill(Vista percorso) {
    const Trovato file = TrovaFile(percorso);
    RifiutaScrittura(file, percorso);
    Indice::Modifica modifica = indice_.Prepara(file.Percorso, file.Directory);
    ++cambiamenti_;
    try {
        disco_.Cancella(file.Percorso);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
    modifica.Tolto();
}

long long Archivio::FileLen(Vista percorso) {
    const auto bytes = static_cast<long long>(SchedaDiFile(percorso).Bytes);
    visto_.reset();
    return bytes;
}

Testo Archivio::FileDateTime(Vista percorso) {
    visto_.reset(); // the date is asked anew
    Istante quando;
    try {
        quando = disco_.UltimaModifica(SchedaDiFile(percorso));
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
    Testo testo = disco_.TestoData(quando);
    if (quando.Ora != 0 || quando.Minuto != 0 || quando.Secondo != 0) testo += ' ' + disco_.TestoOra(quando);
    return testo;
}

void Archivio::AncheCome(Vista percorso, Vista nome) {
    if (!disco_.DistingueMaiuscole()) return;
    const Trovato file = Trova(percorso);
    if (file.Cosa.Errore != 0) throw Errore(file.Cosa.Errore, percorso);
    if (file.Cosa.Tipo != TipoVoce::File) return;
    const std::string altro = Unisci(DirectoryDi(file.Percorso), Utf8Da1252(nome));
    const Scheda suo = disco_.Esamina(altro);
    if (suo.Errore != 0) throw Errore(suo.Errore, percorso);
    if (suo.Esiste()) return;
    Indice::Modifica modifica = indice_.Prepara(altro);
    ++cambiamenti_;
    try {
        disco_.Collega(file.Percorso, altro);
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
    modifica.Nato();
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
    Indice::Modifica modifica = PrimaDiFare(file);
    ++cambiamenti_;
    try {
        std::unique_ptr<FileAperto> aperto = disco_.ApriScrittura(file.Percorso);
        modifica.Nato();
        return aperto;
    } catch (const Errore& e) {
        throw Errore(e.Numero, percorso);
    }
}

std::unique_ptr<FileAperto> Archivio::ApriScritturaDi(const std::string& percorso) {
    Trovato file;
    file.Percorso = percorso;
    file.Cosa = disco_.Esamina(percorso);
    file.DirectoryPresente = true; // where it is not, opening says so
    return ApriScrittura(file, percorso);
}

bool Archivio::Protetto(const std::string& percorso) {
    const Scheda cosa = disco_.Esamina(percorso);
    if (cosa.Errore != 0) throw Errore(cosa.Errore, percorso);
    return cosa.Tipo == TipoVoce::File && protezione_.Contiene(cosa.Chi);
}

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "cli/corsa.h"

#include <algorithm>
#include <new>
#include <ostream>
#include <utility>

#include "listing/decodifica.h"
#include "shell/dimora.h"

namespace morvella::cli {

namespace {

// Whether `percorso` lies below `directory`; it is made relative to it then.
bool TogliDirectory(std::string& percorso, const std::string& directory) {
    if (percorso.compare(0, directory.size() + 1, directory + "/") != 0) return false;
    percorso.erase(0, directory.size() + 1);
    return true;
}

} // namespace

Corsa::Corsa(Richiesta richiesta, Ambiente& ambiente)
    : Chiesto(std::move(richiesta)), Intorno(ambiente), Fronte(ambiente), S(ambiente.Macchina, Fronte) {
    Fronte.S = &S;
    S.Canale.FineRigaLf = Chiesto.Lf;
    Fronte.Risposta = Chiesto.Risposta;
    Fronte.SenzaProcessi = Chiesto.SenzaProcessi;
    if (Chiesto.Apri)
        Fronte.RispostaIndice = true;
    else if (Chiesto.Comando == "eventi" || Chiesto.Risposta == false)
        Fronte.RispostaIndice = Chiesto.Risposta;
    Fronte.Silenzioso = Chiesto.Silenzioso;
    Fronte.Sorveglia = Chiesto.Controlla;
}

bool Corsa::Fai(const char* nome, void (*operazione)(Stato&)) {
    S.Punto.Voce = -1;
    try {
        operazione(S);
        return true;
    } catch (const Errore& e) {
        Fronte.ErroreFinale(nome, e, S.Punto.Voce);
    } catch (const std::bad_alloc&) {
        Fronte.ErroreFinale(nome, Errore(ErrMemoria), S.Punto.Voce);
    }
    for (int n = 1; n <= Canali::NumeroMassimo; ++n) {
        try {
            S.Canale.Close(n);
        } catch (const Errore& e) {
            Fronte.ErroreFinale(nome, e, S.Punto.Voce);
        }
    }
    return false;
}

void Corsa::Stampa(const std::string& utf8) {
    std::ostream& dove = Chiesto.Rapporto == "-" ? Intorno.Errori : Intorno.Uscita;
    dove << Intorno.Codifica(Intorno.UscitaTerminale ? MostrabileUtf8(utf8, true) : utf8) << '\n';
}

void Corsa::ScegliProgramma() {
    if (!Chiesto.Programma.empty()) {
        const std::string directory = Intorno.Macchina.Assoluto(Chiesto.Programma);
        const Scheda cosa = Intorno.Macchina.Esamina(directory);
        if (!Chiesto.Silenzioso && cosa.Tipo != TipoVoce::Directory)
            Fronte.Di("Avviso: --programma: la directory «" + Chiesto.Programma + "» " +
                      (cosa.Errore == 0 ? "non c'è."
                                        : "non si può esaminare: " + Utf8Da1252(Descrizione(cosa.Errore))));
        S.AppPath = S.File.Aggancia(Gancio::Programma, directory);
        return;
    }
    if (Intorno.DirectoryProgramma.empty())
        throw UsoErrato{
            "la directory del programma non si può sapere (manca /proc?): indicarla con --programma"};
    const Dimora dimora = TrovaDimora(Intorno.Macchina, Intorno.DirectoryProgramma, Intorno.DirectoryUtente);
    S.AppPath = S.File.Aggancia(Gancio::Programma, dimora.Directory);
    if (Chiesto.Silenzioso) return;
    for (const Errore& e : dimora.Guasti)
        Fronte.Di("Avviso: " + e.File +
                  " non è stato copiato dalla directory del programma a quella dell'utente: " +
                  Utf8Da1252(Descrizione(e.Numero)));
}

void Corsa::ApriDirectory() {
    const std::string progetto = Intorno.Macchina.Assoluto(Chiesto.Progetto);
    const std::size_t barra = progetto.find_last_of('/');
    Directory = progetto.substr(0, barra);
    CambiaDir1(S, Directory, progetto.substr(barra + 1));
    Progetto = S.Dir1Path;
    if (!S.File1Leggi.Nomi.empty()) nomeProgetto_ = S.File1Leggi.Nomi[0];
}

void Corsa::ScegliProgetto() {
    std::vector<Testo>& nomi = S.File1Leggi.Nomi;
    auto qui = std::find(nomi.begin(), nomi.end(), nomeProgetto_);
    if (qui == nomi.end())
        qui = std::find_if(nomi.begin(), nomi.end(),
                           [&](const Testo& nome) { return LCase(nome) == LCase(nomeProgetto_); });
    // One that is not in the directory is chosen all the same: the error then names what is missing.
    if (qui == nomi.end()) qui = nomi.insert(qui, nomeProgetto_);
    S.File1Leggi.ListIndex = static_cast<Lungo>(qui - nomi.begin());
}

std::string Corsa::Nativo(Vista percorso) {
    if (percorso.empty() || percorso.find('\0') != Vista::npos) return Utf8Da1252(percorso);
    return S.File.Trova(percorso).Percorso;
}

std::string Corsa::Breve(Vista percorso) {
    std::string nativo = Nativo(percorso);
    TogliDirectory(nativo, Directory);
    return nativo;
}

std::string Corsa::SorgenteDiVoce(Vista voce) {
    std::string nativo = Nativo(Progetto + "\\" + Testo(voce));
    if (Partenza.size() > 1) TogliDirectory(nativo, Partenza);
    return nativo;
}

std::string TraVirgolette(Vista bytes) { return "«" + Utf8Da1252(bytes) + "»"; }

} // namespace morvella::cli

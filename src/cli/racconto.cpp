// SPDX-License-Identifier: MIT
#include "cli/racconto.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <ostream>

#include "cli/avvisi.h"
#include "cli/consiglio.h"
#include "cli/letture.h"
#include "cli/programma.h"
#include "cli/sottocartelle.h"
#include "shell/progetto.h"
#include "shell/protezione.h"

namespace morvella::cli {

namespace {

std::string Italiano(double valore, int decimali) {
    char testo[64];
    std::snprintf(testo, sizeof testo, "%.*f", decimali, valore);
    std::string numero = testo;
    std::replace(numero.begin(), numero.end(), '.', ',');
    return numero;
}

std::string Conto(Lungo n, const char* uno, const char* molti) {
    return std::to_string(n) + " " + (n == 1 ? uno : molti);
}

bool Fermata(const Corsa& c) { return !c.Fronte.Avvenuto.Errori.empty(); }

void Avvisa(Corsa& c, const std::vector<std::string>& frasi) {
    for (const std::string& frase : frasi) c.Fronte.Di("Avviso: " + frase);
}

void Aggiungi(std::vector<std::string>& avvisi, const std::vector<std::string>& altri) {
    avvisi.insert(avvisi.end(), altri.begin(), altri.end());
}

bool StrutturaVuota(Corsa& c, const Prodotto& prodotto) {
    return std::any_of(prodotto.File.begin(), prodotto.File.end(), [&](const Testo& file) {
        if (!file.ends_with(".log")) return false;
        const Scheda cosa = c.S.File.Trova(file).Cosa;
        return cosa.Esiste() && cosa.Bytes == 0; // of one that cannot be asked nothing is known
    });
}

// Without a form before it in the run, a module whose head does not end gives an empty listing.
void AvvisaVuote(Corsa& c, std::vector<std::string>& avvisi) {
    for (const Prodotto& prodotto : c.Fronte.Prodotti)
        if (prodotto.Righe > 0 && StrutturaVuota(c, prodotto))
            avvisi.push_back(
                "la struttura di " + TraVirgolette(prodotto.Voce) + " è vuota: nessun form viene prima" +
                (c.Chiesto.Prosegui && Fermata(c) ? " nella corsa, che dopo un errore ricomincia" : "") +
                ", e la testata del modulo non finisce mai.");
}

void AvvisaSenzaVoci(Corsa& c, const char* conseguenza, std::vector<std::string>& avvisi) {
    if (c.S.File1.ListCount() == 0)
        avvisi.push_back(std::string("il progetto non ha righe Form=, Module= o Class=: ") + conseguenza);
}

// One line a module with what was written for it.
void RaccontaProdotti(Corsa& c) {
    std::size_t larga = 0;
    for (const Prodotto& prodotto : c.Fronte.Prodotti)
        larga = std::min<std::size_t>(std::max(larga, prodotto.Voce.size()), 40);
    for (const Prodotto& prodotto : c.Fronte.Prodotti) {
        const Testo& nome = prodotto.Voce;
        std::string riga =
            "  " + Utf8Da1252(nome) + std::string(larga - std::min(larga, nome.size()), ' ') + "  ->";
        for (std::size_t f = 0; f < prodotto.File.size(); ++f)
            riga += (f ? ", " : " ") + c.Breve(prodotto.File[f]);
        c.Stampa(riga);
    }
}

std::vector<std::string> TuttiGliAvvisi(Corsa& c, int stato) {
    const std::string& comando = c.Chiesto.Comando;
    const Uscite uscite = comando == "struttura"   ? Uscite::Strutture
                          : comando == "documenta" ? Uscite::Pagine
                          : c.Lavorate.empty()     ? Uscite::Nessuna
                                                   : Uscite::Testi;
    std::vector<std::string> avvisi;
    AvvisaVuote(c, avvisi);
    Aggiungi(avvisi, c.Note);
    Aggiungi(avvisi, Avvisi(c.S, c.Lavorate, uscite));
    const bool pagine = comando == "documenta" || c.Chiesto.Html;
    // Pages refuse by themselves.
    if (comando == "eventi" || stato == RispostoNo || Fermata(c) || pagine) return avvisi;
    AvvisaSenzaVoci(c,
                    comando == "elenca" || comando == "leggi" ? "non c'è niente da mostrare."
                                                              : "non c'è niente da scrivere.",
                    avvisi);
    return avvisi;
}

void RaccontaTotali(Corsa& c, int stato) {
    const std::chrono::duration<double> durata = std::chrono::steady_clock::now() - c.Inizio;
    const auto moduli = static_cast<Lungo>(c.Fronte.Prodotti.size());
    const bool motore = c.Chiesto.Comando != "elenca" && c.Chiesto.Comando != "leggi";
    if (moduli == 0 && (!motore || Fermata(c) || stato == RispostoNo)) return;
    Lungo righe = 0;
    for (const Prodotto& prodotto : c.Fronte.Prodotti) righe += prodotto.Righe;
    c.Stampa(Conto(moduli, "modulo", "moduli") + ", " + Conto(righe, "riga", "righe") + ", " +
             Italiano(durata.count(), 2) + " s");
}

void RaccontaRilievi(Corsa& c) {
    const DueLetture& due = c.Fronte.Avvenuto.Rilievi.emplace(ConfrontaLetture(c));
    for (const RilievoDiStruttura& r : due.Struttura)
        c.Stampa(r.File + ":" + std::to_string(r.Riga) + ": " + r.Frase);
    if (due.Struttura.empty() || c.Chiesto.Silenzioso) return;
    const auto condivisi = std::count_if(due.Struttura.begin(), due.Struttura.end(),
                                         [](const RilievoDiStruttura& r) { return r.Condiviso; });
    c.Stampa("Rilievi condivisi da esamina: " + std::to_string(condivisi) + " su " +
             std::to_string(due.Struttura.size()));
}

// Whether a path leads to no plain file. What cannot be asked is not said to be missing.
bool Manca(Corsa& c, const Testo& percorso) {
    if (percorso.find('\0') != Testo::npos) return true;
    const Scheda cosa = c.S.File.Trova(percorso).Cosa;
    return cosa.Errore == 0 && cosa.Tipo != TipoVoce::File;
}

// The file of an error, or the line of the source where it happened; "" when neither is known.
std::string DoveErrore(Corsa& c, const ErroreAvvenuto& e, bool fileAssente) {
    if (!e.Causa.File.empty())
        return (MancaUnProgramma(e, fileAssente) ? " (un programma per " : " (") + c.Nativo(e.Causa.File) +
               ")";
    if (e.Voce.empty() || e.Riga <= 0) return "";
    return " (" + c.SorgenteDiVoce(e.Voce) + ":" + std::to_string(LineeDiEditor(c.S, e.Voce).Di(e.Riga)) +
           ")";
}

} // namespace

void Racconta(Corsa& c, int stato) {
    c.Fronte.TogliProgresso();
    std::vector<std::string>& avvisi = c.Fronte.Avvenuto.Avvisi;
    if (!c.Chiesto.Silenzioso || !c.Chiesto.Rapporto.empty()) avvisi = TuttiGliAvvisi(c, stato);
    if (!c.Chiesto.Silenzioso) {
        RaccontaProdotti(c);
        Avvisa(c, avvisi);
        RaccontaTotali(c, stato);
    } else if (c.Chiesto.Controlla) {
        // Silence about findings is a promise: what nobody examined is told.
        std::vector<std::string> nonEsaminati;
        AvvisaVuote(c, nonEsaminati);
        Aggiungi(nonEsaminati, AvvisiLf(c.S, c.Lavorate));
        if (stato != RispostoNo && !Fermata(c))
            AvvisaSenzaVoci(c, "non c'è niente da controllare.", nonEsaminati);
        Avvisa(c, nonEsaminati);
    }
    if (c.Chiesto.Controlla) RaccontaRilievi(c);
    c.Intorno.Uscita << std::flush;
    RaccontaErrori(c);
}

void RaccontaErrori(Corsa& c) {
    const Testo lavoro = c.Progetto + "\\Appoggio";
    const auto directory = [&](const Testo& percorso) {
        const Scheda cosa = c.S.File.Trova(percorso).Cosa; // one that cannot be asked may well be there
        return cosa.Tipo == TipoVoce::Directory || cosa.Errore != 0;
    };
    const bool appoggio = c.Progetto.empty() || !Fermata(c) || directory(lavoro) || !directory(c.Progetto);
    const std::string& comando = c.Chiesto.Comando;
    for (const ErroreAvvenuto& e : c.Fronte.Avvenuto.Errori) {
        const bool pagina = e.Motore == "mnuHTML_Click" && !e.Voce.empty() && !c.Chiesto.Sottocartelle &&
                            e.Causa.File.starts_with(lavoro + "\\");
        const Circostanze come{.PuoProseguire =
                                   !c.Chiesto.Prosegui && comando != "leggi" && comando != "eventi",
                               .Appoggio = appoggio,
                               .CartellaFattibile = pagina && CartellaFattibile(c.S, e.Voce),
                               .FileAssente = !e.Causa.File.empty() && Manca(c, e.Causa.File),
                               .Programma = c.Chiesto.Programma};
        std::string frase = "morvella-cli: " + Utf8Da1252(e.Motore) + " fermato";
        if (!e.Voce.empty()) frase += " alla riga " + TraVirgolette(e.Voce);
        frase += ": errore " + std::to_string(e.Causa.Numero) + ", " +
                 Utf8Da1252(Descrizione(e.Causa.Numero)) + DoveErrore(c, e, come.FileAssente);
        const std::string consiglio = Consiglio(e, come);
        if (!consiglio.empty()) frase += "\n  " + consiglio;
        c.Fronte.Di(frase);
    }
}

// A slip like "-r Progetto.vbp" must not cost a source.
void RifiutaRapporto(const Corsa& c) {
    const std::string& rapporto = c.Chiesto.Rapporto;
    if (HaNomeDiSorgente(rapporto) && c.Intorno.Macchina.Esamina(rapporto).Esiste())
        throw UsoErrato{"--rapporto: " + rapporto + " è un file di un progetto e non si sovrascrive"};
}

void RifiutaRapportoSuSorgente(Corsa& c) {
    const std::string& rapporto = c.Chiesto.Rapporto;
    if (rapporto.empty() || rapporto == "-" || c.Intorno.Macchina.Esamina(rapporto).Tipo != TipoVoce::File)
        return;
    c.ScegliProgetto();
    try {
        LeggiProgetto(c.S);
    } catch (const Errore& e) {
        c.S.Canale.Close(1);
        if (e.Numero != ErrFileAssente && e.Numero != ErrPercorso) throw; // whose rows may be the report's
    }
    ProteggiSorgenti(c.S);
    c.S.File1.Clear(); // the run reads them itself
    if (c.S.File.Protetto(rapporto))
        throw Errore(ErrPermesso,
                     "--rapporto " + rapporto + ": è un sorgente del progetto, che non si tocca");
}

bool ScriviRapporto(Corsa& c) {
    const std::string& rapporto = c.Chiesto.Rapporto;
    if (rapporto.empty()) return true;
    const std::string json = Json(c.S, c.Fronte.Avvenuto);
    if (rapporto == "-") {
        c.Intorno.Uscita << json;
        return true;
    }
    try {
        if (c.S.File1.ListCount() > 0) ProteggiSorgenti(c.S);
        const auto file = c.S.File.ApriScritturaDi(rapporto);
        file->Scrivi(json.data(), json.size());
        file->Chiudi();
        return true;
    } catch (const Errore& e) {
        const int numero = e.Numero == ErrFileAssente ? ErrPercorso : e.Numero;
        c.Fronte.Di(
            "morvella-cli: errore " + std::to_string(numero) + ", " + Utf8Da1252(Descrizione(numero)) +
            " (--rapporto " + rapporto + ")\n  Il resto è fatto, il rapporto no: " +
            (numero == ErrPermesso ? "il suo file è un sorgente del progetto, che non si tocca."
                                   : "controllare che la sua directory ci sia e vi si possa scrivere, e "
                                     "che al suo posto non ci siano una directory o un dispositivo."));
        return false;
    }
}

} // namespace morvella::cli

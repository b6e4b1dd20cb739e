// SPDX-License-Identifier: MIT
#include "cli/programma.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <new>
#include <optional>
#include <ostream>
#include <unordered_map>
#include <utility>

#include "cli/avvisi.h"
#include "cli/finestra_testo.h"
#include "cli/mostra.h"
#include "cli/opzioni.h"
#include "cli/sottocartelle.h"
#include "comandi/comandi.h"
#include "docs/docs.h"
#include "listing/decodifica.h"
#include "listing/listing.h"
#include "rewriter/rewriter.h"
#include "shell/dimora.h"
#include "shell/opzioni.h"

#ifndef MORVELLA_VERSIONE
#define MORVELLA_VERSIONE "0"
#endif

namespace morvella::cli {

namespace {

// The operations of the window that "eventi" knows by name.
struct Operazione {
    const char* Nome;
    void (*Fai)(Stato&);
};
constexpr Operazione Operazioni[] = {
    {"File1Leggi_Click", File1Leggi_Click},
    {"Command1_Click", Command1_Click},
    {"mnuSeleziona_Click", mnuSeleziona_Click},
    {"mnuRiordina_Click", mnuRiordina_Click},
    {"mnuvorn_Click", mnuvorn_Click},
    {"mnuLettura_Click", mnuLettura_Click},
    {"mnuHTML_Click", mnuHTML_Click},
    {"MnuHelpHtml_Click", MnuHelpHtml_Click},
    {"Form_Resize", Form_Resize},
    {"Command2_Click", Command2_Click},
    {"Check1_Click", Check1_Click},
    {"Check1_LostFocus", Opzione_LostFocus},
    {"Check2_LostFocus", Opzione_LostFocus},
    {"TogliCommenti_LostFocus", Opzione_LostFocus},
    {"Text1_LostFocus", Opzione_LostFocus},
    {"File1_Click", File1_Click},
    {"Dir1_Change", Dir1_Change},
    {"Drive1_Change", Drive1_Change},
};

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

// A row as a user may have typed it: any case, "/" for "\".
Testo ChiaveVoce(Vista riga) {
    Testo chiave = LCase(riga);
    std::replace(chiave.begin(), chiave.end(), '/', '\\');
    return chiave;
}

Testo DaArgomento(const std::string& utf8) { return Bytes1252DaUtf8(utf8).value_or(utf8); }

// A word of a command as a shell wants it.
std::string PerShell(const std::string& parola) {
    const auto semplice = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0 || std::strchr("/._-+:\\", c) != nullptr;
    };
    if (std::all_of(parola.begin(), parola.end(), semplice)) return parola;
#ifdef _WIN32
    return '"' + parola + '"';
#else
    std::string fra = "'";
    for (const char c : parola) fra += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return fra + "'";
#endif
}

constexpr const char* SenzaAppoggio =
    "La directory Appoggio non c'è e non si è potuta creare: controllare i permessi, o togliere il file "
    "che ha il suo nome.";

// What to do about an error, for the person who reads of it.
struct Circostanze {
    bool PuoProseguire = false;
    bool Appoggio = true;           // the work directory is there
    bool CartellaFattibile = false; // the row's page misses a folder that --sottocartelle would make
    bool FileAssente = false;       // what the error names is not there
    std::string Programma;          // as --programma has it
};
std::string Consiglio(const ErroreAvvenuto& e, const Circostanze& come) {
    const bool diVoce = !e.Voce.empty();
    const std::string prosegui =
        diVoce && come.PuoProseguire ? " Con --prosegui si passa alla riga seguente." : "";
    switch (e.Causa.Numero) {
    case ErrArgomento:
        if (e.Riga > 0)
            return "La riga di codice chiude un blocco tra un End Sub e la procedura seguente (spesso un "
                   "#End If)." +
                   prosegui;
        if (!diVoce) return "";
        return std::string("La riga del progetto è più corta di 4 caratteri") +
               (e.Motore == "mnuHTML_Click" ? ", o la data del file è mezzanotte esatta." : ".") + prosegui;
    case ErrFileAssente: {
        if (e.Motore == "mnuLettura_Click" && come.FileAssente)
            return "La struttura non c'è e non si è potuta scrivere: «struttura» dice perché.";
        const bool mostra = e.Motore == "mnuLettura_Click" || e.Motore == "MnuHelpHtml_Click" ||
                            (e.Motore == "mnuHTML_Click" && e.Causa.File.ends_with("\\Indice.Html"));
        if (mostra) return "Manca un programma che apra il file (di solito lo fa xdg-open).";
        return diVoce ? "Controllare il nome nel progetto." + prosegui : "Controllare che ci sia.";
    }
    case ErrFineFile:
        if (diVoce) return "Il file finisce dove doveva esserci ancora una riga." + prosegui;
        return "Il file delle opzioni finisce prima del previsto: «morvella-cli opzioni --ripristina" +
               (come.Programma.empty() ? "" : " --programma " + PerShell(come.Programma)) +
               "» lo rimette a posto.";
    case ErrDiscoPieno: return "Liberare spazio sul disco e ripetere: ciò che manca non è stato scritto.";
    case ErrPermesso: return "L'operazione avrebbe cambiato un sorgente del progetto, che non si tocca.";
    case ErrAccesso:
        if (e.Motore == "mnuHTML_Click" && e.Causa.File == "Appoggio" && come.Appoggio)
            return "La directory Appoggio c'è ma non contiene file: toglierla, o usare prima riordina.";
        if (e.Causa.File == "Appoggio") return SenzaAppoggio;
        return "Controllare i permessi, e che al posto del file non ci sia una directory." + prosegui;
    case ErrPercorso:
        if (!come.Appoggio) return SenzaAppoggio;
        if (come.CartellaFattibile)
            return "In Appoggio manca la cartella della pagina: con --sottocartelle viene creata." + prosegui;
        return "Manca la directory del file, o al suo posto c'è un file." + prosegui;
    default: return "";
    }
}

class Corsa {
  public:
    Corsa(Richiesta richiesta, Ambiente& ambiente)
        : r_(std::move(richiesta)),
          ambiente_(ambiente),
          finestra_(ambiente),
          s_(ambiente.Macchina, finestra_) {
        finestra_.S = &s_;
        s_.Canale.FineRigaLf = r_.Lf;
        finestra_.Risposta = r_.Risposta;
        finestra_.SenzaProcessi = r_.SenzaProcessi;
        if (r_.Apri)
            finestra_.RispostaIndice = true;
        else if (r_.Comando == "eventi" || r_.Risposta == false)
            finestra_.RispostaIndice = r_.Risposta;
        finestra_.Silenzioso = r_.Silenzioso;
        finestra_.Sorveglia = r_.Controlla;
    }

    int Esegui();

  private:
    bool Fai(const char* nome, void (*operazione)(Stato&));
    void ScegliProgetto();
    void ScegliVoci();
    void ScegliProgramma();
    bool CaricaIni();
    Testo LeggiIntestazione(bool avvisa);
    void SpuntaOpzioni();
    int MostraOpzioni();
    void Documenta();
    int EseguiTutto();
    void SuVoci();
    bool Scegli(bool consenti);
    void ProseguiRiordina();
    void ProseguiStruttura();
    int Eventi();
    void SelezionaEsattamente(const std::vector<Lungo>& righe);
    std::vector<Lungo> Selezionate() const;
    void Elenca();
    void Racconta(int stato);
    void RaccontaErrori();
    bool PuoProseguire() const { return !r_.Prosegui && r_.Comando != "leggi" && r_.Comando != "eventi"; }
    bool StrutturaVuota(const Prodotto& prodotto);
    void AvvisaVuote();
    void AvvisaSenzaVoci(const char* conseguenza);
    void RifiutaRapporto() const;
    bool ScriviRapporto();
    void Riga(const std::string& utf8);
    std::string Nativo(Vista percorso);
    std::string Breve(Vista percorso);
    std::string SorgenteDiVoce(Vista riga);
    std::optional<Arresto> PrendiFermo(Vista motore);

    Richiesta r_;
    Ambiente& ambiente_;
    FinestraTesto finestra_;
    Stato s_;
    std::string partenza_;          // platform path of the directory where the program was started
    std::string directory_;         // platform path of the project's directory
    Testo progetto_;                // the same as the system's text, whatever events do to Dir1
    std::vector<std::string> note_; // what --sottocartelle has to say
    std::vector<Lungo> lavorate_;   // rows that the command was for
    std::chrono::steady_clock::time_point inizio_ = std::chrono::steady_clock::now();
};

// Runs one operation; false when an error that nobody traps ended it. Files that were open then
// are closed, as at a program's end: what was written stays.
bool Corsa::Fai(const char* nome, void (*operazione)(Stato&)) {
    s_.Punto.Voce = -1;
    const auto chiudi = [&] {
        for (int n = 1; n <= Canali::NumeroMassimo; ++n) {
            try {
                s_.Canale.Close(n);
            } catch (const Errore& e) {
                finestra_.ErroreFinale(nome, e, s_.Punto.Voce);
            }
        }
    };
    try {
        operazione(s_);
        return true;
    } catch (const Errore& e) {
        finestra_.ErroreFinale(nome, e, s_.Punto.Voce);
    } catch (const std::bad_alloc&) {
        finestra_.ErroreFinale(nome, Errore(ErrMemoria), s_.Punto.Voce);
    }
    chiudi();
    return false;
}

std::string Corsa::Nativo(Vista percorso) {
    if (percorso.empty() || percorso.find('\0') != Vista::npos) return Utf8Da1252(percorso);
    return s_.File.Trova(percorso).Percorso;
}

// A path as a person wants to read it: from the project's directory on.
std::string Corsa::Breve(Vista percorso) {
    std::string nativo = Nativo(percorso);
    if (nativo.compare(0, directory_.size() + 1, directory_ + "/") == 0)
        nativo.erase(0, directory_.size() + 1);
    return nativo;
}

void Corsa::Riga(const std::string& utf8) {
    // With the report on standard output nothing else goes there.
    std::ostream& dove = r_.Rapporto == "-" ? ambiente_.Errori : ambiente_.Uscita;
    dove << ambiente_.Codifica(ambiente_.UscitaTerminale ? MostrabileUtf8(utf8, true) : utf8) << '\n';
}

void Corsa::ScegliProgramma() {
    if (!r_.Programma.empty()) {
        const std::string directory = ambiente_.Macchina.Assoluto(r_.Programma);
        if (!r_.Silenzioso && ambiente_.Macchina.Esamina(directory).Tipo != TipoVoce::Directory)
            finestra_.Di("Avviso: --programma: la directory «" + r_.Programma + "» non c'è.");
        s_.AppPath = s_.File.Aggancia(Gancio::Programma, directory);
        return;
    }
    const Dimora dimora =
        TrovaDimora(ambiente_.Macchina, ambiente_.DirectoryProgramma, ambiente_.DirectoryUtente);
    s_.AppPath = s_.File.Aggancia(Gancio::Programma, dimora.Directory);
    if (r_.Silenzioso) return;
    for (const Errore& e : dimora.Guasti)
        finestra_.Di("Avviso: " + e.File +
                     " non è stato copiato dalla directory del programma a quella "
                     "dell'utente: " +
                     Utf8Da1252(Descrizione(e.Numero)));
}

void Corsa::ScegliProgetto() {
    const std::string progetto = ambiente_.Macchina.Assoluto(r_.Progetto);
    const std::size_t barra = progetto.find_last_of('/');
    directory_ = progetto.substr(0, barra);
    CambiaDir1(s_, directory_, progetto.substr(barra + 1));
    progetto_ = s_.Dir1Path;
    s_.File1Leggi.ListIndex = 0;
}

// The options as stored, where a file stores them; none is made. "eventi" has it only as its
// first event.
bool Corsa::CaricaIni() {
    if (r_.Comando == "eventi") return !r_.Ini || Fai("Form_Resize", Form_Resize);
    if (r_.Comando == "elenca" || s_.File.Dir(PercorsoOpzioni(s_), 0).empty()) return true;
    return Fai("CaricaOpzioni", CaricaOpzioni);
}

// What --testo-intestazione names, as the text box would hold it. The file is in UTF-8 or, where it
// is no UTF-8, in Windows-1252.
Testo Corsa::LeggiIntestazione(bool avvisa) {
    std::string testo;
    try {
        const auto file = ambiente_.Macchina.ApriLettura(r_.TestoIntestazione);
        char blocco[4096];
        while (const std::size_t letti = file->Leggi(blocco, sizeof blocco)) testo.append(blocco, letti);
    } catch (const Errore& e) {
        throw UsoErrato{"--testo-intestazione: " + r_.TestoIntestazione + ": " +
                        Utf8Da1252(Descrizione(e.Numero))};
    }
    // The text box holds Windows-1252 and ends its lines in CR LF, wherever the text was written.
    if (testo.compare(0, 3, "\xEF\xBB\xBF") == 0) testo.erase(0, 3);
    if (const auto bytes = Bytes1252DaUtf8(testo)) {
        testo = *bytes;
    } else if (const auto conPunti = Bytes1252DaUtf8ConPunti(testo)) {
        testo = *conPunti;
        if (avvisa)
            finestra_.Di("Avviso: " + r_.TestoIntestazione +
                         " ha caratteri che Windows-1252 non ha: al loro posto si scrive «?».");
    }
    Testo casella;
    for (std::size_t i = 0; i < testo.size(); ++i) {
        if (testo[i] == '\n' && (i == 0 || testo[i - 1] != '\r')) casella += '\r';
        casella += testo[i];
    }
    return casella;
}

// The command line's options over the stored ones, like a user's own ticks, for this run.
void Corsa::SpuntaOpzioni() {
    if (r_.TogliCommenti) s_.TogliCommenti = *r_.TogliCommenti ? 1 : 0;
    if (r_.IntestazioneProcedure) CambiaCheck1(s_, *r_.IntestazioneProcedure ? 1 : 0);
    if (r_.SenzaConferma) s_.Check2 = *r_.SenzaConferma ? 1 : 0;
    // Who says No on the command line has nothing run, whatever is stored.
    if (!r_.SenzaConferma && r_.Risposta == false) s_.OpzSenzaConferma = false;
    if (!r_.TestoIntestazione.empty()) s_.Text1 = LeggiIntestazione(!r_.Silenzioso);
    if (r_.TogliCommenti || r_.IntestazioneProcedure || r_.SenzaConferma || !r_.TestoIntestazione.empty())
        RaccogliOpzioni(s_);
    if (r_.IntestazioneProcedure.value_or(false) && s_.Text1.empty() && !r_.Silenzioso)
        finestra_.Di(
            "Avviso: --intestazione-procedure senza --testo-intestazione: non c'è un testo da scrivere.");
}

// The command "opzioni": what is stored, after the changes asked for.
int Corsa::MostraOpzioni() {
    const bool cambia =
        r_.TogliCommenti || r_.IntestazioneProcedure || r_.SenzaConferma || !r_.TestoIntestazione.empty();
    const bool esiste = !s_.File.Dir(PercorsoOpzioni(s_), 0).empty();
    if (!r_.TestoIntestazione.empty()) LeggiIntestazione(false); // wrong usage before anything changes
    if (r_.Ripristina && !Fai("Command2_Click", Command2_Click)) return Fermato;
    if (!r_.Ripristina && (esiste || cambia) && !Fai("Form_Resize", Form_Resize)) return Fermato;
    if (cambia) {
        // As in the window: the control is set, and stored when it loses the focus.
        SpuntaOpzioni();
        const Lungo tronca = RigaCheTronca(s_.Text1);
        if (tronca > 0)
            finestra_.Di("Avviso: la riga " + std::to_string(tronca) +
                         " del testo dell'intestazione è soltanto OK o KO: chi rilegge il file delle opzioni "
                         "ferma lì il testo, e prende la riga per «Senza chiedere conferma».");
        if (!Fai("Opzione_LostFocus", Opzione_LostFocus)) return Fermato;
        // What is stored is what a next start finds: a line "OK" ends the text, blank lines go.
        if (!Fai("CaricaOpzioni", CaricaOpzioni)) return Fermato;
    }
    if (s_.File.Dir(PercorsoOpzioni(s_), 0).empty()) {
        Riga("Nessuna opzione conservata in " + Nativo(PercorsoOpzioni(s_)) + ": valgono quelle iniziali.");
        return Fatto;
    }
    const auto siNo = [](bool acceso) { return std::string(acceso ? "sì" : "no"); };
    Riga("Togli tutti i commenti:   " + siNo(s_.TogliCommenti == 1));
    Riga("Intestazione Procedure:   " + siNo(s_.Check1 == 1));
    Riga("Senza chiedere conferma:  " + siNo(s_.Check2 == 1));
    Riga("Testo dell'intestazione:  " + std::string(s_.TestoIntestazione.empty() ? "(nessuno)" : ""));
    std::string testo = Utf8Da1252(s_.TestoIntestazione);
    std::erase(testo, '\r');
    while (!testo.empty() && testo.back() == '\n') testo.pop_back();
    if (!testo.empty()) Riga(testo);
    return Fatto;
}

// File1Leggi_Click. Without `consenti` the command's own answer to the question is No.
bool Corsa::Scegli(bool consenti) {
    const bool senzaConferma = s_.OpzSenzaConferma;
    if (!consenti) {
        s_.OpzSenzaConferma = false;
        finestra_.Risposta = false;
    }
    const bool fatto = Fai("File1Leggi_Click", File1Leggi_Click);
    s_.OpzSenzaConferma = senzaConferma;
    return fatto;
}

std::vector<Lungo> Corsa::Selezionate() const {
    std::vector<Lungo> righe;
    for (Lungo i = 0; i < s_.File1.ListCount(); ++i)
        if (s_.File1.Selected(i)) righe.push_back(i);
    return righe;
}

void Corsa::SelezionaEsattamente(const std::vector<Lungo>& righe) {
    std::vector<bool> volute(static_cast<std::size_t>(s_.File1.ListCount()), false);
    for (const Lungo i : righe) volute[static_cast<std::size_t>(i)] = true;
    for (Lungo i = 0; i < s_.File1.ListCount(); ++i)
        if (s_.File1.Selected(i) != volute[static_cast<std::size_t>(i)])
            SelezionaFile1(s_, i, volute[static_cast<std::size_t>(i)]);
}

void Corsa::ScegliVoci() {
    if (r_.Resto.empty()) return; // all of them, as they are
    std::unordered_multimap<Testo, Lungo> perChiave;
    for (Lungo i = 0; i < s_.File1.ListCount(); ++i) perChiave.emplace(ChiaveVoce(s_.File1.List(i)), i);
    std::vector<Lungo> righe;
    for (const std::string& nome : r_.Resto) {
        const auto [da, fino] = perChiave.equal_range(ChiaveVoce(DaArgomento(nome)));
        for (auto riga = da; riga != fino; ++riga) righe.push_back(riga->second);
        if (da == fino)
            throw UsoErrato{"il progetto non ha la riga «" + nome + "»: morvella-cli elenca " + r_.Progetto +
                            " mostra quelle che ha"};
    }
    SelezionaEsattamente(righe);
}

std::optional<Arresto> Corsa::PrendiFermo(Vista motore) {
    auto fermo = finestra_.Fermi.extract(Testo(motore));
    return fermo ? std::optional(std::move(fermo.mapped())) : std::nullopt;
}

// Goes on behind a row that failed, as a user would by hand: it is deselected together with the
// rows already done, and the command is given again. A run that stopped in its first stage has
// rewritten the rows before but not yet given them their own names: these are not done, and
// come last, all in one run.
void Corsa::ProseguiRiordina() {
    std::vector<Lungo> sospese;
    for (;;) {
        const std::optional<Arresto> fermo = PrendiFermo("mnuRiordina_Click");
        if (fermo && fermo->Voce < 0) return; // an error before the first row: no use
        if (fermo) {
            std::vector<Lungo> restano;
            for (const Lungo i : Selezionate()) {
                if (i > fermo->Voce) restano.push_back(i);
                if (i < fermo->Voce && !fermo->SecondoGiro) sospese.push_back(i);
            }
            SelezionaEsattamente(restano);
            if (restano.empty() && sospese.empty()) return;
            if (!restano.empty()) {
                Fai("mnuRiordina_Click", mnuRiordina_Click);
                continue;
            }
        }
        if (sospese.empty()) return;
        SelezionaEsattamente(std::exchange(sospese, {}));
        Fai("mnuRiordina_Click", mnuRiordina_Click);
    }
}

// The listing deselects each row before it opens it: giving the command again goes on behind.
void Corsa::ProseguiStruttura() {
    while (const std::optional<Arresto> fermo = PrendiFermo("mnuvorn_Click")) {
        if (fermo->Voce < 0 || Selezionate().empty()) return;
        Fai("mnuvorn_Click", mnuvorn_Click);
    }
}

int Corsa::Eventi() {
    // All are looked at before the first is run: a slip in the last must not leave half a run.
    constexpr const char* Seleziona = "seleziona=";
    for (const std::string& evento : r_.Resto) {
        const bool nota = std::any_of(std::begin(Operazioni), std::end(Operazioni),
                                      [&](const Operazione& o) { return evento == o.Nome; });
        const bool selezione = evento.rfind(Seleziona, 0) == 0 &&
                               evento.find_first_not_of("0123456789,", 10) == std::string::npos;
        if (nota || selezione) continue;
        std::string detto = "evento sconosciuto: " + evento + "; ci sono ";
        for (const Operazione& o : Operazioni) detto.append(o.Nome).append(", ");
        throw UsoErrato{detto + "seleziona=0,2,5"};
    }
    for (const std::string& evento : r_.Resto) {
        if (evento.rfind(Seleziona, 0) == 0) {
            std::vector<Lungo> righe;
            Lungo numero = -1;
            for (const char c : evento.substr(10) + ",") {
                if (c != ',') {
                    numero = std::min<Lungo>((numero < 0 ? 0 : numero) * 10 + (c - '0'), 1000000000);
                } else if (numero >= 0) {
                    if (numero >= s_.File1.ListCount())
                        throw UsoErrato{evento + ": le righe del progetto sono " +
                                        std::to_string(s_.File1.ListCount()) + ", contate da 0"};
                    righe.push_back(numero);
                    numero = -1;
                }
            }
            SelezionaEsattamente(righe);
            continue;
        }
        const auto* operazione = std::find_if(std::begin(Operazioni), std::end(Operazioni),
                                              [&](const Operazione& o) { return evento == o.Nome; });
        if (!Fai(operazione->Nome, operazione->Fai)) break;
    }
    if (!finestra_.Prodotti.empty())
        for (Lungo i = 0; i < s_.File1.ListCount(); ++i) lavorate_.push_back(i);
    return finestra_.Avvenuto.Errori.empty() ? Fatto : Fermato;
}

void Corsa::Elenca() {
    for (Lungo i = 0; i < s_.File1.ListCount(); ++i) Riga(Utf8Da1252(s_.File1.List(i)));
}

// The source of a row as editors and CI systems want it: from where the program was started.
std::string Corsa::SorgenteDiVoce(Vista riga) {
    std::string nativo = Nativo(progetto_ + "\\" + Testo(riga));
    if (partenza_.size() > 1 && nativo.compare(0, partenza_.size() + 1, partenza_ + "/") == 0)
        nativo.erase(0, partenza_.size() + 1);
    return nativo;
}

void Corsa::RaccontaErrori() {
    const bool appoggio = progetto_.empty() || finestra_.Avvenuto.Errori.empty() ||
                          s_.File.Trova(progetto_ + "\\Appoggio").Cosa.Tipo == TipoVoce::Directory ||
                          s_.File.Trova(progetto_).Cosa.Tipo != TipoVoce::Directory;
    for (const ErroreAvvenuto& e : finestra_.Avvenuto.Errori) {
        const bool diVoce = !e.Voce.empty();
        std::string frase = "morvella-cli: " + Utf8Da1252(e.Motore) + " fermato";
        if (diVoce) frase += " alla riga «" + Utf8Da1252(e.Voce) + "»";
        frase +=
            ": errore " + std::to_string(e.Causa.Numero) + ", " + Utf8Da1252(Descrizione(e.Causa.Numero));
        if (!e.Causa.File.empty())
            frase += " (" + Nativo(e.Causa.File) + ")";
        else if (diVoce && e.Riga > 0)
            frase += " (" + SorgenteDiVoce(e.Voce) + ":" +
                     std::to_string(LineeDiEditor(s_, e.Voce).Di(e.Riga)) + ")";
        const bool pagina = e.Motore == "mnuHTML_Click" && diVoce && !r_.Sottocartelle &&
                            e.Causa.File.starts_with(progetto_ + "\\Appoggio\\");
        const std::string consiglio =
            Consiglio(e, {PuoProseguire(), appoggio, pagina && CartellaFattibile(s_, e.Voce),
                          !e.Causa.File.empty() && s_.File.Dir(e.Causa.File, 0).empty(), r_.Programma});
        if (!consiglio.empty()) frase += "\n  " + consiglio;
        finestra_.Di(frase);
    }
}

bool Corsa::StrutturaVuota(const Prodotto& prodotto) {
    return std::any_of(prodotto.File.begin(), prodotto.File.end(), [&](const Testo& file) {
        return file.ends_with(".log") && s_.File.Trova(file).Cosa.Bytes == 0;
    });
}

// Without a form before it in the run, a module whose head does not end is listed from nowhere on.
void Corsa::AvvisaVuote() {
    for (const Prodotto& prodotto : finestra_.Prodotti)
        if (prodotto.Righe > 0 && StrutturaVuota(prodotto))
            finestra_.Di("Avviso: la struttura di «" + Utf8Da1252(prodotto.Voce) +
                         "» è vuota: nessun form viene prima" +
                         (r_.Prosegui && !finestra_.Avvenuto.Errori.empty()
                              ? " nella corsa, che dietro un errore ricomincia"
                              : "") +
                         ", e la testata del modulo non finisce mai.");
}

void Corsa::AvvisaSenzaVoci(const char* conseguenza) {
    if (s_.File1.ListCount() == 0)
        finestra_.Di(std::string("Avviso: il progetto non ha righe Form=, Module= o Class=: ") + conseguenza);
}

// One line a module with what was written, warnings, totals and time.
void Corsa::Racconta(int stato) {
    finestra_.TogliProgresso();
    if (!r_.Silenzioso) {
        std::size_t larga = 0;
        Lungo totale = 0;
        for (const Prodotto& prodotto : finestra_.Prodotti) {
            larga = std::min<std::size_t>(std::max(larga, prodotto.Voce.size()), 40);
            totale += prodotto.Righe;
        }
        for (const Prodotto& prodotto : finestra_.Prodotti) {
            const Testo& nome = prodotto.Voce;
            std::string riga =
                "  " + Utf8Da1252(nome) + std::string(larga - std::min(larga, nome.size()), ' ') + "  ->";
            for (std::size_t f = 0; f < prodotto.File.size(); ++f)
                riga += (f ? ", " : " ") + Breve(prodotto.File[f]);
            Riga(riga);
        }
        const Uscite uscite = r_.Comando == "struttura"   ? Uscite::Strutture
                              : r_.Comando == "documenta" ? Uscite::Pagine
                              : lavorate_.empty()         ? Uscite::Nessuna
                                                          : Uscite::Testi;
        AvvisaVuote();
        for (const std::string& nota : note_) finestra_.Di("Avviso: " + nota);
        for (const std::string& avviso : Avvisi(s_, lavorate_, uscite)) finestra_.Di("Avviso: " + avviso);
        const std::chrono::duration<double> durata = std::chrono::steady_clock::now() - inizio_;
        const auto moduli = static_cast<Lungo>(finestra_.Prodotti.size());
        const bool motore = r_.Comando != "elenca" && r_.Comando != "leggi";
        const bool pagine = r_.Comando == "documenta" || r_.Html;
        if (r_.Comando != "eventi" && stato != RispostoNo && (pagine || finestra_.Avvenuto.Errori.empty()))
            AvvisaSenzaVoci(pagine   ? "senza righe l'indice va nella radice del disco."
                            : motore ? "non c'è niente da scrivere."
                                     : "non c'è niente da mostrare.");
        if (moduli > 0 || (motore && finestra_.Avvenuto.Errori.empty() && stato != RispostoNo))
            Riga(Conto(moduli, "modulo", "moduli") + ", " + Conto(totale, "riga", "righe") + ", " +
                 Italiano(durata.count(), 2) + " s");
    } else if (r_.Controlla) {
        // Silence about findings is a promise: what nobody examined is told.
        AvvisaVuote();
        for (const std::string& avviso : AvvisiLf(s_, lavorate_)) finestra_.Di("Avviso: " + avviso);
        if (stato != RispostoNo && finestra_.Avvenuto.Errori.empty())
            AvvisaSenzaVoci("non c'è niente da controllare.");
    }
    if (r_.Controlla) {
        std::optional<LineeDiEditor> linee;
        Testo diChi;
        for (const Rilievo& rilievo : finestra_.Trovato.Rilievi()) {
            if (!linee || diChi != rilievo.Voce) linee.emplace(s_, diChi = rilievo.Voce);
            const auto inFile = [&](Lungo n) { return linee->Di(n); };
            Riga(SorgenteDiVoce(rilievo.Voce) + ":" + std::to_string(inFile(rilievo.Dove.Riga)) + ": " +
                 rilievo.Frase(inFile));
        }
    }
    ambiente_.Uscita << std::flush;
    RaccontaErrori();
}

// A slip like "-r Progetto.vbp" must not cost a source.
void Corsa::RifiutaRapporto() const {
    const Testo fine = LCase(Right(r_.Rapporto, 4));
    for (const char* sorgente : {".vbp", ".frm", ".bas", ".cls", ".frx", ".ctl", ".dsr", ".pag", ".res"})
        if (fine == sorgente && ambiente_.Macchina.Esamina(r_.Rapporto).Esiste())
            throw UsoErrato{"--rapporto: " + r_.Rapporto + " è un file di un progetto e non si sovrascrive"};
}

// False, with the reason told, when the report could not be written: the run itself is done.
bool Corsa::ScriviRapporto() {
    if (r_.Rapporto.empty()) return true;
    const std::string json = Json(s_, finestra_.Avvenuto);
    if (r_.Rapporto == "-") {
        ambiente_.Uscita << json;
        return true;
    }
    try {
        const auto file = ambiente_.Macchina.ApriScrittura(r_.Rapporto);
        file->Scrivi(json.data(), json.size());
        file->Chiudi();
        return true;
    } catch (const Errore& e) {
        const int numero = e.Numero == ErrFileAssente ? ErrPercorso : e.Numero;
        finestra_.Di("morvella-cli: errore " + std::to_string(numero) + ", " +
                     Utf8Da1252(Descrizione(numero)) + " (--rapporto " + r_.Rapporto +
                     ")\n  Il resto è fatto, il rapporto no: controllare che la sua directory ci sia e vi "
                     "si possa scrivere.");
        return false;
    }
}

int Corsa::EseguiTutto() {
    if (!Scegli(true)) return Fermato;
    const bool no = !s_.OpzSenzaConferma && finestra_.Avvenuto.Messaggi.back().Risposta == RispostaNo;
    for (Lungo i = 0; i < s_.File1.ListCount(); ++i) lavorate_.push_back(i);
    if (no) return RispostoNo;
    if (r_.Prosegui) {
        // The rows that the listing left selected are its own; the rewriter's were all.
        ProseguiStruttura();
        SelezionaEsattamente(lavorate_);
        ProseguiRiordina();
        SelezionaEsattamente({});
    }
    if (r_.Html) {
        SelezionaEsattamente(lavorate_);
        Documenta();
    }
    return Fatto;
}

// The documentation of the selected rows. An error there is final; with --prosegui the row is
// deselected and the run made again, so that the index holds every page that there is.
void Corsa::Documenta() {
    std::vector<std::string> cartelle;
    const auto sottocartelle = [&](auto&& passo) {
        try {
            passo();
            return true;
        } catch (const Errore& e) {
            finestra_.ErroreFinale("mnuHTML_Click", e, -1);
            return false;
        }
    };
    if (r_.Sottocartelle && !sottocartelle([&] { cartelle = FaiSottocartelle(s_, Selezionate(), note_); }))
        return;
    while (!Fai("mnuHTML_Click", mnuHTML_Click)) {
        if (!r_.Prosegui || s_.Punto.Voce < 0) break;
        SelezionaFile1(s_, s_.Punto.Voce, false);
        if (Selezionate().empty()) break;
    }
    // Also behind an error: the pages that there are get their pictures and their way home.
    sottocartelle([&] { ArredaSottocartelle(s_, cartelle); });
}

// A command for some rows: all when none is named.
void Corsa::SuVoci() {
    ScegliVoci();
    lavorate_ = Selezionate();
    if (r_.Comando == "riordina") {
        Fai("mnuRiordina_Click", mnuRiordina_Click);
        if (r_.Prosegui) ProseguiRiordina();
    } else if (r_.Comando == "struttura") {
        Fai("mnuvorn_Click", mnuvorn_Click);
        if (r_.Prosegui) ProseguiStruttura();
    } else if (r_.Comando == "documenta") {
        Documenta();
    } else {
        // Without a structure the reading writes all of them, which leaves no row to open.
        if (Fai("mnuLettura_Click", mnuLettura_Click) && !finestra_.Prodotti.empty())
            note_.push_back("una struttura mancava: le strutture sono state riscritte, ma da quella in poi "
                            "non se n'è aperta nessuna. Ripetere il comando, o usare «morvella-cli mostra».");
    }
}

int Corsa::Esegui() {
    int stato = Fatto;
    // The run moves the process's current directory: paths of the command line are read before.
    partenza_ = ambiente_.Macchina.DirectoryCorrente();
    const auto daPartenza = [&](std::string& file) { file = ambiente_.Macchina.Assoluto(file); };
    if (!r_.Rapporto.empty() && r_.Rapporto != "-") daPartenza(r_.Rapporto);
    if (!r_.TestoIntestazione.empty()) daPartenza(r_.TestoIntestazione);
    RifiutaRapporto();
    ScegliProgramma();
    if (r_.Comando == "opzioni" || r_.Comando == "guida") {
        if (r_.Comando == "opzioni")
            stato = MostraOpzioni();
        else if (!Fai("MnuHelpHtml_Click", MnuHelpHtml_Click))
            stato = Fermato;
        else if (!r_.Silenzioso)
            Riga(Nativo(s_.AppPath + "\\tavolerio.htm")); // also where no browser is started
        RaccontaErrori();
        return stato;
    }
    try {
        ScegliProgetto();
        const bool caricate = CaricaIni();
        if (caricate) SpuntaOpzioni();
        if (!caricate) {
            stato = Fermato;
        } else if (r_.Comando == "eventi") {
            stato = Eventi();
        } else if (r_.Comando == "esegui") {
            stato = EseguiTutto();
        } else if (Scegli(false)) {
            if (r_.Comando == "elenca")
                Elenca();
            else
                SuVoci();
        }
    } catch (const UsoErrato&) {
        ScriviRapporto();
        throw;
    }
    if (!finestra_.Avvenuto.Errori.empty()) stato = Fermato;
    if (r_.Controlla && !finestra_.Trovato.Rilievi().empty()) stato = Trovato;
    Racconta(stato);
    return ScriviRapporto() || stato != Fatto ? stato : Fermato;
}

int EseguiComando(const std::vector<std::string>& argomenti, Ambiente& ambiente) {
    const auto di = [&](const std::string& utf8) { ambiente.Errori << ambiente.Codifica(utf8) << '\n'; };
    try {
        Richiesta richiesta = Analizza(argomenti);
        if (richiesta.Aiuto) {
            ambiente.Uscita << ambiente.Codifica(TestoAiuto(richiesta.Comando));
            return Fatto;
        }
        if (richiesta.Versione) {
            ambiente.Uscita << "morvella-cli " MORVELLA_VERSIONE "\n";
            return Fatto;
        }
        if (richiesta.Comando == "mostra") return Mostra(richiesta, ambiente);
        return Corsa(std::move(richiesta), ambiente).Esegui();
    } catch (const UsoErrato& e) {
        di("morvella-cli: " + MostrabileUtf8(e.Testo, true) +
           "\n(morvella-cli --aiuto mostra comandi e opzioni)");
        return UsoSbagliato;
    } catch (const Errore& e) {
        di("morvella-cli: errore " + std::to_string(e.Numero) + ", " + Utf8Da1252(Descrizione(e.Numero)) +
           (e.File.empty() ? "" : " (" + e.File + ")"));
        return Fermato;
    }
}

} // namespace

int Programma(const std::vector<std::string>& argomenti, Ambiente& ambiente) {
    const int stato = EseguiComando(argomenti, ambiente);
    ambiente.Uscita << std::flush;
    if (ambiente.Uscita.good()) return stato;
    ambiente.Errori << ambiente.Codifica("morvella-cli: l'uscita standard non ha accettato tutto il testo.")
                    << '\n';
    return stato == Fatto ? Fermato : stato;
}

} // namespace morvella::cli

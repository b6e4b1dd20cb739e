// SPDX-License-Identifier: MIT
#include "cli/programma.h"

#include <new>
#include <ostream>
#include <utility>

#include "cli/conserva.h"
#include "cli/corsa.h"
#include "cli/esamina.h"
#include "cli/eventi.h"
#include "cli/formatta.h"
#include "cli/mostra.h"
#include "cli/prosegui.h"
#include "cli/racconto.h"
#include "cli/sottocartelle.h"
#include "cli/verifica.h"
#include "cli/voci.h"
#include "comandi/comandi.h"
#include "docs/docs.h"
#include "listing/listing.h"
#include "rewriter/rewriter.h"
#include "text/codifica.h"

#ifndef MORVELLA_VERSIONE
#define MORVELLA_VERSIONE "0"
#endif

namespace morvella::cli {

namespace {

// File1Leggi_Click, its question answered as the command line says.
bool LeggiEChiedi(Corsa& c) {
    c.ScegliProgetto();
    return c.Fai("File1Leggi_Click", File1Leggi_Click);
}

// The same for a command that only wants the rows: its own answer to the question is No.
bool Leggi(Corsa& c) {
    c.Fronte.Risposta = false;
    const bool senzaConferma = std::exchange(c.S.OpzSenzaConferma, false);
    const bool fatto = LeggiEChiedi(c);
    c.S.OpzSenzaConferma = senzaConferma;
    return fatto;
}

// The documentation of the selected rows; false where there is none to select from. An error there is final;
// with --prosegui the row is deselected and the run made again, so that the index holds every page that there
// is.
bool ScriviPagine(Corsa& c) {
    if (c.S.File1.ListCount() == 0) {
        // The operation itself would write index and pictures to the root of the disk.
        c.Fronte.Di("morvella-cli: il progetto non ha righe Form=, Module= o Class=: non ci sono pagine da "
                    "scrivere.");
        return false;
    }
    std::vector<std::string> cartelle;
    const auto sottocartelle = [&](auto&& passo) {
        try {
            passo();
            return true;
        } catch (const Errore& e) {
            c.Fronte.ErroreFinale("mnuHTML_Click", e, -1);
            return false;
        }
    };
    if (c.Chiesto.Sottocartelle &&
        !sottocartelle([&] { cartelle = FaiSottocartelle(c.S, Selezionate(c.S), c.Note); }))
        return true; // told with the other errors
    while (!c.Fai("mnuHTML_Click", mnuHTML_Click)) {
        if (!c.Chiesto.Prosegui || c.S.Punto.Voce < 0) break;
        SelezionaFile1(c.S, c.S.Punto.Voce, false);
        if (Selezionate(c.S).empty()) break;
    }
    // After an error too: finished pages still get their pictures and the link to the index.
    sottocartelle([&] { ArredaSottocartelle(c.S, cartelle); });
    return true;
}

int EseguiTutto(Corsa& c) {
    if (!LeggiEChiedi(c)) return Fermato;
    const bool no = !c.S.OpzSenzaConferma && c.Fronte.Avvenuto.Messaggi.back().Risposta == RispostaNo;
    for (Lungo i = 0; i < c.S.File1.ListCount(); ++i) c.Lavorate.push_back(i);
    if (no) return RispostoNo;
    if (c.Chiesto.Prosegui) {
        // The rows that the listing left selected are its own; the rewriter's were all.
        ProseguiStruttura(c);
        SelezionaEsattamente(c.S, c.Lavorate);
        ProseguiRiordina(c);
        SelezionaEsattamente(c.S, {});
    }
    if (c.Chiesto.Html) {
        SelezionaEsattamente(c.S, c.Lavorate);
        if (!ScriviPagine(c)) return Fermato;
    }
    return Fatto;
}

// A command for some rows: all when none is named.
int SuVoci(Corsa& c) {
    const std::string& comando = c.Chiesto.Comando;
    ScegliVoci(c);
    c.Lavorate = Selezionate(c.S);
    if (comando == "riordina") {
        c.Fai("mnuRiordina_Click", mnuRiordina_Click);
        if (c.Chiesto.Prosegui) ProseguiRiordina(c);
    } else if (comando == "struttura") {
        c.Fai("mnuvorn_Click", mnuvorn_Click);
        if (c.Chiesto.Prosegui) ProseguiStruttura(c);
    } else if (comando == "verifica") {
        // Nothing to do: SuProgetto verifies the rows.
    } else if (comando == "documenta") {
        if (!ScriviPagine(c)) return Fermato;
    } else if (c.Fai("mnuLettura_Click", mnuLettura_Click) && !c.Fronte.Prodotti.empty()) {
        // Without a structure the reading writes all of them, which leaves no row to open.
        c.Note.push_back("una struttura mancava: le strutture sono state riscritte, ma da quella in poi "
                         "non se n'è aperta nessuna. Ripetere il comando, o usare «morvella-cli mostra».");
    }
    return Fatto;
}

int EseguiSuProgetto(Corsa& c) {
    c.ApriDirectory();
    if (c.Chiesto.Comando != "eventi") RifiutaRapportoSuSorgente(c);
    if (!CaricaIni(c)) return Fermato;
    SpuntaOpzioni(c);
    if (c.Chiesto.Comando == "esegui") return EseguiTutto(c);
    if (c.Chiesto.Comando == "eventi") {
        EseguiEventi(c);
    } else if (Leggi(c)) {
        if (c.Chiesto.Comando == "elenca")
            for (Lungo i = 0; i < c.S.File1.ListCount(); ++i) c.Stampa(Utf8Da1252(c.S.File1.List(i)));
        else
            return SuVoci(c);
    }
    return Fatto;
}

int SuProgetto(Corsa& c) {
    int stato = Fatto;
    try {
        stato = EseguiSuProgetto(c);
    } catch (const UsoErrato&) {
        ScriviRapporto(c);
        throw;
    }
    if (!c.Fronte.Avvenuto.Errori.empty()) stato = Fermato;
    if (c.Chiesto.Comando == "verifica") {
        RaccontaErrori(c);
        return stato == Fatto && VerificaCopie(c) ? Fatto : Fermato;
    }
    if (c.Chiesto.Controlla && !c.Fronte.Trovato.Rilievi().empty()) stato = Trovato;
    Racconta(c, stato);
    // What an error left unwritten, or wrote half, proves nothing.
    if (c.Chiesto.Verifica && (stato == Fatto || stato == Trovato) && !VerificaCopie(c)) stato = Fermato;
    return ScriviRapporto(c) || stato != Fatto ? stato : Fermato;
}

int ApriGuida(Corsa& c) {
    if (!c.Fai("MnuHelpHtml_Click", MnuHelpHtml_Click)) return Fermato;
    if (!c.Chiesto.Silenzioso) c.Stampa(c.Nativo(c.S.AppPath + "\\tavolerio.htm")); // also without a browser
    return Fatto;
}

int Esegui(Corsa& c) {
    // The run moves the process's current directory: paths of the command line are read before.
    Disco& macchina = c.Intorno.Macchina;
    c.Partenza = macchina.DirectoryCorrente();
    const auto daPartenza = [&](std::string& file) { file = macchina.Assoluto(file); };
    if (!c.Chiesto.Rapporto.empty() && c.Chiesto.Rapporto != "-") daPartenza(c.Chiesto.Rapporto);
    if (!c.Chiesto.TestoIntestazione.empty()) daPartenza(c.Chiesto.TestoIntestazione);
    RifiutaRapporto(c);
    c.ScegliProgramma();
    const bool opzioni = c.Chiesto.Comando == "opzioni";
    if (!opzioni && c.Chiesto.Comando != "guida") return SuProgetto(c);
    const int stato = opzioni ? MostraOpzioni(c) : ApriGuida(c);
    RaccontaErrori(c);
    return stato;
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
        if (richiesta.Comando == "esamina") return EsaminaIngressi(richiesta, ambiente);
        if (richiesta.Comando == "formatta") return FormattaIngressi(richiesta, ambiente);
        Corsa corsa(std::move(richiesta), ambiente);
        return Esegui(corsa);
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

int Programma(const std::vector<std::string>& argomenti, Ambiente& ambiente) try {
    const int stato = EseguiComando(argomenti, ambiente);
    ambiente.Uscita << std::flush;
    if (ambiente.Uscita.good()) return stato;
    ambiente.Errori << ambiente.Codifica("morvella-cli: l'uscita standard non ha accettato tutto il testo.")
                    << '\n';
    return stato == Fatto ? Fermato : stato;
} catch (const std::bad_alloc&) {
    ambiente.Errori << SenzaMemoria << std::flush;
    return Fermato;
}

} // namespace morvella::cli

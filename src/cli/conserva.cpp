// SPDX-License-Identifier: MIT
#include "cli/conserva.h"

#include "cli/programma.h"
#include "shell/opzioni.h"

namespace morvella::cli {

namespace {

// What a header text may measure. It stands in front of every procedure.
constexpr std::size_t MisuraIntestazione = std::size_t{1024} * 1024;

bool Cambia(const Richiesta& r) {
    return r.TogliCommenti || r.IntestazioneProcedure || r.SenzaConferma || !r.TestoIntestazione.empty();
}

bool Conservate(Stato& s) { return !s.File.Dir(PercorsoOpzioni(s), 0).empty(); }

// The file that --testo-intestazione names, as the text box would hold it.
Testo LeggiIntestazione(Corsa& c, bool avvisa) {
    const std::string& nome = c.Chiesto.TestoIntestazione;
    std::string testo;
    try {
        const Scheda cosa = c.Intorno.Macchina.Esamina(nome);
        if (cosa.Errore != 0) throw Errore(cosa.Errore);
        if (cosa.Tipo == TipoVoce::Altro)
            throw UsoErrato{"--testo-intestazione: " + nome +
                            " è una pipe o un dispositivo, non un file di testo"};
        const auto file = c.Intorno.Macchina.ApriLettura(nome);
        char blocco[4096];
        while (const std::size_t letti = file->Leggi(blocco, sizeof blocco)) {
            testo.append(blocco, letti);
            if (testo.size() > MisuraIntestazione)
                throw UsoErrato{"--testo-intestazione: " + nome + " ha più di 1 MiB: non è un'intestazione"};
        }
    } catch (const Errore& e) {
        throw UsoErrato{"--testo-intestazione: " + nome + ": " + Utf8Da1252(Descrizione(e.Numero))};
    }
    bool persi = false;
    Testo casella = ComeCasella(std::move(testo), persi);
    if (persi && avvisa)
        c.Fronte.Di("Avviso: " + nome +
                    " ha caratteri che Windows-1252 non ha: al loro posto si scrive «?».");
    return casella;
}

// Stores the command line's options as the window does: the control is set, and stored when it loses
// the focus.
bool ConservaSpunte(Corsa& c) {
    SpuntaOpzioni(c);
    const Lungo tronca = RigaCheTronca(c.S.Text1);
    if (tronca > 0)
        c.Fronte.Di("Avviso: la riga " + std::to_string(tronca) +
                    " del testo dell'intestazione è soltanto OK o KO: chi rilegge il file delle opzioni "
                    "ferma lì il testo, e prende la riga per «Senza chiedere conferma».");
    if (!c.Fai("Opzione_LostFocus", Opzione_LostFocus)) return false;
    // What is shown is what the next start finds: a line "OK" ends the text, blank lines go.
    return c.Fai("CaricaOpzioni", CaricaOpzioni);
}

void MostraConservate(Corsa& c) {
    const Stato& s = c.S;
    const auto siNo = [](bool acceso) { return std::string(acceso ? "sì" : "no"); };
    c.Stampa("Togli tutti i commenti:   " + siNo(s.TogliCommenti == 1));
    c.Stampa("Intestazione Procedure:   " + siNo(s.Check1 == 1));
    c.Stampa("Senza chiedere conferma:  " + siNo(s.Check2 == 1));
    c.Stampa("Testo dell'intestazione:  " + std::string(s.TestoIntestazione.empty() ? "(nessuno)" : ""));
    std::string testo = Utf8Da1252(s.TestoIntestazione);
    std::erase(testo, '\r');
    while (!testo.empty() && testo.back() == '\n') testo.pop_back();
    if (!testo.empty()) c.Stampa(testo);
}

} // namespace

Testo ComeCasella(std::string testo, bool& persi) {
    if (testo.starts_with("\xEF\xBB\xBF")) testo.erase(0, 3); // a byte order mark
    persi = false;
    if (const auto bytes = Bytes1252DaUtf8(testo)) {
        testo = *bytes;
    } else if (const auto conPunti = Bytes1252DaUtf8ConPunti(testo)) {
        testo = *conPunti;
        persi = true;
    }
    Testo casella;
    for (std::size_t i = 0; i < testo.size(); ++i) {
        if (testo[i] == '\n' && (i == 0 || testo[i - 1] != '\r')) casella += '\r';
        casella += testo[i];
    }
    return casella;
}

bool CaricaIni(Corsa& c) {
    if (c.Chiesto.Comando == "eventi") return !c.Chiesto.Ini || c.Fai("Form_Resize", Form_Resize);
    if (c.Chiesto.Comando == "elenca" || !Conservate(c.S)) return true;
    return c.Fai("CaricaOpzioni", CaricaOpzioni);
}

void SpuntaOpzioni(Corsa& c) {
    const Richiesta& r = c.Chiesto;
    Stato& s = c.S;
    if (r.TogliCommenti) s.TogliCommenti = *r.TogliCommenti ? 1 : 0;
    if (r.IntestazioneProcedure) CambiaCheck1(s, *r.IntestazioneProcedure ? 1 : 0);
    if (r.SenzaConferma) s.Check2 = *r.SenzaConferma ? 1 : 0;
    // Who says No on the command line has nothing run, whatever is stored.
    if (!r.SenzaConferma && r.Risposta == false) s.OpzSenzaConferma = false;
    if (!r.TestoIntestazione.empty()) s.Text1 = LeggiIntestazione(c, !r.Silenzioso);
    if (Cambia(r)) RaccogliOpzioni(s);
    if (r.IntestazioneProcedure.value_or(false) && s.Text1.empty() && !r.Silenzioso)
        c.Fronte.Di(
            "Avviso: --intestazione-procedure senza --testo-intestazione: non c'è un testo da scrivere.");
}

int MostraOpzioni(Corsa& c) {
    const bool cambia = Cambia(c.Chiesto);
    // Wrong usage shows before anything changes.
    if (!c.Chiesto.TestoIntestazione.empty()) LeggiIntestazione(c, false);
    if (c.Chiesto.Ripristina) {
        if (!c.Fai("Command2_Click", Command2_Click)) return Fermato;
    } else if (cambia || Conservate(c.S)) {
        if (!c.Fai("Form_Resize", Form_Resize)) return Fermato;
    }
    if (cambia && !ConservaSpunte(c)) return Fermato;
    if (Conservate(c.S))
        MostraConservate(c);
    else
        c.Stampa("Nessuna opzione conservata in " + c.Nativo(PercorsoOpzioni(c.S)) +
                 ": valgono quelle iniziali.");
    return Fatto;
}

} // namespace morvella::cli

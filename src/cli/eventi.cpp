// SPDX-License-Identifier: MIT
#include "cli/eventi.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>

#include "cli/conserva.h"
#include "cli/vicino.h"
#include "cli/voci.h"
#include "comandi/comandi.h"
#include "docs/docs.h"
#include "listing/listing.h"
#include "rewriter/rewriter.h"
#include "shell/opzioni.h"

namespace morvella::cli {

namespace {

constexpr const char* DelPannello = "riguarda il pannello di aiuto, che c'è soltanto nella finestra";

struct Operazione {
    const char* Nome;
    void (*Fai)(Stato&);
    const char* PercheNiente = nullptr; // reported for an operation that leaves the program's state alone
    bool Ultima = false;                // the process ends with it
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
    {"TogliCommenti_Click", nullptr, "non fa niente nemmeno nella finestra"},
    {"MnuHelp_Click", nullptr, DelPannello},
    {"Frame1_Click", nullptr, DelPannello},
    {"Picture1_Click", nullptr, DelPannello},
    {"Picture2_Click", nullptr, DelPannello},
    {"Timer1_Timer", nullptr, DelPannello},
    {"mnuend_Click", Form_Unload, nullptr, true}, // unloads the form
    {"Form_Unload", Form_Unload, nullptr, true},
};

// A check box. Setting one stores nothing: as in the window, that is left to its LostFocus.
struct Casella {
    const char* Nome;
    void (*Metti)(Stato&, int);
};
constexpr Casella Caselle[] = {
    {"TogliCommenti", [](Stato& s, int valore) { s.TogliCommenti = valore; }},
    {"Check1", CambiaCheck1}, // raises Check1_Click
    {"Check2", [](Stato& s, int valore) { s.Check2 = valore; }},
};

constexpr const char* Testo1 = "Text1";
constexpr const char* Tasto = "Form_KeyPress";
constexpr const char* Seleziona = "seleziona";

// An event that was understood; false when the list ends with it.
using Passo = std::function<bool(Corsa&)>;

struct Evento {
    Passo Fai;
    bool Ultimo = false;
};

template <class Tavola>
const auto* Cerca(const Tavola& tavola, const std::string& nome) {
    const auto* qui = std::find_if(std::begin(tavola), std::end(tavola),
                                   [&](const auto& voce) { return nome == voce.Nome; });
    return qui == std::end(tavola) ? nullptr : qui;
}

Passo Annota(std::string frase) {
    return [frase = std::move(frase)](Corsa& c) {
        c.Note.push_back(frase);
        return true;
    };
}

Evento DiOperazione(const Operazione& o) {
    if (!o.Fai) return {Annota(std::string(o.Nome) + " " + o.PercheNiente + ": qui non cambia niente.")};
    return {[&o](Corsa& c) {
                if (o.Fai == File1Leggi_Click) c.ScegliProgetto();
                return c.Fai(o.Nome, o.Fai);
            },
            o.Ultima};
}

Evento DiCasella(const Casella& casella, const std::string& valore) {
    const bool accesa = valore == "1" || DiceSi(valore);
    if (!accesa && valore != "0" && !DiceNo(valore))
        throw UsoErrato{std::string("il valore di ") + casella.Nome + " può essere 1 o 0, non «" + valore +
                        "»"};
    return {[&casella, accesa](Corsa& c) {
        casella.Metti(c.S, accesa ? 1 : 0);
        return true;
    }};
}

// Typed text is not trimmed or checked, like the window's.
Evento DiTesto(const std::string& valore) {
    return {[valore](Corsa& c) {
        bool persi = false;
        c.S.Text1 = ComeCasella(valore, persi);
        if (persi) c.Note.push_back("Text1 ha caratteri che Windows-1252 non ha: al loro posto c'è «?».");
        return true;
    }};
}

// A number of at most nine digits; nothing for any other text.
std::optional<Lungo> Numero(const std::string& cifre) {
    if (cifre.empty() || cifre.size() > 9 || cifre.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    return std::stol(cifre);
}

Evento DiTasto(const std::string& valore) {
    const std::optional<Lungo> tasto = Numero(valore);
    if (!tasto || *tasto > 255)
        throw UsoErrato{std::string("il valore di ") + Tasto + " è il numero di un tasto (27 è Esc), non «" +
                        valore + "»"};
    constexpr Lungo Esc = 27;
    if (*tasto == Esc) return {[](Corsa& c) { return c.Fai(Tasto, Form_Unload); }, true};
    return {
        Annota(std::string(Tasto) + "=" + valore + " passa il tasto al controllo: qui non cambia niente.")};
}

Evento DiSelezione(const std::string& evento, const std::string& valore) {
    std::vector<Lungo> voci;
    for (std::size_t da = 0; da <= valore.size();) {
        const std::size_t virgola = std::min(valore.find(',', da), valore.size());
        const std::string cifre = valore.substr(da, virgola - da);
        da = virgola + 1;
        if (cifre.empty()) continue;
        const std::optional<Lungo> voce = Numero(cifre);
        if (!voce)
            throw UsoErrato{evento +
                            ": ci vogliono numeri di righe, contate da 0, per esempio seleziona=0,2,5"};
        voci.push_back(*voce);
    }
    return {[evento, voci](Corsa& c) {
        if (std::any_of(voci.begin(), voci.end(), [&](Lungo i) { return i >= c.S.File1.ListCount(); }))
            throw UsoErrato{evento + ": le righe del progetto sono " + std::to_string(c.S.File1.ListCount()) +
                            ", contate da 0"};
        SelezionaEsattamente(c.S, voci);
        return true;
    }};
}

UsoErrato Sconosciuto(const std::string& evento) {
    const std::vector<std::string> nomi = NomiEventi();
    const std::size_t uguale = evento.find('=');
    const std::string vicino =
        PiuVicino(uguale == std::string::npos ? evento : evento.substr(0, uguale + 1), nomi);
    if (!vicino.empty()) return UsoErrato{"evento sconosciuto: " + evento + " (forse «" + vicino + "»?)"};
    std::string detto = "evento sconosciuto: " + evento + "; ci sono ";
    for (const std::string& nome : nomi) detto += (&nome == &nomi.front() ? "" : ", ") + nome;
    return UsoErrato{detto};
}

Evento Capisci(const std::string& evento) {
    const std::size_t uguale = evento.find('=');
    const std::string nome = evento.substr(0, uguale);
    const Operazione* operazione = Cerca(Operazioni, nome);
    const Casella* casella = Cerca(Caselle, nome);
    if (uguale == std::string::npos) {
        if (operazione) return DiOperazione(*operazione);
        if (casella) throw UsoErrato{"a " + nome + " manca il valore: " + nome + "=1, o " + nome + "=0"};
        if (nome == Tasto) throw UsoErrato{"a " + nome + " manca il tasto: " + nome + "=27 è Esc"};
        if (nome == Testo1) throw UsoErrato{"a " + nome + " manca il testo: " + nome + "=TESTO"};
        throw Sconosciuto(evento);
    }
    const std::string valore = evento.substr(uguale + 1);
    if (operazione) throw UsoErrato{"l'evento " + nome + " non vuole un valore"};
    if (casella) return DiCasella(*casella, valore);
    if (nome == Testo1) return DiTesto(valore);
    if (nome == Tasto) return DiTasto(valore);
    if (nome == Seleziona) return DiSelezione(evento, valore);
    throw Sconosciuto(evento);
}

} // namespace

std::vector<std::string> NomiEventi() {
    std::vector<std::string> nomi;
    for (const Operazione& o : Operazioni) nomi.emplace_back(o.Nome);
    for (const Casella& casella : Caselle) nomi.push_back(std::string(casella.Nome) + "=");
    for (const char* nome : {Testo1, Tasto, Seleziona}) nomi.push_back(std::string(nome) + "=");
    return nomi;
}

void EseguiEventi(Corsa& c) {
    std::vector<Evento> eventi;
    // A slip in the last event must not leave half a run.
    for (const std::string& evento : c.Chiesto.Resto) {
        if (!eventi.empty() && eventi.back().Ultimo)
            throw UsoErrato{"dopo " + c.Chiesto.Resto[eventi.size() - 1] + " il programma è finito: «" +
                            evento + "» non si può più eseguire"};
        eventi.push_back(Capisci(evento));
    }
    for (const Evento& evento : eventi)
        if (!evento.Fai(c)) break;
    // Which rows the events were for is not known any more: warnings are about all of them.
    if (c.Fronte.Prodotti.empty()) return;
    for (Lungo i = 0; i < c.S.File1.ListCount(); ++i) c.Lavorate.push_back(i);
}

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
#include "cli/opzioni.h"

#include <algorithm>

#include "text/codifica.h"

namespace morvella::cli {

namespace {

// clang-format off
constexpr Comando TabellaComandi[] = {
    {"esegui",   "",          "Chiede conferma e riscrive tutti i moduli del progetto."},
    {"riordina", "[RIGA...]", "Riscrive i moduli indicati, o tutti, senza chiedere."},
    {"elenca",   "",          "Mostra le righe del progetto, una per riga."},
    {"eventi",   "EVENTO...", "Operazioni della finestra, una dopo l'altra (per script)."},
};

constexpr Opzione TabellaOpzioni[] = {
    {'s', "si",                     nullptr, "Risponde Sì alla domanda.",
     [](Richiesta& r, const std::string&) { r.Risposta = true; }},
    {'n', "no",                     nullptr, "Risponde No alla domanda.",
     [](Richiesta& r, const std::string&) { r.Risposta = false; }},
    {'c', "senza-conferma",         nullptr, "Non fa la domanda.",
     [](Richiesta& r, const std::string&) { r.SenzaConferma = true; }},
    {'t', "togli-commenti",         nullptr, "Toglie le righe di commento.",
     [](Richiesta& r, const std::string&) { r.TogliCommenti = true; }},
    {'i', "intestazione-procedure", nullptr, "Scrive l'intestazione in form e classi.",
     [](Richiesta& r, const std::string&) { r.IntestazioneProcedure = true; }},
    {0,   "testo-intestazione",     "FILE",  "Il testo dell'intestazione.",
     [](Richiesta& r, const std::string& v) { r.TestoIntestazione = v; }},
    {0,   "lf",                     nullptr, "In lettura anche il solo LF chiude una riga.",
     [](Richiesta& r, const std::string&) { r.Lf = true; }},
    {'k', "prosegui",               nullptr, "Dopo un errore continua con le altre righe.",
     [](Richiesta& r, const std::string&) { r.Prosegui = true; }},
    {'r', "rapporto",               "FILE",  "Rapporto JSON (- per l'uscita standard).",
     [](Richiesta& r, const std::string& v) { r.Rapporto = v; }},
    {'p', "programma",              "DIR",   "La directory del programma.",
     [](Richiesta& r, const std::string& v) { r.Programma = v; }},
    {0,   "senza-processi",         nullptr, "Non avvia altri programmi.",
     [](Richiesta& r, const std::string&) { r.SenzaProcessi = true; }},
    {'q', "silenzioso",             nullptr, "Dice soltanto gli errori.",
     [](Richiesta& r, const std::string&) { r.Silenzioso = true; }},
    {'h', "aiuto",                  nullptr, "Mostra questo testo.",
     [](Richiesta& r, const std::string&) { r.Aiuto = true; }},
    {'V', "versione",               nullptr, "Mostra la versione.",
     [](Richiesta& r, const std::string&) { r.Versione = true; }},
};
// clang-format on

const Opzione& Trova(const std::string& scritta, bool lunga) {
    for (const Opzione& opzione : TabellaOpzioni)
        if (lunga ? scritta == opzione.Lunga : scritta[0] == opzione.Corta) return opzione;
    throw UsoErrato{"opzione sconosciuta: " + std::string(lunga ? "--" : "-") + scritta};
}

// Width on a terminal: characters, not bytes.
std::size_t Colonne(const std::string& utf8) {
    return static_cast<std::size_t>(std::count_if(
        utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string Riempito(std::string testo, std::size_t colonne) {
    const std::size_t larga = Colonne(testo);
    if (larga < colonne) testo.append(colonne - larga, ' ');
    return testo;
}

} // namespace

std::span<const Comando> Comandi() { return TabellaComandi; }
std::span<const Opzione> Opzioni() { return TabellaOpzioni; }

Richiesta Analizza(const std::vector<std::string>& argomenti) {
    Richiesta richiesta;
    std::vector<std::string> liberi;
    std::size_t i = 0;
    const auto applica = [&](const Opzione& opzione, const std::string& scritta,
                             std::optional<std::string> valore) {
        if (!opzione.Argomento) {
            if (valore) throw UsoErrato{"l'opzione " + scritta + " non vuole un valore"};
        } else if (!valore) {
            if (i + 1 == argomenti.size())
                throw UsoErrato{"all'opzione " + scritta + " manca il valore " + opzione.Argomento};
            valore = argomenti[++i];
        }
        opzione.Applica(richiesta, valore.value_or(""));
    };
    bool soloLiberi = false;
    for (; i < argomenti.size(); ++i) {
        const std::string& a = argomenti[i];
        if (soloLiberi || a.size() < 2 || a[0] != '-') {
            liberi.push_back(a);
        } else if (a == "--") {
            soloLiberi = true;
        } else if (a[1] == '-') {
            const std::size_t uguale = a.find('=');
            const std::string nome = a.substr(0, uguale);
            applica(Trova(nome.substr(2), true), nome,
                    uguale == std::string::npos ? std::nullopt : std::optional(a.substr(uguale + 1)));
        } else {
            for (std::size_t c = 1; c < a.size(); ++c) {
                const Opzione& opzione = Trova(a.substr(c, 1), false);
                const bool attaccato = opzione.Argomento && c + 1 < a.size();
                applica(opzione, a.substr(0, 1) + a[c],
                        attaccato ? std::optional(a.substr(c + 1)) : std::nullopt);
                if (opzione.Argomento) break;
            }
        }
    }
    if (richiesta.Aiuto || richiesta.Versione) return richiesta;
    if (liberi.empty()) throw UsoErrato{"manca il comando"};
    richiesta.Comando = liberi[0];
    if (std::none_of(std::begin(TabellaComandi), std::end(TabellaComandi),
                     [&](const Comando& c) { return richiesta.Comando == c.Nome; }))
        throw UsoErrato{"comando sconosciuto: " + richiesta.Comando};
    if (liberi.size() < 2)
        throw UsoErrato{"manca il progetto: morvella-cli " + richiesta.Comando + " PROGETTO.vbp"};
    richiesta.Progetto = liberi[1];
    richiesta.Resto.assign(liberi.begin() + 2, liberi.end());
    if (!richiesta.Resto.empty() && (richiesta.Comando == "esegui" || richiesta.Comando == "elenca"))
        throw UsoErrato{
            "il comando " + richiesta.Comando +
            " vale per tutto il progetto; per alcune righe: morvella-cli riordina PROGETTO.vbp RIGA..."};
    if (richiesta.Resto.empty() && richiesta.Comando == "eventi")
        throw UsoErrato{"manca l'evento, per esempio: morvella-cli eventi PROGETTO.vbp File1Leggi_Click"};
    return richiesta;
}

std::string TestoAiuto() {
    std::string testo = "morvella-cli COMANDO [OPZIONI] PROGETTO.vbp [RIGA...]\n"
                        "Riscrive nella directory Appoggio il codice di un progetto Visual Basic.\n\n";
    for (const Comando& c : TabellaComandi)
        testo += "  " + Riempito(std::string(c.Nome) + " " + c.Righe, 20) + c.Aiuto + "\n";
    testo += '\n';
    for (const Opzione& o : TabellaOpzioni) {
        std::string nome = o.Corta ? std::string("-") + o.Corta + ", --" : "    --";
        nome += o.Lunga;
        if (o.Argomento) nome += std::string("=") + o.Argomento;
        testo += "  " + Riempito(nome, 32) + o.Aiuto + "\n";
    }
    testo += "Uscita: 0 fatto, 1 fermato da un errore, 2 uso errato, 3 risposto No.\n"
             "Esempio: morvella-cli esegui --si --togli-commenti Magazzino/Magazzino.vbp\n";
    return testo;
}

} // namespace morvella::cli

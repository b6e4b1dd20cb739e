// SPDX-License-Identifier: MIT
#include "cli/opzioni.h"

#include <algorithm>

#include "text/codifica.h"
#include "text/testo.h"

namespace morvella::cli {

namespace {

// A value of "[si|no]", or none: that is a yes.
bool SiNo(const std::string& valore) { return valore.empty() || DiceSi(valore); }

// clang-format off
constexpr unsigned Lavorano = Esegue | Riordina | Struttura | Documenta;
constexpr unsigned DiProgetto = Lavorano | Legge | Elenca | Eventi;
constexpr unsigned Tutti = ~0U;

constexpr Comando TabellaComandi[] = {
    {Esegue,    "esegui",    "PROGETTO.vbp",           "Chiede, poi riscrive i moduli e la struttura.",
     "--si --togli-commenti Magazzino/Magazzino.vbp"},
    {Riordina,  "riordina",  "PROGETTO.vbp [RIGA...]", "Riscrive i moduli indicati, o tutti.",
     "Magazzino/Magazzino.vbp frmArticoli.frm"},
    {Struttura, "struttura", "PROGETTO.vbp [RIGA...]", "Scrive la struttura dei moduli, o di tutti.",
     "--controlla Magazzino/Magazzino.vbp"},
    {Legge,     "leggi",     "PROGETTO.vbp [RIGA...]", "Apre le strutture in un lettore.",
     "Magazzino/Magazzino.vbp frmArticoli.frm"},
    {MostraQui, "mostra",    "FILE.log...",            "Mostra qui una struttura, coi connettori.",
     "Magazzino/Appoggio/modGenerale.log"},
    {Documenta, "documenta", "PROGETTO.vbp [RIGA...]", "Scrive le pagine HTML e il loro indice.",
     "--apri Magazzino/Magazzino.vbp"},
    {Elenca,    "elenca",    "PROGETTO.vbp",           "Mostra le righe del progetto.",
     "Magazzino/Magazzino.vbp"},
    {Eventi,    "eventi",    "PROGETTO.vbp EVENTO...", "Operazioni della finestra (per script).",
     "Magazzino/Magazzino.vbp File1Leggi_Click"},
    {Conserva,  "opzioni",   "",                       "Mostra le opzioni conservate, o le cambia.",
     "--togli-commenti=no"},
    {Guida,     "guida",     "",                       "Apre la pagina di aiuto nel browser.",
     "--senza-processi"},
};

constexpr Opzione TabellaOpzioni[] = {
    {'s', "si",                     nullptr, DiProgetto, "Risponde Sì alla domanda.",
     [](Richiesta& r, const std::string&) { r.Risposta = true; }},
    {'n', "no",                     nullptr, DiProgetto, "Risponde No alla domanda.",
     [](Richiesta& r, const std::string&) { r.Risposta = false; }},
    {'c', "senza-conferma",         "[si|no]", DiProgetto | Conserva, "Non fa la domanda.",
     [](Richiesta& r, const std::string& v) { r.SenzaConferma = SiNo(v); }},
    {'t', "togli-commenti",         "[si|no]", DiProgetto | Conserva, "Toglie le righe di commento.",
     [](Richiesta& r, const std::string& v) { r.TogliCommenti = SiNo(v); }},
    {'i', "intestazione-procedure", "[si|no]", DiProgetto | Conserva, "Scrive l'intestazione in form e classi.",
     [](Richiesta& r, const std::string& v) { r.IntestazioneProcedure = SiNo(v); }},
    {0,   "testo-intestazione",     "FILE",  DiProgetto | Conserva, "Il testo dell'intestazione.",
     [](Richiesta& r, const std::string& v) { r.TestoIntestazione = v; }},
    {0,   "lf",                     nullptr, DiProgetto, "Anche il solo LF chiude una riga letta.",
     [](Richiesta& r, const std::string&) { r.Lf = true; }},
    {'k', "prosegui",               nullptr, Lavorano,   "Dopo un errore passa alle altre righe.",
     [](Richiesta& r, const std::string&) { r.Prosegui = true; }},
    {0,   "controlla",              nullptr, Esegue | Struttura | Eventi, "Dice i blocchi aperti (uscita 4).",
     [](Richiesta& r, const std::string&) { r.Controlla = true; }},
    {0,   "html",                   nullptr, Esegue,     "Scrive poi anche le pagine HTML.",
     [](Richiesta& r, const std::string&) { r.Html = true; }},
    {0,   "apri",                   nullptr, Esegue | Documenta | Eventi, "Apre l'indice delle pagine.",
     [](Richiesta& r, const std::string&) { r.Apri = true; }},
    {0,   "sottocartelle",          nullptr, Esegue | Documenta, "Pagine anche nelle sottocartelle.",
     [](Richiesta& r, const std::string&) { r.Sottocartelle = true; }},
    {0,   "ini",                    nullptr, Eventi,     "Prima carica Default.ini.",
     [](Richiesta& r, const std::string&) { r.Ini = true; }},
    {0,   "ripristina",             nullptr, Conserva,   "Rimette le opzioni iniziali.",
     [](Richiesta& r, const std::string&) { r.Ripristina = true; }},
    {'r', "rapporto",               "FILE",  DiProgetto, "Rapporto JSON (- per l'uscita standard).",
     [](Richiesta& r, const std::string& v) { r.Rapporto = v; }},
    {'p', "programma",              "DIR",   DiProgetto | Conserva | Guida, "La directory del programma.",
     [](Richiesta& r, const std::string& v) { r.Programma = v; }},
    {0,   "senza-processi",         nullptr, DiProgetto | Guida, "Non avvia altri programmi.",
     [](Richiesta& r, const std::string&) { r.SenzaProcessi = true; }},
    {0,   "senza-pager",            nullptr, MostraQui,  "Senza impaginatore.",
     [](Richiesta& r, const std::string&) { r.SenzaPager = true; }},
    {0,   "senza-colori",           nullptr, MostraQui,  "Senza colori (come con NO_COLOR).",
     [](Richiesta& r, const std::string&) { r.SenzaColori = true; }},
    {'q', "silenzioso",             nullptr, DiProgetto | Guida, "Dice soltanto errori e rilievi.",
     [](Richiesta& r, const std::string&) { r.Silenzioso = true; }},
    {'h', "aiuto",                  nullptr, Tutti,      "Mostra questo testo.",
     [](Richiesta& r, const std::string&) { r.Aiuto = true; }},
    {'V', "versione",               nullptr, Tutti,      "Mostra la versione.",
     [](Richiesta& r, const std::string&) { r.Versione = true; }},
};
// clang-format on

// A word as it is compared: without blanks around it and in lower case, accents too.
Testo Piegata(std::string parola) {
    std::erase(parola, '\r');
    return LCase(Trim(Bytes1252DaUtf8(parola).value_or(parola)));
}

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

bool DiceSi(const std::string& parola) {
    const Testo detta = Piegata(parola);
    return detta == "s" || detta == "si" || detta == "s\xEC"; // sì
}

bool DiceNo(const std::string& parola) {
    const Testo detta = Piegata(parola);
    return detta == "n" || detta == "no";
}

std::span<const Comando> Comandi() { return TabellaComandi; }
std::span<const Opzione> Opzioni() { return TabellaOpzioni; }

Richiesta Analizza(const std::vector<std::string>& argomenti) {
    Richiesta richiesta;
    std::vector<std::string> liberi;
    std::vector<const Opzione*> usate;
    std::size_t i = 0;
    const auto applica = [&](const Opzione& opzione, const std::string& scritta,
                             std::optional<std::string> valore) {
        if (!opzione.Argomento) {
            if (valore) throw UsoErrato{"l'opzione " + scritta + " non vuole un valore"};
        } else if (!valore && opzione.Argomento[0] != '[') {
            if (i + 1 == argomenti.size())
                throw UsoErrato{"all'opzione " + scritta + " manca il valore " + opzione.Argomento};
            valore = argomenti[++i];
        }
        if (opzione.Argomento && valore && valore->empty())
            throw UsoErrato{"il valore dell'opzione " + scritta + " è vuoto"};
        if (valore && opzione.Argomento[0] == '[' && !DiceSi(*valore) && !DiceNo(*valore))
            throw UsoErrato{"il valore dell'opzione " + scritta + " può essere si o no, non «" + *valore +
                            "»"};
        opzione.Applica(richiesta, valore.value_or(""));
        usate.push_back(&opzione);
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
                const bool vuole = opzione.Argomento && opzione.Argomento[0] != '[';
                std::optional<std::string> attaccato;
                if (vuole && c + 1 < a.size()) attaccato = a.substr(c + 1);
                if (opzione.Argomento && !vuole && a.compare(c + 1, 1, "=") == 0) attaccato = a.substr(c + 2);
                applica(opzione, a.substr(0, 1) + a[c], attaccato);
                if (vuole || attaccato) break;
            }
        }
    }
    if (!liberi.empty()) richiesta.Comando = liberi[0];
    if (richiesta.Versione || (richiesta.Aiuto && liberi.empty())) return richiesta;
    if (liberi.empty()) throw UsoErrato{"manca il comando"};
    const auto* comando = std::find_if(std::begin(TabellaComandi), std::end(TabellaComandi),
                                       [&](const Comando& c) { return richiesta.Comando == c.Nome; });
    if (comando == std::end(TabellaComandi)) throw UsoErrato{"comando sconosciuto: " + richiesta.Comando};
    if (richiesta.Aiuto) return richiesta;
    for (const Opzione* opzione : usate)
        if ((opzione->Per & comando->Chi) == 0)
            throw UsoErrato{"l'opzione --" + std::string(opzione->Lunga) + " non riguarda il comando " +
                            richiesta.Comando};
    if (comando->Chi == Esegue && !richiesta.Html && (richiesta.Apri || richiesta.Sottocartelle))
        throw UsoErrato{"--apri e --sottocartelle riguardano le pagine: con esegui ci vuole anche --html"};
    if (comando->Chi == MostraQui) {
        if (liberi.size() < 2) throw UsoErrato{"manca il file: morvella-cli mostra Appoggio/Modulo.log"};
        richiesta.Resto.assign(liberi.begin() + 1, liberi.end());
        return richiesta;
    }
    if ((comando->Chi & (Conserva | Guida)) != 0) {
        if (liberi.size() > 1)
            throw UsoErrato{"il comando " + richiesta.Comando + " non vuole altro: " + liberi[1]};
        return richiesta;
    }
    if (liberi.size() < 2)
        throw UsoErrato{"manca il progetto: morvella-cli " + richiesta.Comando + " PROGETTO.vbp"};
    richiesta.Progetto = liberi[1];
    richiesta.Resto.assign(liberi.begin() + 2, liberi.end());
    if (LCase(Right(richiesta.Progetto, 4)) != ".vbp")
        throw UsoErrato{"«" + richiesta.Progetto + "» non è un file di progetto: ci vuole un PROGETTO.vbp"};
    if (!richiesta.Resto.empty() && comando->Chi == Elenca)
        throw UsoErrato{"il comando elenca non vuole altro: " + richiesta.Resto[0]};
    if (!richiesta.Resto.empty() && comando->Chi == Esegue)
        throw UsoErrato{"il comando esegui vale per tutto un progetto; per alcune righe: morvella-cli "
                        "riordina PROGETTO.vbp RIGA..."};
    if (richiesta.Resto.empty() && richiesta.Comando == "eventi")
        throw UsoErrato{"manca l'evento, per esempio: morvella-cli eventi PROGETTO.vbp File1Leggi_Click"};
    return richiesta;
}

std::string TestoAiuto(const std::string& comando) {
    std::string testo;
    unsigned chi = 0;
    const Comando* di = TabellaComandi; // whose example it is
    if (comando.empty()) {
        testo = "morvella-cli COMANDO [OPZIONI] ...\n"
                "Riscrive in Appoggio il codice di un progetto Visual Basic 5 o 6 e ne scrive la\n"
                "struttura, senza toccare i sorgenti.\n\n";
        for (const Comando& c : TabellaComandi)
            testo += "  " + Riempito(std::string(c.Nome) + " " + c.Righe, 33) + c.Aiuto + "\n";
        testo += "\nmorvella-cli COMANDO --aiuto mostra le opzioni di un comando.\n";
    }
    for (const Comando& c : TabellaComandi) {
        if (comando != c.Nome) continue;
        chi = c.Chi;
        di = &c;
        testo = std::string("morvella-cli ") + c.Nome + " [OPZIONI] " + c.Righe + "\n" + c.Aiuto + "\n\n";
    }
    for (const Opzione& o : TabellaOpzioni) {
        if ((o.Per & chi) == 0) continue;
        std::string nome = o.Corta ? std::string("-") + o.Corta + ", --" : "    --";
        nome += o.Lunga;
        if (o.Argomento && o.Argomento[0] == '[') nome += std::string("[=") + (o.Argomento + 1);
        if (o.Argomento && o.Argomento[0] != '[') nome += std::string("=") + o.Argomento;
        testo += "  " + Riempito(nome, 38) + o.Aiuto + "\n";
    }
    testo += "\nUscita: 0 fatto, 1 fermato da un errore, 2 uso errato, 3 risposto No, 4 rilievi.\n";
    return testo + "Esempio: morvella-cli " + di->Nome + " " + di->Esempio + "\n";
}

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
#include "cli/opzioni.h"

#include <algorithm>
#include <utility>

#include "cli/consiglio.h"
#include "cli/vicino.h"
#include "text/codifica.h"
#include "text/testo.h"

namespace morvella::cli {

namespace {

// The value of a "[si|no]" option; a missing one is a yes.
bool SiNo(const std::string& valore) { return valore.empty() || DiceSi(valore); }

[[noreturn]] void Rifiuta(const char* opzione, const char* puo, const std::string& valore) {
    throw UsoErrato{std::string("il valore dell'opzione --") + opzione + " può essere " + puo + ", non «" +
                    valore + "»"};
}

// The one of two words that a value is: whether it is the second.
bool UnoDiDue(const char* opzione, const char* uno, const char* altro, const std::string& valore) {
    if (valore != uno && valore != altro)
        Rifiuta(opzione, (std::string(uno) + " o " + altro).c_str(), valore);
    return valore == altro;
}

unsigned LeggiPasso(const std::string& valore) {
    unsigned passo = 0;
    if (valore.size() <= 2)
        for (const char c : valore)
            passo = c >= '0' && c <= '9' ? passo * 10 + static_cast<unsigned>(c - '0') : 100;
    if (passo < 1 || passo > formato::PassoMassimo) Rifiuta("passo", "un numero da 1 a 16", valore);
    return passo;
}

// clang-format off
constexpr unsigned Lavorano = Esegue | Riordina | Struttura | Documenta;
constexpr unsigned DiProgetto = Lavorano | Legge | Elenca | Eventi;
constexpr unsigned Riscrivono = Esegue | Riordina | Struttura | Legge | Eventi; // leggi rewrites a missing structure
constexpr unsigned Chiedono = Esegue | Eventi;
constexpr unsigned Avviano = Esegue | Documenta | Legge | Eventi | Guida;
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
    {Esamina,   "esamina",   "INGRESSO...",            "Cerca gli errori veri nei blocchi del codice.",
     "Magazzino/Magazzino.vbp"},
    {Documenta, "documenta", "PROGETTO.vbp [RIGA...]", "Scrive le pagine HTML e il loro indice.",
     "--apri Magazzino/Magazzino.vbp"},
    {Formatta,  "formatta",  "INGRESSO...",            "Copie coi soli rientri rifatti, provate.",
     "Magazzino/Magazzino.vbp"},
    {Verifica,  "verifica",  "PROGETTO.vbp [RIGA...]", "Prova che le copie riscritte hanno tutto.",
     "Magazzino/Magazzino.vbp"},
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
    {'s', "si",                     nullptr, Chiedono, DiProgetto, "Risponde Sì alla domanda.",
     [](Richiesta& r, const std::string&) { r.Risposta = true; }},
    {'n', "no",                     nullptr, Chiedono | Documenta, DiProgetto, "Risponde No alla domanda.",
     [](Richiesta& r, const std::string&) { r.Risposta = false; }},
    {'c', "senza-conferma",         "[si|no]", Chiedono | Conserva, DiProgetto, "Non fa la domanda.",
     [](Richiesta& r, const std::string& v) { r.SenzaConferma = SiNo(v); }},
    {'t', "togli-commenti",         "[si|no]", Riscrivono | Verifica | Conserva, 0, "Toglie le righe di commento.",
     [](Richiesta& r, const std::string& v) { r.TogliCommenti = SiNo(v); }},
    {'i', "intestazione-procedure", "[si|no]", Riscrivono | Verifica | Conserva, 0, "Scrive l'intestazione in form e classi.",
     [](Richiesta& r, const std::string& v) { r.IntestazioneProcedure = SiNo(v); }},
    {0,   "testo-intestazione",     "FILE",  Riscrivono | Verifica | Conserva, 0, "Il testo dell'intestazione.",
     [](Richiesta& r, const std::string& v) { r.TestoIntestazione = v; }},
    {0,   "lf",                     nullptr, DiProgetto | Verifica, 0, "Anche il solo LF chiude una riga letta.",
     [](Richiesta& r, const std::string&) { r.Lf = true; }},
    {'k', "prosegui",               nullptr, Lavorano, 0, "Dopo un errore passa alle altre righe.",
     [](Richiesta& r, const std::string&) { r.Prosegui = true; }},
    {0,   "controlla",              nullptr, Esegue | Struttura | Eventi, 0, "Dice i blocchi aperti (uscita 4).",
     [](Richiesta& r, const std::string&) { r.Controlla = true; }},
    {0,   "html",                   nullptr, Esegue, 0, "Scrive poi anche le pagine HTML.",
     [](Richiesta& r, const std::string&) { r.Html = true; }},
    {0,   "apri",                   nullptr, Esegue | Documenta | Eventi, 0, "Apre l'indice delle pagine.",
     [](Richiesta& r, const std::string&) { r.Apri = true; }},
    {0,   "sottocartelle",          nullptr, Esegue | Documenta, 0, "Pagine anche nelle sottocartelle.",
     [](Richiesta& r, const std::string&) { r.Sottocartelle = true; }},
    {0,   "verifica",               nullptr, Esegue | Riordina, 0, "Prova poi le copie riscritte.",
     [](Richiesta& r, const std::string&) { r.Verifica = true; }},
    {0,   "passo",                  "N",     Formatta, 0, "Spazi di un livello (4).",
     [](Richiesta& r, const std::string& v) { r.Stile.Passo = LeggiPasso(v); }},
    {0,   "tab",                    nullptr, Formatta, 0, "Un tab a livello, non --passo spazi.",
     [](Richiesta& r, const std::string&) { r.Stile.Tab = true; }},
    {0,   "case",                   "0|1",   Formatta, 0, "Livelli di Case dentro Select (1).",
     [](Richiesta& r, const std::string& v) { r.Stile.Case = UnoDiDue("case", "0", "1", v) ? 1 : 0; }},
    {0,   "etichette",              "DOVE",  Formatta, 0, "Etichette e numeri: colonna o codice.",
     [](Richiesta& r, const std::string& v) {
         r.Stile.EtichetteNelCodice = UnoDiDue("etichette", "colonna", "codice", v);
     }},
    {0,   "direttive",              "DOVE",  Formatta, 0, "#If e simili: codice o margine.",
     [](Richiesta& r, const std::string& v) {
         r.Stile.DirettiveAlMargine = UnoDiDue("direttive", "codice", "margine", v);
     }},
    {0,   "senza-code",             nullptr, Formatta, 0, "Toglie gli spazi in fondo alle righe.",
     [](Richiesta& r, const std::string&) { r.Stile.SenzaCode = true; }},
    {0,   "in",                     "DIR",   Formatta, 0, "Dove scrivere (Appoggio/Formattati).",
     [](Richiesta& r, const std::string& v) { r.In = v; }},
    {0,   "differenze",             nullptr, Formatta, 0, "Mostra le differenze (diff unificato).",
     [](Richiesta& r, const std::string&) { r.Differenze = true; }},
    {0,   "solo-verifica",          nullptr, Formatta, 0, "Non scrive: dice che cosa cambierebbe.",
     [](Richiesta& r, const std::string&) { r.SoloVerifica = true; }},
    {0,   "ini",                    nullptr, Eventi, 0, "Prima carica Default.ini.",
     [](Richiesta& r, const std::string&) { r.Ini = true; }},
    {0,   "ripristina",             nullptr, Conserva, 0, "Rimette le opzioni iniziali.",
     [](Richiesta& r, const std::string&) { r.Ripristina = true; }},
    {'r', "rapporto",               "FILE",  DiProgetto, 0, "Rapporto JSON (- per l'uscita standard).",
     [](Richiesta& r, const std::string& v) { r.Rapporto = v; }},
    {'f', "formato",                "FORMATO", Esamina, 0, "testo, json, sarif o github.",
     [](Richiesta& r, const std::string& v) { r.Formato = v; }},
    {'u', "uscita",                 "FILE",  Esamina, 0, "Scrive lì (- per l'uscita standard).",
     [](Richiesta& r, const std::string& v) { r.Uscita = v; }},
    {0,   "ricorsivo",              nullptr, Esamina, 0, "Anche directory, con ciò che contengono.",
     [](Richiesta& r, const std::string&) { r.Ricorsivo = true; }},
    {0,   "radice",                 "DIR",   Esamina, 0, "Da dove partono i percorsi detti.",
     [](Richiesta& r, const std::string& v) { r.Radice = v; }},
    {'b', "base",                   "FILE",  Esamina, 0, "Tace i rilievi che questa base conosce.",
     [](Richiesta& r, const std::string& v) { r.Base = v; }},
    {0,   "scrivi-base",            "FILE",  Esamina, 0, "Scrive la base dei rilievi di oggi.",
     [](Richiesta& r, const std::string& v) { r.ScriviBase = v; }},
    {'p', "programma",              "DIR",   (DiProgetto & ~Elenca) | Verifica | Conserva | Guida, Elenca, "La directory del programma.",
     [](Richiesta& r, const std::string& v) { r.Programma = v; }},
    {0,   "senza-processi",         nullptr, Avviano, DiProgetto, "Non avvia altri programmi.",
     [](Richiesta& r, const std::string&) { r.SenzaProcessi = true; }},
    {0,   "senza-pager",            nullptr, MostraQui, 0, "Senza impaginatore.",
     [](Richiesta& r, const std::string&) { r.SenzaPager = true; }},
    {0,   "senza-colori",           nullptr, MostraQui | Esamina, 0, "Senza colori (come con NO_COLOR).",
     [](Richiesta& r, const std::string&) { r.SenzaColori = true; }},
    {'q', "silenzioso",             nullptr, DiProgetto | Formatta | Verifica | Guida, Esamina, "Dice soltanto errori e rilievi.",
     [](Richiesta& r, const std::string&) { r.Silenzioso = true; }},
    {'h', "aiuto",                  nullptr, Tutti, 0, "Mostra questo testo.",
     [](Richiesta& r, const std::string&) { r.Aiuto = true; }},
    {'V', "versione",               nullptr, Tutti, 0, "Mostra la versione.",
     [](Richiesta& r, const std::string&) { r.Versione = true; }},
};
// clang-format on

// A word as it is compared: trimmed and in lower case, accents too.
Testo Piegata(std::string parola) {
    std::erase(parola, '\r');
    return LCase(Trim(Bytes1252DaUtf8(parola).value_or(parola)));
}

// Names that other programs use.
constexpr std::pair<const char*, const char*> Sinonimi[] = {{"help", "aiuto"}, {"version", "versione"}};

const Opzione& TrovaLunga(const std::string& scritta) {
    std::string cercata = scritta;
    for (const auto& [altro, nome] : Sinonimi)
        if (scritta == altro) cercata = nome;
    std::vector<std::string> nomi;
    for (const Opzione& opzione : TabellaOpzioni) {
        if (cercata == opzione.Lunga) return opzione;
        nomi.emplace_back(opzione.Lunga);
    }
    const std::string vicina = PiuVicino(scritta, nomi);
    throw UsoErrato{"opzione sconosciuta: --" + scritta +
                    (vicina.empty() ? "" : " (forse «--" + vicina + "»?)")};
}

const Opzione& TrovaCorta(char scritta) {
    for (const Opzione& opzione : TabellaOpzioni)
        if (scritta == opzione.Corta) return opzione;
    throw UsoErrato{std::string("opzione sconosciuta: -") + scritta};
}

const Comando& TrovaComando(const std::string& scritto) {
    std::vector<std::string> nomi;
    for (const Comando& comando : TabellaComandi) {
        if (scritto == comando.Nome) return comando;
        nomi.emplace_back(comando.Nome);
    }
    if (LCase(Right(scritto, 4)) == ".vbp")
        throw UsoErrato{"manca il comando, per esempio: morvella-cli esegui " + PerShell(scritto)};
    throw UsoErrato{"comando sconosciuto: " + scritto + Forse(scritto, nomi)};
}

// Takes the arguments apart: options go into the request, the others are kept in order.
class Lettura {
  public:
    Lettura(const std::vector<std::string>& argomenti, Richiesta& richiesta)
        : argomenti_(argomenti), richiesta_(richiesta) {
        bool soloLiberi = false;
        for (; i_ < argomenti.size(); ++i_) {
            const std::string& a = argomenti[i_];
            if (soloLiberi || a.size() < 2 || a[0] != '-')
                liberi_.push_back(a);
            else if (a == "--")
                soloLiberi = true;
            else if (a[1] == '-')
                LeggiLunga(a);
            else
                LeggiCorte(a);
        }
    }
    const std::vector<std::string>& Liberi() const { return liberi_; }
    const std::vector<const Opzione*>& Usate() const { return usate_; }

  private:
    void LeggiLunga(const std::string& a) { // "--name" or "--name=value"
        const std::size_t uguale = a.find('=');
        const std::string nome = a.substr(0, uguale);
        Applica(TrovaLunga(nome.substr(2)), nome,
                uguale == std::string::npos ? std::nullopt : std::optional(a.substr(uguale + 1)));
    }

    void LeggiCorte(const std::string& a) { // "-abc", "-rFILE", "-t=no"
        for (std::size_t c = 1; c < a.size(); ++c) {
            const Opzione& opzione = TrovaCorta(a[c]);
            const bool vuole = opzione.Argomento && opzione.Argomento[0] != '[';
            std::optional<std::string> attaccato;
            if (vuole && c + 1 < a.size()) attaccato = a.substr(c + 1);
            if (opzione.Argomento && !vuole && a.compare(c + 1, 1, "=") == 0) attaccato = a.substr(c + 2);
            Applica(opzione, a.substr(0, 1) + a[c], attaccato);
            if (vuole || attaccato) break;
        }
    }

    void Applica(const Opzione& opzione, const std::string& scritta, std::optional<std::string> valore) {
        if (!opzione.Argomento) {
            if (valore) throw UsoErrato{"l'opzione " + scritta + " non vuole un valore"};
        } else if (!valore && opzione.Argomento[0] != '[') {
            if (i_ + 1 == argomenti_.size())
                throw UsoErrato{"all'opzione " + scritta + " manca il valore " + opzione.Argomento};
            valore = argomenti_[++i_];
        }
        if (opzione.Argomento && valore && valore->empty())
            throw UsoErrato{"il valore dell'opzione " + scritta + " è vuoto"};
        if (valore && opzione.Argomento[0] == '[' && !DiceSi(*valore) && !DiceNo(*valore))
            throw UsoErrato{"il valore dell'opzione " + scritta + " può essere si o no, non «" + *valore +
                            "»"};
        opzione.Applica(richiesta_, valore.value_or(""));
        usate_.push_back(&opzione);
    }

    const std::vector<std::string>& argomenti_;
    Richiesta& richiesta_;
    std::size_t i_ = 0;
    std::vector<std::string> liberi_;
    std::vector<const Opzione*> usate_;
};

// The arguments of "mostra".
void DividiFile(const std::vector<std::string>& liberi, Richiesta& richiesta) {
    if (liberi.size() < 2) throw UsoErrato{"manca il file: morvella-cli mostra Appoggio/Modulo.log"};
    richiesta.Resto.assign(liberi.begin() + 1, liberi.end());
}

// The arguments of "esamina" and "formatta".
void DividiIngressi(const std::vector<std::string>& liberi, Richiesta& richiesta) {
    if (liberi.size() < 2)
        throw UsoErrato{"manca l'ingresso: morvella-cli " + richiesta.Comando + " PROGETTO.vbp"};
    richiesta.Resto.assign(liberi.begin() + 1, liberi.end());
}

// The arguments of a command that wants a project.
void DividiProgetto(const Comando& comando, const std::vector<std::string>& liberi, Richiesta& richiesta) {
    if (liberi.size() < 2)
        throw UsoErrato{"manca il progetto: morvella-cli " + richiesta.Comando + " PROGETTO.vbp"};
    richiesta.Progetto = liberi[1];
    richiesta.Resto.assign(liberi.begin() + 2, liberi.end());
    if (LCase(Right(richiesta.Progetto, 4)) != ".vbp")
        throw UsoErrato{"«" + richiesta.Progetto + "» non è un file di progetto: ci vuole un PROGETTO.vbp"};
    if (!richiesta.Resto.empty() && comando.Chi == Elenca)
        throw UsoErrato{"il comando elenca non vuole altro: " + richiesta.Resto[0]};
    if (!richiesta.Resto.empty() && comando.Chi == Esegue)
        throw UsoErrato{"il comando esegui vale per tutto un progetto; per alcune righe: morvella-cli "
                        "riordina PROGETTO.vbp RIGA..."};
    if (richiesta.Resto.empty() && comando.Chi == Eventi)
        throw UsoErrato{"manca l'evento, per esempio: morvella-cli eventi PROGETTO.vbp File1Leggi_Click"};
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
    Lettura lettura(argomenti, richiesta);
    const std::vector<std::string>& liberi = lettura.Liberi();
    if (!liberi.empty()) richiesta.Comando = liberi[0];
    if (richiesta.Versione || (richiesta.Aiuto && liberi.empty())) return richiesta;
    if (liberi.empty()) throw UsoErrato{"manca il comando"};
    const Comando& comando = TrovaComando(richiesta.Comando);
    if (richiesta.Aiuto) return richiesta;
    for (const Opzione* opzione : lettura.Usate())
        if (((opzione->Per | opzione->Innocua) & comando.Chi) == 0)
            throw UsoErrato{"l'opzione --" + std::string(opzione->Lunga) + " non riguarda il comando " +
                            richiesta.Comando};
    if (comando.Chi == Esegue && !richiesta.Html && (richiesta.Apri || richiesta.Sottocartelle))
        throw UsoErrato{"--apri e --sottocartelle riguardano le pagine: con esegui ci vuole anche --html"};
    if (comando.Chi == MostraQui)
        DividiFile(liberi, richiesta);
    else if (comando.Chi == Esamina || comando.Chi == Formatta)
        DividiIngressi(liberi, richiesta);
    else if ((comando.Chi & (Conserva | Guida)) == 0)
        DividiProgetto(comando, liberi, richiesta);
    else if (liberi.size() > 1)
        throw UsoErrato{"il comando " + richiesta.Comando + " non vuole altro: " + liberi[1]};
    return richiesta;
}

std::string TestoAiuto(const std::string& comando) {
    std::string testo;
    unsigned chi = 0;
    const Comando* di = TabellaComandi; // the command that the example shows
    if (comando.empty()) {
        testo = "morvella-cli COMANDO [OPZIONI] ...\n"
                "Riscrive in Appoggio il codice di un progetto Visual Basic 5 o 6 e ne scrive la\n"
                "struttura, senza toccare i sorgenti.\n\n";
        for (const Comando& c : TabellaComandi)
            testo += "  " + Riempito(std::string(c.Nome) + " " + c.Argomenti, 33) + c.Aiuto + "\n";
        testo += "\nmorvella-cli COMANDO --aiuto mostra le opzioni di un comando.\n";
    }
    for (const Comando& c : TabellaComandi) {
        if (comando != c.Nome) continue;
        chi = c.Chi;
        di = &c;
        testo = std::string("morvella-cli ") + c.Nome + " [OPZIONI] " + c.Argomenti + "\n" + c.Aiuto + "\n";
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

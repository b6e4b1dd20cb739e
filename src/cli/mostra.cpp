// SPDX-License-Identifier: MIT
#include "cli/mostra.h"

#include <ostream>

#include "cli/avvisi.h"
#include "cli/consiglio.h"
#include "cli/programma.h"
#include "listing/decodifica.h"

namespace morvella::cli {

namespace {

constexpr const char* DoveStanno =
    "Le strutture stanno in Appoggio, nella directory del progetto: sono i file .log.";

// Two colours that the colour-blind can tell apart: blue for conditions, yellow for loops.
const char* Colore(Tratto::Genere che) {
    switch (che) {
    case Tratto::Numero: return "\x1b[2m";
    case Tratto::Condizione: return "\x1b[34m";
    case Tratto::Ciclo: return "\x1b[33m";
    case Tratto::Barra: return "\x1b[1m";
    case Tratto::Riquadro: return "\x1b[2m";
    case Tratto::Errore: return "\x1b[1;31m";
    case Tratto::Scritto: return "";
    }
    return "";
}

// What a file's bytes say of it, before anything of it is shown.
struct Aspetto {
    bool SoloLf = false;    // lines end in LF alone, as version control may give them
    bool Struttura = false; // the listing engine can have written it
};

// Finds the first line that begins with a listing's number, "000001     ", however the text before it
// is cut into blocks.
class CercaNumero {
  public:
    bool Trova(Vista bytes) {
        for (const char c : bytes) {
            if (c == '\n')
                posto_ = 0;
            else if (posto_ < Campo && Va(c))
                ++posto_;
            else
                posto_ = Campo + 1; // not this line
            if (posto_ == Campo) return true;
        }
        return false;
    }

  private:
    static constexpr std::size_t Campo = 11;
    bool Va(char c) const { return posto_ < 6 ? c >= '0' && c <= '9' : c == ' '; }
    std::size_t posto_ = 0; // in the line
};

// A listing has numbered lines, from a small number on however long it is. Without one it is empty, or
// holds nothing but the user's own header text, which can be any text: there the name has to tell.
Aspetto Guarda(Ambiente& ambiente, const std::string& file) {
    const Scheda cosa = ambiente.Macchina.Esamina(file);
    if (cosa.Errore != 0) throw Errore(cosa.Errore);
    if (cosa.Tipo == TipoVoce::Altro) throw Errore(ErrAccesso); // a pipe could make it wait for ever
    const auto aperto = ambiente.Macchina.ApriLettura(file);
    std::string blocco(std::size_t{64} * 1024, '\0');
    Aspetto aspetto;
    CercaNumero numero;
    bool vuoto = true;
    bool testo = true;
    while (const std::size_t letti = LeggiPieno(*aperto, blocco.data(), blocco.size())) {
        const Vista bytes(blocco.data(), letti);
        // No listing is written without a CR LF in its first lines.
        if (vuoto) aspetto.SoloLf = bytes.find('\n') != Vista::npos && bytes.find("\r\n") == Vista::npos;
        vuoto = false;
        testo = testo && bytes.find('\0') == Vista::npos;
        aspetto.Struttura = numero.Trova(bytes);
        if (aspetto.Struttura) break;
    }
    if (!aspetto.Struttura) aspetto.Struttura = vuoto || (testo && LCase(Right(file, 4)) == ".log");
    if (HaNomeDiSorgente(file)) aspetto.Struttura = false; // code may have line numbers of its own
    return aspetto;
}

// What to show instead of a file that is no listing.
std::string Invece(const std::string& file) {
    const Testo fine = LCase(Right(file, 4));
    if (fine == ".vbp")
        return "È un progetto: «morvella-cli struttura " + PerShell(file) +
               "» scrive in Appoggio le strutture dei suoi moduli.";
    if (fine != ".frm" && fine != ".bas" && fine != ".cls") return DoveStanno;
    const std::string nome = file.substr(file.find_last_of("/\\") + 1);
    return "È un sorgente: la sua struttura è Appoggio/" + nome.substr(0, nome.size() - 4) +
           ".log, e la scrive «morvella-cli struttura PROGETTO.vbp».";
}

const char* Consiglio(int numero) {
    switch (numero) {
    case ErrFileAssente:
    case ErrPercorso: return DoveStanno;
    case ErrAccesso:
        return "Controllare i permessi, e che sia un file, non una directory, una pipe o un dispositivo.";
    default: return "";
    }
}

} // namespace

int Mostra(const Richiesta& richiesta, Ambiente& ambiente) {
    const bool colori = ambiente.UscitaTerminale && !ambiente.SenzaColori && !richiesta.SenzaColori;
    const bool impagina = ambiente.UscitaTerminale && !richiesta.SenzaPager && ambiente.Impagina;
    std::unique_ptr<Impaginatore> pagine; // started when there is something to show
    const auto scrivi = [&](const std::string& utf8) {
        if (utf8.empty()) return true;
        if (impagina && !pagine) pagine = ambiente.Impagina();
        if (pagine) return pagine->Scrivi(ambiente.Codifica(utf8));
        ambiente.Uscita << ambiente.Codifica(utf8);
        return ambiente.Uscita.good();
    };
    const auto rifiuta = [&](const std::string& frase, const std::string& consiglio) {
        const std::string detto = "morvella-cli: " + frase + (consiglio.empty() ? "" : "\n  ") + consiglio;
        ambiente.Errori << ambiente.Codifica(MostrabileUtf8(detto, true)) << '\n';
    };

    int stato = Fatto;
    Archivio archivio(ambiente.Macchina);
    Canali canali(archivio);
    std::vector<Tratto> tratti;
    std::string testo;
    for (const std::string& file : richiesta.Resto) {
        try {
            const std::string percorso = ambiente.Macchina.Assoluto(file);
            const Aspetto aspetto = Guarda(ambiente, percorso);
            if (!aspetto.Struttura) {
                rifiuta(file + " non è una struttura", Invece(file));
                stato = Fermato;
                continue;
            }
            canali.FineRigaLf = aspetto.SoloLf;
            canali.OpenInput(1, Archivio::TestoDiPercorso(percorso));
            if (richiesta.Resto.size() > 1) testo += "==> " + file + " <==\n";
            while (!canali.Eof(1)) {
                DecodificaRiga(canali.LineInput(1), tratti);
                for (const Tratto& tratto : tratti) {
                    const char* colore = colori ? Colore(tratto.Che) : "";
                    testo.append(colore).append(tratto.Utf8);
                    if (*colore) testo += "\x1b[0m";
                }
                testo += '\n';
                if (testo.size() < std::size_t{32} * 1024) continue;
                if (!scrivi(testo)) return stato; // the reader has seen enough
                testo.clear();
            }
            canali.Close(1);
        } catch (const Errore& e) {
            rifiuta(file + ": errore " + std::to_string(e.Numero) + ", " + Utf8Da1252(Descrizione(e.Numero)),
                    Consiglio(e.Numero));
            canali.Close(1);
            stato = Fermato;
        }
    }
    scrivi(testo);
    return stato;
}

} // namespace morvella::cli

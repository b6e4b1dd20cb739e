// SPDX-License-Identifier: MIT
#include "cli/mostra.h"

#include <ostream>

#include "cli/programma.h"
#include "listing/decodifica.h"

namespace morvella::cli {

namespace {

// Two colours that differ for the colour-blind too: blue for conditions, yellow for loops.
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

// Whether a listing came out of a version control system with its line ends changed: none is written
// without a CR LF in its first lines.
bool SoloLf(Ambiente& ambiente, const std::string& file) {
    const auto aperto = ambiente.Macchina.ApriLettura(file);
    std::string blocco(std::size_t{64} * 1024, '\0');
    blocco.resize(aperto->Leggi(blocco.data(), blocco.size()));
    return blocco.find('\n') != std::string::npos && blocco.find("\r\n") == std::string::npos;
}

const char* Consiglio(int numero) {
    switch (numero) {
    case ErrFileAssente:
    case ErrPercorso: return "\n  Le strutture stanno in Appoggio, nella directory del progetto.";
    case ErrAccesso: return "\n  Controllare i permessi, e che non sia una directory.";
    default: return "";
    }
}

} // namespace

int Mostra(const Richiesta& richiesta, Ambiente& ambiente) {
    const bool colori = ambiente.UscitaTerminale && !ambiente.SenzaColori && !richiesta.SenzaColori;
    std::unique_ptr<Impaginatore> pagine;
    if (ambiente.UscitaTerminale && !richiesta.SenzaPager && ambiente.Impagina) pagine = ambiente.Impagina();
    const auto scrivi = [&](const std::string& utf8) {
        if (pagine) return pagine->Scrivi(ambiente.Codifica(utf8));
        ambiente.Uscita << ambiente.Codifica(utf8);
        return ambiente.Uscita.good();
    };

    int stato = Fatto;
    Archivio archivio(ambiente.Macchina);
    Canali canali(archivio);
    std::vector<Tratto> tratti;
    std::string testo;
    for (const std::string& file : richiesta.Resto) {
        try {
            const std::string percorso = ambiente.Macchina.Assoluto(file);
            canali.FineRigaLf = SoloLf(ambiente, percorso);
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
            ambiente.Errori << ambiente.Codifica("morvella-cli: " + file + ": errore " +
                                                 std::to_string(e.Numero) + ", " +
                                                 Utf8Da1252(Descrizione(e.Numero)) + Consiglio(e.Numero))
                            << '\n';
            canali.Close(1);
            stato = Fermato;
        }
    }
    scrivi(testo);
    return stato;
}

} // namespace morvella::cli

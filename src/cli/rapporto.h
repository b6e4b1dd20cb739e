// SPDX-License-Identifier: MIT
// cli/rapporto.h
//
// What happened during a command, and the JSON report of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/riscontri.h"
#include "shell/state.h"

namespace morvella::cli {

struct Messaggio {
    Testo Scritto;
    int Flag;
    Testo Titolo;
    int Risposta;
};

struct ErroreAvvenuto {
    Testo Motore; // the operation that the error ended
    Errore Causa;
    bool Finale;    // nobody trapped it: the list of operations ends here
    Testo Voce;     // text of the row in work; "" if there was none
    Lungo Riga = 0; // line of the source, 0 if there was none
};

/// A finding of the listing.
struct RilievoDiStruttura {
    std::string File; // UTF-8, as it is told
    Lungo Riga;       // of the file, as an editor counts
    Testo Linea;
    std::string Frase; // UTF-8
    bool Condiviso;    // the examination has one there too
};

/// The findings of both readings.
struct DueLetture {
    std::vector<RilievoDiStruttura> Struttura;
    std::vector<Riscontro> Esame;
};

struct Cronaca {
    std::vector<Messaggio> Messaggi;
    std::vector<Testo> Processi;
    std::vector<ErroreAvvenuto> Errori;
    std::optional<DueLetture> Rilievi; // with --controlla
    std::vector<std::string> Avvisi;   // UTF-8, told or not
};

/// One JSON object in UTF-8, ended by a line end: righe, menu, Label2, ProgressBar1,
/// Progress, messaggi, processi, errori, rilievi, avvisi.
std::string Json(const Stato& s, const Cronaca& cronaca);

} // namespace morvella::cli

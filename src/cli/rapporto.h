// SPDX-License-Identifier: MIT
// cli/rapporto.h
//
// What happened during a command, and the JSON object that tells it.
#pragma once

#include <string>
#include <vector>

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
    bool Finale;    // nobody had a handler: the list of operations ends here
    Testo Voce;     // the text of the row of File1; "" if it was at none
    Lungo Riga = 0; // the line of the source, 0 if it was at none
};

struct Cronaca {
    std::vector<Messaggio> Messaggi;
    std::vector<Testo> Processi;
    std::vector<ErroreAvvenuto> Errori;
};

/// One JSON object in UTF-8 with a closing line end: righe, menu, Label2, ProgressBar1,
/// Progress, messaggi, processi, errori.
std::string Json(const Stato& s, const Cronaca& cronaca);

} // namespace morvella::cli

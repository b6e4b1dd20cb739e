// SPDX-License-Identifier: MIT
// cli/rapporto.h
//
// What happened during a command, and the JSON report of it.
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
    bool Finale;    // nobody trapped it: the list of operations ends here
    Testo Voce;     // text of the row in work; "" if there was none
    Lungo Riga = 0; // line of the source, 0 if there was none
};

struct Cronaca {
    std::vector<Messaggio> Messaggi;
    std::vector<Testo> Processi;
    std::vector<ErroreAvvenuto> Errori;
};

/// One JSON object in UTF-8, ended by a line end: righe, menu, Label2, ProgressBar1,
/// Progress, messaggi, processi, errori.
std::string Json(const Stato& s, const Cronaca& cronaca);

} // namespace morvella::cli

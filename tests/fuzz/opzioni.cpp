// SPDX-License-Identifier: MIT
//
// Default.ini of any bytes: reading ends, or raises 62; what was read and is stored again reads the
// same from then on.
#include "shell/opzioni.h"
#include "fuzz/banco.h"

namespace {

using namespace morvella;
using namespace morvella::prove;

struct Lette {
    bool Intere = false;
    bool Commenti = false, Intestazione = false, Conferma = false;
    Testo Scritto;
    bool operator==(const Lette&) const = default;
};

Lette Leggi(DiscoLento& disco, bool lento, bool salva) {
    disco.Lento = lento;
    FinestraFinta finestra;
    Stato s(disco, finestra);
    s.AppPath = s.File.Aggancia(Gancio::Programma, "/p");
    Lette lette;
    try {
        CaricaOpzioni(s);
        lette.Intere = true;
    } catch (const Errore& e) {
        Esige(e.Numero == ErrFineFile, "an error that is not the end of the file");
    }
    lette.Commenti = s.OpzTogliCommenti;
    lette.Intestazione = s.OpzIntestazione;
    lette.Conferma = s.OpzSenzaConferma;
    lette.Scritto = s.Text1;
    if (salva) SalvaOpzioni(s);
    return lette;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    const std::string bytes(reinterpret_cast<const char*>(dati), quanti);
    DiscoLento disco;
    disco.Metti("/p/Default.ini", bytes);
    const Lette prima = Leggi(disco, false, false);
    Esige(Leggi(disco, true, true) == prima, "short reads give other options");
    if (!prima.Intere || bytes.empty()) return 0;
    const Lette salvate = Leggi(disco, false, true);
    Esige(salvate.Intere, "what was stored cannot be read");
    Esige(Leggi(disco, false, false) == salvate, "stored again, the options change");
    return 0;
}

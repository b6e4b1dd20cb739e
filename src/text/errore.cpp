// SPDX-License-Identifier: MIT
#include "text/errore.h"

namespace morvella {

std::string_view Descrizione(int numero) noexcept {
    switch (numero) {
    case ErrArgomento: return "Argomento fuori dai limiti ammessi.";
    case ErrMemoria: return "Memoria insufficiente.";
    case ErrNumeroFile: return "Numero o nome di file non valido.";
    case ErrFileAssente: return "File non trovato.";
    case ErrFileAperto: return "Il file \xE8 gi\xE0 aperto."; // è già
    case ErrDispositivo: return "Errore del dispositivo.";
    case ErrDiscoPieno: return "Il disco \xE8 pieno.";
    case ErrFineFile: return "Lettura oltre la fine del file.";
    case ErrPermesso: return "Permesso negato.";
    case ErrUnita: return "L'unit\xE0 non \xE8 pronta.";
    case ErrAccesso: return "Il percorso esiste gi\xE0 o non \xE8 accessibile.";
    case ErrPercorso: return "Percorso non trovato.";
    default: return "Errore definito dall'applicazione.";
    }
}

const char* Errore::what() const noexcept { return Descrizione(Numero).data(); }

} // namespace morvella

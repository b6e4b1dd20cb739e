// SPDX-License-Identifier: MIT
#include "cli/consiglio.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace morvella::cli {

namespace {

constexpr const char* SenzaAppoggio =
    "La directory Appoggio non c'è e non si è potuta creare: controllare i permessi, o togliere il file "
    "che ha il suo nome.";

// Error 5 has three causes; only a line of code leaves its number.
std::string PerArgomento(const ErroreAvvenuto& e, const std::string& prosegui) {
    if (e.Riga > 0)
        return "La riga di codice chiude un blocco tra un End Sub e la procedura seguente (spesso un "
               "#End If)." +
               prosegui;
    if (e.Voce.empty()) return "";
    return std::string("La riga del progetto è più corta di 4 caratteri") +
           (e.Motore == "mnuHTML_Click" ? ", o la data del file è mezzanotte esatta." : ".") + prosegui;
}

std::string PerFileAssente(const ErroreAvvenuto& e, const Circostanze& come, const std::string& prosegui) {
    if (MancaUnProgramma(e, come.FileAssente))
        return "Manca un programma che apra il file (di solito lo fa xdg-open).";
    if (e.Motore == "mnuLettura_Click")
        return "La struttura non c'è e non si è potuta scrivere: «struttura» dice perché.";
    return e.Voce.empty() ? "Controllare che ci sia." : "Controllare il nome nel progetto." + prosegui;
}

// The documentation alone names "Appoggio" itself: it makes the directory without a handler, and takes
// one without files for missing.
std::string PerAccesso(const ErroreAvvenuto& e, const Circostanze& come, const std::string& prosegui) {
    if (e.Causa.File != "Appoggio")
        return "Controllare i permessi, e che al posto del file non ci sia una directory." + prosegui;
    return e.Motore == "mnuHTML_Click" && come.Appoggio
               ? "La directory Appoggio c'è ma non contiene file: toglierla, o usare prima riordina."
               : SenzaAppoggio;
}

std::string PerPercorso(const Circostanze& come, const std::string& prosegui) {
    if (!come.Appoggio) return SenzaAppoggio;
    return (come.CartellaFattibile
                ? "In Appoggio manca la cartella della pagina: con --sottocartelle viene creata."
                : "Manca la directory del file, o al suo posto c'è un file.") +
           prosegui;
}

} // namespace

std::string PerShell(const std::string& parola) {
    const auto semplice = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0 || std::strchr("/._-+:\\", c) != nullptr;
    };
    if (std::all_of(parola.begin(), parola.end(), semplice)) return parola;
#ifdef _WIN32
    return '"' + parola + '"';
#else
    std::string fra = "'";
    for (const char c : parola) fra += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return fra + "'";
#endif
}

bool MancaUnProgramma(const ErroreAvvenuto& e, bool fileAssente) {
    if (e.Causa.Numero != ErrFileAssente) return false;
    if (e.Motore == "mnuLettura_Click") return !fileAssente; // its other 53 is a listing that is not there
    return e.Motore == "MnuHelpHtml_Click" ||
           (e.Motore == "mnuHTML_Click" && e.Causa.File.ends_with("\\Indice.Html"));
}

std::string Consiglio(const ErroreAvvenuto& e, const Circostanze& come) {
    const std::string prosegui =
        !e.Voce.empty() && come.PuoProseguire ? " Con --prosegui si passa alla riga seguente." : "";
    switch (e.Causa.Numero) {
    case ErrArgomento: return PerArgomento(e, prosegui);
    case ErrFileAssente: return PerFileAssente(e, come, prosegui);
    case ErrFineFile:
        if (!e.Voce.empty()) return "Il file finisce dove doveva esserci ancora una riga." + prosegui;
        return "Il file delle opzioni finisce prima del previsto: «morvella-cli opzioni --ripristina" +
               (come.Programma.empty() ? "" : " --programma " + PerShell(come.Programma)) +
               "» lo rimette a posto.";
    case ErrDiscoPieno: return "Liberare spazio sul disco e ripetere: ciò che manca non è stato scritto.";
    case ErrPermesso: return "L'operazione avrebbe cambiato un sorgente del progetto, che non si tocca.";
    case ErrAccesso: return PerAccesso(e, come, prosegui);
    case ErrPercorso: return PerPercorso(come, prosegui);
    default: return "";
    }
}

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
//
// Makes the manual page: puts the version and the program's own tables of commands, options and
// events into manual/morvella-cli.1.in. So the page always says what the program does.
//
//     genera-manuale morvella-cli.1.in morvella-cli.1
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>

#include "cli/eventi.h"
#include "cli/opzioni.h"

#ifndef MORVELLA_VERSIONE
#define MORVELLA_VERSIONE "0"
#endif

namespace morvella::cli {

namespace {

// Text for roff: a plain "-" would come out as a hyphen that nobody can copy to a shell, and a
// line that begins with "." or "'" would be taken for a request.
std::string PerRoff(const std::string& testo) {
    std::string roff = !testo.empty() && (testo[0] == '.' || testo[0] == '\'') ? "\\&" : "";
    for (const char c : testo) {
        if (c == '-')
            roff += "\\-";
        else if (c == '\\')
            roff += "\\e";
        else
            roff += c;
    }
    return roff;
}

std::string Grassetto(const std::string& testo) { return "\\fB" + PerRoff(testo) + "\\fR"; }
std::string Corsivo(const std::string& testo) { return "\\fI" + PerRoff(testo) + "\\fR"; }

std::string PaginaComandi() {
    std::string pagina;
    for (const Comando& c : Comandi()) {
        pagina += ".TP\n" + Grassetto(c.Nome);
        if (*c.Argomenti) pagina += " " + Corsivo(c.Argomenti);
        pagina += "\n" + PerRoff(c.Aiuto) + "\n";
    }
    return pagina;
}

// The commands where an option has an effect, named by the shorter list; "" when it has one everywhere.
std::string ValePer(const Opzione& opzione) {
    std::string con;
    std::string senza;
    int quanti = 0;
    for (const Comando& c : Comandi()) {
        const bool vale = (opzione.Per & c.Chi) != 0;
        std::string& nomi = vale ? con : senza;
        nomi += (nomi.empty() ? "" : ", ") + Grassetto(c.Nome);
        quanti += vale ? 1 : -1;
    }
    if (senza.empty()) return "";
    return quanti > 0 ? "Non con " + senza + ".\n" : "Con " + con + ".\n";
}

std::string PaginaOpzioni() {
    std::string pagina;
    for (const Opzione& o : Opzioni()) {
        pagina += ".TP\n";
        if (o.Corta) pagina += Grassetto(std::string("-") + o.Corta) + ", ";
        pagina += Grassetto(std::string("--") + o.Lunga);
        if (o.Argomento) { // "[si|no]" is an optional value, after "=" only
            const bool libero = o.Argomento[0] == '[';
            pagina += (libero ? "[=" : "=") + Corsivo(o.Argomento + (libero ? 1 : 0));
        }
        pagina += "\n" + PerRoff(o.Aiuto) + "\n" + ValePer(o);
    }
    return pagina;
}

// The names of the events with commas between them; what wants a value ends in "=".
std::string PaginaEventi() {
    std::string pagina;
    const std::vector<std::string> nomi = NomiEventi();
    for (const std::string& nome : nomi)
        pagina += ".BR " + PerRoff(nome) + (&nome == &nomi.back() ? "" : " ,") + "\n";
    return pagina;
}

bool Sostituisci(std::string& pagina, const std::string& segnaposto, const std::string& testo) {
    const std::size_t posto = pagina.find(segnaposto);
    if (posto == std::string::npos) return false;
    pagina.replace(posto, segnaposto.size(), testo);
    return true;
}

int Genera(const char* modello, const char* uscita) {
    std::ifstream ingresso(modello, std::ios::binary);
    std::string pagina((std::istreambuf_iterator<char>(ingresso)), {});
    if (!ingresso) {
        std::cerr << "genera-manuale: " << modello << ": cannot be read\n";
        return 1;
    }
    // Without one of them the page would lack its commands: better no page.
    if (!Sostituisci(pagina, "@VERSIONE@", MORVELLA_VERSIONE) ||
        !Sostituisci(pagina, "@COMANDI@\n", PaginaComandi()) ||
        !Sostituisci(pagina, "@OPZIONI@\n", PaginaOpzioni()) ||
        !Sostituisci(pagina, "@EVENTI@\n", PaginaEventi())) {
        std::cerr << "genera-manuale: " << modello
                  << ": @VERSIONE@, @COMANDI@, @OPZIONI@ or @EVENTI@ is missing\n";
        return 1;
    }
    std::ofstream file(uscita, std::ios::binary);
    file << pagina;
    file.close();
    if (!file) {
        std::cerr << "genera-manuale: " << uscita << ": cannot be written\n";
        std::remove(uscita);
        return 1;
    }
    return 0;
}

} // namespace

} // namespace morvella::cli

int main(int argc, char** argv) {
    if (argc == 3) return morvella::cli::Genera(argv[1], argv[2]);
    std::cerr << "usage: genera-manuale TEMPLATE OUTPUT\n";
    return 2;
}

// SPDX-License-Identifier: MIT
//
// The command line over a disk in memory. The input is the arguments, one a line, then an empty line and
// the bytes that the project, a module, a listing and a header text are made of. Any of it ends with one
// of the five exit statuses, an error is told, and no source is touched.
#include <sstream>

#include "cli/programma.h"
#include "fuzz/banco.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    using namespace morvella;
    using namespace morvella::prove;
    std::string_view resto(reinterpret_cast<const char*>(dati), quanti);
    std::vector<std::string> argomenti;
    while (!resto.empty() && argomenti.size() < 12) {
        const std::size_t fine = std::min(resto.find('\n'), resto.size());
        const std::string_view parola = resto.substr(0, fine);
        resto.remove_prefix(std::min(fine + 1, resto.size()));
        if (parola.empty()) break;
        if (parola.find('\0') != std::string_view::npos) return 0; // no system passes such a word on
        argomenti.emplace_back(parola);
    }
    DiscoLento disco;
    const std::string bytes(resto);
    disco.Metti("/p/P.vbp", bytes.substr(0, bytes.size() / 2) + "\r\nModule=M; M.bas\r\n");
    for (const char* nome : {"/p/M.bas", "/p/F.frm", "/p/L.log", "/p/testo.txt"}) disco.Metti(nome, bytes);
    disco.FaiDirectory("/prog");
    const Albero fonti = disco.TuttiIFile();
    std::istringstream ingresso("s\n");
    std::ostringstream uscita;
    std::ostringstream errori;
    cli::Ambiente ambiente{.Macchina = disco, .Ingresso = ingresso, .Uscita = uscita, .Errori = errori};
    ambiente.DirectoryProgramma = "/prog";
    const int stato = cli::Programma(argomenti, ambiente);
    Esige(stato >= 0 && stato <= 4, "an exit status that does not exist");
    Esige(stato == 0 || stato == 4 || !errori.str().empty(), "a failure without a word");
    const Albero dopo = disco.TuttiIFile();
    for (const char* nome : {"/p/P.vbp", "/p/M.bas"}) {
        const auto qui = dopo.find(nome);
        Esige(qui != dopo.end() && qui->second == fonti.at(nome), "a source was changed");
    }
    return 0;
}

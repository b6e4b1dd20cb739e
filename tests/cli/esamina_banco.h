// SPDX-License-Identifier: MIT
//
// Runs of "esamina" on the double's disk, with /casa as the current directory.
#pragma once

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "cli/programma.h"
#include "sostegno/disco_finto.h"

namespace morvella::cli::prove {

// A disk where some paths are links.
class DiscoConLegami : public morvella::prove::DiscoFinto {
  public:
    using DiscoFinto::DiscoFinto;
    std::set<std::string> Legami;
    bool Legame(const std::string& percorso) override { return Legami.contains(percorso); }
};

struct BancoEsame {
    DiscoConLegami Disco{"/casa"};
    std::istringstream Ingresso;
    std::ostringstream Uscita;
    std::ostringstream Errori;
    bool Terminale = false;
    bool SenzaColori = false;

    /// Lines of a file below /casa, with CR LF.
    void Metti(const std::string& file, const std::vector<std::string>& righe) {
        std::string bytes;
        for (const std::string& riga : righe) bytes += riga + "\r\n";
        Disco.Metti("/casa/" + file, bytes);
    }
    /// A file without findings, of 2 lines.
    void Buono(const std::string& file) { Metti(file, {"Sub a()", "End Sub"}); }
    /// A file of 3 lines with one finding: MV001 in line 2.
    void Cattivo(const std::string& file) { Metti(file, {"Sub a()", "  Do", "End Sub"}); }

    int Esegui(std::vector<std::string> argomenti) {
        Uscita.str("");
        Errori.str("");
        Ambiente ambiente{.Macchina = Disco, .Ingresso = Ingresso, .Uscita = Uscita, .Errori = Errori};
        ambiente.UscitaTerminale = Terminale;
        ambiente.SenzaColori = SenzaColori;
        ambiente.DirectoryProgramma = "/casa/programma";
        argomenti.insert(argomenti.begin(), "esamina");
        return Programma(argomenti, ambiente);
    }
    bool Scrive(const std::string& testo) const { return Uscita.str().find(testo) != std::string::npos; }
    bool Dice(const std::string& testo) const { return Errori.str().find(testo) != std::string::npos; }
    /// The files of the findings, in order.
    std::vector<std::string> Trovati() const {
        std::vector<std::string> file;
        std::istringstream righe(Uscita.str());
        for (std::string riga; std::getline(righe, riga);)
            if (riga.find(": errore: ") != std::string::npos) file.push_back(riga.substr(0, riga.find(':')));
        return file;
    }
};

} // namespace morvella::cli::prove

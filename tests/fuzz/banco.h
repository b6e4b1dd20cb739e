// SPDX-License-Identifier: MIT
// tests/fuzz/banco.h
//
// What the fuzz targets share: a project in memory that is made of fuzzed bytes, an engine's run over
// it, and the oracles. A broken oracle aborts, which both the fuzzer and the replay take for a finding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "shell/gestore.h"
#include "shell/progetto.h"
#include "sostegno/disco_finto.h"
#include "sostegno/finestra_finta.h"

namespace morvella::prove {

inline void Esige(bool vero, const char* che) {
    if (vero) return;
    std::fprintf(stderr, "fuzz: %s\n", che);
    std::abort();
}

/// Gives at most three bytes a read, as a slow device may.
class FileLento : public FileAperto {
  public:
    explicit FileLento(std::unique_ptr<FileAperto> file) : file_(std::move(file)) {}
    std::size_t Leggi(char* dove, std::size_t n) override { return file_->Leggi(dove, n < 3 ? n : 3); }
    void Scrivi(const char* da, std::size_t n) override { file_->Scrivi(da, n); }
    void Svuota() override { file_->Svuota(); }
    void Chiudi() override { file_->Chiudi(); }
    std::optional<Identita> Chi() override { return file_->Chi(); }

  private:
    std::unique_ptr<FileAperto> file_;
};

class DiscoLento : public DiscoFinto {
  public:
    bool Lento = false;
    std::unique_ptr<FileAperto> ApriLettura(const std::string& percorso) override {
        auto file = DiscoFinto::ApriLettura(percorso);
        if (!Lento) return file;
        return std::make_unique<FileLento>(std::move(file));
    }
};

/// How a run goes: bits of the first fuzzed byte.
struct Modo {
    bool Form, Commenti, Intestazione, Lf;
    explicit Modo(unsigned bit)
        : Form((bit & 1) != 0), Commenti((bit & 2) != 0), Intestazione((bit & 4) != 0), Lf((bit & 8) != 0) {}
};

using Albero = std::map<std::string, std::string>;

/// The project "/p/P.vbp": a form that comes first, so that a module has a listing, and the module or
/// form of the fuzzed bytes.
class ProgettoFuzz {
  public:
    ProgettoFuzz(const Modo& modo, std::string bytes) : modo_(modo) {
        nome_ = modo.Form ? "M.frm" : "M.bas";
        disco_.Metti("/p/A.frm", "VERSION 5.00\r\nBegin VB.Form A\r\nEnd\r\nAttribute VB_Exposed = False\r\n"
                                 "Sub A()\r\nEnd Sub\r\n");
        disco_.Metti("/p/" + nome_, std::move(bytes));
        disco_.Metti("/p/P.vbp",
                     modo.Form ? "Form=A.frm\r\nForm=M.frm\r\n" : "Form=A.frm\r\nModule=M; M.bas\r\n");
        for (const char* figura : {"p2.gif", "Dario.gif", "BLULETHR.GIF", "home.GIF"})
            disco_.Metti(std::string("/prog/") + figura, "GIF");
        fonti_ = disco_.TuttiIFile();
    }

    /// Runs an engine over both rows and gives all files there are afterwards, and as "error" the number
    /// of the error that ended it.
    Albero Corri(void (*motore)(Stato&), bool segue, bool lento) {
        disco_.Lento = lento;
        FinestraFinta finestra;
        finestra.Segue = segue;
        Stato s(disco_, finestra);
        s.Canale.FineRigaLf = modo_.Lf;
        s.AppPath = s.File.Aggancia(Gancio::Programma, "/prog");
        CambiaDir1(s, "/p");
        s.File1Leggi.Nomi = {"P.vbp"};
        s.File1Leggi.ListIndex = 0;
        LeggiProgetto(s);
        s.TogliCommenti = modo_.Commenti ? 1 : 0;
        s.Check1 = modo_.Intestazione ? 1 : 0;
        s.Text1 = "'* testo\r\n";
        for (Lungo i = 0; i < s.File1.ListCount(); ++i) SelezionaFile1(s, i, true);
        std::string errore; // the pages have no handler: a menu on the last line ends their run with 62
        try {
            motore(s);
        } catch (const Errore& e) {
            errore = std::to_string(e.Numero);
        }
        for (int n = 1; n <= Canali::NumeroMassimo; ++n) s.Canale.Close(n);
        Albero tutti = disco_.TuttiIFile();
        for (const auto& [nome, bytes] : fonti_) {
            const auto qui = tutti.find(nome);
            Esige(qui != tutti.end() && qui->second == bytes, "a source was changed");
        }
        tutti["error"] = errore;
        return tutti;
    }

  private:
    Modo modo_;
    std::string nome_;
    DiscoLento disco_;
    Albero fonti_;
};

/// An engine's oracles. The same bytes come out whether reads are short or not, whether anybody watches
/// the margin or not, and when the run goes over its own output.
inline void ProvaMotore(const std::uint8_t* dati, std::size_t quanti, void (*motore)(Stato&)) {
    if (quanti < 1) return;
    const Modo modo(dati[0]);
    const std::string bytes(reinterpret_cast<const char*>(dati) + 1, quanti - 1);
    ProgettoFuzz progetto(modo, bytes);
    const Albero prima = progetto.Corri(motore, false, false);
    Esige(progetto.Corri(motore, false, false) == prima, "a second run gives other bytes");
    Esige(ProgettoFuzz(modo, bytes).Corri(motore, false, true) == prima, "short reads give other bytes");
    Esige(ProgettoFuzz(modo, bytes).Corri(motore, true, false) == prima,
          "a watched margin gives other bytes");
}

} // namespace morvella::prove

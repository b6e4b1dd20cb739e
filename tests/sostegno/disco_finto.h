// SPDX-License-Identifier: MIT
// tests/sostegno/disco_finto.h
//
// The tests' backend: files in memory on a disk that tells case apart, a clock of its own, failures
// on demand. A call repeated a hundred times with nothing else in between ends the test, so that
// an unbounded retry fails instead of hanging.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <stdexcept>

#include "text/primitive.h"

namespace morvella::prove {

/// Raised when the same call comes again and again.
struct SenzaFine : std::logic_error {
    using std::logic_error::logic_error;
};

class DiscoFinto : public Disco {
  public:
    /// "/" and `directory` exist from the start; `directory` is the current one.
    explicit DiscoFinto(const std::string& directory = "/p");

    // What the test prepares and looks at. Paths are platform paths: "/p/Form1.frm".
    void Metti(const std::string& percorso, std::string bytes); // with the directories above it
    void FaiDirectory(const std::string& percorso);             // with those above it
    bool Esiste(const std::string& percorso) const { return voci_.contains(percorso); }
    /// The bytes of a file; fails the test by throwing when there is none.
    const std::string& Leggi(const std::string& percorso) const;
    /// All plain files with their bytes.
    std::map<std::string, std::string> TuttiIFile() const;

    /// The next `volte` calls of `operazione` on a path that ends in `fine` raise `numero`.
    /// Operations: "Esamina", "Elenca", "ApriLettura", "ApriScrittura", "Leggi", "Scrivi",
    /// "Svuota", "Chiudi", "CreaDirectory", "CambiaDirectory", "Copia", "Cancella", "Adesso", "Avvia".
    /// A failing Esamina says Assente with that number; for Copia the path is the target.
    void Fallisci(const std::string& operazione, const std::string& fine, int numero, int volte = 1 << 30);
    /// The call with this number, counted from 1 over all operations but Esamina and Elenca since
    /// now, raises `numero`.
    void FallisciAllaChiamata(int chiamata, int numero);
    int ChiamateFatte() const { return chiamate_; }

    /// Bytes that still fit on the disk; a write beyond raises 61 and writes what fits.
    std::optional<std::size_t> SpazioLibero;
    Istante Orologio{2026, 11, 21, 14, 30, 5};
    std::map<std::string, Istante> Modificati; // for UltimaModifica; else Orologio
    /// Called before each block that is read, with the path: to change the disk in the middle.
    std::function<void(const std::string&)> PrimaDiLeggere;
    std::function<void(const std::string&)> PrimaDiAprire; // the same, before a file is opened for reading
    std::vector<std::string> Avviati;                      // "programma|percorso"
    std::map<std::string, std::string> PercorsiCorti;      // with any entry: a platform that has them
    std::map<std::string, std::string> Unita{{"C:", "/"}}; // letters and the directories of their tops
    bool Distingue = true;
    std::int64_t Cambiato = 0;            // of every file, for Scheda; 0: not kept here
    std::vector<std::string> SolaLettura; // read-only, with all below them

    Scheda Esamina(const std::string& percorso) override;
    std::vector<std::string> Elenca(const std::string& directory) override;
    std::unique_ptr<FileAperto> ApriLettura(const std::string& percorso) override;
    std::unique_ptr<FileAperto> ApriScrittura(const std::string& percorso) override;
    void CreaDirectory(const std::string& percorso) override;
    void CambiaDirectory(const std::string& percorso) override;
    std::string DirectoryCorrente() override { return corrente_; }
    void Copia(const std::string& da, const std::string& a) override;
    void Cancella(const std::string& percorso) override;
    bool Scrivibile(const std::string& directory) override;
    Istante Adesso() override;
    Istante UltimaModifica(const Scheda& cosa) override;
    void Avvia(const std::string& programma, const std::string& percorso, int finestra) override;
    std::vector<morvella::Unita> ElencaUnita() override;
    unsigned long GetShortPathNameA(const std::string& percorso, char* buffer, unsigned long misura) override;
    bool HaPercorsiCorti() const override { return !PercorsiCorti.empty(); }
    bool DistingueMaiuscole() const override { return Distingue; }

    int Esami = 0;   // calls of Esamina
    int Elenchi = 0; // calls of Elenca

  private:
    friend class FileFinto;
    struct Voce {
        bool Directory = false;
        std::string Bytes;
        std::uint64_t Numero = 0;
        std::int64_t Modificato = 0;
    };
    struct Guasto {
        std::string Operazione, Fine;
        int Numero, Volte;
    };
    void Chiamata(const std::string& operazione, const std::string& percorso);
    std::optional<int> PrendiGuasto(const std::string& operazione, const std::string& percorso);
    Voce& Nuova(const std::string& percorso, bool directory);
    bool SoloDaLeggere(const std::string& percorso) const;
    void Toccata(const std::string& percorso); // the directory of `percorso` changed
    const Voce* Trova(const std::string& percorso) const;

    std::map<std::string, std::shared_ptr<Voce>> voci_;
    std::string corrente_;
    std::vector<Guasto> guasti_;
    int chiamate_ = 0;
    int fallisceAlla_ = 0;
    int fallisceCon_ = 0;
    std::uint64_t numeri_ = 0;
    std::int64_t tempo_ = 0;
    std::string ultima_;
    int ripetute_ = 0;
};

} // namespace morvella::prove

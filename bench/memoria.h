// SPDX-License-Identifier: MIT
// bench/memoria.h
//
// A disk in memory, so that the benchmarks measure the program alone: reads come from memory,
// writes are dropped.
#pragma once

#include <algorithm>
#include <cstring>
#include <map>

#include "text/primitive.h"

namespace morvella::bench {

class DiscoMemoria : public Disco {
  public:
    std::map<std::string, std::string> File; // all in the directory "/p"

    Scheda Esamina(const std::string& percorso) override {
        Scheda cosa;
        const auto voce = File.find(percorso);
        cosa.Tipo = voce != File.end()                    ? TipoVoce::File
                    : percorso == "/p" || percorso == "/" ? TipoVoce::Directory
                                                          : TipoVoce::Assente;
        if (voce != File.end())
            cosa.Chi = {1, 1 + static_cast<std::uint64_t>(std::distance(File.begin(), voce))};
        return cosa;
    }
    std::vector<std::string> Elenca(const std::string&) override { return {}; }
    std::unique_ptr<FileAperto> ApriLettura(const std::string& percorso) override {
        return std::make_unique<Aperto>(File.at(percorso));
    }
    std::unique_ptr<FileAperto> ApriScrittura(const std::string&) override {
        return std::make_unique<Aperto>(std::string_view());
    }
    void CreaDirectory(const std::string&) override {}
    void CambiaDirectory(const std::string&) override {}
    std::string DirectoryCorrente() override { return "/p"; }
    void Copia(const std::string&, const std::string&) override {}
    void Cancella(const std::string&) override {}
    Istante Adesso() override { return {2026, 11, 21, 14, 30, 5}; }
    Istante UltimaModifica(const Scheda&) override { return Adesso(); }
    void Avvia(const std::string&, const std::string&, int) override {}

  private:
    class Aperto : public FileAperto {
      public:
        explicit Aperto(std::string_view bytes) : resto_(bytes) {}
        std::size_t Leggi(char* dove, std::size_t n) override {
            n = std::min(n, resto_.size());
            if (n > 0) std::memcpy(dove, resto_.data(), n);
            resto_.remove_prefix(n);
            return n;
        }
        void Scrivi(const char*, std::size_t) override {}
        void Svuota() override {}
        void Chiudi() override {}

      private:
        std::string_view resto_;
    };
};

} // namespace morvella::bench

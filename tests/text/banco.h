// SPDX-License-Identifier: MIT
// tests/text/banco.h
//
// The channels over the tests' double, whose disk can give few bytes at a time.
#pragma once

#include <gtest/gtest.h>

#include "sostegno/disco_finto.h"
#include "text/canali.h"
#include "text/numero_di.h"

namespace morvella::prove {

inline constexpr std::size_t Blocco = Canali::BloccoLetto;
inline constexpr std::size_t BloccoScritto = Canali::Blocco;
static_assert(Blocco % BloccoScritto == 0);

/// A disk that gives few bytes at a time, so that every place of a file is once the end of what
/// was read.
class DiscoAvaro : public DiscoFinto {
  public:
    std::size_t Boccone = 1;

    std::unique_ptr<FileAperto> ApriLettura(const std::string& percorso) override {
        return std::make_unique<FileAvaro>(DiscoFinto::ApriLettura(percorso), Boccone);
    }

  private:
    class FileAvaro : public FileAperto {
      public:
        FileAvaro(std::unique_ptr<FileAperto> intero, std::size_t boccone)
            : intero_(std::move(intero)), boccone_(boccone) {}
        std::size_t Leggi(char* dove, std::size_t n) override {
            return intero_->Leggi(dove, std::min(n, boccone_));
        }
        void Scrivi(const char* da, std::size_t n) override { intero_->Scrivi(da, n); }
        void Svuota() override { intero_->Svuota(); }
        void Chiudi() override { intero_->Chiudi(); }

      private:
        std::unique_ptr<FileAperto> intero_;
        std::size_t boccone_;
    };
};

struct Banco {
    DiscoAvaro Disco;
    Archivio File{Disco};
    Canali Canale{File};

    Banco() { Disco.Boccone = 1u << 30; }

    std::vector<Testo> Righe(const Testo& bytes, bool lf = false) {
        Disco.Metti("/p/in", bytes);
        Canale.FineRigaLf = lf;
        std::vector<Testo> righe;
        Canale.OpenInput(1, "\\p\\in");
        while (!Canale.Eof(1)) righe.emplace_back(Canale.LineInput(1));
        EXPECT_EQ(NumeroDi([&] { return Canale.LineInput(1); }), 62);
        Canale.Close(1);
        return righe;
    }
};

} // namespace morvella::prove

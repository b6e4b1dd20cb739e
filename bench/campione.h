// SPDX-License-Identifier: MIT
// bench/campione.h
//
// The text that the benchmarks work on: a form, a module and a class of 4,000 lines each.
#pragma once

#include <benchmark/benchmark.h>

#include "memoria.h"
#include "progetti.h"

namespace morvella::bench {

class Campione {
  public:
    static const Campione& Comune() {
        static const Campione comune;
        return comune;
    }

    Testo Form;
    Testo Tutto;              // all three
    std::vector<Vista> Righe; // views into Tutto, without the line ends
    std::vector<Vista> Trimmate;

    Campione(const Campione&) = delete;
    Campione& operator=(const Campione&) = delete;

  private:
    Campione() {
        const Ricetta ricetta{.Moduli = 5, .Righe = 20000};
        Form = FaiModulo(ricetta, 0).Testo;
        Tutto = Form + FaiModulo(ricetta, 2).Testo + FaiModulo(ricetta, 4).Testo;
        for (std::size_t inizio = 0; inizio < Tutto.size();) {
            const std::size_t fine = Tutto.find('\r', inizio);
            Righe.push_back(Vista(Tutto).substr(inizio, fine - inizio));
            Trimmate.push_back(Trim(Righe.back()));
            inizio = fine + 2;
        }
    }
};

/// Lines and bytes a second, over all of the sample; bytes of the source, line ends included.
inline void Conta(benchmark::State& stato) {
    const Campione& c = Campione::Comune();
    stato.SetItemsProcessed(stato.iterations() * static_cast<std::int64_t>(c.Righe.size()));
    stato.SetBytesProcessed(stato.iterations() * static_cast<std::int64_t>(c.Tutto.size()));
}

} // namespace morvella::bench

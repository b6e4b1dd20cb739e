// SPDX-License-Identifier: MIT
// scan/sorgente.h
//
// The lines of a source in its second pass. Hands out lines one by one; reads, trims and
// classifies them in batches of 64, since none of that depends on what an engine does with a line.
#pragma once

#include <array>
#include <span>

#include "scan/classifica.h"
#include "shell/gestore.h"

namespace morvella {

/// A line, raw and trimmed, and the class of the trimmed one.
struct RigaSorgente {
    LineaLetta Letta;
    Classe Quale = RigaAltra;
};

/// Reads channel 1, which nothing else reads meanwhile, under the engines' handler.
class RigheSorgente {
  public:
    explicit RigheSorgente(Stato& s) : s_(s) {}

    /// `EOF(1)`. The channel may move its buffer here, so Riga is dropped first.
    bool Finita() {
        if (date_ < quante_) return false;
        s_.Riga = {};
        return Istruzione(s_, [&] { return s_.Canale.Eof(1); });
    }
    /// `Line Input #1`: the next line, valid until the next call; empty where the handler gave it up.
    const RigaSorgente& Prossima() {
        if (date_ == quante_) Leggi();
        return righe_[date_++];
    }

    /// The next lines of the batch, as far as they lie in the channel's buffer: Fetta bytes are
    /// readable from any position in them. Valid until Finita or Prossima reads on. `Salta` skips the first
    /// of them.
    std::span<const RigaSorgente> Pronte() const {
        return {righe_.data() + date_, inMemoria_ ? quante_ - date_ : 0};
    }
    void Salta(Lungo quante) { date_ += static_cast<std::size_t>(quante); }

  private:
    void Leggi();

    Stato& s_;
    std::array<RigaSorgente, 64> righe_;
    std::size_t date_ = 0;
    std::size_t quante_ = 0;
    bool inMemoria_ = false;
};

} // namespace morvella

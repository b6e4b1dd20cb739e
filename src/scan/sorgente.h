// SPDX-License-Identifier: MIT
// scan/sorgente.h
//
// The lines of a source in a second pass. They are given one by one, but read, trimmed and sorted
// into their classes some ahead: none of that depends on what the engines do with the lines before,
// and a processor does it much faster where no decision stands between one line and the next.
#pragma once

#include <array>
#include <span>

#include "scan/classifica.h"
#include "shell/gestore.h"

namespace morvella {

/// A line, as it stands and trimmed, and the class of the trimmed one.
struct RigaSorgente {
    RigaLetta Letta;
    Classe Quale = RigaAltra;
};

/// On channel 1, which nothing else reads meanwhile. Each statement runs under the engines' handler.
class RigheSorgente {
  public:
    explicit RigheSorgente(Stato& s) : s_(s) {}

    /// `EOF(1)`. Riga is let go of where the channel may move what it has read.
    bool Finita() {
        if (date_ < quante_) return false;
        s_.Riga = {};
        return Istruzione(s_, [&] { return s_.Canale.Eof(1); });
    }
    /// `Line Input #1`: the next line; it holds until the next call. One that was given up is empty.
    const RigaSorgente& Prossima() {
        if (date_ == quante_) Leggi();
        return righe_[date_++];
    }

    /// Those of the next lines that are read already and lie in the memory of the channel, where Fetta bytes
    /// from any place of theirs on can be looked at. They hold until Finita or Prossima reads on. `Salta`
    /// passes over the first of them.
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

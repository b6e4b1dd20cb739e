// SPDX-License-Identifier: MIT
// lettore/ago.h
//
// A text to find in a listing. The search is for the text as it is shown: case is folded, and a
// connector is its drawn character, not the letter that has the same byte in Windows-1252.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "listing/decodifica.h"

namespace morvella::lettore {

class Ago {
  public:
    Ago() = default;
    explicit Ago(std::u16string_view testo);

    bool Vuoto() const noexcept { return segni_.empty(); }
    Lungo Lunghezza() const noexcept { return static_cast<Lungo>(segni_.size()); }
    /// Whether it holds a character that no listing ever shows.
    bool Introvabile() const noexcept { return assente_; }
    /// Whether equal bytes are not yet a match: then ask Qui.
    bool Ambiguo() const noexcept { return ambiguo_; }
    /// Its bytes, folded: one for each character.
    const Testo& Bytes() const noexcept { return bytes_; }

    /// The first match in a line, taken apart in `fette`, that begins at or after byte `da` and
    /// ends at or before `fine`; -1 for none.
    Lungo In(Vista riga, const std::vector<Porzione>& fette, Lungo da, Lungo fine) const;
    /// Whether bytes that match at `da` are also shown as the text.
    bool Qui(Vista riga, const std::vector<Porzione>& fette, std::size_t da) const;

  private:
    std::u16string segni_; // folded
    Testo bytes_;
    bool ambiguo_ = false;
    bool assente_ = false;
};

/// Folds the case of Windows-1252 bytes, one by one; `piegati` is overwritten.
void Piega(Vista bytes, Testo& piegati);

} // namespace morvella::lettore

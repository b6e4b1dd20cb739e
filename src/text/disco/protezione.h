// SPDX-License-Identifier: MIT
// text/disco/protezione.h
//
// The files that no operation may change, known by identity: whatever path or link leads to one.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "text/disco/percorsi.h"

namespace morvella {

class Protezione {
  public:
    Protezione(Disco& disco, Percorsi& percorsi) : disco_(disco), percorsi_(percorsi) {}

    /// Replaces the list; paths that lead to no plain file are passed over. Raises, with
    /// the path, what keeps one from being looked at.
    void Proteggi(const std::vector<Testo>& percorsi);
    /// Whether the directories of the protected paths are as Proteggi saw them, so that the same list
    /// would come to the same files.
    bool Fresca() const;
    bool Contiene(const Identita& chi) const { return protetti_.contains(chi); }

  private:
    struct SpargiIdentita {
        std::size_t operator()(const Identita& chi) const noexcept {
            return std::hash<std::uint64_t>{}(chi.Numero * 31 + chi.Volume);
        }
    };

    void Raccogli(const std::vector<Testo>& percorsi, Percorsi::Viste* viste);

    Disco& disco_;
    Percorsi& percorsi_;
    std::unordered_set<Identita, SpargiIdentita> protetti_;
    std::unordered_map<std::string, std::int64_t> directory_; // with their last changes
};

} // namespace morvella

// SPDX-License-Identifier: MIT
// text/disco/indice.h
//
// The names in each directory by their folded texts, so that a name in another case is found
// without reading the directory again. An index holds as long as the directory is unchanged; the
// file layer's own changes are entered, anyone else's invalidate it.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "text/disco/disco.h"
#include "text/testo.h"

namespace morvella {

class Indice {
  public:
    explicit Indice(Disco& disco) : disco_(disco) {}

    /// The disk's own spellings of `nome`, without regard to case, in byte order. `cosa` is what the
    /// disk says of the directory now. Null where the directory cannot be read; `errore` then says why,
    /// since a name that was not found may be there all the same.
    const std::vector<std::string>* Cerca(const std::string& directory, const Scheda& cosa, Vista nome,
                                          int& errore);

    /// A change that the file layer is about to make in a directory. Take it before the change, with
    /// what the disk said of the directory if it was asked just now; call Nato or Tolto after it.
    class Modifica {
      public:
        void Nato() { Annota(true); }
        void Tolto() { Annota(false); }

      private:
        friend class Indice;
        void Annota(bool nato);

        Indice* indice_ = nullptr; // null where there is no valid index to keep up
        std::string percorso_;
    };
    Modifica Prepara(const std::string& percorso, const std::optional<Scheda>& directory = std::nullopt);

  private:
    struct Elenco {
        std::optional<std::int64_t> Modificato; // empty until it has been read
        std::unordered_map<Testo, std::vector<std::string>> Nomi;
    };

    Disco& disco_;
    std::unordered_map<std::string, Elenco> elenchi_;
};

} // namespace morvella

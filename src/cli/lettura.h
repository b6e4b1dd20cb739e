// SPDX-License-Identifier: MIT
// cli/lettura.h
//
// Whole files, one after the other, in one buffer that only grows.
#pragma once

#include <string>
#include <string_view>

#include "text/disco/disco.h"

namespace morvella::cli {

class LetturaIntera {
  public:
    explicit LetturaIntera(Disco& disco) : disco_(disco) {}
    /// The bytes of a file given by its platform path, as many as the examination takes at most; they
    /// hold until the next call. Raises what the disk says, 53 where there is no file and 75 where it is
    /// no plain one.
    std::string_view Leggi(const std::string& percorso);

  private:
    Disco& disco_;
    std::string buffer_;
};

} // namespace morvella::cli

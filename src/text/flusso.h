// SPDX-License-Identifier: MIT
// text/flusso.h
//
// A text opened by the file system object: the only reader that is not a channel, for the option
// file alone. A line ends at CR LF and nothing else; bytes are bytes.
#pragma once

#include "text/disco/archivio.h"

namespace morvella {

class FlussoTesto {
  public:
    /// `OpenTextFile(percorso, 1, False, 0)`. Raises 53 without the file, 76 without its
    /// directory, 75 when it cannot be read. The whole text is read at once.
    FlussoTesto(Archivio& archivio, Vista percorso);

    /// True when no byte is left; at the start of an empty file too.
    bool AtEndOfStream() const noexcept { return letti_ == testo_.size(); }
    /// The next line without its end; a last line without an end is given whole. Raises 62 at
    /// the end. The result lives as long as this object.
    Vista ReadLine();

  private:
    Testo percorso_;
    Testo testo_;
    std::size_t letti_ = 0;
};

} // namespace morvella

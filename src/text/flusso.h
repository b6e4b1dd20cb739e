// SPDX-License-Identifier: MIT
// text/flusso.h
//
// A text opened by the file system object: the one way to read that is not a channel, used for
// the option file alone. A line ends at CR LF and at nothing else, and bytes are bytes.
#pragma once

#include "text/disco/archivio.h"

namespace morvella {

class FlussoTesto {
  public:
    /// `OpenTextFile(percorso, 1, False, 0)`. Raises 53 without the file, 76 without its
    /// directory, 75 when it cannot be read. The text is read at once.
    FlussoTesto(Archivio& archivio, Vista percorso);

    /// True when no byte is left, and at once for an empty file.
    bool AtEndOfStream() const noexcept { return letti_ == testo_.size(); }
    /// The next line without its end; a last line without an end is given whole. Raises 62 at
    /// the end. The result holds as long as this does.
    Vista ReadLine();

  private:
    Testo percorso_;
    Testo testo_;
    std::size_t letti_ = 0;
};

} // namespace morvella

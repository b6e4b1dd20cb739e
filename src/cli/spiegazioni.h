// SPDX-License-Identifier: MIT
// cli/spiegazioni.h
//
// The findings of the examination in words, in Italian and UTF-8.
#pragma once

#include <string>

#include "esame/rilievo.h"

namespace morvella::cli {

/// One sentence, without a full stop: what is wrong and, where it is known, with what.
std::string FraseDi(const esame::Rilievo& rilievo);

/// What a rule says of itself.
struct Spiegazione {
    const char* Breve;   // one line
    const char* Estesa;  // what it is
    const char* Rimedio; // how to mend it
};
const Spiegazione& SpiegazioneDi(esame::Tipo tipo) noexcept;

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
// cli/vicino.h
//
// Advice for a mistyped name.
#pragma once

#include <string>
#include <vector>

namespace morvella::cli {

/// The name that `scritto` was probably meant to be: the only one that begins with it, or the first of
/// those with the fewest typing errors, in any case of letters. "" when none is close; words of fewer than
/// three bytes are close to nothing.
std::string PiuVicino(const std::string& scritto, const std::vector<std::string>& nomi);

/// The same as the end of a message: " (forse «NAME»?)", or "".
std::string Forse(const std::string& scritto, const std::vector<std::string>& nomi);

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
// cli/letture.h
//
// The listing's own findings beside those of the examination. The listing judges a line by how it begins,
// so most of its findings are blocks that the language closes; what both readings find is worth a look
// first.
#pragma once

#include "cli/corsa.h"

namespace morvella::cli {

/// The findings of a run with --controlla. A finding of the listing is shared when the examination has one
/// in the same procedure, or on the same line where it is a line that ends the run. Reads the sources of
/// the rows with findings, and those of all rows that the command was for when a report is wanted.
DueLetture ConfrontaLetture(Corsa& c);

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
// scan/classifica.h
//
// Sorts a trimmed source line into one of 27 classes by how it begins. The rows are tried
// in order and the first that matches decides. What is done for a class is the engines'
// business. Nothing looks into strings, comments or continued lines: "EndDoc" counts as an
// end, and "x = 1: If y Then" as a plain statement.
#pragma once

#include "text/primitive.h"

namespace morvella {

enum Classe : unsigned char {
    RigaType,
    RigaSub,
    RigaFunction,
    RigaIf,
    RigaElse,
    RigaEndIf,
    RigaCondIf,
    RigaCondElse,
    RigaCondEndIf,
    RigaProperty,
    RigaEndProperty,
    RigaFor,
    RigaNext,
    RigaWith,
    RigaEndWith,
    RigaSelect,
    RigaCase,
    RigaEndSelect,
    RigaEndSub,
    RigaEndFunction,
    RigaEnd,
    RigaDo,
    RigaLoop,
    RigaExitDo,
    RigaExitFor,
    RigaExitSub,
    RigaAltra,
};
inline constexpr int NumeroClassi = RigaAltra + 1;

/// The class of a line already trimmed of blanks. Case is folded; a line indented with a TAB
/// begins with the TAB and is RigaAltra.
Classe ClassificaRiga(Vista riga) noexcept;

/// The two-digit block code that a class appends to StoriaBlocchi, "" for most.
Vista CodiceBlocco(Classe classe) noexcept;

} // namespace morvella

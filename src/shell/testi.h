// SPDX-License-Identifier: MIT
// shell/testi.h
//
// Fixed texts that more than one engine writes, and that the decoder recognises.
#pragma once

#include "text/primitive.h"

namespace morvella {

/// The contact address in banners, boxes and pages: 21 bytes, so that the lines that hold it
/// keep their width.
inline constexpr Vista IndirizzoContatto = "vorn@morvella.example";
static_assert(IndirizzoContatto.size() == 21);

/// The error line: written before the end of a procedure whose margin is not blank.
inline constexpr Vista ErroreGenerico = // sic
    "######  Errore generico - Manca uno o pi\xF9 elementi di chiusura ENDIF - Loop, Next ... ect";

} // namespace morvella

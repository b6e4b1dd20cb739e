// SPDX-License-Identifier: MIT
// esame/esame.h
//
// Examines a Visual Basic 5/6 source file and tells what the compiler would refuse about its
// blocks. Unlike the engines it reads the language as it is: strings, comments, continued lines,
// one-line Ifs, conditional compilation. It knows no files and keeps no state.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "esame/rilievo.h"

namespace morvella::esame {

struct Esame {
    std::vector<Rilievo> Rilievi; // by line, column and kind
    std::uint32_t Righe = 0;      // lines of the file; 0 if it is not a text
};

/// Examines the bytes of a .bas, .cls, .frm, .ctl... (Windows-1252), at most 4 GiB less one byte:
/// what comes after is not read. Takes time in proportion to the bytes. Never fails on any bytes.
Esame Esamina(std::string_view bytes);

} // namespace morvella::esame

// SPDX-License-Identifier: MIT
// text/codifica.h
//
// Between the system's bytes (Windows-1252) and Unicode: names on a disk, texts on a terminal.
// The five bytes that Windows-1252 leaves open (129, 141, 143, 144, 157) stand for the control
// characters of the same number, so every text survives the round trip.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace morvella {

/// Windows-1252 bytes to UTF-8. Every byte has a character; ASCII stays as it is.
std::string Utf8Da1252(std::string_view bytes);

/// UTF-8 to Windows-1252 bytes; nothing when `utf8` is not well-formed UTF-8 or holds a
/// character that Windows-1252 lacks.
std::optional<std::string> Bytes1252DaUtf8(std::string_view utf8);

/// The same with a "?" for each character that Windows-1252 lacks; nothing when `utf8` is not
/// well-formed.
std::optional<std::string> Bytes1252DaUtf8ConPunti(std::string_view utf8);

/// Windows-1252 to UTF-8 that is safe to show: control characters become their pictures, except TAB
/// and, with `righe`, LF. Control characters from 128 to 159 have no pictures and become U+FFFD.
std::string Mostrabile(std::string_view bytes, bool righe = false);
/// The same for a text in UTF-8.
std::string MostrabileUtf8(std::string_view utf8, bool righe = false);

/// Whether every byte is below 128.
bool SoloAscii(std::string_view bytes) noexcept;

} // namespace morvella

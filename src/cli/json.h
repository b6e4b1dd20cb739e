// SPDX-License-Identifier: MIT
// cli/json.h
//
// The few pieces that every JSON text of the program is put together from.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/primitive.h"

namespace morvella::cli {

/// A text of the system's (Windows-1252) as a JSON string in UTF-8, quotes included.
std::string Stringa(Vista bytes);
/// The same for UTF-8. What is none is taken for Windows-1252, so that the document stays UTF-8.
std::string StringaUtf8(const std::string& utf8);
/// `utf8` if it is well-formed, else its bytes read as Windows-1252.
std::string Utf8Valido(const std::string& utf8);
/// A JSON string, or null for "".
std::string StringaONull(Vista bytes);
/// A number, or null for 0.
std::string NumeroONull(std::uint64_t n);

/// An array with one element a line, indented by `rientro` blanks; `voce` gives the JSON of one.
template <class Voci, class F>
std::string Schiera(const Voci& voci, F&& voce, std::size_t rientro = 4) {
    std::string json = "[";
    for (const auto& v : voci) {
        if (json.size() > 1) json += ',';
        json += "\n" + std::string(rientro, ' ') + voce(v);
    }
    return json + (json.size() > 1 ? "\n" + std::string(rientro - 2, ' ') + "]" : "]");
}

} // namespace morvella::cli

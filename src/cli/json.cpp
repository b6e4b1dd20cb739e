// SPDX-License-Identifier: MIT
#include "cli/json.h"

#include <cstdio>

#include "text/codifica.h"

namespace morvella::cli {

namespace {

std::string Citata(const std::string& utf8) {
    std::string json = "\"";
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (byte < 0x20) {
            char numero[8];
            std::snprintf(numero, sizeof numero, "\\u%04x", byte);
            json += numero;
        } else {
            json += c;
        }
    }
    return json + '"';
}

} // namespace

std::string Stringa(Vista bytes) { return Citata(Utf8Da1252(bytes)); }

std::string Utf8Valido(const std::string& utf8) {
    return Bytes1252DaUtf8ConPunti(utf8) ? utf8 : Utf8Da1252(utf8);
}

std::string StringaUtf8(const std::string& utf8) { return Citata(Utf8Valido(utf8)); }

std::string StringaONull(Vista bytes) { return bytes.empty() ? "null" : Stringa(bytes); }

std::string NumeroONull(std::uint64_t n) { return n == 0 ? "null" : std::to_string(n); }

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
#include "text/codifica.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace morvella {

namespace {

// Bytes 128 to 159, the only ones whose number is not their code point.
constexpr std::array<char16_t, 32> Alti = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

void AccodaUtf8(std::string& uscita, unsigned punto) {
    if (punto < 0x80) {
        uscita += static_cast<char>(punto);
    } else if (punto < 0x800) {
        uscita += static_cast<char>(0xC0 | (punto >> 6));
        uscita += static_cast<char>(0x80 | (punto & 0x3F));
    } else {
        uscita += static_cast<char>(0xE0 | (punto >> 12));
        uscita += static_cast<char>(0x80 | ((punto >> 6) & 0x3F));
        uscita += static_cast<char>(0x80 | (punto & 0x3F));
    }
}

// One character of well-formed UTF-8 from the front of `resto`; false when there is none.
bool PrendiPunto(std::string_view& resto, unsigned& punto) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(resto[i]); };
    const unsigned primo = byte(0);
    const std::size_t lunghezza = primo < 0x80                    ? 1
                                  : primo >= 0xC2 && primo < 0xE0 ? 2
                                  : primo >= 0xE0 && primo < 0xF0 ? 3
                                  : primo >= 0xF0 && primo < 0xF5 ? 4
                                                                  : 0;
    if (lunghezza == 0 || resto.size() < lunghezza) return false;
    punto = lunghezza == 1 ? primo : primo & (0x7Fu >> lunghezza);
    for (std::size_t i = 1; i < lunghezza; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return false;
        punto = (punto << 6) | (byte(i) & 0x3F);
    }
    const bool troppoLungo = (lunghezza == 3 && punto < 0x800) || (lunghezza == 4 && punto < 0x10000);
    if (troppoLungo || punto > 0x10FFFF || (punto >= 0xD800 && punto < 0xE000)) return false;
    resto.remove_prefix(lunghezza);
    return true;
}

// With `punti` a character that Windows-1252 does not have becomes a "?"; otherwise the result is nullopt.
std::optional<std::string> In1252(std::string_view utf8, bool punti) {
    if (SoloAscii(utf8)) return std::string(utf8);
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty()) {
        unsigned punto = 0;
        if (!PrendiPunto(utf8, punto)) return std::nullopt;
        const auto* alto = std::find(Alti.begin(), Alti.end(), punto);
        if (alto != Alti.end())
            bytes += static_cast<char>(128 + (alto - Alti.begin()));
        else if (punto < 0x80 || (punto >= 0xA0 && punto < 0x100))
            bytes += static_cast<char>(punto);
        else if (punti)
            bytes += '?';
        else
            return std::nullopt;
    }
    return bytes;
}

} // namespace

std::string Utf8Da1252(std::string_view bytes) {
    if (SoloAscii(bytes)) return std::string(bytes);
    std::string uscita;
    uscita.reserve(2 * bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        AccodaUtf8(uscita, byte >= 128 && byte < 160 ? Alti[byte - 128u] : byte);
    }
    return uscita;
}

std::optional<std::string> Bytes1252DaUtf8(std::string_view utf8) { return In1252(utf8, false); }

std::optional<std::string> Bytes1252DaUtf8ConPunti(std::string_view utf8) { return In1252(utf8, true); }

std::string MostrabileUtf8(std::string_view utf8, bool righe) {
    std::string testo;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const char c = utf8[i];
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 && c != '\t' && !(righe && c == '\n')) {
            testo += "\xE2\x90"; // U+2400 and on: the pictures of the control characters
            testo += static_cast<char>(0x80 + byte);
        } else if (byte == 127) {
            testo += "\xE2\x90\xA1";
        } else if (byte == 0xC2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0) {
            testo += "\xEF\xBF\xBD"; // the second set of control characters has no pictures
            ++i;
        } else {
            testo += c;
        }
    }
    return testo;
}

std::string Mostrabile(std::string_view bytes, bool righe) {
    return MostrabileUtf8(Utf8Da1252(bytes), righe);
}

bool SoloAscii(std::string_view bytes) noexcept {
    std::size_t i = 0;
    std::uint64_t alti = 0;
    for (; i + 8 <= bytes.size(); i += 8) {
        std::uint64_t otto = 0;
        std::memcpy(&otto, bytes.data() + i, 8);
        alti |= otto;
    }
    for (; i < bytes.size(); ++i) alti |= static_cast<unsigned char>(bytes[i]);
    return (alti & 0x8080808080808080U) == 0;
}

} // namespace morvella

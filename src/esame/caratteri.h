// SPDX-License-Identifier: MIT
// esame/caratteri.h
//
// The classes of bytes, Windows-1252. Every byte from 0x80 on is a letter, but for the
// no-break blank.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace morvella::esame {

enum ClasseByte : std::uint8_t {
    ByteBianco = 1,
    ByteLettera = 2,
    ByteCifra = 4,
    ByteNome = 8,     // letter, digit or underscore
    ByteSegno = 16,   // type sign that always belongs to the name before it
    ByteSpeciale = 32 // ends the fast walk over a statement
};

inline constexpr std::array<std::uint8_t, 256> ClassiByte = [] {
    std::array<std::uint8_t, 256> classi{};
    for (const char c : std::string_view(" \t\r\v\f\x19\x1A\xA0"))
        classi[static_cast<std::uint8_t>(c)] = ByteBianco;
    for (unsigned c = 0x80; c < 0x100; ++c)
        if (c != 0xA0) classi[c] = ByteLettera | ByteNome;
    for (unsigned c = 'A'; c <= 'Z'; ++c) classi[c] = classi[c + 32] = ByteLettera | ByteNome;
    for (unsigned c = '0'; c <= '9'; ++c) classi[c] = ByteCifra | ByteNome;
    classi['_'] = ByteNome;
    for (const char c : std::string_view("%@$&#")) classi[static_cast<std::uint8_t>(c)] |= ByteSegno;
    for (const char c : std::string_view("\"':#[")) classi[static_cast<std::uint8_t>(c)] |= ByteSpeciale;
    return classi;
}();

constexpr bool Di(char c, unsigned classe) noexcept {
    return (ClassiByte[static_cast<std::uint8_t>(c)] & classe) != 0;
}
constexpr bool Bianco(char c) noexcept { return Di(c, ByteBianco); }
constexpr bool Lettera(char c) noexcept { return Di(c, ByteLettera); }
constexpr bool Cifra(char c) noexcept { return Di(c, ByteCifra); }
constexpr bool DiNome(char c) noexcept { return Di(c, ByteNome); }

} // namespace morvella::esame

// SPDX-License-Identifier: MIT
#include "text/testo.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>

namespace morvella {

namespace {

using Tavola = std::array<unsigned char, 256>;

constexpr unsigned char Minuscola(unsigned c) {
    if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c + 32);
    if (c >= 192 && c <= 222 && c != 215) return static_cast<unsigned char>(c + 32); // 215 is a sign
    if (c == 138 || c == 140 || c == 142) return static_cast<unsigned char>(c + 16);
    if (c == 159) return 255;
    return static_cast<unsigned char>(c);
}

constexpr Tavola TavolaMinuscole = [] {
    Tavola t{};
    for (unsigned c = 0; c < 256; ++c) t[c] = Minuscola(c);
    return t;
}();

constexpr Tavola TavolaMaiuscole = [] {
    Tavola t{};
    for (unsigned c = 0; c < 256; ++c) t[c] = static_cast<unsigned char>(c);
    for (unsigned c = 0; c < 256; ++c)
        if (Minuscola(c) != c) t[Minuscola(c)] = static_cast<unsigned char>(c);
    return t;
}();

Testo Piega(Vista s, const Tavola& tavola) {
    Testo piegato(s);
    for (char& c : piegato) c = static_cast<char>(tavola[static_cast<unsigned char>(c)]);
    return piegato;
}

} // namespace

Lungo InStr(Lungo inizio, Vista pagliaio, Vista ago) {
    if (inizio < 1) throw Errore(ErrArgomento);
    const std::size_t trovato = pagliaio.find(ago, static_cast<std::size_t>(inizio - 1));
    return trovato == Vista::npos ? 0 : static_cast<Lungo>(trovato) + 1;
}

Testo Space(Lungo n) {
    if (n < 0) throw Errore(ErrArgomento);
    return Testo(static_cast<std::size_t>(n), ' ');
}

Testo Chr(int n) {
    if (n < 0 || n > 255) throw Errore(ErrArgomento);
    return Testo(1, static_cast<char>(n));
}

Testo CStr(long long n) { return std::to_string(n); }

double Val(Vista s) {
    // Digits with a sign and one point, as far as they go: no exponent, no base prefix.
    Testo cifre;
    bool punto = false;
    for (const char c : s) {
        if (c == ' ') continue; // blanks are skipped, between digits too
        const bool segno = cifre.empty() && (c == '-' || c == '+');
        if (!segno && !(c == '.' && !punto) && !(c >= '0' && c <= '9')) break;
        punto = punto || c == '.';
        cifre += c;
    }
    double intero = 0;
    double peso = 0;
    for (const char c : cifre) {
        if (c == '.')
            peso = 1;
        else if (c >= '0' && c <= '9' && peso == 0)
            intero = intero * 10 + (c - '0');
        else if (c >= '0' && c <= '9')
            intero += (c - '0') * (peso /= 10);
    }
    return !cifre.empty() && cifre.front() == '-' ? -intero : intero;
}

unsigned char MinuscolaByte(unsigned char c) noexcept { return TavolaMinuscole[c]; }
unsigned char MaiuscolaByte(unsigned char c) noexcept { return TavolaMaiuscole[c]; }

Testo LCase(Vista s) { return Piega(s, TavolaMinuscole); }
Testo UCase(Vista s) { return Piega(s, TavolaMaiuscole); }

} // namespace morvella

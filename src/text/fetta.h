// SPDX-License-Identifier: MIT
// text/fetta.h
//
// Searches a slice, 64 bytes of memory at once, and marks the bytes found: one bit each, the first
// byte's bit the lowest. For speed alone: SSE2 where the processor has it (namespace largo), else
// the same in words of eight bytes (namespace semplice).
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define MORVELLA_SSE2 1
#endif

namespace morvella {

inline constexpr std::size_t Fetta = 64;
using Segni = std::uint64_t;

/// The place, from 0, of the first mark; `Fetta` when there is none.
inline std::size_t PrimoSegno(Segni segni) noexcept {
    return static_cast<std::size_t>(std::countr_zero(segni));
}

namespace semplice {

inline constexpr std::uint64_t Uni = 0x0101010101010101U;

// Marks the zero bytes of each word: bit 128 of `zero` is set where all eight bits of a byte are 0.
template <std::size_t N, class F>
Segni DoveZero(const char* p, F&& prepara) noexcept {
    Segni segni = 0;
    for (std::size_t i = 0; i < N; i += 8) {
        std::uint64_t otto = 0;
        if constexpr (std::endian::native == std::endian::little)
            std::memcpy(&otto, p + i, 8);
        else
            for (std::size_t j = 8; j-- > 0;) otto = otto << 8 | static_cast<unsigned char>(p[i + j]);
        const std::uint64_t y = prepara(otto);
        const std::uint64_t zero = ~((y & Uni * 127) + Uni * 127) & ~y & Uni * 128;
        segni |= ((zero >> 7) * 0x0102040810204080U >> 56) << i;
    }
    return segni;
}

template <std::size_t N = Fetta>
Segni DoveByte(const char* p, char c) noexcept {
    return DoveZero<N>(p, [c](std::uint64_t otto) { return otto ^ Uni * static_cast<unsigned char>(c); });
}

inline Segni DoveDue(const char* p, char a, char b) noexcept { return DoveByte(p, a) & DoveByte(p + 1, b); }

inline Segni DoveParola(const char* p, char prima, char quarta, char altra) noexcept {
    const auto lettera = [](const char* q, char c) {
        return DoveZero<Fetta>(
            q, [c](std::uint64_t otto) { return (otto | Uni * 32) ^ Uni * static_cast<unsigned char>(c); });
    };
    return lettera(p, prima) & (lettera(p + 3, quarta) | lettera(p + 3, altra));
}

class Contatore {
  public:
    explicit Contatore(char c) noexcept : c_(c) {}
    void Aggiungi(const char* p) noexcept {
        quanti_ += static_cast<std::size_t>(std::popcount(DoveByte(p, c_)));
    }
    void AggiungiPrimi(const char* p, std::size_t n) noexcept {
        quanti_ += static_cast<std::size_t>(std::popcount(DoveByte(p, c_) & ((Segni{1} << n) - 1)));
    }
    std::size_t Quanti() const noexcept { return quanti_; }

  private:
    char c_;
    std::size_t quanti_ = 0;
};

} // namespace semplice

#ifdef MORVELLA_SSE2

namespace largo {

inline __m128i Sedici(const char* p) noexcept { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }

inline __m128i Uguali(__m128i sedici, char c) noexcept { return _mm_cmpeq_epi8(sedici, _mm_set1_epi8(c)); }

// Marks the bytes that `prova`, given sixteen, turns into 255; it turns the others into 0.
template <std::size_t N, class F>
Segni Dove(const char* p, F&& prova) noexcept {
    Segni segni = 0;
    for (std::size_t i = 0; i < N; i += 16)
        segni |= static_cast<Segni>(static_cast<unsigned>(_mm_movemask_epi8(prova(p + i)))) << i;
    return segni;
}

// The same where most slices have none.
template <class F>
Segni DoveRaro(const char* p, F&& prova) noexcept {
    const __m128i prove[] = {prova(p), prova(p + 16), prova(p + 32), prova(p + 48)};
    const __m128i una = _mm_or_si128(_mm_or_si128(prove[0], prove[1]), _mm_or_si128(prove[2], prove[3]));
    return _mm_movemask_epi8(una) == 0 ? 0 : Dove<Fetta>(p, prova);
}

template <std::size_t N = Fetta>
Segni DoveByte(const char* p, char c) noexcept {
    return Dove<N>(p, [c](const char* q) { return Uguali(Sedici(q), c); });
}

inline Segni DoveDue(const char* p, char a, char b) noexcept {
    return DoveRaro(
        p, [a, b](const char* q) { return _mm_and_si128(Uguali(Sedici(q), a), Uguali(Sedici(q + 1), b)); });
}

inline Segni DoveParola(const char* p, char prima, char quarta, char altra) noexcept {
    const auto minuscole = [](const char* q) { return _mm_or_si128(Sedici(q), _mm_set1_epi8(32)); };
    return DoveRaro(p, [=](const char* q) {
        const __m128i quarte = minuscole(q + 3);
        return _mm_and_si128(Uguali(minuscole(q), prima),
                             _mm_or_si128(Uguali(quarte, quarta), Uguali(quarte, altra)));
    });
}

class Contatore {
  public:
    explicit Contatore(char c) noexcept : c_(c) {}
    void Aggiungi(const char* p) noexcept {
        for (std::size_t i = 0; i < Fetta; i += 16)
            colonne_ = _mm_sub_epi8(colonne_, Uguali(Sedici(p + i), c_)); // 255 is -1
        if (++fette_ == 255 / 4) Somma();
    }
    void AggiungiPrimi(const char* p, std::size_t n) noexcept {
        quanti_ += static_cast<std::size_t>(std::popcount(DoveByte(p, c_) & ((Segni{1} << n) - 1)));
    }
    std::size_t Quanti() noexcept {
        Somma();
        return quanti_;
    }

  private:
    // Each byte lane counts up to 255.
    void Somma() noexcept {
        const __m128i somme = _mm_sad_epu8(colonne_, _mm_setzero_si128());
        quanti_ += static_cast<std::size_t>(_mm_cvtsi128_si32(somme) + _mm_extract_epi16(somme, 4));
        colonne_ = _mm_setzero_si128();
        fette_ = 0;
    }

    char c_;
    int fette_ = 0;
    std::size_t quanti_ = 0;
    __m128i colonne_ = _mm_setzero_si128();
};

} // namespace largo

namespace fetta = largo;
#else
namespace fetta = semplice;
#endif

/// Where the byte `c` stands in the slice at `p`; with N in its first N bytes.
using fetta::DoveByte;
/// Where `a` is followed by `b`; reads one byte past the slice.
using fetta::DoveDue;
/// Where the letter `prima` has `quarta` or `altra` three places after it, in any case; all are a to z.
/// Reads three bytes past the slice.
using fetta::DoveParola;
/// Counts a byte over slices; `AggiungiPrimi` takes only the first `n` bytes of one, `n` below Fetta.
using fetta::Contatore;

} // namespace morvella

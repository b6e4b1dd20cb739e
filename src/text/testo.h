// SPDX-License-Identifier: MIT
// text/testo.h
//
// The text operations that all rules of the system are written in. A text is a counted sequence
// of Windows-1252 bytes and can hold any byte; positions start at 1. Comparison is binary: to
// ignore case, fold first. Nothing here knows UTF-8 (text/codifica.h does, at the edges) or uses
// the locale.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "text/errore.h"

namespace morvella {

using Testo = std::string;
using Vista = std::string_view;

/// Text written on every line; padded so that one fixed-size memcpy copies it.
class TestoLargo {
  public:
    static constexpr std::size_t Passo = 32;

    TestoLargo() : memoria_(2 * Passo, '\0') {}
    TestoLargo& operator=(Vista testo) {
        FaiPosto(testo.size());
        memoria_.replace(0, testo.size(), testo);
        misura_ = testo.size();
        return *this;
    }
    operator Vista() const noexcept { return {memoria_.data(), misura_}; }
    bool operator==(Vista testo) const noexcept { return Vista(*this) == testo; }

    const char* data() const noexcept { return memoria_.data(); }
    char* data() noexcept { return memoria_.data(); }
    std::size_t size() const noexcept { return misura_; }
    void clear() noexcept { misura_ = 0; }
    void resize(std::size_t quanti, char c) {
        FaiPosto(quanti);
        for (; misura_ < quanti; ++misura_) memoria_[misura_] = c;
        misura_ = quanti;
    }
    void assign(std::size_t quanti, char c) {
        clear();
        resize(quanti, c);
    }
    void append(const char* da, std::size_t quanti) {
        FaiPosto(misura_ + quanti);
        std::memcpy(memoria_.data() + misura_, da, quanti);
        misura_ += quanti;
    }
    /// The place after the text, with room for `quanti` bytes and Passo more, for callers that write
    /// there themselves; `Fino` then sets the end.
    char* Coda(std::size_t quanti) {
        FaiPosto(misura_ + quanti);
        return memoria_.data() + misura_;
    }
    void Fino(const char* fine) noexcept { misura_ = static_cast<std::size_t>(fine - memoria_.data()); }
    /// Appends the first `quanti` of two bytes; copies both, whatever `quanti` is.
    void AggiungiDue(const char* da, std::size_t quanti) {
        FaiPosto(misura_ + 2);
        std::memcpy(memoria_.data() + misura_, da, 2);
        misura_ += quanti;
    }

  private:
    void FaiPosto(std::size_t quanti) {
        if (memoria_.size() < quanti + Passo) memoria_.resize(2 * quanti + Passo);
    }

    Testo memoria_; // the text, then Passo bytes of padding
    std::size_t misura_ = 0;
};

/// A length or a position: signed, since some rules compute a negative one and mean its error.
using Lungo = std::ptrdiff_t;

inline Lungo Len(Vista s) noexcept { return static_cast<Lungo>(s.size()); }

/// The bytes of `s` from position `inizio` (from 1), at most `n`; "" past the end.
/// Raises 5 when `inizio` is below 1 or `n` below 0. The result is a view into `s`.
inline Vista Mid(Vista s, Lungo inizio, Lungo n) {
    if (inizio < 1 || n < 0) throw Errore(ErrArgomento);
    if (inizio > Len(s)) return {};
    return s.substr(static_cast<std::size_t>(inizio - 1), static_cast<std::size_t>(n));
}

/// `Mid(s, 1, n)`; raises 5 when `n` is below 0.
inline Vista Left(Vista s, Lungo n) { return Mid(s, 1, n); }

/// The last `n` bytes of `s`, all of it when it is shorter; raises 5 when `n` is below 0.
inline Vista Right(Vista s, Lungo n) {
    if (n < 0) throw Errore(ErrArgomento);
    return n >= Len(s) ? s : s.substr(s.size() - static_cast<std::size_t>(n));
}

/// How many blanks `s` begins with. Eight at a time: most lines are indented.
inline std::size_t BlanksDavanti(Vista s) noexcept {
    std::size_t n = 0;
    if constexpr (std::endian::native == std::endian::little) {
        for (; n + 8 <= s.size(); n += 8) {
            std::uint64_t otto = 0;
            std::memcpy(&otto, s.data() + n, 8);
            otto ^= 0x2020202020202020U;
            if (otto != 0) return n + static_cast<std::size_t>(std::countr_zero(otto)) / 8;
        }
    }
    while (n < s.size() && s[n] == ' ') ++n;
    return n;
}

inline Vista TrimDietro(Vista s) noexcept {
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

/// `s` without the blanks (byte 32) at both ends. TAB, CR, LF and byte 160 stay, so a line indented
/// with a TAB fails its keyword tests: meant.
inline Vista Trim(Vista s) noexcept {
    s.remove_prefix(BlanksDavanti(s));
    return TrimDietro(s);
}

/// Position (from 1) of the first `ago` in `pagliaio` at or after `inizio`, 0 when there is
/// none. Binary. Raises 5 when `inizio` is below 1.
Lungo InStr(Lungo inizio, Vista pagliaio, Vista ago);

/// `n` blanks; raises 5 when `n` is below 0.
Testo Space(Lungo n);

/// The single byte `n` (0 to 255); raises 5 for any other number.
Testo Chr(int n);

/// Decimal digits, a minus sign when negative, no leading blank.
Testo CStr(long long n);

/// The decimal number at the start of `s`, after any blanks, 0 when there is none.
double Val(Vista s);

/// One byte folded by Windows-1252: A to Z, the accented letters at and above 192 without
/// the multiplication and division signs, and the pairs 138/154, 140/156, 142/158, 159/255.
unsigned char MinuscolaByte(unsigned char c) noexcept;
unsigned char MaiuscolaByte(unsigned char c) noexcept;

Testo LCase(Vista s);
Testo UCase(Vista s);

/// Whether `LCase(Mid(s, 1, Len(prefisso))) = prefisso`, without building a text.
/// `prefisso` is ASCII in lower case; a shorter `s` simply does not match.
inline bool IniziaPer(Vista s, Vista prefisso) noexcept {
    if (s.size() < prefisso.size()) return false;
    for (std::size_t i = 0; i < prefisso.size(); ++i) {
        const char c = s[i];
        const char minuscola = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        if (minuscola != prefisso[i]) return false;
    }
    return true;
}

} // namespace morvella

// SPDX-License-Identifier: MIT
// esame/scanner.h
//
// The bytes of a source file as physical lines, logical lines and tokens. The scanner knows
// nothing of statements: that "Rem" begins a comment is for its caller to say, who knows
// where a statement begins. It keeps no list and allocates nothing.
//
// There are two ways over the rest of a statement. Leggi() gives token after token; Salta()
// passes over all of them and looks only at the bytes that may hide a colon or a line end.
// Both agree about where the statement ends.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "esame/caratteri.h"
#include "esame/parole.h"

namespace morvella::esame {

enum class TipoGettone : std::uint8_t {
    FineLogica, // the end of the logical line; it is given again until ApriLogica
    Nome,       // type sign included
    NomeChiuso, // [a name in brackets]
    Numero,     // sign included
    Stringa,
    Data,     // #1/2/2000#
    DuePunti, // a colon that separates statements
    Assegna,  // :=
    Commento, // from ' on; it ends the logical line
    Altro,    // one byte
};

/// A token. It never goes over a line end, so riga and colonna of its first byte tell where it lies.
struct Gettone {
    TipoGettone Tipo = TipoGettone::FineLogica;
    bool Segno = false;       // of a name: a type sign follows, so that it is no keyword
    std::uint32_t Inizio = 0; // offset in the bytes
    std::uint32_t Lungo = 0;
    std::uint32_t Riga = 0;    // from 1
    std::uint32_t Colonna = 0; // from 1, in bytes

    bool E(char c, std::string_view bytes) const noexcept {
        return Tipo == TipoGettone::Altro && bytes[Inizio] == c;
    }
};

class Scanner {
  public:
    /// `bytes` must outlive the scanner and be shorter than 4 GiB. Scanning begins at the offset
    /// `inizio`, the first byte of line `riga`; a UTF-8 mark at offset 0 is passed over.
    explicit Scanner(std::string_view bytes, std::size_t inizio = 0, std::uint32_t riga = 1) noexcept;

    /// Goes on to the next logical line, over what is left of this one. False at the end of file.
    bool ApriLogica() noexcept;
    /// Skips blanks and continuations. False at the end of the logical line.
    bool Avanza() noexcept {
        if (p_ < fine_ && !finita_) [[likely]] {
            if (*p_ == ' ' && p_ + 1 < fine_) ++p_;
            if (Di(*p_, ByteLettera)) return true;
        }
        return AvanzaOltre();
    }
    /// The next token of the logical line.
    Gettone Leggi() noexcept;
    /// The token that Leggi would give, if it is a name; called after Avanza. Does not move.
    Gettone GuardaNome() const noexcept;
    /// Moves to just after `gettone`, which lies on the current physical line.
    void Oltre(const Gettone& gettone) noexcept { p_ = base_ + gettone.Inizio + gettone.Lungo; }

    /// Goes on to the colon that ends the statement and over it: true; or to the end of the
    /// logical line: false. Called at the beginning of a token.
    bool Salta() noexcept;
    /// Takes what is left of the physical line for a comment and goes to the end of the logical
    /// line, which a comment that ends in " _" continues.
    void SaltaCommento() noexcept;
    /// Goes to the end of the logical line.
    void SaltaLogica() noexcept {
        while (Salta()) {
        }
    }

    /// The next byte; only after Avanza said true.
    char Byte() const noexcept { return *p_; }
    /// The byte after it; a line end if there is none on this line.
    char Seguente() const noexcept { return p_ + 1 < fine_ ? p_[1] : '\n'; }
    void Passo() noexcept { ++p_; }

    std::string_view Bytes() const noexcept { return {base_, static_cast<std::size_t>(termine_ - base_)}; }
    std::string_view Testo(const Gettone& g) const noexcept { return {base_ + g.Inizio, g.Lungo}; }
    /// Back to the beginning of `gettone`, which was the last one read and no FineLogica or Commento.
    void Torna(const Gettone& gettone) noexcept { p_ = base_ + gettone.Inizio; }
    /// ParolaDi for those who look for words of four letters alone: Then, Else, GoTo, Case.
    Parola QuattroDi(const Gettone& g) const noexcept { return g.Lungo == 4 ? ParolaDi(g) : Parola::Nessuna; }
    Parola ParolaDi(const Gettone& g) const noexcept {
        return g.Tipo == TipoGettone::Nome && !g.Segno ? CercaParola(Testo(g)) : Parola::Nessuna;
    }
    std::uint32_t Posizione() const noexcept { return static_cast<std::uint32_t>(p_ - base_); }
    /// The physical line that is being read; after the last one, the number of lines.
    std::uint32_t Riga() const noexcept { return riga_; }
    std::uint32_t InizioRiga() const noexcept { return static_cast<std::uint32_t>(inizioRiga_ - base_); }
    std::uint32_t Colonna() const noexcept { return static_cast<std::uint32_t>(p_ - inizioRiga_) + 1; }

  private:
    bool AvanzaOltre() noexcept;
    bool ApriFisica() noexcept;
    bool NumeroInAltraBase() const noexcept;
    bool SaltaGettoni() noexcept;
    Gettone Fatto(TipoGettone tipo, const char* da, const char* a, bool segno = false) const noexcept;
    const char* FineNome(const char* p, bool& segno) const noexcept;
    const char* FineNumero(const char* p) const noexcept;
    const char* FineStringa(const char* p) const noexcept;
    const char* FineData(const char* p) const noexcept;
    const char* FineParentesi(const char* p) noexcept;
    const char* Segno(const char* p) const noexcept;

    const char* base_;
    const char* termine_;  // end of the bytes
    const char* prossima_; // first byte of the next physical line
    const char* inizioRiga_;
    const char* p_;
    const char* fine_;                     // end of the physical line, blanks trimmed
    const char* senzaParentesi_ = nullptr; // up to here there is no closing bracket
    std::uint32_t riga_;
    bool finita_ = true; // nothing of the logical line is left, whatever stands before fine_
};

} // namespace morvella::esame

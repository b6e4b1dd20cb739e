// SPDX-License-Identifier: MIT
// formato/formato.h
//
// Lays out a Visual Basic 5/6 source file: bytes in, bytes out. Only the blanks and tabs that
// begin a line change, with SenzaCode those that end it too. The layout follows from the
// statements alone, never from the indentation that was there, so that a second run changes
// nothing and a disarranged file comes out like the tidy one.
//
// What would surprise: a logical line moves as a whole, since how a person arranged its continued
// lines is worth keeping. A line number is a label: both stand at the margin or with the code, and
// what stands between the number and its statement is text. Tabs of the source count up to the
// next multiple of 4, with Tab up to the next multiple of Passo.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace morvella::formato {

struct Opzioni {
    unsigned Passo = 4;              // blanks a level, from 1 to PassoMassimo
    bool Tab = false;                // a tab a level, which counts for Passo blanks
    unsigned Case = 1;               // levels that Case stands inside its Select: 0 or 1
    bool EtichetteNelCodice = false; // labels and line numbers with the code, not at the margin
    bool DirettiveAlMargine = false; // #If and the like at the margin, not with the code
    bool SenzaCode = false;          // blanks and tabs that end a line go
};
inline constexpr unsigned PassoMassimo = 16;

/// The file laid out. Heads of forms and Attribute lines stay as they are. For a file in which the
/// examination (esame/) finds nothing; any other bytes give bytes, but nobody would want them. Takes
/// time in proportion to the bytes. A file of 4 GiB or more is given back as it is.
std::string Formatta(std::string_view bytes, const Opzioni& opzioni);

/// What makes a copy unlike its source.
struct Diversita {
    std::uint32_t Riga = 0;    // from 1; one more than the lines where a side ends too early
    std::string_view Sorgente; // the line on each side, its end included
    std::string_view Copia;
};

/// Holds a copy against its source, line by line: leading blanks and tabs aside, with `senzaCode`
/// the trailing ones too, all bytes are the same, line ends included. Nothing when it is so.
std::optional<Diversita> Confronta(std::string_view sorgente, std::string_view copia, bool senzaCode);

/// How many lines differ. Both have the same number of lines.
std::uint32_t RigheCambiate(std::string_view sorgente, std::string_view copia);

/// A unified diff with three lines of context; "" when nothing differs. Both have the same number of
/// lines, and line stands against line.
std::string Differenze(std::string_view sorgente, std::string_view copia, std::string_view nomeSorgente,
                       std::string_view nomeCopia);

} // namespace morvella::formato

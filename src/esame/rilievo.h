// SPDX-License-Identifier: MIT
// esame/rilievo.h
//
// What the examination of a source file finds: one record a finding, one row a kind of
// finding. Texts of the records are those of the language ("End If"); sentences for people
// are made elsewhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvella::esame {

/// The kinds of findings, in the order in which findings at one place are sorted.
enum class Tipo : std::uint8_t {
    Aperto,        // opened and never closed
    SenzaApertura, // closes what is not open
    Scambiato,     // closes something of another kind
    FuoriPosto,    // a middle or a head where none may stand
    PrimaDiCase,   // a statement between Select Case and its first Case
    NonTerminato,  // a head whose end is missing
    NonTesto,      // not a text at all
};

/// Blocks, procedures and the levels of the head of a form.
enum class Blocco : std::uint8_t {
    If,
    For,
    Do,
    While,
    Select,
    With,
    Sub,
    Function,
    Property,
    Type,
    Enum,
    CondIf, // #If
    Begin,
    BeginProperty,
    Nessuno,
};
constexpr bool Procedura(Blocco b) noexcept { return b >= Blocco::Sub && b <= Blocco::Enum; }

/// "If", "#If", "BeginProperty"...; "" for Nessuno.
std::string_view NomeBlocco(Blocco blocco) noexcept;
/// What closes the block: "End If", "Next", "#End If", "EndProperty"...; "" for Nessuno.
std::string_view Chiusura(Blocco blocco) noexcept;

/// A row of the table of rules. Ids never change their meaning.
struct Regola {
    Tipo Quale;
    std::string_view Id;   // "MV001"
    std::string_view Nome; // "aperto"
};
/// All rules, in the order of Tipo.
std::span<const Regola> Regole() noexcept;
const Regola& RegolaDi(Tipo tipo) noexcept;

/// One finding. Lines and columns count from 1, columns in bytes.
struct Rilievo {
    Tipo Quale = Tipo::Aperto;
    Blocco Cosa = Blocco::Nessuno; // Nessuno for NonTesto alone
    std::uint32_t Riga = 0;
    std::uint32_t Colonna = 0;
    std::uint32_t Nota = 0;     // the line where it was noticed
    std::uint32_t Apertura = 0; // the line of the opener; 0: none, or not known
    std::string_view Atteso;    // what should have come, "" where nothing can be named
    std::string_view Trovato;   // what came instead, "" where nothing can be named
    /// Procedure, Type or Enum it lies in, as its head writes the name (Windows-1252).
    std::optional<std::string> Procedura;

    bool operator==(const Rilievo&) const = default;
};

} // namespace morvella::esame

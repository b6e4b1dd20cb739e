// SPDX-License-Identifier: MIT
// esame/parole.h
//
// The words of the language that the examination looks at. A word is looked up only where
// a statement begins and at the few places inside one that matter, never for each name.
#pragma once

#include <cstdint>
#include <string_view>

namespace morvella::esame {

enum class Parola : std::uint8_t {
    Nessuna,
    As,
    Attribute,
    Case,
    Const,
    Declare,
    Dim,
    Do,
    Else,
    ElseIf,
    End,
    EndIf,
    Enum,
    Event,
    Exit,
    False,
    For,
    Friend,
    Function,
    Get,
    Global,
    GoTo,
    If,
    Implements,
    Let,
    Loop,
    Next,
    Option,
    Private,
    Property,
    Public,
    Rem,
    Resume,
    Return,
    Select,
    Set,
    Static,
    Stop,
    Sub,
    Then,
    Type,
    Wend,
    While,
    With,
};

/// The keyword that a name without type sign is, case folded; Nessuna for all others.
Parola CercaParola(std::string_view nome) noexcept;

} // namespace morvella::esame

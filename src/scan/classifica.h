// SPDX-License-Identifier: MIT
// scan/classifica.h
//
// Sorts a trimmed source line into one of 27 classes by how it begins. The rows are tried
// in order and the first that matches decides (rubrica.h does it in one lookup). What is done
// for a class is the engines' business. Nothing looks into strings, comments or continued
// lines: "EndDoc" counts as an end, and "x = 1: If y Then" as a plain statement.
#pragma once

#include <array>

#include "text/primitive.h"

namespace morvella {

enum Classe : unsigned char {
    RigaType,
    RigaSub,
    RigaFunction,
    RigaIf,
    RigaElse,
    RigaEndIf,
    RigaCondIf,
    RigaCondElse,
    RigaCondEndIf,
    RigaProperty,
    RigaEndProperty,
    RigaFor,
    RigaNext,
    RigaWith,
    RigaEndWith,
    RigaSelect,
    RigaCase,
    RigaEndSelect,
    RigaEndSub,
    RigaEndFunction,
    RigaEnd,
    RigaDo,
    RigaLoop,
    RigaExitDo,
    RigaExitFor,
    RigaExitSub,
    RigaAltra,
};
inline constexpr int NumeroClassi = RigaAltra + 1;

/// A row: how the lines of a class begin.
struct Prefisso {
    Classe Esito;
    Vista Inizio;        // in lower case, closing blank included
    bool Intera = false; // the whole line, not just its beginning
};

// clang-format off
inline constexpr Prefisso Prefissi[] = {
    {RigaType,        "private type"},     // takes "Private TypeCode As Long" too
    {RigaType,        "public type"},
    {RigaSub,         "private sub"},      // Private and Public, not Friend or Static: their ends are known all the same
    {RigaSub,         "public sub"},
    {RigaSub,         "sub"},              // bare prefix: "subtotal = 1" is a head
    {RigaFunction,    "private function"},
    {RigaFunction,    "public function"},
    {RigaFunction,    "function"},
    {RigaIf,          "if "},              // also the If of one line, which no End If will close
    {RigaElse,        "else"},             // ElseIf, "elsewhere = 1"
    {RigaEndIf,       "end if"},
    {RigaCondIf,      "#if "},
    {RigaCondElse,    "#else"},
    {RigaCondEndIf,   "#end if"},
    {RigaProperty,    "property"},
    {RigaProperty,    "public property"},
    {RigaProperty,    "friend property"},  // Friend here and not Private, the reverse of Sub
    {RigaEndProperty, "end property"},
    {RigaFor,         "for "},             // For Each too
    {RigaNext,        "next"},
    {RigaWith,        "with "},
    {RigaEndWith,     "end with"},
    {RigaSelect,      "select case "},
    {RigaCase,        "case "},            // Case Else too
    {RigaEndSelect,   "end select"},
    {RigaEndSub,      "end sub"},
    {RigaEndFunction, "end function"},
    {RigaEnd,         "end"},              // after all other "end" rows: takes "endIndex = 3" too
    {RigaDo,          "do "},
    {RigaDo,          "do", true},         // the whole line, so DoEvents stays out
    {RigaDo,          "while"},            // bare prefix: "WhileFlag = 1" opens a block
    {RigaLoop,        "loop"},
    {RigaLoop,        "whend"},            // sic: "Wend" matches nothing, a While never closes
    {RigaExitDo,      "exit do"},
    {RigaExitFor,     "exit for"},
    {RigaExitSub,     "exit sub"},         // Exit Function and Exit Property have no row
};
// clang-format on

/// The class of a line already trimmed of blanks. Case is folded; a line indented with a TAB
/// begins with the TAB and is RigaAltra.
Classe ClassificaRiga(Vista riga) noexcept;

/// The two-digit block code of a class, "" for most.
struct CodiceBlocco {
    char Cifre[3] = {};
    unsigned char Quante = 0; // 2 or 0

    operator Vista() const noexcept { return {Cifre, Quante}; }
};
extern const std::array<CodiceBlocco, NumeroClassi> CodiciBlocco;
/// Appends the code of a class to StoriaBlocchi.
inline void AnnotaBlocco(TestoLargo& storia, Classe classe) {
    const CodiceBlocco& codice = CodiciBlocco[classe];
    storia.AggiungiDue(codice.Cifre, codice.Quante);
}

} // namespace morvella

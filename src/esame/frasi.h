// SPDX-License-Identifier: MIT
// esame/frasi.h
//
// The statements of a source file, one after the other. A one-line If gives one statement
// for its condition and one for each statement in its branches; its Else and a quiet End If
// give none. A directive and an Attribute line are one statement whatever they hold.
//
// What is between two statements is left to Scanner: who wants the tokens of a statement
// opens one at Frase::Inizio, Frase::Riga and reads up to the next statement.
#pragma once

#include <cstdint>
#include <string_view>

#include "esame/rilievo.h"
#include "esame/scanner.h"

namespace morvella::esame {

enum class Specie : std::uint8_t {
    Istruzione,    // plain
    Dichiarazione, // Dim, Const, Declare, Option, Event, Implements, or a modifier
    Etichetta,     // a label; a line number gives no statement of its own
    Commento,      // where a statement could begin; after a statement a comment belongs to it
    Attributo,     // Attribute VB_Name = "..."
    IfUnaRiga,     // a one-line If, up to its Then
    Apre,          // opens Frase::Cosa
    Chiude,        // closes Frase::Cosa, Frase::Chiusure times
    Else,
    ElseIf, // "Else If" too
    Case,
    Capo, // head of a procedure, Type or Enum
    Fine, // its end
    CondIf,
    CondElseIf,
    CondElse,
    CondEndIf,
    CondConst,
    FineLinea, // a logical line ends, whatever it held; given on demand, see Frasi
};

struct Frase {
    Specie Quale = Specie::Istruzione;
    Blocco Cosa = Blocco::Nessuno; // of Apre, Chiude, Capo and Fine
    bool Prima = false;       // first of its logical line, line number aside: its indentation tells something
    bool Muta = false;        // an If whose missing End If must not be reported
    bool Get = false;         // Property Get
    bool Unita = false;       // EndIf in one word
    bool Morta = false;       // #If False, #If 0
    std::uint32_t Inizio = 0; // offset of its first byte
    std::uint32_t Riga = 0;   // from 1; of the first token, if the statement is continued
    std::uint32_t Colonna = 0;
    std::uint32_t InizioRiga = 0; // offset of the physical line
    std::uint32_t InizioNome = 0; // of Capo: the name, as an offset
    std::uint32_t LungoNome = 0;
    std::uint32_t Chiusure = 1; // of Chiude: "Next j, i" closes twice
};

class Frasi {
  public:
    /// See Scanner. `commenti`: comment lines are given too. `linee`: after the statements of each
    /// logical line, blank ones too, comes a FineLinea; its Riga and InizioRiga are those of the first
    /// physical line, and Riga() is the last one.
    explicit Frasi(std::string_view bytes, std::size_t inizio = 0, std::uint32_t riga = 1,
                   bool commenti = false, bool linee = false) noexcept
        : s_(bytes, inizio, riga), commenti_(commenti), linee_(linee) {}

    /// The next statement; false after the last one.
    bool Prossima(Frase& frase) noexcept;
    /// The physical line reached; after the last statement, the number of lines.
    std::uint32_t Riga() const noexcept { return s_.Riga(); }

  private:
    enum class Esito : std::uint8_t { Data, Saltata };

    bool InizioLinea(Frase& frase) noexcept;
    Esito InizioFrase(Frase& frase) noexcept;
    Esito Parole(Frase& frase, Parola parola) noexcept;
    void If(Frase& frase) noexcept;
    void Else(Frase& frase) noexcept;
    void Next(Frase& frase) noexcept;
    Esito End(Frase& frase) noexcept;
    void Capo(Frase& frase, Parola parola) noexcept;
    bool Direttiva(Frase& frase) noexcept;
    void Dove(Frase& frase) const noexcept;
    bool FineFrase() noexcept;
    bool FinoAThen() noexcept;
    void Resto(Parola prima = Parola::Nessuna) noexcept;
    Parola GuardaParola() const noexcept { return s_.ParolaDi(s_.GuardaNome()); }

    Scanner s_;
    bool commenti_;
    bool linee_;
    bool daChiudere_ = false; // a FineLinea is due
    std::uint32_t rigaLogica_ = 0;
    std::uint32_t inizioLogica_ = 0;
    bool aperta_ = false;       // something of the logical line is left
    bool prima_ = false;        // nothing but a line number has come yet
    bool salto_ = false;        // after Then or Else of a one-line If: a number is a jump
    std::uint32_t unaRiga_ = 0; // one-line Ifs open here
};

} // namespace morvella::esame

// SPDX-License-Identifier: MIT
// esame/eventi.h
//
// What the examination keeps of a file: the statements that open, close or divide something,
// and the few plain ones that may stand before the first Case. The rest is forgotten at once.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "esame/frasi.h"

namespace morvella::esame {

struct Evento {
    Specie Quale = Specie::Istruzione;
    Blocco Cosa = Blocco::Nessuno;
    bool Muta : 1 = false, Get : 1 = false, Unita : 1 = false, Morta : 1 = false; // see Frase
    bool NelTipo : 1 = false; // in the body of a Type or Enum, as far as the lines before tell
    std::uint32_t Riga = 0, Colonna = 0;
    std::uint32_t Rientro = 0; // the column as seen, tabs to the next multiple of 4; 0: unknown
    std::uint32_t InizioNome = 0, LungoNome = 0; // of a Capo, offset in the bytes
    std::uint32_t Gruppo = 0;                    // of a directive, see Condizionale
};

inline bool Direttiva(const Evento& e) noexcept { return e.Quale >= Specie::CondIf; }

/// "Next", "End If", "Function", "#Else": how findings call what came.
inline std::string_view ParolaDi(const Evento& e) noexcept {
    switch (e.Quale) {
    case Specie::Else: return "Else";
    case Specie::ElseIf: return "ElseIf";
    case Specie::Case: return "Case";
    case Specie::CondElse: return "#Else";
    case Specie::CondElseIf: return "#ElseIf";
    case Specie::CondEndIf: return "#End If";
    case Specie::Chiude: return e.Unita ? "EndIf" : Chiusura(e.Cosa);
    case Specie::Fine: return Chiusura(e.Cosa);
    default: return NomeBlocco(e.Cosa);
    }
}

/// A finding in the making: names are offsets, so that the many that are weighed and dropped
/// cost nothing.
struct Reperto {
    Tipo Quale = Tipo::Aperto;
    Blocco Cosa = Blocco::Nessuno;
    bool Annullato = false;
    std::uint32_t Riga = 0, Colonna = 0, Nota = 0, Apertura = 0;
    std::string_view Atteso, Trovato;
    std::uint32_t InizioNome = 0, LungoNome = 0; // LungoNome 0: outside
};

/// Reads the statements from `inizio` on (see Scanner) and keeps the events. Returns the number
/// of the last line.
std::uint32_t RaccogliEventi(std::string_view bytes, std::size_t inizio, std::uint32_t riga,
                             std::vector<Evento>& eventi);

} // namespace morvella::esame

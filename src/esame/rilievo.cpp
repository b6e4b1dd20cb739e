// SPDX-License-Identifier: MIT
#include "esame/rilievo.h"

#include <array>

namespace morvella::esame {

namespace {

// clang-format off
constexpr Regola Tavola[] = {
    {Tipo::Aperto,        "MV001", "aperto"},
    {Tipo::SenzaApertura, "MV002", "senza-apertura"},
    {Tipo::Scambiato,     "MV003", "scambiato"},
    {Tipo::FuoriPosto,    "MV004", "fuori-posto"},
    {Tipo::PrimaDiCase,   "MV005", "prima-di-case"},
    {Tipo::NonTerminato,  "MV006", "non-terminato"},
    {Tipo::NonTesto,      "MV007", "non-testo"},
};

struct Nomi { std::string_view Nome, Fine; };
constexpr std::array<Nomi, 15> Blocchi{{
    {"If", "End If"},     {"For", "Next"},               {"Do", "Loop"},
    {"While", "Wend"},    {"Select", "End Select"},      {"With", "End With"},
    {"Sub", "End Sub"},   {"Function", "End Function"},  {"Property", "End Property"},
    {"Type", "End Type"}, {"Enum", "End Enum"},          {"#If", "#End If"},
    {"Begin", "End"},     {"BeginProperty", "EndProperty"},
    {"", ""},
}};
// clang-format on

} // namespace

std::string_view NomeBlocco(Blocco blocco) noexcept { return Blocchi[static_cast<std::size_t>(blocco)].Nome; }
std::string_view Chiusura(Blocco blocco) noexcept { return Blocchi[static_cast<std::size_t>(blocco)].Fine; }
std::span<const Regola> Regole() noexcept { return Tavola; }
const Regola& RegolaDi(Tipo tipo) noexcept { return Tavola[static_cast<std::size_t>(tipo)]; }

} // namespace morvella::esame

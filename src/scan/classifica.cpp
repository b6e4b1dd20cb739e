// SPDX-License-Identifier: MIT
#include "scan/classifica.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace morvella {

namespace {

enum Modo : unsigned char { Prefisso, RigaIntera };

struct Prova {
    Classe Esito;
    Vista Inizio; // in lower case, closing blank included
    Modo Come = Prefisso;
};

// clang-format off
constexpr Prova Prove[] = {
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
    {RigaEnd,         "end"},              // behind all other "end" rows: takes "endIndex = 3" too
    {RigaDo,          "do "},
    {RigaDo,          "do", RigaIntera},   // the whole line, so DoEvents stays out
    {RigaDo,          "while"},            // bare prefix: "WhileFlag = 1" opens a block
    {RigaLoop,        "loop"},
    {RigaLoop,        "whend"},            // sic: "Wend" matches nothing, a While never closes
    {RigaExitDo,      "exit do"},
    {RigaExitFor,     "exit for"},
    {RigaExitSub,     "exit sub"},         // Exit Function and Exit Property have no row
};
// clang-format on

constexpr std::size_t NumeroProve = std::size(Prove);

// For speed alone: the first eight bytes of a row as one number, and which of them count.
constexpr std::uint64_t Otto(Vista s) noexcept {
    std::uint64_t n = 0;
    for (std::size_t i = 0; i < 8 && i < s.size(); ++i)
        n |= static_cast<std::uint64_t>(static_cast<unsigned char>(s[i])) << (8 * i);
    return n;
}

// A to Z of eight bytes to lower case, the others as they are.
constexpr std::uint64_t OttoMinuscole(std::uint64_t n) noexcept {
    constexpr std::uint64_t Uni = 0x0101010101010101U;
    const std::uint64_t sette = n & (Uni * 0x7F);
    const std::uint64_t daA = sette + Uni * (0x80 - 'A');
    const std::uint64_t oltreZ = sette + Uni * (0x7F - 'Z');
    return n | (((daA & ~oltreZ & ~n) & (Uni * 0x80)) >> 2);
}

struct Testata {
    std::uint64_t Inizio = 0;
    std::uint64_t Conta = 0;
};
constexpr std::array<Testata, NumeroProve> Testate = [] {
    std::array<Testata, NumeroProve> t{};
    for (std::size_t i = 0; i < NumeroProve; ++i) {
        const std::size_t n = Prove[i].Inizio.size();
        t[i] = {Otto(Prove[i].Inizio), n >= 8 ? ~std::uint64_t{0} : (std::uint64_t{1} << (8 * n)) - 1};
    }
    return t;
}();

// For speed alone: for each first byte the rows that it can match, in the order of the table.
struct Smistamento {
    std::array<unsigned char, NumeroProve> Ordine{};
    struct Tratto {
        unsigned char Da = 0, Fino = 0;
    };
    std::array<Tratto, 256> PerPrimo{};
};

constexpr Smistamento Smista = [] {
    Smistamento s;
    unsigned char posto = 0;
    for (unsigned primo = 0; primo < 128; ++primo) {
        s.PerPrimo[primo].Da = posto;
        for (unsigned char i = 0; i < NumeroProve; ++i)
            if (static_cast<unsigned char>(Prove[i].Inizio[0]) == primo) s.Ordine[posto++] = i;
        s.PerPrimo[primo].Fino = posto;
        if (primo >= 'a' && primo <= 'z') s.PerPrimo[primo - 32] = s.PerPrimo[primo];
    }
    // Capital letters begin no row of their own, since every row is in lower case.
    return s;
}();

} // namespace

Classe ClassificaRiga(Vista riga) noexcept {
    if (riga.empty()) return RigaAltra;
    const auto [da, fino] = Smista.PerPrimo[static_cast<unsigned char>(riga.front())];
    if (da == fino) return RigaAltra;
    std::uint64_t testa = 0;
    if (std::endian::native == std::endian::little && riga.size() >= 8)
        std::memcpy(&testa, riga.data(), 8);
    else
        testa = Otto(riga);
    testa = OttoMinuscole(testa);
    for (unsigned i = da; i < fino; ++i) {
        const Testata& inizio = Testate[Smista.Ordine[i]];
        if (((testa ^ inizio.Inizio) & inizio.Conta) != 0) continue;
        const Prova& prova = Prove[Smista.Ordine[i]];
        if (prova.Come == RigaIntera && riga.size() != prova.Inizio.size()) continue;
        if (IniziaPer(riga, prova.Inizio)) return prova.Esito;
    }
    return RigaAltra;
}

Vista CodiceBlocco(Classe classe) noexcept {
    switch (classe) {
    case RigaSub: return "01";
    case RigaFunction: return "02";
    case RigaIf: return "03";
    case RigaCondIf: return "04";
    case RigaFor: return "05";
    case RigaWith: return "06";
    case RigaSelect: return "07";
    case RigaEndSub: return "08";
    case RigaDo: return "09";
    case RigaEndFunction: return "10";
    case RigaProperty: return "11";
    case RigaEndProperty: return "12";
    default: return "";
    }
}

} // namespace morvella

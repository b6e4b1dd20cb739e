// SPDX-License-Identifier: MIT
#include "scan/classifica.h"

#include <algorithm>
#include <array>

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

constexpr std::size_t InComune(Vista a, Vista b) noexcept {
    std::size_t n = 0;
    while (n < a.size() && n < b.size() && a[n] == b[n]) ++n;
    return n;
}

// A row as numbers: what of a line's first eight bytes it looks at, and what has to stand there.
struct Riga {
    std::uint64_t Maschera = 0;
    std::uint64_t Inizio = 0;
    unsigned char Quale = 0;
};
// The rows box by box, in each box in the order of the table.
struct Righe {
    std::array<Riga, NumeroProve> Tutte{};
    Schedario Caselle;
};

// Whether the factor keeps the boxes apart; fills them if so.
constexpr bool Riempi(Righe& r, std::uint32_t fattore) {
    r.Caselle.Fattore = fattore;
    r.Caselle.Caselle.fill(Casella());
    unsigned char posto = 0;
    for (std::size_t i = 0; i < NumeroProve; ++i) {
        const std::uint64_t chiave = Primi(PrimiOttoDi(Prove[i].Inizio), 3);
        Casella& casella = r.Caselle.Caselle[r.Caselle.Posto(chiave)];
        if (Primi(casella.Inizio, 3) == chiave) continue; // in its box already
        if (casella.Maschera != 0) return false;
        casella.Da = posto;
        std::size_t comune = Prove[i].Inizio.size();
        for (std::size_t j = i; j < NumeroProve; ++j) {
            const Vista inizio = Prove[j].Inizio;
            if (Primi(PrimiOttoDi(inizio), 3) != chiave) continue;
            comune = InComune(inizio, Prove[i].Inizio.substr(0, comune));
            r.Tutte[posto++] = {Primi(~std::uint64_t{0}, inizio.size()), PrimiOttoDi(inizio),
                                static_cast<unsigned char>(j)};
        }
        casella.Fino = posto;
        casella.DaProvare = posto - casella.Da > 1 || comune > 8 || Prove[i].Come == RigaIntera;
        if (!casella.DaProvare) casella.Esito = Prove[i].Esito;
        casella.Maschera = Primi(~std::uint64_t{0}, std::max<std::size_t>(comune, 3));
        casella.Inizio = Primi(PrimiOttoDi(Prove[i].Inizio), comune);
    }
    return true;
}

constexpr Righe Ordinate = [] {
    Righe r;
    std::uint32_t fattore = 0x9E3779B1U;
    while (!Riempi(r, fattore)) fattore += 2;
    return r;
}();
// A shorter row would have to lie in many boxes.
static_assert(std::all_of(std::begin(Prove), std::end(Prove),
                          [](const Prova& p) { return p.Inizio.size() >= 3 || p.Come == RigaIntera; }));

} // namespace

constinit const Schedario Rubrica = Ordinate.Caselle;

Classe ProvaRighe(Vista riga, std::uint64_t testa, const Casella& casella) noexcept {
    for (std::size_t i = casella.Da; i < casella.Fino; ++i) {
        const Riga& questa = Ordinate.Tutte[i];
        if ((testa & questa.Maschera) != questa.Inizio) continue;
        const Prova& prova = Prove[questa.Quale];
        if (prova.Come == RigaIntera && riga.size() != prova.Inizio.size()) continue;
        if (prova.Inizio.size() <= 8 || IniziaPer(riga, prova.Inizio)) return prova.Esito;
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

void AnnotaCodice(Testo& storia, Classe classe) {
    const Vista codice = CodiceBlocco(classe);
    storia.append(codice.data(), codice.size());
}

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "scan/classifica.h"

#include <bit>

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

// What a line looks like that matches a row: bytes, as they lie in memory, and its length.
struct Forma {
    Classe Esito = RigaAltra;
    std::array<char, 16> Inizio{};
    std::size_t Guardati = 0; // bytes of Inizio
    std::size_t Minima = 0;
    std::size_t Massima = ~std::size_t{0} / 2;
};

constexpr Forma FormaDi(const Prova& prova, char dietro = ' ') {
    Forma forma{.Esito = prova.Esito};
    for (const char c : prova.Inizio) forma.Inizio[forma.Guardati++] = c;
    forma.Minima = forma.Guardati;
    if (prova.Come == RigaIntera) { // what stands behind such a line is one of two
        forma.Massima = forma.Guardati;
        forma.Inizio[forma.Guardati++] = dietro;
    }
    return forma;
}

constexpr bool Lettera(char c) { return c >= 'a' && c <= 'z'; }

// Of the bytes from `da` on, those that are there: the letters without their case, or their masks.
template <class N>
constexpr N Lettere(const Forma& forma, std::size_t da, bool maschera) {
    std::array<char, sizeof(N)> bytes{};
    for (std::size_t i = da; i < da + bytes.size() && i < forma.Guardati; ++i) {
        const char intera = Lettera(forma.Inizio[i]) ? '\xDF' : '\xFF';
        bytes[i - da] = maschera ? intera : static_cast<char>(forma.Inizio[i] & intera);
    }
    return std::bit_cast<N>(bytes);
}

constexpr std::uint32_t TreLettere = std::bit_cast<std::uint32_t>(std::array{'\xDF', '\xDF', '\xDF', '\0'});
constexpr std::uint16_t DueLettere = std::bit_cast<std::uint16_t>(std::array{'\xDF', '\xDF'});

// What of a form leads to its box, and from there to its place.
constexpr std::uint32_t Tre(const Forma& forma) {
    return std::bit_cast<std::uint32_t>(std::array{forma.Inizio[0], forma.Inizio[1], forma.Inizio[2], '\0'}) &
           TreLettere;
}
constexpr std::uint16_t Due(const Forma& forma, std::size_t dove) {
    return std::bit_cast<std::uint16_t>(std::array{forma.Inizio[dove], forma.Inizio[dove + 1]}) & DueLettere;
}

// The forms of one box, in the order of the table.
struct Gruppo {
    std::uint32_t Inizio = 0;
    std::array<Forma, 8> Forme{};
    std::size_t Quante = 0;
    Classe Altrimenti = RigaAltra;
};
struct Gruppi {
    std::array<Gruppo, 32> Tutti{};
    std::size_t Quanti = 0;
};

constexpr void Aggiungi(Gruppo& gruppo, const Forma& forma) {
    for (std::size_t i = 0; i < gruppo.Quante; ++i) {
        Forma& altra = gruppo.Forme[i];
        if (altra.Inizio != forma.Inizio) continue;
        // "do " with anything behind it, and the whole line "do", whose blanks have gone: one form.
        altra.Minima = std::min(altra.Minima, forma.Minima);
        altra.Massima = std::max(altra.Massima, forma.Massima);
        return;
    }
    gruppo.Forme[gruppo.Quante++] = forma;
}

constexpr Gruppo& GruppoDi(Gruppi& gruppi, std::uint32_t tre) {
    for (std::size_t i = 0; i < gruppi.Quanti; ++i)
        if (gruppi.Tutti[i].Inizio == tre) return gruppi.Tutti[i];
    Gruppo& nuovo = gruppi.Tutti[gruppi.Quanti++];
    nuovo.Inizio = tre;
    nuovo.Altrimenti = RigaAltra;
    return nuovo;
}

constexpr Gruppi Raggruppa() {
    Gruppi gruppi;
    for (const Prova& prova : Prove)
        for (const char dietro : {' ', '\r'}) {
            const Forma forma = FormaDi(prova, dietro);
            Gruppo& gruppo = GruppoDi(gruppi, Tre(forma));
            // A row of three letters that stands behind all others of its box takes what they leave.
            if (prova.Inizio.size() == 3 && gruppo.Quante > 1)
                gruppo.Altrimenti = prova.Esito;
            else if (gruppo.Altrimenti == RigaAltra)
                Aggiungi(gruppo, forma);
            else
                throw "a row behind the one that takes all others of its box";
        }
    return gruppi;
}

constexpr Gruppi Raggruppati = Raggruppa();

// The first place at which two letters tell the forms of a box apart, and by the factor have each a
// place of its own; 0 when there is none.
constexpr std::size_t DoveDiverse(const Gruppo& gruppo, std::uint32_t fattore) {
    for (std::size_t dove = 3; dove + 2 <= 16; ++dove) {
        unsigned presi = 0;
        bool diverse = true;
        for (std::size_t i = 0; i < gruppo.Quante; ++i) {
            if (gruppo.Forme[i].Guardati < dove + 2) return 0;
            const unsigned posto = 1U << (Due(gruppo.Forme[i], dove) * fattore >> 29);
            diverse = diverse && (presi & posto) == 0;
            presi |= posto;
        }
        if (diverse) return dove;
    }
    return 0;
}

// Whether the first factor gives each box a place of its own, and the second each form in its box.
constexpr bool TieneLontani(const Schedario& s) {
    std::array<bool, 128> piene{};
    for (std::size_t i = 0; i < Raggruppati.Quanti; ++i) {
        bool& piena = piene[s.Posto(Raggruppati.Tutti[i].Inizio)];
        if (piena) return false;
        piena = true;
    }
    for (std::size_t i = 0; i < Raggruppati.Quanti; ++i)
        if (Raggruppati.Tutti[i].Quante > 1 && DoveDiverse(Raggruppati.Tutti[i], s.Fattori[1]) == 0)
            return false;
    return true;
}

constexpr Schedario Ordinato = [] {
    Schedario s;
    s.TreLettere = TreLettere;
    s.DueLettere = DueLettere;
    s.Caselle.fill(Casella());
    s.Confronti.fill(Confronto());
    for (s.Fattori[0] = 0x9E3779B1U;; s.Fattori[0] += 2) {
        s.Fattori[1] = s.Fattori[0] * 0x85EBCA6BU;
        if (TieneLontani(s)) break;
    }
    unsigned char libero = 1;
    for (std::size_t i = 0; i < Raggruppati.Quanti; ++i) {
        const Gruppo& gruppo = Raggruppati.Tutti[i];
        Casella& casella = s.Caselle[s.Posto(gruppo.Inizio)];
        casella = {.Inizio = gruppo.Inizio, .Da = libero, .Altrimenti = gruppo.Altrimenti};
        if (gruppo.Quante > 1) {
            casella.Posti = 7;
            casella.Dove = static_cast<unsigned char>(DoveDiverse(gruppo, s.Fattori[1]));
        }
        libero = static_cast<unsigned char>(libero + casella.Posti + 1);
        for (std::size_t j = 0; j < gruppo.Quante; ++j) {
            const Forma& forma = gruppo.Forme[j];
            Confronto& confronto = s.Confronti[s.Posto(casella, Due(forma, casella.Dove))];
            confronto = {.Minima = forma.Minima, .Oltre = forma.Massima - forma.Minima, .Esito = forma.Esito};
            for (const std::size_t meta : {0U, 1U}) {
                confronto.Maschera[meta] = Lettere<std::uint64_t>(forma, 8 * meta, true);
                confronto.Inizio[meta] = Lettere<std::uint64_t>(forma, 8 * meta, false);
            }
        }
    }
    return s;
}();
static_assert(Ordinato.Confronti[0].Minima > 255 && Ordinato.Caselle[0].Altrimenti == RigaAltra);
// A shorter row would have to lie in many boxes, a longer one does not fit.
static_assert(std::all_of(std::begin(Prove), std::end(Prove), [](const Prova& p) {
    return p.Inizio.size() <= 16 && p.Inizio.size() >= (p.Come == RigaIntera ? 2U : 3U);
}));

} // namespace

constinit const Schedario Rubrica = Ordinato;

constinit const std::array<CodiceBlocco, NumeroClassi> CodiciBlocco = [] {
    std::array<CodiceBlocco, NumeroClassi> codici;
    codici[RigaSub] = {"01", 2};
    codici[RigaFunction] = {"02", 2};
    codici[RigaIf] = {"03", 2};
    codici[RigaCondIf] = {"04", 2};
    codici[RigaFor] = {"05", 2};
    codici[RigaWith] = {"06", 2};
    codici[RigaSelect] = {"07", 2};
    codici[RigaEndSub] = {"08", 2};
    codici[RigaDo] = {"09", 2};
    codici[RigaEndFunction] = {"10", 2};
    codici[RigaProperty] = {"11", 2};
    codici[RigaEndProperty] = {"12", 2};
    return codici;
}();

} // namespace morvella

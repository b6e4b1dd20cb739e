// SPDX-License-Identifier: MIT
#include "scan/rubrica.h"

#include <algorithm>

namespace morvella {

namespace {

// What a matching line looks like: its first bytes in memory, and its length.
struct Forma {
    Classe Esito = RigaAltra;
    std::array<char, 16> Inizio{};
    std::size_t Guardati = 0; // bytes of Inizio
    std::size_t Minima = 0;
    std::size_t Massima = ~std::size_t{0} / 2;
};

constexpr Forma FormaDi(const Prefisso& riga, char dopo) {
    Forma forma{.Esito = riga.Esito};
    for (const char c : riga.Inizio) forma.Inizio[forma.Guardati++] = c;
    forma.Minima = forma.Guardati;
    if (riga.Intera) {
        forma.Massima = forma.Guardati;
        forma.Inizio[forma.Guardati++] = dopo;
    }
    return forma;
}

constexpr bool Lettera(char c) { return c >= 'a' && c <= 'z'; }

// The form's bytes from `da` on, letters without their case, or the mask of each.
template <class N>
constexpr N Lettere(const Forma& forma, std::size_t da, bool maschera) {
    std::array<char, sizeof(N)> bytes{};
    for (std::size_t i = da; i < da + bytes.size() && i < forma.Guardati; ++i) {
        const char intera = Lettera(forma.Inizio[i]) ? '\xDF' : '\xFF';
        bytes[i - da] = maschera ? intera : static_cast<char>(forma.Inizio[i] & intera);
    }
    return std::bit_cast<N>(bytes);
}

// The keys of a form: its slot, and its place in the slot.
constexpr std::uint32_t Tre(const Forma& forma) {
    return std::bit_cast<std::uint32_t>(std::array{forma.Inizio[0], forma.Inizio[1], forma.Inizio[2], '\0'}) &
           TreLettere;
}
constexpr std::uint16_t Due(const Forma& forma, std::size_t dove) {
    return std::bit_cast<std::uint16_t>(std::array{forma.Inizio[dove], forma.Inizio[dove + 1]}) & DueLettere;
}

// The forms of one slot, in the order of the table.
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
        // "do " with anything after it, and the whole line "do", trimmed: one form.
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
    for (const Prefisso& riga : Prefissi)
        for (const char dopo : {' ', '\r'}) { // what may follow a whole line
            const Forma forma = FormaDi(riga, dopo);
            Gruppo& gruppo = GruppoDi(gruppi, Tre(forma));
            // A row of three letters after all others of its slot takes what they leave.
            if (riga.Inizio.size() == 3 && gruppo.Quante > 1) {
                // Letters alone: a line too short for them has a blank or a CR in their place.
                if (!std::all_of(riga.Inizio.begin(), riga.Inizio.end(), Lettera)) throw "not letters";
                gruppo.Altrimenti = riga.Esito;
            } else if (gruppo.Altrimenti == RigaAltra) {
                Aggiungi(gruppo, forma);
            } else {
                throw "a row after the one that takes all others of its slot";
            }
        }
    return gruppi;
}

constexpr Gruppi Raggruppati = Raggruppa();

// The first offset at which two letters give each form of a slot its own place; 0 when there is none.
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

// Whether the factors are free of collisions: each slot, and each form in its slot, has its own place.
constexpr bool SenzaCollisioni(const Schedario& s) {
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
    s.Caselle.fill(Casella()); // by hand: GCC 12 zeroes gaps of a constexpr array
    s.Confronti.fill(Confronto());
    for (s.Fattori[0] = 0x9E3779B1U;; s.Fattori[0] += 2) {
        s.Fattori[1] = s.Fattori[0] * 0x85EBCA6BU;
        if (SenzaCollisioni(s)) break;
    }
    unsigned char libero = 1;
    for (std::size_t i = 0; i < Raggruppati.Quanti; ++i) {
        const Gruppo& gruppo = Raggruppati.Tutti[i];
        Casella& casella = s.Caselle[s.Posto(gruppo.Inizio)];
        casella = {.Inizio = gruppo.Inizio, .Da = libero};
        if (gruppo.Quante > 1) {
            casella.Posti = 7;
            casella.Dove = static_cast<unsigned char>(DoveDiverse(gruppo, s.Fattori[1]));
        }
        for (unsigned posto = 0; posto <= casella.Posti; ++posto)
            s.Confronti[libero++].Esiti[1] = gruppo.Altrimenti;
        for (std::size_t j = 0; j < gruppo.Quante; ++j) {
            const Forma& forma = gruppo.Forme[j];
            Confronto& confronto = s.Confronti[s.Posto(casella, Due(forma, casella.Dove))];
            confronto.Minima = forma.Minima;
            confronto.Oltre = forma.Massima - forma.Minima;
            confronto.Esiti[2] = confronto.Esiti[3] = forma.Esito;
            for (const std::size_t meta : {0U, 1U}) {
                confronto.Maschera[meta] = Lettere<std::uint64_t>(forma, 8 * meta, true);
                confronto.Inizio[meta] = Lettere<std::uint64_t>(forma, 8 * meta, false);
            }
        }
    }
    return s;
}();
static_assert(Ordinato.Confronti[0].Minima > 255);
// A shorter row would belong to many slots, a longer one does not fit.
static_assert(std::all_of(std::begin(Prefissi), std::end(Prefissi), [](const Prefisso& p) {
    return p.Inizio.size() <= 16 && p.Inizio.size() >= (p.Intera ? 2U : 3U);
}));

} // namespace

constinit const Schedario Rubrica = Ordinato;

} // namespace morvella

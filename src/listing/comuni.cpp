// SPDX-License-Identifier: MIT
//
// The common lines once more, many at a time. Their bytes are those of ElencaRiga (connettori.cpp),
// which says why they are so. What makes it fast is that nothing is decided on the way, since no one
// can guess the next line's class, and that the margin stays out of memory, where bytes just written
// one by one could not be taken up again in wide strides.
#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "listing/connettori.h"
#include "scan/testa.h"
#include "text/fetta.h"

namespace morvella {

namespace {

// A column, or a mask for one, with so much around it that a strip can be laid over it at any place.
using Sagoma = std::array<char, 2 * Striscia::Misura + 3>;

constexpr Sagoma FaiSagoma(char intorno, char a, char b, char c) {
    Sagoma sagoma{};
    sagoma.fill(intorno);
    sagoma[Striscia::Misura] = a;
    sagoma[Striscia::Misura + 1] = b;
    sagoma[Striscia::Misura + 2] = c;
    return sagoma;
}
constexpr Sagoma Colonna(char a, char b, char c) { return FaiSagoma('\0', a, b, c); }

constexpr Sagoma TieneTutto = FaiSagoma('\xFF', '\xFF', '\xFF', '\xFF');
constexpr Sagoma TieneIntorno = FaiSagoma('\xFF', '\0', '\0', '\0');
constexpr Sagoma Niente = Colonna('\0', '\0', '\0');
constexpr Sagoma Vuota = Colonna(' ', ' ', ' ');
constexpr Sagoma Apre = Colonna(connettore::AngoloApre, connettore::Tratto, '>');
constexpr Sagoma ApreDoppio = Colonna(connettore::DoppioApre, connettore::DoppioTratto, '>');
constexpr Sagoma Mezzo = Colonna(connettore::Innesto, connettore::Tratto, '>');
constexpr Sagoma Chiude = Colonna(connettore::AngoloChiude, connettore::Tratto, '>');
constexpr Sagoma ChiudeDoppio = Colonna(connettore::DoppioChiude, connettore::DoppioTratto, '>');
constexpr Sagoma Continua = Colonna(connettore::Colonna, ' ', ' ');
constexpr Sagoma ContinuaDoppia = Colonna(connettore::DoppiaColonna, ' ', ' ');

// What a class does with the last column of the margin.
struct Disegno {
    // Bytes that the margin must have on the line; 255 for a class that is not drawn here.
    unsigned char Minima = 255;
    unsigned char Largo = 0;             // those of the margin that are new with the line,
    unsigned char Stretto = 0;           // and those that go with it, down to Minima
    const Sagoma* Tiene = &TieneIntorno; // what stays of the column,
    const Sagoma* Qui = &Niente;         // what comes into it on the line,
    const Sagoma* Dopo = &Niente;        // and behind it
};

constexpr std::array<Disegno, NumeroClassi> Disegni = [] {
    std::array<Disegno, NumeroClassi> d;
    for (const Classe classe : {RigaAltra, RigaEnd}) d[classe] = {.Minima = 0, .Tiene = &TieneTutto};
    for (const Classe classe : {RigaIf, RigaCondIf, RigaWith, RigaSelect})
        d[classe] = {.Minima = 3, .Largo = 3, .Qui = &Apre, .Dopo = &Continua};
    for (const Classe classe : {RigaFor, RigaDo})
        d[classe] = {.Minima = 3, .Largo = 3, .Qui = &ApreDoppio, .Dopo = &ContinuaDoppia};
    for (const Classe classe : {RigaElse, RigaCondElse, RigaCase})
        d[classe] = {.Minima = 3, .Qui = &Mezzo, .Dopo = &Continua};
    for (const Classe classe : {RigaEndIf, RigaCondEndIf, RigaEndSelect, RigaEndWith})
        d[classe] = {.Minima = 3, .Stretto = 3, .Qui = &Chiude, .Dopo = &Vuota};
    for (const Classe classe : {RigaNext, RigaLoop})
        d[classe] = {.Minima = 3, .Stretto = 3, .Qui = &ChiudeDoppio, .Dopo = &Vuota};
    return d;
}();

} // namespace

std::size_t ElencaComuni(Stato& s, std::span<const RigaSorgente> righe) {
    if constexpr (std::endian::native != std::endian::little) return 0;
    if (s.Punto.MargineSeguito || s.Margine.size() > Striscia::Misura || s.Numero.size() != 11) return 0;
    Canali::Spazio spazio = s.Canale.DaStampare(2);
    if (spazio.Dove == nullptr) return 0;
    const char* const fondo = spazio.Dove + spazio.Posto;

    std::uint64_t cifre = 0; // the number's six digits and two of the five blanks behind it
    std::memcpy(&cifre, s.Numero.data(), sizeof cifre);
    std::size_t larga = s.Margine.size();
    Striscia margine(s.Margine.data());
    const auto se = [](bool questo) { return static_cast<unsigned>(questo); }; // so that nothing branches
    const unsigned senzaCommenti = se(s.TogliCommenti == 1);
    char* dove = spazio.Dove;
    char* storia = s.StoriaBlocchi.Coda(2 * righe.size());
    std::size_t fatte = 0;
    for (const RigaSorgente& riga : righe) {
        const Disegno& disegno = Disegni[riga.Quale];
        const char* const testo = riga.Letta.Testo;
        const std::size_t lunga = riga.Letta.Lunga;
        const std::size_t questa = larga + disegno.Largo;
        // A margin that is too narrow is an error; at a line of a certain length the listing may
        // start anew; the block may be full: all that is for the way one by one.
        const unsigned commento =
            se(testo[0] == '\'') & (senzaCommenti | se(testo[1] == '*')) & se(lunga > 0);
        const unsigned altra = commento | se(questa < disegno.Minima) | se(questa > Striscia::Misura) |
                               (se(lunga == FineControlli.size()) & se(testo[0] == FineControlli[0])) |
                               se(lunga + Striscia::Misura + 13 > static_cast<std::size_t>(fondo - dove));
        if (altra != 0) break;
        cifre += std::uint64_t{1} << 40;
        for (int posto = 40; (cifre >> posto & 0xFF) > '9'; posto -= 8)
            cifre += (std::uint64_t{1} << (posto - 8)) - (std::uint64_t{10} << posto);

        const std::size_t posto = Striscia::Misura + 3 - questa;
        const Striscia tiene(disegno.Tiene->data() + posto);
        std::memcpy(dove, &cifre, 8);
        std::memcpy(dove + 8, "   ", 4);
        margine.Con(tiene, Striscia(disegno.Qui->data() + posto)).Posa(dove + 11);
        dove += 11 + questa;
        std::memcpy(dove, testo, Fetta);
        if (lunga > Fetta) [[unlikely]]
            std::memcpy(dove + Fetta, testo + Fetta, lunga - Fetta);
        dove += lunga;
        std::memcpy(dove, "\r\n", 2);
        dove += 2;
        margine = margine.Con(tiene, Striscia(disegno.Dopo->data() + posto));
        larga = std::max<std::size_t>(questa - disegno.Stretto, disegno.Minima); // the floor
        const CodiceBlocco& codice = CodiciBlocco[riga.Quale];
        std::memcpy(storia, codice.Cifre, 2);
        storia += codice.Quante;
        ++fatte;
    }
    if (fatte == 0) return 0;
    s.Canale.Stampato(2, static_cast<std::size_t>(dove - spazio.Dove));
    s.StoriaBlocchi.Fino(storia);
    std::memcpy(s.Numero.data(), &cifre, sizeof cifre);
    margine.Posa(s.Margine.data()); // it has room for so many bytes, always
    s.Margine.Fino(s.Margine.data() + larga);
    return fatte;
}

} // namespace morvella

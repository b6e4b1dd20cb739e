// SPDX-License-Identifier: MIT
#include "listing/decodifica.h"

#include <algorithm>
#include <array>

#include "listing/connettori.h"
#include "shell/testi.h"
#include "text/codifica.h"

namespace morvella {

namespace {

struct Gruppo {
    Vista Bytes;
    Tratto::Genere Che;
    bool Ultimo; // a connector: the line's text follows
};

// clang-format off
constexpr Gruppo Gruppi[] = {
    {"   ",                    Tratto::Scritto,    false},
    {connettore::Segue,        Tratto::Condizione, false},
    {connettore::SegueDoppio,  Tratto::Ciclo,      false},
    {connettore::Apre,         Tratto::Condizione, true},
    {connettore::Mezzo,        Tratto::Condizione, true},
    {connettore::Chiude,       Tratto::Condizione, true},
    {connettore::ApreDoppio,   Tratto::Ciclo,      true},
    {connettore::ChiudeDoppio, Tratto::Ciclo,      true},
};
// clang-format on

// What a byte of a connector or of a bar is drawn as.
char16_t Glifo(char byte) noexcept {
    switch (byte) {
    case '\xB3': return u'│';
    case '\xBA': return u'║';
    case '\xC0': return u'└';
    case '\xC3': return u'├';
    case '\xC4': return u'─';
    case '\xC8': return u'╚';
    case '\xC9': return u'╔';
    case '\xCD': return u'═';
    case '\xDA': return u'┌';
    default: return static_cast<unsigned char>(byte); // a blank, ">" or "<"
    }
}

void AccodaUtf8(std::string& utf8, char16_t c) {
    const unsigned punto = c;
    if (punto < 0x80) {
        utf8 += static_cast<char>(punto);
    } else { // a box-drawing character
        utf8 += static_cast<char>(0xE0 | (punto >> 12));
        utf8 += static_cast<char>(0x80 | ((punto >> 6) & 0x3F));
        utf8 += static_cast<char>(0x80 | (punto & 0x3F));
    }
}

void Accoda(std::vector<Porzione>& fette, Tratto::Genere che, std::size_t quanti) {
    if (quanti == 0) return;
    if (!fette.empty() && fette.back().Che == che)
        fette.back().Quanti += quanti;
    else
        fette.push_back({che, fette.empty() ? 0 : fette.back().Da + fette.back().Quanti, quanti});
}

bool Cifre(Vista s) {
    return std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool Disegnata(Tratto::Genere che) {
    return che == Tratto::Condizione || che == Tratto::Ciclo || che == Tratto::Barra;
}

} // namespace

Bordo BordoDiRiquadro(Vista riga) noexcept {
    const Vista bordo = Trim(riga);
    if (bordo.size() != 101 || bordo.front() != '*' || bordo.back() != '*') return Bordo::Nessuno;
    if (bordo.find_first_not_of('*') == Vista::npos) return Bordo::Asterischi;
    return bordo.substr(1, 99).find_first_not_of(' ') == Vista::npos ? Bordo::Vuoto : Bordo::Nessuno;
}

bool RigaErrore(Vista riga) noexcept { return Trim(riga) == ErroreGenerico; }

std::size_t CampoDiRiga(Vista riga) noexcept {
    if (riga.size() >= 11 && Cifre(riga.substr(0, 6)) && riga.substr(6, 5) == "     ") return 11;
    // Beyond line 999,999 the field is its five blanks alone.
    if (riga.substr(0, 5) != "     ") return 0;
    return BordoDiRiquadro(riga) == Bordo::Nessuno && !RigaErrore(riga) ? 5 : 0;
}

void TagliaRiga(Vista riga, std::vector<Porzione>& fette) {
    fette.clear();
    if (BordoDiRiquadro(riga) != Bordo::Nessuno) return Accoda(fette, Tratto::Riquadro, riga.size());
    if (RigaErrore(riga)) return Accoda(fette, Tratto::Errore, riga.size());
    const std::size_t campo = CampoDiRiga(riga);
    if (campo == 0) return Accoda(fette, Tratto::Scritto, riga.size());
    Accoda(fette, Tratto::Numero, campo);
    riga.remove_prefix(campo);

    if (const std::size_t barre = std::min(riga.find_first_not_of(connettore::DoppioTratto, 2), riga.size());
        riga.substr(0, 2) == "<<" && barre >= 4 && IniziaPer(riga.substr(barre), "exit ")) {
        Accoda(fette, Tratto::Barra, barre);
        riga.remove_prefix(barre);
    }
    for (bool ancora = true; ancora;) {
        const auto* gruppo = std::find_if(std::begin(Gruppi), std::end(Gruppi),
                                          [&](const Gruppo& g) { return riga.substr(0, 3) == g.Bytes; });
        ancora = gruppo != std::end(Gruppi) &&
                 // Before any other statement these bytes are letters of its own.
                 (!gruppo->Ultimo || gruppo->Bytes == Disegni[ClassificaRiga(riga.substr(3))].Qui);
        if (!ancora) break;
        Accoda(fette, gruppo->Che, 3);
        riga.remove_prefix(3);
        ancora = !gruppo->Ultimo;
    }
    Accoda(fette, Tratto::Scritto, riga.size());
}

char16_t Segno(Tratto::Genere che, char byte) noexcept {
    static const auto scritti = [] {
        std::array<char16_t, 256> tavola{};
        for (unsigned i = 0; i < 256; ++i) {
            const std::string utf8 = Mostrabile(Testo(1, static_cast<char>(i)));
            const auto ottetto = [&](std::size_t j) { return static_cast<unsigned char>(utf8[j]); };
            unsigned punto = ottetto(0);
            if (utf8.size() == 2) punto = (ottetto(0) & 0x1Fu) << 6 | (ottetto(1) & 0x3Fu);
            if (utf8.size() == 3)
                punto = (ottetto(0) & 0x0Fu) << 12 | (ottetto(1) & 0x3Fu) << 6 | (ottetto(2) & 0x3Fu);
            tavola[i] = static_cast<char16_t>(punto);
        }
        return tavola;
    }();
    return Disegnata(che) ? Glifo(byte) : scritti[static_cast<unsigned char>(byte)];
}

void DecodificaRiga(Vista riga, std::vector<Tratto>& tratti) {
    tratti.clear();
    std::vector<Porzione> fette;
    TagliaRiga(riga, fette);
    for (const Porzione& fetta : fette) {
        const Vista bytes = riga.substr(fetta.Da, fetta.Quanti);
        Tratto& tratto = tratti.emplace_back(Tratto{fetta.Che, {}});
        if (Disegnata(fetta.Che))
            for (const char c : bytes) AccodaUtf8(tratto.Utf8, Glifo(c));
        else
            tratto.Utf8 = Mostrabile(bytes);
    }
}

} // namespace morvella

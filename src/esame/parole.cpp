// SPDX-License-Identifier: MIT
#include "esame/parole.h"

#include <array>
#include <cstddef>
#include <cstring>

namespace morvella::esame {

namespace {

struct Riga {
    std::string_view Nome; // in lower case
    Parola Esito;
};

// clang-format off
constexpr Riga Elenco[] = {
    {"as", Parola::As},             {"attribute", Parola::Attribute},   {"case", Parola::Case},
    {"const", Parola::Const},       {"declare", Parola::Declare},       {"dim", Parola::Dim},
    {"do", Parola::Do},             {"else", Parola::Else},             {"elseif", Parola::ElseIf},
    {"end", Parola::End},           {"endif", Parola::EndIf},           {"enum", Parola::Enum},
    {"event", Parola::Event},       {"exit", Parola::Exit},             {"false", Parola::False},
    {"for", Parola::For},           {"friend", Parola::Friend},         {"function", Parola::Function},
    {"get", Parola::Get},           {"global", Parola::Global},         {"goto", Parola::GoTo},
    {"if", Parola::If},             {"implements", Parola::Implements}, {"let", Parola::Let},
    {"loop", Parola::Loop},         {"next", Parola::Next},             {"option", Parola::Option},
    {"private", Parola::Private},   {"property", Parola::Property},     {"public", Parola::Public},
    {"rem", Parola::Rem},           {"resume", Parola::Resume},         {"return", Parola::Return},
    {"select", Parola::Select},     {"set", Parola::Set},               {"static", Parola::Static},
    {"stop", Parola::Stop},         {"sub", Parola::Sub},               {"then", Parola::Then},
    {"type", Parola::Type},         {"wend", Parola::Wend},             {"while", Parola::While},
    {"with", Parola::With},
};
// clang-format on

// The first eight bytes of a name, in lower case. The bit that tells the case changes no digit, and
// makes no letter of anything else that a name may hold.
// Two loads that overlap take any length from 2 on without a loop.
constexpr std::uint64_t Chiave(std::string_view nome) noexcept {
    const auto carica = [&](std::size_t da, std::size_t quanti) {
        std::uint64_t byte = 0;
        for (std::size_t i = 0; i < quanti; ++i)
            byte |= std::uint64_t{static_cast<std::uint8_t>(nome[da + i])} << 8 * i;
        return byte;
    };
    constexpr std::uint64_t minuscole = 0x2020202020202020;
    const std::size_t n = nome.size();
    if (n >= 8) return carica(0, 8) | minuscole;
    const std::size_t meta = n >= 4 ? 4 : 2;
    const std::uint64_t byte = meta == 4 ? carica(0, 4) | carica(n - 4, 4) << 8 * (n - 4)
                                         : carica(0, 2) | carica(n - 2, 2) << 8 * (n - 2);
    return byte | minuscole >> (64 - 8 * n);
}
constexpr std::size_t Posto(std::uint64_t chiave, std::uint64_t fattore) noexcept {
    return static_cast<std::size_t>(chiave * fattore >> 56);
}

struct Tavola {
    struct Casella {
        std::uint64_t Inizio = 0;
        std::uint8_t Lunga = 0, Riga = 0;
    };
    std::uint64_t Fattore = 0;
    std::array<Casella, 256> Caselle{};
};

// A factor that sends no two words to one place; the search runs in the compiler.
constexpr Tavola Trova() {
    std::uint64_t fattore = 0x9E3779B97F4A7C15;
    for (;; fattore = fattore * 6364136223846793005 + 1442695040888963406) {
        Tavola tavola{.Fattore = fattore | 1};
        bool libera = true;
        for (std::uint8_t i = 0; i < std::size(Elenco) && libera; ++i) {
            const std::uint64_t chiave = Chiave(Elenco[i].Nome);
            auto& casella = tavola.Caselle[Posto(chiave, tavola.Fattore)];
            libera = casella.Lunga == 0;
            casella = {chiave, static_cast<std::uint8_t>(Elenco[i].Nome.size()), i};
        }
        if (libera) return tavola;
    }
}
constexpr Tavola Parole = Trova();

} // namespace

Parola CercaParola(std::string_view nome) noexcept {
    if (nome.size() < 2 || nome.size() > 10) return Parola::Nessuna;
    const std::uint64_t chiave = Chiave(nome);
    const auto& casella = Parole.Caselle[Posto(chiave, Parole.Fattore)];
    if (casella.Inizio != chiave || casella.Lunga != nome.size()) return Parola::Nessuna;
    const Riga& riga = Elenco[casella.Riga];
    for (std::size_t i = 8; i < nome.size(); ++i)
        if ((nome[i] | 0x20) != riga.Nome[i]) return Parola::Nessuna;
    return riga.Esito;
}

} // namespace morvella::esame

// SPDX-License-Identifier: MIT
#include "listing/decodifica.h"

#include <algorithm>

#include "scan/classifica.h"
#include "shell/state.h"

namespace morvella {

namespace {

struct Gruppo {
    Vista Bytes;
    const char* Glifi;
    Tratto::Genere Che;
    bool Ultimo; // a connector: the text of the line follows
};

// clang-format off
constexpr Gruppo Gruppi[] = {
    {"   ",          "   ", Tratto::Scritto,    false},
    {"\xB3  ",       "│  ", Tratto::Condizione, false},
    {"\xBA  ",       "║  ", Tratto::Ciclo,      false},
    {"\xDA\xC4>",    "┌─>", Tratto::Condizione, true},
    {"\xC3\xC4>",    "├─>", Tratto::Condizione, true},
    {"\xC0\xC4>",    "└─>", Tratto::Condizione, true},
    {"\xC9\xCD>",    "╔═>", Tratto::Ciclo,      true},
    {"\xC8\xCD>",    "╚═>", Tratto::Ciclo,      true},
};
// clang-format on

void Accoda(std::vector<Tratto>& tratti, Tratto::Genere che, std::string_view utf8) {
    if (utf8.empty()) return;
    if (!tratti.empty() && tratti.back().Che == che)
        tratti.back().Utf8 += utf8;
    else
        tratti.push_back({che, std::string(utf8)});
}

bool Cifre(Vista s) {
    return std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Lines 1, 2, 4 and 5 of a box: nothing but asterisks and blanks, with 101 columns of box.
bool BordoDiRiquadro(Vista riga) {
    const Vista bordo = Trim(riga);
    return bordo.size() == 101 && bordo.front() == '*' && bordo.back() == '*' &&
           (bordo.find_first_not_of('*') == Vista::npos ||
            bordo.substr(1, 99).find_first_not_of(' ') == Vista::npos);
}

// Whether a line of this class is drawn with this connector: one in front of any other text is
// letters of that text.
bool Appartiene(const Gruppo& gruppo, Classe classe) {
    switch (classe) {
    case RigaIf:
    case RigaCondIf:
    case RigaWith:
    case RigaSelect: return gruppo.Bytes[0] == '\xDA';
    case RigaElse:
    case RigaCondElse:
    case RigaCase: return gruppo.Bytes[0] == '\xC3';
    case RigaEndIf:
    case RigaCondEndIf:
    case RigaEndSelect:
    case RigaEndWith: return gruppo.Bytes[0] == '\xC0';
    case RigaFor:
    case RigaDo: return gruppo.Bytes[0] == '\xC9';
    case RigaNext:
    case RigaLoop: return gruppo.Bytes[0] == '\xC8';
    default: return false;
    }
}

} // namespace

std::string MostrabileUtf8(std::string_view utf8, bool righe) {
    std::string testo;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const char c = utf8[i];
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 && c != '\t' && !(righe && c == '\n')) {
            testo += "\xE2\x90"; // U+2400 and on: the pictures of the control characters
            testo += static_cast<char>(0x80 + byte);
        } else if (byte == 127) {
            testo += "\xE2\x90\xA1";
        } else if (byte == 0xC2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0) {
            testo += "\xEF\xBF\xBD"; // the second set of control characters has no pictures
            ++i;
        } else {
            testo += c;
        }
    }
    return testo;
}

std::string Mostrabile(Vista bytes, bool righe) { return MostrabileUtf8(Utf8Da1252(bytes), righe); }

void DecodificaRiga(Vista riga, std::vector<Tratto>& tratti) {
    tratti.clear();
    if (BordoDiRiquadro(riga)) {
        Accoda(tratti, Tratto::Riquadro, riga);
        return;
    }
    if (Trim(riga) == ErroreGenerico) {
        Accoda(tratti, Tratto::Errore, Mostrabile(riga));
        return;
    }
    // Beyond line 999,999 the field is its five blanks alone.
    const bool numerata = riga.size() >= 11 && Cifre(riga.substr(0, 6)) && riga.substr(6, 5) == "     ";
    if (!numerata && riga.substr(0, 5) != "     ") {
        Accoda(tratti, Tratto::Scritto, Mostrabile(riga));
        return;
    }
    const std::size_t campo = numerata ? 11 : 5;
    Accoda(tratti, Tratto::Numero, riga.substr(0, campo));
    riga.remove_prefix(campo);

    if (const std::size_t barre = std::min(riga.find_first_not_of('\xCD', 2), riga.size());
        riga.substr(0, 2) == "<<" && barre >= 4 && IniziaPer(riga.substr(barre), "exit ")) {
        std::string barra = "<<";
        for (std::size_t i = 2; i < barre; ++i) barra += "═";
        Accoda(tratti, Tratto::Barra, barra);
        riga.remove_prefix(barre);
    }
    for (bool ancora = true; ancora;) {
        const auto* gruppo = std::find_if(std::begin(Gruppi), std::end(Gruppi),
                                          [&](const Gruppo& g) { return riga.substr(0, 3) == g.Bytes; });
        ancora = gruppo != std::end(Gruppi) &&
                 (!gruppo->Ultimo || Appartiene(*gruppo, ClassificaRiga(riga.substr(3))));
        if (!ancora) break;
        Accoda(tratti, gruppo->Che, gruppo->Glifi);
        riga.remove_prefix(3);
        ancora = !gruppo->Ultimo;
    }
    Accoda(tratti, Tratto::Scritto, Mostrabile(riga));
}

} // namespace morvella

// SPDX-License-Identifier: MIT
// What the tests of the examination share: a finding as a short line of text.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "esame/esame.h"

namespace morvella::esame {

/// "aperto If 2:1 nota 3 da 2 atteso End If trovato End Sub in A"; what is absent is left out.
inline std::string Detto(const Rilievo& r) {
    std::string s(RegolaDi(r.Quale).Nome);
    const auto aggiungi = [&s](std::string_view chiave, std::string_view valore) {
        if (!valore.empty()) s.append(" ").append(chiave).append(chiave.empty() ? "" : " ").append(valore);
    };
    if (r.Cosa != Blocco::Nessuno) s.append(" ").append(NomeBlocco(r.Cosa));
    s += " " + std::to_string(r.Riga) + ":" + std::to_string(r.Colonna) + " nota " + std::to_string(r.Nota);
    if (r.Apertura != 0) s += " da " + std::to_string(r.Apertura);
    aggiungi("atteso", r.Atteso);
    aggiungi("trovato", r.Trovato);
    if (r.Procedura) s.append(" in ").append(*r.Procedura);
    return s;
}

/// The findings, one a line.
inline std::string Detto(const Esame& esame) {
    std::string s;
    for (const Rilievo& r : esame.Rilievi) s += Detto(r) + "\n";
    return s;
}

/// Statements in a Sub named A; the first of them is on line 2.
inline std::string InSub(std::string_view codice) {
    return "Sub A()\n" + std::string(codice) + "\nEnd Sub\n";
}

struct Caso {
    std::string_view Codice;
    std::string_view Atteso; // findings, each ended by a line end
};

inline void ProvaInSub(const Caso& caso) {
    EXPECT_EQ(Detto(Esamina(InSub(caso.Codice))), caso.Atteso) << caso.Codice;
}
inline void ProvaFile(const Caso& caso) {
    EXPECT_EQ(Detto(Esamina(caso.Codice)), caso.Atteso) << caso.Codice;
}

} // namespace morvella::esame

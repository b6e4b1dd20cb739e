// SPDX-License-Identifier: MIT
#include "text/errore.h"

#include <gtest/gtest.h>

#include <set>

namespace morvella {

namespace {

TEST(Errore, OgniNumeroHaUnaDescrizionePropria) {
    std::set<std::string_view> viste;
    for (const int numero : {5, 7, 52, 53, 55, 57, 61, 62, 70, 71, 75, 76}) {
        const std::string_view descrizione = Descrizione(numero);
        EXPECT_FALSE(descrizione.empty()) << numero;
        EXPECT_NE(descrizione, Descrizione(9999)) << numero;
        EXPECT_TRUE(viste.insert(descrizione).second) << numero;
        EXPECT_EQ(descrizione.back(), '.') << numero;
    }
    EXPECT_EQ(Descrizione(76), "Percorso non trovato.");
    EXPECT_FALSE(Descrizione(9999).empty());
    // Bytes of Windows-1252, as everything that a box shows: "è" is one byte.
    EXPECT_EQ(Descrizione(61), "Il disco \xE8 pieno.");
}

TEST(Errore, Numeri) {
    EXPECT_EQ(ErrArgomento, 5);
    EXPECT_EQ(ErrMemoria, 7);
    EXPECT_EQ(ErrNumeroFile, 52);
    EXPECT_EQ(ErrFileAssente, 53);
    EXPECT_EQ(ErrFileAperto, 55);
    EXPECT_EQ(ErrDispositivo, 57);
    EXPECT_EQ(ErrDiscoPieno, 61);
    EXPECT_EQ(ErrFineFile, 62);
    EXPECT_EQ(ErrPermesso, 70);
    EXPECT_EQ(ErrUnita, 71);
    EXPECT_EQ(ErrAccesso, 75);
    EXPECT_EQ(ErrPercorso, 76);
}

TEST(Errore, PortaNumeroEFile) {
    const Errore e(76, "\\p\\x");
    EXPECT_EQ(e.Numero, 76);
    EXPECT_EQ(e.File, "\\p\\x");
    EXPECT_STREQ(e.what(), "Percorso non trovato.");
    EXPECT_EQ(Errore(53).File, "");
}

} // namespace

} // namespace morvella

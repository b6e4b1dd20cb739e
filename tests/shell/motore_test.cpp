// SPDX-License-Identifier: MIT
//
// The engines' usual statements: what each does, and that each runs under the handler by itself.
#include "shell/motore.h"

#include <gtest/gtest.h>

#include "shell/banco.h"

namespace morvella {

namespace {

using prove::Banco;

struct Motore : Banco {
    Motore() {
        Disco.Metti("/p/a.bas", "x\r\n");
        Disco.FaiDirectory("/p/Appoggio");
        CambiaDir1(S, "/p");
        S.FileSorgente = "\\p\\a.bas";
        S.FileUscita = "\\p\\Appoggio\\a.txt";
    }
    /// The number that ends the engine in this statement, 0 if it goes on.
    template <class F>
    int Fine(F&& statement) {
        try {
            statement();
        } catch (const FineMotore& fine) {
            return fine.Causa.Numero;
        }
        return 0;
    }
};

TEST(Istruzioni, AproEChiudo) {
    Motore m;
    ApriSorgente(m.S);
    ApriUscita(m.S);
    EXPECT_EQ(m.S.Canale.LineInput(1), "x");
    Scrivi(m.S, "y");
    ChiudiSorgente(m.S);
    EXPECT_FALSE(m.S.Canale.Aperto(1));
    EXPECT_TRUE(m.S.Canale.Aperto(2)); // each closes its own channel
    ChiudiUscita(m.S);
    EXPECT_FALSE(m.S.Canale.Aperto(2));
    EXPECT_EQ(m.Disco.Leggi("/p/Appoggio/a.txt"), "y\r\n");
}

TEST(Istruzioni, Scrivo) {
    Motore m;
    ApriUscita(m.S);
    Scrivi(m.S, "a", Testo("b"), Space(2), "c");
    Scrivi(m.S);
    m.S.Numero = "12";
    m.S.Margine = "  ";
    m.S.Riga = "End";
    ScriviAlMargine(m.S);
    ScriviAlMargine(m.S, "--");
    ChiudiUscita(m.S);
    EXPECT_EQ(m.Disco.Leggi("/p/Appoggio/a.txt"), "ab  c\r\n\r\n12  End\r\n12  --End\r\n");
}

TEST(Istruzioni, IlNomeRiparatoSiVedeNellaRipetizione) {
    Motore m;
    m.S.FileUscita = "\\p\\Appoggio\\manca\\a.txt";
    ApriUscita(m.S);
    EXPECT_TRUE(m.S.Canale.Aperto(2));
    EXPECT_EQ(m.S.FileUscita, "\\p\\Appoggio\\a.txt");
    EXPECT_TRUE(m.Disco.Esiste("/p/Appoggio/a.txt"));
}

TEST(Istruzioni, UnFileCE) {
    Motore m;
    EXPECT_TRUE(EsisteFile(m.S, m.S.FileSorgente));
    EXPECT_FALSE(EsisteFile(m.S, m.S.FileUscita));
    EXPECT_FALSE(EsisteFile(m.S, "\\p\\Appoggio")); // a directory is no file
}

TEST(Istruzioni, DataEOra) {
    Motore m;
    const Testo data = m.S.File.Date();
    const Testo ora = m.S.File.Time();
    ASSERT_NE(data, ora);
    EXPECT_EQ(Oggi(m.S), data);
    EXPECT_EQ(Adesso(m.S), ora);
    m.Disco.Fallisci("Adesso", "", 55, 2);
    EXPECT_EQ(Oggi(m.S), ""); // given up, and on after it
    EXPECT_EQ(Adesso(m.S), "");
    for (Testo (*leggi)(Stato&) : {Oggi, Adesso}) { // the second attempt
        m.Disco.Fallisci("Adesso", "", 76, 1);
        EXPECT_EQ(leggi(m.S), leggi == Oggi ? data : ora);
    }
}

// One failure of each kind in each statement: on after it, again, or the engine's end.
TEST(Istruzioni, OgnunaSottoIlGestore) {
    const struct {
        const char* Nome;
        void (*Statement)(Stato&);
        int Chiuso; // what it meets on a closed channel or without its file, 0: nothing
    } casi[] = {
        {"ApriSorgente", ApriSorgente, 53},
        {"ApriUscita", ApriUscita, 76},
        {"ChiudiSorgente", ChiudiSorgente, 0},
        {"ChiudiUscita", ChiudiUscita, 0},
        {"Scrivi", [](Stato& s) { Scrivi(s, "x"); }, 52},
        {"ScriviAlMargine", [](Stato& s) { ScriviAlMargine(s); }, 52},
    };
    for (const auto& caso : casi) {
        Motore m;
        m.S.FileSorgente = "\\p\\manca.bas";
        m.S.FileUscita = "senza\\barra\\";
        m.S.Dir1Path = "\\manca"; // where the repair leads to
        EXPECT_EQ(m.Fine([&] { caso.Statement(m.S); }), caso.Chiuso) << caso.Nome;
    }
    // 55: both channels are closed, and the engine goes on.
    for (const auto apri : {ApriSorgente, ApriUscita}) {
        Motore m;
        ApriSorgente(m.S);
        ApriUscita(m.S);
        EXPECT_EQ(m.Fine([&] { apri(m.S); }), 0);
        EXPECT_FALSE(m.S.Canale.Aperto(1) || m.S.Canale.Aperto(2));
    }
    // 61 when the last bytes are written.
    Motore m;
    ApriUscita(m.S);
    Scrivi(m.S, "x");
    m.Disco.Fallisci("Scrivi", "/a.txt", 61, 1);
    EXPECT_EQ(m.Fine([&] { ChiudiUscita(m.S); }), 61);
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// The command "verifica", and --verifica at the end of a run.
#include "cli/banco.h"

namespace morvella::cli {

namespace {

using prove::Banco;

constexpr const char* Txt = "/casa/p/Appoggio/b.txt";

// Changes a text in a file of the disk.
void Cambia(Banco& b, const std::string& file, const std::string& da, const std::string& a) {
    std::string bytes = b.Disco.Leggi(file);
    const std::size_t dove = bytes.find(da);
    ASSERT_NE(dove, std::string::npos) << bytes;
    b.Disco.Metti(file, bytes.replace(dove, da.size(), a));
}

TEST(ComandoVerifica, CopieBuone) {
    Banco b;
    ASSERT_EQ(b.Esegui({"riordina", "p/Prova.vbp"}), 0);
    const auto prima = b.Disco.TuttiIFile();
    EXPECT_EQ(b.Esegui({"verifica", "p/Prova.vbp"}), 0) << b.Errori.str();
    // Three modules, two copies each: of 3 + 3 + 4 lines two heads are code, and C has a comment and a
    // statement of its own after a head of two.
    EXPECT_EQ(b.Uscita.str(), "6 copie verificate, 0 diverse; righe dei sorgenti: 20\n"
                              "  uguali: 18 di codice, 2 di testata\n"
                              "  tolte: 0 vuote, 0 che cominciano con '*, 0 di commento, 0 attributi\n"
                              "  aggiunte: 4 vuote, 16 di riquadro, 42 di chiusura, 0 intestazioni\n");
    EXPECT_EQ(b.Disco.TuttiIFile(), prima);
    EXPECT_EQ(b.Esegui({"verifica", "-q", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Uscita.str(), "");
}

TEST(ComandoVerifica, UnaCopiaDiversa) {
    Banco b;
    ASSERT_EQ(b.Esegui({"riordina", "p/Prova.vbp"}), 0);
    Cambia(b, Txt, "End Sub", "End  Sub");
    EXPECT_EQ(b.Esegui({"verifica", "-q", "p/Prova.vbp"}), 1);
    EXPECT_EQ(b.Uscita.str(), "Appoggio/b.txt:7: diverso da p/B.bas:3\n"
                              "  atteso:  End Sub\n"
                              "  trovato:           End  Sub\n");
    EXPECT_TRUE(b.Dice("1 copia non è quello che il riordino fa del sorgente"));
    // The other rows are whole.
    EXPECT_EQ(b.Esegui({"verifica", "-q", "p/Prova.vbp", "A.bas", "C.frm"}), 0);
    // A source that has changed since is no source of this copy.
    b.Disco.Metti("/casa/p/A.bas", "Option Explicit\r\n");
    EXPECT_EQ(b.Esegui({"verifica", "-q", "p/Prova.vbp", "A.bas"}), 1);
}

TEST(ComandoVerifica, OpzioniDellaCorsa) {
    Banco b;
    ASSERT_EQ(b.Esegui({"riordina", "-t", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Esegui({"verifica", "-q", "p/Prova.vbp"}), 1);
    EXPECT_EQ(b.Esegui({"verifica", "-q", "-t", "p/Prova.vbp"}), 0);
    b.Disco.Metti("/casa/t.txt", "'t");
    ASSERT_EQ(b.Esegui({"riordina", "-i", "--testo-intestazione=t.txt", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Esegui({"verifica", "-q", "p/Prova.vbp"}), 1);
    EXPECT_EQ(b.Esegui({"verifica", "-i", "--testo-intestazione=t.txt", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.Scrive("2 intestazioni\n")) << b.Uscita.str();
}

TEST(ComandoVerifica, SenzaCopie) {
    Banco b;
    EXPECT_EQ(b.Esegui({"verifica", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Dice("non c'è nessuna copia da verificare"));
    ASSERT_EQ(b.Esegui({"riordina", "p/Prova.vbp", "A.bas"}), 0);
    EXPECT_EQ(b.Esegui({"verifica", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.Dice("«B.bas» non ha copie riscritte"));
    EXPECT_FALSE(b.Dice("A.bas"));
}

TEST(ComandoVerifica, InFondoAUnaCorsa) {
    for (const char* comando : {"esegui", "riordina"}) {
        Banco b;
        EXPECT_EQ(b.Esegui({comando, "--si", "--verifica", "p/Prova.vbp"}), 0) << b.Errori.str();
        EXPECT_TRUE(b.Scrive("6 copie verificate, 0 diverse")) << b.Uscita.str();
        // A disk that gives back other bytes than it took.
        b.Disco.PrimaDiAprire = [&](const std::string& file) {
            if (file == "/casa/p/Appoggio/b.bas") b.Disco.Metti(file, "Option Explicit\r\n");
        };
        EXPECT_EQ(b.Esegui({comando, "--si", "--verifica", "p/Prova.vbp"}), 1);
        EXPECT_TRUE(b.Scrive("Appoggio/b.bas:2: diverso da p/B.bas:2\n")) << b.Uscita.str();
    }
}

// A row that climbs out of Appoggio leads to a neighbour of the sources: it is no copy.
TEST(ComandoVerifica, UnSorgenteNonEUnaCopia) {
    Banco b;
    b.Disco.Metti("/casa/p/Prova.vbp", "Module=A; A.bas\r\nModule=X; ..\\A.bas\r\n");
    b.Disco.Metti("/casa/A.bas", "Option Base 1\r\n");
    b.Disco.Metti("/casa/p/A.txt", "altro");
    ASSERT_EQ(b.Esegui({"riordina", "p/Prova.vbp", "A.bas"}), 0) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"verifica", "p/Prova.vbp", "A.bas"}), 0) << b.Uscita.str();
}

} // namespace

} // namespace morvella::cli

// SPDX-License-Identifier: MIT
//
// A listing as the reader has it: its lines, numbers, errors and procedures; what is found in it;
// what happens when the file changes meanwhile; how much is read and kept.
#include <gtest/gtest.h>

#include <random>

#include "lettore/banco.h"

namespace morvella::lettore {

namespace {

using namespace prove;

std::string Riga(Struttura& s, Lungo i) { return std::string(s.Riga(i)); }

constexpr Posizione Assente{-1, -1};

// The error that opening a file raises; 0 for none.
int Numero(const std::filesystem::path& percorso) {
    Struttura s(percorso);
    try {
        s.Carica();
    } catch (const Errore& e) {
        return e.Numero;
    }
    return 0;
}

class Listato : public ::testing::Test {
  protected:
    Cartella cartella_;
    Struttura Letta(const std::string& bytes, bool lf = false) {
        Struttura s(cartella_.Scrivi("s.log", bytes), lf);
        s.Carica();
        return s;
    }
    Struttura Letta(const std::vector<std::string>& righe) { return Letta(Unite(righe)); }
};

TEST_F(Listato, RigheErroriProcedure) {
    const std::vector<std::string> righe = Esempio();
    Struttura s = Letta(righe);
    EXPECT_EQ(s.Righe(), 28);
    for (std::size_t i = 0; i < 28; ++i) EXPECT_EQ(Riga(s, static_cast<Lungo>(i)), righe[i]);
    EXPECT_EQ(Riga(s, 28), "");
    EXPECT_EQ(Riga(s, -1), "");
    EXPECT_EQ(s.Colonne(), 115); // the box: 14 and 101
    EXPECT_EQ(s.Errori(), (std::vector<Lungo>{21, 26}));

    const auto& p = s.Procedure();
    ASSERT_EQ(p.size(), 3u);
    EXPECT_EQ(p[0].Riga, 2);
    EXPECT_EQ(p[0].Numero, 3);
    EXPECT_EQ(p[0].Testa, Testo("Private Sub Prova(n As Integer)"));
    EXPECT_TRUE(!p[0].Aperta && p[0].Riquadro);
    EXPECT_EQ(p[1].Riga, 17);
    EXPECT_EQ(p[1].Numero, 14);
    EXPECT_TRUE(p[1].Aperta && p[1].Riquadro);
    // Without a box only the end of a procedure is known.
    EXPECT_EQ(p[2].Riga, 26);
    EXPECT_EQ(p[2].Numero, 20);
    EXPECT_EQ(p[2].Testa, Testo("End Sub"));
    EXPECT_TRUE(p[2].Aperta && !p[2].Riquadro);

    EXPECT_EQ(s.ProceduraDi(1), -1);
    EXPECT_EQ(s.ProceduraDi(2), 0);
    EXPECT_EQ(s.ProceduraDi(16), 0);
    EXPECT_EQ(s.ProceduraDi(17), 1);
    EXPECT_EQ(s.ProceduraDi(27), 2);
}

TEST_F(Listato, RiquadriCheNonSonoProcedure) {
    // Neither a Type nor a box whose head is elsewhere; "subtotal = 1" begins as a Sub does.
    std::vector<std::string> storto = Riquadro("000010", "Sub Storta()");
    storto[2].insert(11, " ");
    std::vector<std::string> scoperto = Riquadro("000011", "Sub Scoperta()");
    scoperto.erase(scoperto.begin() + 1);
    // After the end of a procedure an error line belongs to another.
    Struttura s = Letta(
        Riquadro("000001", "Private Type Punto") + Riquadro("000009", "subtotal = 1") + storto + scoperto +
        Riquadro("000012", "Sub A()") +
        std::vector<std::string>{G("000013     ···End Sub"), Errore11, G("000014     ······End Property")});
    const auto& p = s.Procedure();
    ASSERT_EQ(p.size(), 3u);
    EXPECT_EQ(p[0].Testa, Testo("subtotal = 1"));
    EXPECT_EQ(p[1].Testa, Testo("Sub A()"));
    EXPECT_FALSE(p[1].Aperta);
    EXPECT_EQ(p[2].Testa, Testo("End Property"));

    Struttura mozza = Letta(Errore11 + "\r\n"); // cut after its error line
    EXPECT_EQ(mozza.Errori().size(), 1u);
    ASSERT_EQ(mozza.Procedure().size(), 1u);
    EXPECT_EQ(mozza.Procedure()[0].Testa, Testo());
}

// There the number field is five blanks, so all text is six columns further left.
TEST_F(Listato, OltreIlMilione) {
    const std::string p(8, ' ');
    const std::string stelle = p + std::string(101, '*');
    const std::string vuoto = p + "*" + std::string(99, ' ') + "*";
    Struttura s = Letta(std::vector<std::string>{
        G("999999     ···x"), stelle, vuoto, "     " + p + "  Sub Tardi()", vuoto, stelle,
        G("········┌─>If a Then b"), "     " + Errore11.substr(11), G("···········End Sub")});
    ASSERT_EQ(s.Procedure().size(), 1u);
    EXPECT_EQ(s.Procedure()[0].Riga, 3);
    EXPECT_EQ(s.Procedure()[0].Numero, 0);
    EXPECT_TRUE(s.Procedure()[0].Aperta);
    EXPECT_EQ(s.Errori(), (std::vector<Lungo>{7}));
    EXPECT_EQ(s.RigaDiNumero(1000000).value_or(-1), 0); // the last that has a number
}

TEST_F(Listato, NomiBrevi) {
    const std::pair<const char*, const char*> casi[] = {
        {"Private Sub Prova(n As Integer)", "Prova"},
        {"Public Function Somma() As Long", "Somma"},
        {"Sub a()", "a"},
        {"Sub a", "a"},
        {"PUBLIC STATIC SUB B ()", "B"},
        {"Property Get Nome() As String", "Nome (Property Get)"},
        {"Public Property Let Nome(s As String)", "Nome (Property Let)"},
        {"subtotal = 1", "subtotal = 1"},
        {"Sub ", "Sub "},
        {"Function Fmt$(ByVal in$)", "Fmt$"},
    };
    for (const auto& [testa, nome] : casi) EXPECT_EQ(NomeBreve({0, 0, testa, true, false}), nome);
    EXPECT_EQ(NomeBreve({0, 0, "End Sub", false, true}), "End Sub (testa senza riquadro)");
}

TEST_F(Listato, FineRiga) {
    struct Caso {
        const char* Nome;
        std::string Bytes;
        bool Lf;
        std::vector<std::string> Righe;
    };
    const Caso casi[] = {
        {"vuoto", "", false, {}},
        {"una riga vuota", "\r\n", false, {""}},
        {"CR LF", "a\r\nb\r\n", false, {"a", "b"}},
        {"senza fine", "a\r\nb", false, {"a", "b"}},
        {"righe vuote", "\r\n\r\nb\r\n\r\n", false, {"", "", "b", ""}},
        // In a file with CR LF, a lone LF is a byte of its line.
        {"LF dentro", "a\nb\r\nc\n", false, {"a\nb", "c\n"}},
        {"LF dentro, --lf", "a\nb\r\nc\n", true, {"a", "b", "c"}},
        {"solo LF", "a\nb\n\nc", false, {"a", "b", "", "c"}},
        {"CR dentro", "a\rb\r\r\nc\r", false, {"a\rb\r", "c\r"}},
        {"CR e LF", "\n\r\n", false, {"\n"}},
        {"zero", std::string("a\0b\r\n", 5), false, {std::string("a\0b", 3)}},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.Nome);
        Struttura s = Letta(caso.Bytes, caso.Lf);
        std::vector<std::string> lette;
        for (Lungo i = 0; i < s.Righe(); ++i) {
            lette.emplace_back(s.Riga(i));
            EXPECT_FALSE(s.Spezzata(i));
        }
        EXPECT_EQ(lette, caso.Righe);
    }
}

// Any file can be shown: an endless line is split, and nothing of it is lost.
TEST_F(Listato, RigaSenzaFine) {
    constexpr Lungo L = Struttura::LimiteRiga;
    Struttura intera = Letta(std::string(L, 'x') + "\r\ny\r\n");
    EXPECT_EQ(intera.Righe(), 2);
    EXPECT_FALSE(intera.Spezzata(0));
    EXPECT_EQ(Len(intera.Riga(0)), L);

    Struttura oltre = Letta(std::string(L + 1, 'x') + "\r\ny\r\n");
    EXPECT_EQ(oltre.Righe(), 3);
    EXPECT_TRUE(oltre.Spezzata(0));
    EXPECT_FALSE(oltre.Spezzata(1));
    EXPECT_EQ(Riga(oltre, 1), "x");
    EXPECT_EQ(Riga(oltre, 2), "y");

    Struttura lunga = Letta(std::string(3 * L + 7, 'x'));
    EXPECT_EQ(lunga.Righe(), 4);
    EXPECT_EQ(Len(lunga.Riga(3)), 7);
    EXPECT_EQ(lunga.Colonne(), L);
    EXPECT_LT(lunga.BytesTenuti(), 6u * (L + 300 * 1024));
}

TEST_F(Listato, QualunqueOrdine) {
    std::vector<std::string> righe;
    std::mt19937 caso(11);
    for (int i = 0; i < 6000; ++i) // a few long ones, so that blocks end by lines and by bytes
        righe.push_back(std::to_string(i) + std::string(i % 97 ? caso() % 60 : caso() % 60000, 'z'));
    Struttura s = Letta(righe);
    EXPECT_EQ(s.Righe(), 6000);
    for (int i = 0; i < 20000; ++i) {
        const std::size_t quale = caso() % 6000;
        ASSERT_EQ(Riga(s, static_cast<Lungo>(quale)), righe[quale]);
    }
}

// The amount of work: Carica reads each byte once, and a look at any line reads one block.
TEST_F(Listato, UnMilioneDiRighe) {
    std::string bytes;
    bytes.reserve(40'000'000);
    for (int i = 1; i <= 1'000'000; ++i) {
        if (i <= 999'999) {
            const std::string n = std::to_string(i);
            bytes.append(6 - n.size(), '0').append(n);
        }
        bytes.append("        x = x + 1 ' riga di prova\r\n");
    }
    const auto misura = static_cast<std::uint64_t>(bytes.size());
    Struttura s(cartella_.Scrivi("milione.log", bytes));
    s.Carica();
    EXPECT_EQ(s.Righe(), 1'000'000);
    EXPECT_EQ(s.BytesLetti(), misura);
    EXPECT_LT(s.BytesTenuti(), 64 * 1024); // an offset each thousand lines

    const auto prima = s.BytesLetti();
    EXPECT_EQ(s.Riga(777'776).substr(0, 6), "777777");
    EXPECT_LE(s.BytesLetti() - prima, 300 * 1024);
    const auto dopo = s.BytesLetti();
    for (Lungo i = 777'700; i < 777'760; ++i) ASSERT_FALSE(s.Riga(i).empty());
    EXPECT_LE(s.BytesLetti() - dopo, 300 * 1024);

    const auto cercato = s.BytesLetti();
    EXPECT_EQ(s.RigaDiNumero(500'000).value_or(-1), 499'999);
    EXPECT_LE(s.BytesLetti() - cercato, 600 * 1024);

    for (Lungo i = 0; i < s.Righe(); i += 5000) ASSERT_FALSE(s.Riga(i).empty());
    EXPECT_LT(s.BytesTenuti(), 3 * 1024 * 1024);
}

TEST_F(Listato, Numeri) {
    // 4 to 6 are missing, as where comments were left out.
    Struttura s = Letta(std::vector<std::string>{"testata", G("000001     ···a"), G("000002     ···b"),
                                                 G("000003     ···c"), G("000007     ···d"), Errore11,
                                                 G("000008     ···e")});
    EXPECT_EQ(Struttura::NumeroDi(s.Riga(0)), 0);
    EXPECT_EQ(Struttura::NumeroDi(s.Riga(4)), 7);
    EXPECT_EQ(Struttura::NumeroDi(s.Riga(5)), 0);
    const std::pair<Lungo, Lungo> casi[] = {{0, 1}, {1, 1}, {3, 3}, {4, 4},        {6, 4},
                                            {7, 4}, {8, 6}, {9, 6}, {999999999, 6}};
    for (const auto& [numero, riga] : casi) EXPECT_EQ(s.RigaDiNumero(numero).value_or(-1), riga);
    EXPECT_FALSE(Letta(std::string("a\r\nb\r\n")).RigaDiNumero(1).has_value());
    EXPECT_FALSE(Letta(std::string()).RigaDiNumero(1).has_value());
}

TEST_F(Listato, Trova) {
    constexpr Posizione no = Assente;
    constexpr Posizione cima{0, 0}, fondo{28, 0};
    struct Caso {
        const char* Nome;
        const char16_t* Testo;
        bool Avanti;
        Posizione Da, Atteso;
    };
    const Caso casi[] = {
        {"primo", u"prova", true, cima, {2, 39}}, // 11 + 16 blanks + "Private Sub "
        {"maiuscole", u"PROVA", true, cima, {2, 39}},
        {"accento piegato", u"perché", true, cima, {10, 27}},
        {"il secondo", u"perché", true, {10, 28}, {23, 16}},
        {"anche qui", u"perché", true, {10, 27}, {10, 27}},
        {"non gira", u"perché", true, {23, 17}, no},
        {"indietro", u"PERCHÉ", false, fondo, {23, 16}},
        {"indietro, prima di", u"PERCHÉ", false, {23, 16}, {10, 27}},
        {"indietro, mai", u"perché", false, {10, 27}, no},
        {"connettore", u"╔═>for", true, cima, {6, 14}},
        {"connettori e blanks", u"║  ┌─>if i", true, cima, {7, 14}},
        {"barra", u"══Exit", true, cima, {8, 20}}, // 11 + "<<" + 9 strokes, two of them
        // The letters that share a byte with a connector are not the connector.
        {"É", u"ÉÍ", true, cima, no},
        {"é", u"ché", true, cima, {10, 30}},
        {"Ú", u"Ú", true, cima, no},
        {"errore", u"PIÙ elementi", true, cima, {21, 49}}, // 11 + 38
        {"due righe", u"Next i\r\n", true, cima, no},
        {"assente", u"zebra", true, cima, no},
        {"non mostrato", u"日", true, cima, no},
        {"numero", u"000016", true, cima, {22, 0}},
        {"vuoto", u"", true, cima, no},
    };
    Struttura s = Letta(Esempio());
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.Nome);
        const Posizione dove = s.Trova(Ago(caso.Testo), caso.Da, caso.Avanti).value_or(Assente);
        EXPECT_EQ(std::pair(dove.Riga, dove.Byte), std::pair(caso.Atteso.Riga, caso.Atteso.Byte));
    }
}

TEST_F(Listato, TrovaTraIBlocchi) {
    std::vector<std::string> righe;
    for (int i = 0; i < 5000; ++i) righe.emplace_back(i == 1500 || i == 4000 ? "ago e ago" : "paglia");
    Struttura s = Letta(righe);
    const Ago ago(u"AGO");
    const Posizione tutti[] = {{1500, 0}, {1500, 6}, {4000, 0}, {4000, 6}};
    Posizione da;
    for (const Posizione& atteso : tutti) {
        const auto qui = s.Trova(ago, da, true).value_or(Assente);
        EXPECT_TRUE(qui == atteso);
        da = {qui.Riga, qui.Byte + 1};
    }
    EXPECT_FALSE(s.Trova(ago, da, true));
    da = {5000, 0};
    for (int i = 3; i >= 0; --i) {
        da = s.Trova(ago, da, false).value_or(Assente);
        EXPECT_TRUE(da == tutti[i]);
    }
    EXPECT_FALSE(s.Trova(ago, da, false));
    EXPECT_FALSE(Letta(std::string()).Trova(ago, {}, true));
}

TEST_F(Listato, TrovaNellaRiga) {
    const std::string bytes = G("000001     ···│··É = É");
    const Vista riga = bytes;
    std::vector<Porzione> fette;
    TagliaRiga(riga, fette);
    EXPECT_EQ(Ago(u"é").In(riga, fette, 0, Len(riga)), 17);
    EXPECT_EQ(Ago(u"é").In(riga, fette, 18, Len(riga)), 21);
    EXPECT_EQ(Ago(u"é").In(riga, fette, 18, 21), -1);
    EXPECT_EQ(Ago(u"│").In(riga, fette, 0, Len(riga)), 14);
    EXPECT_EQ(Ago(u"³").In(riga, fette, 0, Len(riga)), -1);
    EXPECT_EQ(Ago().In(riga, fette, 0, Len(riga)), -1);
    // The same bytes as letters stay letters.
    const Vista lettere = "\xC9\xCD>x";
    TagliaRiga(lettere, fette);
    EXPECT_EQ(Ago(u"ÉÍ>X").In(lettere, fette, 0, 4), 0);
    EXPECT_EQ(Ago(u"╔═>").In(lettere, fette, 0, 4), -1);
}

TEST_F(Listato, Guasti) {
    EXPECT_EQ(Numero(cartella_.Percorso("manca.log")), int{ErrFileAssente});
    EXPECT_EQ(Numero(cartella_.Percorso("")), int{ErrAccesso}); // the directory itself
}

TEST_F(Listato, SenzaPermesso) {
    const auto chiuso = cartella_.Scrivi("chiuso.log", "x\r\n");
    std::filesystem::permissions(chiuso, std::filesystem::perms::none);
    if (std::ifstream(chiuso)) GTEST_SKIP() << "nothing is closed to this user";
    EXPECT_EQ(Numero(chiuso), int{ErrAccesso});
}

TEST_F(Listato, CambiaSotto) {
    const auto percorso = cartella_.Scrivi("muta.log", Unite(Esempio()));
    Struttura s(percorso);
    EXPECT_TRUE(s.Cambiata());
    s.Carica();
    EXPECT_FALSE(s.Cambiata());
    // Cut short in the middle of line 2: what is gone comes out empty.
    std::filesystem::resize_file(percorso, Unite(Riquadro("", "")).size() / 2);
    EXPECT_TRUE(s.Cambiata());
    for (Lungo i = 0; i < s.Righe(); ++i) s.Riga(i);
    EXPECT_EQ(Riga(s, 1), Esempio()[1]);
    EXPECT_LT(Riga(s, 2).size(), Esempio()[2].size());
    EXPECT_EQ(Riga(s, 3), "");
    // Replaced by a shorter one while blocks of the old one are kept.
    cartella_.Scrivi("muta.log", "corta\r\n");
    EXPECT_TRUE(s.Cambiata());
    for (Lungo i = 0; i < s.Righe(); ++i) s.Riga(i);
    EXPECT_EQ(Riga(s, 27), "");
    s.Trova(Ago(u"x"), {}, true);
    EXPECT_FALSE(s.RigaDiNumero(20).has_value());
    s.Carica();
    EXPECT_EQ(s.Righe(), 1);
    EXPECT_FALSE(s.Cambiata());
    std::filesystem::remove(percorso);
    EXPECT_TRUE(s.Cambiata());
    EXPECT_THROW(s.Carica(), Errore);
    EXPECT_EQ(s.Righe(), 1); // as it was
    s.Svuota();
    EXPECT_EQ(s.Righe(), 0);
    EXPECT_TRUE(s.Procedure().empty());
}

// With lines added before it the place is the same line of the same procedure.
TEST_F(Listato, Appigli) {
    Struttura s = Letta(Esempio());
    const Appiglio dentro = s.Prendi({20, 5});
    const Appiglio prima = s.Prendi({1, 3});
    Struttura piu = Letta(std::vector<std::string>{"a", "b", "c"} + Esempio());
    EXPECT_TRUE(piu.Ritrova(dentro) == (Posizione{23, 5}));
    EXPECT_TRUE(piu.Ritrova(prima) == (Posizione{1, 3})); // above any procedure: the same line
    Struttura altra = Letta(std::vector<std::string>{"a", "b"});
    EXPECT_TRUE(altra.Ritrova(dentro) == (Posizione{1, 5})); // the procedure is gone: the nearest line
    EXPECT_TRUE(Letta(std::string()).Ritrova(dentro) == (Posizione{0, 5}));

    // The second of two with the same head.
    const std::vector<std::string> due = Riquadro("000001", "Sub A()") + Riquadro("000002", "Sub A()");
    Struttura doppia = Letta(due);
    const Appiglio seconda = doppia.Prendi({8, 0}); // its head is line 7
    Struttura spostata = Letta(std::vector<std::string>{"x"} + due);
    EXPECT_TRUE(spostata.Ritrova(seconda) == (Posizione{9, 0}));
}

TEST_F(Listato, Tabulatori) {
    const Vista riga = "a\tb\t\tc"; // columns 0, 1, 8, 9, 16, 24; the end 25
    const Lungo colonne[] = {0, 1, 8, 9, 16, 24, 25};
    for (Lungo i = 0; i <= 6; ++i) EXPECT_EQ(ColonnaDiByte(riga, i), colonne[i]);
    const std::pair<Lungo, Lungo> bytes[] = {{0, 0},  {1, 1},  {5, 1},  {7, 1},  {8, 2}, {9, 3},
                                             {15, 3}, {16, 4}, {24, 5}, {25, 6}, {99, 6}};
    for (const auto& [colonna, byte] : bytes) EXPECT_EQ(ByteDiColonna(riga, colonna), byte);
    EXPECT_EQ(Letta(std::string("x\r\na\tb\r\n")).Colonne(), 9);
}

} // namespace

} // namespace morvella::lettore

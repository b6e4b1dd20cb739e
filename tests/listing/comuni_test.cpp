// SPDX-License-Identifier: MIT
//
// The batch writer: the same bytes as line by line, whatever the lines are.
#include <random>

#include "listing/banco.h"
#include "listing/comuni.h"

namespace morvella {

namespace {

using namespace prove;

class Caso {
  public:
    explicit Caso(unsigned seme) : sorte_(seme) {}
    std::size_t Fra(std::size_t n) { return sorte_() % n; }

    Testo Riga() {
        static constexpr const char* Inizi[] = {
            "If a Then", "#If a Then",  "For i = 1 To 2", "Do",       "While a",
            "With a",    "Select Case", "Case 1",         "Else",     "#Else",
            "ElseIf b",  "End If",      "#End If",        "Next",     "Loop",
            "End With",  "End Select",  "Select Case a",  "End",      "x = 1",
            "",          "'* vecchia",  "' nota",         "Rem",      "Exit Do",
            "Exit Sub",  "Exit For",    "Exit",           "DoEvents", "\xB3\xC9\xCD",
        };
        Testo riga = Inizi[Fra(std::size(Inizi))];
        if (Fra(3) == 0) riga += Testo(Fra(10), ' ') + Testo(Fra(Fra(20) == 0 ? 400 : 90), 'z');
        return riga;
    }

    // Procedures whose blocks mostly close.
    Testo Modulo(std::size_t righe, std::size_t profonda) {
        Testo bytes;
        const auto metti = [&](const Testo& riga) {
            static constexpr const char* Fini[] = {"\r\n", "\r\n", "\r\n", "\r\n", "\r", "  \r\n", "\r\n\n"};
            bytes += Testo(Fra(5) * 4, ' ') + riga + Fini[Fra(std::size(Fini))];
        };
        for (std::size_t fatte = 0; fatte < righe;) {
            static constexpr const char* Teste[] = {"Private Sub a()", "Function b()", "Property Get c()",
                                                    "Public Type d"};
            static constexpr const char* Fini[] = {"End Sub", "End Function", "End Property"};
            metti(Teste[Fra(std::size(Teste))]);
            for (std::size_t n = Fra(profonda); n > 0; --n) metti(Fra(2) ? "If a Then" : "For i = 1 To 2");
            for (std::size_t n = Fra(60); n > 0; --n, ++fatte) metti(Riga());
            metti(Fini[Fra(std::size(Fini))]);
            if (Fra(40) == 0) metti("Attribute VB_Exposed = False");
            if (Fra(3) == 0) metti("");
        }
        return bytes;
    }

  private:
    std::mt19937 sorte_;
};

struct Esito {
    Testo Log;
    std::vector<Testo> Arresti;
    Testo Stato;
    bool operator==(const Esito&) const = default;
};

Esito Elenca(const Testo& bytes, bool segue, int togliCommenti, bool lf = false) {
    Banco b;
    b.Fronte.Segue = segue;
    b.S.TogliCommenti = togliCommenti;
    b.S.Canale.FineRigaLf = lf;
    b.Modulo("F.frm", bytes);
    b.Tutte();
    mnuvorn_Click(b.S);
    Esito esito{b.Log("F.log"), {}, Testo(Vista(b.S.Margine)) + '|' + Testo(Vista(b.S.StoriaBlocchi))};
    for (const Arresto& a : b.Fronte.Arresti)
        esito.Arresti.push_back(CStr(a.Causa.Numero) + '|' + CStr(a.Riga) + '|' + CStr(a.RigaListato) + '|' +
                                a.Linea);
    return esito;
}

TEST(Comuni, ComeUnaPerUna) {
    for (unsigned seme = 0; seme < 300; ++seme) {
        Caso caso(seme);
        const Testo bytes = caso.Modulo(400, seme % 3 == 0 ? 14 : 3);
        const int togli = seme % 2 == 0 ? 0 : 1;
        const bool lf = seme % 7 == 0;
        const Esito una = Elenca(bytes, true, togli, lf);
        const Esito molte = Elenca(bytes, false, togli, lf);
        ASSERT_TRUE(una == molte) << seme;
    }
}

// Buffers that fill up anywhere in a line.
TEST(Comuni, ABlocchiPieni) {
    for (unsigned seme = 0; seme < 8; ++seme) {
        Caso caso(seme + 1000);
        const Testo bytes = Testo(Canali::Blocco - 700 + 97 * seme, 'x') + "\r\n" + caso.Modulo(9000, 6);
        ASSERT_TRUE(Elenca(bytes, true, 0) == Elenca(bytes, false, 0)) << seme;
    }
}

TEST(Comuni, INumeriFinoAllUltimo) {
    Testo bytes = "Sub a()\r\n";
    for (int i = 0; i < 1000020; ++i) bytes += i % 3 == 0 ? "If a\r\n" : i % 3 == 1 ? "x\r\n" : "End If\r\n";
    const Testo log = Elenca(bytes, false, 0).Log;
    // The box's 101 stars, two sides, its line; then 999,998 lines with numbers.
    const auto riga = [&](Lungo n) { // the n-th line of the listing
        std::size_t inizio = 0;
        for (; n > 1; --n) inizio = log.find('\n', inizio) + 1;
        return log.substr(inizio, log.find('\r', inizio) - inizio);
    };
    EXPECT_EQ(riga(6), "000002        \xDA\xC4>If a");
    EXPECT_EQ(riga(13), "000009        \xB3  x");
    EXPECT_EQ(riga(14), "000010        \xC0\xC4>End If");
    EXPECT_EQ(riga(1000003), "999999        \xB3  x");
    EXPECT_EQ(riga(1000004), "        \xC0\xC4>End If");
    EXPECT_EQ(riga(1000005), "        \xDA\xC4>If a");
}

// What is written as a batch, and what is left for ElencaRiga.
TEST(Comuni, QuanteInUnaVolta) {
    struct Prova {
        std::vector<const char*> Righe;
        std::size_t Quante;
        const char* Margine;
    };
    const Prova casi[] = {
        {{"x", "If a Then", "y", "Else", "z", "End If"}, 6, "···"},
        {{"For a", "If b Then", "End With"}, 3, "···║··"},
        {{"x", "'* y"}, 1, "···"},
        {{"' nota", "x", "Exit Sub"}, 2, "···"},
        {{"Next", "Next", "End", "Sub a()"}, 3, "···"}, // the floor
        {{"x", "Attribute VB_Exposed = False"}, 1, "···"},
        {{"End Sub"}, 0, "···"},
        {{"Type a", "Public Type b"}, 1, "···"},
    };
    for (const Prova& prova : casi) {
        Banco b;
        b.Disco.FaiDirectory("/p/Appoggio");
        b.S.Punto.MargineSeguito = false;
        b.S.Margine = Space(3);
        b.S.StoriaBlocchi = "00";
        b.S.ContaRighe = 41;
        std::vector<std::string> righe(prova.Righe.begin(), prova.Righe.end());
        b.Disco.Metti("/p/in", Sorgente(righe) + "fine");
        b.S.Canale.OpenInput(1, "\\p\\in");
        b.S.Canale.OpenOutput(2, "\\p\\Appoggio\\x.log");
        RigheSorgente sorgente(b.S);
        EXPECT_FALSE(sorgente.Finita());
        EXPECT_TRUE(sorgente.Pronte().empty()); // none is read
        sorgente.Prossima();
        sorgente.Salta(-1);
        ASSERT_EQ(sorgente.Pronte().size(), righe.size());
        EXPECT_EQ(ElencaComuni(b.S, sorgente.Pronte()), prova.Quante) << prova.Righe[0];
        EXPECT_EQ(b.S.Margine, DaGlifi(prova.Margine)) << prova.Righe[0];
        EXPECT_EQ(b.S.Numero, CampoNumero(41 + static_cast<Lungo>(prova.Quante)));
        b.S.Canale.Close(2);
        const Testo log = b.Log("x.log");
        EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), static_cast<Lungo>(prova.Quante));
        // None where the front end watches, from a wide margin, or into a channel that is not open.
        b.S.Canale.OpenOutput(2, "\\p\\Appoggio\\x.log");
        b.S.Punto.MargineSeguito = true;
        EXPECT_EQ(ElencaComuni(b.S, sorgente.Pronte()), 0u);
        b.S.Punto.MargineSeguito = false;
        b.S.Margine = Space(33);
        EXPECT_EQ(ElencaComuni(b.S, sorgente.Pronte()), 0u);
        b.S.Margine = Space(3);
        b.S.Canale.Close(2);
        EXPECT_EQ(ElencaComuni(b.S, sorgente.Pronte()), 0u);
    }
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "banco.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <tuple>
#include <vector>

#include "generatore.h"

namespace morvella::esame {

namespace {

TEST(EsameProprieta, ModuliSani) {
    std::mt19937 caso(11);
    for (int volta = 0; volta < 300; ++volta) {
        const Scelte scelte{
            .Condizionale = volta % 3 != 0, .Sbilanciati = volta % 3 == 2, .RientriACaso = volta % 2 == 0};
        const std::string testo = Genera(caso, scelte).Testo();
        const std::string detto = Detto(Esamina(testo));
        ASSERT_EQ(detto, "") << testo;
    }
}

struct Conto {
    int Piantati = 0, Detti = 0, Uno = 0, Giusti = 0;
};

bool Giusto(const Guasto& g, const Esame& esame) {
    if (esame.Rilievi.size() != 1) return false;
    const Rilievo& r = esame.Rilievi.front();
    const auto tra = [&](std::uint32_t riga) {
        return std::find(g.Righe.begin(), g.Righe.end(), riga) != g.Righe.end();
    };
    if (!g.Procedura.empty() && r.Procedura != g.Procedura) return false;
    return tra(r.Riga) || tra(r.Apertura);
}

Conto Conta(unsigned seme, const Scelte& scelte, int volte) {
    std::mt19937 caso(seme);
    std::map<std::string, Conto> conti;
    Conto tutti;
    const char* mostra = std::getenv("MORVELLA_GUASTI"); // prints what was not told as it should be
    while (tutti.Piantati < volte) {
        const Modulo modulo = Genera(caso, scelte);
        for (int i = 0; i < 8; ++i) {
            const Guasto g = Pianta(caso, modulo);
            const Esame esame = Esamina(g.Testo);
            Conto& conto = conti[g.Nome];
            const bool detto = !esame.Rilievi.empty();
            const bool giusto = Giusto(g, esame);
            for (Conto* c : {&conto, &tutti}) {
                ++c->Piantati;
                c->Detti += detto;
                c->Uno += esame.Rilievi.size() == 1;
                c->Giusti += giusto;
            }
            if (mostra && !giusto) {
                printf("=== %s, %u %s\n%s", g.Nome.c_str(), g.Righe[0], g.Procedura.c_str(),
                       Detto(esame).c_str());
                if (*mostra == '2') printf("%s", g.Testo.c_str());
            }
        }
    }
    if (mostra)
        for (const auto& [nome, c] : conti)
            printf("%-24s %5d detti %5d uno %5d giusti %5d\n", nome.c_str(), c.Piantati, c.Detti, c.Uno,
                   c.Giusti);
    return tutti;
}

TEST(EsameProprieta, GuastiDetti) {
    const Conto c = Conta(5, {}, 2000);
    EXPECT_GE(c.Detti * 1000, c.Piantati * 999) << c.Detti << " of " << c.Piantati;
    EXPECT_GE(c.Uno * 1000, c.Piantati * 995) << c.Uno << " of " << c.Piantati;
    EXPECT_GE(c.Giusti * 1000, c.Piantati * 995) << c.Giusti << " of " << c.Piantati;
}

TEST(EsameProprieta, GuastiDettiSenzaRientri) {
    const Conto c = Conta(6, {.RientriACaso = true}, 1000);
    EXPECT_GE(c.Detti * 1000, c.Piantati * 999) << c.Detti << " of " << c.Piantati;
}

// Lengths of the lines, for positions that must lie inside.
std::vector<std::size_t> Lunghezze(const std::string& testo) {
    std::vector<std::size_t> lunghe;
    for (std::size_t da = 0; da < testo.size();) {
        const std::size_t a = std::min(testo.find('\n', da), testo.size());
        lunghe.push_back(a - da);
        da = a + 1;
    }
    return lunghe;
}

void ProvaQualsiasi(const std::string& testo) {
    const Esame esame = Esamina(testo);
    const std::vector<std::size_t> lunghe = Lunghezze(testo);
    if (esame.Rilievi.size() == 1 && esame.Rilievi.front().Quale == Tipo::NonTesto) {
        ASSERT_NE(testo.find('\0'), testo.npos);
        return;
    }
    ASSERT_EQ(esame.Righe, lunghe.size());
    const Rilievo* prima = nullptr;
    for (const Rilievo& r : esame.Rilievi) {
        ASSERT_GE(r.Riga, 1u);
        ASSERT_LE(r.Riga, esame.Righe);
        ASSERT_GE(r.Colonna, 1u);
        ASSERT_LE(r.Colonna, lunghe[r.Riga - 1]);
        ASSERT_GE(r.Nota, r.Riga);
        ASSERT_LE(r.Nota, esame.Righe);
        ASSERT_LE(r.Apertura, r.Nota);
        ASSERT_NE(r.Cosa, Blocco::Nessuno);
        if (prima) {
            ASSERT_LE(std::tie(prima->Riga, prima->Colonna, prima->Quale),
                      std::tie(r.Riga, r.Colonna, r.Quale));
        }
        if (r.Procedura) {
            ASSERT_NE(testo.find(*r.Procedura), testo.npos);
        }
        prima = &r;
    }
    ASSERT_EQ(Esamina(std::string(testo)).Rilievi, esame.Rilievi);
}

TEST(EsameProprieta, ByteQualsiasi) {
    std::mt19937 caso(3);
    for (int volta = 0; volta < 400; ++volta) {
        std::string testo;
        for (auto n = caso() % 3000; n > 0; --n)
            testo += static_cast<char>(caso() % (volta % 2 ? 256 : 128) | (volta % 3 ? 1 : 0));
        ProvaQualsiasi(testo);
        if (HasFatalFailure()) FAIL() << volta;
    }
}

TEST(EsameProprieta, CodiceGuastato) {
    std::mt19937 caso(4);
    constexpr std::string_view pezzi[] = {"If a Then\n",
                                          "End If\n",
                                          "#If a Then\n",
                                          "#End If\n",
                                          "#Else\n",
                                          "\n",
                                          ":",
                                          "\"",
                                          "'",
                                          " _\n",
                                          "End Sub\n",
                                          "Sub X()\n",
                                          "Next",
                                          "Else ",
                                          "Then ",
                                          "\nEnd\n",
                                          "\nEndProperty\n",
                                          "[",
                                          "#",
                                          "\r"};
    int conRilievi = 0;
    for (int volta = 0; volta < 250; ++volta) {
        std::string testo = Genera(caso, {.Sbilanciati = volta % 2 == 0, .Procedure = 2}).Testo();
        for (auto n = caso() % 12; n > 0; --n) {
            const std::size_t dove = caso() % testo.size();
            switch (caso() % 3) {
            case 0: testo.erase(dove, caso() % 40); break;
            case 1: testo.insert(dove, pezzi[caso() % std::size(pezzi)]); break;
            default: testo.insert(dove, testo.substr(caso() % testo.size(), caso() % 60));
            }
        }
        ProvaQualsiasi(testo);
        if (HasFatalFailure()) FAIL() << testo;
        conRilievi += !Esamina(testo).Rilievi.empty();
    }
    EXPECT_GT(conRilievi, 100);
}

} // namespace

} // namespace morvella::esame

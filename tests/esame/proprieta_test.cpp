// SPDX-License-Identifier: MIT
#include "banco.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <tuple>

#include "generatore.h"

namespace morvella::esame {

namespace {

TEST(EsameProprieta, ModuliSani) {
    std::mt19937 caso(11);
    for (int volta = 0; volta < 600; ++volta) {
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
    const Conto c = Conta(5, {}, 6000);
    EXPECT_GE(c.Detti * 1000, c.Piantati * 999) << c.Detti << " of " << c.Piantati;
    EXPECT_GE(c.Uno * 1000, c.Piantati * 995) << c.Uno << " of " << c.Piantati;
    EXPECT_GE(c.Giusti * 1000, c.Piantati * 995) << c.Giusti << " of " << c.Piantati;
}

TEST(EsameProprieta, GuastiDettiSenzaRientri) {
    const Conto c = Conta(6, {.RientriACaso = true}, 3000);
    EXPECT_GE(c.Detti * 1000, c.Piantati * 999) << c.Detti << " of " << c.Piantati;
}

} // namespace

} // namespace morvella::esame

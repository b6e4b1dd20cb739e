// SPDX-License-Identifier: MIT
//
// The pages of manual/rilievi.md: what they show of the program is what it says, and what they mend is
// mended.
#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "cli/esamina_banco.h"
#include "esame/rilievo.h"
#include "text/codifica.h"

namespace morvella::cli {

namespace {

struct Pagina {
    std::vector<std::string> Codice; // the wrong one, then the mended one
    std::string Detto;
};

std::string LeggiFile(const std::string& file) {
    std::ifstream in(std::string(MORVELLA_RADICE) + "/" + file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

std::map<std::string, Pagina> LeggiPagine() {
    std::istringstream in(LeggiFile("manual/rilievi.md"));
    std::map<std::string, Pagina> pagine;
    Pagina* pagina = nullptr;
    for (std::string riga; std::getline(in, riga);) {
        if (riga.starts_with("## ")) pagina = &pagine[riga.substr(3)];
        if (!pagina || !riga.starts_with("```")) continue;
        const bool codice = riga == "```vb";
        std::string blocco;
        while (std::getline(in, riga) && riga != "```") blocco += riga + (codice ? "\r\n" : "\n");
        if (codice)
            pagina->Codice.push_back(Bytes1252DaUtf8(blocco).value());
        else
            pagina->Detto += blocco;
    }
    return pagine;
}

TEST(Manuale, OgniRegolaHaLaSuaPagina) {
    const auto pagine = LeggiPagine();
    EXPECT_EQ(pagine.size(), esame::Regole().size());
    for (const esame::Regola& regola : esame::Regole()) {
        const std::string titolo = std::string(regola.Id) + " " + std::string(regola.Nome);
        ASSERT_TRUE(pagine.contains(titolo)) << titolo;
        const Pagina& pagina = pagine.at(titolo);
        if (regola.Quale == esame::Tipo::NonTesto) continue; // no example can show a NUL
        ASSERT_EQ(pagina.Codice.size(), 2U) << titolo;
        EXPECT_NE(pagina.Detto.find("[" + std::string(regola.Id) + "]"), std::string::npos) << titolo;
        prove::BancoEsame b;
        b.Disco.Metti("/casa/Esempio.bas", pagina.Codice[0]);
        EXPECT_EQ(b.Esegui({"Esempio.bas"}), 4) << titolo;
        EXPECT_EQ(b.Uscita.str().substr(0, pagina.Detto.size()), pagina.Detto) << titolo;
        EXPECT_TRUE(b.Uscita.str().substr(pagina.Detto.size()).starts_with("1 rilievo in 1 modulo, "))
            << b.Uscita.str();
        b.Disco.Metti("/casa/Esempio.bas", pagina.Codice[1]);
        EXPECT_EQ(b.Esegui({"Esempio.bas"}), 0) << titolo << '\n' << b.Uscita.str();
    }
}

// What the guide shows of the sample project.
TEST(Manuale, LaGuidaMostraIlVero) {
    const auto disco = DiscoReale();
    std::istringstream ingresso;
    std::ostringstream uscita, errori;
    Ambiente ambiente{.Macchina = *disco, .Ingresso = ingresso, .Uscita = uscita, .Errori = errori};
    const std::string esempi = std::string(MORVELLA_RADICE) + "/examples";
    EXPECT_EQ(Programma({"esamina", "--radice", esempi, esempi + "/Magazzino/Magazzino.vbp"}, ambiente), 4);
    EXPECT_EQ(errori.str(), "");
    std::string mostrato = "    $ morvella-cli esamina Magazzino/Magazzino.vbp\n";
    std::istringstream righe(uscita.str());
    for (std::string riga; std::getline(righe, riga);) mostrato += "    " + riga + "\n";
    EXPECT_NE(LeggiFile("manual/guida.md").find(mostrato), std::string::npos) << mostrato;
}

} // namespace

} // namespace morvella::cli

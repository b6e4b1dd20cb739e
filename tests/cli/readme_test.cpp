// SPDX-License-Identifier: MIT
//
// The files that README shows are the real ones: a block after "<!-- file: PATH -->" is that file, one
// after "<!-- listing: PATH -->" a structure as it is displayed.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "listing/decodifica.h"

namespace morvella {

namespace {

std::string Leggi(const std::string& percorso) {
    std::ifstream in(std::string(MORVELLA_RADICE) + "/" + percorso, std::ios::binary);
    EXPECT_TRUE(in) << percorso;
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string ComeTesto(const std::string& percorso, bool struttura) {
    std::string utf8;
    std::istringstream righe(Leggi(percorso));
    std::vector<Tratto> tratti;
    for (std::string riga; std::getline(righe, riga);) {
        if (!riga.empty() && riga.back() == '\r') riga.pop_back();
        if (struttura) {
            DecodificaRiga(riga, tratti);
            for (const Tratto& tratto : tratti) utf8 += tratto.Utf8;
        } else {
            utf8 += Utf8Da1252(riga);
        }
        utf8 += '\n';
    }
    return utf8;
}

TEST(Readme, MostraIlVero) {
    std::istringstream righe(Leggi("README.md"));
    int blocchi = 0;
    for (std::string riga; std::getline(righe, riga);) {
        const bool struttura = riga.starts_with("<!-- listing: ");
        if (!struttura && !riga.starts_with("<!-- file: ")) continue;
        const std::size_t da = riga.find(": ") + 2;
        const std::string percorso = riga.substr(da, riga.find(" -->") - da);
        std::getline(righe, riga); // the fence
        ASSERT_TRUE(riga.starts_with("```")) << percorso;
        std::string blocco;
        while (std::getline(righe, riga) && riga != "```") blocco += riga + '\n';
        EXPECT_EQ(blocco, ComeTesto(percorso, struttura)) << percorso;
        ++blocchi;
    }
    EXPECT_EQ(blocchi, 3);
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
#include "text/flusso.h"

#include <gtest/gtest.h>

#include "sostegno/disco_finto.h"
#include "text/numero_di.h"

namespace morvella {

namespace {

using prove::DiscoFinto;
using prove::ErroreDi;
using prove::NumeroDi;

TEST(Flusso, ReadLine) {
    struct Caso {
        Testo Bytes;
        std::vector<Testo> Righe;
    };
    const Caso casi[] = {
        {"", {}},
        {"a", {"a"}}, // a last line without an end
        {"a\r\n", {"a"}},
        {"a\r\nb\r\n", {"a", "b"}},
        {"\r\n\r\n", {"", ""}},
        {"KO\r\nKO\r\n\r\nKO\r\n", {"KO", "KO", "", "KO"}},
        {" a \t\r\n", {" a \t"}}, // as it stands
        {Testo("\xE8\0", 2), {Testo("\xE8\0", 2)}},
        {Testo(10000, 'x') + "\r\n", {Testo(10000, 'x')}},
        {Testo(4095, 'x') + "\r\ny", {Testo(4095, 'x'), "y"}},
    };
    for (const Caso& c : casi) {
        DiscoFinto disco;
        Archivio file(disco);
        disco.Metti("/p/Default.ini", c.Bytes);
        FlussoTesto flusso(file, "\\p\\DEFAULT.INI");
        EXPECT_EQ(flusso.AtEndOfStream(), c.Bytes.empty()); // at once for an empty file
        std::vector<Testo> righe;
        while (!flusso.AtEndOfStream()) righe.emplace_back(flusso.ReadLine());
        EXPECT_EQ(righe, c.Righe);
        for (int i = 0; i < 2; ++i) {
            const Errore e = ErroreDi([&] { return flusso.ReadLine(); });
            EXPECT_EQ(e.Numero, 62);
            EXPECT_EQ(e.File, "\\p\\DEFAULT.INI");
        }
    }
}

TEST(Flusso, NonSiApre) {
    DiscoFinto disco;
    Archivio file(disco);
    disco.FaiDirectory("/p/dir");
    struct Caso {
        const char* Percorso;
        int Numero;
    };
    constexpr Caso Casi[] = {{"\\p\\manca", 53}, {"\\p\\manca\\x", 76}, {"\\p\\dir", 75}};
    for (const Caso& c : Casi)
        EXPECT_EQ(NumeroDi([&] { return FlussoTesto(file, c.Percorso).AtEndOfStream(); }), c.Numero);
}

} // namespace

} // namespace morvella

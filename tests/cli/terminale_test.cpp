// SPDX-License-Identifier: MIT
//
// The process's own terminal: encodings and pages.
#include "cli/terminale.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

namespace morvella::cli {

namespace {

TEST(InCodifica, ConnettoriEAccenti) {
    const std::string riga = "000005  ╔═>For perché │ ║ ├─>Else <<══ └─ ┌ ╚";
    EXPECT_EQ(InCodifica(riga, "UTF-8"), riga);
    EXPECT_EQ(InCodifica(riga, "ISO-8859-1"), "000005  +=>For perch\xE9 | | +->Else <<== +- + +");
    // This old code page has them all.
    EXPECT_EQ(InCodifica(riga, "CP850"),
              "000005  \xC9\xCD>For perch\x82 \xB3 \xBA \xC3\xC4>Else <<\xCD\xCD \xC0\xC4 \xDA \xC8");
    EXPECT_EQ(InCodifica("perché", "ISO-8859-1"), "perch\xE9");
    EXPECT_EQ(InCodifica("", "ISO-8859-1"), "");
    EXPECT_EQ(InCodifica(riga, "codifica-che-non-c-e"), riga);
}

TEST(InCodifica, QuelCheManca) {
    EXPECT_EQ(InCodifica("a\u4E00b", "ISO-8859-1"), "a?b"); // one mark for a character of three bytes
    EXPECT_EQ(InCodifica("\u4E00\u4E00", "CP850"), "??");
    // Longer than what is converted in one go.
    std::string lunga, attesa;
    for (int i = 0; i < 500; ++i) {
        lunga += "è│";
        attesa += "\xE8|";
    }
    EXPECT_EQ(InCodifica(lunga, "ISO-8859-1"), attesa);
}

// The pager gets the text, and less is told about UTF-8 where the locale says nothing.
TEST(Impagina, ConUnImpaginatoreSuo) {
    std::string modello = (std::filesystem::temp_directory_path() / "morvella-impagina-XXXXXX").string();
    ASSERT_NE(::mkdtemp(modello.data()), nullptr); // its own, whatever else runs at the same time
    const std::filesystem::path dove = modello;
    const std::string programma = (dove / "pagina").string();
    std::ofstream(programma) << "#!/bin/sh\n{ echo \"$LESSCHARSET|$LESS\"; cat; } > \"$0.detto\"\n";
    std::filesystem::permissions(programma, std::filesystem::perms::owner_all);
    const auto detto = [&] {
        const auto disco = DiscoReale();
        std::setlocale(LC_CTYPE, "C");
        const auto impagina = AmbienteDelProcesso(*disco).Impagina;
        EXPECT_TRUE(impagina()->Scrivi("╔═>\n")); // gone again at once: the pager has ended
        std::ostringstream testo;
        testo << std::ifstream(programma + ".detto").rdbuf();
        return testo.str();
    };
    ::setenv("PAGER", programma.c_str(), 1);
    ::setenv("LC_ALL", "C", 1);
    ::unsetenv("LESS");
    ::unsetenv("LESSCHARSET");
    EXPECT_EQ(detto(), "utf-8|FRSX\n╔═>\n");
    ::setenv("LESSCHARSET", "latin1", 1);
    EXPECT_EQ(detto(), "latin1|FRSX\n╔═>\n");
    ::unsetenv("LESSCHARSET");
    ::setenv("LC_ALL", "C.UTF-8", 1);
    EXPECT_EQ(detto(), "|FRSX\n╔═>\n");
    ::setenv("PAGER", (dove / "manca").string().c_str(), 1); // then the text goes to the output as it is
    testing::internal::CaptureStdout();
    detto();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "╔═>\n");
    std::filesystem::remove_all(dove);
}

} // namespace

} // namespace morvella::cli

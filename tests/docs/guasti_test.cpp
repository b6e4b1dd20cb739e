// SPDX-License-Identifier: MIT
//
// Every call of a run made to fail in turn, with several numbers: nothing is trapped, so the
// number comes out; the sources stay as they are; and the run can be made again.
#include "docs/banco.h"

namespace morvella {

namespace {

using namespace prove;

using File = std::map<std::string, std::string>;

constexpr int Numeri[] = {5, 53, 55, 57, 61, 62, 70, 75, 76};

struct Corsa {
    Banco B;
    File Sorgenti;

    Corsa(bool rifatta, int righe) {
        B.Fronte.Risposta = RispostaSi;
        Testo lungo = "Begin VB.Menu m\nx\nAttribute VB_Name = \"A\"\n";
        for (int i = 0; i < righe; ++i) lungo += "Public Sub a" + CStr(i) + "()\nF" + CStr(i) + ".Show\n";
        B.Voce("A.frm", lungo);
        B.Voce("B.bas", "Option Explicit\n");
        Sorgenti = B.Disco.TuttiIFile();
        if (rifatta)
            for (const char* nome : {"A.Html", "b.html", "Indice.Html", "OK.LOG", "p2.gif"})
                B.Disco.Metti(std::string("/p/Appoggio/") + nome, "vecchio");
        B.Disco.Chiamate.clear();
    }
};

TEST(Guasti, OgniChiamataConOgniNumero) {
    for (const bool rifatta : {false, true})
        for (const int righe : {1, 1000}) {
            Corsa intera(rifatta, righe);
            intera.B.Disco.FallisciAllaChiamata(0, 0);
            ASSERT_EQ(intera.B.Documenta(), 0);
            const std::vector<std::string> nomi = intera.B.Disco.Chiamate;
            ASSERT_EQ(static_cast<std::size_t>(intera.B.Disco.ChiamateFatte()), nomi.size());
            ASSERT_GE(nomi.size(), 25U);
            const File fatti = intera.B.Disco.TuttiIFile();
            for (std::size_t k = 1; k <= nomi.size(); ++k)
                for (const int numero : Numeri) {
                    if (righe > 1 && numero != 57 && numero != 76) continue; // sources of several blocks
                    SCOPED_TRACE(testing::Message()
                                 << rifatta << righe << ' ' << nomi[k - 1] << ' ' << numero);
                    Corsa corsa(rifatta, righe);
                    corsa.B.Disco.FallisciAllaChiamata(static_cast<int>(k), numero);
                    const std::string percorso = nomi[k - 1].substr(nomi[k - 1].find(' ') + 1);
                    // A source that was read whole may fail to close.
                    const bool innocua =
                        nomi[k - 1].starts_with("Chiudi ") && corsa.Sorgenti.contains(percorso);
                    EXPECT_EQ(corsa.B.Documenta(), innocua ? 0 : numero);
                    try {
                        corsa.B.ChiudiTutto();
                    } catch (const Errore& e) {
                        ADD_FAILURE() << "a second error " << e.Numero;
                    }
                    const File dopo = corsa.B.Disco.TuttiIFile();
                    for (const auto& [quale, bytes] : corsa.Sorgenti)
                        EXPECT_TRUE(dopo.contains(quale) && dopo.at(quale) == bytes) << quale;
                    EXPECT_EQ(corsa.B.Fronte.Arresti.size(), 0U);
                    EXPECT_TRUE(corsa.B.S.File1.Selected(0) && corsa.B.S.File1.Selected(1));
                    EXPECT_TRUE(!innocua || dopo == fatti);

                    // Again, without a failure: a directory that holds no plain file is the one
                    // thing that stands in the way.
                    corsa.B.Disco.FallisciAllaChiamata(0, 0);
                    corsa.B.Disco.CambiaDirectory("/p"); // where the browser's start may not have left it
                    const bool vuota =
                        corsa.B.C("/p/Appoggio") && corsa.B.S.File.Dir("\\p\\Appoggio\\*.*", 0).empty();
                    EXPECT_EQ(corsa.B.Documenta(), vuota ? 75 : 0);
                    if (vuota) continue;
                    File ancora = corsa.B.Disco.TuttiIFile();
                    for (const auto& [quale, bytes] : fatti)
                        EXPECT_TRUE(ancora.contains(quale) || quale == "/p/Appoggio/b.html") << quale;
                    for (const char* quale :
                         {"/p/Appoggio/A.Html", "/p/Appoggio/B.Html", "/p/Appoggio/Indice.Html"})
                        EXPECT_TRUE(ancora[quale] == fatti.at(quale)) << quale;
                }
        }
}

// A disk that fills up: the number comes out, at whatever byte.
TEST(Guasti, DiscoPienoFraLePagine) {
    Corsa intera(false, 1);
    ASSERT_EQ(intera.B.Documenta(), 0);
    std::size_t bytes = 0;
    for (const auto& [percorso, scritti] : intera.B.Disco.TuttiIFile())
        if (percorso.starts_with("/p/Appoggio/")) bytes += scritti.size();
    for (std::size_t spazio = 0; spazio < bytes; spazio += 97) {
        Corsa corsa(false, 1);
        corsa.B.Disco.SpazioLibero = spazio;
        EXPECT_EQ(corsa.B.Documenta(), 61) << spazio;
        const File dopo = corsa.B.Disco.TuttiIFile();
        for (const auto& [quale, quali] : corsa.Sorgenti) EXPECT_EQ(dopo.at(quale), quali);
    }
}

// A work directory that cannot be looked at ends the run, and so does a project that cannot.
TEST(Guasti, SenzaPermesso) {
    Corsa corsa(true, 1);
    corsa.B.Disco.Fallisci("Esamina", "/p/Appoggio", 75);
    EXPECT_EQ(corsa.B.Documenta(), 75);
    EXPECT_EQ(corsa.B.Pagina("A.Html"), "vecchio");
}

} // namespace

} // namespace morvella

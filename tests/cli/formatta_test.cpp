// SPDX-License-Identifier: MIT
//
// The command "formatta".
#include "cli/banco.h"

namespace morvella::cli {

namespace {

using prove::Banco;

constexpr const char* Storto = "Sub a()\r\nIf b Then\r\n c\r\nEnd If\r\nEnd Sub\r\n";
constexpr const char* Dritto = "Sub a()\r\n    If b Then\r\n        c\r\n    End If\r\nEnd Sub\r\n";

struct BancoFormato : Banco {
    BancoFormato() {
        Disco.Metti("/casa/p/Prova.vbp", "Module=B; B.bas\r\nUserControl=U.ctl\r\nForm=sub\\F.frm\r\n"
                                         "Module=L; ..\\lib\\L.bas\r\nName=\"Module\"\r\n");
        Disco.Metti("/casa/p/B.bas", Storto);
        Disco.Metti("/casa/p/U.ctl", Dritto);
        Disco.Metti("/casa/p/sub/F.frm", Storto);
        Disco.Metti("/casa/lib/L.bas", Storto);
    }
    std::string Formattato(const std::string& nome) { return Scritto("Formattati/" + nome); }
};

TEST(ComandoFormatta, UnProgetto) {
    BancoFormato b;
    const auto prima = b.Disco.TuttiIFile();
    EXPECT_EQ(b.Esegui({"formatta", "p/Prova.vbp"}), 0) << b.Errori.str();
    EXPECT_EQ(b.Uscita.str(), "  p/B.bas  -> p/Appoggio/Formattati/B.bas (3 righe cambiate)\n"
                              "  p/U.ctl  -> p/Appoggio/Formattati/U.ctl (0 righe cambiate)\n"
                              "  p/sub/F.frm  -> p/Appoggio/Formattati/sub/F.frm (3 righe cambiate)\n"
                              "  p/../lib/L.bas  -> p/Appoggio/Formattati/L.bas (3 righe cambiate)\n"
                              "4 moduli, 20 righe: 3 cambiati, 1 già a posto, 0 con rilievi\n");
    for (const char* nome : {"B.bas", "U.ctl", "sub/F.frm", "L.bas"})
        EXPECT_EQ(b.Formattato(nome), Dritto) << nome;
    for (const auto& [file, bytes] : prima) EXPECT_EQ(b.Disco.Leggi(file), bytes) << file;
    // The work directory is as the engines make it: the pages need a file in it.
    EXPECT_EQ(b.Scritto("OK.LOG"), "Ok! Directory Creata, ora mettiamoci al lavoro ...\r\n");
    EXPECT_EQ(b.Esegui({"formatta", "-q", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Uscita.str() + b.Errori.str(), "");
}

TEST(ComandoFormatta, Opzioni) {
    BancoFormato b;
    b.Disco.Metti(
        "/casa/x.bas",
        "Sub a() \r\nSelect Case b\r\nCase 1\r\nL: c\r\n#If d Then\r\n#End If\r\nEnd Select\r\nEnd Sub\r\n");
    EXPECT_EQ(b.Esegui({"formatta", "--passo", "2", "--case=0", "--etichette=codice", "--direttive=margine",
                        "--senza-code", "x.bas"}),
              0)
        << b.Errori.str();
    EXPECT_EQ(b.Disco.Leggi("/casa/Appoggio/Formattati/x.bas"),
              "Sub a()\r\n  Select Case b\r\n  Case 1\r\n    L: c\r\n#If d Then\r\n#End If\r\n  End "
              "Select\r\nEnd Sub\r\n");
    EXPECT_EQ(b.Esegui({"formatta", "--tab", "--in", "p", "x.bas"}), 0) << b.Errori.str();
    EXPECT_EQ(b.Disco.Leggi("/casa/p/x.bas"),
              "Sub a() \r\n\tSelect Case b\r\n\t\tCase 1\r\nL: c\r\n\t\t\t#If d Then\r\n\t\t\t#End "
              "If\r\n\tEnd Select\r\nEnd Sub\r\n");
    for (const char* cattiva :
         {"--passo=0", "--passo=17", "--passo=x", "--case=2", "--etichette=no", "--direttive=colonna"}) {
        EXPECT_EQ(b.Esegui({"formatta", cattiva, "x.bas"}), 2) << cattiva;
        EXPECT_TRUE(b.Dice("può essere")) << b.Errori.str();
    }
    EXPECT_EQ(b.Esegui({"formatta"}), 2);
    EXPECT_TRUE(b.Dice("manca l'ingresso"));
}

TEST(ComandoFormatta, MaiSuUnSorgente) {
    BancoFormato b;
    const auto prima = b.Disco.TuttiIFile();
    EXPECT_EQ(b.Esegui({"formatta", "--in", "p", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Dice("p/B.bas: errore 70")) << b.Errori.str();
    EXPECT_TRUE(b.Dice("Un sorgente non si tocca"));
    for (const auto& [file, bytes] : prima) EXPECT_EQ(b.Disco.Leggi(file), bytes) << file;
    // Nor over the source of another input.
    EXPECT_EQ(b.Esegui({"formatta", "--in", "p", "lib/L.bas", "p/B.bas"}), 1);
    EXPECT_EQ(b.Disco.Leggi("/casa/p/B.bas"), Storto);
    EXPECT_EQ(b.Disco.Leggi("/casa/p/L.bas"), Dritto);
}

TEST(ComandoFormatta, ConRilievi) {
    BancoFormato b;
    const std::string rotto = "Sub a()\r\n  If b Then\r\nEnd Sub\r\n";
    b.Disco.Metti("/casa/p/B.bas", rotto);
    EXPECT_EQ(b.Esegui({"formatta", "p/Prova.vbp"}), 4);
    EXPECT_TRUE(b.Scrive("p/B.bas:2:3: non formattato: aperto If [MV001]\n")) << b.Uscita.str();
    EXPECT_TRUE(b.Scrive("Formattati/B.bas (com'è)\n"));
    EXPECT_EQ(b.Formattato("B.bas"), rotto);
    EXPECT_EQ(b.Formattato("L.bas"), Dritto);
}

TEST(ComandoFormatta, SoloVerifica) {
    BancoFormato b;
    const auto prima = b.Disco.TuttiIFile();
    EXPECT_EQ(b.Esegui({"formatta", "--solo-verifica", "p/Prova.vbp"}), 4);
    EXPECT_TRUE(b.Scrive("  p/B.bas: 3 righe cambierebbero\n")) << b.Uscita.str();
    EXPECT_TRUE(b.Scrive("3 da cambiare, 1 già a posto"));
    EXPECT_EQ(b.Esegui({"formatta", "--solo-verifica", "p/U.ctl"}), 0);
    EXPECT_EQ(b.Esegui({"formatta", "--solo-verifica", "--differenze", "p/B.bas"}), 4);
    EXPECT_EQ(b.Uscita.str(),
              "--- a/p/B.bas\n+++ b/p/B.bas\n@@ -1,5 +1,5 @@\n Sub a()\r\n-If b Then\r\n- c\r\n-End If\r\n"
              "+    If b Then\r\n+        c\r\n+    End If\r\n End Sub\r\n");
    EXPECT_TRUE(b.Dice("1 modulo, 5 righe: 1 da cambiare"));
    EXPECT_EQ(b.Disco.TuttiIFile(), prima);
}

// A disk that gives back other bytes than it took, or none.
TEST(ComandoFormatta, CopiaCheNonSuperaLaProva) {
    for (const char* altro :
         {"Sub a()\r\n", "", "Sub a()\r\n If b Then\r\n        c\r\n    End If\r\nEnd Sub\r\n"}) {
        BancoFormato b;
        b.Disco.PrimaDiAprire = [&](const std::string& file) {
            if (file == "/casa/p/Appoggio/Formattati/B.bas") b.Disco.Metti(file, altro);
        };
        EXPECT_EQ(b.Esegui({"formatta", "p/Prova.vbp"}), 1);
        EXPECT_TRUE(b.Dice("p/B.bas: la copia non ha superato la prova, e la copia è stata tolta"))
            << b.Errori.str();
        EXPECT_FALSE(b.Fatto("Formattati/B.bas"));
        EXPECT_EQ(b.Formattato("L.bas"), Dritto);
    }
    for (const char* operazione : {"Scrivi", "Chiudi", "Leggi"}) {
        BancoFormato b;
        b.Disco.Fallisci(operazione, "Formattati/B.bas", 57);
        EXPECT_EQ(b.Esegui({"formatta", "p/Prova.vbp"}), 1) << operazione;
        EXPECT_TRUE(b.Dice("p/B.bas: errore 57")) << operazione << b.Errori.str();
        EXPECT_FALSE(b.Fatto("Formattati/B.bas")) << operazione;
    }
}

TEST(ComandoFormatta, IngressiCattivi) {
    BancoFormato b;
    EXPECT_EQ(b.Esegui({"formatta", "manca.vbp", "manca.bas", "p/B.bas"}), 1);
    EXPECT_TRUE(b.Dice("manca.vbp: errore 53"));
    EXPECT_TRUE(b.Dice("manca.bas: errore 53"));
    EXPECT_EQ(b.Formattato("B.bas"), Dritto);
    // Two sources for one name: the first one has it.
    b.Disco.Metti("/casa/q/b.BAS", "Sub q()\r\nEnd Sub\r\n");
    EXPECT_EQ(b.Esegui({"formatta", "--in=f", "p/B.bas", "q/b.BAS"}), 1);
    EXPECT_TRUE(b.Dice("q/b.BAS: un altro sorgente di questo nome ha già scritto f/B.bas"))
        << b.Errori.str();
    EXPECT_EQ(b.Disco.Leggi("/casa/f/B.bas"), Dritto);
}

} // namespace

} // namespace morvella::cli

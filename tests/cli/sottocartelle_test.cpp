// SPDX-License-Identifier: MIT
//
// "documenta --sottocartelle": the folders that rows name, below the work directory.
#include "cli/banco_documenta.h"

namespace morvella::cli {

namespace {

using prove::Modulo;
using Banco = prove::BancoDocumenta;

using File = std::map<std::string, std::string>;

// --sottocartelle: folders for the rows that name them, below the work directory and nowhere else.
TEST(Sottocartelle, FatteEArredate) {
    Banco b;
    b.Progetto({"+A.frm", "+sub\\B.frm", "+SUB\\C.frm", "+uno\\due\\tre\\D.frm", "x\\..\\E.frm"});
    b.Disco.Metti("/casa/p/sub/C.frm", Modulo);
    b.Disco.Metti("/casa/p/E.frm", Modulo);
    EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "p/Prova.vbp"}), 0) << b.Errori.str();
    for (const char* nome : {"A.Html", "E.Html", "sub/B.Html", "sub/C.Html", "uno/due/tre/D.Html"})
        EXPECT_TRUE(b.Fatto(nome)) << nome;
    EXPECT_FALSE(b.Fatto("SUB") || b.Fatto("x"));
    const std::pair<const char*, const char*> cartelle[] = {
        {"sub", "../Indice.Html"},
        {"uno", "../Indice.Html"},
        {"uno/due", "../../Indice.Html"},
        {"uno/due/tre", "../../../Indice.Html"},
    };
    for (const auto& [cartella, casa] : cartelle) {
        const std::string qui = std::string(cartella) + "/";
        for (const char* nome : {"p2.gif", "dario.gif", "Dario.gif", "BLULETHR.GIF", "home.GIF"})
            EXPECT_TRUE(b.Fatto(qui + nome) && b.Pagina(qui + nome).starts_with("figura ")) << qui << nome;
        ASSERT_TRUE(b.Fatto(qui + "Indice.Html")) << cartella;
        const std::string indice = b.Pagina(qui + "Indice.Html");
        EXPECT_NE(indice.find("\"" + std::string(casa) + "\""), std::string::npos) << indice;
        EXPECT_TRUE(indice.starts_with("<html>\r\n") && indice.ends_with("</html>\r\n"));
    }
    // The page itself is what it would be anywhere.
    EXPECT_NE(b.Pagina("sub/B.Html").find("<a href=\rIndice.Html\r>"), std::string::npos);
    EXPECT_NE(b.Pagina("Indice.Html").find("<a href=\"\\casa\\p\\Appoggio\\sub\\B.Html\">sub\\B.frm<br>"),
              std::string::npos);
}

TEST(Sottocartelle, SenzaOpzioneNonCiSono) {
    Banco b;
    b.Progetto({"+A.frm", "+sub\\B.frm"});
    EXPECT_EQ(b.Esegui({"documenta", "p/Prova.vbp"}), 1);
    EXPECT_FALSE(b.Fatto("sub"));
    // A folder that was there is left as it is.
    b.Disco.FaiDirectory("/casa/p/Appoggio/sub");
    EXPECT_EQ(b.Esegui({"documenta", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.Fatto("sub/B.Html"));
    EXPECT_FALSE(b.Fatto("sub/p2.gif") || b.Fatto("sub/Indice.Html"));
}

// Only the folders of the rows selected.
TEST(Sottocartelle, DelleRigheScelte) {
    Banco b;
    b.Progetto({"+A.frm", "+sub\\B.frm", "+altra\\C.frm"});
    EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "p/Prova.vbp", "sub\\b.frm"}), 0);
    EXPECT_TRUE(b.Fatto("sub/Indice.Html"));
    EXPECT_FALSE(b.Fatto("altra"));
    EXPECT_EQ(b.NellIndice(), "sub\\B.frm");
}

TEST(Sottocartelle, NonServono) {
    Banco b;
    EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "p/Prova.vbp"}), 0);
    File con = b.Disco.TuttiIFile();
    Banco senza;
    EXPECT_EQ(senza.Esegui({"documenta", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(con == senza.Disco.TuttiIFile());
}

// A run that ends at a row writes no index: no page leads to one that is not there.
TEST(Sottocartelle, SenzaIndice) {
    Banco b;
    b.Progetto({"+sub\\A.frm", "sub\\B.frm"});
    EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Fatto("sub/A.Html") && b.Fatto("sub/home.GIF"));
    EXPECT_FALSE(b.Fatto("Indice.Html") || b.Fatto("sub/Indice.Html"));
    EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "-k", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Fatto("Indice.Html") && b.Fatto("sub/Indice.Html"));
}

// Nothing is made outside the work directory, whatever a row climbs over.
TEST(Sottocartelle, MaiFuori) {
    for (const char* riga :
         {"..\\lib\\M.frm", "sub\\..\\..\\lib\\M.frm", "../lib/M.frm", ".\\..\\lib\\M.frm"}) {
        SCOPED_TRACE(riga);
        Banco b;
        b.Progetto({"+A.frm", riga, "+sub\\B.frm"});
        b.Disco.Metti("/casa/lib/M.frm", Modulo);
        EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "--prosegui", "p/Prova.vbp"}), 1);
        EXPECT_FALSE(b.Disco.Esiste("/casa/p/lib") || b.Disco.Esiste("/casa/lib/M.Html") || b.Fatto("lib"));
        EXPECT_TRUE(b.Dice("errore 76")) << b.Errori.str();
        EXPECT_EQ(b.NellIndice(), "A.frm sub\\B.frm");
        for (const auto& [percorso, bytes] : b.Disco.TuttiIFile())
            EXPECT_TRUE(percorso.starts_with("/casa/p/Appoggio/") ||
                        bytes.find("<html>") == std::string::npos)
                << percorso;

        // Where the directory exists the page goes there, without pictures or index.
        b.Disco.FaiDirectory("/casa/p/lib");
        EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "p/Prova.vbp"}), 0) << b.Errori.str();
        EXPECT_TRUE(b.Disco.Esiste("/casa/p/lib/M.Html"));
        EXPECT_FALSE(b.Disco.Esiste("/casa/p/lib/p2.gif") || b.Disco.Esiste("/casa/p/lib/Indice.Html"));
    }
}

// A module's page named Indice in a folder is its page, and stays.
TEST(Sottocartelle, PaginaIndice) {
    Banco b;
    b.Progetto({"+sub\\INDICE.frm", "+due\\B.frm"});
    EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "p/Prova.vbp"}), 0) << b.Errori.str();
    EXPECT_NE(b.Pagina("sub/INDICE.Html").find("Public Sub a()"), std::string::npos);
    EXPECT_FALSE(b.Fatto("sub/Indice.Html"));
    EXPECT_TRUE(b.Fatto("sub/home.GIF"));
    EXPECT_TRUE(b.Fatto("due/Indice.Html"));
}

TEST(Sottocartelle, DiNuovo) {
    Banco b;
    b.Progetto({"+A.frm", "+sub\\B.frm"});
    EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "p/Prova.vbp"}), 0);
    const File prima = b.Disco.TuttiIFile();
    EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.Disco.TuttiIFile() == prima);
}

TEST(Sottocartelle, Errori) {
    struct Caso {
        const char *Operazione, *Fine;
        int Numero;
    };
    const Caso casi[] = {
        {"CreaDirectory", "/sub", 75},
        {"CreaDirectory", "/Appoggio", 75},
        {"Copia", "/sub/home.GIF", 61},
        {"ApriScrittura", "/sub/Indice.Html", 75},
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.Progetto({"+A.frm", "+sub\\B.frm"});
        const File prima = b.Disco.TuttiIFile();
        b.Disco.Fallisci(caso.Operazione, caso.Fine, caso.Numero);
        EXPECT_EQ(b.Esegui({"documenta", "--sottocartelle", "p/Prova.vbp"}), 1) << caso.Fine;
        EXPECT_TRUE(b.Dice("errore " + std::to_string(caso.Numero))) << b.Errori.str();
        for (const auto& [percorso, bytes] : prima) EXPECT_EQ(b.Disco.Leggi(percorso), bytes);
    }
}

} // namespace

} // namespace morvella::cli

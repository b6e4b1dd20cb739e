// SPDX-License-Identifier: MIT
//
// The options in Default.ini: what is written, what is read back, and where the two are not each
// other's reverse. Texts of files are written with "\n" for CR LF.
#include "shell/opzioni.h"

#include <gtest/gtest.h>

#include "shell/banco.h"
#include "text/flusso.h"

namespace morvella {

namespace {

using namespace prove;

Testo CrLf(Vista s) {
    Testo testo;
    for (const char c : s) testo += c == '\n' ? Testo("\r\n") : Testo(1, c);
    return testo;
}

constexpr const char* Ini = "/prog/Default.ini";

struct ConIni : Banco {
    ConIni() {
        Disco.FaiDirectory("/prog");
        S.AppPath = S.File.Aggancia(Gancio::Programma, "/prog");
    }
    explicit ConIni(const std::string& bytes) : ConIni() { Disco.Metti(Ini, bytes); }

    int Fa(void (*operazione)(Stato&)) {
        return NumeroDi([&] {
            operazione(S);
            return 0;
        });
    }
    /// Controls and fields: TogliCommenti, Check1, Check2, then the same of Module1.
    Testo Spunte() const {
        Testo segni;
        for (const int valore : {S.TogliCommenti, S.Check1, S.Check2}) segni += CStr(valore);
        for (const bool acceso : {S.OpzTogliCommenti, S.OpzIntestazione, S.OpzSenzaConferma})
            segni += acceso ? '1' : '0';
        return segni;
    }
    /// Every control and field away from where a load or a default would put it.
    void Sporca() {
        S.TogliCommenti = S.Check1 = S.Check2 = 2;
        S.OpzTogliCommenti = S.OpzIntestazione = S.OpzSenzaConferma = true;
        S.Text1 = "prima";
        S.TestoIntestazione = "campo";
    }
};

// clang-format off
const Testo Modello =
    "'*************************************************\r\n"
    "'* Nome Progetto                                 *\r\n"
    "'*************************************************\r\n"
    "'* Autore                                        *\r\n"
    "'*************************************************\r\n"
    "'* Data Creazione:                               *\r\n"
    "'*************************************************\r\n"
    "'* Commenti                                      \r\n" // no star from here on: meant
    "'*                                               \r\n"
    "'*                                               \r\n"
    "'*                                               \r\n"
    "'*                                               \r\n"
    "'*                                               \r\n"
    "'*                                               \r\n"
    "'*************************************************\r\n";
// clang-format on

TEST(OpzioniDefault, FileEControlli) {
    for (const bool presente : {false, true}) {
        ConIni b;
        if (presente) b.Disco.Metti(Ini, Testo(1000, 'x'));
        b.Sporca();
        ASSERT_EQ(b.Fa(OpzioniDefault), 0);
        EXPECT_EQ(b.Disco.Leggi(Ini), "KO\r\nKO\r\n\r\nKO\r\n");
        EXPECT_EQ(b.Spunte(), "000000");
        EXPECT_EQ(b.S.Text1, Modello); // shown, and neither stored nor in the field
        EXPECT_EQ(b.S.TestoIntestazione, "");
        EXPECT_FALSE(b.S.Canale.Aperto(1));
    }
    EXPECT_EQ(Modello.size(), 8U * 52 + 7 * 51); // eight lines of 50 bytes, seven of 49
}

// The template goes to the file when a control then loses the focus; else the next start has none.
TEST(OpzioniDefault, IlModelloSiPerdeOSiConserva) {
    ConIni b;
    ASSERT_EQ(b.Fa(OpzioniDefault), 0);
    ConIni prossimo(b.Disco.Leggi(Ini));
    ASSERT_EQ(prossimo.Fa(CaricaOpzioni), 0);
    EXPECT_EQ(prossimo.S.Text1, "");

    ASSERT_EQ(b.Fa(Opzione_LostFocus), 0);
    EXPECT_EQ(b.Disco.Leggi(Ini), "KO\r\nKO\r\n" + Modello + "\r\nKO\r\n"); // Print adds an empty line
    EXPECT_EQ(b.S.TestoIntestazione, Modello);
    ConIni ancora(b.Disco.Leggi(Ini));
    ASSERT_EQ(ancora.Fa(CaricaOpzioni), 0);
    EXPECT_EQ(ancora.S.Text1, Modello);
    EXPECT_EQ(ancora.S.TestoIntestazione, Modello);

    b.S.Text1 = ""; // a user who emptied it
    ASSERT_EQ(b.Fa(Opzione_LostFocus), 0);
    ASSERT_EQ(b.Fa(Command2_Click), 0);
    EXPECT_EQ(b.S.Text1, Modello);
    EXPECT_EQ(b.Disco.Leggi(Ini), "KO\r\nKO\r\n\r\nKO\r\n");
}

TEST(SalvaOpzioni, File) {
    struct Caso {
        int TogliCommenti, Check1, Check2;
        Testo Text1;
        Testo File; // "\n" for CR LF
        const char* Spunte;
        bool Campo; // TestoIntestazione is the text; else it is empty
    };
    const Caso casi[] = {
        {0, 0, 0, "", "KO\nKO\n\nKO\n", "000000", false},
        {1, 0, 0, "", "OK\nKO\n\nKO\n", "100100", false},
        {0, 1, 0, "", "KO\nOK\n\nKO\n", "010010", false},
        {0, 0, 1, "", "KO\nKO\n\nOK\n", "001001", false},
        {1, 1, 1, "'T", "OK\nOK\n'T\nOK\n", "111111", true},
        {2, 2, 2, "x", "KO\nKO\nx\nKO\n", "222000", true}, // greyed is not on
        {-1, -1, -1, "x", "KO\nKO\nx\nKO\n", "-1-1-1000", true},
        {0, 0, 0, "     ", "KO\nKO\n\nKO\n", "000000", false}, // blanks alone: one empty line
        {0, 0, 0, "\t", "KO\nKO\n\t\nKO\n", "000000", true},
        {0, 0, 0, "\r\n", "KO\nKO\n\n\nKO\n", "000000", true}, // a line end is no blank
        {0, 0, 0, "  a  ", "KO\nKO\n  a  \nKO\n", "000000", true},
        {0, 0, 0, "a\r\n\r\nb\r\n", "KO\nKO\na\n\nb\n\nKO\n", "000000", true},
        {0, 0, 0, "'Perch\xE9 \x80\xFF\r\nOK\r\n", "KO\nKO\n'Perch\xE9 \x80\xFF\nOK\n\nKO\n", "000000", true},
        {0, 0, 0, Testo("a\0b", 3), Testo("KO\nKO\na\0b\nKO\n", 13), "000000", true},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.File);
        ConIni b(Testo(5000, 'x')); // from empty
        b.S.TestoIntestazione = "campo";
        b.S.OpzTogliCommenti = b.S.OpzIntestazione = b.S.OpzSenzaConferma = caso.TogliCommenti != 1;
        b.S.TogliCommenti = caso.TogliCommenti;
        b.S.Check1 = caso.Check1;
        b.S.Check2 = caso.Check2;
        b.S.Text1 = caso.Text1;
        ASSERT_EQ(b.Fa(SalvaOpzioni), 0);
        EXPECT_EQ(b.Disco.Leggi(Ini), CrLf(caso.File));
        EXPECT_EQ(b.Spunte(), caso.Spunte);
        EXPECT_EQ(b.S.TestoIntestazione, caso.Campo ? caso.Text1 : "");
        EXPECT_EQ(b.S.Text1, caso.Text1);
        EXPECT_FALSE(b.S.Canale.Aperto(1));
        EXPECT_EQ(b.Fronte.Fuochi, 0);
    }
}

TEST(CaricaOpzioni, Letture) {
    struct Caso {
        const char* Che;
        Testo File; // "\n" for CR LF
        const char* Spunte;
        Testo Text1; // and TestoIntestazione; "\n" for CR LF
    };
    const Caso casi[] = {
        {"the default file", "KO\nKO\n\nKO\n", "000000", ""},
        {"all on", "OK\nOK\n\nOK\n", "111111", ""},
        {"the first", "OK\nKO\n\nKO\n", "100100", ""},
        {"the second", "KO\nOK\n\nKO\n", "010010", ""},
        {"the last", "KO\nKO\n\nOK\n", "001001", ""},
        {"anything else is off on the first two", "ok\nok\nKO\n", "000000", ""},
        {"blanks count", "OK \n OK\nOK\n", "001001", ""},
        {"empty lines there", "\n\nOK\n", "001001", ""},
        {"no header line at all", "OK\nOK\nOK\n", "111111", ""},
        {"a header", "KO\nOK\n'uno\n'due\nKO\n", "010010", "'uno\n'due\n"},
        {"blank lines go", "KO\nKO\n\n'uno\n   \n\n'due\n\nKO\n", "000000", "'uno\n'due\n"},
        {"lines are not trimmed", "KO\nKO\n  a  \nKO\n", "000000", "  a  \n"},
        {"a TAB is no blank", "KO\nKO\n\t\nKO\n", "000000", "\t\n"},
        {"byte 160 is no blank", "KO\nKO\n\xA0\nKO\n", "000000", "\xA0\n"},
        {"accents", "KO\nKO\n'Perch\xE9 \x80\xFF\nKO\n", "000000", "'Perch\xE9 \x80\xFF\n"},
        {"a line OK ends the header", "KO\nKO\na\nOK\nb\nKO\n", "001001", "a\n"},
        {"a line KO ends the header", "OK\nKO\na\nKO\nb\nOK\n", "100100", "a\n"},
        {"a line that holds OK does not", "KO\nKO\nOK \n OK\nok\nKOK\nOK.\nKO\n", "000000",
         "OK \n OK\nok\nKOK\nOK.\n"},
        {"what follows is not read", "KO\nKO\nKO\nOK\nx\n", "000000", ""},
        {"the last line without an end", "KO\nKO\nx\nOK", "001001", "x\n"},
        {"and nothing but three", "OK\nOK\nKO", "110110", ""},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.Che);
        ConIni b(CrLf(caso.File));
        b.Sporca();
        ASSERT_EQ(b.Fa(CaricaOpzioni), 0);
        EXPECT_EQ(b.Spunte(), caso.Spunte);
        EXPECT_EQ(b.S.Text1, CrLf(caso.Text1));
        EXPECT_EQ(b.S.TestoIntestazione, CrLf(caso.Text1));
        EXPECT_EQ(b.Disco.Leggi(Ini), CrLf(caso.File)); // reading writes nothing
    }
}

// A line ends at CR LF and at nothing else.
TEST(CaricaOpzioni, FiniDiRiga) {
    struct Caso {
        Testo File; // as it stands
        int Errore;
        Testo Text1;
    };
    const Caso casi[] = {
        {"KO\r\nKO\r\na\rb\nc\r\nOK\r\n", 0, "a\rb\nc\r\n"},
        {"KO\r\nKO\r\na\r\r\nOK\r\n", 0, "a\r\r\n"},
        {"KO\r\nKO\r\n\r\r\nOK\r\n", 0, "\r\r\n"}, // a CR is no blank
        {"KO\r\nKO\r\na\n\r\nOK\r\n", 0, "a\n\r\n"},
        {"KO\r\nKO\r\n\n\r\nOK\r\n", 0, "\n\r\n"},
        {"KO\r\nKO\r\nOK\n\r\nKO\rKO\r\nOK\r\n", 0, "OK\n\r\nKO\rKO\r\n"}, // no flags
        {"KO\nKO\n\nKO\n", 62, "prima"},                                   // one line
        {"KO\rKO\r\rKO\r", 62, "prima"},                                   // one line
        {"KO\r\nKO\r\nOK\r", 62, "OK\r\r\n"},                              // the last is "OK" and CR
        {"KO\r\nKO\r\nOK\n", 62, "OK\n\r\n"},
    };
    for (const Caso& caso : casi) {
        ConIni b(caso.File);
        b.S.Text1 = "prima";
        EXPECT_EQ(b.Fa(CaricaOpzioni), caso.Errore) << caso.File;
        EXPECT_EQ(b.S.Text1, caso.Text1) << caso.File;
        EXPECT_EQ(b.S.OpzSenzaConferma, caso.Errore == 0) << caso.File;
    }
}

// Longer than any block, and a CR LF across two of them.
TEST(CaricaOpzioni, TestoLungo) {
    for (std::size_t n = 4080; n < 4100; ++n) {
        const Testo riga(n, 'r');
        ConIni b("KO\r\nKO\r\n" + riga + "\r\n" + riga + "\r\nOK\r\n");
        ASSERT_EQ(b.Fa(CaricaOpzioni), 0);
        EXPECT_EQ(b.S.Text1, riga + "\r\n" + riga + "\r\n");
        EXPECT_EQ(b.S.Check2, 1);
    }
}

// An empty file changes nothing, and is no error.
TEST(CaricaOpzioni, FileVuoto) {
    ConIni b("");
    b.Sporca();
    ASSERT_EQ(b.Fa(CaricaOpzioni), 0);
    EXPECT_EQ(b.Spunte(), "222111");
    EXPECT_EQ(b.S.Text1, "prima");
    EXPECT_EQ(b.S.TestoIntestazione, "campo");
    EXPECT_EQ(b.Fronte.Fuochi, 0);
}

// A file cut short anywhere but at its end is error 62, or, where the cut leaves an end, less of it.
TEST(CaricaOpzioni, Troncato) {
    const Testo intero = "OK\r\nKO\r\n'uno\r\n'due\r\nOK\r\n";
    for (std::size_t n = 0; n <= intero.size(); ++n) {
        ConIni b(intero.substr(0, n));
        const bool buono = n == 0 || n == intero.size() || n == intero.size() - 2; // "OK" without an end
        const Errore e = ErroreDi([&] {
            CaricaOpzioni(b.S);
            return 0;
        });
        EXPECT_EQ(e.Numero, buono ? 0 : 62) << n;
        EXPECT_EQ(e.File, buono ? "" : "\\prog\\Default.ini") << n; // who reads of it learns which file
    }
}

// What was read before the end stays taken over.
TEST(CaricaOpzioni, StatoDopoUnFileTroncato) {
    struct Caso {
        const char* File; // "\n" for CR LF
        const char* Spunte;
        const char* Text1;
        const char* Campo;
    };
    const Caso casi[] = {
        {"OK\n", "122111", "prima", "campo"},
        {"KO\n", "022011", "prima", "campo"},
        {"KO", "022011", "prima", "campo"},
        {"\n", "022011", "prima", "campo"},
        {"KO\nKO\n", "002001", "", ""},
        {"OK\nOK\n", "112111", "", ""},
        {"KO\nKO\n'uno\n\n'due\n", "002001", "'uno\r\n'due\r\n", "'uno\r\n'due\r\n"},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.File);
        ConIni b(CrLf(caso.File));
        b.Sporca();
        ASSERT_EQ(b.Fa(CaricaOpzioni), 62);
        EXPECT_EQ(b.Spunte(), caso.Spunte);
        EXPECT_EQ(b.S.Text1, caso.Text1);
        EXPECT_EQ(b.S.TestoIntestazione, caso.Campo);
    }
}

TEST(CaricaOpzioni, Errori) {
    ConIni b;
    EXPECT_EQ(b.Fa(CaricaOpzioni), 53);
    b.Disco.Metti(Ini, "KO\r\nKO\r\n\r\nKO\r\n");
    b.Disco.Fallisci("ApriLettura", "Default.ini", 75, 1);
    EXPECT_EQ(b.Fa(CaricaOpzioni), 75);
    b.Disco.Fallisci("Leggi", "Default.ini", 57, 1);
    EXPECT_EQ(b.Fa(CaricaOpzioni), 57);
    EXPECT_EQ(b.Fa(CaricaOpzioni), 0);
    ConIni senza;
    senza.S.AppPath = "\\assente";
    EXPECT_EQ(senza.Fa(CaricaOpzioni), 76);
}

// Reader and writer are not each other's reverse.
TEST(Opzioni, RigaCheTronca) {
    const std::pair<Vista, Lungo> casi[] = {
        {"", 0},
        {"OK", 1},
        {"KO", 1},
        {"OK\r\n", 1},
        {"'a\r\nKO\r\nOK\r\n", 2},
        {"'a\r\nOK", 2},
        {"\r\n\r\nOK\r\n", 3},
        {"ok\r\nko\r\n", 0},
        {"'OK\r\n OK\r\n", 0},
        {"OK \r\n", 0},
        {"OKKO\r\n", 0},
        {"'a\nOK\nb\r\n", 0},
        {"'a\rOK\r\n", 0},
    };
    for (const auto& [testo, riga] : casi)
        EXPECT_EQ(RigaCheTronca(testo), riga) << testing::PrintToString(testo);
}

TEST(Opzioni, SalvateERilette) {
    struct Caso {
        Testo Prima, Dopo;
        int Check2; // afterwards; 0 before
    };
    const Caso casi[] = {
        {"a\r\n\r\nb\r\n", "a\r\nb\r\n", 0},
        {"a", "a\r\n", 0}, // a line end is added once
        {"a\r\n", "a\r\n", 0},
        {"   ", "", 0},
        {"  \r\n  ", "", 0},
        {"\r\n\r\n", "", 0},
        {"a\r\nOK\r\nb", "a\r\n", 1},
        {"a\r\nKO\r\nb", "a\r\n", 0},
        {"OK", "", 1},
        {"a\rb", "a\rb\r\n", 0},
    };
    for (const Caso& caso : casi) {
        ConIni b;
        b.S.Text1 = caso.Prima;
        ASSERT_EQ(b.Fa(SalvaOpzioni), 0);
        ASSERT_EQ(b.Fa(CaricaOpzioni), 0);
        EXPECT_EQ(b.S.Text1, caso.Dopo) << caso.Prima;
        EXPECT_EQ(b.S.TestoIntestazione, caso.Dopo) << caso.Prima;
        EXPECT_EQ(b.S.Check2, caso.Check2) << caso.Prima;
        ASSERT_EQ(b.Fa(SalvaOpzioni), 0); // from now on nothing changes
        const Testo file = b.Disco.Leggi(Ini);
        ASSERT_EQ(b.Fa(CaricaOpzioni), 0);
        ASSERT_EQ(b.Fa(SalvaOpzioni), 0);
        EXPECT_EQ(b.Disco.Leggi(Ini), file);
    }
}

// Ticking Check1 leads to Text1, and only a change is a tick.
TEST(Opzioni, FuocoAlCambio) {
    struct Caso {
        int Prima;
        const char* Seconda; // line of the file
        int Fuochi;
        bool TabStop;
    };
    const Caso casi[] = {
        {0, "OK", 1, true}, {1, "OK", 0, false}, {1, "KO", 0, false}, {0, "KO", 0, true}, {2, "KO", 0, false},
    };
    for (const Caso& caso : casi) {
        ConIni b("KO\r\n" + Testo(caso.Seconda) + "\r\nKO\r\n");
        b.S.Check1 = caso.Prima;
        // Where no event comes it stays as it is.
        b.S.Text1TabStop = Testo(caso.Seconda) == "KO";
        ASSERT_EQ(b.Fa(CaricaOpzioni), 0);
        EXPECT_EQ(b.Fronte.Fuochi, caso.Fuochi) << caso.Prima << caso.Seconda;
        EXPECT_EQ(b.S.Text1TabStop, caso.TabStop) << caso.Prima << caso.Seconda;
    }
    ConIni b;
    b.S.Check1 = 1;
    b.S.Text1TabStop = true;
    ASSERT_EQ(b.Fa(OpzioniDefault), 0);
    EXPECT_FALSE(b.S.Text1TabStop); // it was on: a change
    b.S.Text1TabStop = true;
    ASSERT_EQ(b.Fa(OpzioniDefault), 0);
    EXPECT_TRUE(b.S.Text1TabStop); // it was off: none
    EXPECT_EQ(b.Fronte.Fuochi, 0);
}

TEST(Opzioni, Form_Resize) {
    ConIni senza;
    ASSERT_EQ(senza.Fa(Form_Resize), 0);
    EXPECT_EQ(senza.Disco.Leggi(Ini), "KO\r\nKO\r\n\r\nKO\r\n");
    EXPECT_EQ(senza.S.Text1, Modello);

    ConIni con("OK\r\nOK\r\n'T\r\nOK\r\n");
    ASSERT_EQ(con.Fa(Form_Resize), 0);
    EXPECT_EQ(con.Spunte(), "111111");
    EXPECT_EQ(con.S.Text1, "'T\r\n");
    EXPECT_EQ(con.Disco.Leggi(Ini), "OK\r\nOK\r\n'T\r\nOK\r\n");

    ConIni vuoto(""); // there, and empty: loaded, and nothing is written
    ASSERT_EQ(vuoto.Fa(Form_Resize), 0);
    EXPECT_EQ(vuoto.Disco.Leggi(Ini), "");
    EXPECT_EQ(vuoto.S.Text1, "");

    ConIni maiuscolo;
    maiuscolo.Disco.Metti("/prog/DEFAULT.INI", "OK\r\nKO\r\nKO\r\n");
    ASSERT_EQ(maiuscolo.Fa(Form_Resize), 0);
    EXPECT_EQ(maiuscolo.Spunte(), "100100");
    ASSERT_EQ(maiuscolo.Fa(SalvaOpzioni), 0);
    EXPECT_FALSE(maiuscolo.Disco.Esiste(Ini)); // one file, under the name that it has

    ConIni rotto("OK\r\n");
    EXPECT_EQ(rotto.Fa(Form_Resize), 62);
    EXPECT_EQ(rotto.Disco.Leggi(Ini), "OK\r\n");

    ConIni directory; // no plain file: the default is tried, and cannot be written
    directory.Disco.FaiDirectory(Ini);
    EXPECT_EQ(directory.Fa(Form_Resize), 75);
}

// An open that fails leaves the fields as they were.
TEST(Opzioni, NonScrivibile) {
    for (void (*operazione)(Stato&) : {SalvaOpzioni, OpzioniDefault, Command2_Click, Opzione_LostFocus}) {
        for (const int numero : {70, 75, 76, 61}) {
            ConIni b("OK\r\nOK\r\nx\r\nOK\r\n");
            b.Sporca();
            b.S.TogliCommenti = 0;
            b.Disco.Fallisci("ApriScrittura", "Default.ini", numero);
            EXPECT_EQ(b.Fa(operazione), numero);
            EXPECT_EQ(b.Disco.Leggi(Ini), "OK\r\nOK\r\nx\r\nOK\r\n");
            EXPECT_EQ(b.Spunte(), "022111");
            EXPECT_EQ(b.S.TestoIntestazione, "campo");
        }
        ConIni senza;
        senza.S.AppPath = "\\assente";
        EXPECT_EQ(senza.Fa(operazione), 76);
        ConIni pieno;
        pieno.Disco.SpazioLibero = 3;
        EXPECT_EQ(pieno.Fa(operazione), 61);
        ConIni aperto; // #1 is in use: no file is touched
        aperto.S.Canale.OpenOutput(1, "\\p\\altro");
        EXPECT_EQ(aperto.Fa(operazione), 55);
        EXPECT_FALSE(aperto.Disco.Esiste(Ini));
    }
}

TEST(Opzioni, RaccogliOpzioni) {
    struct Caso {
        int TogliCommenti, Check1, Check2;
        const char *Text1, *Spunte, *Campo;
    };
    const Caso casi[] = {
        {1, 0, 0, "", "100100", ""},         {0, 1, 0, " ", "010010", ""},
        {0, 0, 1, " a ", "001001", " a "},   {2, 2, 2, "\t", "222000", "\t"},
        {1, 1, 1, "\r\n", "111111", "\r\n"},
    };
    for (const Caso& caso : casi) {
        ConIni b;
        b.Sporca();
        b.S.TogliCommenti = caso.TogliCommenti;
        b.S.Check1 = caso.Check1;
        b.S.Check2 = caso.Check2;
        b.S.Text1 = caso.Text1;
        RaccogliOpzioni(b.S);
        EXPECT_EQ(b.Spunte(), caso.Spunte);
        EXPECT_EQ(b.S.TestoIntestazione, caso.Campo);
        EXPECT_FALSE(b.Disco.Esiste(Ini)); // nothing is stored
    }
}

// The text stream: its own way to read, which ends a line at CR LF alone.
TEST(FlussoTesto, Righe) {
    struct Caso {
        Testo Bytes;
        std::vector<Testo> Righe;
    };
    const Caso casi[] = {
        {"", {}},
        {"\r\n", {""}},
        {"a", {"a"}},
        {"a\r\n", {"a"}},
        {"a\r\n\r\n", {"a", ""}},
        {"a\r\nb", {"a", "b"}},
        {"a\rb\nc\r\nd", {"a\rb\nc", "d"}},
        {"a\r\r\nb", {"a\r", "b"}},
        {"a\n\rb", {"a\n\rb"}},
        {"a\r", {"a\r"}},
        {"\n", {"\n"}},
        {Testo("\x1A\0\xFF\r\n", 5), {Testo("\x1A\0\xFF", 3)}},
    };
    for (const Caso& caso : casi) {
        ConIni b(caso.Bytes);
        FlussoTesto flusso(b.S.File, "\\prog\\Default.ini");
        std::vector<Testo> righe;
        while (!flusso.AtEndOfStream()) righe.emplace_back(flusso.ReadLine());
        EXPECT_EQ(righe, caso.Righe) << caso.Bytes;
        EXPECT_EQ(NumeroDi([&] { return flusso.ReadLine(); }), 62);
        EXPECT_TRUE(flusso.AtEndOfStream());
    }
}

} // namespace

} // namespace morvella

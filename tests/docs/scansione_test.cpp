// SPDX-License-Identifier: MIT
//
// What the pass over a source finds: menus, Data and ADO controls, procedures, and where the
// head of the file ends. Expected are the sections of the page, in their order.
#include "docs/banco.h"

namespace morvella {

namespace {

using namespace prove;

const char* const TitoloMenu = "Menu presenti nell'applicazione";

struct Caso {
    const char* Che;
    Testo Sorgente; // "\n" for CR LF
    bool ConMenu;
    Testo Sezioni;
};

void Prova(std::span<const Caso> casi) {
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.Che);
        Banco b;
        b.Voce("A.frm", caso.Sorgente);
        EXPECT_EQ(b.Documenta(), 0);
        ASSERT_TRUE(b.C("/p/Appoggio/A.Html"));
        EXPECT_EQ(b.Pagina("A.Html"),
                  Testa("\\p\\Appoggio\\A.Html", "A.frm", "21/11/2026", CStr(Len(CrLf(caso.Sorgente)))) +
                      caso.Sezioni + Coda(caso.ConMenu));
    }
}

TEST(Menu, Righe) {
    const Testo testa = Sezione(TitoloMenu);
    const Caso casi[] = {
        {"name and caption", "   Begin VB.Menu MnuFile \n      Caption         =   \"&File\"\n", true,
         testa + Menu(" mnufile ", "\"&File\"")},
        {"quotes, accelerator, comment and trailing blanks",
         "Begin VB.Menu m\nCaption         =   \"Fi&le\"  'x  \n", true, testa + Menu(" m", "\"Fi&le\"  'x")},
        {"the first marker of two, at column 1",
         "Begin VB.Menu m\nCaption         =   Caption         =   \"x\"\n", true,
         testa + Menu(" m", "Caption         =   \"x\"")},
        {"a sub-menu is one more table under one head",
         "   Begin VB.Menu Menu1 \n      Caption         =   \"A\"\n      Begin VB.Menu Sub1 \n"
         "         Caption         =   \"B\"\n      End\n   End\n",
         true, testa + Menu(" menu1 ", "\"A\"") + Menu(" sub1 ", "\"B\"")},
        {"no marker: from the 20th byte, indentation counted",
         "Begin VB.Menu m\n      Enabled         =   0   'False\nCaption         =   \"C\"\n", true,
         testa + Menu(" m", "=   0   'False")},
        {"no marker, no indentation", "Begin VB.Menu m\nEnabled         =   0   'False\n", true,
         testa + Menu(" m", "0   'False")},
        {"a line of 19 bytes", "Begin VB.Menu m\n1234567890123456789\n", true, testa + Menu(" m", "")},
        {"a line of 20 bytes", "Begin VB.Menu m\n12345678901234567890\n", true, testa + Menu(" m", "0")},
        {"an empty line", "Begin VB.Menu m\n\n", true, testa + Menu(" m", "")},
        {"two blanks after the =", "Begin VB.Menu m\nCaption         =  \"12345\"\n", true,
         testa + Menu(" m", "\"12345\"")},
        {"the marker with text in front", "Begin VB.Menu m\nxx Caption         =   y\n", true,
         testa + Menu(" m", "y")},
        {"lower-case caption", "Begin VB.Menu m\ncaption         =   \"yz\"\n", true,
         testa + Menu(" m", "\"yz\"")}, // the same by chance: 20 bytes in front, taken from the 20th
        {"at any column", "xx Begin VB.Menu m\n\n", true, testa + Menu(" m", "")},
        {"no blank after it", "Begin VB.MenuBar\n\n", true, testa + Menu("bar", "")},
        {"nothing after it", "Begin VB.Menu\n\n", true, testa + Menu("", "")},
        {"case", "begin vb.menu m\nBEGIN VB.MENU m\nBegin VB.menu m\n", false, ""},
        {"two blanks", "Begin  VB.Menu m\n", false, ""},
        {"accents fold, marks stay", "Begin VB.Menu \xC0<&\n\n", true, testa + Menu(" \xE0<&", "")},
        {"the next line is no menu", "Begin VB.Menu a\nBegin VB.Menu b\nBegin VB.Menu c\n\n", true,
         testa + Menu(" a", "") + Menu(" c", "")},
        {"twice on a line", "Begin VB.Menu a Begin VB.Menu b\n\n", true,
         testa + Menu(" a begin vb.menu b", "")},
        {"in a comment", "'Begin VB.Menu a\n\n", true, testa + Menu(" a", "")},
        {"not in the code", "Option Explicit\nBegin VB.Menu a\n\n", false, Sezione("Procedure interne")},
    };
    Prova(casi);
}

// The line after Begin VB.Menu is the one that the other tests of this step see.
TEST(Menu, LaRigaSeguente) {
    const Testo menu = Sezione(TitoloMenu);
    const Testo interne = Sezione("Procedure interne");
    const Caso casi[] = {
        {"a Data control", "Begin VB.Menu m\nBegin VB.Data D\nRecordSource T\n", true,
         menu + Menu(" m", "") + Sezione("DATABASE DAO") + Controllo(" D", "", " T")},
        {"a record", "Begin VB.Menu m\n RecordSource    =   \"T\"\n", true,
         menu + Menu(" m", "\"T\"") + Controllo("", "", "    =   \"T\"")},
        {"an Attribute ends the head", "Begin VB.Menu m\nAttribute VB_N = 1\nPublic Sub a()\n", true,
         menu + Menu(" m", "") + interne + Procedura(1, "Public Sub a()")},
        {"an indented Attribute does not", "Begin VB.Menu m\n Attribute VB_N = 1\nPublic Sub a()\n", true,
         menu + Menu(" m", "")},
        {"Option Explicit ends the head", "Begin VB.Menu m\nOption Explicit\nPublic Sub a()\n", true,
         menu + Menu(" m", "") + interne + Procedura(1, "Public Sub a()")},
        {"indented too", "Begin VB.Menu m\n   Option Explicit 'x\nPublic Sub a()\n", true,
         menu + Menu(" m", "'x") + interne + Procedura(1, "Public Sub a()")},
        {"that test does not fold", "Begin VB.Menu m\noption explicit\nPublic Sub a()\n", true,
         menu + Menu(" m", "")},
        {"and knows no other Option", "Begin VB.Menu m\nOption Base 1\nPublic Sub a()\n", true,
         menu + Menu(" m", "")},
        {"the next Option does", "Begin VB.Menu m\nOption Base 1\noption base 1\nPublic Sub a()\n", true,
         menu + Menu(" m", "") + interne + Procedura(1, "Public Sub a()")},
        {"a procedure there is in the head", "Begin VB.Menu m\nPublic Sub a()\nOption Explicit\n", true,
         menu + Menu(" m", "") + interne},
        {"an Option line with a menu in it has ended the head", "Option Begin VB.Menu m\n\n", false, interne},
    };
    Prova(casi);
}

// Only the head of the file is in the page, nothing after it.
TEST(Menu, SullUltimaRiga) {
    for (const char* ultima : {"Begin VB.Menu m", "Begin VB.Menu m\n"}) {
        Banco b;
        b.Voce("A.frm", ultima);
        b.Voce("B.frm", "x\n");
        EXPECT_EQ(b.Documenta(), 62);
        b.ChiudiTutto();
        const std::string misura = CStr(Len(CrLf(ultima)));
        EXPECT_EQ(b.Pagina("A.Html"),
                  Testa("\\p\\Appoggio\\A.Html", "A.frm", "21/11/2026", misura) + Sezione(TitoloMenu));
        EXPECT_FALSE(b.C("/p/Appoggio/B.Html") || b.C("/p/Appoggio/Indice.Html"));
    }
}

TEST(Controlli, Dao) {
    const Testo testa = Sezione("DATABASE DAO");
    const Caso casi[] = {
        {"a Data control",
         "   Begin VB.Data Data1 \n      DatabaseName    =   \"C:\\x.mdb\"\n      Left = 1\n"
         "      RecordSource    =   \"T<&>\"\n",
         false, testa + Controllo(" Data1", "    =   \"C:\\x.mdb\"", "    =   \"T<&>\"")},
        {"the head stands without a row", "Begin VB.Data Data1\nDatabaseName = x\n", false, testa},
        {"two controls, one head", "Begin VB.Data A\nRecordSource a\nBegin VB.Data B\nRecordSource b\n",
         false, testa + Controllo(" A", "", " a") + Controllo(" B", "", " b")},
        {"the last one counts",
         "Begin VB.Data A\nBegin VB.Data B\nDatabaseName 1\nDatabaseName 2\nRecordSource\n", false,
         testa + Controllo(" B", " 2", "")},
        {"each row empties", "Begin VB.Data A\nDatabaseName 1\nRecordSource r\nRecordSource s\n", false,
         testa + Controllo(" A", " 1", " r") + Controllo("", "", " s")},
        {"a record of any control, under no head", "  RecordSource    =   \"T\"\n", false,
         Controllo("", "", "    =   \"T\"")},
        {"a name waits for the next record", "Begin VB.Data A\nEnd\nBegin VB.TextBox T\nRecordSource r\n",
         false, testa + Controllo(" A", "", " r")},
        {"prefixes alone", "Begin VB.DataGrid G\nDatabaseNames n\nRecordSources r\n", false,
         testa + Controllo("Grid G", "s n", "s r")},
        {"case", "begin vb.data A\ndatabasename 1\nDataBaseName 1\nrecordsource r\nRecordsource r\n", false,
         ""},
        {"a TAB in front", "\tBegin VB.Data A\n\tRecordSource r\n", false, ""},
        {"in the middle of a line", "x Begin VB.Data A\nx RecordSource r\n", false, ""},
        {"not in the code", "Attribute VB_N = 1\nBegin VB.Data A\nRecordSource r\n", false,
         Sezione("Procedure interne")},
    };
    Prova(casi);
}

TEST(Controlli, Ado) {
    const Testo testa = Sezione("DATABASE ADO");
    const Testo dao = Sezione("DATABASE DAO");
    const Caso casi[] = {
        {"an Adodc",
         "   Begin MSAdodcLib.Adodc   Adodc1 \n      OLEDBString     =   \"Provider=x\" \n"
         "      RecordSource    =   \"select\" \n",
         false, testa + Controllo("Adodc1", "\"Provider=x\"", "  \"select\"")},
        {"the 18th byte is lost, whatever it is",
         "Begin MSAdodcLib.Adodc A\nOLEDBString     =xy\nRecordSource    =xy\n", false,
         testa + Controllo("A", "y", "y")},
        {"nothing after the =", "Begin MSAdodcLib.Adodc A\nOLEDBString     =\nRecordSource    =\n", false,
         testa + Controllo("A", "", "")},
        {"no OLEDBString", "Begin MSAdodcLib.Adodc A\nRecordSource    =   r\n", false,
         testa + Controllo("A", "", "  r")},
        {"two, one head",
         "Begin MSAdodcLib.Adodc A\nOLEDBString     =   1\nRecordSource    =   a\n"
         "Begin MSAdodcLib.Adodc B\nRecordSource    =   b\n",
         false, testa + Controllo("A", "1", "  a") + Controllo("B", "", "  b")},
        {"another spacing is no record of it",
         "Begin MSAdodcLib.Adodc A\nRecordSource = r\nRecordSource     =   r\nRecordSource    =   s\n", false,
         testa + Controllo("A", "", "  s")},
        {"another spacing is no string of it",
         "Begin MSAdodcLib.Adodc A\nOLEDBString = r\nOLEDBString      =   r\nRecordSource    =   s\n", false,
         testa + Controllo("A", "", "  s")},
        {"after its row the next record is a Data row",
         "Begin MSAdodcLib.Adodc A\nRecordSource    =   a\nRecordSource    =   b\n", false,
         testa + Controllo("A", "", "  a") + Controllo("", "", "    =   b")},
        {"without a name it is not under way",
         "Begin MSAdodcLib.Adodc  \nOLEDBString     =   1\nRecordSource    =   a\n", false,
         testa + Controllo("", "", "    =   a")},
        {"a pending string goes to the next Adodc",
         "OLEDBString     =   1\nBegin MSAdodcLib.Adodc A\nRecordSource    =   a\n", false,
         testa + Controllo("A", "1", "  a")},
        {"while it waits, the record of a Data control is its own",
         "Begin MSAdodcLib.Adodc A\nBegin VB.Data D\nDatabaseName d\nRecordSource    =   x\nRecordSource y\n",
         false, testa + dao + Controllo("A", "", "  x") + Controllo(" D", " d", " y")},
        {"a library of another version", "Begin MSAdodcLib.AdodcX A\nRecordSource    =   a\n", false,
         testa + Controllo("X A", "", "  a")},
        {"case", "begin msadodclib.adodc A\noledbstring     =   1\n", false, ""},
        {"sections come as the file has them",
         "Begin MSAdodcLib.Adodc A\nBegin VB.Menu m\n\nBegin VB.Data D\nBegin VB.Menu n\n\n", true,
         testa + Sezione(TitoloMenu) + Menu(" m", "") + dao + Menu(" n", "")},
    };
    Prova(casi);
}

// Where the head ends, told by whether a Data row below is written and a procedure listed.
TEST(Testa, Fine) {
    const Testo dati = "RecordSource r\nPublic Sub a()\n";
    const Testo riga = Controllo("", "", " r");
    const Testo interne = Sezione("Procedure interne") + Procedura(1, "Public Sub a()");
    const Caso casi[] = {
        {"no sign: no procedure section", dati, false, riga},
        {"Attribute at column 1", "Attribute VB_Name = 1\n" + dati, false, interne},
        {"of any kind", "Attribute x\n" + dati, false, interne},
        {"as a prefix", "Attributes\n" + dati, false, interne},
        {"indented", " Attribute VB_Name = 1\n" + dati, false, riga},
        {"lower case", "attribute VB_Name = 1\n" + dati, false, riga},
        {"Option Explicit", "Option Explicit\n" + dati, false, interne},
        {"in any case, after blanks", "   oPTION Compare Text\n" + dati, false, interne},
        {"as a prefix of a property", "      Options         =   0\n" + dati, false, interne},
        {"Optional", "Optional\n" + dati, false, interne},
        {"the bare word", "option\n" + dati, false, interne},
        {"after a TAB", "\tOption Explicit\n" + dati, false, riga},
        {"commented out", "'Option Explicit\n" + dati, false, riga},
        {"later", dati + "Attribute VB_Name = 1\nPublic Sub a()\n", false, riga + interne},
        {"a property Options in front of the record",
         "Begin VB.Data D\n   Options = 0\n   RecordSource r\nEnd\nPublic Sub a()\n", false,
         Sezione("DATABASE DAO") + interne},
    };
    Prova(casi);
}

// The head "Procedure interne" comes at the first line of code, whatever it is; a line that
// begins with "attribute vb" at column 1 is none.
TEST(Procedure, Testata) {
    const Testo testata = Sezione("Procedure interne");
    const Caso casi[] = {
        {"Attribute lines alone", "Attribute VB_Name = 1\nAttribute VB_Exposed = False\n", false, ""},
        {"in any case", "Attribute VB_Name = 1\nATTRIBUTE vB_x\nattribute vb", false, ""},
        {"the 12 bytes", "Attribute VB_Name = 1\nattribute v\n", false, testata},
        {"another attribute", "Attribute VB_Name = 1\nattribute x\n", false, testata},
        {"another that ends the head", "Attribute x\n", false, testata},
        {"indented", "Attribute VB_Name = 1\n Attribute VB_Name = 1\n", false, testata},
        {"an empty line", "Attribute VB_Name = 1\n\n", false, testata},
        {"a comment", "Attribute VB_Name = 1\n'c\n", false, testata},
        {"Option Explicit itself", "Option Explicit\n", false, testata},
        {"once", "Attribute VB_Name = 1\n\n\nOption Explicit\nPublic Sub a()\n", false,
         testata + Procedura(1, "Public Sub a()")},
    };
    Prova(casi);
}

TEST(Procedure, Inizi) {
    struct Riga {
        Vista Linea;
        std::size_t Davanti; // blanks in front of the table, 0: not listed
        Vista Cella;
        const char* Codice; // appended to StoriaBlocchi
    };
    const Riga righe[] = {
        {"Private Sub a()", 1, "Private Sub a()", "01"},
        {"Public Sub a()", 1, "Public Sub a()", "01"},
        {"Private Function f() As Long", 2, "Private Function f() As Long", "02"},
        {"Public Function f() As Long 'c <b>", 2, "Public Function f() As Long 'c <b>", "02"},
        {"Private Type t", 2, "Private Type t", ""},
        {"Public Type t", 2, "Public Type t", ""},
        {"pRIVATE sUB A()", 1, "pRIVATE sUB A()", "01"},
        {"PUBLIC FUNCTION F()", 2, "PUBLIC FUNCTION F()", "02"},
        {"PUBLIC type t", 2, "PUBLIC type t", ""},
        {"   Private Sub Form_Load()  ", 1, "Private Sub Form_Load()", "01"},
        {"Private Sub a(b, _", 1, "Private Sub a(b, _", "01"},
        {"Public Subtotale As Long", 1, "Public Subtotale As Long", "01"},
        {"Public Functional", 2, "Public Functional", "02"},
        {"Private Typed As Long", 2, "Private Typed As Long", ""},
        {"private sub", 1, "private sub", "01"},
        {"Private Sub \xE0@\"&", 1, "Private Sub \xE0@\"&", "01"},
        {"Sub Main()", 0, "", ""},
        {"Function F()", 0, "", ""},
        {"Type t", 0, "", ""},
        {"Friend Sub a()", 0, "", ""},
        {"Static Sub a()", 0, "", ""},
        {"Public Static Sub a()", 0, "", ""},
        {"Private  Sub a()", 0, "", ""},
        {"Private Su", 0, "", ""},
        {"Property Get a()", 0, "", ""},
        {"Public Property Get a()", 0, "", ""},
        {"Private Property Let a()", 0, "", ""},
        {"Public Declare Sub a Lib \"x\" ()", 0, "", ""},
        {"Private Declare Function a Lib \"x\" ()", 0, "", ""},
        {"Private Const Sub1 = 1", 0, "", ""},
        {"Private Enum e", 0, "", ""},
        {"Global Sub a()", 0, "", ""},
        {"\tPrivate Sub a()", 0, "", ""},
        {"'Private Sub a()", 0, "", ""},
        {"End Sub", 0, "", ""},
        {"x: Private Sub a()", 0, "", ""},
    };
    Testo tutte = "Option Explicit\n";
    Testo elenco;
    Testo storia = "00";
    for (const Riga& r : righe) {
        Banco b;
        b.Voce("A.bas", "Option Explicit\n" + Testo(r.Linea) + "\n");
        b.S.Margine = "mmm";
        ASSERT_EQ(b.Documenta(), 0);
        const Testo cella = r.Davanti ? Procedura(r.Davanti, r.Cella) : "";
        EXPECT_EQ(b.Pagina("A.Html"),
                  Testa("\\p\\Appoggio\\A.Html", "A.bas", "21/11/2026", CStr(17 + Len(r.Linea) + 2)) +
                      Sezione("Procedure interne") + cella + Coda(false))
            << r.Linea;
        EXPECT_EQ(b.S.StoriaBlocchi, Testo("00") + r.Codice) << r.Linea;
        EXPECT_EQ(b.S.Margine, "     ");
        tutte += Testo(r.Linea) + "\n";
        elenco += cella;
        storia += r.Codice;
    }
    // All in one file: in the file's order, unsorted.
    Banco b;
    b.Voce("A.bas", tutte);
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_TRUE(
        b.Pagina("A.Html").ends_with("  </TABLE>\r\n" + Sezione("Procedure interne") + elenco + Coda(false)));
    EXPECT_EQ(b.S.StoriaBlocchi, storia);
}

// Flags belong to a module, pending values to a run.
TEST(Pendenti, DaUnModuloAllAltro) {
    Banco b;
    b.Voce("A.frm", "Begin VB.Menu m\n\nBegin VB.Data D\nDatabaseName d\n");
    b.Voce("B.frm", "RecordSource r\nOLEDBString     =   o\nBegin MSAdodcLib.Adodc O\n");
    b.Voce("C.frm", "Begin VB.Data E\nRecordSource    =   s\n");
    b.Voce("D.frm", "RecordSource    =   t\nBegin MSAdodcLib.Adodc Q\n");
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_TRUE(b.Pagina("A.Html").ends_with(Menu(" m", "") + Sezione("DATABASE DAO") + Coda(true)));
    EXPECT_TRUE(b.Pagina("B.Html").ends_with("  </TABLE>\r\n" + Controllo(" D", " d", " r") +
                                             Sezione("DATABASE ADO") + Coda(false)));
    EXPECT_TRUE(b.Pagina("C.Html").ends_with("  </TABLE>\r\n" + Sezione("DATABASE DAO") +
                                             Controllo("O", "o", "  s") + Coda(false)));
    EXPECT_TRUE(b.Pagina("D.Html").ends_with("  </TABLE>\r\n" + Controllo(" E", "", "    =   t") +
                                             Sezione("DATABASE ADO") + Coda(false)));

    // The next run begins with nothing pending: neither Q nor what a failed run left.
    for (Lungo i = 0; i < 3; ++i) b.S.File1.Segna(i, false);
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_TRUE(b.Pagina("D.Html").ends_with("  </TABLE>\r\n" + Controllo("", "", "    =   t") +
                                             Sezione("DATABASE ADO") + Coda(false)));
}

TEST(Pendenti, NonDopoUnaCorsaFallita) {
    Banco b;
    b.Voce("A.frm", "Begin MSAdodcLib.Adodc Q\n");
    b.Voce("B.frm"); // no source
    b.Voce("C.frm", "RecordSource    =   t\n");
    ASSERT_EQ(b.Documenta(), 53);
    b.ChiudiTutto();
    b.S.File1.Segna(0, false);
    b.S.File1.Segna(1, false);
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_TRUE(
        b.Pagina("C.Html").ends_with("  </TABLE>\r\n" + Controllo("", "", "    =   t") + Coda(false)));
}

// The passes look through whole blocks where no line can matter. What they find is what reading
// line by line finds: here that is done the plain way, over sources made of pieces that nearly
// matter, with every line end, lines longer than a block, and sizes around a block's.
class Sorgente {
  public:
    explicit Sorgente(unsigned seme) : stato_(seme * 2654435761U + 1) {}
    unsigned Numero(unsigned fino) {
        stato_ = stato_ * 1664525U + 1013904223U;
        return (stato_ >> 8) % fino;
    }
    Testo Fai(std::size_t misura) {
        static constexpr Vista Pezzi[] = {"Private Sub a()",
                                          "private function f()",
                                          "PUBLIC TYPE t",
                                          "Public Sub",
                                          "Private ",
                                          "pr",
                                          "pu",
                                          "P",
                                          "x",
                                          " ",
                                          "  ",
                                          "   ",
                                          "\t",
                                          "\n",
                                          ".Show",
                                          ".Sho",
                                          ".",
                                          "F.Show",
                                          "G.Show 1",
                                          "'",
                                          "Me.Show",
                                          "Sfondo.Msg1.Show",
                                          "attribute vb",
                                          "Attribute VB_Name",
                                          "\r",
                                          "\r\n",
                                          "\r\n",
                                          "\r\n",
                                          "\r\nPrivate Sub ",
                                          "\r\n  public function ",
                                          "\rPublic Type ",
                                          "\r\nH.Show",
                                          "\r\n\n.Show"};
        Testo testo;
        while (testo.size() < misura) {
            const unsigned che = Numero(std::size(Pezzi) + 6);
            if (che < std::size(Pezzi))
                testo += Pezzi[che];
            else if (che == std::size(Pezzi) && Numero(400) == 0)
                testo.append(Canali::Blocco + Numero(1000), 'z');
            else
                testo.append(Numero(200), "z.p \r"[Numero(6)]);
        }
        return testo;
    }

  private:
    unsigned stato_;
};

std::vector<Testo> RigaPerRiga(Vista bytes) {
    std::vector<Testo> righe;
    while (!bytes.empty()) {
        const std::size_t cr = std::min(bytes.find('\r'), bytes.size());
        righe.emplace_back(bytes.substr(0, cr));
        bytes.remove_prefix(std::min(cr + 1, bytes.size()));
        if (!bytes.empty() && bytes.front() == '\n') bytes.remove_prefix(1); // the LF of a CR LF
    }
    return righe;
}

TEST(Blocchi, ComeRigaPerRiga) {
    for (unsigned seme = 0; seme < 60; ++seme) {
        SCOPED_TRACE(seme);
        Sorgente caso(seme);
        const std::size_t misura = seme % 3 == 0   ? 3 * Canali::Blocco
                                   : seme % 3 == 1 ? Canali::Blocco + caso.Numero(700)
                                                   : 500 + caso.Numero(9000);
        const Testo bytes = "Option Explicit\r\n" + caso.Fai(misura);
        Testo procedure;
        Testo mostrati;
        const std::vector<Testo> righe = RigaPerRiga(bytes);
        for (const Testo& intera : righe) {
            const Testo riga(Trim(intera));
            const Testo piccola = LCase(riga);
            for (const char* tipo : {"private type", "public type", "private function", "public function"})
                if (piccola.starts_with(tipo)) procedure += Procedura(2, riga);
            if (piccola.starts_with("private sub") || piccola.starts_with("public sub"))
                procedure += Procedura(1, riga);
            const std::size_t trovato = riga.find(".Show");
            if (riga.starts_with("'") || trovato == Testo::npos) continue;
            const Testo chi = UCase(riga.substr(0, trovato));
            if (chi == "ME" || chi == "SFONDO.MSG1" || Trim(chi).empty()) continue;
            const Testo voce = "    " + chi + "<br>";
            mostrati += "          '" + voce;
            if (voce.size() < 54) mostrati += Testo(54 - voce.size(), ' ') + "<br> ";
            mostrati += "\r\n";
        }
        Banco b;
        b.Voce("A.bas");
        b.Disco.Metti("/p/A.bas", bytes);
        b.Fronte.AllaDomanda = [&] { EXPECT_EQ(b.S.Progress.Value, static_cast<Lungo>(righe.size())); };
        ASSERT_EQ(b.Documenta(), 0);
        EXPECT_EQ(b.S.TotaleRighe, static_cast<Lungo>(righe.size()));
        EXPECT_TRUE(b.Pagina("A.Html") ==
                    Testa("\\p\\Appoggio\\A.Html", "A.bas", "21/11/2026", CStr(Len(bytes))) +
                        Sezione("Procedure interne") + procedure + Coda(false, mostrati));
    }
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// The frame of a module's page: its fixed lines, the summary, the list of shown forms.
#include "docs/banco.h"

namespace morvella {

namespace {

using namespace prove;

TEST(Pagina, InteraSenzaMenu) {
    Banco b;
    b.Voce("Uno.bas", "Attribute VB_Name = \"A\"\nOption Explicit\nPrivate Sub a()\nForm2.Show\nEnd Sub\n");
    b.Disco.Modificati["/p/Uno.bas"] = {1998, 12, 10, 8, 5, 9};
    ASSERT_EQ(b.Documenta(), 0);
    // clang-format off
    EXPECT_EQ(b.Pagina("Uno.Html"),
        "<html>\r\n"
        "\r\n"
        "<head>\r\n"
        "<title>\\p\\Appoggio\\Uno.Html</title>\r\n"
        "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\">\r\n"
        "<meta name=\"GENERATOR\">\r\n"
        "</head>\r\n"
        "\r\n"
        "<body background=\"BLULETHR.GIF\" style=\"font-family: Arial; font-size: 12\">\r\n"
        "  <TABLE BORDER CELLSPACING=1 BORDERCOLOR=\"#000000\" CELLPADDING=4 WIDTH=651>\r\n"
        "  <TR><TD WIDTH=\"33%\" VALIGN=\"TOP\">\r\n"
        "  <P><B><FONT FACE=\"Arial\" SIZE=2>Procedura</B></FONT></TD>\r\n"
        "  <TD WIDTH=\"33%\" VALIGN=\"TOP\">\r\n"
        "  <B><FONT FACE=\"Arial\" SIZE=2><P>Data Creazione</B></FONT></TD>\r\n"
        "  <TD WIDTH=\"33%\" VALIGN=\"TOP\">\r\n"
        "  <B><FONT FACE=\"Arial\" SIZE=2><P>Grandezza form</B></FONT></TD>\r\n"
        "  </TR>\r\n"
        "  <TR><TD WIDTH=\"33%\" VALIGN=\"TOP\">\r\n"
        "  <B><FONT FACE=\"Arial\"><P>&nbsp;Uno.bas</B></FONT></TD>\r\n"
        "  <TD WIDTH=\"3%\" VALIGN=\"TOP\">\r\n" // sic: the narrow cell
        "  <B><FONT FACE=\"Arial\"><P>10/12/1998</B></FONT></TD>\r\n"
        "  <TD WIDTH=\"33%\" VALIGN=\"TOP\">\r\n"
        "  <B><FONT FACE=\"Arial\"><P>80</B></FONT></TD>\r\n" // 23+2 + 15+2 + 15+2 + 10+2 + 7+2
        "  </TR>\r\n"
        "  </TABLE>\r\n"
        "        <br>\r\n"
        "        <HR>\r\n"
        "      <b><font size=\"3\">&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;Procedure interne</font><br>\r\n"
        "        <HR>\r\n"
        "        <br>\r\n"
        " <table border=\"0\" width=\"100%\">\r\n" // one blank
        "      <tr>\r\n"
        "        <td width=\"100%\"><strong> Private Sub a()</strong></td>\r\n"
        "      </tr>\r\n"
        "    </table>\r\n"
        "  <tr>\r\n"
        "    <td width=\"100%\"><p align=\"center\"><big><strong>nella presente&nbsp; procedura non sono stati rilevati men\xF9</strong></big></td>\r\n"
        "  </tr>\r\n"
        "         <p align=\"center\"><img src=\"Dario.gif\"width=\"429\"height=\"124\"\r\n" // no blanks in the tag
        "alt=\"Dario.gif (37133 byte)\"></p>\r\n"
        "<p align=\"center\"><img src=\"p2.gif\" width=\"429\" height=\"39\" alt=\"p2.gif (13802 byte)\"></p>\r\n"
        "<div align=\"center\"><center>\r\n"
        "              <table border=\"0\" width=\"50%\">\r\n"
        "  <tr>\r\n"
        "    <td width=\"100%\"><p align=\"left\"><big><strong>\r\n"
        "          '    FORM2<br>                                         <br> \r\n"
        "</strong></big></td>\r\n"
        "  </tr>\r\n"
        "</table>\r\n"
        "</center></div>\r\n"
        "<p align=\"center\"><br><br> <strong>Rilettura del  21/11/2026... </strong> </p>\r\n"
        "<p align=\rcenter\r>&nbsp;</p>\r\n" // CR where the others have quotes
        "<p align=\rcenter\r><a href=\rIndice.Html\r><img border=\r0\r src=\rhome.GIF\r alt=\rTorna alla pagina iniziale\r width=\r102\r height=\r43\r></a></p>\r\n"
        "</body>\r\n"
        "</html>\r\n");
    // clang-format on
}

// A module without a line has its head, its summary and its tail; the four closing lines of the
// list stand there with nothing that they close.
TEST(Pagina, ModuloVuoto) {
    Banco b;
    b.Voce("V.cls", "");
    ASSERT_EQ(b.Documenta(), 0);
    const std::string pagina = b.Pagina("V.Html");
    EXPECT_EQ(pagina, Testa("\\p\\Appoggio\\V.Html", "V.cls", "21/11/2026", "0") + Coda(false));
    EXPECT_EQ(b.S.Progress.Max, 15);
    EXPECT_EQ(pagina.find("p2.gif"), std::string::npos);
    EXPECT_NE(
        pagina.find("byte)\"></p>\r\n</strong></big></td>\r\n  </tr>\r\n</table>\r\n</center></div>\r\n"),
        std::string::npos);
}

// The two lines with CR hold no quotation mark: one value between two CRs in the first, seven in
// the second.
TEST(Pagina, RigheConCr) {
    Banco b;
    b.Voce("V.bas", "");
    ASSERT_EQ(b.Documenta(), 0);
    const std::string pagina = b.Pagina("V.Html");
    std::size_t soli = 0;
    for (std::size_t i = 0; i < pagina.size(); ++i)
        if (pagina[i] == '\r' && pagina[i + 1] != '\n') ++soli;
    EXPECT_EQ(soli, 2U + 2 * 7);
    const std::size_t da = pagina.find("<p align=\rcenter\r>&nbsp;");
    ASSERT_NE(da, std::string::npos);
    EXPECT_EQ(pagina.find('"', da), std::string::npos);
}

// Nothing of a page depends on the options, and the kind of the file is not looked at.
TEST(Pagina, OpzioniETipoNonContano) {
    const char* sorgente = "Begin VB.Menu m\n x\nAttribute VB_Name = \"A\"\nPublic Sub a()\nB.Show\n";
    std::string prima;
    for (const bool opzioni : {false, true})
        for (const char* voce : {"A.frm", "A.bas", "A.cls", "A.dsr"}) {
            Banco b;
            b.S.Check1 = b.S.Check2 = b.S.TogliCommenti = opzioni ? 1 : 0;
            b.S.Option1_0 = opzioni;
            if (opzioni) b.S.Text1 = "'testo\r\n";
            b.Voce(voce, sorgente);
            ASSERT_EQ(b.Documenta(), 0);
            std::string pagina = b.Pagina("A.Html");
            pagina.replace(pagina.find(voce), 5, "A.xxx");
            if (prima.empty()) prima = pagina;
            EXPECT_EQ(pagina, prima) << voce << opzioni;
        }
}

TEST(Pagina, Riepilogo) {
    struct Caso {
        const char* Voce;
        const char* File; // of the source
        Istante Quando;
        std::size_t Bytes;
        const char* Pagina; // its file
        const char* Titolo;
        const char* Data;
    };
    const Caso casi[] = {
        {"A.bas",
         "/p/A.bas",
         {2001, 10, 12, 0, 0, 1},
         0,
         "/p/Appoggio/A.Html",
         "\\p\\Appoggio\\A.Html",
         "12/10/2001"},
        {"A.bas",
         "/p/A.bas",
         {2001, 10, 12, 23, 59, 59},
         1,
         "/p/Appoggio/A.Html",
         "\\p\\Appoggio\\A.Html",
         "12/10/2001"},
        {"con blank.frm",
         "/p/con blank.frm",
         {1999, 12, 31, 1, 0, 0},
         1234567,
         "/p/Appoggio/con blank.Html",
         "\\p\\Appoggio\\con blank.Html",
         "31/12/1999"},
        {"x.c", "/p/x.c", {}, 0, nullptr, nullptr, nullptr}, // three bytes: error 5
        {".cls",
         "/p/.cls",
         {2001, 10, 12, 12, 0, 0},
         3,
         "/p/Appoggio/.Html",
         "\\p\\Appoggio\\.Html",
         "12/10/2001"},
        {"Form1.f",
         "/p/Form1.f",
         {2001, 10, 12, 12, 0, 0},
         3,
         "/p/Appoggio/For.Html",
         "\\p\\Appoggio\\For.Html",
         "12/10/2001"},
        {"sub\\A.bas",
         "/p/sub/A.bas",
         {2001, 10, 12, 12, 0, 0},
         9,
         "/p/Appoggio/sub/A.Html",
         "\\p\\Appoggio\\sub\\A.Html",
         "12/10/2001"},
        {"..\\Comune\\Form.frm",
         "/Comune/Form.frm",
         {2001, 10, 12, 12, 0, 0},
         9,
         "/p/Comune/Form.Html",
         "\\p\\Appoggio\\..\\Comune\\Form.Html",
         "12/10/2001"},
        {"Perch\xE9<b>&.bas",
         "/p/Perch\xC3\xA9<b>&.bas",
         {2001, 10, 12, 12, 0, 0},
         9,
         "/p/Appoggio/Perch\xC3\xA9<b>&.Html",
         "\\p\\Appoggio\\Perch\xE9<b>&.Html",
         "12/10/2001"},
    };
    for (const Caso& caso : casi) {
        SCOPED_TRACE(caso.Voce);
        Banco b;
        b.Disco.FaiDirectory("/p/Comune");
        b.Disco.Metti("/p/Appoggio/OK.LOG", "");
        b.Disco.FaiDirectory("/p/Appoggio/sub");
        b.Disco.Metti(caso.File, Testo(caso.Bytes, 'x'));
        b.Disco.Modificati[caso.File] = caso.Quando;
        b.Voce(caso.Voce);
        if (!caso.Pagina) {
            EXPECT_EQ(b.Documenta(), 5);
            continue;
        }
        EXPECT_EQ(b.Documenta(), 0);
        ASSERT_TRUE(b.C(caso.Pagina));
        const Testo titolo = Testo(caso.Titolo);
        EXPECT_EQ(b.Disco.Leggi(caso.Pagina),
                  Testa(titolo, caso.Voce, caso.Data, CStr(static_cast<long long>(caso.Bytes))) +
                      Coda(false));
    }
}

// At midnight the text of the date has no blank: what stood before the row is in the page.
TEST(Pagina, Mezzanotte) {
    Banco b;
    b.Voce("A.bas", "x\n");
    b.Voce("B.bas", "x\n");
    b.Disco.Modificati["/p/A.bas"] = {2026, 11, 20, 0, 0, 0};
    EXPECT_EQ(b.Documenta(), 5);
    b.ChiudiTutto();
    const Testo intera = Testa("\\p\\Appoggio\\A.Html", "A.bas", "", "");
    EXPECT_EQ(b.Pagina("A.Html"), intera.substr(0, intera.find("  </TR>\r\n") + 9));
    EXPECT_FALSE(b.C("/p/Appoggio/B.Html") || b.C("/p/Appoggio/Indice.Html") || b.C("/p/Appoggio/p2.gif"));
    EXPECT_TRUE(b.Fronte.Box_.empty());
}

// Date and size belong to the row as a path from the current directory, and not to the source.
TEST(Pagina, RigaDallaDirectoryCorrente) {
    Banco b;
    b.Disco.Metti("/p/Appoggio/OK.LOG", "");
    b.Voce("A.bas", "x\n");
    b.Disco.Metti("/altra/A.bas", "12345");
    b.Disco.CambiaDirectory("/altra");
    ASSERT_EQ(b.Documenta(), 0);
    EXPECT_EQ(b.Pagina("A.Html"), Testa("\\p\\Appoggio\\A.Html", "A.bas", "21/11/2026", "5") + Coda(false));

    b.Disco.FaiDirectory("/vuota");
    b.Disco.CambiaDirectory("/vuota");
    EXPECT_EQ(b.Documenta(), 53);
    b.ChiudiTutto();
    EXPECT_TRUE(b.Pagina("A.Html").ends_with("<P>Grandezza form</B></FONT></TD>\r\n  </TR>\r\n"));
}

// The list of shown forms: what the first pass takes from one line.
TEST(Mostrati, UnaRiga) {
    struct Caso {
        Vista Riga;
        const char* Chi; // nullptr: nothing
    };
    const Caso casi[] = {
        {"Form2.Show", "FORM2"},
        {"  Form2.Show vbModal", "FORM2"},
        {"If Ok Then Form2.Show", "IF OK THEN FORM2"},
        {"A.Show: B.Show", "A"},
        {"Form2.ShowColor", "FORM2"},
        {"Form2.show", nullptr},
        {"Form2.SHOW", nullptr},
        {"Form2 .Show", "FORM2 "},
        {".Show", nullptr},
        {"   .Show", nullptr},
        {"\t.Show", "\t"}, // a TAB is no blank
        {"' Form2.Show", nullptr},
        {"   'Form2.Show", nullptr},
        {"\t'Form2.Show", "\t'FORM2"},
        {"x = 1 'Form2.Show", "X = 1 'FORM2"},
        {"Rem Form2.Show", "REM FORM2"},
        {"SFONDO.MSG1.Show", nullptr},
        {"  Sfondo.Msg1.Show 1", nullptr},
        {"Sfondo.Msg1 .Show", "SFONDO.MSG1 "},
        {"Sfondo.Msg2.Show", "SFONDO.MSG2"},
        {"xSfondo.Msg1.Show", "XSFONDO.MSG1"},
        {"Me.Show", nullptr},
        {" ME.Show", nullptr},
        {"Me .Show", "ME "},
        {"If x Then Me.Show", "IF X THEN ME"},
        {"Caption         =   \"Vedi x.Show\"", "CAPTION         =   \"VEDI X"},
        {"Perch\xE9.Show", "PERCH\xC9"},
        {"a\nb.Show", "A\nB"}, // a lone LF ends no line
        {"Print \"<b>\": F.Show", "PRINT \"<B>\": F"},
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.Voce("A.bas");
        b.Disco.Metti("/p/A.bas", Testo(caso.Riga) + "\r\n");
        ASSERT_EQ(b.Documenta(), 0);
        EXPECT_EQ(b.Pagina("A.Html"),
                  Testa("\\p\\Appoggio\\A.Html", "A.bas", "21/11/2026", CStr(Len(caso.Riga) + 2)) +
                      Coda(false, caso.Chi ? Mostrato(caso.Chi) : ""))
            << caso.Riga;
    }
}

// Over the whole file, head and code, one for each line, in the file's order; none of the module
// before.
TEST(Mostrati, TuttoIlFile) {
    Banco b;
    b.S.ElencoShow.Voci = "    DI PRIMA<br>\r"; // as another engine, or a run that failed, leaves it
    b.Voce("A.frm", "Tag = \"h.Show\"\nAttribute VB_Name = \"A\"\nB.Show\nA.Show\nB.Show\nMe.Show\n");
    b.Voce("B.frm", "Z.Show");
    b.Voce("C.frm", "x\n");
    ASSERT_EQ(b.Documenta(), 0);
    const std::string a = b.Pagina("A.Html");
    EXPECT_TRUE(
        a.ends_with(Coda(false, Mostrato("TAG = \"H") + Mostrato("B") + Mostrato("A") + Mostrato("B"))));
    EXPECT_TRUE(b.Pagina("B.Html").ends_with(Coda(false, Mostrato("Z"))));
    EXPECT_TRUE(b.Pagina("C.Html").ends_with(Coda(false)));
}

// An entry is four blanks, the name and "<br>": 53 bytes get one blank, 54 and more nothing.
TEST(Mostrati, Larghezza) {
    struct Caso {
        std::size_t Nome;
        const char* Coda;
    };
    const Caso casi[] = {
        {1, "                                             <br> "}, // 45 blanks
        {44, "  <br> "},
        {45, " <br> "},
        {46, ""},
        {47, ""},
        {300, ""},
    };
    for (const Caso& caso : casi) {
        const Testo nome(caso.Nome, 'F');
        Banco b;
        b.Voce("A.bas", nome + ".Show\n");
        ASSERT_EQ(b.Documenta(), 0);
        EXPECT_TRUE(
            b.Pagina("A.Html").ends_with(Coda(false, "          '    " + nome + "<br>" + caso.Coda + "\r\n")))
            << caso.Nome;
    }
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// One file of the run: the number field, the head of the listing, the restart after a control
// section.
#include "listing/banco.h"

namespace morvella {

namespace {

using namespace prove;

TEST(Campo, OgniNumeroDiCifre) {
    const std::pair<Lungo, const char*> casi[] = {
        {0, "000000     "},      {1, "000001     "},      {7, "000007     "},     {9, "000009     "},
        {10, "000010     "},     {99, "000099     "},     {100, "000100     "},   {999, "000999     "},
        {1000, "001000     "},   {9999, "009999     "},   {10000, "010000     "}, {99999, "099999     "},
        {100000, "100000     "}, {999999, "999999     "}, {1000000, "     "},     {12345678, "     "},
    };
    for (const auto& [n, campo] : casi) EXPECT_EQ(CampoNumero(n), campo) << n;
}

// clang-format off
struct File {
    const char* Che;
    const char* Nome;
    std::vector<std::string> Righe;
    int Prima;                       // StatoTesta when the file comes: 0 or 7
    bool Bas;                        // Option1(0)
    bool ConTesta;
    std::vector<std::string> Atteso;
};
const File PerFile[] = {
    {"form", "M.frm", {"VERSION 5.00", "Begin VB.Form M", "End", "Attribute VB_Name = \"M\"", Exposed, "x"}, 0, false, false, {"1|···x"}},
    {"form after a form", "M.frm", {"VERSION 5.00", Exposed, "x"}, 7, false, false, {"1|···x"}},
    {"form in capitals", "M.FRM", {"VERSION 5.00", Exposed, "x"}, 0, false, false, {"1|···x"}},
    {"form without the exact line", "M.frm", {"VERSION 5.00", "Attribute VB_Exposed = True", "x"}, 0, false, false,
        {"1|···VERSION 5.00", "2|···Attribute VB_Exposed = True", "3|···x"}},
    {"bas at 7", "M.bas", {"Attribute VB_Name = \"M\"", "Option Explicit", "x"}, 7, false, false,
        {"1|···Attribute VB_Name = \"M\"", "2|···Option Explicit", "3|···x"}},
    {"any other name at 7", "M.txt", {"Attribute VB_Name = \"M\"", "x"}, 7, false, false, {"1|···Attribute VB_Name = \"M\"", "2|···x"}},
    {"cls at 7, False", "M.cls", Con(Classe5, {Exposed, "Option Explicit", "x"}), 7, false, false, {"1|···Option Explicit", "2|···x"}},
    {"cls at 7, True", "M.cls", {"VERSION 1.0 CLASS", "BEGIN", "END", "Attribute VB_Exposed = True", "x"}, 7, false, false,
        {"1|···VERSION 1.0 CLASS", "2|···BEGIN", "3|···END", "4|···Attribute VB_Exposed = True", "5|···x"}},
    {"cls at 0, five and Option Explicit", "M.cls", Con(Classe5, {Exposed, "Option Explicit", "x"}), 0, false, true,
        {"1|···Option Explicit", "2|···x"}},
    {"cls at 0, five and True", "M.cls", Con(Classe5, {"Attribute VB_Exposed = True", "Option Explicit", "x"}), 0, false, true,
        {"1|···Option Explicit", "2|···x"}},
    {"cls at 0, five and a line between", "M.cls", Con(Classe5, {Exposed, "'c", "Option Explicit On", "x"}), 0, false, true,
        {"1|···Option Explicit On", "2|···x"}},
    {"cls at 0, five without Option", "M.cls", Con(Classe5, {Exposed, "x", "Sub a()", "End Sub"}), 0, false, false, {}},
    {"cls at 0, six", "M.cls", Con(Classe5, {Exposed, "Attribute VB_Ext_KEY = \"a\"", "x"}), 0, false, true,
        {"1|···Attribute VB_Ext_KEY = \"a\"", "2|···x"}},
    {"cls at 0, six, the last is the restart", "M.cls", Con(Classe5, {"Attribute a", Exposed, "x"}), 0, false, false, {"1|···x"}},
    {"cls at 0, four", "M.cls", Con(Classe5, {"Option Explicit", "x"}), 0, false, false, {}},
    {"bas at 0", "M.bas", {"Attribute VB_Name = \"M\"", "Option Explicit", "x"}, 0, false, false, {}},
    {"bas at 0, option on", "M.bas", {"Attribute VB_Name = \"M\"", "Option Explicit", "x"}, 0, true, true, {"1|···Option Explicit", "2|···x"}},
    {"bas at 0, option on, any line", "M.bas", {"Attribute VB_Name = \"M\"", "", "x"}, 0, true, true, {"1|···", "2|···x"}},
    {"bas at 0, option on, no Attribute", "M.bas", {"x", "y"}, 0, true, false, {}},
    {"bas at 0, option on, two Attributes", "M.bas", {"Attribute a", "Attribute b", "x"}, 0, true, false, {}},
    {"form, option on", "M.frm", {"VERSION 5.00", Exposed, "x"}, 0, true, false, {"1|···x"}},
    {"option in lower case", "M.bas", {"a", "b", "option explicit", "x"}, 0, false, false, {"3|···option explicit", "4|···x"}},
    {"after an Attribute the count starts there", "M.bas", {"a", "Attribute b", "option c", "x"}, 0, false, false, {"1|···option c", "2|···x"}},
    {"optional, too", "M.bas", {"optional", "x"}, 0, false, false, {"1|···optional", "2|···x"}},
    {"Option with a capital", "M.bas", {"Option Explicit", "x"}, 0, false, false, {}},
    {"attribute in lower case at 7", "M.frm", {"attribute vb_exposed = false", "x"}, 0, false, false, {"1|···attribute vb_exposed = false", "2|···x"}},
    {"other spacing", "M.frm", {"Attribute VB_Exposed  = False", "x"}, 0, false, false, {"1|···Attribute VB_Exposed  = False", "2|···x"}},
    {"with a comment", "M.frm", {"Attribute VB_Exposed = False 'c", "x"}, 0, false, false, {"1|···Attribute VB_Exposed = False 'c", "2|···x"}},
    {"indented it is trimmed", "M.frm", {"a", "   Attribute VB_Exposed = False  ", "x"}, 0, false, false, {"1|···x"}},
    {"after a TAB", "M.frm", {"\tAttribute VB_Exposed = False", "x"}, 0, false, false, {"1|···\tAttribute VB_Exposed = False", "2|···x"}},
    {"twice", "M.frm", {"a", Exposed, "b", Exposed, "x"}, 0, false, false, {"1|···x"}},
    {"nothing after it", "M.frm", {"a", Exposed}, 0, false, false, {}},
    {"empty", "M.bas", {}, 0, false, false, {}},
    {"empty at 7", "M.bas", {}, 7, false, false, {}},
};
// clang-format on

// Each file alone, or after a form, whose name comes first.
TEST(PerFile, TestaECodice) {
    for (const File& caso : PerFile) {
        Banco b;
        b.S.Option1_0 = caso.Bas;
        if (caso.Prima == 7) b.Modulo("A.frm", "x\r\n");
        b.Modulo(caso.Nome, Sorgente(caso.Righe));
        b.Tutte();
        mnuvorn_Click(b.S);
        EXPECT_EQ(b.Log("M.log"), (caso.ConTesta ? Testa() : Testo()) + Listato(caso.Atteso)) << caso.Che;
        EXPECT_TRUE(b.Fronte.Arresti.empty()) << caso.Che;
        EXPECT_EQ(b.Fronte.Scritti.back(), Testo(caso.Prima == 7 ? "1" : "0") + "|\\p\\Appoggio\\M.log|" +
                                               CStr(static_cast<long long>(caso.Righe.size())))
            << caso.Che;
    }
}

TEST(PerFile, UltimaRigaConOgniFine) {
    for (const char* fine : {"", "\r", "\r\n"}) {
        Banco b;
        b.Modulo("F.frm", Testo("aaaa\r\nbbbb") + fine);
        b.Tutte();
        mnuvorn_Click(b.S);
        EXPECT_EQ(b.Log("F.log"), Listato({"1|···aaaa", "2|···bbbb"})) << testing::PrintToString(fine);
    }
}

// Bytes of all kinds are copied as they are; a lone CR ends a line, a lone LF does not.
TEST(PerFile, ByteDiOgniGenere) {
    Banco b;
    b.Modulo("F.frm", Testo("a\rb\nc\r\n") + "\xB3\xC4 \xE8" + Testo(1, '\0') + "\x1A\r\n");
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("F.log"), "000001        a\r\n000002        b\nc\r\n000003        \xB3\xC4 \xE8" +
                                  Testo(1, '\0') + "\x1A\r\n");
}

// clang-format off
TEST(Testa, VociDiShow) {
    const std::string n48 = "Call " + std::string(43, 'x'); // with the five in front: 53
    const std::string n49 = "Call " + std::string(44, 'x'); // 54
    const std::string n60 = "Call " + std::string(55, 'x');
    Banco b;
    b.Modulo("M.cls", Sorgente(Con(Classe5, {Exposed, "Option Explicit",
        "  Form2.Show 'x", "Call x: Form2.Show", ".Show", "'Form3.Show", "Rem Form4.Show", "form5.show",
        "a.Show: b.Show", "dlg.ShowOpen", "x = \"f.Show\"", n48 + ".Show", n49 + ".Show", n60 + ".Show", "If \xE8 Then f.Show"})));
    b.Tutte();
    mnuvorn_Click(b.S);
    const auto voce = [](std::string testo) {
        testo = "*    " + testo;
        testo.resize(54, ' ');
        return testo + "*";
    };
    std::string maiuscole48 = "*    CALL " + std::string(43, 'X');
    std::string maiuscole49 = "*    CALL " + std::string(44, 'X');
    std::string maiuscole60 = "*    CALL " + std::string(55, 'X');
    EXPECT_EQ(maiuscole48.size(), 53U);
    EXPECT_EQ(maiuscole49.size(), 54U);
    const Testo attesa = Testa({voce("FORM2"), voce("CALL X: FORM2"), voce(""), voce("REM FORM4"), voce("A"), voce("DLG"),
                                voce("X = \"F"), maiuscole48 + " *", maiuscole49, maiuscole60, voce("IF \xC8 THEN F")});
    const Testo log = b.Log("M.log");
    EXPECT_EQ(log.substr(0, attesa.size()), attesa);
    EXPECT_EQ(log.substr(attesa.size(), 31), "000001        Option Explicit\r\n");
    EXPECT_TRUE(b.S.ElencoShow.Resto().empty());
}
// clang-format on

TEST(Testa, ScritturaDaSola) {
    Banco b;
    b.Disco.FaiDirectory("/p/Appoggio");
    b.S.Canale.OpenOutput(2, "\\p\\Appoggio\\x.log");
    b.S.ElencoShow.Voci = "*    A\r*    B";
    ScriviTesta(b.S); // what no Chr(13) ends is no entry
    b.S.Canale.Close(2);
    EXPECT_EQ(b.Log("x.log"), Testa({"*    A" + std::string(48, ' ') + "*"}));
}

// Only a file that goes through state 6 shows its calls.
TEST(Testa, NonPerUnForm) {
    Banco b;
    b.Modulo("F.frm", Sorgente({"x", Exposed, "Form2.Show"}));
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("F.log"), Listato({"1|···Form2.Show"}));
}

TEST(Riparti, TestoDIntestazione) {
    struct Caso {
        int Check1;
        Testo Text1, Davanti;
    };
    const Caso casi[] = {
        {0, "'uno", ""},
        {1, "", ""},
        {1, "'uno", "'uno\r\n"},
        {1, "'uno\r\n'* due", "'uno\r\n'* due\r\n"},
        {1, "'uno\r\n", "'uno\r\n\r\n"},
        {1, " ", " \r\n"}, // one character is enough, even a blank
        {2, "'uno", ""},
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.S.Check1 = caso.Check1;
        b.S.Text1 = caso.Text1;
        // A second restart drops the first text with the rest, and writes it again.
        b.Modulo("F.frm", Sorgente({"a", Exposed, "x"}));
        b.Modulo("G.frm", Sorgente({"a", Exposed, "b", Exposed, "x"}));
        b.Modulo("H.frm", Sorgente({"x"})); // no restart, no text
        b.Tutte();
        mnuvorn_Click(b.S);
        EXPECT_EQ(b.Log("F.log"), caso.Davanti + Listato({"1|···x"})) << caso.Text1;
        EXPECT_EQ(b.Log("G.log"), caso.Davanti + Listato({"1|···x"})) << caso.Text1;
        EXPECT_EQ(b.Log("H.log"), Listato({"1|···x"}));
    }
}

// The restart cleans the file and the count of lines; the margin and the history go on.
TEST(Riparti, CheCosaResta) {
    Banco b;
    b.Modulo("F.frm", Sorgente({"If a Then", "For i = 1 To 2", Exposed, "x", "Next", "Sub b()"}));
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("F.log"), Listato({"1|···│··║··x", "2|···│··╚═>Next", "R|3|14|Sub b()"}));
    EXPECT_EQ(b.S.StoriaBlocchi, "00030501");
    EXPECT_EQ(b.S.StatoTesta, 7);
    EXPECT_EQ(b.S.TotaleRighe, 6);
    EXPECT_EQ(b.S.ContaRighe, 3);
}

// At the restart the field is five blanks, until the next line gets its number.
TEST(Riparti, IlCampoDelNumero) {
    Banco b;
    b.Modulo("F.frm", Sorgente({"x", Exposed}));
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.S.Numero, "     ");
    EXPECT_EQ(b.S.ContaRighe, 0);
}

TEST(Riparti, AncheDietroUnEndSub) {
    Banco b;
    b.Modulo("F.frm", Sorgente({"Sub a()", "End Sub", Exposed, "x"}));
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("F.log"), Listato({"1|x"})); // the empty margin stays
}

// A restart after the repair opens the repaired name.
TEST(Riparti, DietroLaRiparazione) {
    Banco b;
    b.S.Check1 = 1;
    b.S.Text1 = "t";
    b.Modulo("sub\\A.frm", Sorgente({"a", Exposed, "x"}));
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("A.log"), "t\r\n" + Listato({"1|···x"}));
    EXPECT_EQ(b.S.FileUscita, "\\p\\Appoggio\\A.log");
}

} // namespace

} // namespace morvella

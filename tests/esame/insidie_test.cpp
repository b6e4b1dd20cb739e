// SPDX-License-Identifier: MIT
// Legal code that other tools stumble over: nothing may be found in it.
#include "banco.h"

namespace morvella::esame {

namespace {

TEST(EsameInsidie, NelleProcedure) {
    for (const std::string_view codice : {
             "On Error Resume Next",
             "'For i = 1 To 1: Beep: Next",
             "' xxx: function foo()",
             "text = \"While\": s = \"End Sub\"",
             "If x Then   ' comment\nEnd If",
             "If x Then: stmt\nIf x Then stmt",
             "d = Day(Date) : If a Then b : End If",
             "If a Then\nElse: foo = 42\nEnd If",
             "If Range(Cell1:=\"a1\") Then\nEnd If",
             "For i = 1 To 2\nFor j = 1 To 2\nx\nNext j, i",
             "For Each c In d\nNext c   'two blanks and a comment",
             "If a And _\nIf_b And _\n  c Then\nEnd If",
             "x = a Or _\nIf Or _\ncase b",
             "For i = 1 To 2\nSelect Case a\nCase 1\nCase Else\nIf b Then\nElseIf c Then\nEnd If\nEnd "
             "Select\nNext",
             "100 x = 1\n200 If y Then\n210 z = _\n 220\n230 End If\nErrore:\nResume Next",
             "For j = 1 To 2\nLbl:   Next j",
             "'commento _\nIf x Then\nFor i = 1 To 2\nNext",
             "Rem commento _\nIf x Then",
             "If a Then\n10: Else\n20: End If",
             "Open f For Input As #1: Line Input #1, s: Close #1",
             "If d > #1/1/2000 10:20:30 AM# Then\nEnd If",
             "rs!Next = rs!Loop\nx.End.If\n.Wend",
         })
        ProvaInSub({codice, ""});
    std::string commenti, continuata = "If a _\n";
    for (int i = 0; i < 30; ++i) commenti += "' If a Then\n";
    for (int i = 0; i < 24; ++i) continuata += " And _\nCase _\n";
    ProvaInSub({commenti + "x = 1", ""});
    ProvaInSub({continuata + "b Then\nEnd If", ""});
}

TEST(EsameInsidie, File) {
    for (const std::string_view testo : {
             "Static Function Fmt$(ByVal in$)\nEnd Function\nPrivate Static Sub x()\nEnd Sub\nFriend "
             "Function f()\nEnd Function\n",
             "#If Win32 Then\nPublic Enum E\n  a = 1\nEnd Enum\n#End If\n",
             "#If Win32 Then\nPrivate Sub A(ByVal x As Long)\n#Else\nPrivate Sub A(ByVal x As Integer)\n#End "
             "If\n  If x Then\n  End If\nEnd Sub\n",
             "VERSION 5.00\nBegin VB.Form F \n   AutoRedraw = False\n   BackColor = &H00FFFFFF&\n   Icon = "
             "\"x.frx\":0000\n"
             "   Picture = $\"x.frx\":014A\n   _ExtentX = 847\n   TabCaption(0) = \"a\"\n   "
             "Tab(0).Control(0) = \"b\"\n"
             "   Shortcut = ^N\n   Shortcut = +^{F1}\n   BeginProperty Font \n      Name = \"If\"\n   "
             "EndProperty\n"
             "   Begin {C0E45035-5775-11D0-B388-00A0C9055D8E} env \n   End\nEnd\nAttribute VB_Name = \"F\"\n",
             "Sub Perch\xE9()\nIf Quantit\xE0 = \"\x80 \x93x\x94\" Then ' \xE8\nEnd If\nEnd Sub\n",
             "Type T\n  sUB As Long\n  Type As Integer\n  Function As String\nEnd Type\n",
         })
        ProvaFile({testo, ""});
}

// The same lines with each kind of line end, with and without the last one.
TEST(EsameInsidie, FiniRiga) {
    for (const std::string_view fine : {"\n", "\r\n", "\r\r\n", " \t\n"})
        for (const bool ultima : {true, false}) {
            std::string testo;
            for (const std::string_view riga : {"Sub A()", "x _", " = 1", "Next", "' c _", "Next", "End Sub"})
                testo.append(riga).append(fine);
            if (!ultima) testo.resize(testo.size() - fine.size());
            EXPECT_EQ(Detto(Esamina(testo)), "senza-apertura For 4:1 nota 4 trovato Next in A\n");
            EXPECT_EQ(Esamina(testo).Righe, 7u);
        }
}

TEST(EsameInsidie, Grandi) {
    std::string modulo;
    for (int i = 0; i < 20000; ++i)
        modulo += i % 4 == 0   ? "Sub A" + std::to_string(i) + "()\n"
                  : i % 4 == 1 ? "If a Then\n"
                  : i % 4 == 2 ? "End If\n"
                               : "End Sub\n";
    EXPECT_EQ(Detto(Esamina(modulo)), "");
    const std::string lunga = "x = \"" + std::string(60000, '"') + "\": Next";
    ProvaInSub({lunga, "senza-apertura For 2:60009 nota 2 trovato Next in A\n"});
    std::string colonne;
    for (int i = 0; i < 20000; ++i) colonne += "If a Then: b: End If: [ #: ";
    ProvaInSub({colonne, ""});
    // As many blocks, groups and levels as nobody ever nested.
    std::string aperti, chiusi, gruppi;
    for (int i = 0; i < 10000; ++i) {
        aperti += "If a Then\n";
        chiusi += "Next\n";
        gruppi += "#If a Then\nDo\n";
    }
    EXPECT_EQ(Esamina(InSub(aperti + chiusi)).Rilievi.size(), 20000u - 1u);
    EXPECT_GT(Esamina(InSub(gruppi)).Rilievi.size(), 10000u);
}

} // namespace

} // namespace morvella::esame

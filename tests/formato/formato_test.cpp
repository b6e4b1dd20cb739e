// SPDX-License-Identifier: MIT
//
// The layout, rule by rule: what comes in has no indentation or a wrong one, and what must come
// out is written out in full.
#include <gtest/gtest.h>

#include "formato/formato.h"

namespace morvella::formato {

namespace {

using std::string;

void Prova(const char* cosa, const string& sorgente, const string& attesa, const Opzioni& opzioni = {}) {
    SCOPED_TRACE(cosa);
    EXPECT_EQ(Formatta(sorgente, opzioni), attesa);
    EXPECT_EQ(Formatta(attesa, opzioni), attesa) << "a second time";
}

TEST(Formato, Blocchi) {
    Prova("every block",
          "Option Explicit\n"
          "      Public Sub A()\n"
          "Dim i\n"
          "For i = 1 To 2\n"
          "Do While x\n"
          "        While y\n"
          "With z\n"
          ".a = 1\n"
          "    End With\n"
          "Wend\n"
          "Loop\n"
          "Next i\n"
          "If a Then\n"
          "b\n"
          "ElseIf c Then\n"
          "d\n"
          "Else\n"
          "e\n"
          "End If\n"
          "End Sub\n"
          "Private Type T\n"
          "Next As Long\n"
          "If As Long\n"
          "End Type\n"
          "Enum E\n"
          "Uno\n"
          "End Enum\n",
          "Option Explicit\n"
          "Public Sub A()\n"
          "    Dim i\n"
          "    For i = 1 To 2\n"
          "        Do While x\n"
          "            While y\n"
          "                With z\n"
          "                    .a = 1\n"
          "                End With\n"
          "            Wend\n"
          "        Loop\n"
          "    Next i\n"
          "    If a Then\n"
          "        b\n"
          "    ElseIf c Then\n"
          "        d\n"
          "    Else\n"
          "        e\n"
          "    End If\n"
          "End Sub\n"
          "Private Type T\n"
          "    Next As Long\n"
          "    If As Long\n"
          "End Type\n"
          "Enum E\n"
          "    Uno\n"
          "End Enum\n");
}

// What other programs of this kind indent, or fail to.
TEST(Formato, Insidie) {
    Prova("nothing that only looks like a block",
          "Sub A()\n"
          "On Error Resume Next\n"
          "'For i = 1 To 1: Beep: Next\n"
          "s = \"End Sub\": t = \"While\"\n"
          "If x Then b = 1\n"
          "If x Then: b = 1\n"
          "If x Then b = 1 Else c = 2\n"
          "If x Then   ' comment\n"
          "Exit Sub\n"
          "End If   ' fine\n"
          "For i = 1 To 2: For j = 1 To 2: b: Next j, i\n"
          "Rem If x Then\n"
          "End Sub\n",
          "Sub A()\n"
          "    On Error Resume Next\n"
          "    'For i = 1 To 1: Beep: Next\n"
          "    s = \"End Sub\": t = \"While\"\n"
          "    If x Then b = 1\n"
          "    If x Then: b = 1\n"
          "    If x Then b = 1 Else c = 2\n"
          "    If x Then   ' comment\n"
          "        Exit Sub\n"
          "    End If   ' fine\n"
          "    For i = 1 To 2: For j = 1 To 2: b: Next j, i\n"
          "    Rem If x Then\n"
          "End Sub\n");
    Prova(
        "a closer of two, statements after a middle",
        "Sub A()\nFor i = 1 To 2\nFor j = 1 To 2\nb\nNext j, i\nIf a Then\nElse: c = 1\nd\nEnd If\nEnd Sub\n",
        "Sub A()\n    For i = 1 To 2\n        For j = 1 To 2\n            b\n    Next j, i\n"
        "    If a Then\n    Else: c = 1\n        d\n    End If\nEnd Sub\n");
    Prova("a block opened by a one-line If", "If a Then If b Then\nc\nEnd If\nd\n",
          "If a Then If b Then\n    c\nEnd If\nd\n");
    Prova("heads of all kinds",
          "Public Static Function F()\nx\nEnd Function\nFriend Property Get P()\nx\nEnd Property\n"
          "Private Declare Sub S Lib \"k\" ()\nEvent E()\n",
          "Public Static Function F()\n    x\nEnd Function\nFriend Property Get P()\n    x\nEnd Property\n"
          "Private Declare Sub S Lib \"k\" ()\nEvent E()\n");
}

TEST(Formato, Case) {
    const string sorgente =
        "Select Case x\n' prima\nCase 1\na\n' di 2\nCase 2: b\nCase Else\nc\n' fine\nEnd Select\nd\n";
    Prova("inside", sorgente,
          "Select Case x\n    ' prima\n    Case 1\n        a\n    ' di 2\n    Case 2: b\n    Case Else\n"
          "        c\n        ' fine\nEnd Select\nd\n");
    Prova("outside", sorgente,
          "Select Case x\n' prima\nCase 1\n    a\n' di 2\nCase 2: b\nCase Else\n    c\n    ' fine\nEnd "
          "Select\nd\n",
          {.Case = 0});
    Prova("a block after a Case, and one that closes on the Case's line",
          "Select Case x\nCase 1: If a Then\nb\nEnd If\n' c\nCase 2: For i = 1 To 2: Next\nEnd Select\n",
          "Select Case x\n    Case 1: If a Then\n            b\n        End If\n    ' c\n"
          "    Case 2: For i = 1 To 2: Next\nEnd Select\n");
}

TEST(Formato, Passo) {
    const string sorgente = "Sub A()\n   If a Then\n \t b\nEnd If\nEnd Sub\n";
    Prova("2", sorgente, "Sub A()\n  If a Then\n    b\n  End If\nEnd Sub\n", {.Passo = 2});
    Prova("tabs", sorgente, "Sub A()\n\tIf a Then\n\t\tb\n\tEnd If\nEnd Sub\n", {.Tab = true});
}

TEST(Formato, Commenti) {
    Prova("with the code that follows; before a closer, with what it closes",
          "' di A\nSub A()\n' dell'If\n\n' ancora\nIf a Then\nb\n' era c\nEnd If\n' di Else\nIf b Then\n' "
          "altro\nElse\n"
          "c\nEnd If\n' in fondo\nEnd Sub\n' di B\nSub B()\nEnd Sub\n   ' coda\n",
          "' di A\nSub A()\n    ' dell'If\n\n    ' ancora\n    If a Then\n        b\n        ' era c\n    "
          "End If\n"
          "    ' di Else\n    If b Then\n    ' altro\n    Else\n        c\n    End If\n    ' in fondo\nEnd "
          "Sub\n"
          "' di B\nSub B()\nEnd Sub\n' coda\n");
    Prova("a comment that goes on", "Sub A()\n' uno _\n  due _\nIf x Then\ny\nEnd Sub\n",
          "Sub A()\n    ' uno _\n      due _\n    If x Then\n    y\nEnd Sub\n");
    // Without its blank the "_" would no longer continue the comment, and with one it would.
    Prova("a lone underscore in a comment, with its blank", "      ' a _\n  _\n      b\n", "' a _\n _\nb\n");
    Prova("and without", "Sub A()\n' a _\n_\nb\nEnd Sub\n", "Sub A()\n    ' a _\n_\n    b\nEnd Sub\n");
}

TEST(Formato, Continuazioni) {
    Prova("keep their distance", "Sub A()\n  x = f(a, _\n        b, _\n c)\ny\nEnd Sub\n",
          "Sub A()\n    x = f(a, _\n          b, _\n   c)\n    y\nEnd Sub\n");
    Prova("no further left than the margin", "      x = a _\n  + b _\n         + c\n",
          "x = a _\n+ b _\n   + c\n");
    Prova("that look like blocks", "Sub A()\nx = a And _\nIf_ And _\ncase_\ny\nEnd Sub\n",
          "Sub A()\n    x = a And _\n    If_ And _\n    case_\n    y\nEnd Sub\n");
    Prova("a tab counts up to the next multiple of 4", "Sub A()\n\tx = a _\n\t\t+ b\nEnd Sub\n",
          "Sub A()\n    x = a _\n        + b\nEnd Sub\n");
    Prova("with tabs the rest is blanks", "Sub A()\nx = a _\n      + b\nEnd Sub\n",
          "Sub A()\n\tx = a _\n\t\t  + b\nEnd Sub\n", {.Tab = true});
    Prova("a continued head", "Sub A(a, _\n      b)\nx\nEnd Sub\n", "Sub A(a, _\n      b)\n    x\nEnd Sub\n");
}

TEST(Formato, EtichetteENumeri) {
    const string sorgente =
        "Sub A()\nFor j = 1 To 2\n  Lbl:   b\n   ' c\n Fine:\n100 d\n200 ' e\n300\nLa: Next j\nEnd Sub\n";
    Prova("at the margin", sorgente,
          "Sub A()\n    For j = 1 To 2\nLbl:   b\n        ' c\nFine:\n100 d\n200 ' e\n300\nLa: Next j\nEnd "
          "Sub\n");
    Prova("with the code", sorgente,
          "Sub A()\n    For j = 1 To 2\n        Lbl:   b\n        ' c\n        Fine:\n        100 d\n"
          "        200 ' e\n        300\n    La: Next j\nEnd Sub\n",
          {.EtichetteNelCodice = true});
}

TEST(Formato, Direttive) {
    const string sorgente = "Sub A()\nIf x Then\n' c\n#If Win32 Then\na\n#ElseIf Mac Then\nb\n#Else\n#End "
                            "If\n#Const k = 1\nEnd If\nEnd Sub\n";
    Prova("with the code", sorgente,
          "Sub A()\n    If x Then\n        ' c\n        #If Win32 Then\n        a\n        #ElseIf Mac "
          "Then\n        b\n"
          "        #Else\n        #End If\n        #Const k = 1\n    End If\nEnd Sub\n");
    Prova("at the margin", sorgente,
          "Sub A()\n    If x Then\n        ' c\n#If Win32 Then\n        a\n#ElseIf Mac Then\n        b\n"
          "#Else\n#End If\n#Const k = 1\n    End If\nEnd Sub\n",
          {.DirettiveAlMargine = true});
    Prova("two heads for one body", "#If a Then\n  Sub A(x)\n#Else\nSub A(y)\n#End If\nb\nEnd Sub\nDim c\n",
          "#If a Then\nSub A(x)\n#Else\nSub A(y)\n#End If\n    b\nEnd Sub\nDim c\n");
    Prova("an If opened in one group and closed in another",
          "Sub A()\n#If a Then\nIf b Then\n#End If\nc\n#If a Then\nEnd If\n#End If\nd\nEnd Sub\n",
          "Sub A()\n    #If a Then\n    If b Then\n    #End If\n        c\n    #If a Then\n    End If\n"
          "    #End If\n    d\nEnd Sub\n");
    Prova("a branch that is never compiled", "#If False Then\nIf x Then\n#Else\nb\n#End If\nc\n",
          "#If False Then\nIf x Then\n#Else\nb\n#End If\nc\n");
    Prova("a Case in a branch", "Select Case x\n#If a Then\nCase 1\n#Else\nCase 2\n#End If\nb\nEnd Select\n",
          "Select Case x\n    #If a Then\n    Case 1\n    #Else\n    Case 2\n    #End If\n        b\nEnd "
          "Select\n");
}

TEST(Formato, RestaComE) {
    Prova("the head of a form, and Attribute lines",
          "VERSION 5.00\r\n  Begin VB.Form F \r\n   Caption = \"If\"\r\n  End\r\n  Attribute VB_Name = "
          "\"F\"\r\n"
          "  Sub A()\r\n Attribute A.VB_Description = \"x\"\r\nb\r\nEnd Sub\r\n",
          "VERSION 5.00\r\n  Begin VB.Form F \r\n   Caption = \"If\"\r\n  End\r\n  Attribute VB_Name = "
          "\"F\"\r\n"
          "Sub A()\r\n Attribute A.VB_Description = \"x\"\r\n    b\r\nEnd Sub\r\n");
    Prova("line ends and a lone CR", "Sub A()\r\nx\ny = \"a\rb\"\r\n\r\nEnd Sub",
          "Sub A()\r\n    x\n    y = \"a\rb\"\r\n\r\nEnd Sub");
    Prova("bytes of any value", "Sub Perch\xE9()\n\x93\xA0 = \"\x80\"\nEnd Sub\n",
          "Sub Perch\xE9()\n    \x93\xA0 = \"\x80\"\nEnd Sub\n");
    Prova("a UTF-8 mark", "\xEF\xBB\xBF  Sub A()\nb\nEnd Sub\n", "\xEF\xBB\xBF  Sub A()\n    b\nEnd Sub\n");
    Prova("nothing", "", "");
    Prova("a last line of blanks", "   ", "   ");
    Prova("and one before", "  \n\t", "\n\t", {.SenzaCode = true});
}

TEST(Formato, Code) {
    const string sorgente =
        "  Sub A()  \r\nx = 1 \t\r\ns = \"a  \r\nt = \"a\"  \n   \nu ' \"a  \r\nv = a _  \n  b\nEnd Sub  ";
    Prova("stay", sorgente,
          "Sub A()  \r\n    x = 1 \t\r\n    s = \"a  \r\n    t = \"a\"  \n\n    u ' \"a  \r\n    v = a _  \n "
          "     b\nEnd Sub  ");
    Prova("go, but not out of a string that nothing closes", sorgente,
          "Sub A()\r\n    x = 1\r\n    s = \"a  \r\n    t = \"a\"\n\n    u ' \"a\r\n    v = a _\n      "
          "b\nEnd Sub",
          {.SenzaCode = true});
}

// Deep nesting must not make the copy grow with its square.
TEST(Formato, FondoLimitato) {
    string sorgente;
    for (int i = 0; i < 5000; ++i) sorgente += "Do\n";
    for (int i = 0; i < 5000; ++i) sorgente += "Loop\n";
    EXPECT_LT(Formatta(sorgente, {}).size(), 10000 * (std::size_t{101} * 4 + 5));
}

} // namespace

} // namespace morvella::formato

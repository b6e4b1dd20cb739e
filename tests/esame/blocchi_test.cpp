// SPDX-License-Identifier: MIT
#include "banco.h"

namespace morvella::esame {

namespace {

TEST(EsameBlocchi, Sani) {
    for (const std::string_view codice : {
             "If a Then\nFor i = 1 To 2\nDo\nWhile b\nSelect Case c\nCase 1\nWith d\nEnd With\nEnd "
             "Select\nWend\nLoop\nNext\nEnd If",
             "If a Then\nElseIf b Then\nElse If c Then\nElse\nEndIf",
             "For i = 1 To 2\nFor j = 1 To 2\nNext j, i",
             "Select Case a\nDim b\nStatic c\n' d\nLbl:\n10\n#If x Then\n#End If\nConst e = 1\nCase "
             "Else\nCase 1\nEnd Select",
             "If a Then:\nEnd If",
             "If a Then:", // opens a block that nobody misses
             "If a",       // so does an If without Then
             "If a\nEnd If",
             "  If a Then\n End If\n      For i = 1 To 2\nNext", // indentation tells nothing here
         })
        ProvaInSub({codice, ""});
    for (const std::string_view testo : {
             "Type A\nNext As Long\nType As Long\nSub As Integer\nIf As Long\nEnd Type\nEnum B\nLoop\nWith = "
             "3\nEnd Enum\n",
             "Property Get A()\nEnd Property\nProperty Get B()\nEnd Function\nProperty Get C()\nEnd Sub\n",
             "If a Then\nEnd If\nSub A()\nEnd Sub\nFor i = 1 To 2\nNext\n",
         })
        ProvaFile({testo, ""});
}

TEST(EsameBlocchi, ChiusuraPiana) {
    for (const Caso& caso : std::initializer_list<Caso>{
             {"If a Then", "aperto If 2:1 nota 3 da 2 atteso End If trovato End Sub in A\n"},
             {"For i = 1 To 2\nIf a Then\nNext",
              "aperto If 3:1 nota 4 da 3 atteso End If trovato Next in A\n"},
             {"For i = 1 To 2\n  If a Then\n    With b\nNext",
              "aperto If 3:3 nota 5 da 3 atteso End If trovato Next in A\naperto With 4:5 nota 5 da 4 atteso "
              "End With trovato Next in A\n"},
             {"Next", "senza-apertura For 2:1 nota 2 trovato Next in A\n"},
             {"x: Loop", "senza-apertura Do 2:4 nota 2 trovato Loop in A\n"},
             {"EndIf", "senza-apertura If 2:1 nota 2 trovato EndIf in A\n"},
             {"For i = 1 To 2\nNext j, i", "senza-apertura For 3:1 nota 3 trovato Next in A\n"},
             {"While a\nLoop", "scambiato While 3:1 nota 3 da 2 atteso Wend trovato Loop in A\n"},
             {"Do\n  If a Then\n  Next\nLoop",
              "scambiato If 4:3 nota 4 da 3 atteso End If trovato Next in A\n"},
             {"  With a\n  If b _\n Then\n  x",
              "aperto With 2:3 nota 6 da 2 atteso End With trovato End Sub in A\n"
              "aperto If 3:3 nota 6 da 3 atteso End If trovato End Sub in A\n"},
         })
        ProvaInSub(caso);
}

// Two ways to see it need one finding each; the one that fits the indentation is told.
TEST(EsameBlocchi, RientriDicono) {
    for (const Caso& caso : std::initializer_list<Caso>{
             {"  If a Then\n    If b Then\n      x\n  End If",
              "aperto If 3:5 nota 5 da 3 atteso End If trovato End If in A\n"},
             {"  If a Then\n    If b Then\n    End If",
              "aperto If 2:3 nota 5 da 2 atteso End If trovato End Sub in A\n"},
             // The inner closer is one too many, and stands deeper than the block that is open.
             {"  If a Then\n    x\n    End If\n  End If",
              "senza-apertura If 4:5 nota 4 trovato End If in A\n"},
             // A tab goes to the next multiple of four.
             {"    If a Then\n\t If b Then\n\tEnd If",
              "aperto If 3:3 nota 4 da 3 atteso End If trovato End If in A\n"},
             {"    If a Then\n10\tIf b Then\n    End If",
              "aperto If 2:5 nota 5 da 2 atteso End If trovato End Sub in A\n"},
             // Exchanged closer that an outer block would take.
             {"  Do\n    For i = 1 To 2\n    Loop\n  Loop",
              "scambiato For 4:5 nota 4 da 3 atteso Next trovato Loop in A\n"},
             // The Else of the outer If.
             {"  If a Then\n    If b Then\n      x\n  Else\n    y\n  End If",
              "aperto If 3:5 nota 5 da 3 atteso End If trovato Else in A\n"},
         })
        ProvaInSub(caso);
}

TEST(EsameBlocchi, Mezzi) {
    for (const Caso& caso : std::initializer_list<Caso>{
             {"Else", "fuori-posto If 2:1 nota 2 trovato Else in A\n"},
             {"ElseIf a Then\nElse\nEnd If",
              "fuori-posto If 2:1 nota 2 trovato ElseIf in A\n"}, // the phantom takes the rest
             {"If a Then\nElse\nElse\nEnd If", "fuori-posto If 4:1 nota 4 da 2 trovato Else in A\n"},
             {"If a Then\nElse\nElseIf b Then\nElse\nEnd If",
              "fuori-posto If 4:1 nota 4 da 2 trovato ElseIf in A\n"}, // once per If
             {"If a Then\nFor i = 1 To 2\nElse\nEnd If",
              "aperto For 3:1 nota 4 da 3 atteso Next trovato Else in A\n"},
             {"For i = 1 To 2\nElse\nNext", "fuori-posto If 3:1 nota 3 trovato Else in A\n"},
             {"Case 1\nCase 2\nEnd Select", "fuori-posto Select 2:1 nota 2 trovato Case in A\n"},
             {"Select Case a\nCase 1\nIf b Then\nCase 2\nEnd Select",
              "aperto If 4:1 nota 5 da 4 atteso End If trovato Case in A\n"},
             {"If a Then\nCase 1\nEnd If", "fuori-posto Select 3:1 nota 3 trovato Case in A\n"},
             {"Select Case a\nCase 1\nElse\nEnd Select", "fuori-posto If 4:1 nota 4 trovato Else in A\n"},
         })
        ProvaInSub(caso);
}

TEST(EsameBlocchi, PrimaDiCase) {
    for (const Caso& caso : std::initializer_list<Caso>{
             {"Select Case a\n  x\n  y\nCase 1\nEnd Select",
              "prima-di-case Select 3:3 nota 3 da 2 atteso Case in A\n"},
             {"Select Case a\nIf b Then\nEnd If\nCase 1\nEnd Select",
              "prima-di-case Select 3:1 nota 3 da 2 atteso Case in A\n"},
             {"Select Case a: x: Case 1: End Select",
              "prima-di-case Select 2:16 nota 2 da 2 atteso Case in A\n"},
             {"Select Case a\nIf b Then c\nEnd Select",
              "prima-di-case Select 3:1 nota 3 da 2 atteso Case in A\n"},
             {"Select Case a\nx\nCase 1",
              "aperto Select 2:1 nota 5 da 2 atteso End Select trovato End Sub in A\n"}, // dropped
             {"Select Case a\n#If b Then\nCase 1\n#Else\nx\n#End If\nEnd Select", ""},   // the Case has come
             {"Select Case a\n#If b Then\nDim c\n#Else\nx\n#End If\nCase 1\nEnd Select",
              "prima-di-case Select 6:1 nota 6 da 2 atteso Case in A\n"},
         })
        ProvaInSub(caso);
}

TEST(EsameBlocchi, Fini) {
    for (const Caso& caso : std::initializer_list<Caso>{
             {"Sub A()\nEnd Function\n",
              "scambiato Sub 2:1 nota 2 da 1 atteso End Sub trovato End Function in A\n"},
             {"Property Let A(x)\nEnd Sub\n",
              "scambiato Property 2:1 nota 2 da 1 atteso End Property trovato End Sub in A\n"},
             {"Type A\nx As Long\nEnd Enum\n",
              "scambiato Type 3:1 nota 3 da 1 atteso End Type trovato End Enum in A\n"},
             {"Sub A()\nEnd Sub\nEnd Sub\n", "senza-apertura Sub 3:1 nota 3 trovato End Sub\n"},
             {"End Sub\nSub A()\nEnd Sub\n", "senza-apertura Sub 1:1 nota 1 trovato End Sub\n"},
             {"If a Then\nEnd Function\n", "aperto If 1:1 nota 2 da 1 atteso End If trovato End Function\n"
                                           "senza-apertura Function 2:1 nota 2 trovato End Function\n"},
             // An end inside a block, with another to come, was put there by mistake.
             {"Sub A()\nIf a Then\nEnd Sub\nEnd If\nEnd Sub\n",
              "senza-apertura Sub 3:1 nota 3 trovato End Sub in A\n"},
             {"Sub A()\nx\nEnd Function\ny\nEnd Sub\n",
              "senza-apertura Function 3:1 nota 3 trovato End Function in A\n"},
             {"Sub A()\nx\nSub B()\nEnd Sub\n",
              "non-terminato Sub 1:1 nota 3 da 1 atteso End Sub trovato Sub in A\n"},
             {"Private Type A\nx As Long\n",
              "non-terminato Type 1:1 nota 2 da 1 atteso End Type trovato fine file in A\n"},
             {"Sub A()\nIf a Then\nDo\nFunction B()\nEnd Function\n", // what is open in it is not told
              "non-terminato Sub 1:1 nota 4 da 1 atteso End Sub trovato Function in A\n"},
             // A head in the middle of a procedure.
             {"Sub A()\nIf a Then\n  Sub B()\nEnd If\nEnd Sub\n",
              "fuori-posto Sub 3:3 nota 3 da 1 trovato Sub in A\n"},
             {"Sub A()\nFor i = 1 To 2\nType T\nNext\nEnd Sub\n",
              "fuori-posto Type 3:1 nota 3 da 1 trovato Type in A\n"},
             // Outside of procedures.
             {"If a Then\nSub A()\nEnd Sub\n", "aperto If 1:1 nota 2 da 1 atteso End If trovato Sub\n"},
             {"Sub A()\nEnd Sub\nDo\n", "aperto Do 3:1 nota 3 da 3 atteso Loop trovato fine file\n"},
             // No error goes over the next head.
             {"Sub A()\nIf a Then\nEnd Sub\nSub B()\nNext\nEnd Sub\n",
              "aperto If 2:1 nota 3 da 2 atteso End If trovato End Sub in A\nsenza-apertura For 5:1 nota 5 "
              "trovato Next in B\n"},
             {"Function Perch\xE9$()\nNext\nEnd Function\n",
              "senza-apertura For 2:1 nota 2 trovato Next in Perch\xE9$\n"},
         })
        ProvaFile(caso);
}

TEST(EsameBlocchi, NonDetti) {
    for (const std::string_view codice : {
             "Select Case a\nCase Else\nCase 1\nEnd Select", // Case after Case Else
             "For i = 1 To 2\nNext k",                       // the variable after Next
             "x: If a Then\ny: End If: z: Select Case b: Case 1: End Select",
         })
        ProvaInSub({codice, ""});
}

} // namespace

} // namespace morvella::esame

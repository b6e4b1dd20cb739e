// SPDX-License-Identifier: MIT
#include "esame/frasi.h"

#include <gtest/gtest.h>

#include <string>

namespace morvella::esame {

namespace {

// Every statement: its kind, the block, the place, and marks: ^ first of its line, m mute, d dead.
std::string Frasi_(std::string_view bytes) {
    constexpr std::string_view nomi[] = {"istr", "dich",   "etic",    "comm",   "attr",   "if1",
                                         "apre", "chiude", "else",    "elseif", "case",   "capo",
                                         "fine", "#if",    "#elseif", "#else",  "#endif", "#const"};
    std::string s;
    Frasi frasi(bytes);
    for (Frase f; frasi.Prossima(f);) {
        if (!s.empty()) s += ' ';
        s += nomi[static_cast<std::size_t>(f.Quale)];
        if (f.Cosa != Blocco::Nessuno) s.append("-").append(NomeBlocco(f.Cosa));
        if (f.LungoNome) s.append("=").append(bytes.substr(f.InizioNome, f.LungoNome));
        if (f.Chiusure != 1) s += "*" + std::to_string(f.Chiusure);
        if (f.Prima) s += '^';
        if (f.Muta) s += 'm';
        if (f.Morta) s += 'd';
    }
    return s;
}

struct Riga {
    std::string_view Bytes, Attese;
};
void Prova(const Riga& riga) { EXPECT_EQ(Frasi_(riga.Bytes), riga.Attese) << riga.Bytes; }

TEST(EsameFrasi, IfDiBloccoODiUnaRiga) {
    for (const Riga& riga : std::initializer_list<Riga>{
             {"If x Then", "apre-If^"},
             {"If x Then ' y", "apre-If^"},
             {"If x Then Rem y: z", "apre-If^"},
             {"If x _\n Then _\n 'y", "apre-If^"},
             {"If x Then y", "if1^ istr"},
             {"If x Then: y", "if1^ istr"},
             {"If x Then: y: z", "if1^ istr istr"},
             {"If x Then:", "apre-If^m"},
             {"If x Then: ' y", "apre-If^m"},
             {"If x", "apre-If^m"},
             {"If x: y", "apre-If^m istr"},
             {"If x GoTo 10", "if1^"},
             {"If x Then 10 Else 20", "if1^"},
             {"If x Then y Else z", "if1^ istr istr"},
             {"If x Then Else z", "if1^ istr"},
             {"If x.Then = 1 Then", "apre-If^"},
             {"If rs!Then Then", "apre-If^"},
             {"If [Then] Then y", "if1^ istr"},
             {"If Then$ = 1 Then", "apre-If^"},
             {"If f(a:=\"x\") Then", "apre-If^"},
             {"If a Then If b Then", "if1^ apre-If"},
             {"If a Then If b Then c Else d Else e", "if1^ if1 istr istr istr"},
             {"If a Then b Else If c Then d", "if1^ istr if1 istr"},
             {"If a Then b: End If: c", "if1^ istr istr istr"},
             {"If a Then b: EndIf: End If", "if1^ istr istr chiude-If"},
             {"If a Then b ElseIf c Then d Else e", "if1^ istr istr"},
             {"If a Then For i = 1 To 2: b: Next Else c", "if1^ apre-For istr chiude-For istr"},
             {"If a Then Do: Loop: While b: Wend: With c: End With",
              "if1^ apre-Do chiude-Do apre-While chiude-While apre-With chiude-With"},
             {"If a Then Select Case b: Case Else: c: End Select Else d",
              "if1^ apre-Select case istr chiude-Select istr"},
             {"If a Then x.Else = 1 Else z", "if1^ istr istr"},
             {"If a Then End Else z", "if1^ istr istr"},
             {"If a Then b Else Rem c: d", "if1^ istr"},
             {"If a Then Rem c: d", "apre-If^"},
             {"If a Then b _\nElse c", "if1^ istr istr"},
         })
        Prova(riga);
}

TEST(EsameFrasi, Mezzi) {
    for (const Riga& riga : std::initializer_list<Riga>{
             {"Else", "else^"},
             {"Else: a", "else^ istr"},
             {"Else a", "else^ istr"},
             {"Else For i = 1 To 2", "else^ apre-For"},
             {"Else Rem a: b", "else^"},
             {"ElseIf a Then", "elseif^"},
             {"ElseIf a Then b: c", "elseif^ istr istr"},
             {"Else If a Then", "elseif^"},
             {"Else If a Then b", "elseif^ istr"},
             {"Else: If a Then", "else^ apre-If"},
             {"Case 1: a", "case^ istr"},
             {"Case Else", "case^"},
             {"Case a And _\n case b", "case^"},
         })
        Prova(riga);
}

TEST(EsameFrasi, ApertureEChiusure) {
    for (const Riga& riga : std::initializer_list<Riga>{
             {"For Each a In b", "apre-For^"},
             {"Do", "apre-Do^"},
             {"Do: Loop", "apre-Do^ chiude-Do"},
             {"While a", "apre-While^"},
             {"Wend", "chiude-While^"},
             {"Select Case a", "apre-Select^"},
             {"Select a", "istr^"},
             {"With a", "apre-With^"},
             {"With .a", "apre-With^"},
             {"With", "istr^"},
             {"With ' a", "istr^"},
             {"Next", "chiude-For^"},
             {"Next i", "chiude-For^"},
             {"Next j, i", "chiude-For*2^"},
             {"Next a(1, 2), i ' x, y", "chiude-For*2^"},
             {"Next: Next i, j, k: a", "chiude-For^ chiude-For*3 istr"},
             {"Loop Until a", "chiude-Do^"},
             {"End If", "chiude-If^"},
             {"End _\n If", "chiude-If^"},
             {"EndIf", "chiude-If^"},
             {"End Select: End With", "chiude-Select^ chiude-With"},
             {"End", "istr^"},
             {"End: a", "istr^ istr"},
             {"End x", "istr^"},
             {"End If$", "istr^"},
             {"EndIf$ = 1", "istr^"},
             {"x.Next: rs!Loop: y.End If", "istr^ istr istr"},
             {".Next", "istr^"},
             {"Exit For: Exit Sub: Resume Next: On Error Resume Next: On x GoTo a",
              "istr^ istr istr istr istr"},
             {"Open f For Input As #1: Line Input #1, a: Print #1, b: Get #1, , c: Put #1, , d: Close #1",
              "istr^ istr istr istr istr istr"},
             {"a = 1: DoEvents: Forza: Nextx: Loop1", "istr^ istr istr istr istr"},
             {"Do% = 1", "istr^"},
             {"[Next]", "istr^"},
         })
        Prova(riga);
}

TEST(EsameFrasi, Capi) {
    for (const Riga& riga : std::initializer_list<Riga>{
             {"Sub A()", "capo-Sub=A^"},
             {"Sub A", "capo-Sub=A^"},
             {"Public Static Function A() As Long", "capo-Function=A^"},
             {"Static Private Sub A()", "capo-Sub=A^"},
             {"Friend Function A()", "capo-Function=A^"},
             {"Global Sub A()", "capo-Sub=A^"},
             {"Static Function Fmt$(ByVal in$)", "capo-Function=Fmt$^"},
             {"Property Get A()", "capo-Property=A^"},
             {"Public Property Let Get(x)", "capo-Property=Get^"},
             {"Property Set As(x)", "capo-Property=As^"},
             {"Property a", "istr^"},
             {"Property Get", "istr^"},
             {"Type A", "capo-Type=A^"},
             {"Private Type A 'x", "capo-Type=A^"},
             {"Public Enum A", "capo-Enum=A^"},
             {"Enum [A b]", "capo-Enum=[A b]^"},
             {"Type As Long", "istr^"},
             {"Type A As Long", "istr^"},
             {"Type", "istr^"},
             {"Enum = 3", "istr^"},
             {"Sub As Long", "istr^"},
             {"Function(3) As Long", "istr^"},
             {"Function As String", "istr^"},
             {"Declare Function A Lib \"x\" ()", "dich^"},
             {"Private Declare Sub A Lib \"x\" ()", "dich^"},
             {"Public Event A()", "dich^"},
             {"Event A(): Dim b: Const c = 1", "dich^ dich dich"},
             {"Option Explicit", "dich^"},
             {"Implements A", "dich^"},
             {"Static x As Long: Public y", "dich^ dich"},
             {"Public Sub As Long", "dich^"},
             {"Public _\n Sub _\n A()", "capo-Sub=A^"},
             {"End Sub", "fine-Sub^"},
             {"End Function: End Property", "fine-Function^ fine-Property"},
             {"End Type", "fine-Type^"},
             {"End Enum", "fine-Enum^"},
         })
        Prova(riga);
}

TEST(EsameFrasi, NumeriEtichetteAttributi) {
    for (const Riga& riga : std::initializer_list<Riga>{
             {"10 Next", "chiude-For^"},
             {"10: Next", "chiude-For^"},
             {"10", ""},
             {"10 'x", ""},
             {"10 Else", "else^"},
             {"Lbl:   Next j", "etic^ chiude-For"},
             {"Lbl :a", "etic^ istr"},
             {"Sub: a", "etic^ istr"},
             {"[If]: a", "etic^ istr"},
             {"a: b: Next: Rem x: Next", "etic^ istr chiude-For"},
             {"Loop: Wend: Stop: Return: Resume: Do: Next",
              "chiude-Do^ chiude-While istr istr istr apre-Do chiude-For"},
             {"Stop: a", "istr^ istr"},
             {"Exit: a", "istr^ istr"},
             {"Else: EndIf: a", "else^ chiude-If istr"},
             {"a:=b", "istr^"},
             {"a$: b", "istr^ istr"},
             {": a", "istr"},
             {"Attribute VB_Name = \"If\": Next", "attr^"},
             {"Attribute A.VB_UserMemId = 0", "attr^"},
             {"Attribute = 1: Next", "istr^ chiude-For"},
             {"Rem a: Next _\n Next\nNext", "chiude-For^"},
             {"Rem: Next", ""},
             {"Rem", ""},
             {"Rem$ = 1: Next", "istr^ chiude-For"},
             {"a: Rem b: Next", "etic^"},
             {"x = 1: Rem b: Next", "istr^"},
             {"x = Rem: Next", "istr^ chiude-For"},
             {"x = #10:20#: Next", "istr^ chiude-For"},
             {"Print #1, a: Close #1", "istr^ istr"},
             {"s = \"a: Next\": Next 'b: Next", "istr^ chiude-For"},
         })
        Prova(riga);
}

TEST(EsameFrasi, Direttive) {
    for (const Riga& riga : std::initializer_list<Riga>{
             {"#If a Then: b", "#if^"},
             {"# If a _\n Then", "#if^"},
             {"#If False Then", "#if^d"},
             {"#If 0 Then", "#if^d"},
             {"#If 0 = a Then", "#if^"},
             {"#If False", "#if^d"},
             {"#If Falsex Then", "#if^"},
             {"#ElseIf a Then", "#elseif^"},
             {"#Else If a Then", "#elseif^"},
             {"#Else 'x _\n y", "#else^"},
             {"#End If", "#endif^"},
             {"#EndIf", "#endif^"},
             {"#Const a = 1: b", "#const^"},
             {"#1/1/2000#: a", "istr^ istr"},
             {"#End x", "istr^"},
             {"#If% a", "istr^"},
             {"x: #If a Then", "etic^ istr"},
         })
        Prova(riga);
}

TEST(EsameFrasi, Posizioni) {
    Frasi frasi("\n\n  10 a = 1 _\n  : Next\n", 0, 1);
    Frase f;
    ASSERT_TRUE(frasi.Prossima(f));
    EXPECT_EQ(f.Riga, 3u);
    EXPECT_EQ(f.Colonna, 6u);
    EXPECT_EQ(f.Inizio, 7u);
    EXPECT_EQ(f.InizioRiga, 2u);
    ASSERT_TRUE(frasi.Prossima(f));
    EXPECT_EQ(f.Riga, 4u);
    EXPECT_EQ(f.Colonna, 5u);
    EXPECT_FALSE(frasi.Prossima(f));
    EXPECT_EQ(frasi.Riga(), 4u);
}

TEST(EsameFrasi, CommentiARichiesta) {
    Frasi frasi("'a\nb 'c\n10 'd\nRem e", 0, 1, true);
    std::string s;
    for (Frase f; frasi.Prossima(f);) s += std::to_string(f.Riga) + (f.Quale == Specie::Commento ? "c" : "i");
    EXPECT_EQ(s, "1c2i3c4c");
}

// Every logical line is told when it ends, blank ones and mere numbers too.
TEST(EsameFrasi, FineLinea) {
    const std::string_view bytes = "a: b\n\n' c _\nd\n100\nIf x Then y Else _\n 200\nx _\n + y";
    Frasi frasi(bytes, 0, 1, true, true);
    std::string linee;
    for (Frase f; frasi.Prossima(f);) {
        if (f.Quale != Specie::FineLinea) continue;
        linee += std::to_string(f.Riga) + "-" + std::to_string(frasi.Riga()) + "@" +
                 std::to_string(f.InizioRiga) + " ";
    }
    EXPECT_EQ(linee, "1-1@0 2-2@5 3-4@6 5-5@14 6-7@18 8-9@42 ");
}

} // namespace

} // namespace morvella::esame

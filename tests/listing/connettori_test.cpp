// SPDX-License-Identifier: MIT
//
// A line against its margin: connectors and boxes.
#include "listing/banco.h"

namespace morvella {

namespace {

using namespace prove;

// Every byte: a form with its control section, then one procedure.
TEST(Connettori, EsempioBytePerByte) {
    Banco b;
    const Testo avuto = ListatoDi(b, {
                                         "VERSION 5.00",
                                         "Begin VB.Form Form1",
                                         "   Caption         =   \"Prova\"",
                                         "End",
                                         "Attribute VB_Name = \"Form1\"",
                                         "Attribute VB_Exposed = False",
                                         "Option Explicit",
                                         "",
                                         "Private Sub Prova(n As Integer)",
                                         "    Dim i As Integer",
                                         "    For i = 1 To n",
                                         "        If i = 2 Then",
                                         "            Exit For",
                                         "        Else",
                                         "            Print i",
                                         "        End If",
                                         "    Next i",
                                         "End Sub",
                                     });
    const Testo p(14, ' ');
    const Testo stelle(101, '*');
    const Testo fianchi = "*" + Testo(99, ' ') + "*";
    EXPECT_EQ(avuto, "000001        Option Explicit\r\n"
                     "000002        \r\n" +
                         p + stelle + "\r\n" + p + fianchi + "\r\n" + "000003     " + p +
                         "  Private Sub Prova(n As Integer)\r\n" + p + fianchi + "\r\n" + p + stelle +
                         "\r\n"
                         "000004        Dim i As Integer\r\n"
                         "000005        \xC9\xCD>For i = 1 To n\r\n"
                         "000006        \xBA  \xDA\xC4>If i = 2 Then\r\n"
                         "000007     <<\xCD\xCD\xCD\xCD\xCD\xCD\xCD\xCD\xCD"
                         "Exit For\r\n"
                         "000008        \xBA  \xC3\xC4>Else\r\n"
                         "000009        \xBA  \xB3  Print i\r\n"
                         "000010        \xBA  \xC0\xC4>End If\r\n"
                         "000011        \xC8\xCD>Next i\r\n"
                         "000012        End Sub\r\n");
    EXPECT_EQ(b.S.Margine, "");
    EXPECT_TRUE(b.Fronte.Arresti.empty());
}

struct Caso {
    const char* Che;
    std::vector<std::string> Righe;
    std::vector<std::string> Atteso;
};

// clang-format off
const Caso Classi[] = {
    // What opens, then a line that shows the margin after it.
    {"If",       {"If a Then", "x"},        {"1|···┌─>If a Then",       "2|···│··x"}},
    {"#If",      {"#If a Then", "x"},       {"1|···┌─>#If a Then",      "2|···│··x"}},
    {"With",     {"With a", "x"},           {"1|···┌─>With a",          "2|···│··x"}},
    {"Select",   {"Select Case a", "x"},    {"1|···┌─>Select Case a",   "2|···│··x"}},
    {"For",      {"For i = 1 To 2", "x"},   {"1|···╔═>For i = 1 To 2",  "2|···║··x"}},
    {"For Each", {"For Each a In b", "x"},  {"1|···╔═>For Each a In b", "2|···║··x"}},
    {"Do",       {"Do", "x"},               {"1|···╔═>Do",              "2|···║··x"}},
    {"Do While", {"Do While a", "x"},       {"1|···╔═>Do While a",      "2|···║··x"}},
    {"While",    {"While a", "x"},          {"1|···╔═>While a",         "2|···║··x"}},
    // What closes, one block deep.
    {"End If",     {"If a Then", "End If", "x"},             {"1|···┌─>If a Then",      "2|···└─>End If",      "3|···x"}},
    {"#End If",    {"#If a Then", "#End If", "x"},           {"1|···┌─>#If a Then",     "2|···└─>#End If",     "3|···x"}},
    {"End With",   {"With a", "End With", "x"},              {"1|···┌─>With a",         "2|···└─>End With",    "3|···x"}},
    {"End Select", {"Select Case a", "End Select", "x"},     {"1|···┌─>Select Case a",  "2|···└─>End Select",  "3|···x"}},
    {"Next",       {"For i = 1 To 2", "Next", "x"},          {"1|···╔═>For i = 1 To 2", "2|···╚═>Next",        "3|···x"}},
    {"Loop",       {"Do", "Loop", "x"},                      {"1|···╔═>Do",             "2|···╚═>Loop",        "3|···x"}},
    {"Loop Until", {"Do While a", "Loop Until b", "x"},      {"1|···╔═>Do While a",     "2|···╚═>Loop Until b", "3|···x"}},
    {"Whend",      {"While a", "whend", "x"},                {"1|···╔═>While a",        "2|···╚═>whend",       "3|···x"}},
    {"Wend",       {"While a", "Wend", "x"},                 {"1|···╔═>While a",        "2|···║··Wend",        "3|···║··x"}},
    // In the middle.
    {"Else",    {"If a Then", "Else", "x"},           {"1|···┌─>If a Then",     "2|···├─>Else",          "3|···│··x"}},
    {"ElseIf",  {"If a Then", "ElseIf b Then", "x"},  {"1|···┌─>If a Then",     "2|···├─>ElseIf b Then", "3|···│··x"}},
    {"#Else",   {"#If a Then", "#Else", "x"},         {"1|···┌─>#If a Then",    "2|···├─>#Else",         "3|···│··x"}},
    {"#ElseIf", {"#If a Then", "#ElseIf b Then", "x"},{"1|···┌─>#If a Then",    "2|···├─>#ElseIf b Then","3|···│··x"}},
    {"Case",    {"Select Case x", "Case 1", "Case 2", "Case Else", "End Select", "x"},
                {"1|···┌─>Select Case x", "2|···├─>Case 1", "3|···├─>Case 2", "4|···├─>Case Else", "5|···└─>End Select", "6|···x"}},
    // Lines that neither open nor close.
    {"End",        {"If a Then", "End", "x"},         {"1|···┌─>If a Then", "2|···│··End", "3|···│··x"}},
    {"End Type",   {"End Type", "x"},                 {"1|···End Type", "2|···x"}},
    {"EndDoc",     {"EndDoc", "x"},                   {"1|···EndDoc", "2|···x"}},
    {"End  If",    {"If a Then", "End  If", "x"},     {"1|···┌─>If a Then", "2|···│··End  If", "3|···│··x"}},
    {"If alone",   {"If", "x"},                       {"1|···If", "2|···x"}},
    {"DoEvents",   {"DoEvents", "x"},                 {"1|···DoEvents", "2|···x"}},
    {"a TAB",      {"\tIf a Then", "x"},              {"1|···\tIf a Then", "2|···x"}},
    {"continued",  {"x = y _", "If a Then", "x"},     {"1|···x = y _", "2|···┌─>If a Then", "3|···│··x"}},
    {"after :",   {"x = 1: If a Then", "x"},         {"1|···x = 1: If a Then", "2|···x"}},
    // Bare prefixes act like the keyword.
    {"NextItem",   {"For i = 1 To 2", "NextItem = 2", "x"}, {"1|···╔═>For i = 1 To 2", "2|···╚═>NextItem = 2", "3|···x"}},
    {"LoopCount",  {"Do", "LoopCount = 3", "x"},            {"1|···╔═>Do", "2|···╚═>LoopCount = 3", "3|···x"}},
    {"WhileFlag",  {"WhileFlag = 1", "x"},                  {"1|···╔═>WhileFlag = 1", "2|···║··x"}},
    {"elsewhere",  {"If a Then", "elsewhere = 1", "x"},     {"1|···┌─>If a Then", "2|···├─>elsewhere = 1", "3|···│··x"}},
    {"subtotal",   {"subtotal = 1", "x"},                   {"R|1|14|subtotal = 1", "2|···x"}},
    // What stood in the columns is not looked at.
    {"For, End If",  {"For i = 1 To 2", "End If", "x"},   {"1|···╔═>For i = 1 To 2", "2|···└─>End If", "3|···x"}},
    {"If, Next",     {"If a Then", "Next", "x"},          {"1|···┌─>If a Then", "2|···╚═>Next", "3|···x"}},
    {"Else in a For", {"For i = 1 To 2", "Else", "x", "Next", "y"},
                      {"1|···╔═>For i = 1 To 2", "2|···├─>Else", "3|···│··x", "4|···╚═>Next", "5|···y"}},
    {"three If",   {"If a Then", "If b Then", "If c Then", "x", "End If", "End If", "End If", "y"},
                   {"1|···┌─>If a Then", "2|···│··┌─>If b Then", "3|···│··│··┌─>If c Then", "4|···│··│··│··x",
                    "5|···│··│··└─>End If", "6|···│··└─>End If", "7|···└─>End If", "8|···y"}},
    {"mixed",      {"Do", "Select Case a", "Case 1", "For i = 1 To 2", "x", "Next", "End Select", "Loop", "y"},
                   {"1|···╔═>Do", "2|···║··┌─>Select Case a", "3|···║··├─>Case 1", "4|···║··│··╔═>For i = 1 To 2",
                    "5|···║··│··║··x", "6|···║··│··╚═>Next", "7|···║··└─>End Select", "8|···╚═>Loop", "9|···y"}},
    // Surplus lines at the base margin: drawn one block to the left, and forgiven.
    {"surplus End If",     {"End If", "x"},     {"1|└─>End If",     "2|···x"}},
    {"surplus #End If",    {"#End If", "x"},    {"1|└─>#End If",    "2|···x"}},
    {"surplus End Select", {"End Select", "x"}, {"1|└─>End Select", "2|···x"}},
    {"surplus Next",       {"Next", "x"},       {"1|╚═>Next",       "2|···x"}},
    {"surplus Loop",       {"Loop", "x"},       {"1|╚═>Loop",       "2|···x"}},
    {"surplus End With",   {"End With", "x"},   {"1|└─>End With",   "2|···x"}},
    {"surplus Else",       {"Else", "x"},       {"1|├─>Else",       "2|│··x"}},
    {"surplus #Else",      {"#Else", "x"},      {"1|├─>#Else",      "2|│··x"}},
    {"surplus Case",       {"Case 1", "x"},     {"1|├─>Case 1",     "2|│··x"}},
    {"... closed again",   {"Else", "End If", "x"}, {"1|├─>Else", "2|└─>End If", "3|···x"}},
    {"... to the next head", {"Else", "x", "Sub a()", "y"}, {"1|├─>Else", "2|│··x", "R|3|14|Sub a()", "4|···y"}},
    // Boxes.
    {"Sub",              {"Sub a()", "x"},                {"R|1|14|Sub a()", "2|···x"}},
    {"Private Sub",      {"Private Sub a()", "x"},        {"R|1|14|Private Sub a()", "2|···x"}},
    {"Public Sub",       {"PUBLIC SUB a()", "x"},         {"R|1|14|PUBLIC SUB a()", "2|···x"}},
    {"Function",         {"Private Function a()", "x"},   {"R|1|14|Private Function a()", "2|···x"}},
    {"Property",         {"Friend Property Get a()", "x"},{"R|1|14|Friend Property Get a()", "2|···x"}},
    {"Friend Sub",       {"Friend Sub a()", "x"},         {"1|···Friend Sub a()", "2|···x"}},
    {"Private Property", {"Private Property Get a()", "x"}, {"1|···Private Property Get a()", "2|···x"}},
    {"a head in a block", {"If a Then", "Sub b()", "x"},  {"1|···┌─>If a Then", "R|2|14|Sub b()", "3|···x"}},
    {"Type",             {"Private Type T", "a As Long", "End Type", "x"},
                         {"R|1|14|Private Type T", "2|···a As Long", "3|···End Type", "4|···x"}},
    {"Type in a block",  {"If a Then", "Public Type T", "x"}, {"1|···┌─>If a Then", "R|2|17|Public Type T", "3|···│··x"}},
    {"Type after End Sub", {"Sub a()", "End Sub", "Private Type T", "x"},
                            {"R|1|14|Sub a()", "2|···End Sub", "R|3|11|Private Type T", "4|x"}},
    {"Type after End Function", {"End Function", "Private Type T", "x"},
                                 {"1|···End Function", "R|2|14|Private Type T", "3|···x"}},
    {"bare Type",        {"Type T", "x"},                 {"1|···Type T", "2|···x"}},
};
// clang-format on

TEST(Connettori, OgniClasse) {
    for (const Caso& caso : Classi) {
        Banco b;
        EXPECT_EQ(ListatoDi(b, caso.Righe), Listato(caso.Atteso)) << caso.Che;
        EXPECT_TRUE(b.Fronte.Arresti.empty()) << caso.Che;
    }
}

// A head of more than 99 columns runs through the right side of its box.
TEST(Connettori, TestaLungaEsceDalRiquadro) {
    Banco b;
    const std::string testa = "Private Sub Lunga(" + std::string(150, 'p') + ")";
    EXPECT_EQ(ListatoDi(b, {testa}), Listato({"R|1|14|" + testa}));
}

// clang-format off
// After End Sub the margin is empty, after the other two ends it is not.
const Caso DietroEndSub[] = {
    {"a statement",  {"x"},              {"3|x"}},
    {"an empty line",{"", "x"},          {"3|", "4|x"}},
    {"If",           {"If a Then", "x"}, {"3|┌─>If a Then", "4|│··x"}},
    {"For",          {"For i = 1 To 2", "x", "Next", "y"}, {"3|╔═>For i = 1 To 2", "4|║··x", "5|╚═>Next", "6|···y"}},
    {"#If ... #End If", {"#If a Then", "#End If", "x"},    {"3|┌─>#If a Then", "4|└─>#End If", "5|···x"}},
    {"End With",     {"End With", "x"},  {"3|···End With", "4|···x"}},
    {"Exit Sub",     {"Exit Sub", "x"},  {"3|<<══Exit Sub", "4|x"}},
    {"End Type",     {"End Type", "x"},  {"3|End Type", "4|x"}},
    {"'*",           {"'* a", "x"},      {"3|", "4|x"}},
    {"End Sub",      {"End Sub", "x"},   {"3|End Sub", "4|x"}},
    {"End Function", {"End Function", "x"}, {"3|End Function", "4|···x"}},
    {"End Property", {"End Property", "x"}, {"3|End Property", "4|···x"}},
    {"a head",       {"Sub b()", "x"},   {"R|3|14|Sub b()", "4|···x"}},
};
// clang-format on

TEST(Connettori, DietroEndSub) {
    for (const Caso& caso : DietroEndSub) {
        Banco b;
        std::vector<std::string> righe = {"Sub a()", "End Sub"};
        righe.insert(righe.end(), caso.Righe.begin(), caso.Righe.end());
        std::vector<std::string> atteso = {"R|1|14|Sub a()", "2|···End Sub"};
        atteso.insert(atteso.end(), caso.Atteso.begin(), caso.Atteso.end());
        EXPECT_EQ(ListatoDi(b, righe), Listato(atteso)) << caso.Che;
        EXPECT_TRUE(b.Fronte.Arresti.empty()) << caso.Che;
    }
}

constexpr const char* SenzaMargine[] = {"Else",           "ElseIf b Then", "End If",      "#Else",
                                        "#ElseIf b Then", "#End If",       "Next",        "Case 1",
                                        "End Select",     "Loop",          "NextItem = 2"};

// A closing or middle line there ends the run, without a word to the user; everything stays as it
// was at that moment.
TEST(Connettori, ErroreCinqueDietroEndSub) {
    for (const char* linea : SenzaMargine) {
        Banco b;
        b.Modulo("A.frm", Sorgente({"VERSION 5.00", "Attribute VB_Exposed = False", "Sub a()", "End Sub",
                                    std::string("  ") + linea, "x"}));
        b.Modulo("B.frm", Sorgente({"x"}));
        b.Modulo("C.frm", Sorgente({"x"}));
        b.Disco.Metti("/p/Appoggio/B.log", "di prima");
        b.Tutte();
        mnuvorn_Click(b.S);
        EXPECT_EQ(b.Log("A.log"), Listato({"R|1|14|Sub a()", "2|···End Sub"})) << linea;
        EXPECT_EQ(b.Log("B.log"), "di prima");
        EXPECT_FALSE(b.Fatto("C.log"));
        EXPECT_EQ(b.Selezione(), "011") << linea;
        EXPECT_TRUE(b.CanaliChiusi());
        EXPECT_EQ(b.S.Label2, "\\p\\A.frm");
        EXPECT_TRUE(b.S.Progress.Visible && b.S.ProgressBar1.Visible);
        EXPECT_EQ(b.S.Progress.Max, 21);
        EXPECT_EQ(b.S.Progress.Value, 5);
        EXPECT_EQ(b.S.ProgressBar1.Max, 3);
        EXPECT_EQ(b.S.ProgressBar1.Value, 1);
        EXPECT_TRUE(b.Fronte.Box_.empty());
        EXPECT_EQ(b.Fronte.Beeps, 0);
        ASSERT_EQ(b.Fronte.Arresti.size(), 1U) << linea;
        const Arresto& arresto = b.Fronte.Arresti[0];
        EXPECT_EQ(arresto.Motore, "mnuvorn_Click");
        EXPECT_EQ(arresto.Causa.Numero, 5);
        EXPECT_EQ(arresto.Voce, 0);
        EXPECT_EQ(arresto.Riga, 5);
        EXPECT_EQ(arresto.RigaListato, 3);
        EXPECT_EQ(arresto.Linea, linea);

        mnuvorn_Click(b.S); // the user gives the command again: on after the row that failed
        EXPECT_EQ(b.Log("B.log"), Listato({"1|···x"}));
        EXPECT_TRUE(b.Fatto("C.log"));
        EXPECT_EQ(b.Selezione(), "000");
        EXPECT_EQ(b.Log("A.log"), Listato({"R|1|14|Sub a()", "2|···End Sub"}));
    }
}

TEST(Connettori, DietroEndFunctionNonFerma) {
    for (const char* fine : {"End Function", "End Property"})
        for (const char* linea : SenzaMargine) {
            Banco b;
            const Testo avuto = ListatoDi(b, {fine, linea, "x"});
            EXPECT_TRUE(b.Fronte.Arresti.empty()) << fine << ' ' << linea;
            EXPECT_EQ(std::count(avuto.begin(), avuto.end(), '\n'), 3) << fine << ' ' << linea;
        }
}

// End With at every width, and each other closing line beside it.
TEST(Connettori, EndWithAOgniMargine) {
    struct Larghezza {
        const char* Margine;
        const char* Scritta;
        const char* Dopo;
    };
    const Larghezza casi[] = {
        {"", "···End With", "···"},          {"···", "└─>End With", "···"},
        {"···║··", "···└─>End With", "···"}, {"···║··│··", "···║··└─>End With", "···║··"},
        {"│··", "└─>End With", "···"},
    };
    for (const Larghezza& caso : casi) {
        Banco b;
        b.Disco.FaiDirectory("/p/Appoggio");
        b.S.Canale.OpenOutput(2, "\\p\\Appoggio\\x.log");
        b.S.Margine = DaGlifi(caso.Margine);
        b.S.Riga = "End With";
        b.S.StoriaBlocchi = "00";
        ElencaRiga(b.S, RigaEndWith);
        b.S.Canale.Close(2);
        EXPECT_EQ(b.Log("x.log"), DaGlifi(caso.Scritta) + "\r\n") << caso.Margine;
        EXPECT_EQ(b.S.Margine, DaGlifi(caso.Dopo)) << caso.Margine;
        EXPECT_EQ(b.S.StoriaBlocchi, "00");
    }
}

// Beyond line 999,999 the field is five blanks and everything moves to the left: margins, boxes
// (whose indentation counts the field twice), the error line, bars.
TEST(Connettori, OltreSeiCifre) {
    Banco b;
    Testo sorgente;
    for (int i = 1; i <= 999998; ++i) sorgente += "\r\n";
    sorgente += Sorgente({"Sub a()", "If b Then c", "Exit Sub", "End Sub", "Private Type T"});
    b.Modulo("F.frm", sorgente);
    b.Tutte();
    mnuvorn_Click(b.S);
    const Testo log = b.Log("F.log");
    const std::size_t posto = static_cast<std::size_t>(999998) * 16; // field, margin, CR LF
    EXPECT_EQ(log.substr(0, 16), "000001        \r\n");
    EXPECT_EQ(log.substr(posto - 16, 16), "999998        \r\n");
    const Testo senza(5, ' ');
    const Testo p0(5, ' ');
    const Testo stelle = Testo(101, '*') + "\r\n";
    const Testo fianchi = "*" + Testo(99, ' ') + "*\r\n";
    EXPECT_EQ(log.substr(posto), Listato({"R|999999|14|Sub a()"}) + senza + DaGlifi("···┌─>If b Then c\r\n") +
                                     senza + DaGlifi("<<══════Exit Sub\r\n") + senza +
                                     DaGlifi("######  Errore generico - Manca uno o più elementi di chiusura "
                                             "ENDIF - Loop, Next ... ect\r\n") +
                                     senza + "      End Sub\r\n" + p0 + stelle + p0 + fianchi + senza + p0 +
                                     "  Private Type T\r\n" + p0 + fianchi + p0 + stelle);
    EXPECT_EQ(b.S.TotaleRighe, 1000003);
}

// The engine tells each move of its margin; a form's listing counts from after its control
// section, the file does not.
TEST(Connettori, DiceOgniMossa) {
    Banco b;
    ListatoDi(b, {"VERSION 5.00", "Attribute VB_Exposed = False", "Sub a()", "  If x Then", "  Else",
                  "Exit Sub", "For i = 1 To 2", "Next", "End Sub", "End With", "Private Type T",
                  "Function f()", "Loop", "End Function"});
    struct Mossa {
        PassoMargine::Genere Che;
        Lungo Riga, RigaListato, Larghezza;
        Testo Linea;
        bool operator==(const Mossa&) const = default;
    };
    const std::vector<Mossa> attese = {
        {PassoMargine::Inizio, 0, 0, 3, ""},
        {PassoMargine::Testa, 3, 1, 3, "Sub a()"},
        {PassoMargine::Apre, 4, 2, 6, "If x Then"},
        {PassoMargine::Mezzo, 5, 3, 6, "Else"},
        {PassoMargine::Apre, 7, 5, 9, "For i = 1 To 2"},
        {PassoMargine::Chiude, 8, 6, 6, "Next"},
        {PassoMargine::Sbilanciata, 9, 7, 6, "End Sub"},
        {PassoMargine::Fine, 9, 7, 0, "End Sub"},
        {PassoMargine::Chiude, 10, 8, 0, "End With"},
        {PassoMargine::Testa, 12, 10, 3, "Function f()"},
        {PassoMargine::Chiude, 13, 11, 0, "Loop"},
        {PassoMargine::Fine, 14, 12, 3, "End Function"},
    };
    std::vector<Mossa> avute;
    for (const auto& passo : b.Fronte.Passi) {
        EXPECT_EQ(passo.Come.Voce, 0);
        avute.push_back(
            {passo.Come.Che, passo.Come.Riga, passo.Come.RigaListato, passo.Come.Larghezza, passo.Linea});
    }
    ASSERT_EQ(avute.size(), attese.size());
    for (std::size_t i = 0; i < attese.size(); ++i)
        EXPECT_TRUE(avute[i] == attese[i])
            << i << ' ' << avute[i].Che << ' ' << avute[i].Riga << ' ' << avute[i].RigaListato << ' '
            << avute[i].Larghezza << ' ' << avute[i].Linea;
}

} // namespace

} // namespace morvella

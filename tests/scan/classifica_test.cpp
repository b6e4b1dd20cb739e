// SPDX-License-Identifier: MIT
#include "scan/rubrica.h"

#include <gtest/gtest.h>

#include <random>

namespace morvella {

namespace {

struct Caso {
    Vista Riga;
    Classe Attesa;
};

Testo Misto(Vista s) { // "eNd If": every second letter the other way round
    Testo misto = LCase(s);
    for (std::size_t i = 1; i < misto.size(); i += 2)
        misto[i] = static_cast<char>(MaiuscolaByte(static_cast<unsigned char>(misto[i])));
    return misto;
}

void Prova(const Caso& caso) { EXPECT_EQ(ClassificaRiga(caso.Riga), caso.Attesa) << '"' << caso.Riga << '"'; }

// Every alternative of every row, bare and with something after it; then one byte shorter. A
// shorter one is often taken by another row, and that row is named here.
struct Alternativa {
    Vista Inizio;
    Classe Attesa;
    Classe Corta; // of the same without its last byte
};

// clang-format off
constexpr Alternativa Alternative[] = {
    {"private type",     RigaType,        RigaAltra},
    {"public type",      RigaType,        RigaAltra},
    {"private sub",      RigaSub,         RigaAltra},
    {"public sub",       RigaSub,         RigaAltra},
    {"sub",              RigaSub,         RigaAltra},
    {"private function", RigaFunction,    RigaAltra},
    {"public function",  RigaFunction,    RigaAltra},
    {"function",         RigaFunction,    RigaAltra},
    {"if ",              RigaIf,          RigaAltra},
    {"else ",            RigaElse,        RigaElse},
    {"else",             RigaElse,        RigaAltra},
    {"elseif ",          RigaElse,        RigaElse},
    {"end if",           RigaEndIf,       RigaEnd},
    {"#if ",             RigaCondIf,      RigaAltra},
    {"#else ",           RigaCondElse,    RigaCondElse},
    {"#else",            RigaCondElse,    RigaAltra},
    {"#elseif ",         RigaCondElse,    RigaCondElse},
    {"#end if",          RigaCondEndIf,   RigaAltra},
    {"property",         RigaProperty,    RigaAltra},
    {"public property",  RigaProperty,    RigaAltra},
    {"friend property",  RigaProperty,    RigaAltra},
    {"end property",     RigaEndProperty, RigaEnd},
    {"for ",             RigaFor,         RigaAltra},
    {"for each",         RigaFor,         RigaFor},
    {"next",             RigaNext,        RigaAltra},
    {"with ",            RigaWith,        RigaAltra},
    {"end with",         RigaEndWith,     RigaEnd},
    {"select case ",     RigaSelect,      RigaAltra},
    {"case ",            RigaCase,        RigaAltra},
    {"case else",        RigaCase,        RigaCase},
    {"end select",       RigaEndSelect,   RigaEnd},
    {"end sub",          RigaEndSub,      RigaEnd},
    {"end function",     RigaEndFunction, RigaEnd},
    {"end",              RigaEnd,         RigaAltra},
    {"do ",              RigaDo,          RigaDo},      // "do" is the whole line then
    {"do",               RigaDo,          RigaAltra},
    {"while",            RigaDo,          RigaAltra},
    {"loop",             RigaLoop,        RigaAltra},
    {"whend",            RigaLoop,        RigaAltra},
    {"exit do",          RigaExitDo,      RigaAltra},
    {"exit for",         RigaExitFor,     RigaAltra},
    {"exit sub",         RigaExitSub,     RigaAltra},
};
// clang-format on

TEST(Classifica, OgniAlternativaInOgniCarattere) {
    for (const Alternativa& a : Alternative) {
        Prova({LCase(a.Inizio), a.Attesa});
        Prova({UCase(a.Inizio), a.Attesa});
        Prova({Misto(a.Inizio), a.Attesa});
        if (a.Inizio == "do") continue; // nothing may follow it
        Prova({LCase(a.Inizio) + "x", a.Attesa});
        Prova({UCase(a.Inizio) + " Y(1)", a.Attesa});
        Prova({Misto(a.Inizio) + "\t", a.Attesa});
        Prova({Misto(a.Inizio) + "\xE8", a.Attesa});
    }
}

TEST(Classifica, UnByteInMeno) {
    for (const Alternativa& a : Alternative) {
        const Vista corta = Mid(a.Inizio, 1, Len(a.Inizio) - 1);
        Prova({LCase(corta), a.Corta});
        Prova({UCase(corta), a.Corta});
        Prova({Misto(corta), a.Corta});
    }
}

TEST(Classifica, QualcosaDavanti) {
    for (const Alternativa& a : Alternative)
        for (const Vista davanti : {"\t", "'", "x", "x = 1: ", "\xA0", "\n", "1", " ", ".", "\""})
            Prova({Testo(davanti) + Testo(a.Inizio), RigaAltra});
}

TEST(Classifica, Righe) {
    // clang-format off
    const Caso casi[] = {
        // A bare prefix takes longer words, a closing blank keeps them out.
        {"subtotal = 1", RigaSub},            {"Su", RigaAltra},
        {"Functional(x)", RigaFunction},      {"Funct(x)", RigaAltra},
        {"PropertyBag.Read", RigaProperty},   {"Propert = 1", RigaAltra},
        {"elsewhere = 1", RigaElse},          {"els = 1", RigaAltra},
        {"EndDoc", RigaEnd},                  {"En", RigaAltra},
        {"NextItem = 2", RigaNext},           {"Nex", RigaAltra},
        {"LoopCount = 3", RigaLoop},          {"Loo = 3", RigaAltra},
        {"WhileFlag = 1", RigaDo},            {"Whil = 1", RigaAltra},
        {"WhendFlag = 1", RigaLoop},          {"When = 1", RigaAltra},
        {"For i = 1 To 3", RigaFor},          {"Form1.Show", RigaAltra},
        {"For Each x In y", RigaFor},         {"ForEach x", RigaAltra},
        {"If x Then", RigaIf},                {"IfFlag = 1", RigaAltra},
        {"If(x) Then", RigaAltra},            {"If", RigaAltra},
        {"With x", RigaWith},                 {"WithEvents x As y", RigaAltra},
        {"Case 1", RigaCase},                 {"Cases = 2", RigaAltra},
        {"Case", RigaAltra},                  {"Case(1)", RigaAltra},
        {"For", RigaAltra},                   {"With", RigaAltra},
        // Do
        {"Do", RigaDo},                       {"DO", RigaDo},
        {"Do While x", RigaDo},               {"DO UNTIL X", RigaDo},
        {"DoEvents", RigaAltra},              {"do_x = 1", RigaAltra},
        {"Do:", RigaAltra},                   {"Do'x", RigaAltra},
        {"Do\t", RigaAltra},                  {"Do 'x", RigaDo},
        // While and Loop
        {"While x", RigaDo},                  {"Wend", RigaAltra},
        {"Whend", RigaLoop},                  {"WEND", RigaAltra},
        {"Loop", RigaLoop},                   {"Loop Until x", RigaLoop},
        // Sub and Function know Private and not Friend, Property the reverse.
        {"Sub a()", RigaSub},                 {"Friend Sub a()", RigaAltra},
        {"Private Sub a()", RigaSub},         {"Static Sub a()", RigaAltra},
        {"Public Sub a()", RigaSub},          {"Private Static Sub a()", RigaAltra},
        {"Public  Sub a()", RigaAltra},       {"Public Static Sub a()", RigaAltra},
        {"Function a()", RigaFunction},       {"Friend Function a()", RigaAltra},
        {"Private Function a()", RigaFunction}, {"Static Function a()", RigaAltra},
        {"Public Function a()", RigaFunction},  {"Private Static Function a()", RigaAltra},
        {"Private  Function a()", RigaAltra},   {"Public Static Function a()", RigaAltra},
        {"Property Get x()", RigaProperty},        {"Private Property Get x", RigaAltra},
        {"Public Property Let x(v)", RigaProperty}, {"Public Default Property Get x", RigaAltra},
        {"Friend Property Set x(v)", RigaProperty}, {"Static Property Get x", RigaAltra},
        // Type
        {"Private Type X", RigaType},         {"Type X", RigaAltra},
        {"Public Type X", RigaType},          {"Friend Type X", RigaAltra},
        {"Private TypeCode As Long", RigaType}, {"Private Typ As Long", RigaAltra},
        {"Public TypeCode As Long", RigaType},  {"Enum X", RigaAltra},
        {"Private Enum X", RigaAltra},        {"Public Enum X", RigaAltra},
        // Declarations
        {"Private Declare Sub x Lib \"y\"", RigaAltra}, {"Declare Sub x Lib \"y\"", RigaAltra},
        {"Public Declare Function x Lib \"y\"", RigaAltra}, {"Event x()", RigaAltra},
        {"Public Event x()", RigaAltra},      {"Private Subtotal As Long", RigaSub},
        {"Public FunctionKey As Long", RigaFunction}, {"Public PropertyBag As Long", RigaProperty},
        // End and the rows in front of it
        {"End", RigaEnd},                     {"End If", RigaEndIf},
        {"End Type", RigaEnd},                {"End With", RigaEndWith},
        {"End Enum", RigaEnd},                {"End Select", RigaEndSelect},
        {"EndProperty", RigaEnd},             {"End Property", RigaEndProperty},
        {"endIndex = 3", RigaEnd},            {"End Sub", RigaEndSub},
        {"End  If", RigaEnd},                 {"End Function", RigaEndFunction},
        {"End\tIf", RigaEnd},                 {"END IF", RigaEndIf},
        {"EndIf", RigaEnd},                   {"End If 'x", RigaEndIf},
        {"End Withdrawal", RigaEndWith},      {"End Wit", RigaEnd},
        {"End Subtotal", RigaEndSub},         {"End Selection", RigaEndSelect},
        {"End:", RigaEnd},                    {"Ending", RigaEnd},
        {"End Iffy", RigaEndIf},              {"End Functional", RigaEndFunction},
        // Exit
        {"Exit Do", RigaExitDo},              {"Exit Function", RigaAltra},
        {"Exit For", RigaExitFor},            {"Exit Property", RigaAltra},
        {"Exit Sub", RigaExitSub},            {"Exit", RigaAltra},
        {"Exit  Sub", RigaAltra},             {"ExitSub", RigaAltra},
        {"Exit Format", RigaExitFor},         {"Exit Document", RigaExitDo},
        // Select
        {"Select Case x", RigaSelect},        {"Select", RigaAltra},
        {"Select Case", RigaAltra},           {"Select  Case x", RigaAltra},
        {"Case Else", RigaCase},              {"CaseElse", RigaAltra},
        // Else
        {"Else", RigaElse},                   {"else", RigaElse},
        {"ElseIf x Then", RigaElse},          {"Else If x Then", RigaElse},
        {"Else: x = 1", RigaElse},            {"ElseIf", RigaElse},
        // Conditional compilation
        {"#If Win32 Then", RigaCondIf},       {"#If", RigaAltra},
        {"#Else", RigaCondElse},              {"# Else", RigaAltra},
        {"#ElseIf x Then", RigaCondElse},     {"#Elsewhere", RigaCondElse},
        {"#End If", RigaCondEndIf},           {"#End", RigaAltra},
        {"#EndIf", RigaAltra},                {"#End  If", RigaAltra},
        {"#Const x = 1", RigaAltra},          {"#", RigaAltra},
        // If of one line, several statements, comments, strings, labels, continued lines
        {"If x Then y", RigaIf},              {"x = 1: If y Then", RigaAltra},
        {"If x _", RigaIf},                   {"And y Then", RigaAltra},
        {"Case 2, _", RigaCase},              {"_", RigaAltra},
        {"'If x Then", RigaAltra},            {"Rem If x", RigaAltra},
        {"' End Sub", RigaAltra},             {"Remark = 1", RigaAltra},
        {"\"If x\"", RigaAltra},              {"10 If x Then", RigaAltra},
        {"Errore:", RigaAltra},               {"", RigaAltra},
        {"\tIf x Then", RigaAltra},           {"Next x", RigaNext},
        {"\xC9lse", RigaAltra},               {"\xE8", RigaAltra},
    };
    // clang-format on
    for (const Caso& caso : casi) Prova(caso);
    Prova({Vista("\0If x", 5), RigaAltra});
    Prova({Vista("Do\0", 3), RigaAltra}); // three bytes: not the whole line
    Prova({Vista("End\0If", 6), RigaEnd});
    Prova({"If " + Testo(100000, 'x'), RigaIf});
}

TEST(Classifica, Codici) {
    const std::pair<Classe, Vista> casi[] = {
        {RigaType, ""},      {RigaSub, "01"},      {RigaFunction, "02"},    {RigaIf, "03"},
        {RigaElse, ""},      {RigaEndIf, ""},      {RigaCondIf, "04"},      {RigaCondElse, ""},
        {RigaCondEndIf, ""}, {RigaProperty, "11"}, {RigaEndProperty, "12"}, {RigaFor, "05"},
        {RigaNext, ""},      {RigaWith, "06"},     {RigaEndWith, ""},       {RigaSelect, "07"},
        {RigaCase, ""},      {RigaEndSelect, ""},  {RigaEndSub, "08"},      {RigaEndFunction, "10"},
        {RigaEnd, ""},       {RigaDo, "09"},       {RigaLoop, ""},          {RigaExitDo, ""},
        {RigaExitFor, ""},   {RigaExitSub, ""},    {RigaAltra, ""},
    };
    ASSERT_EQ(std::size(casi), static_cast<std::size_t>(NumeroClassi));
    for (const auto& [classe, codice] : casi) EXPECT_EQ(Vista(CodiciBlocco[classe]), codice) << int{classe};
}

// The same rules in their simplest form: every row in order, every alternative folded and compared,
// also those that another of the same row covers. With `listato` in the
// order that the listing has: the two Property rows elsewhere, the classes the same.
struct RigaTavola {
    Classe Esito;
    std::vector<Testo> Inizi;
};

std::vector<RigaTavola> Tavola(bool listato) {
    const std::vector<RigaTavola> proprieta = {
        {RigaProperty, {"property", "public property", "friend property"}}};
    const std::vector<RigaTavola> fineProprieta = {{RigaEndProperty, {"end property"}}};
    std::vector<RigaTavola> tavola;
    const auto metti = [&](std::vector<RigaTavola> righe) {
        tavola.insert(tavola.end(), righe.begin(), righe.end());
    };
    metti({{RigaType, {"private type", "public type"}},
           {RigaSub, {"private sub", "public sub", "sub"}},
           {RigaFunction, {"private function", "public function", "function"}}});
    if (listato) metti(proprieta);
    metti({{RigaIf, {"if "}},
           {RigaElse, {"else ", "else", "elseif "}},
           {RigaEndIf, {"end if"}},
           {RigaCondIf, {"#if "}},
           {RigaCondElse, {"#else ", "#else", "#elseif "}},
           {RigaCondEndIf, {"#end if"}}});
    if (!listato) metti(proprieta);
    if (!listato) metti(fineProprieta);
    metti({{RigaFor, {"for ", "for each"}},
           {RigaNext, {"next"}},
           {RigaWith, {"with "}},
           {RigaEndWith, {"end with"}},
           {RigaSelect, {"select case "}},
           {RigaCase, {"case ", "case else"}},
           {RigaEndSelect, {"end select"}},
           {RigaEndSub, {"end sub"}},
           {RigaEndFunction, {"end function"}}});
    if (listato) metti(fineProprieta);
    metti({{RigaEnd, {"end"}},
           {RigaDo, {"do ", "while"}},
           {RigaLoop, {"loop", "whend"}},
           {RigaExitDo, {"exit do"}},
           {RigaExitFor, {"exit for"}},
           {RigaExitSub, {"exit sub"}}});
    return tavola;
}

Classe ClassificaIngenua(const Testo& riga, bool listato) {
    static const std::vector<RigaTavola> tavole[] = {Tavola(false), Tavola(true)};
    const Testo piegata = LCase(Mid(riga, 1, 20));
    for (const RigaTavola& prova : tavole[listato]) {
        if (prova.Esito == RigaDo && riga.size() == 2 && piegata == "do") return RigaDo;
        for (const Testo& inizio : prova.Inizi)
            if (Mid(piegata, 1, Len(inizio)) == inizio) return prova.Esito;
    }
    return RigaAltra;
}

void Confronta(const Testo& riga) {
    const Classe classe = ClassificaRiga(riga);
    // The same within a buffer, where a blank or a CR follows a trimmed line.
    static Testo prima;
    if (Trim(riga) == riga) {
        for (const Testo& dietro : {Testo("\r"), Testo("\rb\r\n"), Testo("\r\nEnd Sub"), Testo("    \r"),
                                    Testo(" Sub\r"), "\r" + prima, "\r\n" + prima, " " + prima}) {
            const Testo memoria = riga + dietro + Testo(16, 'x');
            ASSERT_EQ(ClassificaInMemoria(memoria.data(), riga.size()), classe)
                << testing::PrintToString(memoria);
        }
    }
    prima = riga;
    ASSERT_EQ(classe, ClassificaIngenua(riga, false)) << testing::PrintToString(riga);
    ASSERT_EQ(classe, ClassificaIngenua(riga, true)) << testing::PrintToString(riga);
}

TEST(ClassificaIngenua, OgniInizioConOgniByteDietro) {
    for (const Alternativa& a : Alternative)
        for (Lungo n = 0; n <= Len(a.Inizio); ++n)
            for (int byte = 0; byte < 256; ++byte) {
                const Testo inizio(Mid(a.Inizio, 1, n));
                Confronta(inizio + Chr(byte));
                Confronta(UCase(inizio) + Chr(byte) + " x");
                // The byte in the place of the one that belongs there.
                Confronta(inizio + Chr(byte) + Testo(Mid(a.Inizio, n + 2, 99)));
                if (HasFatalFailure()) return;
            }
}

TEST(ClassificaIngenua, RigheACaso) {
    const Vista pezzi[] = {"private", "public", "friend", "static", "sub",  "function", "property", "type",
                           "end",     "if",     "else",   "elseif", "#",    "for",      "each",     "next",
                           "with",    "select", "case",   "do",     "loop", "while",    "whend",    "wend",
                           "exit",    " ",      " ",      " ",      "x",    "\t",       "'",        "\xE0"};
    std::mt19937 sorte(20261121);
    const auto a_caso = [&](std::size_t n) { return sorte() % n; };
    for (int i = 0; i < 20000; ++i) {
        Testo riga;
        for (std::size_t n = a_caso(6); n > 0; --n) {
            const Testo pezzo(pezzi[a_caso(std::size(pezzi))]);
            riga += a_caso(2) ? pezzo : a_caso(2) ? UCase(pezzo) : Misto(pezzo);
            if (a_caso(2)) riga += ' ';
        }
        Confronta(riga);
        if (!riga.empty()) {
            riga[a_caso(riga.size())] = static_cast<char>(a_caso(256));
            Confronta(riga);
        }
        Testo rumore;
        for (std::size_t n = a_caso(12); n > 0; --n) rumore += static_cast<char>(a_caso(256));
        Confronta(rumore);
        if (HasFatalFailure()) return;
    }
}

} // namespace

} // namespace morvella

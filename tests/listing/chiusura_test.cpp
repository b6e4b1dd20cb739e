// SPDX-License-Identifier: MIT
//
// The end of a procedure: the balance test, the bars of Exit, the history of the blocks.
#include "listing/banco.h"

namespace morvella {

namespace {

using namespace prove;

struct Caso {
    const char* Che;
    std::vector<std::string> Righe;
    std::vector<std::string> Atteso;
};

// clang-format off
const Caso Chiusure[] = {
    {"empty procedure", {"Sub a()", "End Sub"}, {"R|1|14|Sub a()", "2|···End Sub"}},
    {"one-line If in a Sub", {"Sub a()", "If b Then c", "End Sub", "x"},
        {"R|1|14|Sub a()", "2|···┌─>If b Then c", RigaErrore, "3|······End Sub", "4|x"}},
    {"one-line If in a Function", {"Function f()", "If b Then c", "End Function", "x = 1"},
        {"R|1|14|Function f()", "2|···┌─>If b Then c", RigaErrore, "3|······End Function", "4|···x = 1"}},
    {"one-line If in a Property", {"Property Get p()", "If b Then c", "End Property", "x"},
        {"R|1|14|Property Get p()", "2|···┌─>If b Then c", RigaErrore, "3|······End Property", "4|···x"}},
    {"two of them", {"Sub a()", "If b Then c", "If d Then e", "x", "End Sub"},
        {"R|1|14|Sub a()", "2|···┌─>If b Then c", "3|···│··┌─>If d Then e", "4|···│··│··x", RigaErrore, "5|·········End Sub"}},
    {"While and Wend", {"Sub a()", "While b", "Wend", "End Sub"},
        {"R|1|14|Sub a()", "2|···╔═>While b", "3|···║··Wend", RigaErrore, "4|······End Sub"}},
    {"a surplus Else", {"Sub a()", "Else", "End Sub"},
        {"R|1|14|Sub a()", "2|├─>Else", RigaErrore, "3|···End Sub"}},
    {"a surplus End If is forgiven", {"Sub a()", "End If", "End Sub"},
        {"R|1|14|Sub a()", "2|└─>End If", "3|···End Sub"}},
    {"the wrong closing word too", {"Sub a()", "For i = 1 To 2", "End If", "End Sub"},
        {"R|1|14|Sub a()", "2|···╔═>For i = 1 To 2", "3|···└─>End If", "4|···End Sub"}},
    {"no test at a head", {"Sub a()", "If b Then c", "Sub d()", "End Sub"},
        {"R|1|14|Sub a()", "2|···┌─>If b Then c", "R|3|14|Sub d()", "4|···End Sub"}},
    {"no test at the end of the file", {"Sub a()", "If b Then c"},
        {"R|1|14|Sub a()", "2|···┌─>If b Then c"}},
    {"Private Property Get: no box, but the test", {"Private Property Get a()", "If b Then c", "End Property", "x"},
        {"1|···Private Property Get a()", "2|···┌─>If b Then c", RigaErrore, "3|······End Property", "4|···x"}},
    {"Friend Sub takes over what was open", {"Sub a()", "If b Then c", "Friend Sub d()", "End Sub"},
        {"R|1|14|Sub a()", "2|···┌─>If b Then c", "3|···│··Friend Sub d()", RigaErrore, "4|······End Sub"}},
    {"an end that is not one", {"Sub a()", "If b Then c", "End  Sub", "x"},
        {"R|1|14|Sub a()", "2|···┌─>If b Then c", "3|···│··End  Sub", "4|···│··x"}},
    // Bars: as many double strokes as the margin has bytes.
    {"Exit For", {"Sub a()", "For i = 1 To 2", "Exit For", "Next", "End Sub"},
        {"R|1|14|Sub a()", "2|···╔═>For i = 1 To 2", "3|<<══════Exit For", "4|···╚═>Next", "5|···End Sub"}},
    {"Exit Do",  {"Do", "Exit Do", "x"},      {"1|···╔═>Do", "2|<<══════Exit Do", "3|···║··x"}},
    {"Exit Sub", {"Sub a()", "Exit Sub", "End Sub"}, {"R|1|14|Sub a()", "2|<<═══Exit Sub", "3|···End Sub"}},
    {"in any case", {"EXIT SUB 'c"},          {"1|<<═══EXIT SUB 'c"}},
    {"Exit Function", {"If a Then", "Exit Function"}, {"1|···┌─>If a Then", "2|···│··Exit Function"}},
    {"Exit Property", {"Exit Property"},      {"1|···Exit Property"}},
};
// clang-format on

TEST(Chiusura, ProvaEBarre) {
    for (const Caso& caso : Chiusure) {
        Banco b;
        EXPECT_EQ(ListatoDi(b, caso.Righe), Listato(caso.Atteso)) << caso.Che;
        EXPECT_TRUE(b.Fronte.Arresti.empty()) << caso.Che;
    }
}

TEST(Chiusura, LaRigaDErroreByPerByte) {
    Banco b;
    const Testo avuto = ListatoDi(b, {"Sub a()", "If b Then c", "End Sub"});
    EXPECT_NE(avuto.find("\r\n           ######  Errore generico - Manca uno o pi\xF9 elementi di chiusura "
                         "ENDIF - Loop, Next ... ect\r\n000003           End Sub\r\n"),
              Testo::npos);
}

TEST(Chiusura, BarraUscita) {
    const std::pair<Testo, std::string_view> casi[] = {
        {"", "<<══"}, {"   ", "<<═══"}, {"   \xB3  ", "<<══════"}, {"   \xBA  \xB3  ", "<<═════════"},
        {" ", "<<═"},
    };
    for (const auto& [margine, attesa] : casi)
        EXPECT_EQ(BarraUscita(margine), DaGlifi(attesa)) << margine.size();
}

// clang-format off
TEST(Storia, UnCodicePerClasse) {
    const std::pair<const char*, const char*> casi[] = {
        {"Sub a()", "01"}, {"Function a()", "02"}, {"If a Then", "03"}, {"#If a Then", "04"}, {"For i = 1 To 2", "05"},
        {"With a", "06"}, {"Select Case a", "07"}, {"End Sub", "08"}, {"Do", "09"}, {"While a", "09"},
        {"End Function", "10"}, {"Property Get a()", "11"}, {"End Property", "12"},
        {"Private Type a", ""}, {"Else", ""}, {"End If", ""}, {"#Else", ""}, {"#End If", ""}, {"Next", ""},
        {"End With", ""}, {"Case 1", ""}, {"End Select", ""}, {"Loop", ""}, {"End", ""}, {"Exit Do", ""},
        {"Exit For", ""}, {"Exit Sub", ""}, {"x = 1", ""}, {"Private Property Get a()", ""},
    };
    for (const auto& [riga, codice] : casi) {
        Banco b;
        ListatoDi(b, {riga});
        EXPECT_EQ(b.S.StoriaBlocchi, Testo("00") + codice) << riga;
    }
}
// clang-format on

TEST(Storia, NellOrdineDelleRighe) {
    Banco b;
    ListatoDi(b, {"Sub a()", "If b Then", "End If", "End Sub"});
    EXPECT_EQ(b.S.StoriaBlocchi, "00010308");
}

TEST(Storia, VerificaBlocco) {
    struct Verifica {
        const char* Storia;
        const char* Codice;
        bool Togli, Esito;
        const char* Dopo;
    };
    const Verifica casi[] = {
        {"00010308", "08", false, false, "00010308"},
        {"00010308", "03", false, true, "00010308"},
        {"00010308", "08", true, false, "08"}, // not "000103": all of it but the last
        {"00010308", "03", true, true, "00010308"},
        {"00", "00", true, false, "00"},
        {"00", "01", true, true, "00"},
        {"08", "08", true, false, "08"},
    };
    for (const Verifica& caso : casi) {
        Banco b;
        b.S.StoriaBlocchi = caso.Storia;
        EXPECT_EQ(VerificaBlocco(b.S, caso.Codice, caso.Togli), caso.Esito) << caso.Storia << caso.Codice;
        EXPECT_EQ(b.S.StoriaBlocchi, caso.Dopo) << caso.Storia << ' ' << caso.Codice;
    }
}

} // namespace

} // namespace morvella

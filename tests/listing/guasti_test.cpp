// SPDX-License-Identifier: MIT
//
// Every call of the file layer fails once with every number: the run ends, the sources stay as
// they are, no channel stays open, and the next run is a clean one.
#include "listing/banco.h"

namespace morvella {

namespace {

using namespace prove;

const std::map<std::string, std::string>& Sorgenti() {
    static const std::map<std::string, std::string> file = {
        {"/p/A.cls", Sorgente({"Attribute a", "Attribute b", "Attribute c", "Attribute d", "Attribute e",
                               "Option Explicit", "f.Show", "Sub s()", "If x Then y", "End Sub"})},
        {"/p/sub/B.frm", Sorgente({"VERSION 5.00", Exposed, "Sub s()", "Exit Sub", "End Sub"})},
        {"/p/C.bas", Sorgente({"Attribute VB_Name = \"C\"", "Function f()", "End Function"})},
    };
    return file;
}

void Prepara(Banco& b) {
    for (const auto& [percorso, bytes] : Sorgenti()) b.Disco.Metti(percorso, bytes);
    for (const char* riga : {"A.cls", "C.bas", "sub\\B.frm"}) b.S.File1.AddItem(riga);
    b.S.Check1 = 1;
    b.S.Text1 = "'t";
    b.Tutte();
}

std::map<std::string, std::string> Listati(const Banco& b) {
    auto file = b.Disco.TuttiIFile();
    std::erase_if(file, [](const auto& voce) { return !voce.first.ends_with(".log"); });
    return file;
}

TEST(Guasti, OgniChiamataOgniNumero) {
    Banco sana;
    Prepara(sana);
    sana.Disco.FallisciAllaChiamata(0, 0);
    mnuvorn_Click(sana.S);
    const int chiamate = sana.Disco.ChiamateFatte();
    const auto atteso = Listati(sana);
    ASSERT_EQ(atteso.size(), 3U);
    ASSERT_GT(chiamate, 20);

    int fermate = 0;
    for (int k = 1; k <= chiamate; ++k)
        for (const int numero : {7, 5, 53, 55, 57, 61, 70, 75, 76}) {
            const std::string dove = std::to_string(k) + " con " + std::to_string(numero);
            Banco b;
            Prepara(b);
            b.Disco.FallisciAllaChiamata(k, numero);
            ASSERT_NO_THROW(mnuvorn_Click(b.S)) << dove;
            for (const auto& [percorso, bytes] : Sorgenti())
                EXPECT_EQ(b.Disco.Leggi(percorso), bytes) << dove;
            EXPECT_TRUE(b.CanaliChiusi()) << dove;
            EXPECT_TRUE(b.Fronte.Box_.empty()) << dove;
            if (b.Fronte.Arresti.empty()) {
                EXPECT_EQ(b.Selezione(), "000") << dove;
                EXPECT_FALSE(b.S.ProgressBar1.Visible) << dove;
            } else {
                ++fermate;
                EXPECT_LE(b.Fronte.Arresti.size(), 2U) << dove; // a close that fails tells itself
            }
            b.Tutte();
            b.Fronte.Arresti.clear();
            mnuvorn_Click(b.S);
            EXPECT_TRUE(b.Fronte.Arresti.empty()) << dove;
            EXPECT_EQ(Listati(b), atteso) << dove;
        }
    EXPECT_GT(fermate, chiamate);
}

// The same for a failure that stays.
TEST(Guasti, CheDurano) {
    for (const char* operazione :
         {"ApriLettura", "ApriScrittura", "Leggi", "Scrivi", "Chiudi", "CreaDirectory", "Copia", "Adesso"})
        for (const char* fine :
             {"A.cls", "A.log", "C.bas", "C.log", "B.frm", "B.log", "Appoggio", "OK.LOG", ""})
            for (const int numero : {53, 55, 57, 61, 70, 75, 76}) {
                Banco b;
                Prepara(b);
                b.Disco.Fallisci(operazione, fine, numero);
                ASSERT_NO_THROW(mnuvorn_Click(b.S)) << operazione << ' ' << fine << ' ' << numero;
                EXPECT_TRUE(b.CanaliChiusi()) << operazione << ' ' << fine << ' ' << numero;
                for (const auto& [percorso, bytes] : Sorgenti()) EXPECT_EQ(b.Disco.Leggi(percorso), bytes);
            }
}

struct Caso {
    const char* Operazione;
    const char* Fine;
    int Numero, Volte;
    int Causa; // 0: the run goes on to its end
    const char* Selezione;
};
// clang-format off
const Caso Casi[] = {
    // 55 goes on after the statement: an opening that failed so shows at the next use, as 52.
    {"ApriLettura",   "A.cls", 55, 1, 52, "011"},
    {"ApriScrittura", "A.log", 55, 1, 52, "011"},
    {"ApriScrittura", "B.log", 55, 1, 52, "000"},
    // 76 repairs the name and tries the same statement again, but not for ever.
    {"ApriScrittura", "A.log", 76, 1, 0,  "000"},
    {"ApriScrittura", "A.log", 76, 9, 76, "011"},
    {"ApriLettura",   "A.cls", 76, 1, 0,  "000"},
    {"ApriLettura",   "A.cls", 76, 9, 76, "011"},
    // Any other number ends the run.
    {"ApriLettura",   "C.bas", 53, 1, 53, "001"},
    {"ApriScrittura", "C.log", 75, 1, 75, "001"},
    {"ApriScrittura", "C.log", 61, 1, 61, "001"},
    {"Leggi",         "C.bas", 57, 1, 57, "001"},
    {"Scrivi",        "A.log", 61, 1, 61, "011"},
    {"Adesso",        "",      5,  1, 5,  "011"},
    // A directory or a project copy that cannot be made shows later or not at all.
    {"CreaDirectory", "Appoggio", 75, 1, 76, "011"},
    {"ApriScrittura", "OK.LOG",   75, 1, 0,  "000"},
};
// clang-format on

TEST(Guasti, SecondoIlNumero) {
    for (const Caso& caso : Casi) {
        const std::string che = std::string(caso.Operazione) + ' ' + caso.Fine + ' ' + CStr(caso.Numero);
        Banco b;
        Prepara(b);
        b.Disco.Fallisci(caso.Operazione, caso.Fine, caso.Numero, caso.Volte);
        mnuvorn_Click(b.S);
        EXPECT_EQ(b.Fronte.Arresti.size(), caso.Causa ? 1U : 0U) << che;
        if (caso.Causa && !b.Fronte.Arresti.empty()) {
            EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, caso.Causa) << che;
        }
        EXPECT_EQ(b.Selezione(), caso.Selezione) << che;
    }
}

// A source in a missing directory is 76 at every try: the run ends once the repair changes nothing.
TEST(Guasti, SorgenteInDirectoryMancante) {
    Banco b;
    b.S.File1.AddItem("nulla\\A.frm");
    b.Modulo("Z.frm", "x\r\n");
    b.Tutte();
    mnuvorn_Click(b.S);
    ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 76);
    EXPECT_EQ(b.S.FileUscita, "\\p\\Appoggio\\A.log");
    EXPECT_EQ(b.Selezione(), "01");
}

// What fits on the disk stays, the rest is told.
TEST(Guasti, DiscoPieno) {
    Banco b;
    std::string righe;
    for (int i = 0; i < 20000; ++i) righe += "x = 1\r\n";
    b.Modulo("A.frm", righe);
    b.Tutte();
    b.Disco.FaiDirectory("/p/Appoggio");
    b.Disco.SpazioLibero = 150000;
    mnuvorn_Click(b.S);
    ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 61);
    const Testo log = b.Log("A.log");
    EXPECT_EQ(log.size(), 150000U);
    EXPECT_EQ(log.substr(0, 42), "000001        x = 1\r\n000002        x = 1\r\n");
}

// What the listing held up to a failure stays in the file.
TEST(Guasti, LaParteScrittaResta) {
    Banco b;
    std::string righe;
    for (int i = 0; i < 60000; ++i) righe += "x = 1\r\n"; // some blocks long
    b.Modulo("A.frm", righe);
    b.Tutte();
    int letture = 0;
    b.Disco.PrimaDiLeggere = [&](const std::string&) {
        if (++letture == 5) b.Disco.Fallisci("Leggi", "A.frm", 57, 1); // in the second pass
    };
    mnuvorn_Click(b.S);
    ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 57);
    const Testo log = b.Log("A.log");
    ASSERT_GT(log.size(), 100000U);
    EXPECT_EQ(log.size() % 21, 0U); // whole lines
    EXPECT_EQ(log.substr(log.size() - 10), "   x = 1\r\n");
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// What holds for every module: nothing but leading blanks changes, a second run changes nothing,
// and a disarranged module comes out like the tidy one.
#include <gtest/gtest.h>

#include <random>

#include "esame/generatore.h"
#include "formato/formato.h"

namespace morvella::formato {

namespace {

using esame::Genera;
using esame::Modulo;
using std::string;

Opzioni ACaso(std::mt19937& caso) {
    return {.Passo = 1 + static_cast<unsigned>(caso() % 8),
            .Tab = caso() % 4 == 0,
            .Case = static_cast<unsigned>(caso() % 2),
            .EtichetteNelCodice = caso() % 2 == 0,
            .DirettiveAlMargine = caso() % 2 == 0,
            .SenzaCode = caso() % 2 == 0};
}

// Every logical line moved by a random number of blanks. The head of a form and Attribute lines,
// which the layout leaves alone, are left alone here too.
string Disordina(std::mt19937& caso, const Modulo& modulo) {
    string testo;
    bool codice = false, continua = false;
    std::size_t spostata = 0;
    for (const esame::RigaModulo& r : modulo.Righe) {
        if (!continua) spostata = caso() % 24;
        continua = r.Testo.ends_with(" _");
        if (codice && !r.Testo.empty()) testo.append(spostata, ' ');
        testo += r.Testo + "\r\n";
        codice = codice || r.Testo.starts_with("Attribute");
    }
    return testo;
}

TEST(Proprieta, DisordineEOrdine) {
    std::mt19937 caso(20261122);
    for (int i = 0; i < 600; ++i) {
        const Modulo modulo = Genera(caso, {.Sbilanciati = i % 2 == 0, .Procedure = 1 + i % 6});
        const string testo = modulo.Testo();
        const Opzioni opzioni = ACaso(caso);
        const string copia = Formatta(testo, opzioni);
        ASSERT_FALSE(Confronta(testo, copia, opzioni.SenzaCode)) << testo;
        ASSERT_EQ(Formatta(copia, opzioni), copia) << testo;
        ASSERT_EQ(Formatta(Disordina(caso, modulo), opzioni), copia) << testo;
    }
}

// The generator lays its modules out itself: blocks by 4, Case at its Select, directives and labels
// at the margin. Comments stand with what is before them there, and numbers with the code.
TEST(Proprieta, ModuloOrdinatoRestaComE) {
    std::mt19937 caso(7);
    for (int i = 0; i < 300; ++i) {
        const Modulo modulo = Genera(caso, {.Procedure = 1 + i % 6});
        string resto = Formatta(modulo.Testo(), {.Case = 0, .DirettiveAlMargine = true});
        bool commento = false;
        for (const esame::RigaModulo& r : modulo.Righe) {
            const string riga = resto.substr(0, resto.find('\n') + 1);
            resto.erase(0, riga.size());
            const std::size_t testo = r.Testo.find_first_not_of(' ');
            const char c = testo == string::npos ? ' ' : r.Testo[testo];
            const bool altrove = commento || c == '\'' || c == '1' || r.Testo.find("Rem ") == testo;
            commento = c == '\'' && r.Testo.ends_with(" _");
            if (altrove) continue;
            ASSERT_EQ(riga, r.Testo + "\r\n") << modulo.Testo();
        }
    }
}

// Any bytes: nothing is lost, and a second run changes nothing.
TEST(Proprieta, ByteQualsiasi) {
    static constexpr const char* pezzi[] = {
        "If a Then",  "\n",      "\r\n",         "\r",      "Else",        "End If",
        " ",          "\t",      "#If x",        "#Else",   "#End If",     " _",
        "_",          "'",       "\"",           ":",       "Case 1",      "Select Case x",
        "End Select", "Sub A()", "\n",           "End Sub", "Next j,i",    "For i",
        "Rem ",       "100 ",    "Lbl:",         "\xA0",    "\x1A",        "VERSION 5",
        "Begin X",    "End",     "\xEF\xBB\xBF", "Type T",  "Attribute x", "\v",
        "[",          "#1/2/3#", "\n",           "\n"};
    std::mt19937 caso(11);
    for (int i = 0; i < 20000; ++i) {
        string testo;
        for (std::size_t n = caso() % 40; n > 0; --n) testo += pezzi[caso() % std::size(pezzi)];
        const Opzioni opzioni = ACaso(caso);
        const string copia = Formatta(testo, opzioni);
        ASSERT_FALSE(Confronta(testo, copia, opzioni.SenzaCode))
            << testing::PrintToString(testo) << testing::PrintToString(copia);
        ASSERT_EQ(Formatta(copia, opzioni), copia) << testing::PrintToString(testo);
    }
}

} // namespace

} // namespace morvella::formato

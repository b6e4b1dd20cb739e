// SPDX-License-Identifier: MIT
#include "banco.h"

namespace morvella::esame {

namespace {

TEST(EsameTesta, Sana) {
    for (const std::string_view testo : {
             "VERSION 5.00\nObject = \"{A}#1.0#0\"; \"X.OCX\"\nBegin VB.Form F \n  Caption = \"End\"\n  "
             "BeginProperty Font \n"
             "    Name = \"x\"\n  EndProperty\n  Begin VB.Menu M \n  End\nEnd\nAttribute VB_Name = "
             "\"F\"\nSub A()\nEnd Sub\n",
             "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nAttribute VB_Name = \"C\"\n",
             "\n\nversion\t5.00\r\nBegin X Y\r\n  If x Then\r\n  Begin = 3\r\n  For = 1\r\nend\r\n",
             "VERSION 5.00\nBegin {C0E45035-5775-11D0-B388-00A0C9055D8E} env \nEnd\n",
             "VERSION 5.00\nBegin A B\n  Attribute = 1\n  Attribute VB = 2\nEnd\n", // no attribute of the
                                                                                    // language
             "\xEF\xBB\xBFVERSION 5.00\nBegin A B\nEnd\n",
         })
        ProvaFile({testo, ""});
}

TEST(EsameTesta, Livelli) {
    for (const Caso& caso : std::initializer_list<Caso>{
             {"VERSION 5.00\nBegin A B\n  BeginProperty Font\nEnd\n",
              "aperto BeginProperty 3:3 nota 4 atteso EndProperty trovato End\n"},
             {"VERSION 5.00\nBegin A B\nEndProperty\nEnd\n",
              "senza-apertura BeginProperty 3:1 nota 3 trovato EndProperty\n"},
             {"VERSION 5.00\nBegin A B\nEnd\n End\nSub A()\nEnd Sub\n",
              "senza-apertura Begin 4:2 nota 4 trovato End\n"},
             {"VERSION 5.00\nBegin A B\n Begin C D\nAttribute VB_Name = \"F\"\n",
              "aperto Begin 3:2 nota 4 atteso End trovato Attribute\n"},
             {"VERSION 5.00\nBegin A B\n Begin C D\n End\nAttribute VB_Name = \"F\"\nNext\n",
              "aperto Begin 2:1 nota 5 atteso End trovato Attribute\nsenza-apertura For 6:1 nota 6 trovato "
              "Next\n"},
             {"VERSION 5.00\nBegin A B\n x = 1\n\n",
              "aperto Begin 2:1 nota 4 atteso End trovato fine file\n"},
             {"VERSION 5.00\nBeginProperty X\nEnd\nEndProperty\n",
              "senza-apertura Begin 3:1 nota 3 trovato End\n"},
             // The first line that is neither blank nor Object begins the code.
             {"VERSION 5.00\nBegin A B\nEnd\nIf x Then\n",
              "aperto If 4:1 nota 4 da 4 atteso End If trovato fine file\n"},
             {"VERSION 5.00\nObject=\"x\"\n\nNext\n", "senza-apertura For 4:1 nota 4 trovato Next\n"},
             // No head at all.
             {"Begin A B\n", ""},
             {"VERSION x\nBegin A B\n", ""},
             {"VERSION5\nBegin A B\n", ""},
         })
        ProvaFile(caso);
}

TEST(EsameTesta, NonTesto) {
    EXPECT_EQ(Detto(Esamina(std::string_view("Next\n\0", 6))), "non-testo 1:1 nota 1\n");
    std::string lungo = std::string(4096, ' ') + '\0' + "\nNext\n";
    EXPECT_EQ(Detto(Esamina(lungo)), "senza-apertura For 2:1 nota 2 trovato Next\n");
    lungo.erase(0, 1);
    EXPECT_EQ(Detto(Esamina(lungo)), "non-testo 1:1 nota 1\n");
    EXPECT_EQ(Detto(Esamina("")), "");
    EXPECT_EQ(Esamina("").Righe, 0u);
    EXPECT_EQ(Esamina("VERSION 5.00\nBegin A B\nEnd").Righe, 3u);
    EXPECT_EQ(Esamina("VERSION 5.00\nBegin A B\nEnd\nx\ny").Righe, 5u);
}

TEST(EsameRegole, IdStabili) {
    std::string s;
    for (const Regola& r : Regole()) {
        s.append(r.Id).append(" ").append(r.Nome).append("\n");
        EXPECT_EQ(&RegolaDi(r.Quale), &r);
    }
    EXPECT_EQ(s,
              "MV001 aperto\nMV002 senza-apertura\nMV003 scambiato\nMV004 fuori-posto\nMV005 prima-di-case\n"
              "MV006 non-terminato\nMV007 non-testo\n");
}

} // namespace

} // namespace morvella::esame

// SPDX-License-Identifier: MIT
#include "banco.h"

namespace morvella::esame {

namespace {

TEST(EsameCondizionale, Direttive) {
    for (const Caso& caso : std::initializer_list<Caso>{
             {"#If a Then\n#ElseIf b Then\n#Else\n#End If\n", ""},
             {"#If a Then\n#If b Then\n#Else\n#End If\n#Else\n#End If\n", ""},
             {"#Const a = 1\n", ""},
             {"#Else\n", "fuori-posto #If 1:1 nota 1 trovato #Else\n"},
             {"#ElseIf a Then\n", "fuori-posto #If 1:1 nota 1 trovato #ElseIf\n"},
             {" #End If\n", "senza-apertura #If 1:2 nota 1 trovato #End If\n"},
             {"#If a Then\n#Else\n#Else\n#ElseIf b Then\n#End If\n",
              "fuori-posto #If 3:1 nota 3 da 1 trovato #Else\nfuori-posto #If 4:1 nota 4 da 1 trovato "
              "#ElseIf\n"},
             {"#If a Then\n#If b Then\n#End If\nx\n",
              "aperto #If 1:1 nota 4 da 1 atteso #End If trovato fine file\n"},
         })
        ProvaFile(caso);
}

TEST(EsameCondizionale, Neutri) {
    for (const Caso& caso : std::initializer_list<Caso>{
             // All branches are read.
             {"#If a Then\nSub A()\nEnd Sub\n#Else\nSub B()\nEnd Sub\n#End If\n", ""},
             {"Sub A()\n#If a Then\nIf b Then\nElse\nEnd If\n#Else\nSelect Case c\nCase 1\nEnd Select\n#End "
              "If\nEnd Sub\n",
              ""},
             {"Sub A()\nSelect Case a\n#If b Then\nCase 1\n#Else\nCase 2\n#End If\nEnd Select\nEnd Sub\n",
              ""},
             {"Sub A()\nIf a Then\n#If b Then\nElseIf c Then\n#End If\nEnd If\nEnd Sub\n", ""},
             {"#If a Then\nEnum A\nIf\nSub\nEnd Enum\n#End If\n", ""},
             {"#If a Then\nType A\n#Else\nPrivate Type A\n#End If\nNext As Long\n#If b Then\nWith As "
              "Long\n#End If\nEnd Type\n",
              ""},
         })
        ProvaFile(caso);
}

TEST(EsameCondizionale, UnRamoSolo) {
    for (const Caso& caso : std::initializer_list<Caso>{
             // Heads that share a body.
             {"#If a Then\nFunction A(x)\n#Else\nFunction A(y)\n#End If\nx = 1\nEnd Function\n", ""},
             {"Sub A()\n#If a Then\nIf b Then\n#Else\nIf c Then\n#End If\nx\nEnd If\nEnd Sub\n", ""},
             // Opened in one group, closed in another; the branch is none in both or in neither.
             {"Sub A()\n#If a Then\nIf b Then\n#End If\nx\n#If a Then\nEnd If\n#End If\nEnd Sub\n", ""},
             // The first of two choices is wrong for both.
             {"Sub A()\n#If a Then\nIf b Then\n#Else\nFor i = 1 To 2\n#End If\nx\n#If Not a "
              "Then\nNext\n#Else\nEnd If\n#End If\nEnd Sub\n",
              ""},
             // Else alone in a branch.
             {"Sub A()\nIf a Then\n#If b Then\nElse\n#Else\nElse\n#End If\nx\nEnd If\nEnd Sub\n", ""},
             // One such group: it is read, and no other choice makes its error good.
             {"Sub A()\n#If a Then\nIf b Then\n#End If\nEnd Sub\n",
              "aperto If 3:1 nota 5 da 3 atteso End If trovato End Sub in A\n"},
             {"Sub A()\n#If a Then\nIf b Then\n#Else\nx\n#End If\nEnd Sub\n",
              "aperto If 3:1 nota 7 da 3 atteso End If trovato End Sub in A\n"},
             // A dead branch is not read, and not judged either.
             {"Sub A()\n#If False Then\nIf b Then\n#End If\nEnd Sub\n", ""},
             {"#If 0 Then\nSub A()\nNext\nEnd Sub\nSub B()\n#Else\nSub B()\n#End If\nEnd Sub\n", ""},
             {"Sub A()\n#If 1 Then\nIf b Then\n#End If\nEnd Sub\n",
              "aperto If 3:1 nota 5 da 3 atteso End If trovato End Sub in A\n"},
             // A dead neutral branch is read with the others.
             {"#If 0 Then\nSub A()\nEnd Sub\nEnd Sub\n#Else\n#End If\n", ""},
             // Nested: the inner group closes what the outer branch opens.
             {"Sub A()\n#If a Then\nIf b Then\n#If c Then\nx\nEnd If\n#Else\nEnd If\n#End If\n#End If\nEnd "
              "Sub\n",
              ""},
         })
        ProvaFile(caso);
}

TEST(EsameCondizionale, RamiNonLetti) {
    for (const Caso& caso : std::initializer_list<Caso>{
             // Of the branch that is not read, the procedure B is judged alone, the head of A is not.
             {"#If a Then\nSub A(x)\n#Else\nSub B()\nNext\nEnd Sub\nSub A(y)\n#End If\nEnd Sub\n",
              "senza-apertura For 5:1 nota 5 trovato Next in B\n"},
             {"#If a Then\nSub A(x)\n#Else\n#If b Then\nType B\nEnd Enum\n#End If\nSub A(y)\n#End If\nEnd "
              "Sub\n",
              "scambiato Type 6:1 nota 6 da 5 atteso End Type trovato End Enum in B\n"},
         })
        ProvaFile(caso);
}

TEST(EsameCondizionale, ProveLimitate) {
    // Whatever is chosen, each group opens a block: far more combinations than can be tried.
    std::string testo = "Sub A()\n";
    for (int i = 0; i < 400; ++i)
        testo += "#If a Then\nIf b Then\n#ElseIf c Then\nDo\n#Else\nFor i = 1 To 2\n#End If\n";
    testo += "End Sub\n";
    const Esame esame = Esamina(testo);
    EXPECT_EQ(esame.Rilievi.size(), 400u);
}

} // namespace

} // namespace morvella::esame

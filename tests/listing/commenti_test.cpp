// SPDX-License-Identifier: MIT
//
// Comments in the listing, kept and left out.
#include "listing/banco.h"

namespace morvella {

namespace {

using namespace prove;

// clang-format off
struct Commento {
    const char* Riga;
    std::string Spenta; // what the second line of the listing is with TogliCommenti off
    std::string Accesa; // ... and on; "" where it is left out
};
const Commento Commenti[] = {
    {"'* testo",       "2|···",                "2|···"},
    {"'*",             "2|···",                "2|···"},
    {"  '*testo   ",   "2|···",                "2|···"},
    {"' testo",        "2|···' testo",         ""},
    {"'testo",         "2|···'testo",          ""},
    {"'",              "2|···'",               ""},
    {"' *",            "2|···' *",             ""},
    {"''* x",          "2|···''* x",           ""},
    {"Rem testo",      "2|···Rem testo",       "2|···Rem testo"},
    {"\t'testo",       "2|···\t'testo",        "2|···\t'testo"},
    {"\t'* testo",     "2|···\t'* testo",      "2|···\t'* testo"},
    {"x = 1 ' resta",  "2|···x = 1 ' resta",   "2|···x = 1 ' resta"},
    {"",               "2|···",                "2|···"},
    {"     ",          "2|···",                "2|···"},
};
// clang-format on

TEST(Commenti, OgniForma) {
    for (const Commento& caso : Commenti)
        for (const int togli : {0, 1, 2}) { // a box that is neither on nor off takes nothing away
            Banco b;
            b.S.TogliCommenti = togli;
            const std::string& seconda = togli == 1 ? caso.Accesa : caso.Spenta;
            std::vector<std::string> atteso = {"1|···x", seconda, "3|···y"};
            if (seconda.empty()) atteso.erase(atteso.begin() + 1);
            EXPECT_EQ(ListatoDi(b, {"x", caso.Riga, "y"}), Listato(atteso)) << caso.Riga << ' ' << togli;
        }
}

TEST(Commenti, NelMargineDiUnBlocco) {
    Banco b;
    b.S.TogliCommenti = 1;
    EXPECT_EQ(ListatoDi(b, {"If a Then", "'* testo", "' via", "End 'resta", "End If"}),
              Listato({"1|···┌─>If a Then", "2|···│··", "4|···│··End 'resta", "5|···└─>End If"}));
}

} // namespace

} // namespace morvella

// SPDX-License-Identifier: MIT
//
// The proof of a copy and the diff.
#include <gtest/gtest.h>

#include "formato/formato.h"

namespace morvella::formato {

namespace {

using std::string;
using std::string_view;

TEST(Confronta, SoloIRientri) {
    struct Caso {
        string_view Sorgente, Copia;
        bool Code = false;
        std::uint32_t Riga = 0; // 0: equal
    };
    const Caso casi[] = {
        {"", ""},
        {"a\r\n b\n", "\ta\r\nb\n"},
        {"   \n", "\n"},
        {"a\nb", "a\nb\n", false, 2},     // a line end more
        {"a\nb\n", "a\nb\n\n", false, 3}, // a line more
        {"a\nb\n", "a\n", false, 2},      // one less
        {"a\nb\n", "", false, 1},
        {"a\n  ", "a\n", false, 2}, // a last line of blanks is a line
        {"a\nb\n", "b\na\n", false, 1},
        {"a b\n", "a  b\n", false, 1}, // inside the text
        {"a\n", "A\n", false, 1},
        {"a\r\n", "a\n", false, 1}, // the line end
        {"a\rb\n", "ab\n", false, 1},
        {"\xA0 a\n", "a\n", false, 1}, // a no-break blank is text
        {"a \n", "a\n", false, 1},
        {"a \t\r\n", "a\r\n", true},
        {"a \r\n", "a\n", true, 1},
        {"a  ", "a", true},
        {"x = \"a  ", "x = \"b  ", true, 1},
    };
    for (const Caso& c : casi) {
        const auto diversa = Confronta(c.Sorgente, c.Copia, c.Code);
        EXPECT_EQ(diversa ? diversa->Riga : 0, c.Riga) << c.Sorgente << '|' << c.Copia;
    }
    const auto diversa = Confronta("a\n b \n", "a\nc\n", false);
    ASSERT_TRUE(diversa);
    EXPECT_EQ(diversa->Sorgente, " b \n");
    EXPECT_EQ(diversa->Copia, "c\n");
}

TEST(Confronta, RigheCambiate) {
    EXPECT_EQ(RigheCambiate("a\nb\nc", "a\n b\n c"), 2U);
    EXPECT_EQ(RigheCambiate("a\n", "a\n"), 0U);
}

TEST(Differenze, Unite) {
    EXPECT_EQ(Differenze("a\n", "a\n", "x", "y"), "");
    EXPECT_EQ(Differenze("a\n b\nc", "a\nb\n c", "x", "y"),
              "--- x\n+++ y\n@@ -1,3 +1,3 @@\n a\n- b\n-c\n\\ No newline at end of file\n+b\n+ c\n"
              "\\ No newline at end of file\n");
    EXPECT_EQ(
        Differenze("a", " a", "x", "y"),
        "--- x\n+++ y\n@@ -1 +1 @@\n-a\n\\ No newline at end of file\n+ a\n\\ No newline at end of file\n");
    // Six lines between two changes are one hunk, seven are two.
    const string prima = " 1\n2\n3\n4\n5\n6\n7\n 8\n";
    EXPECT_EQ(Differenze(prima, "1\n2\n3\n4\n5\n6\n7\n8\n", "x", "y"),
              "--- x\n+++ y\n@@ -1,8 +1,8 @@\n- 1\n+1\n 2\n 3\n 4\n 5\n 6\n 7\n- 8\n+8\n");
    EXPECT_EQ(
        Differenze(" 1\n2\n3\n4\n5\n6\n7\n8\n 9\n10\n", "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n", "x", "y"),
        "--- x\n+++ y\n@@ -1,4 +1,4 @@\n- 1\n+1\n 2\n 3\n 4\n@@ -6,5 +6,5 @@\n 6\n 7\n 8\n- 9\n+9\n 10\n");
}

} // namespace

} // namespace morvella::formato

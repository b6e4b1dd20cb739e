// SPDX-License-Identifier: MIT
#include "text/codifica.h"

#include <gtest/gtest.h>

#include "text/testo.h"

namespace morvella {

namespace {

// The characters of the bytes 128 to 255 in UTF-8, sixteen a row; the five bytes without a
// character are control characters of the same number.
// clang-format off
constexpr const char* Alti[128] = {
    "€", "\xC2\x81", "‚", "ƒ", "„", "…", "†", "‡", "ˆ", "‰", "Š", "‹", "Œ", "\xC2\x8D", "Ž", "\xC2\x8F",
    "\xC2\x90", "‘", "’", "“", "”", "•", "–", "—", "˜", "™", "š", "›", "œ", "\xC2\x9D", "ž", "Ÿ",
    "\xC2\xA0", "¡", "¢", "£", "¤", "¥", "¦", "§", "¨", "©", "ª", "«", "¬", "\xC2\xAD", "®", "¯",
    "°", "±", "²", "³", "´", "µ", "¶", "·", "¸", "¹", "º", "»", "¼", "½", "¾", "¿",
    "À", "Á", "Â", "Ã", "Ä", "Å", "Æ", "Ç", "È", "É", "Ê", "Ë", "Ì", "Í", "Î", "Ï",
    "Ð", "Ñ", "Ò", "Ó", "Ô", "Õ", "Ö", "×", "Ø", "Ù", "Ú", "Û", "Ü", "Ý", "Þ", "ß",
    "à", "á", "â", "ã", "ä", "å", "æ", "ç", "è", "é", "ê", "ë", "ì", "í", "î", "ï",
    "ð", "ñ", "ò", "ó", "ô", "õ", "ö", "÷", "ø", "ù", "ú", "û", "ü", "ý", "þ", "ÿ",
};
// clang-format on

TEST(Codifica, OgniByteVaETorna) {
    for (int n = 0; n < 256; ++n) {
        const Testo byte = Chr(n);
        const std::string utf8 = n < 128 ? byte : std::string(Alti[n - 128]);
        EXPECT_EQ(Utf8Da1252(byte), utf8) << n;
        EXPECT_EQ(Bytes1252DaUtf8(utf8), byte) << n;
    }
}

TEST(Codifica, Testi) {
    EXPECT_EQ(Utf8Da1252("perch\xE9 \x80"), "perché €");
    EXPECT_EQ(Bytes1252DaUtf8("perché €"), "perch\xE9 \x80");
    EXPECT_EQ(Utf8Da1252(""), "");
    EXPECT_EQ(Bytes1252DaUtf8(""), "");
}

TEST(Codifica, NonPassa) {
    const char* const casi[] = {
        "プロジェクト",     // characters that Windows-1252 does not have
        "e\xCC\x81",        // e and a combining accent
        "\xC2\x80",         // U+0080: the byte 128 is the euro sign
        "\xC2\x9F",         // U+009F: the byte 159 is a letter
        "\xF0\x9F\x98\x80", // beyond 16 bits
        "\xE9",             // a byte alone
        "a\x80",            // the second byte of nothing
        "\xC3",             // cut short
        "\xE2\x82",         // cut short
        "\xC0\xAF",         // "/" spelled too long
        "\xC1\xBF",
        "\xE0\x82\xA9", // © spelled too long
        "\xF0\x82\x82\xAC",
        "\xED\xA0\x80", // half of a pair
        "\xF4\x90\x80\x80",
        "\xF8\x88\x80\x80\x80",
        "\xFF",
        "\xC3(",
    };
    for (const char* caso : casi) EXPECT_EQ(Bytes1252DaUtf8(caso), std::nullopt) << caso;
}

TEST(Codifica, SoloAscii) {
    EXPECT_TRUE(SoloAscii(""));
    EXPECT_TRUE(SoloAscii("a\x7F"));
    EXPECT_FALSE(SoloAscii("a\x80"));
    EXPECT_FALSE(SoloAscii("\xFF"));
}

TEST(Codifica, Mostrabile) {
    // Terminals obey control characters: their pictures stand in for them.
    for (int n = 0; n < 256; ++n) {
        const std::string utf8 = Utf8Da1252(Chr(n));
        std::string atteso = utf8;
        if (n < 32 && n != 9) {
            atteso = "\xE2\x90";
            atteso += static_cast<char>(0x80 + n); // U+2400 and on
        } else if (n == 127) {
            atteso = "\u2421";
        } else if (n == 129 || n == 141 || n == 143 || n == 144 || n == 157) {
            atteso = "\uFFFD";
        }
        EXPECT_EQ(Mostrabile(Chr(n)), atteso) << n;
        EXPECT_EQ(MostrabileUtf8(utf8), atteso) << n;
        EXPECT_EQ(Mostrabile(Chr(n), true), n == 10 ? "\n" : atteso) << n;
        EXPECT_EQ(MostrabileUtf8(utf8, true), n == 10 ? "\n" : atteso) << n;
    }
    EXPECT_EQ(Mostrabile("a\r\nb", true), "a\u240D\nb");
    EXPECT_EQ(Mostrabile("perch\xE9\x1B[0m"), "perché\u241B[0m");
    EXPECT_EQ(MostrabileUtf8("\u00A0\u00C2\u20AC"), "\u00A0\u00C2\u20AC"); // C2 begins other characters too
    EXPECT_EQ(MostrabileUtf8("a\xC2"), "a\xC2");                           // cut off: left alone
    EXPECT_EQ(MostrabileUtf8(""), "");
}

} // namespace

} // namespace morvella

// The keys by which names of books are compared.

#include "book_names.h"

#include <gtest/gtest.h>
#include <unicode/unistr.h>

#include <string>

namespace {

using Kedrin::ModTool::nameKey;

TEST(BookNames, KeyHoldsLettersAndDigitsWithoutCase)
{
    EXPECT_EQ(nameKey("Изх."), "изх");
    EXPECT_EQ(nameKey(" Песен на ПЕСНИТЕ "), "песеннапесните");
    EXPECT_EQ(nameKey("1-ва (Кор.) № 7"), "1вакор7");
    EXPECT_EQ(nameKey(""), "");
    EXPECT_EQ(nameKey(" .,-"), "");
}

TEST(BookNames, LeadingRomanNumeralsUpToFourAreDigits)
{
    EXPECT_EQ(nameKey("I Цар."), "1цар");
    EXPECT_EQ(nameKey("1 Цар."), "1цар");
    EXPECT_EQ(nameKey("ii John"), "2john");
    EXPECT_EQ(nameKey("III Мак"), "3мак");
    EXPECT_EQ(nameKey("Iv x"), "4x");
    EXPECT_EQ(nameKey("V x"), "vx");
    EXPECT_EQ(nameKey("iiii x"), "iiiix");
    EXPECT_EQ(nameKey("III"), "iii");
    EXPECT_EQ(nameKey("Isa 1"), "isa1");
    EXPECT_EQ(nameKey(" I x"), "ix") << "not at the beginning";
}

TEST(BookNames, KeysOfEqualTextsAreEqual)
{
    EXPECT_EQ(nameKey("\u0418\u0306оан"), nameKey("\u0419оан")) << "composed";
    EXPECT_EQ(nameKey("STRASSE"), nameKey("straße")) << "folded to more letters";
    EXPECT_EQ(nameKey("\U00010400x"), "\U00010428x") << "beyond 16 bits";
    EXPECT_EQ(nameKey("\U0001F4D6 Рут"), "рут") << "a symbol beyond 16 bits";
}

// Names of plain letters are folded without the Unicode library; a letter of another alphabet makes it fold all of them.
TEST(BookNames, KeysOfPlainLettersAreThoseOfTheUnicodeLibrary)
{
    for (UChar32 character = 1; character < 0x600; ++character) {
        std::string name = "Ж";
        icu::UnicodeString(character).toUTF8String(name);
        name += "I ъ";
        EXPECT_EQ("é" + nameKey(name), nameKey("é" + name)) << "U+" << std::hex << character;
    }
}

TEST(BookNames, InvalidBytesAreNoLetters)
{
    EXPECT_EQ(nameKey("Из\xFFх"), "изх");
    EXPECT_EQ(nameKey("Gen\xD0"), "gen");
}

} // namespace

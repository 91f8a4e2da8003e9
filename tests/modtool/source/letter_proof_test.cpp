// The letters taken by a reader are compared with the source.

#include "errors.h"
#include "letter_proof.h"
#include "letters.h"
#include "thrown.h"
#include "xml_letters.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;

namespace {

const std::string fileName = "f.xml";

std::string lettersOf(std::string_view utf8)
{
    std::string letters;
    appendLetters(utf8, letters);
    return letters;
}

/// The error of the proof for an XML source from which a reader took these letters; "" if they agree.
std::string complaint(const std::string& xml, const std::string& taken)
{
    try {
        proveXmlLetters(fileName, xml, taken);
        return "";
    } catch (const CBuildError& ex) {
        return ex.what();
    }
}

std::string fault(const std::string& line, const std::string& source, const std::string& read)
{
    return "f.xml:" + line + ": the source has \"" + source + "\" here, but \"" + read +
           "\" was read; this is a bug in kedrin-module, please report it";
}

} // namespace

TEST(LetterCount, AreUnicodesLettersAndNumbers)
{
    EXPECT_EQ(lettersOf("a1 \u0431\u0300-\u00BD\u2164\u05D0\U00010330_\u20AC."),
              "a1\u0431\u00BD\u2164\u05D0\U00010330");
    EXPECT_EQ(countLetters("a1 \u0431\u0300-\u00BD\u2164\u05D0\U00010330_\u20AC."), 7u);
    EXPECT_EQ(countLetters(""), 0u);
}

TEST(LetterCount, AgreeWithTheCategoryOfEveryCharacter)
{
    for (UChar32 c = 0; c <= 0x10FFFF; ++c) {
        if (U_IS_SURROGATE(c))
            continue;
        std::string utf8;
        icu::UnicodeString(c).toUTF8String(utf8);
        const auto type = u_charType(c);
        const bool isLetter = (type >= U_UPPERCASE_LETTER && type <= U_OTHER_LETTER) ||
                              (type >= U_DECIMAL_DIGIT_NUMBER && type <= U_OTHER_NUMBER);
        ASSERT_EQ(countLetters(utf8), isLetter ? 1u : 0u) << std::hex << c;
    }
}

TEST(LetterCount, OfWindows1251AreThoseOfUnicode)
{
    EXPECT_EQ(countLettersOf1251("a1 \xC0\xFF\xA8\xB5-\x98\x88\xB9"), 6u); // А я Ё µ, not € nor №
}

TEST(LetterProof, SameLettersPassWhateverElementsTheyStandIn)
{
    const std::string xml = "<a>one<b x='no'>t\u0432o</b><!-- no -->\n<c><![CDATA[3<]]></c>&amp;&#x431;</a>";
    EXPECT_EQ(complaint(xml, "onet\u0432o3\u0431"), "");
    EXPECT_EQ(proveXmlLetters(fileName, xml, "onet\u0432o3\u0431"), 8u);
}

/// To look for the end of each reference through the whole text would take hours.
TEST(LetterProof, AnyNumberOfAmpersandsIsNoReference)
{
    CLetterProof proof(fileName, "ab");
    proof.compareMarkedText("&#x61;" + std::string(8u << 20, '&') + "b", 1);
    EXPECT_EQ(proof.finish(1), 2u);
}

TEST(LetterProof, LostLettersAreNamedWithTheirLine)
{
    EXPECT_EQ(complaint("<a>one\ntwo\nsix</a>", "onesix"), fault("2", "two", "six"));
}

TEST(LetterProof, ChangedAndSwappedLettersAreFound)
{
    EXPECT_EQ(complaint("<a>\u0431\u0432</a>", "\u0432\u0431"), fault("1", "\u0431\u0432", "\u0432\u0431"));
    EXPECT_EQ(complaint("<a>\u0431\u0432</a>", "\u0431\u0433"), fault("1", "\u0432", "\u0433"));
}

TEST(LetterProof, LettersAtTheEndAreFound)
{
    EXPECT_EQ(complaint("<a>one\n</a>", "on"), fault("1", "e", ""));
    EXPECT_EQ(complaint("<a>one\n</a>", "ones"), fault("2", "", "s"));
}

TEST(LetterProof, WhatIsNotWellFormedIsRefused)
{
    EXPECT_EQ(complaint("<a>\n<b></a>", ""), "f.xml:2: not well-formed XML: mismatched tag");
}

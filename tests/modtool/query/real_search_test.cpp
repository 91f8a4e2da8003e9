// The search in real texts, compared with an independent count from the source text: Unicode folding and
// simple comparison with ICU, verse by verse, without module, word list or scan.

#include "build.h"
#include "cp1251.h"
#include "made_lines.h"
#include "sword_access.h"
#include "temp_folder.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace {

using namespace Kedrin::ModTool;
using Kedrin::Tolvo::CBible;
using Kedrin::Tolvo::CRef;

/// A source and the module built from it.
class RealText
{
public:
    explicit RealText(const std::string& source)
    {
        CTerminalProgress progress(nullptr);
        m_source = readSource(source, {}, CSword(), progress);
        BuildOptions options;
        options.substitute = true;
        buildModule(m_source, m_folder.file("module"), options, "", progress);
    }

    /// Verses of the source that contain the text; ignoring case with `foldCase`.
    std::size_t countInSource(const std::string& text, bool foldCase) const
    {
        const auto prepared = [&](std::string_view utf8) {
            icu::UnicodeString string =
                icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), int(utf8.size())));
            return foldCase ? string.foldCase() : string;
        };
        const icu::UnicodeString needle = prepared(text);
        return static_cast<std::size_t>(
            std::count_if(m_source.verses.begin(), m_source.verses.end(), [&](const SourceVerse& verse) {
                return prepared(m_source.textOf(verse)).indexOf(needle) >= 0;
            }));
    }

    std::size_t countInModule(const std::string& text, bool wholeWord, bool caseSensitive) const
    {
        std::vector<CRef> hits;
        CBible(m_folder.file("module")).search(text, wholeWord, caseSensitive, hits);
        return hits.size();
    }

    /// Verses of the source in which no letter precedes or follows the text; an apostrophe, point or colon
    /// between letters counts as a letter.
    std::size_t countWholeWords(const std::string& text) const
    {
        const icu::UnicodeString needle = icu::UnicodeString::fromUTF8(text).foldCase();
        const auto isLetterAt = [](const icu::UnicodeString& verse, int at) {
            return at >= 0 && at < verse.length() && u_isalnum(verse.char32At(at));
        };
        const auto goesOn = [&](const icu::UnicodeString& verse, int at, int step) {
            const bool joins = at >= 0 && at < verse.length() &&
                               icu::UnicodeString(u"'\u2019.:").indexOf(verse.charAt(at)) >= 0;
            return isLetterAt(verse, at) || (joins && isLetterAt(verse, at + step));
        };
        return static_cast<std::size_t>(
            std::count_if(m_source.verses.begin(), m_source.verses.end(), [&](const SourceVerse& position) {
                const std::string_view utf8 = m_source.textOf(position);
                const icu::UnicodeString verse =
                    icu::UnicodeString::fromUTF8(icu::StringPiece(utf8.data(), int(utf8.size()))).foldCase();
                for (int at = verse.indexOf(needle); at >= 0; at = verse.indexOf(needle, at + 1))
                    if (!goesOn(verse, at - 1, -1) && !goesOn(verse, at + needle.length(), 1))
                        return true;
                return false;
            }));
    }

private:
    test_support::TempFolder m_folder;
    SourceBible m_source;
};

void expectAgreement(const RealText& text, const std::vector<std::string>& needles)
{
    for (const std::string& needle : needles) {
        std::string bytes;
        icu::UnicodeString units = icu::UnicodeString::fromUTF8(needle);
        for (int i = 0; i < units.length(); ++i)
            bytes.push_back(ut::to_cp1251(char32_t(units[i])).value());
        const std::size_t found = text.countInSource(needle, true);
        EXPECT_GT(found, 0u) << needle;
        EXPECT_EQ(text.countInModule(bytes, false, false), found) << needle;
        EXPECT_EQ(text.countInModule(bytes, false, true), text.countInSource(needle, false)) << needle;
        EXPECT_EQ(text.countInModule(bytes, true, false), text.countWholeWords(needle)) << needle;
    }
}

TEST(RealSearch, AgreesWithACountOfTheEnglishSource)
{
    expectAgreement(RealText("sword:engKJV2006eb"), {"lord", "Jesus", "the", "Selah", "firmament", "begat"});
}

TEST(RealSearch, AgreesWithACountOfAMadeCyrillicSource)
{
    const test_support::TempFolder folder;
    const std::string lines = build_test::cyrillicLines("KJV", {"Gen", "Matt"});
    expectAgreement(RealText(folder.write("made.vpl", lines)),
                    {"лорд", "Йесус", "тхе", "фирмамент", "бегат", "И"}); // "Lord", "Jesus", case-sensitive
}

#ifdef KEDRIN_TEST_DATA

TEST(RealSearch, AgreesWithACountOfTheBulgarianSource)
{
    expectAgreement(RealText(KEDRIN_TEST_DATA "/bg-kjv-matt.vpl"), {"Исус", "бог", "и", "царство", "Петър"});
}

#endif

} // namespace

// Letters of the Cyrillic alphabets, and the conversion of those that Windows-1251 lacks.

#include "build_fixture.h"

#include <sstream>

namespace {

using build_test::Result;

class Letters : public build_test::Building
{
protected:
    Result buildText(const std::string& text, const std::vector<std::string>& options) const
    {
        return build("Gen\t1\t1\t" + text + "\n", options);
    }

    static std::string replacedLines(const Result& result)
    {
        std::istringstream report(result.out);
        std::string lines;
        for (std::string line; std::getline(report, line);)
            if (line.starts_with("replaced"))
                lines += line.substr(line.find("U+")) + '\n';
        return lines;
    }
};

TEST_F(Letters, OfTheNationalAlphabetsStayAsTheyAre)
{
    for (const char* text : {"щъьюя ЩЪЬЮЯ", "ёыэ ЁЫЭ", "ђћјљњџ ЂЋЈЉЊЏ", "ѓќѕ ЃЌЅ", "ґєії ҐЄІЇ", "ў Ў"}) {
        const Result result = buildText(text, {});
        ASSERT_EQ(result.code, 0) << result.err;
        EXPECT_EQ(verse(0, 0, 0), text);
        EXPECT_EQ(replacedLines(result), "");
    }
}

TEST_F(Letters, BulgarianIWithGraveIsAlwaysReplacedAndCounted)
{
    for (const std::vector<std::string>& options :
         {std::vector<std::string>(), std::vector<std::string>{"--substitute"}}) {
        const Result result = buildText("Ѝ ѝ и\u0300 и", options); // the third is composed first
        ASSERT_EQ(result.code, 0) << result.err;
        EXPECT_EQ(verse(0, 0, 0), "И и и и");
        EXPECT_EQ(replacedLines(result),
                  "U+040D CYRILLIC CAPITAL LETTER I WITH GRAVE with \"И\", 1 time, first at Gen 1:1\n"
                  "U+045D CYRILLIC SMALL LETTER I WITH GRAVE with \"и\", 2 times, first at Gen 1:1\n");
    }
}

TEST_F(Letters, IeWithGraveIsAlwaysReplacedAndCounted)
{
    const Result result = buildText("Ѐ ѐ е\u0300", {});
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 0, 0), "Е е е");
    EXPECT_EQ(replacedLines(result),
              "U+0400 CYRILLIC CAPITAL LETTER IE WITH GRAVE with \"Е\", 1 time, first at Gen 1:1\n"
              "U+0450 CYRILLIC SMALL LETTER IE WITH GRAVE with \"е\", 2 times, first at Gen 1:1\n");
}

TEST_F(Letters, GraveStressOfAnyCyrillicLetterIsAlwaysRemovedAndCounted)
{
    const Result result =
        buildText("а\u0300 О\u0300 у\u0300 ъ\u0300 ю\u0300 я\u0300 э\u0300 ы\u0300 і\u0300 ї\u0340", {});
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 0, 0), "а О у ъ ю я э ы і ї");
    EXPECT_EQ(replacedLines(result), "U+0300 COMBINING GRAVE ACCENT removed, 10 times, first at Gen 1:1\n");
}

TEST_F(Letters, GraveOfAnotherLetterIsRemovedOnlyWithSubstitute)
{
    EXPECT_EQ(refusal("Gen\t1\t1\tа\u0300 q\u0300 è\n"),
              "kedrin-module: the text contains characters that Windows-1251 lacks (--substitute "
              "replaces them):\n"
              "  U+00E8 LATIN SMALL LETTER E WITH GRAVE, 1 time, first at Gen 1:1\n"
              "  U+0300 COMBINING GRAVE ACCENT, 1 time, first at Gen 1:1\n");
    const Result result = buildText("а\u0300 q\u0300 è", {"--substitute"});
    EXPECT_EQ(verse(0, 0, 0), "а q e");
}

TEST_F(Letters, LatinLetterWithGraveInACyrillicWordIsItsCyrillicLookAlike)
{
    const Result sound = buildText("сè „Èва“ e\u0300те тù дò вàс зìма бý\u0300", {"--substitute"});
    ASSERT_EQ(sound.code, 0) << sound.err;
    EXPECT_EQ(verse(0, 0, 0), "се „Ева“ ете ти до вас зіма бу");
    const Result always = buildText("сè „Èва“ e\u0300те тù дò вàс", {});
    ASSERT_EQ(always.code, 0) << always.err;
    EXPECT_EQ(verse(0, 0, 0), "се „Ева“ ете ти до вас");
    EXPECT_EQ(replacedLines(always),
              "U+00C8 LATIN CAPITAL LETTER E WITH GRAVE with \"Е\", 1 time, first at Gen 1:1\n"
              "U+00E0 LATIN SMALL LETTER A WITH GRAVE with \"а\", 1 time, first at Gen 1:1\n"
              "U+00E8 LATIN SMALL LETTER E WITH GRAVE with \"е\", 2 times, first at Gen 1:1\n"
              "U+00F2 LATIN SMALL LETTER O WITH GRAVE with \"о\", 1 time, first at Gen 1:1\n"
              "U+00F9 LATIN SMALL LETTER U WITH GRAVE with \"и\", 1 time, first at Gen 1:1\n");
}

TEST_F(Letters, LatinLetterWithAnotherAccentInACyrillicWordIsReplacedWithSubstitute)
{
    EXPECT_NE(refusal("Gen\t1\t1\tвáс\n").find("U+00E1 LATIN SMALL LETTER A WITH ACUTE, 1 time"),
              std::string::npos);
    const Result result = buildText("вáс сé кóй ýтро знâк", {"--substitute"});
    EXPECT_EQ(verse(0, 0, 0), "вас се кой утро знак");
}

TEST_F(Letters, LatinDiaeresisInACyrillicWordIsALetterOfTheEncoding)
{
    const Result result = buildText("всë моï", {});
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 0, 0), "всё мої");
}

TEST_F(Letters, LatinWordsKeepTheirLatinLetters)
{
    const Result result = buildText("café caféто è è-то сèé", {"--substitute"});
    EXPECT_EQ(verse(0, 0, 0), "cafe cafeто e e-то сее");
    EXPECT_NE(result.out.find("U+00E9 LATIN SMALL LETTER E WITH ACUTE with \"e\", 2 times"),
              std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("U+00E9 LATIN SMALL LETTER E WITH ACUTE with \"е\", 1 time"), std::string::npos)
        << result.out;
}

TEST_F(Letters, StressMarksAreRemovedWithSubstituteAndCounted)
{
    EXPECT_NE(refusal("Gen\t1\t1\tза\u0301мък\n").find("U+0301 COMBINING ACUTE ACCENT, 1 time"),
              std::string::npos);
    const Result result = buildText("за\u0301мък замъ\u0301к", {"--substitute"});
    EXPECT_EQ(verse(0, 0, 0), "замък замък");
    EXPECT_EQ(replacedLines(result), "U+0301 COMBINING ACUTE ACCENT removed, 2 times, first at Gen 1:1\n");
}

/// To order all marks of a letter at once would take hours.
TEST_F(Letters, OneLetterMayHaveAnyNumberOfMarks)
{
    constexpr std::size_t pairs = 1u << 20;
    std::string text = "а";
    for (std::size_t i = 0; i < pairs; ++i)
        text += "\u0301\u0323";
    const Result result = buildText(text + " б", {"--substitute"});
    EXPECT_EQ(verse(0, 0, 0), "а б");
    EXPECT_NE(replacedLines(result).find("U+0301 COMBINING ACUTE ACCENT removed, 1048576 times"),
              std::string::npos)
        << replacedLines(result);
}

TEST_F(Letters, AreComposedFirst)
{
    const Result result = buildText("и\u0306 е\u0308 і\u0308 г\u0301 к\u0301 у\u0306", {});
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 0, 0), "й ё ї ѓ ќ ў");
    EXPECT_EQ(replacedLines(result), "");
}

TEST_F(Letters, OfTheOldOrthographyHaveTheirSuccessors)
{
    const Result result =
        buildText("Ѣ ѣ Ѫ ѫ Ѭ ѭ Ѧ ѧ Ѩ ѩ Ѳ ѳ Ѵ ѵ Ѡ ѡ Ѹ ѹ Ѯ ѯ Ѱ ѱ Ѥ ѥ Ꙗ ꙗ Ꙋ ꙋ", {"--substitute"});
    ASSERT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(verse(0, 0, 0), "Е е Ъ ъ Я я Я я Я я Ф ф И и О о У у Кс кс Пс пс Е е Я я У у");
    EXPECT_NE(result.out.find(
                  "replaced      U+0463 CYRILLIC SMALL LETTER YAT with \"е\", 1 time, first at Gen 1:1\n"),
              std::string::npos)
        << result.out;
}

TEST_F(Letters, OfEveryFormatAreReplacedAlike)
{
    const std::string text = "ѝ за\u0301 ѣ љ";
    const std::pair<const char*, std::string> sources[] = {
        {"a.vpl", "Gen\t1\t1\t" + text},
        {"a.usfm", "\\id GEN\n\\c 1\n\\v 1 " + text},
        {"a.osis", "<osis><osisText><verse osisID='Gen.1.1'>" + text + "</verse></osisText></osis>"},
        {"a.xml", "<XMLBIBLE><BIBLEBOOK bnumber='1'><CHAPTER cnumber='1'><VERS vnumber='1'>" + text +
                      "</VERS></CHAPTER></BIBLEBOOK></XMLBIBLE>"}};
    for (const auto& [name, content] : sources) {
        const Result result =
            build_test::run({"build", m_folder.write(name, content), made(), "--substitute"});
        ASSERT_EQ(result.code, 0) << name << result.err;
        EXPECT_EQ(verse(0, 0, 0), "и за е љ") << name;
        EXPECT_EQ(replacedLines(result),
                  "U+0301 COMBINING ACUTE ACCENT removed, 1 time, first at Gen 1:1\n"
                  "U+045D CYRILLIC SMALL LETTER I WITH GRAVE with \"и\", 1 time, first at Gen 1:1\n"
                  "U+0463 CYRILLIC SMALL LETTER YAT with \"е\", 1 time, first at Gen 1:1\n")
            << name;
    }
}

} // namespace

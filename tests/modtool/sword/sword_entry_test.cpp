// Raw SWORD entries: what is text, what is omitted and counted, and that nothing else is lost.

#include "letters.h"
#include "random_entry.h"
#include "sword_elements.h"
#include "sword_entry.h"
#include "sword_markup.h"

#include <gtest/gtest.h>

namespace {

using build_test::preverse;
using build_test::randomEntry;
using build_test::verseBegin;
using Kedrin::ModTool::beginsInside;
using Kedrin::ModTool::countLetters;
using Kedrin::ModTool::endsInside;
using Kedrin::ModTool::lettersOfEntry;
using Kedrin::ModTool::plainConfiguration;
using Kedrin::ModTool::readSwordEntry;
using Kedrin::ModTool::SourceFindings;
using Kedrin::ModTool::SwordEntry;
using Kedrin::ModTool::SwordEntryContext;

SwordEntry readAt(const std::string& raw, const SwordEntryContext& context, SourceFindings& findings)
{
    const SwordEntry text = readSwordEntry(raw, context, findings);
    EXPECT_EQ(countLetters(text.verse) + countLetters(text.title) + text.leftOut, lettersOfEntry(raw)) << raw;
    EXPECT_EQ(text.verse.find('\0'), std::string::npos) << raw;
    return text;
}

/// Replaces sequences of spaces by one, and removes those at the ends.
std::string folded(const std::string& text)
{
    std::string line;
    for (const char c : text) {
        const char folded = c == '\n' || c == '\t' ? ' ' : c;
        if (folded != ' ' || (!line.empty() && line.back() != ' '))
            line += folded;
    }
    return line.ends_with(' ') ? line.substr(0, line.size() - 1) : line;
}

std::string textOf(const std::string& raw)
{
    SourceFindings findings;
    return folded(readAt(raw, {"Gen 1:1"}, findings).verse);
}

std::string reportOf(const std::string& raw, const SwordEntryContext& context = {"Gen 1:1"})
{
    SourceFindings findings;
    readAt(raw, context, findings);
    return findings.text();
}

TEST(SwordEntry, VerseThatBeginsInAPsalmTitleIsWhole)
{
    EXPECT_EQ(
        textOf(preverse + "<title canonical=\"true\" type=\"psalm\">" + verseBegin +
               "Псалом Давидов.</title><lg sID=\"a\"/><l sID=\"b\"/>Господи, кой ще живее…<l eID=\"b\"/>"),
        "Псалом Давидов. Господи, кой ще живее…");
    EXPECT_EQ(textOf(preverse + "<title canonical=\"true\">Псалом " + verseBegin + "Давидов.</title>Господи"),
              "Псалом Давидов. Господи");
    EXPECT_EQ(textOf("Псалом.</title> Господи <title>Сион</title>край"), "Псалом. Господи край");
}

TEST(SwordEntry, VerseThatBeginsInAHeadingIsWhole)
{
    const std::string raw = preverse + "<title>Глава " + verseBegin + "трети</title> стих";
    EXPECT_EQ(textOf(raw), "трети стих");
    EXPECT_EQ(reportOf(raw), "left out      1 title, first at Gen 1:1\n");
}

TEST(SwordEntry, TagsWithoutAPartnerLeaveNothingOut)
{
    for (const char* tag : {"title", "note", "speaker", "head", "scripRef", "figure", "divineName", "hi", "q",
                            "seg type=\"x-variant\" subType=\"x-2\"", "div class=\"sechead\"", "RF", "TS"}) {
        const std::string name = std::string(tag).substr(0, std::string(tag).find(' '));
        EXPECT_EQ(textOf("едно <" + std::string(tag) + ">две"), "едно две") << tag;
        EXPECT_EQ(textOf("едно </" + name + ">две"), "едно две") << tag;
    }
    EXPECT_EQ(textOf("едно <Rf>две <Ts>три"), "едно две три");
    EXPECT_EQ(textOf(preverse + "едно"), "едно");
    EXPECT_EQ(textOf(verseBegin + "едно"), "едно");
}

TEST(SwordEntry, NestedElementsEndWithTheirOwnTags)
{
    EXPECT_EQ(textOf("а<note>б<note>в</note>г</note> д"), "а д");
    EXPECT_EQ(textOf("<title>а<title>б</title>в</title>г"), "г");
    EXPECT_EQ(textOf("<title canonical=\"true\">а<title>б</title>в<note>г</note></title>д"), "а б в д");
    EXPECT_EQ(textOf("<title canonical=\"true\">а<title canonical=\"false\">б</title>в</title>г"), "а в г");
    EXPECT_EQ(textOf("<title>а<title canonical=\"true\">б</title>в</title>г"), "б г");
    EXPECT_EQ(textOf("<note>а<title canonical=\"true\">б</title></note>в"), "в");
    EXPECT_EQ(textOf("<seg type=\"x-variant\" subType=\"x-2\">а<seg type=\"x\">б</seg>в</seg>г"), "г");
    EXPECT_EQ(textOf("<title>а<note>б</title>в</note>г"), "вг") << "tags that cross";
}

TEST(SwordEntry, HeadingsBesidePsalmTitlesAreLeftOut)
{
    const std::string raw = preverse +
                            "<title>1 Защита</title><title type=\"psalm\" canonical=\"true\">Псалом."
                            "</title><title>Глас</title>" +
                            verseBegin + "Господи";
    EXPECT_EQ(textOf(raw), "Псалом. Господи");
    EXPECT_EQ(reportOf(raw), "left out      2 titles, first at Gen 1:1\n");
}

TEST(SwordEntry, WhatStandsBeforeTheVerseIsOutside)
{
    const std::string raw = preverse + "<p>Предговор</p>" + verseBegin + "едно";
    EXPECT_EQ(textOf(raw), "едно");
    EXPECT_EQ(reportOf(raw), "left out      1 text outside the verses, first at Gen 1:1\n");
    EXPECT_EQ(textOf(preverse + "<p canonical=\"true\">Псалом</p>" + verseBegin + "едно"), "Псалом едно");
}

TEST(SwordEntry, EmphasisLeavesNoSigns)
{
    EXPECT_EQ(textOf("darkness <hi type=\"italic\">was</hi> upon"), "darkness was upon");
    EXPECT_EQ(textOf("<hi type=\"bold\">а<hi type=\"italic\">б</hi>в</hi>г &amp; <hi>&lt;д</hi>"),
              "абвг & <д");
    EXPECT_EQ(textOf("<hi type=\"overline\">ИС</hi>"), "ИС");
    EXPECT_EQ(textOf("<hi rend=\"italic\">а</hi> <etym>б</etym> <sense n=\"1\">в</sense>"), "а б в");
}

TEST(SwordEntry, SignsOfTheSourceAloneAreText)
{
    EXPECT_EQ(textOf("<w lemma=\"strong:G1\" morph=\"x:N\" gloss=\"g\" xlit=\"x\" POS=\"n\">а</w>"), "а");
    EXPECT_EQ(textOf("In<WG1722> the beginning<WG746><WTN>"), "In the beginning");
    EXPECT_EQ(textOf("<sync type=\"Strongs\" value=\"G1\"/>а<br/>б"), "а б");
    EXPECT_EQ(textOf("<list><item>а</item><item>б</item></list>"), "а б");
    EXPECT_EQ(textOf("a < b > c << d"), "a < b > c << d");
    EXPECT_EQ(textOf("AT&T &c. & край"), "AT&T &c. & край");
    EXPECT_EQ(textOf("<w gloss=\"a>b\">в</w><!-- <г> -->д<!---->е"), "вде");
    EXPECT_EQ(textOf("<!-->а"), "<!-->а") << "no end";
}

TEST(SwordEntry, ReferencesAreCharacters)
{
    EXPECT_EQ(textOf("&#1073;&#x431;&amp;&quot;&apos;&agrave;&none;"), "бб&\"'à&none;");
    EXPECT_EQ(textOf("<CA65><CA66>x<CG>"), "ABx>");
    EXPECT_EQ(textOf("&#0;&#1114112;&#xD800;"), "&#0;&#1114112;&#xD800;");
    EXPECT_EQ(textOf("&am<b>p;</b>"), "&amp;") << "no reference: a tag stands in it";
}

TEST(SwordEntry, NotesDivideWordsButNotOneThatIsMarked)
{
    EXPECT_EQ(textOf("едно<note>б</note>две"), "едно две");
    EXPECT_EQ(textOf("а<note>б</note>в"), "а в") << "texts of one letter";
    EXPECT_EQ(textOf("а<note>б</note><note>в</note>, г"), "а, г");
    EXPECT_EQ(textOf("<w>Гос<note>б</note>под</w>"), "Господ");
    EXPECT_EQ(textOf("<w>Господ<note><w>б</w></note></w>каза"), "Господ каза");
    EXPECT_EQ(textOf("„Да бъде.<note>а</note><q>“</q><note>б</note>"), "„Да бъде.“");
    EXPECT_EQ(textOf("светлина.<note>а</note>“"), "светлина.“");
}

TEST(SwordEntry, WordsAcrossLinesAndTitlesStandApart)
{
    EXPECT_EQ(textOf("<l>а</l><l>б</l><p>в</p>г<lb/>д<title>е</title>ж"), "а б в г д ж");
    EXPECT_EQ(textOf("едно\r\nдве\nтри"), "едно\r две три");
}

TEST(SwordEntry, NameOfGodIsInCapitals)
{
    EXPECT_EQ(textOf("the <divineName>Lord</divineName>’s"), "the LORD’s");
    EXPECT_EQ(textOf("<divineName>Lord<seg>’s</seg></divineName>"), "Lord’s");
    EXPECT_EQ(textOf("<divineName>stra\u00DFe \u0345</divineName>"), "STRA\u00DFE \u0345") << "one for one";
}

TEST(SwordEntry, EveryMarkupHasItsNotesHeadingsAndReadings)
{
    EXPECT_EQ(textOf("а<RF>б<Rf> в<TS>г<Ts>д<RX>е<Rx> ж"), "а в д ж");
    EXPECT_EQ(textOf("<div class=\"sechead\">а</div>б<scripRef passage=\"Gen 1:1\">в</scripRef> г"), "б г");
    EXPECT_EQ(textOf("<div type=\"variant\" class=\"1\">а</div><div type=\"variant\" class=\"2\">б</div>"),
              "а");
    EXPECT_EQ(textOf("<app><rdg type=\"primary\">а</rdg><rdg type=\"variant\">б</rdg></app>"), "а");
    EXPECT_EQ(
        textOf(
            "<seg type=\"x-variant\" subType=\"x-1\">а</seg><seg type=\"x-variant\" subType='x-2'>б</seg>"),
        "а");
    EXPECT_EQ(textOf("<figure>а<caption>б</caption></figure>в<speaker>г</speaker><head>д</head>е"), "в е");
}

TEST(SwordEntry, EndsWithItsBook)
{
    const std::string raw = "край.<div eID=\"g1\" osisID=\"Rev\" type=\"book\"/><div>речник</div>";
    EXPECT_EQ(textOf(raw), "край.");
    EXPECT_EQ(reportOf(raw), "left out      1 text outside the verses, first at Gen 1:1\n");
    EXPECT_EQ(textOf("а<div eID=\"g1\" type=\"x-p\"/>б"), "а б");
}

TEST(SwordEntry, NoteThatGoesOnInTheNextEntryIsLeftOutOfBoth)
{
    EXPECT_TRUE(endsInside("а <note>б", "note"));
    EXPECT_FALSE(endsInside("а <note>б</note>", "note"));
    EXPECT_TRUE(beginsInside("б</note> в", "note"));
    EXPECT_FALSE(beginsInside("<note>б</note> в", "note"));
    SourceFindings findings;
    SwordEntryContext context{"Gen 1:1"};
    context.noteGoesOn = true;
    EXPECT_EQ(folded(readAt("а <note>б", context, findings).verse), "а");
    context = {"Gen 1:2"};
    context.beginsInNote = true;
    EXPECT_EQ(folded(readAt("б</note> в", context, findings).verse), "в");
    EXPECT_EQ(findings.text(), "left out      1 note, first at Gen 1:1\n");
}

TEST(SwordEntry, PsalmTitleOfAChapterGoesToItsFirstVerse)
{
    SourceFindings findings;
    const SwordEntryContext chapter{"Ps 3", SwordEntryContext::Kind::chapter};
    EXPECT_EQ(
        folded(readAt("<title>а</title><title canonical=\"true\">Псалом </title>в", chapter, findings).title),
        "Псалом");
    EXPECT_EQ(findings.text(), "left out      1 title, first at Ps 3\n"
                               "left out      1 text outside the verses, first at Ps 3\n");
    EXPECT_EQ(folded(readAt("<title canonical=\"true\">Псалом ", chapter, findings).title), "Псалом");
    const SwordEntryContext book{"Ps", SwordEntryContext::Kind::introduction};
    EXPECT_EQ(readAt("<title canonical=\"true\">Псалтир</title>", book, findings).title, "");
}

TEST(SwordEntry, DamagedMarkupIsTolerated)
{
    for (const char* raw :
         {"<", "a<note", "</note>", "<note></note><", "a</note>b</note", "<div ", "</>", "<>", "< >", "<!--",
          "<w a=\"", "&", "&;", "&#;", "&#x;", "<CA>", "<CA65", "<R>", "<T"})
        EXPECT_LE(textOf(raw).size(), std::string_view(raw).size()) << raw;
}

TEST(SwordEntry, LettersOfAnyEntryAreInItsTextOrInTheReport)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> coin(0, 1);
    for (int i = 0; i < 20000; ++i) {
        SourceFindings findings;
        SwordEntryContext context{"Gen 1:1", static_cast<SwordEntryContext::Kind>(i % 3)};
        context.beginsInNote = coin(random) != 0;
        context.noteGoesOn = coin(random) != 0;
        context.titleGoesOn = coin(random) != 0;
        readAt(randomEntry(random), context, findings);
        if (HasFailure())
            return;
    }
}

struct Generated
{
    std::string raw;
    std::string words; ///< the words that are text
};

/// Well-formed OSIS: nested elements, each word known to be text or omitted.
void addElements(Generated& entry, std::mt19937& random, int depth, bool isText)
{
    static const std::vector<std::pair<std::string, bool>> elements{
        {"w", true},           {"hi", true},    {"l", true},        {"p", true},       {"seg", true},
        {"transChange", true}, {"note", false}, {"speaker", false}, {"figure", false}, {"q", true}};
    std::uniform_int_distribution<std::size_t> which(0, elements.size() - 1);
    std::uniform_int_distribution<int> count(0, 3);
    for (int i = count(random); i >= 0; --i) {
        const std::string word = "д" + std::to_string(entry.raw.size());
        entry.raw += ' ' + word + ' ';
        entry.words += isText ? (entry.words.empty() ? "" : " ") + word : "";
        if (depth == 0)
            continue;
        const auto& [name, keeps] = elements[which(random)];
        entry.raw += '<' + name + '>';
        addElements(entry, random, depth - 1, isText && keeps);
        entry.raw += "</" + name + '>';
    }
}

TEST(SwordEntry, WordsOfAnyWellFormedEntryAreAllThereInTheirOrder)
{
    std::mt19937 random(2);
    for (int i = 0; i < 2000; ++i) {
        Generated entry;
        addElements(entry, random, 3, true);
        ASSERT_EQ(textOf(entry.raw), entry.words) << entry.raw;
    }
}

TEST(SwordConfiguration, IsPlainText)
{
    EXPECT_EQ(plainConfiguration("a\\par b\\line c"), "a\nb\nc");
    EXPECT_EQ(plainConfiguration("{\\b bold} \\u8217?x"), "bold ’x");
    EXPECT_EQ(plainConfiguration("see <a href=\"x\">here</a>"), "see here");
    EXPECT_EQ(plainConfiguration("\\"), "");
}

} // namespace

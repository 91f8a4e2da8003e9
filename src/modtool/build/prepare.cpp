#include "prepare.h"

#include "cp1251.h"
#include "diff_effect.h"
#include "diff_records.h"
#include "diff_search.h"
#include "errors.h"
#include "global_books.h"
#include "letters.h"
#include "messages.h"
#include "module_data.h"
#include "module_format.h"
#include "module_layout.h"
#include "substitutes.h"
#include "text_columns.h"
#include "versification.h"

#include <algorithm>
#include <iterator>

namespace Kedrin::ModTool {

namespace {

/// Letters of Windows-1251 text.
std::uint64_t lettersIn(std::string_view text)
{
    const auto isLetterByte = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return (byte | 0x20u) - 'a' < 26u || byte >= 0xC0;
    };
    return static_cast<std::uint64_t>(std::count_if(text.begin(), text.end(), isLetterByte));
}

void refuseUnfitText(const CTextEncoder& encoder, std::string_view text)
{
    const std::uint64_t lost = encoder.lostLetters();
    const std::uint64_t all = lettersIn(text) + lost;
    if (lost * 100 > all)
        throw CUnfitText(message("%s of %s letters have no equivalent in Windows-1251", lost, all));
}

void refuseForeignCharacters(const CTextEncoder& encoder, const SourceBible& source)
{
    std::string list;
    for (const auto& [character, kind] : encoder.foreign())
        if (!kind.isAlways)
            list += "\n  " + message("%s, %s, first at %s", describeCharacter(character.codePoint),
                                     counted(kind.count, "time", "times"),
                                     source.positionOf(source.verses[kind.firstPosition]));
    if (!list.empty())
        throw CBuildError(
            tr("the text contains characters that Windows-1251 lacks (--substitute replaces them):") + list);
}

void reportReplaced(const CTextEncoder::Kinds& kinds, const SourceBible& source, BuildReport& report)
{
    for (const auto& [character, kind] : kinds)
        report.replaced.push_back(
            {character.codePoint, kind, source.positionOf(source.verses[kind.firstPosition])});
}

/// Appends a verse to `text` and checks that none of its letters are lost.
ModuleData::Verse encodeVerse(const SourceBible& source, std::uint32_t index, CTextEncoder& encoder,
                              std::string& text)
{
    const std::string_view utf8 = source.textOf(source.verses[index]);
    const std::size_t offset = text.size();
    const std::int64_t changeBefore = encoder.letterChange();
    encoder.encode(utf8, index, text);
    const std::int64_t change = encoder.letterChange() - changeBefore;
    const auto given = static_cast<std::int64_t>(countLetters(utf8)) + change;
    const auto found = static_cast<std::int64_t>(countLettersOf1251(std::string_view(text).substr(offset)));
    if (given != found)
        throw CBuildError(
            message("%s: %s letters and digits were read, but %s are accounted for; this is a bug in "
                    "kedrin-module, please report it",
                    source.positionOf(source.verses[index]), given, found));
    return {static_cast<std::uint32_t>(offset), static_cast<std::uint32_t>(text.size() - offset)};
}

/// The global number of each book of the source; books without one are counted in the report.
std::vector<std::optional<unsigned int>> globalIDsOfBooks(const SourceBible& source, BuildReport& report)
{
    std::vector<std::optional<unsigned int>> globals;
    for (const std::string& osis : source.books)
        globals.push_back(globalIDOf(osis));
    std::vector<std::uint64_t> verseCounts(source.books.size(), 0);
    std::vector<std::uint64_t> letters(source.books.size(), 0); // of the books left out
    for (const SourceVerse& verse : source.verses) {
        ++verseCounts[verse.book];
        if (!globals[verse.book])
            letters[verse.book] += countLetters(source.textOf(verse));
    }
    for (std::size_t book = 0; book < source.books.size(); ++book)
        if (!globals[book])
            report.omittedBooks.push_back({source.books[book], verseCounts[book], letters[book]});
    if (!source.books.empty() && report.omittedBooks.size() == source.books.size())
        throw CBuildError(tr("none of the source's books is in the global numbering"));
    return globals;
}

std::string titleLine(const std::string& wanted, const std::string& offered, const char* name)
{
    std::string title = encodedTitle(wanted.empty() ? offered : wanted);
    if (title.empty())
        throw CBuildError(message("the %s is empty", tr(name)));
    if (title.size() > maxLineBytes)
        throw CBuildError(
            message("the %s has %s bytes; the limit is %s", tr(name), title.size(), maxLineBytes));
    return title;
}

ModuleInfo moduleInfo(const SourceInfo& source, const BuildOptions& options)
{
    const auto orElse = [](const std::string& title, const std::string& longer) {
        return title.empty() ? longer : title;
    };
    const std::string full = orElse(options.fullTitle, source.fullTitle);
    const std::string brief = orElse(options.shortTitle, orElse(source.shortTitle, full));
    return {titleLine(options.fullTitle, source.fullTitle, translatable("full title")),
            titleLine(options.shortTitle, orElse(source.shortTitle, full), translatable("short title")),
            titleLine(options.abbreviatedTitle, orElse(source.abbreviatedTitle, brief),
                      translatable("abbreviated title")),
            wrappedLines(options.copyright.value_or(source.copyright))};
}

BookTitles titlesOf(const ModuleBook& book)
{
    const GlobalBook& common = globalBooks()[book.globalID];
    return {ut::to_cp1251(common.fullTitle), ut::to_cp1251(common.shortTitle),
            ut::to_cp1251(common.abbreviatedTitle)};
}

/// The titles of the module's books: Bulgarian, or the source's if it has any.
std::vector<BookTitles> bookTitles(const SourceBible& source, const std::vector<ModuleBook>& books,
                                   bool sourceTitles)
{
    std::vector<BookTitles> titles;
    for (const ModuleBook& book : books) {
        titles.push_back(titlesOf(book));
        const auto found = std::find(source.books.begin(), source.books.end(), book.osis);
        const auto index = static_cast<std::size_t>(found - source.books.begin());
        if (!sourceTitles || index >= source.bookTitles.size())
            continue;
        for (const auto title :
             {&BookTitles::fullTitle, &BookTitles::shortTitle, &BookTitles::abbreviatedTitle})
            if (const std::string& own = source.bookTitles[index].*title; !encodedTitle(own).empty())
                titles.back().*title = titleLine("", own, translatable("title of a book"));
    }
    return titles;
}

WordIndex indexWords(const ModuleData& module, BuildReport& report)
{
    CWordIndexer indexer;
    for (unsigned int verseNum = 0; verseNum < module.verses.size(); ++verseNum) {
        indexer.add(module.verse(verseNum), verseNum);
        if (indexer.count() > maxCheckedWords)
            throw CBuildError(message("the text has more than %s different words", maxCheckedWords));
    }
    if (const auto& words = indexer.longWords(); words.count != 0)
        report.longWords = {words.count, positionInModule(module, words.firstVerse)};
    return indexer.finish();
}

/// @param given  records to use instead of choosing them
void chooseNumbering(ModuleData& module, const std::string& named, const std::optional<std::string>& given,
                     BuildReport& report)
{
    const CVersification versification =
        named.empty() ? CVersification::bestFor(module.books) : CVersification(named);
    report.versification = versification.name();
    report.versificationGuessed = named.empty();
    module.versePairs = versePairs(module.books, versification);
    report.diff.versesCount = static_cast<unsigned int>(module.verses.size());
    report.diff.withoutPosition =
        report.diff.versesCount - static_cast<unsigned int>(module.versePairs.size());
    module.diff = chooseDiffRecords(module.versePairs, report.diff);
    if (!given)
        return;
    module.diff = parseDiffRecords(*given);
    report.diff.roundTrips = CDiffEffect(module.diff).shifts().roundTripCount(module.versePairs);
}

void countModule(const ModuleData& module, BuildReport& report)
{
    report.title = toUtf8(module.info.fullTitle);
    report.booksCount = module.books.size();
    for (const ModuleBook& book : module.books)
        report.chaptersCount += book.versesCount.size();
    report.versesCount = module.verses.size();
    report.wordsCount = module.words.words.size();
    report.occurrences = module.words.occurrences;
}

} // namespace

std::vector<std::string> wrappedLines(const std::vector<std::string>& paragraphs)
{
    const auto bytesThatFit = [](std::string_view text) { return std::min(text.size(), maxLineBytes); };
    std::vector<std::string> lines;
    for (const std::string& paragraph : paragraphs)
        std::ranges::move(brokenLines(encodedTitle(paragraph), bytesThatFit), std::back_inserter(lines));
    return lines;
}

ModuleData prepareModule(const SourceBible& source, const BuildOptions& options, BuildReport& report)
{
    ModuleData module;
    module.info = moduleInfo(source.info, options);
    const auto globals = globalIDsOfBooks(source, report);

    CTextEncoder encoder;
    module.text.reserve(source.text.size());
    std::vector<ModuleData::Verse> encoded(source.verses.size(), {0, 0});
    for (std::uint32_t i = 0; i < source.verses.size(); ++i) {
        const SourceVerse& verse = source.verses[i];
        if (!globals[verse.book])
            continue;
        encoded[i] = encodeVerse(source, i, encoder, module.text);
    }
    if (options.refuseUnfitText)
        refuseUnfitText(encoder, module.text);
    if (!options.substitute)
        refuseForeignCharacters(encoder, source);
    report.findings = source.findings;
    report.letters = {source.letters, source.attributeLetters, encoder.letterChange(), 0};
    reportReplaced(encoder.softHyphens(), source, report);
    reportReplaced(encoder.foreign(), source, report);

    layOut(source, globals, encoded, module, report);
    module.bookTitles =
        bookTitles(source, module.books, options.sourceTitles.value_or(source.info.keepsTitles));
    module.words = indexWords(module, report);
    const bool isNamed = !options.versification.empty();
    chooseNumbering(module, isNamed ? options.versification : source.versification,
                    isNamed ? std::nullopt : source.info.differences, report);
    countModule(module, report);
    return module;
}

} // namespace Kedrin::ModTool

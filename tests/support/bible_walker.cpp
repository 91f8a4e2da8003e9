#include "bible_walker.h"

#include <algorithm>
#include <functional>
#include <ios>
#include <stdexcept>

namespace test_support {

namespace {

using namespace Kedrin::Tolvo;

// A damaged structure may have millions of verses; the first verses of a chapter and the last one are enough.
constexpr unsigned int atMost = 300;

void check(bool holds, const char* what)
{
    if (!holds)
        throw std::logic_error(std::string("check failed: ") + what);
}

/// Whether the call returned without throwing std::out_of_range.
bool answered(const std::function<void()>& ask)
{
    try {
        ask();
        return true;
    } catch (const std::out_of_range&) {
        return false;
    }
}

/// Like answered(), but an error for a damaged file also returns false.
bool answeredOrDamaged(const std::function<void()>& ask)
{
    try {
        return answered(ask);
    } catch (const std::ios_base::failure&) {
        return false;
    }
}

const std::vector<std::string>& searchedParts()
{
    static const std::vector<std::string> parts = {std::string(), std::string(1, '\0'), "\xE5",
                                                   "\xC1\xEE\xE3", std::string(70000, 'x')};
    return parts;
}

void forEveryChapter(const CBible& bible, const std::function<void(unsigned int, unsigned int)>& use)
{
    for (unsigned int book = 0; book < std::min(bible.booksCount(), atMost); ++book)
        for (unsigned int chapter = 0; chapter < std::min(bible.chaptersCount(book), atMost); ++chapter)
            use(book, chapter);
}

void forEveryVerse(const CBible& bible, const std::function<void(const CRef&)>& use)
{
    forEveryChapter(bible, [&](unsigned int book, unsigned int chapter) {
        const unsigned int verseCount = bible.versesCount(book, chapter);
        for (unsigned int verse = 0; verse < std::min(verseCount, atMost); ++verse)
            use(CRef(book, chapter, verse, false));
        if (verseCount > 0)
            use(CRef(book, chapter, verseCount - 1, false));
    });
}

void walkHits(const CBible& bible, const std::vector<CRef>& hits)
{
    for (const CRef& hit : hits) {
        check(hit.isGlobal(), "a hit is global");
        hit.toString(&bible);
        answered([&] { check(bible.toLocal(hit).isLocal(), "a local reference"); });
    }
}

} // namespace

void walkAnswers(const CBible& bible)
{
    for (const unsigned int globalBookID : {0u, 1u, 2u, 76u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        const bool present = bible.hasBook(globalBookID);
        const std::string titles = bible.fullTitle(globalBookID) + bible.shortTitle(globalBookID) +
                                   bible.abbreviatedTitle(globalBookID);
        check(present || titles.empty(), "a missing book has no title");
        check(present == answered([&] { bible.toLocal(CRef(globalBookID, 1, 0, true)); }), "book or no book");
    }
    forEveryVerse(bible, [&](const CRef& local) {
        check(bible.toGlobal(local).isGlobal(), "a global reference");
        check(bible.toGlobal(local).toString(&bible).find(':') != std::string::npos, "chapter and verse");
    });
    for (unsigned int i = 0; i < bible.wordsCount(); ++i)
        bible.indexOfWord(bible.getWord(i));
    check(!answered([&] { bible.getWord(bible.wordsCount()); }), "the word after the last");
    check(!answered([&] { bible.chaptersCount(bible.booksCount()); }), "the book after the last");
    bible.info()->copyright();
    bible.demoString();
}

void walkVerses(const CBible& bible)
{
    forEveryVerse(bible, [&](const CRef& local) {
        answered([&] { check(bible[local].size() <= 0xFFFF, "a verse has at most 65535 bytes"); });
        answered([&] { bible[bible.toGlobal(local)]; });
    });
}

void walkChapters(const CBible& bible)
{
    forEveryChapter(bible, [&](unsigned int book, unsigned int chapter) {
        answeredOrDamaged([&] {
            const std::vector<std::string> verses = bible.chapterVerses(book, chapter);
            check(verses.size() == bible.versesCount(book, chapter), "all verses of the chapter");
            for (unsigned int verse = 0; verse < std::min<std::size_t>(verses.size(), atMost); ++verse)
                check(verses[verse] == bible[CRef(book, chapter, verse, false)], "the same verse");
        });
    });
}

void walkScans(const CBible& bible)
{
    for (const bool caseSensitive : {false, true}) {
        for (const std::string& part : searchedParts()) {
            std::vector<CRef> hits;
            answered([&] { bible.search(part, false, caseSensitive, hits); });
            walkHits(bible, hits);
        }
    }
}

void walkWords(const CBible& bible)
{
    for (unsigned int i = 0; i < std::min(bible.wordsCount(), atMost); ++i) {
        std::vector<CRef> hits;
        answered([&] { bible.search(bible.getWord(i), true, false, hits); });
        walkHits(bible, hits);
    }
}

void walkSearches(const CBible& bible)
{
    const auto search = [&](const std::string& text, bool wholeWord, bool caseSensitive) {
        std::vector<CRef> hits;
        answeredOrDamaged([&] { bible.searchVerses(text, wholeWord, caseSensitive, hits); });
        walkHits(bible, hits);
    };
    for (const bool caseSensitive : {false, true})
        for (const std::string& part : searchedParts())
            search(part, false, caseSensitive);
    for (unsigned int i = 0; i < std::min(bible.wordsCount(), atMost); ++i)
        search(bible.getWord(i), true, false);
}

bool isPromisedEnd(const std::string& line)
{
    const std::string let = " let out an exception that its contract does not name: ";
    const std::string vectorError = "CFileVector::operator [](): IO error";
    for (const char* operation : {"CBible::operator []()", "CBible::search()"})
        for (const std::string& error : {vectorError, std::string("CBibleText::operator [](): I/O error")})
            if (line == operation + let + error)
                return true;
    return false;
}

} // namespace test_support

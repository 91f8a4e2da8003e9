#include "walkers.h"

#include "text_reader.h"
#include "tolvo_bible.h"

#include <algorithm>
#include <fstream>
#include <ios>
#include <iterator>
#include <stdexcept>

namespace test_support {

namespace {

using namespace Kedrin::Tolvo;

void require(bool holds, const char* rule)
{
    if (!holds)
        throw std::logic_error(rule);
}

/// The message of a reader that fails to open; empty if `open` succeeds. The handler is here so that later
/// exceptions are not mistaken for it.
template <typename Open>
std::string refusalOf(Open open)
{
    try {
        open();
        return {};
    } catch (const std::ios_base::failure& ex) {
        require(*ex.what() != '\0', "a refusal says something");
        return ex.what();
    }
}

template <typename Query>
bool isOutOfRange(Query query)
{
    try {
        query();
        return false;
    } catch (const std::out_of_range&) {
        return true;
    }
}

/// The reference of a number must map back to it, unless it is in an empty book or chapter.
void checkNumber(const CBibleStructure& structure, unsigned int num)
{
    const CRef ref = structure.toRef(num);
    require(!ref.isGlobal() && !ref.isLocal() && !ref.isNull(), "toRef gives a reference of unknown type");
    if (!isOutOfRange([&] { structure.ValidateRef(ref); }))
        require(structure.toNum(ref) == num, "toNum undoes toRef");
    else
        require(ref.verse() == 0, "a place that is no verse is the beginning of an empty book or chapter");
}

void checkStructure(const CBibleStructure& structure)
{
    unsigned int verses = 0;
    for (unsigned int book = 0; book < structure.booksCount(); ++book) {
        for (unsigned int chapter = 0; chapter < structure.chaptersCount(book); ++chapter) {
            const unsigned int count = structure.versesCount(book, chapter);
            if (count > 0) {
                require(structure.toNum(CRef(book, chapter, 0)) == verses, "chapters follow each other");
                checkNumber(structure, verses);
                checkNumber(structure, verses + count - 1);
            }
            require(isOutOfRange([&] { structure.toNum(CRef(book, chapter, count)); }), "verses end");
            verses += count;
        }
        require(isOutOfRange([&] { structure.versesCount(book, structure.chaptersCount(book)); }),
                "chapters end");
    }
    require(verses == structure.totalVersesCount(), "the total is the sum");
    require(isOutOfRange([&] { structure.chaptersCount(structure.booksCount()); }), "books end");
    require(isOutOfRange([&] { structure.toRef(structure.totalVersesCount()); }), "verse numbers end");
}

void checkTitles(const CTitles& titles)
{
    for (unsigned int book = 0; book < titles.booksCount(); ++book) {
        (void)(titles.fullTitle(book) + titles.shortTitle(book) + titles.abbreviatedTitle(book));
        const unsigned int globalID = titles.globalID(book);
        if (titles.hasBook(globalID))
            require(titles.localID(globalID) <= book, "the first of equal books is found");
        else
            require(globalID == 0xFFFFFFFF, "a book that is not found has no number");
    }
    require(isOutOfRange([&] { titles.fullTitle(titles.booksCount()); }), "books end");
}

} // namespace

std::string walkStructure(const std::string& path, unsigned int booksCount)
{
    std::unique_ptr<CBibleStructure> structure;
    std::string refusal =
        refusalOf([&] { structure = std::make_unique<CBibleStructure>(path.c_str(), booksCount); });
    if (structure != nullptr) {
        require(structure->booksCount() == booksCount, "as many books as asked for");
        checkStructure(*structure);
    }
    return refusal;
}

std::string walkTitles(const std::string& path)
{
    std::unique_ptr<CTitles> titles;
    std::string refusal = refusalOf([&] { titles = std::make_unique<CTitles>(path.c_str()); });
    if (titles != nullptr)
        checkTitles(*titles);
    return refusal;
}

std::string walkDiff(const std::string& path)
{
    std::unique_ptr<CDiff> diff;
    std::string refusal = refusalOf([&] { diff = std::make_unique<CDiff>(path.c_str()); });
    for (unsigned int book = 0; diff != nullptr && book < 80; ++book) {
        for (unsigned int chapter = 0; chapter < 3; ++chapter) {
            const CRef ref(book, chapter, 5);
            const CRef global = diff->toGlobal(ref);
            const CRef local = diff->toLocal(ref);
            require(global.isGlobal() && local.isLocal(), "the result has the type asked for");
            require(global.bookID() == book && local.bookID() == book, "books stay");
            const bool stays = global.chapter() == chapter && global.verse() == 5 &&
                               local.chapter() == chapter && local.verse() == 5;
            require(chapter == 1 || stays, "only second chapters are shifted");
        }
    }
    return refusal;
}

std::string walkWordList(const std::string& path)
{
    std::unique_ptr<CWordList> words;
    std::string refusal = refusalOf([&] { words = std::make_unique<CWordList>(path.c_str(), "", true); });
    if (words == nullptr)
        return refusal;
    for (unsigned int word = 0; word < words->count(); ++word) {
        require((*words)[word].size() <= 40, "a word has at most 40 bytes");
        const int found = words->indexOf((*words)[word]);
        require(found >= -1 && found < static_cast<int>(words->count()), "a word's index is in the list");
        if (found >= 0)
            require(ut::cyr_stricmp((*words)[static_cast<unsigned int>(found)].c_str(),
                                    (*words)[word].c_str()) == 0,
                    "the word found is the word asked for");
    }
    require(isOutOfRange([&] { (*words)[words->count()]; }), "words end");
    return refusal;
}

std::string walkConc(const std::string& concPath, const std::string& concPointPath)
{
    std::unique_ptr<CConc> conc;
    std::string refusal =
        refusalOf([&] { conc = std::make_unique<CConc>(concPath.c_str(), concPointPath.c_str()); });
    const auto words = static_cast<unsigned int>(bytesOf(concPointPath).size() / 4);
    std::vector<unsigned int> verses;
    for (unsigned int word = 0; conc != nullptr && word < words; ++word) {
        isOutOfRange([&] { conc->getVersesFor(word, verses); });
        require(verses.size() <= 65535, "an entry has at most 65535 verses");
    }
    if (conc != nullptr)
        require(isOutOfRange([&] { conc->getVersesFor(words, verses); }), "words end");
    return refusal;
}

void walkInfo(const std::string& path)
{
    const CBibleInfo info(path.c_str(), "folder");
    for (const std::string& title : {info.fullTitle(), info.shortTitle(), info.abbreveatedTitle()})
        require(title.size() <= 255 && title.find('\n') == std::string::npos, "a title is one line");
    require(info.copyright().empty() || info.copyright().back() == '\n', "the copyright is whole lines");
}

void walkNumbersAndLines(const std::string& text)
{
    ut::CNumberReader unsignedNumbers(text);
    while (unsignedNumbers.nextUnsigned())
        require(unsignedNumbers.rest().size() < text.size(), "a number takes a byte at least");
    require(!unsignedNumbers.nextSigned(), "a failed reader stays failed");
    ut::CNumberReader signedNumbers(text);
    while (signedNumbers.nextSigned())
        continue;
    for (const std::size_t maxLength : {std::size_t(1), std::size_t(40), ut::CLineReader::anyLength}) {
        ut::CLineReader lines(text, maxLength);
        std::size_t bytes = 0;
        for (; lines.next(); bytes += lines.line().size())
            require(lines.line().size() <= maxLength, "a line keeps its bound");
        require(lines.failed() && bytes <= text.size(), "lines end");
        require(!lines.next() && lines.line().empty(), "a failed reader stays failed");
    }
}

std::string bytesOf(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

} // namespace test_support

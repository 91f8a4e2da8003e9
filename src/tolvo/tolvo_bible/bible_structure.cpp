#include "tolvo_bible/bible_structure.h"

#include "input_file.h"
#include "io_failure.h"
#include "lets_out.h"
#include "text_reader.h"
#include "ut_utils.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace Kedrin::Tolvo {

namespace {

/// Position of the entry whose range contains `num` in an ascending table of start numbers: the first entry
/// equal to it, otherwise the last one below it. 0 for an empty table.
std::size_t entryOf(const std::vector<unsigned int>& starts, unsigned int num)
{
    const auto found = std::lower_bound(starts.begin(), starts.end(), num);
    const auto position = static_cast<std::size_t>(found - starts.begin());
    const bool exact = found != starts.end() && *found == num;
    return exact || position == 0 ? position : position - 1;
}

/// Memory is allocated for a count only if the file is long enough for that many numbers.
bool canFollow(unsigned int count, const ut::CNumberReader& numbers)
{
    return count <= numbers.rest().size();
}

/// @returns false if the rest of the file is not a complete book
bool readBook(ut::CNumberReader& numbers, std::vector<unsigned int>& chapters)
{
    const auto chaptersCount = numbers.nextUnsigned();
    if (!chaptersCount || !canFollow(*chaptersCount, numbers))
        return false;
    chapters.reserve(*chaptersCount);
    for (unsigned int chapter = 0; chapter < *chaptersCount; ++chapter) {
        const auto versesCount = numbers.nextUnsigned();
        if (!versesCount)
            return false;
        chapters.push_back(*versesCount);
    }
    return true;
}

[[noreturn]] void throwUnreadable(const char* fileName)
{
    throw ut::CIoFailure(ut::format("CBibleSructure::CBibleSructure(): error reading file %s", fileName));
}

} // namespace

CBibleStructure::CBibleStructure(const char* fileName, unsigned int booksCount)
{
    ut::lets_out<std::ios_base::failure>("CBibleSructure::CBibleSructure()", [&] {
        readBooks(fileName, booksCount);
        try {
            CalcStartNums();
        } catch (const std::out_of_range&) {
            throwUnreadable(fileName);
        }
    });
}

void CBibleStructure::readBooks(const char* fileName, unsigned int booksCount)
{
    const std::string content = ut::text_of_file("CBibleSructure::CBibleSructure()", fileName);
    ut::CNumberReader numbers(content);
    if (!canFollow(booksCount, numbers))
        throwUnreadable(fileName);
    m_verses.resize(booksCount);
    for (std::vector<unsigned int>& chapters : m_verses)
        if (!readBook(numbers, chapters))
            throwUnreadable(fileName);
    std::vector<unsigned int> further;
    m_furtherBook = readBook(numbers, further);
}

void CBibleStructure::CalcStartNums()
{
    m_startVerseNums.assign(m_verses.size(), {});
    m_bookStartVerseNums.clear();
    m_bookStartVerseNums.reserve(m_verses.size());
    unsigned int running = 0;
    for (std::size_t book = 0; book < m_verses.size(); ++book) {
        m_bookStartVerseNums.push_back(running);
        m_startVerseNums[book].reserve(m_verses[book].size());
        for (const unsigned int versesCount : m_verses[book]) {
            if (versesCount > std::numeric_limits<unsigned int>::max() - running)
                throw std::out_of_range("CBibleSructure::CalcStartNums(): too many verses");
            m_startVerseNums[book].push_back(running);
            running += versesCount;
        }
    }
    m_totalVerseCount = running;
}

unsigned int CBibleStructure::chaptersCount(unsigned int bookID) const
{
    ValidateBookID(bookID);
    return static_cast<unsigned int>(m_verses[bookID].size());
}

unsigned int CBibleStructure::versesCount(unsigned int bookID, unsigned int chapter) const
{
    ValidateChapter(bookID, chapter);
    return m_verses[bookID][chapter];
}

unsigned int CBibleStructure::toNum(const CRef& ref) const
{
    ValidateRef(ref);
    return m_startVerseNums[ref.bookID()][ref.chapter()] + ref.verse();
}

CRef CBibleStructure::toRef(unsigned int num) const
{
    ValidateNum(num);
    const std::size_t book = entryOf(m_bookStartVerseNums, num);
    const std::vector<unsigned int>& starts = m_startVerseNums[book];
    const std::size_t chapter = entryOf(starts, num);
    const unsigned int start = starts.empty() ? m_bookStartVerseNums[book] : starts[chapter];
    return CRef(static_cast<unsigned int>(book), static_cast<unsigned int>(chapter), num - start);
}

void CBibleStructure::ValidateBookID(unsigned int bookID) const
{
    if (bookID >= m_verses.size())
        throw std::out_of_range("CBibleSructure::ValidateBookID(): bookID out of range");
}

void CBibleStructure::ValidateChapter(unsigned int bookID, unsigned int chapter) const
{
    ValidateBookID(bookID);
    if (chapter >= m_verses[bookID].size())
        throw std::out_of_range("CBibleSructure::ValidateChapterID(): chapter out of range");
}

void CBibleStructure::ValidateRef(const CRef& ref) const
{
    ValidateChapter(ref.bookID(), ref.chapter());
    if (ref.verse() >= m_verses[ref.bookID()][ref.chapter()])
        throw std::out_of_range("CBibleSructure::ValidateRef(): verse out of range");
}

void CBibleStructure::ValidateNum(unsigned int num) const
{
    if (num >= m_totalVerseCount)
        throw std::out_of_range("CBibleSructure::ValidateNum(): verse number out of range");
}

} // namespace Kedrin::Tolvo

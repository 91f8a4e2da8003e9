#include "walkers.h"

#include "tolvo_bible/bible_text.h"

#include <cstring>
#include <ios>
#include <stdexcept>

namespace test_support {

namespace {

using namespace Kedrin::Tolvo;

/// The result of a read in the form of plainVerse().
template <typename Read>
std::string answerOf(Read read)
{
    try {
        return "=" + read();
    } catch (const std::out_of_range& ex) {
        return ex.what();
    } catch (const std::ios_base::failure& ex) {
        return ex.what();
    }
}

void require(bool holds, const std::string& rule)
{
    if (!holds)
        throw std::logic_error(rule);
}

bool isText(const std::string& answer) { return answer.starts_with('='); }

/// New objects for each verse, so that a failure does not affect the next verse.
void checkSingleVerses(const std::string& textPath, const std::string& pointPath,
                       const std::vector<std::string>& expected)
{
    CBibleText lasting(textPath.c_str(), pointPath.c_str());
    bool failed = false;
    for (std::size_t verse = 0; verse < expected.size(); ++verse) {
        const int verseNum = static_cast<int>(verse);
        CBibleText fresh(textPath.c_str(), pointPath.c_str());
        require(answerOf([&] { return fresh[verseNum]; }) == expected[verse], "a verse is read as stored");
        const std::string answer = answerOf([&] { return lasting[verseNum]; });
        if (isText(expected[verse]))
            require(isText(answer) == !failed, "a failed object stays failed, a sound one reads");
        else if (expected[verse].ends_with("I/O error"))
            failed = true;
    }
}

void checkCursor(const std::string& textPath, const std::string& pointPath,
                 const std::vector<std::string>& expected, std::size_t first, std::size_t pieceBytes)
{
    CBibleText text(textPath.c_str(), pointPath.c_str());
    CVerseCursor cursor(text, static_cast<unsigned int>(first),
                        static_cast<unsigned int>(expected.size() - first), pieceBytes);
    for (std::size_t verse = first; verse < expected.size(); ++verse) {
        const std::string answer = answerOf([&] {
            require(cursor.next(), "a cursor gives every verse asked for");
            return std::string(cursor.text());
        });
        require(answer == expected[verse], "a cursor gives what single reads give");
        if (!isText(answer))
            return; // the cursor and its text have failed
        require(cursor.verseNum() == verse, "a cursor counts its verses");
    }
    require(!cursor.next(), "a cursor ends");
}

/// The same, run by run.
void checkRuns(const std::string& textPath, const std::string& pointPath,
               const std::vector<std::string>& expected, std::size_t pieceBytes)
{
    CBibleText text(textPath.c_str(), pointPath.c_str());
    CVerseCursor cursor(text, 0, static_cast<unsigned int>(expected.size()), pieceBytes);
    std::size_t verse = 0;
    const std::string failure = answerOf([&] {
        for (; cursor.nextRun(); verse += cursor.run().size()) {
            const CVerseRun& run = cursor.run();
            require(run.firstVerseNum() == verse && run.size() > 0 && verse + run.size() <= expected.size(),
                    "runs follow each other");
            for (std::size_t i = 0; i < run.size(); ++i)
                require(expected[verse + i] == "=" + std::string(run[i]),
                        "a run gives what single reads give");
        }
        return std::string();
    });
    require(verse == expected.size() ? isText(failure) : failure == expected[verse],
            "runs end as single reads do");
}

} // namespace

std::string plainVerse(const std::string& textBytes, const std::string& pointBytes, unsigned int verseNum)
{
    const unsigned int wrapped = verseNum * 4u; // offsets are 32-bit numbers
    const std::size_t point = wrapped;
    if (point >= pointBytes.size())
        return "CFileVector::operator [](): recordIndex out of range";
    if (point + 4 > pointBytes.size())
        return "CFileVector::operator [](): IO error";
    const auto byteAt = [](const std::string& bytes, std::size_t place) {
        return std::size_t(static_cast<unsigned char>(bytes[place]));
    };
    std::size_t start = 0;
    for (std::size_t i = 4; i-- > 0;)
        start = start * 256 + byteAt(pointBytes, point + i);
    const bool hasLength = start + 2 <= textBytes.size();
    const std::size_t length = hasLength ? byteAt(textBytes, start) + 256 * byteAt(textBytes, start + 1) : 0;
    if (!hasLength || start + 2 + length > textBytes.size())
        return "CBibleText::operator [](): I/O error";
    return "=" + textBytes.substr(start + 2, length);
}

std::string walkText(const std::string& textPath, const std::string& pointPath)
{
    try {
        const CBibleText opens(textPath.c_str(), pointPath.c_str());
    } catch (const std::ios_base::failure& ex) {
        return ex.what();
    }
    const std::string textBytes = bytesOf(textPath);
    const std::string pointBytes = bytesOf(pointPath);
    std::vector<std::string> expected; // one more than the file has, including a partial record
    for (unsigned int verse = 0; verse <= (pointBytes.size() + 3) / 4; ++verse)
        expected.push_back(plainVerse(textBytes, pointBytes, verse));

    checkSingleVerses(textPath, pointPath, expected);
    for (const std::size_t pieceBytes :
         {std::size_t(1), std::size_t(7), std::size_t(64), CVerseCursor::defaultBlockBytes}) {
        for (std::size_t first = 0; first < expected.size(); first += 1 + first)
            checkCursor(textPath, pointPath, expected, first, pieceBytes);
        checkRuns(textPath, pointPath, expected, pieceBytes);
    }
    return {};
}

} // namespace test_support

#include "tolvo_bible/bible_text.h"

#include "io_failure.h"
#include "lets_out.h"
#include "ut_utils.h"

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <utility>

namespace Kedrin::Tolvo {

namespace {

constexpr std::size_t maxRecordBytes = 2 + 0xFFFF;
constexpr std::size_t maxOffsetsAtOnce = 4096;

} // namespace

CBibleText::CBibleText(const char* textFileName, const char* pointFileName)
    : m_compactPoint(std::make_unique<ut::CFileVector<unsigned int>>(pointFileName)),
      m_textStream(textFileName)
{
    ut::lets_out<std::ios_base::failure>("CBibleText::CBibleText()", [&, reason = errno] {
        if (!m_textStream.isOpen())
            throw ut::CIoFailure(ut::format("CBibleText::CBibleText(): error opening file %s", textFileName),
                                 reason);
    });
}

std::string CBibleText::operator[](int localVerseNum)
{
    CVerseCursor cursor(*this, static_cast<unsigned int>(localVerseNum), 1);
    cursor.next();
    return std::string(cursor.text());
}

CVerseCursor::CVerseCursor(CBibleText& text, unsigned int firstVerseNum, unsigned int verseCount,
                           std::size_t blockBytes)
    : m_text(text),
      m_next(firstVerseNum),
      m_end(std::uint64_t(firstVerseNum) + verseCount),
      m_blockBytes(blockBytes)
{}

/// Makes m_run begin at m_next; false if that is the end.
bool CVerseCursor::fetchRun()
{
    return ut::lets_out<std::out_of_range, std::ios_base::failure>("CBibleText::operator []()", [&] {
        m_run = {};
        if (m_next == m_end)
            return false;
        const auto verseNum = static_cast<unsigned int>(m_next);
        const unsigned int offset = offsetOf(verseNum);
        if (!m_text.m_failed && !holdsRecord(offset))
            loadFollowing(verseNum, offset);
        if (!m_text.m_failed && !holdsRecord(offset))
            loadAlone(offset);
        if (m_text.m_failed || !holdsRecord(offset)) {
            m_text.m_failed = true;
            throw ut::CIoFailure("CBibleText::operator [](): I/O error");
        }
        const char* const record = &m_block[offset - m_blockOffset];
        m_run.m_firstVerseNum = verseNum;
        m_run.m_firstText = record + lengthBytes;
        m_run.m_size = countOfRun(verseNum);
        m_run.m_offsets = &m_offsets[verseNum - m_firstOffset];
        if (m_run.m_size == 0) {
            m_singleRecord[0] = offset;
            m_singleRecord[1] = offset + static_cast<unsigned int>(lengthBytes + lengthAt(record));
            m_run.m_size = 1;
            m_run.m_offsets = m_singleRecord;
        }
        return true;
    });
}

/// Whether the block contains the complete record at `offset`.
bool CVerseCursor::holdsRecord(std::uint64_t offset) const
{
    if (offset < m_blockOffset || offset - m_blockOffset + lengthBytes > m_blockCount)
        return false;
    const std::uint64_t start = offset - m_blockOffset;
    return start + lengthBytes + lengthAt(&m_block[start]) <= m_blockCount;
}

/// How many verses from this one on have complete records in the block, each of which ends at the offset of the next
/// verse. 0 if the record of this one ends elsewhere.
std::size_t CVerseCursor::countOfRun(unsigned int verseNum) const
{
    const std::size_t first = verseNum - m_firstOffset;
    const std::size_t count = std::min<std::uint64_t>(m_offsets.size() - 1 - first, m_end - verseNum);
    const std::uint64_t blockEnd = m_blockOffset + m_blockCount;
    const unsigned int* const offsets = &m_offsets[first];
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t start = offsets[i];
        const std::uint64_t length = offsets[i + 1] - start - lengthBytes; // very large if it is negative
        if (length > 0xFFFF || offsets[i + 1] > blockEnd ||
            lengthAt(&m_block[start - m_blockOffset]) != length)
            return i;
    }
    return count;
}

/// Start of the verse's record. Also reads the offsets of the following verses, and one more, which is the
/// end of the last record.
unsigned int CVerseCursor::offsetOf(unsigned int verseNum)
{
    if (m_offsets.empty() || verseNum - m_firstOffset >= m_offsets.size()) {
        std::vector<unsigned int> offsets(std::min<std::uint64_t>(m_end - m_next + 1, maxOffsetsAtOnce));
        offsets.resize(m_text.m_compactPoint->readRun(verseNum, offsets.size(), offsets.data()));
        m_offsets = std::move(offsets); // unchanged if the read fails
        m_firstOffset = verseNum;
    }
    return m_offsets[verseNum - m_firstOffset];
}

/// End of the record at m_offsets[index] if the next verse's record follows it directly; 0 if not known.
inline std::uint64_t CVerseCursor::endAt(std::size_t index) const
{
    if (index + 1 < m_offsets.size())
        return m_offsets[index + 1];
    const bool lastOfAll = m_firstOffset + index + 1 == m_text.m_compactPoint->size();
    return lastOfAll ? m_text.m_textStream.size() : 0;
}

/// Loads the record of a verse and the contiguous records after it, up to the block size.
void CVerseCursor::loadFollowing(unsigned int verseNum, std::uint64_t offset)
{
    const std::size_t first = verseNum - m_firstOffset;
    const std::size_t last = first + std::min<std::uint64_t>(m_end - m_next, m_offsets.size() - first);
    const std::uint64_t maxEnd = offset + std::max<std::uint64_t>(m_blockBytes, endAt(first) - offset);
    // The difference is very large if the end is not after the start.
    const auto isRecord = [maxEnd](std::uint64_t start, std::uint64_t end) {
        return end - start - 1 < maxRecordBytes && end <= maxEnd;
    };
    const unsigned int* const offsets = m_offsets.data();
    std::size_t i = first;
    while (i + 1 < last && isRecord(offsets[i], offsets[i + 1]))
        ++i;
    const std::uint64_t lastEnd = endAt(i);
    const std::uint64_t end = isRecord(offsets[i], lastEnd) ? lastEnd : offsets[i];
    load(offset, end - offset);
}

void CVerseCursor::loadAlone(std::uint64_t offset)
{
    load(offset, lengthBytes);
    if (m_blockCount == lengthBytes)
        load(offset, lengthBytes + lengthAt(m_block.get()));
}

void CVerseCursor::load(std::uint64_t offset, std::uint64_t byteCount)
{
    const auto wanted = static_cast<std::size_t>(byteCount);
    if (m_blockCapacity < wanted) {
        m_block = std::make_unique_for_overwrite<char[]>(wanted);
        m_blockCapacity = wanted;
    }
    m_blockOffset = offset;
    m_blockCount = m_text.m_textStream.readAt(offset, m_block.get(), wanted);
}

} // namespace Kedrin::Tolvo

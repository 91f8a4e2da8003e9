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

/// next() if something has to be read first.
bool CVerseCursor::fetchNext()
{
    return ut::lets_out<std::out_of_range, std::ios_base::failure>("CBibleText::operator []()", [&] {
        if (m_next == m_end)
            return false;
        const auto verseNum = static_cast<unsigned int>(m_next);
        const std::uint64_t offset = offsetOf(verseNum);
        if (!m_text.m_failed && !holdsRecord(offset))
            loadFollowing(verseNum, offset);
        if (!m_text.m_failed && !holdsRecord(offset))
            loadAlone(offset);
        if (m_text.m_failed || !holdsRecord(offset)) {
            m_text.m_failed = true;
            throw ut::CIoFailure("CBibleText::operator [](): I/O error");
        }
        m_verseNum = verseNum;
        ++m_next;
        return true;
    });
}

void CVerseCursor::passBefore(const char* position)
{
    const auto fileOffsetOf = [this](const char* byte) {
        return m_blockOffset + static_cast<std::uint64_t>(byte - m_block.data());
    };
    const std::uint64_t end = fileOffsetOf(position);
    std::uint64_t nextStart = fileOffsetOf(m_verse.data() + m_verse.size());
    const std::uint64_t last = std::min<std::uint64_t>(m_offsets.size(), m_end - m_firstOffset);
    std::uint64_t index = m_next - m_firstOffset;
    for (; index < last; ++index) {
        const std::uint64_t start = m_offsets[index];
        if (start != nextStart || start + lengthBytes > end)
            break;
        const std::uint64_t recordEnd = start + lengthBytes + lengthAt(&m_block[start - m_blockOffset]);
        if (recordEnd >= end)
            break;
        nextStart = recordEnd;
    }
    m_next = m_firstOffset + index;
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
    std::uint64_t end = offset;
    for (std::size_t i = first; i < last; ++i) {
        const std::uint64_t recordEnd = endAt(i);
        const std::uint64_t byteCount = recordEnd - end; // very large if the end is before the start
        if (byteCount == 0 || byteCount > maxRecordBytes || recordEnd > maxEnd)
            break;
        end = recordEnd;
    }
    load(offset, end - offset);
}

void CVerseCursor::loadAlone(std::uint64_t offset)
{
    load(offset, lengthBytes);
    if (m_blockCount == lengthBytes)
        load(offset, lengthBytes + lengthAt(m_block.data()));
}

void CVerseCursor::load(std::uint64_t offset, std::uint64_t byteCount)
{
    const auto wanted = static_cast<std::size_t>(byteCount);
    if (m_block.size() < wanted)
        m_block.resize(wanted);
    m_blockOffset = offset;
    ++m_blockNum;
    m_blockCount = m_text.m_textStream.readAt(offset, m_block.data(), wanted);
}

} // namespace Kedrin::Tolvo

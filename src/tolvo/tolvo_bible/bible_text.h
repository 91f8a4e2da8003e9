#pragma once

#include "file_vector.h"
#include "input_file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::Tolvo {

/// Verse texts of one module: CompactText.bin, found through CompactPoint.bin (doc/formats/compact-text.md).
/// Both files stay open; not thread-safe. Nothing is cached between calls.
///
/// An incomplete read puts the object into a permanent failed state: every later read throws the same I/O
/// error, after the bounds check of CompactPoint.bin.
class CBibleText
{
public:
    /// Opens the pointer file, then the text file.
    /// @throws std::ios_base::failure
    ///     "CFileVector::CFileVector(): cannot open file %s", naming CompactPoint.bin
    ///     "CBibleText::CBibleText(): error opening file %s", naming CompactText.bin
    CBibleText(const char* textFileName, const char* pointFileName);
    CBibleText(const CBibleText&) = delete;
    CBibleText& operator=(const CBibleText&) = delete;

    /// The verse as stored: 0 to 65535 bytes of Windows-1251; zero bytes are kept. Two reads if the next
    /// verse's record follows it.
    /// @param localVerseNum  verse number in the module, from 0; a negative number is out of range
    /// @throws std::out_of_range       "CFileVector::operator [](): recordIndex out of range"
    /// @throws std::ios_base::failure  "CFileVector::operator [](): IO error": CompactPoint.bin ends inside
    ///                                 a record
    ///                                 "CBibleText::operator [](): I/O error": CompactText.bin does
    std::string operator[](int localVerseNum);

private:
    friend class CBible;
    friend class CVerseCursor;

    /// The same open files without the failed state.
    CBibleText afresh() const { return CBibleText(*m_compactPoint, m_textStream); }
    CBibleText(const ut::CFileVector<unsigned int>& compactPoint, const ut::CInputFile& textStream)
        : m_compactPoint(new ut::CFileVector<unsigned int>(compactPoint.afresh())),
          m_textStream(textStream)
    {}

    std::unique_ptr<ut::CFileVector<unsigned int>> m_compactPoint; ///< first: it is opened first
    ut::CInputFile m_textStream;
    bool m_failed = false; ///< a read of the text file was incomplete
};

/// Verses of a CBibleText in ascending order of their numbers, for a chapter or a scan. Records that follow
/// each other in the text file are read with one read, and nothing else is read: a chapter costs two system
/// calls. Scattered or overlapping records are read one at a time.
///
///     CVerseCursor cursor(text, firstVerseNum, verseCount);
///     while (cursor.next())
///         use(cursor.verseNum(), cursor.text());
///
/// The text must outlive the cursor.
class CVerseCursor
{
public:
    static constexpr std::size_t defaultBlockBytes = 256u << 10;

    /// @param blockBytes  maximum bytes per read; a single longer record is still read with one read
    CVerseCursor(CBibleText& text, unsigned int firstVerseNum, unsigned int verseCount,
                 std::size_t blockBytes = defaultBlockBytes);

    /// Moves to the next verse; false after the last.
    /// @throws as CBibleText::operator[] for that verse
    bool next()
    {
        const std::uint64_t index = m_next - m_firstOffset;
        if (m_next == m_end || m_text.m_failed || index >= m_offsets.size() || !holdsRecord(m_offsets[index]))
            return fetchNext();
        m_verseNum = static_cast<unsigned int>(m_next++);
        return true;
    }

    /// Passes over the following verses that end before `position`, without reading: as calls of next() whose texts are
    /// not looked at, but faster. It stops early where a record does not follow the one before it. verseNum() and
    /// text() stay as they are until next().
    /// @param position  not before text(), and at most blockEnd()
    void passBefore(const char* position);

    unsigned int verseNum() const { return m_verseNum; }
    std::string_view text() const { return m_verse; } ///< valid until next()

    /// End of the bytes that were read together with text(), which include the texts of the following verses.
    const char* blockEnd() const { return m_block.data() + m_blockCount; }
    /// Counts the reads. While it is unchanged, text() points into the same bytes at the same addresses.
    unsigned int blockNum() const { return m_blockNum; }

private:
    static constexpr std::size_t lengthBytes = 2; ///< low byte, high byte

    static std::size_t lengthAt(const char* record)
    {
        return static_cast<unsigned char>(record[0]) + 256u * static_cast<unsigned char>(record[1]);
    }

    bool fetchNext();
    unsigned int offsetOf(unsigned int verseNum);
    std::uint64_t endAt(std::size_t index) const;
    void loadFollowing(unsigned int verseNum, std::uint64_t offset);
    void loadAlone(std::uint64_t offset);
    void load(std::uint64_t offset, std::uint64_t byteCount);

    /// Whether the block contains the complete record at `offset`; if so, m_verse is its text.
    bool holdsRecord(std::uint64_t offset)
    {
        if (offset < m_blockOffset || offset - m_blockOffset + lengthBytes > m_blockCount)
            return false;
        const std::size_t start = static_cast<std::size_t>(offset - m_blockOffset);
        const std::size_t length = lengthAt(&m_block[start]);
        if (start + lengthBytes + length > m_blockCount)
            return false;
        m_verse = std::string_view(&m_block[start] + lengthBytes, length);
        return true;
    }

    CBibleText& m_text;
    std::uint64_t m_next; ///< 64 bits, as the end may be beyond the last number of 32
    std::uint64_t m_end;
    unsigned int m_verseNum = 0;
    std::size_t m_blockBytes;
    std::string_view m_verse;

    std::vector<unsigned int> m_offsets; ///< of the verses m_firstOffset, m_firstOffset + 1, ...
    unsigned int m_firstOffset = 0;
    std::vector<char> m_block; ///< its first m_blockCount bytes are the bytes of the file at m_blockOffset
    std::uint64_t m_blockOffset = 0;
    std::size_t m_blockCount = 0;
    unsigned int m_blockNum = 0;
};

} // namespace Kedrin::Tolvo

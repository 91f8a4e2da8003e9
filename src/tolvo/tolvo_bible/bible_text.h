#pragma once

#include "file_vector.h"
#include "input_file.h"

#include <algorithm>
#include <cstddef>
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

/// Consecutive verses whose records follow each other in memory, as they do in the text file: the text of a verse, the
/// two length bytes of the next one, its text, and so on.
class CVerseRun
{
public:
    unsigned int firstVerseNum() const { return m_firstVerseNum; }
    std::size_t size() const { return m_size; }

    /// The text of verse firstVerseNum() + index.
    std::string_view operator[](std::size_t index) const
    {
        return {textOf(index), m_offsets[index + 1] - m_offsets[index] - lengthBytes};
    }
    const char* textOf(std::size_t index) const { return m_firstText + (m_offsets[index] - m_offsets[0]); }
    const char* endOf(std::size_t index) const { return textOf(index + 1) - lengthBytes; }

private:
    friend class CVerseCursor;
    static constexpr unsigned int lengthBytes = 2; ///< low byte, high byte

    unsigned int m_firstVerseNum = 0;
    std::size_t m_size = 0;
    const char* m_firstText = nullptr;
    const unsigned int* m_offsets = nullptr; ///< of each record in the text file, and of the last one's end
};

/// Verses of a CBibleText in ascending order of their numbers, for a chapter or a scan. Records that follow
/// each other in the text file are read with one read: a chapter costs two system calls. Bytes between two records are
/// read with them if the second begins less than 64 KiB after the first; otherwise nothing else is read. Scattered or
/// overlapping records are read one at a time.
///
///     CVerseCursor cursor(text, firstVerseNum, verseCount);
///     while (cursor.next())
///         use(cursor.verseNum(), cursor.text());
///
/// or, several verses at once, `while (cursor.nextRun()) use(cursor.run())`. The text must outlive the cursor.
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
        if ((m_next >= endOfRun() || m_text.m_failed) && !fetchRun())
            return false;
        m_verse = m_run[static_cast<std::size_t>(m_next - m_run.firstVerseNum())];
        m_verseNum = static_cast<unsigned int>(m_next++);
        return true;
    }

    unsigned int verseNum() const { return m_verseNum; }
    std::string_view text() const { return m_verse; } ///< valid until the cursor moves

    /// Moves to the verses after run(), before the first of them; false after the last. A record that ends elsewhere than
    /// the next one begins is a run of its own.
    /// @throws as CBibleText::operator[] for the first of these verses
    bool nextRun()
    {
        m_next = std::max(m_next, endOfRun());
        return fetchRun();
    }

    const CVerseRun& run() const { return m_run; } ///< its texts are valid until the cursor moves to another

private:
    static constexpr std::size_t lengthBytes = CVerseRun::lengthBytes;

    static std::size_t lengthAt(const char* record)
    {
        return static_cast<unsigned char>(record[0]) |
               static_cast<unsigned int>(static_cast<unsigned char>(record[1])) << 8;
    }

    std::uint64_t endOfRun() const { return std::uint64_t(m_run.m_firstVerseNum) + m_run.m_size; }
    bool fetchRun();
    unsigned int offsetOf(unsigned int verseNum);
    std::uint64_t endAt(std::size_t index) const;
    void loadFollowing(unsigned int verseNum, std::uint64_t offset);
    void loadAlone(std::uint64_t offset);
    void load(std::uint64_t offset, std::uint64_t byteCount);
    bool holdsRecord(std::uint64_t offset) const;
    std::size_t countOfRun(unsigned int verseNum) const;

    CBibleText& m_text;
    std::uint64_t m_next; ///< 64 bits, as the end may be beyond the last number of 32
    std::uint64_t m_end;
    unsigned int m_verseNum = 0;
    std::size_t m_blockBytes;
    std::string_view m_verse;
    CVerseRun m_run;

    std::vector<unsigned int> m_offsets; ///< of the verses m_firstOffset, m_firstOffset + 1, ...
    unsigned int m_firstOffset = 0;
    unsigned int m_singleRecord[2] = {}; ///< the same of a run of one verse whose end is not in m_offsets
    std::unique_ptr<char[]> m_block; ///< its first m_blockCount bytes are those of the file at m_blockOffset
    std::uint64_t m_blockOffset = 0;
    std::size_t m_blockCount = 0;
    std::size_t m_blockCapacity = 0;
};

} // namespace Kedrin::Tolvo

#pragma once

#include "file_vector.h"
#include "input_file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::Tolvo {

/// Verse texts of one module: CompactText.bin, found through CompactPoint.bin (doc/formats/compact-text.md). Both
/// files stay open; one object serves one thread. Nothing is cached between calls.
///
/// A read that comes up short leaves the object failed for good: every later read throws the same I/O error,
/// after the bounds test of CompactPoint.bin.
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

    /// The verse as stored: 0 to 65535 bytes of Windows-1251; zero bytes are kept. Two reads where the record of
    /// the next verse follows.
    /// @param localVerseNum  place of the verse in the module, from 0; a negative number is out of range
    /// @throws std::out_of_range       "CFileVector::operator [](): recordIndex out of range"
    /// @throws std::ios_base::failure  "CFileVector::operator [](): IO error": CompactPoint.bin ends inside a record
    ///                                 "CBibleText::operator [](): I/O error": CompactText.bin does
    std::string operator[](int localVerseNum);

private:
    friend class CBible;
    friend class CVerseCursor;

    /// The same open files with no failed read behind them.
    CBibleText afresh() const { return CBibleText(*m_compactPoint, m_textStream); }
    CBibleText(const ut::CFileVector<unsigned int>& compactPoint, const ut::CInputFile& textStream)
        : m_compactPoint(new ut::CFileVector<unsigned int>(compactPoint.afresh())),
          m_textStream(textStream)
    {}

    std::unique_ptr<ut::CFileVector<unsigned int>> m_compactPoint; ///< first: it is opened first
    ut::CInputFile m_textStream;
    bool m_failed = false; ///< a read of the text file came up short
};

/// Verses of a CBibleText in ascending order of their numbers, for a chapter or a scan. Records that follow each
/// other in the text file come with one read, and nothing else is read: a chapter costs two system calls.
/// Records that lie scattered or overlap are read one at a time.
///
///     CVerseCursor run(text, firstVerseNum, verseCount);
///     while (run.next())
///         use(run.verseNum(), run.text());
///
/// The text must outlive the run.
class CVerseCursor
{
public:
    static constexpr std::size_t defaultBlockBytes = 256u << 10;

    /// @param blockBytes  most bytes to read at once; a single longer record is read all the same
    CVerseCursor(CBibleText& text, unsigned int firstVerseNum, unsigned int verseCount,
                 std::size_t blockBytes = defaultBlockBytes);

    /// Moves to the next verse; false after the last.
    /// @throws as CBibleText::operator[] for that verse
    bool next();

    unsigned int verseNum() const { return m_verseNum; }
    std::string_view text() const { return m_verse; } ///< valid until next()

    /// Where the bytes end that were read together with text() and follow it: those of the verses after it, when
    /// they came with the same read.
    const char* blockEnd() const { return m_block.data() + m_blockCount; }
    /// Counts the reads. While it stays the same, text() comes out of the same bytes at the same addresses.
    unsigned int blockNum() const { return m_blockNum; }

private:
    bool fetchNext();
    unsigned int offsetOf(unsigned int verseNum);
    std::uint64_t endOf(unsigned int verseNum) const;
    bool holdsRecord(std::uint64_t offset);
    void loadFollowing(unsigned int verseNum, std::uint64_t offset);
    void loadAlone(std::uint64_t offset);
    void load(std::uint64_t offset, std::uint64_t byteCount);

    CBibleText& m_text;
    unsigned int m_next;
    unsigned int m_left;
    std::size_t m_blockBytes;
    unsigned int m_verseNum = 0;
    std::string_view m_verse;

    std::vector<unsigned int> m_offsets; ///< of the verses m_firstOffset, m_firstOffset + 1, ...
    unsigned int m_firstOffset = 0;
    std::vector<char> m_block; ///< its first m_blockCount bytes are the file's from m_blockOffset on
    std::uint64_t m_blockOffset = 0;
    std::size_t m_blockCount = 0;
    unsigned int m_blockNum = 0;
};

} // namespace Kedrin::Tolvo

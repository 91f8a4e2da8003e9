#pragma once

#include "file_vector.h"

#include <vector>

namespace Kedrin::Tolvo {

/// For each word of a module's word list, the verses that contain it (doc/formats/concordance.md). Both files
/// stay open and are not loaded; a lookup reads one entry.
class CConc
{
public:
    /// Opens Conc.bin, then ConcP.bin.
    /// @throws std::ios_base::failure  "CFileVector::CFileVector(): cannot open file %s"
    CConc(const char* concPath, const char* concPointPath) : m_conc(concPath), m_concPoint(concPointPath) {}
    CConc(const CConc&) = delete;
    CConc& operator=(const CConc&) = delete;

    /// Replaces `verseList` with the word's local verse numbers, as the entry stores them: neither sorted nor
    /// deduplicated. A stored 0 gives 4294967295. Two reads if the next word's entry
    /// follows this one.
    /// @throws std::out_of_range
    ///     "CConc::getVersesFor(): wordIndex out of range": `verseList` is unchanged
    ///     "CFileVector::operator [](): recordIndex out of range": the entry extends past the end of the
    ///     file; `verseList` has the verses before it. A file that ends inside a record ends the program.
    void getVersesFor(unsigned int wordIndex, std::vector<unsigned int>& verseList);

    /// The same for programs that go on after a failure.
    /// @throws std::out_of_range       as getVersesFor()
    /// @throws std::ios_base::failure  the file ends inside a record, or cannot be read
    void readVersesFor(unsigned int wordIndex, std::vector<unsigned int>& verseList);

private:
    friend class CBible;

    /// The same open files without the failed state.
    CConc afresh() const { return CConc(m_conc, m_concPoint); }
    CConc(const ut::CFileVector<unsigned short>& conc, const ut::CFileVector<unsigned int>& concPoint)
        : m_conc(conc.afresh()),
          m_concPoint(concPoint.afresh())
    {}

    ut::CFileVector<unsigned short> m_conc;
    ut::CFileVector<unsigned int> m_concPoint;
};

} // namespace Kedrin::Tolvo

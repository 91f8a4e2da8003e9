#pragma once

#include "tolvo_ref.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::Tolvo {

/// The books of one module, in its own order: three titles each, and the book's global number
/// (doc/formats/book-titles.md). Local numbers are positions in that order, from 0.
class CTitles : public ITitles
{
public:
    /// Missing content is not an error here (CBibleModules::ValidateBible refuses it): a book count that is
    /// not a number, or far larger than the file allows, is 0 books; a book without a global number has
    /// 4294967295, which is not a book; missing title lines are empty titles.
    /// @throws std::ios_base::failure  "CTitles::CTitles(): error opening file %s"; "...: file %s is longer
    ///                                 than 64 MiB"
    CTitles(const char* fileName);
    virtual ~CTitles() = default;
    CTitles(const CTitles&) = delete;
    CTitles& operator=(const CTitles&) = delete;

    unsigned int booksCount() const { return static_cast<unsigned int>(m_globalBookIDs.size()); }

    /// Titles by local book number.
    /// @throws std::out_of_range  as ValidateBookID
    std::string fullTitle(unsigned int bookID) const override;
    std::string shortTitle(unsigned int bookID) const override;
    std::string abbreviatedTitle(unsigned int bookID) const override;

    /// The global number of a local book, as in the file.
    /// @throws std::out_of_range  as ValidateBookID
    unsigned int globalID(unsigned int localBookID) const;

    /// The first local book that has this global number. Logarithmic.
    /// @throws std::out_of_range  "CTitles::localID() called for non existing book"
    unsigned int localID(unsigned int globalBookID) const;

    bool hasBook(unsigned int globalBookID) const { return m_globalsToLocalsMap.contains(globalBookID); }

    /// @throws std::out_of_range  "CTitles::ValidateBookID(): bookID out of range"
    void ValidateBookID(unsigned int bookID) const;

private:
    friend class CBible;

    void read(const char* fileName);
    std::string_view readNumbers(std::string_view content);
    void readTitles(std::string_view rest);

    std::vector<unsigned int> m_globalBookIDs;                 ///< [local book]
    std::map<unsigned int, unsigned int> m_globalsToLocalsMap; ///< global to local book number
    std::vector<std::string> m_fullTitles;                     ///< [local book], as are the next two
    std::vector<std::string> m_shortTitles;
    std::vector<std::string> m_abbrTitles;
    bool m_isWhole = true; ///< the file has the count, each number and each title line
};

} // namespace Kedrin::Tolvo

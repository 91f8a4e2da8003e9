#pragma once

#include "check_findings.h"
#include "checked_shape.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Chapter and verse, indices from 0, as the engine counts them: modulo 2^32.
struct NumberedPlace
{
    std::uint32_t chapter;
    std::uint32_t verse;

    bool operator==(const NumberedPlace&) const = default;
};

/// A record of _Diff_.txt as it stands there.
struct CheckedDiffRecord
{
    std::uint32_t book, chapter, verse;
    std::int32_t chapterDelta, verseDelta;
};

/// Calls `use` for each record, up to the first that is not five numbers of their types.
/// @returns what was not read: white space, or the rest from that record on
std::string_view forEachDiffRecord(std::string_view content,
                                   const std::function<void(const CheckedDiffRecord&)>& use);

/// What Tolvo::CDiff makes of a _Diff_.txt, kept to the part that has an effect, so that memory does not grow with the
/// file: of each book the record with the lowest verse in the second chapter, in each direction.
class CDiffEffect
{
public:
    static constexpr std::uint32_t booksCount = 77; ///< books from this number on are in no module

    explicit CDiffEffect(std::string_view content);

    /// As Tolvo::CDiff::toGlobal and toLocal, for a book below `booksCount`.
    NumberedPlace toGlobal(std::uint32_t globalBook, NumberedPlace local) const;
    NumberedPlace toLocal(std::uint32_t localBook, NumberedPlace global) const;

    /// The records, by their numbers from 0, without which a module of these books would be numbered otherwise.
    std::set<std::uint64_t> effectiveRecords(const CheckedShape& shape) const;

    std::string_view unread() const
    {
        return m_unread;
    } ///< what forEachDiffRecord() has not read of the content

private:
    struct Entry
    {
        std::uint32_t verse; ///< of the place where the record begins
        std::uint32_t chapterShift;
        std::uint32_t verseShift;
        std::uint64_t record;
        bool hidesOther = false; ///< whether another record would shift the chapter without this one

        bool shifts() const { return chapterShift != 0 || verseShift != 0; }
    };
    using Table = std::array<std::optional<Entry>, booksCount>; ///< [book]

    static void insert(Table& table, std::uint32_t book, NumberedPlace place, const Entry& entry);
    static NumberedPlace shifted(const std::optional<Entry>& entry, NumberedPlace place);

    Table m_localToGlobal;
    Table m_globalToLocal;
    std::uint64_t m_recordsCount = 0;
    std::string_view m_unread;
};

/// Checks _Diff_.txt, and which verses keep their place on the way to the common numbering and back.
/// @returns how many verses keep it; nothing when that cannot be told
/// @throws CCheckError
std::optional<std::uint64_t> checkDiff(const std::string& folder, const CheckedShape& shape,
                                       CFindings& findings);

} // namespace Kedrin::ModTool

#pragma once

#include "tolvo_ref.h"

#include <map>

namespace Kedrin::Tolvo {

/// The differences between a module's verse numbering and the global one (doc/formats/diff.md): one table of
/// offsets for each direction. Chapter and verse are shifted, the book never; CBible maps the book number
/// first.
///
/// The matching is narrow on purpose: only references in the second chapter of a book (chapter index 1) are
/// shifted, all verses of that chapter by the same delta, that of the key with the lowest verse. It follows
/// from CRef::operator== and CRef::chaptersBeginning; modules are prepared for it.
class CDiff
{
public:
    using Table = std::map<CRef, CRefDelta>; ///< key: the first reference of a record, of unknown type

    /// Reading stops at the first record that is not five complete numbers; nothing is inserted for it.
    /// @throws std::ios_base::failure  "CDiff::CDiff(): error opening file %s"; "...: file %s is longer than
    ///                                 64 MiB"
    CDiff(const char* fileName);
    CDiff(const CDiff&) = delete;
    CDiff& operator=(const CDiff&) = delete;

    /// `ref`, whose book is already a global number, shifted from local to global numbering; type global. The
    /// result is not validated: a shift below verse 0 wraps modulo 2^32.
    CRef toGlobal(const CRef& ref) const noexcept { return CRef(convertWithMap(ref, m_localToGlobal), true); }

    /// `ref`, whose book is already a local number, shifted from global to local numbering; type local.
    CRef toLocal(const CRef& ref) const noexcept { return CRef(convertWithMap(ref, m_globalToLocal), false); }

    /// `ref` with the delta of the first entry of `table` that matches it, of unknown type; without such an
    /// entry a copy of `ref`, including its type. Linear in the size of the table, which has tens of records.
    CRef convertWithMap(const CRef& ref, const Table& table) const noexcept;

private:
    Table m_localToGlobal;
    Table m_globalToLocal;
};

} // namespace Kedrin::Tolvo

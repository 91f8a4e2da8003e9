#pragma once

#include "source_findings.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Where an entry stands, and what of its neighbours concerns it.
struct SwordPlace
{
    enum class Kind
    {
        verse,
        chapter,     ///< the introduction of a chapter
        introduction ///< of a book or the whole
    };

    std::string name; ///< "Gen 1:1"
    Kind kind = Kind::verse;
    bool beginsInNote = false; ///< a note of the entry before ends in this one
    bool noteGoesOn = false;   ///< the last note ends in the next entry
    bool titleGoesOn = false;  ///< the last title does
};

/// The text that an entry gives.
struct SwordEntry
{
    std::string verse;         ///< UTF-8; "" for an introduction
    std::string title;         ///< psalm titles of a chapter, which belong before the text of the next verse
    std::uint64_t leftOut = 0; ///< letters and digits that stand in neither; the findings count them
};

/// Reads a raw entry, valid UTF-8 without zero bytes. No text is lost because of tags without a partner: only what
/// stands between the two tags of an element is left out, and an element ends at the latest where its verse begins.
SwordEntry readSwordEntry(std::string_view raw, const SwordPlace& place, SourceFindings& findings);

} // namespace Kedrin::ModTool

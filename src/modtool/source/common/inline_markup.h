#pragma once

#include "verse_collector.h"

#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Passes a text with tags of HTML and of Bible databases to the collector (doc/formats/source-rules.md, "Tags in
/// texts"): tags are removed, notes, headings, verse numbers and lexical numbers are left out and counted, character
/// references are resolved. A "<" that begins no known tag is text.
/// @param utf8  text of the open verse; tags without a partner leave nothing out
void addMarkedText(CVerseCollector& verses, std::string_view utf8, std::size_t line);

/// Leaves out such a text by the rule, and its tags as tags.
void leaveOutMarkedText(CVerseCollector& verses, ReaderRule rule, std::string_view utf8);

/// All text between the tags, with character references resolved.
std::string withoutTags(std::string_view utf8);

} // namespace Kedrin::ModTool

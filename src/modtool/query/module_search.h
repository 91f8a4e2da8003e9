#pragma once

#include "module_reader.h"
#include "text_matcher.h"

#include <string>
#include <vector>

namespace Kedrin::ModTool {

enum class SearchMode
{
    part,       ///< anywhere in the text, without regard to case
    partByCase, ///< anywhere, in just this case
    wholeWord   ///< one word of the module's list, without regard to case
};

/// The local references of the verses that hold a text: the verses that Tolvo::CBible::search finds, in its order.
/// CBible gives common references only, from which not every module's differences lead back, and it ends the program
/// where a file is damaged; this is the same search over the same readers without either.
/// @param text  Windows-1251
/// @throws CModuleError  "%s: the concordance puts the word \"%s\" in verse %u of %u" and what the readers throw
std::vector<Tolvo::CRef> searchModule(const CModuleReader& module, const std::string& text, SearchMode mode);

/// The verses that hold each of several texts, in any order: those that searchModule() finds for the first and for all
/// others.
/// @param texts  at least one, Windows-1251
std::vector<Tolvo::CRef> searchAll(const CModuleReader& module, const std::vector<std::string>& texts,
                                   SearchMode mode);

/// The verses in whose plain text the matcher finds something, in their order.
std::vector<Tolvo::CRef> searchMatches(const CModuleReader& module, const ITextMatcher& matcher);

} // namespace Kedrin::ModTool

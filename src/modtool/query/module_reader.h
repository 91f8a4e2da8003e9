#pragma once

#include "errors.h"
#include "tolvo_bible/bible_info.h"
#include "tolvo_bible/bible_structure.h"
#include "tolvo_bible/bible_text.h"
#include "tolvo_bible/diff.h"
#include "tolvo_bible/titles.h"

#include <compare>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// A position in the global numbering as computed by the engine: numbers from 0. Difference records may lead
/// to a negative chapter or verse, which sorts first.
struct GlobalPosition
{
    unsigned int book;
    int chapter;
    int verse;

    auto operator<=>(const GlobalPosition&) const = default; // NOLINT(modernize-use-nullptr)
};

/// A module opened for queries: the same readers as in Tolvo::CBible except for words and concordance, but
/// damage is reported where CBible terminates the program. Not thread-safe. Operations throw only
/// CModuleError.
class CModuleReader
{
public:
    /// Opens all files except those of the words. The folder need not be in a modules directory.
    /// @param folder  native path, with or without a trailing '/'
    /// @throws CModuleError  "%s: is not a module folder"
    ///     "%s: the module cannot be read: %s", with the engine's message
    ///     "%s: BibleStructure.csv counts %u verses, but CompactPoint.bin has records for %u"
    ///     "%s: book %u has the global number %u; the last is 76"
    explicit CModuleReader(const std::string& folder);

    const std::string& folder() const { return m_folder; } ///< without a trailing '/'
    const Tolvo::CTitles& titles() const { return *m_titles; }
    const Tolvo::CBibleStructure& structure() const { return *m_structure; }
    const Tolvo::CBibleInfo& info() const { return *m_info; }

    /// All verses of a book in order, as local references; the index of the first is firstVerseNum(book).
    std::vector<Tolvo::CRef> referencesOfBook(unsigned int localBook) const;
    unsigned int firstVerseNum(unsigned int localBook) const { return m_firstVerseNums[localBook]; }

    /// [verse number]: local references of the whole module.
    std::vector<Tolvo::CRef> references() const;

    /// The engine's mapping of a local reference to the global numbering.
    GlobalPosition globalPosition(const Tolvo::CRef& local) const;

    /// Whether the engine maps that position back to the verse.
    bool mapsBothWays(const Tolvo::CRef& local) const;

    /// "Бит 1:3", UTF-8, with the module's abbreviation; or its short title or the book's OSIS id if it has
    /// none.
    std::string label(const Tolvo::CRef& local) const;
    std::string bookLabel(unsigned int localBook) const;

    /// A verse as stored.
    /// @throws CModuleError  "%s: verse %s cannot be read: %s"
    std::string storedText(const Tolvo::CRef& local) const;
    /// A verse as plain text, UTF-8.
    std::string text(const Tolvo::CRef& local) const;

    /// Calls `use(verse number, stored text)` for consecutive verses, in order; a text is valid during its
    /// call.
    /// @throws CModuleError  "%s: the verses cannot be read: %s"
    void forEachVerse(unsigned int firstVerseNum, unsigned int verseCount,
                      const std::function<void(unsigned int, std::string_view)>& use) const;

private:
    void open();
    void validate();

    std::string m_folder;
    std::unique_ptr<Tolvo::CTitles> m_titles;
    std::unique_ptr<Tolvo::CBibleStructure> m_structure;
    std::unique_ptr<Tolvo::CDiff> m_diff;
    std::unique_ptr<Tolvo::CBibleText> m_text;
    std::unique_ptr<Tolvo::CBibleInfo> m_info;
    std::vector<unsigned int> m_firstVerseNums; ///< [local book]
};

} // namespace Kedrin::ModTool

#include "versification.h"

#include "ascii.h"
#include "errors.h"
#include "global_books.h"
#include "messages.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace Kedrin::ModTool {

namespace {

#include "versification_tables.inc"

std::span<const NumberedBook> booksOf(const NumberedSystem& system)
{
    return std::span(numberedBooks).subspan(system.firstBook, system.booksCount);
}

std::span<const std::uint8_t> verseCountsOf(const NumberedBook& book)
{
    return std::span(verseCounts).subspan(book.firstChapter, book.chaptersCount);
}

bool isIn(const NumberingRun& run, ChapterVerse position)
{
    return run.chapter == position.chapter + 1 && run.first <= position.verse + 1 &&
           run.last >= position.verse + 1;
}

} // namespace

CVersification::CVersification(const std::string& name)
    : m_system(std::find_if(std::begin(systems), std::end(systems),
                            [&](const NumberedSystem& system) { return system.name == name; }))
{
    if (m_system == std::end(systems))
        throw CBuildError(message("unknown versification \"%s\" (known: %s)", name, joined(names(), ", ")));
}

std::vector<std::string> CVersification::names()
{
    std::vector<std::string> all;
    for (const NumberedSystem& system : systems)
        all.emplace_back(system.name);
    return all;
}

CVersification CVersification::bestFor(const std::vector<ModuleBook>& books)
{
    CVersification best(systems[0]);
    unsigned int bestAgreement = best.agreement(books);
    for (const NumberedSystem& system : systems) {
        const CVersification candidate(system);
        const unsigned int agreement = candidate.agreement(books);
        if (agreement > bestAgreement) {
            best = candidate;
            bestAgreement = agreement;
        }
    }
    return best;
}

const NumberedBook* CVersification::findBook(unsigned int globalID) const
{
    for (const NumberedBook& book : booksOf(*m_system))
        if (book.globalID == globalID)
            return &book;
    return nullptr;
}

unsigned int CVersification::agreement(const std::vector<ModuleBook>& books) const
{
    unsigned int count = 0;
    for (const ModuleBook& book : books) {
        const NumberedBook* known = findBook(book.globalID);
        if (!known)
            continue;
        const auto counts = verseCountsOf(*known);
        for (std::size_t chapter = 0; chapter < std::min(counts.size(), book.versesCount.size()); ++chapter)
            count += counts[chapter] == book.versesCount[chapter];
    }
    return count;
}

std::optional<ChapterVerse> CVersification::toGlobal(const ModuleBook& book, ChapterVerse position) const
{
    ChapterVerse global = position;
    if (const NumberedBook* known = findBook(book.globalID))
        for (const NumberingRun& run : std::span(runs).subspan(known->firstRun, known->runsCount))
            if (isIn(run, position)) {
                if (run.globalChapter == 0)
                    return std::nullopt;
                global.chapter = run.globalChapter - 1u;
                global.verse += static_cast<unsigned int>(run.shift);
                break;
            }
    if (!isGlobalVerse(book.globalID, global.chapter, global.verse))
        return std::nullopt;
    return global;
}

std::vector<VersePair> versePairs(const std::vector<ModuleBook>& books, const CVersification& versification)
{
    std::vector<VersePair> pairs;
    forEachPosition(books, [&](unsigned int book, unsigned int chapter, unsigned int verse) {
        const ChapterVerse local{chapter, verse};
        if (const auto global = versification.toGlobal(books[book], local))
            pairs.push_back({book, local, books[book].globalID, *global});
    });
    return pairs;
}

} // namespace Kedrin::ModTool

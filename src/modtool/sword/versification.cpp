#include "versification.h"

#include "ascii.h"
#include "errors.h"
#include "global_books.h"
#include "messages.h"

#include <versificationmgr.h>

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

using System = sword::VersificationMgr::System;

const System* findSystem(const char* name)
{
    return sword::VersificationMgr::getSystemVersificationMgr()->getVersificationSystem(name);
}

const System& asSystem(const void* system) { return *static_cast<const System*>(system); }

} // namespace

CVersification::CVersification(const std::string& name) : m_name(name), m_system(findSystem(name.c_str()))
{
    if (!m_system)
        throw CBuildError(message("unknown versification \"%s\" (known: %s)", name, joined(names(), ", ")));
}

std::vector<std::string> CVersification::names()
{
    std::vector<std::string> all;
    for (const auto& name : sword::VersificationMgr::getSystemVersificationMgr()->getVersificationSystems())
        all.emplace_back(name.c_str());
    std::sort(all.begin(), all.end());
    std::stable_partition(all.begin(), all.end(), [](const std::string& name) { return name == "KJV"; });
    return all;
}

CVersification CVersification::bestFor(const std::vector<ModuleBook>& books)
{
    CVersification best("KJV");
    unsigned int bestAgreement = best.agreement(books);
    for (const std::string& name : names()) {
        CVersification candidate(name);
        const unsigned int agreement = candidate.agreement(books);
        if (agreement > bestAgreement) {
            best = candidate;
            bestAgreement = agreement;
        }
    }
    return best;
}

unsigned int CVersification::agreement(const std::vector<ModuleBook>& books) const
{
    const System& system = asSystem(m_system);
    unsigned int count = 0;
    for (const ModuleBook& book : books) {
        const int number = system.getBookNumberByOSISName(book.osis.c_str()); // from 1, unlike getBook's
        const auto* known = number < 1 ? nullptr : system.getBook(number - 1);
        if (!known)
            continue;
        for (unsigned int chapter = 0; chapter < book.versesCount.size(); ++chapter)
            count += static_cast<int>(chapter) < known->getChapterMax() &&
                     known->getVerseMax(static_cast<int>(chapter) + 1) ==
                         static_cast<int>(book.versesCount[chapter]);
    }
    return count;
}

std::optional<ChapterVerse> CVersification::toGlobal(const ModuleBook& book, ChapterVerse position) const
{
    static const System* const kjv = findSystem("KJV");
    static const System* const synodal = findSystem("Synodal");
    const System* common = isDeuterocanonical(book.globalID) ? synodal : kjv;
    const char* osis = book.osis.c_str();
    int chapter = static_cast<int>(position.chapter) + 1;
    int verse = static_cast<int>(position.verse) + 1;
    int lastVerse = verse;
    // the library must not be asked for a book that its system lacks
    const bool known = asSystem(m_system).getBookNumberByOSISName(osis) > 0;
    if (common && m_system != common && known)
        asSystem(m_system).translateVerse(common, &osis, &chapter, &verse, &lastVerse);
    const ChapterVerse global{static_cast<unsigned int>(chapter) - 1, static_cast<unsigned int>(verse) - 1};
    if (book.osis != osis || !isGlobalVerse(book.globalID, global.chapter, global.verse))
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

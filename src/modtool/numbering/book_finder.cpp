#include "book_finder.h"

#include "book_ids.h"
#include "book_names.h"
#include "global_books.h"
#include "letters.h"
#include "spelling.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxNameBytes = 120;

} // namespace

CBookFinder::CBookFinder()
{
    for (unsigned int globalID = 0; globalID < globalBooksCount; ++globalID)
        for (const std::string& name : globalBookNames(globalID))
            add(name, globalBooks()[globalID].osis);
    for (const auto& [code, osis] : knownBookCodes()) // where a name of the global numbering says no other
        for (const std::string_view name : {osis, code})
            if (const std::string key = nameKey(name); !key.empty())
                m_exact.try_emplace(key, osis);
    std::sort(m_names.begin(), m_names.end(), [](const Name& a, const Name& b) { return a.key < b.key; });
}

void CBookFinder::add(const std::string& name, std::string_view osis)
{
    const std::string key = nameKey(name);
    if (key.empty())
        return;
    m_names.push_back({key, std::string(osis)});
    const auto [known, isNew] = m_exact.try_emplace(key, osis);
    if (!isNew && known->second != osis)
        known->second.clear();
}

std::string CBookFinder::find(std::string_view utf8) const
{
    if (utf8.size() > maxNameBytes)
        return "";
    const auto known = m_exact.find(nameKey(utf8));
    return known == m_exact.end() ? "" : known->second;
}

std::string CBookFinder::findShort(std::string_view utf8) const
{
    std::string osis = find(utf8);
    if (!osis.empty() || utf8.size() > maxNameBytes)
        return osis;
    const std::string key = nameKey(utf8);
    if (m_exact.contains(key) || countLetters(key) < 3)
        return "";
    auto name = std::lower_bound(m_names.begin(), m_names.end(), key,
                                 [](const Name& a, const std::string& wanted) { return a.key < wanted; });
    for (; name != m_names.end() && name->key.starts_with(key); ++name) {
        if (!osis.empty() && osis != name->osis)
            return "";
        osis = name->osis;
    }
    return osis;
}

std::string CBookFinder::nearest(std::string_view utf8) const
{
    if (utf8.size() > maxNameBytes)
        return "";
    const std::string wanted = nameKey(utf8);
    std::size_t least = wanted.size() + 1;
    std::string osis;
    for (const Name& name : m_names)
        if (const auto count = lettersMisspelt(wanted, name.key); count && *count < least) {
            osis = name.osis;
            least = *count;
        }
    return osis;
}

const CBookFinder& bookFinder()
{
    static const CBookFinder finder;
    return finder;
}

} // namespace Kedrin::ModTool

#include "book_lookup.h"

#include "book_names.h"
#include "errors.h"
#include "global_books.h"
#include "messages.h"
#include "spelling.h"
#include "stored_markup.h"

#include <algorithm>

namespace Kedrin::ModTool {

CBookLookup::CBookLookup(const CModuleReader& module) : m_module(module)
{
    const Tolvo::CTitles& titles = module.titles();
    const auto add = [&](const std::string& name, unsigned int globalID, bool ofModule) {
        if (std::string key = nameKey(name); !key.empty())
            m_names.push_back({std::move(key), globalID, ofModule});
    };
    for (unsigned int book = 0; book < titles.booksCount(); ++book)
        for (const std::string& title :
             {titles.fullTitle(book), titles.shortTitle(book), titles.abbreviatedTitle(book)})
            add(plainLine(title), titles.globalID(book), true);
    for (unsigned int globalID = 0; globalID < globalBooksCount; ++globalID)
        for (const std::string& name : globalBookNames(globalID))
            add(name, globalID, false);
}

template <typename Accept>
std::vector<unsigned int> CBookLookup::booksWith(Accept&& accept) const
{
    std::vector<unsigned int> books;
    for (const Name& name : m_names)
        if (accept(name) && std::find(books.begin(), books.end(), name.globalID) == books.end())
            books.push_back(name.globalID);
    return books;
}

unsigned int CBookLookup::find(const std::string& name) const
{
    const std::string key = nameKey(name);
    const Tolvo::CTitles& titles = m_module.titles();
    std::vector<unsigned int> found = booksWith([&](const Name& n) { return n.ofModule && n.key == key; });
    if (found.empty())
        found = booksWith([&](const Name& n) { return n.key == key; });
    if (found.empty() && !key.empty())
        found = booksWith([&](const Name& n) { return n.ofModule && n.key.starts_with(key); });
    if (found.empty() && !key.empty())
        found =
            booksWith([&](const Name& n) { return n.key.starts_with(key) && titles.hasBook(n.globalID); });
    if (found.size() > 1)
        throw CNotFound(message("\"%s\" is ambiguous: %s", name, listed(found)));
    if (found.empty()) {
        const std::vector<unsigned int> like = booksLike(key);
        throw CNotFound(like.empty() ? message("\"%s\" is not a book of the module", name)
                                     : message("\"%s\" is not a book of the module (did you mean %s?)", name,
                                               listed(like)));
    }
    if (!titles.hasBook(found.front()))
        throw CNotFound(
            message("the module has no book \"%s\" (%s)", name, globalBooks()[found.front()].osis));
    return titles.localID(found.front());
}

/// Books of the module of which a name is spelt nearly like the key.
std::vector<unsigned int> CBookLookup::booksLike(const std::string& key) const
{
    return booksWith([&](const Name& name) {
        return m_module.titles().hasBook(name.globalID) && isLikeSpelling(key, name.key);
    });
}

std::string CBookLookup::listed(const std::vector<unsigned int>& globalIDs) const
{
    constexpr std::size_t most = 8;
    std::string text;
    for (std::size_t i = 0; i < globalIDs.size(); ++i) {
        if (i == most)
            return text + " ...";
        const Tolvo::CTitles& titles = m_module.titles();
        const unsigned int globalID = globalIDs[i];
        if (i != 0)
            text += i + 1 == globalIDs.size() ? tr(" or ") : ", ";
        std::string title;
        if (titles.hasBook(globalID))
            title = plainLine(titles.shortTitle(titles.localID(globalID)));
        text += title.empty() ? std::string(globalBooks()[globalID].osis) : title;
    }
    return text;
}

} // namespace Kedrin::ModTool

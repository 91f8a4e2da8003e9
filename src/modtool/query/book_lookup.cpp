#include "book_lookup.h"

#include "book_names.h"
#include "common_books.h"
#include "errors.h"
#include "messages.h"
#include "plain_text.h"

#include <algorithm>
#include <numeric>

namespace Kedrin::ModTool {

namespace {

/// How many letters must be put in, taken out or exchanged to make one text of the other.
std::size_t editDistance(const std::u32string& a, const std::u32string& b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t exchanged = diagonal + (a[i] != b[j]);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, exchanged});
        }
    }
    return row[b.size()];
}

/// UTF-8 that is known to be valid.
std::u32string codePoints(const std::string& utf8)
{
    std::u32string text;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0) != 0x80)
            text += static_cast<char32_t>(byte);
        else
            text.back() = text.back() << 6 | (byte & 0x3Fu);
    }
    return text;
}

} // namespace

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
    for (unsigned int globalID = 0; globalID < commonBooksCount; ++globalID)
        for (const std::string& name : commonBookNames(globalID))
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
        throw CNotFound(message("\"%s\" may be %s", name, listed(found)));
    if (found.empty()) {
        const std::vector<unsigned int> like = booksLike(key);
        throw CNotFound(
            like.empty() ? message("\"%s\" is no book of the module", name)
                         : message("\"%s\" is no book of the module (did you mean %s?)", name, listed(like)));
    }
    if (!titles.hasBook(found.front()))
        throw CNotFound(message("the module has no book %s", commonBooks()[found.front()].osis));
    return titles.localID(found.front());
}

/// Books of the module of which a name differs from the key by a letter, or by two where it is longer than four.
std::vector<unsigned int> CBookLookup::booksLike(const std::string& key) const
{
    constexpr std::size_t mostLetters = 60;
    const std::u32string wanted = codePoints(key);
    if (wanted.empty() || wanted.size() > mostLetters)
        return {};
    const std::size_t allowed = wanted.size() > 4 ? 2 : 1;
    return booksWith([&](const Name& name) {
        return m_module.titles().hasBook(name.globalID) &&
               editDistance(wanted, codePoints(name.key)) <= allowed;
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
        text += title.empty() ? std::string(commonBooks()[globalID].osis) : title;
    }
    return text;
}

} // namespace Kedrin::ModTool

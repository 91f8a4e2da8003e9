#include "root_element.h"

#include "ascii.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

/// What stands before a document's first element.
struct Prolog
{
    std::size_t end;    ///< where the first element begins, or the text ends
    std::size_t subset; ///< where declarations begin, or npos
};

std::size_t after(std::string_view text, std::string_view what, std::size_t begin)
{
    const std::size_t found = text.find(what, begin);
    return found == std::string_view::npos ? text.size() : found + what.size();
}

/// One past the end of a document type, which begins at `begin`; `subset` is set where it has declarations.
std::size_t documentTypeEnd(std::string_view text, std::size_t begin, std::size_t& subset)
{
    for (std::size_t i = begin; i < text.size(); ++i) {
        if (text[i] == '"' || text[i] == '\'')
            i = std::min(text.find(text[i], i + 1), text.size());
        else if (text[i] == '[') {
            subset = i;
            return text.size();
        } else if (text[i] == '>')
            return i + 1;
    }
    return text.size();
}

Prolog prologOf(std::string_view text)
{
    Prolog prolog{0, std::string_view::npos};
    while (true) {
        const std::size_t tag = std::min(text.find('<', prolog.end), text.size());
        const std::string_view rest = text.substr(tag);
        if (rest.starts_with("<?"))
            prolog.end = after(text, "?>", tag);
        else if (rest.starts_with("<!--"))
            prolog.end = after(text, "-->", tag + 4);
        else if (rest.starts_with("<!DOCTYPE"))
            prolog.end = documentTypeEnd(text, tag, prolog.subset);
        else {
            prolog.end = tag;
            return prolog;
        }
    }
}

} // namespace

std::string rootElement(std::string_view utf8)
{
    const Prolog prolog = prologOf(utf8);
    if ((prolog.end >= utf8.size() && prolog.subset == std::string_view::npos) ||
        !isBlank(utf8.substr(0, utf8.find('<'))))
        return "";
    // Where declarations stand before it, the document type tells its name; the reader refuses them later.
    const std::size_t type = prolog.subset == std::string_view::npos ? prolog.end : utf8.find("<!DOCTYPE");
    std::string_view name = utf8.substr(type + 1);
    if (name.starts_with("!DOCTYPE"))
        name.remove_prefix(std::min(name.find_first_not_of(" \t\r\n", 8), name.size()));
    name = name.substr(0, name.find_first_of(" \t\r\n/>["));
    if (const std::size_t colon = name.find(':'); colon != std::string_view::npos)
        name.remove_prefix(colon + 1);
    return std::string(name);
}

} // namespace Kedrin::ModTool

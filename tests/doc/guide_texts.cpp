#include "guide_texts.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>
#include <utility>

namespace guide {

namespace fs = std::filesystem;

namespace {

void replaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

std::string withSingleBlanks(const std::string& text)
{
    std::istringstream words(text);
    std::string joined;
    for (std::string word; words >> word;)
        joined += (joined.empty() ? "" : " ") + word;
    return joined;
}

/// Reads the literal that begins at `at`, and moves `at` behind it.
std::string literalAt(const std::string& source, std::size_t& at)
{
    std::string literal;
    for (++at; at < source.size() && source[at] != '"'; ++at) {
        if (source[at] != '\\')
            literal += source[at];
        else if (const char escaped = source.at(++at); escaped == 'n')
            literal += ' ';
        else
            literal += escaped;
    }
    ++at;
    return literal;
}

/// Behind a comment or a character literal that begins at `at`; otherwise `at`.
std::size_t behindOther(const std::string& source, std::size_t at)
{
    const bool isLineStart = at == 0 || source[at - 1] == '\n';
    if (source.compare(at, 2, "//") == 0 || (isLineStart && source[at] == '#'))
        return std::min(source.find('\n', at), source.size());
    if (source.compare(at, 3, "'\"'") == 0)
        return at + 3;
    return at;
}

} // namespace

std::string contentOf(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::map<std::string, std::string> pagesOf(const std::string& language)
{
    std::map<std::string, std::string> pages;
    for (const auto& entry : fs::directory_iterator(fs::path(KEDRIN_PROJECT_FOLDER) / "doc/guide" / language))
        pages[entry.path().filename().string()] = contentOf(entry.path());
    return pages;
}

std::vector<std::string> literalsIn(const std::string& source)
{
    std::vector<std::string> literals;
    bool continues = false;
    for (std::size_t at = 0; at < source.size();) {
        if (const std::size_t behind = behindOther(source, at); behind != at) {
            at = behind;
        } else if (source[at] == '"') {
            const std::string literal = literalAt(source, at);
            if (continues)
                literals.back() += literal;
            else
                literals.push_back(literal);
            continues = true;
        } else if (std::string_view(" \t\n").find(source[at++]) == std::string_view::npos) {
            continues = false;
        }
    }
    for (std::string& literal : literals)
        literal = shown(std::move(literal));
    return literals;
}

std::map<std::string, std::string> catalogue()
{
    const std::string content = contentOf(fs::path(KEDRIN_PROJECT_FOLDER) / "src/modtool/terminal/bg.po");
    std::map<std::string, std::string> texts;
    for (std::size_t at = content.find("\nmsgid \""); at != std::string::npos;) {
        const std::size_t next = content.find("\nmsgid \"", at + 1);
        const std::vector<std::string> literals =
            literalsIn(content.substr(at, next == std::string::npos ? next : next - at));
        texts[literals.at(0)] = literals.back();
        at = next;
    }
    return texts;
}

std::string shown(std::string text)
{
    replaceAll(text, "&lt;", "<");
    replaceAll(text, "&gt;", ">");
    replaceAll(text, "&nbsp;", " ");
    replaceAll(text, "&", "");
    for (const char* filled : {"%s", "%u", "%1", "%2", "%3"})
        replaceAll(text, filled, "…");
    return withSingleBlanks(text);
}

std::vector<std::string> boldIn(const std::string& page)
{
    std::vector<std::string> texts;
    for (std::size_t begin = page.find("**"); begin != std::string::npos;) {
        const std::size_t end = page.find("**", begin + 2);
        texts.push_back(withSingleBlanks(page.substr(begin + 2, end - begin - 2)));
        begin = end == std::string::npos ? end : page.find("**", end + 2);
    }
    return texts;
}

std::string plain(const std::string& page)
{
    std::string text = page;
    replaceAll(text, "**", "");
    return withSingleBlanks(text);
}

} // namespace guide

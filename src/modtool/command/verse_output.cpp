#include "verse_output.h"

#include "text_columns.h"

#include <algorithm>
#include <cstdlib>

namespace Kedrin::ModTool {

namespace {

constexpr const char* boldRed = "\x1b[1;31m";
constexpr const char* plain = "\x1b[m";

/// A line of a text, from `begin` on, with its parts of the spans set off.
std::string highlighted(const std::string& line, std::size_t begin, const std::vector<TextSpan>& spans)
{
    std::string result;
    std::size_t written = 0;
    for (const TextSpan& span : spans) {
        const std::size_t from = std::clamp(span.begin, begin, begin + line.size()) - begin;
        const std::size_t to = std::clamp(span.end, begin, begin + line.size()) - begin;
        if (from == to)
            continue;
        result += line.substr(written, from - written) + boldRed + line.substr(from, to - from) + plain;
        written = to;
    }
    return result + line.substr(written);
}

} // namespace

void writeVerse(const std::string& label, const std::string& text, const VerseLayout& layout,
                std::ostream& out)
{
    const std::size_t indent = charactersIn(label) + 2;
    const bool isBroken = layout.width >= indent + CTextColumns::leastWidth;
    const std::vector<std::string> lines =
        isBroken ? brokenLines(text, layout.width - static_cast<unsigned int>(indent)) : std::vector{text};
    const std::vector<TextSpan> spans =
        layout.highlight ? layout.highlight->matches(text) : std::vector<TextSpan>();
    std::string before = label + "  ";
    std::size_t begin = 0;
    for (const std::string& line : lines) {
        begin = text.find(line, begin); // a blank may have gone between two lines
        out << before << highlighted(line, begin, spans) << '\n';
        begin += line.size();
        before.assign(indent, ' ');
    }
}

bool wantsColours(const std::ostream& out)
{
    const char* noColour = std::getenv("NO_COLOR");
    return terminalWidth(out, 0) != 0 && (!noColour || !*noColour);
}

} // namespace Kedrin::ModTool

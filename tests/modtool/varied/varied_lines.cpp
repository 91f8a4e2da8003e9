// USFM, verse lines and plain lines.

#include "varied_formats.h"

namespace varied_test {

namespace {

std::string number(unsigned int value) { return std::to_string(value); }

std::string usfmOf(const Text& text, CRandom& random)
{
    static constexpr const char* paragraphs[] = {"\\p", "\\q1", "\\m", "\\b\n\\q2"};
    std::string all;
    forEachPart(
        text, [&](const Book& book) { all += std::string("\\id ") + book.usfm + " for a test\n"; },
        [&](const Verse& verse) { all += "\\c " + number(verse.chapter) + '\n' + random.oneOf(paragraphs); },
        [&](const Verse& verse) {
            all += "\n\\v " + number(verse.verse) + (random.oneIn(6) ? "\u00A0" : " ");
            std::string words = withBlanks(verse.text, " \n\t", random);
            const std::size_t begin = words.find(' '), end = words.find(' ', begin + 1);
            if (end != std::string::npos && random.oneIn(2)) {
                words.insert(end, "\\add*");
                words.insert(begin + 1, "\\add ");
            }
            all += words;
            if (random.oneIn(3))
                all += std::string("\n") + random.oneOf(paragraphs);
        },
        [&] { all += '\n'; }, [] {});
    return all;
}

/// With CR only where the format says that any line end will do.
std::string finished(const std::string& lines, CRandom& random)
{
    return withByteOrderMark(withLineEnds(lines, false, random), random);
}

/// A line that is skipped, or none.
std::string blankLine(CRandom& random)
{
    static constexpr const char* lines[] = {"\n", " \t\n", ""};
    return random.oneIn(6) ? random.oneOf(lines) : "";
}

/// A field of a table with this delimiter.
std::string field(const std::string& content, const std::string& delimiter, CRandom& random)
{
    const bool hasQuotes = delimiter == "," || delimiter == ";";
    const bool isNeeded = content.find_first_of("\"\n" + delimiter) != std::string::npos;
    if (!hasQuotes || !(isNeeded || random.oneIn(3)))
        return content;
    std::string quoted = "\"";
    for (const char c : content)
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
}

} // namespace

std::vector<File> writeUsfm(const Text& text, CRandom& random)
{
    if (random.oneIn(2))
        return {{"made.usfm", withByteOrderMark(withLineEnds(usfmOf(text, random), true, random), random)}};
    std::vector<File> files;
    for (std::size_t begin = 0, end = 0; begin < text.size(); begin = end) {
        while (end < text.size() && text[end].book == text[begin].book)
            ++end;
        const Text book(text.begin() + static_cast<std::ptrdiff_t>(begin),
                        text.begin() + static_cast<std::ptrdiff_t>(end));
        const std::string name = number(100 + text[begin].book->number) + text[begin].book->usfm;
        files.push_back(
            {name.substr(1) + (random.oneIn(2) ? ".SFM" : ".usfm"), finished(usfmOf(book, random), random)});
    }
    return files;
}

std::vector<File> writeVerseLines(const Text& text, CRandom& random)
{
    std::string all = random.oneIn(3) ? "# title: Тест\n" : "";
    std::vector<std::string> lines;
    forEachPart(
        text, [](const Book&) {}, [](const Verse&) {},
        [&](const Verse& verse) {
            lines.push_back(std::string(verse.book->osis) + '\t' + number(verse.chapter) + '\t' +
                            number(verse.verse) + '\t' + withBlanks(verse.text, " \t", random) + '\n');
        },
        [] {},
        [&] {
            random.shuffle(lines);
            for (const std::string& line : lines)
                all += line + blankLine(random);
            lines.clear();
        });
    if (random.oneIn(3))
        all.pop_back();
    return {{"made.txt", finished(all, random)}};
}

std::vector<File> writePlainTable(const Text& text, CRandom& random)
{
    static constexpr const char* delimiters[] = {"||", "|", "\t", ";", ","};
    static constexpr const char* names[][4] = {{"book", "chapter", "verse", "text"},
                                               {"B", "C", "V", "T"},
                                               {"Книга", "Глава", "Стих", "Текст"},
                                               {"book_name", "ch", "vs", "Scripture"}};
    const std::string delimiter = random.oneOf(delimiters);
    const bool hasHeader = random.oneIn(2) || delimiter == "\t"; // without one it would be verse lines
    const auto& columns = random.oneOf(names);
    std::vector<unsigned int> order{0, 1, 2, 3};
    std::string all;
    if (hasHeader) {
        random.shuffle(order);
        for (const unsigned int column : order)
            all += (all.empty() ? "" : delimiter) + columns[column];
        all += '\n';
    }
    for (const Verse& verse : text) {
        const std::string texts[] = {
            random.oneIn(4) ? number(verse.book->number) : anyNameOf(*verse.book, random),
            number(verse.chapter), number(verse.verse), withBlanks(verse.text, " ", random)};
        std::string line;
        for (const unsigned int column : order)
            line += (line.empty() ? "" : delimiter) + field(texts[column], delimiter, random);
        all += line + '\n' + blankLine(random);
    }
    return {{"made.csv", finished(all, random)}};
}

std::vector<File> writePlainReferences(const Text& text, CRandom& random)
{
    static constexpr const char* signs[] = {":", ".", ","};
    const bool hasBrackets = random.oneIn(3);
    const std::string sign = random.oneOf(signs);
    std::string all;
    for (const Verse& verse : text) {
        const std::string reference = anyNameOf(*verse.book, random) + ' ' + number(verse.chapter) +
                                      (hasBrackets ? ":" : sign) + number(verse.verse);
        all += (hasBrackets ? '[' + reference + ']' : reference) + (random.oneIn(4) ? '\t' : ' ') +
               withBlanks(verse.text, " ", random) + '\n' + blankLine(random);
    }
    return {{"made.txt", finished(all, random)}};
}

std::vector<File> writePlainHeadings(const Text& text, CRandom& random)
{
    static constexpr const char* chapters[] = {"ГЛАВА ", "### Chapter ", "### Глава "};
    const unsigned int form = random.number(4);
    const std::string heading = random.oneOf(chapters);
    std::string all;
    forEachPart(
        text, [&](const Book& book) { all += "## " + anyNameOf(book, random) + '\n'; },
        [&](const Verse& verse) { all += heading + number(verse.chapter) + '\n'; },
        [&](const Verse& verse) {
            const std::string both = number(verse.chapter) + ':' + number(verse.verse);
            all += form == 0   ? '[' + both + ']'
                   : form == 1 ? "**[" + both + "]**"
                   : form == 2 ? number(verse.verse) + '.'
                               : number(verse.verse);
            all += ' ' + withBlanks(verse.text, " ", random) + '\n' + blankLine(random);
        },
        [] {}, [] {});
    return {{"made.md", finished(all, random)}};
}

std::vector<File> writePlainHashed(const Text& text, CRandom& random)
{
    std::vector<File> files;
    const auto escaped = [&](const std::string& words) {
        std::string some;
        for (const char c : words)
            some += c == '&'                      ? "&amp;"
                    : c == '<'                    ? "&lt;"
                    : c == '"' && random.oneIn(2) ? "&quot;"
                    : c == 'b' && random.oneIn(4) ? "&#98;"
                                                  : std::string(1, c);
        return some;
    };
    for (const Verse& verse : text) {
        const std::string name = number(100 + verse.book->number).substr(1) + '-' + verse.book->osis + ".dat";
        if (files.empty() || files.back().name != name)
            files.push_back({name, ""});
        files.back().bytes += '#' + number(verse.chapter) + ':' + number(verse.verse) + '#' +
                              escaped(withBlanks(verse.text, " ", random)) + '\n' +
                              (random.oneIn(5) ? "#p#\n" : "");
    }
    for (File& file : files)
        file.bytes = finished(file.bytes, random);
    return files;
}

} // namespace varied_test

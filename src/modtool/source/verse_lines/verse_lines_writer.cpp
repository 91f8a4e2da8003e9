#include "verse_lines_writer.h"

#include "verse_line_header.h"

namespace Kedrin::ModTool {

namespace {

std::string header(const SourceBible& bible)
{
    const SourceInfo& info = bible.info;
    std::string text = headerLine("title", info.fullTitle) + headerLine("short", info.shortTitle) +
                       headerLine("abbr", info.abbreviatedTitle);
    for (const std::string& line : info.copyright)
        text += headerLine("copyright", line);
    if (!bible.versification.empty())
        text += headerLine("versification", bible.versification);
    if (info.differences)
        text += headerLine("differences", *info.differences);
    for (std::size_t i = 0; info.keepsTitles && i < bible.books.size(); ++i)
        text += headerLine("book", bible.books[i] + '\t' + bible.bookTitles[i].fullTitle + '\t' +
                                       bible.bookTitles[i].shortTitle + '\t' +
                                       bible.bookTitles[i].abbreviatedTitle);
    return text;
}

} // namespace

std::string verseLinesFile(const SourceBible& bible)
{
    std::string content = header(bible);
    for (const SourceVerse& verse : bible.verses) {
        content += bible.books[verse.book] + '\t' + std::to_string(verse.chapter) + '\t' +
                   std::to_string(verse.verse) + '\t';
        content += bible.textOf(verse);
        content += '\n';
    }
    return content;
}

} // namespace Kedrin::ModTool

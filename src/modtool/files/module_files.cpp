#include "module_files.h"

#include "diff_records.h"
#include "escape.h"
#include "module_format.h"

namespace Kedrin::ModTool {

namespace {

/// Append a number in two or four bytes, little-endian.
void appendUnsigned16(std::string& out, unsigned int value)
{
    out += static_cast<char>(value & 0xFF);
    out += static_cast<char>(value >> 8 & 0xFF);
}

void appendUnsigned32(std::string& out, std::size_t value)
{
    for (unsigned int shift = 0; shift < 32; shift += 8)
        out += static_cast<char>(value >> shift & 0xFF);
}

} // namespace

std::string titlesFile(const ModuleData& module)
{
    std::string content = std::to_string(module.books.size());
    for (const ModuleBook& book : module.books)
        content += ' ' + std::to_string(book.globalID);
    content += '\n';
    for (const auto title : {&BookTitles::fullTitle, &BookTitles::shortTitle, &BookTitles::abbreviatedTitle})
        for (const BookTitles& titles : module.bookTitles)
            content += titles.*title + '\n';
    return content;
}

std::string structureFile(const ModuleData& module)
{
    std::string content;
    for (const ModuleBook& book : module.books) {
        content += std::to_string(book.versesCount.size());
        for (const unsigned int count : book.versesCount)
            content += ' ' + std::to_string(count);
        content += '\n';
    }
    return content;
}

std::string diffFile(const ModuleData& module)
{
    std::string content;
    for (const DiffRecord& record : module.diff)
        content += diffRecordText(record) + '\n';
    return content;
}

FileWithPoints textFiles(const ModuleData& module)
{
    FileWithPoints files;
    files.content.reserve(module.text.size() + module.verses.size() * verseLengthBytes);
    files.points.reserve(module.verses.size() * pointBytes);
    for (std::size_t verseNum = 0; verseNum < module.verses.size(); ++verseNum) {
        const std::string_view verse = module.verse(verseNum);
        appendUnsigned32(files.points, files.content.size());
        appendUnsigned16(files.content, static_cast<unsigned int>(escapedSize(verse)));
        appendEscaped(verse, files.content);
    }
    return files;
}

FileWithPoints wordListFiles(const ModuleData& module)
{
    FileWithPoints files;
    for (const std::string& word : module.words.words) {
        appendUnsigned32(files.points, files.content.size());
        files.content += word + "\r\n";
    }
    return files;
}

FileWithPoints concordanceFiles(const ModuleData& module)
{
    const WordIndex& index = module.words;
    FileWithPoints files;
    files.content.reserve((index.verseNums.size() + index.words.size()) * concordanceNumberBytes);
    for (std::size_t word = 0; word < index.words.size(); ++word) {
        appendUnsigned32(files.points, files.content.size() / concordanceNumberBytes);
        appendUnsigned16(files.content, index.firstEntry[word + 1] - index.firstEntry[word]);
        for (std::size_t i = index.firstEntry[word]; i < index.firstEntry[word + 1]; ++i)
            appendUnsigned16(files.content, index.verseNums[i] + 1u);
    }
    return files;
}

std::string infoFile(const ModuleData& module)
{
    const ModuleInfo& info = module.info;
    std::string content = info.fullTitle + '\n' + info.shortTitle + '\n' + info.abbreviatedTitle + '\n';
    for (const std::string& line : info.copyright)
        content += line + '\n';
    return content;
}

} // namespace Kedrin::ModTool

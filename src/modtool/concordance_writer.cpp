#include "file_contents.h"

namespace Kedrin::ModTool {

FileWithPoints concordanceFiles(const ModuleData& module)
{
    const WordIndex& index = module.words;
    FileWithPoints files;
    files.content.reserve((index.verseNums.size() + index.words.size()) * sizeof(std::uint16_t));
    for (std::size_t word = 0; word < index.words.size(); ++word) {
        appendUnsigned32(files.points, files.content.size() / sizeof(std::uint16_t));
        appendUnsigned16(files.content, index.firstEntry[word + 1] - index.firstEntry[word]);
        for (std::size_t i = index.firstEntry[word]; i < index.firstEntry[word + 1]; ++i)
            appendUnsigned16(files.content, index.verseNums[i] + 1u);
    }
    return files;
}

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

} // namespace Kedrin::ModTool

#include "escape.h"
#include "file_contents.h"

namespace Kedrin::ModTool {

FileWithPoints textFiles(const ModuleData& module)
{
    constexpr std::size_t lengthBytes = 2;
    FileWithPoints files;
    files.content.reserve(module.text.size() + module.verses.size() * lengthBytes);
    files.points.reserve(module.verses.size() * sizeof(std::uint32_t));
    for (std::size_t verseNum = 0; verseNum < module.verses.size(); ++verseNum) {
        const std::string_view verse = module.verse(verseNum);
        appendUnsigned32(files.points, files.content.size());
        appendUnsigned16(files.content, static_cast<unsigned int>(escapedSize(verse)));
        appendEscaped(verse, files.content);
    }
    return files;
}

} // namespace Kedrin::ModTool

#include "file_contents.h"

namespace Kedrin::ModTool {

std::string diffFile(const ModuleData& module)
{
    std::string content;
    for (const DiffRecord& record : module.diff)
        content += std::to_string(record.book) + ' ' + std::to_string(record.chapter) + ' ' +
                   std::to_string(record.verse) + ' ' + std::to_string(record.chapterDelta) + ' ' +
                   std::to_string(record.verseDelta) + '\n';
    return content;
}

} // namespace Kedrin::ModTool

#include "file_contents.h"

namespace Kedrin::ModTool {

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

} // namespace Kedrin::ModTool

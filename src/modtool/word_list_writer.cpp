#include "file_contents.h"

namespace Kedrin::ModTool {

FileWithPoints wordListFiles(const ModuleData& module)
{
    FileWithPoints files;
    for (const std::string& word : module.words.words) {
        appendUnsigned32(files.points, files.content.size());
        files.content += word + "\r\n";
    }
    return files;
}

} // namespace Kedrin::ModTool

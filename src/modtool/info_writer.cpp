#include "file_contents.h"

namespace Kedrin::ModTool {

std::string infoFile(const ModuleData& module)
{
    const ModuleInfo& info = module.info;
    std::string content = info.fullTitle + '\n' + info.shortTitle + '\n' + info.abbreviatedTitle + '\n';
    for (const std::string& line : info.copyright)
        content += line + '\n';
    return content;
}

} // namespace Kedrin::ModTool

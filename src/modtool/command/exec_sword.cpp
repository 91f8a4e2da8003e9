#include "exec_sword.h"

#include "errors.h"
#include "messages.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace Kedrin::ModTool {

void CSwordProgram::execute() const
{
    std::error_code ignored;
    const std::filesystem::path program =
        std::filesystem::read_symlink("/proc/self/exe", ignored).replace_filename("kedrin-module-sword");
    ::execv(program.c_str(), m_argv);
    if (errno == ENOENT)
        throw CPartMissing(tr("the part of the program with SWORD support is not installed; "
                              "apt install kedrin-module-sword installs it"));
    throw CPartMissing(program.string() + ": " + std::strerror(errno));
}

} // namespace Kedrin::ModTool

#include "exec_sword_window.h"

#include <unistd.h>

#include <filesystem>

namespace Kedrin::Add {

namespace fs = std::filesystem;

void execSwordWindow(char* argv[])
{
    std::error_code ignored;
    const fs::path self = fs::read_symlink("/proc/self/exe", ignored);
    const fs::path folder = self.parent_path();
    for (const fs::path& directory : {folder, (folder / KEDRIN_PRIVATE_DIR).lexically_normal()}) {
        const fs::path program = directory / "kedrin-add-sword";
        if (!fs::equivalent(program, self, ignored)) // a link to this program would execute itself for ever
            ::execv(program.c_str(), argv);
    }
}

} // namespace Kedrin::Add

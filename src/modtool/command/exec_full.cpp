#include "exec_full.h"

#include "errors.h"
#include "exit_codes.h"

#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <iostream>

namespace Kedrin::ModTool {

namespace {

constexpr const char* fullProgramName = "kedrin-module-all";

} // namespace

int execFullProgram(char* argv[])
{
    std::error_code ignored;
    const std::filesystem::path folder =
        std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    for (const auto& directory : {folder, (folder / KEDRIN_PRIVATE_DIR).lexically_normal()})
        ::execv((directory / fullProgramName).c_str(), argv);
    std::cerr << "kedrin-module: " << (folder / fullProgramName).string() << ": " << std::strerror(errno)
              << '\n';
    return exitTrouble;
}

} // namespace Kedrin::ModTool

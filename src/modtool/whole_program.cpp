#include "whole_program.h"

#include "module_error.h"

#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <iostream>

namespace Kedrin::ModTool {

namespace {

constexpr const char* wholeProgramName = "kedrin-module-all";

} // namespace

int becomeWholeProgram(char* argv[])
{
    std::error_code ignored;
    const std::filesystem::path folder =
        std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    for (const auto& place : {folder, (folder / KEDRIN_PRIVATE_DIR).lexically_normal()})
        ::execv((place / wholeProgramName).c_str(), argv);
    std::cerr << "kedrin-module: " << (folder / wholeProgramName).string() << ": " << std::strerror(errno)
              << '\n';
    return queryTrouble;
}

} // namespace Kedrin::ModTool

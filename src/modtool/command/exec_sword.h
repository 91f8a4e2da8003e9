#pragma once

#include "sword_texts.h"

namespace Kedrin::ModTool {

/// Stands in for the SWORD library in the program that is linked without it: whatever is asked replaces this process by
/// kedrin-module-sword, a file beside this program's, which runs the same command line with the library. Nothing must
/// have been written before.
class CSwordProgram final : public ISword
{
public:
    /// @param argv  the program's; outlives this object
    explicit CSwordProgram(char** argv) : m_argv(argv) {}

    /// @throws CPartMissing  the part that is missing and the command that installs it, or "%s: %s": why the file cannot
    ///                       be executed; otherwise does not return
    std::unique_ptr<ISwordTexts> installedTexts() const override { execute(); }
    std::unique_ptr<ISwordRepositories> repositories() const override { execute(); }

private:
    [[noreturn]] void execute() const;

    char** m_argv;
};

} // namespace Kedrin::ModTool

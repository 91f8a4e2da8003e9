#pragma once

#include "sword_texts.h"

namespace Kedrin::Add {

/// Stands in for the SWORD library where the part of the program that is linked with it is not installed.
class CMissingSword final : public ModTool::ISword
{
public:
    /// @throws CPartMissing  which package has the part, for the user to read
    std::unique_ptr<ModTool::ISwordTexts> installedTexts() const override { fail(); }
    std::unique_ptr<ModTool::ISwordRepositories> repositories() const override { fail(); }

private:
    [[noreturn]] static void fail();
};

} // namespace Kedrin::Add

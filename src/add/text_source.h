#pragma once

#include "sword_repositories.h"

#include <optional>
#include <string>

namespace Kedrin::Add {

/// Where a text is read from.
struct TextSource
{
    std::string text;                                   ///< a path, "sword:NAME", or a name in the repository
    std::optional<ModTool::SwordRepository> repository; ///< of SWORD texts

    bool usesNetwork() const { return repository && repository->isRemote(); }
};

} // namespace Kedrin::Add

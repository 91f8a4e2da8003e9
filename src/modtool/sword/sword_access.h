#pragma once

#include "sword_library.h"
#include "sword_repository.h"
#include "sword_texts.h"

#include <memory>

namespace Kedrin::ModTool {

/// For programs that are linked with the SWORD library.
class CSword final : public ISword
{
public:
    std::unique_ptr<ISwordTexts> installedTexts() const override { return std::make_unique<CSwordLibrary>(); }
    std::unique_ptr<ISwordRepositories> repositories() const override
    {
        return std::make_unique<CSwordRepositories>();
    }
};

} // namespace Kedrin::ModTool

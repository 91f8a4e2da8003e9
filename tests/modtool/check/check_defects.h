#pragma once

#include "check_fixture.h"

#include <string>
#include <vector>

namespace check_test {

/// A module with one defect.
struct Defect
{
    ModuleFiles files;
    std::string finding; ///< the only result of findingsOf()
};

/// At least one for each check of a module except size-limit, whose files are too large to be copied.
std::vector<Defect> allDefects();

} // namespace check_test

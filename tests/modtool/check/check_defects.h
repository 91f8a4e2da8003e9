#pragma once

#include "check_fixture.h"

#include <string>
#include <vector>

namespace check_test {

/// A module with one defect.
struct Defect
{
    ModuleFiles files;
    std::string finding; ///< as findingsOf() has to give it, and nothing else
};

/// At least one for each check of a module but size-limit, whose files are too large to be handed about.
std::vector<Defect> allDefects();

} // namespace check_test

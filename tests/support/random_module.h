#pragma once

#include "module_files.h"
#include "random.h"

namespace test_support {

/// A whole small module: one to four books with global numbers that are equal to the local ones, or are not;
/// verses of plain words, with markup and footnotes, or empty; sometimes differences of numbering.
ModuleFiles randomModule(const std::string& title, Random& random);

/// Damages a module in one to four of these ways: bytes changed; a file cut, extended, removed, emptied,
/// exchanged for another one of the same module, or for that of `other`; numbers replaced by extreme ones;
/// markup written into the verses; lines removed, repeated and replaced.
void damage(ModuleFiles& files, const ModuleFiles& other, Random& random);

} // namespace test_support

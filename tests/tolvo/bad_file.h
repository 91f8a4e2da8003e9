#pragma once

#include "memory_file.h"
#include "spoiled.h"
#include "thrown.h"
#include "walkers.h"

#include <gtest/gtest.h>

#include <set>

namespace test_support {

/// Corrupts a small valid file in every way (truncated to every length, every byte changed) and calls
/// `walk(path)` for each result. A file may be refused with one of `refusals` followed by its name; any other
/// exception fails the test.
template <typename Walk>
void walkSpoiled(const std::string& sound, const std::set<std::string>& refusals, Walk walk)
{
    const auto read = [&](const std::string& bytes) {
        const MemoryFile file(bytes);
        const std::string path = file.path();
        std::string refusal;
        EXPECT_NO_THROW(refusal = walk(path)) << testing::PrintToString(bytes);
        EXPECT_TRUE(refusal.empty() || (refusal.ends_with(path) &&
                                        refusals.contains(refusal.substr(0, refusal.size() - path.size()))))
            << refusal << " for " << testing::PrintToString(bytes);
    };
    forEveryCut(sound, read);
    forEverySpoiledByte(sound, read);
}

} // namespace test_support

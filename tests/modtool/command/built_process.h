#pragma once

#include "build_fixture.h"
#include "tool_process.h"

namespace process_test {

using Files = std::map<std::string, std::string>; ///< content by name

/// A module `modules/made` that the program builds in a separate process from one of two texts. Both have a
/// few hundred verses, so that writing takes some time.
class BuiltProcess : public build_test::Building
{
protected:
    BuiltProcess();

    /// The two texts, and the modules built from them; other builds are compared with these.
    std::string oldSource() const { return m_folder.file("old/Made.vpl"); }
    std::string newSource() const { return m_folder.file("new/Made.vpl"); }
    const Files& oldFiles() const { return m_oldFiles; }
    const Files& newFiles() const { return m_newFiles; }

    /// `kedrin-module build --quiet SOURCE modules/made`
    Command buildOf(const std::string& source) const { return tool({"build", "-q", source, made()}); }

    /// Makes the modules directory empty, or creates the old module in it.
    void beginWithNothing() const;
    void beginWithTheOldModule() const;

    /// Which module exists: the old one, the new one, or none.
    testing::AssertionResult isWhole() const;

    /// Builds the new module after a possibly interrupted build and checks that nothing else remains.
    testing::AssertionResult nextBuildSucceeds() const;

private:
    Files m_oldFiles;
    Files m_newFiles;
    std::string m_globalStructure;
};

} // namespace process_test

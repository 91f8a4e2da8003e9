#pragma once

#include "build_fixture.h"
#include "tool_process.h"

namespace process_test {

using Files = std::map<std::string, std::string>; ///< content by name

/// A module `modules/made` that the built program makes in a process of its own, of one of two texts. Both are of some
/// hundred verses, so that what is written takes its time.
class BuiltProcess : public build_test::Building
{
protected:
    BuiltProcess();

    /// The two texts, and what is built of them; other builds are compared with these.
    std::string oldSource() const { return m_folder.file("old/Made.vpl"); }
    std::string newSource() const { return m_folder.file("new/Made.vpl"); }
    const Files& oldFiles() const { return m_oldFiles; }
    const Files& newFiles() const { return m_newFiles; }

    /// `kedrin-module build --quiet SOURCE modules/made`
    Command buildOf(const std::string& source) const { return tool({"build", "-q", source, made()}); }

    /// Makes the modules directory empty, or one with the old module.
    void beginWithNothing() const;
    void beginWithTheOldModule() const;

    /// Whether the module is the old one or the new one, or none is there.
    testing::AssertionResult isWhole() const;

    /// Builds the new module where an interrupted build may have left something; nothing is beside it then.
    testing::AssertionResult nextBuildSucceeds() const;

private:
    Files m_oldFiles;
    Files m_newFiles;
    std::string m_globalStructure;
};

} // namespace process_test

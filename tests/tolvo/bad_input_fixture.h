#pragma once

#include "module_files.h"
#include "temp_folder.h"

#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace bad_input {

/// A function that uses a loaded translation, such as those in bible_walker.h.
using Walk = void (*)(const Kedrin::Tolvo::CBible&);

/// Exit code of a forked process whose module is refused with an unexpected message.
constexpr int unknownRefusal = 3;

/// The message of the std::runtime_error that `operation` throws; "" if it throws nothing.
std::string refusal(const std::function<void()>& operation);

/// For a forked process: validates and loads the module, and calls each of `walks` if it loads.
/// @returns the exit code: 0 if the result is one of the promised ones
int proveLoadAndWalk(const std::string& folder, const std::vector<Walk>& walks);

/// A module whose file GetParam() is to be damaged; its other files are valid.
class BadInput : public testing::TestWithParam<std::string>
{
protected:
    BadInput();

    /// Writes the bytes to the file under test and checks the result.
    void expectPromisedOutcomeOf(const std::string& bytes);

    /// Checks that the result for the module is a promised one.
    /// @returns whether it is
    bool expectPromisedOutcome();

    /// The message with which the module is refused, the same when validated and when loaded.
    std::string refusalOfModule() const;

    test_support::TempFolder folder;
    std::string module = folder.file("module");
    test_support::ModuleFiles files;
};

} // namespace bad_input

#pragma once

#include "module_files.h"
#include "temp_folder.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Kedrin::Tolvo {

/// Writes module files and loads them as one translation at a time.
class BibleFixture : public testing::Test
{
protected:
    const CBible& load(const test_support::ModuleFiles& files)
    {
        files.write(folder.path());
        m_bible = std::make_unique<CBible>(folder.path().string());
        return *m_bible;
    }

    test_support::TempFolder folder;

private:
    std::unique_ptr<CBible> m_bible;
};

/// The message of the std::out_of_range that an operation throws; "nothing thrown" if it throws none.
template <typename Operation>
std::string outOfRange(Operation operation)
{
    try {
        operation();
    } catch (const std::out_of_range& ex) {
        return ex.what();
    }
    return "nothing thrown";
}

/// New Testament books only, the second before the first: global 51 is local 0, global 50 local 1.
inline test_support::ModuleFiles lateBooks()
{
    using test_support::plainBook;
    return test_support::makeModule("Късни", {plainBook(51, "Марк", {2, 3}), plainBook(50, "Матей", {4})});
}

} // namespace Kedrin::Tolvo

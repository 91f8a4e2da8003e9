#include "tolvo_bible/global_refs.h"

#include "module_files.h"
#include "temp_folder.h"
#include "thrown.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stdexcept>

namespace {

using namespace Kedrin::Tolvo;
using Place = std::array<unsigned int, 3>;
using test_support::messageOf;

Place placeOf(const CRef& ref) { return {ref.bookID(), ref.chapter(), ref.verse()}; }

/// A translation of three books, with the given numbers of chapters and verses.
class GlobalRefs : public testing::TestWithParam<const char*>
{
protected:
    GlobalRefs()
    {
        test_support::ModuleFiles files = test_support::smallModule();
        files.bytes["BibleTitles.txt"] = "3 4 0 9\r\n";
        files.bytes["BibleStructure.csv"] = GetParam();
        files.bytes["_Diff_.txt"] = "5 2 1 1 -2\n1 2 1 0 3\n";
        files.write(m_folder.path());
        bible = std::make_unique<CBible>(m_folder.path().string());
        structure = std::make_unique<CBibleStructure>(m_folder.file("BibleStructure.csv").c_str(), 3);
    }

    std::unique_ptr<CBible> bible;
    std::unique_ptr<CBibleStructure> structure;

private:
    test_support::TempFolder m_folder;
};

INSTANTIATE_TEST_SUITE_P(Structures, GlobalRefs,
                         testing::Values("1 1 3 2 1 7 2 4 5", "2 3 4 1 2 0", "0 0 1 4", "1 3 0 1 4",
                                         "1 4 0 0", "3 5 0 4 1 1 0", "4 5 0 0 4 2 2 0 0", "3 0 2 0 0 2 1 0",
                                         "20 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 2 1 3 2 0 2", "0 0 0"));

TEST_P(GlobalRefs, AreThoseOfSingleVersesInAnyOrder)
{
    const CGlobalRefs refs(*bible, *structure);
    for (unsigned int first = 0; first < structure->totalVersesCount(); ++first)
        for (unsigned int second = 0; second < structure->totalVersesCount(); ++second) {
            CGlobalRefs::Walk walk(refs);
            std::vector<CRef> found;
            walk.append(first, found);
            walk.append(second, found);
            ASSERT_EQ(found.size(), 2u);
            EXPECT_EQ(placeOf(found[0]), placeOf(bible->toGlobal(structure->toRef(first))));
            EXPECT_EQ(placeOf(found[1]), placeOf(bible->toGlobal(structure->toRef(second))))
                << "after " << first;
            EXPECT_TRUE(found[0].isGlobal() && found[1].isGlobal());
        }
}

TEST_P(GlobalRefs, OfNumbersBeyondTheLastAreOutOfRange)
{
    const CGlobalRefs refs(*bible, *structure);
    const unsigned int total = structure->totalVersesCount();
    for (const unsigned int num : {total, total + 1, 4294967295u}) {
        CGlobalRefs::Walk walk(refs);
        std::vector<CRef> found;
        if (total > 0)
            walk.append(total - 1, found);
        EXPECT_EQ(messageOf<std::out_of_range>([&] { walk.append(num, found); }),
                  "CBibleSructure::ValidateNum(): verse number out of range");
        EXPECT_EQ(found.size(), total > 0 ? 1u : 0u);
    }
}

} // namespace

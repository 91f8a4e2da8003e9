#include "diff_records.h"

#include "errors.h"

#include <gmock/gmock.h>

namespace {

using namespace Kedrin::ModTool;
using testing::ElementsAre;

constexpr DiffRecord first{1, 2, 3, -1, 4};
constexpr DiffRecord largest{4294967295u, 4294967295u, 4294967295u, -2147483647 - 1, 2147483647};

TEST(DiffRecords, RecordIsPrintedAsFiveNumbers)
{
    EXPECT_EQ(diffRecordText(first), "1 2 3 -1 4");
    EXPECT_EQ(diffRecordText(largest), "4294967295 4294967295 4294967295 -2147483648 2147483647");
}

TEST(DiffRecords, PrintedRecordsAreReadAgain)
{
    EXPECT_THAT(parseDiffRecords(diffRecordText(first) + "\r\n\n" + diffRecordText(largest)),
                ElementsAre(first, largest));
    EXPECT_THAT(parseDiffRecords("1 2\n3\t-1\v+4\f"), ElementsAre(first)) << "any white space separates";
    EXPECT_TRUE(parseDiffRecords(" \r\n").empty());
}

TEST(DiffRecords, ReadingStopsAtARecordThatIsNotWhole)
{
    for (const std::string rest :
         {" 1 2 3 4", "\nx", " 1 2 3 0 2147483648", " -1 2 3 0 0", " 4294967296 1 1 0 0"}) {
        const std::string text = diffRecordText(first) + rest;
        EXPECT_THAT(readDiffRecords(text), ElementsAre(first)) << text;
        EXPECT_EQ(forEachDiffRecord(text, [](const DiffRecord&) {}), rest.substr(1));
        EXPECT_THROW(parseDiffRecords(text), CBuildError) << text;
    }
}

} // namespace

// `kedrin-module check --only` and `--ignore`: which checks are reported and count.

#include "build_fixture.h"
#include "module_files.h"

namespace {

using build_test::run;
using test_support::ModuleFiles;
using test_support::smallModule;
using test_support::TempFolder;

const std::string figures = "2 books, 4 verses (1 empty), 4 map both ways, 3 words\n";
const std::string warningText =
    "  warning word-points-missing (1): WordPoint.bin is missing; this reader does not need "
    "it, but others may. Build the module again.\n"
    "    WordPoint.bin\n";

TEST(CheckSelection, OnlySomeChecksAreReportedWhereAsked)
{
    const TempFolder folder;
    ModuleFiles files = smallModule();
    files.bytes.erase("WordPoint.bin");
    files.write(folder.path());
    const std::string path = folder.path().string();
    const std::string sound = path + ": sound; " + figures;
    EXPECT_EQ(run({"check", "--strict", "--ignore", "word-points-missing", path}).out, sound);
    EXPECT_EQ(run({"check", "--strict", "--ignore", "word-points-missing", path}).code, 0);
    EXPECT_EQ(run({"check", "--only", "word-empty", "--only", "word-bytes", path}).out, sound);
    EXPECT_EQ(run({"check", "--only", "word-points-missing", path}).out,
              path + ": sound, 1 warning; " + figures + warningText);
    EXPECT_EQ(run({"check", "--only", "word-points-missing", "--ignore", "word-points-missing", path}).out,
              sound);
}

TEST(CheckSelection, UnknownCheckIsAUsageError)
{
    const std::string again = "\nkedrin-module: try kedrin-module --help\n";
    EXPECT_EQ(run({"check", "--only", "file-misisng", "m"}).err,
              "kedrin-module: no check is named \"file-misisng\" (did you mean file-missing?)" + again);
    EXPECT_EQ(run({"check", "--ignore", "x", "m"}).err,
              "kedrin-module: no check is named \"x\" (check --list lists them)" + again);
    EXPECT_EQ(run({"check", "--ignore", "x", "m"}).code, 2);
}

} // namespace

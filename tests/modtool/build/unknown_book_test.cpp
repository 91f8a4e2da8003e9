// Books of a source that are not in the global numbering: known ones are left out, unknown ones only where asked.

#include "build_fixture.h"

namespace {

using build_test::Result;

class UnknownBooks : public build_test::Building
{
};

TEST_F(UnknownBooks, AreRefusedAllAtOnceWithNamesLikeThem)
{
    EXPECT_EQ(refusal("Gen\t1\t1\ta\nGenn\t1\t1\ta\nExodd\t1\t1\ta\nExodd\t1\t2\ta\nXyzzy\t1\t1\ta\n"),
              "kedrin-module: the text has books that are not known (--skip-unknown leaves them out):\n"
              "  Genn, 1 verse (did you mean Gen?)\n"
              "  Exodd, 2 verses (did you mean Exod?)\n"
              "  Xyzzy, 1 verse\n");
    EXPECT_EQ(build_test::namesIn(m_folder.path().string()), std::vector<std::string>{"Made.vpl"});
}

TEST_F(UnknownBooks, AreLeftOutWhereAskedAndSaidFirst)
{
    const Result result = build("Gen\t1\t1\ta\nXyzzy\t1\t1\ta b\n", {"--skip-unknown"});
    EXPECT_EQ(result.code, 0);
    EXPECT_TRUE(result.out.starts_with("left out      Xyzzy: 1 verse, not in the global numbering\n"
                                       "module        " +
                                       made() + '\n'))
        << result.out;
}

TEST_F(UnknownBooks, KnownOnesOutsideTheGlobalNumberingAreLeftOutAndSaidFirst)
{
    for (const std::string osis : {"PrMan", "4Macc", "EsthGr", "AddPs", "Odes"}) {
        const Result result = build("Gen\t1\t1\ta\n" + osis + "\t1\t1\ta\n");
        EXPECT_EQ(result.code, 0) << result.err;
        EXPECT_TRUE(result.out.starts_with("left out      " + osis + ": 1 verse")) << result.out;
    }
}

} // namespace

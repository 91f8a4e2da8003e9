// The source "-": what is read from standard input.

#include "build_fixture.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

namespace {

using build_test::Result;

class StandardInput : public build_test::Building
{
protected:
    void SetUp() override { m_before = ::dup(STDIN_FILENO); }
    void TearDown() override
    {
        ::dup2(m_before, STDIN_FILENO);
        ::close(m_before);
    }

    /// `kedrin-module` with these arguments and this on standard input.
    Result run(const std::vector<std::string>& arguments, const std::string& input) const
    {
        std::ofstream(m_folder.file("input"), std::ios::binary) << input;
        const int file = ::open(m_folder.file("input").c_str(), O_RDONLY);
        ::dup2(file, STDIN_FILENO);
        ::close(file);
        return build_test::run(arguments);
    }

private:
    int m_before = -1;
};

TEST_F(StandardInput, IsBuiltLikeAFile)
{
    EXPECT_EQ(run({"build", "-", made(), "--title", "Мой", "-q"}, "Gen\t1\t1\tБог\n"), (Result{0, "", ""}));
    EXPECT_EQ(verse(0, 0, 0), "Бог");
    EXPECT_TRUE(made("BibleTitles.txt").find('\0') == std::string::npos);
}

TEST_F(StandardInput, NeedsATitleOfItsOwn)
{
    EXPECT_EQ(run({"build", "-", made()}, "Gen\t1\t1\tБог\n").err,
              "kedrin-module: the full title is empty\n");
    EXPECT_EQ(run({"build", "-", made(), "-q"}, "# title: Мой\nGen\t1\t1\tБог\n"), (Result{0, "", ""}));
}

TEST_F(StandardInput, MayBeOfAnyFormatAndEncoding)
{
    EXPECT_EQ(run({"build", "-", made(), "--encoding", "windows-1251", "--title", "a", "-q"},
                  "<bible><b n=\"Genesis\"><c n=\"1\"><v n=\"1\">\xC1\xEE\xE3</v></c></b></bible>"),
              (Result{0, "", ""}));
    EXPECT_EQ(verse(0, 0, 0), "Бог");
}

TEST_F(StandardInput, FaultsNameItAsADash)
{
    EXPECT_EQ(run({"build", "-", made(), "--title", "a"}, "Gen\tx\t1\tБог\n").err,
              "kedrin-module: -:1: \"x\" is not a chapter number from 1 to 65534\n");
    EXPECT_EQ(run({"build", "-", made(), "--title", "a"}, std::string((64u << 20) + 1, ' ')).err,
              "kedrin-module: -: is larger than 64 MiB\n");
}

TEST_F(StandardInput, GivesAnAddedModuleTheNameOfItsTitle)
{
    ::setenv("XDG_DATA_HOME", m_folder.path().c_str(), 1);
    EXPECT_NE(
        run({"add", "-"}, "# title: Мой превод\nGen\t1\t1\tБог\n").out.find("\nadded         мой-превод; "),
        std::string::npos);
    ::unsetenv("XDG_DATA_HOME");
}

} // namespace

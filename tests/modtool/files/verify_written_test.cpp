// Written files are read back and compared before they are published.

#include "build.h"
#include "build_fixture.h"
#include "errors.h"
#include "prepare.h"
#include "read_source.h"
#include "spoiled.h"
#include "thrown.h"
#include "verify_written.h"

namespace {

using namespace Kedrin::ModTool;
using test_support::messageOf;

class ReadBack : public build_test::Building
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(build("Gen\t1\t1\tБог & рече\nGen\t2\t1\tбог\nJonah\t2\t2\tден\nJonah\t2\t3\tден\n",
                        {"--versification", "Synodal"})
                      .code,
                  0);
        BuildOptions options;
        options.versification = "Synodal";
        BuildReport report;
        m_module = prepareModule(readSourceFile(sourceName(), {}), options, report);
        m_roundTrips = report.diff.roundTrips;
    }

    /// The error found in the module on disk, without the common prefix of the messages.
    std::string wrong() const
    {
        const std::string message =
            messageOf<CBuildError>([&] { checkWritten(made(), m_module, m_roundTrips); });
        const std::string front = made() + ": the written module failed verification: ";
        return message.starts_with(front) ? message.substr(front.size()) : message;
    }

    void spoil(const std::string& name, const std::string& bytes) const
    {
        m_folder.write("modules/made/" + name, bytes);
    }

    ModuleData m_module;
    unsigned int m_roundTrips = 0;
};

TEST_F(ReadBack, FindsNothingWrongWithWhatWasWritten) { EXPECT_EQ(wrong(), "<nothing was thrown>"); }

TEST_F(ReadBack, FindsEverySpoiledByteOfTheFilesThatHoldNumbersAndWords)
{
    for (const char* name :
         {"CompactText.bin", "CompactPoint.bin", "WordList.txt", "WordPoint.bin", "Conc.bin", "ConcP.bin"}) {
        const std::string whole = made(name);
        test_support::forEverySpoiledByte(whole, [&](const std::string& bytes) {
            const bool hasZero = name == std::string("WordList.txt") && bytes.find('\0') != std::string::npos;
            if (bytes == whole || hasZero) // a zero byte ends a word like the end of its line
                return;
            spoil(name, bytes);
            EXPECT_THROW(checkWritten(made(), m_module, m_roundTrips), CBuildError)
                << name << ": " << testing::PrintToString(bytes);
        });
        spoil(name, whole);
    }
}

TEST_F(ReadBack, FindsEveryCutOfEveryFile)
{
    for (const std::string& name : build_test::namesIn(made())) {
        if (name == "_Diff_.txt")
            continue; // only its effect on positions counts: half a record has none
        const std::string whole = made(name);
        test_support::forEveryCut(whole, [&](const std::string& bytes) {
            if (bytes.size() + 1 == whole.size() && whole.back() == '\n' && name != "WordList.txt")
                return; // the last end of line has no effect
            spoil(name, bytes);
            EXPECT_THROW(checkWritten(made(), m_module, m_roundTrips), CBuildError)
                << name << ' ' << bytes.size();
        });
        spoil(name, whole);
    }
}

TEST_F(ReadBack, FindsEveryMissingFile)
{
    for (const std::string& name : build_test::namesIn(made())) {
        const std::string whole = made(name);
        std::filesystem::remove(made() + '/' + name);
        EXPECT_THROW(checkWritten(made(), m_module, m_roundTrips), CBuildError) << name;
        spoil(name, whole);
    }
}

TEST_F(ReadBack, SaysWhatIsWrong)
{
    const auto withOne = [&](const char* name, std::string bytes) {
        const std::string whole = made(name);
        spoil(name, bytes);
        const std::string found = wrong();
        spoil(name, whole);
        return found;
    };
    std::string text = made("CompactText.bin");
    text.back() = 'x';
    EXPECT_EQ(withOne("CompactText.bin", text), "the text of Jonah 2:3");
    std::string words = made("WordList.txt");
    words.front() = 'x';
    EXPECT_EQ(withOne("WordList.txt", words), "the word Бог");
    std::string entries = made("Conc.bin");
    entries[2] = '\x03';
    EXPECT_EQ(withOne("Conc.bin", entries), "the verses of the word Бог");
    EXPECT_EQ(withOne("BibleStructure.csv", "2 1 1\n3 1 1 3\n"), "the chapters of Jonah");
    EXPECT_EQ(withOne("BibleStructure.csv", "2 1 1\n2 1 2\n"), "the verses of Jonah 2");
    EXPECT_EQ(withOne("BibleTitles.txt", made("BibleTitles.txt").replace(2, 1, "1")), "the titles of Gen");
    EXPECT_EQ(withOne("_Info_.txt", "Other\nMade\nMade\n"), "the titles of the module");
    EXPECT_EQ(withOne("_Diff_.txt", ""), "the positions of the verses");
}

} // namespace

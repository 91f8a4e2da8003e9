#include "log_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <type_traits>

#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace std::string_literals;
using test_support::bytesOf;

using Logs = LogFile;

TEST_F(Logs, PrintfWritesTheExpansion)
{
    Log log = made(false, ILog::eachTime);
    log.printf("%s-%u%%\n", "a", 7u);
    log.printf("plain");
    EXPECT_EQ(written(), "a-7%\nplain");
}

TEST_F(Logs, PrintfWritesTextsOfAnyLength)
{
    Log log = made(false, ILog::eachTime);
    const std::string text(100000, 'x');
    log.printf("%s", text.c_str());
    EXPECT_EQ(written(), text);
}

TEST_F(Logs, CharactersAreWrittenAndSpecialOnesAsDots)
{
    Log log = made(false, ILog::eachTime);
    for (const char ch : "a%\r\n\t\a\0\x1B\b\xC1"s)
        log.myputc(ch);
    EXPECT_EQ(written(), "a%.....\x1B\b\xC1");
}

TEST_F(Logs, WithoutAppendingTheFileIsEmptiedAtOnce)
{
    hold("old");
    const Log log = made(false, ILog::eachTime);
    EXPECT_EQ(written(), "");
}

TEST_F(Logs, WithoutAppendingTheFileIsMadeAtOnce)
{
    const Log log = made(false, ILog::eachTime);
    EXPECT_TRUE(exists());
}

TEST_F(Logs, AppendingKeepsTheFile)
{
    for (const ILog::OpenFileMode mode : {ILog::eachTime, ILog::onlyOnce}) {
        hold("old\n");
        {
            Log log = made(true, mode);
            log.printf("new");
        }
        EXPECT_EQ(written(), "old\nnew") << mode;
    }
}

TEST_F(Logs, AppendingEachTimeMakesNoFileBeforeTheFirstWrite)
{
    Log log = made(true, ILog::eachTime);
    EXPECT_FALSE(exists());
    log.printf("x");
    EXPECT_EQ(written(), "x");
}

TEST_F(Logs, OpenedOnceTheFileIsThereAtOnceAndFilledInTheEnd)
{
    {
        Log log = made(true, ILog::onlyOnce);
        EXPECT_TRUE(exists());
        log.printf("x");
        EXPECT_EQ(written(), ""); // not flushed
    }
    EXPECT_EQ(written(), "x");
}

TEST_F(Logs, OpenedOnceItsBufferReachesTheFileWhenFull)
{
    Log log = made(false, ILog::onlyOnce);
    log.printf("%s", std::string(1 << 20, 'x').c_str());
    EXPECT_FALSE(written().empty());
}

TEST_F(Logs, OpenedOnceItWritesOnWhereTheFileWas)
{
    {
        Log log = made(false, ILog::onlyOnce);
        std::filesystem::rename(m_path, m_folder.file("moved"));
        log.printf("x");
    }
    EXPECT_FALSE(exists());
    EXPECT_EQ(bytesOf(m_folder.file("moved")), "x");
}

TEST_F(Logs, OpenedEachTimeItWritesWhereTheFileIs)
{
    Log log = made(false, ILog::eachTime);
    log.printf("a");
    std::filesystem::rename(m_path, m_folder.file("moved"));
    log.printf("b");
    EXPECT_EQ(written(), "b");
    EXPECT_EQ(bytesOf(m_folder.file("moved")), "a");
}

TEST_F(Logs, ClosesEveryFileItOpened)
{
    const auto lowestFree = [] {
        const int descriptor = ::open("/dev/null", O_RDONLY);
        ::close(descriptor);
        return descriptor;
    };
    const int before = lowestFree();
    for (const ILog::OpenFileMode mode : {ILog::eachTime, ILog::onlyOnce}) {
        Log log = made(false, mode);
        log.printf("x");
        log.dump(m_path.data(), 1, ILog::hex, "", "");
    }
    EXPECT_EQ(lowestFree(), before);
}

TEST_F(Logs, ANullNameDisablesWhateverIsAskedFor)
{
    for (const ILog::OpenFileMode mode : {ILog::eachTime, ILog::onlyOnce}) {
        Log log(nullptr, ILog::enable, false, mode, 0);
        EXPECT_TRUE(log.isDisabled());
        log.printf("x");
        EXPECT_TRUE(bool(log));
    }
}

TEST_F(Logs, MadeDisabledItTouchesNoFile)
{
    hold("old");
    Log log(m_path.c_str(), ILog::disable, false, ILog::onlyOnce, 3);
    log.printf("x");
    EXPECT_TRUE(log.isDisabled());
    EXPECT_TRUE(bool(log));
    EXPECT_EQ(log.getLevel(), 3);
    EXPECT_EQ(written(), "old");
}

// Constructed disabled, it has no file name.
TEST_F(Logs, MadeDisabledAndEnabledLaterItHasNowhereToWrite)
{
    for (const ILog::OpenFileMode mode : {ILog::eachTime, ILog::onlyOnce}) {
        hold("old");
        Log log(m_path.c_str(), ILog::disable, false, mode, 0);
        log.setEnable(ILog::enable);
        EXPECT_FALSE(log.isDisabled());
        log.printf("x");
        EXPECT_FALSE(bool(log));
        EXPECT_EQ(written(), "old");
    }
}

TEST_F(Logs, TheSwitchStopsAndResumesEveryKindOfWriting)
{
    Log log = made(false, ILog::eachTime);
    log.setEnable(ILog::disable);
    log.printf("x");
    log.myputc('x');
    log.dump(m_path.data(), 1, ILog::hex | ILog::text, "t", "h");
    log.logTime("x", 1, "run");
    log.logMemory("x", 1, "run");
    EXPECT_EQ(written(), "");
    log.setEnable(ILog::enable);
    log.printf("y");
    EXPECT_EQ(written(), "y");
}

TEST_F(Logs, LevelZeroWritesEverything)
{
    Log log = made(false, ILog::eachTime, 0);
    log.level(1000).printf("a");
    log.level(-1).printf("b");
    EXPECT_EQ(written(), "ab");
}

TEST_F(Logs, HigherLevelsAreDroppedUntilTheLevelIsLowAgain)
{
    Log log = made(false, ILog::eachTime, 3);
    log.printf("0");
    log.level(4).printf("4");
    log.printf("still 4");
    log.myputc('4');
    log.dump(m_path.data(), 1, ILog::text, "4", "4");
    log.logTime("4", 4, "COUNT");
    log.level(3).printf("3");
    log.printf("!");
    EXPECT_EQ(written(), "03!");
    EXPECT_EQ(log.getLevel(), 3);
}

TEST_F(Logs, LevelGivesTheLogItself)
{
    Log log = made(false, ILog::eachTime);
    EXPECT_EQ(&log.level(2), static_cast<ILog*>(&log));
}

TEST_F(Logs, AFileThatCannotBeMadeIsAnError)
{
    for (const bool append : {false, true}) {
        Log log((m_path + "/below").c_str(), ILog::enable, append, ILog::onlyOnce, 0);
        EXPECT_FALSE(bool(log)) << append;
        log.printf("x");
        EXPECT_FALSE(bool(log)) << append;
    }
}

TEST_F(Logs, AppendingEachTimeFindsTheErrorAtTheFirstWrite)
{
    Log log((m_path + "/below").c_str(), ILog::enable, true, ILog::eachTime, 0);
    EXPECT_TRUE(bool(log));
    log.dump(m_path.data(), 1, ILog::hex, "", "");
    EXPECT_FALSE(bool(log));
}

TEST_F(Logs, OpenedEachTimeItTriesAgainAndStaysMarked)
{
    Log log((m_path + "/below").c_str(), ILog::enable, true, ILog::eachTime, 0);
    log.printf("lost");
    std::filesystem::create_directory(m_path);
    log.printf("found");
    EXPECT_EQ(bytesOf(m_path + "/below"), "found");
    EXPECT_FALSE(bool(log));
}

TEST_F(Logs, OpenedOnceItDoesNotTryAgain)
{
    Log log((m_path + "/below").c_str(), ILog::enable, true, ILog::onlyOnce, 0);
    std::filesystem::create_directory(m_path);
    log.printf("lost");
    EXPECT_FALSE(std::filesystem::exists(m_path + "/below"));
}

// If truncating fails, the log stays bad: a file created later is not opened either.
TEST_F(Logs, AFailedEmptyingOpensNothingElse)
{
    Log log((m_path + "/below").c_str(), ILog::enable, false, ILog::onlyOnce, 0);
    std::filesystem::create_directory(m_path);
    log.printf("lost");
    EXPECT_FALSE(bool(log));
    EXPECT_FALSE(std::filesystem::exists(m_path + "/below"));
}

TEST(GlobalLog, IsDisabledAndSound)
{
    EXPECT_TRUE(g_log.isDisabled());
    EXPECT_TRUE(bool(g_log));
    EXPECT_EQ(g_log.getLevel(), 0);
    g_log.printf("x");
    EXPECT_TRUE(bool(g_log));
}

TEST(LogInterfaces, CannotBeDeletedThroughButTheLogCan)
{
    EXPECT_FALSE(std::is_destructible_v<ILog>);
    EXPECT_FALSE(std::is_destructible_v<ITimeLogWriter>);
    EXPECT_FALSE(std::is_destructible_v<IMemoryLogWriter>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Log>);
}

TEST(LogInterfaces, ModesAreFixedNumbers)
{
    EXPECT_EQ(ILog::hex, 1);
    EXPECT_EQ(ILog::text, 2);
    EXPECT_EQ(ILog::disable, 0);
    EXPECT_EQ(ILog::enable, 1);
    EXPECT_EQ(ILog::eachTime, 0);
    EXPECT_EQ(ILog::onlyOnce, 1);
}

} // namespace

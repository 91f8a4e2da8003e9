#include "log_file.h"

namespace {

using namespace std::string_literals;

/// The output for `count` missing bytes.
std::string blanks(std::size_t count) { return std::string(count * 3, ' '); }

using LogDump = LogFile;

TEST_F(LogDump, HexOfTwentyBytesIsAFullLineAndAPaddedOne)
{
    Log log = made(false, ILog::eachTime);
    std::string bytes = "0123456789ABCDEF\x01\xFFyz";
    log.dump(bytes.data(), bytes.size(), ILog::hex, "unused", "Title");
    EXPECT_EQ(written(), "\nTitle\n"
                         "30 31 32 33 34 35 36 37 38 39 41 42 43 44 45 46   0123456789ABCDEF\n"
                         "01 FF 79 7A " +
                             blanks(12) + "  \x01\xFFyz\n");
}

TEST_F(LogDump, HexOfSixteenBytesIsFollowedByAnEmptyLine)
{
    Log log = made(false, ILog::eachTime);
    std::string bytes = "0123456789ABCDEF";
    log.dump(bytes.data(), bytes.size(), ILog::hex, "unused", "T");
    EXPECT_EQ(written(), "\nT\n30 31 32 33 34 35 36 37 38 39 41 42 43 44 45 46   0123456789ABCDEF\n\n");
}

TEST_F(LogDump, HexOfNothingIsAnEmptyLine)
{
    Log log = made(false, ILog::eachTime);
    log.dump(nullptr, 0, ILog::hex, "unused", "T");
    EXPECT_EQ(written(), "\nT\n\n");
}

TEST_F(LogDump, SpecialBytesShowAsDotsAndOtherControlsRaw)
{
    Log log = made(false, ILog::eachTime);
    std::string bytes = "\0\r\n\t\a\x1B\b\x7F"s;
    log.dump(bytes.data(), bytes.size(), ILog::hex, "unused", "T");
    EXPECT_EQ(written(), "\nT\n00 0D 0A 09 07 1B 08 7F " + blanks(8) + "  .....\x1B\b\x7F\n");
}

TEST_F(LogDump, TextIsTheBytesWithoutCarriageReturns)
{
    Log log = made(false, ILog::eachTime);
    std::string bytes = "a\r\nb\0\t%s\xC1"s;
    log.dump(bytes.data(), bytes.size(), ILog::text, "Title", "unused");
    EXPECT_EQ(written(), "\nTitle\na\nb\0\t%s\xC1\n"s);
}

TEST_F(LogDump, TextComesBeforeHex)
{
    Log log = made(false, ILog::eachTime);
    std::string bytes = "x";
    log.dump(bytes.data(), 1, ILog::hex | ILog::text, "t", "h");
    EXPECT_EQ(written(), "\nt\nx\n\nh\n78 " + blanks(15) + "  x\n");
}

TEST_F(LogDump, WithoutABitNothingIsWritten)
{
    Log log = made(false, ILog::eachTime);
    log.dump(m_path.data(), 1, 4, "t", "h");
    EXPECT_EQ(written(), "");
}

TEST_F(LogDump, WorksOnAFileOpenedOnce)
{
    {
        Log log = made(false, ILog::onlyOnce);
        std::string bytes = "x";
        log.dump(bytes.data(), 1, ILog::text, "t", "h");
        log.printf("!");
    }
    EXPECT_EQ(written(), "\nt\nx\n!");
}

using LogWriters = LogFile;

TEST_F(LogWriters, TimesAreGivenInMicrosecondsAndWrittenInSeconds)
{
    Log log = made(false, ILog::eachTime);
    log.logTime("x", 1500000, "run");
    log.logTime("y", 499, "total");
    EXPECT_EQ(written(), "Scope {x} run execution time: 1.500 s\nScope {y} total execution time: 0.000 s\n");
}

TEST_F(LogWriters, MemoryIsGivenInBytesAndWrittenInKilobytes)
{
    Log log = made(false, ILog::eachTime);
    log.logMemory("x", 1536, "run");
    EXPECT_EQ(written(), "Scope {x} run memory usage: 1.500 K\n");
}

TEST_F(LogWriters, CountsAreWrittenAlikeByBoth)
{
    Log log = made(false, ILog::eachTime);
    log.logTime("x", 12, "COUNT");
    log.logMemory("y", 1e15, "COUNT");
    log.logTime("z", 2000000, "count");
    EXPECT_EQ(written(), "Scope {x} executions COUNT: 12\nScope {y} executions COUNT: 1000000000000000\n"
                         "Scope {z} count execution time: 2.000 s\n");
}

TEST_F(LogWriters, BothInterfacesReachTheLog)
{
    Log log = made(false, ILog::eachTime);
    ITimeLogWriter& times = log;
    IMemoryLogWriter& memory = log;
    times.logTime("a", 1000000, "run");
    memory.logMemory("b", 1024, "run");
    EXPECT_EQ(written(), "Scope {a} run execution time: 1.000 s\nScope {b} run memory usage: 1.000 K\n");
}

TEST_F(LogWriters, ValuesGoTheWayOfTheirInterface)
{
    Log log = made(false, ILog::eachTime);
    ITimeLogWriter& times = log;
    IMemoryLogWriter& memory = log;
    times.logValue("a", 1000000, "run");
    memory.logValue("b", 1024, "run");
    EXPECT_EQ(written(), "Scope {a} run execution time: 1.000 s\nScope {b} run memory usage: 1.000 K\n");
}

/// Collects the output instead of writing it.
class KeepingLog : public Log
{
public:
    using Log::Log;
    void printf(const char* format, ...) override { kept += format; }
    std::string kept;
};

TEST_F(LogWriters, CharactersTimesAndMemoryGoThroughTheVirtualPrintf)
{
    KeepingLog log(m_path.c_str(), ILog::enable, false, ILog::eachTime, 0);
    log.myputc('a');
    log.myputc('\n');
    log.logTime("x", 1, "COUNT");
    log.logMemory("x", 1, "run");
    EXPECT_EQ(log.kept, "%c.Scope {%s} executions COUNT: %.0lf\nScope {%s} %s memory usage: %.3lf K\n");
    EXPECT_EQ(written(), "");
}

} // namespace

#include "lets_out.h"

#include "io_failure.h"
#include "thrown.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <ios>
#include <stdexcept>

namespace {

using test_support::messageOf;
using testing::StartsWith;

template <typename Allowed, typename Thrown>
void letOut(const Thrown& thrown)
{
    ut::lets_out<Allowed>("CThing::work()", [&] { throw thrown; });
}

TEST(LetsOut, GivesTheResultOfTheBody)
{
    EXPECT_EQ(ut::lets_out<std::out_of_range>("work()", [] { return 7; }), 7);
    int number = 1;
    ut::lets_out<std::out_of_range>("work()", [&]() -> int& { return number; }) = 2;
    EXPECT_EQ(number, 2);
}

TEST(LetsOut, PassesAnAllowedType)
{
    EXPECT_EQ(messageOf<std::out_of_range>([] { letOut<std::out_of_range>(std::out_of_range("far")); }),
              "far");
}

TEST(LetsOut, PassesEachOfSeveralAllowedTypes)
{
    const auto work = [](bool range) {
        ut::lets_out<std::out_of_range, std::ios_base::failure>("work()", [&] {
            if (range)
                throw std::out_of_range("range");
            throw ut::CIoFailure("io");
        });
    };
    EXPECT_EQ(messageOf<std::out_of_range>([&] { work(true); }), "range");
    EXPECT_EQ(messageOf<std::ios_base::failure>([&] { work(false); }), "io");
}

TEST(LetsOut, PassesADerivedTypeUnsliced)
{
    EXPECT_EQ(messageOf<ut::CIoFailure>([] { letOut<std::ios_base::failure>(ut::CIoFailure("exact")); }),
              "exact");
    EXPECT_EQ(messageOf<std::out_of_range>([] { letOut<std::logic_error>(std::out_of_range("far")); }),
              "far");
}

TEST(LetsOutDeathTest, EndsTheProgramOnAForeignException)
{
    EXPECT_DEATH(letOut<std::out_of_range>(std::runtime_error("lost")),
                 StartsWith("CThing::work() let out an exception that its contract does not name: lost\n"));
}

// A base class of an allowed type is not allowed: handlers for the list would not catch it.
TEST(LetsOutDeathTest, EndsTheProgramOnABaseOfAnAllowedType)
{
    EXPECT_DEATH(letOut<std::out_of_range>(std::logic_error("base")),
                 StartsWith("CThing::work() let out an exception that its contract does not name: base\n"));
}

TEST(LetsOutDeathTest, EndsTheProgramOnWhatIsNoStandardException)
{
    EXPECT_DEATH(letOut<std::out_of_range>(7),
                 StartsWith("CThing::work() let out an exception that its contract does not name: "
                            "an exception of unknown type\n"));
}

TEST(LetsOutDeathTest, EndsTheProgramOnAnythingWhenNothingIsAllowed)
{
    EXPECT_DEATH(ut::lets_out<>("work()", [] { throw std::out_of_range("far"); }),
                 StartsWith("work() let out an exception that its contract does not name: far\n"));
}

TEST(LetsOutDeathTest, WritesAMessageOfSeveralLinesInOne)
{
    EXPECT_DEATH(
        letOut<std::out_of_range>(std::runtime_error("one\ntwo\n")),
        StartsWith("CThing::work() let out an exception that its contract does not name: one two \n"));
}

TEST(LetsOutDeathTest, EndsThroughTerminate)
{
    const auto die = [] {
        std::set_terminate([] { std::_Exit(42); });
        letOut<std::out_of_range>(std::runtime_error("lost"));
    };
    EXPECT_EXIT(die(), testing::ExitedWithCode(42), "lost");
}

TEST(IoFailure, SaysExactlyItsText)
{
    EXPECT_STREQ(ut::CIoFailure("cannot open file x").what(), "cannot open file x");
    EXPECT_STREQ(ut::CIoFailure("").what(), "");
}

TEST(IoFailure, IsCaughtAsAFailureOfTheStandardWithTheSameText)
{
    const auto fail = [] { throw ut::CIoFailure("cannot open file x"); };
    EXPECT_EQ(messageOf<std::ios_base::failure>(fail), "cannot open file x");
    EXPECT_EQ(messageOf<std::exception>(fail), "cannot open file x");
}

// The standard class is a runtime_error too, so an operation that wraps failures must not catch that type
// first.
TEST(IoFailure, IsARuntimeErrorToo)
{
    EXPECT_EQ(messageOf<std::runtime_error>([] { throw ut::CIoFailure("text"); }), "text");
}

TEST(IoFailure, ACopyKeepsTheText)
{
    const ut::CIoFailure original("text");
    const ut::CIoFailure copy(original); // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_STREQ(copy.what(), "text");
}

TEST(IoFailure, TextIsExactOfACopyAsTheStandardClassToo)
{
    const std::string text = "CTitles::CTitles(): error opening file f";
    for (const ut::CIoFailure& failure : {ut::CIoFailure(text), ut::CIoFailure(text, EMFILE)}) {
        EXPECT_STREQ(failure.what(), text.c_str());
        const std::ios_base::failure copy = failure; // NOLINT: like a handler that catches it by value
        EXPECT_STREQ(copy.what(), text.c_str());
    }
}

TEST(IoFailure, CodeIsTheSystemsReason)
{
    EXPECT_EQ(ut::CIoFailure("text", EMFILE).code(), std::errc::too_many_files_open);
    EXPECT_EQ(ut::CIoFailure("text").code(), std::make_error_code(std::io_errc::stream));
}

} // namespace

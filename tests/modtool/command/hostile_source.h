#pragma once

#include "built_process.h"
#include "sanitized.h"

#include <functional>

#include <sys/resource.h>

namespace process_test {

using test_support::isSanitized;

/// Repetitions of a text, until they have this many bytes.
inline std::string repeated(const std::string& text, std::size_t byteCount = 16u << 20)
{
    std::string all;
    all.reserve(byteCount + text.size());
    while (all.size() < byteCount)
        all += text;
    return all;
}

/// Many different things of one kind, "<a17f/>".
inline std::string numbered(const std::string& before, const std::string& after, unsigned int count)
{
    std::string all;
    for (unsigned int i = 0; i < count; ++i)
        all += before + std::to_string(i) + after;
    return all;
}

struct Hostile
{
    const char* name; ///< of the test
    std::function<std::string()> content;
    std::string said; ///< what follows "kedrin-module: "; "@" stands for the file; "" where it is harmless
};

inline void PrintTo(const Hostile& hostile, std::ostream* out) { *out << hostile.name; }

/// The built program with a source that is made to do harm, instantiated for the formats in several files.
class HostileSource : public BuiltProcess, public testing::WithParamInterface<Hostile>
{
protected:
    /// Runs the program with a gigabyte of address space and as many seconds of processor time as it must not need.
    static ForkedEnd runBounded(const Command& command)
    {
        return test_support::runForked([&]() -> int {
            const rlimit seconds{isSanitized ? 300u : 30u, RLIM_INFINITY};
            ::setrlimit(RLIMIT_CPU, &seconds);
            const rlimit bytes{1u << 30, 1u << 30};
            if (!isSanitized) // a sanitizer reserves more than any limit
                ::setrlimit(RLIMIT_AS, &bytes);
            become(command);
        });
    }

    std::string said(std::string message, const std::string& file) const
    {
        if (message.empty())
            return "";
        if (const std::size_t at = message.find('@'); at != std::string::npos)
            message.replace(at, 1, file);
        return "kedrin-module: " + message + '\n';
    }
};

inline std::string nameOfHostile(const testing::TestParamInfo<Hostile>& tested) { return tested.param.name; }

/// Entities that would be a billion times the first one, before this root element.
inline std::string bomb(const std::string& root)
{
    std::string type = "<!DOCTYPE " + root + " [<!ENTITY a 'ha'>";
    for (char name = 'b'; name < 'k'; ++name)
        type += std::string("<!ENTITY ") + name + " '" +
                repeated(std::string("&") + char(name - 1) + ';', 40) + "'>";
    return type + "]>";
}

inline const std::string declares = "@:1: declares entities or elements of its own, which is not allowed";
inline const std::string tooDeep = "@:1: elements are nested more than 100 deep";
inline const std::string tooLong = "@:1: not well-formed XML: part of it is too long";
inline const std::string tooManyNames = "@:1: not well-formed XML: it has too many names";
inline const std::string longVerse = "Gen 1:1: the verse has 16777216 bytes; the limit is 65535";
inline const std::string manyVerses = ": the module would have more than 65534 verses";

} // namespace process_test

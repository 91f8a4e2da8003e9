// Random texts in every format: the formats agree, and damaged sources are built or refused.

#include "agreement.h"
#include "hostile.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <fstream>
#include <iostream>

namespace {

using namespace varied_test;

std::string rowOf(const std::string& name, const HostileCounts& counts)
{
    return fmt::format("| {} | {} | {} | {} | {} | {} KiB | {:.2f} s | {} MiB |\n", name, counts.inputs,
                       counts.built, counts.refused, counts.failed, (counts.mostBytes + 1023) / 1024,
                       counts.longestSeconds, counts.mostMemory >> 20);
}

constexpr const char* page = R"(## Sources of every format

`random_sources` writes random texts in every format that `build` reads, by code of the tests alone, each time with
other line ends, encodings, quoting, comments, blanks, escapes, and orders of what has no order. Of {} texts
{} were read otherwise through any of the {} formats.

It then damages such sources and the corpus of the fuzzers (bits, bytes, parts removed, repeated and moved, other
numbers, signs with a meaning in some format), and builds each with `build --substitute`, in a process with 1 GiB of
address space and 30 s of processor time. Only two outcomes are allowed: a module, which the build has read back and
compared, or exit code 1 with a message that the documentation has, word for word.

| Format | Sources | Built | Refused | Otherwise | Largest | Longest | Most memory |
|---|---|---|---|---|---|---|---|
{}
Memory is that of a process that builds 500 of them, one after another.
)";

} // namespace

int main(int argc, char* argv[])
{
    unsigned int texts = 0, inputs = 0, first = 1;
    std::string format, keep, file;
    CLI::App options(
        "Random texts in every format: the formats agree, and damaged sources are built or refused.");
    options.add_option("--texts", texts, "How many texts to write in every format");
    options.add_option("--inputs", inputs, "How many damaged sources to build, of each format");
    options.add_option("--first", first, "The first seed");
    options.add_option("--format", format, "Damages sources of this format only");
    options.add_option("--keep", keep, "Folder for the sources of failures");
    options.add_option("--write", file, "Where to write the section of the quality report");
    CLI11_PARSE(options, argc, argv);

    const unsigned int differing = countDisagreements(texts, first, keep);
    std::cout << fmt::format("{} texts through {} formats; {} differ\n", texts, formats().size(), differing);
    unsigned int failed = 0;
    std::string rows;
    for (const Format& each : formats()) {
        if (inputs == 0 || (!format.empty() && format != each.name))
            continue;
        const HostileCounts counts = buildHostile(each, {inputs, first, keep});
        const std::string row = rowOf(each.name, counts);
        std::cout << row << std::flush;
        rows += row;
        failed += counts.failed;
    }
    if (!file.empty())
        std::ofstream(file) << fmt::format(page, texts, differing, formats().size(), rows);
    return differing + failed == 0 ? 0 : 1;
}

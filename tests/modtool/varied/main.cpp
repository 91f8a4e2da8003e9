// Random texts in every format: the formats agree, and damaged sources are built or refused.
//
//     random_sources [--texts N] [--inputs N] [--first SEED] [--format NAME] [--keep FOLDER] [--write FILE]

#include "agreement.h"
#include "hostile.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>

namespace {

using namespace varied_test;

/// The values of the options, or what stands for them.
class COptions
{
public:
    COptions(int argc, char* argv[])
    {
        for (int i = 1; i + 1 < argc; i += 2)
            m_values[argv[i]] = argv[i + 1];
    }

    unsigned int number(const std::string& name, unsigned int otherwise) const
    {
        const std::string value = text(name);
        return value.empty() ? otherwise : static_cast<unsigned int>(std::stoul(value));
    }

    std::string text(const std::string& name) const
    {
        const auto found = m_values.find(name);
        return found == m_values.end() ? "" : found->second;
    }

private:
    std::map<std::string, std::string> m_values;
};

std::string rowOf(const std::string& name, const HostileCounts& counts)
{
    std::ostringstream row;
    row.precision(2);
    row << std::fixed << "| " << name << " | " << counts.inputs << " | " << counts.built << " | "
        << counts.refused << " | " << counts.failed << " | " << (counts.mostBytes + 1023) / 1024 << " KiB | "
        << counts.longestSeconds << " s | " << (counts.mostMemory >> 20) << " MiB |\n";
    return row.str();
}

std::string section(unsigned int texts, unsigned int differing, const std::string& rows)
{
    std::ostringstream page;
    page << "## Sources of every format\n\n"
            "`random_sources` writes random texts in every format that `build` reads, by code of the tests "
            "alone, each "
            "time with\n"
            "other line ends, encodings, quoting, comments, blanks, escapes, and orders of what has no "
            "order. Of "
         << texts << " texts\n"
         << differing << " were read otherwise through any of the " << formats().size()
         << " formats.\n\n"
            "It then damages such sources and the corpus of the fuzzers (bits, bytes, parts removed, "
            "repeated and "
            "moved, other\n"
            "numbers, signs with a meaning in some format), and builds each with `build --substitute`, in a "
            "process "
            "with 1 GiB of\n"
            "address space and 30 s of processor time. Only two outcomes are allowed: a module, which the "
            "build has "
            "read back and\n"
            "compared, or exit code 1 with a message that the documentation has, word for word.\n\n"
            "| Format | Sources | Built | Refused | Otherwise | Largest | Longest | Most memory |\n"
            "|---|---|---|---|---|---|---|---|\n"
         << rows << "\nMemory is that of a process that builds 500 of them, one after another.\n";
    return page.str();
}

} // namespace

int main(int argc, char* argv[])
{
    const COptions options(argc, argv);
    const unsigned int texts = options.number("--texts", 0), inputs = options.number("--inputs", 0),
                       first = options.number("--first", 1);
    const unsigned int differing = countDisagreements(texts, first, options.text("--keep"));
    std::printf("%u texts through %zu formats; %u differ\n", texts, formats().size(), differing);
    unsigned int failed = 0;
    std::string rows;
    for (const Format& format : formats()) {
        if (inputs == 0 || (!options.text("--format").empty() && options.text("--format") != format.name))
            continue;
        const HostileCounts counts = buildHostile(format, {inputs, first, options.text("--keep")});
        rows += rowOf(format.name, counts);
        failed += counts.failed;
    }
    std::cout << rows;
    if (const std::string file = options.text("--write"); !file.empty())
        std::ofstream(file) << section(texts, differing, rows);
    return differing + failed == 0 ? 0 : 1;
}

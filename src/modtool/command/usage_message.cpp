#include "usage_message.h"

#include "ascii.h"
#include "help_formatter.h"
#include "messages.h"
#include "spelling.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

namespace {

/// A message of the parser, with "%s" for what it inserts, and the message shown instead.
struct Sentence
{
    const char* parsers;
    const char* english;
};

constexpr std::array sentences = {
    Sentence{"The following argument was not expected: %s", translatable("unexpected argument: %s")},
    Sentence{"The following arguments were not expected: %s", translatable("unexpected arguments: %s")},
    Sentence{"A subcommand is required", translatable("a command is required")},
    Sentence{"%s is required", translatable("%s is required")},
    Sentence{"%s: %s required %s missing", translatable("%s requires a value")},
    Sentence{"%s: At Most %s required but received %s", translatable("%s may be given only once")},
    Sentence{"Could not convert: %s = %s", translatable("invalid value: %s = %s")},
    Sentence{"%s: Value %s not in range %s to %s", translatable("%s: %s is not between %s and %s")},
    Sentence{"%s: %s not in %s", translatable("%s: %s is not one of %s")},
    Sentence{"%s: too many inputs for a flag", translatable("%s: too many values")},
    Sentence{"%s was given a disallowed flag override", translatable("%s does not take a value")},
    Sentence{"%s excludes %s", translatable("%s cannot be combined with %s")},
};

/// The parts of `said` at the "%s" of `sentence`; nothing if it is another message.
std::optional<std::vector<std::string>> partsOf(std::string_view said, std::string_view sentence)
{
    constexpr std::string_view placeholder = "%s";
    std::vector<std::string> parts;
    std::size_t begin = sentence.find(placeholder);
    if (!said.starts_with(sentence.substr(0, begin)))
        return std::nullopt;
    said.remove_prefix(std::min(begin, sentence.size()));
    while (begin != std::string_view::npos) {
        sentence.remove_prefix(begin + placeholder.size());
        begin = sentence.find(placeholder);
        const std::string_view after = sentence.substr(0, begin);
        const std::size_t end = begin != std::string_view::npos ? said.find(after)
                                : said.ends_with(after)         ? said.size() - after.size()
                                                                : std::string_view::npos;
        if (end == std::string_view::npos)
            return std::nullopt;
        parts.emplace_back(said.substr(0, end));
        said.remove_prefix(end + after.size());
    }
    return said.empty() ? std::optional(parts) : std::nullopt;
}

/// " (did you mean --count?)" for the first unknown option; "" where none is like it.
std::string optionsLike(const CLI::ParseError& error, const CLI::App& parser)
{
    const std::string said = error.what();
    const std::size_t begin = said.find(" --");
    if (!dynamic_cast<const CLI::ExtrasError*>(&error) || begin == std::string::npos)
        return "";
    const std::string typed = said.substr(begin + 1, said.find_first_of(" =", begin + 1) - begin - 1);
    std::vector<std::string> names;
    for (const CLI::App* command : parser.get_subcommands())
        for (const CLI::Option* option : command->get_options())
            for (const std::string& name : option->get_lnames())
                names.push_back("--" + name);
    const std::string like = namesLike(typed, names);
    return like.empty() ? "" : message(" (did you mean %s?)", like);
}

} // namespace

std::string namesLike(const std::string& typed, const std::vector<std::string>& names)
{
    std::vector<std::string> nearest;
    std::size_t least = std::numeric_limits<std::size_t>::max();
    for (const std::string& name : names) {
        const std::size_t misspelt = lettersMisspelt(typed, name).value_or(least);
        if (misspelt < least)
            nearest.clear();
        least = std::min(least, misspelt);
        if (lettersMisspelt(typed, name) == least)
            nearest.push_back(name);
    }
    return joined(nearest, ", ");
}

std::string usageMessage(const CLI::ParseError& error, const CLI::App& parser)
{
    std::string said = error.what();
    for (const Sentence& sentence : sentences)
        if (auto parts = partsOf(said, sentence.parsers)) {
            for (std::string& part : *parts)
                part = argumentName(part);
            return expanded(tr(sentence.english), *parts) + optionsLike(error, parser);
        }
    return said; // the tool's own message, already translated
}

} // namespace Kedrin::ModTool

#include "usage_message.h"

#include "help_formatter.h"
#include "messages.h"

#include <array>
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

} // namespace

std::string usageMessage(const CLI::ParseError& error)
{
    std::string said = error.what();
    for (const Sentence& sentence : sentences)
        if (auto parts = partsOf(said, sentence.parsers)) {
            for (std::string& part : *parts)
                part = argumentName(part);
            return expanded(tr(sentence.english), *parts);
        }
    return said; // the tool's own message, already translated
}

} // namespace Kedrin::ModTool

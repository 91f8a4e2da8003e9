#include "usage_message.h"

#include "messages.h"

#include <array>
#include <optional>
#include <string_view>

namespace Kedrin::ModTool {

namespace {

/// A sentence of the parser, "%s" where it puts something in, and what is said instead.
struct Sentence
{
    const char* parsers;
    const char* english;
};

constexpr Sentence unchanged(const char* english) { return {english, english}; }

constexpr std::array sentences = {
    unchanged(translatable("The following argument was not expected: %s")),
    unchanged(translatable("The following arguments were not expected: %s")),
    unchanged(translatable("A subcommand is required")),
    unchanged(translatable("%s is required")),
    Sentence{"%s: %s required %s missing", translatable("%s needs a value")},
    Sentence{"%s: At Most %s required but received %s", translatable("%s may be given only once")},
    unchanged(translatable("Could not convert: %s = %s")),
    unchanged(translatable("%s: Value %s not in range %s to %s")),
    unchanged(translatable("%s: %s not in %s")),
    unchanged(translatable("%s: too many inputs for a flag")),
    unchanged(translatable("%s was given a disallowed flag override")),
    unchanged(translatable("%s excludes %s")),
};

/// What stands in `said` where `sentence` has its "%s"; nothing where it is another sentence.
std::optional<std::vector<std::string>> partsOf(std::string_view said, std::string_view sentence)
{
    constexpr std::string_view place = "%s";
    std::vector<std::string> parts;
    std::size_t begin = sentence.find(place);
    if (!said.starts_with(sentence.substr(0, begin)))
        return std::nullopt;
    said.remove_prefix(std::min(begin, sentence.size()));
    while (begin != std::string_view::npos) {
        sentence.remove_prefix(begin + place.size());
        begin = sentence.find(place);
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
        if (const auto parts = partsOf(said, sentence.parsers))
            return expanded(tr(sentence.english), *parts);
    return said; // our own, in the user's language already
}

} // namespace Kedrin::ModTool

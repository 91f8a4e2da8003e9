#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace Kedrin::ModTool {

// The commands add their options through these functions, so that few sources include the parser's header, which takes
// many seconds to compile.

/// An option or argument of a command, of which the parser stays the owner. Each function returns the object itself.
class COption
{
public:
    explicit COption(CLI::Option* option) : m_option(option) {}

    /// The command line must have it.
    const COption& require() const;

    /// Shown in the help behind its name.
    const COption& typeName(const char* name) const;

    /// Shown in the help behind its name, in place of its type and conditions.
    const COption& text(const char* text) const;

    /// May be given several times, with one value each; the other words behind it are arguments.
    const COption& takeOneEach() const;

    /// Accepts values from `least` to `most`.
    const COption& range(std::size_t least, std::size_t most) const;

    /// Accepts these values only.
    const COption& oneOf(const std::vector<std::string>& values) const;

    /// Cannot be combined with the other.
    const COption& excludes(const COption& other) const;

private:
    CLI::Option* m_option;
};

/// Adds a command to the program's parser.
/// @param name         as it is typed
/// @param description  what it does, in one line; English, translated here
/// @param helpText     shown in its help after the options: examples, exit codes; English, translated here
CLI::App* addCommand(CLI::App& program, const char* name, const char* description, const char* helpText);

/// Adds an option without a value. The variable, like those below, is set while the command line is parsed, and
/// outlives that.
/// @param names        separated by a comma
/// @param description  shown in the help; translated already
COption addFlag(CLI::App& command, const char* names, bool& variable, const char* description);

/// Adds an option with a value, or, without a leading hyphen, an argument.
COption addOption(CLI::App& command, const char* names, std::string& variable, const char* description);
COption addOption(CLI::App& command, const char* names, std::size_t& variable, const char* description);
COption addOption(CLI::App& command, const char* names, unsigned int& variable, const char* description);

/// Adds an option with several values, or an argument that takes the remaining words.
COption addOption(CLI::App& command, const char* names, std::vector<std::string>& variable,
                  const char* description);

/// Adds an option whose value is given to a function, which returns "" or what is wrong with it.
COption addOption(CLI::App& command, const char* name,
                  std::function<std::string(const std::string& value)> function, const char* description);

/// Whether the command line names this command.
bool isParsed(const CLI::App& command);

/// Whether the command line has this option or argument of the command.
bool isGiven(const CLI::App& command, const char* name);

} // namespace Kedrin::ModTool

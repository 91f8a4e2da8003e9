#pragma once

#include "build_options.h"
#include "source_format.h"

#include <string>

namespace CLI {
class App;
}

namespace Kedrin::ModTool {

/// The options that say how a source is read and what its module is called: --title, --short, --abbr, --versification,
/// --from, --encoding, --book, --book-order, --titles, --copyright.
class CSourceOptions
{
public:
    /// Adds the options to a command. This object outlives the parsing.
    void addTo(CLI::App& command);

    /// Whether any was given.
    bool areGiven() const;

    const ReadOptions& reading() const { return m_reading; }

    /// Reads the file of --copyright.
    /// @throws CBuildError  as readText()
    BuildOptions building() const;

    /// "" if not given
    const std::string& copyrightFile() const { return m_copyrightFile; }

private:
    void addReadingOptions(CLI::App& command);

    ReadOptions m_reading;
    BuildOptions m_building;
    std::string m_copyrightFile;
};

} // namespace Kedrin::ModTool

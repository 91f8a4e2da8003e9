#pragma once

#include <string>

namespace Kedrin::Tolvo {

/// The information record of a module (doc/formats/info.md): three titles and a copyright text, in
/// Windows-1251. A missing file is not an error. Throws only std::bad_alloc.
class CBibleInfo
{
public:
    /// Reads the file; if it is missing or cannot be read, every title is `defaults`, the name of the module
    /// folder. If a line is longer than 255 bytes, its first 255 bytes are the title and the following titles
    /// repeat it.
    CBibleInfo(const char* filePath, const char* defaults);

    std::string copyright() const { return m_copyright; } ///< its lines, each ended by '\n'
    std::string fullTitle() const { return m_fullTitle; }
    std::string shortTitle() const { return m_shortTitle; }
    std::string abbreveatedTitle() const { return m_abbreveatedTitle; } ///< spelt so in every caller

private:
    std::string m_copyright;
    std::string m_fullTitle;
    std::string m_shortTitle;
    std::string m_abbreveatedTitle;
};

} // namespace Kedrin::Tolvo

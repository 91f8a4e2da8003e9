#pragma once

#include <string>

namespace Kedrin::Tolvo {

/// What a module says of itself (doc/formats/info.md): three titles and a copyright text, in Windows-1251. A
/// missing file is no error. Nothing throws but std::bad_alloc.
class CBibleInfo
{
public:
    /// Reads the file; without one, or one that cannot be read, every title is `defaults`, the module folder's
    /// name. After a line of more than 255 bytes, whose first 255 are taken for a title, the titles that follow
    /// repeat the one before.
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

#pragma once

#include <cstddef>
#include <ostream>
#include <string>

namespace Kedrin::ModTool {

/// A progress bar on one line of a terminal, rewritten in place. Does nothing without a terminal.
class CProgress
{
public:
    /// @param terminal  where to draw; null: nowhere. It outlives this object.
    explicit CProgress(std::ostream* terminal) : m_terminal(terminal) {}
    ~CProgress() { clear(); }
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;

    /// Draws "[#####-----]  50 % name" when the picture changes.
    /// @param done,total  any unit; a total of 0 counts as done
    void show(const std::string& name, std::size_t done, std::size_t total);

    /// Erases the bar; call before other output.
    void clear();

private:
    std::ostream* m_terminal;
    std::string m_shown;
};

} // namespace Kedrin::ModTool

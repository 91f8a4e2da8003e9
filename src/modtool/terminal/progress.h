#pragma once

#include <cstddef>
#include <ostream>
#include <string>

namespace Kedrin::ModTool {

/// Is told how far a long operation has come.
class IProgress
{
public:
    virtual ~IProgress() = default;

    /// May throw to abandon the operation as long as `done` is less than `total`; the operation lets the exception out
    /// and leaves nothing behind. With `done` equal to `total` it is complete, and nothing is thrown.
    /// @param name        what is being done, in the user's language
    /// @param done,total  any unit; a total of 0 counts as done
    virtual void show(const std::string& name, std::size_t done, std::size_t total) = 0;

    /// Other output follows.
    virtual void clear() = 0;
};

/// A progress bar on one line of a terminal, rewritten in place. Does nothing without a terminal.
class CTerminalProgress final : public IProgress
{
public:
    /// @param terminal  where to draw; null: nowhere. It outlives this object.
    explicit CTerminalProgress(std::ostream* terminal) : m_terminal(terminal) {}
    ~CTerminalProgress() override { clear(); }
    CTerminalProgress(const CTerminalProgress&) = delete;
    CTerminalProgress& operator=(const CTerminalProgress&) = delete;

    /// Draws "[#####-----]  50 % name" when the picture changes.
    void show(const std::string& name, std::size_t done, std::size_t total) override;

    /// Erases the bar.
    void clear() override;

private:
    std::ostream* m_terminal;
    std::string m_shown;
};

} // namespace Kedrin::ModTool

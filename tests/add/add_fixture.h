#pragma once

#include "add_window.h"
#include "made_sword.h"
#include "sword_access.h"
#include "temp_folder.h"

#include <QLabel>
#include <QStringList>

#include <memory>
#include <string>

namespace add_test {

/// A file of one verse, "Бог".
inline constexpr const char* oneVerse = "Gen\t1\t1\tБог\n";

inline constexpr int longestWait = 30000; ///< milliseconds, on a machine that does much else

/// One window in a home of its own, with what people do to it and see of it. Only what a test installs is there.
class AddFixture
{
public:
    AddFixture();
    ~AddFixture();
    AddFixture(const AddFixture&) = delete;
    AddFixture& operator=(const AddFixture&) = delete;

    /// Makes the window, shows it and waits until it is active.
    Kedrin::Add::CAddWindow& open() { return openWith(m_library); }
    Kedrin::Add::CAddWindow& openWith(const Kedrin::ModTool::ISword& sword);
    void closeWindow() { m_window.reset(); }
    Kedrin::Add::CAddWindow& window() const { return *m_window; }

    /// A part of the window by its object name.
    template <typename Widget = QWidget>
    Widget* part(const char* name) const
    {
        auto* found = m_window->findChild<Widget*>(QString::fromLatin1(name));
        if (!found)
            qFatal("there is no %s", name);
        return found;
    }

    /// Drops files or folders on the window.
    void drop(const QStringList& paths) const { dropOn(*m_window, paths); }
    void dropOn(QWidget& target, const QStringList& paths) const;
    /// The same for one, and waits until it has been read.
    void dropAndWait(const std::string& path) const;
    void click(const char* button) const;
    /// Clicks "Add" and waits for its end.
    void addAndWait() const;
    /// Focus on the field, its text replaced by typing.
    void typeInto(const char* field, const QString& text) const;

    QString textOf(const char* label) const { return part<QLabel>(label)->text(); }
    bool isSeen(const char* name) const { return part(name)->isVisible(); }
    bool isWorking() const { return isSeen("progress"); }

    /// Writes a file and returns its path.
    std::string file(const std::string& name, const std::string& content = oneVerse) const
    {
        return m_home.write(name, content);
    }
    std::string home(const std::string& name) const { return m_home.file(name); }

    /// The names of the folders of the user's own modules, hidden ones too.
    QStringList folders() const;
    const build_test::MadeSword& sword() const { return m_sword; }

private:
    build_test::MadeSword m_sword;
    test_support::TempFolder m_home;
    const Kedrin::ModTool::CSword m_library;
    std::unique_ptr<Kedrin::Add::CAddWindow> m_window;
};

/// A text large enough that a build of it takes a while: all verses of the global numbering.
std::string largeText();

/// Builds a module and installs it.
void install(const AddFixture& fixture, const std::string& name);

} // namespace add_test

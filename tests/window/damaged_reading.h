#pragma once

#include "form_fixture.h"
#include "random.h"

namespace window_test {

/// What came of using a window whose translations may be damaged.
struct ReadingEnd
{
    QString defect;             ///< what must not happen; empty if nothing of it did
    bool readingFailed = false; ///< a box "Error": the view is locked until the process ends
    bool searchFailed = false;  ///< a box "Search Error:"
};

/// Reads and searches the current translation with actions chosen by `random`, by mouse and by keyboard, and
/// checks after each that there was at most one message box, with a documented text, and no exception.
class DamagedReading
{
public:
    DamagedReading(FormFixture& window, test_support::Random& random) : m_window(window), m_random(random) {}

    ReadingEnd actionsOf(unsigned int count);

    /// The text of the exception that left a slot; empty if there was none.
    static QString slotException();

private:
    void act();
    void choosePlace();
    void typePlace();
    void stepPlace();
    void search();
    void followLink();
    void check(const QString& action);
    void checkBox(const QString& action, const SeenBox& box);

    FormFixture& m_window;
    test_support::Random& m_random;
    ReadingEnd m_end;
    QString m_action;
};

} // namespace window_test

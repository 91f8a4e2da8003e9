#pragma once

#include "form_fixture.h"
#include "model.h"
#include "random.h"

namespace endurance {

/// A user of a real window: every action, chosen by `random`, is done by mouse or keyboard in the window and
/// told to the model.
class User
{
public:
    User(window_test::FormFixture& window, Model& model, test_support::Random& random);

    /// One action.
    /// @returns its description
    QString act();

    /// What is seen in the window since the last call.
    Seen seen();

private:
    using Action = QString (User::*)();

    QString chooseInMenu();
    QString chooseInMenuByKeys();
    QString clickTab();
    QString stepTab();
    QString pickPlace();
    QString typePlace();
    QString stepPlace();
    QString typeNoPlace();
    QString followLink();
    QString toggleLinks();
    QString search();
    QString searchFromTheList();
    int clickAnyHit();
    QString clickHit();
    QString stepHit();
    QString changeFont();
    QString resize();
    QString hideAndShow();
    QString about();

    int shownBox();
    void tellPlace(int box, int item);
    void showPage();

    BibleForm& form() const { return m_window.form(); }
    int below(int bound) { return static_cast<int>(m_random.below(static_cast<std::size_t>(bound))); }

    window_test::FormFixture& m_window;
    Model& m_model;
    test_support::Random& m_random;
    std::vector<QString> m_texts; ///< to search for
};

} // namespace endurance

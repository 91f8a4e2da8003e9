#pragma once

#include "bggui.h"
#include "module_files.h"
#include "temp_folder.h"

#include <QMessageBox>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QComboBox;
QT_END_NAMESPACE

namespace qt3 {
class ComboBox;
}

namespace window_test {

/// A message box shown by the window and closed by the fixture.
struct SeenBox
{
    QMessageBox::Icon icon;
    QString caption;
    QString text;
    QStringList buttons; ///< labels
};

/// The texts of the message boxes of a failed opening.
QString loadingMessage(const QString& what);

/// Битие with 50 chapters of 31 verses, Рут with {22, 23, 18, 22}, Псалтир with {6, 12, 8, 9, 176}: longer
/// than the view is high. Verses are "<book> <chapter>:<verse>".
test_support::ModuleFiles alphaModule(const std::string& title = "Алфа");

/// The same without Рут, in another order and with other chapter counts: Псалми with {6, 12, 8}, Битие with 3
/// chapters of 31 verses.
test_support::ModuleFiles betaModule(const std::string& title = "Бета", const std::string& diff = {});

/// A module of one book of one chapter whose verses are `verses` (UTF-8).
test_support::ModuleFiles moduleOfVerses(const std::vector<std::string>& verses);

/// Runs `act`, which opens a dialog without qt3::MessageBox, and `answer` while it is open, which has to
/// close it.
/// @returns whether a dialog opened
bool inDialog(const std::function<void()>& act, const std::function<void(QWidget&)>& answer);

/// A window with its own modules, the actions of a user and what the user sees. Message boxes are recorded
/// and closed immediately.
class FormFixture
{
public:
    FormFixture();
    ~FormFixture();
    FormFixture(const FormFixture&) = delete;
    FormFixture& operator=(const FormFixture&) = delete;

    /// Writes a module into modules/bibles/<folder>.
    void install(const std::string& folder, const test_support::ModuleFiles& files) const;
    /// Its name has Cyrillic letters, like folders of users.
    std::string modulesPath() const { return m_folder.file("Читалня/modules/bibles"); }

    /// Creates the window, shows it and waits until it is active.
    template <typename Form = BibleForm>
    Form& open()
    {
        auto made = std::make_unique<Form>();
        Form& form = *made;
        m_form = std::move(made);
        show();
        return form;
    }
    void closeForm() { m_form.reset(); }
    BibleForm& form() const { return *m_form; }

    /// The message boxes since the last call.
    QList<SeenBox> takeBoxes() { return std::exchange(m_boxes, {}); }

    // by mouse
    void chooseInMenu(QMenu* menu, QAction* item) const;
    void chooseTranslation(int index) const;
    void clickTab(int index) const;
    void clickHit(int row) const;
    /// Opens the box's list and clicks a row.
    void pick(qt3::ComboBox* box, int row) const;
    /// Clicks the middle of the n-th link of the page, from 0.
    void clickLink(int n) const;

    // by keyboard
    /// Any letters, including Cyrillic; to the widget that has the focus.
    static void type(const QString& text);
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// Focuses the box and replaces its text by typing.
    static void typeInto(qt3::ComboBox* box, const QString& text);

    // what the user sees
    QString place() const;       ///< the three boxes' texts, "Битие 1 1"
    QStringList page() const;    ///< the lines of the chapter view
    QString red() const;         ///< the red text of the page
    QStringList tabs() const;    ///< labels, the current one in brackets
    QStringList checked() const; ///< titles with a check mark in the menu
    QStringList rows() const;    ///< the list of hits
    QStringList offered(const QComboBox* box) const;
    QStringList links() const; ///< texts of the links of the page
    /// Whether the top of the line is in the middle of the view, or as near as the ends of the text allow.
    bool isCentred(int line) const;

private:
    void show() const;

    test_support::TempFolder m_folder;
    std::unique_ptr<BibleForm> m_form;
    QList<SeenBox> m_boxes;
};

} // namespace window_test

#pragma once

#include "installed_modules.h"

#include <QWidget>

#include <vector>

QT_BEGIN_NAMESPACE
class QFrame;
class QLabel;
class QPushButton;
class QTreeWidget;
QT_END_NAMESPACE

namespace Kedrin::Add {

class CBackground;
class CDetails;
struct ModuleState;

/// The page with the installed modules and their state.
class CInstalledPage final : public QWidget
{
    Q_OBJECT

public:
    /// @param background  checks the modules and does nothing else; it ends before this object does
    explicit CInstalledPage(CBackground& background);

    /// Lists and checks the modules anew.
    /// @param message  what the user is told of the reason; "" for nothing
    void refresh(const QString& message = {});

private:
    QWidget* makeButtons();
    void fillQuestion();
    void checkNext(std::size_t index);
    void showState(std::size_t index, const ModuleState& state);
    int selectedRow() const; ///< -1: none
    void showSelected();
    /// Changes the module that is selected.
    /// @param done  what the user is told then, with a placeholder for the name
    void change(void (*operation)(const std::string&), const char* done);
    void makeFirst();
    void askToRemove();
    void remove();
    void endQuestion();

    CBackground& m_background;
    QLabel* m_message;
    QTreeWidget* m_list;
    QPushButton* m_first;
    QPushButton* m_remove;
    QFrame* m_question;
    QLabel* m_questionText;
    QPushButton* m_keep;
    CDetails* m_details;
    std::vector<ModTool::InstalledModule> m_modules; ///< [row]
    unsigned int m_listNumber = 0;                   ///< results for an earlier list are void
};

} // namespace Kedrin::Add

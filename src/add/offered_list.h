#pragma once

#include "sword_repositories.h"

#include <QWidget>

#include <string>
#include <vector>

QT_BEGIN_NAMESPACE
class QComboBox;
class QTreeWidget;
QT_END_NAMESPACE

namespace Kedrin::Add {

/// A list of Bibles, all or those in one language. Where no language is known, none is asked for.
class COfferedList final : public QWidget
{
    Q_OBJECT

public:
    COfferedList();

    /// Shows these, at first those in the user's language, where there are any.
    void setTexts(std::vector<ModTool::OfferedText> texts);

    void focusList();

    /// The name of the one that is selected; "" where none is.
    std::string selected() const;

signals:
    void selectionChanged();
    void activated(); ///< one was double-clicked, or the enter key was pressed on it

private:
    void fillLanguages();
    void fill();

    QWidget* m_languageRow;
    QComboBox* m_language;
    QTreeWidget* m_list;
    std::vector<ModTool::OfferedText> m_texts;
};

} // namespace Kedrin::Add

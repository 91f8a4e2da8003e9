#pragma once

#include "sword_texts.h"

#include <QWidget>

#include <string>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QLabel;
class QListWidget;
class QPushButton;
QT_END_NAMESPACE

namespace Kedrin::Add {

class CBackground;

/// The page with the Bibles that are installed for the SWORD library, which is asked once the page is shown.
class CSwordPage final : public QWidget
{
    Q_OBJECT

public:
    /// @param background  asks the library; it ends before this object does
    /// @param sword       outlives this object
    CSwordPage(CBackground& background, const ModTool::ISword& sword);

signals:
    void chosen(const std::string& name); ///< of a Bible that is to be looked at and added

private:
    void fill(const std::vector<std::pair<std::string, std::string>>& bibles);
    void choose();
    void showEvent(QShowEvent* event) override;

    CBackground& m_background;
    const ModTool::ISword& m_sword;
    bool m_isAsked = false; ///< what is installed
    QLabel* m_note;
    QListWidget* m_list;
    QPushButton* m_add;
};

} // namespace Kedrin::Add

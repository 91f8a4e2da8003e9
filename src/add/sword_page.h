#pragma once

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

/// The page with the Bibles that are installed for the SWORD library.
class CSwordPage final : public QWidget
{
    Q_OBJECT

public:
    /// @param background  asks the library; it ends before this object does
    explicit CSwordPage(CBackground& background);

signals:
    void chosen(const std::string& name); ///< of a Bible that is to be looked at and added

private:
    void fill(const std::vector<std::pair<std::string, std::string>>& bibles);
    void choose();

    QLabel* m_note;
    QListWidget* m_list;
    QPushButton* m_add;
};

} // namespace Kedrin::Add

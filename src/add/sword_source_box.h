#pragma once

#include "sword_repositories.h"

#include <QWidget>

#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLineEdit;
QT_END_NAMESPACE

namespace Kedrin::Add {

/// Where SWORD texts are looked for: on this computer, in one of the known repositories, or in one whose address or folder
/// the user enters.
class CSwordSourceBox final : public QWidget
{
    Q_OBJECT

public:
    CSwordSourceBox();

    /// Offers these repositories; this computer is chosen. May be called once.
    void setKnown(const std::vector<ModTool::SwordRepository>& known);

signals:
    void chosen(const std::optional<ModTool::SwordRepository>& repository); ///< nothing: this computer
    void otherWanted();                  ///< the user is to enter a repository
    void refused(const QString& reason); ///< what was entered is none

private:
    QWidget* makeAddressRow();
    void choose(int index);
    void chooseFolder();
    void chooseEntered();

    std::vector<ModTool::SwordRepository> m_known;
    QComboBox* m_choice;
    QLineEdit* m_address;
    QWidget* m_addressRow;
};

} // namespace Kedrin::Add

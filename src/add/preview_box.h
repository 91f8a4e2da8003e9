#pragma once

#include "add_module.h"
#include "text_preview.h"

#include <QGroupBox>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
QT_END_NAMESPACE

namespace Kedrin::Add {

/// What is known of a text that was read, and how it is to be added.
class CPreviewBox final : public QGroupBox
{
    Q_OBJECT

public:
    CPreviewBox();

    /// Fills the box from a text. What the user has entered for another is lost.
    void setPreview(const TextPreview& preview);

    /// Whether the text can be added as it is chosen; if not, the box says why at the field.
    bool isValid() const { return m_isValid; }

    /// What the user has chosen.
    ModTool::AddOptions options() const;

    /// Looks again which names are taken.
    void check();

signals:
    void checked();   ///< isValid() is new
    void confirmed(); ///< the enter key was pressed in a field

private:
    void addFacts(QGridLayout& grid);
    void addFields(QGridLayout& grid);
    QString titleNote() const;
    /// @param known  whether a module of this name is installed
    QString nameNote(bool known) const;

    QLabel* m_format;
    QLabel* m_contents;
    QLabel* m_samples;
    QLabel* m_changes;
    QLineEdit* m_title;
    QLabel* m_titleNote;
    QLineEdit* m_name;
    QLabel* m_nameNote;
    QCheckBox* m_replace;
    QCheckBox* m_first;
    bool m_isValid = false;
};

} // namespace Kedrin::Add

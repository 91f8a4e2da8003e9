#include "preview_box.h"

#include "installed_modules.h"
#include "messages.h"
#include "module_format.h"
#include "shown_text.h"
#include "text_encoder.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include <optional>

namespace Kedrin::Add {

using namespace ModTool;

namespace {

/// A label of a fact, found by its name in tests and by screen readers.
QLabel* factLabel(const char* objectName)
{
    QLabel* label = plainLabel(true);
    label->setObjectName(QString::fromLatin1(objectName));
    return label;
}

QLineEdit* field(const char* objectName, const QString& accessibleName)
{
    auto* edit = new QLineEdit;
    edit->setObjectName(QString::fromLatin1(objectName));
    edit->setAccessibleName(accessibleName);
    edit->setAcceptDrops(false);
    return edit;
}

/// @param english  of the heading, which is translated here
void addRow(QGridLayout& grid, const char* english, QWidget* content, Qt::Alignment alignment)
{
    auto* heading = new QLabel(translated(english));
    heading->setBuddy(content);
    const int row = grid.rowCount();
    grid.addWidget(heading, row, 0, alignment);
    grid.addWidget(content, row, 1);
}

} // namespace

CPreviewBox::CPreviewBox()
    : m_format(factLabel("format")),
      m_contents(factLabel("contents")),
      m_samples(factLabel("samples")),
      m_changes(factLabel("changes")),
      m_title(field("title", translated("Title"))),
      m_titleNote(factLabel("titleNote")),
      m_name(field("name", translated("Name"))),
      m_nameNote(factLabel("nameNote")),
      m_replace(new QCheckBox),
      m_first(new QCheckBox(translated("Open it first in &Kedrin")))
{
    setTitle(translated("What was understood"));
    auto* grid = new QGridLayout(this);
    grid->setColumnStretch(1, 1);
    addFacts(*grid);
    addFields(*grid);
    setFocusProxy(m_title);
    for (QLineEdit* edit : {m_title, m_name}) {
        connect(edit, &QLineEdit::textChanged, this, &CPreviewBox::check);
        connect(edit, &QLineEdit::returnPressed, this, &CPreviewBox::confirmed);
    }
    connect(m_replace, &QCheckBox::toggled, this, &CPreviewBox::check);
}

void CPreviewBox::addFacts(QGridLayout& grid)
{
    addRow(grid, translatable("Format:"), m_format, Qt::AlignTop);
    addRow(grid, translatable("Contents:"), m_contents, Qt::AlignTop);
    addRow(grid, translatable("Verses:"), m_samples, Qt::AlignTop);
    addRow(grid, translatable("Changes:"), m_changes, Qt::AlignTop);
}

void CPreviewBox::addFields(QGridLayout& grid)
{
    addRow(grid, translatable("Titl&e:"), m_title, Qt::AlignVCenter);
    grid.addWidget(m_titleNote, grid.rowCount(), 1);
    addRow(grid, translatable("&Name:"), m_name, Qt::AlignVCenter);
    grid.addWidget(m_nameNote, grid.rowCount(), 1);
    grid.addWidget(m_replace, grid.rowCount(), 0, 1, 2);
    grid.addWidget(m_first, grid.rowCount(), 0, 1, 2);
    m_replace->setObjectName(QStringLiteral("replace"));
    m_first->setObjectName(QStringLiteral("first"));
}

void CPreviewBox::setPreview(const TextPreview& preview)
{
    m_format->setText(fromUtf8(preview.bible.format));
    m_contents->setText(preview.contents);
    m_samples->setText(preview.samples.join(u'\n'));
    m_changes->setText(preview.changes.join(u'\n'));
    m_title->setText(preview.title);
    m_name->setText(fromUtf8(preview.name));
    m_replace->setChecked(false);
    m_first->setChecked(false);
    check();
    m_title->setCursorPosition(0);
}

QString CPreviewBox::titleNote() const
{
    const std::size_t byteCount = encodedTitle(toUtf8(m_title->text().trimmed())).size();
    if (byteCount == 0)
        return translated("Enter a title; the menu of Kedrin lists the translation by it.");
    return byteCount > maxLineBytes ? translated("The title is too long.") : QString();
}

QString CPreviewBox::nameNote(bool known) const
{
    const std::string name = toUtf8(m_name->text());
    if (name.empty())
        return translated("Enter a name.");
    if (!isModuleName(name))
        return translated(
            "A name cannot begin with \".\" or \"!\", contain \"/\" or be longer than 200 bytes.");
    if (known && !m_replace->isChecked())
        return translated(
            "A translation with this name is installed already; choose another name, or mark the box.");
    return {};
}

void CPreviewBox::check()
{
    const auto known = installedModule(toUtf8(m_name->text()));
    m_replace->setText(!known || known->isOwn ? translated("&Replace the translation with this name")
                                              : translated("&Replace, for you, the one of all users"));
    m_replace->setVisible(known.has_value());
    const QString title = titleNote();
    const QString name = nameNote(known.has_value());
    showText(*m_titleNote, title);
    showText(*m_nameNote, name);
    m_title->setAccessibleDescription(title);
    m_name->setAccessibleDescription(name);
    m_isValid = title.isEmpty() && name.isEmpty();
    emit checked();
}

AddOptions CPreviewBox::options() const
{
    AddOptions options;
    options.name = toUtf8(m_name->text());
    options.isFirst = m_first->isChecked();
    options.mayReplace = m_replace->isVisibleTo(this) && m_replace->isChecked();
    options.build.substitute = true;
    options.build.refuseUnfitText = true;
    options.build.fullTitle = toUtf8(m_title->text().trimmed());
    return options;
}

} // namespace Kedrin::Add

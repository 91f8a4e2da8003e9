#include "sword_source_box.h"

#include "errors.h"
#include "messages.h"
#include "shown_text.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace Kedrin::Add {

using namespace ModTool;

namespace {

constexpr qsizetype maxNameCharacters = 60;

} // namespace

CSwordSourceBox::CSwordSourceBox()
    : m_choice(new QComboBox),
      m_address(new QLineEdit),
      m_addressRow(makeAddressRow())
{
    m_choice->setObjectName(QStringLiteral("swordSource"));
    m_choice->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* heading = new QLabel(translated("&From:"));
    heading->setBuddy(m_choice);
    auto* row = new QHBoxLayout;
    row->addWidget(heading);
    row->addWidget(m_choice);
    row->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(row);
    column->addWidget(m_addressRow);
    m_addressRow->hide();
    setFocusProxy(m_choice);
    connect(m_choice, &QComboBox::activated, this, &CSwordSourceBox::choose);
}

QWidget* CSwordSourceBox::makeAddressRow()
{
    m_address->setObjectName(QStringLiteral("swordAddress"));
    m_address->setAcceptDrops(false);
    auto* heading = new QLabel(translated("Add&ress or folder:"));
    heading->setBuddy(m_address);
    QPushButton* folder = button("swordFolder", translatable("C&hoose a folder..."));
    QPushButton* show = button("swordShow", translatable("&Show"));
    show->setEnabled(false);
    auto* whole = new QWidget;
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(folder);
    buttons->addWidget(show);
    buttons->addStretch();
    auto* column = new QVBoxLayout(whole);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(heading);
    column->addWidget(m_address);
    column->addLayout(buttons);
    connect(folder, &QPushButton::clicked, this, &CSwordSourceBox::chooseFolder);
    connect(show, &QPushButton::clicked, this, &CSwordSourceBox::chooseEntered);
    connect(m_address, &QLineEdit::returnPressed, show, &QPushButton::click);
    connect(m_address, &QLineEdit::textChanged, show,
            [show](const QString& text) { show->setEnabled(!text.trimmed().isEmpty()); });
    return whole;
}

void CSwordSourceBox::setKnown(const std::vector<SwordRepository>& known)
{
    m_known = known;
    m_choice->addItem(translated("This computer"));
    for (const SwordRepository& repository : known)
        m_choice->addItem(shortLine(repository.name, maxNameCharacters));
    m_choice->addItem(translated("Another address or folder"));
}

void CSwordSourceBox::choose(int index)
{
    const bool isOther = index + 1 == m_choice->count();
    m_addressRow->setVisible(isOther);
    if (isOther) {
        m_address->setFocus();
        emit otherWanted();
    } else if (index == 0) {
        emit chosen(std::nullopt);
    } else {
        emit chosen(m_known[static_cast<std::size_t>(index) - 1]);
    }
}

void CSwordSourceBox::chooseFolder()
{
    auto* dialog = new QFileDialog(this, translated("Choose a folder with SWORD texts"));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
        m_address->setText(path);
        chooseEntered();
    });
    dialog->open();
}

void CSwordSourceBox::chooseEntered()
{
    try {
        emit chosen(repositoryNamed(pathBytes(m_address->text().trimmed()), m_known));
    } catch (const CNotFound& error) {
        emit refused(messageOf(error));
    }
}

} // namespace Kedrin::Add

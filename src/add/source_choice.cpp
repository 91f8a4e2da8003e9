#include "source_choice.h"

#include "messages.h"
#include "shown_text.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace Kedrin::Add {

using ModTool::translatable;

CSourceChoice::CSourceChoice()
{
    setFrameShape(QFrame::StyledPanel);
    QLabel* hint = plainLabel();
    hint->setText(translated("Drop a file or a folder with a Bible text on this window, or choose one."));
    QPushButton* file = button("chooseFile", translatable("Choose a &file..."));
    QPushButton* folder = button("chooseFolder", translatable("Choose a f&older..."));
    auto* row = new QHBoxLayout;
    row->addWidget(file);
    row->addWidget(folder);
    row->addStretch();
    auto* column = new QVBoxLayout(this);
    column->addWidget(hint);
    column->addLayout(row);
    setFocusProxy(file);
    connect(file, &QPushButton::clicked, this, &CSourceChoice::chooseFile);
    connect(folder, &QPushButton::clicked, this, &CSourceChoice::chooseFolder);
}

void CSourceChoice::chooseFile()
{
    auto* dialog = new QFileDialog(this, translated("Choose a file with a Bible text"));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::fileSelected, this, &CSourceChoice::chosen);
    dialog->open();
}

void CSourceChoice::chooseFolder()
{
    auto* dialog = new QFileDialog(this, translated("Choose a folder with a Bible text"));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::fileSelected, this, &CSourceChoice::chosen);
    dialog->open();
}

} // namespace Kedrin::Add

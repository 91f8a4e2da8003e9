#include "no_texts_box.h"

#include "shown_text.h"

#include <QGuiApplication>
#include <QIcon>
#include <QMessageBox>
#include <QPushButton>

namespace Kedrin::Add {

bool wantsToAddText()
{
    constexpr int iconSize = 64;
    QMessageBox box;
    box.setWindowTitle(QStringLiteral("Kedrin"));
    box.setIconPixmap(QGuiApplication::windowIcon().pixmap(iconSize, iconSize));
    box.setTextFormat(Qt::PlainText);
    box.setText(translated("Kedrin has no Bible text yet."));
    box.setInformativeText(
        translated("Many translations are distributed freely as files: XML, JSON, USFM, tables, SQLite, zip "
                   "archives and others. Download one that you may use, and add it; Kedrin shows it the next "
                   "time it is opened."));
    const auto* add = box.addButton(translated("&Add a text..."), QMessageBox::AcceptRole);
    box.addButton(translated("Close"), QMessageBox::RejectRole);
    box.exec();
    return box.clickedButton() == add;
}

} // namespace Kedrin::Add

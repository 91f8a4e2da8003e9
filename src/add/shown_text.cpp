#include "shown_text.h"

#include "messages.h"

#include <QAccessible>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTreeWidget>

namespace Kedrin::Add {

QString translated(const char* english) { return QString::fromUtf8(ModTool::tr(english)); }

QString fromUtf8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string toUtf8(const QString& text) { return text.toStdString(); }

QString shortLine(std::string_view utf8, qsizetype maxCharacters)
{
    const QString line = fromUtf8(utf8.substr(0, static_cast<std::size_t>(maxCharacters) * 4)).simplified();
    return line.size() <= maxCharacters ? line : line.left(maxCharacters).trimmed() + QChar(0x2026);
}

std::string pathBytes(const QString& path) { return QFile::encodeName(path).toStdString(); }

QString messageOf(const std::exception& exception) { return QString::fromUtf8(exception.what()); }

QLabel* plainLabel(bool isSelectable)
{
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    if (isSelectable)
        label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

void showText(QLabel& label, const QString& text)
{
    const bool isNew = text != label.text();
    label.setText(text);
    label.setVisible(!text.isEmpty());
    if (!isNew || text.isEmpty())
        return;
    QAccessibleEvent event(&label, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

QScrollArea* scrollArea(QWidget* content)
{
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(content);
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false); // which setWidget() has switched on
    return area;
}

QPushButton* button(const char* objectName, const char* english)
{
    auto* made = new QPushButton(translated(english));
    made->setObjectName(QString::fromLatin1(objectName));
    return made;
}

QTreeWidget* rowList(const char* objectName, const char* english, const QStringList& headers)
{
    auto* list = new QTreeWidget;
    list->setObjectName(QString::fromLatin1(objectName));
    list->setAccessibleName(translated(english));
    list->setHeaderLabels(headers);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setStretchLastSection(false);
    return list;
}

} // namespace Kedrin::Add

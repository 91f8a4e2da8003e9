#include "chapter_view.h"
#include "combo_box.h"
#include "form_fixture.h"
#include "list_box.h"
#include "page_runs.h"
#include "popup_menu.h"
#include "tab_bar.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>

#include <algorithm>

// What the user sees of the window.

namespace window_test {

QString FormFixture::place() const
{
    return QStringList{m_form->comboBook->currentText(), m_form->comboChapter->currentText(),
                       m_form->comboVerse->currentText()}
        .join(u' ');
}

QStringList FormFixture::page() const
{
    QStringList lines;
    for (QTextBlock block = m_form->textBrowser->document()->begin(); block.isValid(); block = block.next())
        lines.append(block.text());
    return lines;
}

QString FormFixture::red() const
{
    QString text;
    for (const QTextFragment& run : fragments(*m_form->textBrowser->document()))
        if (run.charFormat().foreground().color() == QColor(Qt::red))
            text += run.text();
    return text;
}

QStringList FormFixture::tabs() const
{
    const qt3::TabBar* bar = m_form->tabsText;
    if (bar == nullptr)
        return {};
    QStringList labels;
    for (int i = 0; i < bar->count(); ++i)
        labels.append(i == bar->currentIndex() ? u'[' + bar->tabText(i) + u']' : bar->tabText(i));
    return labels;
}

QStringList FormFixture::checked() const
{
    QStringList titles;
    for (const QAction* item : m_form->menuTranslations->actions())
        if (item->isChecked())
            titles.append(item->text());
    return titles;
}

QStringList FormFixture::rows() const
{
    QStringList texts;
    const QAbstractItemModel* model = m_form->listSearchResults->model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts.append(model->index(row, 0).data().toString());
    return texts;
}

QStringList FormFixture::offered(const QComboBox* box) const
{
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items.append(box->itemText(i));
    return items;
}

QStringList FormFixture::links() const
{
    QStringList texts;
    for (const Link& link : linksOf(*m_form->textBrowser->document()))
        texts.append(QString(link.text).replace(QChar::Nbsp, u' '));
    return texts;
}

bool FormFixture::isCentred(int line) const
{
    const qt3::ChapterView* view = m_form->textBrowser;
    const QTextBlock block = view->document()->findBlockByNumber(line);
    const auto top = int(view->document()->documentLayout()->blockBoundingRect(block).top());
    const QScrollBar* bar = view->verticalScrollBar();
    return bar->maximum() > 0 &&
           bar->value() == std::clamp(top - view->viewport()->height() / 2, 0, bar->maximum());
}

} // namespace window_test

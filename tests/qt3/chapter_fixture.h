#pragma once

#include "chapter_view.h"

#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

/// A view in its own window for each test, and texts like those of the program.
class ChapterFixture
{
protected:
    void start()
    {
        m_window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(m_window.get());
        layout->addWidget(m_view = new qt3::ChapterView);
        m_window->resize(500, 400);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }
    void end() { m_window.reset(); }

    /// Links to chapters 0, 0 and 17.
    static QString links()
    {
        return QString::fromUtf8("<p><a name=\"gotoChapter\" href=\"0\">&lt;&lt;&nbsp;Предишна глава</a> "
                                 "<a name=\"gotoChapter\" href=\"0\">1</a> "
                                 "<a name=\"gotoChapter\" href=\"17\">18</a> </p>\n");
    }
    static QString verse(int number, const QString& text = QString::fromUtf8("дума"))
    {
        return QString::fromUtf8("<p><a name=\"%1\">[%1] ").arg(number) + text +
               QString::fromUtf8("</a></p>\n");
    }
    static QString chapter(int verses)
    {
        QString html;
        for (int number = 1; number <= verses; ++number)
            html += verse(number);
        return html;
    }
    int scrolled() const { return m_view->verticalScrollBar()->value(); }

    std::unique_ptr<QWidget> m_window;
    qt3::ChapterView* m_view = nullptr;
};

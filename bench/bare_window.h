#pragma once

#include <QMainWindow>

QT_BEGIN_NAMESPACE
class QTextBrowser;
QT_END_NAMESPACE

/// What any program of the toolkit pays for a window like the reader's: the same widgets, empty but for a page.
class BareWindow : public QMainWindow
{
public:
    /// @param html  the page; "" leaves it empty
    explicit BareWindow(const QString& html);

    QTextBrowser* page() const { return m_page; }

private:
    void createMenus();
    void createToolBar();
    QWidget* createPanel(QWidget* parent);
    QWidget* createPage(QWidget* parent, const QString& html);

    QTextBrowser* m_page = nullptr;
};

#pragma once

#include <QMainWindow>

QT_BEGIN_NAMESPACE
class QTextBrowser;
QT_END_NAMESPACE

/// The cost of a comparable window for any program with the toolkit: the same widgets, empty except for a
/// page.
class BareWindow : public QMainWindow
{
public:
    /// @param html  the page; "" for none
    explicit BareWindow(const QString& html);

    QTextBrowser* page() const { return m_page; }

private:
    void createMenus();
    void createToolBar();
    QWidget* createPanel(QWidget* parent);
    QWidget* createPage(QWidget* parent, const QString& html);

    QTextBrowser* m_page = nullptr;
};

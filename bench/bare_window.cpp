#include "bare_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QListView>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTextBrowser>
#include <QToolBar>

BareWindow::BareWindow(const QString& html)
{
    statusBar();
    setFont(QFont(QStringLiteral("Courier 10 Pitch"), 12));
    auto* central = new QWidget(this);
    setCentralWidget(central);
    auto* grid = new QGridLayout(central);
    grid->addWidget(createPanel(central), 0, 0);
    grid->addWidget(createPage(central, html), 0, 1);
    createToolBar();
    createMenus();
    resize(700, 670);
}

void BareWindow::createMenus()
{
    int itemCounts[] = {1, 2, 4, 3};
    for (const int itemCount : itemCounts) {
        QMenu* menu = menuBar()->addMenu(QStringLiteral("Изглед"));
        for (int i = 0; i < itemCount; ++i)
            menu->addAction(QStringLiteral("Търсене"));
    }
}

void BareWindow::createToolBar()
{
    QToolBar* bar = addToolBar(QString());
    for (int i = 0; i < 3; ++i) {
        auto* box = new QComboBox(bar);
        box->setEditable(true);
        bar->addWidget(box);
    }
}

QWidget* BareWindow::createPanel(QWidget* parent)
{
    auto* panel = new QGroupBox(QStringLiteral("Търсене"), parent);
    panel->setFixedWidth(181);
    auto* options = new QGroupBox(panel);
    options->setGeometry(10, 20, 160, 90);
    auto* box = new QComboBox(options);
    box->setEditable(true);
    box->setGeometry(0, 0, 130, 30);
    (new QPushButton(QStringLiteral("x"), options))->setGeometry(140, 0, 20, 20);
    (new QPushButton(QStringLiteral("Търси"), options))->setGeometry(110, 50, 50, 30);
    (new QCheckBox(QStringLiteral("Част от дума"), options))->setGeometry(0, 30, 110, 24);
    (new QCheckBox(QStringLiteral("А ≠ а"), options))->setGeometry(0, 50, 71, 24);
    (new QCheckBox(QStringLiteral("Актуализирай"), options))->setGeometry(0, 70, 110, 24);
    (new QListView(panel))->setGeometry(11, 125, 160, 430);
    return panel;
}

QWidget* BareWindow::createPage(QWidget* parent, const QString& html)
{
    auto* group = new QGroupBox(parent);
    auto* column = new QVBoxLayout(group);
    auto* tabs = new QTabBar(group);
    tabs->addTab(QStringLiteral("Bench"));
    column->addWidget(tabs);
    m_page = new QTextBrowser(group);
    m_page->setHtml(html);
    column->addWidget(m_page);
    return group;
}

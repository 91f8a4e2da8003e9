#include "add_window.h"

#include "add_page.h"
#include "installed_page.h"
#include "messages.h"
#include "shown_text.h"
#include "sword_page.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QUrl>

namespace Kedrin::Add {

using ModTool::translatable;

namespace {

/// The one file or folder of this computer that is dropped; "" where it is none or more than one.
QString droppedPath(const QMimeData& dropped)
{
    const QList<QUrl> urls = dropped.urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

CAddWindow::CAddWindow(const ModTool::ISword& sword)
    : m_add(new CAddPage(m_building, sword)),
      m_sword(new CSwordPage(m_building, sword)),
      m_installed(new CInstalledPage(m_checking))
{
    setObjectName(QStringLiteral("addWindow"));
    setWindowTitle(translated("Texts for Kedrin"));
    setAcceptDrops(true);
    addTab(m_add, translated("Add a &text"));
    addPage(m_sword, translatable("S&WORD texts"));
    addPage(m_installed, translatable("&Installed translations"));
    connect(m_sword, &CSwordPage::chosen, this, [this](const TextSource& source) { open(source); });
    connect(m_add, &CAddPage::began, m_sword,
            &CSwordPage::cancel); // the one thread is needed for something else
    connect(m_add, &CAddPage::added, m_installed, [this] { m_installed->refresh(); });
    for (const auto key : {QKeySequence::Close, QKeySequence::Quit})
        connect(new QShortcut(key, this), &QShortcut::activated, this, &QWidget::close);
    chooseSize();
    m_add->setFocus();
}

CAddWindow::~CAddWindow() { cancel(); }

void CAddWindow::cancel()
{
    m_add->cancel();
    m_sword->cancel();
}

void CAddWindow::addPage(QWidget* page, const char* english)
{
    addTab(scrollArea(page), translated(english));
}

void CAddWindow::chooseSize()
{
    constexpr int columns = 100, lines = 42;
    const QFontMetrics metrics(font());
    const QSize wanted(metrics.averageCharWidth() * columns, metrics.lineSpacing() * lines);
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
}

void CAddWindow::open(const std::string& source) { open(TextSource{source, {}}); }

void CAddWindow::open(const TextSource& source)
{
    setCurrentIndex(0);
    m_add->open(source);
}

void CAddWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void CAddWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    const QString path = droppedPath(*event->mimeData());
    setCurrentIndex(0);
    if (path.isEmpty())
        m_add->refuseDropped();
    else
        m_add->open({pathBytes(path), {}});
}

void CAddWindow::closeEvent(QCloseEvent* event)
{
    cancel();
    QTabWidget::closeEvent(event);
}

} // namespace Kedrin::Add

#pragma once

#include "background.h"
#include "sword_texts.h"
#include "text_source.h"

#include <QTabWidget>

#include <string>

namespace Kedrin::Add {

class CAddPage;
class CInstalledPage;
class CSwordPage;

/// The window of kedrin-add. A file or folder can be dropped anywhere on it.
class CAddWindow final : public QTabWidget
{
    Q_OBJECT

public:
    /// @param sword  outlives the window
    explicit CAddWindow(const ModTool::ISword& sword);

    /// Ends what is being read, listed or added, and waits for it.
    ~CAddWindow() override;

    /// Shows a text on the first page.
    /// @param source  a path, or "sword:NAME"
    void open(const std::string& source);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void addPage(QWidget* page, const char* english);
    void cancel();
    void chooseSize();
    void open(const TextSource& source);

    CBackground m_checking;
    CBackground m_building; ///< and all else that uses the SWORD library
    CAddPage* m_add;
    CSwordPage* m_sword;
    CInstalledPage* m_installed;
};

} // namespace Kedrin::Add

#pragma once

#include "sword_texts.h"
#include "text_source.h"

#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace Kedrin::Add {

class CBackground;
class CJobProgress;
class CNetworkQuestion;
class COfferedList;
class CProgressRow;
class CSwordSourceBox;

/// The page with the Bibles that are installed for the SWORD library or offered by repositories of SWORD texts. The library
/// is asked once the page is shown.
class CSwordPage final : public QWidget
{
    Q_OBJECT

public:
    /// @param background  asks the library; it ends before this object does
    /// @param sword       outlives this object
    CSwordPage(CBackground& background, const ModTool::ISword& sword);

    /// Ends the listing that is going on.
    void cancel();

signals:
    void chosen(const TextSource& source); ///< a Bible that is to be looked at and added

private:
    using Repository = std::optional<ModTool::SwordRepository>; ///< nothing: this computer

    void showEvent(QShowEvent* event) override;
    void connectParts();
    void askForRepositories();
    /// Nothing is listed any more.
    void clear(const QString& note);
    void list(const Repository& from);
    void beginListing();
    void endListing();
    /// Whether the focus is in another part of the page than the choice, which may be going on.
    bool mayTakeFocus() const;
    std::shared_ptr<CJobProgress> beginJob();
    void showList(std::vector<ModTool::OfferedText> texts);
    void choose();

    CBackground& m_background;
    const ModTool::ISword& m_sword;
    bool m_isAsked = false; ///< for the known repositories
    CSwordSourceBox* m_source;
    CNetworkQuestion* m_question;
    QLabel* m_note;
    COfferedList* m_texts;
    CProgressRow* m_progress;
    QPushButton* m_add;
    Repository m_from;
    std::shared_ptr<CJobProgress> m_job;
    unsigned int m_jobNumber = 0; ///< results of an earlier job are void
};

} // namespace Kedrin::Add

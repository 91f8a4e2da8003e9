#pragma once

#include "sword_texts.h"
#include "text_preview.h"

#include <QWidget>

#include <memory>
#include <string>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
class QScrollArea;
QT_END_NAMESPACE

namespace Kedrin::Add {

class CBackground;
class CDetails;
class CJobProgress;
class CPreviewBox;
class CProgressRow;
class CSourceChoice;

/// The page on which a text is chosen, looked at and added.
class CAddPage final : public QWidget
{
    Q_OBJECT

public:
    /// @param background  reads and builds; it ends before this object does
    /// @param sword       for "sword:NAME"; outlives this object
    CAddPage(CBackground& background, const ModTool::ISword& sword);

    /// Reads a text and shows what it is. Does nothing while another is being added.
    void open(const TextSource& source);

    /// Says that what was dropped is not one file or folder.
    void refuseDropped();

    /// Ends what is being read or added, unless it is complete.
    void cancel();

signals:
    void began(); ///< to read or to add a text
    void added(); ///< there is a new module

private:
    enum class Step
    {
        empty,
        reading,
        ready, ///< the text may be added
        adding,
        added
    };

    QWidget* makeButtons();
    /// @param message  what the user is told of the step before
    void enter(Step step, const QString& message = {});
    void moveFocus();
    std::shared_ptr<CJobProgress> beginJob();
    void showPreview(const std::shared_ptr<const TextPreview>& text);
    void add();
    void openKedrin();

    CBackground& m_background;
    const ModTool::ISword& m_sword;
    QScrollArea* m_area;
    CSourceChoice* m_choice;
    QLabel* m_message;
    CPreviewBox* m_preview;
    CDetails* m_details;
    CProgressRow* m_progress;
    QPushButton* m_add = nullptr;
    QPushButton* m_openKedrin = nullptr;
    Step m_step = Step::empty;
    std::shared_ptr<CJobProgress> m_job;
    unsigned int m_jobNumber = 0;
    std::shared_ptr<const TextPreview> m_text; ///< that may be added
};

} // namespace Kedrin::Add

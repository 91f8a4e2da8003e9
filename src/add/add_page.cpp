#include "add_page.h"

#include "add_module.h"
#include "background.h"
#include "details.h"
#include "errors.h"
#include "job_progress.h"
#include "messages.h"
#include "preview_box.h"
#include "program_start.h"
#include "progress_row.h"
#include "shown_text.h"
#include "source_choice.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace Kedrin::Add {

using namespace ModTool;

namespace {

/// What is said of a text that has been added.
QString addedMessage(const AddedModule& added, bool isFirst)
{
    constexpr const char* menu = "Преводи"; // the reader's, which is Bulgarian in every language
    return fromUtf8(isFirst ? message("\"%s\" has been added. The next time Kedrin is started, it opens this "
                                      "translation.",
                                      added.report.title)
                            : message("\"%s\" has been added. The next time Kedrin is started, its menu "
                                      "\"%s\" lists this translation.",
                                      added.report.title, menu));
}

/// What is said of a job that has failed or was cancelled.
/// @param heading  with a placeholder for the reason
QString failure(const char* heading, const QString& reason, const char* cancelled)
{
    return reason.isEmpty() ? translated(cancelled) : fromUtf8(message(heading, toUtf8(reason)));
}

QString readingMessage(const TextSource& source)
{
    return fromUtf8(source.usesNetwork() ? message("Downloading %s over the network from %s", source.text,
                                                   source.repository->address)
                                         : message("Reading %s", source.text));
}

/// Keeps what was downloaded for a text that has been added.
/// @returns a line that says why it could not be kept; "" where it was
QString keepDownload(const TextPreview& text)
{
    try {
        if (text.fetched)
            text.fetched->keep();
        return {};
    } catch (const CBuildError& error) {
        return u'\n' + fromUtf8(message("What was downloaded could not be kept: %s", error.what()));
    }
}

} // namespace

CAddPage::CAddPage(CBackground& background, const ISword& sword)
    : m_background(background),
      m_sword(sword),
      m_area(scrollArea(new QWidget)),
      m_choice(new CSourceChoice),
      m_message(plainLabel(true)),
      m_preview(new CPreviewBox),
      m_details(new CDetails("details")),
      m_progress(new CProgressRow)
{
    auto* inside = new QVBoxLayout(m_area->widget());
    inside->addWidget(m_choice);
    inside->addWidget(m_message);
    inside->addWidget(m_preview);
    inside->addWidget(m_details);
    inside->addStretch();
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_area, 1);
    column->addWidget(m_progress);
    column->addWidget(makeButtons());
    m_message->setObjectName(QStringLiteral("message"));
    connect(m_choice, &CSourceChoice::chosen, this, [this](const QString& path) {
        open({pathBytes(path), {}});
    });
    connect(m_preview, &CPreviewBox::checked, this, [this] { m_add->setEnabled(m_preview->isValid()); });
    connect(m_preview, &CPreviewBox::confirmed, this, &CAddPage::add);
    connect(m_progress, &CProgressRow::cancelled, this, &CAddPage::cancel);
    setFocusProxy(m_choice);
    enter(Step::empty);
}

QWidget* CAddPage::makeButtons()
{
    auto* whole = new QWidget;
    m_add = button("add", translatable("&Add"));
    m_openKedrin = button("openKedrin", translatable("O&pen Kedrin"));
    auto* row = new QHBoxLayout(whole);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch();
    row->addWidget(m_add);
    row->addWidget(m_openKedrin);
    connect(m_add, &QPushButton::clicked, this, &CAddPage::add);
    connect(m_openKedrin, &QPushButton::clicked, this, &CAddPage::openKedrin);
    return whole;
}

void CAddPage::enter(Step step, const QString& message)
{
    m_step = step;
    const bool hasText = step == Step::ready || step == Step::adding;
    showText(*m_message, message);
    m_choice->setEnabled(step != Step::adding);
    m_preview->setVisible(hasText);
    m_preview->setEnabled(step == Step::ready);
    m_progress->setVisible(step == Step::reading || step == Step::adding);
    m_add->setVisible(hasText);
    m_add->setEnabled(step == Step::ready && m_preview->isValid());
    m_openKedrin->setVisible(step == Step::added);
    if (!hasText && step != Step::added)
        m_details->setReport({});
    if (!hasText)
        m_text.reset();
    moveFocus();
    if (!message.isEmpty())
        m_area->ensureWidgetVisible(m_message);
}

/// To the control that the user most likely needs next.
void CAddPage::moveFocus()
{
    switch (m_step) {
    case Step::empty:
        return m_choice->setFocus();
    case Step::reading:
    case Step::adding:
        return m_progress->setFocus();
    case Step::ready:
        return m_preview->setFocus();
    case Step::added:
        return m_openKedrin->setFocus();
    }
}

std::shared_ptr<CJobProgress> CAddPage::beginJob()
{
    cancel();
    emit began();
    const unsigned int number = ++m_jobNumber;
    m_progress->begin();
    m_job = std::make_shared<CJobProgress>(*this, [this, number](const QString& name, int percent) {
        if (number == m_jobNumber)
            m_progress->tell(name, percent);
    });
    return m_job;
}

void CAddPage::open(const TextSource& source)
{
    if (m_step == Step::adding)
        return;
    const auto job = beginJob();
    const unsigned int number = m_jobNumber; // a later one makes the result of this one void
    enter(Step::reading, readingMessage(source));
    const auto fail = [this, number](const QString& reason) {
        if (number == m_jobNumber)
            enter(Step::empty,
                  failure(translatable("This text cannot be added: %s"), reason, translatable("Cancelled.")));
    };
    m_background.run(
        [this, source, job, number, fail]() -> CBackground::Use {
            const auto text = std::make_shared<const TextPreview>(readPreview(source, m_sword, *job));
            return [this, text, job, number, fail] {
                if (job->isCancelled()) // after its last step
                    fail({});
                else if (number == m_jobNumber)
                    showPreview(text);
            };
        },
        fail);
}

void CAddPage::showPreview(const std::shared_ptr<const TextPreview>& text)
{
    m_text = text;
    m_preview->setPreview(*text);
    m_details->setReport(text->report);
    enter(Step::ready);
}

void CAddPage::refuseDropped()
{
    if (m_step != Step::adding)
        enter(m_step, translated("Drop one file or one folder of this computer."));
}

void CAddPage::cancel()
{
    if (m_job)
        m_job->cancel();
}

void CAddPage::add()
{
    m_preview->check();
    if (m_step != Step::ready || !m_preview->isValid())
        return;
    const AddOptions options = m_preview->options();
    const auto job = beginJob();
    const auto show = [this](const QString& text, const QString& report) {
        m_details->setReport(report);
        enter(Step::added, text);
        emit added();
    };
    const auto fail = [this](const QString& reason) {
        m_preview->check();
        enter(Step::ready, failure(translatable("The text was not added: %s"), reason,
                                   translatable("Cancelled; nothing was added.")));
    };
    enter(Step::adding);
    m_background.run(
        [text = m_text, options, job, show]() -> CBackground::Use {
            const AddedModule added = addModule(text->bible, options, *job);
            return [show, shown = addedMessage(added, options.isFirst) + keepDownload(*text),
                    report = fromUtf8(added.report.text())] { show(shown, report); };
        },
        fail);
}

void CAddPage::openKedrin()
{
    if (!startKedrin())
        showText(*m_message, translated("Kedrin was not found; start it as you usually do."));
}

} // namespace Kedrin::Add

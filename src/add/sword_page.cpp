#include "sword_page.h"

#include "background.h"
#include "job_progress.h"
#include "messages.h"
#include "network_question.h"
#include "offered_list.h"
#include "progress_row.h"
#include "shown_text.h"
#include "sword_source_box.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace Kedrin::Add {

using namespace ModTool;

namespace {

std::vector<OfferedText> installedBibles(const ISword& sword)
{
    const std::unique_ptr<ISwordTexts> library = sword.installedTexts();
    std::vector<OfferedText> bibles;
    for (const std::string& name : library->bibles())
        bibles.push_back({name, {}, library->title(name), 0});
    return bibles;
}

QString noteOn(bool isEmpty, const std::optional<SwordRepository>& from)
{
    if (from)
        return fromUtf8(isEmpty ? message("%s offers no Bible.", from->name)
                                : message("%s offers these Bibles. \"Add...\" shows the selected one on the "
                                          "first page, without installing anything yet.",
                                          from->name));
    return translated(isEmpty ? translatable("No Bible for SWORD programs is installed on this computer.")
                              : translatable("These Bibles are installed on this computer for SWORD "
                                             "programs. Kedrin can show them too."));
}

} // namespace

CSwordPage::CSwordPage(CBackground& background, const ISword& sword)
    : m_background(background),
      m_sword(sword),
      m_source(new CSwordSourceBox),
      m_question(new CNetworkQuestion),
      m_note(plainLabel(true)),
      m_texts(new COfferedList),
      m_progress(new CProgressRow("listing", "cancelListing")),
      m_add(button("addSword", translatable("&Add...")))
{
    m_note->setObjectName(QStringLiteral("swordNote"));
    m_progress->hide();
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_source);
    column->addWidget(m_question);
    column->addWidget(m_note);
    column->addWidget(m_texts, 1);
    column->addWidget(m_progress);
    column->addWidget(m_add, 0, Qt::AlignRight);
    column->addStretch();
    connectParts();
    clear(translated("Looking for Bibles..."));
}

void CSwordPage::connectParts()
{
    connect(m_source, &CSwordSourceBox::chosen, this, &CSwordPage::list);
    connect(m_source, &CSwordSourceBox::refused, this, &CSwordPage::clear);
    connect(m_source, &CSwordSourceBox::otherWanted, this, [this] {
        clear(translated("Enter the address of a repository of SWORD texts (http, https or ftp), or a folder "
                         "of this computer with such texts."));
    });
    connect(m_question, &CNetworkQuestion::refused, this, [this] {
        clear(translated("The network was not used."));
        m_source->setFocus();
    });
    connect(m_texts, &COfferedList::selectionChanged, this,
            [this] { m_add->setEnabled(!m_texts->selected().empty()); });
    connect(m_texts, &COfferedList::activated, this, &CSwordPage::choose);
    connect(m_progress, &CProgressRow::cancelled, this, &CSwordPage::cancel);
    connect(m_add, &QPushButton::clicked, this, &CSwordPage::choose);
}

void CSwordPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!std::exchange(m_isAsked, true))
        askForRepositories();
}

void CSwordPage::askForRepositories()
{
    m_background.run(
        [this]() -> CBackground::Use {
            return [this, known = m_sword.repositories()->known()] {
                m_source->setKnown(known);
                list(std::nullopt);
            };
        },
        [this](const QString& reason) {
            clear(reason);
            for (QWidget* unusable : std::initializer_list<QWidget*>{m_source, m_texts, m_add})
                unusable->hide();
        });
}

void CSwordPage::cancel()
{
    if (m_job)
        m_job->cancel();
}

void CSwordPage::clear(const QString& note)
{
    cancel();
    ++m_jobNumber;
    endListing();
    m_question->drop();
    m_texts->setTexts({});
    showText(*m_note, note);
}

void CSwordPage::list(const Repository& from)
{
    clear({});
    m_from = from;
    if (from && from->isRemote())
        m_question->ask(from->address, [this] { beginListing(); });
    else
        beginListing();
    if (m_question->isVisible() && mayTakeFocus())
        m_question->focusNo();
}

std::shared_ptr<CJobProgress> CSwordPage::beginJob()
{
    m_progress->begin();
    m_job =
        std::make_shared<CJobProgress>(*this, [this, number = m_jobNumber](const QString& name, int percent) {
            if (number == m_jobNumber)
                m_progress->tell(name, percent);
        });
    return m_job;
}

void CSwordPage::beginListing()
{
    const auto job = beginJob();
    const unsigned int number = m_jobNumber;
    const bool isRemote = m_from && m_from->isRemote();
    showText(*m_note, isRemote ? fromUtf8(message("Fetching the list of Bibles over the network from %s",
                                                  m_from->address))
                               : translated("Looking for Bibles..."));
    m_progress->setVisible(m_from.has_value());
    const auto fail = [this, number](const QString& reason) {
        if (number == m_jobNumber)
            clear(reason.isEmpty()
                      ? translated("Cancelled.")
                      : fromUtf8(message("The list of Bibles cannot be shown: %s", toUtf8(reason))));
    };
    m_background.run(
        [this, job, number, from = m_from]() -> CBackground::Use {
            std::vector<OfferedText> texts =
                from ? m_sword.repositories()->offered(*from, *job) : installedBibles(m_sword);
            if (from && job->isCancelled())
                throw CCancelled();
            return [this, number, texts = std::move(texts)] {
                if (number == m_jobNumber)
                    showList(texts);
            };
        },
        fail);
}

void CSwordPage::endListing()
{
    if (m_progress->isAncestorOf(window()->focusWidget()))
        m_source->setFocus();
    m_progress->hide();
}

bool CSwordPage::mayTakeFocus() const
{
    const QWidget* focus = window()->focusWidget();
    return isAncestorOf(focus) && focus != m_source->focusProxy();
}

void CSwordPage::showList(std::vector<OfferedText> texts)
{
    showText(*m_note, noteOn(texts.empty(), m_from));
    m_texts->setTexts(std::move(texts));
    if (mayTakeFocus())
        m_texts->focusList();
    endListing();
}

void CSwordPage::choose()
{
    const std::string name = m_texts->selected();
    if (!name.empty())
        emit chosen(m_from ? TextSource{name, m_from} : TextSource{"sword:" + name, {}});
}

} // namespace Kedrin::Add

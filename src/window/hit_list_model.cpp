#include "hit_list_model.h"

#include "text.h"

namespace {

int digits(unsigned int number)
{
    int count = 1;
    for (; number >= 10; number /= 10)
        ++count;
    return count;
}

} // namespace

void HitListModel::clear()
{
    beginResetModel();
    m_hits = nullptr;
    m_abbreviations.m_texts.clear();
    endResetModel();
}

void HitListModel::show(const std::vector<Kedrin::Tolvo::CRef>& hits, const Kedrin::Tolvo::ITitles& titles)
{
    beginResetModel();
    m_hits = &hits;
    m_abbreviations.m_texts.clear();
    const Kedrin::Tolvo::CRef* previous = nullptr;
    for (const Kedrin::Tolvo::CRef& hit : hits) { // most are in the same book as the previous hit
        if ((previous == nullptr || hit.bookID() != previous->bookID()) &&
            !m_abbreviations.m_texts.contains(hit.bookID()))
            m_abbreviations.m_texts.emplace(hit.bookID(), titles.abbreviatedTitle(hit.bookID()));
        previous = &hit;
    }
    endResetModel();
}

QStringList HitListModel::longestRows() const
{
    struct Longest
    {
        int row;
        int digits;
    };
    std::map<unsigned int, Longest> books; // [global book]
    auto book = books.end();
    for (int row = 0; row < rowCount(); ++row) {
        const Kedrin::Tolvo::CRef& hit = (*m_hits)[static_cast<std::size_t>(row)];
        const int length = digits(hit.chapter() + 1) + digits(hit.verse() + 1);
        if (book == books.end() || book->first != hit.bookID())
            book = books.try_emplace(hit.bookID(), Longest{row, length}).first;
        if (length > book->second.digits)
            book->second = {row, length};
    }
    QStringList texts;
    for (const auto& [bookID, longest] : books)
        texts.append(data(index(longest.row), Qt::DisplayRole).toString());
    return texts;
}

int HitListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || m_hits == nullptr ? 0 : static_cast<int>(m_hits->size());
}

QVariant HitListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const Kedrin::Tolvo::CRef& hit = (*m_hits)[static_cast<std::size_t>(index.row())];
    return qt3::from1251(hit.toString(&m_abbreviations));
}

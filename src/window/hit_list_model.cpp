#include "hit_list_model.h"

#include "text.h"

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
    for (const Kedrin::Tolvo::CRef& hit : hits) { // most stand in the book of the hit before
        if ((previous == nullptr || hit.bookID() != previous->bookID()) &&
            !m_abbreviations.m_texts.contains(hit.bookID()))
            m_abbreviations.m_texts.emplace(hit.bookID(), titles.abbreviatedTitle(hit.bookID()));
        previous = &hit;
    }
    endResetModel();
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

#include "word_list_model.h"

#include "text.h"
#include "tolvo_bible.h"

#include <algorithm>

int WordListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_translation.wordsCount());
}

QVariant WordListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    return qt3::from1251(m_translation.getWord(static_cast<unsigned int>(index.row())));
}

QModelIndexList WordListModel::match(const QModelIndex& start, int, const QVariant& value, int,
                                     Qt::MatchFlags flags) const
{
    const std::string text = qt3::to1251(value.toString());
    const auto current = static_cast<unsigned int>(std::max(start.row(), 0));
    const unsigned int first = firstNotBelow(text);
    if (!beginsWith(first, text))
        return {};
    if ((flags & Qt::MatchTypeMask) == Qt::MatchStartsWith)
        return {index(static_cast<int>(beginsWith(current, text) ? current : first))};
    const bool whole = ut::cyr_stricmp(m_translation.getWord(first).c_str(), text.c_str()) == 0;
    return whole ? QModelIndexList{index(static_cast<int>(first))} : QModelIndexList();
}

bool WordListModel::beginsWith(unsigned int wordIndex, const std::string& prefix) const
{
    return wordIndex < m_translation.wordsCount() &&
           Kedrin::Tolvo::caseInsensitiveBegins(m_translation.getWord(wordIndex), prefix);
}

unsigned int WordListModel::firstNotBelow(const std::string& word) const
{
    unsigned int first = 0;
    unsigned int left = m_translation.wordsCount();
    while (left > 0) {
        const unsigned int half = left / 2;
        if (Kedrin::Tolvo::caseInsensitiveComp(m_translation.getWord(first + half), word)) {
            first += half + 1;
            left -= half + 1;
        } else {
            left = half;
        }
    }
    return first;
}

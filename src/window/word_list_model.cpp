#include "word_list_model.h"

#include "text.h"
#include "tolvo_bible.h"

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

#pragma once

#include <QAbstractListModel>

#include <utility>

/// 60,000 words "дума 0", "дума 1", ... created on demand; counts how often.
class WordModel : public QAbstractListModel
{
public:
    static constexpr int words = 60000;

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : words; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        ++m_asked;
        if (role != Qt::DisplayRole && role != Qt::EditRole)
            return {};
        return QString::fromUtf8("дума %1").arg(index.row());
    }
    int takeAsked() { return std::exchange(m_asked, 0); }

private:
    mutable int m_asked = 0;
};

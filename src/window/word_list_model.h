#pragma once

#include <QAbstractListModel>

#include <string>

namespace Kedrin::Tolvo {
class CBible;
}

/// The words of a translation as the list of the search box: nothing is copied, a word is decoded on demand.
/// The list is sorted, so that completion is a binary search. The translation must outlive the model.
class WordListModel : public QAbstractListModel
{
public:
    explicit WordListModel(const Kedrin::Tolvo::CBible& translation, QObject* parent = nullptr)
        : QAbstractListModel(parent),
          m_translation(translation)
    {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Ignoring case, like the order of the list: the word that equals the text, or with Qt::MatchStartsWith
    /// a word that begins with it, preferably the one at `start`, else the first. At most one match; `hits`
    /// and the other flags are ignored. Logarithmic.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

private:
    bool beginsWith(unsigned int wordIndex, const std::string& prefix) const;
    unsigned int firstNotBelow(const std::string& word) const;

    const Kedrin::Tolvo::CBible& m_translation;
};

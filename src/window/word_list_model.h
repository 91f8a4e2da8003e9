#pragma once

#include <QAbstractListModel>

#include <string>

namespace Kedrin::Tolvo {
class CBible;
}

/// The words of a translation as the list behind the search box: nothing is copied, a word is decoded when a view
/// asks for it. The list is sorted, so that completion takes a binary search. The translation must outlive the model.
class WordListModel : public QAbstractListModel
{
public:
    explicit WordListModel(const Kedrin::Tolvo::CBible& translation, QObject* parent = nullptr)
        : QAbstractListModel(parent),
          m_translation(translation)
    {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Without regard to case, as the list is sorted: the word that is the text, or with Qt::MatchStartsWith a word
    /// that begins with it, the one at `start` before others, else the first. One hit at most; `hits` and the other
    /// flags are not looked at. Logarithmic.
    QModelIndexList match(const QModelIndex& start, int role, const QVariant& value, int hits,
                          Qt::MatchFlags flags) const override;

private:
    bool beginsWith(unsigned int wordIndex, const std::string& prefix) const;
    unsigned int firstNotBelow(const std::string& word) const;

    const Kedrin::Tolvo::CBible& m_translation;
};

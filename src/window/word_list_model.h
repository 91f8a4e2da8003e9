#pragma once

#include <QAbstractListModel>

namespace Kedrin::Tolvo {
class CBible;
}

/// The words of a translation as the list behind the search box: nothing is copied, a word is decoded when a view
/// asks for it. The translation must outlive the model.
class WordListModel : public QAbstractListModel
{
public:
    explicit WordListModel(const Kedrin::Tolvo::CBible& translation, QObject* parent = nullptr)
        : QAbstractListModel(parent),
          m_translation(translation)
    {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const Kedrin::Tolvo::CBible& m_translation;
};

#pragma once

#include "tolvo_ref.h"

#include <QAbstractListModel>
#include <QStringList>

#include <map>
#include <string>
#include <vector>

/// The hits of a search as rows, formatted on demand. Rows keep the abbreviations of the translation that was
/// searched, so that they do not change after a switch to another one.
class HitListModel : public QAbstractListModel
{
public:
    explicit HitListModel(QObject* parent = nullptr) : QAbstractListModel(parent) {}

    /// No rows.
    void clear();

    /// One row per hit. `hits` must not change until the next clear() or show().
    /// @param titles  used to format the hits; called once for each book, not stored
    void show(const std::vector<Kedrin::Tolvo::CRef>& hits, const Kedrin::Tolvo::ITitles& titles);

    /// For each book the first of its rows with the most characters; at most one string per book.
    QStringList longestRows() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    /// A copy of the abbreviations only.
    class Abbreviations : public Kedrin::Tolvo::ITitles
    {
    public:
        std::string fullTitle(unsigned int bookID) const override { return m_texts.at(bookID); }
        std::string shortTitle(unsigned int bookID) const override { return m_texts.at(bookID); }
        std::string abbreviatedTitle(unsigned int bookID) const override { return m_texts.at(bookID); }

        std::map<unsigned int, std::string> m_texts; ///< [global book]
    };

    const std::vector<Kedrin::Tolvo::CRef>* m_hits = nullptr;
    Abbreviations m_abbreviations;
};

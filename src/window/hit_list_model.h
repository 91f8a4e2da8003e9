#pragma once

#include "tolvo_ref.h"

#include <QAbstractListModel>
#include <QStringList>

#include <map>
#include <string>
#include <vector>

/// The hits of a search as rows, printed when a view asks for them. Rows keep the abbreviations of the translation
/// that was searched, so that they read the same after a switch to another one.
class HitListModel : public QAbstractListModel
{
public:
    explicit HitListModel(QObject* parent = nullptr) : QAbstractListModel(parent) {}

    /// No rows.
    void clear();

    /// One row a hit. `hits` must stay as it is until the next clear() or show().
    /// @param titles  what prints the hits; asked now for each book once, not kept
    void show(const std::vector<Kedrin::Tolvo::CRef>& hits, const Kedrin::Tolvo::ITitles& titles);

    /// Of each book's rows the first of those with the most characters; no more strings than there are books.
    QStringList longestRows() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    /// The abbreviations alone, copied.
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

#pragma once

#include "module_files.h"

#include <QStringList>

namespace endurance {

/// A translation of the test, as a list of texts.
struct Translation
{
    struct Book
    {
        unsigned int globalNumber;
        QString title;
        QList<QStringList> chapters;
    };
    /// What is missing from its files.
    enum Damage
    {
        none,
        concordance,  ///< the file: the translation cannot be opened
        hitsOfWords,  ///< the content of the concordance: it opens, a search for a whole word fails
        firstChapter, ///< most of the text: it cannot be opened
    };

    QString title;
    QList<Book> books;
    Damage damage = none;
    unsigned int shift = 0; ///< in chapter 2 of book 0: its global verse numbers minus its own

    bool opens() const { return damage == none || damage == hitsOfWords; }
    /// Position of the book in the translation; -1 if it lacks the book.
    int localNumber(unsigned int globalNumber) const;
    /// All different words, ignoring case, in alphabetical order.
    QStringList words() const;
    test_support::ModuleFiles files() const;
    /// The message of a failed opening.
    QString refusal(const QString& folder) const;
};

/// Books that several translations have are equal in the count of chapters, so that each place of one is a
/// chapter of the other; they differ in books, their order, verses and numbering.
QList<Translation> translations();

/// The words of a verse.
QStringList wordsOf(const QString& verse);

} // namespace endurance

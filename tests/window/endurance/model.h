#pragma once

#include "translations.h"

#include <optional>

namespace endurance {

/// What the user sees of the window.
struct Seen
{
    QString place;    ///< the texts of the three location boxes, and how many chapters and verses they offer
    QStringList page; ///< lines, spaces simplified
    QString red;      ///< the marked verse
    QStringList tabs; ///< the current one in brackets
    QStringList checked; ///< check marks of the menu
    QStringList words;   ///< the list of the search box
    QStringList rows;    ///< the list of hits
    QStringList boxes;   ///< message boxes of the last action: caption, tab, text

    /// The fields that differ; empty if none does.
    QString differenceFrom(const Seen& expected) const;
};

/// An independent model of the window: the actions of a user and what must be seen after them. It shares no
/// code with the window. Actions that lead to a book that the current translation lacks are not modelled.
class Model
{
public:
    /// @param modulesPath  as the program shows it in messages
    Model(QList<Translation> translations, const QString& modulesPath);

    Seen seen() const;

    void chooseInMenu(int translation);
    void chooseTab(int index);
    void chooseBook(int item);
    void chooseChapter(int item);
    void chooseVerse(int item);
    /// @param n  of the links of the page
    void chooseLink(int n);
    void toggleLinks();
    /// @param listHasFocus  then the first hit becomes current
    void search(const QString& text, bool listHasFocus);
    void chooseHit(int row);
    void showBox(const QString& caption, const QString& text) { m_boxes.append(caption + u'\t' + text); }
    /// Forgets the boxes of the last action.
    void forgetBoxes() { m_boxes.clear(); }

    bool part = false, matchCase = false, repeat = false; ///< the check boxes of the search

    bool isOpen(int translation) const { return m_open.contains(translation); }
    int tabCount() const { return static_cast<int>(m_open.size()); }
    int hitCount() const { return static_cast<int>(m_hits.size()); }
    bool canShowHit(int row) const;
    int currentTab() const
    {
        return m_stack.isEmpty() ? -1 : static_cast<int>(m_ids.indexOf(m_stack.last()));
    }
    const Translation& translation(int n) const { return m_translations[n]; }

private:
    struct Place
    {
        int book = 0;
        unsigned int chapter = 0, verse = 0;
    };
    struct Box
    {
        int count = 0, item = 0;
        void offer(int newCount);
        void set(unsigned int newItem)
        {
            item = newItem < static_cast<unsigned int>(count) ? int(newItem) : item;
        }
    };
    struct Page
    {
        const Translation* translation = nullptr;
        Place place;
        bool links = false;
    };

    const Translation& current() const { return m_translations[*m_current]; }
    void close(int translation);
    void makeCurrent(int id);
    void select(int id);
    void goTo(const Place& local);
    void restoreBoxes();
    Place toGlobal(const Translation& translation, Place local) const;
    QStringList linkTargets() const;

    QList<Translation> m_translations;
    QString m_modulesPath;
    QList<int> m_open;  // translations, in the order of their tabs
    QList<int> m_ids;   // identifiers of the tabs
    QList<int> m_stack; // identifiers, the current one last
    int m_nextId = 0;
    std::optional<int> m_current;           // a translation; none after its closing
    const Translation* m_offered = nullptr; // whose books are in the box
    Box m_book, m_chapter, m_verse;
    std::optional<Place> m_place; // global: `book` is the global number
    Page m_page;
    bool m_links = false;
    QString m_searchText;
    QList<Place> m_hits; // global
    QStringList m_rows;
    QStringList m_boxes;
};

} // namespace endurance

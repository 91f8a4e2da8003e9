#pragma once

#include <QTextBlock>
#include <QTextDocument>

namespace window_test {

/// Runs of the page with the same format.
inline QList<QTextFragment> fragments(const QTextDocument& document)
{
    QList<QTextFragment> all;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it)
            all.append(it.fragment());
    return all;
}

/// One link of the page.
struct Link
{
    QString href, text;
    int position = 0;
    int length = 0;
};

inline QList<Link> linksOf(const QTextDocument& document)
{
    QList<Link> links;
    int end = -1; // the runs of one anchor are adjacent, those of two have a space between them
    for (const QTextFragment& run : fragments(document)) {
        const QString href = run.charFormat().anchorHref();
        if (href.isEmpty())
            continue;
        if (links.isEmpty() || run.position() != end || links.last().href != href)
            links.append({href, {}, run.position(), 0});
        links.last().text += run.text();
        links.last().length += run.length();
        end = run.position() + run.length();
    }
    return links;
}

} // namespace window_test

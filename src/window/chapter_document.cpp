#include "chapter_document.h"

#include "text.h"
#include "tolvo_bible.h"

namespace {

/// The line of links: previous chapter, all chapters, next chapter.
QString chapterLinks(unsigned int chapter, unsigned int chaptersCount)
{
    QString line = QStringLiteral("<p>");
    if (chapter != 0)
        line += QStringLiteral("<a name=\"gotoChapter\" href=\"%1\">&lt;&lt;&nbsp;Предишна глава</a> ")
                    .arg(chapter - 1);
    for (unsigned int i = 0; i < chaptersCount; ++i)
        line += QStringLiteral("<a name=\"gotoChapter\" href=\"%1\">%2</a> ").arg(i).arg(i + 1);
    if (chapter < chaptersCount - 1)
        line += QStringLiteral("<a name=\"gotoChapter\" href=\"%1\">Следваща глава&nbsp;&gt;&gt;</a>")
                    .arg(chapter + 1);
    return line + QStringLiteral("</p>\n");
}

QString verseParagraph(unsigned int verse, const QString& text, bool marked)
{
    const QString number = QString::number(verse + 1);
    const QString line = u'[' + number + QStringLiteral("] ") + text;
    return QStringLiteral("<p><a name=\"") + number + QStringLiteral("\">") +
           (marked ? QStringLiteral("<font color=\"red\">") + line + QStringLiteral("</font>") : line) +
           QStringLiteral("</a></p>\n");
}

} // namespace

QString chapterDocument(const Kedrin::Tolvo::CBible& translation, unsigned int bookID, unsigned int chapter,
                        unsigned int verse, bool links)
{
    const QString navigation = links ? chapterLinks(chapter, translation.chaptersCount(bookID)) : QString();
    QString document = navigation;
    unsigned int v = 0;
    for (const std::string& text : translation.chapterVerses(bookID, chapter)) {
        document += verseParagraph(v, qt3::from1251(text), v == verse);
        ++v;
    }
    return document + navigation;
}

#include "chapter_view.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QUrl>
#include <QtMath>

namespace qt3 {

namespace {

struct Anchor
{
    QString name;
    QString href;
};

/// The anchor of the character at a position. Only the first character of an anchor has its name, all of them
/// have its href.
Anchor anchorOf(const QTextDocument& document, int position)
{
    Anchor anchor;
    const QTextBlock block = document.findBlock(position);
    for (auto it = block.begin(); !it.atEnd() && it.fragment().position() <= position; ++it) {
        const QTextCharFormat format = it.fragment().charFormat();
        const QStringList names = format.anchorNames();
        if (!names.isEmpty() || format.anchorHref() != anchor.href)
            anchor = {names.value(0), format.anchorHref()};
    }
    return anchor;
}

QImage transparentPixel()
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

ChapterView::ChapterView(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    setOpenExternalLinks(false);
    setUndoRedoEnabled(false);
    connect(this, &QTextBrowser::anchorClicked, this, &ChapterView::emitAnchorClicked);
}

void ChapterView::setChapter(const QString& html)
{
    if (html == m_html)
        return;
    m_html = html;
    m_centredAt = nowhere;
    // Otherwise the toolkit hides the scroll bar with the old text, and lays out the new one at both widths, each twice.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHtml(html);
    if (verticalScrollBar()->maximum() < viewport()->height()) // it may fit at the other width
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

int ChapterView::paragraphTop(int n) const
{
    m_askedParagraph = n;
    const QTextBlock block = document()->findBlockByNumber(n);
    return block.isValid() ? qFloor(document()->documentLayout()->blockBoundingRect(block).top()) : -1;
}

void ChapterView::centreOn(int y)
{
    m_mustCentre = !isVisible();
    verticalScrollBar()->setValue(y - viewport()->height() / 2); // the scroll bar clamps the value
    m_centredAt = verticalScrollBar()->value();
}

/// Calls a function that lays out the text again; the centred paragraph stays centred unless the user has
/// scrolled.
template <typename Relayout>
void ChapterView::keepCentred(Relayout relayout)
{
    const bool centred = isVisible() && !m_mustCentre && verticalScrollBar()->value() == m_centredAt;
    relayout();
    if (centred)
        centreOn(paragraphTop(m_askedParagraph));
}

QVariant ChapterView::loadResource(int, const QUrl&)
{
    // An invalid result, or one that is not an image, would make the document look for the file itself. It
    // caches the result for one type and returns it for others, so all types get the same.
    return transparentPixel();
}

void ChapterView::doSetSource(const QUrl&, QTextDocument::ResourceType) {}

void ChapterView::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointF scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
    m_clicked = document()->documentLayout()->hitTest(event->position() + scrolled, Qt::ExactHit);
    QTextBrowser::mouseReleaseEvent(event);
    m_clicked = nowhere;
}

void ChapterView::showEvent(QShowEvent* event)
{
    QTextBrowser::showEvent(event);
    if (m_mustCentre)
        centreOn(paragraphTop(m_askedParagraph));
}

void ChapterView::resizeEvent(QResizeEvent* event)
{
    keepCentred([&] { QTextBrowser::resizeEvent(event); });
}

void ChapterView::changeEvent(QEvent* event)
{
    keepCentred([&] {
        QTextBrowser::changeEvent(event);
        if (event->type() != QEvent::PaletteChange || m_html.isEmpty())
            return;
        const int scrolled = verticalScrollBar()->value();
        setHtml(m_html); // links keep the colour of the palette in which the text was read
        verticalScrollBar()->setValue(scrolled);
    });
}

void ChapterView::emitAnchorClicked()
{
    // A link that is activated by key is selected. One that is clicked may not be: if the click is past the
    // middle of its last character, the cursor is after it.
    const int position = m_clicked != nowhere ? m_clicked : textCursor().selectionStart();
    const Anchor anchor = anchorOf(*document(), position);
    emit anchorClickedNamed(anchor.name, anchor.href);
}

} // namespace qt3

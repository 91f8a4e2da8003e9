#pragma once

#include <QTextBrowser>

namespace qt3 {

/// Rich text made of paragraphs and anchors that nobody vouches for. Nothing is ever loaded: no file, image,
/// style sheet or network resource, whatever the text names. No link is followed and nothing replaces the
/// text but setChapter(); a click on a link, or Tab and Return, ends in anchorClickedNamed() and nowhere
/// else.
class ChapterView : public QTextBrowser
{
    Q_OBJECT

public:
    explicit ChapterView(QWidget* parent = nullptr);

    /// Shows a text from its top. The text that is shown already: nothing happens, the view does not scroll.
    void setChapter(const QString& html);

    /// The top of paragraph `n`'s text, from 0, in the units of the vertical scroll bar; -1 when there is no
    /// such paragraph. One `<p>...</p>` is one paragraph. The place is final only while the view is visible.
    int paragraphTop(int n) const;

    /// Scrolls so that `y` is in the middle, as far as the text reaches. While the view is hidden places are
    /// not known: the paragraph asked for last by paragraphTop() is centred when the view is shown the next
    /// time. Another width or font, which breaks the lines elsewhere, centres it again, unless the reader has
    /// scrolled in between or another text has been set.
    void centreOn(int y);

    /// An empty stand-in for whatever is asked, so that nobody looks further.
    QVariant loadResource(int type, const QUrl& name) override;

signals:
    /// A link was activated by mouse or keyboard. Anchors without href are no links.
    /// @param name  the name attribute of the same anchor; null when it has none
    /// @param href  as written in the text
    void anchorClickedNamed(const QString& name, const QString& href);

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // These would replace the text behind setChapter().
    using QTextBrowser::setHtml;
    using QTextBrowser::setPlainText;
    using QTextBrowser::setText;

    template <typename Relayout>
    void keepCentred(Relayout relayout);
    void emitAnchorClicked();

    static constexpr int nowhere = -1;
    QString m_html;
    mutable int m_askedParagraph = 0; // what centreOn() centres when the text has been laid out anew
    bool m_mustCentre = false;
    int m_centredAt = nowhere; // where the scroll bar was put; it stands there until the reader scrolls
    int m_clicked = nowhere;   // position in the text while a click is reported
};

} // namespace qt3

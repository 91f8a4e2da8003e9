#pragma once

#include <QTextBrowser>

namespace qt3 {

/// Untrusted rich text made of paragraphs and anchors. Nothing is ever loaded: no file, image, style sheet or
/// network resource, whatever the text refers to. No link is followed and only setChapter() replaces the
/// text; a click on a link, or Tab and Return, only emits anchorClickedNamed().
class ChapterView : public QTextBrowser
{
    Q_OBJECT

public:
    explicit ChapterView(QWidget* parent = nullptr);

    /// Shows a text from its top. If it is already shown, nothing happens and the view does not scroll.
    void setChapter(const QString& html);

    /// The top of paragraph `n`'s text, from 0, in the units of the vertical scroll bar; -1 when there is no
    /// such paragraph. One `<p>...</p>` is one paragraph. The position is final only while the view is
    /// visible.
    int paragraphTop(int n) const;

    /// Scrolls so that `y` is in the middle, as far as possible. While the view is hidden, positions are not
    /// known: the paragraph of the last call of paragraphTop() is centred when the view is next shown. It is
    /// centred again when the width or font changes, unless the user has scrolled or another text has been
    /// set in between.
    void centreOn(int y);

    /// An empty resource for every request, so that nothing is loaded.
    QVariant loadResource(int type, const QUrl& name) override;

signals:
    /// A link was activated by mouse or keyboard. Anchors without href are no links.
    /// @param name  the name attribute of the same anchor; null when it has none
    /// @param href  as in the text
    void anchorClickedNamed(const QString& name, const QString& href);

protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // These would replace the text without setChapter().
    using QTextBrowser::setHtml;
    using QTextBrowser::setPlainText;
    using QTextBrowser::setText;

    template <typename Relayout>
    void keepCentred(Relayout relayout);
    void emitAnchorClicked();

    static constexpr int nowhere = -1;
    QString m_html;
    mutable int m_askedParagraph = 0; // what centreOn() centres after a new layout
    bool m_mustCentre = false;
    int m_centredAt = nowhere; // value set on the scroll bar; it is there until the user scrolls
    int m_clicked = nowhere;   // position in the text while a click is reported
};

} // namespace qt3

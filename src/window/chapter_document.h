#pragma once

#include <QString>

namespace Kedrin::Tolvo {
class CBible;
}

/// The rich-text document of one chapter (doc/formats/chapter-document.md): one paragraph per verse, the
/// marked verse red, each verse an anchor named by its number from 1. Verse texts are inserted as stored,
/// including markup; the view that shows them must not load anything or follow links.
/// @param bookID   local book number
/// @param chapter  chapter index; with `links`, there is a line of links to the book's chapters above and
///                 below, each an anchor "gotoChapter" whose href is the chapter index in decimal
/// @param verse    index of the verse to mark; past the end, none is marked
/// @throws std::out_of_range  the translation has no such chapter, or its files are inconsistent
QString chapterDocument(const Kedrin::Tolvo::CBible& translation, unsigned int bookID, unsigned int chapter,
                        unsigned int verse, bool links);

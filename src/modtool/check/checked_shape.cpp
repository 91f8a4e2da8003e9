#include "checked_shape.h"

#include "common_books.h"
#include "messages.h"

namespace Kedrin::ModTool {

std::string CheckedShape::bookName(std::size_t book) const
{
    const std::uint32_t globalID = books[book].globalID;
    return globalID < commonBooksCount ? std::string(commonBooks()[globalID].osis)
                                       : message("book %s", book + 1);
}

std::string CheckedShape::placeOf(std::uint32_t verseNum) const
{
    std::uint32_t left = verseNum;
    for (std::size_t book = 0; hasStructure && book < books.size(); ++book)
        for (std::size_t chapter = 0; chapter < books[book].versesCount.size(); ++chapter) {
            if (left < books[book].versesCount[chapter])
                return bookName(book) + ' ' + std::to_string(chapter + 1) + ':' + std::to_string(left + 1);
            left -= books[book].versesCount[chapter];
        }
    return message("verse %s", verseNum + 1);
}

} // namespace Kedrin::ModTool

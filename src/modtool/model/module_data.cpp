#include "module_data.h"

namespace Kedrin::ModTool {

std::string positionText(std::string_view book, std::size_t chapter, std::size_t verse)
{
    return std::string(book)
        .append(" ")
        .append(std::to_string(chapter))
        .append(":")
        .append(std::to_string(verse));
}

std::string positionInModule(const ModuleData& module, unsigned int verseNum)
{
    for (const ModuleBook& book : module.books)
        for (std::size_t chapter = 0; chapter < book.versesCount.size(); ++chapter) {
            if (verseNum < book.versesCount[chapter])
                return positionText(book.osis, chapter + 1, verseNum + 1);
            verseNum -= book.versesCount[chapter];
        }
    return "";
}

} // namespace Kedrin::ModTool

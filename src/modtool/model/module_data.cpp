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
    const auto found = findVerse(module.books, verseNum);
    if (!found)
        return "";
    const auto& [book, position] = *found;
    return positionText(module.books[book].osis, position.chapter + 1u, position.verse + 1u);
}

} // namespace Kedrin::ModTool

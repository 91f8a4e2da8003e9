#include "file_contents.h"

namespace Kedrin::ModTool {

std::string titlesFile(const ModuleData& module)
{
    std::string content = std::to_string(module.books.size());
    for (const ModuleBook& book : module.books)
        content += ' ' + std::to_string(book.globalID);
    content += '\n';
    for (const auto title : {&BookTitles::fullTitle, &BookTitles::shortTitle, &BookTitles::abbreviatedTitle})
        for (const BookTitles& titles : module.bookTitles)
            content += titles.*title + '\n';
    return content;
}

} // namespace Kedrin::ModTool

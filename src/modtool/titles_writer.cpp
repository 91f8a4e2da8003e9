#include "common_books.h"
#include "cp1251.h"
#include "module_files.h"

namespace Kedrin::ModTool {

std::string titlesFile(const ModuleData& module)
{
    std::string content = std::to_string(module.books.size());
    for (const ModuleBook& book : module.books)
        content += ' ' + std::to_string(book.globalID);
    content += '\n';
    for (const auto title : {&CommonBook::fullTitle, &CommonBook::shortTitle, &CommonBook::abbreviatedTitle})
        for (const ModuleBook& book : module.books)
            content += ut::to_cp1251(commonBooks()[book.globalID].*title) + '\n';
    return content;
}

} // namespace Kedrin::ModTool

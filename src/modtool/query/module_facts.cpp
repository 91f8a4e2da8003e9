#include "module_facts.h"

#include "errors.h"
#include "global_books.h"
#include "messages.h"
#include "module_format.h"
#include "module_words.h"
#include "stored_markup.h"

#include <filesystem>

namespace Kedrin::ModTool {

namespace {

using Tolvo::CRef;

void countNumbering(const CModuleReader& module, ModuleFacts& facts)
{
    for (const CRef& local : module.references()) {
        const GlobalPosition position = module.globalPosition(local);
        facts.movedCount += position.chapter != static_cast<int>(local.chapter()) ||
                            position.verse != static_cast<int>(local.verse());
        facts.outsideCount += !isGlobalVerse(position.book, static_cast<unsigned int>(position.chapter),
                                             static_cast<unsigned int>(position.verse));
        facts.roundTripCount += module.mapsBothWays(local);
    }
}

void countBooks(const CModuleReader& module, ModuleFacts& facts)
{
    const Tolvo::CTitles& titles = module.titles();
    for (unsigned int book = 0; book < titles.booksCount(); ++book) {
        BookFacts& known = facts.books.emplace_back();
        known.osis = globalBooks()[titles.globalID(book)].osis;
        known.title = plainLine(titles.shortTitle(book));
        known.abbreviation = plainLine(titles.abbreviatedTitle(book));
        known.chaptersCount = module.structure().chaptersCount(book);
        known.versesCount = 0;
        for (unsigned int chapter = 0; chapter < known.chaptersCount; ++chapter)
            known.versesCount += module.structure().versesCount(book, chapter);
        facts.chaptersCount += known.chaptersCount;
        facts.versesCount += known.versesCount;
    }
}

void countFiles(const std::string& folder, ModuleFacts& facts)
{
    for (const std::string_view name : moduleFileNames) {
        std::error_code error;
        const std::string path = folder + '/' + std::string(name);
        const std::uint64_t bytes = std::filesystem::file_size(path, error);
        if (error == std::errc::no_such_file_or_directory)
            continue;
        if (error)
            throw CModuleError(message("%s: cannot be read", path) + systemReason(error.value()));
        facts.files.emplace_back(name, bytes);
        facts.byteCount += bytes;
    }
}

} // namespace

std::vector<std::string> copyrightLines(const Tolvo::CBibleInfo& info)
{
    std::vector<std::string> lines;
    const std::string copyright = info.copyright();
    for (std::size_t begin = 0; begin < copyright.size();) {
        const std::size_t end = copyright.find('\n', begin);
        lines.push_back(plainLine(copyright.substr(begin, end - begin)));
        begin = end + 1;
    }
    return lines;
}

ModuleFacts moduleFacts(const std::string& folder)
{
    const CModuleReader module(folder);
    ModuleFacts facts;
    facts.folder = module.folder();
    facts.fullTitle = plainLine(module.info().fullTitle());
    facts.shortTitle = plainLine(module.info().shortTitle());
    facts.abbreviatedTitle = plainLine(module.info().abbreveatedTitle());
    facts.copyright = copyrightLines(module.info());
    countBooks(module, facts);
    module.forEachVerse(0, facts.versesCount,
                        [&](unsigned int, std::string_view text) { facts.emptyVersesCount += text.empty(); });
    facts.wordsCount = CModuleWords(module.folder()).list().count();
    countFiles(module.folder(), facts);
    countNumbering(module, facts);
    return facts;
}

} // namespace Kedrin::ModTool

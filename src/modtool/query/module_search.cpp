#include "module_search.h"

#include "errors.h"
#include "messages.h"
#include "module_words.h"
#include "stored_markup.h"
#include "tolvo_bible/text_scan.h"

namespace Kedrin::ModTool {

using namespace Kedrin::Tolvo;

namespace {

std::vector<unsigned int> versesWithWord(const CModuleReader& module, const std::string& word)
{
    const CModuleWords words(module.folder());
    const int index = words.list().indexOf(word);
    if (index < 0)
        return {};
    std::vector<unsigned int> verseNums = words.versesOf(static_cast<unsigned int>(index));
    const unsigned int count = module.structure().totalVersesCount();
    for (const unsigned int verseNum : verseNums)
        if (verseNum >= count)
            throw CModuleError(message("%s: the concordance puts the word \"%s\" in verse %s of %s",
                                       module.folder(), plainLine(word), verseNum + 1, count));
    return verseNums;
}

std::vector<unsigned int> versesWithPart(const CModuleReader& module, const std::string& part, bool byCase)
{
    const CTextScan scan(part, byCase ? CTextScan::Case::exact : CTextScan::Case::ignored);
    std::vector<unsigned int> verseNums;
    module.forEachVerse(0, module.structure().totalVersesCount(),
                        [&](unsigned int verseNum, std::string_view text) {
                            if (!byCase)
                                text = text.substr(0, text.find('\0'));
                            const char* end = text.data() + text.size();
                            if (scan.needleSize() == 0 || scan.find(text.data(), end) != end)
                                verseNums.push_back(verseNum);
                        });
    return verseNums;
}

} // namespace

std::vector<CRef> searchModule(const CModuleReader& module, const std::string& text, SearchMode mode)
{
    const std::vector<unsigned int> verseNums =
        mode == SearchMode::wholeWord ? versesWithWord(module, text)
                                      : versesWithPart(module, text, mode == SearchMode::partByCase);
    const std::vector<CRef> references = verseNums.empty() ? std::vector<CRef>() : module.references();
    std::vector<CRef> hits;
    hits.reserve(verseNums.size());
    for (const unsigned int verseNum : verseNums)
        hits.push_back(references[verseNum]);
    return hits;
}

} // namespace Kedrin::ModTool

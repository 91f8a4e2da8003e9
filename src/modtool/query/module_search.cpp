#include "module_search.h"

#include "errors.h"
#include "messages.h"
#include "module_words.h"
#include "stored_markup.h"
#include "tolvo_bible/text_scan.h"

#include <algorithm>

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

std::vector<unsigned int> versesWith(const CModuleReader& module, const std::string& text, SearchMode mode)
{
    return mode == SearchMode::wholeWord ? versesWithWord(module, text)
                                         : versesWithPart(module, text, mode == SearchMode::partByCase);
}

std::vector<CRef> referencesTo(const CModuleReader& module, const std::vector<unsigned int>& verseNums)
{
    const std::vector<CRef> references = verseNums.empty() ? std::vector<CRef>() : module.references();
    std::vector<CRef> hits;
    hits.reserve(verseNums.size());
    for (const unsigned int verseNum : verseNums)
        hits.push_back(references[verseNum]);
    return hits;
}

} // namespace

std::vector<CRef> searchModule(const CModuleReader& module, const std::string& text, SearchMode mode)
{
    return referencesTo(module, versesWith(module, text, mode));
}

std::vector<CRef> searchAll(const CModuleReader& module, const std::vector<std::string>& texts,
                            SearchMode mode)
{
    std::vector<unsigned int> hits = versesWith(module, texts.front(), mode);
    for (std::size_t i = 1; i < texts.size() && !hits.empty(); ++i) {
        std::vector<unsigned int> others = versesWith(module, texts[i], mode);
        std::sort(others.begin(), others.end());
        std::erase_if(hits, [&](unsigned int verseNum) {
            return !std::binary_search(others.begin(), others.end(), verseNum);
        });
    }
    return referencesTo(module, hits);
}

std::vector<CRef> searchMatches(const CModuleReader& module, const ITextMatcher& matcher)
{
    std::vector<unsigned int> verseNums;
    module.forEachVerse(0, module.structure().totalVersesCount(),
                        [&](unsigned int verseNum, std::string_view stored) {
                            if (!matcher.matches(plainText(stored)).empty())
                                verseNums.push_back(verseNum);
                        });
    return referencesTo(module, verseNums);
}

} // namespace Kedrin::ModTool

#pragma once

#include "errors.h"
#include "tolvo_bible/conc.h"
#include "tolvo_bible/word_list.h"

#include <memory>
#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// The words of a module and the verses that hold them. What would end the program in the engine's concordance, a file
/// that ends inside a record, is refused at the start.
class CModuleWords
{
public:
    /// @throws CModuleError  "%s: the words cannot be read: %s", "%s/%s: ends in the middle of a record"
    explicit CModuleWords(const std::string& folder);

    const Tolvo::CWordList& list() const { return *m_list; }

    /// The verse numbers of a word, from 0, as the concordance has them.
    /// @throws CModuleError  "%s: the verses of the word %s cannot be read: %s"
    std::vector<unsigned int> versesOf(unsigned int wordIndex) const;

private:
    std::string m_folder;
    std::unique_ptr<Tolvo::CWordList> m_list;
    std::unique_ptr<Tolvo::CConc> m_concordance;
};

} // namespace Kedrin::ModTool

#include "plain_letters.h"

#include "letter_proof.h"
#include "plain_entities.h"

#include <algorithm>

namespace Kedrin::ModTool {

std::uint64_t provePlainLetters(const std::string& fileName, std::string_view utf8, bool hasEntities,
                                std::string_view taken)
{
    CLetterProof proof(fileName, taken);
    std::size_t line = 1;
    for (; !utf8.empty(); ++line) {
        const std::string_view content = utf8.substr(0, utf8.find('\n'));
        if (hasEntities)
            proof.compare(withoutEntities(content), line);
        else
            proof.compare(content, line);
        utf8.remove_prefix(std::min(content.size() + 1, utf8.size()));
    }
    return proof.finish(line);
}

} // namespace Kedrin::ModTool

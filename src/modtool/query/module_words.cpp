#include "module_words.h"

#include "errors.h"
#include "input_file.h"
#include "messages.h"
#include "module_format.h"
#include "stored_markup.h"

namespace Kedrin::ModTool {

using namespace Kedrin::Tolvo;

namespace {

void refuseBrokenRecords(const std::string& fileName, std::size_t recordBytes)
{
    if (ut::CInputFile(fileName.c_str()).size() % recordBytes != 0)
        throw CModuleError(message("%s: ends in the middle of a record", fileName));
}

} // namespace

CModuleWords::CModuleWords(const std::string& folder) : m_folder(folder)
{
    const auto path = [&](const char* fileName) { return folder + '/' + fileName; };
    try {
        m_list = std::make_unique<CWordList>(path(wordListFileName).c_str(), path(wordPointsFileName).c_str(),
                                             true);
        m_concordance = std::make_unique<CConc>(path(concordanceFileName).c_str(),
                                                path(concordancePointsFileName).c_str());
    } catch (const std::exception& ex) {
        throw CModuleError(message("%s: the words cannot be read: %s", folder, withSystemReason(ex)));
    }
    refuseBrokenRecords(path(concordanceFileName), concordanceNumberBytes);
    refuseBrokenRecords(path(concordancePointsFileName), pointBytes);
}

std::vector<unsigned int> CModuleWords::versesOf(unsigned int wordIndex) const
{
    std::vector<unsigned int> verseNums;
    try {
        m_concordance->readVersesFor(wordIndex, verseNums);
    } catch (const std::exception& ex) {
        throw CModuleError(message("%s: the verses of the word %s cannot be read: %s", m_folder,
                                   plainLine((*m_list)[wordIndex]), ex.what()));
    }
    return verseNums;
}

} // namespace Kedrin::ModTool

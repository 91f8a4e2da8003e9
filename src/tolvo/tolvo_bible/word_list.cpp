#include "tolvo_bible/word_list.h"

#include "input_file.h"
#include "lets_out.h"
#include "ut_utils.h"

#include <algorithm>
#include <stdexcept>

namespace Kedrin::Tolvo {

namespace {

constexpr std::size_t maxLineBytes = 40; // including the CR
constexpr unsigned int groupSize = 16;   // words

constexpr const char* loading = "CWordList::CWordList()";

} // namespace

bool caseInsensitiveComp(const std::string& s1, const std::string& s2)
{
    return ut::cyr_stricmp(s1.c_str(), s2.c_str()) < 0;
}

bool caseInsensitiveBegins(const std::string& word, const std::string& prefix)
{
    return ut::cyr_stricmp(word.substr(0, prefix.size()).c_str(), prefix.c_str()) == 0;
}

CWordList::CWordList(const char* wordListPath, const char* /*wordPointPath*/, bool loadIntoMem)
{
    ut::lets_out<std::ios_base::failure>(loading, [&] {
        if (!loadIntoMem)
            throw std::logic_error("CWordList::CWordList(): loadIntoMem == false is not implemented yet");
        load(wordListPath);
    });
}

void CWordList::load(const char* wordListPath)
{
    constexpr std::size_t usualLineBytes = 9;
    m_content = ut::text_of_file(loading, wordListPath);
    endWordsAtZeroBytes();
    m_lineBytes.reserve(m_content.size() / usualLineBytes);
    const std::size_t size = m_content.size();
    for (std::size_t start = 0, end = 0; start < size; start = end + 1) {
        end = std::min(m_content.find('\n', start), size);
        if (end - start > maxLineBytes)
            break;
        if (m_lineBytes.size() % groupSize == 0)
            m_groupStarts.push_back(static_cast<std::uint32_t>(start));
        m_lineBytes.push_back(static_cast<std::uint8_t>(end + 1 - start));
        const bool hasReturn = end > start && m_content[end - 1] == '\r';
        m_content[hasReturn ? end - 1 : end] = '\0';
    }
    m_count = static_cast<unsigned int>(m_lineBytes.size());
    m_loaded = true;
}

/// A word ends at its first zero byte, or at a CR directly before it.
void CWordList::endWordsAtZeroBytes()
{
    for (std::size_t zero = m_content.find('\0'); zero != std::string::npos;
         zero = m_content.find('\0', zero + 1))
        if (zero > 0 && m_content[zero - 1] == '\r')
            m_content[zero - 1] = '\0';
}

void CWordList::ValidateFile(const char* wordListPath)
{
    ut::lets_out<std::ios_base::failure>("CWordList::ValidateFile()",
                                         [&] { ut::text_of_file(loading, wordListPath); });
}

std::string CWordList::operator[](unsigned int wordIndex) const
{
    return ut::lets_out<std::out_of_range, std::ios_base::failure>("CWordList::operator []()", [&] {
        if (wordIndex >= m_count)
            throw std::out_of_range("CWordList::operator [](): wordIndex out of range");
        return std::string(wordAt(wordIndex));
    });
}

int CWordList::indexOf(const std::string& word) const
{
    if (!m_loaded)
        return -1;
    unsigned int first = 0;
    for (unsigned int count = m_count; count > 0;) {
        const unsigned int half = count / 2;
        const bool isBefore = ut::cyr_stricmp(wordAt(first + half), word.c_str()) < 0;
        first += isBefore ? half + 1 : 0;
        count = isBefore ? count - half - 1 : half;
    }
    const bool present = first < m_count && ut::cyr_stricmp(wordAt(first), word.c_str()) == 0;
    return present ? static_cast<int>(first) : -1;
}

const char* CWordList::wordAt(unsigned int wordIndex) const
{
    std::uint32_t start = m_groupStarts[wordIndex / groupSize];
    for (unsigned int i = wordIndex / groupSize * groupSize; i < wordIndex; ++i)
        start += m_lineBytes[i];
    return m_content.data() + start;
}

} // namespace Kedrin::Tolvo

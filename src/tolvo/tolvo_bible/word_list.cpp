#include "tolvo_bible/word_list.h"

#include "input_file.h"
#include "lets_out.h"
#include "ut_utils.h"

#include <algorithm>
#include <stdexcept>

namespace Kedrin::Tolvo {

namespace {

constexpr std::size_t maxLineBytes = 40; // including the CR

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
    m_starts.reserve(m_content.size() / usualLineBytes);
    const std::size_t size = m_content.size();
    for (std::size_t start = 0, end = 0; start < size; start = end + 1) {
        end = std::min(m_content.find('\n', start), size);
        if (end - start > maxLineBytes)
            break;
        m_starts.push_back(static_cast<std::uint32_t>(start));
        const bool hasReturn = end > start && m_content[end - 1] == '\r';
        m_content[hasReturn ? end - 1 : end] = '\0';
    }
    m_count = static_cast<unsigned int>(m_starts.size());
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
    ut::lets_out<std::ios_base::failure>("CWordList::ValidateFile()", [&] {
        const ut::CInputFile file(wordListPath);
        if (!file.isOpen() || file.size() > ut::maxTextFileBytes)
            ut::text_of_file(loading, wordListPath); // refuses it
    });
}

std::string CWordList::operator[](unsigned int wordIndex) const
{
    return ut::lets_out<std::out_of_range, std::ios_base::failure>("CWordList::operator []()", [&] {
        if (wordIndex >= m_count)
            throw std::out_of_range("CWordList::operator [](): wordIndex out of range");
        return std::string(wordAt(m_starts[wordIndex]));
    });
}

int CWordList::indexOf(const std::string& word) const
{
    if (!m_loaded)
        return -1;
    const auto isBefore = [this](std::uint32_t start, const std::string& wanted) {
        return ut::cyr_stricmp(wordAt(start), wanted.c_str()) < 0;
    };
    const auto found = std::lower_bound(m_starts.begin(), m_starts.end(), word, isBefore);
    const bool present = found != m_starts.end() && ut::cyr_stricmp(wordAt(*found), word.c_str()) == 0;
    return present ? static_cast<int>(found - m_starts.begin()) : -1;
}

} // namespace Kedrin::Tolvo

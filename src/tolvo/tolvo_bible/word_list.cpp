#include "tolvo_bible/word_list.h"

#include "input_file.h"
#include "lets_out.h"
#include "text_reader.h"
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
    m_content = ut::text_of_file(loading, wordListPath);
    m_words.reserve(static_cast<std::size_t>(std::count(m_content.begin(), m_content.end(), '\n')) + 1);
    ut::CLineReader lines(m_content, maxLineBytes);
    while (lines.next())
        m_words.push_back(lines.lineInText());
    m_count = static_cast<unsigned int>(m_words.size());
    m_loaded = true;
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
        return std::string(m_words[wordIndex]);
    });
}

int CWordList::indexOf(const std::string& word) const
{
    if (!m_loaded)
        return -1;
    const std::string_view wanted = std::string_view(word).substr(0, word.find('\0'));
    const auto isBefore = [](std::string_view a, std::string_view b) { return ut::cyr_compare(a, b) < 0; };
    const auto found = std::lower_bound(m_words.begin(), m_words.end(), wanted, isBefore);
    const bool present = found != m_words.end() && !isBefore(wanted, *found);
    return present ? static_cast<int>(found - m_words.begin()) : -1;
}

} // namespace Kedrin::Tolvo

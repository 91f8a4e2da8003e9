#include "tolvo_bible/titles.h"

#include "input_file.h"
#include "lets_out.h"
#include "text_reader.h"

#include <algorithm>
#include <stdexcept>

namespace Kedrin::Tolvo {

namespace {

constexpr std::size_t fewBooks = 256;   // so many take little memory even if none of them is in the file
constexpr std::size_t bytesPerBook = 5; // at least: a number with its separator and three line ends
constexpr unsigned int noGlobalBookID = 0xFFFFFFFF;

} // namespace

CTitles::CTitles(const char* fileName)
{
    ut::lets_out<std::ios_base::failure>("CTitles::CTitles()", [&] { read(fileName); });
}

void CTitles::read(const char* fileName)
{
    const std::string content = ut::text_of_file("CTitles::CTitles()", fileName);
    readTitles(readNumbers(content));
}

/// @returns the text after the last number that could be read
std::string_view CTitles::readNumbers(std::string_view content)
{
    ut::CNumberReader numbers(content);
    const auto booksCount = numbers.nextUnsigned();
    m_isWhole = booksCount && *booksCount <= std::max(fewBooks, numbers.rest().size() / bytesPerBook);
    m_globalBookIDs.assign(m_isWhole ? *booksCount : 0, noGlobalBookID);
    std::string_view rest = numbers.rest();
    for (unsigned int book = 0; book < m_globalBookIDs.size(); ++book) {
        const auto globalBookID = numbers.nextSigned();
        if (!globalBookID) {
            m_isWhole = false;
            break;
        }
        m_globalBookIDs[book] = static_cast<unsigned int>(*globalBookID);
        m_globalsToLocalsMap.emplace(m_globalBookIDs[book], book); // of equal numbers the first book is kept
        rest = numbers.rest();
    }
    return rest;
}

/// The titles begin on the line after the last number.
void CTitles::readTitles(std::string_view rest)
{
    ut::CLineReader lines(rest);
    lines.next();
    for (std::vector<std::string>* titles : {&m_fullTitles, &m_shortTitles, &m_abbrTitles}) {
        titles->reserve(booksCount());
        for (unsigned int book = 0; book < booksCount(); ++book) {
            m_isWhole = lines.next() && m_isWhole;
            titles->push_back(lines.line());
        }
    }
}

std::string CTitles::fullTitle(unsigned int bookID) const
{
    ValidateBookID(bookID);
    return m_fullTitles[bookID];
}

std::string CTitles::shortTitle(unsigned int bookID) const
{
    ValidateBookID(bookID);
    return m_shortTitles[bookID];
}

std::string CTitles::abbreviatedTitle(unsigned int bookID) const
{
    ValidateBookID(bookID);
    return m_abbrTitles[bookID];
}

unsigned int CTitles::globalID(unsigned int localBookID) const
{
    ValidateBookID(localBookID);
    return m_globalBookIDs[localBookID];
}

unsigned int CTitles::localID(unsigned int globalBookID) const
{
    const auto found = m_globalsToLocalsMap.find(globalBookID);
    if (found == m_globalsToLocalsMap.end())
        throw std::out_of_range("CTitles::localID() called for non existing book");
    return found->second;
}

void CTitles::ValidateBookID(unsigned int bookID) const
{
    if (bookID >= m_globalBookIDs.size())
        throw std::out_of_range("CTitles::ValidateBookID(): bookID out of range");
}

} // namespace Kedrin::Tolvo

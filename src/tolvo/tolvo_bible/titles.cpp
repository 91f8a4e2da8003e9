#include "tolvo_bible/titles.h"

#include "input_file.h"
#include "io_failure.h"
#include "lets_out.h"
#include "text_reader.h"
#include "ut_utils.h"

#include <stdexcept>

namespace Kedrin::Tolvo {

CTitles::CTitles(const char* fileName)
{
    ut::lets_out<std::ios_base::failure>("CTitles::CTitles()", [&] { read(fileName); });
}

void CTitles::read(const char* fileName)
{
    std::string content;
    if (!ut::read_text_file(fileName, content))
        throw ut::CIoFailure(ut::format("CTitles::CTitles(): error opening file %s", fileName));

    ut::CNumberReader numbers(content);
    const auto booksCount = numbers.nextUnsigned();
    if (!booksCount || *booksCount > numbers.rest().size()) // the file cannot hold as many numbers
        throw ut::CIoFailure(ut::format("CTitles::CTitles(): error reading file %s", fileName));
    m_globalBookIDs.reserve(*booksCount);
    for (unsigned int book = 0; book < *booksCount; ++book) {
        const auto globalBookID = numbers.nextSigned();
        if (!globalBookID)
            throw ut::CIoFailure(ut::format("CTitles::CTitles(): error reading file %s", fileName));
        m_globalBookIDs.push_back(static_cast<unsigned int>(*globalBookID));
        m_globalsToLocalsMap.emplace(m_globalBookIDs.back(), book); // of equal numbers the first book stays
    }

    ut::CLineReader lines(numbers.rest());
    lines.next(); // the titles begin on the line after the last number
    for (std::vector<std::string>* titles : {&m_fullTitles, &m_shortTitles, &m_abbrTitles}) {
        titles->reserve(*booksCount);
        for (unsigned int book = 0; book < *booksCount; ++book) {
            lines.next();
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

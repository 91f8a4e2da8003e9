#include "tolvo_bible/bible_modules.h"

#include "lets_out.h"
#include "tolvo_bible/bible.h"
#include "tolvo_bible/bible_info.h"
#include "tolvo_bible/bible_structure.h"
#include "tolvo_bible/folder_name.h"

#include <stdexcept>

namespace Kedrin::Tolvo {

namespace {

constexpr unsigned int globalBooksCount = 77;

} // namespace

CBibleModules::CBibleModules(const std::string& modulesFolder) : m_modulesDir(modulesFolder)
{
    ut::lets_out<std::runtime_error>("CBibleModules::CBibleModules()", [&] {
        if (m_modulesDir.ends_with('/'))
            m_modulesDir.pop_back();
        for (const std::string& name : sub_folders(modulesFolder)) // "/" without its slash is not a folder
            m_bibleDirs.push_back(m_modulesDir + "/" + name);
    });
}

CBibleModules::~CBibleModules() = default;

const CBibleInfo* CBibleModules::info(unsigned int bibleIndex) const
{
    return ut::lets_out<std::out_of_range, std::ios_base::failure>("CBibleModules::info()", [&] {
        if (bibleIndex >= m_bibleDirs.size())
            throw std::out_of_range("CBibleModules::info(): index out of range");
        std::unique_ptr<CBibleInfo>& info = m_infos[bibleIndex];
        if (!info) {
            const std::string& bibleDir = m_bibleDirs[bibleIndex];
            info = std::make_unique<CBibleInfo>((bibleDir + "/_Info_.txt").c_str(),
                                                folder_name(bibleDir).c_str());
        }
        return static_cast<const CBibleInfo*>(info.get());
    });
}

const CBible* CBibleModules::loadBible(unsigned int bibleIndex) const
{
    return ut::lets_out<std::out_of_range, std::ios_base::failure>("CBibleModules::loadBible()", [&] {
        if (bibleIndex >= m_bibleDirs.size())
            throw std::out_of_range("CBibleModules::loadBible(): index out of range");
        return static_cast<const CBible*>(new CBible(m_bibleDirs[bibleIndex]));
    });
}

void CBibleModules::ValidateBible(unsigned int bibleIndex) const
{
    ut::lets_out<std::out_of_range, std::runtime_error>("CBibleModules::ValidateBible()", [&] {
        if (bibleIndex >= m_bibleDirs.size())
            throw std::out_of_range("CBibleModules::loadBible(): index out of range");
        CBible::Validate(m_bibleDirs[bibleIndex]);
    });
}

const CBibleStructure* CBibleModules::globalStructure() const
{
    return ut::lets_out<std::ios_base::failure>("CBibleModules::globalStructure()", [&] {
        if (!m_globalStructure)
            m_globalStructure = std::make_unique<CBibleStructure>(
                (m_modulesDir + "/BibleStructure.txt").c_str(), globalBooksCount);
        return static_cast<const CBibleStructure*>(m_globalStructure.get());
    });
}

} // namespace Kedrin::Tolvo

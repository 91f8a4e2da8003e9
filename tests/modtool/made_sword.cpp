#include "made_sword.h"

#include <rawtext.h>
#include <versekey.h>

#include <cstdlib>

namespace build_test {

namespace {

sword::VerseKey keyOf(const std::string& place, const std::string& versification)
{
    sword::VerseKey key;
    key.setVersificationSystem(versification.c_str());
    key.setIntros(true);
    key.setText(place.c_str());
    return key;
}

} // namespace

MadeSword::MadeSword() : m_path(m_folder.file("sword"))
{
    std::filesystem::create_directories(m_path + "/mods.d");
    for (const auto& [name, value] : {std::pair("SWORD_PATH", m_path), std::pair("HOME", m_path)}) {
        if (const char* before = std::getenv(name))
            m_environment.emplace_back(name, before);
        ::setenv(name, value.c_str(), 1);
    }
}

MadeSword::~MadeSword()
{
    ::unsetenv("SWORD_PATH");
    ::unsetenv("HOME");
    for (const auto& [name, value] : m_environment)
        ::setenv(name.c_str(), value.c_str(), 1);
}

void MadeSword::add(const std::string& name, const Entries& entries, const std::string& configuration,
                    const std::string& versification) const
{
    m_folder.write("sword/mods.d/" + name + ".conf",
                   '[' + name + "]\nDataPath=./texts/" + name +
                       "/\nModDrv=RawText\nSourceType=OSIS\nEncoding=UTF-8\nVersification=" + versification +
                       '\n' + configuration);
    const std::string data = m_path + "/texts/" + name;
    std::filesystem::create_directories(data);
    sword::RawText::createModule(data.c_str(), versification.c_str());
    sword::RawText text(data.c_str(), nullptr, nullptr, nullptr, sword::ENC_UTF8, sword::DIRECTION_LTR,
                        sword::FMT_OSIS, nullptr, versification.c_str());
    for (const auto& [place, raw] : entries) {
        text.setKey(keyOf(place, versification));
        text.setEntry(raw.c_str(), static_cast<long>(raw.size()));
    }
}

void MadeSword::link(const std::string& name, const std::string& first, const std::string& second) const
{
    sword::RawText text((m_path + "/texts/" + name).c_str());
    text.setKey(keyOf(second, "KJV"));
    const sword::VerseKey source = keyOf(first, "KJV");
    text.linkEntry(&source);
}

} // namespace build_test

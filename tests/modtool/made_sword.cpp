#include "made_sword.h"

#include <rawtext.h>
#include <versekey.h>
#include <zipcomprs.h>
#include <ztext.h>

#include <cstdlib>
#include <memory>

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

std::unique_ptr<sword::SWText> emptyText(const std::string& data, const std::string& versification,
                                         bool isCompressed)
{
    if (isCompressed) {
        sword::zText::createModule(data.c_str(), CHAPTERBLOCKS, versification.c_str());
        return std::make_unique<sword::zText>(
            data.c_str(), nullptr, nullptr, CHAPTERBLOCKS, new sword::ZipCompress(), nullptr, sword::ENC_UTF8,
            sword::DIRECTION_LTR, sword::FMT_OSIS, nullptr, versification.c_str());
    }
    sword::RawText::createModule(data.c_str(), versification.c_str());
    return std::make_unique<sword::RawText>(data.c_str(), nullptr, nullptr, nullptr, sword::ENC_UTF8,
                                            sword::DIRECTION_LTR, sword::FMT_OSIS, nullptr,
                                            versification.c_str());
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
                    const std::string& versification, const Form& form) const
{
    m_folder.write("sword/mods.d/" + name + ".conf",
                   '[' + name + "]\nDataPath=./texts/" + name + "/\nModDrv=" +
                       (form.isCompressed ? "zText\nBlockType=CHAPTER\nCompressType=ZIP" : "RawText") +
                       "\nSourceType=" + form.markup + "\nEncoding=UTF-8\nVersification=" + versification +
                       '\n' + configuration);
    const std::string data = m_path + "/texts/" + name;
    std::filesystem::create_directories(data);
    const auto text = emptyText(data, versification, form.isCompressed);
    for (const auto& [place, raw] : entries) {
        text->setKey(keyOf(place, versification));
        text->setEntry(raw.c_str(), static_cast<long>(raw.size()));
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

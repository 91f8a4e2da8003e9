#include "sword_library.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"
#include "sword_markup.h"
#include "sword_verses.h"

#include <unicode/unistr.h>

#include <encfiltmgr.h>
#include <localemgr.h>
#include <swlog.h>
#include <swmgr.h>
#include <swmodule.h>
#include <swversion.h>

#include <algorithm>
#include <filesystem>
#include <unordered_map>

namespace Kedrin::ModTool {

namespace {

/// Lower case, for names.
std::string folded(const std::string& text)
{
    std::string lower;
    icu::UnicodeString::fromUTF8(text).foldCase().toUTF8String(lower);
    return lower;
}

std::string entry(const sword::SWModule& module, const char* key)
{
    const char* value = module.getConfigEntry(key);
    return value ? value : "";
}

bool hasEntry(const sword::SWModule& module, const char* key, const std::string& foldedValue)
{
    const auto range = module.getConfig().equal_range(key);
    return std::any_of(range.first, range.second,
                       [&](const auto& known) { return folded(known.second.c_str()) == foldedValue; });
}

void addParagraphs(std::vector<std::string>& paragraphs, const char* label, const std::string& value)
{
    const std::string plain = plainConfiguration(value);
    for (std::size_t begin = 0; begin < plain.size();) {
        const std::size_t end = std::min(plain.find('\n', begin), plain.size());
        const std::string line = plain.substr(begin, end - begin);
        if (!isBlank(line))
            paragraphs.push_back(label + line);
        begin = end + 1;
    }
}

SourceInfo infoOf(const sword::SWModule& module)
{
    SourceInfo info;
    const std::string abbreviation = entry(module, "Abbreviation");
    info.fullTitle = module.getDescription();
    if (info.fullTitle.empty())
        info.fullTitle = module.getName();
    info.shortTitle = abbreviation.empty() ? module.getName() : abbreviation;
    info.abbreviatedTitle = info.shortTitle;
    addParagraphs(info.copyright, "", entry(module, "About"));
    addParagraphs(info.copyright, "Copyright: ", entry(module, "Copyright"));
    addParagraphs(info.copyright, "License: ", entry(module, "DistributionLicense"));
    return info;
}

} // namespace

class CSwordLibrary::Impl
{
public:
    /// @param folder  "": where the library looks by itself
    explicit Impl(const std::string& folder = {})
    {
        sword::SWLog::getSystemLog()->setLogLevel(0);
        sword::LocaleMgr::getSystemLocaleMgr()->setDefaultLocaleName("en");
        auto* filters = new sword::EncodingFilterMgr(sword::ENC_UTF8); // the manager owns it
        m_manager = folder.empty()
                        ? std::make_unique<sword::SWMgr>(nullptr, nullptr, false, filters)
                        : std::make_unique<sword::SWMgr>(folder.c_str(), false, filters, false, false);
        m_manager->load();
    }

    sword::SWModule& module(const std::string& name) const
    {
        sword::SWModule* found = m_manager->getModule(name.c_str());
        if (!found)
            throw CBuildError(message("no SWORD Bible is named \"%s\"", name));
        return *found;
    }

    std::unique_ptr<sword::SWMgr> m_manager;
};

CSwordLibrary::CSwordLibrary() : m_impl(std::make_unique<Impl>()) {}
CSwordLibrary::CSwordLibrary(const std::string& folder) : m_impl(std::make_unique<Impl>(folder)) {}
CSwordLibrary::~CSwordLibrary() = default;

std::vector<std::string> CSwordLibrary::bibles() const
{
    std::vector<std::string> names;
    for (const auto& [name, module] : m_impl->m_manager->getModules())
        if (std::string_view(module->getType()) == sword::SWMgr::MODTYPE_BIBLES)
            names.emplace_back(name.c_str());
    std::sort(names.begin(), names.end());
    return names;
}

std::string CSwordLibrary::title(const std::string& name) const
{
    return infoOf(m_impl->module(name)).fullTitle;
}

std::string CSwordLibrary::resolve(const std::string& name) const
{
    const std::string wanted = folded(name);
    const std::vector<std::string> all = bibles();
    for (const char* key : {"", "Abbreviation", "Obsoletes"}) {
        std::vector<std::string> found;
        for (const std::string& candidate : all) {
            if (candidate == name)
                return candidate;
            const bool isNamedSo =
                *key ? hasEntry(m_impl->module(candidate), key, wanted) : folded(candidate) == wanted;
            if (isNamedSo)
                found.push_back(candidate);
        }
        if (found.size() > 1)
            throw CBuildError(
                message("several SWORD Bibles are named \"%s\": %s", name, joined(found, ", ")));
        if (!found.empty())
            return found.front();
    }
    throw CBuildError(message("no SWORD Bible is named \"%s\" (installed: %s)", name,
                              all.empty() ? tr("none") : joined(all, ", ")));
}

SourceBible CSwordLibrary::read(const std::string& name,
                                const std::function<void(std::size_t, std::size_t)>& progress) const
{
    sword::SWModule& module = m_impl->module(name);
    SourceBible bible;
    bible.info = infoOf(module);
    bible.versification = entry(module, "Versification");
    if (bible.versification.empty())
        bible.versification = "KJV"; // the library's own default
    readSwordVerses(module, progress, bible);
    return bible;
}

std::string CSwordLibrary::fingerprint(const std::string& name) const
{
    namespace fs = std::filesystem;
    const sword::SWModule& module = m_impl->module(name);
    std::string print = std::string("SWORD ") + sword::SWVersion::currentVersion.getText() + '\n';
    for (const auto& [key, value] : module.getConfig())
        print += std::string(key.c_str()) + '=' + value.c_str() + '\n';
    std::vector<std::string> files;
    std::error_code error;
    for (fs::directory_iterator file(entry(module, "AbsoluteDataPath"), error), end; !error && file != end;
         file.increment(error)) {
        std::error_code ignored;
        files.push_back(file->path().filename().string() + ' ' + std::to_string(file->file_size(ignored)) +
                        ' ' + std::to_string(file->last_write_time(ignored).time_since_epoch().count()) +
                        '\n');
    }
    std::sort(files.begin(), files.end());
    for (const std::string& file : files)
        print += file;
    return print;
}

} // namespace Kedrin::ModTool

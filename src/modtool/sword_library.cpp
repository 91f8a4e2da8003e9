#include "sword_library.h"

#include "build_error.h"
#include "messages.h"
#include "sword_left_out.h"
#include "sword_markup.h"

#include <unicode/unistr.h>

#include <localemgr.h>
#include <markupfiltmgr.h>
#include <swlog.h>
#include <swmgr.h>
#include <swmodule.h>
#include <swversion.h>
#include <versekey.h>

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

std::string joined(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text.empty() ? "none" : text;
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
        if (line.find_first_not_of(" \t\r") != std::string::npos)
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

/// Valid UTF-8 whatever the module holds; bytes that are none become U+FFFD.
std::string utf8Of(const sword::SWBuf& text)
{
    std::string utf8;
    return icu::UnicodeString::fromUTF8(icu::StringPiece(text.c_str(), static_cast<int32_t>(text.length())))
        .toUTF8String(utf8);
}

/// Walks the verses of one module.
class CVerseWalk
{
public:
    CVerseWalk(sword::SWModule& module, const std::function<void(std::size_t, std::size_t)>& progress)
        : m_module(module),
          m_progress(progress),
          m_key(static_cast<sword::VerseKey*>(module.createKey()))
    {
        m_key->setPersist(true);
        m_key->setIntros(true);
        m_key->setAutoNormalize(true);
        m_module.setKey(m_key.get());
    }
    ~CVerseWalk() { m_module.setKey(""); }
    CVerseWalk(const CVerseWalk&) = delete;
    CVerseWalk& operator=(const CVerseWalk&) = delete;

    void readInto(SourceBible& bible)
    {
        constexpr std::size_t versesBetweenReports = 500;
        m_key->setPosition(sword::BOTTOM);
        const auto last = static_cast<std::size_t>(m_key->getIndex());
        std::size_t done = 0;
        for (m_key->setPosition(sword::TOP); !m_key->popError(); m_key->increment(1)) {
            addVerse(bible);
            if (++done % versesBetweenReports == 0)
                m_progress(std::min(static_cast<std::size_t>(m_key->getIndex()), last), last);
        }
    }

private:
    void addVerse(SourceBible& bible)
    {
        const char* raw = m_module.getRawEntry();
        const bool isIntroduction = m_key->getChapter() == 0 || m_key->getVerse() == 0;
        if (isIntroduction) {
            countLeftOut(raw ? raw : "", true, place(), bible.findings);
            return;
        }
        const bool repeats = m_lastKey && m_module.isLinked(m_lastKey.get(), m_key.get());
        m_lastKey.reset(static_cast<sword::VerseKey*>(m_key->clone()));
        if (!raw || !*raw || repeats)
            return;
        countLeftOut(raw, false, place(), bible.findings);
        const std::string clean = withoutEntities(cleanEntry(raw));
        const std::size_t offset = bible.text.size();
        const sword::SWBuf plain = m_module.renderText(clean.c_str(), static_cast<int>(clean.size()));
        bible.text += withMeantCharacters(utf8Of(plain));
        bible.verses.push_back({bookIndex(bible), static_cast<std::uint16_t>(m_key->getChapter()),
                                static_cast<std::uint16_t>(m_key->getVerse()),
                                static_cast<std::uint32_t>(offset),
                                static_cast<std::uint32_t>(bible.text.size() - offset), 0});
    }

    /// "Gen 1:1", "Gen 1" and "Gen" for introductions, "the beginning" for that of the whole.
    std::string place() const
    {
        if (m_key->getTestament() == 0 || m_key->getBook() == 0)
            return tr("the beginning");
        std::string text = m_key->getOSISBookName();
        if (m_key->getChapter() != 0)
            text += ' ' + std::to_string(m_key->getChapter());
        return m_key->getVerse() == 0 ? text : text + ':' + std::to_string(m_key->getVerse());
    }

    std::uint32_t bookIndex(SourceBible& bible) const
    {
        const char* osis = m_key->getOSISBookName();
        if (bible.books.empty() || bible.books.back() != osis)
            bible.books.emplace_back(osis);
        return static_cast<std::uint32_t>(bible.books.size() - 1);
    }

    sword::SWModule& m_module;
    const std::function<void(std::size_t, std::size_t)>& m_progress;
    std::unique_ptr<sword::VerseKey> m_key;
    std::unique_ptr<sword::VerseKey> m_lastKey;
};

/// Gives plain text of every module. Notes, headings and lexical marks can be switched off in a module only when its
/// configuration names their filters; many name just those of their own text, some none, so here all are named.
class CPlainManager : public sword::SWMgr
{
public:
    CPlainManager()
        : SWMgr(nullptr, nullptr, false, new sword::MarkupFilterMgr(sword::FMT_PLAIN, sword::ENC_UTF8))
    {}

protected:
    void addGlobalOptionFilters(sword::SWModule* module, sword::ConfigEntMap& section) override
    {
        sword::ConfigEntMap all = section;
        const auto format = all.find("SourceType");
        const auto named = all.equal_range("GlobalOptionFilter");
        std::vector<std::string> missing;
        for (const char* kind :
             {"Strongs", "Morph", "Lemma", "Footnotes", "Headings", "Scripref", "Variants"}) {
            const std::string filter =
                (format == all.end() ? "" : format->second.c_str()) + std::string(kind);
            if (std::none_of(named.first, named.second,
                             [&](const auto& entry) { return entry.second == filter.c_str(); }))
                missing.push_back(filter);
        }
        for (const std::string& filter : missing)
            all.insert({"GlobalOptionFilter", filter.c_str()});
        SWMgr::addGlobalOptionFilters(module, all);
    }
};

} // namespace

class CSwordLibrary::CPrivate
{
public:
    CPrivate()
    {
        sword::SWLog::getSystemLog()->setLogLevel(0);
        sword::LocaleMgr::getSystemLocaleMgr()->setDefaultLocaleName("en");
        m_manager = std::make_unique<CPlainManager>();
        m_manager->load();
        for (const char* option : {"Headings", "Footnotes", "Cross-references", "Strong's Numbers",
                                   "Morphological Tags", "Lemmas", "Glosses", "Enumerations"})
            m_manager->setGlobalOption(option, "Off");
        m_manager->setGlobalOption("Textual Variants", "Primary Reading");
    }

    sword::SWModule& module(const std::string& name) const
    {
        sword::SWModule* found = m_manager->getModule(name.c_str());
        if (!found)
            throw CBuildError(message("no SWORD Bible is named \"%s\"", name));
        return *found;
    }

    std::unique_ptr<CPlainManager> m_manager;
};

CSwordLibrary::CSwordLibrary() : m_private(std::make_unique<CPrivate>()) {}
CSwordLibrary::~CSwordLibrary() = default;

std::vector<std::string> CSwordLibrary::bibles() const
{
    std::vector<std::string> names;
    for (const auto& [name, module] : m_private->m_manager->getModules())
        if (std::string_view(module->getType()) == sword::SWMgr::MODTYPE_BIBLES)
            names.emplace_back(name.c_str());
    std::sort(names.begin(), names.end());
    return names;
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
                *key ? hasEntry(m_private->module(candidate), key, wanted) : folded(candidate) == wanted;
            if (isNamedSo)
                found.push_back(candidate);
        }
        if (found.size() > 1)
            throw CBuildError(message("several SWORD Bibles are named \"%s\": %s", name, joined(found)));
        if (!found.empty())
            return found.front();
    }
    throw CBuildError(message("no SWORD Bible is named \"%s\" (installed: %s)", name, joined(all)));
}

SourceBible CSwordLibrary::read(const std::string& name,
                                const std::function<void(std::size_t, std::size_t)>& progress) const
{
    sword::SWModule& module = m_private->module(name);
    SourceBible bible;
    bible.info = infoOf(module);
    bible.versification = entry(module, "Versification");
    if (bible.versification.empty())
        bible.versification = "KJV"; // the library's own default
    CVerseWalk(module, progress).readInto(bible);
    return bible;
}

std::string CSwordLibrary::fingerprint(const std::string& name) const
{
    namespace fs = std::filesystem;
    const sword::SWModule& module = m_private->module(name);
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

#include "all_sword.h"

#include "ascii.h"
#include "build.h"
#include "durable_file.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace Kedrin::ModTool {

namespace {

/// Changed whenever the tool builds a different module from the same source.
constexpr const char* toolVersion = "kedrin-module 4\n";

/// A module's folder name: the Bible's name in lower case, safe as a file name.
std::string folderName(std::string_view bible)
{
    std::string name = lower(bible);
    std::replace(name.begin(), name.end(), '/', '_');
    return name.starts_with('.') ? '_' + name : name;
}

class CAllSword
{
public:
    CAllSword(const ISwordTexts& texts, const std::string& directory, std::ostream& out, std::ostream& err,
              IProgress& progress)
        : m_texts(texts),
          m_directory(directory),
          m_out(out),
          m_err(err),
          m_progress(progress)
    {}

    bool run()
    {
        std::error_code error;
        std::filesystem::create_directories(m_directory, error);
        if (error)
            failToWrite(m_directory, error.message());
        provideGlobalStructure(m_directory);
        const std::vector<std::string> names = m_texts.bibles();
        if (names.empty())
            say(tr("no SWORD Bible is installed"));
        bool good = true;
        for (const std::string& name : names)
            good = buildOne(name) && good;
        return good;
    }

private:
    void say(const std::string& line)
    {
        m_progress.clear();
        m_out << printable(line) << '\n';
    }

    /// Whether the Bible did not fail.
    bool buildOne(const std::string& name)
    {
        const std::string folder = m_directory + '/' + folderName(name);
        const std::string leftOut = m_directory + "/." + folderName(name) + ".left-out";
        std::string fingerprint;
        try {
            fingerprint = toolVersion + m_texts.fingerprint(name);
            if (isUpToDate(folder, fingerprint)) {
                say(message("%s: up to date", name));
                return true;
            }
            if (const std::string reason = knownReason(leftOut, fingerprint); !reason.empty()) {
                say(message("%s: skipped: %s", name, reason));
                return true;
            }
            build(name, folder, fingerprint);
            ::unlink(leftOut.c_str());
            return true;
        } catch (const CUnfitText& ex) {
            say(message("%s: skipped: %s", name, ex.what()));
            replaceDurably(leftOut, fingerprint + ex.what());
            return true;
        } catch (const CFolderBusy&) {
            say(message("%s: skipped: another build of it is running", name));
            return true;
        } catch (const std::exception& ex) {
            m_progress.clear();
            sayError(m_err, name + ": " + ex.what());
            return false;
        }
    }

    void build(const std::string& name, const std::string& folder, const std::string& fingerprint)
    {
        BuildOptions options;
        options.substitute = true;
        options.refuseUnfitText = true;
        const SourceBible source = m_texts.read(
            name, [&](std::size_t done, std::size_t total) { m_progress.show(name, done, total); });
        const BuildReport report = buildModule(source, folder, options, fingerprint, m_progress);
        say(message("%s: built, %s, %s: %s", name, counted(report.booksCount, "book", "books"),
                    counted(report.versesCount, "verse", "verses"), report.title));
    }

    static bool isUpToDate(const std::string& folder, const std::string& fingerprint)
    {
        const auto exists = [&](std::string_view name) {
            return std::filesystem::exists(folder + '/' + std::string(name));
        };
        return contentOf(folder + '/' + fingerprintFileName) == fingerprint &&
               std::all_of(moduleFileNames.begin(), moduleFileNames.end(), exists);
    }

    /// Why the Bible with this fingerprint was skipped last time; "" if it was not.
    static std::string knownReason(const std::string& leftOut, const std::string& fingerprint)
    {
        const std::string content = contentOf(leftOut);
        return content.starts_with(fingerprint) ? content.substr(fingerprint.size()) : std::string();
    }

    const ISwordTexts& m_texts;
    const std::string& m_directory;
    std::ostream& m_out;
    std::ostream& m_err;
    IProgress& m_progress;
};

} // namespace

bool buildAllSword(const ISwordTexts& texts, const std::string& directory, std::ostream& out,
                   std::ostream& err, IProgress& progress)
{
    return CAllSword(texts, directory, out, err, progress).run();
}

} // namespace Kedrin::ModTool

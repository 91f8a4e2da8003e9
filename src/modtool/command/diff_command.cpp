#include "commands.h"

#include "build_report.h"
#include "command.h"
#include "command_options.h"
#include "exit_codes.h"
#include "installed_modules.h"
#include "messages.h"
#include "stored_markup.h"
#include "verse_alignment.h"

#include <string>

namespace Kedrin::ModTool {

namespace {

constexpr const char* helpText =
    translatable("Compares the verses that have the same position in the global numbering.\n"
                 "\n"
                 "Examples:\n"
                 "  kedrin-module diff modules/bibles/old modules/bibles/new\n"
                 "  kedrin-module diff --count modules/bibles/kjv modules/bibles/web\n"
                 "\n"
                 "Exit codes:\n"
                 "  0  no differences\n"
                 "  1  differences found\n"
                 "  2  invalid arguments\n"
                 "  3  a module cannot be read");

using Tolvo::CRef;

/// [verse number]
std::vector<std::string> allTexts(const CModuleReader& module)
{
    std::vector<std::string> texts;
    module.forEachVerse(0, module.structure().totalVersesCount(),
                        [&](unsigned int, std::string_view stored) { texts.push_back(plainText(stored)); });
    return texts;
}

class CComparison
{
public:
    CComparison(const CModuleReader& first, const CModuleReader& second)
        : m_first(first),
          m_second(second),
          m_firstTexts(allTexts(first)),
          m_secondTexts(allTexts(second))
    {}

    /// @param out  null: count only
    void compare(std::ostream* out)
    {
        for (const AlignedRow& row : alignAll(m_first, m_second)) {
            const std::string* before = textOf(m_first, m_firstTexts, row.verses[0]);
            const std::string* after = textOf(m_second, m_secondTexts, row.verses[1]);
            if (before && after && *before == *after) {
                ++m_same;
                continue;
            }
            ++(before && after ? m_different : before ? m_onlyFirst : m_onlySecond);
            if (out)
                write(*out, row, before, after);
        }
    }

    void writeCounts(std::ostream& out) const
    {
        out << message("%s, %s only in the first, %s only in the second, %s the same",
                       counted(m_different, "verse differs", "verses differ"), m_onlyFirst, m_onlySecond,
                       m_same)
            << '\n';
    }

    bool areSame() const { return m_different + m_onlyFirst + m_onlySecond == 0; }

private:
    static const std::string* textOf(const CModuleReader& module, const std::vector<std::string>& texts,
                                     const std::optional<CRef>& verse)
    {
        return verse ? &texts[module.structure().toNum(*verse)] : nullptr;
    }

    void write(std::ostream& out, const AlignedRow& row, const std::string* before,
               const std::string* after) const
    {
        const std::string first = before ? m_first.label(*row.verses[0]) : "";
        const std::string second = after ? m_second.label(*row.verses[1]) : "";
        out << first << (before && after && first != second ? " | " : "") << (first != second ? second : "")
            << '\n';
        if (before)
            out << "- " << *before << '\n';
        if (after)
            out << "+ " << *after << '\n';
    }

    const CModuleReader& m_first;
    const CModuleReader& m_second;
    std::vector<std::string> m_firstTexts;
    std::vector<std::string> m_secondTexts;
    std::uint64_t m_same = 0;
    std::uint64_t m_different = 0;
    std::uint64_t m_onlyFirst = 0;
    std::uint64_t m_onlySecond = 0;
};

/// `kedrin-module diff MODULE OTHER [--count]`: the verses in which two modules differ.
class CDiffCommand final : public CQueryCommand
{
public:
    explicit CDiffCommand(CLI::App& program);

private:
    int answer(std::ostream& out) const override;

    std::string m_first;
    std::string m_second;
    bool m_count = false;
};

} // namespace

CDiffCommand::CDiffCommand(CLI::App& program)
    : CQueryCommand(addCommand(program, "diff", "Show the verses in which two modules differ", helpText))
{
    addOption(*m_command, "MODULE", m_first, tr("The first module's folder")).require();
    addOption(*m_command, "OTHER", m_second, tr("The second module's folder")).require();
    addFlag(*m_command, "--count", m_count, tr("Show only how many verses differ"));
}

int CDiffCommand::answer(std::ostream& out) const
{
    const CModuleReader first(moduleFolder(m_first));
    const CModuleReader second(moduleFolder(m_second));
    CComparison comparison(first, second);
    comparison.compare(m_count ? nullptr : &out);
    comparison.writeCounts(out);
    return comparison.areSame() ? exitDone : exitFailed;
}

std::unique_ptr<ICommand> makeDiffCommand(CLI::App& program)
{
    return std::make_unique<CDiffCommand>(program);
}

} // namespace Kedrin::ModTool

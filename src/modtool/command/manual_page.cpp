#include "manual_page.h"

#include "help_formatter.h"
#include "messages.h"

#include <sstream>

namespace Kedrin::ModTool {

namespace {

/// Text with roff's special characters escaped.
std::string escaped(const std::string& text)
{
    std::string roff = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (const char c : text)
        roff += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
    return roff;
}

class CManualPage
{
public:
    std::string make(const CLI::App& program)
    {
        const auto commands = program.get_subcommands([](const CLI::App*) { return true; });
        m_page << "'\\\" -*- coding: UTF-8 -*-\n.TH KEDRIN-MODULE 1\n";
        section(tr("Name"));
        line(program.get_name() + " - " + program.get_description());
        section(tr("Usage"));
        for (const CLI::App* command : commands)
            m_page << (command == commands.front() ? "" : ".br\n") << ".B "
                   << escaped(usage(program, *command)) << '\n';
        section(tr("Subcommands"));
        for (const CLI::App* command : commands)
            describe(program, *command);
        section(tr("Environment"));
        line(tr("LANGUAGE, LC_ALL, LC_MESSAGES and LANG select the language of the messages: Bulgarian, or "
                "English for any other. Output for other programs (--json) is always in English."));
        return m_page.str();
    }

private:
    void section(const char* title) { m_page << ".SH " << escaped(title) << '\n'; }
    void line(const std::string& text) { m_page << escaped(text) << '\n'; }

    std::string usage(const CLI::App& program, const CLI::App& command) const
    {
        const std::string text =
            m_formatter.make_usage(&command, program.get_name() + ' ' + command.get_name());
        return text.substr(text.find(' ') + 1, text.find('\n') - text.find(' ') - 1);
    }

    void describe(const CLI::App& program, const CLI::App& command)
    {
        m_page << ".SS " << escaped(command.get_name()) << '\n';
        line(command.get_description() + '.');
        m_page << ".PP\n.B " << escaped(usage(program, command)) << '\n';
        for (const CLI::Option* option : command.get_options())
            if (option != command.get_help_ptr())
                describe(*option);
        describeHelpText(command.get_footer());
    }

    void describe(const CLI::Option& option)
    {
        const bool isPositional = option.get_positional();
        m_page << ".TP\n.B " << escaped(m_formatter.make_option_name(&option, isPositional))
               << escaped(isPositional ? "" : m_formatter.make_option_opts(&option)) << '\n';
        line(option.get_description() + '.');
    }

    /// Paragraphs are filled; lines that begin with a space are kept as they are.
    void describeHelpText(const std::string& text)
    {
        std::istringstream lines(text);
        bool isVerbatim = false;
        m_page << ".PP\n";
        for (std::string each; std::getline(lines, each);) {
            const bool begins = each.starts_with(' ');
            if (begins != isVerbatim)
                m_page << (begins ? ".RS 2\n.nf\n" : ".fi\n.RE\n");
            isVerbatim = begins;
            if (each.empty())
                m_page << ".PP\n";
            else
                line(begins ? each.substr(2) : each);
        }
        if (isVerbatim)
            m_page << ".fi\n.RE\n";
    }

    CHelpFormatter m_formatter;
    std::ostringstream m_page;
};

} // namespace

std::string manualPage(const CLI::App& program) { return CManualPage().make(program); }

} // namespace Kedrin::ModTool

// The guide quotes the texts of the programs to the letter, and leaves out no message of the windows.

#include "guide_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using namespace guide;

const fs::path sources = fs::path(KEDRIN_PROJECT_FOLDER) / "src";

/// All texts that the programs can show.
std::vector<std::string> textsOfThePrograms()
{
    std::vector<std::string> texts;
    const auto add = [&](const fs::path& file) {
        const std::vector<std::string> literals = literalsIn(contentOf(file));
        texts.insert(texts.end(), literals.begin(), literals.end());
    };
    for (const char* folder : {"window", "tolvo", "qt3", "add", "modtool/terminal"})
        for (const auto& entry : fs::recursive_directory_iterator(sources / folder))
            if (const std::string kind = entry.path().extension().string();
                kind == ".cpp" || kind == ".h" || kind == ".po")
                add(entry.path());
    add(sources / "main.cpp");
    for (const char* script : {"scripts/kedrin.in", "debian/update-modules"})
        add(fs::path(KEDRIN_PROJECT_FOLDER) / script);
    return texts;
}

/// The pages of a language as one text.
std::string guideText(const std::string& language)
{
    std::string whole;
    for (const auto& [name, page] : pagesOf(language))
        whole += plain(page) + '\n';
    return whole;
}

/// Texts that no reader meets or that need no explanation.
const std::set<std::string> unexplained{
    "0.3 betha demo", "0.3 Betha Demo String",     "Demo Error", // in no menu
    "Иди на стих",                                               // in no menu, F5 only
    "gotoChapter",    "Kedrin за Linux 0.3 betha",
};

/// What kedrin-add says while all goes well.
const std::set<std::string> successes{
    "\"…\" has been added. The next time Kedrin is started, it opens this translation.",
    "\"…\" has been added. The next time Kedrin is started, its menu \"…\" lists this translation.",
    "\"…\" has been removed.",
    "Drop a file or a folder with a Bible text on this window, or choose one.",
    "Enter the address of a repository of SWORD texts (http, https or ftp), or a folder of this computer "
    "with such texts.",
    "Nothing is left out or replaced.",
    "Remove \"…\" from this computer? Its files are deleted.",
    "The next time Kedrin is started, it opens \"…\".",
    "These Bibles are installed on this computer for SWORD programs. Kedrin can show them too.",
    "… offers these Bibles. \"Add...\" shows the selected one on the first page, without installing anything "
    "yet.",
};

/// The texts of the window's boxes, menus and controls.
std::vector<std::string> textsOfTheWindow()
{
    std::vector<std::string> texts;
    std::istringstream lines(contentOf(sources / "window/bggui_texts.cpp"));
    for (std::string line; std::getline(lines, line);)
        if (line.find("setText(tr(") != std::string::npos || line.find("setTitle(tr(") != std::string::npos)
            texts.push_back(literalsIn(line).at(0));
    const std::string slots = contentOf(sources / "window/bggui.ui.h");
    for (const std::string& text : literalsIn(slots.substr(slots.find("namespace {"))))
        if (!text.starts_with("Kedrin за Linux, ")) // the version, in a box that explains itself
            texts.push_back(text);
    return texts;
}

class GuideTexts : public testing::TestWithParam<const char*>
{
};

TEST_P(GuideTexts, InBoldAreThoseOfThePrograms)
{
    const std::vector<std::string> texts = textsOfThePrograms();
    EXPECT_GT(texts.size(), 1500u);
    std::size_t count = 0;
    for (const auto& [name, page] : pagesOf(GetParam()))
        for (const std::string& quoted : boldIn(page)) {
            ++count;
            EXPECT_TRUE(
                std::any_of(texts.begin(), texts.end(),
                            [&](const std::string& text) { return text.find(quoted) != std::string::npos; }))
                << name << ": no program has the text: " << quoted;
        }
    EXPECT_GT(count, 120u);
}

TEST_P(GuideTexts, HaveAllThatTheWindowShows)
{
    const std::string guide = guideText(GetParam());
    const std::vector<std::string> texts = textsOfTheWindow();
    EXPECT_GT(texts.size(), 30u);
    for (const std::string& text : texts)
        EXPECT_TRUE(unexplained.contains(text) || guide.find(text) != std::string::npos)
            << "the guide lacks: " << text;
}

/// Its sentences when something fails; labels and buttons explain themselves.
TEST_P(GuideTexts, HaveAllMessagesOfKedrinAdd)
{
    const std::string guide = guideText(GetParam());
    const std::map<std::string, std::string> translations = catalogue();
    EXPECT_GT(translations.size(), 500u);
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(sources / "add"))
        for (const std::string& english : literalsIn(contentOf(entry.path()))) {
            const auto translation = translations.find(english);
            if (translation == translations.end() || !english.ends_with('.') || english.ends_with("...") ||
                successes.contains(english))
                continue;
            ++count;
            const std::string& text =
                std::string(GetParam()) == "bg" ? translation->second : translation->first;
            EXPECT_NE(guide.find(text), std::string::npos) << "the guide lacks: " << text;
        }
    EXPECT_GT(count, 10u);
}

INSTANTIATE_TEST_SUITE_P(Language, GuideTexts, testing::Values("bg", "en"));

} // namespace

// The guide's HTML: well-formed, complete in both languages, every link leading somewhere.

#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xpath.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path guideFolder = KEDRIN_GUIDE_FOLDER;

/// A page as XML, which refuses what is not well-formed.
class CPage
{
public:
    explicit CPage(const fs::path& file)
        : m_document(xmlReadFile(file.c_str(), nullptr, XML_PARSE_NONET), xmlFreeDoc)
    {}

    bool isWellFormed() const { return m_document != nullptr; }

    /// The texts of the attributes or elements that an XPath expression finds.
    std::vector<std::string> find(const std::string& expression) const
    {
        const std::unique_ptr<xmlXPathContext, decltype(&xmlXPathFreeContext)> context(
            xmlXPathNewContext(m_document.get()), xmlXPathFreeContext);
        const std::unique_ptr<xmlXPathObject, decltype(&xmlXPathFreeObject)> found(
            xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(expression.c_str()), context.get()),
            xmlXPathFreeObject);
        std::vector<std::string> texts;
        for (int i = 0; found->nodesetval != nullptr && i < found->nodesetval->nodeNr; ++i) {
            const std::unique_ptr<xmlChar, void (*)(void*)> text(
                xmlNodeGetContent(found->nodesetval->nodeTab[i]), xmlFree);
            texts.emplace_back(reinterpret_cast<const char*>(text.get()));
        }
        return texts;
    }

private:
    std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> m_document;
};

std::set<std::string> pageNames(const std::string& language)
{
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(guideFolder / language))
        names.insert(entry.path().filename().string());
    return names;
}

/// Whether a link of a page leads to a file of the guide and, with a "#", to an element of that page.
bool leadsSomewhere(const fs::path& page, const std::string& link)
{
    const std::size_t hash = link.find('#');
    const fs::path target = hash == 0 ? page : page.parent_path() / link.substr(0, hash);
    if (!fs::is_regular_file(target))
        return false;
    return hash == std::string::npos ||
           !CPage(target).find("//@id[.='" + link.substr(hash + 1) + "']").empty();
}

class GuidePages : public testing::TestWithParam<const char*>
{
};

TEST_P(GuidePages, AreWellFormed)
{
    const std::string language = GetParam();
    const std::set<std::string> names = pageNames(language);
    EXPECT_GE(names.size(), 12u);
    for (const std::string& name : names) {
        const CPage page(guideFolder / language / name);
        ASSERT_TRUE(page.isWellFormed()) << name;
        EXPECT_EQ(page.find("/html/@lang"), std::vector<std::string>{language}) << name;
        EXPECT_EQ(page.find("/html/head/title[.!='']").size(), 1u) << name;
        EXPECT_EQ(page.find("//h1").size(), 1u) << name;
        EXPECT_EQ(page.find("//img").size(), page.find("//img[@alt!='']").size()) << name;
        for (const std::string& id : page.find("//@id"))
            EXPECT_EQ(page.find("//@id[.='" + id + "']").size(), 1u) << name << ": " << id;
    }
}

TEST_P(GuidePages, LinkOnlyToWhatExists)
{
    const std::string language = GetParam();
    for (const std::string& name : pageNames(language)) {
        const CPage page(guideFolder / language / name);
        ASSERT_TRUE(page.isWellFormed()) << name;
        const std::vector<std::string> links = page.find("//@href | //@src");
        EXPECT_GT(links.size(), pageNames(language).size()) << name;
        for (const std::string& link : links)
            EXPECT_TRUE(leadsSomewhere(guideFolder / language / name, link)) << name << ": " << link;
    }
}

TEST_P(GuidePages, AreAllReachedFromTheFirst)
{
    const std::string language = GetParam();
    const CPage index(guideFolder / language / "index.html");
    ASSERT_TRUE(index.isWellFormed());
    const std::vector<std::string> links = index.find("//main//@href");
    for (const std::string& name : pageNames(language))
        EXPECT_TRUE(name == "index.html" || std::find(links.begin(), links.end(), name) != links.end())
            << name;
}

INSTANTIATE_TEST_SUITE_P(Language, GuidePages, testing::Values("bg", "en"));

TEST(Guide, HasTheSamePagesInBothLanguages) { EXPECT_EQ(pageNames("bg"), pageNames("en")); }

TEST(Guide, ShowsEveryPicture)
{
    std::set<std::string> shown;
    for (const char* language : {"bg", "en"})
        for (const std::string& name : pageNames(language))
            for (const std::string& source : CPage(guideFolder / language / name).find("//img/@src"))
                shown.insert(fs::path(source).filename().string());
    std::uintmax_t byteCount = 0;
    for (const auto& entry : fs::directory_iterator(guideFolder / "pictures")) {
        EXPECT_TRUE(shown.contains(entry.path().filename().string())) << entry.path();
        byteCount += entry.file_size();
    }
    EXPECT_LT(byteCount, 400'000u);
}

} // namespace

#include "query_fixture.h"

#include "query_program.h"

#include <ostream>
#include <sstream>

namespace query_test {

using namespace test_support;

namespace {

constexpr unsigned int genesis = 0;
constexpr unsigned int jonah = 31;
constexpr unsigned int jude = 61;

} // namespace

void PrintTo(const Result& result, std::ostream* out)
{
    *out << "exit code " << result.code << "\nstandard output:\n"
         << result.out << "standard error:\n"
         << result.err;
}

Result run(const std::vector<std::string>& arguments)
{
    std::vector<const char*> argv = {"kedrin-module"};
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    std::ostringstream out;
    std::ostringstream err;
    const int code = Kedrin::ModTool::runQueryProgram(static_cast<int>(argv.size()), argv.data(), out, err);
    return {code, out.str(), err.str()};
}

std::string Modules::add(const std::string& name, const ModuleFiles& files) const
{
    files.write(m_folder.path() / name);
    return path(name);
}

ModuleFiles bulgarianModule()
{
    const std::string diff =
        "32 2 2 0 -1\n2 2 2 0 -1\n"; // Йона is book 32 of the common numbering and book 2 here
    return makeModule(
        "Пробен превод",
        {{genesis,
          "Битие",
          {{"В начало Бог създаде света.", "И Бог рече: &lt;Да бъде&gt;."},
           {"И стана <i>ден</i>.", "Бог видя деня."}}},
         {jonah, "Йона", {{"И Господ рече."}, {"Но Господ определи риба.", "И Йона се помоли."}}},
         {jude, "Юда", {{"Юда, слуга.", "Милост и мир.", "Възлюбени!"}}}},
        diff);
}

ModuleFiles englishModule()
{
    return makeModule(
        "English",
        {{genesis,
          "Genesis",
          {{"In the beginning God created the world.", "And God said."}, {"And there was day."}}},
         {jonah,
          "Jonah",
          {{"And the LORD spoke.", "But the LORD prepared a fish."}, {"Then Jonah prayed.", "And said."}}}});
}

} // namespace query_test

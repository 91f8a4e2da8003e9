#include "refusals.h"

#include <algorithm>
#include <map>
#include <set>

namespace test_support {

namespace {

const std::string vectorError = "CFileVector::operator [](): IO error";
const std::string rangeError = "CFileVector::operator [](): recordIndex out of range";
const std::string textError = "CBibleText::operator [](): I/O error";
const std::string titlesError = "CTitles::ValidateBookID(): bookID out of range";

/// The readers' messages for a file that cannot be opened.
const std::map<std::string, std::string> unopened = {
    {"BibleTitles.txt", "CTitles::CTitles(): error opening file "},
    {"BibleStructure.csv", "CBibleSructure::CBibleSructure(): error opening file "},
    {"_Diff_.txt", "CDiff::CDiff(): error opening file "},
    {"CompactPoint.bin", "CFileVector::CFileVector(): cannot open file "},
    {"CompactText.bin", "CBibleText::CBibleText(): error opening file "},
    {"WordList.txt", "CWordList::CWordList(): error opening file "},
    {"Conc.bin", "CFileVector::CFileVector(): cannot open file "},
    {"ConcP.bin", "CFileVector::CFileVector(): cannot open file "},
};

} // namespace

std::string loadingError(const std::string& folder, const std::string& inner)
{
    return "CBible::CBible(): Error loading Bible (from folder " + folder + ");\nError message: \"" + inner +
           "\"";
}

std::string refusalOfUnopened(const std::string& fileName, const std::string& module)
{
    const auto message = unopened.find(fileName);
    if (message == unopened.end())
        return std::string();
    return loadingError(module, message->second + module + "/" + fileName);
}

bool isPromisedRefusal(const std::string& message, const std::string& folder)
{
    if (message == loadingError(folder, "CBibleSructure::CBibleSructure(): error reading file " + folder +
                                            "/BibleStructure.csv"))
        return true;
    return std::any_of(unopened.begin(), unopened.end(), [&](const auto& file) {
        return message == loadingError(folder, file.second + folder + "/" + file.first);
    });
}

bool isPromisedDoubt(const std::string& message, const std::string& folder)
{
    for (const std::string& inner :
         {"CTitles::CTitles(): error reading file " + folder + "/BibleTitles.txt",
          "CBibleSructure::CBibleSructure(): error reading file " + folder + "/BibleStructure.csv",
          std::string("CBibleSructure::ValidateBookID(): bookID out of range"),
          std::string("CBibleSructure::ValidateChapterID(): chapter out of range"),
          std::string("CBibleText::operator [](): I/O error")})
        if (message == loadingError(folder, inner))
            return true;
    return false;
}

bool isPromisedReadingError(const std::string& message)
{
    static const std::set<std::string> promised = {
        vectorError,
        rangeError,
        textError,
        titlesError,
        "CTitles::localID() called for non existing book",
        "CBibleSructure::ValidateBookID(): bookID out of range",
        "CBibleSructure::ValidateChapterID(): chapter out of range"};
    return promised.contains(message);
}

bool isPromisedSearchError(const std::string& message)
{
    static const std::set<std::string> promised = {
        vectorError,
        rangeError,
        textError,
        titlesError,
        "CConc::getVersesFor(): wordIndex out of range",
        "CBibleSructure::ValidateNum(): verse number out of range"};
    return promised.contains(message);
}

} // namespace test_support

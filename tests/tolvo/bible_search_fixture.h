#pragma once

#include "module_files.h"
#include "temp_folder.h"
#include "tolvo_bible.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using Places = std::vector<std::string>;

/// "book.chapter.verse", all from 0, followed by the type.
inline Places placesOf(const std::vector<Kedrin::Tolvo::CRef>& refs)
{
    Places places;
    for (const Kedrin::Tolvo::CRef& ref : refs)
        places.push_back(ut::format("%u.%u.%u%s", ref.bookID(), ref.chapter(), ref.verse(),
                                    ref.isGlobal() ? "" : " not global"));
    return places;
}

/// Loads a module and searches it; results are compared as texts.
class BibleSearchFixture : public testing::Test
{
protected:
    void load(const test_support::ModuleFiles& files)
    {
        files.write(folder.path());
        bible = std::make_unique<Kedrin::Tolvo::CBible>(folder.path().string());
    }

    /// A module of one book (global 4) with one chapter of these verses, in UTF-8.
    void loadVerses(const std::vector<std::string>& verses)
    {
        load(test_support::makeModule("Превод", {test_support::Book{4, "Числа", {verses}}}));
    }

    Places part(const std::string& text) { return search(text, false, false); }
    Places exactPart(const std::string& text) { return search(text, false, true); }
    Places word(const std::string& text) { return search(text, true, false); }

    /// Searches for a UTF-8 text.
    Places search(const std::string& text, bool wholeWord, bool caseSensitive)
    {
        bible->search(test_support::cp1251(text), wholeWord, caseSensitive, result);
        return placesOf(result);
    }

    test_support::TempFolder folder;
    std::unique_ptr<Kedrin::Tolvo::CBible> bible;
    std::vector<Kedrin::Tolvo::CRef> result = {Kedrin::Tolvo::CRef(9, 9, 9, true)}; // of a previous search
};

// Formats in XML whose elements are books, chapters and verses.

#include "varied_formats.h"
#include "varied_xml.h"

namespace varied_test {

namespace {

std::string inCase(std::string name, bool isSmall)
{
    for (char& c : name)
        if (isSmall)
            c = static_cast<char>(c | 0x20);
    return name;
}

std::string number(unsigned int value) { return std::to_string(value); }

} // namespace

std::vector<File> writeBeblia(const Text& text, CRandom& random)
{
    CXmlWriter xml(random);
    const bool hasTestaments = random.oneIn(2);
    xml.open("bible", {{"translation", "Тест"}, {"status", "Public Domain"}});
    if (hasTestaments)
        xml.open("testament", {{"name", "Old"}});
    forEachPart(
        text,
        [&](const Book& book) {
            xml.open("book", {{"number", number(book.number)}});
        },
        [&](const Verse& verse) {
            xml.open("chapter", {{"number", number(verse.chapter)}});
        },
        [&](const Verse& verse) {
            xml.gap();
            xml.element("verse", {{"number", number(verse.verse)}}, verse.text);
            xml.gap();
        },
        [&] { xml.close("chapter"); },
        [&] {
            xml.close("book");
            xml.gap();
        });
    if (hasTestaments)
        xml.close("testament");
    xml.close("bible");
    return {{"made.xml", xml.document()}};
}

std::vector<File> writeOpenSong(const Text& text, CRandom& random)
{
    CXmlWriter xml(random);
    xml.open("bible");
    forEachPart(
        text,
        [&](const Book& book) {
            xml.open("b", {{"n", anyNameOf(book, random)}});
        },
        [&](const Verse& verse) {
            xml.open("c", {{"n", number(verse.chapter)}});
        },
        [&](const Verse& verse) {
            xml.gap();
            xml.element("v", {{"n", number(verse.verse)}}, verse.text);
            xml.gap();
        },
        [&] { xml.close("c"); },
        [&] {
            xml.close("b");
            xml.gap();
        });
    xml.close("bible");
    return {{"made", xml.document()}};
}

std::vector<File> writeZefania(const Text& text, CRandom& random)
{
    CXmlWriter xml(random);
    const bool isSmall = random.oneIn(4);
    const auto named = [&](const char* name) { return inCase(name, isSmall); };
    xml.open(named("XMLBIBLE"), {{named("biblename"), "Тест"}});
    xml.gap();
    if (random.oneIn(2)) {
        xml.open(named("INFORMATION"));
        xml.element(named("title"), {}, "Тест");
        xml.close(named("INFORMATION"));
    }
    forEachPart(
        text,
        [&](const Book& book) {
            xml.gap();
            CXmlWriter::Attributes attributes{{named("bnumber"), number(book.number)}};
            if (random.oneIn(2))
                attributes.emplace_back(named("bname"), book.english);
            xml.open(named("BIBLEBOOK"), attributes);
        },
        [&](const Verse& verse) {
            xml.gap();
            xml.open(named("CHAPTER"), {{named("cnumber"), number(verse.chapter)}});
        },
        [&](const Verse& verse) {
            xml.gap();
            xml.element(named("VERS"), {{named("vnumber"), number(verse.verse)}}, verse.text);
            xml.gap();
        },
        [&] { xml.close(named("CHAPTER")); }, [&] { xml.close(named("BIBLEBOOK")); });
    xml.close(named("XMLBIBLE"));
    return {{"made.xml", xml.document()}};
}

std::vector<File> writeCes(const Text& text, CRandom& random)
{
    CXmlWriter xml(random);
    xml.open("cesDoc", {{"version", "4"}});
    xml.gap();
    xml.open("text");
    xml.open("body", {{"lang", "bg"}});
    std::string book, chapter;
    forEachPart(
        text,
        [&](const Book& begun) {
            book = std::string("b.") + begun.usfm;
            xml.gap();
            xml.open("div", {{"type", "book"}, {"id", book}});
        },
        [&](const Verse& verse) {
            chapter = book + '.' + number(verse.chapter);
            xml.gap();
            xml.open("div", {{"id", chapter}, {"type", "chapter"}});
        },
        [&](const Verse& verse) {
            CXmlWriter::Attributes attributes{{"id", chapter + '.' + number(verse.verse)}};
            if (random.oneIn(2))
                attributes.emplace_back("type", "verse");
            xml.gap();
            xml.open("seg", attributes);
            xml.gap();
            xml.text(verse.text);
            xml.gap();
            xml.close("seg");
        },
        [&] { xml.close("div"); }, [&] { xml.close("div"); });
    for (const char* name : {"body", "text", "cesDoc"}) {
        xml.gap();
        xml.close(name);
    }
    return {{"made.xml", xml.document()}};
}

} // namespace varied_test

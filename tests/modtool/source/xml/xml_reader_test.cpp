#include "xml_reader.h"

#include "errors.h"
#include "thrown.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;
using test_support::messageOf;

namespace {

std::string errorIn(const std::string& text)
{
    return messageOf<CBuildError>([&] {
        CXmlReader xml("f.xml", text);
        while (xml.next() != CXmlReader::Node::none) {
        }
    });
}

std::string repeated(const std::string& text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

/// The nodes of a document, one per line: position, depth and content.
std::string nodesOf(const std::string& text)
{
    CXmlReader xml("f.xml", text);
    std::string nodes;
    for (auto node = xml.next(); node != CXmlReader::Node::none; node = xml.next()) {
        nodes += std::to_string(xml.line()) + ' ' + std::to_string(xml.depth()) + ' ';
        if (node == CXmlReader::Node::text)
            nodes += '"' + std::string(xml.text()) + "\"\n";
        else
            nodes += (node == CXmlReader::Node::end ? "</" : "<") + std::string(xml.name()) +
                     (xml.isEmpty() ? "/>\n" : ">\n");
    }
    return nodes;
}

const char* const nothing = "<nothing was thrown>";

} // namespace

TEST(XmlReader, GivesElementsAndTextsInOrder)
{
    CXmlReader xml("f.xml", "<a x='1'><!-- c -->t<b/></a>");
    EXPECT_EQ(xml.next(), CXmlReader::Node::start);
    EXPECT_EQ(xml.name(), "a");
    EXPECT_EQ(xml.attribute("x"), "1");
    EXPECT_EQ(xml.attribute("y"), "");
    EXPECT_EQ(xml.next(), CXmlReader::Node::text);
    EXPECT_EQ(xml.text(), "t");
    EXPECT_EQ(xml.next(), CXmlReader::Node::start);
    EXPECT_TRUE(xml.isEmpty());
    EXPECT_EQ(xml.next(), CXmlReader::Node::end);
    EXPECT_EQ(xml.next(), CXmlReader::Node::none);
}

TEST(XmlReader, EmptyElementHasNoEnd)
{
    EXPECT_EQ(nodesOf("<a><b/><c></c><d x='/>'>t</d><e/></a>"), "1 0 <a>\n"
                                                                "1 1 <b/>\n"
                                                                "1 1 <c/>\n"
                                                                "1 1 <d>\n1 2 \"t\"\n1 1 </d>\n"
                                                                "1 1 <e/>\n"
                                                                "1 0 </a>\n");
    EXPECT_EQ(nodesOf("<a/>"), "1 0 <a/>\n");
}

TEST(XmlReader, TextIsWholeUpToTheNextElement)
{
    EXPECT_EQ(nodesOf("<a>one &lt;&#1073;<!-- c -->two<?p i?>\r\nthree<![CDATA[<b>&amp;]]></a>"),
              "1 0 <a>\n1 1 \"one <\u0431two\nthree<b>&amp;\"\n2 0 </a>\n");
}

TEST(XmlReader, TextIsInTheLineOfItsFirstWord)
{
    EXPECT_EQ(nodesOf("<a>\n \n one\ntwo\n<b/>\n</a>"),
              "1 0 <a>\n3 1 \"\n \n one\ntwo\n\"\n5 1 <b/>\n5 1 \"\n\"\n6 0 </a>\n");
}

TEST(XmlReader, PrefixIsNotPartOfTheName)
{
    EXPECT_EQ(nodesOf("<o:a xmlns:o='u'><p:b/></o:a>"), "1 0 <a>\n1 1 <b/>\n1 0 </a>\n");
    const std::string text = "<a xml:x='1' y='2' x='3 &lt;&#10;'/>";
    CXmlReader xml("f.xml", text);
    xml.next();
    EXPECT_EQ(xml.attribute("x"), "3 <\n");
    EXPECT_EQ(xml.attribute("lt"), "");
}

TEST(XmlReader, DeclaredEncodingIsIgnored)
{
    EXPECT_EQ(nodesOf("<?xml version='1.0' encoding='windows-1251'?><a>\u0431</a>"),
              "1 0 <a>\n1 1 \"\u0431\"\n1 0 </a>\n");
}

TEST(XmlReader, EntityBombIsRefusedBeforeItIsRead)
{
    EXPECT_EQ(
        errorIn("<?xml version='1.0'?>\n<!DOCTYPE a [<!ENTITY b 'bbbb'><!ENTITY c '&b;&b;'>]><a>&c;</a>"),
        "f.xml:2: declares entities or elements of its own, which is not allowed");
}

TEST(XmlReader, ExternalEntityIsRefused)
{
    EXPECT_EQ(errorIn("<!DOCTYPE a [<!ENTITY b SYSTEM 'file:///etc/passwd'>]><a>&b;</a>"),
              "f.xml:1: declares entities or elements of its own, which is not allowed");
}

TEST(XmlReader, BracketInAQuotedNameIsNoDeclaration)
{
    EXPECT_EQ(errorIn("<!DOCTYPE a SYSTEM \"[.dtd\"><a/>"), nothing);
}

TEST(XmlReader, ExternalDocumentTypeIsNotLoadedAndItsEntitiesAreUnknown)
{
    EXPECT_EQ(errorIn("<!DOCTYPE a SYSTEM 'http://127.0.0.1:1/a.dtd'><a>t</a>"), nothing);
    EXPECT_EQ(errorIn("<!DOCTYPE a SYSTEM 'http://127.0.0.1:1/a.dtd'><a>\n&nbsp;</a>"),
              "f.xml:2: unknown entity \"nbsp\"");
}

TEST(XmlReader, UnknownEntityIsRefusedWhereverItStands)
{
    for (const std::string type : {"", "<!DOCTYPE a SYSTEM 'a.dtd'>"}) {
        EXPECT_EQ(errorIn(type + "<a>\n&b;</a>"), "f.xml:2: unknown entity \"b\"");
        EXPECT_EQ(errorIn(type + "<a x='&amp;&#1073;&b;'/>"), "f.xml:1: unknown entity \"b\"");
        EXPECT_EQ(errorIn(type + "<a x='&lt;&gt;&amp;&quot;&apos;&#x431;'>&lt;&amp;</a>"), nothing);
    }
}

TEST(XmlReader, DeepNestingIsRefused)
{
    EXPECT_EQ(errorIn(repeated("<a>", 100) + repeated("</a>", 100)), nothing);
    EXPECT_EQ(errorIn(repeated("<a>", 1000000)), "f.xml:1: elements are nested more than 100 deep");
}

TEST(XmlReader, BrokenXmlIsRefusedWithItsLine)
{
    EXPECT_EQ(errorIn("<a>\n<b></a>"), "f.xml:2: not well-formed XML: mismatched tag");
    EXPECT_EQ(errorIn("<a>\n"), "f.xml:2: not well-formed XML: no element found");
    EXPECT_EQ(errorIn(""), "f.xml:1: not well-formed XML: no element found");
    EXPECT_EQ(errorIn("<a/>\n\nb"), "f.xml:3: not well-formed XML: junk after document element");
}

TEST(XmlReader, HugeAttributesNamesAndTextsAreRefused)
{
    const std::string much(11000000, 'x');
    const std::string expected = "f.xml:1: not well-formed XML: part of it is too long";
    EXPECT_EQ(errorIn("<a x='" + much + "'/>"), expected);
    EXPECT_EQ(errorIn("<" + much + "/>"), expected);
    EXPECT_EQ(errorIn("<a>" + much + "</a>"), expected);
}

TEST(XmlReader, ManyAttributesAreReadInProportionateTime)
{
    std::string text = "<a";
    for (int i = 0; i < 100000; ++i)
        text += " b" + std::to_string(i) + "='" + std::to_string(i) + '\'';
    text += "/>";
    CXmlReader xml("f.xml", text);
    EXPECT_EQ(xml.next(), CXmlReader::Node::start);
    EXPECT_EQ(xml.attribute("b99999"), "99999");
    EXPECT_EQ(xml.attribute("b"), "");
}

TEST(XmlReader, ManyNamesAreRefused)
{
    std::string text = "<a>";
    for (int i = 0; i < 200000; ++i)
        text += "<b" + std::to_string(i) + "/>";
    EXPECT_EQ(errorIn(text + "</a>"), "f.xml:1: not well-formed XML: it has too many names");
    EXPECT_EQ(errorIn("<a>" + repeated("<b/>", 1000000) + "</a>"), nothing);
}

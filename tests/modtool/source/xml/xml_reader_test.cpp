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
              "f.xml:2: the entity \"nbsp\" is not known");
}

TEST(XmlReader, DeepNestingIsRefused)
{
    EXPECT_EQ(errorIn(repeated("<a>", 100) + repeated("</a>", 100)), nothing);
    EXPECT_EQ(errorIn(repeated("<a>", 1000000)), "f.xml:1: elements stand in one another more than 100 deep");
}

TEST(XmlReader, BrokenXmlIsRefusedWithItsLine)
{
    EXPECT_EQ(errorIn("<a>\n<b></a>"),
              "f.xml:2: not well-formed XML: Opening and ending tag mismatch: b line 2 and a");
    EXPECT_EQ(errorIn("<a>&b;</a>"), "f.xml:1: not well-formed XML: Entity 'b' not defined");
}

TEST(XmlReader, HugeAttributesNamesAndTextsAreRefused)
{
    const std::string much(11000000, 'x');
    const std::string expected = "f.xml:1: not well-formed XML: a part of it is too long";
    EXPECT_EQ(errorIn("<a x='" + much + "'/>"), expected);
    EXPECT_EQ(errorIn("<" + much + "/>"), expected);
    EXPECT_EQ(errorIn("<a>" + much + "</a>"), expected);
}

TEST(XmlReader, RootElementIsFoundBehindTheProlog)
{
    EXPECT_EQ(rootElement("<?xml version='1.0'?>\n<!-- <no/> --><!DOCTYPE a SYSTEM 'x>'><o:osis x='1'>"),
              "osis");
    EXPECT_EQ(rootElement("<osis>"), "osis");
    EXPECT_EQ(rootElement("text <osis>"), "");
    EXPECT_EQ(rootElement("<?xml"), "");
    EXPECT_EQ(rootElement("<!DOCTYPE osis [<!ENTITY a 'b'>]><osis>"), "osis");
}

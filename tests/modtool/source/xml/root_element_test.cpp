#include "root_element.h"

#include <gtest/gtest.h>

using namespace Kedrin::ModTool;

TEST(RootElement, IsFoundBehindTheProlog)
{
    EXPECT_EQ(rootElement("<?xml version='1.0'?>\n<!-- <no/> --><!DOCTYPE a SYSTEM 'x>'><o:osis x='1'>"),
              "osis");
    EXPECT_EQ(rootElement("<osis>"), "osis");
    EXPECT_EQ(rootElement("text <osis>"), "");
    EXPECT_EQ(rootElement("<?xml"), "");
    EXPECT_EQ(rootElement("<!DOCTYPE osis [<!ENTITY a 'b'>]><osis>"), "osis");
}

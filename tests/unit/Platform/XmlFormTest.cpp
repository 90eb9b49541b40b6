// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/DataAttribute.h>
#include <SylvarPlatform/GroupAttribute.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace Sylvar3::internal::OvAttribute;

using Samples = TimedSamples<float>;
using Strings = std::vector<std::string>;

struct Row {
    Attribute attribute;
    const char* xml;
};

void expectForm(const Attribute& attribute, const std::string& xml) {
    EXPECT_EQ(xml, attribute.getXML());
    EXPECT_EQ(attribute.getHash().str(), Attribute::parseXML(xml).getHash().str()) << xml;
}

TEST(XmlForm, EveryShapeOfAValueHasItsXml) {
    const Row rows[] = {
        {Attribute(), "<attr type=\"null\"/>\n"},
        {IntAttribute(7), "<attr type=\"int\">\n  <sample time=\"0\">7</sample>\n</attr>\n"},
        {FloatAttribute({0, -0.0F, 0.1F, 1e20F}, 2),
         "<attr type=\"float\" tuple=\"2\">\n"
         "  <sample time=\"0\">0 -0 0.1 1e+20</sample>\n"
         "</attr>\n"},
        {DoubleAttribute({1, std::numeric_limits<double>::infinity()}),
         "<attr type=\"double\">\n  <sample time=\"0\">1 inf</sample>\n</attr>\n"},
        {FloatAttribute(Samples{{0.5F, {1}}, {-1, {2}}}),
         "<attr type=\"float\">\n"
         "  <sample time=\"0.5\">1</sample>\n"
         "  <sample time=\"-1\">2</sample>\n"
         "</attr>\n"},
        {FloatAttribute(Samples{{0, {}}}),
         "<attr type=\"float\">\n  <sample time=\"0\"/>\n</attr>\n"},
        {FloatAttribute(Samples{}), "<attr type=\"float\"/>\n"},
        {StringAttribute(Strings{"one", "", " ", "<&>\"'"}),
         "<attr type=\"string\">\n"
         "  <sample time=\"0\"><value>one</value> <value/> <value> </value> "
         "<value>&lt;&amp;&gt;&quot;'</value></sample>\n"
         "</attr>\n"},
        {StringAttribute("\ta\n \xFF\\x41"),
         "<attr type=\"string\">\n"
         "  <sample time=\"0\"><value>\\x09a\\x0A \\xFF\\x5Cx41</value></sample>\n"
         "</attr>\n"},
        {GroupAttribute({}, true), "<attr type=\"group\" inherit=\"1\"/>\n"},
        {GroupAttribute({{"", Attribute()}, {"\"a\"\n", GroupAttribute({}, false)}}, false),
         "<attr type=\"group\">\n"
         "  <attr name=\"\" type=\"null\"/>\n"
         "  <attr name=\"&quot;a&quot;\\x0A\" type=\"group\"/>\n"
         "</attr>\n"},
    };
    for (const Row& row : rows) {
        expectForm(row.attribute, row.xml);
    }
}

TEST(XmlForm, LongListsBreakBetweenTuples) {
    std::vector<float> values(60, 0.125F);
    EXPECT_EQ(
        "<attr type=\"float\" tuple=\"3\">\n"
        "  <sample time=\"0\">0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 "
        "0.125\n"
        "    0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 "
        "0.125\n"
        "    0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 "
        "0.125\n"
        "    0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 0.125 "
        "0.125\n"
        "    0.125 0.125 0.125</sample>\n"
        "</attr>\n",
        FloatAttribute(values, 3).getXML());
}

TEST(XmlForm, PeopleMayWriteItTheirWay) {
    const Attribute read = Attribute::parseXML(
        "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- A comment < & > -->\n"
        "<attr inherit='1' type='group'>\r\n"
        "  <attr type = \"int\" name=\"a&amp;&#x41;\"><sample time=\"0\">\n 1\t2 <!-- , --> 3\r\n "
        "</sample></attr>\n"
        "  <attr name=\"s\" type=\"string\" tuple=\"2\">\n<sample time=\"1\">\n"
        "<value>a<!-- b -->c<![CDATA[<&>]]></value><value>  </value><value></value>\n"
        "</sample></attr><attr name=\"e\" type=\"group\">\n</attr>\n"
        "</attr>\n<!-- the end -->\n");
    const GroupAttribute wanted(
        {{"a&A", IntAttribute({1, 2, 3})},
         {"s", StringAttribute(TimedSamples<std::string>{{1, {"ac<&>", "  ", ""}}}, 2)},
         {"e", GroupAttribute({}, false)}},
        true);
    EXPECT_EQ(wanted.getXML(), read.getXML());
    EXPECT_EQ(wanted.getHash().str(), read.getHash().str());
}

TEST(XmlForm, ALaterChildOfANameReplacesTheEarlierOneInItsPlace) {
    const Attribute read = Attribute::parseXML(
        "<attr type=\"group\"><attr name=\"a\" type=\"null\"/><attr name=\"b\" type=\"null\"/>"
        "<attr name=\"a\" type=\"group\"/></attr>");
    const GroupAttribute wanted({{"a", GroupAttribute({}, false)}, {"b", Attribute()}}, false);
    EXPECT_EQ(wanted.getHash().str(), read.getHash().str());
}

const char* const kFaults[] = {
    "",
    " ",
    "text",
    "<a/>",
    "<attr/>",
    "<attr type=\"null\"/>x",
    "x<attr type=\"int\"/>",
    "<attr type=\"int\"/><attr type=\"int\"/>",
    "<attr type=\"half\"/>",
    "<attr type=\"int\" type=\"int\"/>",
    "<attr type=\"int\" size=\"1\"/>",
    "<attr type=\"int\" name=\"a\"/>",
    "<attr type=\"int\" inherit=\"1\"/>",
    "<attr type=\"int\" tuple=\"0\"/>",
    "<attr type=\"int\" tuple=\"x\"/>",
    "<attr type=\"int\" tuple=\"2147483648\"/>",
    "<attr type=int/>",
    "<attr type=\"int\"",
    "<attr type=\"int\"></sample>",
    "<attr type=\"int\"><value/></attr>",
    "<attr type=\"int\">1</attr>",
    "<attr type=\"int\"><sample/></attr>",
    "<attr type=\"int\"><sample time=\"\"/></attr>",
    "<attr type=\"int\"><sample time=\"now\"/></attr>",
    "<attr type=\"int\"><sample time=\"0\" time=\"0\"/></attr>",
    "<attr type=\"int\"><sample time=\"0\">1.5</sample></attr>",
    "<attr type=\"int\"><sample time=\"0\">1,2</sample></attr>",
    "<attr type=\"int\"><sample time=\"0\">2147483648</sample></attr>",
    "<attr type=\"int\"><sample time=\"0\"><value/></sample></attr>",
    "<attr type=\"float\"><sample time=\"0\">1</sample><sample time=\"1\"/></attr>",
    "<attr type=\"float\"><sample time=\"0\">1e39</sample></attr>",
    "<attr type=\"string\"><sample time=\"0\">one</sample></attr>",
    "<attr type=\"string\"><sample time=\"0\"><value a=\"\"/></sample></attr>",
    "<attr type=\"string\"><sample time=\"0\"><value><value/></value></sample></attr>",
    "<attr type=\"string\"><sample time=\"0\"><value>\\x00</value></sample></attr>",
    "<attr type=\"string\"><sample time=\"0\"><value>&#0;</value></sample></attr>",
    "<attr type=\"string\"><sample time=\"0\"><value>&lol;</value></sample></attr>",
    "<attr type=\"string\"><sample time=\"0\"><value>&</value></sample></attr>",
    "<attr type=\"string\"><sample time=\"0\"><value>\x01</value></sample></attr>",
    "<attr type=\"string\"><sample time=\"0\"><value>\xFF</value></sample></attr>",
    "<attr type=\"group\"><attr type=\"int\"/></attr>",
    "<attr type=\"group\"><attr name=\"a\"/></attr>",
    "<attr type=\"group\"><sample time=\"0\"/></attr>",
    "<attr type=\"group\">x</attr>",
    "<attr type=\"group\"><attr name=\"a\" type=\"null\"/>x</attr>",
    "<attr type=\"group\" inherit=\"2\"/>",
    "<attr type=\"group\" tuple=\"1\"/>",
    "<attr type=\"group\"><attr name=\"a\" type=\"null\"> <attr/></attr></attr>",
    "<!DOCTYPE attr><attr type=\"int\"/>",
    "<!DOCTYPE attr [<!ENTITY a \"b\">]><attr type=\"group\"/>",
};

TEST(XmlForm, ANameMayHoldANul) {
    const std::string name("a\0b", 3);
    expectForm(GroupAttribute({{name, Attribute()}}, false),
               "<attr type=\"group\">\n  <attr name=\"a\\x00b\" type=\"null\"/>\n</attr>\n");
}

TEST(XmlForm, AnythingElseIsNull) {
    for (const char* const xml : kFaults) {
        EXPECT_FALSE(Attribute::parseXML(xml)) << xml;
    }
    EXPECT_TRUE(Attribute::parseXML("<attr type=\"int\"/>"));
}

TEST(XmlForm, DeepXmlThatIsNoAttributeNeedsNoStack) {
    std::string xml;
    for (int i = 0; i < 100000; ++i) {
        xml += "<attr>";
    }
    EXPECT_FALSE(Attribute::parseXML(xml));
    for (int i = 0; i < 100000; ++i) {
        xml += "</attr>";
    }
    EXPECT_FALSE(Attribute::parseXML(xml));
}

std::string smallXml() {
    const GroupAttribute inner({{"f", FloatAttribute(Samples{{0, {1, 2}}, {1.5F, {3, 4}}}, 2)},
                                {"s", StringAttribute(Strings{"a\n", "<&\xFF", " "})},
                                {"null", Attribute()}},
                               true);
    return GroupAttribute({{"i", IntAttribute({1, 2})}, {"g", inner}}, false).getXML();
}

TEST(XmlForm, AnXmlThatIsCutShortIsNull) {
    const std::string xml = smallXml();
    ASSERT_TRUE(Attribute::parseXML(xml));
    for (std::size_t size = 0; size < xml.size() - 1; ++size) {
        ASSERT_FALSE(Attribute::parseXML(xml.substr(0, size))) << size;
    }
}

TEST(XmlForm, AFlippedBitGivesAnAttributeOrNull) {
    const std::string xml = smallXml();
    for (std::size_t bit = 0; bit < xml.size() * 8; ++bit) {
        std::string flipped = xml;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
        const Attribute read = Attribute::parseXML(flipped);
        if (read) {
            ASSERT_EQ(read.getHash().str(), Attribute::parseXML(read.getXML()).getHash().str())
                << flipped;
        }
    }
}

}  // namespace

#include "host/utils/QKuDomDocumentWriter.h"

#include <QDomDocument>
#include <algorithm>
#include <string>
#include <vector>

#include "support/SceneTest.h"

using ::testing::ElementsAre;

namespace {

using DomDocumentWriter = SceneTest;

/** The text of a document that was read from this one. */
std::string rewritten(const char* text) {
  QDomDocument document;
  EXPECT_TRUE(document.setContent(QByteArray(text), false));
  return QKuDomDocumentWriter::toString(document).toStdString();
}

/** A document with one element, which is empty. */
struct OneElement {
  OneElement() : element(document.createElement("a")) { document.appendChild(element); }

  void appendText(const char* text) { element.appendChild(document.createTextNode(text)); }
  void appendCData(const char* text) { element.appendChild(document.createCDATASection(text)); }
  std::string text() const { return QKuDomDocumentWriter::toString(document).toStdString(); }

  QDomDocument document;
  QDomElement element;
};

// What stands before the root

TEST_F(DomDocumentWriter, WritesInstructionAndDocumentTypeOnLinesOfTheirOwn) {
  QDomDocument document("variants");
  document.appendChild(document.createProcessingInstruction("xml", "version=\"1.0\""));
  document.appendChild(document.createElement("a"));
  EXPECT_EQ(QKuDomDocumentWriter::toString(document),
            "<?xml version=\"1.0\"?>\n<!DOCTYPE variants>\n<a/>\n");
}

TEST_F(DomDocumentWriter, WritesNothingOfWhatIsNotThere) {
  EXPECT_EQ(OneElement().text(), "<a/>\n");
  EXPECT_EQ(QKuDomDocumentWriter::toString(QDomDocument()), "");
}

TEST_F(DomDocumentWriter, LeavesTheDocumentAsItIs) {
  OneElement one;
  one.element.setAttribute("b", "<\x01");
  one.appendText(" ");
  const QByteArray before = one.document.toByteArray();
  one.text();
  EXPECT_EQ(one.document.toByteArray(), before);
}

// Lines

struct LayoutRow {
  const char* name;
  const char* text;
  const char* expected;
};

void PrintTo(const LayoutRow& row, std::ostream* out) { *out << row.name; }

constexpr LayoutRow layoutRows[] = {
    {"EmptyElement", "<a></a>", "<a/>\n"},
    {"EmptyElementWithAttribute", "<a b=''></a>", "<a b=\"\"/>\n"},
    {"OneLinePerElementIndentedByTwoBlanks", "<a><b><c/><d/></b><e/></a>",
     "<a>\n  <b>\n    <c/>\n    <d/>\n  </b>\n  <e/>\n</a>\n"},
    {"TextStaysOnTheLineOfItsElement", "<a><b> c </b></a>", "<a>\n  <b> c </b>\n</a>\n"},
    {"LinesOfATextAreNotIndented", "<a><b>c\n  d\n</b></a>", "<a>\n  <b>c\n  d\n</b>\n</a>\n"},
    {"WhatIsInAnElementWithTextStaysOnItsLine", "<a><b>c<d>e</d>f</b></a>",
     "<a>\n  <b>c<d>e</d>f</b>\n</a>\n"},
    {"CDataIsKept", "<a><b><![CDATA[<&>\"]]></b></a>", "<a>\n  <b><![CDATA[<&>\"]]></b>\n</a>\n"},
    {"CDataOfWhiteSpaceIsKept", "<a><![CDATA[ \n]]></a>", "<a><![CDATA[ \n]]></a>\n"},
    {"CDataAndTextKeepTheirOrder", "<a>b<![CDATA[c]]>d</a>", "<a>b<![CDATA[c]]>d</a>\n"},
    {"CommentsAreLeftOut", "<a><!-- b --><c/><!-- d --></a>", "<a>\n  <c/>\n</a>\n"},
    {"CommentAloneLeavesTheElementEmpty", "<a><!-- b --></a>", "<a/>\n"},
    {"CommentBesideText", "<a>b<!-- c --></a>", "<a>b</a>\n"},
};

class DomDocumentLayout : public ::testing::TestWithParam<LayoutRow> {};

TEST_P(DomDocumentLayout, IsThis) {
  EXPECT_EQ(rewritten(GetParam().text), GetParam().expected);
  EXPECT_EQ(rewritten(GetParam().expected), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, DomDocumentLayout, ::testing::ValuesIn(layoutRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(DomDocumentWriter, EmptyTextLeavesTheElementEmpty) {
  OneElement one;
  one.appendText("");
  one.appendCData("");
  EXPECT_EQ(one.text(), "<a/>\n");
}

TEST_F(DomDocumentWriter, EmptyTextBesideElementsLeavesTheLinesAsTheyAre) {
  OneElement one;
  one.appendText("");
  one.element.appendChild(one.document.createElement("b"));
  EXPECT_EQ(one.text(), "<a>\n  <b/>\n</a>\n");
}

TEST_F(DomDocumentWriter, EndOfCDataIsDividedBetweenTwoSections) {
  OneElement one;
  one.appendCData("a]]>b]]>");
  EXPECT_EQ(one.text(), "<a><![CDATA[a]]]]><![CDATA[>b]]]]><![CDATA[>]]></a>\n");
  QDomDocument read;
  ASSERT_TRUE(read.setContent(QByteArray(one.text().c_str()), false));
  EXPECT_EQ(read.documentElement().text(), "a]]>b]]>");
}

TEST_F(DomDocumentWriter, EndOfCDataAcrossTwoTextsIsNone) {
  OneElement one;
  one.appendText("]]");
  one.appendText(">");
  EXPECT_EQ(one.text(), "<a>]]&gt;</a>\n");
}

// Attributes

const std::vector<std::string>& knownAttributes() {
  static const std::vector<std::string> names{"name",
                                              "nodePath",
                                              "materialName",
                                              "ref",
                                              "state",
                                              "base",
                                              "comment",
                                              "showinvrmenu",
                                              "synccollaboration",
                                              "visible",
                                              "true",
                                              "default-viewpoint",
                                              "script",
                                              "inclNodes",
                                              "inclMats",
                                              "inclLights",
                                              "inclEnv",
                                              "inclView",
                                              "inclSceneplates",
                                              "clipState",
                                              "clipPlanePositionX",
                                              "clipPlanePositionY",
                                              "clipPlanePositionZ",
                                              "clipPlaneNormalX",
                                              "clipPlaneNormalY",
                                              "clipPlaneNormalZ",
                                              "clipPlaneInvert",
                                              "clipPlaneHideScene",
                                              "clipPlaneShow",
                                              "clipPlaneColorR",
                                              "clipPlaneColorG",
                                              "clipPlaneColorB",
                                              "clipGridShow",
                                              "clipGridColorR",
                                              "clipGridColorG",
                                              "clipGridColorB",
                                              "clipContourShow",
                                              "clipContourColorR",
                                              "clipContourColorG",
                                              "clipContourColorB",
                                              "clipContourWidth"};
  return names;
}

std::string withAttributes(const std::vector<std::string>& names) {
  OneElement one;
  for (const std::string& name : names)
    one.element.setAttribute(QString::fromStdString(name), "");
  return one.text();
}

TEST_F(DomDocumentWriter, AttributesStandInTheirOrderWhateverThatOfInsertion) {
  std::vector<std::string> names = knownAttributes();
  names.insert(names.end(), {"Zebra", "apple", "names", "zebra"});
  std::string expected = "<a";
  for (const std::string& name : names)
    expected += ' ' + name + "=\"\"";
  expected += "/>\n";
  std::vector<std::string> inserted = names;
  EXPECT_EQ(withAttributes(inserted), expected);
  std::reverse(inserted.begin(), inserted.end());
  EXPECT_EQ(withAttributes(inserted), expected);
  std::sort(inserted.begin(), inserted.end());
  EXPECT_EQ(withAttributes(inserted), expected);
  for (std::size_t by = 1; by < names.size(); by += 5) {
    std::rotate(inserted.begin(), inserted.begin() + 1, inserted.end());
    EXPECT_EQ(withAttributes(inserted), expected);
  }
}

TEST_F(DomDocumentWriter, UnknownAttributesStandByTheAlphabetBehindTheKnown) {
  EXPECT_EQ(withAttributes({"b", "clipContourWidth", "a", "B", "ref"}),
            "<a ref=\"\" clipContourWidth=\"\" B=\"\" a=\"\" b=\"\"/>\n");
}

// Warnings of what XML cannot hold; which characters these are, the tests of the writer state.

const char* const replaced = ": a character that XML cannot hold was replaced";

TEST_F(DomDocumentWriter, WarningNamesTheElementWithThoseAroundItButTheRoot) {
  EXPECT_EQ(rewritten("<Root name='R'><Group name='G &quot;1&quot;'><Set name='S'><Ref ref='N\x01' "
                      "state='\x02'/><Text>\x03</Text></Set><Set name=''><Text name=''>\x04</Text>"
                      "</Set></Group></Root>")
                .find('\x01'),
            std::string::npos);
  const std::string place = "warning: Variants document: Group \"G &quot;1&quot;\" / Set ";
  EXPECT_THAT(log,
              ElementsAre(place + "\"S\" / Ref \"N\xEF\xBF\xBD\", attribute \"ref\"" + replaced,
                          place + "\"S\" / Ref \"N\xEF\xBF\xBD\", attribute \"state\"" + replaced,
                          place + "\"S\" / Text, text" + replaced,
                          place + "\"\" / Text \"\", text" + replaced));
}

TEST_F(DomDocumentWriter, WarningOfTheRootNamesTheRoot) {
  OneElement one;
  one.element.setAttribute("b", "\x01");
  EXPECT_EQ(one.text(), "<a b=\"\xEF\xBF\xBD\"/>\n");
  EXPECT_THAT(
      log, ElementsAre(std::string("warning: Variants document: a, attribute \"b\"") + replaced));
}

TEST_F(DomDocumentWriter, TextInSeveralPiecesIsWarnedOfOnceBehindWhatIsInIt) {
  OneElement one;
  one.appendText("\x01 \x02");
  QDomElement inner = one.document.createElement("b");
  inner.setAttribute("c", "fine");
  one.element.appendChild(inner);
  one.appendCData("\x03");
  one.appendText("fine");
  EXPECT_EQ(one.text(),
            "<a>\xEF\xBF\xBD \xEF\xBF\xBD<b c=\"fine\"/><![CDATA[\xEF\xBF\xBD]]>fine</a>\n");
  EXPECT_THAT(log, ElementsAre(std::string("warning: Variants document: a, text") + replaced));
}

}  // namespace

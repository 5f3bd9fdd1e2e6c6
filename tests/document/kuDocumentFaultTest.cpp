#include "document/kuDocumentFault.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string faultOf(const std::string& text) {
  const auto fault = kuFindDocumentFault(text);
  if (!fault) return "none";
  return fault->text.toStdString() + " at " + std::to_string(fault->line) + " " +
         std::to_string(fault->column);
}

std::string nested(int depth) {
  std::string text;
  for (int i = 0; i < depth; ++i)
    text += "<a>";
  return text;
}

TEST(DocumentFault, EntityDeclarationsAreRefusedWithTheirPlace) {
  EXPECT_EQ(faultOf("<?xml version='1.0'?>\n<!DOCTYPE a [\n  <!ENTITY b 'c'>]>\n<a/>"),
            "entity declarations are not allowed at 3 3");
  EXPECT_EQ(faultOf("<!DOCTYPE a SYSTEM '>[' [<!ELEMENT a ']'><!ENTITY % b 'c'>]><a/>"),
            "entity declarations are not allowed at 1 42");
  EXPECT_EQ(faultOf("\xEF\xBB\xBF<!DOCTYPE a [<!ENTITY b 'c'>]><a/>"),
            "entity declarations are not allowed at 1 15");
}

TEST(DocumentFault, SubsetWithoutEntitiesPasses) {
  EXPECT_EQ(faultOf("<!DOCTYPE a [<!ELEMENT a ANY><!-- <!ENTITY --><?p <!ENTITY ?>"
                    "<!ATTLIST a b CDATA '<!ENTITY'>]><a/>"),
            "none");
}

TEST(DocumentFault, EntityTextElsewhereIsNone) {
  EXPECT_EQ(faultOf("<a><!-- <!ENTITY --><![CDATA[<!DOCTYPE a [<!ENTITY b 'c'>]]]>"
                    "<?p <!DOCTYPE a [<!ENTITY ?><b c='<!DOCTYPE a [<!ENTITY'/></a>"),
            "none");
}

TEST(DocumentFault, FiveHundredLevelsPassAndOneMoreIsTooDeep) {
  EXPECT_EQ(faultOf(nested(500)), "none");
  EXPECT_EQ(faultOf("\n" + nested(501)), "elements are nested too deeply at 2 1501");
}

TEST(DocumentFault, OnlyOpenElementsCountAsDepth) {
  std::string text = "<a>";
  for (int i = 0; i < 2000; ++i)
    text += "<b/><c d='/>'></c><!--<e>--><![CDATA[<e>]]><?e <e> ?><f g='<e>'/>";
  EXPECT_EQ(faultOf(text + "</a>"), "none");
}

TEST(DocumentFault, EncodingsThatHideMarkupAreRefused) {
  for (const char* encoding : {"utf-16", "UTF-7", "IBM037", "iso-2022-jp", "utf-32", "scsu"}) {
    EXPECT_EQ(faultOf(std::string("<?xml version='1.0' encoding='") + encoding + "'?><a/>"),
              "the encoding is not supported at 1 1")
        << encoding;
  }
  EXPECT_EQ(faultOf("\xFF\xFE<"), "the encoding is not supported at 1 1");
  EXPECT_EQ(faultOf("\xFE\xFF"), "the encoding is not supported at 1 1");
}

TEST(DocumentFault, EncodingsThatExtendAsciiPass) {
  for (const char* encoding : {"utf-8", "UTF-8", "us-ascii", "ISO-8859-1", "windows-1252"}) {
    EXPECT_EQ(faultOf(std::string("<?xml version=\"1.0\" encoding=\"") + encoding + "\"?><a/>"),
              "none")
        << encoding;
  }
}

TEST(DocumentFault, BrokenTextsAreTheParsersToTell) {
  for (const char* text : {"", "<", "<!", "<!--", "<!DOCTYPE", "<!DOCTYPE a [", "<a b='", "</",
                           "<?", "<![CDATA[", "<a", "\xEF\xBB\xBF", "<!DOCTYPE a '"}) {
    EXPECT_EQ(faultOf(text), "none") << text;
  }
}

}  // namespace

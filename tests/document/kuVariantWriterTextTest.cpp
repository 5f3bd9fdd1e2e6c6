// What becomes of texts that XML has a meaning for, or no place.

#include <QXmlStreamReader>

#include "WriterTest.h"
#include "document/kuVariantReader.h"
#include "host/kernel/kuController.h"
#include "scene/kuNodeVariant.h"

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

namespace {

struct TextRow {
  const char* name;
  QString text;
  std::string asAttribute, asText;
  /** What reads back, where that is not the same. */
  QString back = text;
  /** What another parser reads as text, where it is not what the reader does. */
  QString foreignText = back;
  bool replaced() const { return back != text; }
};

void PrintTo(const TextRow& row, std::ostream* out) { *out << row.name; }

std::string cdata(const std::string& text) { return "<![CDATA[" + text + "]]>"; }

QString units(std::initializer_list<ushort> text) {
  QString made;
  for (const ushort unit : text)
    made += QChar(unit);
  return made;
}

const std::string mark = "\xEF\xBF\xBD";
const QString markText(QChar(0xFFFD));

const std::vector<TextRow>& textRows() {
  static const std::vector<TextRow> rows{
      {"Plain", "a b", "a b", "a b"},
      {"Markup", "<a b=\"c\">&'", "&lt;a b=&quot;c&quot;&gt;&amp;'", "&lt;a b=\"c\"&gt;&amp;'"},
      {"Entity", "&amp;&#10;", "&amp;amp;&amp;#10;", "&amp;amp;&amp;#10;"},
      {"StartOfCData", "<![CDATA[", "&lt;![CDATA[", "&lt;![CDATA["},
      {"EndOfCData", "a]]>", "a]]&gt;", "a]]&gt;"},
      {"BlanksAtTheEnds", "  a ", "  a ", "  a "},
      {"BlankBeforeMarkup", " <", " &lt;", " &lt;"},
      {"BlankBetweenMarkup", "< &", "&lt; &amp;", "&lt; &amp;"},
      {"BlankBehindMarkup", "< ", "&lt; ", "&lt; "},
      {"TabsAndLineFeeds", "\ta\n\tb\n", "&#9;a&#10;&#9;b&#10;", "\ta\n\tb\n"},
      {"CarriageReturns", "\ra\rb\r\n", "&#13;a&#13;b&#13;&#10;", "&#13;a&#13;b&#13;\n"},
      {"CarriageReturnBesideMarkup", "\r<\r", "&#13;&lt;&#13;", "&#13;&lt;&#13;"},
      {"BlankAlone", " ", " ", cdata(" ")},
      {"TabAlone", "\t", "&#9;", cdata("\t")},
      {"LineFeedAlone", "\n", "&#10;", cdata("\n")},
      {"CarriageReturnAlone", "\r", "&#13;", cdata("\r"), "\r", "\n"},
      {"LineEndOfTwoAlone", "\r\n", "&#13;&#10;", cdata("\r\n"), "\r\n", "\n"},
      {"FixedBlankAlone", units({0xA0}), "\xC2\xA0", cdata("\xC2\xA0")},
      {"NextLineAlone", units({0x85}), "\xC2\x85", cdata("\xC2\x85")},
      {"LineSeparatorAlone", units({0x2028}), "\xE2\x80\xA8", cdata("\xE2\x80\xA8")},
      {"WideBlankAlone", units({0x3000}), "\xE3\x80\x80", cdata("\xE3\x80\x80")},
      {"ByteOrderMarkWithin", units({'a', 0xFEFF}), "a\xEF\xBB\xBF", "a\xEF\xBB\xBF"},
      {"DeleteAndC1Controls", units({0x7F, 0x80, 0x9F}), "\x7F\xC2\x80\xC2\x9F",
       "\x7F\xC2\x80\xC2\x9F"},
      {"LastBeforeAndFirstBehindTheSurrogates", units({0xD7FF, 0xE000}), "\xED\x9F\xBF\xEE\x80\x80",
       "\xED\x9F\xBF\xEE\x80\x80"},
      {"ReplacementCharacterItself", markText, mark, mark},
      {"OutsideTheBmp", QString::fromUtf8("\U0001F697<"), "\xF0\x9F\x9A\x97&lt;",
       "\xF0\x9F\x9A\x97&lt;"},
      {"FirstOutsideTheBmp", units({0xD800, 0xDC00}), "\xF0\x90\x80\x80", "\xF0\x90\x80\x80"},
      {"LastCharacter", units({0xDBFF, 0xDFFF}), "\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
      {"Nul", units({'a', 0, 'b'}), "a" + mark + "b", "a" + mark + "b", "a" + markText + "b"},
      {"FirstControl", units({1}), mark, mark, markText},
      {"LastControl", units({0x1F}), mark, mark, markText},
      {"VerticalTabAlone", units({0xB}), mark, cdata(mark), markText},
      {"FormFeedWithin", "a\fb", "a" + mark + "b", "a" + mark + "b", "a" + markText + "b"},
      {"LoneHighSurrogate", units({0xD83D, 'a'}), mark + "a", mark + "a", markText + "a"},
      {"HighSurrogateAtTheEnd", units({'a', 0xD83D}), "a" + mark, "a" + mark, "a" + markText},
      {"LoneLowSurrogate", units({0xDE97, 'a'}), mark + "a", mark + "a", markText + "a"},
      {"SurrogatesReversed", units({0xDE97, 0xD83D}), mark + mark, mark + mark,
       markText + markText},
      {"HighSurrogateBeforeAPair", units({0xD83D, 0xD83D, 0xDE97}), mark + "\xF0\x9F\x9A\x97",
       mark + "\xF0\x9F\x9A\x97", markText + QString::fromUtf8("\U0001F697")},
      {"FFFE", units({0xFFFE}), mark, mark, markText},
      {"FFFF", units({0xFFFF}), mark, mark, markText},
  };
  return rows;
}

class WriterTexts : public WriterTest, public ::testing::WithParamInterface<TextRow> {
 protected:
  WriterTexts() {
    kuVariantSet& set = addSet("S");
    set.setComment(GetParam().text);
    set.setScript(GetParam().text);
    set.addValue(GetParam().text, GetParam().text);
    document = writer.write();
  }

  QByteArray document;
};

TEST_P(WriterTexts, AreWrittenInTheFormOfTheirPlace) {
  const TextRow& row = GetParam();
  const std::string text = document.toStdString();
  EXPECT_THAT(text, HasSubstr(" comment=\"" + row.asAttribute + "\" "));
  EXPECT_THAT(text, HasSubstr("    <Script>" + row.asText + "</Script>\n"));
  EXPECT_THAT(
      text, HasSubstr("    <Value name=\"" + row.asAttribute + "\">" + row.asText + "</Value>\n"));
}

TEST_P(WriterTexts, AreWarnedOfOncePerFieldWhereTheyAreReplaced) {
  const std::string start = "warning: Variants document: VariantSet \"S\"";
  const std::string end = ": a character that XML cannot hold was replaced";
  const std::string value = start + " / Value \"" + GetParam().asAttribute + "\", ";
  const std::vector<std::string> warnings{start + ", attribute \"comment\"" + end,
                                          start + " / Script, text" + end,
                                          value + "attribute \"name\"" + end, value + "text" + end};
  EXPECT_THAT(log, ElementsAreArray(GetParam().replaced() ? warnings : std::vector<std::string>{}));
}

TEST_P(WriterTexts, ReadBackTheSame) {
  kuController::call("clearAllVariants", 1);
  kuVariantReader().read(document.constData());
  const kuVariantSet* set = kuVariants::findVariantSet("S");
  ASSERT_TRUE(set);
  const QString& back = GetParam().back;
  EXPECT_EQ(set->getComment(), back);
  EXPECT_EQ(set->getScript(), back);
  EXPECT_EQ(set->getValues(), (std::map<QString, QString>{{back, back}}));
}

TEST_P(WriterTexts, AreWellFormedToAnotherParser) {
  QXmlStreamReader parser(document);
  QString comment, script;
  while (!parser.atEnd()) {
    parser.readNext();
    if (!parser.isStartElement()) continue;
    if (parser.name() == QLatin1String("VariantSet")) {
      comment = parser.attributes().value("comment").toString();
    } else if (parser.name() == QLatin1String("Script")) {
      script = parser.readElementText();
    }
  }
  EXPECT_FALSE(parser.hasError()) << parser.errorString().toStdString();
  EXPECT_EQ(comment, GetParam().back);
  EXPECT_EQ(script, GetParam().foreignText);
}

INSTANTIATE_TEST_SUITE_P(Rows, WriterTexts, ::testing::ValuesIn(textRows()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(WriterTest, EachFieldThatCannotBeHeldIsWarnedOfInTheOrderOfTheDocument) {
  kuVariantGroup& group = addGroup("G");
  group.setComment("\x01\x02\x03");
  kuVariantSet& set = addSet("S", &group);
  set.setHotkey("\x01");
  set.addNodeVariant("N", "\x01");
  set.addViewpoint("V\x01");
  set.addMaterialSnapshot("p", "\x01");
  addSet("free").setDefaultViewpoint("\x01");
  kuNodeVariant* variant = kuVariants::createNodeVariant("N", false);
  variant->setNode("\x01");
  variant->setDefault(QString("\x01"));
  variant->add("a", "\x01");
  written();
  const auto line = [](const std::string& field) {
    return "warning: Variants document: " + field +
           ": a character that XML cannot hold was replaced";
  };
  const std::string inSet = "VariantGroup \"G\" / VariantSet \"S\" / ";
  EXPECT_THAT(
      log,
      ElementsAre(line("VariantGroup \"G\", attribute \"comment\""), line(inSet + "Hotkey, text"),
                  line(inSet + "NodeVariantRef \"N\", attribute \"state\""),
                  line(inSet + "ViewpointRef \"V\xEF\xBF\xBD\", attribute \"ref\""),
                  line(inSet + "MaterialSnapshot, attribute \"materialName\""),
                  line("VariantSet \"free\", attribute \"default-viewpoint\""),
                  line("NodeVariant \"N\", attribute \"base\""),
                  line("NodeVariant \"N\" / Default \"\xEF\xBF\xBD\", attribute \"ref\""),
                  line("NodeVariant \"N\" / State \"a\" / Hotkey, text")));
}

TEST_F(WriterTest, OneChangeIsOneLineOfADifference) {
  kuVariantSet& set = addSet("S", &addGroup("G"));
  for (const char* name : {"a", "b", "c"})
    set.addNodeVariant(name, "1");
  const std::string before = written();
  set.findNodeVariant("b")->setState("2");
  EXPECT_THAT(difference(before, written()),
              ElementsAre("-      <NodeVariantRef ref=\"b\" state=\"1\"/>",
                          "+      <NodeVariantRef ref=\"b\" state=\"2\"/>"));
}

}  // namespace

// The page on the format shows whole documents; and it has a word for all that the schema allows.

#include <QDomDocument>
#include <QFile>
#include <QRegularExpression>

#include "RoundTripTest.h"
#include "SchemaCheck.h"

using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

QString contentOf(const char* path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString page() { return contentOf(KU_DOCUMENT_FORMAT_PAGE); }

std::vector<QByteArray> examples() {
  static const QRegularExpression whole(
      "^```xml document\\n(.*?)```$",
      QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
  std::vector<QByteArray> found;
  auto matches = whole.globalMatch(page());
  while (matches.hasNext())
    found.push_back(matches.next().captured(1).toUtf8());
  return found;
}

class DocumentedFormat : public RoundTripTest {};

TEST_F(DocumentedFormat, TheWholeDocumentIsWhatIsWrittenOfIt) {
  ASSERT_EQ(examples().size(), 2u);
  const QByteArray whole = examples()[0];
  EXPECT_EQ(schemaFault(whole), "");
  read(whole);
  EXPECT_EQ(written().toStdString(), whole.toStdString());
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(DocumentedFormat, TheSmallestThatIsUsefulIsRead) {
  ASSERT_EQ(examples().size(), 2u);
  read(examples()[1]);
  EXPECT_EQ(managerDump(),
            "set Open\n  node Roof=Open Top\n"
            "nodeVariant Roof base=Roof\n  option Hardtop\n  option Open Top\n");
  EXPECT_THAT(log, IsEmpty());
}

TEST_F(DocumentedFormat, TheWholeDocumentHasEveryElementAndAttributeOfTheSchema) {
  const std::string whole = examples().at(0).toStdString();
  QDomDocument schema;
  ASSERT_TRUE(schema.setContent(contentOf(KU_VARIANTS_SCHEMA)));
  const QDomNodeList elements = schema.elementsByTagName("xs:element");
  const QDomNodeList attributes = schema.elementsByTagName("xs:attribute");
  ASSERT_GT(elements.count(), 20);
  ASSERT_GT(attributes.count(), 40);
  for (int i = 0; i < elements.count(); ++i)
    EXPECT_THAT(whole, HasSubstr("<" + elements.at(i).toElement().attribute("name").toStdString()));
  for (int i = 0; i < attributes.count(); ++i) {
    const QString name = attributes.at(i).toElement().attribute("name");
    if (name == "visible") continue;  // stands in hidden groups alone
    EXPECT_THAT(whole, HasSubstr(" " + name.toStdString() + "=\""));
  }
}

TEST_F(DocumentedFormat, EveryElementOfTheSchemaStandsInATableOfThePage) {
  QDomDocument schema;
  ASSERT_TRUE(schema.setContent(contentOf(KU_VARIANTS_SCHEMA)));
  const QDomNodeList elements = schema.elementsByTagName("xs:element");
  for (int i = 0; i < elements.count(); ++i) {
    const QString name = elements.at(i).toElement().attribute("name");
    EXPECT_THAT(page().toStdString(), HasSubstr("`" + name.toStdString() + "`"));
  }
}

TEST_F(DocumentedFormat, BlanksAroundThePreviewsSectionAreNoChildren) {
  const std::string base64(80, 'A');
  read(("<V><VariantSet name='Blanks'><Preview>\n  <![CDATA[" + base64 +
        "]]>\n  </Preview></VariantSet><VariantSet name='Text'><Preview>x<![CDATA[" + base64 +
        "]]></Preview></VariantSet></V>")
           .c_str());
  EXPECT_EQ(managerDump(), "set Blanks preview=" + std::string(60, '\0') + "\nset Text\n");
}

}  // namespace

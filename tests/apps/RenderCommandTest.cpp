#include <QDomDocument>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include "RenderTest.h"

using ::testing::HasSubstr;

namespace {

class RenderCommandTest : public RenderTest {
 protected:
  /** What is printed, with the times left out. */
  static std::string withoutTimes(const CliResult& result) {
    return QString::fromStdString(result.out)
        .replace(QRegularExpression("[0-9]+ ms"), "N ms")
        .toStdString();
  }
  QDomDocument page() {
    QDomDocument document;
    QString error;
    EXPECT_TRUE(document.setContent(QByteArray::fromStdString(read("out/index.html")), &error))
        << error.toStdString();
    return document;
  }
  /** The texts of all elements of a name, or their attribute. */
  static QStringList texts(const QDomDocument& page, const QString& tag,
                           const QString& attribute = {}) {
    QStringList all;
    const QDomNodeList found = page.elementsByTagName(tag);
    for (int i = 0; i < found.size(); ++i) {
      const QDomElement element = found.at(i).toElement();
      all += attribute.isEmpty() ? element.text() : element.attribute(attribute);
    }
    return all;
  }
};

bool isRed(QRgb color) { return qRed(color) > qBlue(color) + 40; }
bool isBlue(QRgb color) { return qBlue(color) > qRed(color) + 40; }
QRgb middle(const QImage& image) { return image.pixel(image.width() / 2, image.height() / 2); }

TEST_F(RenderCommandTest, ListsTheFilesOfTheGroupsThenTheOthers) {
  const CliResult result = render();
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(withoutTimes(result),
            "out/Open.png  N ms\nout/Blue.png  N ms\nout/As-it-is.png  N ms\n"
            "out/Scripted.png  N ms\nout/index.html\n");
  EXPECT_EQ(outFiles(),
            (QStringList{"As-it-is.png", "Blue.png", "Open.png", "Scripted.png", "index.html"}));
}

TEST_F(RenderCommandTest, PicturesHaveTheSizeAndShowTheSets) {
  render();
  EXPECT_EQ(picture("out/As-it-is.png").size(), QSize(24, 16));
  EXPECT_PRED1(isRed, middle(picture("out/As-it-is.png")));
  EXPECT_PRED1(isBlue, middle(picture("out/Blue.png")));
  EXPECT_FALSE(isRed(middle(picture("out/Open.png"))));
}

TEST_F(RenderCommandTest, NoSetInheritsWhatTheOneBeforeItLeft) {
  render();
  const QImage inTurn = picture("out/As-it-is.png");
  render({"--set", "As it is"});
  EXPECT_EQ(inTurn, picture("out/As-it-is.png"));
}

TEST_F(RenderCommandTest, CumulativeSetsStandOnTopOfTheOneBefore) {
  render();
  const QImage fromTheStart = picture("out/As-it-is.png");
  render({"--cumulative"});
  EXPECT_NE(fromTheStart, picture("out/As-it-is.png"));
  EXPECT_EQ(picture("out/Blue.png"), picture("out/As-it-is.png"));
  EXPECT_THAT(read("out/index.html"), HasSubstr("each on top of the one before"));
}

TEST_F(RenderCommandTest, NamedSetsComeInTheirOrderEachOnce) {
  const CliResult result = render({"--set", "Scripted", "Open", "--set", "Scripted"});
  EXPECT_EQ(withoutTimes(result), "out/Scripted.png  N ms\nout/Open.png  N ms\nout/index.html\n");
}

TEST_F(RenderCommandTest, NamesOfFilesDoNotDependOnTheSetsAskedFor) {
  write("alike.xml", R"(<Variants><VariantSet name="a b"/><VariantSet name="a/b"/></Variants>)");
  EXPECT_EQ(withoutTimes(render({"--set", "a/b"}, "alike.xml")),
            "out/a-b-2.png  N ms\nout/index.html\n");
}

TEST_F(RenderCommandTest, UnknownSetIsToldWithTheNearestBeforeAnythingIsWritten) {
  const CliResult result = render({"--set", "Blue", "Opne"});
  EXPECT_EQ(result.code, 4);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, HasSubstr("unknown set: Opne: there is none of that name; did you mean "
                                    "\"Open\""));
  EXPECT_FALSE(exists("out"));
}

TEST_F(RenderCommandTest, JsonListsTheFilesWithTheirTimes) {
  const CliResult result = render({"--json", "--set", "Blue", "Scripted", "--sheet", "all.png"});
  EXPECT_EQ(result.code, 0);
  QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(result.out)).object();
  QJsonArray pictures = json["pictures"].toArray();
  for (QJsonValueRef value : pictures) {
    QJsonObject one = value.toObject();
    EXPECT_GE(one["milliseconds"].toInt(-1), 0);
    one.remove("milliseconds");
    value = one;
  }
  json["pictures"] = pictures;
  EXPECT_EQ(QJsonDocument(json).toJson(QJsonDocument::Compact).toStdString(), normalised(R"({
    "pictures": [{"set": "Blue", "group": "Looks <b>", "file": "out/Blue.png"},
                 {"set": "Scripted", "group": null, "file": "out/Scripted.png"}],
    "page": "out/index.html", "sheet": "all.png", "previews": null})"));
}

TEST_F(RenderCommandTest, HeldBackScriptsAreToldAndRunOnlyWhenAllowed) {
  EXPECT_THAT(render().err, HasSubstr("1 script was held back; --allow-scripts lets scripts run"));
  EXPECT_EQ(render({"--allow-scripts"}).err, "printed by a script\n");
}

TEST_F(RenderCommandTest, VariablesOfAScriptDoNotLastToTheNextSet) {
  write("scripts.xml", R"(<Variants><VariantSet name="A"><Script>left = 1</Script></VariantSet>
    <VariantSet name="B"><Script>left</Script></VariantSet></Variants>)");
  EXPECT_THAT(render({"--allow-scripts"}, "scripts.xml").err, HasSubstr("'left' is not defined"));
  EXPECT_EQ(render({"--allow-scripts", "--cumulative"}, "scripts.xml").err, "");
}

TEST_F(RenderCommandTest, PageShowsThePicturesByGroup) {
  render();
  const QDomDocument html = page();
  EXPECT_EQ(texts(html, "h2"), (QStringList{"Looks <b>", "Others", "In no group"}));
  EXPECT_EQ(texts(html, "h3"), (QStringList{"Open", "Blue", "As it is", "Scripted"}));
  EXPECT_EQ(texts(html, "kbd"), QStringList{"Ctrl+1"});
  EXPECT_EQ(texts(html, "p"), (QStringList{"4 variant sets of room.xml on room.gltf",
                                           "How it looks", "Come in & look"}));
}

TEST_F(RenderCommandTest, PageRefersToThePicturesBesideItAndToNothingElse) {
  render();
  const QDomDocument html = page();
  const QStringList pictures{"Open.png", "Blue.png", "As-it-is.png", "Scripted.png"};
  EXPECT_EQ(texts(html, "img", "src"), pictures);
  EXPECT_EQ(texts(html, "a", "href"), pictures);
  EXPECT_EQ(texts(html, "img", "alt"), (QStringList{"Open", "Blue", "As it is", "Scripted"}));
  EXPECT_EQ(texts(html, "img", "loading"), QStringList(QVector<QString>(4, "lazy").toList()));
  for (const char* outside : {"http:", "https:", "//", "<link", "<script", "url(", "@import"})
    EXPECT_THAT(read("out/index.html"), ::testing::Not(HasSubstr(outside)));
}

TEST_F(RenderCommandTest, PageShowsNamesThatLookLikeMarkupOrPlaceHoldersAsText) {
  const QString name = "<script>alert(1)</script> \"%1\" '%2' %3";
  const QString comment = "\"%1\" </p><b onclick='x'> & %L2";
  write("odd.xml", QString(R"(<Variants><VariantGroup name="%1" comment="%2">
    <VariantSet name="%1" comment="%2"/></VariantGroup></Variants>)")
                       .arg(name.toHtmlEscaped(), comment.toHtmlEscaped())
                       .toUtf8());
  render({}, "odd.xml");
  const QDomDocument html = page();
  EXPECT_EQ(texts(html, "h2"), QStringList{name});
  EXPECT_EQ(texts(html, "h3"), QStringList{name});
  EXPECT_EQ(texts(html, "p"),
            (QStringList{"1 variant set of odd.xml on room.gltf", comment, comment}));
  EXPECT_EQ(texts(html, "img", "alt"), QStringList{name});
  EXPECT_EQ(texts(html, "img", "width"), QStringList{"24"});
  EXPECT_EQ(texts(html, "img", "height"), QStringList{"16"});
}

TEST_F(RenderCommandTest, DocumentWithoutSetsGivesAPageThatSaysSo) {
  write("none.xml", "<Variants/>");
  EXPECT_EQ(render({"--sheet", "all.png"}, "none.xml").code, 0);
  EXPECT_EQ(texts(page(), "p"), QStringList{"No variant sets of none.xml on room.gltf"});
  EXPECT_FALSE(picture("all.png").isNull());
}

TEST_F(RenderCommandTest, PreviewsOf264By256AreWrittenIntoTheDocument) {
  const CliResult result = render({"--previews", "shown.xml", "--set", "Blue"});
  EXPECT_THAT(withoutTimes(result), HasSubstr("out/index.html\nshown.xml\n"));
  QDomDocument document;
  ASSERT_TRUE(document.setContent(QByteArray::fromStdString(read("shown.xml"))));
  ASSERT_EQ(document.elementsByTagName("Preview").size(), 1);
  const QDomElement preview = document.elementsByTagName("Preview").at(0).toElement();
  EXPECT_EQ(preview.parentNode().toElement().attribute("name"), "Blue");
  QImage image;
  ASSERT_TRUE(image.loadFromData(QByteArray::fromBase64(preview.text().toLatin1()), "PNG"));
  EXPECT_EQ(image.size(), QSize(264, 256));
  // Smoothed, since with so few samples a single pixel may be dark.
  EXPECT_PRED1(isBlue,
               middle(image.scaled(24, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
}

TEST_F(RenderCommandTest, DocumentWithPreviewsIsReadAgain) {
  render({"--previews", "room.xml"});
  const std::string list = run({"list", "room.gltf", "room.xml", "--json"}).out;
  for (const QJsonValue set : QJsonDocument::fromJson(list.c_str()).object()["sets"].toArray())
    EXPECT_GT(set["previewBytes"].toInt(), 100) << set["name"].toString().toStdString();
}

TEST_F(RenderCommandTest, SheetHasRowsOfPictures) {
  render({"--sheet", "all.png", "--set", "Blue", "Open", "Scripted", "As it is"});
  const QImage sheet = picture("all.png");
  EXPECT_EQ(sheet.size(), QSize(16 + 4 * (280 + 16), 16 + 186 + 50 + 16));
  EXPECT_PRED1(isBlue, sheet.pixel(16 + 140, 16 + 93));
}

TEST_F(RenderCommandTest, SheetIsJpegByItsEnding) {
  render({"--sheet", "all.JPG"});
  EXPECT_EQ(read("all.JPG").substr(0, 3), "\xff\xd8\xff");
}

TEST_F(RenderCommandTest, ReplacesWhatAnEarlierRunWrote) {
  write("room.xml", "<Variants><VariantSet name=\"Blue\"/></Variants>");
  render();
  EXPECT_PRED1(isRed, middle(picture("out/Blue.png")));
  write("room.xml", roomDocument);
  render();
  EXPECT_PRED1(isBlue, middle(picture("out/Blue.png")));
}

TEST_F(RenderCommandTest, SelectTakesAPictureOfTheSceneAfterTheSelection) {
  const CliResult result = run({"select", "room.gltf", "room.xml", "Blue", "--picture", "blue.png",
                                "--size", "24x16", "--samples", "2"});
  EXPECT_EQ(result.code, 0);
  render({"--set", "Blue"});
  EXPECT_EQ(picture("blue.png"), picture("out/Blue.png"));
}

TEST_F(RenderCommandTest, SelectTakesAJpegByItsEnding) {
  run({"select", "room.gltf", "room.xml", "Blue", "--picture", "blue.jpeg", "--size", "8x8",
       "--samples", "1"});
  EXPECT_EQ(read("blue.jpeg").substr(0, 3), "\xff\xd8\xff");
}

}  // namespace

// The sample's sets, rendered, beside the pictures that were accepted.

#include <QDir>
#include <QFileInfo>

#include "CarPictures.h"
#include "PictureComparison.h"
#include "manager/kuVariants.h"
#include "model/kuVariant.h"
#include "support/VariantsTest.h"

namespace {

class ReferencePicture : public VariantsTest {
 protected:
  ReferencePicture() { EXPECT_EQ(car.error(), ""); }

  /** Keeps the picture and where it differs, to be looked at; answers what to tell of it. */
  static std::string kept(const QImage& actual, const QString& set) {
    QDir().mkpath(KU_PICTURES_DIR);
    const QString name = QFileInfo(CarPictures::referenceFile(set)).completeBaseName();
    const QString path = QStringLiteral(KU_PICTURES_DIR "/") + name;
    const QImage reference = CarPictures::reference(set);
    EXPECT_TRUE(actual.save(path + ".png"));
    std::string told = "rendered:   " + path.toStdString() + ".png\n";
    if (!reference.isNull()) {
      EXPECT_TRUE(differencePicture(actual, reference).save(path + "-difference.png"));
      told += "difference: " + path.toStdString() + "-difference.png\n";
    }
    return told + "reference:  " + CarPictures::referenceFile(set).toStdString() +
           "\nscripts/accept-pictures makes the rendered ones the references.";
  }

  static void choose(VariantType type, const char* variant, const char* state) {
    kuVariant* found = kuVariants::findVariant(type, variant);
    ASSERT_NE(found, nullptr) << variant;
    found->select(state);
  }

  CarPictures car;
};

}  // namespace

TEST_F(ReferencePicture, EachSetOfTheSampleLooksAsItsReference) {
  EXPECT_EQ(CarPictures::sets().size(), 10u);
  for (const QString& set : CarPictures::sets()) {
    car.select(set);
    const QImage actual = car.picture();
    const PictureDifference difference = compare(actual, CarPictures::reference(set));
    EXPECT_TRUE(difference.isAlike()) << set.toStdString() << ": " << difference.text() << '\n'
                                      << kept(actual, set);
  }
}

TEST_F(ReferencePicture, EachReferenceIsOfASet) {
  QStringList expected;
  for (const QString& set : CarPictures::sets())
    expected += QFileInfo(CarPictures::referenceFile(set)).fileName();
  expected.sort();
  EXPECT_EQ(QDir(KU_REFERENCES_DIR).entryList(QDir::Files | QDir::Hidden, QDir::Name), expected);
}

TEST_F(ReferencePicture, NoTwoReferencesAreAlike) {
  const std::vector<QString> sets = CarPictures::sets();
  for (std::size_t a = 0; a < sets.size(); ++a) {
    for (std::size_t b = a + 1; b < sets.size(); ++b) {
      const PictureDifference difference =
          compare(CarPictures::reference(sets[a]), CarPictures::reference(sets[b]));
      EXPECT_FALSE(difference.isAlike())
          << sets[a].toStdString() << ", " << sets[b].toStdString() << ": " << difference.text();
    }
  }
}

TEST_F(ReferencePicture, OneChangeInTheSceneIsNotAlike) {
  struct Row {
    const char* set;
    VariantType type;
    const char* variant;
    const char* state;
  };
  const Row rows[] = {
      {"Night Drive", LightVariantType, "Headlight Left", "!Disable"},
      {"Night Drive", LightVariantType, "Interior Light", "!Disable"},
      {"Base Model", LightVariantType, "Sun", "!Disable"},
      {"Base Model", MaterialVariantType, "Paint", "Blue"},
      {"Base Model", NodeVariantType, "Wheels", "Alloy Wheels"},
      {"Base Model", NodeVariantType, "Mirror", "Chromed"},
      {"Base Model", TransformVariantType, "Bonnet", "Open"},
      {"Winter Trip", OverlayVariantType, "Season", "Summer"},
  };
  for (const Row& row : rows) {
    car.select(row.set);
    choose(row.type, row.variant, row.state);
    const PictureDifference difference = compare(car.picture(), CarPictures::reference(row.set));
    EXPECT_FALSE(difference.isAlike())
        << row.set << ", " << row.variant << " " << row.state << ": " << difference.text();
  }
}

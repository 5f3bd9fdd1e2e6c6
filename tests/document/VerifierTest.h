#pragma once

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "document/kuVariantVerifier.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "support/VariantsTest.h"

using ReportLines = std::vector<std::string>;

/**
 * Fixture of the tests of the report. The scene has a switch "Roof" (Open, Closed), a group "Car",
 * a node "Bare" without a core, a node "Door" with two named transforms, a switch material "Paint"
 * (Red, Blue), a material "Glass" with presets (Clear, Tinted) and a plain one, "Chrome".
 */
class VerifierTest : public VariantsTest {
 protected:
  VerifierTest() {
    scene.switchNode("Roof", 0, {"Open", "Closed"});
    scene.group("Car");
    scene.bare("Bare");
    scene.transforms("Door", {"Shut", "Ajar"}, 0, 0);
    scene.switchMaterial("Paint", {scene.material("Red"), scene.material("Blue")}, 0);
    scene.presetMaterial("Glass", {"Clear", "Tinted"}, 0);
    scene.material("Chrome");
  }

  /** Verifies into a file; what goes to standard output is in printed. */
  bool verifyTo(const QString& name) {
    ::testing::internal::CaptureStdout();
    const bool answer = verifier.verify(name);
    printed = ::testing::internal::GetCapturedStdout();
    return answer;
  }

  /** The bytes of the report's file. */
  std::string written() const {
    QFile file(fileName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().toStdString();
  }

  /** The lines of a report that is written to its end; file and standard output have the same. */
  ReportLines report() {
    EXPECT_TRUE(verifyTo(fileName));
    EXPECT_EQ(written(), printed);
    return linesOf(printed);
  }

  /** The lines of a text, each of which must end with a newline. */
  static ReportLines linesOf(const std::string& text) {
    ReportLines lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
      lines.push_back(text.substr(start, end - start));
    EXPECT_EQ(start, text.size()) << "the last line does not end";
    return lines;
  }

  QTemporaryDir folder;
  const QString fileName = folder.filePath("report.csv");
  kuVariantVerifier verifier;
  std::string printed;
};

/** Makes a variant "V" over the nodes of a name. */
inline kuNodeVariant& nodeVariant(const QString& base, const QString& defaultState,
                                  const QStringList& options, const QString& name = "V") {
  kuNodeVariant& variant = *kuVariants::createNodeVariant(name, false);
  variant.setNode(base);
  variant.setDefault(defaultState);
  for (const QString& option : options)
    variant.add(option, QString());
  return variant;
}

/** Makes a variant "M" over the materials of a name. */
inline kuMaterialVariant& materialVariant(const QString& base, const QString& defaultState,
                                          const QStringList& options, const QString& name = "M") {
  kuMaterialVariant& variant = *kuVariants::createMaterialVariant(name, false);
  variant.setMaterial(base);
  variant.setDefault(defaultState);
  for (const QString& option : options)
    variant.add(option, QString());
  return variant;
}

inline kuVariantSet& variantSet(const QString& name = "S") {
  return *kuVariants::createVariantSet(name, false, nullptr);
}

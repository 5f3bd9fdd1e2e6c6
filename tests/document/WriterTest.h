#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "document/kuVariantWriter.h"
#include "host/utils/QKuDomDocumentWriter.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "support/VariantsTest.h"

/** What stands before the root of every document. */
inline std::string documentHead() {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE variants>\n";
}

/** A document whose root has these lines, which are indented by two blanks at least. */
inline std::string documentOf(const std::string& lines) {
  return documentHead() + "<Variants>\n" + lines + "</Variants>\n";
}

inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

/** The lines from the first to the last that differ: those that went, with '-' in front, and those
 * that came, with '+'. */
inline std::vector<std::string> difference(const std::string& before, const std::string& after) {
  const std::vector<std::string> from = linesOf(before), to = linesOf(after);
  const auto [fromStart, toStart] = std::mismatch(from.begin(), from.end(), to.begin(), to.end());
  const auto [fromEnd, toEnd] = std::mismatch(from.rbegin(), std::make_reverse_iterator(fromStart),
                                              to.rbegin(), std::make_reverse_iterator(toStart));
  std::vector<std::string> lines;
  std::for_each(fromStart, fromEnd.base(), [&](const auto& line) { lines.push_back('-' + line); });
  std::for_each(toStart, toEnd.base(), [&](const auto& line) { lines.push_back('+' + line); });
  return lines;
}

/** Fixture of the tests that write a document. */
class WriterTest : public VariantsTest {
 protected:
  std::string written() { return writer.write().toStdString(); }

  static kuVariantSet& addSet(const char* name, kuVariantGroup* group = nullptr) {
    return *kuVariants::createVariantSet(name, false, group);
  }
  static kuVariantGroup& addGroup(const char* name, bool visible = true) {
    return *kuVariants::createVariantGroup(name, false, visible);
  }

  /** What a static writer appends to an element "Parent" that has one child already. */
  template <class Object>
  static std::string appended(void (*write)(QDomDocument&, QDomElement&, Object*), Object* object) {
    QDomDocument document;
    QDomElement parent = document.createElement("Parent");
    document.appendChild(parent);
    parent.appendChild(document.createElement("First"));
    write(document, parent, object);
    return QKuDomDocumentWriter::toString(document).toStdString();
  }

  kuVariantWriter writer;
};

/** What stands in a set when nothing was set, between its tags. @p indent of the lines. */
inline std::string bareSetContent(const std::string& indent) {
  return indent + "<Hotkey/>\n" + indent + "<SequentialAnimation>false</SequentialAnimation>\n" +
         indent + "<Script/>\n" + indent +
         "<InclInfo inclNodes=\"0\" inclMats=\"0\" inclLights=\"0\" inclEnv=\"0\" inclView=\"0\" "
         "inclSceneplates=\"0\"/>\n" +
         indent +
         "<Analyzer clipState=\"0\" clipPlanePositionX=\"0\" clipPlanePositionY=\"0\" "
         "clipPlanePositionZ=\"0\" clipPlaneNormalX=\"0\" clipPlaneNormalY=\"1\" "
         "clipPlaneNormalZ=\"0\" clipPlaneInvert=\"0\" clipPlaneHideScene=\"0\" "
         "clipPlaneShow=\"1\" clipPlaneColorR=\"0.2\" clipPlaneColorG=\"0.3\" "
         "clipPlaneColorB=\"0.4\" clipGridShow=\"1\" clipGridColorR=\"0.63\" "
         "clipGridColorG=\"0.82\" clipGridColorB=\"0.89\" clipContourShow=\"1\" "
         "clipContourColorR=\"1\" clipContourColorG=\"0.7\" clipContourColorB=\"0\" "
         "clipContourWidth=\"1\"/>\n";
}

/** A set with nothing but a name. */
inline std::string bareSet(const std::string& name, const std::string& indent = "  ") {
  return indent + "<VariantSet name=\"" + name +
         "\" comment=\"\" showinvrmenu=\"true\" synccollaboration=\"true\" "
         "default-viewpoint=\"\">\n" +
         bareSetContent(indent + "  ") + indent + "</VariantSet>\n";
}

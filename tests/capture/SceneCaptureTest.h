#pragma once

#include <QString>
#include <string>
#include <utility>
#include <vector>

#include "CaptureTest.h"
#include "support/ManagerDump.h"

/** The ten flags of a capture by name; all are off at first. */
struct CaptureFlags {
  bool nodes = false, mats = false, lights = false, env = false, view = false;
  bool transforms = false, renderLayers = false, sceneplates = false;
  bool sendMessage = false, useSetNameForView = false;
};

/** What a capture can take in, all of it. */
inline CaptureFlags everything() { return {true, true, true, true, true, true, true, true}; }

inline CaptureFlags only(bool CaptureFlags::*flag) {
  CaptureFlags flags;
  flags.*flag = true;
  return flags;
}

/** Fixture of the tests that capture the scene. */
class SceneCaptureTest : public CaptureTest {
 protected:
  static void capture(kuVariantSet& into, const CaptureFlags& flags, std::vector<kuNodePtr> roots) {
    kuVariants::captureVariantsFromRootNodes(&into, std::move(roots), flags.nodes, flags.mats,
                                             flags.lights, flags.env, flags.view, flags.transforms,
                                             flags.renderLayers, flags.sceneplates,
                                             flags.sendMessage, flags.useSetNameForView);
  }
  void capture(const CaptureFlags& flags) { capture(set, flags, {scene.root()}); }

  /**
   * A set as a capture leaves it, one text for each line of its dump without the first, which holds
   * the script, the flags and the default viewpoint; these have operations of their own below.
   */
  static Texts content(const kuVariantSet& captured) {
    Texts lines;
    const QString dump = QString::fromStdString(setDump(captured)).remove(captured.getScript());
    for (const QString& line : dump.split('\n', Qt::SkipEmptyParts).mid(1))
      lines.push_back(line.trimmed().toStdString());
    return lines;
  }
  Texts content() const { return content(set); }

  static Texts scriptLines(const kuVariantSet& captured) {
    const QString script = captured.getScript();
    return script.isEmpty() ? Texts() : texts(script.split('\n'));
  }
  Texts scriptLines() const { return scriptLines(set); }

  /** What the capture took in, as the set remembers it: six digits. */
  static std::string inclInfo(const kuVariantSet& captured) {
    bool flags[6];
    captured.getInclInfo(flags[0], flags[1], flags[2], flags[3], flags[4], flags[5]);
    std::string text;
    for (const bool flag : flags)
      text += flag ? '1' : '0';
    return text;
  }
};

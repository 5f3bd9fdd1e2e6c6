#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "CaptureDifference.h"
#include "Selection.h"
#include "SetContent.h"
#include "TerminalDialogs.h"

/** One capture: what is put in place first, and the set that takes in what is then to be seen. */
struct CaptureStep {
  SelectOptions before;
  QString set;
  /** Empty for the library's own. */
  QString group;
};

/** What came of one capture. */
struct CaptureReport {
  /** The set's name; not the one wished for, where that was in use. */
  QString set;
  QString wished;
  QString group;
  /** What was selected before. */
  QStringList after;
  std::vector<StateRequest> states;
  /** What the set took in. */
  SetContent content;
  /** The number of nodes whose material the set remembers. */
  std::size_t materials = 0;
  QStringList script;
  /** In the order in which the capture came to them. */
  std::vector<SwitchChange> switches;
  std::vector<Renaming> renamings;
  /** Whether nodes keep how they are seen in the render layers under the set's name. */
  bool hasRenderLayers = false;
};

/**
 * Captures the present scene, once for each step. Throws a Failure for a name that does not exist,
 * and where nodes would have to be renamed and may not be: nothing is to be written then.
 */
std::vector<CaptureReport> captureAll(const std::vector<CaptureStep>& steps,
                                      TerminalDialogs::Answer renameDuplicates);

/** @param sceneSaved whether the scene is written too; otherwise what it alone holds is told. */
std::string captureJson(const std::vector<CaptureReport>& reports, bool sceneSaved);
std::string captureText(const std::vector<CaptureReport>& reports, bool sceneSaved);

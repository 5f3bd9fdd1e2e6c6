#pragma once

#include <cstdint>
#include <functional>

#include "host/osg/FieldContainer.h"

namespace kuStandalone {

/** The contract of the edit brackets: every change of a field stands in a fitting one. */
class KUHOST_EXPORT EditBrackets {
 public:
  EditBrackets() = delete;

  /**
   * Checks one change: reports and counts it unless a bracket of @p object is open whose mask has
   * all of @p field. Called by every setter of this host.
   */
  static void noteChange(const osg::FieldContainer& object, osg::FieldMask field, const char* what);

  using Watcher = std::function<void(const osg::FieldContainer& object, osg::FieldMask mask)>;

  /** Sets who hears of every bracket that is closed; there is one at a time, an empty one ends it.
   */
  static void watch(Watcher watcher);

  /** The number of changes outside a fitting bracket, and of brackets closed but never opened. */
  static std::uint64_t violations();

  /** The number of brackets that are open now. */
  static std::size_t open();

  /** Grows with every bracket that is closed: whoever shows the scene compares it. */
  static std::uint64_t revision();
};

}  // namespace kuStandalone

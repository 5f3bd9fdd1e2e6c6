#pragma once

#include <string>
#include <utility>
#include <vector>

#include "standalone/scene/EditBrackets.h"

/**
 * Every edit bracket that was closed since it was made: the class of the object and the mask. There
 * is one recorder at a time.
 */
class BracketRecorder {
 public:
  using Bracket = std::pair<std::string, osg::FieldMask>;

  BracketRecorder() {
    kuStandalone::EditBrackets::watch(
        [this](const osg::FieldContainer& object, osg::FieldMask mask) {
          _brackets.emplace_back(object.getType().getName(), mask);
        });
  }
  ~BracketRecorder() { kuStandalone::EditBrackets::watch({}); }
  BracketRecorder(const BracketRecorder&) = delete;
  BracketRecorder& operator=(const BracketRecorder&) = delete;

  const std::vector<Bracket>& brackets() const { return _brackets; }
  void clear() { _brackets.clear(); }

 private:
  std::vector<Bracket> _brackets;
};

#pragma once

#include <QString>
#include <string>

struct Kind;
class kuVariantSet;

/** A kind of variants with the operations on sets that only scripts need. */
struct ScriptKind {
  const Kind* kind;
  void (kuVariantSet::*add)(const QString& variant, const QString& state);
  void (kuVariantSet::*remove)(const QString& variant);

  void addState(kuVariantSet& set, const QString& variant, const QString& state) const {
    (set.*add)(variant, state);
  }
  void removeState(kuVariantSet& set, const QString& variant) const { (set.*remove)(variant); }
};

/** The kind of that name; raises a ValueError for another name. */
const ScriptKind& existingKind(const std::string& name);

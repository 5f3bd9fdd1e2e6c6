#pragma once

#include <QString>
#include <array>
#include <list>
#include <vector>

class kuVariant;
class kuVariantSet;
class kuVariantState;

/** One of the five kinds of variants, as the command line speaks of it. */
struct Kind {
  /** "node", "material", "transform", "light" or "overlay". */
  const char* name;
  /** All variants of the kind, in the manager's order. */
  std::vector<kuVariant*> (*variants)();
  /** The variant of that name, or null. */
  kuVariant* (*find)(const QString& name);
  /** The states that a set holds for variants of the kind. */
  const std::list<kuVariantState>& (*statesOf)(const kuVariantSet& set);
  /** The name of the scene object behind a variant of the kind. */
  QString (*baseOf)(const kuVariant& variant);
  /** Whether what stands in the scene behind @p base obeys a keyword, listed or not. */
  bool (*obeys)(const QString& base, const QString& keyword);
};

/** The kinds in the order in which a selection takes them. */
const std::array<Kind, 5>& kinds();

/** The kind of that name, or null. */
const Kind* findKind(const QString& name);

/** Whether a variant can be put into a state: it lists it, or obeys it as a keyword. */
bool hasState(const Kind& kind, const kuVariant& variant, const QString& state);

#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <string>
#include <vector>

#include "Kinds.h"
#include "NodeMaterials.h"

class JsonWriter;

/** A variant that is to be put into a state. */
struct StateRequest {
  const Kind* kind;
  QString variant;
  QString state;
};

/** What is to be selected: the sets in order, then the single variants in order. */
struct SelectOptions {
  std::vector<QString> sets;
  std::vector<StateRequest> states;
  /** Put the sets' variants into their own default states instead. */
  bool useDefaults = false;
  bool skipViewpoint = false;
  /** Put the materials that captured sets remember back to their nodes first. */
  bool restoreMaterials = true;
};

/** A variant before and after; the texts are empty where the state cannot be told. */
struct VariantChange {
  const Kind* kind;
  QString variant;
  QString before;
  QString after;
};

/** What came of a selection. */
struct SelectionReport {
  QStringList sets;
  std::vector<StateRequest> states;
  /** Every variant, changed or not. */
  std::vector<VariantChange> variants;
  /** The nodes that got other materials, as where those that sets remember were put back. */
  std::vector<NodeMaterialChange> materials;
  /** The viewpoint looked through; empty for none. */
  QString viewpointBefore;
  QString viewpoint;
  std::vector<std::string> animations;
  std::uint64_t scriptsHeldBack = 0;
};

/** Throws the Failure for a name that does not exist, with the nearest of those that do. */
[[noreturn]] void failUnknown(const std::string& what, const std::string& where,
                              const QString& name, const QStringList& existing);

/** The set of that name, or throws a Failure with the nearest names. */
kuVariantSet& existingSet(const QString& name);

/**
 * Selects the set of that name, or throws a Failure. With @p restoreMaterials a captured set has
 * the materials put back to their nodes before.
 */
void activateSet(const QString& name, bool skipViewpoint, bool restoreMaterials);

/** The name of the set that the library needs for itself while it puts materials back. */
QString temporarySetName();

/**
 * Tells which of the sets remember materials that cannot be put back, since the document has a set
 * of the temporary set's name.
 */
void warnWhereNotRestored(const std::vector<QString>& sets);

/** The variant that a request names, or throws a Failure with the nearest names. */
kuVariant& existingVariant(const Kind& kind, const QString& name);

/** Puts one variant into a state. Throws a Failure for a variant or a state that does not exist. */
void selectOne(const StateRequest& request);

/** Checks every name, then selects. Throws a Failure for a name that does not exist. */
SelectionReport selectAll(const SelectOptions& options);

std::string selectionJson(const SelectionReport& report);
std::string selectionText(const SelectionReport& report);

/** A line for each variant, viewpoint and animation that a selection has changed. */
std::string changedText(const SelectionReport& report);
/** A line for each variant and for the viewpoint, as they are after it. */
std::string statesText(const SelectionReport& report);
/** The states of all variants after it, by kind, as members of an object. */
void writeStates(JsonWriter& json, const SelectionReport& report);

/** That scripts were held back; empty where none was. */
std::string heldBackText(std::uint64_t scripts);

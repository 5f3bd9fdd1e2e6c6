#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <map>
#include <string>
#include <vector>

/**
 * What a manager holds, as plain data that knows neither the writer nor the reader of documents: a
 * manager is built from it, and what a reload must give is told by it.
 */
struct DocumentModel {
  struct Hotkey {
    QString text;
    // What the text is after a reload, and what it stands for then; written down by hand.
    QString normalized;
    int key = 0;
    int modifier = 0;
  };

  struct State {
    QString variant, state;
  };
  using States = std::vector<State>;
  using Names = std::vector<QString>;
  using Map = std::map<QString, QString>;

  struct Clipping {
    int state = 0;
    // Plane position and normal, colours of plane, grid and contour.
    std::array<std::array<float, 3>, 5> vectors = {
        {{0, 0, 0}, {0, 1, 0}, {0.2F, 0.3F, 0.4F}, {0.63F, 0.82F, 0.89F}, {1, 0.7F, 0}}};
    bool invert = false, hideScene = false, showPlane = true, showGrid = true, showContour = true;
    int contourWidth = 1;
  };

  struct Set {
    int id = 0;
    QString name, comment;
    Hotkey hotkey;
    bool showInVRMenu = true, sync = true, sequential = false;
    QString script, defaultViewpoint;
    QByteArray preview;
    std::array<bool, 6> incl = {};
    States nodes, materials, lights, overlays, transforms;
    Names viewpoints, animations, geometries, targets;
    Map values, snapshots;
    Clipping clipping;
  };

  struct Group {
    QString name, comment;
    bool visible = true, showInVRMenu = true, sync = true;
    std::vector<int> sets;  // their ids
  };

  struct Option {
    QString name;
    Hotkey hotkey;
    bool action = false;
  };

  struct Variant {
    QString name, base, defaultState;
    std::vector<Option> options;
  };
  using Variants = std::vector<Variant>;

  std::vector<Group> groups;
  std::vector<Set> sets;
  Variants nodes, materials, lights, overlays, transforms;

  const Set& set(int id) const;
  /** The group that the set is in, or null. */
  const Group* groupOf(int id) const;

  /** Fills the manager, which is empty, by its own interface. */
  void build() const;

  /**
   * What writing the manager and reading the document into an empty one must give.
   * @param sceneplates the names of the scene's sceneplates.
   */
  DocumentModel afterReload(const Names& sceneplates) const;

  /** In the form of managerDump(). */
  std::string dump() const;
  /** In the form of exactClipping(). */
  std::string clippingDump() const;
};

/** A float as it comes back from its six significant digits. Ties go away from zero, and there is
 * no negative zero. */
float roundedToSixDigits(float value);

/** One number of a set's clipping settings, to the last bit. */
std::string exactText(float value);

/** The clipping vectors of all sets of the manager, to the last bit, a line for each set. */
std::string exactClipping();

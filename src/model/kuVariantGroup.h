#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "model/kuObservedName.h"
#include "model/kuVariantsExport.h"

class kuVariantSet;

/**
 * A named folder of variant sets, with flags that apply to all of them. The group does not own its
 * sets, and a set is in at most one group. kuVariants owns the groups of a running application.
 */
class KUVARIANTS_EXPORT kuVariantGroup {
 public:
  using iterator = std::vector<kuVariantSet*>::iterator;
  using const_iterator = std::vector<kuVariantSet*>::const_iterator;

  /** A nameless group; the manager makes groups by name. */
  kuVariantGroup();
  explicit kuVariantGroup(const QString& groupName);
  /** Copies every member, id and list included, without telling the sets. */
  kuVariantGroup(const kuVariantGroup&) = default;
  kuVariantGroup& operator=(const kuVariantGroup&) = default;
  /** The sets live on, ungrouped. */
  ~kuVariantGroup();

  const QString& getName() const { return name.text(); }
  /** Renames the group and announces it. The name is not checked for uniqueness. */
  void setName(const QString& newName);

  const QString& getComment() const { return comment; }
  void setComment(const QString& text) { comment = text; }
  /** Whether the group shows in the user interface. */
  bool getVisible() const { return visible; }
  void setVisible(bool show) { visible = show; }
  bool getShowInVRMenu() const { return showInVRMenu; }
  void setShowInVRMenu(bool show) { showInVRMenu = show; }
  /** Whether selections of the sets travel to collaboration partners. */
  bool getSyncInCollaboration() const { return syncInCollaboration; }
  void setSyncInCollaboration(bool sync) { syncInCollaboration = sync; }
  /** Number of the group in this process. */
  std::uint32_t id() const { return _id; }

  /** The members in their order. */
  const std::vector<kuVariantSet*>& getVariantSets() const { return variantSets; }

  /** Appends a set, unless it has a group already, be it this one. */
  void add(kuVariantSet* set);
  /** The same at a place of the list. */
  void insert(iterator position, kuVariantSet* set);
  /** Takes a set out and ungroups it; one that is not a member stays as it is. */
  void remove(kuVariantSet* set);
  /** The entry of the set, or the end. */
  iterator find(kuVariantSet* set);
  const_iterator find(kuVariantSet* set) const;
  bool contains(kuVariantSet* set) const;
  /** Ungroups all members. */
  void clear();

 private:
  friend class kuVariantReader;
  friend class kuVariants;
  template <class Entry>
  friend class kuNamedList;
  friend struct kuVariantsTestAccess;

  static std::uint32_t _nextId;

  std::vector<kuVariantSet*> variantSets;
  kuObservedName name;
  QString comment;
  bool visible = true;
  bool showInVRMenu = true;
  bool syncInCollaboration = true;
  std::uint32_t _id;
};

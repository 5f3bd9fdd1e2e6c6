#pragma once

#include <QHash>
#include <QString>
#include <cstdint>
#include <set>

class kuVariantSet;

/**
 * The paths for which sets remember a material, by the material's name, for the length of one
 * capture: thousands of nodes ask for them. It follows the changes that go through it, and starts
 * anew after all others.
 */
class kuSnapshotIndex {
 public:
  using Paths = std::set<QString>;

  kuSnapshotIndex();
  ~kuSnapshotIndex();
  kuSnapshotIndex(const kuSnapshotIndex&) = delete;
  kuSnapshotIndex& operator=(const kuSnapshotIndex&) = delete;

  /** The one of the innermost capture; null outside of captures. */
  static kuSnapshotIndex* present() { return _present; }

  /**
   * The paths for which the set remembers the material, in order. The caller may take out those
   * that it will not ask for again. Good until the next change of a set.
   */
  Paths& pathsOf(const kuVariantSet& set, const QString& material);

  /** Lets the set remember another material for a path, with an index at work or without. */
  static void replace(kuVariantSet& set, const QString& path, const QString& material);

 private:
  using Materials = QHash<QString, Paths>;

  void forgetIfOutdated();
  static Materials pathsByMaterial(const kuVariantSet& set);

  static kuSnapshotIndex* _present;

  kuSnapshotIndex* _outer;
  std::uint64_t _revision = 0;
  /** By the set's identifier. */
  QHash<std::uint32_t, Materials> _sets;
};

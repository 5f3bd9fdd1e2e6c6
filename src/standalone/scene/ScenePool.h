#pragma once

#include <boost/unordered_map.hpp>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/osg/MaterialPool.h"
#include "host/osg/MultiMaterial.h"
#include "standalone/scene/TextKey.h"

namespace kuStandalone {

/** The material pool of this host, with an index of the names that follows every rename. */
class KUHOST_EXPORT ScenePool final : public osg::MaterialPool {
 public:
  static osg::MaterialPoolPtr create();
  static ScenePool& of(const osg::MaterialPoolPtr& pool) { return static_cast<ScenePool&>(*pool); }

  const osg::MFMaterialPtr& materials() const { return _materials; }

  /** Enters a material as data: no bracket is asked for. One that is in the pool stays. */
  void enter(const osg::MaterialPtr& material);

  /** Takes a material out; one that is not in the pool changes nothing. */
  void remove(const osg::MaterialPtr& material);

  /** The materials of that name in the pool's order; empty if there is none. */
  const osg::MFMaterialPtr& find(std::string_view name) const;

  /** @p name itself if no material of the pool bears it, otherwise the first free one of it with a
   * number behind it, from 2. Numbers that it has answered are not answered again. */
  std::string uniqueName(const std::string& name);

  /** Gives a material of the pool another name. */
  void rename(osg::MaterialPtr material, std::string name);

 private:
  ScenePool();
  ~ScenePool() override;
  void index(const osg::MaterialPtr& material);
  void unindex(const osg::MaterialPtr& material);

  /** By rank, like the materials of each name. */
  osg::MFMaterialPtr _materials;
  std::uint64_t _lastRank = 0;
  boost::unordered_map<std::string, osg::MFMaterialPtr, TextHash> _names;
  /** The last number that uniqueName put behind a name. */
  boost::unordered_map<std::string, unsigned> _lastNumbers;
};

}  // namespace kuStandalone

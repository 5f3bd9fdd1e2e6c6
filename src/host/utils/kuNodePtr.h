#pragma once

#include <cstdint>

#include "host/osg/Node.h"

/** The script-friendly form of a node handle, and the form in which searches answer. */
class KUHOST_EXPORT kuNodePtr {
 public:
  kuNodePtr() = default;
  kuNodePtr(osg::NullFieldContainer) {}
  kuNodePtr(osg::NodePtr node) : _node(std::move(node)) {}
  kuNodePtr(const kuNodePtr&) = default;
  kuNodePtr(kuNodePtr&&) noexcept = default;
  kuNodePtr& operator=(const kuNodePtr&) = default;
  kuNodePtr& operator=(kuNodePtr&&) noexcept = default;
  virtual ~kuNodePtr();

  /** Whether it holds a node. */
  bool isValid() const { return static_cast<bool>(_node); }

  /** The node's identifier in this process; 0 for an invalid handle. */
  std::uint32_t getID() const;

  const osg::NodePtr& getNode() const { return _node; }
  operator const osg::NodePtr&() const { return _node; }

 private:
  osg::NodePtr _node;
};

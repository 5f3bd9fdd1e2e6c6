#include "scene/kuNodeVariant.h"

#include <algorithm>
#include <boost/container/flat_set.hpp>
#include <boost/container/small_vector.hpp>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>

#include "host/kernel/kuLog.h"
#include "host/kernel/kuScenegraph.h"
#include "host/osg/EditCP.h"
#include "host/osg/Switch.h"
#include "host/osg/SwitchComponentTransform.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "model/kuKeyword.h"
#include "model/kuLivingVariant.h"
#include "model/kuUtf8.h"
#include "scene/kuNodePath.h"
#include "scene/kuNodeStates.h"
#include "scene/kuOptionRebuild.h"
#include "scene/kuSubTree.h"
#include "scene/kuVariantMessages.h"

namespace {

std::vector<kuNodePtr> nodesOf(const QString& name) {
  return kuScenegraph::findNodes(name.toUtf8().constData());
}

/** The core as a transform; null for a node of another kind and for a null one. */
osg::SwitchComponentTransformPtr transformOf(const osg::NodePtr& node) {
  if (!node) return osg::NullFC;
  return osg::SwitchComponentTransformPtr::dcast(node->getCore());
}

/** Adds "Transform 0" and so on; these never have a hotkey. */
void addTransforms(kuVariant& variant, const osg::SwitchComponentTransform& core) {
  const unsigned count = core.getCount();
  for (unsigned i = 0; i < count; ++i) {
    variant.add(QString::asprintf("Transform %u", i), QString());
  }
}

// The steps of a switch. The choice is signed, with -1 and -2 of a meaning of their own, but is
// compared with the number of children as an unsigned number: both lie beyond the last child then.

bool isBeyond(std::int64_t choice, unsigned count) { return std::uint64_t(choice) >= count; }

int nextChild(int choice, unsigned count) {
  std::int64_t next = std::int64_t(choice) + 1;
  if (isBeyond(next, count)) next = std::int64_t(count) - 1;
  return std::max(int(next), 0);
}

int nextChildInLoop(int choice, unsigned count) {
  const std::int64_t next = std::int64_t(choice) + 1;
  return isBeyond(next, count) ? 0 : std::max(int(next), 0);
}

int previousChild(int choice, unsigned count) {
  const std::int64_t previous = choice >= 1 ? std::int64_t(choice) - 1 : 0;
  return isBeyond(previous, count) ? int(count) - 1 : int(previous);
}

int previousChildInLoop(int choice, unsigned count) {
  const std::int64_t previous = std::int64_t(choice >= 1 ? unsigned(choice) : count) - 1;
  return isBeyond(previous, count) ? int(count) - 1 : int(previous);
}

/** Index of the first child of that name. */
std::optional<int> childNamed(const std::string& name, const osg::Node& node) {
  const unsigned count = node.getNChildren();
  for (unsigned i = 0; i < count; ++i) {
    if (name == kuNodeUtils::getName(node.getChild(i))) return int(i);
  }
  return std::nullopt;
}

// The steps of a transform. The choice is unsigned, and only stepping back in the loop reads it as
// a signed number.

unsigned nextTransform(unsigned choice, unsigned count) {
  return choice + 1 < count ? choice + 1 : count - 1;
}

unsigned nextTransformInLoop(unsigned choice, unsigned count) {
  return choice + 1 < count ? choice + 1 : 0;
}

unsigned previousTransform(unsigned choice, unsigned count) {
  const unsigned previous = choice == 0 ? 0 : choice - 1;
  return previous < count ? previous : count - 1;
}

unsigned previousTransformInLoop(unsigned choice, unsigned count) {
  return (int(choice) > 0 ? choice : count) - 1;
}

/** The number in "Transform 2", whatever the count of states is; 0 for any other text. */
unsigned transformNumber(const std::string& state) {
  unsigned number = 0;
  std::sscanf(state.c_str(), "Transform %u", &number);  // NOLINT(cert-err34-c): 0 is the answer
  return number;
}

}  // namespace

class kuNodeVariant::Selection {
 public:
  Selection(const kuVariant& variant, const QString& state)
      : _variant(variant),
        _variantName(kuUtf8(variant.getName())),
        _state(kuUtf8(state)),
        _keyword(kuKeywordOf(state)) {}

  /** Applies the state to each of the nodes in turn. */
  void applyTo(const std::vector<kuNodePtr>& nodes) {
    _clonesMayFollow = nodes.size() > 1;
    for (const kuNodePtr& node : nodes) {
      applyTo(node);
      if (_clonesMayFollow) followName();
    }
  }

  const std::string& variantName() const { return _variantName; }

 private:
  void applyTo(const osg::NodePtr& node);
  /** Each node is told under the name that the variant has by then, or had last. */
  void followName() {
    if (_variant.get()) _variantName = kuUtf8(_variant.get()->getName());
  }
  void setVisibility(const osg::NodePtr& node, kuMessage& message) const;
  void show(const osg::NodePtr& node, kuMessage& message) const;
  void hide(const osg::NodePtr& node, kuMessage& message) const;
  void stepTransform(const osg::SwitchComponentTransformPtr& core);
  unsigned newTransform(unsigned choice, unsigned count) const;
  void switchChild(const osg::SwitchPtr& core, const osg::NodePtr& node, kuMessage& message);
  std::optional<int> newChild(const osg::Switch& core, const osg::Node& node) const;
  /** Whether it is the first time that the core is met: clones share one, and it steps once. */
  bool isFirstVisit(const osg::NodeCorePtr& core) {
    return !_clonesMayFollow || _visited.insert(core).second;
  }

  const kuLivingVariant _variant;
  std::string _variantName;
  const std::string _state;
  const kuKeyword _keyword;
  bool _clonesMayFollow = false;
  boost::container::small_flat_set<osg::NodeCorePtr, 4> _visited;
};

// A keyword of visibility acts on the node's own flag whatever the core is, and is then read by the
// core like any other state: a switch has no child of that name, a transform takes state 0.
void kuNodeVariant::Selection::applyTo(const osg::NodePtr& node) {
  kuMessage message;
  message.set("variantName", _variantName, true);
  setVisibility(node, message);
  const osg::NodeCorePtr core = node->getCore();
  if (const auto transform = osg::SwitchComponentTransformPtr::dcast(core)) {
    stepTransform(transform);
  } else if (const auto children = osg::SwitchPtr::dcast(core)) {
    switchChild(children, node, message);
  }
}

void kuNodeVariant::Selection::setVisibility(const osg::NodePtr& node, kuMessage& message) const {
  if (_keyword == kuKeyword::Enable) return show(node, message);
  if (_keyword == kuKeyword::Disable) return hide(node, message);
  if (_keyword != kuKeyword::Toggle) return;
  node->getActive() ? hide(node, message) : show(node, message);
}

void kuNodeVariant::Selection::show(const osg::NodePtr& node, kuMessage& message) const {
  kuSubTree::setActive(node, true);
  recurseEnable(node);
  callVariantsNodesChanged(node, message);
}

void kuNodeVariant::Selection::hide(const osg::NodePtr& node, kuMessage& message) const {
  kuSubTree::setActive(node, false);
  // Stands there until the list of visible nodes takes its place, and its type.
  message.set("visible", false, true);
  callVariantsNodesChanged(node, message);
}

void kuNodeVariant::Selection::stepTransform(const osg::SwitchComponentTransformPtr& core) {
  if (!isFirstVisit(core)) return;
  const osg::EditCP edit(core, osg::SwitchComponentTransformBase::ChoiceFieldMask);
  core->setChoice(newTransform(core->getChoice(), core->getCount()));
}

unsigned kuNodeVariant::Selection::newTransform(unsigned choice, unsigned count) const {
  switch (_keyword) {
    case kuKeyword::Next:
      return nextTransform(choice, count);
    case kuKeyword::NextLoop:
      return nextTransformInLoop(choice, count);
    case kuKeyword::Previous:
      return previousTransform(choice, count);
    case kuKeyword::PreviousLoop:
      return previousTransformInLoop(choice, count);
    default:
      return transformNumber(_state);
  }
}

void kuNodeVariant::Selection::switchChild(const osg::SwitchPtr& core, const osg::NodePtr& node,
                                           kuMessage& message) {
  const bool first = isFirstVisit(core);
  const std::optional<int> choice = newChild(*core, *node);
  if (!choice) {
    return kuLog::error("Nodevariant %s does not have a child called %s\n", _variantName.c_str(),
                        _state.c_str());
  }
  if (first) {
    const osg::EditCP edit(core);
    core->setChoice(*choice);
  }
  if (_keyword != kuKeyword::None) recurseEnable(node);
  callVariantsNodesChanged(node, message);
}

std::optional<int> kuNodeVariant::Selection::newChild(const osg::Switch& core,
                                                      const osg::Node& node) const {
  switch (_keyword) {
    case kuKeyword::All:
      return kuNodeStates::AllChildren;
    case kuKeyword::None:
      return kuNodeStates::NoChild;
    case kuKeyword::Next:
      return nextChild(core.getChoice(), node.getNChildren());
    case kuKeyword::NextLoop:
      return nextChildInLoop(core.getChoice(), node.getNChildren());
    case kuKeyword::Previous:
      return previousChild(core.getChoice(), node.getNChildren());
    case kuKeyword::PreviousLoop:
      return previousChildInLoop(core.getChoice(), node.getNChildren());
    default:
      return childNamed(_state, node);
  }
}

kuNodeVariant::kuNodeVariant(const osg::NodePtr& source)
    : node(QString::fromUtf8(kuNodeUtils::getName(source))) {
  setName(node);
  if (const auto transform = transformOf(source)) {
    kuAddStepKeywords(*this);
    addTransforms(*this, *transform);
    setDefault(kuKeywordText(kuKeyword::NextLoop));
  } else {
    kuNodeStates::fill(*this, source);
  }
}

void kuNodeVariant::updateVariants() {
  kuOptionRebuild rebuilt(*this);
  const std::vector<kuNodePtr> nodes = nodesOf(node);
  if (nodes.empty() || !nodes.front().isValid()) return;
  const osg::NodePtr& first = nodes.front();
  if (const auto transform = transformOf(first)) {
    rebuilt.addSteps();
    addTransforms(*this, *transform);
    setDefault(kuKeywordText(kuKeyword::NextLoop));
  } else {
    kuNodeStates::rebuild(*this, rebuilt, first);
  }
  rebuilt.restoreDefault();
}

void kuNodeVariant::showGeometry() {
  for (const kuNodePtr& found : nodesOf(node))
    pushEnable(found);
}

void kuNodeVariant::hideGeometry() {
  for (const kuNodePtr& found : nodesOf(node))
    pushDisable(found);
}

void kuNodeVariant::onSelect(const QString& state) {
  // A receiver may delete this variant in the midst of it: from the first message on nothing of it
  // is read here.
  void* const self = static_cast<kuVariant*>(this);
  Selection selection(*this, state);
  // Mostly the nodes bear the variant's own name, which is converted already.
  const bool ownName = node == getName();
  const std::string otherName = ownName ? std::string() : kuUtf8(node);
  const std::string& nodeName = ownName ? selection.variantName() : otherName;
  selection.applyTo(kuScenegraph::findNodes(nodeName.c_str()));
  kuSendVariantSelected("nodeVariantSelected", self);
}

QString kuNodeVariant::onCurrent() const {
  const std::vector<kuNodePtr> nodes = nodesOf(node);
  return nodes.empty() ? QString() : kuNodeStates::current(nodes.front());
}

void kuNodeVariant::callVariantsNodesChanged(const osg::NodePtr& changed, kuMessage& message) {
  kuSendNodesChanged("variantsNodesChanged", changed, kuScenegraph::getRoot(), message);
}

QString kuNodeVariant::getNodePath(const osg::NodePtr& of) {
  return QString::fromStdString(kuNodePath(of, kuScenegraph::getRoot()));
}

void kuNodeVariant::recurseEnable(const osg::NodePtr& start) {
  if (!kuVariants::getRecursion() || !start) return;
  pushEnable(start);
  // The first active ancestor ends the walk, even if an inactive one stands above it.
  for (osg::NodePtr above = start->getParent(); above && !above->getActive();
       above = above->getParent()) {
    kuSubTree::setActive(above, true);
  }
}

void kuNodeVariant::pushEnable(const osg::NodePtr& start) { kuSubTree::enable(start); }

void kuNodeVariant::pushDisable(const osg::NodePtr& start) { kuSubTree::disableGeometries(start); }

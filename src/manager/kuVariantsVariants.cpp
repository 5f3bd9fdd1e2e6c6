#include <QString>
#include <memory>

#include "host/kernel/kuController.h"
#include "host/utils/kuMaterials.h"
#include "host/utils/kuNodeUtils.h"
#include "manager/kuVariants.h"
#include "scene/kuLightVariant.h"
#include "scene/kuMaterialVariant.h"
#include "scene/kuNodeVariant.h"
#include "scene/kuOverlayVariant.h"
#include "scene/kuTransformVariant.h"

// The variants of the five kinds: finding, creating, removing. What is one for all kinds stands
// once at the top; the public operations below show where a kind differs.

namespace {

/** How a kind announces itself. */
struct Messages {
  const char* added;
  const char* removed;
  const char* changed;
  int mode;
};

constexpr Messages nodeMessages{"nodeVariantAdded", "nodeVariantRemoved", "nodeVariantChanged", 1};
constexpr Messages materialMessages{"materialVariantAdded", "materialVariantRemoved",
                                    "materialVariantChanged", 1};
constexpr Messages lightMessages{"lightVariantAdded", "lightVariantRemoved", "lightVariantChanged",
                                 1};
constexpr Messages overlayMessages{"overlayVariantAdded", "overlayVariantRemoved",
                                   "overlayVariantChanged", 1};
// The transform's alone have mode 0.
constexpr Messages transformMessages{"transformVariantAdded", "transformVariantRemoved",
                                     "transformVariantChanged", 0};

/** Announces a new variant; null if a receiver removed it again. */
template <class Variant>
Variant* announced(const kuNamedList<Variant>& list, Variant* variant, const Messages& messages) {
  kuMessage message;
  message.set("variant", static_cast<void*>(static_cast<kuVariant*>(variant)), true);
  kuController::call(messages.added, message, messages.mode);
  return list.contains(variant) ? variant : nullptr;
}

template <class Variant>
Variant* entered(kuNamedList<Variant>& list, std::unique_ptr<Variant> made, bool sendMessage,
                 const Messages& messages) {
  Variant* variant = made.release();
  list.append(variant);
  return sendMessage ? announced(list, variant, messages) : variant;
}

template <class Variant>
Variant* createByName(kuNamedList<Variant>& list, const QString& name, bool sendMessage,
                      const Messages& messages) {
  if (Variant* existing = list.find(name)) return existing;
  auto made = std::make_unique<Variant>();
  made->setName(name);
  return entered(list, std::move(made), sendMessage, messages);
}

template <class Variant>
Variant* createFromNode(kuNamedList<Variant>& list, const osg::NodePtr& node, bool sendMessage,
                        const Messages& messages) {
  const QString name = QString::fromUtf8(kuNodeUtils::getName(node));
  if (name.isEmpty()) return nullptr;
  if (Variant* existing = list.find(name)) return existing;
  return entered(list, std::make_unique<Variant>(node), sendMessage, messages);
}

/** The message goes out, and the answer is true, also where nothing was found. */
template <class Variant>
bool removeByName(kuNamedList<Variant>& list, const QString& name, const Messages& messages) {
  if (name.isEmpty()) return false;
  if (Variant* found = list.find(name)) {
    list.remove(found);
    delete found;
  }
  kuController::call(messages.removed, messages.mode);
  return true;
}

template <class Variant>
void clearList(kuNamedList<Variant>& list, const Messages& messages) {
  list.clear();
  kuController::call(messages.changed, messages.mode);
}

}  // namespace

kuVariant* kuVariants::findVariant(VariantType type, const QString& name) {
  switch (type) {
    case LightVariantType:
      return findLightVariant(name);
    case MaterialVariantType:
      return findMaterialVariant(name);
    case NodeVariantType:
      return findNodeVariant(name);
    case OverlayVariantType:
      return findOverlayVariant(name);
    case TransformVariantType:
      return findTransformVariant(name);
    case UnknownVariantType:
      break;
  }
  return nullptr;
}

VariantType kuVariants::getVariantType(const kuVariant* variant) {
  if (dynamic_cast<const kuLightVariant*>(variant)) return LightVariantType;
  if (dynamic_cast<const kuMaterialVariant*>(variant)) return MaterialVariantType;
  if (dynamic_cast<const kuNodeVariant*>(variant)) return NodeVariantType;
  if (dynamic_cast<const kuOverlayVariant*>(variant)) return OverlayVariantType;
  if (dynamic_cast<const kuTransformVariant*>(variant)) return TransformVariantType;
  return UnknownVariantType;
}

kuNodeVariant* kuVariants::findNodeVariant(const QString& name) { return _nodeVariants.find(name); }

kuNodeVariant* kuVariants::createNodeVariant(const QString& name, bool sendMessage) {
  return createByName(_nodeVariants, name, sendMessage, nodeMessages);
}

kuNodeVariant* kuVariants::createNodeVariant(osg::NodePtr node, bool sendMessage) {
  return createFromNode(_nodeVariants, node, sendMessage, nodeMessages);
}

bool kuVariants::removeNodeVariant(const QString& name) {
  return removeByName(_nodeVariants, name, nodeMessages);
}

void kuVariants::clearNodeVariants() { clearList(_nodeVariants, nodeMessages); }

kuMaterialVariant* kuVariants::findMaterialVariant(const QString& name) {
  return _materialVariants.find(name);
}

kuMaterialVariant* kuVariants::createMaterialVariant(const QString& name, bool sendMessage) {
  return createByName(_materialVariants, name, sendMessage, materialMessages);
}

kuMaterialVariant* kuVariants::createMaterialVariant(osg::MaterialPtr material, bool sendMessage) {
  const QString name = QString::fromUtf8(kuMaterials::getName(material));
  if (name.isEmpty()) return nullptr;
  // A plain material is wrapped in a switch of this name, and the variant is named after it.
  const QString switchName = name + QStringLiteral(" Switch");
  if (kuMaterialVariant* existing =
          findMaterialVariant(material->isMultiState() ? name : switchName)) {
    // The switch may be gone, after a reload of the scene: the constructor makes it anew. It is
    // looked for by the switch's name, also where the material has states by itself.
    if (!kuMaterials::findMaterial(switchName.toUtf8().constData()).isValid()) {
      const kuMaterialVariant repair(material);
    }
    // The repair is told to the host's modules, and one of them may have removed the variant.
    return _materialVariants.contains(existing) ? existing : nullptr;
  }
  return entered(_materialVariants, std::make_unique<kuMaterialVariant>(material), sendMessage,
                 materialMessages);
}

bool kuVariants::removeMaterialVariant(const QString& name) {
  return removeByName(_materialVariants, name, materialMessages);
}

void kuVariants::clearMaterialVariants() { clearList(_materialVariants, materialMessages); }

kuLightVariant* kuVariants::findLightVariant(const QString& name) {
  return _lightVariants.find(name);
}

kuLightVariant* kuVariants::createLightVariant(const QString& name, bool sendMessage) {
  return createByName(_lightVariants, name, sendMessage, lightMessages);
}

kuLightVariant* kuVariants::createLightVariant(osg::NodePtr node, bool sendMessage) {
  return createFromNode(_lightVariants, node, sendMessage, lightMessages);
}

bool kuVariants::removeLightVariant(const QString& name) {
  return removeByName(_lightVariants, name, lightMessages);
}

void kuVariants::clearLightVariants() { clearList(_lightVariants, lightMessages); }

kuOverlayVariant* kuVariants::findOverlayVariant(const QString& name) {
  return _overlayVariants.find(name);
}

kuOverlayVariant* kuVariants::createOverlayVariant(const QString& name, bool sendMessage) {
  if (name.isEmpty()) return nullptr;  // the other kinds let the empty name through
  return createByName(_overlayVariants, name, sendMessage, overlayMessages);
}

kuOverlayVariant* kuVariants::createOverlayVariant(osg::NodePtr node, bool sendMessage) {
  return createFromNode(_overlayVariants, node, sendMessage, overlayMessages);
}

bool kuVariants::removeOverlayVariant(const QString& name) {
  return removeByName(_overlayVariants, name, overlayMessages);
}

void kuVariants::clearOverlayVariants() { clearList(_overlayVariants, overlayMessages); }

kuTransformVariant* kuVariants::findTransformVariant(const QString& name) {
  return _transformVariants.find(name);
}

kuTransformVariant* kuVariants::createTransformVariant(const QString& name, bool sendMessage) {
  return createByName(_transformVariants, name, sendMessage, transformMessages);
}

// Made from the node's name alone, and only for a node that has transform states.
kuTransformVariant* kuVariants::createTransformVariant(osg::NodePtr node, bool sendMessage) {
  if (!kuNodeUtils::hasTransformVariants(node)) return nullptr;
  const QString name = QString::fromUtf8(kuNodeUtils::getName(node));
  if (name.isEmpty()) return nullptr;
  if (kuTransformVariant* existing = findTransformVariant(name)) return existing;
  auto made = std::make_unique<kuTransformVariant>(name);
  made->updateVariants();
  return entered(_transformVariants, std::move(made), sendMessage, transformMessages);
}

bool kuVariants::removeTransformVariant(const QString& name) {
  return removeByName(_transformVariants, name, transformMessages);
}

void kuVariants::clearTransformVariants() { clearList(_transformVariants, transformMessages); }

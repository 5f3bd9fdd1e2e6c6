#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <vector>

#include "standalone/scene/Transform.h"

namespace kuStandalone {

/**
 * A glTF text that is being edited: the lists that a scene changes stand apart, so that an entry is
 * reached by its index, and what nobody touches goes out as it came in.
 */
class GltfDraft {
 public:
  /** @param root the text to start from; empty for a new one. */
  explicit GltfDraft(const QJsonObject& root);

  /** Notes in "extensionsUsed" that the text uses an extension. */
  void useExtension(const QString& name);

  /** The text with the edited lists. */
  QJsonObject finish() const;

  QJsonObject root;
  /** The present scene. */
  QJsonObject scene;
  std::vector<QJsonObject> nodes, meshes, materials, cameras;

 private:
  int _scene;
};

/** Sets a member; an undefined value takes it out. */
void setMember(QJsonObject& object, const QString& name, const QJsonValue& value);

/** The same for a member of "extras", which goes when nothing is left in it. */
void setExtra(QJsonObject& owner, const QString& name, const QJsonValue& value);

/** The same for a member of an extension; what else the extension holds stays. */
void setExtensionMember(QJsonObject& owner, const QString& extension, const QString& name,
                        const QJsonValue& value);

QJsonObject extrasOf(const QJsonObject& owner);
QJsonObject extensionOf(const QJsonObject& owner, const QString& extension);

/** A number as JSON can hold it. Throws GltfRefusal if it is not finite. */
QJsonValue jsonNumber(double number);

template <std::size_t N>
QJsonArray jsonNumbers(const std::array<double, N>& numbers) {
  QJsonArray list;
  for (const double number : numbers)
    list.append(jsonNumber(number));
  return list;
}

/** Writes the members of a transform that are not their defaults and takes the others out. An
 * object that gives the transform already stays as it is. */
void writeTransform(QJsonObject& object, const Transform& transform);

}  // namespace kuStandalone

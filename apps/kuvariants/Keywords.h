#pragma once

#include <QString>

/**
 * Which keywords the scene's objects obey, whether or not a document lists them: a variant that was
 * read from a document knows only what stands there. All of it asks the present scene.
 */
namespace Keywords {

bool nodeObeys(const QString& node, const QString& keyword);
bool materialObeys(const QString& material, const QString& keyword);
bool transformObeys(const QString& node, const QString& keyword);
bool lightObeys(const QString& node, const QString& keyword);
bool overlayObeys(const QString& overlay, const QString& keyword);

}  // namespace Keywords

#pragma once

#include <QByteArray>

namespace kuStandalone {

/**
 * Looks over a JSON text before it is parsed, and throws GltfRefusal for one that is nested too
 * deeply or has an object with two members of one name. Of two such members readers take either,
 * so no one could tell what the file means; the parser, moreover, never frees the one that it
 * drops. Whether the text is well-formed is left to the parser.
 */
void checkJsonText(const QByteArray& text);

}  // namespace kuStandalone

#pragma once

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <string>
#include <vector>

#include "standalone/gltf/GltfJson.h"

namespace kuStandalone {

/** A file that a scene names does not exist or cannot be read. */
struct GltfUnreadable : GltfRefusal {
  using GltfRefusal::GltfRefusal;
};

/** Reads what a scene's URIs name: data in the URI itself, and files in the scene's folder. */
class UriReader {
 public:
  /** @param folder empty for a scene without one, which can name no files. @param budget bytes
   * that all files together may have. */
  UriReader(QString folder, std::size_t budget);

  /** The bytes behind a URI. Throws GltfRefusal, for a file that is not there GltfUnreadable. */
  QByteArray read(const QString& uri, const std::string& place);

  /** The full paths of the files that were read, in UTF-8. */
  const std::vector<std::string>& files() const { return _files; }

 private:
  QString fileOf(const QString& uri, const std::string& place) const;

  QString _folder;
  std::size_t _budget;
  std::vector<std::string> _files;
};

}  // namespace kuStandalone

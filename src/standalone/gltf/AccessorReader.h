#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <cstdint>
#include <vector>

#include "standalone/gltf/GltfSource.h"

namespace kuStandalone {

/** A file's accessors, checked against their buffer views and buffers. Throws GltfRefusal. */
class AccessorReader {
 public:
  /** The numbers of an accessor, where they stand. */
  struct View {
    const char* data = nullptr;
    std::int64_t count = 0;
    /** Bytes from one element to the next. */
    std::int64_t stride = 0;
    /** 5120 to 5126, as the file has it. */
    int componentType = 0;
    int components = 0;
    bool normalised = false;
  };

  /** @param source lives longer than the reader. */
  explicit AccessorReader(const GltfSource& source);

  int count() const { return _accessors.size(); }

  /** An accessor of the file's, by an index in range. */
  View view(int index) const;

  /** All numbers, element after element; normalised integers become fractions. */
  std::vector<float> floats(const View& view) const;

  /** All numbers of an accessor of whole numbers without sign, as its first component has them. */
  std::vector<std::uint32_t> wholes(const View& view) const;

  /** The largest of an accessor's whole numbers of 8, 16 or 32 bits without sign. */
  std::uint32_t largest(const View& view) const;

 private:
  const GltfSource& _source;
  QJsonArray _accessors, _views;
};

}  // namespace kuStandalone

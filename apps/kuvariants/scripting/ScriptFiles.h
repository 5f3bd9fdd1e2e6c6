#pragma once

#include <boost/python/object.hpp>
#include <string>

// Documents, scenes and pictures, as scripts read and write them. A file is written whole or not at
// all. Paths come as Python's bytes.

namespace ScriptFiles {

/** @param content bytes of a document; @param path where they came from, for messages. */
void readDocument(const boost::python::object& content, const std::string& path);
/** For a document that is not read yet. */
void checkDocumentSize(long long bytes, const std::string& path);
void writeDocument(const std::string& path);
void saveScene(const std::string& path);
void render(const std::string& path, int width, int height, int samples);
void clear();

}  // namespace ScriptFiles

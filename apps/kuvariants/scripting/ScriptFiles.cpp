#include "scripting/ScriptFiles.h"

#include <boost/python.hpp>

#include "Interrupt.h"
#include "PictureOptions.h"
#include "Workspace.h"
#include "host/kernel/kuController.h"
#include "standalone/script/ScriptInterpreter.h"

namespace bp = boost::python;

namespace ScriptFiles {

void readDocument(const bp::object& content, const std::string& path) {
  const Py_ssize_t size = PyBytes_Size(content.ptr());
  Workspace::checkDocumentSize(size, path);
  const QByteArray text(PyBytes_AsString(content.ptr()), int(size));
  Workspace::present().readDocument(text, path);
}

void checkDocumentSize(long long bytes, const std::string& path) {
  Workspace::checkDocumentSize(bytes, path);
}

void writeDocument(const std::string& path) {
  // In its order, should it go to standard output.
  kuStandalone::ScriptInterpreter::flush();
  Workspace::present().writeDocument(path);
}

void saveScene(const std::string& path) { Workspace::present().writeScene(path); }

void render(const std::string& path, int width, int height, int samples) {
  const Interrupt::AtOnce whileRaysAreTraced;
  kuStandalone::PictureSettings settings = usualPicture;
  settings.width = width;
  settings.height = height;
  settings.samples = samples;
  kuStandalone::ScriptInterpreter::flush();
  Workspace::present().writePicture(path, settings);
}

void clear() { kuController::call("clearAllVariants", 1); }

}  // namespace ScriptFiles

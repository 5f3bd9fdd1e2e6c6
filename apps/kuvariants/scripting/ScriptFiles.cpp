#include "scripting/ScriptFiles.h"

#include <boost/python.hpp>

#include "Interrupt.h"
#include "PictureOptions.h"
#include "Workspace.h"
#include "host/kernel/kuController.h"

namespace bp = boost::python;

namespace ScriptFiles {

void readDocument(const bp::object& content, const std::string& path) {
  const QByteArray text(PyBytes_AsString(content.ptr()), int(PyBytes_Size(content.ptr())));
  Workspace::present().readDocument(text, path);
}

void writeDocument(const std::string& path) { Workspace::present().writeDocument(path); }

void saveScene(const std::string& path) { Workspace::present().writeScene(path); }

void render(const std::string& path, int width, int height, int samples) {
  const Interrupt::AtOnce whileRaysAreTraced;
  kuStandalone::PictureSettings settings = usualPicture;
  settings.width = width;
  settings.height = height;
  settings.samples = samples;
  Workspace::present().writePicture(path, settings);
}

void clear() { kuController::call("clearAllVariants", 1); }

}  // namespace ScriptFiles

#include "standalone/script/SyntaxTree.h"

#include <array>
#include <boost/python.hpp>

namespace bp = boost::python;

namespace kuStandalone {

namespace {

using Classes = std::array<PyObject*, SyntaxTree::ClassCount>;

/** In the order of SyntaxTree::Class. */
constexpr std::array<const char*, SyntaxTree::ClassCount> kClassNames = {
    "Module",  "Expression", "Expr",     "Call", "Name", "Attribute",
    "UnaryOp", "USub",       "Constant", "Num",  "Str",  "NameConstant"};

/** Kept for the life of the process, as the interpreter is. */
Classes& classes() {
  static Classes captured{};
  return captured;
}

}  // namespace

void SyntaxTree::captureClasses() {
  const bp::object module = bp::import("_ast");
  for (std::size_t i = 0; i < kClassNames.size(); ++i) {
    classes()[i] = PyObject_GetAttrString(module.ptr(), kClassNames[i]);
    if (!classes()[i]) PyErr_Clear();
  }
}

bool SyntaxTree::is(Class wanted) const {
  return _node && reinterpret_cast<PyObject*>(Py_TYPE(_node)) == classes()[wanted];
}

PyObject* SyntaxTree::value(const char* field) const {
  if (!_node) return nullptr;
  const bp::handle<> fields(bp::allow_null(PyObject_GenericGetDict(_node, nullptr)));
  if (!fields) PyErr_Clear();
  return fields ? PyDict_GetItemString(fields.get(), field) : nullptr;
}

std::vector<SyntaxTree> SyntaxTree::list(const char* field) const {
  std::vector<SyntaxTree> nodes;
  PyObject* entries = value(field);
  if (!entries || !PyList_CheckExact(entries)) return nodes;
  for (Py_ssize_t i = 0; i < PyList_Size(entries); ++i) {
    nodes.emplace_back(PyList_GetItem(entries, i));
  }
  return nodes;
}

}  // namespace kuStandalone

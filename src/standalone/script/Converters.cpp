#include <boost/python.hpp>
#include <new>
#include <vector>

#include "standalone/script/HostFunctions.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

/** Texts are UTF-8; what is not comes out with its bytes told, and is no error. */
bp::object text(const std::string& bytes) {
  return bp::object(bp::handle<>(PyUnicode_DecodeUTF8(
      bytes.data(), static_cast<Py_ssize_t>(bytes.size()), "backslashreplace")));
}

struct TextsToList {
  static PyObject* convert(const std::vector<std::string>& texts) {
    bp::list list;
    for (const std::string& entry : texts)
      list.append(text(entry));
    return bp::incref(list.ptr());
  }
};

using Texts = std::vector<std::string>;

/** A text is a sequence too, but no list of texts. */
bool isSequenceOfTexts(PyObject* value) {
  if (!PyList_Check(value) && !PyTuple_Check(value)) return false;
  for (Py_ssize_t i = 0; i < PySequence_Size(value); ++i) {
    const bp::handle<> entry(PySequence_GetItem(value, i));
    if (!PyUnicode_Check(entry.get())) return false;
  }
  return true;
}

void* ifTexts(PyObject* value) { return isSequenceOfTexts(value) ? value : nullptr; }

/** Lone surrogates are Python's UnicodeEncodeError. */
void makeTexts(PyObject* value, bp::converter::rvalue_from_python_stage1_data* data) {
  Texts texts;
  for (Py_ssize_t i = 0; i < PySequence_Size(value); ++i) {
    const bp::handle<> entry(PySequence_GetItem(value, i));
    Py_ssize_t size = 0;
    const char* bytes = PyUnicode_AsUTF8AndSize(entry.get(), &size);
    if (!bytes) throw bp::error_already_set();
    texts.emplace_back(bytes, static_cast<std::size_t>(size));
  }
  using Storage = bp::converter::rvalue_from_python_storage<Texts>;
  void* place = reinterpret_cast<Storage*>(data)->storage.bytes;
  data->convertible = new (place) Texts(std::move(texts));
}

}  // namespace

void defineConverters() {
  bp::to_python_converter<Texts, TextsToList>();
  bp::converter::registry::push_back(ifTexts, makeTexts, bp::type_id<Texts>());
}

void throwIndexError(const char* text) {
  PyErr_SetString(PyExc_IndexError, text);
  throw bp::error_already_set();
}

std::string handleText(const char* className, bool valid, const std::string& name) {
  if (!valid) return std::string("<") + className + " without an object>";
  const bp::object quoted(bp::handle<>(PyObject_Repr(text(name).ptr())));
  return std::string("<") + className + " " + bp::extract<std::string>(quoted)() + ">";
}

}  // namespace kuStandalone

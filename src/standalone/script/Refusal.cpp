#include "standalone/script/Refusal.h"

#include <QRegularExpression>
#include <QString>
#include <boost/python/raw_function.hpp>

namespace bp = boost::python;

namespace kuStandalone {

struct Refusal::Accepted {
  std::string signature;
  bool isMethod = false;
};

namespace {

std::string typeOf(const bp::object& value) { return Py_TYPE(value.ptr())->tp_name; }

/** "(str, ignore=int)". */
std::string typesOf(const bp::tuple& arguments, const bp::dict& keywords, bp::ssize_t first) {
  std::string types;
  const auto append = [&](const std::string& one) { types += (types.empty() ? "" : ", ") + one; };
  for (bp::ssize_t i = first; i < bp::len(arguments); ++i)
    append(typeOf(arguments[i]));
  const bp::list names = keywords.keys();
  for (bp::ssize_t i = 0; i < bp::len(names); ++i)
    append(bp::extract<std::string>(names[i])() + '=' + typeOf(keywords[names[i]]));
  return '(' + types + ')';
}

/** Boost writes "\nname( (str)path, (bool)ignore) -> None :\n    text". */
QString signatureIn(const std::string& text) {
  static const QRegularExpression parameter(QStringLiteral("\\((\\w+)\\)(\\w+)"));
  const QString all = QString::fromStdString(text).trimmed();
  QString signature = all.left(all.indexOf(QStringLiteral(" ->")));
  signature.replace(QStringLiteral("( "), QStringLiteral("("));
  return signature.replace(parameter, QStringLiteral("\\2: \\1"));
}

}  // namespace

Refusal::Refusal() : _accepted(std::make_shared<Accepted>()) {}

void Refusal::enter(const bp::object& names, const char* name) const {
  const auto refuse = [accepted = _accepted](const bp::tuple& arguments,
                                             const bp::dict& keywords) -> bp::object {
    const std::string given = typesOf(arguments, keywords, accepted->isMethod ? 1 : 0);
    PyErr_SetString(PyExc_TypeError, (accepted->signature + " cannot take " + given).c_str());
    throw bp::error_already_set();
  };
  _accepted->signature = std::string(name) + "()";
  // Help does not tell of it.
  const bp::docstring_options noText(false);
  bp::objects::add_to_namespace(names, name, bp::raw_function(refuse));
}

void Refusal::takeSignature(const bp::object& function) const {
  const bp::extract<std::string> text(function.attr("__doc__"));
  if (!text.check()) return;
  static const QRegularExpression self(QStringLiteral("\\(self: \\w+(, )?"));
  const QString whole = signatureIn(text);
  QString withoutSelf = whole;
  withoutSelf.replace(self, QStringLiteral("("));
  *_accepted = {withoutSelf.toStdString(), withoutSelf != whole};
}

void Refusal::setSignature(const std::string& signature) const { *_accepted = {signature, true}; }

}  // namespace kuStandalone

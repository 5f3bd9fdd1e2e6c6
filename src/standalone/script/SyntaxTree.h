#pragma once

#include <boost/python/object.hpp>
#include <vector>

namespace kuStandalone {

/**
 * A node of Python's syntax tree, borrowed from the tree that it stands in. Nodes are told by
 * their exact classes, which are captured when the interpreter starts, and their fields are taken
 * from their own dictionaries: neither a class that a script changed nor a name that it rebound
 * has a say. A default-made one is no node, and safe to ask.
 */
class SyntaxTree {
 public:
  enum Class {
    Module,
    Expression,
    Expr,
    Call,
    Name,
    Attribute,
    UnaryOp,
    USub,
    Constant,
    // The literals of Python 3.7, which later versions have no longer.
    Num,
    Str,
    NameConstant,
    ClassCount
  };

  /** Before the first script. */
  static void captureClasses();

  SyntaxTree() = default;
  explicit SyntaxTree(PyObject* node) : _node(node) {}

  bool is(Class wanted) const;

  /** The value of a field as a node; no node if there is no such field. */
  SyntaxTree operator[](const char* field) const { return SyntaxTree(value(field)); }

  /** The value of a field, borrowed; null if there is no such field. */
  PyObject* value(const char* field) const;

  /** The nodes of a field that is a list; none if it is no list. */
  std::vector<SyntaxTree> list(const char* field) const;

 private:
  PyObject* _node = nullptr;
};

}  // namespace kuStandalone

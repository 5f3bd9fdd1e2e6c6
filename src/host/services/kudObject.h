#pragma once

#include <QMetaObject>
#include <QObject>
#include <QString>
#include <cstdint>

#include "host/kuHostExport.h"

/**
 * A scene object held at arm's length: a value that addresses it by its identifier. It stays
 * safe to ask when the object is gone, and then behaves as a null one.
 */
class KUHOST_EXPORT kudObject {
  Q_GADGET

 public:
  /** @param id the identifier of the scene object; 0 is null. */
  explicit kudObject(std::uint32_t id = 0) : _id(id) {}
  kudObject(const kudObject&) = default;
  kudObject& operator=(const kudObject&) = default;
  virtual ~kudObject();

  std::uint32_t getId() const { return _id; }

  /** Whether it addresses no living object. */
  bool isNull() const;

  /** Whether the object addressed is of that class or one derived from it; false for null. */
  bool isTypeOf(const QMetaObject* type) const;

  /** Addresses the same object as @p other. */
  void assign(const kudObject& other) { _id = other._id; }

 private:
  std::uint32_t _id;
};

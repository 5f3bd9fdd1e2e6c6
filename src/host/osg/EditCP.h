#pragma once

#include "host/osg/FieldContainer.h"

namespace osg {

/**
 * Opens an edit bracket: from here on the fields named by @p mask of @p object may be changed.
 * Brackets nest. A null handle is allowed and does nothing.
 * @param origin where the change comes from; always 1.
 */
KUHOST_EXPORT void beginEditCP(const FieldContainerPtr& object, FieldMask mask, unsigned origin);

/**
 * Closes the bracket that was opened with the same object and mask. The host sees the change only
 * now: its views, indices and pictures follow.
 */
KUHOST_EXPORT void endEditCP(const FieldContainerPtr& object, FieldMask mask, unsigned origin);

/** An edit bracket that lasts as long as this object. */
class EditCP {
 public:
  explicit EditCP(FieldContainerPtr object, FieldMask mask = AllFieldsMask)
      : _object(std::move(object)), _mask(mask) {
    beginEditCP(_object, _mask, 1);
  }
  ~EditCP() { endEditCP(_object, _mask, 1); }

  EditCP(const EditCP&) = delete;
  EditCP& operator=(const EditCP&) = delete;

 private:
  FieldContainerPtr _object;
  FieldMask _mask;
};

}  // namespace osg

#pragma once

#include <QImage>

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * The picture in a PNG or JPEG file, which is told by its first bytes; null for every other file, a
 * broken PNG, a JPEG without a picture, and one larger than 16384 pixels a side. Of a JPEG that is
 * broken further on it is what could be read. Profiles and gamma are ignored, as glTF says.
 *
 * Prints nothing, whatever the file.
 */
KUHOST_EXPORT QImage decodePicture(const QByteArray& file);

}  // namespace kuStandalone

#pragma once

#include <QByteArray>

class QDomElement;

/**
 * The file in memory that a "Preview" element holds as base64; null if its first child is no CDATA
 * section. A text of fewer than 80 characters is too short for a picture: it is also printed.
 */
QByteArray kuReadPreview(const QDomElement& element);

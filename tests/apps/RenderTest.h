#pragma once

#include <QImage>

#include "CliTest.h"

/** Has a room beside the car: a door that slides away, in paint, before a grey wall. */
class RenderTest : public CliTest {
 protected:
  RenderTest();

  /** Renders small pictures into the folder "out". */
  CliResult render(const QStringList& more = {}, const QString& document = "room.xml");
  QImage picture(const QString& name);
  /** The names of all files in the folder "out", sorted. */
  QStringList outFiles() const;
};

/** Its sets open the door, paint it blue, change nothing, and run a script. */
extern const char* const roomDocument;

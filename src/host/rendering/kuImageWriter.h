#pragma once

#include <memory>
#include <string>

#include "host/kuHostExport.h"

/**
 * Renders the present scene into an image file in memory. An export is begun with
 * exportImageFastInit, done with exportImageFast and ended with exportImageFastTerminate. Whoever
 * made the writer owns it and deletes it; the end of an export does not. Main thread only.
 */
class KUHOST_EXPORT kuImageWriter {
 public:
  kuImageWriter();
  /** Ends an export that was not ended. */
  ~kuImageWriter();
  kuImageWriter(const kuImageWriter&) = delete;
  kuImageWriter& operator=(const kuImageWriter&) = delete;

  /** With true the user sees no progress while a picture is rendered; false at first. */
  void setNoProgress(bool none);

  /** With true the user is not asked before something is overwritten; false at first. */
  void setNoOverwriteMessage(bool none);

  /**
   * Begins an export.
   * @param width, height of the picture in pixels.
   * @param quality in the host's own numbers; 0 for its default, which follows the render setting
   * of kuRaytracingUtilsBase.
   */
  void exportImageFastInit(int width, int height, int quality);

  /**
   * Renders, and answers the bytes of a file of which QPixmap::loadFromData finds out the format.
   * It returns when the picture is done. Empty where no export was begun, for a size that the host
   * cannot render, and where the user stopped it.
   */
  std::string exportImageFast();

  /** Ends the export; without one it does nothing. */
  void exportImageFastTerminate();

 private:
  /** What the host keeps about an export, defined by the host alone. */
  struct Export;
  std::unique_ptr<Export> _export;
};

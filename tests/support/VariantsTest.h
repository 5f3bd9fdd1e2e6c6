#pragma once

#include <string>

#include "support/MessageRecorder.h"
#include "support/SceneTest.h"

/** Fixture of every test of the library: an empty scene, an empty manager, and the messages. */
class VariantsTest : public SceneTest {
 protected:
  VariantsTest();
  ~VariantsTest() override;

  /**
   * Every message since the test began. What a void* points to stands as "kuVariant Roof",
   * "kuVariantSet Summer" or "kuVariantGroup Seasons" while the manager holds it, and as "unlisted"
   * otherwise: so a pointer of another type than the receivers expect shows.
   */
  MessageRecorder messages;
};

#pragma once

/**
 * The one door by which tests reach what the library keeps private. A test that needs a private
 * member adds a static function here that forwards to it.
 */
struct kuVariantsTestAccess {};

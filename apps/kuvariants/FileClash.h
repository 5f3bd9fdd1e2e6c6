#pragma once

struct Invocation;

/**
 * Throws a Failure where one file is named for two things, so that writing it would destroy the
 * other. A scene may be saved in the place of the scene, and a document in that of the document.
 */
void refuseClashes(const Invocation& invocation);

#pragma once

/**
 * Warns of objects in the present scene whose variants cannot do all that the object could: those
 * without a name, which get no variant; several of one name that have different states; states of
 * one object that share a name.
 */
void warnOfVariableObjects();

// The last step of reading a deck.
#pragma once

#include "Model.h"

// Adds one number to what a set names; a number that follows the last one lengthens its run.
void AddRun(NumberSet& set, LONG number);

// Sorts nodes and elements (the last definition of a number counts), checks that elements find their nodes,
// gathers the members of the sets and gives elements their sections (the last section of an element counts).
// Throws CDeckException for an element's node or a section's set that is missing.
void FinishModel(CModel& model);

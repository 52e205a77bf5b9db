// Interfaces of linked and embedded objects: none is offered; the header exists for sources that name it.
#pragma once

#include "objidl.h"

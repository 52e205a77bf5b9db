// Routes new and delete of the files that include it to the allocation tracker (see AllocMap.h).
//
//   #include <vector>              // every other header first
//   #include <MemoryLeakTester.h>  // last
//
// One source of the program also makes the tracker:
//
//   #define MEMORY_LEAK_TESTER_INSTANCE
//   #include <MemoryLeakTester.h>
//
// Order: last of all includes. Only headers of the C++ library (but <execution>), of C and of this library may
//   follow.
// What is tracked: every form of new that allocates (objects, arrays, nothrow, aligned), with its file, line and
//   size. A block is forgotten wherever the program deletes it: in these files, in others, in a smart pointer.
//   Construction over storage that is there (`new (place) T`) and classes that allocate for themselves go on as
//   ever. Files without the header are not touched: what they allocate is not recorded.
// What is not seen, and stays recorded: what free() takes, and what another module of a Windows program deletes.
// Failed deletes: in these files alone; of null, of what was allocated before tracking began, and of classes
//   with an operator delete of their own.
// Below the include
//  - a cast or a delete right in front of new needs parentheses: `(void*)(new T)`; `*new T` and `::new T` are
//    fine;
//  - delete cannot be a specifier: files with functions that are deleted (`= delete`) below it, also in macros
//    of others, define MEMORY_LEAK_TESTER_PLAIN_DELETE first. Their deletes are not announced and never fail;
//    for all the rest nothing changes;
//  - allocation functions cannot be named (`operator new`): write #undef new above, and include the header once
//    more below;
//  - the number of elements may allocate memory itself (`new T[Count()]`): this uses up a number (KEY).
// Threads: any.
//
// This header has no guard: including it again restores the macros.

#include "leaktester/Headers.h"
#include "leaktester/Sites.h"

#undef new
#undef delete
#ifdef MEMORY_LEAK_TESTER_INSTANCE
#include "leaktester/Operators.h"
#endif

#define new ZekNewSite(__FILE__, __LINE__)->*new
#ifndef MEMORY_LEAK_TESTER_PLAIN_DELETE
#define delete ZekDeleteSite(__FILE__, __LINE__) ? static_cast<void>(0) : delete
#endif
